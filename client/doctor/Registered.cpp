#include "client/doctor/Registered.h"

#include <objbase.h>

#include "support/Handle.h"
#include "support/Registry.h"
#include "support/Text.h"

namespace pimcall::doctor {
namespace {

using zelbar::RegistryKey;

std::wstring expanded(const std::wstring& text) {
    wchar_t buffer[2048];
    const DWORD length = ExpandEnvironmentStringsW(text.c_str(), buffer, ARRAYSIZE(buffer));
    return length > 0 && length <= ARRAYSIZE(buffer) ? buffer : text;
}

bool isFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

/// "C:\Program Files\a.exe /automation" may stand without quotation marks: Windows tries each blank as the
/// end of the name.
std::wstring pathIn(const std::wstring& commandLine) {
    const std::wstring line = expanded(commandLine);
    if (line.starts_with(L'"')) return line.substr(1, line.find(L'"', 1) - 1);
    if (isFile(line)) return line;
    for (std::size_t blank = line.find(L' '); blank != std::wstring::npos; blank = line.find(L' ', blank + 1))
        if (isFile(line.substr(0, blank))) return line.substr(0, blank);
    return line;
}

std::wstring versionOf(const std::wstring& path) {
    DWORD unused = 0;
    const DWORD size = GetFileVersionInfoSizeW(path.c_str(), &unused);
    std::vector<char> block(size);
    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    if (size == 0 || !GetFileVersionInfoW(path.c_str(), 0, size, block.data()) ||
        !VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&fixed), &length))
        return {};
    return std::to_wstring(HIWORD(fixed->dwFileVersionMS)) + L"." +
           std::to_wstring(LOWORD(fixed->dwFileVersionMS)) + L"." +
           std::to_wstring(HIWORD(fixed->dwFileVersionLS)) + L"." +
           std::to_wstring(LOWORD(fixed->dwFileVersionLS));
}

/// From the file's own header: asking Windows would work for programs, not for libraries.
int bitsOf(const std::wstring& path) {
    const zelbar::FileHandle file(CreateFileW(path.c_str(), GENERIC_READ,
                                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                              OPEN_EXISTING, 0, nullptr));
    char head[4096] = {};
    DWORD count = 0;
    if (!file || !ReadFile(file.get(), head, sizeof head, &count, nullptr)) return 0;
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(head);
    if (count < sizeof *dos || dos->e_magic != IMAGE_DOS_SIGNATURE || dos->e_lfanew < 0 ||
        static_cast<DWORD>(dos->e_lfanew) + sizeof(IMAGE_NT_HEADERS32) > count)
        return 0;
    const auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS32*>(head + dos->e_lfanew);
    if (nt->Signature != IMAGE_NT_SIGNATURE) return 0;
    return nt->FileHeader.Machine == IMAGE_FILE_MACHINE_I386 ? 32 : 64;
}

}  // namespace

std::wstring textAt(HKEY root, const std::wstring& path, const wchar_t* name, REGSAM view) {
    const auto key = RegistryKey::open(root, path, KEY_READ | view);
    return key ? std::wstring(zelbar::untilNul(key.characters(name).value_or(L""))) : std::wstring();
}

std::optional<DWORD> numberAt(HKEY root, const std::wstring& path, const wchar_t* name, REGSAM view) {
    const auto key = RegistryKey::open(root, path, KEY_READ | view);
    DWORD value = 0, size = sizeof value;
    if (!key || RegGetValueW(key.get(), nullptr, name, RRF_RT_REG_DWORD, nullptr, &value, &size)) return {};
    return value;
}

bool keyExists(HKEY root, const std::wstring& path, REGSAM view) {
    return static_cast<bool>(RegistryKey::open(root, path, KEY_READ | view));
}

std::vector<std::wstring> subkeysOf(HKEY root, const std::wstring& path, REGSAM view) {
    std::vector<std::wstring> names;
    const auto key = RegistryKey::open(root, path, KEY_READ | view);
    wchar_t name[256];
    for (DWORD index = 0, length = ARRAYSIZE(name);
         key &&
         RegEnumKeyExW(key.get(), index, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++index, length = ARRAYSIZE(name))
        names.emplace_back(name, length);
    return names;
}

ProgramFile programFile(const std::wstring& commandLine) {
    ProgramFile file;
    if (commandLine.empty()) return file;
    file.path = pathIn(commandLine);
    file.exists = isFile(file.path);
    if (!file.exists) return file;
    file.version = versionOf(file.path);
    file.bits = bitsOf(file.path);
    return file;
}

FileFacts fileFacts(const std::wstring& path) {
    FileFacts facts{path, false, 0};
    WIN32_FILE_ATTRIBUTE_DATA data{};
    facts.exists = GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) != FALSE;
    if (facts.exists) facts.bytes = (static_cast<ULONGLONG>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
    return facts;
}

std::wstring guidText(const GUID& id) {
    wchar_t text[40] = {};
    StringFromGUID2(id, text, ARRAYSIZE(text));
    return text;
}

}  // namespace pimcall::doctor
