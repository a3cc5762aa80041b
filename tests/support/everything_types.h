#ifndef VEXA_TESTS_SUPPORT_EVERYTHING_TYPES_H
#define VEXA_TESTS_SUPPORT_EVERYTHING_TYPES_H

#include <atomic>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <variant>
#include <vector>

#include <vexa/describe.h>
#include <vexa/table.h>

#include "support/random_values.h"

/// What kind of type it is, for what fills, compares and models described objects by hand. Nothing here goes through
/// the library: a class says what its members are (Members, Names).

namespace vexa_test::everything {

/// "first, second" as names.
inline std::vector<std::string> SplitNames(const std::string& list)
{
    std::vector<std::string> names;
    std::string name;
    for (const char byte : list + ",") {
        if (byte == ',')
            names.push_back(std::move(name)), name.clear();
        else if (byte != ' ')
            name += byte;
    }
    return names;
}

/// Inside a class: what its members are, without the library.
#define VEXA_TEST_MEMBERS(...)                                                                                         \
    auto Members() { return std::tie(__VA_ARGS__); }                                                                   \
    auto Members() const { return std::tie(__VA_ARGS__); }                                                             \
    static std::vector<std::string> Names() { return ::vexa_test::everything::SplitNames(#__VA_ARGS__); }

template<class T, template<class...> class Template>
inline constexpr bool IS = vexa::detail::IS_SPECIALIZATION<T, Template>;

template<class T, class = void>
inline constexpr bool HAS_MEMBERS = false;
template<class T>
inline constexpr bool HAS_MEMBERS<T, std::void_t<decltype(std::declval<T&>().Members())>> = true;

template<class T, class = void>
inline constexpr bool IS_ITERABLE = false;
template<class T>
inline constexpr bool
    IS_ITERABLE<T, std::void_t<typename T::value_type,
                               decltype(std::declval<T&>().insert(std::declval<T&>().end(),
                                                                  std::declval<const typename T::value_type&>()))>> =
        !std::is_same_v<T, std::string>;

template<class T, class = void>
inline constexpr bool HAS_KEYS = false;
template<class T>
inline constexpr bool HAS_KEYS<T, std::void_t<typename T::key_type>> = true;
template<class T, class = void>
inline constexpr bool IS_MAP = false;
template<class T>
inline constexpr bool IS_MAP<T, std::void_t<typename T::mapped_type>> = true;
template<class T, class = void>
inline constexpr bool IS_HASHED = false;
template<class T>
inline constexpr bool IS_HASHED<T, std::void_t<typename T::hasher>> = true;
template<class T>
inline constexpr bool IS_HELD_APART = IS<T, vexa::MayNull> || IS<T, std::optional> || IS<T, std::unique_ptr> ||
                                      IS<T, std::shared_ptr> || std::is_pointer_v<T>;
template<class T>
inline constexpr bool IS_FIXED = std::is_array_v<T> || vexa::detail::IS_STD_ARRAY<T>;

/// The type of the chrono classes.
template<class T>
inline constexpr bool IS_DURATION = false;
template<class Rep, class Period>
inline constexpr bool IS_DURATION<std::chrono::duration<Rep, Period>> = true;
template<class T>
inline constexpr bool IS_TIME_POINT = false;
template<class Clock, class Duration>
inline constexpr bool IS_TIME_POINT<std::chrono::time_point<Clock, Duration>> = true;

} // namespace vexa_test::everything

#endif
