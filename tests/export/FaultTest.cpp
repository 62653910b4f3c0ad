#include "core/DriverState.h"
#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

constexpr HRESULT kBusy = static_cast<HRESULT>(0x80010001);

TEST_F(ExportTest, RowsThatFailAreOneLineEachAndTheRestGoesOn) {
    fill(6);
    faults().failMember(L"ContactItem.Save", {E_FAIL, L"The operation failed."}, 1);
    EXPECT_FALSE(initialize());
    EXPECT_EQ(employeeIds(), (Ids{2, 3, 4, 5, 6}));
    EXPECT_TRUE(
        traced("cDataConnector.copyToContactItem Error in Microsoft Outlook. "
               "The operation failed. (-2147467259) at line 1"));
    EXPECT_TRUE(synchronize());
    sql({L"Update Employees Set Department = \"New\" Where EmployeeId < 4",
         L"Delete From Employees Where EmployeeId > 4"});
    for (const wchar_t* member : {L"ContactItem.Save", L"ContactItem.Delete"})
        faults().failMember(member, {E_ACCESSDENIED, L"No."}, 1);
    EXPECT_FALSE(synchronize());
    EXPECT_EQ(contacts().size(), 5u);
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(employeeIds(), (Ids{1, 2, 3, 4}));
    EXPECT_EQ(contacts().at(0).field(L"Department"), L"New");
}

TEST_F(ExportTest, AnItemThatCannotBeReadKeepsNobodyElseOut) {
    fill(2);
    EXPECT_TRUE(initialize());
    sql({L"Delete From Employees Where EmployeeId = 2"});
    add(3, 2);
    const struct {
        const wchar_t* member;
        HRESULT code;
        Ids ids;
    } cases[] = {{L"ContactItem.EntryID", kBusy, {1, 2}},
                 {L"ContactItem.Department", E_FAIL, {1, 3}},
                 {L"ContactItem.EntryID", E_FAIL, {1, 1, 3}}};
    for (const auto& c : cases) {
        faults().failMember(c.member, {c.code, {}}, 1);
        EXPECT_FALSE(synchronize());
        EXPECT_EQ(employeeIds(), c.ids);
    }
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(employeeIds(), (Ids{1, 3})) << "the double that this has made goes";
}

// One contact changes, one goes, one comes, and one is there twice.
TEST_F(ExportTest, WhereverOutlookFailsTheNextRunIsRight) {
    fill(2);
    EXPECT_TRUE(initialize());
    auto before = contacts();
    before.push_back(before[0]);
    before.back().fields[L"JobTitle"] = L"Chess champion";
    sql({L"Update Employees Set Department = \"New\" Where EmployeeId = 1",
         L"Delete From Employees Where EmployeeId = 2"});
    add(3, 2, {{L"LastName", L"New"}});
    const auto fail = [&](long call) {
        SCOPED_TRACE(call);
        mailbox.eraseItemsOf(before[0].folder);
        for (auto item : before) {
            item.id = 0;
            mailbox.save(item);
        }
        if (call % 3 == 2)
            faults().quitAtCall(call);
        else
            faults().failCall(call, {call % 3 == 0 ? E_FAIL : kBusy, {}});
        outlook.server().calls().reset();
        synchronize();
        const long calls = outlook.server().calls().invocations();
        faults().clear();
        EXPECT_TRUE(synchronize());
        EXPECT_EQ(employeeIds(), (Ids{1, 3}));
        std::wstring texts;
        for (const auto& item : contacts()) texts += item.field(L"Department") + item.field(L"JobTitle");
        EXPECT_EQ(texts, L"NewChess champion");
        return calls;
    };
    for (long call = fail(100'000); call > 0; call -= 4) fail(call);
}

TEST_F(ExportTest, ADirectoryThatIsUnreadableOrEmptyRemovesNothing) {
    fill(3);
    EXPECT_TRUE(initialize());
    const std::pair<const wchar_t*, const char*> broken[] = {
        {L"Recordset.MoveNext", "Error (SynchronizeExportFolder): Broken. in "},
        {L"Workspace.OpenDatabase", "Error (InitializeExportFolder): Broken. in "}};
    for (const auto& [member, line] : broken) {
        driver().employees.close();
        dao.server().faults().failMember(member, {static_cast<HRESULT>(0x800A0BCD), L"Broken."});
        EXPECT_FALSE(synchronize() || initialize());
        EXPECT_TRUE(traced(line)) << line;
        dao.server().faults().clear();
    }
    sql({L"Delete From Employees"});
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(employeeIds(), (Ids{1, 2, 3}));
}

}  // namespace

}  // namespace zelbar
