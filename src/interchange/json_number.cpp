#include "interchange/json_number.h"

#include <charconv>
#include <limits>

#include "interchange/tree_number.h"

namespace vexa::interchange {

double NearestDouble(std::string_view digits) noexcept
{
    double value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec == std::errc()) return value;
    const CDecimalText number = TakeApart(digits);
    value = number.Exponent > 0 ? std::numeric_limits<double>::infinity() : 0;
    return number.IsNegative ? -value : value;
}

} // namespace vexa::interchange
