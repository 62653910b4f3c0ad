#pragma once

#include <algorithm>

#include "tests/fixture/DriverTest.h"

namespace zelbar {

using Ids = std::vector<long>;
using standin::outlook::ItemRecord;

inline constexpr wchar_t kExportFolderKey[] = L"Software\\Norvane\\7316\\Popup\\outlook98\\TransfertFolder";

/// The texts of an employee in the directory.
inline constexpr const wchar_t* kColumns[] = {
    L"FirstName",   L"LastName",  L"Department", L"EmailAddress", L"BusinessPhone",     L"BusinessPhone2",
    L"MobilePhone", L"HomePhone", L"PagerPhone", L"OtherPhone",   L"BillingInformation"};

/// The text of a user property; empty when there is none.
inline std::wstring userProperty(const ItemRecord& item, const std::wstring& name) {
    for (const auto& property : item.userProperties)
        if (property.name == name) return property.value;
    return {};
}

/// The driver with a directory to export, wxd.mdb, and an Outlook whose table it may read, or not.
class ExportTest : public DriverTest, public testing::WithParamInterface<bool> {
  protected:
    ExportTest() {
        outlook.server().setOption(L"Version", GetParam() ? L"16.0" : L"11.0");
        registry.set(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft\\Office\\16.0\\Outlook\\Security",
                     L"ObjectModelGuard", REG_DWORD, {'\2', 0, 0, 0});
        createDatabase(L"wxd.mdb");
        std::wstring columns;
        for (const wchar_t* name : kColumns) columns += std::wstring(L", ") + name + L" Text(80)";
        sql({L"Create Table Employees (EmployeeId Long Primary Key, Categories Long" + columns + L")",
             L"Create Table BLFPagesContents (BLFpageId Long, EmployeeId Long, BindToEmployee YesNo)"});
    }
    void SetUp() override { connector(); }

    /// Changes the directory.
    void sql(std::initializer_list<std::wstring> statements) {
        for (const std::wstring& statement : statements) execute(statement, L"wxd.mdb");
    }
    /// An employee on a page; the columns that are not named stay Null.
    void add(long id, long page, const std::vector<std::pair<std::wstring, std::wstring>>& columns = {}) {
        const std::wstring key = std::to_wstring(id);
        std::wstring names = L"EmployeeId", values = key;
        for (const auto& [name, text] : columns) {
            names += L", " + name;
            values += L", \"" + text + L"\"";
        }
        sql({L"Insert Into Employees (" + names + L") Values (" + values + L")",
             L"Insert Into BLFPagesContents Values (" + std::to_wstring(page) + L", " + key + L", 0)"});
    }
    /// Employees with the keys 1 to `count` on page 2.
    void fill(long count) {
        for (long id = 1; id <= count; ++id)
            add(id, 2, {{L"FirstName", L"Ann"}, {L"LastName", L"Employee " + std::to_wstring(id)}});
    }

    /// The members, as a late-bound client calls them; what they answer.
    bool initialize(const std::wstring& name = L"Staff", IDispatch* progress = nullptr) {
        return run(L"InitializeExportFolder", name, progress);
    }
    bool synchronize(const std::wstring& name = L"", IDispatch* progress = nullptr) {
        return run(L"SynchronizeExportFolder", name, progress);
    }

    /// A folder beside the default contacts folder.
    auto folderCalled(const std::wstring& name) { return mailbox.findFolder(root, name).value(); }
    std::vector<ItemRecord> contacts(const std::wstring& name = L"Staff") {
        std::vector<ItemRecord> result;
        for (const auto row : mailbox.items(folderCalled(name).id)) result.push_back(*mailbox.item(row));
        return result;
    }
    /// The keys of the folder's contacts, sorted.
    Ids employeeIds(const std::wstring& name = L"Staff") {
        Ids result;
        for (const auto& item : contacts(name))
            result.push_back(_wtol(userProperty(item, L"EmployeeId").c_str()));
        std::sort(result.begin(), result.end());
        return result;
    }

    const standin::outlook::RowId root = mailbox.defaultStore().root;

  private:
    bool run(const wchar_t* member, const std::wstring& name, IDispatch* progress) {
        return script().boolean(Member{member}, folder.file(L"wxd.mdb"), name,
                                Com<IDispatch>::share(progress));
    }
};

}  // namespace zelbar
