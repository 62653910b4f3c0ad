#include "tests/actions/ActionTest.h"

namespace zelbar {

namespace {

/// What one kind of action leaves in Outlook when it works.
struct Scenario {
    const char* name;
    const char* error;
    bool caller;  // a known one
    std::function<Com<::CallAction>()> action;
    std::function<size_t()> done;
    std::function<void()> prepare = [] {};
};

class Failures : public ActionTest {
  protected:
    Com<::CallAction> creator() {
        const auto result = action(kOpen);
        settingOf(*result, L"NewOnInexistant")->put_ValueIndex(2);
        return result;
    }
    std::vector<Scenario> scenarios() {
        const auto mail = [this](bool sends) {
            return action(kMail, {{L"DestinationAddress", L"desk@example.com"}, {L"AutomaticSend", sends}});
        };
        const auto count = [this](SpecialFolder place) { return [=, this] { return saved(place).size(); }; };
        const auto open = [this] { return windows().size(); };
        return {
            {"journal", "ActionStoreInJournal", true, [=, this] { return action(kJournal); },
             count(SpecialFolder::Journal)},
            {"send", "ActionSendMail", true, [=] { return mail(true); }, count(SpecialFolder::SentMail)},
            {"show mail", "ActionSendMail", true, [=] { return mail(false); }, open},
            {"open", "ActionOpenContact", true, [this] { return action(kOpen); }, open},
            {"create", "ActionOpenContact", false, [this] { return creator(); },
             count(SpecialFolder::Contacts)},
            {"close", "ActionCloseContact", true, [this] { return action(kClose); },
             [this] { return size_t{windows().empty()}; }, [this] { run(*action(kOpen), known()); }},
        };
    }
    Com<::Contact> caller(const Scenario& scenario) {
        const std::wstring call = L"TYPE=incoming;START=2003-02-01 10:00:00;DURATION=1;";
        return scenario.caller ? known(call) : unknown(call);
    }
    size_t errors(const Scenario& scenario) {
        const std::string prefix = std::string("Error (ExecuteAction - ") + scenario.error + "): ";
        size_t result = 0;
        for (const auto& line : trace()) result += line.starts_with(prefix);
        return result;
    }
    void fresh() {
        faults().clear();
        outlook.quit();
        outlook.server().calls().reset();
    }
    void eachCallFails(const Scenario& scenario, const std::function<void(long)>& spoil);
};

/// Fails each of the calls of an action in turn. It has either coped or logged a line and left nothing; and
/// with Outlook well again it works.
void Failures::eachCallFails(const Scenario& scenario, const std::function<void(long)>& spoil) {
    SCOPED_TRACE(scenario.name);
    fresh();
    scenario.prepare();
    auto contact = caller(scenario);
    outlook.server().calls().reset();
    run(*scenario.action(), contact);
    const long calls = outlook.server().calls().invocations();
    ASSERT_GT(calls, 3);
    for (long n = 1; n <= calls; ++n) {
        SCOPED_TRACE(n);
        fresh();
        scenario.prepare();
        contact = caller(scenario);
        const size_t before = scenario.done(), linesBefore = errors(scenario);
        spoil(n);
        run(*scenario.action(), contact);
        faults().clear();
        const size_t lines = errors(scenario) - linesBefore;
        const size_t done = scenario.done() - before;
        // A contact that is saved before its window fails to open stays; all else is all or nothing.
        const bool savedFirst = std::string(scenario.name) == "create" && done == 1 && lines == 1;
        EXPECT_TRUE(done + lines == 1 || savedFirst) << done << " done, " << lines << " errors";

        fresh();
        scenario.prepare();
        const size_t beforeNext = scenario.done();
        run(*scenario.action(), caller(scenario));
        EXPECT_EQ(scenario.done(), beforeNext + 1) << "the next run";
    }
}

TEST_F(Failures, OfOneCallEndTheActionCleanly) {
    for (const auto& scenario : scenarios())
        for (const standin::Failure& failure : {standin::Failure{static_cast<HRESULT>(0x80010001)},
                                                standin::Failure{static_cast<HRESULT>(0x800706BA)},
                                                standin::Failure{E_FAIL, L"The operation failed."}})
            eachCallFails(scenario, [&](long n) { faults().failCall(n, failure); });
}

TEST_F(Failures, AnOutlookThatQuitsEndsTheActionCleanly) {
    for (const auto& scenario : scenarios()) {
        // The windows of an Outlook that has quit are gone, so only what was saved can be counted.
        const std::string name = scenario.name;
        if (name == "journal" || name == "send" || name == "create")
            eachCallFails(scenario, [&](long n) { faults().quitAtCall(n); });
    }
}

TEST_F(Failures, WithoutOutlookEveryActionReturnsAndTheUserIsTold) {
    static int boxes;
    boxes = 0;
    driver().user.messageBox = [](const std::wstring&, const std::wstring&, UINT) { return ++boxes, IDOK; };
    const auto contact = known();
    driver().outlook.release();
    faults().failCreation(static_cast<HRESULT>(0x80080005));
    for (const auto& scenario : scenarios()) {
        run(*scenario.action(), contact);
        EXPECT_GE(errors(scenario), 1u) << scenario.name;
    }
    EXPECT_EQ(boxes, 3) << "one for the journal and each mail, which ask for the application";
}

}  // namespace

}  // namespace zelbar
