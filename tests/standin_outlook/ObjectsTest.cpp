#include <gtest/gtest.h>

#include "automation/Bstr.h"
#include "automation/Object.h"
#include "standin/outlook/host/Host.h"
#include "tests/automation/FaultOf.h"
#include "tests/com/LateClient.h"
#include "tests/harness/TemporaryFolder.h"

namespace standin::outlook {
namespace {

using zelbar::faultOf;
using zelbar::Object;

constexpr auto kNotFound = static_cast<long>(0x8004010F);
constexpr auto kInvalidEntryId = static_cast<long>(0x80040107);
constexpr auto kStoreNotOpen = static_cast<long>(0x8004011C);
constexpr auto kInvalidArgument = static_cast<long>(E_INVALIDARG);

/// An Outlook in this process, its mailbox fresh, and a client's Application.
class Outlook : public testing::Test {
  protected:
    Object nameSpace() const { return app.object({L"GetNamespace"}, L"MAPI"); }
    Object contacts() const { return nameSpace().object({L"GetDefaultFolder"}, 10); }
    ItemRecord ada() {
        return mailbox.addContact(mailbox.specialFolder(SpecialFolder::Contacts).id,
                                  {{L"FirstName", L"Ada"}, {L"LastName", L"Byron"}});
    }

    harness::TemporaryFolder folder;
    Host host{folder.file(L"mailbox.db")};
    Mailbox& mailbox = host.mailbox();
    Object app =
        zelbar::Gateway().create(zelbar::Server::Outlook, L"Outlook.Application", zelbar::kUnknownClass);
};

TEST_F(Outlook, WhatNamesNothingRaises) {
    const StoreRecord archive = mailbox.addStore(L"Archive");
    const FolderRecord people = mailbox.addFolder(archive.root, L"People", ItemType::Contact);
    const std::wstring here = mailbox.entryId(ada());
    const std::wstring there = mailbox.entryId(mailbox.addContact(people.id, {{L"LastName", L"Away"}}));
    const std::wstring archiveId = mailbox.storeId(archive.id);
    const std::wstring homeId = mailbox.storeId(mailbox.defaultStore().id);
    const StoreRecord closed = mailbox.addStore(L"Closed");
    const std::wstring closedId = mailbox.storeId(closed.id);
    mailbox.removeStore(closed.id);
    std::wstring unused = here;
    unused[unused.size() - 5] = L'F';
    const struct {
        std::wstring item;
        std::optional<std::wstring> store;
        long expected;
    } cases[] = {
        {here, {}, 0},
        {here, homeId, 0},
        {there, archiveId, 0},
        {there, {}, kNotFound},
        {there, homeId, kNotFound},
        {here, archiveId, kNotFound},
        {unused, {}, kNotFound},
        {mailbox.entryId(people), archiveId, kNotFound},
        {here, closedId, kStoreNotOpen},
        {here.substr(2), {}, kInvalidEntryId},
        {homeId, {}, kInvalidEntryId},
        {here, here, kInvalidEntryId},
        {here.substr(1), {}, kInvalidArgument},
        {L"not an identifier", {}, kInvalidArgument},
        {L"", {}, kInvalidArgument},
        {here, L"", kInvalidArgument},
    };
    for (const auto& c : cases) {
        const auto fault = faultOf([&] {
            c.store ? nameSpace().call({L"GetItemFromID"}, c.item, *c.store)
                    : nameSpace().call({L"GetItemFromID"}, c.item);
        });
        EXPECT_EQ(fault.number, c.expected) << c.item << " in " << c.store.value_or(L"(default)");
        EXPECT_EQ(fault.description.empty(), c.expected == 0);
    }
    const Object folderById = nameSpace().object({L"GetFolderFromID"}, mailbox.entryId(people), archiveId);
    EXPECT_EQ(folderById.text({L"Name"}), L"People");
    EXPECT_EQ(faultOf([&] { nameSpace().call({L"GetFolderFromID"}, here); }).number, kNotFound);
}

TEST_F(Outlook, WrongKindsOfInvocationAreRefused) {
    using zelbar::lent;
    const Object contact = contacts().object({L"Items"}).object({L"Add"}, 2);
    const Object explorer = contacts().object({L"GetExplorer"});
    const auto target = contacts().target(), item = contact.target();
    const zelbar::Bstr mapi(L"MAPI");
    const VARIANT text = lent(mapi.get()), one = lent(1L);
    const struct {
        const Object& object;
        const wchar_t* member;
        WORD flags;
        std::vector<VARIANT> arguments;
        HRESULT expected;
    } cases[] = {
        {contact, L"FullName", DISPATCH_PROPERTYGET, {}, S_OK},
        {contact, L"FullName", DISPATCH_METHOD, {}, DISP_E_MEMBERNOTFOUND},
        {contact, L"GetInspector", DISPATCH_METHOD, {}, DISP_E_MEMBERNOTFOUND},
        {contact, L"GetInspector", DISPATCH_PROPERTYGET, {}, S_OK},
        {contact, L"Save", DISPATCH_PROPERTYGET, {}, DISP_E_MEMBERNOTFOUND},
        {contact, L"Save", DISPATCH_METHOD, {}, S_OK},
        {contact, L"EntryID", DISPATCH_PROPERTYPUT, {text}, DISP_E_MEMBERNOTFOUND},
        {contact, L"FullName", DISPATCH_PROPERTYGET, {one}, DISP_E_BADPARAMCOUNT},
        {explorer, L"CurrentFolder", DISPATCH_PROPERTYPUT, {lent(target.get())}, DISP_E_MEMBERNOTFOUND},
        {explorer, L"CurrentFolder", DISPATCH_PROPERTYPUTREF, {lent(target.get())}, S_OK},
        {explorer, L"CurrentFolder", DISPATCH_PROPERTYPUTREF, {lent(item.get())}, DISP_E_TYPEMISMATCH},
        {app, L"GetNamespace", DISPATCH_METHOD, {text, one}, DISP_E_BADPARAMCOUNT},
        {app, L"StoreID", DISPATCH_PROPERTYGET, {}, DISP_E_UNKNOWNNAME},
        {nameSpace(), L"GetItemFromID", DISPATCH_METHOD, {lent(VT_ERROR)}, DISP_E_PARAMNOTOPTIONAL},
    };
    for (const auto& c : cases)
        EXPECT_EQ(zelbar::late(*c.object.target().get(), c.member, c.arguments, c.flags).result, c.expected)
            << c.member << " with flags " << c.flags;
}

TEST_F(Outlook, CollectionsAreCountedFromOne) {
    ada();
    for (const long outside : {0L, 2L})
        EXPECT_NE(faultOf([&] { contacts().object({L"Items"}).call({L"Item"}, outside); }).number, 0);
    EXPECT_EQ(contacts().object({L"Items"}, 1).text({L"FirstName"}), L"Ada") << "an argument is passed on";
}

}  // namespace
}  // namespace standin::outlook
