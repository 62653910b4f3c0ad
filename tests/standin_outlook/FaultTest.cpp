// Failing on order, and quitting.
#include "tests/standin_outlook/Fixture.h"

namespace standin::outlook {
namespace {

using late::numberOf;

class Faults : public Outlook {};

constexpr HRESULT kRejected = RPC_E_CALL_REJECTED;

TEST_F(Faults, TheNthCallOnly) {
    app.object(L"StandIn").call(L"FailCall", {2L, static_cast<long>(kRejected)});
    EXPECT_EQ(app.attempt(L"Name").result, S_OK);
    EXPECT_EQ(app.attempt(L"Name").result, kRejected) << "without a text it is the bare result";
    EXPECT_EQ(app.attempt(L"Name").result, S_OK);
}

TEST_F(Faults, MembersByNameWithAnException) {
    const late::Object names = nameSpace();
    app.object(L"StandIn")
        .call(L"FailMember", {L"NameSpace.Type", static_cast<long>(kNotFound), L"Lost.", 1L});
    const late::Outcome outcome = names.attempt(L"Type");
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_EQ(outcome.number, kNotFound);
    EXPECT_EQ(outcome.description, L"Lost.");
    EXPECT_EQ(outcome.source, L"Microsoft Outlook");
    EXPECT_EQ(names.attempt(L"Type").result, S_OK) << "it was ordered once";
}

TEST_F(Faults, RejectingEverythingIncludesLookUpsAndCreation) {
    host->server().faults().failAll({kRejected});
    DISPID id = 0;
    EXPECT_EQ(app.lookUp(L"Name", id), kRejected);
    EXPECT_EQ(app.invokeNumber(0x3001, DISPATCH_PROPERTYGET).result, kRejected);
    Ref<IDispatch> another;
    EXPECT_EQ(CoCreateInstance(kApplicationClsid, nullptr, CLSCTX_ALL, IID_PPV_ARGS(&another)), kRejected);
    app.object(L"StandIn").call(L"Clear");
    EXPECT_EQ(app.attempt(L"Name").result, S_OK);
}

TEST_F(Faults, HangsForTheGivenTime) {
    app.object(L"StandIn").call(L"HangMember", {L"Version", 120L});
    const ULONGLONG start = GetTickCount64();
    app.text(L"Version");
    EXPECT_GE(GetTickCount64() - start, 100U);
}

TEST_F(Faults, QuittingUnderTheClientLosesWhatWasNotSaved) {
    const ItemRecord item = ada();
    const late::Object names = nameSpace();
    const late::Object changed = open(item);
    changed.put(L"FirstName", L"Augusta");
    contacts().object(L"Items").object(L"Add", {2L}).object(L"GetInspector").call(L"Display");
    app.object(L"StandIn").call(L"QuitAtMember", {L"GetDefaultFolder"});

    EXPECT_EQ(names.attempt(L"GetDefaultFolder", {10L}).result, kServerGone);
    DISPID id = 0;
    EXPECT_EQ(names.lookUp(L"Type", id), kServerGone);
    EXPECT_EQ(changed.attempt(L"Save").result, kServerGone);
    EXPECT_EQ(app.attempt(L"Name").result, kServerGone);

    app = late::create(kApplicationClsid);
    EXPECT_EQ(app.text(L"Name"), L"Outlook");
    EXPECT_EQ(open(item).text(L"FirstName"), L"Ada");
    EXPECT_EQ(contacts().object(L"Items").number(L"Count"), 1);
    EXPECT_FALSE(app.object(L"ActiveInspector"));
    EXPECT_EQ(changed.attempt(L"Save").result, kServerGone) << "old references never come back to life";
}

TEST_F(Faults, ReferencesMayOutliveTheHost) {
    const late::Object contact = open(ada());
    const late::Object control = app.object(L"StandIn");
    const Value walk = contacts().object(L"Items").invokeNumber(DISPID_NEWENUM, DISPATCH_PROPERTYGET).value;
    host.reset();
    EXPECT_EQ(contact.attempt(L"FirstName").result, kServerGone);
    EXPECT_EQ(control.attempt(L"LiveObjects").result, kServerGone);
    Ref<IEnumVARIANT> enumerator;
    walk.punkVal->QueryInterface(IID_PPV_ARGS(&enumerator));
    Value element;
    EXPECT_EQ(enumerator->Next(1, &element, nullptr), kServerGone);
}

TEST_F(Faults, OneApplicationForAllClients) {
    const late::Object second = late::create(kApplicationClsid, CLSCTX_INPROC_SERVER);
    EXPECT_EQ(second.raw(), app.raw());
    EXPECT_EQ(app.text(L"Name"), L"Outlook");
    second.call(L"Quit");
    EXPECT_EQ(app.attempt(L"Name").result, kServerGone);
}

TEST_F(Faults, RunningObjectTable) {
    Ref<IUnknown> running;
    EXPECT_EQ(GetActiveObject(kApplicationClsid, nullptr, &running), MK_E_UNAVAILABLE);
    app = {};
    host.reset();
    host = std::make_unique<Host>(folder.file(L"mailbox.db"), Host::Mode::InProcessAndRunning);
    ASSERT_EQ(GetActiveObject(kApplicationClsid, nullptr, &running), S_OK);
    EXPECT_EQ(late::Object(toObject(Value(running.Get()))).text(L"Name"), L"Outlook");
    running.Reset();
    EXPECT_EQ(host->server().liveObjects(), 0) << "what the table holds is no client's";
    host.reset();
    EXPECT_EQ(GetActiveObject(kApplicationClsid, nullptr, &running), MK_E_UNAVAILABLE);
}

TEST_F(Faults, PrivateBitsVaryButTheMaskedNumberStays) {
    host->server().setOption(L"PrivateBits", L"on");
    const std::wstring id(48, L'0');
    const HRESULT first = nameSpace().attempt(L"GetItemFromID", {toValue(id)}).number;
    const HRESULT second = nameSpace().attempt(L"GetItemFromID", {toValue(id)}).number;
    EXPECT_NE(first, second);
    EXPECT_EQ(static_cast<unsigned long>(first) & 0x800FFFFFUL, 0x80040107UL);
    EXPECT_EQ(static_cast<unsigned long>(second) & 0x800FFFFFUL, 0x80040107UL);
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
