#pragma once

// Every registry value that the driver and its tools use, once: code reads and writes by these entries, and
// the administrators' page is made of them. Needs no Windows.

#include <array>

namespace zelbar {

/// The company below "Software" wherever a path is written into the product.
inline constexpr wchar_t kCompany[] = L"Norvane";

/// One registry value: where it lies, what it holds, what it means.
struct Setting {
    enum class Root { CurrentUser, LocalMachine };
    enum class Type { Text, Switch, Number };

    Root root;
    const wchar_t* application;  ///< Key below the company: "7316\Popup".
    const wchar_t* section;      ///< Key below the application; empty for the application's own.
    const wchar_t* name;         ///< A numbered value's name without the number.
    Type type;
    const wchar_t* absent;   ///< What a missing value stands for, in words.
    const wchar_t* readers;  ///< Who reads it ...
    const wchar_t* writers;  ///< ... and who writes it.
    const wchar_t* meaning;
    bool numbered = false;        ///< There are several: name1, name2, ...
    bool versionCompany = false;  ///< The company is that of the module's version information.
    bool machineDefault = false;  ///< The same value below HKEY_LOCAL_MACHINE serves users who have none.
};

namespace settings {

using enum Setting::Root;
using enum Setting::Type;

inline constexpr Setting kDevelopper{
    CurrentUser,
    L"7316\\Popup",
    L"",
    L"Developper",
    Switch,
    L"off",
    L"driver",
    L"support",
    L"The trace log: 1 shows it in a window, 2 writes it into a file, anything else is off."};
inline constexpr Setting kNoEmailAddressAccess{
    CurrentUser,
    L"7316\\Popup",
    L"",
    L"NoEmailAddressAccess",
    Switch,
    L"forbidden (the export: allowed)",
    L"driver",
    L"driver, client",
    L"E-mail addresses are read from Outlook only when it is exactly 0. The driver sets it to 0 once it has "
    L"delivered a list of contacts with numbers."};
inline constexpr Setting kSynchroInProgress{
    CurrentUser,
    L"7316\\Popup",
    L"",
    L"SynchroInProgress",
    Switch,
    L"0",
    L"driver, fillcache",
    L"add-in, fillcache",
    L"1 while the cache is being filled; the driver's start waits for its end, at most 40 seconds."};
inline constexpr Setting kSynchroProcess{CurrentUser,
                                         L"7316\\Popup",
                                         L"",
                                         L"SynchroProcess",
                                         Text,
                                         L"nobody",
                                         L"fillcache",
                                         L"fillcache",
                                         L"Which fillcache has set SynchroInProgress; a later one takes back "
                                         L"what a killed one has left."};
inline constexpr Setting kInitPSTnumber{
    CurrentUser,      L"7316\\Popup", L"",
    L"InitPSTnumber", Number,         L"0",
    L"driver",        L"client",      L"The number of Outlook stores that the installation counted."};
inline constexpr Setting kLimitPST{
    CurrentUser,
    L"7316\\Popup",
    L"",
    L"LimitPST",
    Number,
    L"100",
    L"driver, fillcache",
    L"administrator",
    L"The highest number of Outlook stores that are searched, never more than 100."};

inline constexpr Setting kOutlookTimeout{
    CurrentUser,
    L"7316\\Popup",
    L"",
    L"OutlookTimeout",
    Number,
    L"5000",
    L"driver",
    L"administrator",
    L"Milliseconds that one question of the client waits for Outlook, such as the search for a caller; 0 "
    L"waits for ever."};
inline constexpr Setting kOutlookTimeoutUser{
    CurrentUser,
    L"7316\\Popup",
    L"",
    L"OutlookTimeoutUser",
    Number,
    L"30000",
    L"driver",
    L"administrator",
    L"The same where the user has asked for something in Outlook: a window, the list of folders, a row of the "
    L"export."};

inline constexpr Setting kCountry{CurrentUser,
                                  L"7316\\Popup",
                                  L"",
                                  L"Country",
                                  Text,
                                  L"Windows' dialling location, else its region",
                                  L"fillcache, pimcall",
                                  L"administrator",
                                  L"The country of the user's telephone, two letters: DE.",
                                  false,
                                  false,
                                  true};
inline constexpr Setting kAreaCode{CurrentUser,
                                   L"7316\\Popup",
                                   L"",
                                   L"AreaCode",
                                   Text,
                                   L"not known",
                                   L"fillcache, pimcall",
                                   L"administrator",
                                   L"The telephone's area code without the trunk prefix: 89.",
                                   false,
                                   false,
                                   true};
inline constexpr Setting kOutsideLine{CurrentUser,
                                      L"7316\\Popup",
                                      L"",
                                      L"OutsideLine",
                                      Text,
                                      L"none",
                                      L"fillcache, pimcall",
                                      L"administrator",
                                      L"The digits that the telephone system puts before a caller's number.",
                                      false,
                                      false,
                                      true};
inline constexpr Setting kNumbersWithoutPrefix{
    CurrentUser,
    L"7316\\Popup",
    L"",
    L"NumbersWithoutPrefix",
    Text,
    L"unknown",
    L"fillcache, pimcall",
    L"administrator",
    L"What a caller's number without + and without prefix is: international, national or unknown.",
    false,
    false,
    true};

inline constexpr Setting kEntryId{CurrentUser,
                                  L"7316\\Popup",
                                  L"zelbar00folder",
                                  L"entryId",
                                  Text,
                                  L"end of the list",
                                  L"driver, fillcache, pimcall",
                                  L"driver",
                                  L"The chosen contacts folders: the folder's entry identifier in Outlook.",
                                  true};
inline constexpr Setting kStoreId{CurrentUser,
                                  L"7316\\Popup",
                                  L"zelbar00folder",
                                  L"storeId",
                                  Text,
                                  L"the default store",
                                  L"driver, fillcache, pimcall",
                                  L"driver",
                                  L"The same folder's store identifier.",
                                  true};
inline constexpr Setting kSelectId{CurrentUser,
                                   L"7316\\Popup",
                                   L"zelbar00folder",
                                   L"selectId",
                                   Switch,
                                   L"selected",
                                   L"driver, fillcache, pimcall",
                                   L"driver",
                                   L"Whether the same folder is searched: -1, or 0 when it is not.",
                                   true};
inline constexpr Setting kConfigChanged{
    CurrentUser,
    L"7316\\Popup",
    L"zelbar00folder",
    L"ConfigChanged",
    Switch,
    L"0",
    L"driver, pimcall, add-in",
    L"driver",
    L"1 when the choice of folders has changed and the cache must be filled anew."};

inline constexpr Setting kExportEntryId{CurrentUser,
                                        L"7316\\Popup\\outlook98",
                                        L"TransfertFolder",
                                        L"EntryId",
                                        Text,
                                        L"no export folder",
                                        L"driver",
                                        L"driver",
                                        L"The export folder: its entry identifier in Outlook."};
inline constexpr Setting kExportStoreId{CurrentUser,
                                        L"7316\\Popup\\outlook98",
                                        L"TransfertFolder",
                                        L"StoreId",
                                        Text,
                                        L"no export folder",
                                        L"driver",
                                        L"driver",
                                        L"The export folder's store identifier."};
inline constexpr Setting kIsNewWXDFolder{CurrentUser,
                                         L"7316\\Popup\\outlook98",
                                         L"",
                                         L"IsNewWXDFolder",
                                         Switch,
                                         L"0",
                                         L"client",
                                         L"driver",
                                         L"1 when the driver has made the export folder itself."};
inline constexpr Setting kZelbarExportFolder{
    CurrentUser,
    L"7316\\VEXPhone",
    L"Settings",
    L"zelbarExportFolder",
    Text,
    L"empty",
    L"driver",
    L"client",
    L"The export folder's name as the client knows it; for the trace."};

inline constexpr Setting kLang{CurrentUser,
                               L"7316\\VEXPhone",
                               L"Settings",
                               L"lang",
                               Number,
                               L"0",
                               L"driver",
                               L"client",
                               L"The user's language, as an index into LanguageChoice.",
                               false,
                               true};
inline constexpr Setting kUserDataPath{CurrentUser,
                                       L"7316\\VEXPhone",
                                       L"",
                                       L"DataPath",
                                       Text,
                                       L"the installation's rule",
                                       L"driver, fillcache",
                                       L"client",
                                       L"The folder of this user's cache and photos; goes before all else.",
                                       false,
                                       true};
inline constexpr Setting kMultiUser{LocalMachine,
                                    L"7316\\Install",
                                    L"",
                                    L"MultiUser",
                                    Switch,
                                    L"yes",
                                    L"driver, fillcache",
                                    L"administrator",
                                    L"yes: every user has a data folder below his application data; "
                                    L"anything else: one folder for all.",
                                    false,
                                    true};
inline constexpr Setting kMachineDataPath{LocalMachine,
                                          L"7316\\Install",
                                          L"",
                                          L"DataPath",
                                          Text,
                                          L"the driver's own folder",
                                          L"driver, fillcache",
                                          L"administrator",
                                          L"The data folder for all where MultiUser is not yes.",
                                          false,
                                          true};
inline constexpr Setting kLanguageChoice{LocalMachine,
                                         L"7316\\Install",
                                         L"",
                                         L"LanguageChoice",
                                         Text,
                                         L"the eight built-in languages",
                                         L"driver",
                                         L"administrator",
                                         L"The table of languages.",
                                         false,
                                         true};

/// All of them, in the order of the administrators' page.
inline constexpr std::array kAll = {
    &kDevelopper,
    &kNoEmailAddressAccess,
    &kSynchroInProgress,
    &kSynchroProcess,
    &kInitPSTnumber,
    &kLimitPST,
    &kOutlookTimeout,
    &kOutlookTimeoutUser,
    &kCountry,
    &kAreaCode,
    &kOutsideLine,
    &kNumbersWithoutPrefix,
    &kEntryId,
    &kStoreId,
    &kSelectId,
    &kConfigChanged,
    &kExportEntryId,
    &kExportStoreId,
    &kIsNewWXDFolder,
    &kZelbarExportFolder,
    &kLang,
    &kUserDataPath,
    &kMultiUser,
    &kMachineDataPath,
    &kLanguageChoice,
};

}  // namespace settings
}  // namespace zelbar
