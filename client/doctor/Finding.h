#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

namespace pimcall::doctor {

struct Machine;

/// Good: as it should be. Notice: works, but worth a look. Problem: calls are answered wrongly or not at all.
enum class Verdict { Good, Notice, Problem };

/// What one check says.
struct Finding {
    Verdict verdict;
    std::wstring what;  ///< One sentence, in plain words.
    std::wstring fix;   ///< What to do; empty when all is well.
};

inline Finding good(std::wstring what) {
    return {Verdict::Good, std::move(what), {}};
}
inline Finding notice(std::wstring what, std::wstring fix) {
    return {Verdict::Notice, std::move(what), std::move(fix)};
}
inline Finding problem(std::wstring what, std::wstring fix) {
    return {Verdict::Problem, std::move(what), std::move(fix)};
}

/// One check: what has been seen of the machine goes in, what is to be said of it comes out. Asks nothing.
struct Check {
    const wchar_t* id;  ///< For scripts, as in "type-library".
    const wchar_t* title;
    Finding (*run)(const Machine& machine);
};

/// The checks by theme, each in its file.
std::span<const Check> driverChecks();
std::span<const Check> outlookChecks();
std::span<const Check> addressChecks();
std::span<const Check> dataChecks();
std::span<const Check> folderChecks();
std::span<const Check> traceChecks();

/// All of them, in the order of the report.
std::vector<Check> allChecks();

}  // namespace pimcall::doctor
