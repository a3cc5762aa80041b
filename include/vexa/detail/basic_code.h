#ifndef VEXA_DETAIL_BASIC_CODE_H
#define VEXA_DETAIL_BASIC_CODE_H

#include <ctime>
#include <string>

#include <vexa/binary.h>
#include <vexa/data_type.h>
#include <vexa/date_time.h>
#include <vexa/numeric.h>

namespace vexa::detail {

/// The type code of a basic type; DT_UNKNOWN for every other type.
template<class T>
inline constexpr Enum::DataTypeEnum BASIC_CODE = Enum::DT_UNKNOWN;

// clang-format off
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<bool> = Enum::DT_BOOL;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<char> = Enum::DT_CHAR;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<short> = Enum::DT_SHORT;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<int> = Enum::DT_INT;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<long> = Enum::DT_LONG;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<long long> = Enum::DT_LONG_LONG;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<float> = Enum::DT_FLOAT;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<double> = Enum::DT_DOUBLE;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<long double> = Enum::DT_LONG_DOUBLE;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<unsigned char> = Enum::DT_UNSIGNED_CHAR;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<unsigned short> = Enum::DT_UNSIGNED_SHORT;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<unsigned int> = Enum::DT_UNSIGNED_INT;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<unsigned long> = Enum::DT_UNSIGNED_LONG;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<unsigned long long> = Enum::DT_UNSIGNED_LONG_LONG;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<std::string> = Enum::DT_STD_STRING;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<CBinary> = Enum::DT_BINARY;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<CNumeric> = Enum::DT_NUMERIC;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<tm> = Enum::DT_TM;
template<> inline constexpr Enum::DataTypeEnum BASIC_CODE<CDateTime> = Enum::DT_DATETIME;
// clang-format on

} // namespace vexa::detail

#endif
