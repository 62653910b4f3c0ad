#include "client/Program.h"

#include <algorithm>
#include <new>

#include "automation/BusyRetry.h"
#include "client/Text.h"
#include "client/commands/Commands.h"

namespace pimcall {
namespace {

std::wstring help() {
    std::wstring text =
        L"pimcall asks the Outlook contacts driver of Tessaria what it tells the telephony client.\n\n";
    for (const Command* command : allCommands())
        text += std::wstring(L"  pimcall ") + command->synopsis + L"\n      " + command->summary + L"\n";
    return text +
           L"  pimcall --version\n"
           L"      Shows the versions of this program and of the Outlook that the driver uses.\n"
           L"  pimcall --help\n"
           L"\nWith every command:\n"
           L"  --json     the answer as JSON, in UTF-8 when redirected\n"
           L"  --verbose  identifiers as well (JSON always has them)\n"
           L"  --help     this text\n"
           L"A value that begins with \"--\" is written as --option=VALUE; operands follow \"--\".\n"
           L"\nExit status: 0 found, 1 not found, 2 the command line is wrong, 3 failure.\n";
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
    for (const Command* command : allCommands())
        if (name == command->name) return *command;
    throw UsageError(L"There is no command \"" + name + L"\".");
}

ExitCode dispatch(const std::vector<std::wstring>& words, const std::function<Driver()>& driver, Writer& out,
                  Writer& notes) {
    if (words.empty()) throw UsageError(L"A command is needed.");
    if (words.front() == L"--help") {
        out.write(help());
        return ExitCode::Found;
    }
    if (words.front() == L"--version") {
        out.line(L"pimcall " PIMCALL_VERSION);
        out.line(oneLine(L"Driver: " + driverState(driver)));
        return ExitCode::Found;
    }
    const Command& command = commandNamed(words.front());
    std::vector<Option> options(command.options.begin(), command.options.end());
    options.insert(options.end(), commonOptions().begin(), commonOptions().end());
    const Arguments arguments = Arguments::parse(std::span(words).subspan(1), options);
    if (arguments.has(L"--help")) {
        out.write(help());
        return ExitCode::Found;
    }
    return command.run({arguments, out, notes, driver});
}

/// The last words of the program; when not even they can be written, the exit status has to do.
ExitCode tell(Writer& error, std::wstring_view sentence, ExitCode exitCode) noexcept {
    try {
        error.line(L"pimcall: " + oneLine(sentence));
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
