#include <algorithm>

#include "client/doctor/AskOutlook.h"
#include "client/doctor/Finding.h"
#include "client/doctor/Machine.h"
#include "tests/client/HostedTest.h"
#include "tests/harness/Process.h"

namespace pimcall::doctor {
namespace {

using Live = LiveOutlook::State;
using Folder = ChosenFolder::State;

Machine healthy() {
    const ProgramFile driver{L"C:\\T\\zelbar00.dll", true, L"1.1.0.0", 32};
    Machine m;
    m.driver.machine = m.driver.typeLibrary = m.driver.beside = driver;
    m.outlook.program = {L"C:\\Office\\OUTLOOK.EXE", true, L"16.0.1.2", 64};
    m.outlook.processes = {{7, false, true, false}};
    m.outlook.live = {Live::Answers, L"16.0.0.1", {{L"Own", L"S1"}}, true, {}};
    m.outlook.guard.isSilent = true;
    m.outlook.mayReadAddresses = L"0";
    m.data.engines = {{L"DAO.DBEngine.36", {L"C:\\dao360.dll", true, L"3.6", 32}, S_OK}};
    m.data.folder = L"C:\\Data";
    m.data.folderExists = m.data.cacheExists = true;
    m.data.freeBytes = 1ULL << 30;
    m.data.rows = 2;
    m.data.stores = {{L"1", L"S1", 2}};
    m.folders.chosen = {{{L"E1", L"S1", true}, Folder::There}};
    m.trace.place.place.region = L"DE";
    return m;
}

Finding findingOf(const std::wstring& id, const Machine& machine) {
    for (const Check& check : allChecks())
        if (check.id == id) return check.run(machine);
    ADD_FAILURE() << "no such check";
    return good(L"");
}

TEST(Doctor, HasNothingToSayOfAHealthyMachine) {
    for (const Check& check : allChecks()) {
        const Finding finding = check.run(healthy());
        EXPECT_EQ(Verdict::Good, finding.verdict) << finding.what.c_str();
        EXPECT_EQ(L"", finding.fix);
    }
}

TEST(Doctor, EachCheckSeesWhatIsWrong) {
    const struct {
        const wchar_t* id;
        Verdict verdict;
        const wchar_t* part;
        void (*harm)(Machine& m);
    } cases[] = {
        {L"driver", Verdict::Problem, L"not registered", [](Machine& m) { m.driver.machine = {}; }},
        {L"driver", Verdict::Problem, L"no such file", [](Machine& m) { m.driver.machine.exists = false; }},
        {L"driver-loads", Verdict::Problem, L"64-bit", [](Machine& m) { m.driver.machine.bits = 64; }},
        {L"driver-loads", Verdict::Problem, L"damaged", [](Machine& m) { m.driver.machine.bits = 0; }},
        {L"driver-loads", Verdict::Problem, L"0x8007007E",
         [](Machine& m) { m.driver.load = HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND); }},
        {L"user-registration", Verdict::Problem, L"hides",
         [](Machine& m) {
             m.driver.user = {L"C:\\old.dll", true, L"1.0.0.0", 32};
         }},
        {L"user-registration", Verdict::Notice, L"twice",
         [](Machine& m) { m.driver.user = m.driver.machine; }},
        {L"user-registration", Verdict::Notice, L"elevated",
         [](Machine& m) { m.driver.user = std::exchange(m.driver.machine, {}); }},
        {L"driver-copies", Verdict::Problem, L"1.0.0.0",
         [](Machine& m) {
             m.driver.machine = {L"C:\\old.dll", true, L"1.0.0.0", 32};
         }},
        {L"driver-copies", Verdict::Notice, L"another file is registered",
         [](Machine& m) { m.driver.beside.path = L"C:\\copy.dll"; }},
        {L"other-drivers", Verdict::Notice, L"zelbar07",
         [](Machine& m) { m.driver.otherDrivers = {L"zelbar07.cDataConnector"}; }},
        {L"type-library", Verdict::Problem, L"not registered", [](Machine& m) { m.driver.typeLibrary = {}; }},
        {L"type-library", Verdict::Problem, L"no such file",
         [](Machine& m) { m.driver.typeLibrary.exists = false; }},
        {L"type-library", Verdict::Problem, L"cannot be read",
         [](Machine& m) { m.driver.libraryLoad = TYPE_E_CANTLOADLIBRARY; }},
        {L"type-library", Verdict::Notice, L"another file",
         [](Machine& m) { m.driver.typeLibrary.path = L"C:\\old.dll"; }},
        {L"outlook", Verdict::Problem, L"no Outlook", [](Machine& m) { m.outlook.program = {}; }},
        {L"outlook", Verdict::Problem, L"only the new",
         [](Machine& m) { m.outlook.program = {}, m.outlook.isNewInstalled = true; }},
        {L"outlook", Verdict::Problem, L"no such file", [](Machine& m) { m.outlook.program.exists = false; }},
        {L"outlook", Verdict::Problem, L"no program", [](Machine& m) { m.outlook.program.bits = 0; }},
        {L"new-outlook", Verdict::Problem, L"Only the new",
         [](Machine& m) { m.outlook.processes.clear(), m.outlook.isNewRunning = true; }},
        {L"new-outlook", Verdict::Notice, L"chosen", [](Machine& m) { m.outlook.isNewPreferred = true; }},
        {L"outlook-rights", Verdict::Problem, L"Outlook as administrator",
         [](Machine& m) { m.outlook.processes[0].elevated = true; }},
        {L"outlook-rights", Verdict::Problem, L"this program as administrator",
         [](Machine& m) { m.outlook.areWeElevated = true; }},
        {L"outlook-rights", Verdict::Problem, L"different",
         [](Machine& m) { m.outlook.processes[0].elevated.reset(); }},
        {L"outlook-profile", Verdict::Problem, L"which profile",
         [](Machine& m) {
             m.outlook.processes = {{7, false, false, true}}, m.outlook.live = {};
         }},
        {L"outlook-profile", Verdict::Problem, L"no Outlook profile",
         [](Machine& m) { m.outlook.hasProfile = false; }},
        {L"outlook-profile", Verdict::Notice, L"at each start",
         [](Machine& m) { m.outlook.asksForProfile = true; }},
        {L"outlook-answers", Verdict::Problem, L"busy",
         [](Machine& m) { m.outlook.live.state = Live::Busy; }},
        {L"outlook-answers", Verdict::Problem, L"hangs",
         [](Machine& m) { m.outlook.live.state = Live::Silent; }},
        {L"outlook-answers", Verdict::Problem, L"0x80080005",
         [](Machine& m) {
             m.outlook.live = {Live::Failed, L"", {}, false, {static_cast<long>(0x80080005), L"", L""}};
         }},
        {L"outlook-answers", Verdict::Notice, L"not running", [](Machine& m) { m.outlook.live = {}; }},
        {L"address-guard", Verdict::Notice, L"G is 1",
         [](Machine& m) {
             m.outlook.guard = {false, L"G is 1"};
         }},
        {L"address-switch", Verdict::Notice, L"alone",
         [](Machine& m) { m.outlook.mayReadAddresses.clear(); }},
        {L"dao", Verdict::Problem, L"no DAO", [](Machine& m) { m.data.engines.clear(); }},
        {L"dao", Verdict::Problem, L"64-bit",
         [](Machine& m) { m.data.engines[0].create = E_FAIL, m.data.engines[0].program.bits = 64; }},
        {L"dao", Verdict::Problem, L"no such file",
         [](Machine& m) { m.data.engines[0].create = E_FAIL, m.data.engines[0].program.exists = false; }},
        {L"dao", Verdict::Problem, L"0x80004005", [](Machine& m) { m.data.engines[0].create = E_FAIL; }},
        {L"data-folder", Verdict::Notice, L"not exist", [](Machine& m) { m.data.folderExists = false; }},
        {L"data-folder", Verdict::Problem, L"0x80070005",
         [](Machine& m) { m.data.writeError = ERROR_ACCESS_DENIED; }},
        {L"data-folder", Verdict::Problem, L"only 1.0 MB", [](Machine& m) { m.data.freeBytes = 1 << 20; }},
        {L"settings-place", Verdict::Problem, L"64-bit",
         [](Machine& m) { m.data.isSettingInWrongView = true; }},
        {L"settings-place", Verdict::Problem, L"private copy", [](Machine& m) { m.data.privateCopy = L"X"; }},
        {L"cache", Verdict::Problem, L"no cache", [](Machine& m) { m.data.cacheExists = false; }},
        {L"cache", Verdict::Problem, L"(3343)",
         [](Machine& m) {
             m.data.cacheFault = {3343, L"Bad.", L""};
         }},
        {L"cache", Verdict::Problem, L"empty", [](Machine& m) { m.data.rows = 0; }},
        {L"cache-age", Verdict::Notice, L"30 days", [](Machine& m) { m.data.cacheDays = 30.5; }},
        {L"stores", Verdict::Problem, L"5 rows", [](Machine& m) { m.data.rowsWithoutStore = 5; }},
        {L"stores", Verdict::Notice, L"their 2 rows", [](Machine& m) { m.data.stores[0].storeId = L"S9"; }},
        {L"stores", Verdict::Notice, L"did not say", [](Machine& m) { m.outlook.live.storesKnown = false; }},
        {L"folders", Verdict::Notice, L"default one", [](Machine& m) { m.folders.chosen.clear(); }},
        {L"folders", Verdict::Problem, L"none of them",
         [](Machine& m) { m.folders.chosen[0].stored.selected = false; }},
        {L"folders", Verdict::Problem, L"1 of the 1",
         [](Machine& m) { m.folders.chosen[0].state = Folder::Gone; }},
        {L"folders", Verdict::Notice, L"first 16",
         [](Machine& m) { m.folders.chosen.resize(17, m.folders.chosen[0]); }},
        {L"folders-changed", Verdict::Notice, L"has changed",
         [](Machine& m) { m.folders.configChanged = true; }},
        {L"synchro", Verdict::Notice, L"Another program", [](Machine& m) { m.folders.isSynchroUp = true; }},
        {L"synchro", Verdict::Problem, L"killed",
         [](Machine& m) { m.folders.isSynchroUp = true, m.folders.synchroProcess = L"1 2 3"; }},
        {L"place", Verdict::Notice, L"not known", [](Machine& m) { m.trace.place = {}; }},
        {L"place", Verdict::Problem, L"Bad country.",
         [](Machine& m) { m.trace.placeError = L"Bad country."; }},
        {L"trace", Verdict::Notice, L"in a window", [](Machine& m) { m.trace.mode = L"1"; }},
        {L"trace", Verdict::Notice, L"every call's", [](Machine& m) { m.trace.mode = L"2"; }},
        {L"trace", Verdict::Notice, L"is left", [](Machine& m) { m.trace.trace.bytes = 1ULL << 30; }},
        {L"errors", Verdict::Notice, L"1.0 GB",
         [](Machine& m) {
             m.trace.errors = {L"e", true, 1ULL << 30};
         }},
    };
    for (const auto& row : cases) {
        Machine machine = healthy();
        row.harm(machine);
        const Finding finding = findingOf(row.id, machine);
        EXPECT_EQ(row.verdict, finding.verdict) << finding.what.c_str();
        EXPECT_NE(std::wstring::npos, finding.what.find(row.part)) << finding.what.c_str();
        EXPECT_NE(L"", finding.fix);
    }
}

/// Machines broken where Windows keeps the things that are looked at.
class BrokenMachineTest : public HostedTest {
  protected:
    static std::wstring classes(const std::wstring& key) { return L"Software\\Classes\\" + key; }
    void registerAs(HKEY root, const std::wstring& path) {
        registry.set(root, driverClassKey() + L"\\InprocServer32", L"", path);
    }
    void popup(const std::wstring& name, const std::wstring& value) {
        registry.set(HKEY_CURRENT_USER, zelbar::kPopupKey, name, value);
    }
    void number(HKEY root, const std::wstring& key, const std::wstring& name, char value) {
        registry.set(root, key, name, REG_DWORD, std::string{value, 0, 0, 0});
    }
    bool says(const std::wstring& id, const std::wstring& verdict, const std::wstring& part) {
        run({L"doctor", L"--json"});
        const std::wstring start = L"{\"check\":\"" + id + L"\",\"verdict\":\"" + verdict + L"\"";
        const std::size_t at = out.find(start);
        return at != std::wstring::npos &&
               out.substr(at, out.find(L'}', at) - at).find(part) != std::wstring::npos;
    }
};

TEST_F(BrokenMachineTest, IsSeenThroughTheRegistryAndTheFiles) {
    const std::wstring ownDll = harness::programFolder() + L"\\zelbar00.dll";
    EXPECT_TRUE(says(L"driver", L"problem", L"not registered"));
    EXPECT_TRUE(says(L"outlook", L"problem", L"no Outlook"));
    EXPECT_TRUE(says(L"cache", L"problem", L"no cache"));
    EXPECT_EQ(ExitCode::NotFound, run({L"doctor"}));
    EXPECT_NE(std::wstring::npos, out.find(L"PROBLEM  Driver ")) << out.c_str();
    EXPECT_NE(std::wstring::npos, out.find(L"-> In the driver's folder, in a command window"));

    registerAs(HKEY_LOCAL_MACHINE, ownDll);
    EXPECT_TRUE(says(L"driver-loads", L"ok", L""));
    harness::writeFile(folder.file(L"old.dll"), "MZ");
    registerAs(HKEY_CURRENT_USER, folder.file(L"old.dll"));
    EXPECT_TRUE(says(L"user-registration", L"problem", L"old.dll"));
    EXPECT_TRUE(says(L"driver-loads", L"problem", L"damaged"));
    registry.set(HKEY_LOCAL_MACHINE, classes(L"zelbar07.cDataConnector"), L"", L"x");
    EXPECT_TRUE(says(L"other-drivers", L"note", L"zelbar07"));

    registry.set(HKEY_LOCAL_MACHINE, classes(L"Outlook.Application\\CLSID"), L"", L"{O}");
    registry.set(HKEY_LOCAL_MACHINE, classes(L"CLSID\\{O}\\LocalServer32"), L"",
                 L"\"" + harness::programFolder() + L"\\pimcall.exe\" /automation");
    EXPECT_TRUE(says(L"outlook", L"ok", L"32 bits"));
    number(HKEY_CURRENT_USER, L"Software\\Microsoft\\Office\\16.0\\Outlook\\Preferences", L"UseNewOutlook",
           1);
    EXPECT_TRUE(says(L"new-outlook", L"note", L"chosen"));
    number(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\Office\\1.1\\Outlook\\Security", L"ObjectModelGuard",
           1);
    EXPECT_TRUE(says(L"address-guard", L"note", L"ObjectModelGuard is 1"));
    registry.set(HKEY_CURRENT_USER, L"Software\\Microsoft\\Exchange\\Client\\Options", L"PickLogonProfile",
                 L"1");
    EXPECT_TRUE(says(L"outlook-profile", L"problem", L"no Outlook profile"));

    popup(L"SynchroInProgress", L"1");
    popup(L"SynchroProcess", L"4 0 0");
    EXPECT_TRUE(says(L"synchro", L"problem", L"killed"));
    popup(L"Country", L"XX");
    EXPECT_TRUE(says(L"place", L"problem", L"XX"));
    EXPECT_TRUE(says(L"trace", L"note", L"old.log"));

    writeCache({{L"A", L"1", L"00FF", L"7"}});
    EXPECT_TRUE(says(L"cache", L"ok", L"1 row"));
    EXPECT_TRUE(says(L"stores", L"problem", L"1 rows"));
    harness::writeFile(folder.file(L"connec00.mdb"), "no database");
    EXPECT_TRUE(says(L"cache", L"problem", L"cannot be read"));
    registry.set(HKEY_CURRENT_USER, zelbar::kClientKey, L"DataPath", folder.file(L"none"));
    EXPECT_TRUE(says(L"data-folder", L"note", L"\\none"));
    EXPECT_FALSE(harness::exists(folder.file(L"none"))) << "changes nothing";
}

/// An Outlook that a user has started.
class RunningOutlook : public testing::Test {
  protected:
    harness::TemporaryFolder folder;
    standin::outlook::Host outlook{folder.file(L"mailbox.db"),
                                   standin::outlook::Host::Mode::InProcessAndRunning};
};

TEST_F(RunningOutlook, IsAskedForItsStoresAndTheChosenFolders) {
    auto& mailbox = outlook.mailbox();
    const auto contacts = mailbox.specialFolder(standin::outlook::SpecialFolder::Contacts);
    std::vector<ChosenFolder> folders = {{{mailbox.entryId(contacts), mailbox.storeId(contacts.store), true}},
                                         {{L"00FF", mailbox.storeId(contacts.store), true}}};
    const LiveOutlook live = askOutlook(false, folders);
    EXPECT_EQ(Live::Answers, live.state) << live.fault.description.c_str();
    ASSERT_EQ(1u, live.stores.size());
    EXPECT_EQ(mailbox.storeId(contacts.store), live.stores[0].storeId);
    EXPECT_EQ(Folder::There, folders[0].state);
    EXPECT_EQ(Folder::Gone, folders[1].state);
    outlook.server().faults().failAll({RPC_E_CALL_REJECTED});
    EXPECT_EQ(Live::Busy, askOutlook(false, folders).state);
    outlook.server().faults().clear();
}

// This thread waits for the program and serves no calls: an Outlook that hangs.
TEST_F(RunningOutlook, ThatHangsIsNotWaitedFor) {
    const harness::Ended ended = harness::run(L"\"" + harness::programFolder() + L"\\pimcall.exe\" doctor");
    EXPECT_EQ(1u, ended.exitCode);
    EXPECT_NE(std::string::npos, ended.out.find("it hangs")) << ended.out;
}

}  // namespace
}  // namespace pimcall::doctor
