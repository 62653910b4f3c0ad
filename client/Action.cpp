#include "client/Action.h"

#include "client/Failure.h"

namespace pimcall {
namespace {

template <class Interface>
ComPtr<Interface> objectIn(const Value& value, const wchar_t* what) {
    auto object = value.object<Interface>();
    if (!object) throw Failure(std::wstring(L"The driver handed out no ") + what + L".");
    return object;
}

template <class Interface>
std::wstring textOf(Interface& object, HRESULT (STDMETHODCALLTYPE Interface::*get)(BSTR*),
                    const wchar_t* name) {
    Bstr text;
    require((object.*get)(text.put()), name);
    return text.text();
}

Setting readSetting(ActionProperty& property) {
    Setting setting;
    setting.key = textOf(property, &ActionProperty::get_Key, L"Key");
    setting.label = textOf(property, &ActionProperty::get_PropertyName, L"PropertyName");
    short type = 0;
    require(property.get_PropertyType(&type), L"PropertyType");
    setting.type = static_cast<SettingType>(type);
    Value value;
    require(property.get_Value(value.put()), L"Value");
    if (setting.type == SettingType::YesNo)
        setting.on = value.boolean();
    else
        setting.text = value.text();
    if (setting.type == SettingType::List) {
        Value choices;
        require(property.get_Values(choices.put()), L"Values");
        setting.choices = choices.texts();
        short index = 0;
        require(property.get_ValueIndex(&index), L"ValueIndex");
        setting.choice = index;
    }
    return setting;
}

ComPtr<ActionProperties> settingsOf(PIMAction& action) {
    ComPtr<ActionProperties> settings;
    require(action.get_ActionProp(settings.GetAddressOf()), L"ActionProp");
    if (!settings) throw Failure(L"The driver handed out no settings of an action.");
    return settings;
}

}  // namespace

Action readAction(const Value& object) {
    const auto from = objectIn<PIMAction>(object, L"action");
    Action action;
    require(from->get_ActionID(&action.id), L"ActionID");
    action.name = textOf(*from.Get(), &PIMAction::get_ActionName, L"ActionName");
    VARIANT_BOOL passive = VARIANT_FALSE;
    require(from->get_PassiveAction(&passive), L"PassiveAction");
    action.passive = passive != VARIANT_FALSE;
    for (const Value& element : elementsOf(*settingsOf(*from.Get()).Get()))
        action.settings.push_back(readSetting(*objectIn<ActionProperty>(element, L"setting").Get()));
    return action;
}

ComPtr<ActionProperty> OwnAction::setting(const wchar_t* key) const {
    ComPtr<ActionProperty> property;
    require(settingsOf(*action_.Get())->Item(Value(std::wstring(key)).raw(), property.GetAddressOf()), key);
    if (!property) throw Failure(std::wstring(L"The driver knows no setting ") + key + L".");
    return property;
}

void OwnAction::put(const wchar_t* key, const Value& value) {
    require(setting(key)->put_Value(value.raw()), key);
}

void OwnAction::choose(const wchar_t* key, short index) {
    require(setting(key)->put_ValueIndex(index), key);
}

std::wstring OwnAction::name() const {
    return textOf(*action_.Get(), &PIMAction::get_ActionName, L"ActionName");
}

void OwnAction::run(ComPtr<Contact>& contact) {
    // The answer is no sign of success, so nobody looks at it.
    VARIANT_BOOL answer = VARIANT_FALSE;
    require(action_->ExecuteAction(contact.GetAddressOf(), &answer), L"ExecuteAction");
}

}  // namespace pimcall
