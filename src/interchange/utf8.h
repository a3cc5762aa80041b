#ifndef VEXA_INTERCHANGE_UTF8_H
#define VEXA_INTERCHANGE_UTF8_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <vexa/policy.h>

/// \file
/// UTF-8 as RFC 3629 has it: nothing overlong, no surrogates, nothing above U+10FFFF.

namespace vexa::interchange {

inline constexpr std::size_t MAX_CHARACTER_LENGTH = 4;
inline constexpr std::uint32_t REPLACEMENT_CHARACTER = 0xFFFD;

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

/// How many bytes a character takes.
constexpr std::size_t EncodedLength(std::uint32_t character) noexcept
{
    return character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
}

/// Writes a character, which is no surrogate. \return the end of its bytes.
inline char* Encode(char* out, std::uint32_t character) noexcept
{
    if (character < 0x80) {
        *out++ = static_cast<char>(character);
        return out;
    }
    const std::size_t length = EncodedLength(character);
    for (std::size_t i = length - 1; i > 0; --i, character >>= 6)
        out[i] = static_cast<char>(0x80 | (character & 0x3F));
    out[0] = static_cast<char>((0xF00U >> length & 0xF0U) | character);
    return out + length;
}

/// What stands for a byte that is part of no character, by a policy that is not PROBLEM.
inline std::uint32_t CharacterOfBadByte(char byte, BadText policy) noexcept
{
    return policy == BadText::LATIN_1 ? static_cast<unsigned char>(byte) : REPLACEMENT_CHARACTER;
}

/// The first byte that is part of no character, or the text's size.
std::size_t FindBadUtf8(std::string_view text) noexcept;

/// Appends a text, with what the policy says in place of each byte that is part of no character. With
/// BadText::PROBLEM the text has none.
void AppendMended(std::string& out, std::string_view text, BadText policy);

} // namespace vexa::interchange

#endif
