// Numbers of trees: digits, and what they mean.

#include <vexa/json_tree.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "interchange/tree_access.h"
#include "interchange/tree_number.h"
#include "interchange/write_number.h"

namespace vexa {
namespace interchange {
namespace {

bool IsDigit(char c) noexcept { return c >= '0' && c <= '9'; }

/// The number behind the `e`, held within what can be added to without overflow.
long long ExponentOf(std::string_view text, bool& isExact) noexcept
{
    constexpr long long BEYOND = 1'000'000'000'000'000'000;
    if (!text.empty() && text[0] == '+') text.remove_prefix(1);
    long long exponent = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), exponent);
    isExact = error == std::errc() && exponent < BEYOND && exponent > -BEYOND;
    if (isExact) return exponent;
    return text[0] == '-' ? -BEYOND : BEYOND;
}

/// The next digit behind the point, if that comes; 0 at the end.
char TakeDigit(std::string_view& digits) noexcept
{
    if (!digits.empty() && digits[0] == '.') digits.remove_prefix(1);
    if (digits.empty()) return 0;
    const char digit = digits[0];
    digits.remove_prefix(1);
    return digit;
}

} // namespace

CDecimalText TakeApart(std::string_view number) noexcept
{
    CDecimalText result;
    result.IsNegative = number[0] == '-';
    if (result.IsNegative) number.remove_prefix(1);
    const std::size_t e = number.find_first_of("eE");
    if (e != number.npos) result.Exponent = ExponentOf(number.substr(e + 1), result.IsExponentExact);
    result.Digits = number.substr(0, e);
    const std::size_t point = std::min(result.Digits.find('.'), result.Digits.size());
    const std::size_t first = std::min(result.Digits.find_first_not_of("0."), result.Digits.size());
    result.Digits = result.Digits.substr(0, result.Digits.find_last_not_of("0.") + 1);
    result.Digits.remove_prefix(std::min(first, result.Digits.size()));
    result.Exponent += static_cast<long long>(point) - static_cast<long long>(first) + (first > point ? 1 : 0);
    return result;
}

bool IsSameNumber(std::string_view left, std::string_view right) noexcept
{
    if (left == right) return true;
    if (!IsDigit(left.back()) || !IsDigit(right.back())) return false; // NaN and the infinities
    CDecimalText l = TakeApart(left);
    CDecimalText r = TakeApart(right);
    if (l.Digits.empty() || r.Digits.empty()) return l.Digits.empty() && r.Digits.empty();
    if (l.IsNegative != r.IsNegative || l.Exponent != r.Exponent) return false;
    if (!l.IsExponentExact || !r.IsExponentExact) return false;
    while (!l.Digits.empty() || !r.Digits.empty()) {
        if (TakeDigit(l.Digits) != TakeDigit(r.Digits)) return false;
    }
    return true;
}

int CompareNumbers(std::string_view left, std::string_view right) noexcept
{
    CDecimalText l = TakeApart(left);
    CDecimalText r = TakeApart(right);
    const auto sign = [](const CDecimalText& number) { return number.Digits.empty() ? 0 : number.IsNegative ? -1 : 1; };
    if (sign(l) != sign(r) || sign(l) == 0) return sign(l) - sign(r);
    if (l.Exponent != r.Exponent) return l.Exponent < r.Exponent ? -sign(l) : sign(l);
    while (!l.Digits.empty() || !r.Digits.empty()) {
        const char mine = TakeDigit(l.Digits);
        const char other = TakeDigit(r.Digits);
        if (mine != other) return mine < other ? -sign(l) : sign(l);
    }
    return 0;
}

bool ToMagnitude(const CDecimalText& number, unsigned long long& magnitude) noexcept
{
    constexpr unsigned long long MOST = std::numeric_limits<unsigned long long>::max();
    magnitude = 0;
    if (number.Digits.empty()) return true;
    std::string_view digits = number.Digits;
    if (number.Exponent > std::numeric_limits<unsigned long long>::digits10 + 1) return false;
    for (long long place = 0; place < number.Exponent; ++place) {
        const char digit = TakeDigit(digits);
        const auto value = static_cast<unsigned long long>(digit != 0 ? digit - '0' : 0);
        if (magnitude > (MOST - value) / 10) return false;
        magnitude = magnitude * 10 + value;
    }
    return TakeDigit(digits) == 0;
}

} // namespace interchange

using interchange::CDecimalText;

namespace {

template<class T>
std::string FloatingDigitsOf(T value)
{
    if (!std::isfinite(value)) return interchange::NameOfNotFinite(value);
    char digits[interchange::NUMBER_ROOM];
    return {digits, interchange::WriteShortest(digits, value)};
}

/// Takes digits off; \return whether there was one at least.
bool TakeDigits(std::string_view& text) noexcept
{
    const std::size_t size = text.size();
    while (!text.empty() && interchange::IsDigit(text[0]))
        text.remove_prefix(1);
    return text.size() != size;
}

bool TakeOne(std::string_view& text, std::string_view choice) noexcept
{
    if (text.empty() || choice.find(text[0]) == choice.npos) return false;
    text.remove_prefix(1);
    return true;
}

bool IsJsonNumber(std::string_view text) noexcept
{
    TakeOne(text, "-");
    if (!TakeOne(text, "0") && !TakeDigits(text)) return false;
    if (TakeOne(text, ".") && !TakeDigits(text)) return false;
    if (!TakeOne(text, "eE")) return text.empty();
    TakeOne(text, "+-");
    return TakeDigits(text) && text.empty();
}

} // namespace

void CJsonTree::SetInteger(long long value) { Become(JsonKind::NUMBER, std::to_string(value)); }
void CJsonTree::SetInteger(unsigned long long value) { Become(JsonKind::NUMBER, std::to_string(value)); }
void CJsonTree::SetFloating(float value) { Become(JsonKind::NUMBER, FloatingDigitsOf(value)); }
void CJsonTree::SetFloating(double value) { Become(JsonKind::NUMBER, FloatingDigitsOf(value)); }
void CJsonTree::SetFloating(long double value) { Become(JsonKind::NUMBER, FloatingDigitsOf(value)); }

bool CJsonTree::SetDigits(std::string_view digits)
{
    if (!IsJsonNumber(digits)) return false;
    Become(JsonKind::NUMBER, std::string(digits));
    return true;
}

std::optional<bool> CJsonTree::AsBool() const noexcept { return IsBool() ? std::optional(m_bool) : std::nullopt; }

std::optional<std::string_view> CJsonTree::AsText() const noexcept
{
    return IsText() ? std::optional<std::string_view>(m_text) : std::nullopt;
}

std::optional<std::string_view> CJsonTree::AsDigits() const noexcept
{
    return IsNumber() ? std::optional<std::string_view>(m_text) : std::nullopt;
}

std::optional<unsigned long long> CJsonTree::AsUnsigned() const noexcept
{
    if (!IsNumber() || !interchange::IsDigit(m_text.back())) return std::nullopt;
    const CDecimalText number = interchange::TakeApart(m_text);
    unsigned long long magnitude = 0;
    if (!interchange::ToMagnitude(number, magnitude) || (number.IsNegative && magnitude != 0)) return std::nullopt;
    return magnitude;
}

std::optional<long long> CJsonTree::AsInteger() const noexcept
{
    if (!IsNumber() || !interchange::IsDigit(m_text.back())) return std::nullopt;
    const CDecimalText number = interchange::TakeApart(m_text);
    const auto most = static_cast<unsigned long long>(std::numeric_limits<long long>::max());
    unsigned long long magnitude = 0;
    if (!interchange::ToMagnitude(number, magnitude)) return std::nullopt;
    if (magnitude > most + (number.IsNegative ? 1 : 0)) return std::nullopt;
    return static_cast<long long>(number.IsNegative ? 0 - magnitude : magnitude);
}

std::optional<double> CJsonTree::AsDouble() const noexcept
{
    if (!IsNumber()) return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(m_text.data(), m_text.data() + m_text.size(), value);
    if (error == std::errc()) return value;
    const CDecimalText number = interchange::TakeApart(m_text);
    if (number.Exponent > 0) return std::nullopt;
    return number.IsNegative ? -0.0 : 0.0;
}

} // namespace vexa
