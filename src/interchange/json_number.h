#ifndef VEXA_INTERCHANGE_JSON_NUMBER_H
#define VEXA_INTERCHANGE_JSON_NUMBER_H

#include <cstddef>
#include <string_view>

#include "interchange/source.h"
#include "text/digits.h"

/// \file
/// Numbers by RFC 8259: `-`? (`0` | [1-9][0-9]*) (`.` [0-9]+)? ([eE] [+-]? [0-9]+)?. The functions of the standard
/// library take more than that and less, so the grammar is looked at before they are asked.

namespace vexa::interchange {

/// So many digits fit 64 bits whatever they are.
inline constexpr std::ptrdiff_t MAX_WORD_DIGITS = 19;

inline bool IsDigit(char byte) noexcept { return byte >= '0' && byte <= '9'; }

/// Where the digits from \p next on end; null where there are none.
inline const char* SkipDigits(const char* next, const char* end) noexcept
{
    const char* const first = next;
    while (next != end && IsDigit(*next))
        ++next;
    return next != first ? next : nullptr;
}

/// Whether a number begins so that what std::from_chars takes from it is all of the grammar: no zero too many, and
/// digits on both sides of a point.
inline bool IsDecimalBeginning(const char* next, const char* end) noexcept
{
    if (next != end && *next == '-') ++next;
    if (next == end || !IsDigit(*next)) return false;
    const char* const first = next;
    next = SkipDigits(next, end);
    if (*first == '0' && next - first != 1) return false;
    return next == end || *next != '.' || (end - next > 1 && IsDigit(next[1]));
}

/// Reads what comes behind the integer digits, if there is something. \return its end; null where it is broken.
inline const char* ScanFraction(const char* next, const char* end, CNumber& number) noexcept
{
    if (next != end && *next == '.') {
        number.Kind = CNumber::Form::DIGITS;
        next = SkipDigits(next + 1, end);
        if (next == nullptr) return nullptr;
    }
    if (next != end && (*next == 'e' || *next == 'E')) {
        number.Kind = CNumber::Form::DIGITS;
        ++next;
        if (next != end && (*next == '+' || *next == '-')) ++next;
        next = SkipDigits(next, end);
    }
    return next;
}

/// Reads the sign and the integer digits of a number. \return their end; null where there are none or a zero too many.
inline const char* ScanInteger(const char* first, const char* end, CNumber& number) noexcept
{
    const char* next = first;
    number.IsNegative = next != end && *next == '-';
    if (number.IsNegative) ++next;
    const char* const digits = next;
    unsigned long long magnitude = 0;
    next = text::ReadDigits(next, end, magnitude);
    const std::ptrdiff_t count = next - digits;
    if (count == 0 || (*digits == '0' && count != 1)) return nullptr;
    number.Kind = count <= MAX_WORD_DIGITS ? CNumber::Form::INTEGER : CNumber::Form::DIGITS;
    number.Magnitude = magnitude;
    return next;
}

/// Reads a number. \return its end; null where none of the grammar starts here. What follows it is not looked at.
inline const char* ScanNumber(const char* first, const char* end, CNumber& number) noexcept
{
    const char* next = ScanInteger(first, end, number);
    if (next != nullptr) next = ScanFraction(next, end, number);
    if (next != nullptr) number.Digits = std::string_view(first, static_cast<std::size_t>(next - first));
    return next;
}

/// The double nearest to a number of the grammar; an infinity for one beyond the largest.
double NearestDouble(std::string_view digits) noexcept;

} // namespace vexa::interchange

#endif
