#include "tests/support/Fixture.h"

namespace zelbar {
namespace {

/// The harness deletes, but never through a folder that may be a link to somewhere else.
TEST(TemporaryFolderTest, DeletesOnlyWhatItMade) {
    std::wstring inner;
    std::wstring foreign;
    {
        harness::TemporaryFolder folder;
        harness::writeFile(folder.file(L"file"), "x");
        inner = folder.makeFolder(L"own");
        harness::writeFile(inner + L"\\file", "x");
        foreign = folder.file(L"foreign");
        CreateDirectoryW(foreign.c_str(), nullptr);
        harness::writeFile(foreign + L"\\kept", "x");
    }
    EXPECT_FALSE(harness::exists(inner));
    EXPECT_TRUE(harness::exists(foreign + L"\\kept"));
    DeleteFileW((foreign + L"\\kept").c_str());
    RemoveDirectoryW(foreign.c_str());
    RemoveDirectoryW(foreign.substr(0, foreign.find_last_of(L'\\')).c_str());
}

}  // namespace
}  // namespace zelbar
