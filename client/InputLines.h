#pragma once

#include <string>
#include <vector>

namespace pimcall {

/// The lines of the standard input, which is UTF-8. Throws `Failure` when it cannot be read.
std::vector<std::wstring> inputLines();

}  // namespace pimcall
