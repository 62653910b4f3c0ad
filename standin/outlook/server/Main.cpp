#include <windows.h>

#include "standin/common/Error.h"
#include "standin/outlook/mailbox/Text.h"
#include "standin/outlook/server/Commands.h"
#include "standin/outlook/server/Console.h"
#include "standin/outlook/server/Program.h"

namespace standin::outlook {
namespace {

// Switches may begin with "/" or "-", in any case.
bool isSwitch(const std::wstring& argument, std::wstring_view name) {
    return argument.size() > 1 && (argument[0] == L'/' || argument[0] == L'-') &&
           sameText(std::wstring_view(argument).substr(1), name);
}

int changeRegistration(void (*change)()) {
    try {
        change();
        return kDone;
    } catch (const Error&) {
        printError(L"the registry cannot be written");
        return kFailed;
    }
}

int run(const std::vector<std::wstring>& arguments) {
    if (arguments.empty()) return runServer(false);
    if (isSwitch(arguments[0], L"Embedding")) return runServer(true);
    if (isSwitch(arguments[0], L"regserver")) return changeRegistration(registerProgram);
    if (isSwitch(arguments[0], L"unregserver")) return changeRegistration(unregisterProgram);
    return runCommand(arguments);
}

}  // namespace
}  // namespace standin::outlook

int wmain(int count, wchar_t** words) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const int status = standin::outlook::run(std::vector<std::wstring>(words + 1, words + count));
    CoUninitialize();
    return status;
}
