#include "search/CacheRow.h"

#include "automation/DaoNames.h"
#include "core/ContactCache.h"
#include "search/ContactPicture.h"

namespace zelbar {

CacheRow CacheRow::read(const Object& recordset) {
    return {columnText(recordset, L"EntryId"), columnText(recordset, L"StoreID"),
            columnText(recordset, L"Name"), columnText(recordset, L"PhoneNumber")};
}

void doubtUnknownStore(LookUp& answer, const CacheRow& row, const std::wstring& storeId) {
    if (!answer.gone() || row.storeKey.empty() || !storeId.empty()) return;
    answer.verdict = LookUp::Verdict::Failed;
    answer.fault = {fault::kSubscriptOutOfRange, L"The contact's store is not in the table of stores",
                    L"TStoreID"};
}

bool deleteStaleRow(const Object& recordset, const CacheRow& row, FLog& log, modMultiUser& paths) noexcept {
    try {
        if (CacheRow::read(recordset) != row) return false;
        recordset.call(dao::Delete);
        log.trace(L"Contact deleted from mdb cache: ", row.name, L" -  ", row.phoneNumber);
        removePicture(row.entryId, paths.DataPath());
        return true;
    } catch (...) {
        log.fault(L"Error (delete from mdb cache): ", caughtFault());
        return false;
    }
}

}  // namespace zelbar
