#pragma once

#include <functional>
#include <span>

#include "client/Activity.h"
#include "client/Arguments.h"
#include "client/Driver.h"
#include "client/Failure.h"
#include "client/Writer.h"

namespace pimcall {

/// What a command works with.
struct Context {
    const Arguments& arguments;
    Writer& out;
    /// For remarks that are no part of the answer.
    Writer& notes;
    /// Tells the user what takes long.
    Activity& activity;
    /// Makes the driver. A command calls it once its arguments are known to be good.
    std::function<Driver()> driver;

    bool json() const { return arguments.has(L"--json"); }
    bool verbose() const { return arguments.has(L"--verbose"); }
};

/// One command of the program: a file of its own and a row in the table of all commands.
struct Command {
    const wchar_t* name;
    /// How it is written, without the name of the program.
    const wchar_t* synopsis;
    /// What it is for, in the list of all commands.
    const wchar_t* brief;
    /// What it does, for its own help.
    const wchar_t* details;
    /// Command lines to learn from, one a line.
    const wchar_t* examples;
    /// Its options beside those that every command has.
    std::span<const Option> options = {};
    ExitCode (*run)(const Context& context);
};

/// Said when an unknown contact came back although the search did not simply find nothing.
inline constexpr wchar_t kNotAPlainMiss[] =
    L"The search did find something, or could not be carried out: the contact has gone from Outlook, or "
    L"Outlook "
    L"or the cache does not answer. The driver's log tells which.";

extern const Command kActions;
extern const Command kActive;
extern const Command kBundle;
extern const Command kCall;
extern const Command kConfig;
extern const Command kCreate;
extern const Command kDoctor;
extern const Command kExplain;
extern const Command kExport;
extern const Command kFind;
extern const Command kFolders;
extern const Command kForms;
extern const Command kShow;
extern const Command kShowFolder;

/// All commands, in the order of the help.
std::span<const Command* const> allCommands();

/// The options that every command has.
std::span<const Option> commonOptions();

}  // namespace pimcall
