#include "tests/harness/Files.h"
#include "tests/harness/RegistrySandbox.h"
#include "tests/standin_dao/Client.h"

namespace client {
namespace {

class FileTest : public DaoTest {
  protected:
    long openError(const std::wstring& path, bool exclusive = false, bool readOnly = false) {
        return errorOf([&] { engine_.object({L"OpenDatabase"}, path, exclusive, readOnly); });
    }
    long count(const Object& database) {
        return std::stol(text(query(database, L"Select Count(*) As N From TCache"), L"N"));
    }
};

TEST_F(FileTest, RefusesFilesThatAreNoDatabases) {
    harness::writeFile(folder_.file(L"empty.mdb"), "");
    harness::writeFile(folder_.file(L"garbage.mdb"), std::string(5000, 'x'));
    harness::writeFile(folder_.file(L"damaged.mdb"),
                       std::string("SQLite format 3\0", 16) + std::string(5000, 'x'));
    EXPECT_EQ(openError(folder_.file(L"missing.mdb")), 3024);
    EXPECT_EQ(openError(L""), 3024);
    EXPECT_EQ(openError(folder_.file(L"nowhere\\test.mdb")), 3044);
    EXPECT_EQ(openError(folder_.file(L"empty.mdb")), 3343);
    EXPECT_EQ(openError(folder_.file(L"garbage.mdb")), 3343);
    EXPECT_EQ(openError(folder_.file(L"damaged.mdb")), 3343);
    EXPECT_EQ(openError(folder_.path()), 3051);
    EXPECT_EQ(errorOf([&] { engine_.object({L"CreateDatabase"}, path_, L""); }), 3204);
    EXPECT_EQ(errorOf([&] { engine_.object({L"CreateDatabase"}, folder_.file(L"no\\x.mdb"), L""); }), 3044);
}

TEST_F(FileTest, ReadOnlyFileOpensForReadingAlone) {
    makeCache({L"Ann"});
    database_.call({L"Close"});
    SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(openError(path_), 3051);
    const Object database = engine_.object({L"OpenDatabase"}, path_, false, true);
    const Object rows = query(database, L"Select * From TCache");
    EXPECT_EQ(text(rows, L"Name"), L"Ann");
    EXPECT_EQ(errorOf([&] { rows.call({L"Delete"}); }), 3027);
    EXPECT_EQ(errorOf([&] { database.call({L"Execute"}, L"DELETE FROM TCache"); }), 3027);
    database.call({L"Close"});
    SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(FileTest, ExclusiveUseKeepsOthersOut) {
    EXPECT_EQ(openError(path_, true), 3045) << "it is open already";
    EXPECT_EQ(openError(path_), 0);
    database_.call({L"Close"});
    const Object database = engine_.object({L"OpenDatabase"}, path_, true);
    EXPECT_EQ(openError(path_), 3356);
    EXPECT_EQ(openError(path_, false, true), 3356);
    database.call({L"Close"});
    EXPECT_EQ(openError(path_), 0);
    EXPECT_FALSE(harness::exists(folder_.file(L"test.ldb")))
        << "the last one to close it takes the lock file away";

    const HANDLE held = CreateFileW(path_.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(openError(path_), 3045);
    CloseHandle(held);
    CreateDirectoryW(folder_.file(L"test.ldb").c_str(), nullptr);
    EXPECT_EQ(openError(path_), 3051) << "no lock file can be made";
    RemoveDirectoryW(folder_.file(L"test.ldb").c_str());
}

TEST_F(FileTest, KeepsWhatWasWrittenAndNothingElse) {
    makeCache({L"Ann", std::wstring(L"\xD83D\xDE00 \x00E9\0x", 6)});
    database_.call({L"Close"});
    database_ = open(path_);
    engine_.call({L"BeginTrans"});
    run(L"DELETE FROM TCache");
    EXPECT_EQ(count(database_), 0);
    database_.call({L"Close"});
    database_ = Object();
    engine_.call({L"Rollback"});
    database_ = open(path_);
    EXPECT_EQ(count(database_), 2) << "a database closed within a transaction gives it up";
    const Object rows = query(L"Select * From TCache Where PhoneNumber = '1002'");
    EXPECT_EQ(text(rows, L"Name"), std::wstring(L"\xD83D\xDE00 \x00E9\0x", 6));
}

TEST_F(FileTest, TransactionsNest) {
    makeCache({L"A", L"B", L"C"});
    EXPECT_EQ(errorOf([&] { engine_.call({L"CommitTrans"}); }), 3034);
    engine_.call({L"BeginTrans"});
    run(L"DELETE FROM TCache WHERE Name = 'A'");
    engine_.call({L"BeginTrans"});
    run(L"DELETE FROM TCache WHERE Name = 'B'");
    engine_.call({L"Rollback"});
    EXPECT_EQ(count(database_), 2);
    engine_.call({L"CommitTrans"});
    EXPECT_EQ(count(open(path_)), 2);
    engine_.call({L"BeginTrans"});
    const Object late = open(path_);
    late.call({L"Execute"}, L"DELETE FROM TCache", kFailOnError);
    engine_.call({L"Rollback"});
    EXPECT_EQ(count(late), 2) << "what is opened inside a transaction takes part in it";
    for (int level = 0; level < 5; ++level) engine_.call({L"BeginTrans"});
    EXPECT_EQ(errorOf([&] { engine_.call({L"BeginTrans"}); }), 3003);
    for (int level = 0; level < 5; ++level) engine_.call({L"Rollback"});
}

TEST_F(FileTest, TwoSessionsOnOneFile) {
    makeCache({L"A", L"B", L"C"});
    const Object workspace = engine_.object({L"CreateWorkspace"}, L"", L"admin", L"", 2);
    const Object other = workspace.object({L"OpenDatabase"}, path_);
    const Object rows = query(other, L"Select * From TCache Order By Name");

    engine_.call({L"BeginTrans"});
    run(L"DELETE FROM TCache");
    for (int row = 0; row < 5000; ++row)
        run(L"INSERT INTO TCache (Name) VALUES ('" + std::wstring(200, L'x') + L"')");
    EXPECT_EQ(count(other), 3) << "what is not committed is not seen, however much it is";
    EXPECT_EQ(errorOf([&] { rows.call({L"Delete"}); }), 3260);
    EXPECT_EQ(text(rows, L"Name"), L"A");
    engine_.call({L"CommitTrans"});
    EXPECT_EQ(count(other), 5000);

    run(L"CREATE TABLE Fresh (A TEXT)");
    EXPECT_EQ(errorOf([&] { query(other, L"Select * From Fresh"); }), 0) << "tables made by others are seen";
    workspace.call({L"Close"});
    EXPECT_EQ(errorOf([&] { count(other); }), 3420);
    EXPECT_EQ(errorOf([&] { workspace.object({L"OpenDatabase"}, path_); }), 3420);
}

TEST_F(FileTest, EnginesShareTheDefaultWorkspace) {
    const Object second = newEngine();
    const Object workspace = second.object({L"Workspaces"}, 0);
    EXPECT_EQ(workspace.object({L"Databases"}).integer({L"Count"}), 1);
    second.call({L"SetOption"}, 62, 500000);
    EXPECT_EQ(host_.server().option(L"SetOption 62"), L"500000");
    EXPECT_EQ(errorOf([&] { second.object({L"CreateWorkspace"}, L"", L"somebody", L""); }), 3029);
    EXPECT_EQ(errorOf([&] { second.object({L"CreateWorkspace"}, L"", L"admin", L"secret"); }), 3029);
}

TEST_F(FileTest, FailsAsOrdered) {
    makeCache({L"Ann"});
    host_.server().faults().failMember(
        L"Recordset.Delete", {static_cast<HRESULT>(0x800A0C92), L"Could not update; currently locked."}, 1);
    const Object rows = query(L"Select * From TCache");
    EXPECT_EQ(errorOf([&] { rows.call({L"Delete"}); }), 3218);
    EXPECT_EQ(text(rows, L"Name"), L"Ann");
    EXPECT_EQ(errorOf([&] { rows.call({L"Delete"}); }), 0);
    EXPECT_EQ(engine_.object({L"StandIn"}).integer({L"CallCount"}, L"Recordset.Delete"), 2);
}

/// The server as a file of its own, as COM loads it.
class ModuleTest : public testing::Test {
  protected:
    ~ModuleTest() override { FreeLibrary(module_); }

    template <class Function>
    Function exported(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    }
    using Plain = HRESULT(STDAPICALLTYPE*)();
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);

    const HMODULE module_ = LoadLibraryW(L"dao_standin.dll");
};

TEST_F(ModuleTest, ServesTheClassUntilItsObjectsAreGone) {
    const auto getClassObject = exported<GetClassObject>("DllGetClassObject");
    const auto canUnload = exported<Plain>("DllCanUnloadNow");
    {
        zelbar::Com<IClassFactory> factory;
        ASSERT_EQ(getClassObject(standin::dao::kEngineClass, __uuidof(IClassFactory),
                                 reinterpret_cast<void**>(factory.put())),
                  S_OK);
        zelbar::Com<IDispatch> engine;
        ASSERT_EQ(
            factory->CreateInstance(nullptr, __uuidof(IDispatch), reinterpret_cast<void**>(engine.put())),
            S_OK);
        EXPECT_EQ(canUnload(), S_FALSE);
        EXPECT_EQ(
            getClassObject(CLSID_NULL, __uuidof(IClassFactory), reinterpret_cast<void**>(factory.put())),
            CLASS_E_CLASSNOTAVAILABLE);
    }
    EXPECT_EQ(canUnload(), S_OK);
}

TEST_F(ModuleTest, RegistersAndUnregistersItself) {
    harness::RegistrySandbox registry;
    const std::wstring root = L"Software\\Classes\\";
    const std::wstring server = root + L"CLSID\\{00000100-0000-0010-8000-00AA006D2EA4}\\InprocServer32";
    ASSERT_EQ(exported<Plain>("DllRegisterServer")(), S_OK);
    EXPECT_EQ(registry.get(HKEY_LOCAL_MACHINE, root + L"DAO.DBEngine.36\\CLSID", L""),
              L"{00000100-0000-0010-8000-00AA006D2EA4}");
    EXPECT_EQ(registry.get(HKEY_LOCAL_MACHINE, server, L"ThreadingModel"), L"Apartment");
    const std::wstring path = registry.get(HKEY_LOCAL_MACHINE, server, L"").value_or(L"");
    EXPECT_TRUE(harness::exists(path)) << path;
    ASSERT_EQ(exported<Plain>("DllUnregisterServer")(), S_OK);
    EXPECT_FALSE(registry.get(HKEY_LOCAL_MACHINE, server, L""));
}

}  // namespace
}  // namespace client
