#ifndef VEXA_INTERCHANGE_UTF8_H
#define VEXA_INTERCHANGE_UTF8_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <vexa/policy.h>

#include "core/utf8.h"

/// \file
/// Texts in UTF-8 as the formats have them.

namespace vexa::interchange {

inline constexpr std::size_t MAX_CHARACTER_LENGTH = 4;
inline constexpr std::uint32_t REPLACEMENT_CHARACTER = 0xFFFD;

using core::AreCharacters;
using core::CharacterLength;
using core::FindBadCharacter;
using core::IsContinuation;
using core::LongCharacterLength;

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
inline std::size_t FindBadUtf8(std::string_view text) noexcept
{
    return static_cast<std::size_t>(FindBadCharacter(text.data(), text.data() + text.size()) - text.data());
}

/// Appends a text, with what the policy says in place of each byte that is part of no character. With
/// BadText::PROBLEM the text has none.
void AppendMended(std::string& out, std::string_view text, BadText policy);

} // namespace vexa::interchange

#endif
