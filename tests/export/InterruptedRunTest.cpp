#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

class InterruptedExport : public ExportTest {
  protected:
    template <class Run>
    void dieAt(long call, const Run& run) {
        outlook.server().faults().quitAtCall(call);
        EXPECT_FALSE(run()) << "died at call " << call;
        outlook.server().faults().clear();
    }
};

TEST_F(InterruptedExport, TheNextRunFinishesWhatOutlookDidNot) {
    constexpr long kEmployees = 500;
    // Nobody reads the thousands of lines that these runs would trace.
    registry.set(HKEY_CURRENT_USER, kPopupKey, L"Developper", L"0");
    directory.fill(kEmployees);
    const long adding = callsOf([this] { return initialize(); });
    for (long point = 1; point <= 10; ++point) {
        outlook.mailbox().eraseItemsOf(folderCalled(L"Staff").id);
        dieAt(adding * point / 11, [this] { return initialize(); });
        EXPECT_LT(contacts().size(), static_cast<size_t>(kEmployees));
        EXPECT_TRUE(synchronize());
        expectOneEach(kEmployees);
    }

    const long reading = callsOf([this] { return synchronize(); });
    directory.execute(L"Update Employees Set Department = \"New\" Where EmployeeId <= 50");
    directory.execute(L"Delete From Employees Where EmployeeId > 450");
    for (const long call : {reading / 2, reading + 60}) dieAt(call, [this] { return synchronize(); });
    EXPECT_EQ(contacts().size(), static_cast<size_t>(kEmployees)) << "the changes come first";
    EXPECT_TRUE(synchronize());
    expectOneEach(kEmployees - 50);
    EXPECT_EQ(contacts().at(49).field(L"Department"), L"New");
    EXPECT_EQ(contacts().at(50).field(L"Department"), L"");
}

// Three employees: one changes, one goes, one comes.
TEST_F(InterruptedExport, WhereverOutlookFailsTheNextRunIsRight) {
    directory.fill(2);
    EXPECT_TRUE(initialize());
    directory.execute(L"Update Employees Set Department = \"New\" Where EmployeeId = 1");
    directory.execute(L"Delete From Employees Where EmployeeId = 2");
    directory.add(3, {{L"LastName", L"New"}});
    directory.place(3, 2);
    auto& mailbox = outlook.mailbox();
    const auto staff = folderCalled(L"Staff").id;
    const auto before = contacts();
    const auto fail = [&](long call, bool dies) {
        SCOPED_TRACE("call " + std::to_string(call));
        mailbox.eraseItemsOf(staff);
        for (auto item : before) {
            item.id = 0;
            item.folder = staff;
            mailbox.save(item);
        }
        if (dies) {
            outlook.server().faults().quitAtCall(call);
        } else {
            outlook.server().faults().failCall(call, {static_cast<HRESULT>(0x80010001)});
        }
        synchronize();
        outlook.server().faults().clear();
        EXPECT_TRUE(synchronize());
        EXPECT_EQ(employeeIds(), (Ids{1, 3}));
        EXPECT_EQ(byName().at(L"Employee 1").field(L"Department"), L"New");
    };
    const long calls = callsOf([this] { return synchronize(); });
    for (long call = 1; call <= calls; ++call)
        for (const bool dies : {false, true}) fail(call, dies);
}

TEST_F(InterruptedExport, AFolderWhoseFirstRowNeverCameIsRemembered) {
    directory.fill(5);
    outlook.server().faults().quitAtMember(L"Items.Add");
    EXPECT_FALSE(initialize());
    outlook.server().faults().clear();
    EXPECT_EQ(timesTraced("cDataConnector.copyToContactItem Error in "), 1) << "the other rows are not tried";
    EXPECT_TRUE(initialize());
    expectOneEach(5);
    EXPECT_TRUE(messages.empty());
}

}  // namespace

}  // namespace zelbar
