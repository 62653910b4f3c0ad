#include "filler/TableColumns.h"

#include "automation/Fault.h"
#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"
#include "support/TelephoneNumbers.h"

namespace filler {
namespace {

namespace outlook = zelbar::outlook;

/// The identifier that lasts, of stores whose rows have others for the session.
constexpr wchar_t kLastingId[] = L"http://schemas.microsoft.com/mapi/proptag/0x66700102";

}  // namespace

TableColumns::TableColumns(const zelbar::Object& table) : columns_(table.object(outlook::Columns)) {
    columns_.call(outlook::RemoveAll);
    add(outlook::EntryID.name);
    // Many stores have none, and some versions refuse it.
    tryAdd(kLastingId);
}

TableColumns TableColumns::forIdentifiers(const zelbar::Object& table) {
    return TableColumns(table);
}

TableColumns TableColumns::forContacts(const zelbar::Object& table) {
    TableColumns result(table);
    for (const wchar_t* name :
         {kMessageClass.name, outlook::LastName.name, outlook::FirstName.name, outlook::CompanyName.name})
        result.add(name);
    for (const zelbar::TelephoneProperty& telephone : zelbar::kTelephoneProperties)
        result.add(telephone.member.name);
    // Needed for the few contacts without any other name, and read from them where it is refused.
    result.tryAdd(outlook::FileAs.name);
    return result;
}

void TableColumns::tryAdd(const wchar_t* name) {
    try {
        add(name);
    } catch (const zelbar::Fault& fault) {
        if (saysOutlookFailed(fault)) throw;
    }
}

void TableColumns::add(const wchar_t* name) {
    columns_.call(outlook::AddColumn, name);
    positions_.emplace(name, positions_.size());
}

std::optional<std::wstring> TableColumns::text(const TableBlock& block, std::size_t row,
                                               const zelbar::Member& property) const {
    const auto position = positions_.find(property.name);
    if (position == positions_.end() || position->second >= block.columns()) return std::nullopt;
    return block.text(row, position->second);
}

std::wstring TableColumns::identifier(const TableBlock& block, std::size_t row) const {
    for (const wchar_t* name : {kLastingId, outlook::EntryID.name}) {
        const auto position = positions_.find(name);
        if (position == positions_.end() || position->second >= block.columns()) continue;
        std::wstring id = block.identifier(row, position->second);
        if (!id.empty()) return id;
    }
    throw zelbar::Fault{static_cast<long>(E_FAIL), L"a row has no identifier", L"Microsoft Outlook"};
}

}  // namespace filler
