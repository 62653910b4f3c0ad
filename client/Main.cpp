#include <windows.h>

#include <objbase.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "client/HandleWriter.h"
#include "client/Program.h"

namespace {

/// Windows asks whether a call to another program is to be given up only when a message arrives, and a
/// program without windows gets none.
class Pulse {
  public:
    Pulse()
        : thread_([main = GetCurrentThreadId()](const std::stop_token& stop) {
              std::mutex mutex;
              std::unique_lock lock(mutex);
              std::condition_variable_any ended;
              while (!ended.wait_for(lock, stop, std::chrono::milliseconds(500), [] { return false; })) {
                  if (stop.stop_requested()) return;
                  PostThreadMessageW(main, WM_NULL, 0, 0);
              }
          }) {}

  private:
    std::jthread thread_;
};

}  // namespace

int wmain(int count, wchar_t** words) {
    // The telephony client calls the driver from a single-threaded apartment, and so does this program.
    const HRESULT apartment = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const auto createDriver = [apartment] {
        pimcall::require(apartment, L"starting COM");
        return pimcall::Driver::create();
    };
    const Pulse pulse;
    pimcall::HandleWriter out(STD_OUTPUT_HANDLE);
    pimcall::HandleWriter error(STD_ERROR_HANDLE);
    const std::vector<std::wstring> arguments(words + (count > 0 ? 1 : 0), words + count);
    const pimcall::ExitCode result = pimcall::runProgram(arguments, createDriver, out, error);
    if (SUCCEEDED(apartment)) CoUninitialize();
    return static_cast<int>(result);
}
