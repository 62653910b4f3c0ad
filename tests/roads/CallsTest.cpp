#include <functional>
#include <set>

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
        popup(L"Developper", L"0");
        popup(L"NoEmailAddressAccess", L"0");
        std::vector<TestRow> rows;
        for (int i = 1; i <= 25; ++i) rows.push_back(addListed(L"Ann", L"Many" + std::to_wstring(i), L"7"));
        anna_ = addContact({{L"FirstName", L"Anna"},
                            {L"LastName", L"Berg"},
                            {L"FullName", L"Anna Berg"},
                            {L"BusinessTelephoneNumber", L"5"},
                            {L"Email1Address", L"anna@example.com"}});
        mailbox.setPicture(anna_, {'J'});
        rows.push_back({L"Berg Anna", L"5", mailbox.entryId(anna_)});
        const auto gone = addContact({{L"LastName", L"Gone"}});
        rows.insert(rows.end(), 2, {L"Gone", L"6", mailbox.entryId(gone)});
        mailbox.eraseItem(gone.id);
        writeCache(rows);
        driver_ = script();
        cursor_ = openCursor();
    }
    void TearDown() override {
        contact_ = cursor_ = driver_ = {};
        DriverTest::TearDown();
    }

    void find(const wchar_t* number) { contact_ = cursor_.object({L"FindFirst"}, 0, number); }
    void read(const wchar_t* member) { contact_.call({member}); }
    /// What a client does when somebody calls.
    void takeCall(const wchar_t* number) {
        find(number);
        for (const wchar_t* member :
             {L"FullName", L"CompanyName", L"MainPhoneNumber", L"PhotoURL", L"PhoneNumbers", L"Emails"})
            read(member);
    }
    void run(long id, const wchar_t* call = L"") {
        const Object action = driver_.object({L"Actions"}).object({L"NewAction"}, id);
        if (id == kMail)
            action.object({L"ActionProp"})
                .object({L"Item"}, L"DestinationAddress")
                .put({L"Value"}, L"desk@example.com");
        contact_.put({L"PersonalData"}, call);
        action.call({L"ExecuteAction"}, contact_.target());
    }

    standin::outlook::ItemRecord anna_;
    Object driver_, cursor_, contact_;
};

auto CallsTest::roads() -> std::vector<Road> {
    static constexpr wchar_t kCall[] = L"TYPE=incoming;START=2003-02-01 10:00:00;DURATION=1;";
    const auto nothing = [] {};
    const auto known = [this] { find(L"5"); };
    const auto unknown = [this] { find(L"0"); };
    return {
        {"incoming call, known", 44, nothing, [this] { takeCall(L"5"); }},
        {"incoming call, unknown", 0, nothing, [this] { takeCall(L"0"); }},
        {"incoming call, stale row", 5, nothing, [this] { takeCall(L"6"); }},
        {"search", 12, nothing, known},
        {"next hit", 12, [this] { find(L"7"); }, [this] { contact_ = cursor_.object({L"FindNext"}); }},
        {"collection of 25", 300, nothing, [this] { cursor_.call({L"FillContactCollection"}, 0, L"7"); }},
        {"photo", 6, known, [this] { read(L"PhotoURL"); }},
        {"main e-mail", 1, known, [this] { read(L"MainEmail"); }},
        {"e-mails", 3, known, [this] { read(L"Emails"); }},
        {"numbers", 22, known, [this] { read(L"PhoneNumbers"); }},
        {"action: open", 5, known, [this] { run(4097); }},
        {"action: open, nobody known", 0, unknown, [this] { run(4097); }},
        {"action: close", 5, known, [this] { run(4098); }},
        {"action: mail", 18, known, [=, this] { run(kMail, kCall); }},
        {"action: journal", 18, known, [=, this] { run(4100, kCall); }},
        {"action: program", 0, known, [=, this] { run(4101, kCall); }},
        {"show", 2, known, [this] { contact_.call({L"Show"}); }},
        {"version", 2, nothing, [this] { driver_.call({L"Version"}); }},
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
            for (const wchar_t* name : {L"OutlookTimeout", L"OutlookTimeoutUser"}) popup(name, milliseconds);
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
