#pragma once

#include <vector>

namespace hostile {

struct Measure {
    const char* what;
    long long number;
    /// By so much it may differ by chance.
    long long jitter = 0;
};

/// What this process holds: first the bytes of all heaps; numbers that grow with those of handles and of GDI
/// objects; this thread's windows.
std::vector<Measure> measures();

}  // namespace hostile
