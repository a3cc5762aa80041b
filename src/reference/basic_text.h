#ifndef VEXA_REFERENCE_BASIC_TEXT_H
#define VEXA_REFERENCE_BASIC_TEXT_H

#include <cstring>
#include <ctime>
#include <string>
#include <string_view>

#include "core/basic_types.h"
#include "core/c_locale.h"
#include "core/fixed_decimal.h"
#include "core/value_text.h"

/// \file
/// The text of every basic type, written to a sink. A sink has
/// - `Copy(text, length)`; if it ESCAPES, `Escape(text, length)` for the same text escaped as for JSON;
/// - `Claim(length)`: so many bytes for the caller to write at once, or null when there is no room for them;
/// - `Character(byte)`: one character that is not escaped;
/// - `Digits(number)`, and `Formatted(number)` for a number that the formatting functions of the C library write;
/// - `Time(tm)`;
/// - `Reading(string)`: asked before a stored text is read, which may be what the sink writes to.

namespace vexa::reference {

/// Room for the text of any value of a number type.
template<class T>
inline constexpr std::size_t NUMBER_ROOM = std::is_integral_v<T> ? core::DECIMAL_ROOM : core::FIXED_ROOM<T>;

/// Formats as "%d" and its kin, or "%f". \return the end of the text.
template<class T>
char* WriteNumber(char* at, T value)
{
    if constexpr (std::is_floating_point_v<T>)
        return core::WriteFixed(at, value);
    else
        return core::WriteDecimal(at, value);
}

inline constexpr std::size_t TIME_ROOM = 64;

/// \return the length, 0 for a time whose text does not fit TIME_ROOM bytes with its zero.
inline std::size_t FormatTime(char* buffer, const tm& value)
{
    return strftime_l(buffer, TIME_ROOM, "%Y-%m-%d %H:%M:%S", &value, core::CLocale());
}

template<class Sink>
void WriteCharacters(Sink& sink, const char* text, std::size_t length, [[maybe_unused]] bool escape)
{
    if (length == 0) return;
    if constexpr (Sink::ESCAPES) {
        if (escape) return sink.Escape(text, length);
    }
    sink.Copy(text, length);
}

template<class Sink, class Type>
void WriteArithmetic(Sink& sink, Type, typename Type::Type value, [[maybe_unused]] bool escape)
{
    using namespace Enum;
    if constexpr (Type::CODE == DT_BOOL) {
        if (value)
            sink.Copy("true", 4);
        else
            sink.Copy("false", 5);
    } else if constexpr (Type::CODE == DT_CHAR) {
        if constexpr (Sink::ESCAPES) {
            if (escape) return sink.Escape(reinterpret_cast<const char*>(&value), 1);
        }
        sink.Character(static_cast<char>(value));
    } else if constexpr (Type::CODE == DT_LONG_LONG || Type::CODE == DT_UNSIGNED_LONG_LONG ||
                         std::is_floating_point_v<typename Type::Type>) {
        sink.Formatted(value);
    } else {
        sink.Digits(value);
    }
}

template<class Sink, class Object>
void WriteObject(Sink& sink, const Object& value)
{
    if (char* const at = sink.Claim(core::TextLength(value))) core::WriteText(at, value);
}
template<class Sink>
void WriteObject(Sink& sink, const tm& value)
{
    sink.Time(value);
}
template<class Sink>
void WriteObject(Sink& sink, const CDateTime& value)
{
    core::CTimeText room;
    const std::string_view text = core::TextOf(room, value, nullptr, false);
    sink.Copy(text.data(), text.size());
}

/// Writes the value of a type at an address. A text and a character are escaped if \p escape says so.
template<class Sink, class Type>
void WriteBasic(Sink& sink, Type type, const void* address, bool escape)
{
    using T = typename Type::Type;
    if constexpr (Type::IS_NUMBER) {
        WriteArithmetic(sink, type, core::Load<T>(address), escape);
    } else if constexpr (std::is_same_v<T, core::CTextAtAddress>) {
        const auto* const text = static_cast<const char*>(address);
        WriteCharacters(sink, text, std::strlen(text), escape);
    } else if constexpr (std::is_same_v<T, std::string>) {
        const std::string& value = core::Load<T>(address);
        sink.Reading(value);
        WriteCharacters(sink, value.data(), value.size(), escape);
    } else {
        WriteObject(sink, core::Load<T>(address));
    }
}

} // namespace vexa::reference

#endif
