#include "client/doctor/Report.h"

#include <algorithm>

#include "client/Json.h"
#include "client/Text.h"

namespace pimcall::doctor {
namespace {

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

}  // namespace

std::vector<Result> examine(const Machine& machine) {
    std::vector<Result> results;
    for (const Check& check : allChecks()) results.push_back({check, check.run(machine)});
    return results;
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

}  // namespace pimcall::doctor
