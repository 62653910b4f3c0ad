#include "search/cContactRecord.h"

#include <utility>

#include "automation/Attempts.h"
#include "automation/DaoNames.h"
#include "automation/OutlookNames.h"
#include "core/DriverState.h"
#include "core/MessageYield.h"
#include "search/SearchQuery.h"

namespace zelbar {

/// Which way a walk goes, and what it is called in the log.
struct cContactRecord::Direction {
    const wchar_t* name;
    Member move;
    bool cContactRecord::*atEnd;
    const wchar_t* entryLine;
    const wchar_t* endLine;

    static const Direction next;
    static const Direction previous;
};

const cContactRecord::Direction cContactRecord::Direction::next{
    L"FindNext", dao::MoveNext, &cContactRecord::eof_, L"=>FindNext()", L"  FindNext() End Of File"};
const cContactRecord::Direction cContactRecord::Direction::previous{
    L"FindPrevious", dao::MovePrevious, &cContactRecord::bof_, L"=>FindPrevious()",
    L"  FindPrevious() Begin Of File"};

cContactRecord::~cContactRecord() {
    closeRecordset();
}

void cContactRecord::closeRecordset() noexcept {
    // Released even when Close fails: a recordset that survives would stand for a search that it does not
    // answer.
    if (const Object old = std::exchange(recordset_, {})) Attempts()([&] { old.call(dao::Close); });
}

void cContactRecord::refreshEnds(const Object& recordset) {
    eof_ = recordset.boolean(dao::EOF_);
    bof_ = recordset.boolean(dao::BOF_);
}

short cContactRecord::ContactRecord_RecordCount() const {
    if (useMatchCount_) return matchCount_;
    return recordset_ ? narrowedCount(recordset_) : short{0};
}

Com<cContact> cContactRecord::unknownContact() const {
    auto contact = makeObject<cContact>();
    contact->MakeUnknownContact(searchKind_, searchText_);
    return contact;
}

LookUp cContactRecord::lookUp(const CacheRow& row, const wchar_t* caller) const {
    return driver().outlook.GetContactFromID(row.entryId, driver().cache.stores().storeIdOf(row.storeKey),
                                             caller, row.name + L" " + row.phoneNumber);
}

// ---- The first match

Com<cContact> cContactRecord::search(long searchKind, const std::wstring& searchText) {
    bof_ = true;
    eof_ = false;
    searchKind_ = searchKind;
    searchText_ = searchText;
    yieldToMessages();
    return TimerFind();
}

Com<::Contact> cContactRecord::ContactRecord_FindFirst(long searchKind, const std::wstring& searchText) {
    driver().unifiedSearch = false;
    FLog& log = driver().log;
    log.trace(searchKind == kSearchByName ? L"=>FindFisrt() Name=" : L"=>FindFisrt() Phone=", searchText);
    const Com<::Contact> result = search(searchKind, searchText);
    if (log.LogEnabled() && recordset_)
        Attempts()([&] { log.trace(L"Found ", recordset_.integer(dao::RecordCount), L" items..."); });
    currentContact_ = result;
    yieldToMessages();
    return result;
}

Com<::Contact> cContactRecord::ContactRecord_FindFirstForUnified(long searchKind,
                                                                 const std::wstring& searchText) {
    driver().unifiedSearch = true;
    const Com<::Contact> result = search(searchKind, searchText);
    yieldToMessages();
    return result;
}

Com<cContact> cContactRecord::TimerFind() {
    FLog& log = driver().log;
    log.trace(L"TimerFind()");
    useMatchCount_ = false;
    openQuery();
    // Held apart from the member: calls to Outlook serve the client's messages, and a new search would
    // replace it.
    const Object recordset = recordset_;
    if (recordset) countMatches();
    const Com<cContact> contact = recordset && !noMatch_ ? firstMatch(recordset) : unknownContact();
    if (contact->Contact_NotInPIM())
        log.trace(L"Returning Unknown");
    else if (log.LogEnabled())
        log.trace(L"Returning: '", contact->Contact_FullName(), L"'.");
    return contact;
}

void cContactRecord::openQuery() noexcept {
    closeRecordset();
    Attempts attempt([](const Fault& fault) { driver().log.fault(L"Error (TimerFind): ", fault); });
    attempt.into(recordset_,
                 [&] { return driver().cache.openDynaset(searchQuery(searchKind_, searchText_)); });
}

void cContactRecord::countMatches() noexcept {
    Attempts attempt;
    // Only the last row makes the count complete.
    attempt([&] { recordset_.call(dao::MoveLast); });
    attempt([&] { recordset_.call(dao::MoveFirst); });
    attempt.into(matchCount_, [&] { return narrowedCount(recordset_); });
    FLog& log = driver().log;
    if (log.LogEnabled()) attempt([&] { log.trace(L"Found: ", columnText(recordset_, L"Name")); });
    attempt([&] { refreshEnds(recordset_); });
    noMatch_ = eof_ && bof_;
}

Com<cContact> cContactRecord::firstMatch(const Object& recordset) noexcept {
    try {
        return deliver(recordset, CacheRow::read(recordset));
    } catch (...) {
        driver().log.fault(L"Error (TimerFind): ", caughtFault());
    }
    return unknownContact();
}

/// The first row's contact. A row whose contact is gone makes the caller unknown even when later rows match.
Com<cContact> cContactRecord::deliver(const Object& recordset, const CacheRow& row) {
    FLog& log = driver().log;
    const LookUp found = lookUp(row, L"TimerFind");
    if (found.failed()) {
        log.trace(L"TimerFind() error with Outlook.");
        return unknownContact();
    }
    if (found.gone()) {
        log.trace(L"Contact not found in Outlook...AND DELETED FROM MDB CACHE !");
        deleteStaleRow(recordset, row);
        return unknownContact();
    }
    auto contact = makeObject<cContact>();
    try {
        if (log.LogEnabled())
            log.trace(L"Contact: ", found.item.text(outlook::FileAs), L" found in Outlook...");
        contact->SetValues(found.item);
    } catch (...) {
        log.trace(L"TimerFind() error with Outlook.");
        throw;
    }
    record(*contact.get());
    return contact;
}

void cContactRecord::record(cContact& contact) {
    const auto own = Com<::Contact>::share(&contact);
    if (searchKind_ == kSearchByName)
        phoneCache_.add(searchText_, contact.Contact_MainPhoneNumber(), matchCount_, own);
    else
        phoneCache_.add(contact.Contact_FullName(), searchText_, matchCount_, own);
}

Com<::Contact> cContactRecord::ContactRecord_Contact() {
    if (currentContact_) return currentContact_;
    Com<::Contact> result;
    long searchKind = searchKind_;
    FindFirst(&searchKind, Bstr(searchText_).get(), result.put());
    return result;
}

// ---- The walk

Com<::Contact> cContactRecord::ContactRecord_FindNext() {
    return walk(Direction::next);
}
Com<::Contact> cContactRecord::ContactRecord_FindPrevious() {
    return walk(Direction::previous);
}

/// One row further. False at the end, where there is no current contact any more.
bool cContactRecord::advance(const Object& recordset, const Direction& direction) {
    recordset.call(direction.move);
    refreshEnds(recordset);
    if (!(this->*direction.atEnd)) return true;
    driver().log.trace(direction.endLine);
    currentContact_ = {};
    return false;
}

Com<::Contact> cContactRecord::walk(const Direction& direction) {
    driver().log.trace(direction.entryLine);
    if (!recordset_) return {};
    if (useMatchCount_) TimerFind();
    const Object recordset = recordset_;
    // The current row may be one that was just deleted; then there is no contact to pass over.
    std::wstring passed;
    const bool hasPassed = Attempts().into(passed, [&] { return columnText(recordset, L"EntryId"); });
    while (advance(recordset, direction)) {
        CacheRow row;
        Attempts attempt;
        if (!attempt.into(row, [&] { return CacheRow::read(recordset); })) {
            if (attempt.last().number == dao::kRecordIsDeleted) continue;
            throw attempt.last();
        }
        if (hasPassed && row.entryId == passed) continue;
        const LookUp found = lookUp(row, direction.name);
        if (found.gone()) {
            deleteStaleRow(recordset, row);
            continue;
        }
        currentContact_ = contactOf(found);
        return currentContact_;
    }
    return {};
}

Com<cContact> cContactRecord::contactOf(const LookUp& found) const {
    if (found.failed()) throw found.fault;
    auto contact = makeObject<cContact>();
    contact->SetValues(found.item);
    return contact;
}

void cContactRecord::ContactRecord_MoveFirst() {
    if (!recordset_) return;
    recordset_.call(dao::MoveFirst);
    refreshEnds(recordset_);
    currentContact_ = {};
}

void cContactRecord::ContactRecord_MoveLast() {
    driver().log.trace(L"=>MoveLast()");
    const Object recordset = recordset_;
    if (!recordset) return;
    recordset.call(dao::MoveLast);
    refreshEnds(recordset);
    currentContact_ = {};
    const CacheRow row = CacheRow::read(recordset);
    const LookUp found = lookUp(row, L"MoveLast");
    if (!found.gone()) {
        currentContact_ = contactOf(found);
        return;
    }
    deleteStaleRow(recordset, row);
    Com<::Contact> dropped;
    FindPrevious(dropped.put());
    currentContact_ = {};
}

}  // namespace zelbar
