#ifndef VEXA_CORE_EXACT_DECIMAL_H
#define VEXA_CORE_EXACT_DECIMAL_H

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

#include "core/decimal.h"

/// \file
/// The decimal digits of a floating value, exactly: every binary place is one decimal place, so that nothing is rounded
/// and nothing need be cut off behind.

namespace vexa::core {

/// What a finite floating value is: Mantissa * 2^Exponent, without its sign. The mantissa is odd, or 0 for zero.
struct CBinaryFloating {
    std::uint64_t Mantissa;
    int Exponent;

    /// Digits behind the decimal point, without zeros at the end.
    std::size_t Places() const { return Exponent < 0 ? static_cast<std::size_t>(-Exponent) : 0; }
    /// Whether the part before the point fits 64 bits.
    bool HasShortInteger() const { return Exponent <= 0 || Exponent <= __builtin_clzll(Mantissa | 1U); }
    /// The part before the point, where it fits.
    std::uint64_t Integer() const
    {
        if (Exponent >= 0) return Mantissa << static_cast<unsigned>(Exponent);
        return Exponent > -64 ? Mantissa >> static_cast<unsigned>(-Exponent) : 0;
    }
};

inline CBinaryFloating MakeOdd(std::uint64_t mantissa, int exponent)
{
    if (mantissa == 0) return {0, 0};
    const int zeros = __builtin_ctzll(mantissa);
    return {mantissa >> static_cast<unsigned>(zeros), exponent + zeros};
}

/// The parts of a finite value.
template<class Floating>
CBinaryFloating SplitFloating(Floating value)
{
    constexpr int BITS = std::numeric_limits<Floating>::digits;
    static_assert(BITS <= 64 && std::numeric_limits<Floating>::radix == 2);
    if constexpr (std::is_same_v<Floating, double>) {
        std::uint64_t bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        const std::uint64_t fraction = bits & ((std::uint64_t{1} << 52U) - 1);
        const int exponent = static_cast<int>(bits >> 52U & 0x7FFU);
        return exponent == 0 ? MakeOdd(fraction, -1074) : MakeOdd(fraction | std::uint64_t{1} << 52U, exponent - 1075);
    } else {
        int exponent = 0;
        const Floating fraction = std::frexp(std::fabs(value), &exponent);
        return MakeOdd(static_cast<std::uint64_t>(std::ldexp(fraction, BITS)), exponent - BITS);
    }
}

/// Writes the digits of a fraction below 1, sixteen at a time: each time the fraction is multiplied by 10^16, what
/// comes out above the point is the next sixteen digits.
class CFractionDigits {
public:
    static constexpr std::size_t MAX_PLACES = 256;
    static constexpr std::size_t ROOM = MAX_PLACES; ///< a multiple of what is written at a time

    /// \param value its Places() are at most MAX_PLACES.
    explicit CFractionDigits(const CBinaryFloating& value) : m_places(value.Places()), m_count((m_places + 63) / 64)
    {
        if (m_count == 0) return;
        // The point stands above the highest word. The mantissa ends in the lowest place and reaches over two words at
        // most; what stands above the point falls off.
        const auto shift = static_cast<unsigned>(64 * m_count - m_places);
        m_words[0] = value.Mantissa << shift;
        if (m_count > 1 && shift > 0) m_words[1] = value.Mantissa >> (64 - shift);
    }

    /// Writes Places() digits at \p out, where there is ROOM. \return their number.
    std::size_t Write(char* out)
    {
        for (std::size_t done = 0; done < m_places; done += 16) {
            const std::uint64_t digits = TakeSixteen();
            WriteEightDigits(out + done, digits / EIGHT_DIGITS_END);
            WriteEightDigits(out + done + 8, digits % EIGHT_DIGITS_END);
        }
        return m_places;
    }

private:
    std::uint64_t TakeSixteen()
    {
        constexpr std::uint64_t FACTOR = 10000000000000000U;
        __extension__ using Wide = unsigned __int128;
        std::uint64_t carry = 0;
        for (std::size_t i = 0; i < m_count; ++i) {
            const Wide product = static_cast<Wide>(m_words[i]) * FACTOR + carry;
            m_words[i] = static_cast<std::uint64_t>(product);
            carry = static_cast<std::uint64_t>(product >> 64U);
        }
        return carry;
    }

    std::size_t m_places;
    std::size_t m_count;
    std::array<std::uint64_t, MAX_PLACES / 64> m_words{}; ///< the lowest first
};

} // namespace vexa::core

#endif
