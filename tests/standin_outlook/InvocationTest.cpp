// How members may be invoked, and what the server records of it.
#include "tests/standin_outlook/Fixture.h"

namespace standin::outlook {
namespace {

class Invocation : public Outlook {};

TEST_F(Invocation, WrongKindsAreRefused) {
    const late::Object contact = contacts().object(L"Items").object(L"Add", {2L});
    const late::Object explorer = contacts().object(L"GetExplorer");
    const Value target = contacts().value();
    const struct {
        const late::Object& object;
        const wchar_t* member;
        WORD flags;
        std::vector<Value> arguments;
        HRESULT expected;
    } cases[] = {
        {contact, L"FullName", DISPATCH_PROPERTYGET, {}, S_OK},
        {contact, L"FullName", DISPATCH_METHOD | DISPATCH_PROPERTYGET, {}, S_OK},
        {contact, L"FullName", DISPATCH_METHOD, {}, DISP_E_MEMBERNOTFOUND},
        {contact, L"GetInspector", DISPATCH_METHOD, {}, DISP_E_MEMBERNOTFOUND},
        {contact, L"GetInspector", DISPATCH_PROPERTYGET, {}, S_OK},
        {contact, L"Save", DISPATCH_PROPERTYGET, {}, DISP_E_MEMBERNOTFOUND},
        {contact, L"Save", DISPATCH_METHOD, {}, S_OK},
        {contact, L"EntryID", DISPATCH_PROPERTYPUT, {L"x"}, DISP_E_MEMBERNOTFOUND},
        {contact, L"Close", DISPATCH_METHOD, {}, DISP_E_BADPARAMCOUNT},
        {contact, L"FullName", DISPATCH_PROPERTYGET, {1L}, DISP_E_BADPARAMCOUNT},
        {explorer, L"CurrentFolder", DISPATCH_PROPERTYPUT, {target}, DISP_E_MEMBERNOTFOUND},
        {explorer, L"CurrentFolder", DISPATCH_PROPERTYPUTREF, {target}, S_OK},
        {explorer, L"CurrentFolder", DISPATCH_PROPERTYPUTREF, {contact.value()}, DISP_E_TYPEMISMATCH},
        {app, L"GetNamespace", DISPATCH_METHOD, {}, DISP_E_BADPARAMCOUNT},
        {app, L"GetNamespace", DISPATCH_METHOD, {L"MAPI", 1L}, DISP_E_BADPARAMCOUNT},
        {app, L"StoreID", DISPATCH_PROPERTYGET, {}, DISP_E_UNKNOWNNAME},
    };
    for (const auto& c : cases) {
        late::Outcome outcome;
        if (c.arguments.empty())
            outcome = c.object.invoke(c.member, c.flags);
        else if (c.arguments.size() == 1)
            outcome = c.object.invoke(c.member, c.flags, {c.arguments[0]});
        else
            outcome = c.object.invoke(c.member, c.flags, {c.arguments[0], c.arguments[1]});
        EXPECT_EQ(outcome.result, c.expected) << c.member << " with flags " << c.flags;
    }
}

TEST_F(Invocation, ArgumentsMissingAndPassedOn) {
    const ItemRecord item = ada();
    const Value missing(static_cast<long>(DISP_E_PARAMNOTFOUND), VT_ERROR);
    const Value entryId = toValue(host->mailbox().entryId(item));
    EXPECT_EQ(nameSpace().attempt(L"GetItemFromID", {entryId, missing}).result, S_OK);
    EXPECT_EQ(nameSpace().attempt(L"GetItemFromID", {missing}).result, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(nameSpace().object(L"Folders", {1L}).object(L"Folders", {L"Contacts"}).text(L"Name"),
              L"Contacts");
    EXPECT_EQ(contacts().object(L"Items", {1L}).text(L"FirstName"), L"Ada");
}

}  // namespace
}  // namespace standin::outlook
