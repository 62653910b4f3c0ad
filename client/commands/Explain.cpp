#include <string>

#include "client/PlaceOptions.h"
#include "client/commands/Commands.h"
#include "client/explain/Explanation.h"

namespace pimcall {
namespace {

ExitCode run(const Context& context) {
    const bool byName = context.arguments.has(L"--name");
    if (byName) context.arguments.refuseOperands();
    const std::wstring text =
        byName ? context.arguments.value(L"--name") : context.arguments.operand(L"number");
    const explain::Explanation explanation =
        explain::explain(byName ? SearchKind::Name : SearchKind::Number, text);
    if (context.json())
        context.out.line(explain::explanationJson(explanation));
    else
        context.out.write(explain::explanationText(explanation, context.verbose()));
    if (!byName && explanation.rows.empty()) noteRemark(context.notes, text);
    return explanation.isHit() ? ExitCode::Found : ExitCode::NotFound;
}

constexpr Option kOptions[] = {{L"--name", L"NAME"}};

}  // namespace

const Command kExplain = {
    .name = L"explain",
    .synopsis = L"explain NUMBER | --name NAME",
    .brief = L"why a search finds its contact or not",
    .details =
        L"Follows the search for a caller step by step and says why it finds its contact or not; for a\n"
        L"miss, which rows of the cache are near. Asks Outlook as the driver does, and changes nothing:\n"
        L"what the driver would delete is only named.",
    .examples =
        L"pimcall explain +4930123456\n"
        L"pimcall explain --name \"Example*\" --verbose\n",
    .options = kOptions,
    .run = run};

}  // namespace pimcall
