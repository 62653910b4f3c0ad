#pragma once

#include <string>
#include <vector>

namespace standin::outlook {

// Exit statuses of the program.
inline constexpr int kDone = 0;
inline constexpr int kNothingFound = 1;
inline constexpr int kFailed = 1;
inline constexpr int kUsage = 2;

// Runs one of the commands on the mailbox (import, delete, numbers, list, quit), the name being the first
// argument. Results go to the standard output and errors to the standard error, in UTF-8.
int runCommand(const std::vector<std::wstring>& arguments);

}  // namespace standin::outlook
