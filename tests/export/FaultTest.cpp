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
