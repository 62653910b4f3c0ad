#include "tests/export/ExportTest.h"

#include <algorithm>

namespace zelbar {

ExportTest::ExportTest() {
    createDatabase(L"wxd.mdb");
    std::wstring columns;
    for (const wchar_t* name : kColumns) columns += std::wstring(L", ") + name + L" Text(80)";
    sql({L"Create Table Employees (EmployeeId Long Primary Key, Categories Long" + columns + L")",
         L"Create Table BLFPagesContents (BLFpageId Long, EmployeeId Long, BindToEmployee YesNo)"});
}

void ExportTest::sql(std::initializer_list<std::wstring> statements) {
    for (const std::wstring& statement : statements) execute(statement, L"wxd.mdb");
}

void ExportTest::add(long id, long page, const std::vector<std::pair<std::wstring, std::wstring>>& columns) {
    const std::wstring key = std::to_wstring(id);
    std::wstring names = L"EmployeeId", values = key;
    for (const auto& [name, text] : columns) {
        names += L", " + name;
        values += L", \"" + text + L"\"";
    }
    sql({L"Insert Into Employees (" + names + L") Values (" + values + L")",
         L"Insert Into BLFPagesContents Values (" + std::to_wstring(page) + L", " + key + L", 0)"});
}

void ExportTest::fill(long count) {
    for (long id = 1; id <= count; ++id)
        add(id, 2, {{L"FirstName", L"Ann"}, {L"LastName", L"Employee " + std::to_wstring(id)}});
}

std::vector<ItemRecord> ExportTest::contacts(const std::wstring& name) {
    std::vector<ItemRecord> result;
    for (const auto row : mailbox.items(folderCalled(name).id)) result.push_back(*mailbox.item(row));
    return result;
}

Ids ExportTest::employeeIds(const std::wstring& name) {
    Ids result;
    for (const auto& item : contacts(name))
        result.push_back(_wtol(userProperty(item, L"EmployeeId").c_str()));
    std::sort(result.begin(), result.end());
    return result;
}

std::wstring userProperty(const ItemRecord& item, const std::wstring& name) {
    for (const auto& property : item.userProperties)
        if (property.name == name) return property.value;
    return {};
}

}  // namespace zelbar
