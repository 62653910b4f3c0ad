#include "automation/Bstr.h"
#include "automation/Object.h"
#include "automation/OutlookNames.h"
#include "support/TelephoneNumbers.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {

namespace {

class ContactMembers : public DriverTest {
  protected:
    /// The contact that a search finds for an item, read late bound as a script would.
    Object found(const standin::outlook::ItemRecord& item) {
        if (!harness::exists(folder.file(L"connec00.mdb")))
            writeCache({{L"Any", L"1", outlook.mailbox().entryId(item)}});
        contact_ = findFirst(*openCursor().get(), 0, L"1");
        return Object(gateway_, Server::Client, contact_, kUnknownClass);
    }
    std::vector<std::wstring> list(const Object& contact, const wchar_t* member) {
        const Object values = contact.object(Member{member});
        std::vector<std::wstring> result;
        for (long i = 1; i <= values.integer(Member{L"Count"}); ++i)
            result.push_back(values.text(Member{L"Item"}, i));
        return result;
    }
    void TearDown() override {
        contact_.reset();
        DriverTest::TearDown();
    }

    Gateway gateway_;
    Com<::Contact> contact_;
};

TEST_F(ContactMembers, ReadTheOutlookItem) {
    const auto item = addContact({{L"FirstName", L"Ada"},
                                  {L"LastName", L"Byron"},
                                  {L"CompanyName", L"Analytical"},
                                  {L"Department", L"Engines"},
                                  {L"Home2TelephoneNumber", L"h2"},
                                  {L"MobileTelephoneNumber", L"m"},
                                  {L"PagerNumber", L"p"}});
    const Object contact = found(item);
    const std::pair<const wchar_t*, std::wstring> expected[] = {
        {L"FullName", L"Byron, Ada"},
        {L"FirstName", L"Ada"},
        {L"LastName", L"Byron"},
        {L"CompanyName", L"Analytical"},
        {L"Department", L"Engines"},
        {L"MobilePhone", L"m"},
        {L"PagerPhone", L"p"},
        {L"BusinessPhone", L""},
        {L"MainHomeNumber", L"h2"},
        {L"MainPhoneNumber", L"h2"},
        {L"ContactId", outlook.mailbox().entryId(item)},
        {L"StoreId", outlook.mailbox().storeId(outlook.mailbox().defaultStore().id)},
        {L"CategorieId", L""},
        {L"employeeId", L""},
        {L"PhotoURL", L""},
        {L"MobilePhoneLabel", L""},
    };
    for (const auto& [name, value] : expected) EXPECT_EQ(contact.text(Member{name}), value) << name;
    EXPECT_EQ(list(contact, L"PhoneNumbers"),
              (std::vector<std::wstring>{L"Home 2: \th2", L"Mobile: \tm", L"Pager: \tp"}));
}

TEST_F(ContactMembers, ListAllNineteenNumbersInTheirOrderWithLabels) {
    standin::outlook::Fields fields{{L"LastName", L"Switchboard"}};
    for (const auto& property : kTelephoneProperties) fields[property.member.name] = property.member.name;
    const Object contact = found(addContact(fields));
    const auto numbers = list(contact, L"PhoneNumbers");
    ASSERT_EQ(numbers.size(), 19u);
    for (size_t i = 0; i < numbers.size(); ++i) {
        const size_t tab = numbers[i].find(L": \t");
        ASSERT_NE(tab, std::wstring::npos) << numbers[i];
        EXPECT_GT(tab, 0u) << "a number without a label";
        EXPECT_EQ(numbers[i].substr(tab + 3), kTelephoneProperties[i].member.name);
    }
}

TEST_F(ContactMembers, NumbersAreReadAnewAndSurviveAnOutlookThatHasGone) {
    auto item = addContact({{L"LastName", L"Byron"}, {L"BusinessTelephoneNumber", L"old"}});
    const Object contact = found(item);
    item.fields[L"BusinessTelephoneNumber"] = L"new";
    outlook.mailbox().save(item);
    EXPECT_EQ(list(contact, L"PhoneNumbers"), std::vector<std::wstring>{L"Business: \tnew"});
    outlook.quit();
    EXPECT_EQ(contact.text(Member{L"Department"}), L"");
    EXPECT_EQ(contact.text(Member{L"FirstName"}), L"");
    EXPECT_EQ(contact.text(Member{L"LastName"}), L"Byron");
}

TEST_F(ContactMembers, AddressesAreReadOnlyWhereTheClientAllowsIt) {
    const Object contact = found(addContact({{L"LastName", L"Byron"},
                                             {L"BusinessTelephoneNumber", L"1"},
                                             {L"Email2Address", L"ada@example.org"},
                                             {L"Email3Address", L"byron@example.org"}}));
    for (const wchar_t* forbidden : {L"", L"1", L" 0"}) {
        registry.set(HKEY_CURRENT_USER, kPopupKey, L"NoEmailAddressAccess", forbidden);
        EXPECT_EQ(contact.text(Member{L"MainEmail"}), L"");
        EXPECT_TRUE(list(contact, L"Emails").empty());
    }
    EXPECT_EQ(outlook.server().calls().invocations(L"Email1Address") +
                  outlook.server().calls().invocations(L"Email2Address"),
              0);
    registry.set(HKEY_CURRENT_USER, kPopupKey, L"NoEmailAddressAccess", L"0");
    EXPECT_EQ(contact.text(Member{L"MainEmail"}), L"ada@example.org");
    EXPECT_EQ(list(contact, L"Emails").size(), 2u);
}

TEST_F(ContactMembers, ThePictureBecomesAFile) {
    auto item = addContact({{L"LastName", L"Byron"}, {L"BusinessTelephoneNumber", L"1"}});
    outlook.mailbox().setPicture(item, {'J', 'P', 'G', '\0', '!'});
    const Object contact = found(item);
    const std::wstring path = contact.text(Member{L"PhotoURL"});
    EXPECT_EQ(path, folder.file(L"pimcontact_" + outlook.mailbox().entryId(item) + L".jpg"));
    EXPECT_EQ(harness::readFile(path), std::string("JPG\0!", 5));

    outlook.server().faults().failMember(L"SaveAsFile", {E_FAIL, L"Disk full."});
    const Object again = found(item);
    EXPECT_EQ(again.text(Member{L"PhotoURL"}), L"");
    EXPECT_TRUE(traced("Error (SetPhotoUrl): Disk full. in Microsoft Outlook"));
    // An Outlook from before contacts had pictures.
    outlook.server().setOption(L"Version", L"9.0.0.2711");
    EXPECT_EQ(found(item).text(Member{L"PhotoURL"}), L"");
}

TEST_F(ContactMembers, AreEqualWhenTheirItemIs) {
    const auto ada = addListed(L"Ada", L"Byron", L"1");
    writeCache({ada, addListed(L"Ben", L"Carter", L"2")});
    const auto cursor = openCursor();
    const auto first = findFirst(*cursor.get(), 0, L"1");
    const auto isEqual = [](const Com<::Contact>& a, ::Contact* b) {
        VARIANT_BOOL result = VARIANT_FALSE;
        EXPECT_EQ(a->IsEqual(b, &result), S_OK);
        return result != VARIANT_FALSE;
    };
    EXPECT_TRUE(isEqual(first, findFirst(*cursor.get(), 0, L"1").get()));
    EXPECT_FALSE(isEqual(first, findFirst(*cursor.get(), 0, L"2").get()));
    EXPECT_FALSE(isEqual(first, nullptr));
    EXPECT_TRUE(isEqual(findFirst(*cursor.get(), 0, L"x"), findFirst(*cursor.get(), 0, L"y").get()));
}

TEST_F(ContactMembers, KeepWhatTheClientStores) {
    const Object contact = found(addContact({{L"LastName", L"Byron"}, {L"BusinessTelephoneNumber", L"1"}}));
    for (const wchar_t* name :
         {L"MainEmail", L"MainPhoneNumber", L"MainHomeNumber", L"FullName", L"PhotoURL"}) {
        contact.put(Member{name}, L"kept");
        EXPECT_EQ(contact.text(Member{name}), L"kept") << name;
    }
    contact.put(Member{L"PersonalData"}, Variant(42L));
    EXPECT_EQ(contact.get(Member{L"PersonalData"}).type(), VT_I4);
    EXPECT_FALSE(contact.boolean(Member{L"IsSelected"}));
    EXPECT_EQ(contact.get(Member{L"ExecuteCommand"}, L"x").type(), VT_EMPTY);
}

TEST_F(ContactMembers, LinkedContactsTakeLabelsAndAddressFromTheDirectory) {
    {
        Gateway gateway;
        const Object directory = gateway.create(Server::Dao, L"DAO.DBEngine.36", kUnknownClass)
                                     .object(Member{L"CreateDatabase"}, folder.file(L"wxd.mdb"),
                                             L";LANGID=0x0409;CP=1252;COUNTRY=0");
        for (const wchar_t* sql :
             {L"Create Table Employees (EmployeeId Long, Categories Long, AssistantID Long, EmailAddress "
              L"Text(80))",
              L"Insert Into Employees Values (7, 2, 9, \"ada@firm.example\")",
              L"Create Table Default (BusinessPhoneLabel Text(50), MobilePhoneLabel Text(50))",
              L"Insert Into Default Values (\"Desk\", \"\")"})
            directory.call(Member{L"Execute"}, sql, 128);
        directory.call(Member{L"Close"});
    }
    auto item = addContact(
        {{L"LastName", L"Byron"}, {L"BusinessTelephoneNumber", L"1"}, {L"MobileTelephoneNumber", L"2"}});
    outlook.mailbox().setUserProperty(item, L"EmployeeId", 3, L"7");
    const Object contact = found(item);
    const std::pair<const wchar_t*, std::wstring> expected[] = {
        {L"employeeId", L"7"},         {L"CategorieId", L"2"},
        {L"AssistantId", L"9"},        {L"BusinessPhoneLabel", L"Desk"},
        {L"AssistantPhoneLabel", L""}, {L"MainEmail", L"ada@firm.example"},
    };
    for (const auto& [name, value] : expected) EXPECT_EQ(contact.text(Member{name}), value) << name;
    EXPECT_EQ(list(contact, L"PhoneNumbers"), (std::vector<std::wstring>{L"Desk: \t1", L"Mobile: \t2"}));
    EXPECT_EQ(list(contact, L"Emails").size(), 1u);
}

}  // namespace

}  // namespace zelbar
