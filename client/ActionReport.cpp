#include "client/ActionReport.h"

#include "client/Json.h"
#include "client/Text.h"

namespace pimcall {
namespace {

std::wstring valueText(const Setting& setting) {
    if (setting.type == SettingType::YesNo) return setting.on ? L"yes" : L"no";
    return setting.text.empty() ? L"(empty)" : oneLine(setting.text);
}

std::wstring settingText(const Setting& setting, bool verbose) {
    std::wstring text = L"  " + oneLine(setting.label) + L": " + valueText(setting);
    if (verbose) text += L"  [" + oneLine(setting.key) + L"]";
    text += L'\n';
    for (size_t i = 0; i < setting.choices.size(); ++i) {
        const bool chosen = static_cast<long>(i) == setting.choice;
        text += (chosen ? L"    * " : L"      ") + oneLine(setting.choices[i]) + L'\n';
    }
    return text;
}

const wchar_t* typeName(SettingType type) {
    switch (type) {
        case SettingType::YesNo:
            return L"boolean";
        case SettingType::List:
            return L"list";
        default:
            return L"text";
    }
}

std::wstring settingJson(const Setting& setting) {
    json::Object object;
    object.text(L"key", setting.key).text(L"label", setting.label).text(L"type", typeName(setting.type));
    if (setting.type == SettingType::YesNo) return object.boolean(L"value", setting.on).str();
    object.text(L"value", setting.text);
    if (setting.type == SettingType::Text) return object.str();
    return object.number(L"index", setting.choice)
        .raw(L"choices", json::array(setting.choices, json::quoted))
        .str();
}

}  // namespace

std::vector<std::wstring> namesOf(const std::vector<Action>& actions) {
    std::vector<std::wstring> names;
    names.reserve(actions.size());
    for (const Action& action : actions) names.push_back(action.name);
    return names;
}

std::wstring listed(const std::vector<std::wstring>& names) {
    std::wstring line;
    for (const std::wstring& name : names) {
        if (!line.empty()) line += L"; ";
        line += oneLine(name);
    }
    return line.empty() ? L"none" : line;
}

std::wstring actionsText(const std::vector<Action>& actions, bool verbose) {
    std::wstring text;
    for (const Action& action : actions) {
        if (!text.empty()) text += L'\n';
        text += oneLine(action.name);
        if (verbose) text += L"  [" + std::to_wstring(action.id) + L"]";
        text += L'\n';
        for (const Setting& setting : action.settings) text += settingText(setting, verbose);
        if (!action.passive) text += L"  It may add a contact to Outlook.\n";
    }
    return text;
}

std::wstring actionsJson(const std::vector<Action>& actions) {
    return json::array(actions, [](const Action& action) {
        return json::Object()
            .number(L"id", action.id)
            .text(L"name", action.name)
            .boolean(L"passive", action.passive)
            .raw(L"settings", json::array(action.settings, settingJson))
            .str();
    });
}

}  // namespace pimcall
