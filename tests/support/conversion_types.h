#ifndef VEXA_TESTS_SUPPORT_CONVERSION_TYPES_H
#define VEXA_TESTS_SUPPORT_CONVERSION_TYPES_H

#include <cmath>
#include <cstring>
#include <ctime>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <type_traits>

#include <vexa/binary.h>
#include <vexa/data_type.h>
#include <vexa/date_time.h>
#include <vexa/numeric.h>

/// The twenty basic types as C++ types, with what the tests need to know of each.

namespace vexa_test {

/// What lives at the value address of a const char*: the characters themselves.
struct TextCharacters {
    char Characters[40] = {};

    TextCharacters() = default;
    TextCharacters(const char* text) { std::strncpy(Characters, text, sizeof Characters - 1); }
};

template<unsigned CODE>
struct BasicTypeCode {
    static constexpr unsigned Code = CODE;
};

template<class T>
struct BasicType;
// clang-format off
template<> struct BasicType<bool> : BasicTypeCode<11> { static constexpr char Name[] = "bool"; };
template<> struct BasicType<char> : BasicTypeCode<12> { static constexpr char Name[] = "char"; };
template<> struct BasicType<short> : BasicTypeCode<13> { static constexpr char Name[] = "short"; };
template<> struct BasicType<int> : BasicTypeCode<14> { static constexpr char Name[] = "int"; };
template<> struct BasicType<long> : BasicTypeCode<15> { static constexpr char Name[] = "long"; };
template<> struct BasicType<long long> : BasicTypeCode<16> { static constexpr char Name[] = "long long"; };
template<> struct BasicType<float> : BasicTypeCode<17> { static constexpr char Name[] = "float"; };
template<> struct BasicType<double> : BasicTypeCode<18> { static constexpr char Name[] = "double"; };
template<> struct BasicType<long double> : BasicTypeCode<19> { static constexpr char Name[] = "long double"; };
template<> struct BasicType<unsigned char> : BasicTypeCode<22> { static constexpr char Name[] = "unsigned char"; };
template<> struct BasicType<unsigned short> : BasicTypeCode<23> { static constexpr char Name[] = "unsigned short"; };
template<> struct BasicType<unsigned int> : BasicTypeCode<24> { static constexpr char Name[] = "unsigned int"; };
template<> struct BasicType<unsigned long> : BasicTypeCode<25> { static constexpr char Name[] = "unsigned long"; };
template<> struct BasicType<unsigned long long> : BasicTypeCode<26> {
    static constexpr char Name[] = "unsigned long long";
};
template<> struct BasicType<std::string> : BasicTypeCode<41> { static constexpr char Name[] = "std::string"; };
template<> struct BasicType<TextCharacters> : BasicTypeCode<42> { static constexpr char Name[] = "const char*"; };
template<> struct BasicType<vexa::CBinary> : BasicTypeCode<45> { static constexpr char Name[] = "vexa::CBinary"; };
template<> struct BasicType<vexa::CNumeric> : BasicTypeCode<47> { static constexpr char Name[] = "vexa::CNumeric"; };
template<> struct BasicType<tm> : BasicTypeCode<51> { static constexpr char Name[] = "tm"; };
template<> struct BasicType<vexa::CDateTime> : BasicTypeCode<52> { static constexpr char Name[] = "vexa::CDateTime"; };
// clang-format on

template<class T>
struct TypeTag {
    using Type = T;
};

template<class... Ts>
struct TypeList {
};

using NumberTypes = TypeList<bool, char, short, int, long, long long, unsigned char, unsigned short, unsigned int,
                             unsigned long, unsigned long long, float, double, long double>;
using OtherTypes = TypeList<std::string, TextCharacters, vexa::CBinary, vexa::CNumeric, tm, vexa::CDateTime>;

/// Calls the action with a TypeTag of each type of the list.
template<class... Ts, class Action>
void ForEachType(TypeList<Ts...>, Action&& action)
{
    (action(TypeTag<Ts>{}), ...);
}

/// Calls the action with a TypeTag of each of the twenty basic types.
template<class Action>
void ForEachBasicType(Action&& action)
{
    ForEachType(NumberTypes{}, action);
    ForEachType(OtherTypes{}, action);
}

inline tm MakeTm(int year, int month, int day, int hour, int minute, int second)
{
    tm t{};
    t.tm_year = year - 1900;
    t.tm_mon = month - 1;
    t.tm_mday = day;
    t.tm_hour = hour;
    t.tm_min = minute;
    t.tm_sec = second;
    return t;
}

/// A value of a type that no conversion in the tests yields, to be found unchanged later.
template<class T>
T Untouched()
{
    if constexpr (std::is_same_v<T, bool>)
        return true;
    else if constexpr (std::is_arithmetic_v<T>)
        return static_cast<T>(77);
    else if constexpr (std::is_same_v<T, tm>)
        return MakeTm(2001, 2, 3, 4, 5, 6);
    else if constexpr (std::is_same_v<T, vexa::CDateTime>)
        return vexa::CDateTime(981173106L, 777L);
    else if constexpr (std::is_same_v<T, vexa::CNumeric>)
        return vexa::CNumeric(std::string("77"));
    else if constexpr (std::is_same_v<T, vexa::CBinary>)
        return vexa::CBinary(std::string("untouched"));
    else
        return T("untouched");
}

/// Every field of a value, readable in a failure and different for different values.
template<class T>
std::string Shown(const T& value)
{
    std::ostringstream out;
    out.imbue(std::locale::classic());
    if constexpr (sizeof(T) == 1) {
        out << static_cast<unsigned>(static_cast<unsigned char>(value));
    } else if constexpr (std::is_arithmetic_v<T>) {
        out.precision(std::numeric_limits<T>::max_digits10);
        out << value;
    } else if constexpr (std::is_same_v<T, TextCharacters>) {
        out << value.Characters;
    } else if constexpr (std::is_same_v<T, vexa::CBinary>) {
        out << std::string(value.data(), value.Size);
    } else if constexpr (std::is_same_v<T, vexa::CNumeric>) {
        out << value.State << '/' << value.AsString();
    } else if constexpr (std::is_same_v<T, vexa::CDateTime>) {
        // The time word of a value that is not valid has no meaning.
        out << value.State;
        if (value.State == vexa::Enum::VS_VALID) out << '/' << value.TimeWord;
    } else if constexpr (std::is_same_v<T, tm>) {
        for (int field : {value.tm_year + 1900, value.tm_mon + 1, value.tm_mday, value.tm_hour, value.tm_min,
                          value.tm_sec, value.tm_wday, value.tm_yday, value.tm_isdst}) {
            out << field << ' ';
        }
        out << value.tm_gmtoff;
    } else {
        out << value;
    }
    return out.str();
}

} // namespace vexa_test

#endif
