#include "client/doctor/Report.h"

#include <algorithm>

#include "client/Json.h"
#include "client/Text.h"

namespace pimcall::doctor {
namespace {

struct Shown {
    const wchar_t* word;
    Colour colour;
};

Shown shown(Verdict verdict) {
    switch (verdict) {
        case Verdict::Good:
            return {L"ok", Colour::Green};
        case Verdict::Notice:
            return {L"note", Colour::Yellow};
        default:
            return {L"PROBLEM", Colour::Red};
    }
}

std::wstring padded(std::wstring text, std::size_t width) {
    text.resize(std::max(width, text.size()), L' ');
    return text + L"  ";
}

void writeResult(Writer& writer, const Result& result, std::size_t titleWidth) {
    constexpr std::size_t kVerdictWidth = 7;
    const auto [word, colour] = shown(result.finding.verdict);
    const std::wstring verdict = padded(word, kVerdictWidth);
    writer.coloured(colour, verdict);
    writer.line(padded(result.check.title, titleWidth) + oneLine(result.finding.what));
    if (result.finding.fix.empty()) return;
    const std::wstring indent(verdict.size() + titleWidth + 2, L' ');
    writer.line(indent + L"-> " + oneLine(result.finding.fix));
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

void writeReport(Writer& writer, const std::vector<Result>& results) {
    std::size_t width = 0;
    for (const Result& result : results)
        width = std::max(width, std::wstring_view(result.check.title).size());
    for (const Result& result : results) writeResult(writer, result, width);
    writer.write(L'\n' + summary(results));
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
