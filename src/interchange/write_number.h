#ifndef VEXA_INTERCHANGE_WRITE_NUMBER_H
#define VEXA_INTERCHANGE_WRITE_NUMBER_H

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "core/decimal.h"

namespace vexa::interchange {

/// Room for any number but a CDecimal.
inline constexpr std::size_t NUMBER_ROOM = 48;

/// Writes a finite value in the shortest form that reads back equal, with `.0` where it would be taken for an integer:
/// NUMBER_ROOM bytes at most. \return their end.
template<class T>
char* WriteShortest(char* at, T value) noexcept
{
    constexpr T SMALL = T(100000); // from here on an exponent may be shorter
    constexpr T HUGE_INTEGER = T(9223372036854775808.0L);
    const T magnitude = std::abs(value);
    bool mayBeDigits = true;
    if (magnitude < HUGE_INTEGER) {
        const auto whole = static_cast<std::int64_t>(magnitude);
        mayBeDigits = static_cast<T>(whole) == magnitude;
        if (mayBeDigits && magnitude < SMALL) {
            *at = '-';
            at = core::WriteUpToEightDigits(at + (std::signbit(value) ? 1 : 0), static_cast<std::uint64_t>(whole));
            std::memcpy(at, ".0", 2);
            return at + 2;
        }
    }
    char* const end = std::to_chars(at, at + NUMBER_ROOM, value).ptr;
    if (!mayBeDigits) return end;
    for (const char* next = at; next != end; ++next)
        if (*next == '.' || *next == 'e') return end;
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
