#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "filler/CacheTable.h"

namespace filler {

/// Stands for a set of rows, in whatever order they come: that two sets have the same one by chance is as
/// good as impossible. 128 bits; no protection against rows that somebody has made up for it.
class Digest {
  public:
    /// `kind` keeps apart rows of different tables.
    void add(std::wstring_view kind, const RecordView& row);

    /// Some forty digits.
    std::wstring text() const;

    bool operator==(const Digest&) const = default;

  private:
    // Sums of the rows' hashes: they do not depend on the order, and count a row as often as it is there.
    std::uint64_t one_ = 0;
    std::uint64_t other_ = 0;
};

}  // namespace filler
