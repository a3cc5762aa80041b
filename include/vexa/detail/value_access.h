#ifndef VEXA_DETAIL_VALUE_ACCESS_H
#define VEXA_DETAIL_VALUE_ACCESS_H

#include <cstddef>
#include <optional>
#include <string_view>
#include <type_traits>

#include <vexa/describe.h>
#include <vexa/detail/access.h>

/// \file
/// Values of C++ types from and to the places where they lie.

namespace vexa {

namespace detail {

/// What a value to be set is. A character is a number, as everywhere.
template<class V>
inline constexpr bool IS_TEXT = std::is_convertible_v<const V&, std::string_view>;
template<class V>
inline constexpr bool IS_NOTHING = std::is_same_v<V, std::nullptr_t> || std::is_same_v<V, NullType>;
template<class V>
inline constexpr bool IS_REFERENCE = std::is_base_of_v<CConstRefrence, V>;

template<class Object>
CSpot SpotOf(Object& object)
{
    if constexpr (IS_REFERENCE<std::remove_const_t<Object>>) {
        return CSpot(object);
    } else {
        CSpot spot(RefOf(object), NamesOf<std::remove_const_t<Object>>());
        spot.IsConst = std::is_const_v<Object>;
        return spot;
    }
}

/// What an object, or a reference to one, gives.
template<class T>
using RefTo = std::conditional_t<std::is_base_of_v<CRefrence, std::remove_const_t<T>> ||
                                     (!IS_REFERENCE<std::remove_const_t<T>> && !std::is_const_v<T>),
                                 CRefrence, CConstRefrence>;

template<class V>
std::optional<V> GetAt(const CSpot& spot, CReport* report)
{
    static_assert(!std::is_pointer_v<V> && !std::is_reference_v<V> && !std::is_same_v<V, std::string_view>,
                  "a value is given as a copy of its own: use std::string for a text, and vexa::Find for an address");
    if (spot.Ref.Address == nullptr) return std::nullopt;
    if constexpr (std::is_copy_constructible_v<V>) {
        if (const void* const same = SameValue(spot, TypeInforOf<V>())) return *static_cast<const V*>(same);
    }
    if constexpr (std::is_default_constructible_v<V> && std::is_move_constructible_v<V>) {
        V value{};
        if (GetInto(CSpot(RefOf(value), NamesOf<V>()), spot, report)) return value;
    }
    return std::nullopt;
}

template<class V>
bool SetAt(const CSpot& spot, const V& value, CReport* report)
{
    if (!IsChangeable(spot, report)) return false;
    if constexpr (IS_NOTHING<V>) {
        return SetNull(spot, report);
    } else if constexpr (IS_REFERENCE<V>) {
        return SetFrom(spot, CSpot(value), report);
    } else if constexpr (IS_TEXT<V>) {
        return SetText(spot, value, report);
    } else {
        if constexpr (std::is_copy_assignable_v<V>) {
            if (void* const same = SamePlace(spot, TypeInforOf<V>())) {
                *static_cast<V*>(same) = value;
                return true;
            }
        }
        return SetFrom(spot, CSpot(RefOf(value), NamesOf<V>()), report);
    }
}

} // namespace detail

} // namespace vexa

#endif
