#ifndef VEXA_DETAIL_CURSOR_MEMORY_H
#define VEXA_DETAIL_CURSOR_MEMORY_H

#include <cstddef>
#include <new>
#include <type_traits>
#include <utility>

#include <vexa/export.h>

/// \file
/// Where the cursors of walks lie: in memory that each thread keeps from one walk to the next, so that a walk allocates
/// nothing. A cursor may be released on another thread than it was made on.

namespace vexa::detail {

inline constexpr std::size_t CURSOR_ROOM = 48;

/// CURSOR_ROOM bytes for a cursor. Throws std::bad_alloc.
VEXA_API void* TakeCursorMemory();
VEXA_API void ReturnCursorMemory(void* memory) noexcept;

template<class Cursor>
inline constexpr bool
    FITS_CURSOR_MEMORY = sizeof(Cursor) <= CURSOR_ROOM && alignof(Cursor) <= alignof(void*) &&
                         std::is_trivially_destructible_v<Cursor>&& std::is_nothrow_move_constructible_v<Cursor>;

template<class Cursor>
Cursor* MakeCursor(Cursor cursor)
{
    if constexpr (FITS_CURSOR_MEMORY<Cursor>)
        return ::new (TakeCursorMemory()) Cursor(std::move(cursor));
    else
        return new Cursor(std::move(cursor));
}

template<class Cursor>
void ReleaseCursor(void* cursor)
{
    if constexpr (FITS_CURSOR_MEMORY<Cursor>)
        ReturnCursorMemory(cursor);
    else
        delete static_cast<Cursor*>(cursor);
}

} // namespace vexa::detail

#endif
