#include "standin/dao/Cursor.h"

#include <algorithm>

#include "standin/dao/DaoError.h"

namespace standin::dao {
namespace {

constexpr int kNoCurrentRecord = 3021;
constexpr int kRecordDeleted = 3167;

}  // namespace

Cursor::Cursor(JetFile& file, SelectPlan plan, CursorKind kind, bool onlyAppends)
    : file_(file), plan_(std::move(plan)), kind_(kind) {
    if (kind_ == CursorKind::snapshot) {
        loadRows();
    } else {
        if (!onlyAppends) loadKeys();
        rowStatement_.emplace(file_.connection().prepare(plan_.rowSql));
    }
    live_ = firstAdded_ = rowCount();
    if (rowCount() == 0) return;
    settle(0, 1);
    if (kind_ == CursorKind::table) {
        count_ = static_cast<long>(rowCount());
        visited_ = rowCount();
    }
}

void Cursor::loadKeys() {
    Statement keys = file_.connection().prepare(plan_.keysSql);
    keys.bind(plan_.values);
    const int tables = static_cast<int>(plan_.tables.size());
    while (keys.step()) {
        for (int table = 0; table < tables; ++table) keys_.push_back(keys.integer(table));
        states_.push_back(RowState::there);
    }
}

void Cursor::loadRows() {
    Statement rows = file_.connection().prepare(plan_.rowsSql);
    rows.bind(plan_.values);
    while (rows.step()) {
        std::vector<Cell>& row = rows_.emplace_back();
        for (std::size_t field = 0; field < plan_.fields.size(); ++field) {
            row.push_back(rows.cell(static_cast<int>(field)));
        }
        states_.push_back(RowState::there);
    }
}

bool Cursor::isUpdatable() const {
    return isChangeable() && plan_.tables.size() == 1 && !file_.isReadOnly();
}

void Cursor::moveFirst() {
    settle(0, 1);
    if (after_) raise(kNoCurrentRecord);
}

void Cursor::moveLast() {
    settle(static_cast<std::ptrdiff_t>(rowCount()) - 1, -1);
    if (before_) raise(kNoCurrentRecord);
}

void Cursor::moveNext() {
    if (after_) raise(kNoCurrentRecord);
    settle(before_ ? 0 : static_cast<std::ptrdiff_t>(at_) + 1, 1);
}

void Cursor::movePrevious() {
    if (before_) raise(kNoCurrentRecord);
    settle(static_cast<std::ptrdiff_t>(after_ ? rowCount() : at_) - 1, -1);
}

void Cursor::settle(std::ptrdiff_t index, int direction) {
    adding_ = false;
    current_.clear();
    const auto end = static_cast<std::ptrdiff_t>(rowCount());
    before_ = after_ = false;
    for (; index >= 0 && index < end; index += direction) {
        if (states_[static_cast<std::size_t>(index)] == RowState::removed) continue;
        at_ = static_cast<std::size_t>(index);
        land();
        // Who cannot come back does not meet what has gone.
        if (kind_ != CursorKind::forwardOnly || !current_.empty()) return;
    }
    before_ = index < 0 || live_ == 0;
    after_ = index >= end || live_ == 0;
}

void Cursor::land() {
    noteVisited();
    readRow();
    if (current_.empty() && states_[at_] == RowState::there) {
        states_[at_] = RowState::goneByOthers;
        --count_;
    }
}

void Cursor::noteVisited() {
    const std::size_t reached = std::min(at_ + 1, firstAdded_);
    if (reached <= visited_) return;
    count_ += static_cast<long>(reached - visited_);
    visited_ = reached;
}

void Cursor::readRow() {
    if (!rowStatement_) {
        current_ = rows_[at_];
        return;
    }
    current_.clear();
    Statement& row = *rowStatement_;
    const Resetting after(row);
    const std::size_t tables = plan_.tables.size();
    for (std::size_t table = 0; table < tables; ++table) {
        row.bind(static_cast<int>(table) + 1, Cell(keys_[at_ * tables + table]));
    }
    if (!row.step()) return;
    for (std::size_t field = 0; field < plan_.fields.size(); ++field) {
        current_.push_back(row.cell(static_cast<int>(field)));
    }
}

void Cursor::checkCurrent() {
    if (before_ || after_) raise(kNoCurrentRecord);
    if (states_[at_] == RowState::removed && kind_ != CursorKind::table) raise(kNoCurrentRecord);
    // A lock may have kept the record from being read when the cursor came here.
    if (current_.empty() && states_[at_] == RowState::there) land();
    if (current_.empty()) raise(kRecordDeleted);
}

void Cursor::checkUpdatable() const {
    if (!isChangeable()) raise(3251);
    if (!isUpdatable()) raise(3027);
}

const Cell& Cursor::value(std::size_t field) {
    if (adding_) return buffer_[field];
    checkCurrent();
    return current_[field];
}

void Cursor::setValue(std::size_t field, Cell value) {
    checkUpdatable();
    if (!adding_) raise(3020);
    const auto* text = std::get_if<std::wstring>(&value);
    const int size = plan_.fields[field].column.size;
    if (text && size > 0 && text->size() > static_cast<std::size_t>(size)) raise(3163);
    buffer_[field] = std::move(value);
}

void Cursor::remove() {
    checkUpdatable();
    checkCurrent();
    Statement statement =
        file_.connection().prepare(L"DELETE FROM " + quoted(plan_.tables.front()) + L" WHERE _rowid_ = ?1");
    statement.bind(1, Cell(keys_[at_]));
    statement.step();
    if (file_.connection().changes() == 0) raise(kRecordDeleted);
    states_[at_] = RowState::removed;
    --count_;
    --live_;
    adding_ = false;
    current_.clear();
}

void Cursor::addNew() {
    checkUpdatable();
    buffer_.clear();
    for (const ResultField& field : plan_.fields) {
        Cell& cell = buffer_.emplace_back();
        if (field.column.type == JetType::yesNo) cell = std::int64_t{0};
    }
    adding_ = true;
}

void Cursor::update() {
    if (!adding_) raise(3020);
    insertRow();
    adding_ = false;
}

void Cursor::insertRow() {
    if (!insertStatement_) {
        std::wstring names;
        std::wstring places;
        for (std::size_t field = 0; field < plan_.fields.size(); ++field) {
            const std::wstring separator = field == 0 ? L"" : L", ";
            names += separator + quoted(plan_.fields[field].column.name);
            places += separator + L"?" + std::to_wstring(field + 1);
        }
        insertStatement_.emplace(file_.connection().prepare(L"INSERT INTO " + quoted(plan_.tables.front()) +
                                                            L" (" + names + L") VALUES (" + places + L")"));
    }
    const Resetting after(*insertStatement_);
    insertStatement_->bind(buffer_);
    insertStatement_->step();
    keys_.push_back(file_.connection().lastRow());
    states_.push_back(RowState::there);
    ++live_;
    ++count_;
}

}  // namespace standin::dao
