// Failing on order, and quitting.
#include "tests/standin_outlook/Fixture.h"

namespace standin::outlook {
namespace {

class Faults : public Outlook {};

TEST_F(Faults, QuittingUnderTheClientLosesWhatWasNotSaved) {
    const ItemRecord item = ada();
    const late::Object names = nameSpace();
    const late::Object changed = open(item);
    changed.put(L"FirstName", L"Augusta");
    app.object(L"StandIn").call(L"QuitAtMember", {L"GetDefaultFolder"});
    EXPECT_EQ(names.attempt(L"GetDefaultFolder", {10L}).result, kServerGone);
    app = late::create(kApplicationClsid);
    EXPECT_EQ(open(item).text(L"FirstName"), L"Ada");
    EXPECT_EQ(changed.attempt(L"Save").result, kServerGone) << "old references never come back to life";
}

TEST_F(Faults, ReferencesMayOutliveTheHost) {
    const late::Object contact = open(ada());
    const late::Object control = app.object(L"StandIn");
    const Value walk = contacts().object(L"Items").invokeNumber(DISPID_NEWENUM, DISPATCH_PROPERTYGET).value;
    Ref<IEnumVARIANT> enumerator;
    walk.punkVal->QueryInterface(IID_PPV_ARGS(&enumerator));
    Value element;
    EXPECT_EQ(enumerator->Next(1, &element, nullptr), S_OK);
    EXPECT_EQ(late::Object(toObject(element)).text(L"FirstName"), L"Ada");
    host.reset();
    EXPECT_EQ(contact.attempt(L"FirstName").result, kServerGone);
    EXPECT_EQ(control.attempt(L"LiveObjects").result, kServerGone);
    element.Clear();
    EXPECT_EQ(enumerator->Next(1, &element, nullptr), kServerGone);
}

TEST_F(Faults, AddressGuard) {
    const ItemRecord item = ada();
    host->server().setOption(L"Guard", L"deny");
    const late::Object contact = open(item);
    const late::Object mail = app.object(L"CreateItem", {0L});
    EXPECT_EQ(contact.attempt(L"Email1Address").number, kNoSupport);
    EXPECT_EQ(contact.attempt(L"Body").number, kNoSupport);
    EXPECT_EQ(mail.attempt(L"Recipients").number, kNoSupport);
    EXPECT_EQ(contact.attemptPut(L"Email1Address", L"a@b.c").result, S_OK) << "writing is free";
    EXPECT_EQ(contact.attempt(L"BusinessTelephoneNumber").result, S_OK);
    EXPECT_EQ(contact.attempt(L"EntryID").result, S_OK);
}

}  // namespace
}  // namespace standin::outlook
