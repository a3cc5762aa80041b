#include <vexa/numeric.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <istream>
#include <ostream>
#include <string_view>

#include "core/exact_decimal.h"
#include "core/value_text.h"

namespace vexa {

namespace {

constexpr int MAX_PLACES = core::CFractionDigits::MAX_PLACES;

/// Room for the longest fixed text there is: a long double of 4933 digits, a sign, a point and the fraction.
constexpr std::size_t FIXED_TEXT_ROOM = 5300;

const char* SkipBlanks(const char* text)
{
    while (*text == ' ') {
        ++text;
    }
    return text;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

void Fail(CNumeric& number)
{
    number.Init();
    number.State = Enum::VS_ERROR;
}

/// Reads digits and points to the very end of the text.
void ReadDigits(CNumeric& number, const char* text)
{
    std::string* part = &number.IntegerDigits;
    while (*text != '\0') {
        if (*text == '.') {
            part = &number.FractionDigits;
            ++text;
            continue;
        }
        const char* end = text;
        while (IsDigit(*end)) {
            ++end;
        }
        if (end == text) {
            Fail(number);
            return;
        }
        part->append(text, end);
        text = end;
    }
    number.State = Enum::VS_VALID;
}

void Read(CNumeric& number, const char* text)
{
    number.Init();
    text = SkipBlanks(text);
    if (*text == '-') {
        number.Negative = 1;
    }
    if (*text == '-' || *text == '+') {
        text = SkipBlanks(text + 1);
    }
    if (*text != '\0') {
        ReadDigits(number, text);
    } else {
        Fail(number);
    }
}

void ReadInteger(CNumeric& number, long value)
{
    char text[24];
    *std::to_chars(text, text + sizeof text - 1, value).ptr = '\0';
    Read(number, text);
}

/// The long way: as fixed text, which is then read. Zeros at its end are no digits.
template<class Floating>
void ReadFixedText(CNumeric& number, Floating value, int places)
{
    char text[FIXED_TEXT_ROOM];
    char* end = std::to_chars(text, text + sizeof text - 1, value, std::chars_format::fixed, places).ptr;
    // NaN and the infinities have no point, and no zeros that could be cut off.
    if (std::memchr(text, '.', static_cast<std::size_t>(end - text)) != nullptr) {
        while (end[-1] == '0') {
            --end;
        }
    }
    *end = '\0';
    Read(number, text);
}

/// Every digit of the value, up to 256 behind the point. Only a value with more is rounded, and only one of more than
/// 64 bits before the point needs long arithmetic there; the last place of any other is its last binary place.
template<class Floating>
void ReadFloating(CNumeric& number, Floating value)
{
    if (!std::isfinite(value)) return ReadFixedText(number, value, 0);
    const core::CBinaryFloating parts = core::SplitFloating(value);
    if (parts.Places() > core::CFractionDigits::MAX_PLACES) return ReadFixedText(number, value, MAX_PLACES);
    if (!parts.HasShortInteger()) return ReadFixedText(number, value, 0);

    number.State = Enum::VS_VALID;
    number.Negative = std::signbit(value) ? 1 : 0;
    char integer[core::DECIMAL_ROOM];
    number.IntegerDigits.assign(integer, core::WriteDigits(integer, parts.Integer()));
    char fraction[core::CFractionDigits::ROOM];
    number.FractionDigits.assign(fraction, core::CFractionDigits(parts).Write(fraction));
}

std::string_view WithoutLeadingZeros(std::string_view digits)
{
    const std::size_t first = digits.find_first_not_of('0');
    return first != std::string_view::npos ? digits.substr(first) : std::string_view();
}

std::string_view WithoutTrailingZeros(std::string_view digits)
{
    return digits.substr(0, digits.find_last_not_of('0') + 1);
}

bool AllZeros(const CNumeric& number)
{
    return WithoutLeadingZeros(number.IntegerDigits).empty() && WithoutTrailingZeros(number.FractionDigits).empty();
}

bool SameDigits(const CNumeric& left, const CNumeric& right)
{
    return WithoutLeadingZeros(left.IntegerDigits) == WithoutLeadingZeros(right.IntegerDigits) &&
           WithoutTrailingZeros(left.FractionDigits) == WithoutTrailingZeros(right.FractionDigits);
}

} // namespace

CNumeric::CNumeric(const std::string& text) { Read(*this, text.c_str()); }

CNumeric::CNumeric(long value) { ReadInteger(*this, value); }

CNumeric::CNumeric(int value) { ReadInteger(*this, value); }

CNumeric::CNumeric(long double value) { ReadFloating(*this, value); }

CNumeric::CNumeric(double value) { ReadFloating(*this, value); }

CNumeric::CNumeric(float value) { ReadFloating(*this, static_cast<double>(value)); }

CNumeric& CNumeric::operator=(const std::string& text)
{
    // A number of its own, because the text may be one of this number's digit strings.
    return *this = CNumeric(text);
}

void CNumeric::Init()
{
    State = Enum::VS_NULL;
    Negative = 0;
    IntegerDigits.clear();
    FractionDigits.clear();
}

namespace {

/// What stands for a number without digits; empty for a valid one.
std::string_view TextOfState(const CNumeric& value)
{
    if (value.State == Enum::VS_VALID) return {};
    return value.State == Enum::VS_NULL ? "(null)" : "(NaN)";
}

char* Put(char* at, std::string_view text) { return std::copy(text.begin(), text.end(), at); }

} // namespace

std::size_t core::TextLength(const CNumeric& value) noexcept
{
    if (value.State != Enum::VS_VALID) return TextOfState(value).size();
    const std::size_t fraction = value.FractionDigits.empty() ? 0 : 1 + value.FractionDigits.size();
    return (value.Negative != 0 ? 1 : 0) + value.IntegerDigits.size() + fraction;
}

char* core::WriteText(char* at, const CNumeric& value) noexcept
{
    if (value.State != Enum::VS_VALID) return Put(at, TextOfState(value));
    if (value.Negative != 0) *at++ = '-';
    at = Put(at, value.IntegerDigits);
    if (value.FractionDigits.empty()) return at;
    *at++ = '.';
    return Put(at, value.FractionDigits);
}

std::string CNumeric::AsString() const
{
    std::string text(core::TextLength(*this), '\0');
    core::WriteText(text.data(), *this);
    return text;
}

bool CNumeric::IsZero() const { return State == Enum::VS_VALID && AllZeros(*this); }

bool CNumeric::IsEqu(const CNumeric& other) const
{
    const bool valid = State == Enum::VS_VALID;
    const bool otherValid = other.State == Enum::VS_VALID;
    const bool sameSign = (Negative != 0) == (other.Negative != 0);
    if (this == &other) {
        return true;
    }
    if (!valid && !otherValid) {
        return State == other.State;
    }
    if (valid != otherValid) {
        return sameSign;
    }
    return sameSign ? SameDigits(*this, other) : AllZeros(*this) && AllZeros(other);
}

bool operator==(const CNumeric& left, const CNumeric& right) { return left.IsEqu(right); }

bool operator!=(const CNumeric& left, const CNumeric& right) { return !left.IsEqu(right); }

std::ostream& operator<<(std::ostream& out, const CNumeric& value) { return out << value.AsString(); }

std::istream& operator>>(std::istream& in, CNumeric& value)
{
    std::string word;
    in >> word;
    value = word;
    return in;
}

} // namespace vexa
