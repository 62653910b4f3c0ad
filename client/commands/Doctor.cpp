#include <algorithm>
#include <vector>

#include "client/commands/Commands.h"
#include "client/doctor/Machine.h"
#include "client/doctor/Report.h"

namespace pimcall {
namespace {

ExitCode run(const Context& context) {
    context.arguments.refuseOperands();
    const std::vector<doctor::Result> results = doctor::examine(doctor::observe());
    if (context.json())
        context.out.line(doctor::reportJson(results));
    else
        context.out.write(doctor::reportText(results));
    const bool isSick = std::ranges::any_of(results, [](const doctor::Result& result) {
        return result.finding.verdict == doctor::Verdict::Problem;
    });
    return isSick ? ExitCode::NotFound : ExitCode::Found;
}

}  // namespace

const Command kDoctor = {
    L"doctor",
    L"doctor",
    L"Looks whether this computer has what the driver needs, one line a check, with what "
    L"to do\n      about each problem. Changes nothing, and starts no Outlook.",
    {},
    run};

}  // namespace pimcall
