#include <algorithm>

#include "tests/actions/ActionTest.h"

namespace zelbar {

namespace {

/// What one kind of action leaves in Outlook when it works.
struct Scenario {
    const char* error;  // the part of its error lines that names it
    bool known;         // its caller
    std::function<Com<::CallAction>()> action;
    std::function<size_t()> done;
    std::function<void()> prepare = [] {};
};

class Failures : public ActionTest {
  protected:
    std::vector<Scenario> scenarios() {
        const auto mail = [this](bool sends) {
            return action(kMail, {{L"DestinationAddress", L"desk@example.com"}, {L"AutomaticSend", sends}});
        };
        const auto count = [this](SpecialFolder place) { return [=, this] { return saved(place).size(); }; };
        const auto open = [this] { return windows().size(); };
        return {
            {"ActionStoreInJournal", true, [this] { return action(kJournal); },
             count(SpecialFolder::Journal)},
            {"ActionSendMail", true, [=] { return mail(true); }, count(SpecialFolder::SentMail)},
            {"ActionSendMail", true, [=] { return mail(false); }, open},
            {"ActionOpenContact", true, [this] { return action(kOpen); }, open},
            {"ActionOpenContact", false, [this] { return opener(2); }, count(SpecialFolder::Contacts)},
            {"ActionCloseContact", true, [this] { return action(kClose); },
             [this] { return size_t{windows().empty()}; }, [this] { run(*action(kOpen), known()); }},
        };
    }
    /// A fresh Outlook without faults, and a caller for the action.
    Com<::Contact> begin(const Scenario& scenario) {
        faults().clear();
        outlook.quit();
        scenario.prepare();
        const std::wstring call = L"TYPE=incoming;START=2003-02-01 10:00:00;DURATION=1;";
        const Com<::Contact> caller = scenario.known ? known(call) : unknown(call);
        outlook.server().calls().reset();
        return caller;
    }
    size_t errors(const Scenario& scenario) {
        const std::string prefix = std::string("Error (ExecuteAction - ") + scenario.error + "): ";
        const auto lines = trace();
        return static_cast<size_t>(std::count_if(lines.begin(), lines.end(),
                                                 [&](const auto& line) { return line.starts_with(prefix); }));
    }
    void eachCallFails(const Scenario& scenario, const std::function<void(long)>& spoil);
};

/// Fails each of the calls of an action in turn. It has either coped or logged a line and left nothing.
void Failures::eachCallFails(const Scenario& scenario, const std::function<void(long)>& spoil) {
    run(*scenario.action(), begin(scenario));
    const long calls = outlook.server().calls().invocations();
    ASSERT_GT(calls, 3);
    for (long n = 1; n <= calls; ++n) {
        SCOPED_TRACE(testing::Message() << scenario.error << ", call " << n);
        const auto caller = begin(scenario);
        const size_t before = scenario.done();
        const size_t linesBefore = errors(scenario);
        spoil(n);
        run(*scenario.action(), caller);
        faults().clear();
        const size_t lines = errors(scenario) - linesBefore;
        const size_t done = scenario.done() - before;
        // A contact that is saved before its window fails to open stays; all else is all or nothing.
        const bool savedFirst = !scenario.known && done == 1 && lines == 1;
        EXPECT_TRUE(done + lines == 1 || savedFirst) << done << " done, " << lines << " errors";
    }
}

TEST_F(Failures, OfOneCallEndTheActionCleanly) {
    for (const auto& scenario : scenarios())
        for (const standin::Failure& failure : {standin::Failure{static_cast<HRESULT>(0x80010001)},
                                                standin::Failure{static_cast<HRESULT>(0x800706BA)},
                                                standin::Failure{E_FAIL, L"The operation failed."}})
            eachCallFails(scenario, [&](long n) { faults().failCall(n, failure); });
}

}  // namespace

}  // namespace zelbar
