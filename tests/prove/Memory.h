#pragma once

#include <cstddef>

/// The heap of the module under test. Blocks are counted; what is given back is overwritten and kept for a
/// while, so that whoever still uses it reads nonsense, and whoever writes to it is found out.
namespace prove::memory {

void* __cdecl allocate(std::size_t size) noexcept;
void* __cdecl allocateZeroed(std::size_t count, std::size_t size) noexcept;
void* __cdecl reallocate(void* block, std::size_t size) noexcept;
void __cdecl release(void* block) noexcept;

/// Blocks that have not been given back.
long blocks() noexcept;
/// Blocks that were written to after they had been given back, since the last question.
long spoilt() noexcept;

}  // namespace prove::memory
