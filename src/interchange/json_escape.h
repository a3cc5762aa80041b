#ifndef VEXA_INTERCHANGE_JSON_ESCAPE_H
#define VEXA_INTERCHANGE_JSON_ESCAPE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "core/escape_text.h"
#include "interchange/json_scan.h"

/// \file
/// Text in JSON strings of RFC 8259: quotation mark, backslash and control characters are escaped, everything else
/// stands as it is, once it has been found to be UTF-8.

namespace vexa::interchange {

/// Room for one character escaped: a pair of \u escapes.
inline constexpr std::size_t ESCAPE_ROOM = 12;

/// Whether a byte is to be looked at: it is escaped, or part of a character beyond ASCII.
constexpr bool IsSpecialByte(unsigned char byte) noexcept
{
    return byte < 0x20 || byte == '"' || byte == '\\' || byte >= 0x80;
}

constexpr std::array<bool, 256> MakeSpecialBytes()
{
    std::array<bool, 256> special{};
    for (unsigned int byte = 0; byte < 256; ++byte)
        special[byte] = IsSpecialByte(static_cast<unsigned char>(byte));
    return special;
}
inline constexpr std::array<bool, 256> SPECIAL_BYTES = MakeSpecialBytes();

inline bool IsSpecial(char byte) noexcept { return SPECIAL_BYTES[static_cast<unsigned char>(byte)]; }

#ifdef __SSE2__
/// A bit for each special byte of 16. In signed bytes what is no ASCII lies below the control characters.
inline unsigned int SpecialBits(core::Block block) noexcept
{
    const core::Block outside = _mm_cmpgt_epi8(_mm_set1_epi8(0x20), block);
    const core::Block quote = _mm_cmpeq_epi8(block, _mm_set1_epi8('"'));
    const core::Block backslash = _mm_cmpeq_epi8(block, _mm_set1_epi8('\\'));
    return core::BitsOf(_mm_or_si128(outside, _mm_or_si128(quote, backslash)));
}
#endif

#ifdef __SSE2__
/// Whether the first \p length of 16 bytes, among which are special ones, stand as they are: whole characters without
/// anything to escape.
__attribute__((noinline)) inline bool StandAsTheyAre(core::Block block, std::size_t length) noexcept
{
    if ((CEscapeStop::BitsIn(block) & core::FIRST_BITS[length]) != 0) return false;
    return core::WholeCharactersIn(_mm_and_si128(block, core::FirstBytes(length))) == core::BLOCK;
}
#endif

/// Copies up to the first special byte, 15 bytes of room behind \p n may be written. \return how many bytes.
inline std::size_t CopyPlain(char* at, const char* p, std::size_t n) noexcept
{
    std::size_t i = 0;
#ifdef __SSE2__
    using core::BLOCK;
    const auto copy = [at, p](std::size_t from) {
        const core::Block block = core::LoadBlock(p + from);
        core::StoreBlock(at + from, block);
        return SpecialBits(block);
    };
    for (; n - i >= BLOCK; i += BLOCK)
        if (const unsigned int bits = copy(i)) return i + static_cast<std::size_t>(__builtin_ctz(bits));
    if (i != 0 && i != n) { // once more the end of what is copied already
        const unsigned int bits = copy(n - BLOCK);
        return bits != 0 ? n - BLOCK + static_cast<std::size_t>(__builtin_ctz(bits)) : n;
    }
#endif
    for (; i < n && !IsSpecial(p[i]); ++i)
        at[i] = p[i];
    return i;
}

/// Writes `\u` and four digits of a half of a pair, or of a character without one.
inline char* WriteUnit(char* at, std::uint32_t unit) noexcept
{
    constexpr char DIGITS[] = "0123456789abcdef";
    const char text[] = {
        '\\', 'u', DIGITS[unit >> 12U], DIGITS[unit >> 8U & 0xFU], DIGITS[unit >> 4U & 0xFU], DIGITS[unit & 0xFU]};
    std::memcpy(at, text, sizeof text);
    return at + sizeof text;
}

inline char* WriteUnits(char* at, std::uint32_t character) noexcept
{
    if (character < 0x10000) return WriteUnit(at, character);
    at = WriteUnit(at, 0xD800U + ((character - 0x10000U) >> 10U));
    return WriteUnit(at, 0xDC00U + (character & 0x3FFU));
}

/// Writes a special byte of ASCII escaped, with a letter where there is one.
inline char* WriteEscape(char* at, char byte) noexcept
{
    const auto code = static_cast<unsigned char>(byte);
    const char letter = code < 0x20 ? "\0\0\0\0\0\0\0\0btn\0fr\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"[code] : byte;
    if (letter == '\0') return WriteUnit(at, code);
    *at = '\\';
    at[1] = letter;
    return at + 2;
}

} // namespace vexa::interchange

#endif
