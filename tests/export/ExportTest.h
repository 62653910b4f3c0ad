#pragma once

#include "tests/fixture/DriverTest.h"

namespace zelbar {

using Ids = std::vector<long>;
using standin::outlook::ItemRecord;

inline constexpr wchar_t kExportFolderKey[] = L"Software\\Norvane\\7316\\Popup\\outlook98\\TransfertFolder";

/// The texts of an employee in the directory.
inline constexpr const wchar_t* kColumns[] = {
    L"FirstName",   L"LastName",  L"Department", L"EmailAddress", L"BusinessPhone",     L"BusinessPhone2",
    L"MobilePhone", L"HomePhone", L"PagerPhone", L"OtherPhone",   L"BillingInformation"};

/// The driver with a directory to export, wxd.mdb in the data folder.
class ExportTest : public DriverTest {
  protected:
    ExportTest();
    void SetUp() override { connector(); }

    /// Changes the directory.
    void sql(std::initializer_list<std::wstring> statements);
    /// An employee on a page; the columns that are not named stay Null.
    void add(long id, long page, const std::vector<std::pair<std::wstring, std::wstring>>& columns = {});
    /// Employees with the keys 1 to `count` on page 2.
    void fill(long count);

    /// The members, as a late-bound client calls them; what they answer.
    bool initialize(const std::wstring& name = L"Staff", IDispatch* progress = nullptr) {
        return run(L"InitializeExportFolder", name, progress);
    }
    bool synchronize(const std::wstring& name = L"", IDispatch* progress = nullptr) {
        return run(L"SynchronizeExportFolder", name, progress);
    }

    /// A folder beside the default contacts folder.
    auto folderCalled(const std::wstring& name) { return mailbox.findFolder(root, name).value(); }
    std::vector<ItemRecord> contacts(const std::wstring& folder = L"Staff");
    /// The keys of the folder's contacts, sorted.
    Ids employeeIds(const std::wstring& folder = L"Staff");

    const standin::outlook::RowId root = mailbox.defaultStore().root;

  private:
    bool run(const wchar_t* member, const std::wstring& name, IDispatch* progress) {
        return lateBound(Com<IDispatch>::share(&connector()))
            .boolean(Member{member}, folder.file(L"wxd.mdb"), name, Com<IDispatch>::share(progress));
    }
};

/// The text of a user property; empty when there is none.
std::wstring userProperty(const ItemRecord& item, const std::wstring& name);

}  // namespace zelbar
