#ifndef VEXA_DETAIL_CLASS_DESCRIPTION_H
#define VEXA_DETAIL_CLASS_DESCRIPTION_H

#include <cstring>
#include <type_traits>

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
            AddBase(detail::ClassSlotOf<B>(), static_cast<unsigned long>(offset));
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
            return AddAttrib(name, detail::OffsetOf<M, T>(member), detail::TYPE_SOURCE<M>);
        } else {
            return {nullptr, nullptr};
        }
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
                      "a bit-field cannot be described: make it a member of its full type");
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
