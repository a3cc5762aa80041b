#ifndef VEXA_TEXT_JSON_MEASURE_H
#define VEXA_TEXT_JSON_MEASURE_H

#include <algorithm>
#include <cmath>
#include <string>
#include <type_traits>

#include <vexa/refrence.h>

#include "core/basic_types.h"
#include "core/escape_text.h"
#include "core/fixed_decimal.h"

/// \file
/// The room that JSON text takes at most, for every basic type: the bound that is required to be counted for the value,
/// or the length of its text where that is longer.

namespace vexa::text {

inline constexpr unsigned long QUOTES = 2;

/// The text of a time, which the C library forms.
std::string TextOfObject(Enum::DataTypeEnum code, const void* address);
/// The length of the text of a floating value, one that may be longer than any bound.
unsigned long LengthOfLong(float value);
unsigned long LengthOfLong(double value);
unsigned long LengthOfLong(long double value);
unsigned long RoomOfObject(const CBinary& value);
unsigned long RoomOfObject(const CNumeric& value);
unsigned long RoomOfObject(const tm& value);
unsigned long RoomOfObject(const CDateTime& value);

/// The room of so many int one behind the other.
unsigned long RoomOfInts(const char* first, unsigned long count);

template<class T>
unsigned long RoomOfFloating(T value)
{
    constexpr unsigned long BOUND = 24;
    constexpr T LONGEST_WITHIN = 1e15F; // 16 digits, sign, point, six decimals
    return std::abs(value) < LONGEST_WITHIN ? BOUND : std::max(BOUND, LengthOfLong(value));
}

template<class Type>
unsigned long RoomOfInteger(Type, typename Type::Type value)
{
    using namespace Enum;
    switch (Type::CODE) {
    case DT_CHAR:
    case DT_UNSIGNED_CHAR: return 4;
    case DT_SHORT: return 6;
    case DT_INT: return core::DecimalLength(value);
    case DT_LONG: return std::max(11U, core::DecimalLength(value));
    case DT_LONG_LONG: return 21;
    case DT_UNSIGNED_SHORT: return 5;
    case DT_UNSIGNED_INT:
    case DT_UNSIGNED_LONG: return value > 99 ? std::max(10U, core::DecimalLength(value)) : 2;
    default: return value > 99 ? 21 : 2; // DT_UNSIGNED_LONG_LONG
    }
}

/// The room of the basic value at an address. Inline, for the walk that knows the type.
template<class Type>
unsigned long RoomOf(Type type, const void* address)
{
    using T = typename Type::Type;
    decltype(auto) value = core::Load<T>(address);
    if constexpr (std::is_floating_point_v<T>)
        return RoomOfFloating(value);
    else if constexpr (std::is_same_v<T, bool>)
        return value ? 4 : 5;
    else if constexpr (Type::IS_NUMBER)
        return RoomOfInteger(type, value);
    else if constexpr (std::is_same_v<T, std::string>)
        return QUOTES + core::EscapedRoom(value);
    else if constexpr (std::is_same_v<T, core::CTextAtAddress>)
        return QUOTES +
               core::EscapedRoom(static_cast<const char*>(address), std::strlen(static_cast<const char*>(address)));
    else
        return RoomOfObject(value);
}

} // namespace vexa::text

#endif
