#ifndef VEXA_CORE_ESCAPE_H
#define VEXA_CORE_ESCAPE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace vexa {
namespace core {

/// What stands behind the backslash: 0 for a byte that is written as it is, 'u' for one that is written as \u00xx.
using EscapeTable = std::array<char, 256>;

constexpr EscapeTable MakeEscapeTable()
{
    EscapeTable table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        table[byte] = byte < 0x20 || byte > 0x7E ? 'u' : '\0';
    }
    constexpr char kBytes[] = "\"\\/\b\f\n\r\t";
    constexpr char kLetters[] = "\"\\/bfnrt";
    for (std::size_t i = 0; kBytes[i] != '\0'; ++i) {
        table[static_cast<unsigned char>(kBytes[i])] = kLetters[i];
    }
    return table;
}

/// The one table of the escapes: the writers, the scan and the length all go by it.
inline constexpr EscapeTable kEscapes = MakeEscapeTable();

/// Length of an escape sequence: backslash and letter, or \u00xx.
constexpr unsigned long EscapeLength(char letter) { return letter == 'u' ? 6 : 2; }

/// True when one of 8 bytes at `p` needs escaping. Each comparison leaves the top bit set in some byte if it holds for
/// any of them, by the borrow of a byte-wise subtraction.
inline bool WordNeedsEscape(const unsigned char* p) noexcept
{
    constexpr std::uint64_t kOnes = 0x0101010101010101U;
    constexpr std::uint64_t kTops = kOnes * 0x80U;
    std::uint64_t word = 0;
    std::memcpy(&word, p, sizeof word);
    std::uint64_t hit = word | ((word - kOnes * 0x20U) & ~word);
    for (const std::uint64_t byte : {0x22U, 0x2FU, 0x5CU, 0x7FU}) {
        const std::uint64_t difference = word ^ (kOnes * byte);
        hit |= (difference - kOnes) & ~difference;
    }
    return (hit & kTops) != 0;
}

#ifdef __SSE2__
/// One bit for each of 16 bytes at `p`, the lowest for the first: set when the byte needs escaping. The signed
/// comparison catches both the control bytes and the bytes from 0x80 on.
inline unsigned BlockEscapeMask(const unsigned char* p) noexcept
{
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    const __m128i quotes =
        _mm_or_si128(_mm_cmpeq_epi8(block, _mm_set1_epi8(0x22)), _mm_cmpeq_epi8(block, _mm_set1_epi8(0x5C)));
    const __m128i others =
        _mm_or_si128(_mm_cmpeq_epi8(block, _mm_set1_epi8(0x2F)), _mm_cmpeq_epi8(block, _mm_set1_epi8(0x7F)));
    const __m128i range = _mm_cmplt_epi8(block, _mm_set1_epi8(0x20));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_or_si128(range, _mm_or_si128(quotes, others))));
}
#endif

/// Index of the first of `n` bytes at `p` that JSON text must not hold as it is, or `n`. Looks at 16 or 8 bytes at a
/// time and never reads beyond `n`.
inline std::size_t FindByteToEscape(const unsigned char* p, std::size_t n) noexcept
{
    std::size_t i = 0;
#ifdef __SSE2__
    for (; n - i >= 16; i += 16) {
        if (const unsigned mask = BlockEscapeMask(p + i)) {
            return i + static_cast<std::size_t>(__builtin_ctz(mask));
        }
    }
#endif
    while (n - i >= 8 && !WordNeedsEscape(p + i)) {
        i += 8;
    }
    while (i < n && kEscapes[p[i]] == '\0') {
        ++i;
    }
    return i;
}

/// The room that is counted for `n` bytes at `p` when they are escaped: exact, but that a control byte with a letter of
/// its own is counted like one without.
inline unsigned long EscapedRoom(const char* p, std::size_t n) noexcept
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(p);
    unsigned long room = n;
    for (std::size_t i = FindByteToEscape(bytes, n); i < n; i += 1 + FindByteToEscape(bytes + i + 1, n - i - 1)) {
        room += bytes[i] == '"' || bytes[i] == '\\' || bytes[i] == '/' ? 1 : 5;
    }
    return room;
}

/// helper::SetStringWithEscape for text that is not in a string. `p` may be null when `n` is 0.
void SetStringWithEscape(char* buf, unsigned long& pos, unsigned long cap, const char* p, std::size_t n) noexcept;

/// helper::AppendStringWithEscape for text that is not in a string. The text may lie inside `out`.
void AppendStringWithEscape(std::string& out, const char* p, std::size_t n);

} // namespace core
} // namespace vexa

#endif
