#ifndef VEXA_DESCRIBE_H
#define VEXA_DESCRIBE_H

#include <cstring>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <vexa/class_refrence.h>
#include <vexa/container_refrence.h>
#include <vexa/detail/class_slot.h>
#include <vexa/detail/for_each.h>
#include <vexa/json.h>
#include <vexa/may_null.h>
#include <vexa/table.h>
#include <vexa/text.h>

/// \file
/// How an application describes its classes, and how it uses any described type.
///
/// A description takes effect on first use, on whichever thread comes first, that of a class at the latest when the
/// file that holds it is initialised. It may stand in a header: every file that includes it sees the same descriptor.
/// Describing functions may run several times and must do nothing but describe.

/// Describes a class by its members, in order, up to 1000 of them. At namespace scope, in the class's own namespace. A
/// class without members to describe takes VEXA_DESCRIBE_CLASS with empty braces; so does one with a member that is
/// named by its base, `Base::member`.
#define VEXA_DESCRIBE(Type, ...)                                                                                       \
    VEXA_DESCRIBE_CLASS(Type) { VEXA_MEMBERS(Type, __VA_ARGS__) }

/// In a description in full, on its `about`: describes members of the class, in order, by their names, up to 1000.
#define VEXA_MEMBERS(Type, ...)                                                                                        \
    VEXA_DETAIL_QUIET_OFFSETS                                                                                          \
    about.template Members<void VEXA_DETAIL_FOR_EACH(VEXA_DETAIL_DECLARED, Type, __VA_ARGS__)>(                        \
        [](auto* vexaObject, ::vexa::detail::CDescriptionBase& vexaAbout) __attribute__((always_inline))               \
            ->decltype(::vexa::detail::FaultOf(vexaObject VEXA_DETAIL_FOR_EACH(                                        \
                VEXA_DETAIL_POINTER, std::remove_pointer_t<decltype(vexaObject)>, __VA_ARGS__))) {                     \
                using VexaType = std::remove_pointer_t<decltype(vexaObject)>;                                          \
                constexpr ::vexa::detail::CTypeSource VEXA_SOURCES[] = {                                               \
                    VEXA_DETAIL_FOR_EACH(VEXA_DETAIL_RECORD, VexaType, __VA_ARGS__)};                                  \
                ::vexa::detail::AddMembers(vexaAbout, VEXA_SOURCES, sizeof VEXA_SOURCES / sizeof VEXA_SOURCES[0],      \
                                           VEXA_DETAIL_TEXT(__VA_ARGS__));                                             \
                return {};                                                                                             \
            });                                                                                                        \
    VEXA_DETAIL_QUIET_END

/// Describes a class in full: the braces that follow hold calls on `about`, a vexa::CDescription of the class.
#define VEXA_DESCRIBE_CLASS(Type)                                                                                      \
    inline void VexaDescribe(::vexa::CDescription<Type>& about);                                                       \
    constexpr const char* VexaNameOf(const ::vexa::CDescription<Type>*) { return #Type; }                              \
    VEXA_DESCRIBED_AT_START(Type)                                                                                      \
    inline void VexaDescribe([[maybe_unused]] ::vexa::CDescription<Type>& about)

/// Inside a class: describes a class of it that may be private, as VEXA_DESCRIBE and VEXA_DESCRIBE_CLASS do. The braces
/// of the latter see private members of both.
#define VEXA_DESCRIBE_NESTED(Type, ...)                                                                                \
    VEXA_DESCRIBE_NESTED_CLASS(Type) { VEXA_MEMBERS(Type, __VA_ARGS__) }
#define VEXA_DESCRIBE_NESTED_CLASS(Type)                                                                               \
    static inline const ::vexa::detail::CDescribedAtStart<Type> VEXA_DETAIL_UNIQUE(vexaDescribedAtStart, __COUNTER__); \
    friend constexpr const char* VexaNameOf(const ::vexa::CDescription<Type>*) { return #Type; }                       \
    friend inline void VexaDescribe([[maybe_unused]] ::vexa::CDescription<Type>& about)

/// Describes a type that wraps one value of a basic type, \p member, as a basic type of its own. The member, given as
/// `&Type::member`, lies within the first 32,767 bytes.
#define VEXA_DESCRIBE_CUSTOM_STD(Type, member)                                                                         \
    inline void VexaDescribeCustom(::vexa::detail::CCustomTag<Type>, ::vexa::CCustomBasicTypeInfor*& descriptor)       \
    {                                                                                                                  \
        ::vexa::detail::DescribeStd<Type, (member)>(descriptor, #Type, member);                                        \
    }

/// Lets the description of a class from outside (vexa::Describes) take effect when the file is initialised, so that
/// vexa::FindClass and texts with tags know it before it is used. At namespace scope.
#define VEXA_DESCRIBED_AT_START(Type)                                                                                  \
    namespace {                                                                                                        \
    [[maybe_unused]] const ::vexa::detail::CDescribedAtStart<Type> VEXA_DETAIL_UNIQUE(vexaDescribedAtStart,            \
                                                                                      __COUNTER__);                    \
    }

/// Describes a type that converts itself to and from a vexa::CValue as a basic type of its own, with a number of the
/// application's. The converters are members of the type, `void ToValue(vexa::CValue& out) const` and
/// `void FromValue(const vexa::CValue& in)`, or functions beside it, `void ToValue(const Type&, vexa::CValue&)` and
/// `void FromValue(Type&, const vexa::CValue&)`. A null `in` asks for the empty state.
#define VEXA_DESCRIBE_CUSTOM_ANY(Type, id)                                                                             \
    inline void VexaDescribeCustom(::vexa::detail::CCustomTag<Type>, ::vexa::CCustomBasicTypeInfor*& descriptor)       \
    {                                                                                                                  \
        ::vexa::detail::DescribeAny<Type>(descriptor, #Type, id);                                                      \
    }

/// Gives the values of an enumeration, scoped or not, their names, for the formats of vexa/interchange.h; everything
/// else takes the enumeration for its integer. Up to 1000 enumerators, at namespace scope, in the namespace of the
/// enumeration, before the first class that has a member of it. One of a class is named with it, `Outer::Color`.
#define VEXA_DESCRIBE_ENUM(Type, ...)                                                                                  \
    VEXA_DETAIL_DESCRIBE_ENUM(Type, __VA_ARGS__)                                                                       \
    static_assert(::vexa::detail::HAS_NAMES<Type>,                                                                     \
                  "an enumeration must be described before the first class that has a member of it");

/// The same inside a class, of a private enumeration of it.
#define VEXA_DESCRIBE_NESTED_ENUM(Type, ...) friend VEXA_DETAIL_DESCRIBE_ENUM(Type, __VA_ARGS__)

#define VEXA_DETAIL_DESCRIBE_ENUM(Type, ...)                                                                           \
    constexpr ::vexa::detail::CEnumerationNames<::vexa::detail::CountOfNames(#__VA_ARGS__)> VexaDescribeEnum(          \
        ::vexa::detail::CEnumerationTag<Type>)                                                                         \
    {                                                                                                                  \
        ::vexa::detail::CEnumerationNames<::vexa::detail::CountOfNames(#__VA_ARGS__)> vexaMade{                        \
            #Type, #__VA_ARGS__, {}};                                                                                  \
        long long* vexaNext = vexaMade.Values;                                                                         \
        VEXA_DETAIL_FOR_EACH(VEXA_DETAIL_ENUMERATOR, Type, __VA_ARGS__)                                                \
        return vexaMade;                                                                                               \
    }
#define VEXA_DETAIL_ENUMERATOR(Type, name) *vexaNext++ = ::vexa::detail::NumberOf(Type::name);

/// Inside a class: lets its description reach private members.
#define VEXA_FRIEND(Type) friend void VexaDescribe(::vexa::CDescription<Type>&)

#define VEXA_DETAIL_JOIN(left, right) left##right
#define VEXA_DETAIL_UNIQUE(name, number) VEXA_DETAIL_JOIN(name, number)
#define VEXA_DETAIL_TEXT(...) #__VA_ARGS__
#define VEXA_DETAIL_DECLARED(Type, member) , decltype(Type::member)
#define VEXA_DETAIL_POINTER(Type, member) , &Type::member
#define VEXA_DETAIL_RECORD(Type, member)                                                                               \
    ::vexa::detail::RecordOf<decltype(Type::member)>(__builtin_offsetof(Type, member)),
// GCC and Clang know where a member lies, whatever the class's layout.
#define VEXA_DETAIL_QUIET_OFFSETS                                                                                      \
    _Pragma("GCC diagnostic push") _Pragma("GCC diagnostic ignored \"-Winvalid-offsetof\"")
#define VEXA_DETAIL_QUIET_END _Pragma("GCC diagnostic pop")

namespace vexa {

/// Describes a class from outside, without a word in its namespace. An application specialises it, before the first use
/// of the class, and in part for all instances of a class template:
///
///     template<>
///     struct vexa::Describes<third::Money> {
///         static void Describe(vexa::CDescription<third::Money>& about) { VEXA_MEMBERS(third::Money, units, code) }
///     };
///     template<class T>
///     struct vexa::Describes<third::Box<T>> {
///         static constexpr const char* NAME = "Box";
///         static void Describe(vexa::CDescription<third::Box<T>>& about)
///         {
///             about.Attrib("value", &third::Box<T>::value);
///         }
///     };
///
/// The registered name is NAME where there is one, to which an instance of a template adds its arguments: `Box<int>`;
/// otherwise the class's name with its namespaces: `third::Money`, `third::Box<int>`. The description takes effect on
/// the first use of the class, or at the start of the program where VEXA_DESCRIBED_AT_START names it.
template<class T>
struct Describes {
};

/// The descriptor of a described class; registers it on first use.
template<class T>
const CClassInfor& ClassInforOf()
{
    return detail::DescriptorOf<CClassInfor>(detail::ClassSlotOf<T>());
}

namespace detail {

template<class T>
inline CTypeSlot TYPE_SLOT{TYPE_SOURCE<T>};

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
/// Of a const object the reference carries the const flag, and whatever writes refuses it. Its attributes and elements
/// do not carry the flag: looked up into a writable reference, they can be written, which the application must not do.
template<class T>
CConstRefrence RefOf(const T& object)
{
    CConstRefrence ref(TypeInforOf<T>(), std::addressof(object));
    if (!ref.TypeInfor.Has(Enum::HF_POINTER)) ref.TypeInfor.HoldingFlags |= Enum::HF_CONST;
    return ref;
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
    if constexpr (std::is_const_v<T>)
        return 0;
    else
        return FromJson(RefOf(object), text);
}

/// The table functions on a container of objects itself.
template<class Container, class = detail::IfObject<Container>>
bool TableFromObjects(CTable& table, const Container& container, const std::vector<std::string>& columns = {})
{
    return TableFromObjects(table, RefOf(container).AsContainer(), columns);
}
template<class Container, class = detail::IfObject<Container>>
bool ObjectsFromTable(Container& container, const CTable& table, std::vector<std::string>* unknown = nullptr)
{
    CContainerRefrence ref = RefOf(container).AsContainer();
    return ObjectsFromTable(ref, table, unknown);
}

} // namespace vexa

#endif
