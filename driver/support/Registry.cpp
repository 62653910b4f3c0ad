#include "support/Registry.h"

#include <array>
#include <string_view>
#include <utility>

#include "automation/Fault.h"
#include "support/Text.h"

namespace zelbar {
namespace {

constexpr REGSAM kReadWrite = KEY_READ | KEY_WRITE | KEY_CREATE_LINK;
constexpr DWORD kLongestText = 1024;

const BYTE* bytesOf(const wchar_t* text) {
    return reinterpret_cast<const BYTE*>(text);
}
bool isText(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ;
}

}  // namespace

RegistryKey RegistryKey::open(HKEY root, const std::wstring& path, REGSAM access, LSTATUS* status) noexcept {
    RegistryKey key;
    const LSTATUS opened = RegOpenKeyExW(root, path.c_str(), 0, access, key.key_.put());
    if (status) *status = opened;
    return opened == ERROR_SUCCESS ? std::move(key) : RegistryKey();
}

RegistryKey RegistryKey::create(HKEY root, const std::wstring& path, REGSAM access) noexcept {
    // The class that the driver's keys have; it carries no meaning.
    wchar_t keyClass[] = L"1";
    RegistryKey key;
    if (RegCreateKeyExW(root, path.c_str(), 0, keyClass, REG_OPTION_NON_VOLATILE, access, nullptr,
                        key.key_.put(), nullptr) != ERROR_SUCCESS) {
        return {};
    }
    return key;
}

std::optional<std::wstring> RegistryKey::characters(const std::wstring& name, LSTATUS* status) const {
    DWORD type = REG_NONE;
    DWORD size = 0;
    std::string bytes;
    const auto query = [&](BYTE* into) {
        const LSTATUS result = RegQueryValueExW(key_.get(), name.c_str(), nullptr, &type, into, &size);
        if (status) *status = result;
        return result == ERROR_SUCCESS;
    };
    if (!query(nullptr)) return std::nullopt;
    bytes.resize(size);
    if (!query(reinterpret_cast<BYTE*>(bytes.data()))) return std::nullopt;
    bytes.resize(size);
    if (!isText(type)) {
        std::wstring text;
        for (const char byte : bytes) text += static_cast<unsigned char>(byte);
        return text;
    }
    std::wstring text(size / sizeof(wchar_t), L'\0');
    bytes.copy(reinterpret_cast<char*>(text.data()), text.size() * sizeof(wchar_t));
    return text;
}

bool RegistryKey::write(const std::wstring& name, const std::wstring& value) noexcept {
    const auto size = static_cast<DWORD>(value.size() * sizeof(wchar_t));
    return RegSetValueExW(key_.get(), name.c_str(), 0, REG_SZ, bytesOf(value.c_str()), size) == ERROR_SUCCESS;
}

bool RegistryKey::deleteValue(const std::wstring& name) noexcept {
    return RegDeleteValueW(key_.get(), name.c_str()) == ERROR_SUCCESS;
}

bool RegistryKey::deleteSubkey(const std::wstring& name) noexcept {
    return RegDeleteKeyW(key_.get(), name.c_str()) == ERROR_SUCCESS;
}

std::wstring RegReadString(HKEY root, const std::wstring& path, const std::wstring& name) {
    const RegistryKey key = RegistryKey::open(root, path, KEY_READ);
    if (!key) return {};
    std::array<wchar_t, kLongestText> buffer{};
    DWORD size = sizeof(buffer);
    DWORD type = REG_NONE;
    auto* const bytes = reinterpret_cast<BYTE*>(buffer.data());
    if (RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, bytes, &size) != ERROR_SUCCESS) return {};
    if (isText(type)) {
        return std::wstring(untilNul({buffer.data(), size / sizeof(wchar_t)}));
    }
    if (type != REG_DWORD) return {};
    const std::string_view stored(reinterpret_cast<const char*>(buffer.data()), size);
    return decodedDword(stored.substr(0, stored.find('\0')));
}

std::wstring RegReadStored(HKEY root, const std::wstring& path, const std::wstring& name) {
    LSTATUS status = ERROR_SUCCESS;
    const RegistryKey key = RegistryKey::open(root, path, KEY_READ, &status);
    const auto text = key ? key.characters(name, &status) : std::nullopt;
    if (text) return std::wstring(untilNul(*text));
    if (status != ERROR_FILE_NOT_FOUND) throw faultOf(HRESULT_FROM_WIN32(static_cast<DWORD>(status)), path);
    return {};
}

bool RegWriteString(HKEY root, const std::wstring& path, const std::wstring& name,
                    const std::wstring& value) {
    RegistryKey key = RegistryKey::create(root, path, kReadWrite);
    return key && key.write(name, value.empty() ? L" " : value);
}

bool RegKeyExists(HKEY root, const std::wstring& path) {
    return static_cast<bool>(RegistryKey::open(root, path, KEY_READ));
}

}  // namespace zelbar
