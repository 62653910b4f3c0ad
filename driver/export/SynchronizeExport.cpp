#include <algorithm>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>

#include "export/Export.h"
#include "export/ExportFolder.h"
#include "export/ExportPlan.h"
#include "export/ExportRun.h"
#include "export/FolderContacts.h"
#include "export/UserContent.h"

namespace zelbar {

namespace {

constexpr wchar_t kRoutine[] = L"cDataConnector.SynchronizeExportFolder";

/// One run. The folder is only read until it is known what there is to do: a change can move items within the
/// collection that is being walked. Nothing is removed, and nobody added, on the strength of what was not
/// answered, or what a table alone has said.
class Synchronization {
  public:
    Synchronization(ExportRun& run, FolderContacts folder, std::vector<EmployeeRow> rows)
        : run_(run), folder_(std::move(folder)), rows_(std::move(rows)) {}

    void carryOut() {
        folder_.read();
        const ExportPlan plan = confirmedPlan();
        removed_.resize(contacts().size());
        removeDoubles(plan);
        changeContacts(plan);
        addMissing(plan);
        run_.trace(L" save export folder");
        const auto deadline = run_.timeForUser();
        storeExportFolder(folder_.folder());
    }

  private:
    /// Where something is to be done about an employee, all of his contacts have been read from their items.
    ExportPlan confirmedPlan() {
        while (true) {
            ExportPlan plan = planExport(contacts(), rows_, run_.categories());
            if (!folder_.confirm(concerned(plan))) return plan;
        }
    }

    /// The employees about whom there is something to do.
    std::unordered_set<long> concerned(const ExportPlan& plan) const {
        std::unordered_set<long> result;
        for (const size_t row : plan.missing) result.insert(*rows_[row].employeeId);
        for (const std::vector<size_t>& group : plan.doubles)
            result.insert(contacts()[group.front()].employeeId);
        for (size_t i = 0; i < contacts().size(); ++i) {
            const ExportedContact& contact = contacts()[i];
            const std::optional<size_t> row = plan.rowOfContact[i];
            const bool stays =
                row ? changesFor(contact, rows_[*row], run_.categories()).empty() : !mayRemove(contact);
            if (!stays) result.insert(contact.employeeId);
        }
        return result;
    }

    /// Two computers that have filled the folder at the same time, or a second initialisation, leave doubles.
    /// An item whose number could not be read may be one of them, so that it is not known which one to keep.
    void removeDoubles(const ExportPlan& plan) {
        if (plan.doubles.empty() || !folder_.allIdentified()) return;
        run_.begin(L"doubles", plan.doubles.size());
        for (const std::vector<size_t>& group : plan.doubles) {
            const size_t row = *plan.rowOfContact[group.front()];
            run_.guarded(row + 1, [&] { removeDoubles(group, rows_[row]); });
            run_.advance();
        }
    }

    /// A double goes when another one has all that it has: of equal ones the first stays, beside one that a
    /// user has worked on all others go, and two that users have worked on both stay.
    void removeDoubles(const std::vector<size_t>& group, const EmployeeRow& row) {
        std::vector<UserContent> contents;
        for (const size_t contact : group) {
            auto content = UserContent::of(folder_.opened(contacts()[contact]), contacts()[contact], row,
                                           run_.categories(), run_.addresses());
            if (!content) return;
            contents.push_back(std::move(*content));
        }
        for (size_t one = group.size(); one-- > 0;)
            for (size_t other = 0; other < group.size(); ++other) {
                if (other == one || removed_[group[other]] || !contents[one].isWithin(contents[other]))
                    continue;
                if (mayRemove(contacts()[group[one]])) remove(group[one]);
                break;
            }
    }

    void changeContacts(const ExportPlan& plan) {
        run_.begin(L"change", contacts().size());
        for (size_t i = 0; i < contacts().size(); ++i) {
            if (!removed_[i]) changeOrRemove(i, plan.rowOfContact[i]);
            run_.advance();
        }
    }

    void changeOrRemove(size_t index, std::optional<size_t> row) {
        const ExportedContact& contact = contacts()[index];
        run_.trace(row ? L" found: " : L" not found: ", L"[employeeId] = ", contact.employeeId);
        run_.guarded(row ? *row + 1 : index + 1, [&] {
            if (row)
                change(contact, rows_[*row]);
            else if (mayRemove(contact))
                remove(index);
        });
    }

    void change(const ExportedContact& contact, const EmployeeRow& row) {
        const ContactChanges changes = changesFor(contact, row, run_.categories());
        if (!changes.empty()) applyChanges(folder_.opened(contact), changes);
    }

    /// A directory without a single row is one that is being set up or has been lost, a row without a number
    /// may be anybody's, and 0 is what a number property holds that nobody has set.
    bool mayRemove(const ExportedContact& contact) const {
        const bool knowsAll = std::all_of(rows_.begin(), rows_.end(),
                                          [](const EmployeeRow& row) { return row.employeeId.has_value(); });
        return !rows_.empty() && knowsAll && contact.employeeId != 0 && !run_.outlookFailed();
    }

    void remove(size_t index) {
        run_.trace(L" remove contacts: ", contacts()[index].employeeId);
        folder_.opened(contacts()[index]).call(outlook::Delete);
        removed_[index] = true;
    }

    /// A contact that was not met may be the one that seems to be missing; the next run knows. One that
    /// Outlook can never read must not keep the others out: should it be theirs, the double goes once it can
    /// be read.
    void addMissing(const ExportPlan& plan) {
        if (plan.missing.empty()) return;
        if (!folder_.keptStill() || run_.outlookFailed()) {
            run_.trace(L" left for the next run, since the folder could not be read as a whole: ",
                       plan.missing.size());
            run_.incomplete();
            return;
        }
        run_.begin(L"add", plan.missing.size());
        for (const size_t row : plan.missing) {
            run_.add(folder_.items(), rows_[row], row + 1);
            run_.advance();
        }
    }

    const std::vector<ExportedContact>& contacts() const { return folder_.all(); }

    ExportRun& run_;
    FolderContacts folder_;
    std::vector<EmployeeRow> rows_;
    std::vector<bool> removed_;
};

/// The folder, made anew where a name is given for it; none when that is taken.
Object folderFor(const ExportParts& parts, const std::wstring& folderName) {
    LookUp folder = GetExportFolder(parts.log, parts.outlook);
    if (folder.failed()) throw folder.fault;
    if (folder.found()) return folder.item;
    if (folderName.empty()) throw Fault{fault::kObjectNotSet, L"There is no export folder.", kRoutine};
    return createExportFolder(parts, folderName);
}

}  // namespace

bool synchronizeExportFolder(const ExportParts& parts, const std::wstring& databasePath,
                             const std::wstring& folderName, Com<IDispatch> client) {
    parts.log.trace(kRoutine);
    ExportRun run(parts, kRoutine, std::move(client));
    std::vector<EmployeeRow> rows = run.readDirectory(databasePath);
    std::optional<Synchronization> synchronization;
    {
        const auto deadline = run.timeForUser();
        const Object folder = folderFor(parts, folderName);
        if (!folder) return false;
        const Object session = parts.outlook.GetNameSpace();
        synchronization.emplace(run, FolderContacts(run, parts.outlook.GetApp(), session, folder),
                                std::move(rows));
    }
    synchronization->carryOut();
    return run.complete();
}

}  // namespace zelbar
