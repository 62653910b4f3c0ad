#include "support/Registry.h"

#include <array>
#include <string_view>

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

RegistryKey RegistryKey::open(HKEY root, const std::wstring& path, REGSAM access) noexcept {
    RegistryKey key;
    if (RegOpenKeyExW(root, path.c_str(), 0, access, key.key_.put()) != ERROR_SUCCESS) return {};
    return key;
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

std::optional<std::wstring> RegistryKey::characters(const std::wstring& name) const {
    DWORD type = REG_NONE;
    DWORD size = 0;
    if (RegQueryValueExW(key_.get(), name.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    std::string bytes(size, '\0');
    if (RegQueryValueExW(key_.get(), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(bytes.data()),
                         &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
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

bool RegWriteString(HKEY root, const std::wstring& path, const std::wstring& name,
                    const std::wstring& value) {
    RegistryKey key = RegistryKey::create(root, path, kReadWrite);
    return key && key.write(name, value.empty() ? L" " : value);
}

bool RegKeyExists(HKEY root, const std::wstring& path) {
    return static_cast<bool>(RegistryKey::open(root, path, KEY_READ));
}

}  // namespace zelbar
