#pragma once

#include <string>
#include <vector>

namespace pimcall::bundle {

/// One file of a bundle.
struct Part {
    std::string name;  ///< Plain ASCII.
    std::string bytes;
};

/// Writes a new zip file; one that exists is not touched. Throws `Failure`, and leaves no file then.
void writeZip(const std::wstring& path, const std::vector<Part>& parts);

}  // namespace pimcall::bundle
