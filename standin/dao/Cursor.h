#pragma once

#include <optional>
#include <vector>

#include "standin/dao/JetFile.h"

namespace standin::dao {

/// The numbers are those of OpenRecordset's Type.
enum class CursorKind : short { table = 1, dynaset = 2, snapshot = 4, forwardOnly = 8 };

/// The rows of a query and a place among them, with the rules by which a DAO Recordset moves, counts and
/// changes. The rows that belong are settled at the start; what stands in one is read when the cursor lands
/// on it. Throws DaoError.
class Cursor {
  public:
    /// One that `onlyAppends` begins without rows, whatever the query would find.
    Cursor(JetFile& file, SelectPlan plan, CursorKind kind, bool onlyAppends = false);

    const std::vector<ResultField>& fields() const { return plan_.fields; }
    CursorKind kind() const { return kind_; }
    bool isUpdatable() const;

    bool isBeforeFirst() const { return before_; }
    bool isAfterLast() const { return after_; }
    /// Rows visited so far, less those found deleted.
    long count() const { return count_; }
    /// How many rows there are from the current one to the last, at most.
    std::size_t rowsAhead() const { return before_ || after_ ? 0 : rowCount() - at_; }

    void moveFirst();
    void moveLast();
    void moveNext();
    void movePrevious();

    /// For reading many rows: takes the file's lock once and not for each.
    Reading readTogether() { return Reading(file_.connection()); }

    /// What a field holds: of the row being added, else of the current one.
    const Cell& value(std::size_t field);
    void setValue(std::size_t field, Cell value);

    void remove();
    void addNew();
    void update();

  private:
    enum class RowState : char { there, goneByOthers, removed };

    bool isChangeable() const { return kind_ == CursorKind::table || kind_ == CursorKind::dynaset; }
    std::size_t rowCount() const { return states_.size(); }
    void loadRows();
    void loadKeys();
    /// Goes to the nearest row from `index` on in that direction that was not removed, or off the end.
    void settle(std::ptrdiff_t index, int direction);
    void land();
    void readRow();
    void noteVisited();
    void checkCurrent();
    void checkUpdatable() const;
    void insertRow();

    JetFile& file_;
    SelectPlan plan_;
    CursorKind kind_;
    std::vector<std::int64_t> keys_;       // as many for each row as there are tables
    std::vector<std::vector<Cell>> rows_;  // of a snapshot
    std::vector<RowState> states_;
    std::size_t live_ = 0;        // rows not removed
    std::size_t firstAdded_ = 0;  // rows from here on were added through this cursor
    std::optional<Statement> rowStatement_;
    std::optional<Statement> insertStatement_;

    std::size_t at_ = 0;
    bool before_ = true;
    bool after_ = true;
    long count_ = 0;
    std::size_t visited_ = 0;  // rows before this one have been visited
    std::vector<Cell> current_;
    bool adding_ = false;
    std::vector<Cell> buffer_;
};

}  // namespace standin::dao
