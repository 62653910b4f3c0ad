#pragma once

#include <string>
#include <vector>

namespace harness {

bool exists(const std::wstring& path);

/// All bytes of a file; fails the running test and is empty when it cannot be read.
std::string readFile(const std::wstring& path);

/// The bytes of a file that a program writes for whose end nobody waits: as soon as there are any and
/// the program has closed it, and none after ten seconds.
std::string awaitFile(const std::wstring& path);

/// Makes a file or replaces its content; fails the running test when that does not work.
void writeFile(const std::wstring& path, const std::string& bytes);

/// The lines of a text without their line breaks; a break at the end does not start another line.
std::vector<std::string> lines(const std::string& text);

}  // namespace harness
