#include <gtest/gtest.h>
#include <windows.h>

#include <objbase.h>

#include <cstdio>
#include <cstdlib>

namespace {

/// What a test process ends with that hangs, as in a message box that nobody answers.
constexpr UINT kHangExitCode = 124;

DWORD WINAPI watch(void*) noexcept {
    const char* seconds = std::getenv("ZELBAR_TEST_SECONDS");
    Sleep(seconds ? std::strtoul(seconds, nullptr, 10) * 1000 : 120'000);
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    std::fprintf(stderr, "\nThe test program hangs in %s.%s; it is ended now.\n",
                 test ? test->test_suite_name() : "?", test ? test->name() : "?");
    std::fflush(nullptr);
    // Not exit(): that would wait for the very thread that hangs.
    TerminateProcess(GetCurrentProcess(), kHangExitCode);
    return 0;
}

}  // namespace

/// The `main` of every test program: a single-threaded apartment, as the driver's client has it, and a
/// watchdog.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    CloseHandle(CreateThread(nullptr, 0, watch, nullptr, 0, nullptr));
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return EXIT_FAILURE;
    const int result = RUN_ALL_TESTS();
    CoUninitialize();
    return result;
}
