#pragma once

#include <windows.h>

#include <string>

#include "filler/Failure.h"

namespace filler {

/// Who watches a run.
class Observer {
  public:
    virtual ~Observer() = default;
    /// `what` ("Reading Outlook") has come to `done` of `total`. Called often.
    virtual void progress(const wchar_t* what, long done, long total) = 0;
    /// Something that the user should know although the run goes on.
    virtual void note(const std::wstring& sentence) = 0;
    /// The run has read all that it needs, and changes the cache from now on.
    virtual void changesBegin() {}
    /// True once the run is to end as soon as it can.
    virtual bool cancelled() = 0;
    /// Lets time pass before something is tried again.
    virtual void pause(DWORD milliseconds) { Sleep(milliseconds); }
};

/// Ends the run when the observer wants that.
inline void goOn(Observer& observer) {
    if (observer.cancelled()) throw Failure{L"The run was interrupted."};
}

}  // namespace filler
