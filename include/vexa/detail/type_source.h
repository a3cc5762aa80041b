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
#include <vexa/detail/type_traits.h>
#include <vexa/group.h>
#include <vexa/table.h>

/// \file
/// From a C++ type to its description: first how the value is held (CHolding), then what it is (CKind).

namespace vexa::detail {

template<class T>
const CTypeInforBase* ClassDetail();
template<class T>
void SurveyClass(CSurvey& survey, bool isByValue);
template<class T>
const CTypeInforBase* CustomDetail();
template<class Container>
const CTypeInforBase* ContainerDetail();
template<class Container>
void SurveyContainer(CSurvey& survey, bool isByValue);

struct CKindSource {
    unsigned int DataType;
    const CTypeInforBase* (*Detail)() = nullptr;
    void (*Survey)(CSurvey&, bool) = nullptr;
};

/// What a value of type T is. The primary template takes classes and enumerations.
template<class T, class = void>
struct CKind {
    static_assert(!std::is_same_v<T, signed char>,
                  "signed char has no type code: use char or unsigned char for bytes, short for numbers");
    static_assert(!IS_SPECIALIZATION<T, std::shared_ptr>,
                  "a std::shared_ptr cannot be described: hold the object by std::unique_ptr or by value");
    static_assert(!std::is_pointer_v<T> && !IS_UNIQUE_POINTER<T>,
                  "a pointer to a pointer cannot be described: describe a pointer to a class that holds the inner one");
    static_assert(std::is_same_v<T, signed char> || IS_SPECIALIZATION<T, std::shared_ptr> || std::is_pointer_v<T> ||
                      IS_UNIQUE_POINTER<T> || IS_DESCRIBED<T>,
                  "this type is not described: describe it with VEXA_DESCRIBE or VEXA_DESCRIBE_CLASS in its own namespace");
    static constexpr CKindSource Source() { return {Enum::DT_CLASS, &ClassDetail<T>, &SurveyClass<T>}; }
};

template<class T>
struct CKind<T, std::enable_if_t<std::is_enum_v<T> && !IS_CUSTOM<T>>> : CKind<std::underlying_type_t<T>> {};

template<class T>
struct CKind<T, std::enable_if_t<IS_CUSTOM<T>>> {
    static constexpr CKindSource Source() { return {Enum::DT_CUSTOM_BASIC, &CustomDetail<T>}; }
};

template<unsigned int CODE>
struct CPlainKind {
    static constexpr CKindSource Source() { return {CODE}; }
};

template<class T>
struct CKind<T, std::enable_if_t<BASIC_CODE<T> != Enum::DT_UNKNOWN>> : CPlainKind<BASIC_CODE<T>> {};

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
template<class Container, unsigned int CODE, class Operations>
struct CContainerKind {
    static constexpr CKindSource Source() { return {CODE, &ContainerDetail<Container>, &SurveyContainer<Container>}; }
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
struct CKind<std::vector<bool, Allocator>> {
    static_assert(ALWAYS_FALSE<Allocator>,
                  "std::vector<bool> has no elements that can be addressed: use std::deque<bool> or std::bitset");
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
struct CKind<std::pair<K, V>> {
    static constexpr CKindSource Source()
    {
        return {Enum::DT_CLASS, &ClassDetail<std::pair<K, V>>, &SurveyClass<std::pair<K, V>>};
    }
};

/// How a value is held. The primary template takes those that are held directly.
template<class T>
struct CHolding {
    using Value = T;
    static constexpr unsigned int FLAGS = 0;
    static constexpr std::size_t VALUE_OFFSET = 0;
};
/// A const pointer keeps pointing where it does: it is not marked nullable, for Clear would set it to null.
template<class T>
struct CHolding<const T> : CHolding<T> {
    static constexpr bool IS_POINTER = (CHolding<T>::FLAGS & Enum::HF_POINTER) != 0;
    static constexpr unsigned int FLAGS = (CHolding<T>::FLAGS & ~(IS_POINTER ? Enum::HF_NULLABLE : 0U)) | Enum::HF_CONST;
};
template<class T, std::size_t SIZE>
struct CHolding<const T[SIZE]> : CHolding<T[SIZE]> {
    static constexpr unsigned int FLAGS = Enum::HF_CONST;
};
template<class T>
struct CHolding<T&> : CHolding<T> {
    static_assert(ALWAYS_FALSE<T>, "a reference member cannot be described: make it a pointer or a value");
};
template<class T>
struct CHolding<T*> : CHolding<T> {
    static constexpr unsigned int FLAGS = Enum::HF_NULLABLE | Enum::HF_POINTER;
};
/// A pointer to const does not own what it points at; no one knows how to make or free untyped memory.
template<class T>
struct CHolding<const T*> : CHolding<T> {
    static constexpr unsigned int FLAGS = Enum::HF_NULLABLE | Enum::HF_POINTER | Enum::HF_CONST;
};
template<>
struct CHolding<void*> : CHolding<const void*> {};
template<class T>
struct CHolding<std::unique_ptr<T>> : CHolding<T*> {
    static_assert(!std::is_const_v<T>, "a std::unique_ptr to const cannot be described: use one to a value that can be changed");
};
template<class T>
struct CHolding<MayNull<T>> {
    using Value = T;
    static constexpr unsigned int FLAGS = Enum::HF_MAY_NULL | Enum::HF_NULLABLE;
    static constexpr std::size_t VALUE_OFFSET = MayNull<T>::ValueOffset();
    static_assert(VALUE_OFFSET < 256, "a vexa::MayNull of a type aligned to 256 bytes or more cannot be described: hold it by pointer");
};
template<class T>
struct CHolding<NonNullPointer<T>> {
    using Value = T;
    static constexpr unsigned int FLAGS = Enum::HF_NON_NULL_POINTER | Enum::HF_NULLABLE | Enum::HF_POINTER;
    static constexpr std::size_t VALUE_OFFSET = 0;
};

/// The text that a const char* designates has a code of its own.
template<class T>
inline constexpr bool IS_TEXT_POINTER = std::is_same_v<std::remove_const_t<T>, const char*>;

template<class T>
constexpr CTypeSource MakeTypeSource()
{
    using Holding = CHolding<T>;
    constexpr bool IS_NESTED = IS_SPECIALIZATION<typename Holding::Value, MayNull> ||
                               IS_SPECIALIZATION<typename Holding::Value, NonNullPointer>;
    constexpr bool IS_VALUE_POINTER =
        std::is_same_v<typename Holding::Value, CValue> && (Holding::FLAGS & Enum::HF_POINTER) != 0;
    static_assert(!IS_VALUE_POINTER, "a pointer to vexa::CValue cannot be described, which is null by itself: hold the value");
    static_assert(!IS_NESTED, "a vexa::MayNull or vexa::NonNullPointer cannot be described behind a pointer or wrapper: use it alone");
    if constexpr (!IS_NESTED) {
        constexpr CKindSource KIND = CKind<typename Holding::Value>::Source();
        return {static_cast<unsigned char>(IS_TEXT_POINTER<T> ? Enum::DT_CONST_CHAR_PTR : KIND.DataType),
                static_cast<unsigned char>(Holding::FLAGS), 0, static_cast<unsigned char>(Holding::VALUE_OFFSET),
                KIND.Detail, KIND.Survey};
    }
}

} // namespace vexa::detail

#endif
