#include "tests/automation/StrictObject.h"
#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

/// A client that is told how far the run is; `during` runs each time.
struct Listener {
    std::vector<std::wstring> told;
    std::function<HRESULT()> during = [] { return S_OK; };
    StrictObject object{{{L"Progress", 5}}, [this](DISPID, DISPPARAMS& arguments, VARIANT*, EXCEPINFO*) {
                            // Arguments come the last one first.
                            told.push_back(std::wstring(arguments.rgvarg[2].bstrVal) + L" " +
                                           std::to_wstring(arguments.rgvarg[1].lVal) + L"/" +
                                           std::to_wstring(arguments.rgvarg[0].lVal));
                            return during();
                        }};
};

TEST_P(ExportTest, TheClientIsToldHowFarARunIs) {
    fill(60);
    Listener listener;
    EXPECT_TRUE(initialize(L"Staff", &listener.object));
    EXPECT_EQ(listener.told, (std::vector<std::wstring>{L"add 0/60", L"add 50/60", L"add 60/60"}));
    EXPECT_TRUE(traced("cDataConnector.InitializeExportFolder add 50 of 60"));
    listener.told.clear();
    listener.during = [] { return E_FAIL; };
    EXPECT_TRUE(synchronize(L"", &listener.object));
    EXPECT_EQ(listener.told.size(), 1u) << "one that cannot be told does not end the run";
    EXPECT_EQ(listener.object.references, 1);

    // A contact that its user deletes meanwhile lets another one slip past; it may not come twice. A table
    // that has changed is not believed: the items are read.
    listener.during = [&] {
        if (listener.told.back() == L"compare 50/60") mailbox.eraseItem(contacts().front().id);
        return S_OK;
    };
    EXPECT_EQ(synchronize(L"", &listener.object), GetParam());
    EXPECT_EQ(traced("item by item: it changed while it was read"), GetParam());
    EXPECT_EQ(contacts().size(), GetParam() ? 60u : 59u);
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(contacts().size(), 60u);
}

TEST_P(ExportTest, WhatIsDoneAboutAContactIsForItsItemToSay) {
    fill(5);
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(initialize());
    sql({L"Delete From Employees Where EmployeeId = 2", L"Delete From Employees Where EmployeeId = 4",
         L"Update Employees Set FirstName = \"Bob\" Where EmployeeId = 3"});
    Listener listener;
    listener.during = [&] {
        // Before the items are read, and after the table has been.
        if (listener.told.back() != (GetParam() ? L"compare 10/10" : L"compare 0/10")) return S_OK;
        auto users = contacts();
        for (const size_t i : {1, 9}) users[i].userProperties.clear();
        users[2].fields[L"FirstName"] = L"Bob";
        for (auto& item : users) mailbox.save(item);
        return S_OK;
    };
    outlook.server().calls().reset();
    EXPECT_TRUE(synchronize(L"", &listener.object));
    EXPECT_EQ(employeeIds(), (Ids{0, 0, 1, 3, 5}));
    EXPECT_EQ(outlook.server().calls().invocations(L"ContactItem.Save"), 0);
    EXPECT_EQ(outlook.server().calls().invocations(L"Items.Item"), GetParam() ? 0 : 10);
}

}  // namespace

}  // namespace zelbar
