#include "client/Program.h"

#include <algorithm>
#include <new>

#include "automation/BusyRetry.h"
#include "client/Text.h"
#include "client/commands/Commands.h"
#include "support/Similar.h"

namespace pimcall {
namespace {

constexpr wchar_t kCommonHelp[] =
    L"With every command:\n"
    L"  --json     the answer as JSON, in UTF-8 when redirected\n"
    L"  --verbose  identifiers as well (JSON always has them)\n"
    L"  --help     what the command does, with examples; -h and /? are the same\n"
    L"A value that begins with \"--\" is written as --option=VALUE; operands follow \"--\".\n"
    L"Colours are left out with NO_COLOR.\n"
    L"\n"
    L"Exit status: 0 found, 1 not found, 2 the command line is wrong, 3 failure.\n";

constexpr wchar_t kFirstExamples[] =
    L"pimcall doctor\n"
    L"pimcall call --from +4930123456\n"
    L"pimcall explain +4930123456\n"
    L"pimcall call --help\n";

/// Each line of a text, moved in.
std::wstring indented(std::wstring_view lines) {
    std::wstring text;
    for (std::size_t start = 0; start < lines.size();) {
        const std::size_t end = std::min(lines.find(L'\n', start), lines.size());
        text += L"  " + std::wstring(lines.substr(start, end - start)) + L'\n';
        start = end + 1;
    }
    return text;
}

std::wstring help() {
    constexpr std::size_t kNameWidth = 13;
    std::wstring text =
        L"pimcall asks the Outlook contacts driver of Tessaria what it tells the telephone client.\n\n"
        L"  pimcall COMMAND [OPTION...]\n\n";
    for (const Command* command : allCommands()) {
        std::wstring name = command->name;
        name.resize(std::max(name.size(), kNameWidth), L' ');
        text += L"  " + name + command->brief + L'\n';
    }
    return text +
           L"  --version    the versions of this program and of the Outlook that the driver uses\n\nExamples:\n" +
           indented(kFirstExamples) + L'\n' + kCommonHelp;
}

std::wstring helpFor(const Command& command) {
    std::wstring details = command.details;
    while (details.ends_with(L'\n')) details.pop_back();
    return std::wstring(L"pimcall ") + command.synopsis + L"\n\n" + details + L"\n\nExamples:\n" +
           indented(command.examples) + L'\n' + kCommonHelp;
}

/// As users of several systems ask for it.
bool asksForHelp(const std::wstring& word) {
    return word == L"--help" || word == L"-h" || word == L"/?" || word == L"-?" || word == L"/h" ||
           word == L"/help";
}

/// What the driver says about itself, or why it does not.
std::wstring driverState(const std::function<Driver()>& driver) {
    try {
        const std::wstring version = driver().version();
        if (version.empty()) return L"does not answer; the user's error file tells why";
        return version == L"0" ? L"installed, but it found no Outlook"
                               : L"installed, with Outlook " + version;
    } catch (const Failure& failure) {
        return failure.sentence();
    }
}

const Command& commandNamed(const std::wstring& name) {
    std::vector<std::wstring_view> names;
    for (const Command* command : allCommands()) {
        if (name == command->name) return *command;
        names.push_back(command->name);
    }
    const std::wstring similar(zelbar::similarWord(name, names));
    throw UsageError(L"There is no command \"" + name + L"\"" +
                     (similar.empty() ? L"." : L"; did you mean \"" + similar + L"\"?"));
}

/// A value may look like a call for help; behind "--" everything is one.
bool asksForHelp(std::span<const std::wstring> words) {
    const auto end = std::ranges::find(words, L"--");
    return std::any_of(words.begin(), end, [](const std::wstring& word) { return asksForHelp(word); });
}

ExitCode dispatch(const std::vector<std::wstring>& words, const std::function<Driver()>& driver, Writer& out,
                  Writer& notes) {
    if (words.empty()) throw UsageError(L"A command is needed.");
    if (asksForHelp(words.front())) {
        out.write(help());
        return ExitCode::Found;
    }
    Activity activity(notes, L"Asking the driver");
    BesideActivity outBeside(out, activity), notesBeside(notes, activity);
    if (words.front() == L"--version") {
        outBeside.line(L"pimcall " PIMCALL_VERSION);
        outBeside.line(oneLine(L"Driver: " + driverState(driver)));
        return ExitCode::Found;
    }
    const Command& command = commandNamed(words.front());
    const auto behind = std::span(words).subspan(1);
    if (asksForHelp(behind)) {
        out.write(helpFor(command));
        return ExitCode::Found;
    }
    std::vector<Option> options(command.options.begin(), command.options.end());
    options.insert(options.end(), commonOptions().begin(), commonOptions().end());
    const Arguments arguments = Arguments::parse(behind, options);
    return command.run({arguments, outBeside, notesBeside, activity, driver});
}

/// The last words of the program; when not even they can be written, the exit status has to do.
ExitCode tell(Writer& error, std::wstring_view sentence, ExitCode exitCode) noexcept {
    try {
        error.coloured(Colour::Red, L"pimcall: ");
        error.line(oneLine(sentence));
        if (exitCode == ExitCode::Usage) error.line(L"\"pimcall --help\" shows what there is.");
    } catch (...) {
    }
    return exitCode;
}

}  // namespace

ExitCode runProgram(const std::vector<std::wstring>& words, const std::function<Driver()>& driver,
                    Writer& out, Writer& error) noexcept {
    try {
        // Outlook may be starting, or show a dialog.
        const zelbar::BusyRetry retry;
        return dispatch(words, driver, out, error);
    } catch (const Failure& failure) {
        return tell(error, failure.sentence(), failure.exitCode());
    } catch (const std::bad_alloc&) {
        return tell(error, L"There is not enough memory.", ExitCode::Failed);
    } catch (...) {
        return tell(error, L"Something went wrong inside this program.", ExitCode::Failed);
    }
}

}  // namespace pimcall
