#ifndef VEXA_DETAIL_SHAPE_KIND_H
#define VEXA_DETAIL_SHAPE_KIND_H

#include <type_traits>
#include <utility>

#include <vexa/detail/shape.h>
#include <vexa/detail/type_traits.h>

/// \file
/// How a type gets a shape (vexa/detail/shape.h): by a specialisation of CShapeTrait, which derives from CShapeKind,
/// has the registered NAME, and hides what of CShapeKind does not suit it. An application's own description of the
/// same type goes before.
///
/// A type of the library that converts itself, by members like those of VEXA_DESCRIBE_CUSTOM_ANY, has a trait of three
/// lines beside its class:
///
///     template<>
///     struct detail::CShapeTrait<CRawJson> : detail::CSelfConvertingKind<detail::ShapeKind::RAW_JSON> {
///         static constexpr const char* NAME = "vexa::CRawJson";
///     };

namespace vexa::detail {

/// The primary template takes everything that has no shape: classes, and whatever no one has described.
template<class T>
struct CShapeTrait {
    using NeedsDescription = void;
    static constexpr unsigned int CODE = Enum::DT_CLASS;
};

/// Everything that the library must know of a type with a shape, made once for each type. See class_slot.h.
template<class T>
struct CShaped;

/// Whether a value is, or holds as elements, raw pointers that own what they point at.
template<class T, class = void>
struct COwnsPointees : std::false_type {
};
template<class T>
struct COwnsPointees<T*> : std::bool_constant<!std::is_const_v<T> && !std::is_void_v<T>> {
};
template<class K, class V>
struct COwnsPointees<std::pair<K, V>> : std::disjunction<COwnsPointees<K>, COwnsPointees<V>> {
};
template<class T, std::size_t SIZE>
struct COwnsPointees<T[SIZE]> : COwnsPointees<T> {
};
template<class T>
struct COwnsPointees<T, std::enable_if_t<IS_STD_CONTAINER<T>>> : COwnsPointees<typename T::value_type> {
};

template<class... Parts>
inline constexpr CTypeSource SHAPE_PARTS[] = {TYPE_SOURCE<Parts>...};

template<ShapeKind SHAPE_KIND, class... Parts>
struct CShapeKind {
    static constexpr unsigned int CODE = Enum::DT_CUSTOM_BASIC;
    static constexpr ShapeKind KIND = SHAPE_KIND;
    static constexpr unsigned int PART_COUNT = sizeof...(Parts);

    static constexpr const CTypeSource* PartSources()
    {
        if constexpr (sizeof...(Parts) == 0)
            return nullptr;
        else
            return SHAPE_PARTS<Parts...>;
    }
    /// What CShape::Operations points to.
    static constexpr const void* Operations() { return nullptr; }
    /// Appends what follows NAME; null for the names of the parts in angle brackets.
    static constexpr void (*AppendName)(std::string& name) = nullptr;
    /// Tells at compile time, in one sentence, what is refused.
    static constexpr bool IsDescribable()
    {
        constexpr bool OWNS_POINTEES = std::disjunction_v<COwnsPointees<Parts>...>;
        static_assert(!OWNS_POINTEES, "an owned raw pointer inside a std::optional, std::shared_ptr, std::variant or "
                                      "std::tuple cannot be described: use a std::unique_ptr or a pointer to const");
        return !OWNS_POINTEES;
    }
    /// The converters of the custom descriptor.
    template<class T>
    static void ToValue(const void* object, CValue& out)
    {
        ShapeToValue(CShaped<T>::TYPE, object, out);
    }
    template<class T>
    static void FromValue(void* object, const CValue& in)
    {
        ShapeFromValue(CShaped<T>::TYPE, object, in);
    }
};

/// Of types whose members convert them.
template<ShapeKind SHAPE_KIND>
struct CSelfConvertingKind : CShapeKind<SHAPE_KIND> {
    template<class T>
    static void ToValue(const void* object, CValue& out)
    {
        static_cast<const T*>(object)->ToValue(out);
    }
    template<class T>
    static void FromValue(void* object, const CValue& in)
    {
        static_cast<T*>(object)->FromValue(in);
    }
};

} // namespace vexa::detail

#endif
