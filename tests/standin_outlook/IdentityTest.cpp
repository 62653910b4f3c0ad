// Identifiers, stores and folders.
#include "tests/standin_outlook/Fixture.h"

namespace standin::outlook {
namespace {

class Identity : public Outlook {};

std::wstring lower(std::wstring text) {
    for (wchar_t& letter : text) letter = static_cast<wchar_t>(std::towlower(letter));
    return text;
}

TEST_F(Identity, LooksLikeAPersonalFoldersFile) {
    const late::Object contact = open(ada());
    const std::wstring id = contact.text(L"EntryID");
    const std::wstring store = contacts().text(L"StoreID");
    EXPECT_EQ(id.size(), 48U);
    EXPECT_GT(store.size(), 200U);
    EXPECT_EQ((id + store).find_first_not_of(L"0123456789ABCDEF"), std::wstring::npos);
    EXPECT_EQ(contact.object(L"Parent").object(L"Parent").text(L"StoreID"), store) << "one store, one id";
    EXPECT_EQ(
        nameSpace().object(L"GetItemFromID", {toValue(lower(id)), toValue(lower(store))}).text(L"FirstName"),
        L"Ada");
    EXPECT_EQ(contacts().object(L"Items").object(L"Add", {2L}).text(L"EntryID"), L"") << "not saved yet";
}

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

TEST_F(Identity, ParentsEndInTheNameSpace) {
    late::Object place = open(ada());
    std::vector<long> classes;
    while (classes.empty() || classes.back() > 0) {
        classes.push_back(place.number(L"Class"));
        if (classes.back() > 0) place = place.object(L"Parent");
    }
    EXPECT_EQ(classes, (std::vector<long>{40, 2, 2, 1, 0}));
    EXPECT_EQ(nameSpace().attempt(L"Name").result, DISP_E_UNKNOWNNAME);
    EXPECT_EQ(place.text(L"Name"), L"Outlook");
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
    friends.call(L"Delete");
    EXPECT_EQ(friends.attempt(L"Name").number, kNotFound);
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

TEST_F(Identity, ItemsAreWalkedMovedAndCopied) {
    for (const wchar_t* name : {L"Baker", L"Able", L"Charlie"})
        host->mailbox().addContact(contactsRow(), {{L"LastName", name}});
    const late::Object items = contacts().object(L"Items");
    items.call(L"Sort", {L"[LastName]"});
    std::wstring order;
    for (late::Object item = items.object(L"GetFirst"); item; item = items.object(L"GetNext"))
        order += item.text(L"LastName")[0];
    EXPECT_EQ(order, L"ABC");
    EXPECT_EQ(items.object(L"GetLast").text(L"LastName"), L"Charlie");
    EXPECT_EQ(items.object(L"GetPrevious").text(L"LastName"), L"Baker");

    const late::Object friends = contacts().object(L"Folders").object(L"Add", {L"Friends"});
    const late::Object moved = items.object(L"Item", {1L}).object(L"Move", {friends.value()});
    EXPECT_EQ(moved.object(L"Parent").text(L"Name"), L"Friends");
    moved.call(L"Copy");
    EXPECT_EQ(friends.object(L"Items").number(L"Count"), 2);
    EXPECT_EQ(items.number(L"Count"), 2) << "a held collection follows";
    items.call(L"Remove", {1L});
    EXPECT_EQ(items.number(L"Count"), 1);
    EXPECT_EQ(items.attempt(L"Remove", {2L}).result, DISP_E_EXCEPTION);
    EXPECT_EQ(items.object(L"Item", {L"charlie"}).text(L"LastName"), L"Charlie");
    friends.put(L"Name", L"Old friends");
    EXPECT_EQ(contacts().object(L"Folders", {1L}).text(L"Name"), L"Old friends");
    contacts().object(L"Folders").call(L"Remove", {1L});
    EXPECT_EQ(contacts().object(L"Folders").number(L"Count"), 0);
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

TEST_F(Identity, SavedThingsSurviveARestart) {
    const late::Object contact = contacts().object(L"Items").object(L"Add");
    contact.put(L"FullName", L"Zoë Ångström");
    contact.put(L"Home2TelephoneNumber", L"+46 8 1");
    contact.object(L"UserProperties").object(L"Add", {L"EmployeeId", 3L}).put(L"Value", 42.0);
    contact.call(L"Save");
    contact.put(L"Home2TelephoneNumber", L"+46 8 2");
    contacts().object(L"Items").object(L"Add").put(L"FullName", L"Nobody");
    const Value id = contact.get(L"EntryID");
    const Value store = contacts().get(L"StoreID");

    host->quit();
    restart();
    const late::Object found = nameSpace().object(L"GetItemFromID", {id, store});
    EXPECT_EQ(found.text(L"FullName"), L"Zoë Ångström");
    EXPECT_EQ(found.text(L"Home2TelephoneNumber"), L"+46 8 1");
    EXPECT_EQ(found.object(L"UserProperties", {L"employeeid"}).get(L"Value"), Value(42.0));
    EXPECT_EQ(contacts().object(L"Items").number(L"Count"), 1);
}

TEST_F(Identity, AFileThatIsNoMailboxIsRefused) {
    const std::wstring path = folder.file(L"garbage.db");
    FILE* file = _wfopen(path.c_str(), L"wb");
    for (int i = 0; i < 1000; ++i) fputs("no mailbox ", file);
    fclose(file);
    EXPECT_THROW(Mailbox{path}, DatabaseError);
    EXPECT_THROW(Mailbox{folder.file(L"nowhere\\mailbox.db")}, DatabaseError);
}

TEST_F(Identity, TenThousandContactsAreListedInTime) {
    Mailbox& box = host->mailbox();
    {
        Transaction transaction(box.database());
        for (int i = 0; i < 10000; ++i) box.addContact(contactsRow(), {{L"LastName", std::to_wstring(i)}});
        transaction.commit();
    }
    const late::Object items = contacts().object(L"Items");
    const auto listed = [&](long from, long to) {
        const ULONGLONG start = GetTickCount64();
        for (long i = from; i <= to; ++i) items.object(L"Item", {i});
        return GetTickCount64() - start;
    };
    listed(1, 100);
    const ULONGLONG front = listed(1, 500);
    const ULONGLONG back = listed(9501, 10000);
    EXPECT_EQ(items.object(L"Item", {10000L}).text(L"LastName"), L"9999");
    EXPECT_LT(back, front * 5 + 200) << "the place in the list must not matter";
    items.call(L"Sort", {L"[LastName]", true});
    EXPECT_EQ(items.object(L"GetFirst").text(L"LastName"), L"9999");
}

}  // namespace
}  // namespace standin::outlook
