#include <algorithm>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>

#include "export/Export.h"
#include "export/ExportFolder.h"
#include "export/ExportPlan.h"
#include "export/ExportRun.h"
#include "export/UserContent.h"

namespace zelbar {

namespace {

constexpr wchar_t kRoutine[] = L"cDataConnector.SynchronizeExportFolder";
/// Only contacts are looked for by their identifiers here.
constexpr Member kGetContact{L"GetItemFromID", outlook::kContact};

/// One run. The folder is only read until it is known what there is to do: a change can move items within the
/// collection that is being walked. Nothing is removed, and nobody added, on the strength of what was not
/// answered.
class Synchronization {
  public:
    Synchronization(ExportRun& run, Object session, Object folder, std::vector<EmployeeRow> rows)
        : run_(run),
          session_(std::move(session)),
          folder_(std::move(folder)),
          items_(folder_.object(outlook::Items)),
          storeId_(folder_.text(outlook::StoreID)),
          rows_(std::move(rows)) {}

    void carryOut() {
        readFolder();
        const ExportPlan plan = planExport(contacts_, rows_, run_.categories());
        removed_.resize(contacts_.size());
        removeDoubles(plan);
        changeContacts(plan);
        addMissing(plan);
        run_.trace(L" save export folder");
        const auto deadline = run_.timeForUser();
        storeExportFolder(folder_);
    }

  private:
    void readFolder() {
        const long count = itemCount();
        run_.begin(L"compare", static_cast<size_t>(count));
        for (long index = 1; index <= count; ++index) {
            run_.trace(L" do while for index: ", index);
            readItem(index);
            run_.advance();
        }
        // When the folder shrinks under the walk, one item slips past; when it grows, one is not met.
        keptStill_ = itemCount() == count;
    }

    long itemCount() const {
        const auto deadline = run_.timeForUser();
        return items_.integer(outlook::Count);
    }

    void readItem(long index) {
        const auto line = static_cast<size_t>(index);
        Object item;
        if (!run_.guarded(line, [&] { item = newContact(index); })) allIdentified_ = false;
        if (item) run_.guarded(line, [&] { readTexts(item, contacts_.back(), run_.addresses()); });
    }

    /// The item if it is an exported contact that has not been met: one that moves up while the folder grows
    /// under the walk comes by twice.
    Object newContact(long index) {
        Object item = items_.object(outlook::ItemAt, index);
        auto contact = identifyExported(item);
        if (!contact || !seen_.insert(contact->entryId).second) return {};
        contacts_.push_back(std::move(*contact));
        return item;
    }

    /// Two computers that have filled the folder at the same time, or a second initialisation, leave doubles.
    /// An item whose number could not be read may be one of them, so that it is not known which one to keep.
    void removeDoubles(const ExportPlan& plan) {
        if (plan.doubles.empty() || !allIdentified_) return;
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
            auto content = UserContent::of(opened(contacts_[contact]), contacts_[contact], row,
                                           run_.categories(), run_.addresses());
            if (!content) return;
            contents.push_back(std::move(*content));
        }
        for (size_t one = group.size(); one-- > 0;)
            for (size_t other = 0; other < group.size(); ++other) {
                if (other == one || removed_[group[other]] || !contents[one].isWithin(contents[other]))
                    continue;
                if (mayRemove(contacts_[group[one]])) remove(group[one]);
                break;
            }
    }

    void changeContacts(const ExportPlan& plan) {
        run_.begin(L"change", contacts_.size());
        for (size_t i = 0; i < contacts_.size(); ++i) {
            if (!removed_[i]) changeOrRemove(i, plan.rowOfContact[i]);
            run_.advance();
        }
    }

    void changeOrRemove(size_t index, std::optional<size_t> row) {
        const ExportedContact& contact = contacts_[index];
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
        if (!changes.empty()) applyChanges(opened(contact), changes);
    }

    /// A directory without a single row is one that is being set up or has been lost, a row without a number
    /// may be anybody's, and 0 is what a number property holds that nobody has set.
    bool mayRemove(const ExportedContact& contact) const {
        const bool knowsAll = std::all_of(rows_.begin(), rows_.end(),
                                          [](const EmployeeRow& row) { return row.employeeId.has_value(); });
        return !rows_.empty() && knowsAll && contact.employeeId != 0 && !run_.outlookFailed();
    }

    void remove(size_t index) {
        run_.trace(L" remove contacts: ", contacts_[index].employeeId);
        opened(contacts_[index]).call(outlook::Delete);
        removed_[index] = true;
    }

    Object opened(const ExportedContact& contact) const {
        return session_.object(kGetContact, contact.entryId, storeId_);
    }

    /// A contact that was not met may be the one that seems to be missing; the next run knows. One that
    /// Outlook can never read must not keep the others out: should it be theirs, the double goes once it can
    /// be read.
    void addMissing(const ExportPlan& plan) {
        if (plan.missing.empty()) return;
        if (!keptStill_ || run_.outlookFailed()) {
            run_.trace(L" left for the next run, since the folder could not be read as a whole: ",
                       plan.missing.size());
            run_.incomplete();
            return;
        }
        run_.begin(L"add", plan.missing.size());
        for (const size_t row : plan.missing) {
            run_.add(items_, rows_[row], row + 1);
            run_.advance();
        }
    }

    ExportRun& run_;
    Object session_;
    Object folder_;
    Object items_;
    std::wstring storeId_;
    std::vector<EmployeeRow> rows_;
    std::vector<ExportedContact> contacts_;
    std::unordered_set<std::wstring> seen_;
    std::vector<bool> removed_;
    bool allIdentified_ = true;
    bool keptStill_ = false;
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
        synchronization.emplace(run, parts.outlook.GetNameSpace(), folder, std::move(rows));
    }
    synchronization->carryOut();
    return run.complete();
}

}  // namespace zelbar
