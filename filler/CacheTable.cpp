#include "filler/CacheTable.h"

#include "automation/Attempts.h"
#include "automation/DaoNames.h"
#include "automation/Fault.h"

namespace filler {
namespace {

namespace dao = zelbar::dao;
using zelbar::Fault;
using zelbar::Object;

constexpr long kNoCurrentRecord = 3021;
constexpr long kUnknownTable = 3078;
constexpr long kRecordDeleted = 3167;

}  // namespace

// Identifiers have no promised length, so their columns are memos; nothing searches by them.
const TableLayout& storeLayout() {
    static constexpr const wchar_t* kColumns[] = {L"Index", L"StoreID"};
    static constexpr const wchar_t* kStatements[] = {
        L"Create Table TStoreID ([Index] Text(50), StoreID Memo)",
        L"Create Index [Index] On TStoreID ([Index])"};
    static constexpr TableLayout kLayout{L"TStoreID", kColumns, kStatements};
    return kLayout;
}

const TableLayout& numberLayout() {
    static constexpr const wchar_t* kColumns[] = {L"Name", L"PhoneNumber", L"EntryId", L"StoreID"};
    static constexpr const wchar_t* kStatements[] = {
        L"Create Table TCache ([Name] Text(255), PhoneNumber Text(255), EntryId Memo, StoreID Text(50))",
        L"Create Index [Name] On TCache ([Name])", L"Create Index PhoneNumber On TCache (PhoneNumber)"};
    static constexpr TableLayout kLayout{L"TCache", kColumns, kStatements};
    return kLayout;
}

namespace {

/// By their names: a table that others have made may have them in another order.
std::wstring selection(const TableLayout& layout) {
    std::wstring columns;
    for (const wchar_t* column : layout.columns)
        columns += (columns.empty() ? L"[" : L", [") + std::wstring(column) + L"]";
    return L"Select " + columns + L" From " + layout.name;
}

}  // namespace

CacheTable::CacheTable(const zelbar::Object& database, const TableLayout& layout, Use use)
    : use_(use),
      rows_(use == Use::Append
                ? database.object(dao::OpenRecordset, selection(layout), dao::kOpenDynaset, dao::kAppendOnly)
                : database.object(dao::OpenRecordset, selection(layout),
                                  use == Use::Read ? dao::kOpenForwardOnly : dao::kOpenDynaset)) {
    // A field object shows the value of whatever row is current: it is fetched once.
    for (const wchar_t* column : layout.columns) fields_.push_back(rows_.object(dao::FieldNamed, column));
}

CacheTable::~CacheTable() {
    fields_.clear();
    zelbar::Attempts()([&] { rows_.call(dao::Close); });
}

bool CacheTable::atEnd() const {
    return !block_ && rows_.boolean(dao::EOF_);
}

void CacheTable::next() {
    if (use_ != Use::Read)
        rows_.call(dao::MoveNext);
    else if (++at_ >= block_->rows())
        block_.reset();
}

std::optional<RecordView> CacheTable::current() {
    if (use_ == Use::Read) return rowOfBlock();
    try {
        for (std::size_t i = 0; i < fields_.size(); ++i) record_[i] = fields_[i].text(dao::Value);
        return RecordView{record_[0], record_[1], record_[2], record_[3]};
    } catch (const Fault& fault) {
        if (fault.number != kRecordDeleted && fault.number != kNoCurrentRecord) throw;
        return std::nullopt;
    }
}

void CacheTable::readBlock() {
    constexpr long kRowsInOneCall = 2000;
    block_ = std::make_unique<zelbar::VariantGrid>(rows_.get(dao::GetRows, kRowsInOneCall));
    at_ = 0;
    if (block_->rows() == 0 || block_->columns() < fields_.size())
        throw Fault{kNoCurrentRecord, L"the engine gave no rows", L"DAO"};
}

/// A call for each value, or a copy of each text, would make most of an unchanged run's time.
RecordView CacheTable::rowOfBlock() {
    if (!block_) readBlock();
    RecordView row;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const VARIANT& cell = block_->cell(at_, i);
        if (cell.vt == VT_BSTR) {
            row[i] = {cell.bstrVal, SysStringLen(cell.bstrVal)};
        } else {
            record_[i] = zelbar::Variant::copyOf(cell).text();
            row[i] = record_[i];
        }
    }
    return row;
}

void CacheTable::remove() const {
    rows_.call(dao::Delete);
}

void CacheTable::add(const RecordView& record) const {
    rows_.call(dao::AddNew);
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        // A column of older tables may refuse an empty text but never Null, and to the driver they are one.
        if (!record[i].empty()) fields_[i].put(dao::Value, zelbar::Variant(record[i]));
    }
    rows_.call(dao::Update);
}

bool tableExists(const Object& database, const TableLayout& layout) {
    try {
        const CacheTable opened(database, layout, CacheTable::Use::Append);
        return true;
    } catch (const Fault& fault) {
        if (fault.number != kUnknownTable) throw;
        return false;
    }
}

void makeTable(const Object& database, const TableLayout& layout) {
    for (const wchar_t* statement : layout.definition) database.call(dao::Execute, statement);
}

}  // namespace filler
