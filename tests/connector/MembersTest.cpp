#include "automation/Bstr.h"
#include "automation/OutlookNames.h"
#include "com/ConnectionPoint.h"
#include "core/DriverState.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {

namespace {

using Members = DriverTest;

TEST_F(Members, TellAboutThePim) {
    EXPECT_EQ(script().text(Member{L"Version"}), L"11.0.0.8010");
    EXPECT_TRUE(script().boolean(Member{L"PIMInstalled"}));
    EXPECT_EQ(script().integer(Member{L"PIMName"}), 4096);
    const Object actions = script().object(Member{L"Actions"});
    EXPECT_EQ(actions.integer(Member{L"Count"}), 5);
    EXPECT_EQ(script().object(Member{L"Actions"}).target().get(), actions.target().get());
}

TEST_F(Members, GiveAContactByItsIdentifier) {
    const auto own = addContact({{L"FirstName", L"Ada"}, {L"LastName", L"Byron"}});
    const auto archive = mailbox.addStore(L"Archive");
    const auto people = mailbox.addFolder(archive.root, L"People", standin::outlook::ItemType::Contact);
    const auto distant = mailbox.addContact(people.id, {{L"LastName", L"Hopper"}});
    writeCache({});
    addCacheStore(L"2", mailbox.storeId(archive.id));
    const Member byId{L"GetContactByContactID"};
    EXPECT_EQ(script().object(byId, mailbox.entryId(own)).text(Member{L"FullName"}), L"Byron, Ada");
    EXPECT_EQ(script().object(byId, mailbox.entryId(distant)).text(Member{L"FullName"}), L"Hopper");
    EXPECT_TRUE(traced("GetContactByContactID: Name=Hopper"));
    mailbox.eraseItem(distant.id);
    for (const std::wstring& id : {mailbox.entryId(distant), std::wstring(), std::wstring(40000, L'A')})
        EXPECT_TRUE(script().object(byId, id).boolean(Member{L"NotInPIM"}));
    EXPECT_TRUE(traced("GetContactByContactID: NOK"));

    const Member itemById{L"GetContactItemByContactItemID"};
    EXPECT_EQ(script().object(itemById, mailbox.entryId(own)).text(Member{L"FileAs"}), L"Byron, Ada");
    EXPECT_FALSE(script().object(itemById, mailbox.entryId(distant)));
}

TEST_F(Members, KnowWhetherAFolderIsConfigured) {
    const auto configured = [&] {
        const Variant answer = script().get(Member{L"ExecuteCommand"}, L"isFolderConfigured");
        EXPECT_EQ(answer.type(), VT_BOOL);
        return answer.boolean();
    };
    EXPECT_FALSE(configured());
    writeCache({});
    EXPECT_TRUE(configured());
    registry.set(HKEY_CURRENT_USER, kFolderKey, L"entryId1", mailbox.entryId(defaultContacts));
    EXPECT_TRUE(configured());
    registry.set(HKEY_CURRENT_USER, kFolderKey, L"storeId1", mailbox.storeId(mailbox.defaultStore().id));
    EXPECT_TRUE(configured());
    EXPECT_TRUE(traced("isFolderConfigured() :True"));
    registry.set(HKEY_CURRENT_USER, kFolderKey, L"entryId1", L"0000");
    EXPECT_FALSE(configured());
    EXPECT_TRUE(traced("(Error)isFolderConfigured():The operation failed. in Microsoft Outlook"));
    EXPECT_EQ(script().get(Member{L"ExecuteCommand"}, L"anything").type(), VT_EMPTY);
}

TEST_F(Members, ShowAFolder) {
    const Member show{L"ShowFolder"};
    for (const wchar_t* nothing : {L"", L"Contacts", L"inbox"}) EXPECT_FALSE(script().boolean(show, nothing));
    EXPECT_TRUE(script().boolean(show, L"contacts"));
    EXPECT_FALSE(script().boolean(show, L"journal"));
    EXPECT_EQ(driver()
                  .outlook.GetApp()
                  .object(outlook::ActiveExplorer)
                  .object(outlook::CurrentFolder)
                  .text(outlook::Name),
              L"Journal");
}

TEST_F(Members, CreateAContactAndFindItActive) {
    EXPECT_FALSE(script().object(Member{L"GetActiveContact"}));
    script().call(Member{L"CreateContact"}, L"Ada Byron", L"+44", true);
    const Object active = script().object(Member{L"GetActiveContact"});
    ASSERT_TRUE(active);
    EXPECT_EQ(active.text(Member{L"LastName"}), L"Ada Byron");
    EXPECT_EQ(active.text(Member{L"BusinessPhone"}), L"+44");
    EXPECT_FALSE(active.text(Member{L"ContactId"}).empty());
    faults().failMember(L"Save", {E_FAIL, L"No space."});
    script().call(Member{L"CreateContact"}, L"Lost", L"1", false);
    script().call(Member{L"WriteCache"}, 1);
    EXPECT_TRUE(traced("############## REINITIALISER LE CACHE !!! ##############"));
    EXPECT_TRUE(traced("Error (CreateContact): No space. in "));
    EXPECT_TRUE(traced("CreateContact() Name=Lost Number=1"));
}

}  // namespace

}  // namespace zelbar
