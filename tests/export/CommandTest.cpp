#include "tests/client/ProgramRun.h"
#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

// `pimcall export`, with this driver.
TEST_F(ExportTest, TheCommandExportsAndSaysWhatCameOfIt) {
    using pimcall::ExitCode;
    directory.fill(2);
    const auto driverOf = [this] { return pimcall::Driver(&connector()); };
    const std::wstring file = folder.file(L"wxd.mdb");
    const struct {
        std::vector<std::wstring> words;
        ExitCode exitCode;
        const wchar_t* out;
    } cases[] = {
        {{L"export"}, ExitCode::Usage, L""},
        {{L"export", L"all", L"--database", file}, ExitCode::Usage, L""},
        {{L"export", L"sync"}, ExitCode::Usage, L""},
        {{L"export", L"sync", L"--database", file + L"x"}, ExitCode::Failed, L""},
        {{L"export", L"sync", L"--database", file}, ExitCode::Failed, L""},
        {{L"export", L"init", L"--database", file, L"--folder", L"Staff"},
         ExitCode::Found,
         L"The employees are in the export folder.\n"},
        {{L"export", L"sync", L"--database", file, L"--json"}, ExitCode::Found, L"{\"complete\":true}\n"},
    };
    for (const auto& c : cases) {
        const pimcall::ProgramRun run(c.words, driverOf);
        EXPECT_EQ(run.exitCode, c.exitCode) << c.words.size();
        EXPECT_EQ(run.out, c.out);
        EXPECT_EQ(run.error.empty(), run.exitCode == ExitCode::Found);
    }
    expectOneEach(2);
}

}  // namespace

}  // namespace zelbar
