#ifndef VEXA_TESTS_SUPPORT_COUNTED_ALLOCATION_H
#define VEXA_TESTS_SUPPORT_COUNTED_ALLOCATION_H

#include <cstdlib>
#include <new>

/// The global operator new, counted and made to fail: for a program of its own, in one of its files.

namespace vexa_test {

inline long s_live = 0;         ///< blocks that have not been freed
inline long s_made = 0;         ///< all that have been asked for
inline long s_untilFailure = 0; ///< the allocation that fails, counted down; 0 for none

inline void* Allocate(std::size_t size)
{
    ++s_made;
    if (s_untilFailure > 0 && --s_untilFailure == 0) return nullptr;
    void* const block = std::malloc(size != 0 ? size : 1);
    if (block != nullptr) ++s_live;
    return block;
}

inline void* AllocateOrThrow(std::size_t size)
{
    void* const block = Allocate(size);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

inline void Free(void* block)
{
    if (block != nullptr) --s_live;
    std::free(block);
}

} // namespace vexa_test

void* operator new(std::size_t size) { return vexa_test::AllocateOrThrow(size); }
void* operator new[](std::size_t size) { return vexa_test::AllocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return vexa_test::Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return vexa_test::Allocate(size); }
void operator delete(void* block) noexcept { vexa_test::Free(block); }
void operator delete[](void* block) noexcept { vexa_test::Free(block); }
void operator delete(void* block, std::size_t) noexcept { vexa_test::Free(block); }
void operator delete[](void* block, std::size_t) noexcept { vexa_test::Free(block); }

#endif
