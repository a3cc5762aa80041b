#include "text/json_measure.h"

#include <array>

namespace vexa::text {

using namespace Enum;

std::string TextOfObject(DataTypeEnum code, const void* address)
{
    std::string text;
    CStdBasicTypeConstRefrence(CGnlTypeInfor(code), address).AppendToString(text, true);
    return text;
}

namespace {

template<class T>
unsigned long LengthOf(T value)
{
    std::array<char, core::FIXED_ROOM<T>> text;
    return static_cast<unsigned long>(core::WriteFixed(text.data(), value) - text.data());
}

bool IsBetween(int value, int first, int last) { return value >= first && value <= last; }

/// Whether each part of a time has the digits that its text has room for.
bool IsOrdinary(const tm& value)
{
    return IsBetween(value.tm_year, -1900, 8099) && IsBetween(value.tm_mon, 0, 11) && IsBetween(value.tm_mday, 0, 31) &&
           IsBetween(value.tm_hour, 0, 23) && IsBetween(value.tm_min, 0, 59) && IsBetween(value.tm_sec, 0, 61);
}

/// The bound of both kinds of times.
constexpr unsigned long TIME_BOUND = 22;

/// Milliseconds from 1970 to a day before the year 10000; above are also the times before 1970, which are packed.
constexpr std::uint64_t LAST_ORDINARY_TIME = 253402214400000;

} // namespace

unsigned long LengthOfLong(float value) { return LengthOf(value); }
unsigned long LengthOfLong(double value) { return LengthOf(value); }
unsigned long LengthOfLong(long double value) { return LengthOf(value); }

unsigned long RoomOfObject(const CBinary& value) { return 3 * value.Size + 2; }

unsigned long RoomOfObject(const CNumeric& value)
{
    if (value.State != VS_VALID) return value.AsString().size() + 2;
    const std::size_t fraction = value.FractionDigits.empty() ? 0 : value.FractionDigits.size() + 1;
    return (value.Negative != 0 ? 1 : 0) + value.IntegerDigits.size() + fraction + 2;
}

unsigned long RoomOfObject(const tm& value)
{
    return IsOrdinary(value) ? TIME_BOUND : std::max(TIME_BOUND, TextOfObject(DT_TM, &value).size());
}

unsigned long RoomOfObject(const CDateTime& value)
{
    return value.TimeWord < LAST_ORDINARY_TIME ? TIME_BOUND
                                               : std::max(TIME_BOUND, TextOfObject(DT_DATETIME, &value).size());
}

} // namespace vexa::text
