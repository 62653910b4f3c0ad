#include <windows.h>

#include <objbase.h>

#include <cstdio>
#include <cwchar>
#include <exception>

#include "automation/Fault.h"
#include "benchmark/Benchmarks.h"

namespace benchmark {

void reportAim(const char* aim, bool reached) {
    std::printf("%s: %s\n", reached ? "Reached" : "MISSED", aim);
}

}  // namespace benchmark

/// usage: benchmark [calls|searches]
int wmain(int argc, wchar_t** argv) {
    const std::wstring_view only = argc > 1 ? argv[1] : L"";
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
    int status = 0;
    try {
        if (only != L"searches") benchmark::measureIncomingCalls();
        if (only != L"calls") benchmark::measureSearches();
    } catch (...) {
        const zelbar::Fault fault = zelbar::caughtFault();
        std::fprintf(stderr, "benchmark: %ls in %ls (%08lX)\n", fault.description.c_str(),
                     fault.source.c_str(), static_cast<unsigned long>(fault.number));
        status = 1;
    }
    CoUninitialize();
    return status;
}
