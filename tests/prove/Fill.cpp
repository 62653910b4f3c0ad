// fillcache's library as a module of its own, which can be watched as the driver is.

#include <windows.h>

#include "filler/FillCache.h"

namespace {

struct Nobody final : filler::Observer {
    void progress(const wchar_t*, long, long) override {}
    void note(const std::wstring&) override {}
    bool cancelled() override { return false; }
    void pause(DWORD) override {}
};

}  // namespace

/// Brings the cache up to date; false when that has failed, and then it is as it was.
extern "C" __declspec(dllexport) bool __cdecl fill() noexcept {
    try {
        Nobody nobody;
        filler::fillCache(nobody, {});
        return true;
    } catch (...) {
        return false;
    }
}
