#include "automation/FolderTable.h"

#include "automation/Fault.h"
#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"
#include "automation/TableCell.h"

namespace zelbar {

namespace {

constexpr long kRowsInOneCall = 500;

/// The identifier that lasts, of stores whose rows have others for the session.
constexpr wchar_t kLastingId[] = L"http://schemas.microsoft.com/mapi/proptag/0x66700102";

}  // namespace

bool isContactClass(std::wstring_view messageClass) {
    static constexpr std::wstring_view kContact = L"IPM.CONTACT";
    std::wstring upper(messageClass);
    for (wchar_t& c : upper)
        if (c >= L'a' && c <= L'z') c = static_cast<wchar_t>(c - (L'a' - L'A'));
    return upper.starts_with(kContact) && (upper.size() == kContact.size() || upper[kContact.size()] == L'.');
}

FolderTable::FolderTable(const Object& folder, const Names& needed, const Names& optional)
    : table_(folder.object(outlook::GetTable)), columns_(table_.object(outlook::Columns)) {
    setColumns(needed, optional);
}

void FolderTable::setColumns(const Names& needed, const Names& optional) {
    columns_.call(outlook::RemoveAll);
    positions_.clear();
    add(outlook::EntryID.name);
    // Many stores have none, and some versions refuse it.
    tryAdd(kLastingId);
    for (const wchar_t* name : needed) add(name);
    for (const wchar_t* name : optional) tryAdd(name);
}

void FolderTable::tryAdd(const wchar_t* name) {
    try {
        add(name);
    } catch (const Fault& fault) {
        if (saysOutlookFailed(fault)) throw;
    }
}

void FolderTable::add(const wchar_t* name) {
    columns_.call(outlook::AddColumn, name);
    positions_.emplace(name, positions_.size());
}

VariantGrid FolderTable::next() const {
    if (table_.boolean(outlook::EndOfTable)) return {};
    VariantGrid block(table_.get(outlook::GetArray, kRowsInOneCall));
    // One that has not taken a column would give each property another's place.
    if (block.rows() > 0 && block.columns() != positions_.size())
        throw Fault{static_cast<long>(E_FAIL), L"the table has other columns", L"Microsoft Outlook"};
    return block;
}

const VARIANT* FolderTable::Row::cell(std::wstring_view column) const {
    const auto position = table_.positions_.find(column);
    if (position == table_.positions_.end()) return nullptr;
    return &block_.cell(row_, position->second);
}

std::optional<std::wstring> FolderTable::Row::text(std::wstring_view column) const {
    const VARIANT* value = cell(column);
    return value ? cellText(*value) : std::nullopt;
}

std::wstring FolderTable::Row::identifier() const {
    for (const wchar_t* name : {kLastingId, outlook::EntryID.name}) {
        const VARIANT* value = cell(name);
        std::wstring id = value ? cellIdentifier(*value) : std::wstring();
        if (!id.empty()) return id;
    }
    throw Fault{static_cast<long>(E_FAIL), L"a row has no identifier", L"Microsoft Outlook"};
}

}  // namespace zelbar
