#include <cstdio>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "benchmark/AddressBook.h"
#include "benchmark/Benchmarks.h"
#include "benchmark/Child.h"
#include "benchmark/Measure.h"
#include "benchmark/Replay.h"
#include "filler/FillCache.h"
#include "numbers/PresentedForms.h"

namespace benchmark {

namespace {

using filler::ReadWay;

const numbers::Place kNowhere;
const numbers::Place kMunich{L"DE", L"89", L"", numbers::WithoutPrefix::Unknown};

/// Keeps when the reading of Outlook was over.
struct Watch : filler::Observer {
    void progress(const wchar_t* what, long, long) override {
        if (std::wstring_view(what) == L"Reading Outlook") readAt = GetTickCount64();
    }
    void note(const std::wstring& sentence) override { std::printf("(%ls)\n", sentence.c_str()); }
    bool cancelled() override { return false; }

    ULONGLONG begun = GetTickCount64();
    ULONGLONG readAt = begun;
};

struct Fill {
    double seconds = 0;
    double reading = 0;  ///< Seconds of them, until Outlook had been read.
    long calls = 0;
    filler::FillResult result;
};

Fill fill(const AddressBook& book, const numbers::Place& place, ReadWay way) {
    const CallCounter counter(book.application());
    counter.reset();
    Watch watch;
    Times time;
    Fill done;
    time.measure([&] { done.result = filler::fillCache(watch, place, way); });
    done.seconds = time.median() / 1e6;
    done.reading = static_cast<double>(watch.readAt - watch.begun) / 1000;
    done.calls = counter.lookUps() + counter.invocations();
    if (!done.result.isComplete()) throw std::runtime_error("a fill was not complete");
    return done;
}

/// First and unchanged run of one way at one place, the cache begun anew.
struct Runs {
    Fill first;
    Fill unchanged;
};

/// The shortest of each; through tables, where they are short, of three.
Runs fillTwice(const DataFolder& folder, const AddressBook& book, const numbers::Place& place, ReadWay way) {
    Runs runs;
    for (int turn = 0; turn < (way == ReadWay::Table ? 3 : 1); ++turn) {
        std::filesystem::remove(folder.cacheFile());
        for (Fill* const shortest : {&runs.first, &runs.unchanged}) {
            Fill run = fill(book, place, way);
            if (shortest == &runs.unchanged && run.result.change.any())
                throw std::runtime_error("an unchanged run changed something");
            if (turn == 0 || run.seconds < shortest->seconds) *shortest = std::move(run);
        }
    }
    return runs;
}

void print(const char* what, long contacts, const Fill& run) {
    std::printf("| %s | %ld | %.1f | %.1f | %.3f | %ld | %ld |\n", what, contacts, run.seconds, run.reading,
                static_cast<double>(run.calls) / static_cast<double>(contacts), run.result.change.numberCount,
                run.result.change.added);
    std::fflush(stdout);
}

void printHead() {
    std::printf(
        "| whole run | contacts | seconds | of them Outlook | calls a contact | numbers | rows added |\n");
    std::printf("|---|---|---|---|---|---|---|\n");
}

/// Item by item every contact costs the same, so that fewer of them tell what one does.
void measureWays(const DataFolder& folder, long contacts, long read) {
    printHead();
    std::optional<AddressBook> book(contacts);
    const Runs table = fillTwice(folder, *book, kMunich, ReadWay::Table);
    print("tables, first", contacts, table.first);
    print("tables, unchanged", contacts, table.unchanged);
    std::filesystem::remove(folder.cacheFile());
    book.reset();
    book.emplace(read);
    const Fill items = fill(*book, kMunich, ReadWay::Items);
    print("item by item, first", read, items);
    std::printf("\n");
    reportAim("calls a contact through tables",
              static_cast<double>(table.first.calls) / static_cast<double>(contacts), 0.1);
    const double more = static_cast<double>(contacts) / static_cast<double>(read);
    const double faster = items.reading * more / table.first.reading;
    reportAim("a contact is read from Outlook through tables at least 20 times faster",
              shown(faster) + " times", faster >= 20);
    std::printf("The whole first run: %.1f times faster\n", items.seconds * more / table.first.seconds);
    reportAim("unchanged run over first run, tables", table.unchanged.seconds / table.first.seconds, 0.5);
}

/// With no place at all a national number keeps its text alone. The aims are those of the way item by item,
/// which version 1.0.0 had; through tables the reading is so short that the forms are most of a first run.
void compareForms(const DataFolder& folder, long contacts, ReadWay way) {
    const AddressBook book(contacts);
    const std::string name = way == ReadWay::Items ? "item by item" : "tables";
    const Runs with = fillTwice(folder, book, kMunich, way);
    const Runs without = fillTwice(folder, book, kNowhere, way);
    printHead();
    print((name + ", with forms, first").c_str(), contacts, with.first);
    print((name + ", without forms, first").c_str(), contacts, without.first);
    print((name + ", with forms, unchanged").c_str(), contacts, with.unchanged);
    print((name + ", without forms, unchanged").c_str(), contacts, without.unchanged);
    std::printf("\n");
    const double first = with.first.seconds / without.first.seconds;
    const double unchanged = with.unchanged.seconds / without.unchanged.seconds;
    if (way == ReadWay::Table) {
        std::printf("With forms over without, tables: first run %.2f, unchanged run %.2f\n\n", first,
                    unchanged);
        return;
    }
    reportAim("first run with forms over one without, " + name, first, 1.5);
    reportAim("unchanged run with forms over one without, " + name, unchanged, 1.1);
    std::printf("\n");
}

void measureMemory(const DataFolder& folder, long contacts, std::optional<double> mostMegabytes) {
    const AddressBook book(contacts);
    std::filesystem::remove(folder.cacheFile());
    const ChildRun first = runBeside(L"fillcache.exe --quiet --read table --country DE --area 89");
    const ChildRun unchanged = runBeside(L"fillcache.exe --quiet --read table --country DE --area 89");
    if (first.exitStatus != 0 || unchanged.exitStatus != 0) throw std::runtime_error("fillcache failed");
    std::printf("fillcache.exe on %ld contacts: first run %.1f s, %.0f MB; unchanged %.1f s, %.0f MB\n",
                contacts, first.seconds, first.mostMegabytes, unchanged.seconds, unchanged.mostMegabytes);
    if (mostMegabytes)
        reportAim("memory of fillcache at " + std::to_string(contacts) + " contacts", first.mostMegabytes,
                  *mostMegabytes, " MB");
}

/// A company's address book, a third of its numbers from abroad.
void measureRows() {
    constexpr long kNumbers = 3000;
    const numbers::PresentedForms munich(kMunich);
    std::size_t rows = 0;
    for (long n = 0; n < kNumbers; ++n) rows += munich.of(AddressBook::number(n, true)).size();
    reportAim("rows a number in Munich, every third number from abroad",
              static_cast<double>(rows) / static_cast<double>(kNumbers), 5.2);
}

}  // namespace

void measureFills(const Scale& scale) {
    const DataFolder folder;
    std::printf("## The filler, Outlook in a process of its own\n\n");
    measureWays(folder, scale(20000, 1000), scale(2000, 200));
    std::printf("\n");
}

void measureForms(const Scale& scale) {
    const DataFolder folder;
    std::printf("## The forms of numbers, Outlook in a process of its own\n\n");
    compareForms(folder, scale(2000, 100), ReadWay::Items);
    compareForms(folder, scale(20000, 500), ReadWay::Table);
    measureRows();
    std::printf("\n");
}

void measureFillMemory(const Scale& scale) {
    const DataFolder folder;
    std::printf("## fillcache.exe through tables, as a user runs it\n\n");
    measureMemory(folder, scale(20000, 2000), 60);
    if (!scale.isQuick) measureMemory(folder, 100000, {});
    std::printf("\n");
}

}  // namespace benchmark
