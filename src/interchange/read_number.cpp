#include "interchange/read_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "core/c_locale.h"
#include "interchange/decimal_digits.h"
#include "interchange/write_number.h"

namespace vexa::interchange {

namespace {

constexpr std::uint64_t MOST_MAGNITUDE = std::numeric_limits<std::uint64_t>::max();

NumberVerdict IntegerOf(const CDecimalDigits& decimal, CInteger& integer)
{
    integer = {decimal.IsNegative, 0};
    const std::size_t count = decimal.Count();
    const std::size_t first = decimal.First();
    if (first == count) return NumberVerdict::GOOD;
    const long long point = decimal.Point();
    for (std::size_t i = count; i-- > first && static_cast<long long>(i) >= point;)
        if (decimal.At(i) != '0') return NumberVerdict::NOT_AN_INTEGER;
    if (point - static_cast<long long>(first) > 20) return NumberVerdict::OUT_OF_RANGE;
    for (long long i = static_cast<long long>(first); i < point; ++i) {
        const auto place = static_cast<std::size_t>(i);
        const auto digit = static_cast<std::uint64_t>(place < count ? decimal.At(place) - '0' : 0);
        if (integer.Magnitude > (MOST_MAGNITUDE - digit) / 10) return NumberVerdict::OUT_OF_RANGE;
        integer.Magnitude = integer.Magnitude * 10 + digit;
    }
    return NumberVerdict::GOOD;
}

} // namespace

NumberVerdict IntegerOf(const CNumber& number, CInteger& integer)
{
    if (number.Kind == CNumber::Form::DIGITS) return IntegerOf(CDecimalDigits(number.Digits), integer);
    if (number.Kind == CNumber::Form::INTEGER) {
        integer = {number.IsNegative, number.Magnitude};
        return NumberVerdict::GOOD;
    }
    const double value = number.Floating;
    if (std::isinf(value)) return NumberVerdict::OUT_OF_RANGE;
    if (!(std::trunc(value) == value)) return NumberVerdict::NOT_AN_INTEGER;
    if (std::fabs(value) >= 18446744073709551616.0) return NumberVerdict::OUT_OF_RANGE;
    integer = {value < 0, static_cast<std::uint64_t>(std::fabs(value))};
    return NumberVerdict::GOOD;
}

namespace {

/// What is nearest to a number that is less than the least of full precision. Of long doubles, std::from_chars takes
/// those for out of range.
template<class T>
T SmallestOfDigits([[maybe_unused]] std::string_view digits, bool isNegative)
{
    if constexpr (std::is_same_v<T, long double>)
        return strtold_l(std::string(digits).c_str(), nullptr, core::CLocale());
    else
        return isNegative ? -T(0) : T(0);
}

/// std::from_chars tells too large and too small alike.
template<class T>
NumberVerdict FloatingOfDigits(std::string_view digits, T& value)
{
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec != std::errc::result_out_of_range) return NumberVerdict::GOOD;
    const CDecimalDigits decimal(digits);
    if (decimal.Point() - static_cast<long long>(decimal.First()) > 0) return NumberVerdict::OUT_OF_RANGE;
    value = SmallestOfDigits<T>(digits, decimal.IsNegative);
    return NumberVerdict::GOOD;
}

template<class T>
NumberVerdict FloatingOfNumber(const CNumber& number, T& value)
{
    switch (number.Kind) {
    case CNumber::Form::INTEGER: {
        const T magnitude = static_cast<T>(number.Magnitude);
        value = number.IsNegative ? -magnitude : magnitude;
        return NumberVerdict::GOOD;
    }
    case CNumber::Form::DIGITS: return FloatingOfDigits(number.Digits, value);
    case CNumber::Form::FLOATING: break;
    }
    const T converted = static_cast<T>(number.Floating);
    if (std::isinf(converted) && !std::isinf(number.Floating)) return NumberVerdict::OUT_OF_RANGE;
    value = converted;
    return NumberVerdict::GOOD;
}

} // namespace

NumberVerdict FloatingOf(const CNumber& number, float& value) { return FloatingOfNumber(number, value); }
NumberVerdict FloatingOf(const CNumber& number, double& value) { return FloatingOfNumber(number, value); }
NumberVerdict FloatingOf(const CNumber& number, long double& value) { return FloatingOfNumber(number, value); }

namespace {

void SetNumeric(CNumeric& value, bool isNegative, std::string integer, std::string fraction)
{
    value.State = Enum::VS_VALID;
    value.Negative = isNegative ? 1 : 0;
    value.IntegerDigits = std::move(integer);
    value.FractionDigits = std::move(fraction);
}

/// An exponent moves the point; zeros are added where there are no digits.
NumberVerdict NumericOfDigits(const CDecimalDigits& decimal, CNumeric& value)
{
    if (decimal.Exponent == 0) {
        SetNumeric(value, decimal.IsNegative, std::string(decimal.Integer), std::string(decimal.Fraction));
        return NumberVerdict::GOOD;
    }
    const long long point = decimal.Point();
    const auto count = static_cast<long long>(decimal.Count());
    if (point > static_cast<long long>(MOST_DIGITS) || count - point > static_cast<long long>(MOST_DIGITS))
        return NumberVerdict::OUT_OF_RANGE;
    std::string integer;
    std::string fraction;
    for (long long i = std::min(0LL, point); i < std::max(count, point); ++i) {
        const char digit = i >= 0 && i < count ? decimal.At(static_cast<std::size_t>(i)) : '0';
        (i < point ? integer : fraction) += digit;
    }
    integer.erase(0, std::min(integer.find_first_not_of('0'), integer.size()));
    SetNumeric(value, decimal.IsNegative, integer.empty() ? "0" : integer, std::move(fraction));
    return NumberVerdict::GOOD;
}

} // namespace

NumberVerdict NumericOf(const CNumber& number, CNumeric& value)
{
    if (number.Kind == CNumber::Form::FLOATING) {
        if (!std::isfinite(number.Floating)) return NumberVerdict::OUT_OF_RANGE;
        char digits[NUMBER_ROOM];
        const char* const end = WriteShortest(digits, number.Floating);
        return NumericOfDigits(CDecimalDigits({digits, static_cast<std::size_t>(end - digits)}), value);
    }
    if (!number.Digits.empty()) return NumericOfDigits(CDecimalDigits(number.Digits), value);
    SetNumeric(value, number.IsNegative, std::to_string(number.Magnitude), {});
    return NumberVerdict::GOOD;
}

std::string ShownNumber(const CNumber& number, std::size_t most)
{
    if (!number.Digits.empty())
        return number.Digits.size() <= most ? std::string(number.Digits)
                                            : std::string(number.Digits.substr(0, most)) + "...";
    if (number.Kind == CNumber::Form::INTEGER) return (number.IsNegative ? "-" : "") + std::to_string(number.Magnitude);
    char text[32];
    const auto result = std::to_chars(text, text + sizeof text, number.Floating);
    return {text, result.ptr};
}

} // namespace vexa::interchange
