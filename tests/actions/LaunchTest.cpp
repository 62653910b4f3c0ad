#include <windows.h>

#include "support/mLogError.h"
#include "tests/actions/ActionTest.h"

namespace zelbar {

namespace {

/// A message window that only takes notes.
struct NotedWindow final : MessageWindow {
    bool open = false;
    int shownAgain = 0;
    std::vector<std::wstring> messages;

    bool isOpen() const noexcept override { return open; }
    void ShowMessage(const std::wstring& title, int option, const std::wstring& text) override {
        open = true;
        messages.push_back(title + L"|" + std::to_wstring(option) + L"|" + text);
    }
    void Show() override { ++shownAgain; }
};

class Launch : public ActionTest {
  protected:
    Launch() { driver().user.messageWindow = &window; }

    Com<::CallAction> launch(const std::wstring& path, const std::wstring& arguments) {
        return action(kLaunch, {{L"Path", path}, {L"Arguments", arguments}});
    }
    /// The messages of failed starts since the last call.
    std::vector<std::wstring> failures() {
        window.open = false;
        return std::exchange(window.messages, {});
    }
    static std::wstring failureOf(const std::wstring& command) {
        return L"__NO_TITLE__|0|" + GetSystemErrorText(ERROR_FILE_NOT_FOUND) + L": " + command + L".";
    }

    NotedWindow window;
};

TEST_F(Launch, TheCommandLineIsPutTogether) {
    const std::wstring call = L"TYPE=outgoing;ORIGIN=desk;LOCALNUMBER=12;PHONENUMBER=0123;";
    const struct {
        const wchar_t *path, *arguments;
        std::wstring information;
        const wchar_t* command;
    } cases[] = {
        {L"C:\\None", L"dial.exe $1", call, L"C:\\None\\dial.exe 0123"},
        {L"C:\\None\\", L"dial.exe", call, L"C:\\None\\dial.exe"},
        {L"C:\\None", L"\\dial.exe", call, L"C:\\None\\dial.exe"},
        {L"C:\\None\\", L"\\dial.exe", call, L"C:\\None\\\\dial.exe"},
        {L"", L"none.exe", call, L"\\none.exe"},
        {L"C:\\None", L"", call, L"C:\\None\\"},
        {L"C:\\N\\", L"d $1 $2 $3 $4 $1", call, L"C:\\N\\d 0123 12 OUT desk 0123"},
        {L"C:\\N\\", L"d $3", L"TYPE=incoming;", L"C:\\N\\d INC"},
        {L"C:\\N\\", L"d $3", L"TYPE=Outgoing;", L"C:\\N\\d INC"},
        {L"C:\\N\\", L"d $1$2$3$4", L"", L"C:\\N\\d ;;;;"},
        {L"C:\\N\\", L"d $1", L"PHONENUMBER=$2;LOCALNUMBER=9;", L"C:\\N\\d 9"},
        {L"C:\\N\\", L"d $4", L"ORIGIN=$1$4;", L"C:\\N\\d $1$4"},
    };
    for (const auto& c : cases) {
        run(*launch(c.path, c.arguments), unknown(c.information));
        EXPECT_EQ(failures(), std::vector<std::wstring>{failureOf(c.command)});
    }
    EXPECT_TRUE(traced("From Popup PersonalData(CALLORIGIN)=desk"));
    EXPECT_TRUE(traced("From Popup PersonalData(PHONENUMBER)=0123"));
}

TEST_F(Launch, TheFolderIsKeptWithItsBackslashAndTheOpenWindowWithItsText) {
    const auto dial = launch(L"C:\\None", L"dial.exe");
    for (const Com<::Contact>& caller : {Com<::Contact>(unknown()), Com<::Contact>()}) {
        run(*dial, caller);
        EXPECT_EQ(valueOf(*dial, L"Path"), L"C:\\None\\");
    }
    EXPECT_EQ(window.shownAgain, 1);
    EXPECT_EQ(failures().size(), 1u);
}

TEST_F(Launch, ProgramsBatchFilesAndDocumentsAreStarted) {
    const std::wstring tools = folder.makeFolder(L"my tools");
    for (const wchar_t* name : {L"\\dial.bat", L"\\ring up.cmd"})
        harness::writeFile(tools + name, "@echo %~n0 %1 %2>\"%~dp0%1.txt\"\r\n");
    harness::writeFile(tools + L"\\my note.zelbardoc", "note");
    registry.set(HKEY_CLASSES_ROOT, L".zelbardoc", L"", L"zelbar.document");
    registry.set(HKEY_CLASSES_ROOT, L"zelbar.document\\shell\\open\\command", L"",
                 L"cmd.exe /c copy \"%1\" \"%1.opened\"");
    wchar_t windowsFolder[MAX_PATH];
    GetWindowsDirectoryW(windowsFolder, MAX_PATH);
    const std::wstring system = std::wstring(windowsFolder) + L"\\system32";
    const struct {
        std::wstring path, arguments;
        const wchar_t* file;
        const char* text;
    } cases[] = {
        {tools, L"dial.bat a $1", L"a.txt", "dial a 77\r\n"},
        {tools, L"ring up.cmd b $1", L"b.txt", "ring up b 77\r\n"},
        {L"\"" + tools, L"dial.bat\" c $1", L"c.txt", "dial c 77\r\n"},
        {system, L"cmd.exe /c echo $1>\"" + tools + L"\\d.txt\"", L"d.txt", "77\r\n"},
        {tools, L"my note.zelbardoc", L"my note.zelbardoc.opened", "note"},
        {system, L"cmd /c echo $1>\"" + tools + L"\\e.txt\"", L"e.txt", "77\r\n"},
    };
    for (const auto& c : cases) {
        run(*launch(c.path, c.arguments), unknown(L"PHONENUMBER=77;"));
        EXPECT_EQ(harness::awaitFile(tools + L"\\" + c.file), c.text);
    }
    EXPECT_TRUE(failures().empty());
    for (const wchar_t* key : {L".zelbardoc", L"zelbar.document"}) RegDeleteTreeW(HKEY_CLASSES_ROOT, key);
}

}  // namespace

}  // namespace zelbar
