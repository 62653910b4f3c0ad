#include "client/FaultWords.h"
#include "client/Figures.h"
#include "client/Json.h"
#include "client/Text.h"
#include "client/explain/Explanation.h"

namespace pimcall::explain {
namespace {

using Verdict = MatchingRow::Verdict;

/// The end of an identifier tells items of one store apart.
std::wstring shown(const std::wstring& identifier, bool whole) {
    constexpr std::size_t kEnd = 12;
    if (identifier.empty()) return L"(none)";
    if (whole || identifier.size() <= kEnd) return oneLine(identifier);
    return L"..." + oneLine(identifier.substr(identifier.size() - kEnd));
}

std::wstring costOf(const Step& step) {
    return L" (" + counted(step.calls, L"call") + L", " + std::to_wstring(step.milliseconds) + L" ms)";
}

std::wstring stepLine(const Step& step) {
    return L"    " + step.what + L": " + (step.fault ? inWords(step.fault) : std::wstring(L"done")) +
           costOf(step) + L'\n';
}

std::wstring answerOf(const MatchingRow& row) {
    switch (row.verdict) {
        case Verdict::Found:
            return L"found: " + oneLine(row.name);
        case Verdict::Gone:
            return L"gone; the driver would delete this row when it comes to it, and the contact's photo";
        default:
            return L"no answer: " + inWords(row.fault) + L"; the row stays";
    }
}

std::wstring rowText(const MatchingRow& row, std::size_t number, bool verbose) {
    std::wstring text = L"\n  Row " + std::to_wstring(number) + L": " +
                        (row.row.name.empty() ? L"(no name)" : oneLine(row.row.name)) + L", " +
                        oneLine(row.row.number) + L"\n    identity " + shown(row.row.entryId, verbose) +
                        L", store " + (row.row.storeKey.empty() ? L"(none)" : oneLine(row.row.storeKey)) +
                        (row.isStoreKnown ? L"" : L", which the table of stores does not have") + L'\n';
    for (const Step& step : row.steps) text += stepLine(step);
    if (!row.wasAsked && !row.fault) return text + L"    the same contact as above; passed over\n";
    return text + L"    -> " + answerOf(row) + L'\n';
}

const wchar_t* columnOf(const Explanation& explanation) {
    return explanation.kind == SearchKind::Name ? L"Name" : L"PhoneNumber";
}

std::wstring nearestText(const Explanation& explanation) {
    if (explanation.nearest.empty()) return L"\n  No row of the cache is near to it.\n";
    std::wstring text = L"\n  Rows that nearly match:\n";
    for (const NearRow& row : explanation.nearest)
        text += L"    " + (row.row.name.empty() ? L"" : oneLine(row.row.name) + L", ") +
                oneLine(row.row.number) + L"\n      " + oneLine(row.reason) + L".\n";
    return text;
}

std::wstring stepsJson(const std::vector<Step>& steps) {
    return json::array(steps, [](const Step& step) {
        return json::Object()
            .text(L"step", step.what)
            .number(L"calls", step.calls)
            .number(L"milliseconds", step.milliseconds)
            .text(L"error", step.fault ? inWords(step.fault) : L"")
            .str();
    });
}

json::Object rowJson(const CacheReader::Row& row) {
    return json::Object()
        .text(L"name", row.name)
        .text(L"number", row.number)
        .text(L"entryId", row.entryId)
        .text(L"store", row.storeKey);
}

std::wstring matchJson(const MatchingRow& row) {
    const wchar_t* const words[] = {L"found", L"gone", L"failed"};
    return rowJson(row.row)
        .boolean(L"storeKnown", row.isStoreKnown)
        .boolean(L"asked", row.wasAsked)
        .text(L"answer", row.wasAsked || row.fault ? words[static_cast<std::size_t>(row.verdict)] : L"")
        .text(L"error", row.fault ? inWords(row.fault) : L"")
        .boolean(L"wouldBeDeleted", row.wasAsked && row.verdict == Verdict::Gone)
        .text(L"contact", row.name)
        .raw(L"steps", stepsJson(row.steps))
        .str();
}

std::wstring nearJson(const NearRow& row) {
    return rowJson(row.row).text(L"reason", row.reason).str();
}

const MatchingRow* firstFound(const Explanation& explanation) {
    for (const MatchingRow& row : explanation.rows)
        if (row.wasAsked && row.verdict == Verdict::Found) return &row;
    return nullptr;
}

}  // namespace

std::wstring outcome(const Explanation& explanation) {
    if (explanation.query.fault)
        return L"An unknown caller: the cache cannot be read: " + inWords(explanation.query.fault) + L".";
    if (explanation.rows.empty()) return L"An unknown caller: no row of the cache matches.";
    const MatchingRow& first = explanation.rows.front();
    if (first.verdict == Verdict::Found) return L"The caller is shown as " + oneLine(first.name) + L".";
    if (first.verdict == Verdict::Failed)
        return L"An unknown caller: Outlook did not give the contact: " + inWords(first.fault) + L".";
    const MatchingRow* next = firstFound(explanation);
    return L"An unknown caller: the first row's contact is gone from Outlook. The driver would delete that row" +
           (next ? L", and show the next call as " + oneLine(next->name) + L"." : std::wstring(L"."));
}

std::wstring explanationText(const Explanation& explanation, bool verbose) {
    std::wstring text = L"The search asks for rows with " + std::wstring(columnOf(explanation)) +
                        L" Like \"" + oneLine(explanation.pattern) + L"\"\n  in " +
                        oneLine(explanation.cache) + L": ";
    text += explanation.query.fault ? inWords(explanation.query.fault) + L".\n"
                                    : counted(explanation.rowCount, L"row") + L" (" +
                                          std::to_wstring(explanation.query.milliseconds) + L" ms).\n";
    if (!explanation.connection.empty()) text += L"\n  The way to Outlook:\n";
    for (const Step& step : explanation.connection) text += stepLine(step);
    for (std::size_t i = 0; i < explanation.rows.size(); ++i)
        text += rowText(explanation.rows[i], i + 1, verbose);
    if (explanation.rowCount > static_cast<long>(explanation.rows.size()))
        text += L"\n  Outlook was not asked for the rows behind these.\n";
    if (explanation.rows.empty() && !explanation.query.fault) text += nearestText(explanation);
    return text + L'\n' + outcome(explanation) + L'\n';
}

std::wstring explanationJson(const Explanation& explanation) {
    return json::Object()
        .text(L"searched", explanation.text)
        .text(L"column", columnOf(explanation))
        .text(L"pattern", explanation.pattern)
        .text(L"cache", explanation.cache)
        .text(L"error", explanation.query.fault ? inWords(explanation.query.fault) : L"")
        .number(L"milliseconds", explanation.query.milliseconds)
        .number(L"rowCount", explanation.rowCount)
        .raw(L"connection", stepsJson(explanation.connection))
        .raw(L"rows", json::array(explanation.rows, matchJson))
        .raw(L"nearest", json::array(explanation.nearest, nearJson))
        .boolean(L"known", explanation.isHit())
        .text(L"outcome", outcome(explanation))
        .str();
}

}  // namespace pimcall::explain
