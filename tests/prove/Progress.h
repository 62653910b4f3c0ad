#pragma once

#include <string>

/// Where a process of many runs stands: for whoever goes on behind a run that ends it.
namespace prove {

/// Ends this process, and says in which run, at an access to wrong memory, and after a run that does not end.
void watchProcess();

/// A run begins; `number` is its place among all.
void begins(long number, const std::string& name);

/// The current run has ended the process.
[[noreturn]] void ends(const char* why) noexcept;

}  // namespace prove
