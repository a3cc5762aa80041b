#ifndef VEXA_INTERCHANGE_JSON_SCAN_H
#define VEXA_INTERCHANGE_JSON_SCAN_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include <vexa/event.h>
#include <vexa/policy.h>

#include "core/escape.h"
#include "core/utf8.h"
#include "text/json_cursor.h"

/// \file
/// What single bytes mean in JSON, and the searches for the first byte that matters. None looks at the end or behind.

namespace vexa::interchange {

/// What value a byte begins; END if none does.
inline constexpr std::array<EventKind, 256> VALUE_KINDS = [] {
    std::array<EventKind, 256> kinds{};
    for (std::size_t digit = '0'; digit <= '9'; ++digit)
        kinds[digit] = EventKind::SIGNED;
    kinds['-'] = EventKind::SIGNED;
    kinds['"'] = EventKind::STRING;
    kinds['{'] = EventKind::BEGIN_OBJECT;
    kinds['['] = EventKind::BEGIN_ARRAY;
    kinds['t'] = kinds['f'] = EventKind::BOOL;
    kinds['n'] = EventKind::NULL_VALUE;
    return kinds;
}();
static_assert(EventKind{} == EventKind::END);

/// The bytes of which numbers and words are made. One of them behind a number or a word is part of it, and wrong.
inline constexpr std::array<bool, 256> WORD_PARTS = [] {
    std::array<bool, 256> parts{};
    for (std::size_t byte = 0; byte < parts.size(); ++byte) {
        const std::size_t letter = byte | 0x20;
        parts[byte] = (byte >= '0' && byte <= '9') || (letter >= 'a' && letter <= 'z') || byte >= 0x80;
    }
    for (const char byte : {'+', '-', '.', '_'})
        parts[static_cast<unsigned char>(byte)] = true;
    return parts;
}();
inline bool IsWordPart(char byte) noexcept { return WORD_PARTS[static_cast<unsigned char>(byte)]; }

/// Whether a byte is neither a blank nor what may begin a comment.
inline bool IsTokenStart(char byte) noexcept { return byte != '/' && !text::IsBlank(byte); }

/// The bytes with which a string cannot go on as it stands: its end, an escape, a control character, beyond ASCII.
struct CStringStop {
    static bool Is(char byte) noexcept
    {
        const auto number = static_cast<unsigned char>(byte);
        return number < 0x20 || number >= 0x80 || byte == '"' || byte == '\\';
    }
#ifdef __SSE2__
    /// A bit for each of 16 bytes. Bytes beyond ASCII are negative, and so below the blank.
    static unsigned BitsIn(core::Block block) noexcept
    {
        const core::Block low = _mm_cmplt_epi8(block, _mm_set1_epi8(0x20));
        const core::Block quote = _mm_cmpeq_epi8(block, _mm_set1_epi8('"'));
        const core::Block backslash = _mm_cmpeq_epi8(block, _mm_set1_epi8('\\'));
        return core::BitsOf(_mm_or_si128(low, _mm_or_si128(quote, backslash)));
    }
#endif
};

/// The same where bytes beyond ASCII are looked at by themselves.
struct CEscapeStop {
    static bool Is(char byte) noexcept
    {
        return static_cast<unsigned char>(byte) < 0x20 || byte == '"' || byte == '\\';
    }
#ifdef __SSE2__
    static unsigned BitsIn(core::Block block) noexcept
    {
        const core::Block control = _mm_cmpeq_epi8(_mm_min_epu8(block, _mm_set1_epi8(0x1F)), block);
        const core::Block quote = _mm_cmpeq_epi8(block, _mm_set1_epi8('"'));
        const core::Block backslash = _mm_cmpeq_epi8(block, _mm_set1_epi8('\\'));
        return core::BitsOf(_mm_or_si128(control, _mm_or_si128(quote, backslash)));
    }
#endif
};

struct CNonBlank {
    static bool Is(char byte) noexcept { return !text::IsBlank(byte); }
#ifdef __SSE2__
    static unsigned BitsIn(core::Block block) noexcept
    {
        const auto is = [block](char byte) { return _mm_cmpeq_epi8(block, _mm_set1_epi8(byte)); };
        const core::Block blanks = _mm_or_si128(_mm_or_si128(is(' '), is('\n')), _mm_or_si128(is('\t'), is('\r')));
        return core::BitsOf(blanks) ^ 0xFFFFU;
    }
#endif
};

struct CNonAscii {
    static bool Is(char byte) noexcept { return static_cast<unsigned char>(byte) >= 0x80; }
#ifdef __SSE2__
    static unsigned BitsIn(core::Block block) noexcept { return core::BitsOf(block); }
#endif
};

/// The first byte of the wanted ones, or \p end. Looks at 16 bytes at a time.
template<class Wanted>
inline const char* FindByte(const char* next, const char* end) noexcept
{
#ifdef __SSE2__
    for (; end - next >= static_cast<std::ptrdiff_t>(core::BLOCK); next += core::BLOCK) {
        if (const unsigned bits = Wanted::BitsIn(core::LoadBlock(next))) return next + __builtin_ctz(bits);
    }
#endif
    while (next != end && !Wanted::Is(*next))
        ++next;
    return next;
}

/// Where characters that stand in a string as they are end, the first of which begins here. Looks at a limited number
/// of bytes: each one that is wrong has the end looked for anew.
inline const char* EndOfCharacters(const char* next, const char* end) noexcept
{
    constexpr std::ptrdiff_t MAX_LOOK_AHEAD = 256;
    const char* const last = end - next > MAX_LOOK_AHEAD ? next + MAX_LOOK_AHEAD : end;
    return core::FindBadCharacter(next, FindByte<CEscapeStop>(next, last));
}

/// Whether two texts of \p length bytes are the same: mostly by two comparisons of words, which overlap.
inline bool IsSame(const char* left, const char* right, std::size_t length) noexcept
{
    const auto isSame = [left, right](auto word, std::size_t at) {
        auto other = word;
        std::memcpy(&word, left + at, sizeof word);
        std::memcpy(&other, right + at, sizeof other);
        return word == other;
    };
    if (__builtin_expect(length > 16, 0)) return std::memcmp(left, right, length) == 0;
    if (length >= 8) return isSame(std::uint64_t{}, 0) && isSame(std::uint64_t{}, length - 8);
    if (length >= 4) return isSame(std::uint32_t{}, 0) && isSame(std::uint32_t{}, length - 4);
    return std::memcmp(left, right, length) == 0;
}

/// Reads a string's bytes between its quotation marks, whose grammar has been checked, into \p out, which has the room.
/// Bytes that are part of no character become what the policy says.
void DecodeString(char* out, std::string_view text, BadText policy) noexcept;

/// The number of four hexadecimal digits; NO_CODE_UNIT if they are none.
inline constexpr std::uint32_t NO_CODE_UNIT = 0xFFFFFFFF;
std::uint32_t CodeUnit(const char* digits) noexcept;
inline bool IsSurrogate(std::uint32_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDFFF; }
inline bool IsLowSurrogate(std::uint32_t unit) noexcept { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// Which of the arrays and objects that are open are objects. Nothing is allocated for the first 64.
class CNestedKinds {
public:
    bool IsEmpty() const noexcept { return m_count == 0; }
    bool IsObject() const noexcept { return (m_word & 1U) != 0; }
    void Push(bool isObject)
    {
        if (m_count != 0 && m_count % BITS == 0) m_outer.push_back(m_word);
        m_word = m_word << 1U | std::uint64_t{isObject};
        ++m_count;
    }
    void Pop() noexcept
    {
        --m_count;
        m_word >>= 1U;
        if (m_count == 0 || m_count % BITS != 0) return;
        m_word = m_outer.back();
        m_outer.pop_back();
    }

private:
    static constexpr std::size_t BITS = 64;
    std::uint64_t m_word = 0; ///< the innermost lowest
    std::size_t m_count = 0;
    std::vector<std::uint64_t> m_outer;
};

} // namespace vexa::interchange

#endif
