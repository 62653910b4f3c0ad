// How members may be invoked, and what the server records of it.
#include "automation/Bstr.h"
#include "tests/com/LateClient.h"
#include "tests/standin_outlook/Fixture.h"

namespace standin::outlook {
namespace {

TEST_F(Outlook, WrongKindsOfInvocationAreRefused) {
    using zelbar::lent;
    const Object contact = contacts().object({L"Items"}).object({L"Add"}, 2);
    const Object explorer = contacts().object({L"GetExplorer"});
    const auto target = contacts().target(), item = contact.target();
    const zelbar::Bstr mapi(L"MAPI");
    const VARIANT text = lent(mapi.get()), one = lent(1L);
    const struct {
        const Object& object;
        const wchar_t* member;
        WORD flags;
        std::vector<VARIANT> arguments;
        HRESULT expected;
    } cases[] = {
        {contact, L"FullName", DISPATCH_PROPERTYGET, {}, S_OK},
        {contact, L"FullName", DISPATCH_METHOD | DISPATCH_PROPERTYGET, {}, S_OK},
        {contact, L"FullName", DISPATCH_METHOD, {}, DISP_E_MEMBERNOTFOUND},
        {contact, L"GetInspector", DISPATCH_METHOD, {}, DISP_E_MEMBERNOTFOUND},
        {contact, L"GetInspector", DISPATCH_PROPERTYGET, {}, S_OK},
        {contact, L"Save", DISPATCH_PROPERTYGET, {}, DISP_E_MEMBERNOTFOUND},
        {contact, L"Save", DISPATCH_METHOD, {}, S_OK},
        {contact, L"EntryID", DISPATCH_PROPERTYPUT, {text}, DISP_E_MEMBERNOTFOUND},
        {contact, L"Close", DISPATCH_METHOD, {}, DISP_E_BADPARAMCOUNT},
        {contact, L"FullName", DISPATCH_PROPERTYGET, {one}, DISP_E_BADPARAMCOUNT},
        {explorer, L"CurrentFolder", DISPATCH_PROPERTYPUT, {lent(target.get())}, DISP_E_MEMBERNOTFOUND},
        {explorer, L"CurrentFolder", DISPATCH_PROPERTYPUTREF, {lent(target.get())}, S_OK},
        {explorer, L"CurrentFolder", DISPATCH_PROPERTYPUTREF, {lent(item.get())}, DISP_E_TYPEMISMATCH},
        {app, L"GetNamespace", DISPATCH_METHOD, {}, DISP_E_BADPARAMCOUNT},
        {app, L"GetNamespace", DISPATCH_METHOD, {text, one}, DISP_E_BADPARAMCOUNT},
        {app, L"StoreID", DISPATCH_PROPERTYGET, {}, DISP_E_UNKNOWNNAME},
        {nameSpace(), L"GetItemFromID", DISPATCH_METHOD, {lent(VT_ERROR)}, DISP_E_PARAMNOTOPTIONAL},
    };
    for (const auto& c : cases)
        EXPECT_EQ(zelbar::late(*c.object.target().get(), c.member, c.arguments, c.flags).result, c.expected)
            << c.member << " with flags " << c.flags;
}

TEST_F(Outlook, CollectionsAreCountedFromOne) {
    ada();
    for (const long outside : {0L, 2L})
        EXPECT_NE(faultOf([&] { contacts().object({L"Items"}).call({L"Item"}, outside); }).number, 0);
    EXPECT_EQ(contacts().object({L"Items"}, 1).text({L"FirstName"}), L"Ada") << "an argument is passed on";
}

}  // namespace
}  // namespace standin::outlook
