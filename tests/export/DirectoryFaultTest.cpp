#include "core/DriverState.h"
#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

class DirectoryFaults : public ExportTest {
  protected:
    void SetUp() override {
        ExportTest::SetUp();
        directory.fill(3);
        ASSERT_TRUE(initialize());
    }
};

TEST_F(DirectoryFaults, AnUnreadableDirectoryRemovesNothing) {
    const struct {
        const wchar_t* member;
        const char* reason;
    } cases[] = {{L"Recordset.MoveNext", "Error (SynchronizeExportFolder): Broken. in "},
                 {L"Workspace.OpenDatabase", "Error (InitializeExportFolder): Broken. in "}};
    for (const auto& c : cases) {
        driver().employees.close();
        dao.server().faults().failMember(c.member, {static_cast<HRESULT>(0x800A0BCD), L"Broken."});
        EXPECT_FALSE(synchronize());
        EXPECT_FALSE(initialize());
        EXPECT_TRUE(traced(c.reason)) << c.reason;
        expectOneEach(3);
        dao.server().faults().clear();
        EXPECT_TRUE(synchronize());
        expectOneEach(3);
    }
}

TEST_F(DirectoryFaults, AnEmptyDirectoryRemovesNothing) {
    for (const wchar_t* sql : {L"Delete From BLFPagesContents", L"Delete From Employees"}) {
        directory.execute(sql);
        EXPECT_TRUE(synchronize());
        expectOneEach(3);
    }
}

TEST_F(DirectoryFaults, ColumnsThatAnOlderDirectoryDoesNotHaveAreLeftOut) {
    for (const wchar_t* sql :
         {L"Drop Table Employees",
          L"Create Table Employees (EmployeeId Long, LastName Text(50), BusinessPhone Long)",
          L"Insert Into Employees Values (1, \"Old\", 501)", L"Insert Into Employees Values (2, Null, Null)"})
        directory.execute(sql);
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(employeeIds(), (Ids{1, 2}));
    EXPECT_EQ(byName().at(L"Old").field(L"BusinessTelephoneNumber"), L"501");
}

// A client may synchronise without naming the directory that it has initialised from.
TEST_F(DirectoryFaults, TheOpenDirectoryStandsForNone) {
    directory.execute(L"Delete From Employees Where EmployeeId = 3");
    Gateway gateway;
    const auto synchronizeUnnamed = [&] {
        return Object(gateway, Server::Client, Com<IDispatch>::share(&connector()), kUnknownClass)
            .boolean(Member{L"SynchronizeExportFolder"});
    };
    EXPECT_TRUE(synchronizeUnnamed());
    expectOneEach(2);
    finish();
    EXPECT_FALSE(synchronizeUnnamed()) << "shut-down has closed it";
    expectOneEach(2);
}

}  // namespace

}  // namespace zelbar
