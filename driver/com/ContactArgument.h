#pragma once

#include <PIMDriverAbstract.h>

#include "automation/Com.h"

namespace zelbar {

/// The contact that a client passes to an action by reference. What arrives can be any object, since a
/// late-bound caller is taken at its word; what is put back replaces it in the caller's own variable.
class ContactArgument {
  public:
    explicit ContactArgument(::Contact*& callers) : callers_(callers) {}

    /// The object as it came; none when there is none.
    Com<IUnknown> given() const { return Com<IUnknown>::share(callers_); }

    /// Puts a contact, or none, into the caller's variable and releases the reference that it held.
    void replace(Com<::Contact> contact) {
        Com<::Contact> old = Com<::Contact>::adopt(callers_);
        callers_ = contact.detach();
    }

  private:
    ::Contact*& callers_;
};

}  // namespace zelbar
