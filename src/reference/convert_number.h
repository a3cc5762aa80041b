#ifndef VEXA_REFERENCE_CONVERT_NUMBER_H
#define VEXA_REFERENCE_CONVERT_NUMBER_H

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace vexa::reference {

/// Cuts a floating value toward zero. One that does not fit gives the lowest value, as the x86-64 conversion
/// instructions do; the language leaves it undefined.
template<class Integer, class Floating>
Integer Cut(Floating value)
{
    constexpr Integer LOWEST = std::numeric_limits<Integer>::min();
    const auto limit = -static_cast<Floating>(LOWEST); // a power of two, which every floating type holds exactly
    const Floating whole = std::trunc(value);
    return whole >= -limit && whole < limit ? static_cast<Integer>(whole) : LOWEST;
}

/// Converts between arithmetic types without any range check: an integer target keeps the low bits, a floating source
/// is cut toward zero to the next wider integer first, 32 bits for targets up to int and 64 beyond.
template<class Target, class Source>
Target ConvertNumber(Source value)
{
    if constexpr (std::is_same_v<Target, bool>) {
        return value != Source();
    } else if constexpr (!std::is_floating_point_v<Source> || std::is_floating_point_v<Target>) {
        return static_cast<Target>(value);
    } else if constexpr (std::is_unsigned_v<Target> && sizeof(Target) == 8) {
        constexpr std::uint64_t TOP_BIT = std::uint64_t{1} << 63U;
        const auto top = static_cast<Source>(TOP_BIT);
        if (value >= top) return static_cast<std::uint64_t>(Cut<std::int64_t>(value - top)) ^ TOP_BIT;
        return static_cast<Target>(Cut<std::int64_t>(value));
    } else if constexpr (sizeof(Target) == 8 || std::is_same_v<Target, unsigned int>) {
        return static_cast<Target>(Cut<std::int64_t>(value));
    } else {
        return static_cast<Target>(Cut<std::int32_t>(value));
    }
}

} // namespace vexa::reference

#endif
