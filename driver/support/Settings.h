#pragma once

#include <string>
#include <vector>

#include "support/SettingsTable.h"

namespace zelbar {

/// The full key of a setting, without its root: "Software\Norvane\7316\Popup".
std::wstring keyOf(const Setting& setting, const std::wstring& company = kCompany);

/// A setting's text as `RegReadString` gives it: empty when there is none. Read anew at each call.
std::wstring readSetting(const Setting& setting, const std::wstring& company = kCompany);
/// The user's own value, else the machine's; blanks around it are dropped.
std::wstring userOrMachineSetting(const Setting& setting);
/// Writes as `RegWriteString` does. False when the registry refuses.
bool writeSetting(const Setting& setting, const std::wstring& value);

/// A setting's text as `CRegSettings` gives it; `fallback` when there is none. A numbered one by its number,
/// from 1.
std::wstring getSetting(const Setting& setting, const std::wstring& fallback = {});
std::wstring getSetting(const Setting& setting, std::size_t number);
/// The same of a setting whose loss would cost the user something: throws a Fault when the registry does not
/// tell whether there is one.
std::wstring storedSetting(const Setting& setting);
/// Writes as `CRegSettings` does: an empty text deletes the value. False when the registry refuses.
bool saveSetting(const Setting& setting, const std::wstring& value);
bool saveSetting(const Setting& setting, std::size_t number, const std::wstring& value);
/// Deletes all settings that lie in this one's section.
bool deleteSection(const Setting& setting);

/// One folder of the stored choice.
struct StoredFolder {
    std::wstring entryId;
    std::wstring storeId;  ///< Empty: Outlook's default store.
    bool selected = false;
};

/// The stored choice of contacts folders in its order, up to the first number without an entry identifier.
/// Throws a Fault when the registry does not tell.
std::vector<StoredFolder> storedFolders();

}  // namespace zelbar
