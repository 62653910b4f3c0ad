#include <string>

#include "client/Json.h"
#include "client/commands/Commands.h"

namespace pimcall {
namespace {

ExitCode run(const Context& context) {
    const std::wstring& folder = context.arguments.operand(L"folder, contacts or journal,");
    if (folder != L"contacts" && folder != L"journal")
        throw UsageError(L"There is no folder \"" + folder + L"\": there are contacts and journal.");
    const bool newWindow = context.driver().showFolder(folder);
    if (context.json())
        context.out.line(json::Object().text(L"folder", folder).boolean(L"newWindow", newWindow).str());
    else if (newWindow)
        context.out.line(L"Outlook shows the folder in a new window.");
    else
        context.out.line(L"No new window: Outlook shows the folder in one that was open, or cannot show it.");
    return ExitCode::Found;
}

}  // namespace

const Command kShowFolder = {.name = L"show-folder",
                             .synopsis = L"show-folder contacts | journal",
                             .brief = L"lets Outlook show one of the user's own folders",
                             .details = L"Lets Outlook show one of the user's own folders.",
                             .examples = L"pimcall show-folder journal\n",
                             .run = run};

}  // namespace pimcall
