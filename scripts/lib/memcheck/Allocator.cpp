// Linked into a test program in place of the C library's allocator, to tell memcheck of every block: Windows'
// heap is a stranger to it. Blocks lie between bytes that nobody may touch, and freed ones are kept back for
// a while, so that a later use of them is seen.

#include <memcheck.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>

extern "C" {
// The linker's names for the allocator proper, and for what everybody else calls in its place (--wrap).
void* __real_malloc(std::size_t size);
void __real_free(void* block);
void* __wrap_malloc(std::size_t size);
void* __wrap_calloc(std::size_t count, std::size_t size);
void* __wrap_realloc(void* block, std::size_t size);
void __wrap_free(void* block);
}

namespace {

/// Untouchable bytes before and behind a block; its size stands in the first of them.
constexpr std::size_t kZone = 16;
constexpr std::size_t kKeptBack = 4096;

void* keptBack[kKeptBack];
std::atomic<std::size_t> nextKept;

std::size_t sizeOf(void* block) {
    char* const start = static_cast<char*>(block) - kZone;
    VALGRIND_MAKE_MEM_DEFINED(start, sizeof(std::size_t));
    std::size_t size = 0;
    std::memcpy(&size, start, sizeof size);
    VALGRIND_MAKE_MEM_NOACCESS(start, kZone);
    return size;
}

void* allocate(std::size_t size, bool zeroed) {
    if (size > SIZE_MAX - 2 * kZone) return nullptr;
    auto* const start = static_cast<char*>(__real_malloc(size + 2 * kZone));
    if (!start) return nullptr;
    std::memcpy(start, &size, sizeof size);
    char* const block = start + kZone;
    if (zeroed) std::memset(block, 0, size);
    VALGRIND_MALLOCLIKE_BLOCK(block, size, kZone, zeroed);
    VALGRIND_MAKE_MEM_NOACCESS(start, kZone);
    VALGRIND_MAKE_MEM_NOACCESS(block + size, kZone);
    return block;
}

void giveBack(void* block) {
    const std::size_t size = sizeOf(block);
    char* const start = static_cast<char*>(block) - kZone;
    VALGRIND_MAKE_MEM_UNDEFINED(start, size + 2 * kZone);
    __real_free(start);
}

}  // namespace

void* __wrap_malloc(std::size_t size) {
    return allocate(size, false);
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
    if (size != 0 && count > SIZE_MAX / size) return nullptr;
    return allocate(count * size, true);
}

void __wrap_free(void* block) {
    if (!block) return;
    VALGRIND_FREELIKE_BLOCK(block, kZone);
    void*& place = keptBack[nextKept++ % kKeptBack];
    if (void* const oldest = std::atomic_ref(place).exchange(block)) giveBack(oldest);
}

void* __wrap_realloc(void* block, std::size_t size) {
    if (!block) return allocate(size, false);
    void* const result = allocate(size, false);
    if (!result) return nullptr;
    const std::size_t before = sizeOf(block);
    std::memcpy(result, block, before < size ? before : size);
    __wrap_free(block);
    return result;
}

// The compiler's start of a function with large variables touches each page below the stack pointer, which
// looks like an error. The whole stack is there from the beginning (--stack), so that nothing need be
// touched.
asm(".globl ___chkstk_ms\n___chkstk_ms: ret\n");
