#pragma once

#include <PIMDriverAbstract.h>

#include <string>
#include <vector>

#include "automation/Bstr.h"
#include "automation/Com.h"
#include "automation/Variant.h"

namespace prove {

/// A client of the driver, with all that it holds of it, and what it was answered. It calls through raw
/// pointers, as a client that releases an object in the middle of a call on it would.
struct Client {
    explicit Client(HMODULE driverModule) : module(driverModule) {}

    /// Makes the driver; when that fails the client has none, and every call on it is left out.
    void start();
    void open();
    ::Contact* first(const wchar_t* text, long kind = 0);
    ::Contact* unified(const wchar_t* text);
    ::Contact* next();
    ::Contact* previous();
    void perform(long id, ::Contact* contact,
                 std::initializer_list<std::pair<const wchar_t*, zelbar::Variant>> settings,
                 short choice = 0);
    zelbar::Com<::Contact> makeCaller(const wchar_t* text, const wchar_t* information);
    void release();

    /// Every call comes by here: no member may answer with a failure.
    bool check(HRESULT result);
    void note(const char* what, const std::wstring& answer);
    void note(const char* what, ::Contact* contact);

    template <class Interface, class Result>
    zelbar::Com<Result> get(Interface* object, HRESULT (STDMETHODCALLTYPE Interface::*member)(Result**)) {
        zelbar::Com<Result> result;
        if (object) check((object->*member)(result.put()));
        return result;
    }
    template <class Interface>
    std::wstring text(Interface* object, HRESULT (STDMETHODCALLTYPE Interface::*member)(BSTR*)) {
        zelbar::Bstr result;
        if (object) check((object->*member)(result.put()));
        return result.text();
    }
    template <class Interface>
    std::wstring flag(Interface* object, HRESULT (STDMETHODCALLTYPE Interface::*member)(VARIANT_BOOL*)) {
        VARIANT_BOOL result = VARIANT_FALSE;
        if (object) check((object->*member)(&result));
        return result ? L"yes" : L"";
    }

    HMODULE module;
    zelbar::Com<::DataConnector> driver, second;
    zelbar::Com<::ContactRecord> cursor;
    zelbar::Com<::Contact> contact;
    zelbar::Com<::PIMActions> actions;
    zelbar::Com<::CallAction> action;

    std::vector<std::string> answers;
    std::string escaped;  ///< The first failure that came out of a member.
};

}  // namespace prove
