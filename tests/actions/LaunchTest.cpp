#include <algorithm>

#include "tests/actions/ActionTest.h"
#include "tests/dialogs/Windows.h"

namespace zelbar {

namespace {

/// A failed start opens the window that tells why.
class Launch : public ActionTest {
  protected:
    Launch() { connector(); }

    static Object launch(const std::wstring& path, const std::wstring& arguments) {
        return action(kLaunch, {{L"Path", path}, {L"Arguments", arguments}});
    }
    /// What the window says, which goes; empty without one.
    static std::wstring failure() {
        std::wstring said;
        for (const HWND window : openDialogs()) {
            said += windowText(GetDlgItem(window, 0));
            DestroyWindow(window);
        }
        return said;
    }
};

TEST_F(Launch, TheCommandLineIsPutTogetherAndTheFolderKeptWithItsBackslash) {
    const std::wstring call = L"TYPE=outgoing;ORIGIN=desk;LOCALNUMBER=12;PHONENUMBER=0123;";
    const struct {
        const wchar_t *path, *arguments;
        std::wstring information;
        const wchar_t* command;
    } cases[] = {
        {L"C:\\None", L"dial.exe $1", call, L"C:\\None\\dial.exe 0123"},
        {L"C:\\None\\", L"\\dial.exe", call, L"C:\\None\\\\dial.exe"},
        {L"C:\\N\\", L"d $1 $2 $3 $4 $1", call, L"C:\\N\\d 0123 12 OUT desk 0123"},
        {L"C:\\N\\", L"d $3", L"TYPE=Outgoing;", L"C:\\N\\d INC"},
        {L"C:\\N\\", L"d $1$2$3$4", L"", L"C:\\N\\d ;;;;"},
        {L"C:\\N\\", L"d $1", L"PHONENUMBER=$2;LOCALNUMBER=9;", L"C:\\N\\d 9"},
        {L"C:\\N\\", L"d $4", L"ORIGIN=$1$4;", L"C:\\N\\d $1$4"},
    };
    for (const auto& c : cases) {
        const Object dial = launch(c.path, c.arguments);
        run(dial, unknown(c.information));
        EXPECT_EQ(failure(), GetSystemErrorText(ERROR_FILE_NOT_FOUND) + L": " + c.command + L".");
        EXPECT_TRUE(valueOf(dial, L"Path").ends_with(L'\\'));
    }
    EXPECT_TRUE(traced("From Popup PersonalData(CALLORIGIN)=desk"));
    EXPECT_TRUE(traced("From Popup PersonalData(PHONENUMBER)=0123"));
}

TEST_F(Launch, AFailureOpensOneWindowInFrontThatKeysAndTheButtonClose) {
    void (*const ways[])(HWND window, HWND ok) = {
        [](HWND, HWND ok) { SendMessageW(ok, BM_CLICK, 0, 0); },
        [](HWND, HWND ok) { PostMessageW(ok, WM_KEYDOWN, VK_RETURN, 0); },
        [](HWND, HWND ok) { PostMessageW(ok, WM_KEYDOWN, VK_ESCAPE, 0); },
        [](HWND window, HWND) { PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0); },
    };
    for (const auto close : ways) {
        run(launch(L"C:\\None", L"one.exe"), unknown());
        run(launch(L"C:\\None", L"other.exe"), {});
        ASSERT_EQ(openDialogs().size(), 1u);
        const HWND window = openDialogs()[0];
        EXPECT_TRUE(GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_TOPMOST);
        EXPECT_EQ(windowText(window), driver().module.title);
        EXPECT_TRUE(windowText(GetDlgItem(window, 0)).ends_with(L": C:\\None\\one.exe."));
        close(window, GetDlgItem(window, IDOK));
        serveMessages();
        EXPECT_FALSE(driver().user.messageWindow->isOpen());
        EXPECT_TRUE(openDialogs().empty());
    }
}

/// Tools of all kinds in a folder whose name has a blank; each tells that it has run by a file.
class LaunchedTools : public Launch {
  protected:
    LaunchedTools() : tools(folder.makeFolder(L"my tools")) {
        wchar_t windowsFolder[MAX_PATH];
        GetWindowsDirectoryW(windowsFolder, MAX_PATH);
        system = std::wstring(windowsFolder) + L"\\system32";
        for (const wchar_t* name : {L"\\dial.bat", L"\\ring up.cmd", L"\\callOUT.bat"})
            harness::writeFile(tools + name, "@echo %~n0 %1 %2>\"%~dp0%1.txt\"\r\n");
        for (const wchar_t* name : {L"\\my note.zelbardoc", L"\\damaged.exe"})
            harness::writeFile(tools + name, "note");
        registry.set(HKEY_CLASSES_ROOT, L".zelbardoc", L"", L"zelbar.document");
        registry.set(HKEY_CLASSES_ROOT, L"zelbar.document\\shell\\open\\command", L"",
                     L"cmd.exe /c copy \"%1\" \"%1.opened\"");
    }
    void TearDown() override {
        for (const wchar_t* key : {L".zelbardoc", L"zelbar.document"}) RegDeleteTreeW(HKEY_CLASSES_ROOT, key);
        Launch::TearDown();
    }
    /// Runs it for a number. Whether something was started, which the user is told otherwise.
    bool starts(const std::wstring& path, const std::wstring& arguments, const std::wstring& number) {
        run(launch(path, arguments), unknown(L"TYPE=outgoing;PHONENUMBER=" + number + L";"));
        return failure().empty();
    }

    std::wstring tools, system;
};

TEST_F(LaunchedTools, ProgramsBatchFilesAndDocumentsAreStarted) {
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
        {L"cmd /c echo 77>\"" + tools, L"e.txt\"", L"e.txt", "77\r\n"},
        {tools, L"call$3.bat f $1", L"f.txt", "callOUT f 77\r\n"},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(starts(c.path, c.arguments, L"77")) << c.arguments;
        EXPECT_EQ(harness::awaitFile(tools + L"\\" + c.file), c.text);
    }
}

/// Run by the test below in a program that the action has started.
TEST(LaunchedProgram, DISABLED_TellsHowItIsShown) {
    STARTUPINFOW how{};
    GetStartupInfoW(&how);
    const bool told = (how.dwFlags & STARTF_USESHOWWINDOW) != 0;
    harness::writeFile(_wgetenv(L"LAUNCHED_FILE"), told ? std::to_string(how.wShowWindow) : "not told");
}

TEST_F(LaunchedTools, AProgramIsShownAsWindowsShowsItByItself) {
    SetEnvironmentVariableW(L"LAUNCHED_FILE", (tools + L"\\shown.txt").c_str());
    const Module self = thisModule();
    EXPECT_TRUE(starts(self.folder,
                       self.stem + L".exe --gtest_also_run_disabled_tests --gtest_filter=LaunchedProgram.*",
                       L"1"));
    EXPECT_EQ(harness::awaitFile(tools + L"\\shown.txt"), std::to_string(SW_SHOWNORMAL));
}

TEST_F(LaunchedTools, TheCommandInterpreterGetsNoDetailThatSteersIt) {
    std::wstring slashed = tools;
    std::replace(slashed.begin(), slashed.end(), L'\\', L'/');
    const std::pair<std::wstring, std::wstring> lines[] = {
        {tools, L"dial.bat $1"},           {tools, L"dial.bat \"$1\""},
        {tools, L"DIAL.BAT. . $1"},        {L"\"" + tools, L"ring up.cmd \" $1"},
        {slashed + L"/dial.bat x", L"$1"}, {L"cmd.exe /c echo x", L"$1"},
        {system, L"cmd /c echo $1"},       {tools, L"dial.bat $2$1"},
        {tools, L"my note.zelbardoc $1"},
    };
    for (const auto& [path, arguments] : lines) {
        for (const wchar_t steering : std::wstring(L"\"&|<>^%!()\n\x7F", 12))
            EXPECT_FALSE(starts(path, arguments, L"1" + std::wstring(1, steering) + L"x")) << arguments;
        EXPECT_TRUE(starts(path, arguments, L"+1-2.3/4")) << arguments;
    }
    EXPECT_TRUE(starts(tools, L"dial.bat x & exit", L"(1)&x")) << "all the user's own";
    EXPECT_TRUE(starts(system, L"hostname.exe \"$1\"", L"(1)&x")) << "a program of its own";
}

TEST_F(LaunchedTools, WhatIsStartedIsNamedByTheUserAlone) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"none.exe $1", L"x\\..\\..\\my tools\\dial.bat"},
        {L"none.txt $1", L"x\\..\\..\\my tools\\my note.zelbardoc"},
        {L"$1", L"dial.bat"},
        {L"$1.bat", L"dial"},
        {L"$1.zelbardoc", L"my note"},
        {L"di$1", L"al.bat x"},
        {L"dial$1", L".bat"},
        {L"callO$$1", L"3.bat"},
        {L"dial.bat$1", L" x"},
    };
    for (const auto& [arguments, number] : cases) {
        EXPECT_FALSE(starts(tools, arguments, number)) << arguments;
        EXPECT_FALSE(starts(L"\"" + tools, arguments + std::wstring(L"\""), number)) << arguments;
    }
}

}  // namespace

}  // namespace zelbar
