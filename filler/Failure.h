#pragma once

#include <string>

namespace filler {

/// Ends a run. The sentence is what the user reads: what went wrong, and what he can do where that helps.
struct Failure {
    std::wstring sentence;
};

}  // namespace filler
