#ifndef VEXA_DETAIL_ENUMERATION_NAMES_H
#define VEXA_DETAIL_ENUMERATION_NAMES_H

#include <cstddef>
#include <type_traits>

#include <vexa/detail/enumeration.h>
#include <vexa/detail/holding.h>

/// \file
/// From an enumeration to the names of its values.

namespace vexa::detail {

/// Leads to the function that VEXA_DESCRIBE_ENUM makes, in the namespace of the enumeration.
template<class T>
struct CEnumerationTag {
};

template<class T>
auto FindsNames(int) -> decltype(VexaDescribeEnum(CEnumerationTag<T>()), std::true_type{});
template<class T>
std::false_type FindsNames(...);
template<class T, bool = std::is_enum_v<T>>
inline constexpr bool HAS_NAMES = false;
template<class T>
constexpr bool HasNames()
{
    static_assert(!CIsDescribedOutside<T>::value, "an enumeration cannot be described by vexa::Describes: give its "
                                                  "values names with VEXA_DESCRIBE_ENUM, in its own namespace");
    return decltype(FindsNames<T>(0))::value;
}
template<class T>
inline constexpr bool HAS_NAMES<T, true> = HasNames<T>();

/// As the value is read from an object: char is an unsigned byte.
template<class T>
constexpr long long NumberOf(T enumerator)
{
    if constexpr (std::is_same_v<std::underlying_type_t<T>, char>)
        return static_cast<unsigned char>(enumerator);
    else
        return static_cast<long long>(enumerator);
}

/// What that function gives.
template<std::size_t COUNT>
struct CEnumerationNames {
    const char* Name;
    const char* Names;
    long long Values[COUNT];
};
/// How many names stand in one text, separated by commas. The type of what VEXA_DESCRIBE_ENUM makes comes from them and
/// not from the values, so that a name which is no enumerator's is all that a compiler complains of.
constexpr std::size_t CountOfNames(const char* names)
{
    std::size_t count = 1;
    for (; *names != '\0'; ++names)
        count += *names == ',' ? 1 : 0;
    return count;
}

template<class T>
inline constexpr auto ENUMERATION_NAMES = VexaDescribeEnum(CEnumerationTag<T>());
template<class T>
inline CEnumerationSlot ENUMERATION_SLOT{ENUMERATION_NAMES<T>.Name, ENUMERATION_NAMES<T>.Names,
                                         ENUMERATION_NAMES<T>.Values,
                                         sizeof ENUMERATION_NAMES<T>.Values / sizeof(long long)};

/// The names of the values of an object that is an enumeration, however it is held; null for every other one.
template<class T>
constexpr const CEnumerationSlot* NamesOf()
{
    using Value = typename CHolding<T>::Value;
    if constexpr (HAS_NAMES<Value>)
        return &ENUMERATION_SLOT<Value>;
    else
        return nullptr;
}

} // namespace vexa::detail

#endif
