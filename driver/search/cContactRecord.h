#pragma once

#include <memory>
#include <string>

#include "com/Collection.h"
#include "com/ContactRecordBorder.h"
#include "core/ContactCache.h"
#include "core/LookUp.h"
#include "core/PhoneCache.h"
#include "search/CacheRow.h"
#include "search/CacheSearch.h"
#include "search/cContact.h"

namespace zelbar {

/// The search cursor: one query on the cache, whose rows are walked in the order of their names; the contact
/// of each row that is delivered is fetched from Outlook. Rows whose contact is gone from Outlook are taken
/// out on the way.
class cContactRecord final : public ContactRecordBorder<cContactRecord> {
  public:
    cContactRecord(const ContactParts& parts, ContactCache& cache) : parts_(parts), cache_(cache) {}

    bool ContactRecord_EOF() const { return ends_.eof; }
    bool ContactRecord_BOF() const { return ends_.bof; }
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

    // For the entry object, which has no use for them so far.

    /// Forgets the search text, so that the next read of `Contact` searches for nothing.
    void ResetSearch() { searchText_.clear(); }
    void ClearPhoneCache() { phoneCache_.clear(); }

  private:
    struct Direction;
    struct Ends {
        bool bof = true;
        bool eof = true;
    };
    /// A procedure keeps the search that it works on to itself; the cursor's may be exchanged meanwhile.
    using Search = std::shared_ptr<CacheSearch>;

    LookUp lookUp(const CacheRow& row, const wchar_t* caller);
    Com<cContact> contactOf(const LookUp& found, bool unified);
    Com<cContact> unknownContact(const CacheSearch& search);
    void yield();
    Search begin(long searchKind, const std::wstring& searchText, bool unified);
    Com<cContact> TimerFind(const Search& search);
    void openQuery(const Search& search) noexcept;
    Com<cContact> firstMatch(const CacheSearch& search) noexcept;
    Com<cContact> deliver(const CacheSearch& search, const CacheRow& row);
    void record(const CacheSearch& search, cContact& contact);

    Com<::Contact> walk(const Direction& direction);
    Com<::Contact> walk(const Search& search, const Direction& direction, bool unified);
    bool advance(const Search& search, const Direction& direction);
    /// Whether the cursor still stands on that search. What is the cursor's own changes only then.
    bool isCurrent(const Search& search) const { return search_ == search; }
    void setCurrentContact(const Search& search, Com<::Contact> contact);
    Ends refreshEnds(const Search& search);

    const ContactParts parts_;
    ContactCache& cache_;
    bool noMatch_ = true;
    Ends ends_;
    short matchCount_ = 0;
    Search search_;
    Com<::Contact> currentContact_;
    PhoneCache phoneCache_;
    std::wstring searchText_;
    long searchKind_ = kSearchByNumber;
};

}  // namespace zelbar
