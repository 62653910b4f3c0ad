// The items' own rules.
#include <fstream>
#include <iterator>

#include "standin/outlook/mailbox/DateText.h"
#include "tests/standin_outlook/Fixture.h"

namespace standin::outlook {
namespace {

class ItemRules : public Outlook {
  protected:
    late::Object newContact() const { return contacts().object(L"Items").object(L"Add", {2L}); }
};

TEST_F(ItemRules, NamesFollowFromEachOther) {
    const struct {
        const wchar_t* fullName;
        const wchar_t* parts;  // Title|First|Middle|Last|Suffix
        const wchar_t* shown;
        const wchar_t* lastFirst;
        const wchar_t* fileAs;
    } cases[] = {
        {L"Ada Byron", L"|Ada||Byron|", L"Ada Byron", L"Byron, Ada", L"Byron, Ada"},
        {L"Byron, Ada", L"|Ada||Byron|", L"Ada Byron", L"Byron, Ada", L"Byron, Ada"},
        {L"Dr. Ada M. K. Byron Jr.", L"Dr.|Ada|M. K.|Byron|Jr.", L"Dr. Ada M. K. Byron Jr.", L"Byron, Ada",
         L"Byron, Ada M. K."},
        {L"Byron, Jr.", L"|Byron|||Jr.", L"Byron Jr.", L"Byron", L"Byron"},
        {L"  Ada  ", L"|Ada|||", L"Ada", L"Ada", L"Ada"},
        {L"0033 1 45", L"|0033|1|45|", L"0033 1 45", L"45, 0033", L"45, 0033 1"},
        {L"", L"||||", L"", L"", L""},
    };
    for (const auto& c : cases) {
        const late::Object contact = newContact();
        contact.put(L"FullName", c.fullName);
        std::wstring parts;
        for (const wchar_t* name : {L"Title", L"FirstName", L"MiddleName", L"LastName", L"Suffix"}) {
            parts += (parts.empty() && name[0] == L'T' ? L"" : L"|") + contact.text(name);
        }
        EXPECT_EQ(parts, c.parts) << c.fullName;
        EXPECT_EQ(contact.text(L"FullName"), c.shown);
        EXPECT_EQ(contact.text(L"LastNameAndFirstName"), c.lastFirst);
        EXPECT_EQ(contact.text(L"FileAs"), c.fileAs);
    }
}

TEST_F(ItemRules, FileAsFollowsUntilItIsChosen) {
    const late::Object contact = newContact();
    contact.put(L"CompanyName", L"Analytical Engines");
    EXPECT_EQ(contact.text(L"FileAs"), L"Analytical Engines");
    contact.put(L"LastName", L"Byron");
    EXPECT_EQ(contact.text(L"FileAs"), L"Byron");
    contact.put(L"FileAs", L"Countess");
    contact.put(L"FirstName", L"Ada");
    EXPECT_EQ(contact.text(L"FileAs"), L"Countess");
    EXPECT_EQ(contact.attemptPut(L"LastNameAndFirstName", L"x").result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(ItemRules, EveryTelephoneIsKept) {
    const wchar_t* const names[] = {L"BusinessTelephoneNumber",
                                    L"Business2TelephoneNumber",
                                    L"HomeTelephoneNumber",
                                    L"Home2TelephoneNumber",
                                    L"AssistantTelephoneNumber",
                                    L"MobileTelephoneNumber",
                                    L"CarTelephoneNumber",
                                    L"PrimaryTelephoneNumber",
                                    L"CallbackTelephoneNumber",
                                    L"CompanyMainTelephoneNumber",
                                    L"ISDNNumber",
                                    L"BusinessFaxNumber",
                                    L"HomeFaxNumber",
                                    L"OtherTelephoneNumber",
                                    L"OtherFaxNumber",
                                    L"PagerNumber",
                                    L"RadioTelephoneNumber",
                                    L"TelexNumber",
                                    L"TTYTDDTelephoneNumber"};
    const late::Object contact = newContact();
    for (const wchar_t* name : names) {
        EXPECT_EQ(contact.text(name), L"");
        contact.put(name, name);
    }
    contact.call(L"Save");
    const late::Object saved = nameSpace().object(L"GetItemFromID", {contact.get(L"EntryID")});
    for (const wchar_t* name : names) EXPECT_EQ(saved.text(name), name);
}

TEST_F(ItemRules, UserPropertiesKeepTheirType) {
    const late::Object contact = newContact();
    const late::Object properties = contact.object(L"UserProperties");
    EXPECT_FALSE(properties.object(L"Find", {L"EmployeeId"})) << "Nothing, not an error";
    EXPECT_FALSE(properties.object(L"Item", {L"EmployeeId"}));
    EXPECT_EQ(properties.attempt(L"Item", {1L}).description, L"Array index out of bounds.");
    const late::Object id = properties.object(L"Add", {L"EmployeeId", 3L});
    id.put(L"Value", 7L);
    EXPECT_EQ(id.get(L"Value").vt, VT_R8);
    EXPECT_EQ(id.invokeNumber(DISPID_VALUE, DISPATCH_PROPERTYGET).value, Value(7.0));
    EXPECT_EQ(late::numberOf(id.attemptPut(L"Value", L"seven")), E_INVALIDARG);
    EXPECT_EQ(properties.object(L"Add", {L"employeeid", 3L}).get(L"Value"), Value(7.0)) << "the existing one";
    EXPECT_EQ(late::numberOf(properties.attempt(L"Add", {L"EmployeeId", 1L})), E_FAIL);
    EXPECT_EQ(late::numberOf(properties.attempt(L"Add", {L"a[1]", 1L})), E_INVALIDARG);
    EXPECT_EQ(late::numberOf(properties.attempt(L"Add", {toValue(std::wstring(65, L'x')), 1L})),
              E_INVALIDARG);
}

TEST_F(ItemRules, JournalTimesAgree) {
    const late::Object entry = app.object(L"CreateItem", {4L});
    EXPECT_EQ(entry.number(L"Duration"), 0);
    const Date start = dayOf(2003, 2, 1);
    const double minute = 1.0 / 1440;
    entry.put(L"Start", toValue(start));
    entry.put(L"Duration", 90L);
    EXPECT_DOUBLE_EQ(toDouble(entry.get(L"End")), start.days + 90 * minute);
    entry.put(L"End", toValue(Date{start.days + 30 * minute}));
    EXPECT_EQ(entry.number(L"Duration"), 30);
    entry.put(L"Start", toValue(Date{start.days + 1}));
    EXPECT_EQ(entry.number(L"Duration"), 30) << "moving the start moves the end";
    entry.put(L"End", toValue(start));
    EXPECT_EQ(entry.number(L"Duration"), 30) << "an end before the start moves it back";
    host->server().setOption(L"JournalEnd", L"raise");
    EXPECT_EQ(late::numberOf(entry.attemptPut(L"End", toValue(Date{start.days - 1}))), E_INVALIDARG);
    entry.put(L"Subject", L"A call");
    entry.call(L"Save");
    const late::Object saved = nameSpace().object(L"GetDefaultFolder", {11L}).object(L"Items", {1L});
    EXPECT_EQ(saved.number(L"Class"), 42);
    EXPECT_DOUBLE_EQ(toDouble(saved.get(L"End")), start.days);
    EXPECT_EQ(saved.get(L"Start").vt, VT_DATE);
}

TEST_F(ItemRules, MailIsSentOrRefused) {
    const late::Object mail = app.object(L"CreateItem", {0L});
    const late::Object recipients = mail.object(L"Recipients");
    mail.put(L"Subject", L"A call");
    EXPECT_EQ(late::numberOf(mail.attempt(L"Send")), E_FAIL) << "nobody to send it to";
    recipients.call(L"Add", {L"Somebody Unknown"});
    const late::Outcome refused = mail.attempt(L"Send");
    EXPECT_EQ(refused.number, E_FAIL);
    EXPECT_EQ(refused.description, L"Outlook does not recognize one or more names.");
    EXPECT_EQ(mail.text(L"EntryID"), L"") << "neither sent nor saved";
    recipients.call(L"Remove", {1L});
    recipients.call(L"Add", {L"ada@example.org"});
    EXPECT_TRUE(toBool(recipients.get(L"ResolveAll")));
    mail.call(L"Send");
    EXPECT_EQ(mail.attempt(L"Subject").description, L"The item has been moved or deleted.");
    const late::Object sent = nameSpace().object(L"GetDefaultFolder", {5L}).object(L"Items", {1L});
    EXPECT_EQ(sent.text(L"Subject"), L"A call");
    EXPECT_EQ(sent.object(L"Recipients", {1L}).text(L"Name"), L"ada@example.org");
}

TEST_F(ItemRules, PicturesAreAttachments) {
    ItemRecord item = ada();
    EXPECT_FALSE(toBool(open(item).get(L"HasPicture")));
    host->mailbox().setPicture(item, {0xFF, 0xD8, 0x00, 0x1A, 0x0A});
    const late::Object contact = open(item);
    EXPECT_TRUE(toBool(contact.get(L"HasPicture")));
    const late::Object picture = contact.object(L"Attachments").object(L"Item", {1L});
    EXPECT_EQ(picture.text(L"DisplayName"), L"ContactPicture.jpg");
    const std::wstring path = folder.file(L"picture.jpg");
    picture.call(L"SaveAsFile", {toValue(path)});
    picture.call(L"SaveAsFile", {toValue(path)});
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), std::string("\xFF\xD8\0\x1A\n", 5));
    EXPECT_EQ(picture.attempt(L"SaveAsFile", {toValue(folder.file(L"no\\such\\folder.jpg"))}).result,
              DISP_E_EXCEPTION);
    EXPECT_EQ(contact.object(L"Attachments").attempt(L"Item", {0L}).result, DISP_E_EXCEPTION)
        << "counted from 1";
    host->server().setOption(L"Version", L"9.0.0.2711");
    EXPECT_EQ(contact.attempt(L"HasPicture").result, DISP_E_UNKNOWNNAME) << "too old for pictures";
}

TEST_F(ItemRules, WindowsShowOneItemOnce) {
    const ItemRecord item = ada();
    EXPECT_FALSE(app.object(L"ActiveInspector"));
    EXPECT_FALSE(app.object(L"ActiveExplorer"));
    open(item).object(L"GetInspector");
    EXPECT_FALSE(app.object(L"ActiveInspector")) << "not shown yet";
    open(item).object(L"GetInspector").call(L"Display");
    open(item).call(L"Display");
    EXPECT_EQ(app.object(L"Inspectors").number(L"Count"), 1);
    open(item).put(L"FirstName", L"Augusta");
    EXPECT_EQ(app.object(L"ActiveInspector").object(L"CurrentItem").text(L"FirstName"), L"Augusta");
    open(item).call(L"Close", {2L});
    EXPECT_FALSE(app.object(L"ActiveInspector"));
    EXPECT_EQ(open(item).text(L"FirstName"), L"Ada") << "the answer to the question whether to save is no";

    contacts().object(L"GetExplorer").call(L"Display");
    const late::Object explorer = app.object(L"ActiveExplorer");
    explorer.invoke(L"CurrentFolder", DISPATCH_PROPERTYPUTREF,
                    {nameSpace().object(L"GetDefaultFolder", {11L}).value()});
    EXPECT_EQ(explorer.object(L"CurrentFolder").text(L"Name"), L"Journal");
    explorer.object(L"CurrentFolder").call(L"Display");
    EXPECT_EQ(app.object(L"Explorers").number(L"Count"), 2) << "Display opens one more";
}

TEST_F(ItemRules, OtherClassesInAContactsFolder) {
    host->mailbox().addDistributionList(contactsRow(), L"Team");
    const late::Object list = contacts().object(L"Items", {1L});
    EXPECT_EQ(list.number(L"Class"), 69);
    EXPECT_EQ(list.attempt(L"FirstName").result, DISP_E_UNKNOWNNAME);
    EXPECT_EQ(app.attempt(L"CreateItem", {1L}).number, kNoSupport);
}

TEST_F(ItemRules, SavingWhatWasErasedRaises) {
    const ItemRecord item = ada();
    const late::Object contact = open(item);
    host->mailbox().eraseItem(item.id);
    EXPECT_EQ(contact.text(L"FirstName"), L"Ada") << "a copy is still there to read";
    EXPECT_EQ(contact.attempt(L"Save").number, kNotFound);
}

}  // namespace
}  // namespace standin::outlook
