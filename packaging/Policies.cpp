// Prints the policy templates for what an administrator presets, out of the table that the code reads its
// settings by: "admx", or the texts of a language, "en-US" or "de-DE".

#include <cstdio>
#include <cstring>
#include <span>
#include <string>

#include "driver/support/SettingsTable.h"

namespace {

using zelbar::Setting;
namespace settings = zelbar::settings;

struct Choice {
    const char* value;
    const char* english;
    const char* german;
};

constexpr Choice kTrace[] = {
    {"0", "Off", "Aus"}, {"1", "In a window", "Im Fenster"}, {"2", "Into a file", "In eine Datei"}};
constexpr Choice kAddresses[] = {{"0", "Read them", "Lesen"}, {"1", "Leave them alone", "Nicht lesen"}};
constexpr Choice kKinds[] = {{"international", "International", "International"},
                             {"national", "National", "National"},
                             {"unknown", "Not known", "Nicht bekannt"}};
constexpr Choice kFolders[] = {{"yes", "One for each user", "Je Benutzer einer"},
                               {"no", "One for all", "Einer für alle"}};

/// What a group policy editor needs to know beside the table. Without choices it is a text, or a number up to
/// the highest.
struct Policy {
    const Setting& setting;
    const char* id;
    const char* english;
    const char* german;
    const char* germanHelp;
    std::span<const Choice> choices = {};
    long highest = 0;
};

const Policy kPolicies[] = {
    {settings::kDevelopper, "Trace", "Trace log", "Ablaufprotokoll",
     "Das Protokoll enthält Nummern, Namen und Einzelheiten jedes Anrufs; nur für die Dauer einer Suche einschalten.",
     kTrace},
    {settings::kNoEmailAddressAccess, "EmailAddresses", "E-mail addresses in Outlook",
     "E-Mail-Adressen in Outlook", "Ob der Treiber E-Mail-Adressen aus Outlook liest.", kAddresses},
    {settings::kLimitPST,
     "LimitStores",
     "Highest number of Outlook stores",
     "Höchstzahl der Outlook-Speicher",
     "Wie viele Outlook-Speicher höchstens durchsucht werden.",
     {},
     100},
    {settings::kOutlookTimeout,
     "OutlookTimeout",
     "How long a call waits for Outlook",
     "Wie lange ein Anruf auf Outlook wartet",
     "Millisekunden, die eine Frage des Programms auf Outlook wartet; 0 wartet ohne Ende.",
     {},
     600000},
    {settings::kOutlookTimeoutUser,
     "OutlookTimeoutUser",
     "How long the user waits for Outlook",
     "Wie lange der Benutzer auf Outlook wartet",
     "Dasselbe, wo der Benutzer in Outlook etwas verlangt hat.",
     {},
     600000},
    {settings::kCountry, "Country", "Country of the telephone", "Land des Telefons",
     "Zwei Buchstaben, etwa DE."},
    {settings::kAreaCode, "AreaCode", "Area code", "Ortsvorwahl",
     "Die Vorwahl des Anschlusses ohne führende Null, etwa 89."},
    {settings::kOutsideLine, "OutsideLine", "Digits before callers' numbers",
     "Ziffern vor Rufnummern von außen", "Was die Telefonanlage vor die Nummer eines Anrufers setzt."},
    {settings::kNumbersWithoutPrefix, "NumbersWithoutPrefix", "Numbers without a prefix",
     "Nummern ohne Vorwahlkennzeichen", "Was die Nummer eines Anrufers ohne + und ohne führende Null ist.",
     kKinds},
    {settings::kUserDataPath, "UserDataPath", "Data folder of the user", "Datenordner des Benutzers",
     "Der Ordner für Kontaktspeicher und Fotos dieses Benutzers; geht allem anderen vor."},
    {settings::kMultiUser, "MultiUser", "Data folders", "Datenordner",
     "Ob jeder Benutzer einen eigenen Datenordner hat.", kFolders},
    {settings::kMachineDataPath, "MachineDataPath", "Data folder for all", "Datenordner für alle",
     "Der Datenordner, wenn es einen für alle gibt."},
    {settings::kLanguageChoice, "LanguageChoice", "Table of languages", "Sprachtabelle",
     "Die Sprachen der Installation; ohne diesen Wert die acht eingebauten."},
};

std::string narrow(const wchar_t* text) {
    std::string result;
    for (; *text; ++text) result += static_cast<char>(*text);  // the table is ASCII
    return result;
}

std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else if (c == '>')
            result += "&gt;";
        else if (c == '"')
            result += "&quot;";
        else
            result += c;
    }
    return result;
}

/// Where a policy writes: the policy client writes the 64-bit half of the machine's hive, the driver is
/// 32-bit.
struct Place {
    const char* policyClass;
    const char* suffix;
    const char* root;
};
constexpr Place kUser{"User", "", "Software\\"};
constexpr Place kMachine{"Machine", "Machine", "Software\\Wow6432Node\\"};

/// Calls the action for each policy and place: what serves as the machine's default too stands twice.
template <class Action>
void forEachPolicy(Action action) {
    for (const Policy& policy : kPolicies) {
        const bool isMachine = policy.setting.root == Setting::Root::LocalMachine;
        action(policy, isMachine ? kMachine : kUser);
        if (policy.setting.machineDefault) action(policy, kMachine);
    }
}

std::string idOf(const Policy& policy, const Place& place) {
    return std::string(policy.id) + (policy.setting.machineDefault ? place.suffix : "");
}

void printElement(const Policy& policy, const std::string& id, const std::string& name) {
    std::printf("      <elements>\n");
    if (!policy.choices.empty()) {
        std::printf("        <enum id=\"%s\" valueName=\"%s\" required=\"true\">\n", id.c_str(),
                    name.c_str());
        for (const Choice& choice : policy.choices)
            std::printf(
                "          <item displayName=\"$(string.%s_%s)\"><value><string>%s</string></value></item>\n",
                policy.id, choice.value, choice.value);
        std::printf("        </enum>\n");
    } else if (policy.highest) {
        std::printf(
            "        <decimal id=\"%s\" valueName=\"%s\" required=\"true\" minValue=\"0\" maxValue=\"%ld\" "
            "storeAsText=\"true\"/>\n",
            id.c_str(), name.c_str(), policy.highest);
    } else {
        std::printf("        <text id=\"%s\" valueName=\"%s\" required=\"true\" maxLength=\"1000\"/>\n",
                    id.c_str(), name.c_str());
    }
    std::printf("      </elements>\n");
}

void printTemplate() {
    std::printf(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<policyDefinitions xmlns=\"http://schemas.microsoft.com/GroupPolicy/2006/07/PolicyDefinitions\" "
        "revision=\"1.1\" schemaVersion=\"1.0\">\n"
        "  <policyNamespaces>\n"
        "    <target prefix=\"tessaria\" namespace=\"Norvane.Policies.Tessaria\"/>\n"
        "  </policyNamespaces>\n"
        "  <resources minRequiredRevision=\"1.1\"/>\n"
        "  <supportedOn><definitions>\n"
        "    <definition name=\"SUPPORTED\" displayName=\"$(string.SUPPORTED)\"/>\n"
        "  </definitions></supportedOn>\n"
        "  <categories><category name=\"Tessaria\" displayName=\"$(string.CATEGORY)\"/></categories>\n"
        "  <policies>\n");
    forEachPolicy([](const Policy& policy, const Place& place) {
        const std::string id = idOf(policy, place);
        std::string key = place.root + narrow(zelbar::kCompany) + "\\" + narrow(policy.setting.application);
        if (*policy.setting.section) key += "\\" + narrow(policy.setting.section);
        std::printf(
            "    <policy name=\"%s\" class=\"%s\" displayName=\"$(string.%s)\" explainText=\"$(string.%s_Help)\" "
            "presentation=\"$(presentation.%s)\" key=\"%s\">\n"
            "      <parentCategory ref=\"Tessaria\"/>\n"
            "      <supportedOn ref=\"SUPPORTED\"/>\n",
            id.c_str(), place.policyClass, id.c_str(), policy.id, id.c_str(), key.c_str());
        printElement(policy, id, narrow(policy.setting.name));
        std::printf("    </policy>\n");
    });
    std::printf("  </policies>\n</policyDefinitions>\n");
}

void printString(const std::string& id, const std::string& text) {
    std::printf("      <string id=\"%s\">%s</string>\n", id.c_str(), escaped(text).c_str());
}

void printPresentation(const Policy& policy, const std::string& id, const char* label) {
    const std::string text = escaped(label);
    std::printf("      <presentation id=\"%s\">\n", id.c_str());
    if (!policy.choices.empty())
        std::printf("        <dropdownList refId=\"%s\" noSort=\"true\">%s</dropdownList>\n", id.c_str(),
                    text.c_str());
    else if (policy.highest)
        std::printf("        <decimalTextBox refId=\"%s\">%s</decimalTextBox>\n", id.c_str(), text.c_str());
    else
        std::printf("        <textBox refId=\"%s\"><label>%s</label></textBox>\n", id.c_str(), text.c_str());
    std::printf("      </presentation>\n");
}

void printTexts(bool isGerman) {
    std::printf(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<policyDefinitionResources xmlns=\"http://schemas.microsoft.com/GroupPolicy/2006/07/PolicyDefinitions\" "
        "revision=\"1.1\" schemaVersion=\"1.0\">\n"
        "  <displayName>Tessaria</displayName>\n"
        "  <description>%s</description>\n"
        "  <resources>\n"
        "    <stringTable>\n",
        isGerman ? "Der Kontakttreiber von Tessaria für Outlook" : "The Outlook contacts driver of Tessaria");
    printString("CATEGORY", "Tessaria Outlook driver");
    printString("SUPPORTED", isGerman ? "Tessaria ab Windows 7" : "Tessaria on Windows 7 or later");
    for (const Policy& policy : kPolicies) {
        printString(std::string(policy.id) + "_Help",
                    isGerman ? std::string(policy.germanHelp)
                             : narrow(policy.setting.meaning) +
                                   " When it is missing: " + narrow(policy.setting.absent) + ".");
        for (const Choice& choice : policy.choices)
            printString(std::string(policy.id) + "_" + choice.value,
                        isGerman ? choice.german : choice.english);
    }
    const std::string forAll = isGerman ? " (Vorgabe für alle)" : " (default of all users)";
    forEachPolicy([&](const Policy& policy, const Place& place) {
        const std::string id = idOf(policy, place);
        printString(id,
                    std::string(isGerman ? policy.german : policy.english) + (id == policy.id ? "" : forAll));
    });
    std::printf("    </stringTable>\n    <presentationTable>\n");
    forEachPolicy([&](const Policy& policy, const Place& place) {
        printPresentation(policy, idOf(policy, place), isGerman ? policy.german : policy.english);
    });
    std::printf("    </presentationTable>\n  </resources>\n</policyDefinitionResources>\n");
}

/// Whatever the table says an administrator writes must be a policy here.
bool areComplete() {
    for (const Setting* setting : settings::kAll) {
        bool isKnown = narrow(setting->writers).find("administrator") == std::string::npos;
        for (const Policy& policy : kPolicies) isKnown = isKnown || &policy.setting == setting;
        if (isKnown) continue;
        std::fprintf(stderr, "no policy for %s; add it in packaging/Policies.cpp\n",
                     narrow(setting->name).c_str());
        return false;
    }
    return true;
}

}  // namespace

int main(int count, char** words) {
    if (count != 2 || !areComplete()) return 1;
    if (std::strcmp(words[1], "admx") == 0)
        printTemplate();
    else
        printTexts(std::strcmp(words[1], "de-DE") == 0);
}
