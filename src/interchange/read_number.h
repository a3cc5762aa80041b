#ifndef VEXA_INTERCHANGE_READ_NUMBER_H
#define VEXA_INTERCHANGE_READ_NUMBER_H

#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>

#include <vexa/numeric.h>

#include "interchange/source.h"

/// \file
/// Numbers of a text into numbers of C++, without loss or not at all.

namespace vexa::interchange {

enum class NumberVerdict : unsigned char { GOOD, OUT_OF_RANGE, NOT_AN_INTEGER };

/// An integer by sign and magnitude.
struct CInteger {
    bool IsNegative = false;
    std::uint64_t Magnitude = 0;
};

/// The integer that a number is, however it is written: `1e3`, `20.0`.
NumberVerdict IntegerOf(const CNumber& number, CInteger& integer);

/// The nearest value; what is too small is zero. OUT_OF_RANGE where it would be infinite and the number is not.
NumberVerdict FloatingOf(const CNumber& number, float& value);
NumberVerdict FloatingOf(const CNumber& number, double& value);
NumberVerdict FloatingOf(const CNumber& number, long double& value);

/// Digit for digit: the fraction keeps its zeros. OUT_OF_RANGE where an exponent asks for more than MOST_DIGITS.
inline constexpr std::size_t MOST_DIGITS = 10000;
NumberVerdict NumericOf(const CNumber& number, CNumeric& value);

template<class T>
constexpr NumberVerdict Narrow(const CInteger& integer, T& value) noexcept
{
    static_assert(std::is_integral_v<T>);
    constexpr auto MOST = static_cast<std::uint64_t>(std::numeric_limits<T>::max());
    if (!integer.IsNegative) {
        if (integer.Magnitude > MOST) return NumberVerdict::OUT_OF_RANGE;
        value = static_cast<T>(integer.Magnitude);
        return NumberVerdict::GOOD;
    }
    constexpr std::uint64_t LEAST = std::is_signed_v<T> ? MOST + 1 : 0; // the magnitude of the least value
    if (integer.Magnitude > LEAST) return NumberVerdict::OUT_OF_RANGE;
    value = static_cast<T>(0 - integer.Magnitude);
    return NumberVerdict::GOOD;
}

/// The number as a T. \p value is as it was unless the verdict is GOOD.
template<class T>
NumberVerdict ConvertNumber(const CNumber& number, T& value)
{
    if constexpr (std::is_floating_point_v<T>) {
        return FloatingOf(number, value);
    } else {
        if (__builtin_expect(number.Kind == CNumber::Form::INTEGER, 1))
            return Narrow(CInteger{number.IsNegative, number.Magnitude}, value);
        CInteger integer;
        const NumberVerdict verdict = IntegerOf(number, integer);
        return verdict == NumberVerdict::GOOD ? Narrow(integer, value) : verdict;
    }
}

/// The number as a text shows it, cut to \p most bytes.
std::string ShownNumber(const CNumber& number, std::size_t most = 40);

} // namespace vexa::interchange

#endif
