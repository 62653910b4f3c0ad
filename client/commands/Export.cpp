#include <windows.h>

#include <string>

#include "client/ExportFolder.h"
#include "client/ExportProgress.h"
#include "client/Json.h"
#include "client/Text.h"
#include "client/commands/Commands.h"

namespace pimcall {
namespace {

/// What the driver calls its steps, as a person reads it.
std::wstring stepText(const std::wstring& step) {
    if (step == L"add") return L"Adding contacts";
    if (step == L"compare") return L"Reading the folder";
    if (step == L"doubles") return L"Looking at doubles";
    if (step == L"change") return L"Changing contacts";
    return step;
}

/// The driver may look elsewhere for a relative path than this program's user does.
std::wstring existingFile(const std::wstring& name) {
    wchar_t path[MAX_PATH];
    const DWORD length = GetFullPathNameW(name.c_str(), MAX_PATH, path, nullptr);
    if (length == 0 || length >= MAX_PATH || GetFileAttributesW(path) == INVALID_FILE_ATTRIBUTES)
        throw Failure(L"There is no file \"" + oneLine(name) + L"\".");
    return path;
}

bool carryOut(const Context& context, ExportStep step, const std::wstring& database,
              const std::wstring& folder) {
    const Driver driver = context.driver();
    ExportProgress progress([&](const std::wstring& name, long done, long total) {
        context.activity.say(stepText(name) + L": " + std::to_wstring(done) + L" of " +
                             std::to_wstring(total));
    });
    return driver.exportEmployees(step, database, folder, progress);
}

ExitCode exportTo(const Context& context, ExportStep step) {
    const std::wstring database = existingFile(context.arguments.needed(L"--database"));
    const std::wstring folder = context.arguments.valueOrNone(L"--folder");
    requireExportFolder(step, folder);
    const bool complete = carryOut(context, step, database, folder);
    if (context.json())
        context.out.line(json::Object().boolean(L"complete", complete).str());
    else if (complete)
        context.out.line(step == ExportStep::Initialize ? L"The employees are in the export folder."
                                                        : L"The export folder is up to date.");
    if (!complete)
        throw Failure(
            L"The export is not complete; the driver's log tells why. \"pimcall export sync\" goes on with "
            L"it.");
    return ExitCode::Found;
}

ExitCode adopt(const Context& context) {
    const std::wstring path = adoptExportFolder(context.arguments.needed(L"--folder"));
    if (context.json())
        context.out.line(json::Object().text(L"folder", path).str());
    else
        context.out.line(L"The export folder is " + oneLine(path) + L".");
    return ExitCode::Found;
}

ExitCode run(const Context& context) {
    constexpr wchar_t kSteps[] = L"\"init\", \"sync\" or \"adopt\"";
    const std::wstring& step = context.arguments.operand(kSteps);
    if (step == L"init") return exportTo(context, ExportStep::Initialize);
    if (step == L"sync") return exportTo(context, ExportStep::Synchronize);
    if (step == L"adopt") return adopt(context);
    throw UsageError(L"An export is " + std::wstring(kSteps) + L".");
}

constexpr Option kOptions[] = {{L"--database", L"FILE"}, {L"--folder", L"NAME"}};

}  // namespace

const Command kExport = {
    .name = L"export",
    .synopsis = L"export init|sync --database FILE [--folder NAME]; export adopt --folder NAME",
    .brief = L"the company's employees in Outlook's export folder",
    .details =
        L"Copies the employees of a directory database into Outlook's export folder (init, once), or brings\n"
        L"that folder up to date (sync); NAME is for a folder that has to be made. adopt takes the folder\n"
        L"that another computer has made.",
    .examples =
        L"pimcall export init --database C:\\Tessaria\\wxd.mdb --folder Colleagues\n"
        L"pimcall export sync --database C:\\Tessaria\\wxd.mdb\n",
    .options = kOptions,
    .run = run};

}  // namespace pimcall
