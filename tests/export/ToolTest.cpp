#include "tests/client/ProgramRun.h"
#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

using pimcall::ExitCode;
using standin::outlook::ItemType;

/// `pimcall export`, with this driver.
class ExportTool : public ExportTest {
  protected:
    void SetUp() override {
        ExportTest::SetUp();
        fill(2);
    }
    void expect(ExitCode exitCode, const std::wstring& said, std::vector<std::wstring> words) {
        words.insert(words.begin(), L"export");
        if (words[1] != L"adopt") words.insert(words.end(), {L"--database", folder.file(L"wxd.mdb")});
        const pimcall::ProgramRun run(words, [this] { return pimcall::Driver(&connector()); });
        EXPECT_EQ(run.exitCode, exitCode) << run.error.c_str();
        EXPECT_NE((run.out + run.error).find(said), std::wstring::npos) << (run.out + run.error).c_str();
        EXPECT_TRUE(told.empty()) << "a scheduled run waits for nobody";
    }
    void forget() {
        for (const wchar_t* name : {L"EntryId", L"StoreId"})
            registry.set(HKEY_CURRENT_USER, kExportFolderKey, name, L"");
    }
};

TEST_P(ExportTool, SaysWhatIsTheMatterAndWhatToDo) {
    expect(ExitCode::Failed, L"There is no export folder", {L"sync"});
    expect(ExitCode::Failed, L"--folder NAME", {L"init"});
    const auto own = mailbox.addFolder(root, L"staff", ItemType::Mail);
    expect(ExitCode::Failed, L"There is a folder \"Staff\" already", {L"sync", L"--folder", L"Staff"});
    mailbox.eraseFolder(own.id);
    expect(ExitCode::Found, L"The employees are in the export folder.\n", {L"init", L"--folder", L"Staff"});
    expect(ExitCode::Found, L"{\"complete\":true}\n", {L"sync", L"--json"});
    EXPECT_EQ(employeeIds(), (Ids{1, 2}));
    faults().failMember(L"Items.Count", {E_FAIL, L"No."}, 2);
    expect(ExitCode::Failed, L"The export is not complete", {L"sync"});
    mailbox.moveFolder(folderCalled(L"Staff").id,
                       mailbox.specialFolder(standin::outlook::SpecialFolder::DeletedItems).id);
    expect(ExitCode::Failed, L"lies in Deleted Items", {L"init", L"--folder", L"Staff"});
}

TEST_P(ExportTool, AnotherComputerAdoptsTheFolder) {
    EXPECT_TRUE(initialize());
    forget();
    expect(ExitCode::Usage, L"--folder", {L"adopt"});
    expect(ExitCode::Failed, L"There is no contacts folder \"Firm\"", {L"adopt", L"--folder", L"Firm"});
    const auto own = mailbox.addFolder(root, L"Mine", ItemType::Contact);
    mailbox.addContact(own.id, {{L"LastName", L"A user's own"}});
    expect(ExitCode::Failed, L"no export has made", {L"adopt", L"--folder", L"Mine"});
    mailbox.addFolder(own.id, L"staff", ItemType::Contact);
    expect(ExitCode::Failed, L"\\Personal Folders\\Mine\\staff", {L"adopt", L"--folder", L"Staff"});
    mailbox.eraseFolder(own.id);
    for (const wchar_t* name : {L"\\Personal Folders\\Staff", L"staff"}) {
        forget();
        expect(ExitCode::Found, L"\\Personal Folders\\Staff", {L"adopt", L"--folder", name});
    }
    sql({L"Delete From Employees Where EmployeeId = 2"});
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(employeeIds(), Ids{1});
}

INSTANTIATE_TEST_SUITE_P(BothWays, ExportTool, testing::Bool());

}  // namespace

}  // namespace zelbar
