#ifndef VEXA_DETAIL_TYPE_TRAITS_H
#define VEXA_DETAIL_TYPE_TRAITS_H

#include <array>
#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

#include <vexa/detail/slot.h>
#include <vexa/may_null.h>

namespace vexa {

template<class T>
class CDescription;
template<class T>
struct Describes;

namespace detail {

/// How T is described; see type_source.h, which completes it.
template<class T>
constexpr CTypeSource MakeTypeSource();
template<class T>
inline constexpr CTypeSource TYPE_SOURCE = MakeTypeSource<T>();

/// What a value of type T is; see type_source.h, which completes it too.
template<class T, class = void>
struct CKind;

template<class T>
inline constexpr bool ALWAYS_FALSE = false;

template<class T, template<class...> class Template>
inline constexpr bool IS_SPECIALIZATION = false;
template<template<class...> class Template, class... Arguments>
inline constexpr bool IS_SPECIALIZATION<Template<Arguments...>, Template> = true;

template<class T>
inline constexpr bool IS_PAIR = IS_SPECIALIZATION<T, std::pair>;
template<class T>
inline constexpr bool IS_UNIQUE_POINTER = IS_SPECIALIZATION<T, std::unique_ptr>;
template<class T>
inline constexpr bool IS_STD_ARRAY = false;
template<class T, std::size_t SIZE>
inline constexpr bool IS_STD_ARRAY<std::array<T, SIZE>> = true;
/// The containers that type_source.h names; a class of the application's that looks like one is not meant.
template<class T>
inline constexpr bool IS_STD_CONTAINER = IS_STD_ARRAY<T>;

/// The type of a container's elements as a description sees it: a map's key is not const there, since reading makes an
/// element by itself before it is inserted.
template<class Container>
struct CElementOf {
    using Type = typename Container::value_type;
};
template<class T, std::size_t SIZE>
struct CElementOf<T[SIZE]> {
    using Type = T;
};
template<class T>
struct CPlainElement {
    using Type = T;
};
template<class K, class V>
struct CPlainElement<std::pair<const K, V>> {
    using Type = std::pair<K, V>;
};
template<class Container>
using ElementOf = typename CPlainElement<typename CElementOf<Container>::Type>::Type;

/// Whether values of T are, or hold as elements, pointers that own their pointee without releasing it.
template<class T, class = void>
struct CHoldsRawPointers : std::bool_constant<std::is_pointer_v<T>> {
};
template<class K, class V>
struct CHoldsRawPointers<std::pair<K, V>> : std::disjunction<CHoldsRawPointers<K>, CHoldsRawPointers<V>> {
};
template<class T, std::size_t SIZE>
struct CHoldsRawPointers<T[SIZE]> : CHoldsRawPointers<T> {
};
template<class T>
struct CHoldsRawPointers<T, std::enable_if_t<IS_STD_CONTAINER<T>>> : CHoldsRawPointers<typename T::value_type> {
};
template<class T>
inline constexpr bool HOLDS_RAW_POINTERS = CHoldsRawPointers<T>::value;

/// Whether T is described from outside.
template<class T, class = void>
struct CIsDescribedOutside : std::false_type {
};
template<class T>
struct CIsDescribedOutside<T, std::void_t<decltype(Describes<T>::Describe(std::declval<CDescription<T>&>()))>>
    : std::true_type {
};

/// Whether a description of T can be found: in the namespace of T, or else from outside.
template<class T>
auto FindsDescription(int) -> decltype(VexaDescribe(std::declval<CDescription<T>&>()), std::true_type{});
template<class T>
CIsDescribedOutside<T> FindsDescription(...);
template<class T>
inline constexpr bool IS_DESCRIBED = decltype(FindsDescription<T>(0))::value;
template<class T>
inline constexpr bool IS_DESCRIBED_OUTSIDE =
    std::is_same_v<decltype(FindsDescription<T>(0)), CIsDescribedOutside<T>>&& IS_DESCRIBED<T>;

/// The same for a custom basic type.
template<class T>
auto FindsCustom(int)
    -> decltype(VexaDescribeCustom(CCustomTag<T>(), std::declval<CCustomBasicTypeInfor*&>()), std::true_type{});
template<class T>
std::false_type FindsCustom(...);
template<class T>
inline constexpr bool IS_CUSTOM = decltype(FindsCustom<T>(0))::value;

} // namespace detail
} // namespace vexa

#endif
