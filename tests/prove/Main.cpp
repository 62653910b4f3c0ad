#include <algorithm>
#include <cstdio>

#include "tests/hostile/Proof.h"
#include "tests/prove/Run.h"
#include "tests/prove/Stage.h"

/// Runs every scenario with every event at every call that leaves the driver: `--sweep`, or `--reentrance`.
/// Several processes may share the runs, each its `--slice=K/N`, and go on with `--skip=RUNS` behind a run
/// that ended one.
namespace prove {
namespace {

using hostile::Proof;
using hostile::Tally;

/// After so many calls of a kind a scenario repeats itself: of these every second one meets one event, by
/// turns.
constexpr long kBeforeLoops = 40, kBeforeLoopsInShort = 30;

/// The short form has every call meet one event; it samples the many allocations and repetitions, and calls
/// in only while Outlook is asked.
bool isWanted(bool isShort, const std::vector<Event>& events, Kind kind, long call, const Event& event) {
    const bool loops = call > (isShort ? kBeforeLoopsInShort : kBeforeLoops);
    if (isShort && (kind == Kind::Memory ? call % 47 != 1 : loops && call % 13 != 0)) return false;
    if (isShort && event.meanwhile && kind != Kind::Outlook && kind != Kind::Yield) return false;
    if (!isShort && !loops) return true;
    if (!isShort && call % 2 != 0) return false;
    std::vector<const Event*> turns;
    for (const Event& each : events)
        if (each.at.contains(kind) && (each.isShort || !isShort)) turns.push_back(&each);
    return !turns.empty() && turns[static_cast<std::size_t>(call / 2) % turns.size()] == &event;
}

/// What all processes count, over all scenarios, and this one's share.
struct Share {
    long slice = 0, slices = 1, skip = 0, number = 0;

    explicit Share(const Proof& proof) {
        std::sscanf(proof.valueOf("--slice", "0/1").c_str(), "%ld/%ld", &slice, &slices);
        skip = std::stol(proof.valueOf("--skip", "0"));
    }
    bool takes() { return ++number % slices == slice && --skip < 0; }
};

void sweep(Proof& proof, Share& share, HMODULE module, const Scenario& scenario) {
    const auto& events = proof.has("--reentrance") ? kIncoming : kFaults;
    Rehearsed rehearsed(module, scenario);
    for (std::size_t k = 0; k < kKinds; ++k) {
        const auto kind = static_cast<Kind>(k);
        for (long call = 1; call <= rehearsed.count(kind); ++call)
            for (const Event& event : events) {
                if (!event.at.contains(kind) || !isWanted(proof.isShort(), events, kind, call, event))
                    continue;
                if (proof.isShort() && scenario.rest.isSlow && call % 2 == 0) continue;
                const std::string name =
                    std::string(kNames[k]) + " " + std::to_string(call) + " " + event.name;
                if (!share.takes() || !proof.wantsRun(name)) continue;
                proof.run(std::string(scenario.name) + " " + name);
                const Outcome outcome = rehearsed.run(event, kind, call);
                proof.expect(outcome.escape.empty(), &Tally::escapes, outcome.escape);
                proof.expect(outcome.leak.empty(), &Tally::leaks, outcome.leak);
                proof.expect(outcome.lost.empty(), &Tally::lost, outcome.lost);
                proof.expect(outcome.reached, &Tally::lost, "no run has reached this call");
            }
    }
}

/// The stage is made when the first scenario wants it, and stays to the end.
hostile::Scene sceneOf(const Scenario& scenario) {
    return {scenario.name, [&scenario](Proof& proof) {
                static Stage stage;
                static const HMODULE module = stage.loadModule(L"zelbar00.dll");
                static const HMODULE filler = stage.loadModule(L"prove_fill.dll");
                static Share share(proof);
                // A program without a client is not called while it waits.
                if (filler && (scenario.rest.hasClient || !proof.has("--reentrance")))
                    sweep(proof, share, module, scenario);
            }};
}

}  // namespace
}  // namespace prove

int main(int count, char** arguments) {
    hostile::World::keepFilesToItself();
    std::vector<hostile::Scene> scenes;
    for (const prove::Scenario& each : prove::kScenarios) scenes.push_back(prove::sceneOf(each));
    const int status = hostile::playAll(count, arguments, scenes);
    // Without our own destructors: what the module under test has left is nobody's any more.
    ExitProcess(static_cast<UINT>(status));
}
