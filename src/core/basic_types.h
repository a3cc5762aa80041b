#ifndef VEXA_CORE_BASIC_TYPES_H
#define VEXA_CORE_BASIC_TYPES_H

#include <cstring>
#include <ctime>
#include <string>
#include <type_traits>

#include <vexa/binary.h>
#include <vexa/data_type.h>
#include <vexa/date_time.h>
#include <vexa/numeric.h>

/// \file
/// The one switch over the basic type codes.

namespace vexa::core {

/// What lives at the value address of a DT_CONST_CHAR_PTR: the text itself, up to its terminating zero.
struct CTextAtAddress {};

/// Stands for one basic type: its code, and the C++ type of what lives at a value address. A char is an unsigned byte.
template<Enum::DataTypeEnum CODE_, class T>
struct CBasicType {
    using Type = T;
    static constexpr Enum::DataTypeEnum CODE = CODE_;
    static constexpr bool IS_NUMBER = std::is_arithmetic_v<T>;
};

/// Calls \p f with the CBasicType of a code. \return whether the code is that of a basic type.
///
/// Always inline: each \p f is its own, and what it captures then stays in registers.
template<class F>
__attribute__((always_inline)) inline bool VisitBasicType(unsigned char code, F&& f)
{
    using namespace Enum;
    switch (code) {
    case DT_BOOL: f(CBasicType<DT_BOOL, bool>{}); return true;
    case DT_CHAR: f(CBasicType<DT_CHAR, unsigned char>{}); return true;
    case DT_SHORT: f(CBasicType<DT_SHORT, short>{}); return true;
    case DT_INT: f(CBasicType<DT_INT, int>{}); return true;
    case DT_LONG: f(CBasicType<DT_LONG, long>{}); return true;
    case DT_LONG_LONG: f(CBasicType<DT_LONG_LONG, long long>{}); return true;
    case DT_FLOAT: f(CBasicType<DT_FLOAT, float>{}); return true;
    case DT_DOUBLE: f(CBasicType<DT_DOUBLE, double>{}); return true;
    case DT_LONG_DOUBLE: f(CBasicType<DT_LONG_DOUBLE, long double>{}); return true;
    case DT_UNSIGNED_CHAR: f(CBasicType<DT_UNSIGNED_CHAR, unsigned char>{}); return true;
    case DT_UNSIGNED_SHORT: f(CBasicType<DT_UNSIGNED_SHORT, unsigned short>{}); return true;
    case DT_UNSIGNED_INT: f(CBasicType<DT_UNSIGNED_INT, unsigned int>{}); return true;
    case DT_UNSIGNED_LONG: f(CBasicType<DT_UNSIGNED_LONG, unsigned long>{}); return true;
    case DT_UNSIGNED_LONG_LONG: f(CBasicType<DT_UNSIGNED_LONG_LONG, unsigned long long>{}); return true;
    case DT_STD_STRING: f(CBasicType<DT_STD_STRING, std::string>{}); return true;
    case DT_CONST_CHAR_PTR: f(CBasicType<DT_CONST_CHAR_PTR, CTextAtAddress>{}); return true;
    case DT_BINARY: f(CBasicType<DT_BINARY, CBinary>{}); return true;
    case DT_NUMERIC: f(CBasicType<DT_NUMERIC, CNumeric>{}); return true;
    case DT_TM: f(CBasicType<DT_TM, tm>{}); return true;
    case DT_DATETIME: f(CBasicType<DT_DATETIME, CDateTime>{}); return true;
    default: return false;
    }
}

/// Reads what lives at an address: a number by its bytes, since the application may have stored an enumeration there,
/// whose type is another; a char through its unsigned bytes. A bool is true for every byte but 0: memory that a
/// descriptor has made is not initialised, and the compiler would take any other byte for a number of its own.
template<class T>
decltype(auto) Load(const void* address)
{
    if constexpr (std::is_same_v<T, bool>) {
        return *static_cast<const unsigned char*>(address) != 0;
    } else if constexpr (std::is_arithmetic_v<T>) {
        T value;
        std::memcpy(&value, address, sizeof value);
        return value;
    } else {
        return *static_cast<const T*>(address);
    }
}

template<class T>
void Store(void* address, T value)
{
    static_assert(std::is_arithmetic_v<T>);
    std::memcpy(address, &value, sizeof value);
}

} // namespace vexa::core

#endif
