#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/export/Directory.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {

using Ids = std::vector<long>;

inline constexpr wchar_t kExportKey[] = L"Software\\Norvane\\7316\\Popup\\outlook98";
inline constexpr wchar_t kExportFolderKey[] = L"Software\\Norvane\\7316\\Popup\\outlook98\\TransfertFolder";

/// The driver with a directory to export, wxd.mdb in the data folder.
class ExportTest : public DriverTest {
  protected:
    /// The members, as a late-bound client calls them; what they answer.
    bool initialize(const std::wstring& name = L"Staff", IDispatch* progress = nullptr);
    bool synchronize(const std::wstring& name = L"", IDispatch* progress = nullptr);

    /// A folder beside the default contacts folder.
    standin::outlook::FolderRecord folderCalled(const std::wstring& name);
    std::vector<standin::outlook::ItemRecord> contacts(const std::wstring& folder = L"Staff");
    /// The contacts of the folder Staff by their last names; two of one name count as a fault.
    std::map<std::wstring, standin::outlook::ItemRecord> byName();
    /// The keys of the folder's contacts, sorted; and whether they are 1 to `count`, once each.
    Ids employeeIds(const std::wstring& folder = L"Staff");
    void expectOneEach(long count, const std::wstring& folder = L"Staff");

    /// How many calls Outlook is told to answer while this runs.
    template <class Run>
    long callsOf(const Run& run) {
        const long before = outlook.server().calls().invocations();
        EXPECT_TRUE(run());
        return outlook.server().calls().invocations() - before;
    }
    long saves() { return outlook.server().calls().invocations(L"ContactItem.Save"); }
    /// How many trace lines hold the text.
    long timesTraced(const std::string& part) const;

    void SetUp() override;
    void TearDown() override;

    Directory directory{folder.file(L"wxd.mdb")};
    /// What Outlook's user was told.
    static inline std::vector<std::wstring> messages;

  private:
    bool run(const wchar_t* member, const std::wstring& name, IDispatch* progress);
};

/// The text of a user property; empty when there is none.
std::wstring userProperty(const standin::outlook::ItemRecord& item, const std::wstring& name);

}  // namespace zelbar
