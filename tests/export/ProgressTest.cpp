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

TEST_F(ExportTest, TheClientIsToldHowFarARunIs) {
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

    // A contact that its user deletes meanwhile lets another one slip past; it may not come twice.
    listener.during = [&] {
        if (listener.told.back() == L"compare 50/60") mailbox.eraseItem(contacts().front().id);
        return S_OK;
    };
    EXPECT_FALSE(synchronize(L"", &listener.object));
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(contacts().size(), 60u);
}

}  // namespace

}  // namespace zelbar
