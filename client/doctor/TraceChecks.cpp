#include "client/Figures.h"
#include "client/doctor/Finding.h"
#include "client/doctor/Machine.h"
#include "numbers/HomePlace.h"

namespace pimcall::doctor {
namespace {

constexpr ULONGLONG kLarge = 100ULL << 20;

Finding place(const Machine& machine) {
    const TraceFacts& facts = machine.trace;
    if (!facts.placeError.empty())
        return problem(
            L"The settings for telephone numbers are wrong: " + facts.placeError,
            L"Correct Country, AreaCode, OutsideLine and NumbersWithoutPrefix, then run fillcache.");
    if (facts.place.place.region.empty())
        return notice(L"The telephone's country is not known: numbers are found only as they are written.",
                      L"Set Country (as in DE), or give fillcache --country.");
    return good(numbers::described(facts.place) + L".");
}

Finding trace(const Machine& machine) {
    const TraceFacts& facts = machine.trace;
    const std::wstring size = facts.trace.exists ? L", " + bytesText(facts.trace.bytes) : L"";
    constexpr wchar_t kOff[] = L"Set Developper to 0 in HKEY_CURRENT_USER\\Software\\Norvane\\7316\\Popup.";
    if (facts.mode == L"1") return notice(L"The trace is on, in a window on the screen.", kOff);
    if (facts.mode == L"2")
        return notice(
            L"The trace is on: " + facts.trace.path + size + L". It holds every call's numbers and names.",
            std::wstring(kOff) + L" Delete the file afterwards.");
    if (facts.trace.bytes > kLarge)
        return notice(L"The trace is off, but its file is left: " + facts.trace.path + size + L".",
                      L"Delete it.");
    return good(L"The trace is off.");
}

Finding errors(const Machine& machine) {
    const FileFacts& file = machine.trace.errors;
    if (!file.exists) return good(L"No errors were recorded (" + file.path + L").");
    if (file.bytes > kLarge)
        return notice(L"The error file is large: " + file.path + L", " + bytesText(file.bytes) + L".",
                      L"Look at its last lines, then delete it.");
    return good(file.path + L", " + bytesText(file.bytes) + L".");
}

}  // namespace

std::span<const Check> traceChecks() {
    static constexpr Check kChecks[] = {
        {L"place", L"Telephone", place},
        {L"trace", L"Trace", trace},
        {L"errors", L"Error file", errors},
    };
    return kChecks;
}

}  // namespace pimcall::doctor
