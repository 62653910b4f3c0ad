#include "support/LineFile.h"

#include "support/Encoding.h"

namespace zelbar {

namespace {

constexpr DWORD kOthersMayRead = FILE_SHARE_READ | FILE_SHARE_DELETE;

FileHandle opened(const std::wstring& path, DWORD access, DWORD othersMay, DWORD disposition) noexcept {
    return FileHandle(
        CreateFileW(path.c_str(), access, othersMay, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

}  // namespace

bool LineFile::open(const std::wstring& path) noexcept {
    // Appending is the system's: lines of two programs stand one behind the other.
    file_ = opened(path, FILE_APPEND_DATA, kOthersMayRead | FILE_SHARE_WRITE, OPEN_ALWAYS);
    return isOpen();
}

bool LineFile::isBeingWritten(const std::wstring& path) noexcept {
    return !opened(path, GENERIC_READ, kOthersMayRead, OPEN_EXISTING) &&
           GetLastError() == ERROR_SHARING_VIOLATION;
}

void LineFile::empty(const std::wstring& path) noexcept {
    opened(path, GENERIC_WRITE, kOthersMayRead, CREATE_ALWAYS);
}

void LineFile::write(std::wstring_view line) noexcept {
    if (!isOpen()) return;
    try {
        const std::string bytes = utf8(line) + "\r\n";
        DWORD written = 0;
        WriteFile(file_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    } catch (...) {
        // Out of memory: the line is lost.
    }
}

}  // namespace zelbar
