#include "com/TypeLibrary.h"

#include <PIMDriverAbstract.h>
#include <gtest/gtest.h>

#include <map>

#include "tests/com/Description.h"

namespace zelbar {
namespace {

/// The client's program was built against these slots: each interface's members from slot 7 on, with what
/// they take and give, in their order.
constexpr struct {
    const IID& id;
    const char* members;
} kInterfaces[] = {
    {IID_DataConnector, R"(
ShowFolder(text) flag; GetContactItemByContactItemID(text) object;
InitializeExportFolder(text, text, [variant]) flag;
SynchronizeExportFolder([variant], [variant], [variant]) flag;
get Version() text; get PIMInstalled() flag; get PIMName() long; get Actions() PIMActions;
GetActiveContact() Contact; OpenContactRecord() ContactRecord; ClosePIM(); ConfigPIM();
WriteCache([variant]); CreateContact(text, text, flag); GetContactByContactID(text) Contact;
ExecuteCommand(text, [variant]) variant;)"},
    {IID_ContactRecord, R"(
get EOF() flag; get BOF() flag; get RecordCount() short; get NoMatch() flag;
FillContactCollection(ref long, text) object; FindFirstForUnified(ref long, text) Contact;
FindFirst(ref long, text) Contact; FindNext() Contact; FindPrevious() Contact;
MoveFirst(); MoveLast(); get Contact() Contact;
ExecuteCommand(text) variant;)"},
    {IID_Contact, R"(
get CategorieId() text; get AssistantId() text; get employeeId() text; get Department() text;
get BusinessPhone() text; get BusinessPhone2() text; get MobilePhone() text;
get HomePhone() text; get PagerPhone() text; get OtherPhone() text;
get BusinessPhoneLabel() text; get BusinessPhone2Label() text; get MobilePhoneLabel() text;
get HomePhoneLabel() text; get PagerPhoneLabel() text; get OtherPhoneLabel() text;
get AssistantPhoneLabel() text; get Emails() object; put MainEmail(text); get MainEmail() text;
get ContactId() text; get StoreId() text; get MainPhoneNumber() text; put MainPhoneNumber(text);
get MainHomeNumber() text; put MainHomeNumber(text); get CompanyName() text; put SpareText(text);
get PhotoURL() text; put PhotoURL(text); get PhoneNumbers() object;
get LastName() text; get FirstName() text; get FullName() text; put FullName(text);
get NotInPIM() flag; get PersonalData() variant; put PersonalData(variant);
Show(); get IsSelected() flag; IsEqual(Contact) flag;
ExecuteCommand(text) variant;)"},
    {IID_PIMActions, R"(
Item(long) object; get Count() long; NewEnum() unknown; NewAction(long) object;
ExecuteCommand(text, [variant]) variant;)"},
    {IID_PIMAction, R"(
ExecuteAction(ref Contact) flag; get ActionName() text; get PassiveAction() flag;
get ActionID() long; get ActionProp() ActionProperties;
ExecuteCommand(text, [variant]) variant;)"},
    {IID_ActionProperties, R"(
Item(variant) ActionProperty; get Count() long; NewEnum() unknown;
ExecuteCommand(text, [variant]) variant;)"},
    {IID_ActionProperty, R"(
put Key(text); get Key() text; get PropertyName() text; get Values() variant;
put ValueIndex(short); get ValueIndex() short; get Value() variant; put Value(variant);
get PropertyType() short;
ExecuteCommand(text, [variant]) variant;)"},
    {IID_CallAction, R"(
ExecuteAction(ref Contact) flag; get ActionName() text; get PassiveAction() flag;
get ActionID() long; get ActionProp() ActionProperties;
CopyAction() object;)"},
};

/// One member per line.
std::string listed(std::string text) {
    std::string result;
    for (size_t end; (end = text.find(';')) != std::string::npos; text.erase(0, end + 1)) {
        const size_t start = text.find_first_not_of(" \n");
        result += text.substr(start, end - start) + "\n";
    }
    return result;
}

TEST(TypeLibraryTest, EveryMemberStandsInItsSlot) {
    for (const auto& expected : kInterfaces) {
        const InterfaceDescription description = describe(typeInfoOf(expected.id));
        EXPECT_TRUE(description.isDual) << description.name;
        std::string members;
        int slot = 7;  // behind those of IDispatch
        for (const MemberDescription& member : description.members) {
            EXPECT_EQ(member.slot, slot++) << description.name << "." << member.name;
            members += member.text + "\n";
        }
        EXPECT_EQ(members, listed(expected.members)) << description.name;
    }
}

TEST(TypeLibraryTest, TheEntryObjectDeclaresItsEvents) {
    const auto info = typeInfoOf(CLSID_cDataConnector);
    ASSERT_TRUE(info);
    std::map<int, std::string> faces;
    for (UINT i = 0; i < 2; ++i) {
        int flags = 0;
        HREFTYPE reference = 0;
        Com<ITypeInfo> implemented;
        ASSERT_EQ(info->GetImplTypeFlags(i, &flags), S_OK);
        ASSERT_EQ(info->GetRefTypeOfImplType(i, &reference), S_OK);
        ASSERT_EQ(info->GetRefTypeInfo(reference, implemented.put()), S_OK);
        faces[flags] = nameOf(*implemented.get());
    }
    EXPECT_EQ(faces, (std::map<int, std::string>{
                         {IMPLTYPEFLAG_FDEFAULT, "DataConnector"},
                         {IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE, "__cDataConnector"}}));
    const auto events = typeInfoOf(DIID___cDataConnector);
    ASSERT_TRUE(events);
    EXPECT_EQ(nameOf(*events.get(), 1), "CountFound");
}

}  // namespace
}  // namespace zelbar
