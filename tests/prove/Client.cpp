#include "tests/prove/Client.h"

#include <cstdio>

#include "support/Encoding.h"

namespace prove {

using zelbar::Bstr;
using zelbar::Com;
using zelbar::Variant;

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
void Client::note(const char* what, ::Contact* which) {
    const bool unknown = !which || !flag(which, &::Contact::get_NotInPIM).empty();
    note(what, unknown ? L"" : text(which, &::Contact::get_FullName));
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
    cursor = get(driver.get(), &::DataConnector::OpenContactRecord);
}

::Contact* Client::first(const wchar_t* text, long kind) {
    Com<::Contact> found;
    if (cursor) check(cursor.get()->FindFirst(&kind, Bstr(text).get(), found.put()));
    contact = std::move(found);
    return contact.get();
}

::Contact* Client::unified(const wchar_t* text) {
    long kind = 0;
    Com<::Contact> found;
    if (cursor) check(cursor.get()->FindFirstForUnified(&kind, Bstr(text).get(), found.put()));
    contact = std::move(found);
    return contact.get();
}

::Contact* Client::next() {
    auto found = get(cursor.get(), &::ContactRecord::FindNext);
    contact = std::move(found);
    return contact.get();
}

::Contact* Client::previous() {
    auto found = get(cursor.get(), &::ContactRecord::FindPrevious);
    contact = std::move(found);
    return contact.get();
}

Com<::Contact> Client::makeCaller(const wchar_t* text, const wchar_t* information) {
    open();
    const Com<::Contact> caller = Com<::Contact>::share(first(text));
    if (caller) check(caller->put_PersonalData(Variant(information).raw()));
    return caller;
}

void Client::perform(long id, ::Contact* caller,
                     std::initializer_list<std::pair<const wchar_t*, Variant>> settings, short choice) {
    actions = get(driver.get(), &::DataConnector::get_Actions);
    Com<IDispatch> made;
    if (!actions || !check(actions.get()->NewAction(id, made.put())) || !made) return;
    action = made.as<::CallAction>();
    const auto list = get(action.get(), &::CallAction::get_ActionProp);
    for (const auto& [key, value] : settings) {
        Com<::ActionProperty> setting;
        if (list) check(list->Item(Variant(key).raw(), setting.put()));
        if (setting) check(setting->put_Value(value.raw()));
    }
    Com<::ActionProperty> list_;
    if (list && choice > 0) check(list->Item(Variant(1L).raw(), list_.put()));
    if (list_) check(list_->put_ValueIndex(choice));
    if (caller) caller->AddRef();
    VARIANT_BOOL ignored = VARIANT_FALSE;
    if (action) check(action.get()->ExecuteAction(&caller, &ignored));
    if (caller) caller->Release();
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
