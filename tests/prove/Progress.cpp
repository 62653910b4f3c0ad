#include "tests/prove/Progress.h"

#include <windows.h>

#include <cstdio>

namespace prove {

namespace {

constexpr DWORD kLongestMilliseconds = 30'000;
/// What this process ends with then.
constexpr UINT kEndedByARun = 3;

std::string current = "before the first run";
volatile DWORD begun = 0;

LONG CALLBACK onException(EXCEPTION_POINTERS* exception) noexcept {
    const auto& record = *exception->ExceptionRecord;
    switch (record.ExceptionCode) {
        case EXCEPTION_ACCESS_VIOLATION:
        case EXCEPTION_ILLEGAL_INSTRUCTION:
        case EXCEPTION_INT_DIVIDE_BY_ZERO:
        case EXCEPTION_STACK_OVERFLOW: {
            HMODULE module = nullptr;
            GetModuleHandleExW(
                GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                static_cast<LPCWSTR>(record.ExceptionAddress), &module);
            char file[MAX_PATH] = {}, why[MAX_PATH + 100];
            GetModuleFileNameA(module, file, MAX_PATH);
            std::snprintf(why, sizeof(why), "crash: %08lX at %s+%lX", record.ExceptionCode, file,
                          static_cast<unsigned long>(static_cast<char*>(record.ExceptionAddress) -
                                                     reinterpret_cast<char*>(module)));
            ends(why);
        }
        default:
            return EXCEPTION_CONTINUE_SEARCH;
    }
}

DWORD WINAPI watch(void*) noexcept {
    while (true) {
        Sleep(1000);
        if (begun != 0 && GetTickCount() - begun > kLongestMilliseconds) ends("hang: no end in sight");
    }
}

}  // namespace

void watchProcess() {
    AddVectoredExceptionHandler(1, onException);
    CloseHandle(CreateThread(nullptr, 0, watch, nullptr, 0, nullptr));
}

void begins(long number, const std::string& name) {
    current = name;
    begun = GetTickCount();
    // Whoever goes on behind a run that ends the process looks for the last of these lines.
    std::printf("@ %ld %s\n", number, name.c_str());
    std::fflush(stdout);
}

void ends(const char* why) noexcept {
    // Not by the C library, which may be in the middle of something.
    static char line[600];
    const int length = std::snprintf(line, sizeof(line), "\n! %s: %s\n", current.c_str(), why);
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), line, static_cast<DWORD>(length), &written, nullptr);
    TerminateProcess(GetCurrentProcess(), kEndedByARun);
    while (true) Sleep(INFINITE);
}

}  // namespace prove
