#pragma once

#include <PIMDriverAbstract.h>

#include <string>

#include "automation/Gateway.h"
#include "automation/Object.h"
#include "com/ContactArgument.h"
#include "search/ContactParts.h"

namespace zelbar {

/// The contact of a call, or none: any object that implements `Contact`, through its slots where it has them
/// and by name otherwise. It need not be the driver's own, so every reading may throw.
class CallContact {
  public:
    /// `gateway` must outlive the object.
    CallContact(const ContactArgument& argument, Gateway& gateway);

    explicit operator bool() const { return given_; }

    std::wstring FullName() const;
    std::wstring MainPhoneNumber() const;
    std::wstring ContactId() const;
    std::wstring StoreId() const;
    bool NotInPIM() const;
    /// The call information string; empty when `PersonalData` is anything but a text.
    std::wstring callInformation() const;

  private:
    using TextGetter = HRESULT (STDMETHODCALLTYPE ::Contact::*)(BSTR*);
    std::wstring text(TextGetter getter, const wchar_t* name) const;

    bool given_;
    Com<::Contact> contact_;
    Object lateBound_;
};

/// Puts a new, empty contact into the variable of a caller who gave none.
void giveEmptyContact(ContactArgument& argument, bool notInPIM, const ContactParts& parts);

}  // namespace zelbar
