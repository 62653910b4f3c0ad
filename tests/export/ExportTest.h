#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/export/Directory.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {

inline constexpr wchar_t kExportKey[] = L"Software\\Norvane\\7316\\Popup\\outlook98";
inline constexpr wchar_t kExportFolderKey[] = L"Software\\Norvane\\7316\\Popup\\outlook98\\TransfertFolder";

/// The driver with a directory to export, wxd.mdb in the data folder.
class ExportTest : public DriverTest {
  protected:
    /// The members, as the client calls them; what they answer.
    bool initialize(const std::wstring& name = L"Staff", IDispatch* progress = nullptr);
    bool synchronize(const std::wstring& name = L"", IDispatch* progress = nullptr);

    /// A folder beside the default contacts folder.
    standin::outlook::FolderRecord folderCalled(const std::wstring& name);
    std::vector<standin::outlook::ItemRecord> contacts(const std::wstring& folder = L"Staff");
    /// The contacts of the folder by their full names; two of one name count as a fault.
    std::map<std::wstring, standin::outlook::ItemRecord> byName(const std::wstring& folder = L"Staff");
    /// The keys of the folder's contacts, sorted.
    std::vector<long> employeeIds(const std::wstring& folder = L"Staff");
    /// One contact for each of the keys 1 to `count`.
    void expectOneEach(long count, const std::wstring& folder = L"Staff");

    long saves() { return outlook.server().calls().invocations(L"ContactItem.Save"); }
    /// How many trace lines hold the text.
    long timesTraced(const std::string& part) const;
    /// Outlook's users see this one; what it was told.
    static std::vector<std::wstring>& messages();

    void SetUp() override;
    void TearDown() override;

    Directory directory{folder.file(L"wxd.mdb")};
};

/// The text of a user property; empty when there is none.
std::wstring userProperty(const standin::outlook::ItemRecord& item, const std::wstring& name);

}  // namespace zelbar
