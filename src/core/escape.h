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

/// \file
/// The escapes of JSON text. The rule: a byte from FIRST_PLAIN to LAST_PLAIN stands for itself, but those of
/// PLAIN_ESCAPED have a backslash before them; every other byte is written as \\u00xx, but those of CONTROL_ESCAPED as
/// a backslash and a letter. Everything here is made from these four constants.

namespace vexa::core {

inline constexpr unsigned char FIRST_PLAIN = 0x20;
inline constexpr unsigned char LAST_PLAIN = 0x7E;
inline constexpr char PLAIN_ESCAPED[] = {'"', '\\', '/'};
struct CControlEscape {
    char Byte;
    char Letter;
};
inline constexpr CControlEscape CONTROL_ESCAPED[] = {{'\b', 'b'}, {'\f', 'f'}, {'\n', 'n'}, {'\r', 'r'}, {'\t', 't'}};

constexpr bool IsInPlainRange(unsigned char byte) { return byte >= FIRST_PLAIN && byte <= LAST_PLAIN; }

/// How one byte is written.
struct CEscape {
    char Text[7];         ///< the byte itself or its sequence, then zeros: 8 bytes may be copied from here
    unsigned char Length; ///< 1 for a byte that stands for itself
};

constexpr std::array<CEscape, 256> MakeEscapes()
{
    constexpr char DIGITS[] = "0123456789abcdef";
    std::array<CEscape, 256> escapes{};
    for (std::size_t byte = 0; byte < escapes.size(); ++byte) {
        escapes[byte] = {{static_cast<char>(byte)}, 1};
        if (!IsInPlainRange(static_cast<unsigned char>(byte)))
            escapes[byte] = {{'\\', 'u', '0', '0', DIGITS[byte >> 4U], DIGITS[byte & 0x0FU]}, 6};
    }
    for (const char byte : PLAIN_ESCAPED)
        escapes[static_cast<unsigned char>(byte)] = {{'\\', byte}, 2};
    for (const CControlEscape& control : CONTROL_ESCAPED)
        escapes[static_cast<unsigned char>(control.Byte)] = {{'\\', control.Letter}, 2};
    return escapes;
}

inline constexpr std::array<CEscape, 256> ESCAPES = MakeEscapes();

/// What a byte to be escaped counts beyond itself: an escaped control byte counts like one without a letter.
constexpr unsigned long EscapeExtra(unsigned char byte) { return IsInPlainRange(byte) ? 1 : 5; }

inline const unsigned char* BytesOf(const char* p) noexcept { return reinterpret_cast<const unsigned char*>(p); }

/// True when one of 8 bytes at `p` needs escaping. Each comparison leaves the top bit set in some byte if it holds for
/// any of them, by the borrow of a byte-wise subtraction.
inline bool WordNeedsEscape(const unsigned char* p) noexcept
{
    constexpr std::uint64_t ONES = 0x0101010101010101U;
    constexpr std::uint64_t TOPS = ONES * 0x80U;
    std::uint64_t word = 0;
    std::memcpy(&word, p, sizeof word);
    const auto holds = [word](unsigned char byte) {
        const std::uint64_t difference = word ^ (ONES * byte);
        return (difference - ONES) & ~difference;
    };
    std::uint64_t hit = word | ((word - ONES * FIRST_PLAIN) & ~word) | holds(LAST_PLAIN + 1);
    for (const char byte : PLAIN_ESCAPED)
        hit |= holds(static_cast<unsigned char>(byte));
    return (hit & TOPS) != 0;
}

#ifdef __SSE2__
/// 16 bytes at once.
using Block = __m128i;
inline constexpr std::size_t BLOCK = sizeof(Block);

inline Block LoadBlock(const void* p) noexcept { return _mm_loadu_si128(static_cast<const Block*>(p)); }
inline void StoreBlock(void* p, Block block) noexcept { _mm_storeu_si128(static_cast<Block*>(p), block); }

/// Bytes of all ones where a byte lies outside the plain range. In signed bytes and one further up, what lies beyond
/// the last plain byte is negative, and so lies below the first like the control bytes.
inline Block OutsidePlainRange(Block block) noexcept
{
    static_assert(LAST_PLAIN == 0x7E, "the byte behind it becomes the lowest signed one");
    return _mm_cmpgt_epi8(_mm_set1_epi8(FIRST_PLAIN + 1), _mm_add_epi8(block, _mm_set1_epi8(1)));
}

inline Block NeedsEscape(Block block) noexcept
{
    static_assert(sizeof PLAIN_ESCAPED == 3);
    const Block two = _mm_or_si128(_mm_cmpeq_epi8(block, _mm_set1_epi8(PLAIN_ESCAPED[0])),
                                   _mm_cmpeq_epi8(block, _mm_set1_epi8(PLAIN_ESCAPED[1])));
    const Block third = _mm_cmpeq_epi8(block, _mm_set1_epi8(PLAIN_ESCAPED[2]));
    return _mm_or_si128(OutsidePlainRange(block), _mm_or_si128(two, third));
}

/// One bit for each of the 16 bytes, the lowest for the first.
inline unsigned int BitsOf(Block hits) noexcept { return static_cast<unsigned int>(_mm_movemask_epi8(hits)); }

/// All ones in the first or the last `n` of 16 bytes.
inline constexpr struct CByteMasks {
    unsigned char Bytes[3 * BLOCK];
} BYTE_MASKS = [] {
    CByteMasks masks{};
    for (std::size_t i = BLOCK; i < 2 * BLOCK; ++i)
        masks.Bytes[i] = 0xFF;
    return masks;
}();
inline Block FirstBytes(std::size_t n) noexcept { return LoadBlock(BYTE_MASKS.Bytes + 2 * BLOCK - n); }
inline Block LastBytes(std::size_t n) noexcept { return LoadBlock(BYTE_MASKS.Bytes + n); }

/// What the bytes of a block count beyond themselves; of those that are all ones in `counted`.
inline unsigned long ExtraOf(Block block, Block counted)
{
    static_assert(EscapeExtra(FIRST_PLAIN) == 1 && EscapeExtra(FIRST_PLAIN - 1) == 1 + 4);
    const Block ones = _mm_and_si128(NeedsEscape(block), _mm_set1_epi8(1));
    const Block fours = _mm_and_si128(OutsidePlainRange(block), _mm_set1_epi8(4));
    const Block extra = _mm_and_si128(_mm_add_epi8(ones, fours), counted);
    const Block halves = _mm_sad_epu8(extra, _mm_setzero_si128());
    return static_cast<unsigned long>(_mm_cvtsi128_si32(halves) + _mm_extract_epi16(halves, 4));
}
#endif

/// Index of the first of `n` bytes at `p` that JSON text must not hold as it is, or `n`. Looks at 16 or 8 bytes at a
/// time and never reads beyond `n`.
inline std::size_t FindByteToEscape(const unsigned char* p, std::size_t n) noexcept
{
    std::size_t i = 0;
#ifdef __SSE2__
    for (; n - i >= BLOCK; i += BLOCK) {
        if (const unsigned int bits = BitsOf(NeedsEscape(LoadBlock(p + i))))
            return i + static_cast<std::size_t>(__builtin_ctz(bits));
    }
#endif
    while (n - i >= 8 && !WordNeedsEscape(p + i))
        i += 8;
    while (i < n && ESCAPES[p[i]].Length == 1)
        ++i;
    return i;
}

/// The room that is counted for `n` bytes at `p` when they are escaped: exact, but that a control byte with a letter of
/// its own is counted like one without.
inline unsigned long EscapedRoom(const char* p, std::size_t n) noexcept
{
    const auto* const bytes = BytesOf(p);
    unsigned long room = n;
    std::size_t i = 0;
#ifdef __SSE2__
    for (; n - i >= BLOCK; i += BLOCK)
        room += ExtraOf(LoadBlock(p + i), FirstBytes(BLOCK));
#endif
    for (i += FindByteToEscape(bytes + i, n - i); i < n; i += 1 + FindByteToEscape(bytes + i + 1, n - i - 1))
        room += EscapeExtra(bytes[i]);
    return room;
}

/// helper::SetStringWithEscape for text that is not in a string. `p` may be null when `n` is 0.
void SetStringWithEscape(char* buf, unsigned long& pos, unsigned long cap, const char* p, std::size_t n) noexcept;

/// helper::AppendStringWithEscape for text that is not in a string. The text may lie inside `out`.
void AppendStringWithEscape(std::string& out, const char* p, std::size_t n);

} // namespace vexa::core

#endif
