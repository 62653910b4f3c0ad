#include <algorithm>
#include <vector>

#include "client/commands/Commands.h"
#include "client/doctor/Machine.h"
#include "client/doctor/Report.h"

namespace pimcall {
namespace {

ExitCode run(const Context& context) {
    context.arguments.refuseOperands();
    const std::vector<doctor::Result> results =
        doctor::examine(doctor::observe([&](const wchar_t* what) { context.activity.say(what); }));
    if (context.json())
        context.out.line(doctor::reportJson(results));
    else
        doctor::writeReport(context.out, results);
    const bool isSick = std::ranges::any_of(results, [](const doctor::Result& result) {
        return result.finding.verdict == doctor::Verdict::Problem;
    });
    return isSick ? ExitCode::NotFound : ExitCode::Found;
}

}  // namespace

const Command kDoctor = {
    .name = L"doctor",
    .synopsis = L"doctor",
    .brief = L"whether this computer has what the driver needs",
    .details =
        L"Looks whether this computer has what the driver needs, one line a check, with what to do about\n"
        L"each problem. Changes nothing, and starts no Outlook: the one that runs is asked, for some\n"
        L"seconds at most. Start it as the user whose Outlook it is, in an ordinary window.\n"
        L"\n"
        L"Exit status: 0 no problem, 1 there is one.",
    .examples =
        L"pimcall doctor\n"
        L"pimcall doctor --json > report.json\n",
    .run = run};

}  // namespace pimcall
