#include "support/CRegSettings.h"

#include "automation/Fault.h"
#include "support/Module.h"
#include "support/Registry.h"
#include "support/SettingsTable.h"
#include "support/Text.h"

namespace zelbar {
namespace {

constexpr wchar_t kSoftware[] = L"Software";
/// The last of the predefined roots.
constexpr std::uint32_t kLastRoot = 0x80000006;

std::wstring valueName(const std::wstring& name) {
    return name == L"*" ? std::wstring() : name;
}

void assign(std::wstring& part, const std::wstring& value, const std::wstring& whenEmpty) {
    const std::wstring text(trimmed(value));
    part = text.empty() ? whenEmpty : text;
}

}  // namespace

CRegSettings::CRegSettings() : CRegSettings(std::wstring()) {}

CRegSettings::CRegSettings(const std::wstring& appName)
    : title_(thisModule().title), softwareKey_(kSoftware), company_(kCompany) {
    AppName(appName);
}

void CRegSettings::hKey(HKEY root) noexcept {
    const auto number = static_cast<std::int32_t>(reinterpret_cast<std::uintptr_t>(root));
    root_ = number > static_cast<std::int32_t>(kLastRoot) ? HKEY_CURRENT_USER : root;
}

void CRegSettings::SoftwareKey(const std::wstring& name) {
    assign(softwareKey_, name, kSoftware);
}

void CRegSettings::Company(const std::wstring& name) {
    assign(company_, name, kCompany);
}

void CRegSettings::AppName(const std::wstring& name) {
    assign(appName_, name, title_);
}

std::wstring CRegSettings::pathOf(const std::wstring& section) const {
    const std::wstring basePath = softwareKey_ + L"\\" + company_ + L"\\" + appName_;
    return section.empty() ? basePath : basePath + L"\\" + section;
}

std::wstring CRegSettings::GetSetting(const std::wstring& section, const std::wstring& name,
                                      const std::wstring& defaultValue) const {
    const RegistryKey key = RegistryKey::open(root_, pathOf(section), KEY_READ);
    if (!key) return defaultValue;
    const auto text = key.characters(valueName(name));
    return text ? std::wstring(untilNul(*text)) : defaultValue;
}

std::int32_t CRegSettings::GetSettingLong(const std::wstring& section, const std::wstring& name,
                                          [[maybe_unused]] std::int32_t defaultValue) const {
    const RegistryKey key = RegistryKey::open(root_, pathOf(section), KEY_READ);
    if (!key) return -1;
    std::int32_t value = 0;
    DWORD size = sizeof(value);
    DWORD type = REG_NONE;
    const LSTATUS status = RegQueryValueExW(key.get(), valueName(name).c_str(), nullptr, &type,
                                            reinterpret_cast<BYTE*>(&value), &size);
    const bool isText = type == REG_SZ || type == REG_EXPAND_SZ;
    return status == ERROR_SUCCESS && size == sizeof(value) && !isText ? value : 0;
}

bool CRegSettings::bGetSetting(const std::wstring& section, const std::wstring& name,
                               bool defaultValue) const {
    return !GetSetting(section, name, defaultValue ? L"1" : L"0").starts_with(L'0');
}

std::int16_t CRegSettings::iGetSetting(const std::wstring& section, const std::wstring& name,
                                       std::int16_t defaultValue) const {
    const auto number = leadingInteger16(GetSetting(section, name, std::to_wstring(defaultValue)));
    if (!number) throw runtimeFault(fault::kOverflow);
    return *number;
}

bool CRegSettings::SaveSetting(const std::wstring& section, const std::wstring& name,
                               const std::wstring& value) {
    RegistryKey key = RegistryKey::create(root_, pathOf(section), KEY_ALL_ACCESS);
    if (!key) return false;
    return value.empty() ? key.deleteValue(valueName(name)) : key.write(valueName(name), value);
}

bool CRegSettings::DeleteSetting(const std::wstring& section, const std::wstring& name) {
    if (!name.empty()) {
        RegistryKey key = RegistryKey::open(root_, pathOf(section), KEY_ALL_ACCESS);
        return key && key.deleteValue(valueName(name));
    }
    // Without a section the system would take the base path itself, and all settings with it.
    if (section.empty()) return false;
    RegistryKey base = RegistryKey::open(root_, pathOf(L""), KEY_ALL_ACCESS);
    return base && base.deleteSubkey(section);
}

std::wstring CRegSettings::GetSettingFromHKey(HKEY root, const std::wstring& appName,
                                              const std::wstring& section, const std::wstring& name,
                                              const std::wstring& defaultValue) {
    hKey(root);
    AppName(appName);
    return GetSetting(section, name, defaultValue);
}

std::wstring CRegSettings::GetSettingLongFromHKey(HKEY root, const std::wstring& appName,
                                                  const std::wstring& section, const std::wstring& name,
                                                  std::int32_t defaultValue) {
    hKey(root);
    AppName(appName);
    return std::to_wstring(GetSettingLong(section, name, defaultValue));
}

bool CRegSettings::SaveSettingToHKey(HKEY root, const std::wstring& appName, const std::wstring& section,
                                     const std::wstring& name, const std::wstring& value) {
    hKey(root);
    AppName(appName);
    return SaveSetting(section, name, value);
}

bool CRegSettings::DeleteKey(HKEY root, const std::wstring& appName, const std::wstring& section,
                             const std::wstring& name) {
    hKey(root);
    AppName(appName);
    return DeleteSetting(section, name);
}

bool CRegSettings::IsUserAdmin(HKEY root) {
    return static_cast<bool>(RegistryKey::open(root, kSoftware, KEY_ALL_ACCESS));
}

}  // namespace zelbar
