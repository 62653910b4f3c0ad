#include <string>
#include <vector>

#include "client/InputLines.h"
#include "client/Json.h"
#include "client/PlaceOptions.h"
#include "client/Text.h"
#include "client/commands/Commands.h"
#include "numbers/PresentedForms.h"

namespace pimcall {
namespace {

/// The operands; "-" stands for the lines of the standard input.
std::vector<std::wstring> numbersOf(const Arguments& arguments) {
    std::vector<std::wstring> numbers;
    for (const std::wstring& operand : arguments.operands(L"number")) {
        if (operand != L"-") {
            numbers.push_back(operand);
            continue;
        }
        const std::vector<std::wstring> lines = inputLines();
        numbers.insert(numbers.end(), lines.begin(), lines.end());
    }
    return numbers;
}

ExitCode run(const Context& context) {
    const numbers::HomePlace home = homePlace(context.arguments);
    const std::vector<std::wstring> numbers = numbersOf(context.arguments);
    const numbers::PresentedForms presented(home.place);
    (context.json() ? context.notes : context.out).line(numbers::described(home));
    for (const std::wstring& number : numbers) {
        const std::vector<std::wstring> forms = presented.of(number);
        if (context.json()) {
            context.out.line(json::array(forms, json::quoted));
            continue;
        }
        context.out.line(L"");
        for (const std::wstring& form : forms) context.out.line(oneLine(form));
    }
    return ExitCode::Found;
}

}  // namespace

const Command kForms = {
    .name = L"forms",
    .synopsis = L"forms [--country DE] [--area 89] [--outside-line 0] [--without-prefix KIND] NUMBER...",
    .brief = L"how the telephone system presents a stored number",
    .details =
        L"Shows how the telephone system presents numbers that are stored like this: the forms under which\n"
        L"fillcache enters them in the cache, the text as it stands first. What is not given is taken from\n"
        L"the settings, else from Windows. KIND says what numbers without + and prefix are: international,\n"
        L"national or unknown. The number - stands for the lines of the standard input. --json: an array\n"
        L"for each number, one a line.",
    .examples =
        L"pimcall forms \"(030) 123456\" --country DE\n"
        L"pimcall forms - < numbers.txt\n",
    .options = kPlaceOptions,
    .run = run};

}  // namespace pimcall
