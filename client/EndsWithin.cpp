#include "client/EndsWithin.h"

#include <objbase.h>

#include <memory>
#include <thread>
#include <utility>

namespace pimcall {
namespace {

class Event {
  public:
    Event() : handle_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
    ~Event() { CloseHandle(handle_); }
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;
    HANDLE get() const { return handle_; }

  private:
    HANDLE handle_;
};

void inOwnApartment(const std::function<void()>& work) noexcept {
    const HRESULT apartment = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    try {
        work();
    } catch (...) {
        // What it found so far is what there is.
    }
    if (SUCCEEDED(apartment)) CoUninitialize();
}

}  // namespace

bool endsWithin(DWORD milliseconds, std::function<void()> work) {
    const auto done = std::make_shared<Event>();
    std::thread([done, work = std::move(work)]() mutable {
        inOwnApartment(work);
        work = nullptr;
        SetEvent(done->get());
    }).detach();
    HANDLE handle = done->get();
    DWORD index = 0;
    return CoWaitForMultipleHandles(0, milliseconds, 1, &handle, &index) == S_OK;
}

}  // namespace pimcall
