#include <string>
#include <unordered_set>
#include <utility>

#include "core/DriverState.h"
#include "export/Export.h"
#include "export/ExportFolder.h"
#include "export/ExportPlan.h"
#include "export/ExportRun.h"

namespace zelbar {

namespace {

constexpr wchar_t kRoutine[] = L"cDataConnector.SynchronizeExportFolder";
/// Only contacts are looked for by their identifiers here.
constexpr Member kGetContact{L"GetItemFromID", outlook::kContact};

/// One run. The folder is only read until it is known what there is to do: a change can move items within the
/// collection that is being walked.
class Synchronization {
  public:
    Synchronization(ExportRun& run, Object session, Object folder, std::vector<EmployeeRow> rows)
        : run_(run),
          session_(std::move(session)),
          folder_(std::move(folder)),
          items_(folder_.object(outlook::Items)),
          rows_(std::move(rows)) {}

    void carryOut() {
        readFolder();
        const ExportPlan plan = planExport(contacts_, rows_, run_.categories());
        changeContacts(plan);
        addMissing(plan);
        run_.trace(L" save export folder");
        storeExportFolder(folder_);
    }

  private:
    void readFolder() {
        const long count = items_.integer(outlook::Count);
        run_.begin(L"compare", static_cast<size_t>(count));
        for (long index = 1; index <= count; ++index) {
            run_.trace(L" do while for index: ", index);
            if (!run_.guarded(static_cast<size_t>(index), [&] { readContact(index); })) readAll_ = false;
            run_.advance();
        }
    }

    /// A contact that moves up while the folder grows under the walk comes by twice.
    void readContact(long index) {
        auto contact = readExportedContact(items_.object(outlook::ItemAt, index), run_.addresses());
        if (contact && seen_.insert(contact->entryId).second) contacts_.push_back(std::move(*contact));
    }

    void changeContacts(const ExportPlan& plan) {
        const std::wstring storeId = folder_.text(outlook::StoreID);
        run_.begin(L"change", contacts_.size());
        for (size_t i = 0; i < contacts_.size(); ++i) {
            const ExportedContact& contact = contacts_[i];
            const std::optional<size_t> row = plan.rowOfContact[i];
            run_.trace(row ? L" found: " : L" not found: ", L"[employeeId] = ", contact.employeeId);
            run_.guarded(row ? *row + 1 : i + 1, [&] {
                if (row)
                    change(contact, rows_[*row], storeId);
                else if (mayRemove(contact))
                    remove(contact, storeId);
            });
            run_.advance();
        }
    }

    void change(const ExportedContact& contact, const EmployeeRow& row, const std::wstring& storeId) {
        const ContactChanges changes = changesFor(contact, row, run_.categories());
        if (!changes.empty()) applyChanges(session_.object(kGetContact, contact.entryId, storeId), changes);
    }

    /// A directory without a single row is one that is being set up or has been lost, and 0 is what a number
    /// property holds that nobody has set.
    bool mayRemove(const ExportedContact& contact) const { return !rows_.empty() && contact.employeeId != 0; }

    void remove(const ExportedContact& contact, const std::wstring& storeId) {
        run_.trace(L" remove contacts: ", contact.employeeId);
        session_.object(kGetContact, contact.entryId, storeId).call(outlook::Delete);
    }

    /// A contact that could not be read may be the one that seems to be missing; and when the folder shrinks
    /// under the walk, one slips past, and the last place cannot be read. The next run knows.
    void addMissing(const ExportPlan& plan) {
        if (plan.missing.empty()) return;
        if (!readAll_) {
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
    std::vector<EmployeeRow> rows_;
    std::vector<ExportedContact> contacts_;
    std::unordered_set<std::wstring> seen_;
    bool readAll_ = true;
};

}  // namespace

bool synchronizeExportFolder(const std::wstring& databasePath, const std::wstring& folderName,
                             Com<IDispatch> client) {
    driver().log.trace(kRoutine);
    ExportRun run(kRoutine, std::move(client));
    std::vector<EmployeeRow> rows = run.readDirectory(databasePath);
    LookUp folder = GetExportFolder();
    if (folder.failed()) throw folder.fault;
    if (folder.gone()) {
        if (folderName.empty()) throw Fault{fault::kObjectNotSet, L"There is no export folder.", kRoutine};
        folder.item = createExportFolder(folderName);
    }
    if (!folder.item) return false;
    Synchronization(run, driver().outlook.GetNameSpace(), folder.item, std::move(rows)).carryOut();
    return run.complete();
}

}  // namespace zelbar
