// Identifiers, stores and folders.
#include "tests/standin_outlook/Fixture.h"

namespace standin::outlook {
namespace {

constexpr auto kInvalidEntryId = static_cast<long>(0x80040107);
constexpr auto kStoreNotOpen = static_cast<long>(0x8004011C);
constexpr auto kInvalidArgument = static_cast<long>(E_INVALIDARG);

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

}  // namespace
}  // namespace standin::outlook
