#include "client/bundle/FileText.h"

#include <windows.h>

#include "support/Handle.h"

namespace pimcall::bundle {

std::string fileBytes(const std::wstring& path, std::size_t most) {
    constexpr DWORD kShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const zelbar::FileHandle file(
        CreateFileW(path.c_str(), GENERIC_READ, kShare, nullptr, OPEN_EXISTING, 0, nullptr));
    LARGE_INTEGER size{};
    if (!file || !GetFileSizeEx(file.get(), &size)) return {};
    constexpr LONGLONG kTooLarge = 1LL << 30;
    LONGLONG wanted = size.QuadPart < kTooLarge ? size.QuadPart : kTooLarge;
    if (most != kWholeFile && wanted > static_cast<LONGLONG>(most)) wanted = static_cast<LONGLONG>(most);
    LARGE_INTEGER start{};
    start.QuadPart = size.QuadPart - wanted;
    std::string bytes(static_cast<std::size_t>(wanted), '\0');
    DWORD count = 0;
    if (!SetFilePointerEx(file.get(), start, nullptr, FILE_BEGIN) ||
        !ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr))
        return {};
    bytes.resize(count);
    return bytes;
}

}  // namespace pimcall::bundle
