#include "standin/dao/FileAccess.h"

#include <array>
#include <memory>
#include <string_view>
#include <type_traits>

#include "standin/dao/DaoError.h"

namespace standin::dao {
namespace {

struct HandleCloser {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using UniqueHandle = std::unique_ptr<std::remove_pointer_t<HANDLE>, HandleCloser>;

bool exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

[[noreturn]] void raiseForMissing(const std::wstring& path, DWORD error) {
    if (error == ERROR_FILE_NOT_FOUND) raise(3024, path);
    if (error == ERROR_ACCESS_DENIED) raise(3051, path);
    raise(3044, path);
}

[[noreturn]] void raiseInUse(const std::wstring& path, Access access) {
    const bool byJet = exists(LockFile::pathFor(path));
    if (access == Access::exclusive || !byJet) raise(3045, path);
    std::array<wchar_t, MAX_COMPUTERNAME_LENGTH + 1> machine{};
    auto size = static_cast<DWORD>(machine.size());
    GetComputerNameW(machine.data(), &size);
    raise(3356, path, machine.data());
}

bool hasDatabaseHeader(HANDLE file) {
    constexpr std::string_view kHeader{"SQLite format 3", 16};
    std::array<char, kHeader.size()> start{};
    DWORD count = 0;
    return ReadFile(file, start.data(), static_cast<DWORD>(start.size()), &count, nullptr) &&
           std::string_view(start.data(), count) == kHeader;
}

}  // namespace

LockFile::LockFile(const std::wstring& path) : path_(path) {
    if (path.empty()) return;
    handle_ = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                          nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle_ == INVALID_HANDLE_VALUE) raise(3051, path);
}

LockFile::~LockFile() {
    if (handle_ == INVALID_HANDLE_VALUE) return;
    CloseHandle(handle_);
    // Fails as long as someone else has the database open, which is right.
    DeleteFileW(path_.c_str());
}

std::wstring LockFile::pathFor(const std::wstring& database) {
    const std::size_t dot = database.rfind(L'.');
    const std::size_t slash = database.find_last_of(L"\\/");
    const bool hasExtension = dot != std::wstring::npos && (slash == std::wstring::npos || dot > slash);
    return (hasExtension ? database.substr(0, dot) : database) + L".ldb";
}

std::wstring wholePath(const std::wstring& name) {
    const DWORD size = GetFullPathNameW(name.c_str(), 0, nullptr, nullptr);
    if (size == 0) return name;
    std::wstring path(size, L'\0');
    path.resize(GetFullPathNameW(name.c_str(), size, path.data(), nullptr));
    return path;
}

void checkDatabaseFile(const std::wstring& path, Access access) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) raiseForMissing(path, GetLastError());
    const bool writes = access != Access::readOnly;
    const bool refused =
        (attributes & FILE_ATTRIBUTE_DIRECTORY) || (writes && (attributes & FILE_ATTRIBUTE_READONLY));
    if (refused) raise(3051, path);

    const DWORD wanted = writes ? GENERIC_READ | GENERIC_WRITE : GENERIC_READ;
    const DWORD sharing = access == Access::exclusive ? 0 : FILE_SHARE_READ | FILE_SHARE_WRITE;
    const HANDLE handle = CreateFileW(path.c_str(), wanted, sharing, nullptr, OPEN_EXISTING, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        if (error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION) raiseInUse(path, access);
        raiseForMissing(path, error);
    }
    const UniqueHandle file(handle);
    if (!hasDatabaseHeader(handle)) raise(3343, path);
}

void checkNewDatabaseFile(const std::wstring& path) {
    if (exists(path)) raise(3204);
    const HANDLE handle = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE) raiseForMissing(path, GetLastError());
    CloseHandle(handle);
}

}  // namespace standin::dao
