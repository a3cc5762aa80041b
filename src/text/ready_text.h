#ifndef VEXA_TEXT_READY_TEXT_H
#define VEXA_TEXT_READY_TEXT_H

#include <cstddef>
#include <cstring>

/// \file
/// Text into memory that is known to have room for it.

namespace vexa::text {

inline char* WriteText(char* at, const char* text, std::size_t length)
{
    std::memcpy(at, text, length);
    return at + length;
}

/// What WriteReady may write, and read, beyond the text.
inline constexpr std::size_t READY_SPARE = 16;

/// Copies a ready-made text, up to 15 bytes behind it too.
inline char* WriteReady(char* at, const char* text, std::size_t length)
{
    std::memcpy(at, text, READY_SPARE);
    for (std::size_t i = READY_SPARE; __builtin_expect(i < length, 0); i += READY_SPARE)
        std::memcpy(at + i, text + i, READY_SPARE);
    return at + length;
}

} // namespace vexa::text

#endif
