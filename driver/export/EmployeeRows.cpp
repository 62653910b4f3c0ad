#include "export/EmployeeRows.h"

#include "automation/DaoNames.h"
#include "automation/Fault.h"
#include "support/Text.h"

namespace zelbar {

namespace {

/// None when the directory has no such column. A name that both tables have needs its table's in front.
Object columnNamed(const Object& recordset, const std::wstring& name) {
    for (const std::wstring& spelling : {name, L"Employees." + name}) {
        try {
            return recordset.object(dao::FieldNamed, spelling);
        } catch (const Fault& fault) {
            if (fault.number != dao::kItemNotFound) throw;
        }
    }
    return {};
}

std::optional<long> wholeNumber(const Object& column) {
    if (!column) return {};
    const Variant value = column.get(dao::Value);
    if (value.isNothing()) return {};
    try {
        return value.integer();
    } catch (const Fault&) {
        return {};
    }
}

/// The columns of one query, looked for once and not once a row.
class Columns {
  public:
    explicit Columns(const Object& recordset)
        : key_(columnNamed(recordset, kEmployeeKeyColumn)),
          category_(columnNamed(recordset, kCategoryColumn)) {
        for (size_t i = 0; i < kExportedColumnCount; ++i)
            texts_[i] = columnNamed(recordset, kExportedColumns[i].column);
    }

    EmployeeRow current(ExportMode mode) const {
        EmployeeRow row{mode, wholeNumber(key_), wholeNumber(category_), {}};
        for (size_t i = 0; i < kExportedColumnCount; ++i)
            if (texts_[i]) row.texts[i] = trimmed(texts_[i].text(dao::Value));
        return row;
    }

  private:
    Object key_;
    Object category_;
    ByColumn<Object> texts_;
};

}  // namespace

std::vector<EmployeeRow> readEmployeeRows(EmployeesDatabase& database, const std::function<void()>& yield) {
    constexpr size_t kRowsBetweenYields = 100;
    std::vector<EmployeeRow> rows;
    for (const ExportPage& page : kExportPages) {
        const Object recordset = database.openSnapshot(page.sql);
        const Columns columns(recordset);
        while (!recordset.boolean(dao::EOF_)) {
            rows.push_back(columns.current(page.mode));
            recordset.call(dao::MoveNext);
            if (rows.size() % kRowsBetweenYields == 0) yield();
        }
        recordset.call(dao::Close);
    }
    return rows;
}

}  // namespace zelbar
