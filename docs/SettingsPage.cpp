// Prints docs/settings.md out of the table that the code reads its settings by.

#include <cstdio>
#include <string>

#include "driver/support/SettingsTable.h"

namespace {

using zelbar::Setting;

std::string narrow(const std::wstring& text) {
    return {text.begin(), text.end()};  // the table is ASCII
}

std::string keyOf(const Setting& setting) {
    std::wstring key =
        setting.root == Setting::Root::CurrentUser ? L"HKEY_CURRENT_USER" : L"HKEY_LOCAL_MACHINE";
    key += std::wstring(L"\\Software\\") + zelbar::kCompany + L"\\" + setting.application;
    if (*setting.section) key += std::wstring(L"\\") + setting.section;
    return narrow(key);
}

std::string nameOf(const Setting& setting) {
    const std::string name = narrow(setting.name);
    return setting.numbered ? "`" + name + "1`, `" + name + "2`, ..." : "`" + name + "`";
}

std::string meaningOf(const Setting& setting) {
    return narrow(setting.meaning) +
           (setting.machineDefault ? " The same value below `HKEY_LOCAL_MACHINE` is the default of all users."
                                   : "");
}

const char* typeOf(const Setting& setting) {
    switch (setting.type) {
        case Setting::Type::Switch:
            return "switch";
        case Setting::Type::Number:
            return "number";
        default:
            return "text";
    }
}

}  // namespace

int main() {
    std::puts(
        "# Settings\n\n"
        "Every registry value that the driver and its tools use. All are strings (REG_SZ), numbers and "
        "switches too;\n"
        "they are read anew at each use, so that a change needs no restart unless a line says so. On 64-bit "
        "Windows\n"
        "the values below `HKEY_LOCAL_MACHINE\\Software` lie below "
        "`HKEY_LOCAL_MACHINE\\Software\\Wow6432Node`.\n\n"
        "This page is made by `docs/make-pages`; do not edit it.");
    std::string section;
    for (const Setting* setting : zelbar::settings::kAll) {
        if (const std::string key = keyOf(*setting); key != section) {
            section = key;
            std::printf(
                "\n## `%s`\n\n| value | type | when missing | read by | written by | meaning "
                "|\n|---|---|---|---|---|---|\n",
                key.c_str());
        }
        std::printf("| %s | %s | %s | %s | %s | %s |\n", nameOf(*setting).c_str(), typeOf(*setting),
                    narrow(setting->absent).c_str(), narrow(setting->readers).c_str(),
                    narrow(setting->writers).c_str(), meaningOf(*setting).c_str());
    }
}
