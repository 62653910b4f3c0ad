// usage: prove sweep|reentrance [--short] [--only SCENARIO] [--slice K/N] [--from NUMBER]
//        prove run SCENARIO KIND CALL EVENT
//        prove list
// Runs every scenario with every event at every call that leaves the driver, or those that fall into a slice,
// or one alone. What went wrong is a line with "!", the count of each scenario's runs one with "=".

#include <windows.h>

#include <objbase.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <vector>

#include "automation/Fault.h"
#include "tests/prove/Imports.h"
#include "tests/prove/Progress.h"
#include "tests/prove/Run.h"
#include "tests/prove/Stage.h"

namespace {

using namespace prove;

struct Order {
    std::span<const Event> events;
    bool isShort = false;
    long slice = 0, slices = 1, from = 0;
    std::string only = {};
};

/// Counts of one scenario.
struct Sums {
    long runs = 0, leaks = 0, lost = 0, escapes = 0;
};

void report(const std::string& name, const Outcome& outcome, Sums& sums) {
    ++sums.runs;
    sums.escapes += !outcome.escape.empty();
    sums.leaks += !outcome.leak.empty();
    sums.lost += !outcome.lost.empty() || !outcome.reached;
    if (!outcome.escape.empty()) std::printf("! %s: escape: %s\n", name.c_str(), outcome.escape.c_str());
    if (!outcome.leak.empty()) std::printf("! %s: leak: %s\n", name.c_str(), outcome.leak.c_str());
    if (!outcome.lost.empty()) std::printf("! %s: lost: %s\n", name.c_str(), outcome.lost.c_str());
    if (!outcome.reached) std::printf("! %s: lost: no run has reached this call\n", name.c_str());
}

std::string nameOf(const Scenario& scenario, Kind kind, long call, const Event& event) {
    return std::string(scenario.name) + " " + prove::nameOf(kind) + " " + std::to_string(call) + " " +
           event.name;
}

/// After so many calls of a kind a scenario repeats itself: each further call meets one event, by turns.
constexpr long kBeforeLoops = 60;

/// The short form has every call meet one event; it samples the many allocations and repetitions, and calls
/// in only while Outlook is asked.
bool isWanted(const Order& order, Kind kind, long call, const Event& event) {
    if (order.isShort) {
        if (kind == Kind::Memory ? call % 47 != 1 : call > kBeforeLoops && call % 13 != 0) return false;
        if (event.meanwhile && kind != Kind::Outlook && kind != Kind::Yield) return false;
    } else if (call <= kBeforeLoops) {
        return true;
    }
    std::vector<const Event*> turns;
    for (const Event& each : order.events)
        if (each.meets(kind) && (each.isShort || !order.isShort)) turns.push_back(&each);
    return !turns.empty() && turns[static_cast<std::size_t>(call) % turns.size()] == &event;
}

void sweep(HMODULE module, const Order& order) {
    long number = 0;
    for (const Scenario& scenario : scenarios()) {
        // A program without a client is not called while it waits.
        if (order.events.front().meanwhile && !scenario.hasClient) continue;
        if (!order.only.empty() && order.only != scenario.name) continue;
        begins(number, "");
        Rehearsed rehearsed(module, scenario);
        Sums sums;
        for (std::size_t k = 0; k < kKinds; ++k) {
            const auto kind = static_cast<Kind>(k);
            for (long call = 1; call <= rehearsed.count(kind); ++call)
                for (const Event& event : order.events) {
                    if (!event.meets(kind) || !isWanted(order, kind, call, event)) continue;
                    if (++number < order.from || number % order.slices != order.slice) continue;
                    const std::string name = nameOf(scenario, kind, call, event);
                    begins(number, name);
                    report(name, rehearsed.run(event, kind, call), sums);
                }
        }
        std::printf("= %s %ld %ld %ld %ld\n", scenario.name, sums.runs, sums.leaks, sums.lost, sums.escapes);
    }
}

Kind kindCalled(const std::string& name) {
    for (std::size_t k = 0; k < kKinds; ++k)
        if (name == prove::nameOf(static_cast<Kind>(k))) return static_cast<Kind>(k);
    throw std::runtime_error("no such kind");
}

template <class Named>
const Named& called(std::span<const Named> all, const std::string& name) {
    for (const Named& each : all)
        if (name == each.name) return each;
    throw std::runtime_error("no such name: " + name);
}

int runOne(HMODULE module, char** words) {
    const Scenario& scenario = called(scenarios(), words[0]);
    const Kind kind = kindCalled(words[1]);
    const long call = std::atol(words[2]);
    const bool isCall = std::any_of(calls().begin(), calls().end(),
                                    [&](const Event& each) { return std::strcmp(each.name, words[3]) == 0; });
    const Event& event = called(isCall ? calls() : faults(), words[3]);
    begins(0, nameOf(scenario, kind, call, event));
    Rehearsed rehearsed(module, scenario);
    Sums sums;
    report(nameOf(scenario, kind, call, event), rehearsed.run(event, kind, call), sums);
    return sums.leaks + sums.lost + sums.escapes > 0;
}

void listCounts(HMODULE module) {
    for (const Scenario& scenario : scenarios()) {
        begins(0, scenario.name);
        const DWORD start = GetTickCount();
        const Rehearsed rehearsed(module, scenario);
        rehearsed.print();
        std::printf("%s (%lu ms):", scenario.name, GetTickCount() - start);
        for (std::size_t k = 0; k < kKinds; ++k)
            if (const long count = rehearsed.count(static_cast<Kind>(k)))
                std::printf(" %s %ld", prove::nameOf(static_cast<Kind>(k)), count);
        std::printf("\n");
    }
}

int prove_(int count, char** words) {
    Stage stage;
    const HMODULE module = LoadLibraryW(stage.module(L"zelbar00.dll").c_str());
    const HMODULE filler = LoadLibraryW(stage.module(L"prove_fill.dll").c_str());
    if (!module || !filler) throw std::runtime_error("what is to be proved cannot be loaded");
    watchImports(module);
    watchImports(filler);
    const std::string what = count > 1 ? words[1] : "";
    if (what == "list") return listCounts(module), 0;
    if (what == "run" && count == 6) return runOne(module, words + 2);
    Order order{what == "reentrance" ? calls() : faults()};
    for (int i = 2; i < count; ++i) {
        const std::string word = words[i];
        if (word == "--short") order.isShort = true;
        if (word == "--only") order.only = words[++i];
        if (word == "--from") order.from = std::atol(words[++i]);
        if (word == "--slice" && std::sscanf(words[++i], "%ld/%ld", &order.slice, &order.slices) != 2)
            throw std::runtime_error("a slice is K/N");
    }
    sweep(module, order);
    return 0;
}

}  // namespace

int main(int count, char** words) {
    watchProcess();
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 2;
    try {
        const int status = prove_(count, words);
        std::fflush(stdout);
        // Without our own destructors: what the module under test has left is nobody's any more.
        ExitProcess(static_cast<UINT>(status));
    } catch (...) {
        std::fprintf(stderr, "prove: %ls\n", zelbar::caughtFault().description.c_str());
    }
    return 2;
}
