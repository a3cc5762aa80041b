#ifndef VEXA_CORE_ESCAPE_TEXT_H
#define VEXA_CORE_ESCAPE_TEXT_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "core/escape.h"

/// \file
/// Escaped text into memory that has been measured for it.

namespace vexa::core {

/// Bytes behind the room of an escaped text that WriteEscaped may write, too.
inline constexpr std::size_t ESCAPE_SPARE = 16;

/// Writes the escaped text. `at` has EscapedRoom and ESCAPE_SPARE bytes. Returns the end of the text.
char* WriteEscaped(char* at, const char* p, std::size_t n) noexcept;

#ifdef __SSE2__
constexpr std::array<std::uint16_t, BLOCK + 1> MakeFirstBits()
{
    std::array<std::uint16_t, BLOCK + 1> bits{};
    for (std::size_t n = 0; n <= BLOCK; ++n)
        bits[n] = static_cast<std::uint16_t>((1U << n) - 1U);
    return bits;
}

/// The bits of the first so many bytes of a block. A table: one load in place of three steps.
inline constexpr std::array<std::uint16_t, BLOCK + 1> FIRST_BITS = MakeFirstBits();
#endif

/// The rest of the two functions below, for what is not short and plain.
unsigned long EscapedRoomOfLong(const std::string& text) noexcept;
char* WriteEscapedLong(char* at, const std::string& text) noexcept;

/// EscapedRoom of a string. Of a string 16 bytes may be read however short it is: its own, or of at least 17 on the
/// heap.
inline unsigned long EscapedRoom(const std::string& text) noexcept
{
#ifdef __SSE2__
    const std::size_t length = text.size();
    if (length == 0) return 0;
    if (__builtin_expect(length <= BLOCK, 1)) {
        const unsigned int bits = BitsOf(NeedsEscape(LoadBlock(text.data())));
        if (__builtin_expect((bits & FIRST_BITS[length]) == 0, 1)) return length;
    }
#endif
    return EscapedRoomOfLong(text);
}

/// WriteEscaped of a string.
inline char* WriteEscaped(char* at, const std::string& text) noexcept
{
#ifdef __SSE2__
    const std::size_t length = text.size(); // before anything is stored, which might be it
    if (length == 0) return at;
    if (__builtin_expect(length <= BLOCK, 1)) {
        const Block block = LoadBlock(text.data());
        StoreBlock(at, block);
        if (__builtin_expect((BitsOf(NeedsEscape(block)) & FIRST_BITS[length]) == 0, 1)) return at + length;
    }
#endif
    return WriteEscapedLong(at, text);
}

} // namespace vexa::core

#endif
