#pragma once

#include <cstddef>
#include <string>

namespace pimcall::bundle {

inline constexpr std::size_t kWholeFile = static_cast<std::size_t>(-1);

/// The last bytes of a file that others may be writing, as many as `most`; empty when it cannot be read.
std::string fileBytes(const std::wstring& path, std::size_t most);

}  // namespace pimcall::bundle
