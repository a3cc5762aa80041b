#ifndef VEXA_CORE_SCAN_H
#define VEXA_CORE_SCAN_H

#include <cstddef>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace vexa::core {

/// The first quotation mark or backslash from \p first on, or \p last. Looks at 16 bytes at a time and never beyond \p
/// last.
inline const char* FindQuoteOrBackslash(const char* first, const char* last) noexcept
{
#ifdef __SSE2__
    const __m128i quotes = _mm_set1_epi8('"');
    const __m128i backslashes = _mm_set1_epi8('\\');
    for (; last - first >= 16; first += 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(first));
        const __m128i hits = _mm_or_si128(_mm_cmpeq_epi8(block, quotes), _mm_cmpeq_epi8(block, backslashes));
        if (const int mask = _mm_movemask_epi8(hits)) return first + __builtin_ctz(static_cast<unsigned>(mask));
    }
#endif
    while (first != last && *first != '"' && *first != '\\')
        ++first;
    return first;
}

/// Whether the text from \p text to \p end begins with \p prefix, behind which 16 bytes may be read too.
inline bool StartsWith(const char* text, const char* end, const char* prefix, std::size_t length) noexcept
{
#ifdef __SSE2__
    if (length <= 16 && end - text >= 16) {
        const __m128i left = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
        const __m128i right = _mm_loadu_si128(reinterpret_cast<const __m128i*>(prefix));
        const unsigned wanted = (1U << length) - 1;
        return (static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(left, right))) & wanted) == wanted;
    }
#endif
    return static_cast<std::size_t>(end - text) >= length && std::memcmp(text, prefix, length) == 0;
}

} // namespace vexa::core

#endif
