#ifndef VEXA_DETAIL_TYPE_SOURCE_H
#define VEXA_DETAIL_TYPE_SOURCE_H

#include <bitset>
#include <deque>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <vexa/detail/basic_code.h>
#include <vexa/detail/container_operations.h>
#include <vexa/detail/describable.h>
#include <vexa/detail/enumeration_names.h>
#include <vexa/detail/holding.h>
#include <vexa/detail/light_shapes.h>
#include <vexa/detail/type_traits.h>
#include <vexa/group.h>
#include <vexa/table.h>

/// \file
/// From a C++ type to its description: whether there is one (IsDescribable), how the value is held (CHolding), what it
/// is (CKind).

namespace vexa::detail {

/// See class_slot.h, which completes it.
template<class T>
constexpr CSlot* DetailSlotOf();

/// The primary template takes classes, types with a shape, and whatever no one has described.
template<class T, class>
struct CKind : CShapeTrait<T> {
};

template<class T>
struct CKind<T, std::enable_if_t<std::is_enum_v<T> && !IS_CUSTOM<T>>> : CKind<std::underlying_type_t<T>> {
};

template<unsigned int KIND_CODE>
struct CPlainKind {
    static constexpr unsigned int CODE = KIND_CODE;
};

template<class T>
struct CKind<T, std::enable_if_t<IS_CUSTOM<T>>> : CPlainKind<Enum::DT_CUSTOM_BASIC> {
};

template<class T>
struct CKind<T, std::enable_if_t<BASIC_CODE<T> != Enum::DT_UNKNOWN>> : CPlainKind<BASIC_CODE<T>> {
};

// clang-format off
template<> struct CKind<void> : CPlainKind<Enum::DT_VOID> {};
template<> struct CKind<NullType> : CPlainKind<Enum::DT_NULL> {};
template<> struct CKind<CGnlClass> : CPlainKind<Enum::DT_GNL_CLASS> {};
template<> struct CKind<CReferenceGroup> : CPlainKind<Enum::DT_REFERENCE_GROUP> {};
template<> struct CKind<CRow> : CPlainKind<Enum::DT_ROW> {};
template<> struct CKind<CTable> : CPlainKind<Enum::DT_TABLE> {};
template<> struct CKind<CValue> : CPlainKind<Enum::DT_VALUE> {};
// clang-format on

/// A container: its code, its name and the shape of its operations.
template<class Container, unsigned int KIND_CODE, class Operations>
struct CContainerKind : CPlainKind<KIND_CODE> {
    static void Fill(CContainerInfor& infor) { Operations::Fill(infor); }
};

template<class C, unsigned int CODE>
using CSequenceKind = CContainerKind<C, CODE, CSequenceOperations<C>>;
template<class C, unsigned int CODE>
using CAssociativeKind = CContainerKind<C, CODE, CAssociativeOperations<C>>;

// clang-format off
#define VEXA_DETAIL_CONTAINER(shape, name, code)                                                                       \
    template<class... A> struct CKind<std::name<A...>> : shape<std::name<A...>, Enum::code> {                          \
        static constexpr const char* NAME = "std::" #name;                                                             \
    };                                                                                                                 \
    template<class... A> inline constexpr bool IS_STD_CONTAINER<std::name<A...>> = true;
VEXA_DETAIL_CONTAINER(CSequenceKind, vector, DT_SEQUENCE_A)
VEXA_DETAIL_CONTAINER(CSequenceKind, list, DT_SEQUENCE_B)
VEXA_DETAIL_CONTAINER(CSequenceKind, deque, DT_SEQUENCE_C)
VEXA_DETAIL_CONTAINER(CAssociativeKind, set, DT_ASSOCIATIVE_A)
VEXA_DETAIL_CONTAINER(CAssociativeKind, multiset, DT_ASSOCIATIVE_B)
VEXA_DETAIL_CONTAINER(CAssociativeKind, map, DT_ASSOCIATIVE_C)
VEXA_DETAIL_CONTAINER(CAssociativeKind, multimap, DT_ASSOCIATIVE_D)
VEXA_DETAIL_CONTAINER(CAssociativeKind, unordered_set, DT_ASSOCIATIVE_E)
VEXA_DETAIL_CONTAINER(CAssociativeKind, unordered_multiset, DT_ASSOCIATIVE_E)
VEXA_DETAIL_CONTAINER(CAssociativeKind, unordered_map, DT_ASSOCIATIVE_E)
VEXA_DETAIL_CONTAINER(CAssociativeKind, unordered_multimap, DT_ASSOCIATIVE_E)
#undef VEXA_DETAIL_CONTAINER
// clang-format on

template<class Allocator>
struct CKind<std::vector<bool, Allocator>> : CShapeTrait<std::vector<bool, Allocator>> {
};
template<class T, std::size_t SIZE>
struct CKind<std::array<T, SIZE>>
    : CContainerKind<std::array<T, SIZE>, Enum::DT_ARRAY, CArrayOperations<std::array<T, SIZE>>> {
    static constexpr const char* NAME = "std::array";
};
template<class T, std::size_t SIZE>
struct CKind<T[SIZE]> : CContainerKind<T[SIZE], Enum::DT_ARRAY, CArrayOperations<T[SIZE]>> {
    static constexpr const char* NAME = "array";
};
template<std::size_t SIZE>
struct CKind<std::bitset<SIZE>> : CContainerKind<std::bitset<SIZE>, Enum::DT_BITSET, CBitsetOperations<SIZE>> {
    static constexpr const char* NAME = "std::bitset";
};

/// A map's element: a class of two attributes, described like any other.
template<class K, class V>
struct CKind<std::pair<K, V>> : CPlainKind<Enum::DT_CLASS> {
};

template<class T>
constexpr CTypeSource MakeTypeSource()
{
    if constexpr (IsDescribable<T>()) {
        using Holding = CHolding<T>;
        using Value = typename Holding::Value;
        return {static_cast<unsigned char>(IS_TEXT_POINTER<T> ? Enum::DT_CONST_CHAR_PTR : CKind<Value>::CODE),
                static_cast<unsigned char>(Holding::FLAGS),
                0,
                static_cast<unsigned char>(Holding::VALUE_OFFSET),
                0,
                DetailSlotOf<Value>()};
    } else {
        return {};
    }
}

} // namespace vexa::detail

#endif
