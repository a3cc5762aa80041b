// Numbers to formats that have them by tags only.

#include <algorithm>
#include <charconv>
#include <cstdlib>

#include "interchange/big_integer.h"
#include "interchange/decimal_digits.h"
#include "interchange/read_number.h"
#include "interchange/tagged.h"

namespace vexa::interchange {
namespace {

/// An integer by its absolute value.
void PutInteger(CEventSink& sink, bool isNegative, std::string digits)
{
    if (isNegative) Decrement(digits);
    unsigned long long value = 0;
    const bool fits = std::from_chars(digits.data(), digits.data() + digits.size(), value).ec == std::errc();
    if (fits) return isNegative ? sink.Negative(value) : sink.Unsigned(value);
    sink.Tag(isNegative ? ValueTag::NEGATIVE : ValueTag::INTEGER);
    sink.Bytes(BytesOfDigits(digits));
}

} // namespace

void PutNegative(CEventSink& sink, unsigned long long below)
{
    sink.Tag(ValueTag::NEGATIVE);
    sink.Bytes(BytesOfDigits(std::to_string(below)));
}

bool PutDecimal(CEventSink& sink, std::string_view digits)
{
    const CDecimalDigits decimal(digits);
    if (decimal.Count() > MOST_DIGITS || std::abs(decimal.Exponent) == CDecimalDigits::MOST_EXPONENT) return false;
    const long long exponent = decimal.Exponent - static_cast<long long>(decimal.Fraction.size());
    std::string whole = std::string(decimal.Integer).append(decimal.Fraction);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size() - 1));
    if (decimal.IsNegative && whole == "0") return sink.Floating(-0.0), true;
    if (exponent == 0) return PutInteger(sink, decimal.IsNegative, whole), true;
    sink.Tag(ValueTag::DECIMAL);
    sink.BeginArray(2);
    sink.Signed(exponent);
    PutInteger(sink, decimal.IsNegative, whole);
    sink.EndArray();
    return true;
}

} // namespace vexa::interchange
