#include "support/TelephoneNumbers.h"
#include "tests/search/SearchTest.h"

namespace zelbar {

namespace {

using Texts = std::vector<std::wstring>;

class ContactMembers : public SearchTest {
  protected:
    /// The contact that a search finds for an item, read late bound as a script would.
    Object contactOf(const standin::outlook::ItemRecord& item) {
        if (!cursor) open({{L"Any", L"1", mailbox.entryId(item)}});
        first(0, L"1");
        return found;
    }
    Texts numbers() { return values(found.object({L"PhoneNumbers"})); }
    Texts emails() { return values(found.object({L"Emails"})); }
    static Texts texts(const Object& contact, std::initializer_list<const wchar_t*> names) {
        Texts result;
        for (const wchar_t* name : names) result.push_back(contact.text(Member{name}));
        return result;
    }
};

TEST_F(ContactMembers, ReadTheOutlookItem) {
    const std::pair<const std::wstring, std::wstring> fields[] = {
        {L"FirstName", L"Ada"},           {L"LastName", L"Byron"}, {L"CompanyName", L"Analytical"},
        {L"Home2TelephoneNumber", L"h2"}, {L"PagerNumber", L"p"},  {L"MobileTelephoneNumber", L"m"}};
    auto item = addContact({std::begin(fields), std::end(fields)});
    const Object contact = contactOf(item);
    EXPECT_EQ(texts(contact, {L"FullName", L"CompanyName", L"MobilePhone", L"PagerPhone", L"BusinessPhone",
                              L"MainHomeNumber", L"MainPhoneNumber", L"CategorieId", L"employeeId",
                              L"PhotoURL", L"MobilePhoneLabel", L"ContactId", L"StoreId"}),
              (Texts{L"Byron, Ada", L"Analytical", L"m", L"p", L"", L"h2", L"h2", L"", L"", L"", L"",
                     mailbox.entryId(item), mailbox.storeId(mailbox.defaultStore().id)}));
    item.fields[L"PagerNumber"] = L"new";
    mailbox.save(item);
    EXPECT_EQ(numbers(), (Texts{L"Home 2: \th2", L"Mobile: \tm", L"Pager: \tnew"}));
    outlook.quit();
    EXPECT_EQ(texts(contact, {L"CompanyName", L"FirstName", L"LastName"}), (Texts{L"", L"Ada", L"Byron"}));
}

TEST_F(ContactMembers, ListAllNineteenNumbersInTheirOrderWithLabels) {
    standin::outlook::Fields fields{{L"LastName", L"Switchboard"}};
    for (const auto& property : kTelephoneProperties) fields[property.member.name] = property.member.name;
    contactOf(addContact(fields));
    const auto listed = numbers();
    ASSERT_EQ(listed.size(), 19u);
    for (size_t i = 0; i < listed.size(); ++i) {
        const size_t tab = listed[i].find(L": \t");
        EXPECT_TRUE(tab > 0 && tab != std::wstring::npos) << listed[i];
        EXPECT_EQ(listed[i].substr(tab + 3), kTelephoneProperties[i].member.name);
    }
}

TEST_F(ContactMembers, AddressesAreReadOnlyWhereTheClientAllowsIt) {
    const Object contact = contactOf(addContact(
        {{L"LastName", L"Byron"}, {L"Email2Address", L"a@x.org"}, {L"Email3Address", L"b@x.org"}}));
    for (const wchar_t* forbidden : {L"", L"1", L" 0"}) {
        popup(L"NoEmailAddressAccess", forbidden);
        EXPECT_EQ(contact.text(Member{L"MainEmail"}), L"");
        EXPECT_TRUE(emails().empty());
    }
    EXPECT_EQ(outlook.server().calls().invocations(L"Email2Address"), 0);
    popup(L"NoEmailAddressAccess", L"0");
    EXPECT_EQ(contact.text(Member{L"MainEmail"}), L"a@x.org");
    EXPECT_EQ(emails().size(), 2u);
}

TEST_F(ContactMembers, ThePictureBecomesAFile) {
    auto item = addContact({{L"LastName", L"Byron"}, {L"BusinessTelephoneNumber", L"1"}});
    mailbox.setPicture(item, {'J', 'P', 'G', '\0', '!'});
    const std::wstring path = folder.file(L"pimcontact_" + mailbox.entryId(item) + L".jpg");
    const std::wstring other = folder.file(L"other");
    harness::writeFile(other, "kept");
    ASSERT_TRUE(CreateHardLinkW(path.c_str(), other.c_str(), nullptr));
    Object contact = contactOf(item);
    contact.put(Member{L"PhotoURL"}, L"put by the client");
    EXPECT_EQ(contact.text(Member{L"PhotoURL"}), path);
    EXPECT_EQ(harness::readFile(path), std::string("JPG\0!", 5));
    EXPECT_EQ(harness::readFile(other), "kept") << "a planted link is not followed";

    faults().failMember(L"SaveAsFile", {E_FAIL, L"Disk full."});
    contact = contactOf(item);
    EXPECT_EQ(contact.text(Member{L"PhotoURL"}), L"");
    EXPECT_TRUE(traced("Error (SetPhotoUrl): Disk full. in Microsoft Outlook"));
}

TEST_F(ContactMembers, LinkedContactsTakeLabelsAndAddressFromTheDirectory) {
    createDatabase(L"wxd.mdb");
    for (const wchar_t* sql :
         {L"Create Table Employees (EmployeeId Long, Categories Long, AssistantID Long, EmailAddress "
          L"Text(80))",
          L"Insert Into Employees Values (7, 2, 9, \"ada@firm.example\")",
          L"Create Table Default (BusinessPhoneLabel Text(50), MobilePhoneLabel Text(50))",
          L"Insert Into Default Values (\"Desk\", \"\")"})
        execute(sql, L"wxd.mdb");
    auto item = addContact(
        {{L"LastName", L"Byron"}, {L"BusinessTelephoneNumber", L"1"}, {L"MobileTelephoneNumber", L"2"}});
    mailbox.setUserProperty(item, L"EmployeeId", 3, L"7");
    const Object contact = contactOf(item);
    EXPECT_EQ(texts(contact, {L"employeeId", L"CategorieId", L"AssistantId", L"BusinessPhoneLabel",
                              L"AssistantPhoneLabel", L"MainEmail"}),
              (Texts{L"7", L"2", L"9", L"Desk", L"", L"ada@firm.example"}));
    EXPECT_EQ(numbers(), (Texts{L"Desk: \t1", L"Mobile: \t2"}));
    EXPECT_EQ(emails().size(), 1u);
}

}  // namespace

}  // namespace zelbar
