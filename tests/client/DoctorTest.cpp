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
    constexpr auto P = Verdict::Problem, N = Verdict::Notice;
    using M = Machine&;
    static constexpr HRESULT kNoSuchModule = HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND);
    static constexpr auto kBadStart = static_cast<long>(0x80080005);
    static const ProgramFile kOld{L"C:\\old.dll", true, L"1.0.0.0", 32};
    static const std::vector<OutlookProcess> kAsking{{7, false, false, true}};
    static const FileFacts kHuge{L"e", true, 1ULL << 30};
    const struct {
        const wchar_t* id;
        Verdict verdict;
        const wchar_t* part;
        void (*harm)(M m);
    } cases[] = {
        {L"driver", P, L"no such file", [](M m) { m.driver.machine.exists = false; }},
        {L"driver-loads", P, L"64-bit", [](M m) { m.driver.machine.bits = 64; }},
        {L"driver-loads", P, L"0x8007007E", [](M m) { m.driver.load = kNoSuchModule; }},
        {L"driver-copies", P, L"1.0.0.0", [](M m) { m.driver.machine = kOld; }},
        {L"type-library", P, L"not registered", [](M m) { m.driver.typeLibrary = {}; }},
        {L"type-library", P, L"cannot be read", [](M m) { m.driver.libraryLoad = TYPE_E_CANTLOADLIBRARY; }},
        {L"type-library", N, L"another file", [](M m) { m.driver.typeLibrary = kOld; }},
        {L"outlook", P, L"only the new",
         [](M m) { m.outlook.program = {}, m.outlook.isNewInstalled = true; }},
        {L"new-outlook", P, L"Only the new",
         [](M m) { m.outlook.processes.clear(), m.outlook.isNewRunning = true; }},
        {L"outlook-rights", P, L"Outlook as administrator",
         [](M m) { m.outlook.processes[0].elevated = true; }},
        {L"outlook-rights", P, L"this program as administrator", [](M m) { m.outlook.areWeElevated = true; }},
        {L"outlook-profile", P, L"which profile",
         [](M m) { m.outlook.processes = kAsking, m.outlook.live = {}; }},
        {L"outlook-profile", N, L"at each start", [](M m) { m.outlook.asksForProfile = true; }},
        {L"outlook-answers", P, L"hangs", [](M m) { m.outlook.live.state = Live::Silent; }},
        {L"outlook-answers", P, L"0x80080005",
         [](M m) { m.outlook.live.state = Live::Failed, m.outlook.live.fault.number = kBadStart; }},
        {L"outlook-answers", N, L"not running", [](M m) { m.outlook.live = {}; }},
        {L"address-switch", N, L"alone", [](M m) { m.outlook.mayReadAddresses.clear(); }},
        {L"dao", P, L"no DAO", [](M m) { m.data.engines.clear(); }},
        {L"dao", P, L"64-bit",
         [](M m) { m.data.engines[0].create = E_FAIL, m.data.engines[0].program.bits = 64; }},
        {L"dao", P, L"0x80004005", [](M m) { m.data.engines[0].create = E_FAIL; }},
        {L"data-folder", P, L"0x80070005", [](M m) { m.data.writeError = ERROR_ACCESS_DENIED; }},
        {L"data-folder", P, L"only 1.0 MB", [](M m) { m.data.freeBytes = 1 << 20; }},
        {L"settings-place", P, L"64-bit", [](M m) { m.data.isSettingInWrongView = true; }},
        {L"settings-place", P, L"private copy", [](M m) { m.data.privateCopy = L"X"; }},
        {L"cache", P, L"empty", [](M m) { m.data.rows = 0; }},
        {L"cache-age", N, L"30 days", [](M m) { m.data.cacheDays = 30.5; }},
        {L"stores", N, L"nobody: 2.", [](M m) { m.data.stores[0].storeId = L"S9"; }},
        {L"folders", N, L"default one", [](M m) { m.folders.chosen.clear(); }},
        {L"folders", P, L"none of them", [](M m) { m.folders.chosen[0].stored.selected = false; }},
        {L"folders", P, L"1 of the 1", [](M m) { m.folders.chosen[0].state = Folder::Gone; }},
        {L"folders", N, L"first 16", [](M m) { m.folders.chosen.resize(17, m.folders.chosen[0]); }},
        {L"folders-changed", N, L"has changed", [](M m) { m.folders.configChanged = true; }},
        {L"synchro", N, L"Another program", [](M m) { m.folders.isSynchroUp = true; }},
        {L"place", N, L"not known", [](M m) { m.trace.place = {}; }},
        {L"errors", N, L"1.0 GB", [](M m) { m.trace.errors = kHuge; }},
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

class BrokenMachineTest : public HostedTest {
  protected:
    static std::wstring classes(const std::wstring& key) { return L"Software\\Classes\\" + key; }
    void registerAs(HKEY root, const std::wstring& path) {
        registry.set(root, driverClassKey() + L"\\InprocServer32", L"", path);
    }
    void number(HKEY root, const std::wstring& key, const std::wstring& name, char value) {
        registry.set(root, key, name, REG_DWORD, std::string{value, 0, 0, 0});
    }
    bool finds(const std::wstring& id, const std::wstring& verdict, const std::wstring& part) {
        run({L"doctor", L"--json"});
        const std::wstring start = L"{\"check\":\"" + id + L"\",\"verdict\":\"" + verdict + L"\"";
        const std::size_t at = out.find(start);
        return at != std::wstring::npos &&
               out.substr(at, out.find(L'}', at) - at).find(part) != std::wstring::npos;
    }
};

TEST_F(BrokenMachineTest, IsSeenThroughTheRegistryAndTheFiles) {
    const std::wstring ownDll = harness::programFolder() + L"\\zelbar00.dll";
    EXPECT_TRUE(finds(L"driver", L"problem", L"not registered"));
    EXPECT_TRUE(finds(L"outlook", L"problem", L"no Outlook"));
    EXPECT_TRUE(finds(L"cache", L"problem", L"no cache"));
    expect(ExitCode::NotFound, {L"doctor"},
           {L"PROBLEM  Driver ", L"-> In the driver's folder, in a command window"});

    registerAs(HKEY_LOCAL_MACHINE, ownDll);
    EXPECT_TRUE(finds(L"driver-loads", L"ok", L""));
    harness::writeFile(folder.file(L"old.dll"), "MZ");
    registerAs(HKEY_CURRENT_USER, folder.file(L"old.dll"));
    EXPECT_TRUE(finds(L"user-registration", L"problem", L"old.dll"));
    EXPECT_TRUE(finds(L"driver-loads", L"problem", L"damaged"));
    registry.set(HKEY_LOCAL_MACHINE, classes(L"zelbar07.cDataConnector"), L"", L"x");
    EXPECT_TRUE(finds(L"other-drivers", L"note", L"zelbar07"));

    registry.set(HKEY_LOCAL_MACHINE, classes(L"Outlook.Application\\CLSID"), L"", L"{O}");
    registry.set(HKEY_LOCAL_MACHINE, classes(L"CLSID\\{O}\\LocalServer32"), L"",
                 L"\"" + harness::programFolder() + L"\\pimcall.exe\" /automation");
    EXPECT_TRUE(finds(L"outlook", L"ok", L"32 bits"));
    number(HKEY_CURRENT_USER, L"Software\\Microsoft\\Office\\16.0\\Outlook\\Preferences", L"UseNewOutlook",
           1);
    EXPECT_TRUE(finds(L"new-outlook", L"note", L"chosen"));
    number(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\Office\\1.1\\Outlook\\Security", L"ObjectModelGuard",
           1);
    EXPECT_TRUE(finds(L"address-guard", L"note", L"ObjectModelGuard is 1"));
    registry.set(HKEY_CURRENT_USER, L"Software\\Microsoft\\Exchange\\Client\\Options", L"PickLogonProfile",
                 L"1");
    EXPECT_TRUE(finds(L"outlook-profile", L"problem", L"no Outlook profile"));

    popup(L"SynchroInProgress", L"1");
    popup(L"SynchroProcess", L"4 0 0");
    EXPECT_TRUE(finds(L"synchro", L"problem", L"killed"));
    popup(L"Country", L"XX");
    EXPECT_TRUE(finds(L"place", L"problem", L"XX"));
    EXPECT_TRUE(finds(L"trace", L"note", L"old.log"));

    writeCache({{L"A", L"1", L"00FF", L"7"}});
    EXPECT_TRUE(finds(L"cache", L"ok", L"1 row"));
    EXPECT_TRUE(finds(L"stores", L"problem", L"have: 1."));
    harness::writeFile(folder.file(L"connec00.mdb"), "no database");
    EXPECT_TRUE(finds(L"cache", L"problem", L"cannot be read"));
    registry.set(HKEY_CURRENT_USER, zelbar::kClientKey, L"DataPath", folder.file(L"none"));
    EXPECT_TRUE(finds(L"data-folder", L"note", L"\\none"));
    EXPECT_FALSE(harness::exists(folder.file(L"none"))) << "changes nothing";
}

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
    const harness::Ended ended = harness::runOwn(L"pimcall.exe", L"doctor");
    EXPECT_EQ(1u, ended.exitCode);
    EXPECT_NE(std::string::npos, ended.out.find("it hangs")) << ended.out;
}

}  // namespace
}  // namespace pimcall::doctor
