#pragma once

#include <string>
#include <vector>

#include "client/explain/Explanation.h"

namespace pimcall::explain {

/// The rows that miss a search least, the nearest first, and why each of them misses it. Throws a Fault when
/// the cache cannot be read.
std::vector<NearRow> nearestRows(const CacheReader& cache, SearchKind kind, const std::wstring& text);

/// How near a row's number or name is to the text that was searched for.
struct Nearness {
    int points = 0;  ///< More is nearer; 0 is not near at all.
    std::wstring reason;
};

Nearness nearNumber(const std::wstring& searched, const std::wstring& number);
Nearness nearName(const std::wstring& searched, const std::wstring& name);

}  // namespace pimcall::explain
