#include "tests/hostile/Proof.h"

#include <windows.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <vector>

namespace hostile {

namespace {

constexpr DWORD kLongestMilliseconds = 60'000;
constexpr struct {
    const char* name;
    std::atomic<long> Tally::*kind;
} kColumns[] = {{"runs", &Tally::runs},   {"crashes", &Tally::crashes}, {"hangs", &Tally::hangs},
                {"leaks", &Tally::leaks}, {"lost", &Tally::lost},       {"escapes", &Tally::escapes}};

Proof* proof = nullptr;

bool isProcessorFault(DWORD code) {
    static const std::set<DWORD> kFaults{EXCEPTION_ACCESS_VIOLATION,      EXCEPTION_ILLEGAL_INSTRUCTION,
                                         EXCEPTION_PRIV_INSTRUCTION,      EXCEPTION_INT_DIVIDE_BY_ZERO,
                                         EXCEPTION_STACK_OVERFLOW,        EXCEPTION_IN_PAGE_ERROR,
                                         EXCEPTION_DATATYPE_MISALIGNMENT, 0xC0000374 /* heap corruption */};
    return kFaults.count(code) != 0;
}

std::string placeOf(const void* address) {
    HMODULE module = nullptr;
    char path[MAX_PATH] = "?";
    if (GetModuleHandleExA(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            static_cast<LPCSTR>(address), &module))
        GetModuleFileNameA(module, path, MAX_PATH);
    const std::string file(path);
    char text[64];
    std::snprintf(text, sizeof text, "+%#lx",
                  static_cast<unsigned long>(reinterpret_cast<ULONG_PTR>(address) -
                                             reinterpret_cast<ULONG_PTR>(module)));
    return file.substr(file.rfind('\\') + 1) + text;
}

}  // namespace

Proof::Proof(int count, char** arguments) {
    for (int i = 1; i < count; ++i)
        if (std::string(arguments[i]) == "--short")
            short_ = true;
        else
            filter_ = arguments[i];
    proof = this;
    row_ = &rows_["start"];
    AddVectoredExceptionHandler(1, onFault);
    SetUnhandledExceptionFilter(onCrash);
    std::signal(SIGABRT, onAbort);
    CloseHandle(CreateThread(nullptr, 0, watch, nullptr, 0, nullptr));
}

long __stdcall Proof::onFault(EXCEPTION_POINTERS* fault) noexcept {
    const auto& record = *fault->ExceptionRecord;
    if (isProcessorFault(record.ExceptionCode)) {
        char code[16];
        std::snprintf(code, sizeof code, "%lx", record.ExceptionCode);
        proof->expect(false, &Tally::escapes,
                      "fault " + std::string(code) + " at " + placeOf(record.ExceptionAddress));
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

long __stdcall Proof::onCrash(EXCEPTION_POINTERS*) noexcept {
    proof->end(&Tally::crashes, "nobody handles the fault");
}

void Proof::onAbort(int) noexcept {
    proof->end(&Tally::crashes, "aborted");
}

unsigned long __stdcall Proof::watch(void*) noexcept {
    while (true) {
        Sleep(500);
        const DWORD began = proof->began_;
        if (began && GetTickCount() - began > kLongestMilliseconds)
            proof->end(&Tally::hangs, "takes longer than a minute");
    }
}

void Proof::end(std::atomic<long> Tally::*kind, const char* what) noexcept {
    expect(false, kind, what);
    finish();
    std::fflush(nullptr);
    TerminateProcess(GetCurrentProcess(), EXIT_FAILURE);
    std::abort();
}

void Proof::scene(const std::string& name) {
    row_ = &rows_[name];
    began_ = std::max(GetTickCount(), DWORD{1});
    std::fprintf(stderr, "  %s\n", name.c_str());
    std::fflush(stderr);
}

void Proof::run(std::string name) {
    name_ = std::move(name);
    ++row_->runs;
    began_ = std::max(GetTickCount(), DWORD{1});
}

bool Proof::expect(bool condition, std::atomic<long> Tally::*kind, const std::string& what) {
    constexpr long kMostPrinted = 40;
    if (!condition && ++(row_->*kind) <= kMostPrinted) {
        std::fprintf(stderr, "FOUND in %s: %s\n", name_.c_str(), what.c_str());
        std::fflush(stderr);
    }
    return condition;
}

bool Proof::expectNoMore(long long before, long long now, std::atomic<long> Tally::*kind,
                         const std::string& what) {
    return expect(now <= before, kind,
                  what + ": " + std::to_string(now) + " after " + std::to_string(before));
}

int Proof::finish() {
    began_ = 0;
    std::printf("| scene |");
    for (const auto& column : kColumns) std::printf(" %s |", column.name);
    std::printf("\n|---|---|---|---|---|---|---|\n");
    std::map<std::string, long> sums;
    for (const auto& [name, tally] : rows_) {
        long any = 0;
        for (const auto& column : kColumns) any += tally.*column.kind;
        if (!any) continue;
        std::printf("| %s |", name.c_str());
        for (const auto& column : kColumns) {
            const long figure = tally.*column.kind;
            sums[column.name] += figure;
            std::printf(" %ld |", figure);
        }
        std::printf("\n");
    }
    std::printf("\n");
    long bad = 0;
    const char* separator = "";
    for (const auto& column : kColumns) {
        std::printf("%s%s %ld", separator, column.name, sums[column.name]);
        separator = ", ";
        if (column.kind != &Tally::runs) bad += sums[column.name];
    }
    std::printf("\n");
    std::fflush(stdout);
    return bad || !sums["runs"] ? EXIT_FAILURE : EXIT_SUCCESS;
}

long long heapBytes() {
    std::vector<HANDLE> heaps(64);
    heaps.resize(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
    long long sum = 0;
    for (const HANDLE heap : heaps) {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heap);
        while (HeapWalk(heap, &entry))
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) sum += entry.cbData;
        HeapUnlock(heap);
    }
    return sum;
}

namespace {

/// The highest of some new handles: the emulator does not count them, but takes the lowest that is free.
template <class Make, class Drop>
long highestOf(Make&& make, Drop&& drop) {
    HANDLE made[64];
    long highest = 0;
    for (HANDLE& handle : made) {
        handle = make();
        highest = std::max(highest, static_cast<long>(reinterpret_cast<ULONG_PTR>(handle) & 0xFFFF));
    }
    for (const HANDLE handle : made) drop(handle);
    return highest;
}

}  // namespace

long handleCount() {
    return highestOf([] { return CreateEventW(nullptr, FALSE, FALSE, nullptr); }, CloseHandle) / 4;
}
long gdiCount() {
    return highestOf([] { return CreatePen(PS_SOLID, 1, 0); },
                     [](HANDLE pen) { DeleteObject(static_cast<HGDIOBJ>(pen)); });
}
long userCount() {
    // The emulator's table is one for all processes, so windows are counted, the children with their parents.
    static long count;
    count = 0;
    EnumThreadWindows(
        GetCurrentThreadId(), [](HWND window, LPARAM) __stdcall->BOOL {
            ++count;
            EnumChildWindows(
                window, [](HWND, LPARAM) __stdcall->BOOL { return ++count; }, 0);
            return TRUE;
        },
        0);
    return count;
}

}  // namespace hostile
