#include "client/Actions.h"

#include "client/Json.h"
#include "client/Text.h"

namespace pimcall {

std::wstring actionNames(const std::vector<Action>& actions) {
    std::wstring names;
    for (const Action& action : actions) {
        if (!names.empty()) names += L"; ";
        names += oneLine(action.name);
    }
    return names.empty() ? L"none" : names;
}

std::wstring actionsJson(const std::vector<Action>& actions) {
    json::Array array;
    for (const Action& action : actions)
        array.add(json::Object()
                      .number(L"id", action.id)
                      .text(L"name", action.name)
                      .boolean(L"passive", action.passive)
                      .str());
    return array.str();
}

}  // namespace pimcall
