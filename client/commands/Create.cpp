#include <string>

#include "client/Json.h"
#include "client/Text.h"
#include "client/commands/Commands.h"

namespace pimcall {
namespace {

ExitCode run(const Context& context) {
    const std::wstring& name = context.arguments.needed(L"--name");
    const std::wstring& number = context.arguments.needed(L"--number");
    context.arguments.refuseOperands();
    const bool show = context.arguments.has(L"--show");
    context.driver().createContact(name, number, show);
    if (context.json())
        context.out.line(
            json::Object().text(L"name", name).text(L"number", number).boolean(L"show", show).str());
    else
        context.out.line(L"Outlook was asked to keep " + oneLine(name) + L", " + oneLine(number) + L".");
    return ExitCode::Found;
}

constexpr Option kOptions[] = {{L"--name", L"NAME"}, {L"--number", L"NUMBER"}, {L"--show", nullptr}};

}  // namespace

const Command kCreate = {
    .name = L"create",
    .synopsis = L"create --name NAME --number NUMBER [--show]",
    .brief = L"makes a contact in Outlook",
    .details =
        L"Makes a contact in Outlook, and opens its window with --show. The driver does not tell whether it\n"
        L"worked; its log does.",
    .examples = L"pimcall create --name \"Example Ann\" --number +4930123456 --show\n",
    .options = kOptions,
    .run = run};

}  // namespace pimcall
