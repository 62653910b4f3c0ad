#include "support/modMultiUser.h"
#include "tests/support/Fixture.h"

namespace zelbar {
namespace {

using harness::exists;

class DataPathTest : public SupportTest {
  protected:
    bool hasErrors() const { return !errors.ErrorLogFileName().empty(); }

    mLogError errors{module};
    modMultiUser paths{module, errors};
};

struct Choice {
    const char* name;
    const wchar_t* userPath;
    const wchar_t* multiUser;
    const wchar_t* machinePath;
    const wchar_t* chosen;  ///< Below the test's folder; empty is the driver's own folder.
    bool perUser;
};

class DataPathChoice : public DataPathTest, public testing::WithParamInterface<Choice> {};

TEST_P(DataPathChoice, IsMadeWithItsParents) {
    const Choice& c = GetParam();
    const auto below = [&](const wchar_t* path) { return *path ? folder.file(path) : folder.path(); };
    if (c.userPath) registry.set(HKEY_CURRENT_USER, kClient, L"DataPath", L"  " + below(c.userPath) + L"  ");
    if (c.multiUser) registry.set(HKEY_LOCAL_MACHINE, kInstall, L"MultiUser", c.multiUser);
    if (c.machinePath) registry.set(HKEY_LOCAL_MACHINE, kInstall, L"DataPath", below(c.machinePath));
    const std::wstring chosen = below(c.chosen);
    EXPECT_EQ(paths.DataPath(), chosen);
    EXPECT_EQ(paths.IsPerUserPath(), c.perUser);
    EXPECT_TRUE(exists(chosen));
    EXPECT_FALSE(hasErrors());

    registry.set(HKEY_CURRENT_USER, kClient, L"DataPath", folder.file(L"later"));
    EXPECT_EQ(paths.DataPath(), chosen) << "chosen once";
    for (auto made = chosen; made.size() > folder.path().size(); made.resize(made.rfind(L'\\'))) {
        RemoveDirectoryW(made.c_str());
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, DataPathChoice,
    testing::Values(Choice{"Nothing", nullptr, nullptr, nullptr, L"AppData\\Norvane Tessaria", true},
                    Choice{"MultiUser", nullptr, L" YES ", L"machine", L"AppData\\Norvane Tessaria", true},
                    Choice{"SingleUser", nullptr, L"NO", L"ma\\chine", L"ma\\chine", false},
                    Choice{"SingleUserWithoutFolder", nullptr, L"no", nullptr, L"", false},
                    Choice{"SingleUserWithSeparator", nullptr, L"no", L"machine\\", L"machine", false},
                    Choice{"OwnChoiceWithSeparator", L"own\\", L"no", nullptr, L"own", true},
                    Choice{"OwnChoice", L"own\\data", L"no", L"machine", L"own\\data", true}),
    [](const auto& choice) { return std::string(choice.param.name); });

TEST_F(DataPathTest, FailuresGoToTheErrorFile) {
    harness::writeFile(folder.file(L"file"), "x");
    paths.MakeSubDir(folder.file(L"file"));
    EXPECT_FALSE(hasErrors()) << "a file of that name counts as the folder";
    const std::wstring bad = folder.file(L"file\\sub");
    paths.MakeSubDir(bad);
    const auto lines = harness::lines(harness::readFile(errors.ErrorLogFileName()));
    ASSERT_EQ(lines.size(), 2u) << "the parent with its separator, and the folder";
    EXPECT_NE(lines[1].find(" - modMultiUser.MakeDir\t" + std::string(bad.begin(), bad.end()) + "\t-\t"),
              std::string::npos)
        << lines[1];
}

}  // namespace
}  // namespace zelbar
