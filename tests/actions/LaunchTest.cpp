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

/// A kind of document and the program that opens it, as long as it lives.
class Association {
  public:
    Association(std::wstring extension, const std::wstring& command) : extension_(std::move(extension)) {
        write(extension_, L"zelbar.document");
        write(L"zelbar.document\\shell\\open\\command", command);
    }
    ~Association() {
        RegDeleteTreeW(HKEY_CLASSES_ROOT, extension_.c_str());
        RegDeleteTreeW(HKEY_CLASSES_ROOT, L"zelbar.document");
    }

  private:
    static void write(const std::wstring& key, const std::wstring& text) {
        EXPECT_EQ(RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, text.c_str(),
                                  static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
                  ERROR_SUCCESS);
    }
    std::wstring extension_;
};

class Launch : public ActionTest {
  protected:
    Launch() { driver().user.messageWindow = &window; }

    /// The command line that an action with these settings makes, read from the message of its failed start.
    std::wstring commandFor(const std::wstring& path, const std::wstring& arguments,
                            const std::wstring& callInformation) {
        window.open = false;
        run(*action(kLaunch, {{L"Path", path}, {L"Arguments", arguments}}), unknown(callInformation));
        const std::wstring expected = L"__NO_TITLE__|0|" + GetSystemErrorText(ERROR_FILE_NOT_FOUND) + L": ";
        if (window.messages.empty()) return L"(started)";
        std::wstring message = window.messages.back();
        window.messages.clear();
        if (!message.starts_with(expected) || !message.ends_with(L".")) return message;
        return message.substr(expected.size(), message.size() - expected.size() - 1);
    }
    /// What a started program has written; waited for, since nobody waits for the program.
    static std::string written(const std::wstring& path) {
        for (int i = 0; i < 200 && !harness::exists(path); ++i) Sleep(50);
        Sleep(50);
        return harness::exists(path) ? harness::readFile(path) : "(nothing)";
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
    for (const auto& c : cases) EXPECT_EQ(commandFor(c.path, c.arguments, c.information), c.command);
    EXPECT_TRUE(traced("From Popup PersonalData(CALLORIGIN)=desk"));
    EXPECT_TRUE(traced("From Popup PersonalData(PHONENUMBER)=0123"));
}

TEST_F(Launch, TheFolderIsKeptWithItsBackslash) {
    const auto launch = action(kLaunch, {{L"Path", L"C:\\None"}, {L"Arguments", L"dial.exe"}});
    run(*launch, unknown());
    EXPECT_EQ(valueOf(*launch, L"Path"), L"C:\\None\\");
    run(*launch, {});
    EXPECT_EQ(valueOf(*launch, L"Path"), L"C:\\None\\");
    EXPECT_EQ(window.messages.size(), 1u) << "the open window keeps its text";
    EXPECT_EQ(window.shownAgain, 1);
    EXPECT_TRUE(traced("Item is nothing..."));
}

TEST_F(Launch, ProgramsBatchFilesAndDocumentsAreStarted) {
    const std::wstring tools = folder.makeFolder(L"my tools");
    const auto batch = [&](const wchar_t* name) {
        harness::writeFile(tools + L"\\" + name, "@echo %~n0 %1 %2>\"%~dp0%1.txt\"\r\n");
    };
    batch(L"dial.bat");
    batch(L"ring up.cmd");
    const Association document(L".zelbardoc", L"cmd.exe /c copy \"%1\" \"%1.opened\"");
    harness::writeFile(tools + L"\\my note.zelbardoc", "note");
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
        run(*action(kLaunch, {{L"Path", c.path}, {L"Arguments", c.arguments}}), unknown(L"PHONENUMBER=77;"));
        EXPECT_EQ(written(tools + L"\\" + c.file), c.text);
    }
    EXPECT_TRUE(window.messages.empty()) << "nothing failed";
}

}  // namespace

}  // namespace zelbar
