#pragma once

namespace hostile {

/// What this process holds.
struct Measures {
    /// Taken from all heaps.
    long long bytes;
    /// They grow with the numbers of handles and of GDI objects.
    long handles, gdi;
    /// This thread's windows.
    long windows;

    static Measures now();
};

}  // namespace hostile
