#pragma once

#include <string>
#include <vector>

#include "client/Writer.h"
#include "client/doctor/Finding.h"

namespace pimcall::doctor {

/// A check and what it said.
struct Result {
    Check check;
    Finding finding;
};

/// Runs all checks.
std::vector<Result> examine(const Machine& machine);

/// One line a check, with what to do below it, and the sums at the end.
void writeReport(Writer& writer, const std::vector<Result>& results);
std::wstring reportJson(const std::vector<Result>& results);

}  // namespace pimcall::doctor
