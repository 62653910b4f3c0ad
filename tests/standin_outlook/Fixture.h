#pragma once

#include <gtest/gtest.h>

#include "automation/Object.h"
#include "standin/outlook/host/Host.h"
#include "tests/automation/FaultOf.h"
#include "tests/harness/TemporaryFolder.h"

namespace standin::outlook {

using zelbar::faultOf;
using zelbar::Object;

inline constexpr long kServerGone = 462;
inline constexpr auto kNotFound = static_cast<long>(0x8004010F);

/// A client's Application, in this process or in another.
inline Object newApplication() {
    return zelbar::Gateway().create(zelbar::Server::Outlook, L"Outlook.Application", zelbar::kUnknownClass);
}
inline Object nameSpaceOf(const Object& application) {
    return application.object({L"GetNamespace"}, L"MAPI");
}
inline Object contactsOf(const Object& application) {
    return nameSpaceOf(application).object({L"GetDefaultFolder"}, 10);
}

/// An Outlook in this process, its mailbox fresh, and a client's Application.
class Outlook : public testing::Test {
  protected:
    Object nameSpace() const { return nameSpaceOf(app); }
    Object contacts() const { return contactsOf(app); }
    ItemRecord ada() {
        return mailbox.addContact(contactsRow, {{L"FirstName", L"Ada"}, {L"LastName", L"Byron"}});
    }

    harness::TemporaryFolder folder;
    Host host{folder.file(L"mailbox.db")};
    Mailbox& mailbox = host.mailbox();
    const RowId contactsRow = mailbox.specialFolder(SpecialFolder::Contacts).id;
    Object app = newApplication();
};

}  // namespace standin::outlook
