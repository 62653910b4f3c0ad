#include "tests/filler/Fixture.h"

/// What the filler makes of Outlook, and of an Outlook that fails.
namespace {

using OutlookTest = FillerTest;

const standin::Failure kBroken{E_FAIL, L"Broken item."};

TEST_F(OutlookTest, TheDefaultFolderServesWhoHasNeverChosen) {
    const ItemRecord byron = addPerson(defaultContacts, L"Byron", L"+44 20 1");
    const FolderRecord others = addFolder(mailbox.defaultStore(), L"Others");
    addPerson(others, L"Other", L"9");
    ASSERT_EQ(fill(), L"");
    const Texts before = content();
    const std::wstring key = rows(L"TStoreID", {L"Index"}).at(0);
    EXPECT_EQ(rows(L"TStoreID", {L"StoreID"}), Texts{mailbox.storeId(mailbox.defaultStore().id)});
    EXPECT_EQ(before, Texts{L"Byron|+44 20 1|" + mailbox.entryId(byron) + L"|" + key});
    EXPECT_EQ(filler::describe(result_),
              L"Outlook was read item by item: Outlook 11.0.0.8010 has no tables.\n"
              L"1 contact in 1 folder, 1 number.\n1 row added, 0 removed.\n"
              L"Restart the telephony client: it reads the list of stores only when it starts.\n");
    chooseFolder(1, others, L"0");
    EXPECT_EQ(fill(), L"No contacts folder is chosen. Choose the contacts folders in the client.");
    EXPECT_EQ(content(), before);
}

TEST_F(OutlookTest, TakesWhatCanBeSearchedAndCalled) {
    const standin::outlook::Fields known[] = {
        {{L"LastName", L"Twice"}, {L"HomeTelephoneNumber", L"1"}, {L"CarTelephoneNumber", L" 1 "}},
        {{L"CompanyName", L"Engines"}, {L"PagerNumber", L"2"}},
        {{L"FileAs", L"Filed"}, {L"TelexNumber", L"3"}},
        {{L"LastName", L"Silent"}, {L"Email1Address", L"silent@example.com"}}};
    for (const auto& fields : known) mailbox.addContact(defaultContacts.id, fields);
    mailbox.addDistributionList(defaultContacts.id, L"Team");
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(people(), (Texts{L"Engines|2", L"Filed|3", L"Twice|1"}));
    EXPECT_EQ(result_.contactCount, 4);
    EXPECT_TRUE(result_.isComplete());
}

TEST_F(OutlookTest, EveryChosenFolderIsReadAndOnesThatAreGoneAreNamed) {
    const auto archive = mailbox.addStore(L"Archive");
    const FolderRecord old = addFolder(archive, L"Old"),
                       others = addFolder(mailbox.defaultStore(), L"Others");
    addPerson(defaultContacts, L"Unselected", L"1");
    addPerson(old, L"Old", L"2");
    addPerson(others, L"Other", L"3");
    for (int i = 1; i <= 16; ++i) chooseFolder(i, defaultContacts, L"0");
    chooseFolder(17, others, L"");
    chooseFolder(18, old);
    chooseFolder(19, others);
    ASSERT_EQ(fill(), L"");
    const Texts all = content();
    EXPECT_EQ(people(), (Texts{L"Old|2", L"Other|3"}));
    EXPECT_EQ(result_.folderCount, 2);
    // Not found for a moment: its rows go and come back under the same key.
    faults().failMember(L"GetFolderFromID", {static_cast<HRESULT>(0x8004010F)}, 1);
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(people(), (Texts{L"Old|2"}));
    EXPECT_EQ(rows(L"TStoreID", {L"Index"}).size(), 2u)
        << "a running driver still knows the store by its key";
    EXPECT_EQ(observer_.notes, (Texts{L"The chosen folder number 17 (in " + mailbox.defaultStore().name +
                                      L") does not exist any more and was left out."}));
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(content(), all);
    // A store that is not open may come back; a deleted folder does not.
    mailbox.removeStore(archive.id);
    EXPECT_EQ(fill().find(L"The chosen folder number 18 cannot be opened in Outlook"), 0u);
    chooseFolder(18, others);
    mailbox.eraseFolder(others.id);
    EXPECT_EQ(fill(), L"None of the chosen folders exists any more. Choose the contacts folders again.");
}

TEST_F(OutlookTest, WhatCannotBeReadKeepsItsRows) {
    const FolderRecord old = addFolder(mailbox.addStore(L"Archive"), L"Old");
    chooseFolder(1, defaultContacts);
    chooseFolder(2, old);
    addPerson(defaultContacts, L"Byron", L"1");
    const std::pair<const wchar_t*, bool> cases[] = {
        {L"Items.Item", false}, {L"Class", false}, {L"EntryID", false}, {L"TelexNumber", true}};
    for (const auto& [member, isIdentifierKnown] : cases) {
        SCOPED_TRACE(member);
        const ItemRecord deleted = addPerson(defaultContacts, L"Deleted", L"2"),
                         other = addPerson(old, L"Other", L"3"),
                         unread = addPerson(defaultContacts, L"Unread", L"4");
        ASSERT_EQ(fill(), L"");
        mailbox.eraseItem(deleted.id);
        mailbox.eraseItem(other.id);
        faults().failMember(member, kBroken, 1);
        ASSERT_EQ(fill(), L"");
        EXPECT_FALSE(result_.isComplete());
        EXPECT_EQ(people().size(), isIdentifierKnown ? 2u : 3u);
        EXPECT_EQ(observer_.notes,
                  (Texts{L"Contacts that could not be read in \\" + mailbox.defaultStore().name + L"\\" +
                         defaultContacts.name + L": 1. The last reason: Broken item."}));
        ASSERT_EQ(fill(), L"");
        EXPECT_TRUE(result_.isComplete());
        EXPECT_EQ(people(), (Texts{L"Byron|1", L"Unread|4"}));
        mailbox.eraseItem(unread.id);
    }
    faults().failMember(L"LastName", kBroken);
    EXPECT_NE(fill().find(L"none of the contacts"), std::wstring::npos);
}

TEST_F(OutlookTest, PhotosGoWithTheContacts) {
    const ItemRecord byron = addPerson(defaultContacts, L"Byron", L"1");
    const std::wstring old = folder.file(L"PimContact_00ab.jpg");
    const Texts others = {L"pimcontact_" + mailbox.entryId(byron) + L".jpg", L"pimcontact_xyz.jpg",
                          L"AB.jpg"};
    for (const std::wstring& name : others) harness::writeFile(folder.file(name), "");
    harness::writeFile(old, "");
    addPerson(defaultContacts, L"Hopper", L"2");
    faults().failMember(L"TelexNumber", kBroken, 1);
    ASSERT_EQ(fill(), L"");
    EXPECT_TRUE(harness::exists(old)) << "the cache is not complete";
    ASSERT_EQ(fill(), L"");
    EXPECT_FALSE(harness::exists(old));
    for (const std::wstring& name : others) EXPECT_TRUE(harness::exists(folder.file(name)));
}

}  // namespace
