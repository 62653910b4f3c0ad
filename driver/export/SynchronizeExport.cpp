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
        count_ = items_.integer(outlook::Count);
        run_.begin(L"compare", static_cast<size_t>(count_));
        for (long index = 1; index <= count_; ++index) {
            run_.trace(L" do while for index: ", index);
            const bool read = run_.guarded(static_cast<size_t>(index), [&] {
                if (auto contact = readExportedContact(items_.object(outlook::ItemAt, index), addresses()))
                    contacts_.push_back(std::move(*contact));
            });
            if (!read) ++unread_;
            run_.advance();
        }
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
        ++removed_;
    }

    /// A contact that could not be read, or that slipped past while the folder changed under the walk, may be
    /// the one that seems to be missing. The next run knows.
    void addMissing(const ExportPlan& plan) {
        if (plan.missing.empty()) return;
        if (unread_ > 0 || items_.integer(outlook::Count) != count_ - removed_) {
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

    AddressAccess& addresses() { return run_.addresses(); }

    ExportRun& run_;
    Object session_;
    Object folder_;
    Object items_;
    std::vector<EmployeeRow> rows_;
    std::vector<ExportedContact> contacts_;
    long count_ = 0;
    long removed_ = 0;
    long unread_ = 0;
};

}  // namespace

bool synchronizeExportFolder(const std::wstring& databasePath, const std::wstring& folderName,
                             Com<IDispatch> client) {
    DriverState& state = driver();
    state.log.trace(kRoutine);
    ExportRun run(kRoutine, std::move(client));
    std::vector<EmployeeRow> rows = run.readDirectory(databasePath);
    const Object session = state.outlook.GetNameSpace();
    LookUp folder = GetExportFolder(session);
    if (folder.failed()) throw folder.fault;
    if (folder.gone()) {
        if (folderName.empty()) throw Fault{fault::kObjectNotSet, L"There is no export folder.", kRoutine};
        folder.item = createExportFolder(session, folderName);
    }
    if (!folder.item) return false;
    Synchronization(run, session, folder.item, std::move(rows)).carryOut();
    return run.complete();
}

}  // namespace zelbar
