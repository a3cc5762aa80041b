#ifndef VEXA_CORE_UTF8_H
#define VEXA_CORE_UTF8_H

#include <cstddef>
#include <string_view>

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

/// Whether a text consists of characters. For short texts: it looks at each.
inline bool IsUtf8(std::string_view text) noexcept
{
    const char* const end = text.data() + text.size();
    const char* next = text.data();
    while (next != end) {
        const std::size_t length = CharacterLength(next, end);
        if (length == 0) return false;
        next += length;
    }
    return true;
}

} // namespace vexa::core

#endif
