#include "tests/prove/Client.h"

#include <cstdio>

#include "support/Encoding.h"

namespace prove {

bool Client::check(HRESULT result) {
    if (FAILED(result) && escaped.empty()) {
        char number[40];
        std::snprintf(number, sizeof(number), "a member answered %08lX", static_cast<unsigned long>(result));
        escaped = number;
    }
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
    using GetClass = HRESULT(__stdcall*)(REFCLSID, REFIID, void**);
    const auto getClass =
        reinterpret_cast<GetClass>(reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
    // That there is no memory for the driver at all is the one thing that creating it may say.
    Com<IClassFactory> factory;
    if (FAILED(
            getClass(CLSID_cDataConnector, __uuidof(IClassFactory), reinterpret_cast<void**>(factory.put()))))
        return;
    Com<::DataConnector> made;
    const HRESULT result =
        factory->CreateInstance(nullptr, __uuidof(::DataConnector), reinterpret_cast<void**>(made.put()));
    if (result != E_OUTOFMEMORY) check(result);
    driver = std::move(made);
}

void Client::open() {
    if (!driver) start();
    cursor = get(driver, &::DataConnector::OpenContactRecord);
}

const Com<::Contact>& Client::first(const wchar_t* text, long kind) {
    return contact = get(cursor, &::ContactRecord::FindFirst, &kind, Bstr(text).get());
}

const Com<::Contact>& Client::next() {
    return contact = get(cursor, &::ContactRecord::FindNext);
}

const Com<::Contact>& Client::previous() {
    return contact = get(cursor, &::ContactRecord::FindPrevious);
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
