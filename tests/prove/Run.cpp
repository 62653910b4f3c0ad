#include "tests/prove/Run.h"

#include <algorithm>
#include <climits>
#include <iterator>

#include "tests/hostile/Workplace.h"
#include "tests/prove/Imports.h"
#include "tests/prove/Memory.h"
#include "tests/prove/Stage.h"

namespace prove {

namespace {

const Event kNone{.name = "none", .at = {}};

Facts without(const Facts& all, const Facts& those) {
    Facts result;
    std::set_difference(all.begin(), all.end(), those.begin(), those.end(),
                        std::inserter(result, result.end()));
    return result;
}

/// The first of what is more and of what is less; empty when they are the same.
std::string difference(const Facts& now, const Facts& then) {
    const Facts more = without(now, then), less = without(then, now);
    if (more.empty() && less.empty()) return "";
    return (more.empty() ? "" : *more.begin()) + " / " + (less.empty() ? "" : *less.begin());
}

/// Rows of one contact at most, and that of a folder that is not searched any more.
constexpr long kMostOfOneContact = 2;

/// What a scenario may add is of the same kind each time, but for names and numbers that grow.
std::string kindOf(const std::string& line) {
    std::string result = line.substr(0, line.find('|'));
    if (result == "file" || result == "setting") return line.substr(0, line.rfind('|'));
    return result;
}

std::set<std::string> kindsOf(const Facts& facts) {
    std::set<std::string> result;
    for (const auto& each : facts) result.insert(kindOf(each));
    return result;
}

bool isNeutral(const std::string& answer) {
    // What the client itself has found meanwhile may be what the cursor stands on.
    return answer.ends_with("=") || answer.ends_with("=Friend 1");
}

/// A name may be shorter where a part of it could not be read.
bool isPartOfAny(const std::string& answer, const Facts& answers) {
    const auto next = answers.lower_bound(answer);
    return next != answers.end() && next->starts_with(answer);
}

}  // namespace

Rehearsed::Rehearsed(HMODULE module, const Scenario& scenario) : module_(module), scenario_(scenario) {
    Stage& stage = Stage::current();
    Outcome ignored;
    // The first time also makes what the module keeps for ever.
    for (int time = 0; time < 2; ++time) {
        prepare(kNone);
        Client client(module);
        scenario.before(client);
        before_ = stage.facts();
        play(client, kNone, Kind::Outlook, 0);
        departed_ = departures;
        answers_ = {client.answers.begin(), client.answers.end()};
        once_ = stage.facts();
        scenario.act(client);
        twice_ = stage.facts();
        client.release();
        hostile::closeDialogs();
        leaks(ignored);
        blocks_ = memory::blocks();
    }
}

void Rehearsed::prepare(const Event& event) const {
    Stage& stage = Stage::current();
    stage.reset();
    if (*scenario_.rest.log) stage.set(hostile::kPopupKey, L"Developper", scenario_.rest.log);
    if (event.deadlines)
        for (const wchar_t* name : {L"OutlookTimeout", L"OutlookTimeoutUser"})
            stage.set(hostile::kPopupKey, name, L"5000");
}

void Rehearsed::play(Client& client, const Event& event, Kind kind, long call) {
    client.answers.clear();
    watch(event, kind, call, client);
    scenario_.act(client);
    departures.ignore();
    Stage::current().revive();
    // An Outlook that did not answer in time is left alone for a while.
    imports.passed += 10'000;
}

/// What the module keeps for ever it may make at any time, but once.
Outcome Rehearsed::run(const Event& event, Kind kind, long call) {
    Outcome outcome = runOnce(event, kind, call);
    for (int again = 0; again < 2 && !outcome.leak.empty(); ++again)
        outcome.leak = runOnce(event, kind, call).leak;
    return outcome;
}

Outcome Rehearsed::runOnce(const Event& event, Kind kind, long call) {
    Stage& stage = Stage::current();
    Outcome outcome;
    prepare(event);
    {
        Client client(module_);
        scenario_.before(client);
        play(client, event, kind, call);
        outcome.reached = departures.reached();
        outcome.escape = client.escaped;
        if (outcome.escape.empty() && stage.outlook.server().calls().abandoned() > 0)
            outcome.escape = "an object was released while it was called";
        stage.outlook.server().calls().reset();
        compare(outcome, event, kind, client, stage.facts(), false);
        // And then all works again.
        const bool anew = scenario_.rest.anew || event.meanwhile ||
                          (event.kills && (kind == Kind::Dao || kind == Kind::DaoName));
        if (anew) {
            hostile::closeDialogs();
            client.release();
            scenario_.before(client);
        }
        client.answers.clear();
        client.escaped.clear();
        scenario_.act(client);
        // What was in doubt the first time stays, and may be certain only the next.
        if (scenario_.changes == Scenario::Changes::Settles && stage.facts() != twice_) {
            client.answers.clear();
            scenario_.act(client);
        }
        compare(outcome, event, kind, client, stage.facts(), true);
        hostile::closeDialogs();
    }
    leaks(outcome);
    return outcome;
}

void Rehearsed::compare(Outcome& outcome, const Event& event, Kind kind, const Client& client,
                        const Facts& now, bool again) {
    const auto fail = [&](const std::string& what) {
        if (outcome.lost.empty() && !what.empty()) outcome.lost = (again ? "afterwards: " : "") + what;
    };
    const Facts answers(client.answers.begin(), client.answers.end());
    if (again) {
        if (kind != Kind::OutlookItem && !event.meanwhile) fail(difference(answers, answers_));
        if (!client.escaped.empty()) outcome.escape = "afterwards: " + client.escaped;
    } else {
        for (const std::string& each : answers)
            if (!isNeutral(each) && !scenario_.rest.also.contains(each) && !isPartOfAny(each, answers_))
                fail("wrong answer " + each);
    }
    const Facts mayGo = without(before_, twice_);
    const bool copiesGo = event.meanwhile || kindsOf(mayGo).contains("copy");
    // Where Outlook says that a contact has no number, or is gone, its rows go with the next fill.
    long rowsGo = !scenario_.rest.hasClient && kind == Kind::Outlook ? kMostOfOneContact : 0;
    if (kind == Kind::OutlookItem) rowsGo = LONG_MAX;
    for (const std::string& each : without(without(before_, now), mayGo)) {
        if (each.starts_with("row|") && --rowsGo >= 0) continue;
        if (each.starts_with("copy|") && copiesGo) continue;
        fail("gone: " + each);
    }
    const auto mayCome = kindsOf(without(twice_, before_));
    for (const std::string& each : without(now, before_))
        if (!mayCome.contains(kindOf(each)) && !event.meanwhile) fail("come: " + each);
    using enum Scenario::Changes;
    if (!again && scenario_.changes == Whole && !event.meanwhile && now != before_ && now != once_)
        fail("half done: " + difference(now, before_));
    if (again && (scenario_.changes == Settles || scenario_.changes == Whole) && !event.meanwhile &&
        kind != Kind::OutlookItem && now != twice_)
        fail("not as it was to be: " + difference(now, twice_));
}

/// Nothing is left when the client has released all that it held.
void Rehearsed::leaks(Outcome& outcome) {
    Stage& stage = Stage::current();
    const auto canUnload = hostile::exported<HRESULT WINAPI()>(module_, "DllCanUnloadNow");
    const auto leak = [&](const char* what, long number) {
        if (number != 0 && outcome.leak.empty()) outcome.leak = std::to_string(number) + " " + what;
    };
    leak("objects of the driver", canUnload() == S_OK ? 0 : 1);
    leak("objects of Outlook", stage.outlook.server().liveObjects());
    leak("objects of DAO", stage.dao.server().liveObjects());
    leak("handles, keys, fonts or hooks", imports.resources);
    if (const long spoilt = memory::spoilt())
        outcome.escape = std::to_string(spoilt) + " blocks used after their end";
    if (blocks_ != 0) leak("blocks of memory", std::max(0L, memory::blocks() - blocks_));
    blocks_ = blocks_ ? memory::blocks() : 0;
}

}  // namespace prove
