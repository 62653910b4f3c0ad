#pragma once

#include <functional>
#include <string>
#include <vector>

#include "client/Driver.h"
#include "client/Failure.h"
#include "client/Writer.h"

namespace pimcall {

/// The whole program but for its process: understands the words of the command line (without the program's
/// name), runs the command and tells failures in one sentence.
ExitCode runProgram(const std::vector<std::wstring>& words, const std::function<Driver()>& driver,
                    Writer& out, Writer& error) noexcept;

}  // namespace pimcall
