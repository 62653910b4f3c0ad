#include "core/DriverState.h"
#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

constexpr HRESULT kLostCall = static_cast<HRESULT>(0x80010100);

TEST_F(ExportTest, WhatFailsIsOneLineAndTheRestGoesOn) {
    fill(3);
    faults().failMember(L"ContactItem.Save", {E_FAIL, L"No."}, 1);
    EXPECT_FALSE(initialize());
    EXPECT_EQ(employeeIds(), (Ids{2, 3}));
    EXPECT_TRUE(
        traced("cDataConnector.copyToContactItem Error in Microsoft Outlook. No. (-2147467259) at line 1"));
    sql({L"Delete From Employees Where EmployeeId = 3"});
    const std::tuple<const wchar_t*, HRESULT, Ids> cases[] = {
        {L"ContactItem.EntryID", kLostCall, {2, 3}},
        {L"ContactItem.Delete", E_ACCESSDENIED, {1, 2, 3}},
        {L"ContactItem.Department", E_FAIL, {1, 2}},
        {L"ContactItem.EntryID", E_FAIL, {1, 2, 2}}};
    for (const auto& [member, code, ids] : cases) {
        faults().failMember(member, {code, {}}, 1);
        EXPECT_FALSE(synchronize());
        EXPECT_EQ(employeeIds(), ids);
    }
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(employeeIds(), (Ids{1, 2})) << "the double that this has made goes";
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
            faults().failCall(call, {call % 3 == 0 ? E_FAIL : kLostCall, {}});
        outlook.server().calls().reset();
        synchronize();
        const long calls = outlook.server().calls().invocations();
        faults().clear();
        EXPECT_TRUE(synchronize());
        EXPECT_EQ(employeeIds(), (Ids{1, 3}));
        const auto kept = contacts().at(0);
        EXPECT_EQ(kept.field(L"Department") + kept.field(L"JobTitle"), L"NewChess champion");
        return calls;
    };
    for (long call = fail(100'000); call > 0; call -= 4) fail(call);
}

TEST_F(ExportTest, ADirectoryThatIsUnreadableOrEmptyRemovesNothing) {
    fill(3);
    EXPECT_TRUE(initialize());
    for (const wchar_t* member : {L"Recordset.MoveNext", L"Workspace.OpenDatabase"}) {
        driver().employees.close();
        dao.server().faults().failMember(member, {static_cast<HRESULT>(0x800A0BCD), L"Broken."});
        EXPECT_FALSE(synchronize() || initialize());
        dao.server().faults().clear();
    }
    EXPECT_TRUE(traced("Error (SynchronizeExportFolder): Broken. in "));
    sql({L"Delete From Employees"});
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(employeeIds(), (Ids{1, 2, 3}));
}

}  // namespace

}  // namespace zelbar
