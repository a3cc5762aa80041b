#ifndef VEXA_DESCRIBE_H
#define VEXA_DESCRIBE_H

#include <cstring>
#include <string>
#include <type_traits>
#include <utility>

#include <vexa/class_refrence.h>
#include <vexa/container_refrence.h>
#include <vexa/detail/description.h>
#include <vexa/detail/for_each.h>
#include <vexa/detail/type_source.h>
#include <vexa/json.h>
#include <vexa/may_null.h>
#include <vexa/text.h>

/// \file
/// How an application describes its classes, and how it uses any described type.
///
/// A description takes effect on first use, on whichever thread comes first, and at the latest when the file that holds it is
/// initialised. It may stand in a header: every file that includes it sees the same descriptor. Describing functions may run
/// several times and must do nothing but describe.

/// Describes a class by its members, in order. At namespace scope, in the class's own namespace.
#define VEXA_DESCRIBE(Type, ...)                                                                                       \
    VEXA_DESCRIBE_CLASS(Type)                                                                                          \
    {                                                                                                                  \
        VEXA_DETAIL_FOR_EACH(VEXA_DETAIL_MEMBER, Type, __VA_ARGS__)                                                    \
    }

/// Describes a class in full: the braces that follow hold calls on `about`, a vexa::CDescription of the class.
#define VEXA_DESCRIBE_CLASS(Type)                                                                                      \
    inline void VexaDescribe(::vexa::CDescription<Type>& about);                                                       \
    constexpr const char* VexaNameOf(const ::vexa::CDescription<Type>*) { return #Type; }                              \
    namespace {                                                                                                        \
    [[maybe_unused]] const ::vexa::detail::CDescribedAtStart<Type> VEXA_DETAIL_UNIQUE(vexaDescribedAtStart, __COUNTER__); \
    }                                                                                                                  \
    inline void VexaDescribe([[maybe_unused]] ::vexa::CDescription<Type>& about)

/// Inside a class: lets its description reach private members.
#define VEXA_FRIEND(Type) friend void VexaDescribe(::vexa::CDescription<Type>&)

#define VEXA_DETAIL_JOIN(left, right) left##right
#define VEXA_DETAIL_UNIQUE(name, number) VEXA_DETAIL_JOIN(name, number)
#define VEXA_DETAIL_MEMBER(Type, member)                                                                               \
    about.Member<decltype(Type::member)>(#member, [](auto* type) -> decltype(&std::decay_t<decltype(*type)>::member) { \
        return &std::decay_t<decltype(*type)>::member;                                                                 \
    });

namespace vexa {

namespace detail {

/// Whether a base sub-object lies at one fixed, reachable place.
template<class Base, class Derived, class = void>
inline constexpr bool IS_FIXED_BASE = false;
template<class Base, class Derived>
inline constexpr bool
    IS_FIXED_BASE<Base, Derived, std::void_t<decltype(static_cast<Derived*>(std::declval<Base*>()))>> =
        std::is_base_of_v<Base, Derived>;

#define VEXA_DETAIL_FIXED_BASE_TEXT                                                                                    \
    "a virtual, ambiguous or private base cannot be described: make it a plain public base or a member"

/// A pointer to a data member is the member's offset (Itanium C++ ABI, 2.3.1).
template<class Member, class Class>
unsigned long OffsetOf(Member Class::*member)
{
    static_assert(sizeof member == sizeof(unsigned long));
    unsigned long offset = 0;
    std::memcpy(&offset, &member, sizeof offset);
    return offset;
}

template<class T>
CClassSlot& ClassSlotOf();

} // namespace detail

/// What a description is written with.
template<class T>
class CDescription : public detail::CDescriptionBase {
public:
    explicit CDescription(CClassInfor& infor) noexcept : CDescriptionBase(infor) {}
    explicit CDescription(detail::CSurvey& survey) noexcept : CDescriptionBase(survey) {}

    /// Adds the attributes of a described base class. Call it before Attrib, for them to come first.
    template<class B>
    void Base()
    {
        static_assert(detail::IS_FIXED_BASE<B, T>, VEXA_DETAIL_FIXED_BASE_TEXT);
        if constexpr (detail::IS_FIXED_BASE<B, T>) {
            auto* const derived = reinterpret_cast<T*>(alignof(T) * 64);
            const auto offset = reinterpret_cast<char*>(static_cast<B*>(derived)) - reinterpret_cast<char*>(derived);
            AddBase(detail::ClassSlotOf<B>(), static_cast<unsigned long>(offset));
        }
    }
    /// Adds one member. Its type says how it is held; \p name is what it is found by.
    template<class M, class C>
    CAttribDescription Attrib(const char* name, M C::*member)
    {
        static_assert(!std::is_function_v<M>, "a member function cannot be described: describe the data member that it gives");
        constexpr bool IS_REACHABLE = std::is_same_v<C, T> || detail::IS_FIXED_BASE<C, T>;
        static_assert(IS_REACHABLE, VEXA_DETAIL_FIXED_BASE_TEXT);
        if constexpr (IS_REACHABLE) {
            return AddAttrib(name, detail::OffsetOf<M, T>(member), detail::TYPE_SOURCE<M>);
        } else {
            return {nullptr, nullptr};
        }
    }
    /// One member of VEXA_DESCRIBE; \p pointer gives the pointer to it, where there can be one.
    template<class Declared, class Pointer>
    void Member(const char* name, Pointer pointer)
    {
        constexpr bool IS_ADDRESSABLE = std::is_invocable_v<Pointer, T*>;
        static_assert(!std::is_reference_v<Declared>,
                      "a reference member cannot be described: make it a pointer or a value");
        static_assert(std::is_reference_v<Declared> || IS_ADDRESSABLE,
                      "a bit-field cannot be described: make it a member of its full type");
        if constexpr (IS_ADDRESSABLE) Attrib(name, pointer(static_cast<T*>(nullptr)));
    }
};

/// The descriptor of a described class; registers it on first use.
template<class T>
const CClassInfor& ClassInforOf()
{
    return detail::DescriptorOf<CClassInfor>(detail::ClassSlotOf<T>());
}

namespace detail {

template<class T>
inline CTypeSlot TYPE_SLOT{[] { return MakeTypeInfor(TYPE_SOURCE<T>); }};

} // namespace detail

/// The general descriptor of any type that can be described. Lives as long as the process.
template<class T>
const CGnlTypeInfor& TypeInforOf()
{
    return detail::DescriptorOf<CGnlTypeInfor>(detail::TYPE_SLOT<T>);
}

/// A reference to any object of such a type, which must outlive it.
template<class T, class = std::enable_if_t<!std::is_const_v<T>>>
CRefrence RefOf(T& object)
{
    return {TypeInforOf<T>(), const_cast<void*>(static_cast<const void*>(std::addressof(object)))};
}
template<class T>
CConstRefrence RefOf(const T& object)
{
    return {TypeInforOf<T>(), std::addressof(object)};
}
template<class T>
void RefOf(const T&& object) = delete; // it would designate an object that is gone

namespace detail {

/// Everything that is not a reference already.
template<class T>
using IfObject = std::enable_if_t<!std::is_base_of_v<CConstRefrence, T>>;

} // namespace detail

/// The text functions on an object itself.
template<class T, class = detail::IfObject<T>>
std::string AsString(const T& object, Enum::AsStringFormatEnum format = Enum::ASF_VALUE)
{
    return AsString(RefOf(object), format);
}
template<class T, class = detail::IfObject<T>>
void AsString(std::string& out, const T& object, Enum::AsStringFormatEnum format = Enum::ASF_VALUE)
{
    AsString(out, RefOf(object), format);
}
template<class T, class = detail::IfObject<T>>
void AppendString(std::string& out, const T& object, Enum::AsStringFormatEnum format = Enum::ASF_VALUE)
{
    AppendString(out, RefOf(object), format);
}

/// The JSON functions on an object itself.
template<class T, class = detail::IfObject<T>>
int ToJson(std::string& out, const T& object)
{
    return ToJson(out, RefOf(object));
}
template<class T, class = detail::IfObject<T>>
int FromJson(T& object, const std::string& text)
{
    static_assert(!std::is_const_v<T>, "a const object cannot be read into: pass one that can be changed");
    return FromJson(RefOf(object), text);
}

} // namespace vexa

#include <vexa/detail/class_slot.h>

#endif
