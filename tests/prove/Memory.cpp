#include "tests/prove/Memory.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "tests/prove/Departures.h"

namespace prove::memory {

namespace {

constexpr unsigned kMark = 0x50524F56, kFreed = 0x46524545;
constexpr unsigned char kFill = 0xDD, kFresh = 0xCD;
constexpr std::size_t kKept = 4096;

/// In front of every block; its size keeps the alignment.
struct Header {
    unsigned mark;
    std::size_t size;
    unsigned reserved[2];
};

struct Heap {
    long blocks = 0;
    long spoilt = 0;
    std::array<Header*, kKept> kept{};
    std::size_t next = 0;
} heap;

unsigned char* bytesOf(Header* header) {
    return reinterpret_cast<unsigned char*>(header + 1);
}

Header* headerOf(void* block) {
    return static_cast<Header*>(block) - 1;
}

void* make(std::size_t size) noexcept {
    auto* header = static_cast<Header*>(std::malloc(sizeof(Header) + size));
    if (!header) return nullptr;
    *header = {kMark, size, {}};
    std::memset(bytesOf(header), kFresh, size);
    ++heap.blocks;
    return bytesOf(header);
}

/// Lets go of a block for good.
void part(Header* header) noexcept {
    if (!header) return;
    const unsigned char* bytes = bytesOf(header);
    if (std::any_of(bytes, bytes + header->size, [](unsigned char byte) { return byte != kFill; }))
        ++heap.spoilt;
    std::free(header);
}

}  // namespace

void* __cdecl allocate(std::size_t size) noexcept {
    return departures.leaves(Kind::Memory) ? nullptr : make(size);
}

void* __cdecl allocateZeroed(std::size_t count, std::size_t size) noexcept {
    void* block = allocate(count * size);
    if (block) std::memset(block, 0, count * size);
    return block;
}

void* __cdecl reallocate(void* block, std::size_t size) noexcept {
    if (block && headerOf(block)->mark != kMark) return std::realloc(block, size);
    void* other = allocate(size);
    if (!other || !block) return other;
    std::memcpy(other, block, std::min(size, headerOf(block)->size));
    release(block);
    return other;
}

void __cdecl release(void* block) noexcept {
    if (!block) return;
    Header* header = headerOf(block);
    if (header->mark == kFreed) ++heap.spoilt;
    // What the run-time library has made itself.
    if (header->mark != kMark) return std::free(block);
    header->mark = kFreed;
    std::memset(block, kFill, header->size);
    --heap.blocks;
    part(std::exchange(heap.kept[heap.next], header));
    heap.next = (heap.next + 1) % kKept;
}

long blocks() noexcept {
    return heap.blocks;
}

long spoilt() noexcept {
    return std::exchange(heap.spoilt, 0);
}

}  // namespace prove::memory
