#pragma once

#include <string>
#include <vector>

#include "automation/Com.h"
#include "automation/Fault.h"
#include "automation/Object.h"
#include "com/ModuleState.h"
#include "export/ContactCopy.h"
#include "export/ExportParts.h"

namespace zelbar {

/// One run over the export folder: at most one at a time, the client's messages served on the way, failures
/// of single rows written down while the rest goes on, and the client told how far it is.
class ExportRun {
  public:
    /// `routine` begins the log lines. `client` is none, or an object with a method
    /// `Progress(Step, Done, Total)`. Throws when a run is under way already.
    ExportRun(const ExportParts& parts, const wchar_t* routine, Com<IDispatch> client);
    ~ExportRun();
    ExportRun(const ExportRun&) = delete;
    ExportRun& operator=(const ExportRun&) = delete;

    /// The directory's rows, from the database at the path (empty: the one that is open).
    std::vector<EmployeeRow> readDirectory(const std::wstring& path);

    /// Adds a contact for a row; a failure is logged and the run goes on, unless Outlook is gone or
    /// does not answer.
    void add(const Object& items, const EmployeeRow& row, size_t line);
    /// Runs one row's work under the same rule; `line` is the row's number in the log. False when it failed.
    template <class Work>
    bool guarded(size_t line, Work&& work) {
        try {
            const auto deadline = timeForUser();
            work();
            return true;
        } catch (...) {
            rowFailed(caughtFault(), line);
            return false;
        }
    }

    /// For what is asked beside the rows.
    Deadline timeForUser() const { return parts_.outlook.timeForUser(); }

    /// A new step of `total` parts, and one part more done.
    void begin(const wchar_t* step, size_t total);
    void advance();
    void yield() noexcept;

    /// A line behind the routine's name.
    template <class... Parts>
    void trace(const Parts&... parts) const {
        parts_.log.trace(routine_, parts...);
    }

    const ExportCategories& categories() const { return categories_; }
    AddressAccess& addresses() { return addresses_; }
    /// True while no row has failed and nothing had to be left out.
    bool complete() const { return complete_; }
    void incomplete() { complete_ = false; }
    /// Whether a call has failed for a reason of Outlook's own, which says nothing of the item it was for.
    bool outlookFailed() const { return outlookFailed_; }

  private:
    void rowFailed(const Fault& fault, size_t line);
    void report() noexcept;

    const ExportParts parts_;
    const wchar_t* routine_;
    Object client_;
    ExportCategories categories_;
    AddressAccess addresses_{parts_.log};
    const wchar_t* step_ = L"";
    size_t done_ = 0;
    size_t total_ = 0;
    bool complete_ = true;
    bool outlookFailed_ = false;
    /// A client that lets go of the driver in the middle must not see it unloaded.
    LiveObject module_;
};

}  // namespace zelbar
