#include "support/Settings.h"

#include "support/CRegSettings.h"
#include "support/Registry.h"
#include "support/Text.h"

namespace zelbar {

namespace {

HKEY rootOf(const Setting& setting) {
    return setting.root == Setting::Root::CurrentUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

CRegSettings classOf(const Setting& setting) {
    CRegSettings result(setting.application);
    result.hKey(rootOf(setting));
    return result;
}

std::wstring numbered(const Setting& setting, std::size_t number) {
    return setting.name + std::to_wstring(number);
}

}  // namespace

std::wstring keyOf(const Setting& setting, const std::wstring& company) {
    std::wstring key = L"Software\\" + company + L"\\" + setting.application;
    if (*setting.section) key += std::wstring(L"\\") + setting.section;
    return key;
}

std::wstring readSetting(const Setting& setting, const std::wstring& company) {
    return RegReadString(rootOf(setting), keyOf(setting, company), setting.name);
}

std::wstring userOrMachineSetting(const Setting& setting) {
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE})
        if (const auto value = trimmed(RegReadString(root, keyOf(setting), setting.name)); !value.empty())
            return std::wstring(value);
    return {};
}

bool writeSetting(const Setting& setting, const std::wstring& value) {
    return RegWriteString(rootOf(setting), keyOf(setting), setting.name, value);
}

std::wstring getSetting(const Setting& setting, const std::wstring& fallback) {
    return classOf(setting).GetSetting(setting.section, setting.name, fallback);
}

std::wstring getSetting(const Setting& setting, std::size_t number) {
    return classOf(setting).GetSetting(setting.section, numbered(setting, number));
}

std::wstring storedSetting(const Setting& setting) {
    return RegReadStored(rootOf(setting), keyOf(setting), setting.name);
}

bool saveSetting(const Setting& setting, const std::wstring& value) {
    return classOf(setting).SaveSetting(setting.section, setting.name, value);
}

bool saveSetting(const Setting& setting, std::size_t number, const std::wstring& value) {
    return classOf(setting).SaveSetting(setting.section, numbered(setting, number), value);
}

bool deleteSection(const Setting& setting) {
    return classOf(setting).DeleteSetting(setting.section, L"");
}

std::vector<StoredFolder> storedFolders() {
    std::vector<StoredFolder> result;
    const auto stored = [](const Setting& setting, std::size_t number) {
        return RegReadStored(rootOf(setting), keyOf(setting), numbered(setting, number));
    };
    for (std::size_t number = 1;; ++number) {
        std::wstring entryId = stored(settings::kEntryId, number);
        if (entryId.empty()) return result;
        result.push_back({std::move(entryId), stored(settings::kStoreId, number),
                          stored(settings::kSelectId, number) != L"0"});
    }
}

}  // namespace zelbar
