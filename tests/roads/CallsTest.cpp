#include <functional>
#include <set>

#include "automation/Bstr.h"
#include "automation/Variant.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {

namespace {

constexpr long kMail = 4099;

/// How many calls to Outlook each road of the client takes once it has been gone before. One that has become
/// longer makes every client wait longer: that needs a reason, and a change here.
class CallsTest : public DriverTest {
  protected:
    struct Road {
        const char* road;
        long calls;
        std::function<void()> before;
        std::function<void()> go;
    };
    std::vector<Road> roads();

    CallsTest() {
        registry.set(HKEY_CURRENT_USER, kPopupKey, L"Developper", L"0");
        registry.set(HKEY_CURRENT_USER, kPopupKey, L"NoEmailAddressAccess", L"0");
        std::vector<TestRow> rows;
        for (int i = 1; i <= 25; ++i) rows.push_back(addListed(L"Ann", L"Many" + std::to_wstring(i), L"7"));
        anna_ = addContact({{L"FirstName", L"Anna"},
                            {L"LastName", L"Berg"},
                            {L"FullName", L"Anna Berg"},
                            {L"BusinessTelephoneNumber", L"5"},
                            {L"Email1Address", L"anna@example.com"}});
        outlook.mailbox().setPicture(anna_, {'J'});
        rows.push_back({L"Berg Anna", L"5", outlook.mailbox().entryId(anna_)});
        const auto gone = addContact({{L"LastName", L"Gone"}});
        rows.insert(rows.end(), 2, {L"Gone", L"6", outlook.mailbox().entryId(gone)});
        outlook.mailbox().eraseItem(gone.id);
        writeCache(rows);
        cursor_ = openCursor();
    }
    void TearDown() override {
        contact_.reset();
        cursor_.reset();
        DriverTest::TearDown();
    }

    using Text = HRESULT (STDMETHODCALLTYPE ::Contact::*)(BSTR*);
    using List = HRESULT (STDMETHODCALLTYPE ::Contact::*)(IDispatch**);

    /// A fresh contact for the number; known, unknown or stale.
    void find(const wchar_t* number) { contact_ = findFirst(*cursor_, 0, number); }
    void read(Text member) {
        Bstr text;
        (contact_.get()->*member)(text.put());
    }
    void read(List member) {
        Com<IDispatch> list;
        (contact_.get()->*member)(list.put());
    }
    /// What a client does when somebody calls.
    void takeCall(const wchar_t* number) {
        find(number);
        for (const Text member : {&::Contact::get_FullName, &::Contact::get_CompanyName,
                                  &::Contact::get_MainPhoneNumber, &::Contact::get_PhotoURL})
            read(member);
        read(&::Contact::get_PhoneNumbers);
        read(&::Contact::get_Emails);
    }
    void collect() {
        long kind = 0;
        Com<IDispatch> contacts;
        cursor_->FillContactCollection(&kind, Bstr(L"7").get(), contacts.put());
    }
    void run(long id, const wchar_t* call = L"") {
        Com<::PIMActions> actions;
        Com<IDispatch> action;
        connector().get_Actions(actions.put());
        actions->NewAction(id, action.put());
        if (id == kMail) {
            Com<::ActionProperties> settings;
            Com<::ActionProperty> address;
            action.as<::CallAction>()->get_ActionProp(settings.put());
            settings->Item(Variant(L"DestinationAddress").raw(), address.put());
            address->put_Value(Variant(L"desk@example.com").raw());
        }
        contact_->put_PersonalData(Variant(call).raw());
        ::Contact* given = Com<::Contact>(contact_).detach();
        VARIANT_BOOL result = VARIANT_FALSE;
        action.as<::CallAction>()->ExecuteAction(&given, &result);
        if (given) given->Release();
    }

    standin::outlook::ItemRecord anna_;
    Com<::ContactRecord> cursor_;
    Com<::Contact> contact_;
};

auto CallsTest::roads() -> std::vector<Road> {
    static constexpr wchar_t kCall[] = L"TYPE=incoming;START=2003-02-01 10:00:00;DURATION=1;";
    const auto nothing = [] {};
    const auto known = [this] { find(L"5"); };
    const auto unknown = [this] { find(L"0"); };
    return {
        {"incoming call, known", 47, nothing, [this] { takeCall(L"5"); }},
        {"incoming call, unknown", 0, nothing, [this] { takeCall(L"0"); }},
        {"incoming call, stale row", 5, nothing, [this] { takeCall(L"6"); }},
        {"search", 14, nothing, known},
        {"next hit", 14, [this] { find(L"7"); }, [this] { contact_ = findNext(*cursor_); }},
        {"collection of 25", 350, nothing, [this] { collect(); }},
        {"photo", 6, known, [this] { read(&::Contact::get_PhotoURL); }},
        {"main e-mail", 1, known, [this] { read(&::Contact::get_MainEmail); }},
        {"e-mails", 3, known, [this] { read(&::Contact::get_Emails); }},
        {"numbers", 23, known, [this] { read(&::Contact::get_PhoneNumbers); }},
        {"action: open", 6, known, [this] { run(4097); }},
        {"action: open, nobody known", 0, unknown, [this] { run(4097); }},
        {"action: close", 6, known, [this] { run(4098); }},
        {"action: mail", 20, known, [=, this] { run(kMail, kCall); }},
        {"action: journal", 20, known, [=, this] { run(4100, kCall); }},
        {"action: program", 0, known, [=, this] { run(4101, kCall); }},
        {"show", 2, known, [this] { contact_->Show(); }},
        {"version", 2, nothing,
         [this] {
             Bstr text;
             connector().get_Version(text.put());
         }},
    };
}

TEST_F(CallsTest, NoRoadBecomesLonger) {
    for (const Road& road : roads()) {
        long calls = 0, lookUps = 0;
        for (int time = 0; time < 2; ++time) {
            road.before();
            outlook.server().calls().reset();
            road.go();
            calls = outlook.server().calls().invocations();
            lookUps = outlook.server().calls().lookUps();
        }
        EXPECT_EQ(calls, road.calls) << road.road;
        EXPECT_EQ(lookUps, 0) << road.road;
    }
}

TEST_F(CallsTest, NoRoadTakesLongerThanItsTimeHoweverSlowOutlookIs) {
    constexpr ULONGLONG kCall = 60, kLimit = 200, kSlack = 400;
    for (const Road& road : roads()) {
        SCOPED_TRACE(road.road);
        const auto time = [&] {
            const ULONGLONG begun = GetTickCount64();
            road.go();
            return GetTickCount64() - begun;
        };
        const auto limit = [&](const wchar_t* milliseconds) {
            for (const wchar_t* name : {L"OutlookTimeout", L"OutlookTimeoutUser"})
                registry.set(HKEY_CURRENT_USER, kPopupKey, name, milliseconds);
        };
        limit(L"0");
        road.before();
        outlook.server().calls().reset();
        road.go();
        const auto asked = outlook.server().calls().calls();
        road.before();
        for (const auto& member : std::set<std::wstring>(asked.begin(), asked.end()))
            faults().hangMember(member, kCall);
        const long rows = cacheRows();
        limit(std::to_wstring(kLimit).c_str());
        outlook.server().calls().reset();
        EXPECT_LE(time(), kLimit + kCall + kSlack);
        const bool isOver = asked.size() > 4;
        if (isOver) {
            EXPECT_LE(outlook.server().calls().invocations(), 4);
            outlook.server().calls().reset();
            EXPECT_LE(time(), kSlack) << "nobody waits for it again";
            EXPECT_EQ(outlook.server().calls().invocations(), 0);
        }
        EXPECT_EQ(cacheRows(), rows);
        faults().clear();
        letOutlookRest();
    }
}

}  // namespace

}  // namespace zelbar
