#include <windows.h>

#include <objbase.h>

#include <cstdio>
#include <cwchar>
#include <exception>
#include <string_view>

#include "automation/Fault.h"
#include "benchmark/Benchmarks.h"

namespace benchmark {

void reportAim(const char* aim, bool reached) {
    std::printf("%s: %s\n", reached ? "Reached" : "MISSED", aim);
}

namespace {

struct Section {
    const wchar_t* name;
    void (*measure)();
};
constexpr Section kSections[] = {
    {L"calls", measureIncomingCalls},
    {L"searches", measureSearches},
    {L"exports", measureExports},
};

/// All of them, or the one of that name; false when there is none.
bool measureSections(std::wstring_view only) {
    bool measured = false;
    for (const Section& section : kSections)
        if (only.empty() || only == section.name) {
            section.measure();
            measured = true;
        }
    return measured;
}

}  // namespace

}  // namespace benchmark

/// usage: benchmark [calls|searches|exports]
int wmain(int argc, wchar_t** argv) {
    const std::wstring_view only = argc > 1 ? argv[1] : L"";
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
    int status = 0;
    try {
        if (!benchmark::measureSections(only)) {
            std::fprintf(stderr, "usage: benchmark [calls|searches|exports]\n");
            status = 2;
        }
    } catch (...) {
        const zelbar::Fault fault = zelbar::caughtFault();
        std::fprintf(stderr, "benchmark: %ls in %ls (%08lX)\n", fault.description.c_str(),
                     fault.source.c_str(), static_cast<unsigned long>(fault.number));
        status = 1;
    }
    CoUninitialize();
    return status;
}
