#include <PIMDriverAbstract.h>
#include <gtest/gtest.h>

#include "automation/Bstr.h"
#include "automation/Com.h"
#include "standin/dao/Host.h"
#include "standin/outlook/host/Host.h"
#include "tests/harness/Files.h"
#include "tests/harness/Process.h"
#include "tests/harness/RegistrySandbox.h"

/// The DLLs as they ship, in the process of a client.
namespace zelbar {
namespace {

constexpr wchar_t kDriver[] = L"zelbar00.dll";

/// A library of ours, loaded as long as this lives.
class Library {
  public:
    explicit Library(const wchar_t* name)
        : handle_(LoadLibraryW((harness::programFolder() + L"\\" + name).c_str())) {}
    ~Library() { FreeLibrary(handle_); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    template <class Function>
    Function* exported(const char* name) const {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(handle_, name)));
    }
    HRESULT canUnload() const { return exported<HRESULT WINAPI()>("DllCanUnloadNow")(); }
    template <class Interface>
    Com<Interface> create(const CLSID& id) const {
        Com<IClassFactory> factory;
        exported<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject")(
            id, __uuidof(IClassFactory), reinterpret_cast<void**>(factory.put()));
        Com<Interface> result;
        factory->CreateInstance(nullptr, __uuidof(Interface), reinterpret_cast<void**>(result.put()));
        return result;
    }

  private:
    HMODULE handle_;
};

/// The driver between an Outlook and a DAO of this process, as a client has it that asks whether it may go.
struct LifetimeTest : testing::Test {
    harness::TemporaryFolder folder;
    harness::RegistrySandbox registry;
    standin::outlook::Host outlook{folder.file(L"mailbox.db")};
    standin::dao::Host dao;
    Library driver{kDriver};

    LifetimeTest() {
        registry.useProfile(folder);
        dataFolder(L"first");
    }
    void dataFolder(const wchar_t* name) {
        registry.set(HKEY_CURRENT_USER, L"Software\\Norvane\\7316\\VEXPhone", L"DataPath", folder.file(name));
    }
    Com<::DataConnector> create() { return driver.create<::DataConnector>(CLSID_cDataConnector); }
};

TEST_F(LifetimeTest, ItMayGoWhenNothingOfItIsLeftAndThenForgetsWhatItKnew) {
    Com<::ContactRecord> cursor;
    create()->OpenContactRecord(cursor.put());
    Com<IDispatch> found;
    long byName = 1;
    EXPECT_EQ(cursor->FillContactCollection(&byName, Bstr(L"A*").get(), found.put()), S_OK);
    EXPECT_TRUE(found) << "also without the entry object";
    found.reset();
    EXPECT_EQ(driver.canUnload(), S_FALSE);
    cursor.reset();
    EXPECT_EQ(driver.canUnload(), S_OK);
    FreeLibrary(GetModuleHandleW(kDriver));
    ASSERT_TRUE(GetModuleHandleW(kDriver)) << "its thread library would leak a slot at each unloading";
    dataFolder(L"second");
    create();
    EXPECT_TRUE(RemoveDirectoryW(folder.file(L"second").c_str())) << "a fresh driver chooses its folder anew";
    EXPECT_EQ(driver.canUnload(), S_OK);
}

}  // namespace
}  // namespace zelbar
