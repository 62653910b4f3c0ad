#include "tests/hostile/Proof.h"

#include <objbase.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace hostile {

namespace {

constexpr DWORD kLongestMilliseconds = 60'000;
/// What a program ends with that a run has ended.
constexpr UINT kEndedByARun = 3;
constexpr struct {
    const char* name;
    Figure figure;
} kColumns[] = {{"runs", &Tally::runs},   {"crashes", &Tally::crashes}, {"hangs", &Tally::hangs},
                {"leaks", &Tally::leaks}, {"lost", &Tally::lost},       {"escapes", &Tally::escapes}};

Proof* proof = nullptr;
std::atomic<DWORD> began{0};

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

LONG CALLBACK onFault(EXCEPTION_POINTERS* fault) noexcept {
    // The system's errors; what C++ throws is none.
    constexpr DWORD kErrors = 0xC0000000;
    const auto& record = *fault->ExceptionRecord;
    proof->expect(
        record.ExceptionCode < kErrors, &Tally::escapes,
        "fault " + std::to_string(record.ExceptionCode) + " at " + placeOf(record.ExceptionAddress));
    return EXCEPTION_CONTINUE_SEARCH;
}

LONG WINAPI onCrash(EXCEPTION_POINTERS*) noexcept {
    Proof::end(&Tally::crashes, "nobody handles the fault");
}

void onAbort(int) noexcept {
    Proof::end(&Tally::crashes, "aborted");
}

DWORD WINAPI watch(void*) noexcept {
    for (;; Sleep(500))
        if (const DWORD start = began; start && GetTickCount() - start > kLongestMilliseconds)
            Proof::end(&Tally::hangs, "takes longer than a minute");
}

void begins() {
    began = std::max(GetTickCount(), DWORD{1});
}

}  // namespace

Proof::Proof(int count, char** arguments) {
    for (const std::string& word : std::vector<std::string>(arguments + 1, arguments + count)) {
        const size_t equals = std::min(word.find('='), word.size());
        if (word.starts_with("--"))
            options_[word.substr(0, equals)] = word.substr(std::min(equals + 1, word.size()));
        else
            words_.push_back(word);
    }
    proof = this;
    row_ = &rows_["start"];
    AddVectoredExceptionHandler(1, onFault);
    SetUnhandledExceptionFilter(onCrash);
    std::signal(SIGABRT, onAbort);
    CloseHandle(CreateThread(nullptr, 0, watch, nullptr, 0, nullptr));
}

void Proof::end(Figure figure, const char* what) noexcept {
    proof->expect(false, figure, what);
    proof->finish();
    std::fflush(nullptr);
    TerminateProcess(GetCurrentProcess(), kEndedByARun);
    std::abort();
}

void Proof::scene(const std::string& name) {
    row_ = &rows_[name];
    name_ = name;
    begins();
    std::fprintf(stderr, "  %s\n", name.c_str());
    std::fflush(stderr);
}

void Proof::run(std::string name) {
    name_ = std::move(name);
    ++row_->runs;
    begins();
}

bool Proof::expect(bool condition, Figure figure, const std::string& what) {
    constexpr long kMostPrinted = 40;
    if (!condition && ++(row_->*figure) <= kMostPrinted) {
        std::fprintf(stderr, "FOUND in %s: %s\n", name_.c_str(), what.c_str());
        std::fflush(stderr);
    }
    return condition;
}

bool Proof::expectNoMore(long long before, long long now, Figure figure, const std::string& what) {
    return expect(now <= before, figure,
                  what + ": " + std::to_string(now) + " after " + std::to_string(before));
}

int Proof::finish() {
    began = 0;
    Tally sums;
    std::printf("| scene |");
    for (const auto& column : kColumns) std::printf(" %s |", column.name);
    std::printf("\n|---|---|---|---|---|---|---|\n");
    for (const auto& [name, tally] : rows_) {
        const auto isEmpty = [&](const auto& column) { return tally.*column.figure == 0; };
        if (std::all_of(std::begin(kColumns), std::end(kColumns), isEmpty)) continue;
        std::printf("| %s |", name.c_str());
        for (const auto& column : kColumns) {
            std::printf(" %ld |", (tally.*column.figure).load());
            sums.*column.figure += tally.*column.figure;
        }
        std::printf("\n");
    }
    bool isGood = sums.runs > 0;
    std::string line;
    for (const auto& [name, figure] : kColumns) {
        line += (line.empty() ? "" : ", ") + std::string(name) + " " + std::to_string(sums.*figure);
        if (figure != &Tally::runs && sums.*figure > 0) isGood = false;
    }
    std::printf("\n%s\n", line.c_str());
    std::fflush(stdout);
    return isGood ? EXIT_SUCCESS : EXIT_FAILURE;
}

int playAll(int count, char** arguments, const std::vector<Scene>& scenes) {
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return EXIT_FAILURE;
    Proof proof(count, arguments);
    try {
        for (const Scene& scene : scenes) {
            if (scene.isExtra ? !proof.isNamed(scene.name) : !proof.wantsScene(scene.name)) continue;
            proof.scene(scene.name);
            scene.play(proof);
        }
    } catch (const std::exception& failure) {
        proof.expect(false, &Tally::crashes, failure.what());
    }
    return proof.finish();
}

}  // namespace hostile
