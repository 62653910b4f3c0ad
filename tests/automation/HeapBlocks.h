#pragma once

#include <windows.h>

#include <vector>

/// How many blocks are in use on all heaps of this process. What repeats without leaking leaves the count
/// where it was, but for what the platform keeps ready (freed texts, for one).
inline long heapBlocks() {
    std::vector<HANDLE> heaps(64);
    heaps.resize(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
    long blocks = 0;
    for (HANDLE heap : heaps) {
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heap, &entry))
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) ++blocks;
    }
    return blocks;
}

/// The blocks that a thousand runs leave behind, after a hundred to warm up.
template <class Run>
long blocksLeftBy(Run&& run) {
    for (int i = 0; i < 100; ++i) run();
    const long before = heapBlocks();
    for (int i = 0; i < 1000; ++i) run();
    return heapBlocks() - before;
}

/// More than the platform keeps ready, much less than one block a run.
inline constexpr long kFewBlocks = 100;
