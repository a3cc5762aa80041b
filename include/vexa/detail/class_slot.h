#ifndef VEXA_DETAIL_CLASS_SLOT_H
#define VEXA_DETAIL_CLASS_SLOT_H

#include <algorithm>
#include <vexa/detail/class_description.h>
#include <vexa/value.h>

/// \file
/// The slots of classes and containers: what each type contributes to its descriptor.

namespace vexa::detail {

template<class T>
void* MakeObject()
{
    if constexpr (std::is_default_constructible_v<T>)
        return new T();
    else
        return nullptr;
}

/// An abstract class without virtual destructor is never the whole object, and no one here knows what is.
template<class T>
inline constexpr bool CAN_DELETE = std::is_destructible_v<T> &&
                                   (!std::is_abstract_v<T> || std::has_virtual_destructor_v<T>);

// The object is one that MakeObject made, so a polymorphic class needs no virtual destructor.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdelete-non-virtual-dtor"
template<class T>
void DestroyObject(void* object)
{
    if constexpr (HOLDS_RAW_POINTERS<T>) {
        if (object != nullptr) Disown(*static_cast<T*>(object));
    }
    if constexpr (std::is_array_v<T>)
        delete[] static_cast<std::remove_extent_t<T>*>(object);
    else if constexpr (CAN_DELETE<T>)
        delete static_cast<T*>(object);
}
#pragma GCC diagnostic pop

template<class T>
void DescribeTo(CDescription<T>& about)
{
    if constexpr (IS_PAIR<T>) {
        about.Attrib("first", &T::first);
        about.Attrib("second", &T::second);
    } else if constexpr (IS_DESCRIBED_OUTSIDE<T>) {
        Describes<T>::Describe(about);
    } else if constexpr (IS_DESCRIBED<T>) {
        static_assert(!CIsDescribedOutside<T>::value,
                      "this class is described twice, in its own namespace and by vexa::Describes: leave one out");
        VexaDescribe(about);
    }
}

template<class T>
constexpr auto OutsideNameOf(int) -> decltype(static_cast<void>(Describes<T>::NAME), static_cast<const char*>(nullptr))
{
    constexpr bool IS_TEXT = std::is_convertible_v<decltype(Describes<T>::NAME), const char*>;
    static_assert(IS_TEXT, "the NAME of a vexa::Describes is a text: declare it static constexpr const char*");
    if constexpr (IS_TEXT)
        return Describes<T>::NAME;
    else
        return nullptr;
}
template<class T>
constexpr const char* OutsideNameOf(...)
{
    return nullptr;
}

/// Null for a class that is named as it is spelled.
template<class T>
constexpr const char* ClassNameOf()
{
    if constexpr (IS_PAIR<T>)
        return "std::pair";
    else if constexpr (!IS_DESCRIBED<T>)
        return "";
    else if constexpr (IS_DESCRIBED_OUTSIDE<T>)
        return OutsideNameOf<T>(0);
    else
        return VexaNameOf(static_cast<const CDescription<T>*>(nullptr));
}

/// How the compiler spells the class, somewhere in a text; null for a class that no application describes.
template<class T>
constexpr const char* Spelled()
{
    if constexpr (IS_DESCRIBED<T>)
        return __PRETTY_FUNCTION__;
    else
        return nullptr;
}

template<class T>
void Describe(CDescriptionBase& base)
{
    CDescription<T> about(base);
    DescribeTo(about);
}

template<class T>
inline CClassSlot CLASS_SLOT{ClassNameOf<T>(), Spelled<T>(),           sizeof(T), &MakeObject<T>, &DestroyObject<T>,
                             &Describe<T>,     IS_DESCRIBED_OUTSIDE<T>};

template<class T>
CClassSlot& ClassSlotOf()
{
    static_assert(CKind<T>::CODE == Enum::DT_CLASS, "only a class has a class descriptor: use vexa::TypeInforOf");
    static_cast<void>(TYPE_SOURCE<T>.DataType); // says that the class is not described
    return CLASS_SLOT<T>;
}

template<class T>
inline CCustomSlot CUSTOM_SLOT{
    [](CCustomBasicTypeInfor*& descriptor) { VexaDescribeCustom(CCustomTag<T>(), descriptor); }};

template<class T>
constexpr auto SwapOf()
{
    void (*swap)(void*, void*) noexcept = nullptr;
    if constexpr (std::is_nothrow_swappable_v<T>) {
        swap = [](void* left, void* right) noexcept { std::swap(*static_cast<T*>(left), *static_cast<T*>(right)); };
    }
    return swap;
}

/// The names of an enumeration's values, the operations of every other type.
template<class T>
constexpr const void* ShapeOperationsOf()
{
    if constexpr (HAS_NAMES<T>)
        return &ENUMERATION_SLOT<T>;
    else
        return CKind<T>::Operations();
}

template<class T>
struct CShaped {
    using Kind = CKind<T>;
    static constexpr CShapedType TYPE = {
        {Kind::KIND, Kind::PART_COUNT, Kind::PartSources(), ShapeOperationsOf<T>(), SwapOf<T>()},
        Kind::NAME,
        Kind::AppendName,
        sizeof(T),
        &MakeObject<T>,
        &DestroyObject<T>,
        &Kind::template ToValue<T>,
        &Kind::template FromValue<T>};
};

template<class T>
inline CCustomSlot SHAPE_SLOT{&CShaped<T>::TYPE};

/// Bytes that the 16-bit value offset of a custom type reaches.
inline constexpr std::size_t CUSTOM_REACH = 0x8000;

/// Tells at compile time whether a member lies too far into its class for the 16-bit value offset of a custom type: it
/// is compared with one that lies just beyond.
template<class Class, class Member>
union CFarProbe {
    struct CBeyond {
        char Before[CUSTOM_REACH];
        Member First;
    };

    Class Object;
    CBeyond Beyond;
    ~CFarProbe() {}
};
#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wundefined-var-template"
#pragma clang diagnostic ignored "-Wundefined-internal"
#endif
template<class Class, class Member>
extern CFarProbe<Class, Member> FAR_PROBE; // only its addresses are spoken of

template<auto MEMBER, class Class, class M>
constexpr bool IsFarMember()
{
    if constexpr (sizeof(Class) <= CUSTOM_REACH)
        return false;
    else
        return !(std::addressof(FAR_PROBE<Class, M>.Object.*MEMBER) < std::addressof(FAR_PROBE<Class, M>.Beyond.First));
}
#ifdef __clang__
#pragma clang diagnostic pop
#endif

/// Sets a basic value to what a tagged one gives as its type; a null gives the empty state.
template<class M>
void SetFromValue(M& basic, const CValue& in)
{
    if (in.IsNull())
        basic = M();
    else if constexpr (std::is_same_v<M, std::string>)
        basic = in.As_std_string();
    else if constexpr (std::is_same_v<M, long double>)
        basic = in.As_long_double();
    else
        in.WriteTo(basic);
}

/// A custom type that wraps the standard value \p MEMBER.
template<class T, auto MEMBER, class M, class C>
void DescribeStd(CCustomBasicTypeInfor*& descriptor, const char* name, M C::*member)
{
    constexpr bool IS_BASIC = BASIC_CODE<M> != Enum::DT_UNKNOWN;
    constexpr bool IS_FAR = IsFarMember<MEMBER, T, M>();
    static_assert(IS_BASIC, "a custom type can wrap a plain value of a basic type only: use VEXA_DESCRIBE_CUSTOM_ANY");
    static_assert(!IS_FAR, "a custom type cannot wrap a member more than 32767 bytes into the object: move the member "
                           "towards the start or use VEXA_DESCRIBE_CUSTOM_ANY");
    if constexpr (IS_BASIC && !IS_FAR) {
        CCustomBasicTypeInfor* made = nullptr;
        CCustomBasicTypeInfor::InitCustomStdBasicTypeInfor(made, name, sizeof(T), &MakeObject<T>, &DestroyObject<T>,
                                                           CGnlTypeInfor(BASIC_CODE<M>), OffsetOf<M, T>(member));
        made->ToValue = [](const void* value, CValue& out) { out = static_cast<const T*>(value)->*MEMBER; };
        made->FromValue = [](void* value, const CValue& in) { SetFromValue(static_cast<T*>(value)->*MEMBER, in); };
        descriptor = made;
    }
}

/// Members of this name, or else functions of the type's namespace.
template<class T, class = void>
inline constexpr bool CONVERTS_ITSELF = false;
template<class T>
inline constexpr bool
    CONVERTS_ITSELF<T, std::void_t<decltype(std::declval<const T&>().ToValue(std::declval<CValue&>())),
                                   decltype(std::declval<T&>().FromValue(std::declval<const CValue&>()))>> = true;

/// A custom type with a layout of its own.
template<class T>
void DescribeAny(CCustomBasicTypeInfor*& descriptor, const char* name, unsigned int customTypeID)
{
    CCustomBasicTypeInfor* made = nullptr;
    CCustomBasicTypeInfor::InitCustomAnyBasicTypeInfor(made, name, sizeof(T), &MakeObject<T>, &DestroyObject<T>,
                                                       CGnlTypeInfor(), customTypeID);
    made->ToValue = [](const void* value, CValue& out) {
        if constexpr (CONVERTS_ITSELF<T>)
            static_cast<const T*>(value)->ToValue(out);
        else
            ToValue(*static_cast<const T*>(value), out);
    };
    made->FromValue = [](void* value, const CValue& in) {
        if constexpr (CONVERTS_ITSELF<T>)
            static_cast<T*>(value)->FromValue(in);
        else
            FromValue(*static_cast<T*>(value), in);
    };
    descriptor = made;
}

template<class Container>
constexpr CTypeSource MakeElementSource()
{
    constexpr CTypeSource SOURCE = TYPE_SOURCE<ElementOf<Container>>;
    constexpr bool IS_ASSOCIATIVE = CKind<Container>::CODE >= Enum::DT_ASSOCIATIVE_A;
    static_assert(!IS_ASSOCIATIVE || (SOURCE.HoldingFlags & Enum::HF_KIND_MASK) != Enum::HF_MAY_NULL,
                  "the elements of an associative container cannot be vexa::MayNull: use the plain type");
    return SOURCE;
}

template<class Container>
inline constexpr CTypeSource ELEMENT_SOURCE = MakeElementSource<Container>();
template<std::size_t SIZE>
inline constexpr CTypeSource ELEMENT_SOURCE<std::bitset<SIZE>> = {Enum::DT_BITSET_NODE, 0, 0, 0, 0, nullptr};

/// A std::array may be empty, and then has no slot of the size of an element.
template<class Array>
inline constexpr bool HAS_SLOTS = true;
template<class T>
inline constexpr bool HAS_SLOTS<std::array<T, 0>> = false;

/// By what form the elements can be reached without operations, and their stride.
template<class Container>
constexpr unsigned int FormOf()
{
    if constexpr (CKind<Container>::CODE == Enum::DT_ARRAY)
        return HAS_SLOTS<Container> ? CFinishedMark::SLOTS : 0;
    else
        return IS_KNOWN_VECTOR<Container> ? CFinishedMark::VECTOR : 0;
}
template<class Container>
constexpr unsigned int StrideOf()
{
    if constexpr (FormOf<Container>() != 0)
        return static_cast<unsigned int>(std::min<std::size_t>(sizeof(typename CElementOf<Container>::Type), ~0U));
    else
        return 0;
}

template<class Container>
constexpr CContainerMaker MakerOf()
{
    if constexpr (CVectorTrait<Container>::IS_POSSIBLE)
        return CVectorOperations<Container>::Manage();
    else
        return &MakeObject<Container>;
}

template<class Container>
constexpr CContainerRecord MakeContainerRecord()
{
    using Kind = CKind<Container>;
    CContainerRecord record{Kind::NAME,
                            sizeof(Container),
                            FormOf<Container>(),
                            StrideOf<Container>(),
                            MakerOf<Container>(),
                            nullptr,
                            nullptr,
                            nullptr,
                            nullptr,
                            ELEMENT_SOURCE<Container>};
    if constexpr (CVectorTrait<Container>::IS_POSSIBLE) {
        using Operations = CVectorOperations<Container>;
        record.Form |= CContainerRecord::MANAGED;
        record.Deleter = &Operations::Delete;
        record.Append = &Operations::Append;
        record.Clear = &Operations::Clear;
        record.Fill = &FillVectorWalk<Operations::SIZE>;
    } else {
        record.Deleter = &DestroyObject<Container>;
        record.Fill = &Kind::Fill;
    }
    return record;
}

template<class Container>
inline CContainerSlot CONTAINER_SLOT{MakeContainerRecord<Container>()};

template<class T>
constexpr CSlot* CustomSlotOf()
{
    if constexpr (IS_CUSTOM<T>)
        return &CUSTOM_SLOT<T>;
    else if constexpr (std::is_enum_v<T> && !HAS_NAMES<T>)
        return &SHAPE_SLOT<std::underlying_type_t<T>>;
    else
        return &SHAPE_SLOT<T>;
}

/// Where the details of a kind of value are: those of a class, a container or a custom type, or the names of an
/// enumeration's values.
template<class T>
constexpr CSlot* DetailSlotOf()
{
    constexpr unsigned int CODE = CKind<T>::CODE;
    if constexpr (CODE == Enum::DT_CLASS)
        return &CLASS_SLOT<T>;
    else if constexpr (CODE == Enum::DT_CUSTOM_BASIC)
        return CustomSlotOf<T>();
    else if constexpr (CODE >= Enum::DT_SEQUENCE_A && CODE <= Enum::DT_ASSOCIATIVE_E)
        return &CONTAINER_SLOT<T>;
    else if constexpr (HAS_NAMES<T>)
        return &ENUMERATION_SLOT<T>;
    else
        return nullptr;
}

/// Describes a class when the file that holds its description is initialised.
template<class T>
struct CDescribedAtStart {
    CDescribedAtStart() { Build(CLASS_SLOT<T>); }
};

} // namespace vexa::detail

#endif
