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

}  // namespace
}  // namespace standin::outlook
