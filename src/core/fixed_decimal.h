#ifndef VEXA_CORE_FIXED_DECIMAL_H
#define VEXA_CORE_FIXED_DECIMAL_H

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

#include "core/decimal.h"

/// \file
/// Floating values as decimal text with six decimals, as "%f" gives it, in any locale.

namespace vexa::core {

/// Room for the text of any floating value, and for what is written beyond a short one.
template<class T>
inline constexpr std::size_t FIXED_ROOM = static_cast<std::size_t>(std::numeric_limits<T>::max_exponent10) + 16;

/// Millionths in a fraction below 1, to the nearest, ties to even: what "%f" shows of it. The fraction is a whole
/// number divided by a power of two, so that its product with a million is exact in 128 bits.
template<class T>
std::uint32_t Millionths(T fraction) noexcept
{
    __extension__ typedef unsigned __int128 Wide;
    constexpr T NOTHING = T(1) / (1U << 21U); // less than half a millionth
    if (fraction < NOTHING) return 0;
    int exponent = 0;
    const T mantissa = std::frexp(fraction, &exponent);
    constexpr int DIGITS = std::numeric_limits<T>::digits;
    const auto whole = static_cast<std::uint64_t>(std::ldexp(mantissa, DIGITS));
    const auto shift = static_cast<unsigned int>(DIGITS - exponent);
    const Wide product = static_cast<Wide>(whole) * 1000000U;
    const auto floor = static_cast<std::uint32_t>(product >> shift);
    const Wide rest = product - (static_cast<Wide>(floor) << shift);
    const Wide half = static_cast<Wide>(1) << (shift - 1U);
    return floor + (rest > half || (rest == half && floor % 2 != 0) ? 1U : 0U);
}

/// Writes a floating value as "%f" does, FIXED_ROOM<T> bytes at most. \return the end of the text.
template<class T>
char* WriteFixed(char* at, T value) noexcept
{
    constexpr T BEYOND_INTEGERS = T(9223372036854775808.0L);
    const T magnitude = std::abs(value);
    if (!(magnitude < BEYOND_INTEGERS))
        return std::to_chars(at, at + FIXED_ROOM<T>, value, std::chars_format::fixed, 6).ptr;
    *at = '-';
    at += std::signbit(value) ? 1 : 0;
    auto whole = static_cast<std::uint64_t>(magnitude);
    std::uint32_t millionths = Millionths(magnitude - static_cast<T>(whole));
    if (millionths == 1000000U) {
        ++whole;
        millionths = 0;
    }
    at = WriteDigits(at, whole);
    *at++ = '.';
    WritePairs<3>(at, millionths * SCALES[6]);
    return at + 6;
}

} // namespace vexa::core

#endif
