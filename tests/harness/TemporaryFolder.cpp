#include "tests/harness/TemporaryFolder.h"

#include <windows.h>

#include <filesystem>
#include <stdexcept>

namespace harness {
namespace {

std::wstring freshPath() {
    static unsigned count = 0;
    wchar_t parent[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, parent);
    return parent + (L"zelbar-test-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                     std::to_wstring(GetTickCount64()) + L"-" + std::to_wstring(++count));
}

void makeDirectory(const std::wstring& path) {
    if (!CreateDirectoryW(path.c_str(), nullptr)) throw std::runtime_error("no temporary folder");
}

void removeFlat(const std::wstring& folder) {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored))
        if (!entry.is_directory(ignored)) std::filesystem::remove(entry.path(), ignored);
    RemoveDirectoryW(folder.c_str());
}

}  // namespace

TemporaryFolder::TemporaryFolder() : folders_{freshPath()} {
    makeDirectory(path());
}

TemporaryFolder::~TemporaryFolder() {
    for (auto folder = folders_.rbegin(); folder != folders_.rend(); ++folder) removeFlat(*folder);
}

const std::wstring& TemporaryFolder::makeFolder(const std::wstring& name) {
    const std::wstring path = file(name);
    makeDirectory(path);
    return folders_.emplace_back(path);
}

}  // namespace harness
