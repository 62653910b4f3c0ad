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

TEST_F(DataPathTest, IsChosenOnceAndMadeWithItsParents) {
    const struct {
        const wchar_t *userPath, *multiUser, *machinePath;
        const wchar_t* chosen;  ///< Below the test's folder; empty is the driver's own folder.
        bool perUser;
    } cases[] = {
        {nullptr, nullptr, nullptr, L"AppData\\Norvane Tessaria", true},
        {nullptr, L" YES ", L"machine", L"AppData\\Norvane Tessaria", true},
        {nullptr, L"NO", L"ma\\chine", L"ma\\chine", false},
        {nullptr, L"no", nullptr, L"", false},
        {nullptr, L"no", L"machine\\", L"machine", false},
        {L"own\\", L"no", nullptr, L"own", true},
        {L"own\\data", L"no", L"machine", L"own\\data", true},
    };
    const auto below = [&](const wchar_t* path) { return *path ? folder.file(path) : folder.path(); };
    for (const auto& c : cases) {
        RegDeleteTreeW(HKEY_CURRENT_USER, kClient);
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, kInstall);
        if (c.userPath)
            registry.set(HKEY_CURRENT_USER, kClient, L"DataPath", L"  " + below(c.userPath) + L"  ");
        if (c.multiUser) registry.set(HKEY_LOCAL_MACHINE, kInstall, L"MultiUser", c.multiUser);
        if (c.machinePath) registry.set(HKEY_LOCAL_MACHINE, kInstall, L"DataPath", below(c.machinePath));
        const std::wstring chosen = below(c.chosen);
        modMultiUser chooser(module, errors);
        EXPECT_EQ(chooser.DataPath(), chosen);
        EXPECT_EQ(chooser.IsPerUserPath(), c.perUser) << chosen;
        EXPECT_TRUE(exists(chosen));
        EXPECT_FALSE(hasErrors());
        registry.set(HKEY_CURRENT_USER, kClient, L"DataPath", folder.file(L"later"));
        EXPECT_EQ(chooser.DataPath(), chosen) << "chosen once";
        for (auto made = chosen; made.size() > folder.path().size(); made.resize(made.rfind(L'\\')))
            RemoveDirectoryW(made.c_str());
    }
}

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
