#include "tests/hostile/Measures.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace hostile {

namespace {

long long heapBytes() {
    std::vector<HANDLE> heaps(64);
    heaps.resize(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
    long long sum = 0;
    for (const HANDLE heap : heaps) {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heap);
        while (HeapWalk(heap, &entry))
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) sum += entry.cbData;
        HeapUnlock(heap);
    }
    return sum;
}

/// The highest of some new handles: the emulator does not count them, but takes the lowest that is free.
template <class Make, class Drop>
long highestOf(Make&& make, Drop&& drop) {
    std::array<HANDLE, 64> made;
    std::generate(made.begin(), made.end(), make);
    long highest = 0;
    for (const HANDLE handle : made)
        highest = std::max(highest, static_cast<long>(reinterpret_cast<ULONG_PTR>(handle) & 0xFFFF));
    std::for_each(made.begin(), made.end(), drop);
    return highest;
}

/// The emulator's table of windows is one for all processes, so they are counted.
BOOL CALLBACK countWindow(HWND window, LPARAM count) noexcept {
    ++*reinterpret_cast<long*>(count);
    EnumChildWindows(
        window, [](HWND, LPARAM child) __stdcall->BOOL { return ++*reinterpret_cast<long*>(child); }, count);
    return TRUE;
}

}  // namespace

std::vector<Measure> measures() {
    constexpr long kJitter = 8;
    const auto makeHandle = [] { return CreateEventW(nullptr, FALSE, FALSE, nullptr); };
    const auto makePen = [] { return CreatePen(PS_SOLID, 1, 0); };
    long windows = 0;
    EnumThreadWindows(GetCurrentThreadId(), countWindow, reinterpret_cast<LPARAM>(&windows));
    return {{"bytes", heapBytes()},
            {"handles", highestOf(makeHandle, CloseHandle) / 4, kJitter},
            {"GDI objects", highestOf(makePen, DeleteObject), kJitter},
            {"windows", windows}};
}

}  // namespace hostile
