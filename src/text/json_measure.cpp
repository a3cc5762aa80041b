// How long a basic value may become in JSON text.

#include "text/json_measure.h"

#include <cmath>
#include <cstring>
#include <ctime>

#include "core/basic_types.h"
#include "core/escape.h"

namespace vexa::text {
namespace {

using namespace Enum;

constexpr CJsonLength Within(unsigned long bound) { return {bound, 0}; }

constexpr CJsonLength Actual(unsigned long bound, unsigned long actual)
{
    return {bound, actual > bound ? actual - bound : 0};
}

/// Digits of an integer, and its sign.
template<class T>
unsigned long DecimalLength(T value)
{
    unsigned long length = value < T() ? 2 : 1;
    while (value > 9 || (std::is_signed_v<T> && value < -T(9))) {
        value = static_cast<T>(value / 10);
        ++length;
    }
    return length;
}

/// No more than the text of "%f" takes: the decimal digits that the exponent allows for, sign, point and six decimals.
template<class T>
unsigned long FloatingLength(T value)
{
    if (!std::isfinite(value)) return 4;
    const int exponent = value != 0 ? std::ilogb(value) : 0;
    const auto digits = exponent > 0 ? static_cast<unsigned long>(exponent) * 30103 / 100000 + 2 : 1;
    return digits + 8;
}

template<class T>
CJsonLength MeasureFloating(T value)
{
    constexpr unsigned long BOUND = 24;
    constexpr T LONGEST_WITHIN = 1e15F; // 16 digits, sign, point, six decimals
    return std::abs(value) < LONGEST_WITHIN ? Within(BOUND) : Actual(BOUND, FloatingLength(value));
}

template<class Type>
CJsonLength MeasureInteger(Type, typename Type::Type value)
{
    switch (Type::CODE) {
    case DT_CHAR:
    case DT_UNSIGNED_CHAR: return Within(4);
    case DT_SHORT: return Within(6);
    case DT_INT: return Within(DecimalLength(value));
    case DT_LONG: return Actual(11, DecimalLength(value));
    case DT_LONG_LONG: return Within(21);
    case DT_UNSIGNED_SHORT: return Within(5);
    case DT_UNSIGNED_INT:
    case DT_UNSIGNED_LONG: return Actual(value > 99 ? 10 : 2, DecimalLength(value));
    case DT_UNSIGNED_LONG_LONG: return Within(value > 99 ? 21 : 2);
    default: return Within(0);
    }
}

/// With two quotes.
CJsonLength MeasureText(const char* text, std::size_t length) { return Within(2 + core::EscapedRoom(text, length)); }

unsigned long NumericLength(const CNumeric& value)
{
    if (value.State != VS_VALID) return value.AsString().size();
    const std::size_t fraction = value.FractionDigits.empty() ? 0 : value.FractionDigits.size() + 1;
    return (value.Negative != 0 ? 1 : 0) + value.IntegerDigits.size() + fraction;
}

CJsonLength MeasureTime(const CConstRefrence& ref, const tm& value)
{
    constexpr unsigned long BOUND = 22;
    const bool isOrdinary = value.tm_year >= -1900 && value.tm_year < 8100 && value.tm_mon >= 0 && value.tm_mon < 12 &&
                            value.tm_mday >= 0 && value.tm_mday < 32 && value.tm_hour >= 0 && value.tm_hour < 24 &&
                            value.tm_min >= 0 && value.tm_min < 60 && value.tm_sec >= 0 && value.tm_sec < 62;
    if (isOrdinary) return Within(BOUND);
    std::string text;
    ref.AsStdBasicType().AppendToString(text, true);
    return Actual(BOUND, text.size());
}

} // namespace

CJsonLength MeasureBasic(const CConstRefrence& ref)
{
    const void* const address = ref.ValueAddress();
    CJsonLength length = ref.TypeInfor.DataType == DT_UNKNOWN ? Actual(0, std::strlen("unkown")) : Within(0);
    core::VisitBasicType(ref.TypeInfor.DataType, [&](auto type) {
        using T = typename decltype(type)::Type;
        decltype(auto) value = core::Load<T>(address);
        if constexpr (std::is_floating_point_v<T>)
            length = MeasureFloating(value);
        else if constexpr (std::is_same_v<T, bool>)
            length = Within(value ? 4 : 5);
        else if constexpr (type.IS_NUMBER)
            length = MeasureInteger(type, value);
        else if constexpr (std::is_same_v<T, std::string>)
            length = MeasureText(value.data(), value.size());
        else if constexpr (std::is_same_v<T, CBinary>)
            length = Within(3 * value.Size + 2);
        else if constexpr (std::is_same_v<T, CNumeric>)
            length = Within(NumericLength(value) + 2);
        else if constexpr (std::is_same_v<T, tm>)
            length = MeasureTime(ref, value);
        else if constexpr (std::is_same_v<T, CDateTime>)
            length = Within(22);
        else
            length = MeasureText(static_cast<const char*>(address), std::strlen(static_cast<const char*>(address)));
    });
    return length;
}

} // namespace vexa::text
