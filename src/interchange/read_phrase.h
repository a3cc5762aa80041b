#ifndef VEXA_INTERCHANGE_READ_PHRASE_H
#define VEXA_INTERCHANGE_READ_PHRASE_H

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

#include <vexa/detail/enumeration.h>
#include <vexa/event.h>

#include "typeinfo/notes.h"

/// \file
/// What a reader's problems say was expected and found.

namespace vexa::interchange {

/// `an object`, `a number`, ...
std::string_view PhraseOf(EventKind kind);
/// A text in quotes, cut to 40 bytes.
std::string ShownText(std::string_view text);
/// `one of "red", "green"`, of at most eight.
std::string OneOf(const std::vector<std::string>& names);
std::vector<std::string> NamesOf(const detail::CEnumerationSlot& enumeration);
std::string BoundText(const typeinfo::CBound& bound);

/// `3 elements`, `1 element`
inline std::string CountText(std::size_t count, const char* unit = "element")
{
    return std::to_string(count).append(" ").append(unit).append(count == 1 ? "" : "s");
}
/// `at most 3 elements`
inline std::string AtMost(std::size_t count, const char* unit) { return "at most " + CountText(count, unit); }

/// `-128 to 127`
template<class T>
std::string RangeOf()
{
    if constexpr (std::is_integral_v<T>)
        return std::to_string(+std::numeric_limits<T>::lowest()) + " to " +
               std::to_string(+std::numeric_limits<T>::max());
    else
        return sizeof(T) == sizeof(float)    ? "a number that a float can hold"
               : sizeof(T) == sizeof(double) ? "a number that a double can hold"
                                             : "a number that a long double can hold";
}

/// Whether it is only the beginning of a value.
inline bool IsLong(EventKind kind) noexcept
{
    return kind == EventKind::BEGIN_ARRAY || kind == EventKind::BEGIN_OBJECT;
}
inline bool IsNumber(EventKind kind) noexcept
{
    return kind == EventKind::SIGNED || kind == EventKind::UNSIGNED || kind == EventKind::FLOATING;
}

} // namespace vexa::interchange

#endif
