#ifndef VEXA_INTERCHANGE_WRITE_BASIC_H
#define VEXA_INTERCHANGE_WRITE_BASIC_H

#include <algorithm>

#include "interchange/write_time.h"
#include "interchange/write_walk.h"

/// \file
/// Basic values that are neither numbers nor texts.

namespace vexa::interchange {

/// The digits as they were given, but for zeros that lead them. \return whether they are digits.
inline bool DecimalOf(const CNumeric& value, CDecimal& decimal)
{
    const auto areDigits = [](std::string_view text) {
        return std::all_of(text.begin(), text.end(), [](char byte) { return byte >= '0' && byte <= '9'; });
    };
    std::string_view integer = value.IntegerDigits;
    integer.remove_prefix(std::min(integer.find_first_not_of('0'), integer.size()));
    decimal = {value.Negative != 0, integer, value.FractionDigits};
    return areDigits(integer) && areDigits(decimal.Fraction);
}

template<class Sink>
__attribute__((noinline)) typename Sink::Cursor CWritingWalk<Sink>::Unusual(Cursor at, const CNumeric& value,
                                                                            const CPathStep& where)
{
    CDecimal decimal;
    if (value.State == Enum::VS_NULL) return m_sink.Null(at);
    if (value.State != Enum::VS_VALID || !DecimalOf(value, decimal)) return Refuse(at, where, "a number", "an error");
    return m_sink.Decimal(at, decimal);
}

template<class Sink>
__attribute__((noinline)) typename Sink::Cursor CWritingWalk<Sink>::Unusual(Cursor at, const CDateTime& value,
                                                                            const CPathStep& where)
{
    CTimeRoom room;
    if (value.State == Enum::VS_NULL) return m_sink.Null(at);
    if (value.State != Enum::VS_VALID) return Refuse(at, where, "a time", "an error");
    const std::string_view text = TextOfTime(room, value);
    return !text.empty() ? m_sink.Time(at, value, text) : Refuse(at, where, "a time of the years 0 to 9999");
}

template<class Sink>
__attribute__((noinline)) typename Sink::Cursor CWritingWalk<Sink>::Unusual(Cursor at, const tm& value,
                                                                            const CPathStep& where)
{
    CTimeRoom room;
    const std::string_view text = TextOfTime(room, value);
    return !text.empty() ? m_sink.Plain(at, text) : Refuse(at, where, "a time of the years 0 to 9999");
}

/// The value of an integer of some type; of an unsigned long long its bits.
inline long long IntegerOf(unsigned char code, const void* address)
{
    long long number = 0;
    core::VisitBasicType(code, [&](auto type) {
        if constexpr (std::is_integral_v<typename decltype(type)::Type>)
            number = static_cast<long long>(core::Load<typename decltype(type)::Type>(address));
    });
    return number;
}

/// An enumerator's name; a value without one is a number.
template<class Sink>
__attribute__((noinline)) typename Sink::Cursor
CWritingWalk<Sink>::Enumeration(Cursor at, const CForm& form, const char* value, const CPathStep& where)
{
    const std::string_view name = NameOfValue(*form.Enumeration, IntegerOf(form.Code, value));
    return !name.empty() ? m_sink.Text(at, name, where) : BasicOfCode(at, form.Code, value, where);
}

} // namespace vexa::interchange

#endif
