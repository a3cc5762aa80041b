#ifndef VEXA_DETAIL_CLASS_DESCRIPTION_H
#define VEXA_DETAIL_CLASS_DESCRIPTION_H

#include <cstring>
#include <string>
#include <type_traits>
#include <typeinfo>

#include <vexa/detail/description.h>
#include <vexa/detail/type_source.h>

/// \file
/// What the description of one class is written with.

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

/// Why what a description names cannot be described as a member of the class.
enum class MemberFault { NONE, STATIC, UNREACHABLE };

/// A static member is designated by a plain pointer.
template<class T, class Pointer>
inline constexpr MemberFault MEMBER_FAULT = MemberFault::STATIC;
template<class T, class M, class C>
inline constexpr MemberFault MEMBER_FAULT<T, M C::*> =
    std::is_same_v<C, T> || IS_FIXED_BASE<C, T> ? MemberFault::NONE : MemberFault::UNREACHABLE;

// Loops, not folds: Clang folds no more than 256.
template<class T, class... Pointers>
constexpr MemberFault FirstFault()
{
    constexpr MemberFault FAULTS[] = {MemberFault::NONE, MEMBER_FAULT<T, Pointers>...};
    for (const MemberFault fault : FAULTS) {
        if (fault != MemberFault::NONE) return fault;
    }
    return MemberFault::NONE;
}
template<class... Declared>
constexpr bool IsAnyReference()
{
    constexpr bool ARE_REFERENCES[] = {false, std::is_reference_v<Declared>...};
    for (const bool isReference : ARE_REFERENCES) {
        if (isReference) return true;
    }
    return false;
}

template<MemberFault FAULT>
struct CMemberFault {
    static constexpr MemberFault VALUE = FAULT;
};
/// Most descriptions name members of their own class only, which needs no look at each.
template<class T, class... M>
CMemberFault<MemberFault::NONE> FaultOf(T*, M T::*...);
template<class T, class... Pointers>
CMemberFault<FirstFault<T, Pointers...>()> FaultOf(T*, Pointers...);

/// The record of one member of VEXA_DESCRIBE.
template<class M>
constexpr CTypeSource RecordOf(std::size_t offset)
{
    CTypeSource record = TYPE_SOURCE<M>;
    // What does not fit is as far beyond the reach of an attribute's offset as the farthest that does.
    record.Offset = static_cast<unsigned int>(offset < 0xFFFFFFFF ? offset : 0xFFFFFFFF);
    return record;
}

#ifdef __cpp_rtti
template<class T>
const std::type_info* TypeOf(const void* object, const void*& whole)
{
    const T& part = *static_cast<const T*>(object);
    whole = dynamic_cast<const void*>(&part);
    return &typeid(part);
}
inline constexpr bool HAS_TYPE_INFORMATION = true;
#define VEXA_DETAIL_TYPE_ID(type) &typeid(type)
#else
template<class T>
const std::type_info* TypeOf(const void* object, const void*& whole);
inline constexpr bool HAS_TYPE_INFORMATION = false;
#define VEXA_DETAIL_TYPE_ID(type) nullptr
#endif

/// A plain function by its pointer, or a lambda by that which it converts itself to.
template<class Function, class = void>
struct CPlainFunction {
    using Type = void;
};
template<class Function>
struct CPlainFunction<Function, std::void_t<decltype(+std::declval<Function>())>> {
    using Type = decltype(+std::declval<Function>());
};
template<class Plain, class T>
constexpr bool IsCheckOf()
{
    if constexpr (std::is_pointer_v<Plain> && std::is_invocable_v<Plain, const T&>) {
        using Result = std::invoke_result_t<Plain, const T&>;
        return std::is_same_v<Result, bool> || std::is_convertible_v<Result, std::string>;
    } else {
        return false;
    }
}

using PlainFunction = void (*)();
template<class Result, class... Arguments>
PlainFunction AnyFunction(Result (*function)(Arguments...)) noexcept
{
    return reinterpret_cast<PlainFunction>(function);
}

template<class T, class Called>
std::string CallCheck(void (*function)(), const char* text, const void* object)
{
    const T& checked = *static_cast<const T*>(object);
    if constexpr (std::is_same_v<std::invoke_result_t<Called, const T&>, bool>)
        return reinterpret_cast<Called>(function)(checked) ? "" : text;
    else
        return reinterpret_cast<Called>(function)(checked);
}

} // namespace detail

/// What a description is written with.
template<class T>
class CDescription : public detail::CDescriptionBase {
public:
    explicit CDescription(const CDescriptionBase& base) noexcept : CDescriptionBase(base) {}

    /// Adds the attributes of a described base class. Call it before Attrib, for them to come first.
    template<class B>
    void Base()
    {
        static_assert(detail::IS_FIXED_BASE<B, T>, VEXA_DETAIL_FIXED_BASE_TEXT);
        if constexpr (detail::IS_FIXED_BASE<B, T>) {
            auto* const derived = reinterpret_cast<T*>(alignof(T) * 64);
            const auto offset = reinterpret_cast<char*>(static_cast<B*>(derived)) - reinterpret_cast<char*>(derived);
            if constexpr (std::is_polymorphic_v<T>) {
                AddBase(detail::ClassSlotOf<B>(), static_cast<unsigned long>(offset),
                        {VEXA_DETAIL_TYPE_ID(T), std::is_abstract_v<T>, nullptr, !std::is_polymorphic_v<B>});
            } else {
                AddBase(detail::ClassSlotOf<B>(), static_cast<unsigned long>(offset));
            }
        }
    }
    /// Adds one member. Its type says how it is held; \p name is what it is found by.
    template<class M, class C>
    CAttribDescription Attrib(const char* name, M C::*member)
    {
        constexpr bool IS_FUNCTION = std::is_function_v<M>;
        constexpr bool IS_REACHABLE = std::is_same_v<C, T> || detail::IS_FIXED_BASE<C, T>;
        static_assert(!IS_FUNCTION, "a member function cannot be described: describe the data member that it gives");
        static_assert(IS_REACHABLE, VEXA_DETAIL_FIXED_BASE_TEXT);
        if constexpr (IS_REACHABLE && !IS_FUNCTION) {
            CAttribDescription attrib = AddAttrib(name, detail::OffsetOf<M, T>(member), detail::TYPE_SOURCE<M>);
            if constexpr (detail::IS_UNIQUE_POINTER<M>) attrib.HeldByUniquePointer();
            return attrib;
        } else {
            return {nullptr, nullptr};
        }
    }
    /// Objects of the class, and of those derived from it, tell what they are under this key: see TagValue(). In the
    /// standard formats a pointer or std::shared_ptr to the class may then hold an object of any derived class that is
    /// described with Base() of this one, at any depth; one that is not described is written as this class. A derived
    /// class may have a tag of its own for pointers to itself. Where the class is an alternative of a std::variant, the
    /// tag tells which. Of a class that is not polymorphic it tells nothing behind a pointer, which is logged where a
    /// polymorphic class has it as a base and no tag of its own.
    void Tag(const char* key)
    {
        if constexpr (std::is_polymorphic_v<T>) {
            static_assert(detail::ALWAYS_FALSE<T> || detail::HAS_TYPE_INFORMATION,
                          "a tag of a polymorphic class needs run-time type information: compile without -fno-rtti");
            static_assert(std::has_virtual_destructor_v<T> || std::is_final_v<T>,
                          "objects of derived classes are deleted through a class with a tag: "
                          "give it a virtual destructor");
            SetTag(key, {VEXA_DETAIL_TYPE_ID(T), std::is_abstract_v<T>, &detail::TypeOf<T>});
        } else {
            SetTag(key, {});
        }
    }
    /// After all members of an object have been read, \p function looks at it. It is a plain function of a `const T&`,
    /// or a lambda without captures, that gives what is wrong, an empty text where nothing is; or else a bool, whether
    /// the object is right, and \p text is what is wrong where it is not. An object is looked at in the order in which
    /// checks and bases are named here.
    template<class Function>
    void Check(Function function, const char* text = "")
    {
        using Plain = typename detail::CPlainFunction<Function>::Type;
        constexpr bool IS_CHECK = detail::IsCheckOf<Plain, T>();
        static_assert(IS_CHECK, "a check is a function, or a lambda without captures, of a const reference to the "
                                "class that gives a text or a bool");
        if constexpr (IS_CHECK) AddCheck(&detail::CallCheck<T, Plain>, detail::AnyFunction(+function), text);
    }
    /// The members of VEXA_DESCRIBE, which are declared with these types, behind a void; \p list adds them. It can be
    /// called where there are pointers to all of them.
    template<class, class... Declared, class List>
    void Members(List list)
    {
        constexpr bool IS_ANY_REFERENCE = detail::IsAnyReference<Declared...>();
        constexpr bool IS_ADDRESSABLE = std::is_invocable_v<List, T*, CDescriptionBase&>;
        static_assert(!IS_ANY_REFERENCE, "a reference member cannot be described: make it a pointer or a value");
        static_assert(IS_ANY_REFERENCE || IS_ADDRESSABLE,
                      "a bit-field cannot be described: make it a member of its full type; "
                      "nor can a private member, unless VEXA_FRIEND lets the description reach it");
        if constexpr (IS_ADDRESSABLE) {
            constexpr detail::MemberFault FAULT = std::invoke_result_t<List, T*, CDescriptionBase&>::VALUE;
            static_assert(FAULT != detail::MemberFault::STATIC,
                          "a static member cannot be described, which belongs to no object: describe a data member");
            static_assert(FAULT != detail::MemberFault::UNREACHABLE, VEXA_DETAIL_FIXED_BASE_TEXT);
            if constexpr (FAULT == detail::MemberFault::NONE) list(static_cast<T*>(nullptr), *this);
        }
    }
};

} // namespace vexa

#endif
