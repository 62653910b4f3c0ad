#include "search/cContactRecord.h"

#include <utility>

#include "automation/Attempts.h"
#include "automation/DaoNames.h"
#include "automation/MessageYield.h"
#include "automation/OutlookNames.h"
#include "search/DialableContacts.h"
#include "support/Settings.h"

namespace zelbar {

/// Which way a walk goes, and what it is called in the log.
struct cContactRecord::Direction {
    const wchar_t* name;
    const wchar_t* faultPrefix;
    Member move;
    bool Ends::*atEnd;
    const wchar_t* entryLine;
    const wchar_t* endLine;

    static const Direction next;
    static const Direction previous;
};

const cContactRecord::Direction cContactRecord::Direction::next{L"FindNext",     L"Error (FindNext): ",
                                                                dao::MoveNext,   &Ends::eof,
                                                                L"=>FindNext()", L"  FindNext() End Of File"};
const cContactRecord::Direction cContactRecord::Direction::previous{
    L"FindPrevious", L"Error (FindPrevious): ", dao::MovePrevious,
    &Ends::bof,      L"=>FindPrevious()",       L"  FindPrevious() Begin Of File"};

Com<cContact> cContactRecord::unknownContact(const CacheSearch& search) {
    auto contact = makeObject<cContact>(parts_);
    contact->MakeUnknownContact(search.kind, search.text);
    return contact;
}

LookUp cContactRecord::lookUp(const CacheRow& row, const wchar_t* caller) {
    const std::wstring storeId = cache_.stores().storeIdOf(row.storeKey);
    LookUp result =
        parts_.outlook.GetContactFromID(row.entryId, storeId, caller, row.name + L" " + row.phoneNumber);
    doubtUnknownStore(result, row, storeId);
    return result;
}

Com<cContact> cContactRecord::contactOf(const LookUp& found, bool unified) {
    if (found.failed()) throw found.fault;
    auto contact = makeObject<cContact>(parts_);
    contact->SetValues(found.item, unified);
    return contact;
}

cContactRecord::Ends cContactRecord::refreshEnds(const Search& search) {
    const Ends ends{search->rows.boolean(dao::BOF_), search->rows.boolean(dao::EOF_)};
    if (isCurrent(search)) ends_ = ends;
    return ends;
}

void cContactRecord::setCurrentContact(const Search& search, Com<::Contact> contact) {
    if (isCurrent(search)) currentContact_ = std::move(contact);
}

short cContactRecord::ContactRecord_RecordCount() const {
    return search_ && search_->rows ? search_->count() : short{0};
}

/// Time that the client takes for itself.
void cContactRecord::yield() {
    const auto untimed = parts_.outlook.untimed();
    yieldToMessages();
}

// ---- The first match

cContactRecord::Search cContactRecord::begin(long searchKind, const std::wstring& searchText, bool unified) {
    ends_ = {.bof = true, .eof = false};
    searchKind_ = searchKind;
    searchText_ = searchText;
    yield();
    return std::make_shared<CacheSearch>(searchKind, searchText, unified);
}

Com<::Contact> cContactRecord::ContactRecord_FindFirst(long searchKind, const std::wstring& searchText) {
    FLog& log = parts_.log;
    log.trace(searchKind == kSearchByName ? L"=>FindFisrt() Name=" : L"=>FindFisrt() Phone=", searchText);
    const auto deadline = parts_.outlook.timeForCall();
    const Search search = begin(searchKind, searchText, false);
    const Com<::Contact> result = TimerFind(search);
    log.trace(
        L"Found ", [&] { return search->rows.integer(dao::RecordCount); }, L" items...");
    setCurrentContact(search, result);
    yield();
    return result;
}

Com<::Contact> cContactRecord::ContactRecord_FindFirstForUnified(long searchKind,
                                                                 const std::wstring& searchText) {
    const auto deadline = parts_.outlook.timeForCall();
    const Com<::Contact> result = TimerFind(begin(searchKind, searchText, true));
    yield();
    return result;
}

Com<cContact> cContactRecord::TimerFind(const Search& search) {
    FLog& log = parts_.log;
    log.trace(L"TimerFind()");
    openQuery(search);
    const bool matches = search->rows && !noMatch_;
    const Com<cContact> contact = matches ? firstMatch(*search) : unknownContact(*search);
    if (contact->Contact_NotInPIM())
        log.trace(L"Returning Unknown");
    else
        log.trace(
            L"Returning: '", [&] { return contact->Contact_FullName(); }, L"'.");
    return contact;
}

/// The cursor takes the search over; statements that fail leave it as it was. The cache does not let the
/// client in, so this is one step.
void cContactRecord::openQuery(const Search& search) noexcept {
    FLog& log = parts_.log;
    Attempts attempt;
    // The rows of the search before go first: rows that survived would stand for a search that they do not
    // answer.
    search_.reset();
    Attempts([&](const Fault& fault) { log.fault(L"Error (TimerFind): ", fault); }).into(search->rows, [&] {
        return cache_.openDynaset(search->query());
    });
    search_ = search;
    searchKind_ = search->kind;
    searchText_ = search->text;
    parts_.unifiedSearch = search->unified;
    if (!search->rows) return;
    // Only the last row makes the count complete.
    attempt([&] { search->rows.call(dao::MoveLast); });
    attempt([&] { search->rows.call(dao::MoveFirst); });
    attempt.into(matchCount_, [&] { return search->count(); });
    search->matchCount = matchCount_;
    log.trace(L"Found: ", [&] { return columnText(search->rows, L"Name"); });
    attempt([&] { refreshEnds(search); });
    noMatch_ = ends_.eof && ends_.bof;
}

Com<cContact> cContactRecord::firstMatch(const CacheSearch& search) noexcept {
    try {
        return deliver(search, CacheRow::read(search.rows));
    } catch (...) {
        parts_.log.fault(L"Error (TimerFind): ", caughtFault());
    }
    return unknownContact(search);
}

/// The first row's contact. A row whose contact is gone makes the caller unknown even when later rows match.
Com<cContact> cContactRecord::deliver(const CacheSearch& search, const CacheRow& row) {
    FLog& log = parts_.log;
    const LookUp found = lookUp(row, L"TimerFind");
    if (found.failed()) {
        log.trace(L"TimerFind() error with Outlook.");
        return unknownContact(search);
    }
    if (found.gone()) {
        log.trace(L"Contact not found in Outlook...AND DELETED FROM MDB CACHE !");
        deleteStaleRow(search.rows, row, parts_.log, parts_.paths);
        return unknownContact(search);
    }
    log.trace(
        L"Contact: ", [&] { return found.item.text(outlook::FileAs); }, L" found in Outlook...");
    auto contact = makeObject<cContact>(parts_);
    try {
        contact->SetValues(found.item, search.unified);
    } catch (...) {
        log.trace(L"TimerFind() error with Outlook.");
        throw;
    }
    record(search, *contact.get());
    return contact;
}

void cContactRecord::record(const CacheSearch& search, cContact& contact) {
    const auto own = Com<::Contact>::share(&contact);
    if (search.kind == kSearchByName)
        phoneCache_.add(search.text, contact.Contact_MainPhoneNumber(), search.matchCount, own);
    else
        phoneCache_.add(contact.Contact_FullName(), search.text, search.matchCount, own);
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
bool cContactRecord::advance(const Search& search, const Direction& direction) {
    search->rows.call(direction.move);
    if (!(refreshEnds(search).*direction.atEnd)) return true;
    parts_.log.trace(direction.endLine);
    setCurrentContact(search, {});
    return false;
}

Com<::Contact> cContactRecord::walk(const Direction& direction) {
    const auto deadline = parts_.outlook.timeForCall();
    parts_.log.trace(direction.entryLine);
    if (!search_ || !search_->rows) return {};
    return walk(Search(search_), direction, parts_.unifiedSearch);
}

Com<::Contact> cContactRecord::walk(const Search& search, const Direction& direction, bool unified) {
    const Object& rows = search->rows;
    // The current row may be one that was just deleted; then there is no contact to pass over.
    std::wstring passed;
    const bool hasPassed = Attempts().into(passed, [&] { return columnText(rows, L"EntryId"); });
    if (std::exchange(search->direction, &direction) != &direction) search->met.clear();
    if (hasPassed) search->met.insert(passed);
    while (advance(search, direction)) {
        CacheRow row;
        Attempts attempt;
        if (!attempt.into(row, [&] { return CacheRow::read(rows); })) {
            if (attempt.last().number == dao::kRecordIsDeleted) continue;
            throw attempt.last();
        }
        if (search->met.count(row.entryId)) continue;
        const LookUp found = lookUp(row, direction.name);
        if (found.gone()) {
            deleteStaleRow(rows, row, parts_.log, parts_.paths);
            continue;
        }
        const Com<::Contact> contact = contactOf(found, unified);
        setCurrentContact(search, contact);
        return contact;
    }
    return {};
}

void cContactRecord::ContactRecord_MoveFirst() {
    const Search search = search_;
    if (!search || !search->rows) return;
    search->rows.call(dao::MoveFirst);
    search->direction = nullptr;
    refreshEnds(search);
    setCurrentContact(search, {});
}

void cContactRecord::ContactRecord_MoveLast() {
    const auto deadline = parts_.outlook.timeForCall();
    parts_.log.trace(L"=>MoveLast()");
    const Search search = search_;
    if (!search || !search->rows) return;
    search->rows.call(dao::MoveLast);
    search->direction = nullptr;
    refreshEnds(search);
    setCurrentContact(search, {});
    const CacheRow row = CacheRow::read(search->rows);
    const LookUp found = lookUp(row, L"MoveLast");
    if (!found.gone()) {
        setCurrentContact(search, contactOf(found, parts_.unifiedSearch));
        return;
    }
    deleteStaleRow(search->rows, row, parts_.log, parts_.paths);
    Com<::Contact> dropped;
    FindPrevious(dropped.put());
    setCurrentContact(search, {});
}

// ---- The list

/// The contacts of a search that have something to dial. When the first match has nothing to dial, the others
/// are not looked at.
Com<Collection> cContactRecord::ContactRecord_FillContactCollection(long searchKind,
                                                                    const std::wstring& searchText) {
    const auto deadline = parts_.outlook.timeForCall();
    FLog& log = parts_.log;
    log.trace(L"ContactRecord_FillContactCollection()");
    OutputDebugStringW(L"ContactRecord_FillContactCollection......OutputDebugString");
    const Search search = begin(searchKind, searchText, true);
    const Com<::Contact> first = TimerFind(search);
    yield();
    const auto next = [&] {
        log.trace(Direction::next.entryLine);
        Com<::Contact> result;
        // What was collected before a failure is still handed out.
        Attempts attempt([&](const Fault& fault) { log.fault(Direction::next.faultPrefix, fault); });
        attempt.into(result, [&] { return walk(search, Direction::next, search->unified); });
        return result;
    };
    const auto contacts = dialableContacts(first, next);
    if (contacts->count() > 0) writeSetting(settings::kNoEmailAddressAccess, L"0");
    traceContacts(log, *contacts.get());
    return contacts;
}

}  // namespace zelbar
