#include <PIMDriverAbstract.h>
#include <gtest/gtest.h>

#include "automation/Bstr.h"
#include "automation/Com.h"
#include "standin/dao/Host.h"
#include "standin/outlook/host/Host.h"
#include "tests/harness/RegistrySandbox.h"

/// The DLL as it ships, in the process of a client that asks whether it may go.
namespace zelbar {
namespace {

struct LifetimeTest : testing::Test {
    harness::TemporaryFolder folder;
    harness::RegistrySandbox registry;
    standin::outlook::Host outlook{folder.file(L"mailbox.db")};
    standin::dao::Host dao;

    LifetimeTest() { registry.useProfile(folder); }
    Com<::DataConnector> create(const wchar_t* dataFolder) {
        registry.set(HKEY_CURRENT_USER, L"Software\\Norvane\\7316\\VEXPhone", L"DataPath",
                     folder.file(dataFolder));
        Com<::DataConnector> driver;
        CoCreateInstance(CLSID_cDataConnector, nullptr, CLSCTX_INPROC_SERVER, __uuidof(::DataConnector),
                         reinterpret_cast<void**>(driver.put()));
        return driver;
    }
    static HRESULT canUnload() {
        void* const asked =
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"zelbar00.dll"), "DllCanUnloadNow"));
        return reinterpret_cast<HRESULT(WINAPI*)()>(asked)();
    }
};

TEST_F(LifetimeTest, ItMayGoWhenNothingOfItIsLeftAndThenForgetsWhatItKnew) {
    Com<::ContactRecord> cursor;
    create(L"first")->OpenContactRecord(cursor.put());
    Com<IDispatch> found;
    long byName = 1;
    EXPECT_EQ(cursor->FillContactCollection(&byName, Bstr(L"A*").get(), found.put()), S_OK);
    EXPECT_TRUE(found) << "also without the entry object";
    found.reset();
    EXPECT_EQ(canUnload(), S_FALSE);
    cursor.reset();
    EXPECT_EQ(canUnload(), S_OK);
    CoFreeUnusedLibrariesEx(0, 0);
    ASSERT_TRUE(GetModuleHandleW(L"zelbar00.dll")) << "its threads would leak a slot at each unloading";
    create(L"second");
    EXPECT_TRUE(RemoveDirectoryW(folder.file(L"second").c_str())) << "a fresh driver chooses its folder anew";
}

}  // namespace
}  // namespace zelbar
