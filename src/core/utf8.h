#ifndef VEXA_CORE_UTF8_H
#define VEXA_CORE_UTF8_H

#include <cstddef>
#include <string_view>

#include "core/escape.h"

/// \file
/// UTF-8 as RFC 3629 has it: nothing overlong, no surrogates, nothing above U+10FFFF.

namespace vexa::core {

inline bool IsContinuation(char byte) noexcept { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80; }

/// Bytes of the character beyond ASCII that starts at \p next and ends by \p end; 0 where there is none.
///
/// Which second bytes a first one allows tells everything: the others would be overlong, a surrogate or too high.
inline std::size_t LongCharacterLength(const char* next, const char* end) noexcept
{
    const auto at = [next](int i) { return static_cast<unsigned char>(next[i]); };
    const unsigned first = at(0);
    if (end - next >= 3 && first >= 0xE0 && first <= 0xEF) {
        const unsigned lowest = first == 0xE0 ? 0xA0 : 0x80;
        const unsigned highest = first == 0xED ? 0x9F : 0xBF;
        return at(1) >= lowest && at(1) <= highest && IsContinuation(next[2]) ? 3 : 0;
    }
    if (end - next >= 2 && first >= 0xC2 && first <= 0xDF) return IsContinuation(next[1]) ? 2 : 0;
    if (end - next < 4 || first < 0xF0 || first > 0xF4) return 0;
    const unsigned lowest = first == 0xF0 ? 0x90 : 0x80;
    const unsigned highest = first == 0xF4 ? 0x8F : 0xBF;
    const bool isGood = at(1) >= lowest && at(1) <= highest && IsContinuation(next[2]) && IsContinuation(next[3]);
    return isGood ? 4 : 0;
}

/// The same of any character.
inline std::size_t CharacterLength(const char* next, const char* end) noexcept
{
    if (next != end && static_cast<unsigned char>(*next) < 0x80) return 1;
    return next != end ? LongCharacterLength(next, end) : 0;
}

#ifdef __SSE2__
/// How many of 16 bytes, the first of which begins a character, are whole characters; 0 where some byte is wrong.
///
/// Bits stand for bytes. Each first byte says which of the next ones are continuations: all of those and no others must
/// be. What is left are the bytes that begin nothing, and the second bytes that four first ones do not allow.
inline std::size_t WholeCharactersIn(Block block) noexcept
{
    const unsigned beyond = BitsOf(block);
    if (beyond == 0) return BLOCK;
    const auto from = [=](int byte) { // what lies beyond ASCII is ordered as signed bytes too
        return beyond & ~BitsOf(_mm_cmplt_epi8(block, _mm_set1_epi8(static_cast<char>(byte))));
    };
    const auto behind = [=](int byte) {
        return BitsOf(_mm_cmpeq_epi8(block, _mm_set1_epi8(static_cast<char>(byte)))) << 1U;
    };
    const unsigned first = from(0xC0);
    const unsigned longer = from(0xE0);
    const unsigned longest = from(0xF0);
    const unsigned due = first << 1U | longer << 2U | longest << 3U;
    unsigned wrong = (due ^ (beyond & ~first)) | (first & ~from(0xC2));
    if (longer != 0) {
        const unsigned high = from(0xA0);
        const unsigned higher = from(0x90);
        wrong |= (behind(0xE0) & ~high) | (behind(0xED) & high);
        wrong |= (behind(0xF0) & ~higher) | (behind(0xF4) & higher) | from(0xF5);
    }
    if ((wrong & 0xFFFFU) != 0) return 0;
    return due >> BLOCK == 0 ? BLOCK : 31U - static_cast<unsigned>(__builtin_clz(first));
}
#endif

/// The first byte from \p next on that is part of no character, or \p end. A character begins at \p next.
inline const char* FindBadCharacter(const char* next, const char* end) noexcept
{
#ifdef __SSE2__
    while (end - next >= static_cast<std::ptrdiff_t>(BLOCK)) {
        const std::size_t length = WholeCharactersIn(LoadBlock(next));
        if (length == 0) break;
        next += length;
    }
#endif
    while (next != end) {
        const std::size_t length = CharacterLength(next, end);
        if (length == 0) break;
        next += length;
    }
    return next;
}

/// Whether the bytes from \p next to \p last are characters. As far as \p end may be read.
inline bool AreCharacters(const char* next, const char* last, [[maybe_unused]] const char* end) noexcept
{
#ifdef __SSE2__
    constexpr auto LENGTH = static_cast<std::ptrdiff_t>(BLOCK);
    if (last - next <= LENGTH && end - next >= LENGTH) {
        const Block wanted = FirstBytes(static_cast<std::size_t>(last - next)); // others become ASCII
        return WholeCharactersIn(_mm_and_si128(LoadBlock(next), wanted)) == BLOCK;
    }
#endif
    return FindBadCharacter(next, last) == last;
}

/// Whether a text consists of characters.
inline bool IsUtf8(std::string_view text) noexcept
{
    const char* const end = text.data() + text.size();
    return FindBadCharacter(text.data(), end) == end;
}

} // namespace vexa::core

#endif
