#include <algorithm>
#include <string>
#include <vector>

#include "client/Json.h"
#include "client/Text.h"
#include "client/commands/Commands.h"
#include "client/doctor/Finding.h"
#include "client/doctor/Machine.h"

namespace pimcall {
namespace {

using doctor::Check;
using doctor::Finding;
using doctor::Verdict;

struct Result {
    Check check;
    Finding finding;
};

const wchar_t* wordFor(Verdict verdict) {
    switch (verdict) {
        case Verdict::Good:
            return L"ok";
        case Verdict::Notice:
            return L"note";
        default:
            return L"PROBLEM";
    }
}

std::wstring padded(std::wstring text, std::size_t width) {
    text.resize(std::max(width, text.size()), L' ');
    return text + L"  ";
}

std::wstring lineOf(const Result& result, std::size_t titleWidth) {
    constexpr std::size_t kVerdictWidth = 7;
    const std::wstring verdict = padded(wordFor(result.finding.verdict), kVerdictWidth);
    const std::wstring indent(verdict.size() + titleWidth + 2, L' ');
    std::wstring text =
        verdict + padded(result.check.title, titleWidth) + oneLine(result.finding.what) + L'\n';
    if (!result.finding.fix.empty()) text += indent + L"-> " + oneLine(result.finding.fix) + L'\n';
    return text;
}

std::wstring summary(const std::vector<Result>& results) {
    const auto count = [&](Verdict verdict) {
        return std::ranges::count(results, verdict,
                                  [](const Result& result) { return result.finding.verdict; });
    };
    const auto problems = count(Verdict::Problem), notes = count(Verdict::Notice);
    if (problems == 0 && notes == 0) return L"All is well.\n";
    return std::to_wstring(problems) + (problems == 1 ? L" problem, " : L" problems, ") +
           std::to_wstring(notes) + (notes == 1 ? L" note.\n" : L" notes.\n");
}

std::wstring reportText(const std::vector<Result>& results) {
    std::size_t width = 0;
    for (const Result& result : results)
        width = std::max(width, std::wstring_view(result.check.title).size());
    std::wstring text;
    for (const Result& result : results) text += lineOf(result, width);
    return text + L'\n' + summary(results);
}

std::wstring reportJson(const std::vector<Result>& results) {
    json::Array checks;
    for (const auto& [check, finding] : results) {
        const wchar_t* words[] = {L"ok", L"note", L"problem"};
        checks.add(json::Object()
                       .text(L"check", check.id)
                       .text(L"verdict", words[static_cast<std::size_t>(finding.verdict)])
                       .text(L"what", finding.what)
                       .text(L"fix", finding.fix)
                       .str());
    }
    return checks.str();
}

ExitCode run(const Context& context) {
    context.arguments.refuseOperands();
    const doctor::Machine machine = doctor::observe();
    std::vector<Result> results;
    for (const Check& check : doctor::allChecks()) results.push_back({check, check.run(machine)});
    if (context.json())
        context.out.line(reportJson(results));
    else
        context.out.write(reportText(results));
    const bool isSick = std::ranges::any_of(
        results, [](const Result& result) { return result.finding.verdict == Verdict::Problem; });
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
