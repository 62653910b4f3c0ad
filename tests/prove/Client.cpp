#include "tests/prove/Client.h"

#include "support/Encoding.h"
#include "tests/hostile/World.h"

namespace prove {

bool Client::check(HRESULT result) {
    if (FAILED(result) && escaped.empty()) escaped = "a member answered " + std::to_string(result);
    return SUCCEEDED(result);
}

void Client::note(const char* what, const std::wstring& answer) {
    answers.push_back(std::string(what) + "=" + zelbar::utf8(answer));
}

/// An unknown caller is the neutral answer of a search.
void Client::note(const char* what, const Com<::Contact>& which) {
    const bool known = which && !get(which, &::Contact::get_NotInPIM);
    note(what, known ? get(which, &::Contact::get_FullName).text() : L"");
}

void Client::start() {
    // That there is no memory for the driver at all is the one thing that creating it may say.
    Com<::DataConnector> made;
    const HRESULT result = hostile::World::makeDriver(module, made);
    if (result != E_OUTOFMEMORY) check(result);
    driver = std::move(made);
}

void Client::open() {
    if (!driver) start();
    cursor = get(driver, &::DataConnector::OpenContactRecord);
}

Com<::Contact> Client::makeCaller(const wchar_t* text, const wchar_t* information) {
    open();
    const Com<::Contact> caller = first(text);
    call(caller, &::Contact::put_PersonalData, Variant(information).raw());
    return caller;
}

void Client::perform(long id, const Com<::Contact>& caller,
                     std::initializer_list<std::pair<const wchar_t*, Variant>> settings, short choice) {
    actions = get(driver, &::DataConnector::get_Actions);
    action = get(actions, &::PIMActions::NewAction, id).as<::CallAction>();
    const auto list = get(action, &::CallAction::get_ActionProp);
    for (const auto& [key, value] : settings) {
        const auto setting = get(list, &::ActionProperties::Item, Variant(key).raw());
        call(setting, &::ActionProperty::put_Value, value.raw());
        // What is not set up as it is to be would do something else.
        if (get(setting, &::ActionProperty::get_Value).text() != value.text()) return;
    }
    if (choice > 0) {
        const auto setting = get(list, &::ActionProperties::Item, Variant(1L).raw());
        call(setting, &::ActionProperty::put_ValueIndex, choice);
    }
    // The driver may put another contact in its place.
    auto* place = Com<::Contact>(caller).detach();
    get(action, &::CallAction::ExecuteAction, &place);
    if (place) place->Release();
}

void Client::release() {
    action.reset();
    actions.reset();
    contact.reset();
    cursor.reset();
    second.reset();
    driver.reset();
}

}  // namespace prove
