#pragma once

#include <string>

#include "automation/Object.h"
#include "com/Collection.h"
#include "com/ContactRecordBorder.h"
#include "core/LookUp.h"
#include "core/PhoneCache.h"
#include "search/CacheRow.h"
#include "search/cContact.h"

namespace zelbar {

/// The search cursor: one query on the cache, whose rows are walked in the order of their names; the contact
/// of each row that is delivered is fetched from Outlook. Rows whose contact is gone from Outlook are taken
/// out on the way.
class cContactRecord final : public ContactRecordBorder<cContactRecord> {
  public:
    ~cContactRecord() override;

    bool ContactRecord_EOF() const { return eof_; }
    bool ContactRecord_BOF() const { return bof_; }
    short ContactRecord_RecordCount() const;
    bool ContactRecord_NoMatch() const { return noMatch_; }
    Com<Collection> ContactRecord_FillContactCollection(long searchKind, const std::wstring& searchText);
    Com<::Contact> ContactRecord_FindFirstForUnified(long searchKind, const std::wstring& searchText);
    Com<::Contact> ContactRecord_FindFirst(long searchKind, const std::wstring& searchText);
    Com<::Contact> ContactRecord_FindNext();
    Com<::Contact> ContactRecord_FindPrevious();
    void ContactRecord_MoveFirst();
    void ContactRecord_MoveLast();
    Com<::Contact> ContactRecord_Contact();
    Variant ContactRecord_ExecuteCommand(const std::wstring&) const { return {}; }

    /// Forgets the search text, so that the next read of `Contact` searches for nothing.
    void ResetSearch() { searchText_.clear(); }
    void ClearPhoneCache() { phoneCache_.clear(); }

  private:
    struct Direction;

    Com<cContact> search(long searchKind, const std::wstring& searchText);
    Com<cContact> TimerFind();
    void openQuery() noexcept;
    void countMatches() noexcept;
    Com<cContact> firstMatch(const Object& recordset) noexcept;
    Com<cContact> deliver(const Object& recordset, const CacheRow& row);
    void record(cContact& contact);
    Com<cContact> unknownContact() const;

    Com<::Contact> walk(const Direction& direction);
    bool advance(const Object& recordset, const Direction& direction);
    Com<cContact> contactOf(const LookUp& found) const;
    LookUp lookUp(const CacheRow& row, const wchar_t* caller) const;
    void refreshEnds(const Object& recordset);
    void closeRecordset() noexcept;

    bool noMatch_ = true;
    bool bof_ = true;
    bool eof_ = true;
    short matchCount_ = 0;
    Object recordset_;
    Com<::Contact> currentContact_;
    PhoneCache phoneCache_;
    bool useMatchCount_ = false;
    std::wstring searchText_;
    long searchKind_ = kSearchByNumber;
};

}  // namespace zelbar
