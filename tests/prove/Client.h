#pragma once

#include <PIMDriverAbstract.h>

#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "automation/Bstr.h"
#include "automation/Com.h"
#include "automation/Variant.h"

namespace prove {

using zelbar::Bstr;
using zelbar::Com;
using zelbar::Variant;

/// Who owns what a member gives.
template <class Number>
Number ownerOf(Number);
template <class Interface>
Com<Interface> ownerOf(Interface*);
Bstr ownerOf(BSTR);
Variant ownerOf(VARIANT);

/// A client of the driver, with all that it holds of it, and what it was answered. It calls through raw
/// pointers, as a client that releases an object in the middle of a call on it would.
struct Client {
    explicit Client(HMODULE driverModule) : module(driverModule) {}

    /// Where there is no object, nothing is called.
    template <class Interface, class... Parameters, class... Arguments>
    bool call(const Com<Interface>& object, HRESULT (STDMETHODCALLTYPE Interface::*member)(Parameters...),
              Arguments... arguments) {
        return object && check((object.get()->*member)(arguments...));
    }
    /// What the member gives by its last parameter.
    template <class Interface, class... Parameters, class... Arguments>
    auto get(const Com<Interface>& object, HRESULT (STDMETHODCALLTYPE Interface::*member)(Parameters...),
             Arguments... arguments) {
        using Last = std::tuple_element_t<sizeof...(Parameters) - 1, std::tuple<Parameters...>>;
        decltype(ownerOf(*Last{})) result{};
        if constexpr (requires { result.put(); })
            call(object, member, arguments..., result.put());
        else
            call(object, member, arguments..., &result);
        return result;
    }

    /// Makes the driver; when that fails the client has none, and every call on it is left out.
    void start();
    void open();
    const Com<::Contact>& first(const wchar_t* text, long kind = 0) {
        return contact = get(cursor, &::ContactRecord::FindFirst, &kind, Bstr(text).get());
    }
    const Com<::Contact>& next() { return contact = get(cursor, &::ContactRecord::FindNext); }
    const Com<::Contact>& previous() { return contact = get(cursor, &::ContactRecord::FindPrevious); }
    void perform(long id, const Com<::Contact>& caller,
                 std::initializer_list<std::pair<const wchar_t*, Variant>> settings, short choice = 0);
    Com<::Contact> makeCaller(const wchar_t* text, const wchar_t* information);
    void release();

    /// Every call comes by here: no member may answer with a failure.
    bool check(HRESULT result);
    void note(const char* what, const std::wstring& answer);
    void noteThat(const char* what, bool answer) { note(what, std::wstring(answer ? L"yes" : L"")); }
    void note(const char* what, const Com<::Contact>& contact);

    HMODULE module;
    Com<::DataConnector> driver, second;
    Com<::ContactRecord> cursor;
    Com<::Contact> contact;
    Com<::PIMActions> actions;
    Com<::CallAction> action;

    std::vector<std::string> answers;
    std::string escaped;  ///< The first failure that came out of a member.
};

}  // namespace prove
