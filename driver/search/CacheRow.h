#pragma once

#include <string>

#include "automation/Object.h"
#include "core/LookUp.h"
#include "support/FLog.h"
#include "support/modMultiUser.h"

namespace zelbar {

/// One row of the cache, read from the current row of a search's recordset.
struct CacheRow {
    std::wstring entryId;
    std::wstring storeKey;  ///< The store's short index in the table of stores.
    std::wstring name;
    std::wstring phoneNumber;

    bool operator==(const CacheRow&) const = default;

    /// Throws when there is no current row, or it has been deleted.
    static CacheRow read(const Object& recordset);
};

/// What Outlook said of a row's contact is in doubt where the row's store was not asked, since the table of
/// stores does not know it: the others' "gone" becomes a failure. The cache may have got the store while the
/// driver ran.
void doubtUnknownStore(LookUp& answer, const CacheRow& row, const std::wstring& storeId);

/// Deletes the current row, provided that it is still `row`: while Outlook was asked, the client may have
/// been called and may have moved the recordset on. The contact's saved picture goes with it. A failure is
/// logged; the row then stays. True when the row went.
bool deleteStaleRow(const Object& recordset, const CacheRow& row, FLog& log, modMultiUser& paths) noexcept;

}  // namespace zelbar
