#include <algorithm>

#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

constexpr long kEmployees = 500;

/// Outlook dies in the middle of a run, at ten points that are spread over all of its calls.
class InterruptedExport : public ExportTest {
  protected:
    InterruptedExport() {
        // Nobody reads the thousands of lines that these runs would trace.
        registry.set(HKEY_CURRENT_USER, kPopupKey, L"Developper", L"0");
    }
    void SetUp() override {
        ExportTest::SetUp();
        directory.fill(kEmployees);
    }
    template <class Run>
    void dieAt(long call, Run&& run) {
        outlook.server().faults().quitAtCall(call);
        EXPECT_FALSE(run()) << "died at call " << call;
        outlook.server().faults().clear();
    }
};

TEST_F(InterruptedExport, WhenItIsFilledTheNextRunFinishesIt) {
    ASSERT_TRUE(initialize());
    outlook.server().calls().reset();
    ASSERT_TRUE(initialize());
    const long calls = outlook.server().calls().invocations();
    for (int point = 1; point <= 10; ++point) {
        outlook.mailbox().eraseItemsOf(folderCalled(L"Staff").id);
        dieAt(calls * point / 10 - 7, [this] { return initialize(); });
        EXPECT_LT(contacts().size(), static_cast<size_t>(kEmployees));
        EXPECT_TRUE(synchronize());
        expectOneEach(kEmployees);
    }
}

TEST_F(InterruptedExport, WhenItIsSynchronisedTheNextRunFinishesIt) {
    ASSERT_TRUE(initialize());
    for (long point = 0; point < 10; ++point) {
        outlook.server().calls().reset();
        ASSERT_TRUE(synchronize());
        const long reading = outlook.server().calls().invocations();
        // A tenth changes, and another one leaves the page or comes back to it.
        const bool isBack = point % 2 != 0;
        directory.execute(L"Update Employees Set Department = \"" + std::to_wstring(point) +
                          L"\" Where EmployeeId <= 50");
        directory.execute(std::wstring(L"Update BLFPagesContents Set BLFpageId = ") + (isBack ? L"2" : L"3") +
                          L" Where EmployeeId > 25 And EmployeeId <= 75");
        // While the folder is read, and then while it is changed.
        dieAt(point < 3 ? reading * (point + 1) / 4 : reading + 20 * (point - 3),
              [this] { return synchronize(); });
        EXPECT_TRUE(synchronize());
        const auto ids = employeeIds();
        ASSERT_EQ(ids.size(), static_cast<size_t>(isBack ? kEmployees : kEmployees - 50)) << point;
        EXPECT_EQ(std::adjacent_find(ids.begin(), ids.end()), ids.end()) << "a double";
        EXPECT_EQ(contacts().front().field(L"Department"), std::to_wstring(point));
    }
}

TEST_F(ExportTest, AFolderWhoseFirstRowNeverCameIsRemembered) {
    directory.fill(5);
    outlook.server().faults().quitAtMember(L"Items.Add");
    EXPECT_FALSE(initialize());
    outlook.server().faults().clear();
    EXPECT_EQ(timesTraced("cDataConnector.copyToContactItem Error in "), 1) << "the other rows are not tried";
    EXPECT_TRUE(initialize());
    expectOneEach(5);
    EXPECT_TRUE(messages().empty());
}

}  // namespace

}  // namespace zelbar
