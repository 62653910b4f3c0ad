// Identifiers, stores and folders.
#include "tests/standin_outlook/Fixture.h"

namespace standin::outlook {
namespace {

class Identity : public Outlook {};

TEST_F(Identity, WhatNamesNothingRaises) {
    Mailbox& box = host->mailbox();
    const StoreRecord archive = box.addStore(L"Archive");
    const FolderRecord people = box.addFolder(archive.root, L"People", ItemType::Contact);
    const std::wstring here = box.entryId(ada());
    const std::wstring there = box.entryId(box.addContact(people.id, {{L"LastName", L"Away"}}));
    const std::wstring archiveId = box.storeId(archive.id);
    const std::wstring homeId = box.storeId(box.defaultStore().id);
    const StoreRecord closed = box.addStore(L"Closed");
    const std::wstring closedId = box.storeId(closed.id);
    box.removeStore(closed.id);
    std::wstring unused = here;
    unused[unused.size() - 5] = L'F';
    const struct {
        std::wstring item;
        std::optional<std::wstring> store;
        HRESULT expected;
    } cases[] = {
        {here, {}, S_OK},
        {here, homeId, S_OK},
        {there, archiveId, S_OK},
        {there, {}, kNotFound},
        {there, homeId, kNotFound},
        {here, archiveId, kNotFound},
        {unused, {}, kNotFound},
        {box.entryId(people), archiveId, kNotFound},
        {here, closedId, kStoreNotOpen},
        {here.substr(2), {}, kInvalidEntryId},
        {homeId, {}, kInvalidEntryId},
        {here, here, kInvalidEntryId},
        {here.substr(1), {}, E_INVALIDARG},
        {L"not an identifier", {}, E_INVALIDARG},
        {L"", {}, E_INVALIDARG},
        {here, L"", E_INVALIDARG},
    };
    for (const auto& c : cases) {
        const late::Outcome outcome =
            c.store ? nameSpace().attempt(L"GetItemFromID", {toValue(c.item), toValue(*c.store)})
                    : nameSpace().attempt(L"GetItemFromID", {toValue(c.item)});
        EXPECT_EQ(late::numberOf(outcome), c.expected) << c.item << " in " << c.store.value_or(L"(default)");
        EXPECT_EQ(outcome.result, c.expected == S_OK ? S_OK : DISP_E_EXCEPTION);
        EXPECT_EQ(outcome.description.empty(), c.expected == S_OK);
    }
    EXPECT_EQ(nameSpace()
                  .object(L"GetFolderFromID", {toValue(box.entryId(people)), toValue(archiveId)})
                  .text(L"Name"),
              L"People");
    EXPECT_EQ(nameSpace().attempt(L"GetFolderFromID", {toValue(here)}).number, kNotFound);
}

TEST_F(Identity, FoldersAreAddedFoundAndRefused) {
    const late::Object folders = contacts().object(L"Folders");
    const late::Object friends = folders.object(L"Add", {L"Friends"});
    EXPECT_EQ(friends.number(L"DefaultItemType"), 2) << "as the folder around it";
    EXPECT_EQ(folders.object(L"Add", {L"Notes on friends", 11L}).number(L"DefaultItemType"), 4);
    EXPECT_EQ(folders.attempt(L"Add", {L"FRIENDS"}).number, kCollision);
    EXPECT_EQ(folders.attempt(L"Item", {L"friends"}).number, kNotFound) << "the index is exact";
    EXPECT_EQ(folders.attempt(L"Item", {0L}).result, DISP_E_EXCEPTION);
    EXPECT_EQ(folders.attempt(L"Item", {3L}).result, DISP_E_EXCEPTION);
    friends.call(L"Delete");
    EXPECT_EQ(folders.number(L"Count"), 1);
    EXPECT_EQ(friends.object(L"Parent").text(L"Name"), L"Deleted Items");
    EXPECT_EQ(contacts().attempt(L"Delete").number, E_ACCESSDENIED);
}

TEST_F(Identity, DeletingTakesTwoSteps) {
    const ItemRecord item = ada();
    const late::Object contact = open(item);
    contact.call(L"Delete");
    EXPECT_EQ(contact.attempt(L"FirstName").number, kDeleted);
    EXPECT_EQ(contacts().object(L"Items").number(L"Count"), 0);
    const late::Object again = open(item);
    EXPECT_EQ(again.object(L"Parent").text(L"Name"), L"Deleted Items") << "the id still opens it";
    again.call(L"Delete");
    const Value id = toValue(host->mailbox().entryId(item));
    EXPECT_EQ(nameSpace().attempt(L"GetItemFromID", {id}).number, kNotFound);
}

TEST_F(Identity, IdsAreNeverUsedTwice) {
    const ItemRecord first = ada();
    const std::wstring id = host->mailbox().entryId(first);
    host->mailbox().eraseItem(first.id);
    EXPECT_NE(host->mailbox().entryId(ada()), id);
}

TEST_F(Identity, MovingToAnotherStoreChangesTheId) {
    Mailbox& box = host->mailbox();
    const FolderRecord here = box.addFolder(contactsRow(), L"Here", ItemType::Contact);
    const FolderRecord there = box.addFolder(box.addStore(L"Archive").root, L"There", ItemType::Contact);
    ItemRecord item = ada();
    const std::wstring first = box.entryId(item);
    box.setPicture(item, {7});
    box.moveItem(item.id, here.id);
    EXPECT_EQ(box.entryId(*box.item(item.id)), first);
    const ItemRecord moved = *box.item(box.moveItem(item.id, there.id));
    EXPECT_NE(box.entryId(moved), first);
    EXPECT_EQ(moved.attachments.size(), 1U);
    EXPECT_FALSE(box.item(item.id));
}

TEST_F(Identity, AnotherProcessMayChangeTheFile) {
    const late::Object items = contacts().object(L"Items");
    EXPECT_EQ(items.number(L"Count"), 0);
    Mailbox other(folder.file(L"mailbox.db"));
    const ItemRecord added = other.addContact(contactsRow(), {{L"FullName", L"Ada Byron"}});
    EXPECT_EQ(items.number(L"Count"), 1);
    EXPECT_EQ(open(added).text(L"LastName"), L"Byron");
    other.eraseItem(added.id);
    EXPECT_EQ(items.number(L"Count"), 0);
}

}  // namespace
}  // namespace standin::outlook
