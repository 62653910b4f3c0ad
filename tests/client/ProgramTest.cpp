#include <gtest/gtest.h>

#include <algorithm>

#include "client/ContactText.h"
#include "client/Json.h"
#include "client/commands/Commands.h"
#include "tests/client/ProgramRun.h"
#include "tests/harness/Process.h"

namespace pimcall {
namespace {

Driver noDriver() {
    throw Failure(creationAdvice(REGDB_E_CLASSNOTREG));
}

TEST(Program, WrongCommandLinesNeverReachTheDriver) {
    const std::vector<std::wstring> cases[] = {
        {},
        {L"call"},
        {L"call", L"--from="},
        {L"call", L"--from", L"--to", L"1"},
        {L"call", L"--from", L"1", L"--from", L"1"},
        {L"find", L"--number", L"1", L"--all=1"},
        {L"call", L"--from", L"1", L"--to", L"1"},
        {L"show", L"a", L"b"},
        {L"actions", L"4097"},
        {L"show-folder", L"Contacts"},
        {L"call", L"--from=1", L"--action", L"dance"},
        {L"call", L"--from=1", L"--action=mail", L"--create"},
        {L"call", L"--from=1", L"--action=open", L"--create", L"--create-only"},
        {L"call", L"--from=1", L"--origin=x"},
        {L"call", L"--from=1", L"--action=journal", L"--duration=5"},
        {L"call", L"--from=1", L"--action=journal", L"--origin=a;b"},
    };
    for (const auto& words : cases) {
        const ProgramRun run(words, noDriver);
        EXPECT_EQ(ExitCode::Usage, run.exitCode) << testing::PrintToString(words);
        EXPECT_EQ(L"", run.out);
        EXPECT_TRUE(run.error.starts_with(L"pimcall: ")) << run.error.c_str();
        EXPECT_TRUE(run.error.ends_with(L".\n\"pimcall --help\" shows what there is.\n"));
    }
}

TEST(Program, HelpsAsUsersOfEverySystemAsk) {
    for (const wchar_t* asked : {L"--help", L"-h", L"/?"}) {
        const ProgramRun all({asked}, noDriver), one({L"forms", L"--area", L"89", asked}, noDriver);
        EXPECT_EQ(ExitCode::Found, all.exitCode);
        EXPECT_EQ(ExitCode::Found, one.exitCode);
        for (const Command* command : allCommands())
            EXPECT_NE(std::wstring::npos, all.out.find(L"\n  " + std::wstring(command->name) + L" "));
        EXPECT_TRUE(one.out.starts_with(L"pimcall forms [--country")) << one.out.c_str();
        EXPECT_NE(std::wstring::npos, one.out.find(L"\nExamples:\n  pimcall forms "));
    }
    // Behind "--" it is an operand.
    EXPECT_EQ(L"[\"/?\"]\n", ProgramRun({L"forms", L"--json", L"--country=FR", L"--", L"/?"}, noDriver).out);
    const struct {
        std::vector<std::wstring> words;
        const wchar_t* end;
    } slips[] = {
        {{L"docter"}, L"; did you mean \"doctor\"?\n"},
        {{L"bun"}, L"; did you mean \"bundle\"?\n"},
        {{L"call", L"--form=1"}, L"; did you mean --from?\n"},
        {{L"xyzzy"}, L"There is no command \"xyzzy\".\n"},
        {{L"find", L"--nu"}, L"; did you mean --number?\n"},
        {{L"call", L"--q"}, L"no option --q here.\n"},
    };
    for (const auto& row : slips) {
        const ProgramRun run(row.words, noDriver);
        EXPECT_EQ(ExitCode::Usage, run.exitCode);
        EXPECT_NE(std::wstring::npos, run.error.find(row.end)) << run.error.c_str();
    }
}

TEST(Activity, IsShownOnATerminalOnlyAndLeavesNothingBehind) {
    for (const bool isTerminal : {true, false}) {
        Recorder screen(isTerminal);
        {
            Activity activity(screen, L"Asking", 20);
            Sleep(200);
            BesideActivity(screen, activity).line(L"answer");
        }
        EXPECT_EQ(screen.text().find(L"\rAsking ... 0 s") != std::wstring::npos, isTerminal);
        EXPECT_TRUE(screen.text().ends_with(isTerminal ? L"\r              \ranswer\n" : L"answer\n"));
    }
}

TEST(Program, AFailureIsOneSentence) {
    const ProgramRun run({L"call", L"--from=1"}, noDriver);
    EXPECT_EQ(ExitCode::Failed, run.exitCode);
    EXPECT_EQ(L"", run.out);
    EXPECT_NE(std::wstring::npos, run.error.find(L"regsvr32 zelbar00.dll"));
    EXPECT_EQ(1, std::count(run.error.begin(), run.error.end(), L'\n'));
    EXPECT_NE(std::wstring::npos, creationAdvice(E_OUTOFMEMORY).find(L"0x8007000E"));
    const ProgramRun version({L"--version"}, noDriver);
    EXPECT_EQ(ExitCode::Found, version.exitCode);
    EXPECT_NE(std::wstring::npos,
              version.out.find(L"\nDriver: The Outlook contacts driver is not registered"));
}

TEST(Process, TakesAndGivesEveryCharacterAndEndsWithItsStatus) {
    const auto pimcall = [](const std::wstring& arguments) {
        return harness::runOwn(L"pimcall.exe", arguments);
    };
    const harness::Ended slip = pimcall(L"\"\u00E9\u0416\U0001F600\""), help = pimcall(L"--help");
    EXPECT_EQ(2u, slip.exitCode);
    EXPECT_EQ("", slip.out);
    EXPECT_TRUE(
        slip.error.starts_with("pimcall: There is no command \"\xC3\xA9\xD0\x96\xF0\x9F\x98\x80\".\n"))
        << slip.error;
    EXPECT_EQ(0u, help.exitCode);
    EXPECT_TRUE(help.out.starts_with("pimcall "));
    EXPECT_EQ("", help.error);
    EXPECT_EQ(2u, pimcall(L"show " + std::wstring(30000, L'x') + L" y").exitCode);
}

TEST(Forms, AreShownForEachNumberInItsOrder) {
    const ProgramRun text({L"forms", L"--country", L"fr", L"01 42 68 53 07"}, noDriver);
    EXPECT_EQ(text.out,
              L"Place: FR (from the options)\n\n01 42 68 53 07\n+33142685307\n0033142685307\n0142685307\n"
              L"142685307\n33142685307\n");
    const ProgramRun json({L"forms", L"--json", L"--country=FR", L"112", L"\"x\""}, noDriver);
    EXPECT_EQ(json.out, L"[\"112\"]\n[\"\\\"x\\\"\"]\n");
    EXPECT_EQ(json.exitCode, ExitCode::Found);
    EXPECT_EQ(ProgramRun({L"forms", L"--country", L"XX", L"1"}, noDriver).exitCode, ExitCode::Usage);
    EXPECT_EQ(ProgramRun({L"forms", L"--country", L"FR"}, noDriver).exitCode, ExitCode::Usage);
}

TEST(Json, EscapesWhatStrictReadersRefuse) {
    const std::pair<std::wstring, std::wstring> cases[] = {
        {L"a \"b\" c:\\d", L"\"a \\\"b\\\" c:\\\\d\""},
        {std::wstring(L"\0\t\r\n", 4), L"\"\\u0000\\t\\u000d\\n\""},
        {L"\x7F\x2028\x202E", L"\"\\u007f\\u2028\\u202e\""},
        {L"\xD83D\xD83D\xDE00x", L"\"\uFFFD\U0001F600x\""},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(expected, json::quoted(text));
}

TEST(ContactText, LetsNoNameSteerTheScreen) {
    ContactCard card;
    card.firstName = L"A\x1B[2J";
    card.lastName = L"B\r\n\x9D";
    card.department = L"x\ty\u202Ez\u2069\u200F";
    EXPECT_EQ(L"A [2J B   \n  Department    x y z  \n  In Outlook    no\n", contactText(card, false));
}

}  // namespace
}  // namespace pimcall
