#ifndef VEXA_INTERCHANGE_WRITE_NUMBER_H
#define VEXA_INTERCHANGE_WRITE_NUMBER_H

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "core/decimal.h"
#include "core/escape.h"

namespace vexa::interchange {

/// Room for any number but a CDecimal.
inline constexpr std::size_t NUMBER_ROOM = 48;

/// Whether a number's text has a point or an exponent. NUMBER_ROOM bytes may be read.
inline bool IsMarkedFloating(const char* text, std::size_t length) noexcept
{
    const auto isMark = [](char byte) { return byte == '.' || byte == 'e'; };
#ifdef __SSE2__
    const auto marks = [](core::Block block) {
        const core::Block points = _mm_cmpeq_epi8(block, _mm_set1_epi8('.'));
        return core::BitsOf(_mm_or_si128(points, _mm_cmpeq_epi8(block, _mm_set1_epi8('e'))));
    };
    if (__builtin_expect(length < 2 * core::BLOCK, 1)) { // without a branch for where it is
        const unsigned bits = marks(core::LoadBlock(text)) | marks(core::LoadBlock(text + core::BLOCK)) << core::BLOCK;
        return (bits & ((1U << length) - 1U)) != 0;
    }
#endif
    return std::any_of(text, text + length, isMark);
}

/// Writes a finite value in the shortest form that reads back equal, with `.0` where it would be taken for an integer:
/// NUMBER_ROOM bytes at most. \return their end.
template<class T>
char* WriteShortest(char* at, T value) noexcept
{
    constexpr T SMALL = T(100000); // from here on an exponent may be shorter
    const T magnitude = std::abs(value);
    const auto whole = static_cast<std::int64_t>(std::min(magnitude, SMALL - T(0.5))); // other than a larger value
    if (static_cast<T>(whole) == magnitude) {
        *at = '-';
        at = core::WriteUpToEightDigits(at + (std::signbit(value) ? 1 : 0), static_cast<std::uint64_t>(whole));
        std::memcpy(at, ".0", 2);
        return at + 2;
    }
    char* const end = std::to_chars(at, at + NUMBER_ROOM, value).ptr;
    if (__builtin_expect(IsMarkedFloating(at, static_cast<std::size_t>(end - at)), 1)) return end;
    std::memcpy(end, ".0", 2);
    return end + 2;
}

/// The names of what is no number, as JavaScript has them.
template<class T>
const char* NameOfNotFinite(T value) noexcept
{
    if (std::isnan(value)) return "NaN";
    return value < T() ? "-Infinity" : "Infinity";
}

} // namespace vexa::interchange

#endif
