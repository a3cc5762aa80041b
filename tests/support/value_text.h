#ifndef VEXA_TESTS_SUPPORT_VALUE_TEXT_H
#define VEXA_TESTS_SUPPORT_VALUE_TEXT_H

#include <ctime>
#include <string>

#include <vexa/value.h>

/// Generic values for the tests, and what they hold as one text.

namespace vexa_test {

/// "code: text", or "code: NULL".
inline std::string Show(const vexa::CValue& value) { return std::to_string(value.Type()) + ": " + value.AsString(); }

/// 2020-01-02 03:04:05
inline tm SampleTime()
{
    tm time{};
    time.tm_year = 120;
    time.tm_mday = 2;
    time.tm_hour = 3;
    time.tm_min = 4;
    time.tm_sec = 5;
    return time;
}

/// The codes of which a value can hold something.
inline constexpr vexa::Enum::DataTypeEnum STORED_CODES[] = {
    vexa::Enum::DT_BOOL,           vexa::Enum::DT_CHAR,
    vexa::Enum::DT_SHORT,          vexa::Enum::DT_INT,
    vexa::Enum::DT_LONG,           vexa::Enum::DT_LONG_LONG,
    vexa::Enum::DT_FLOAT,          vexa::Enum::DT_DOUBLE,
    vexa::Enum::DT_LONG_DOUBLE,    vexa::Enum::DT_UNSIGNED_CHAR,
    vexa::Enum::DT_UNSIGNED_SHORT, vexa::Enum::DT_UNSIGNED_INT,
    vexa::Enum::DT_UNSIGNED_LONG,  vexa::Enum::DT_UNSIGNED_LONG_LONG,
    vexa::Enum::DT_STD_STRING,     vexa::Enum::DT_BINARY,
    vexa::Enum::DT_NUMERIC,        vexa::Enum::DT_TM,
    vexa::Enum::DT_DATETIME};

/// A value of one of these codes that is not its type's default; its text is SampleText(code).
inline vexa::CValue Sample(vexa::Enum::DataTypeEnum code)
{
    vexa::CValue value;
    value.ChangeValueTypeEnum(code);
    switch (code) {
    case vexa::Enum::DT_STD_STRING: return value.ReadFrom("a text that is too long to lie inside a std::string object");
    case vexa::Enum::DT_BINARY: return value.ReadFrom(vexa::CBinary("AB", 2));
    case vexa::Enum::DT_NUMERIC: return value.ReadFrom(vexa::CNumeric(std::string("12.50")));
    case vexa::Enum::DT_TM: return value.ReadFrom(SampleTime());
    case vexa::Enum::DT_DATETIME: return value.ReadFrom(vexa::CDateTime(SampleTime()));
    default: return value.ReadFrom(65);
    }
}

inline std::string SampleText(vexa::Enum::DataTypeEnum code)
{
    switch (code) {
    case vexa::Enum::DT_BOOL: return "true";
    case vexa::Enum::DT_CHAR: return "A";
    case vexa::Enum::DT_FLOAT:
    case vexa::Enum::DT_DOUBLE:
    case vexa::Enum::DT_LONG_DOUBLE: return "65.000000";
    case vexa::Enum::DT_STD_STRING: return "a text that is too long to lie inside a std::string object";
    case vexa::Enum::DT_BINARY: return "4142";
    case vexa::Enum::DT_NUMERIC: return "12.50";
    case vexa::Enum::DT_TM:
    case vexa::Enum::DT_DATETIME: return "2020-01-02 03:04:05";
    default: return "65";
    }
}

/// What a value becomes when it is told to take a type.
inline unsigned int NormalisedCode(unsigned int code)
{
    if (code == 41 || code == 42) return 41;
    if ((code >= 10 && code <= 39) || code == 45 || code == 47 || code == 51 || code == 52) return code;
    return code == 0 || code == 2 ? 2 : 0;
}

} // namespace vexa_test

#endif
