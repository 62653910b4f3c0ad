#pragma once

#include <windows.h>

#include <objidl.h>

#include <functional>

#include "automation/Com.h"

namespace zelbar {

/// What becomes of a call that another process does not answer. Asked in the middle of a call: neither may
/// call out, serve messages, or throw.
struct CallRules {
    /// Milliseconds until a call that was turned away is tried again, `elapsed` after its first try.
    std::function<DWORD(DWORD elapsed)> retry;
    /// Whether a call that is still out is given up; asked when a message arrives. Never, without this.
    std::function<bool()> cancels = {};
    /// Whether these rules are to be followed, and not those of the filter that was there. Always, without
    /// this.
    std::function<bool()> apply = {};

    static constexpr DWORD kGiveUp = static_cast<DWORD>(-1);
};

/// The thread's message filter while it lives. It stands before the filter that was there, to which incoming
/// calls are passed on, and puts that one back, also none; a filter that somebody has put in its place
/// meanwhile stays. Where there can be no filter, as in a multi-threaded apartment, it does nothing.
class CallFilter {
  public:
    explicit CallFilter(CallRules rules);
    ~CallFilter();
    CallFilter(const CallFilter&) = delete;
    CallFilter& operator=(const CallFilter&) = delete;

  private:
    class Filter;

    Com<Filter> filter_;
};

}  // namespace zelbar
