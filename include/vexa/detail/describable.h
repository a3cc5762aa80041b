#ifndef VEXA_DETAIL_DESCRIBABLE_H
#define VEXA_DETAIL_DESCRIBABLE_H

#include <memory>
#include <type_traits>

#include <vexa/detail/holding.h>
#include <vexa/detail/type_traits.h>

/// \file
/// What cannot be described. Each refusal is one sentence that names the remedy; the code around it goes on as if
/// nothing had been asked for, so that the compiler says no more than that sentence.

namespace vexa {

class CValue;

namespace detail {

template<class T>
inline constexpr bool IS_UNIQUE_POINTER_TO_CONST = false;
template<class T>
inline constexpr bool IS_UNIQUE_POINTER_TO_CONST<std::unique_ptr<const T>> = true;

/// Whether CKind has no more to say than that it may be a class.
template<class T, class = void>
inline constexpr bool NEEDS_DESCRIPTION = false;
template<class T>
inline constexpr bool NEEDS_DESCRIPTION<T, std::void_t<typename CKind<T>::NeedsDescription>> = !IS_DESCRIBED<T>;

/// Whether a type, as the compiler spells it, is one of those that vexa/types.h describes.
constexpr bool IsSpelledLike(const char* spelled, const char* beginning)
{
    while (*beginning != '\0' && *spelled == *beginning) {
        ++spelled;
        ++beginning;
    }
    return *beginning == '\0';
}
template<class T>
constexpr bool IsOfTypesHeader()
{
    const char* spelled = __PRETTY_FUNCTION__;
    while (*spelled != '=')
        ++spelled;
    spelled += 2;
    return IsSpelledLike(spelled, "std::optional<") || IsSpelledLike(spelled, "std::variant<") ||
           IsSpelledLike(spelled, "std::chrono::") || IsSpelledLike(spelled, "std::filesystem::") ||
           IsSpelledLike(spelled, "std::monostate");
}

/// Whether there is a code for such a value, however it is held.
template<class T>
constexpr bool IsDescribableValue()
{
    constexpr bool IS_UNDESCRIBED = NEEDS_DESCRIPTION<T>;
    if constexpr (CKind<T>::CODE == Enum::DT_CUSTOM_BASIC && !IS_CUSTOM<T>) {
        return CKind<T>::IsDescribable();
    } else if constexpr (!IS_UNDESCRIBED) {
        return true;
    } else if constexpr (IsOfTypesHeader<T>()) {
        static_assert(!IS_UNDESCRIBED, "this type of the standard library is described by a header of its own: "
                                       "include <vexa/types.h>");
        return false;
    } else {
        static_assert(!IS_UNDESCRIBED,
                      "this type is not described: describe it with VEXA_DESCRIBE or VEXA_DESCRIBE_CLASS "
                      "in its own namespace");
        return false;
    }
}

/// Whether a pointer or a wrapper can hold such a value: it cannot hold another.
template<class T>
constexpr bool IsDescribableInside()
{
    constexpr bool IS_WRAPPER = IS_SPECIALIZATION<T, MayNull> || IS_SPECIALIZATION<T, NonNullPointer>;
    constexpr bool IS_ANY_POINTER = std::is_pointer_v<T> || IS_UNIQUE_POINTER<T>;
    static_assert(
        !IS_WRAPPER,
        "a vexa::MayNull or vexa::NonNullPointer cannot be described behind a pointer or wrapper: use it alone");
    static_assert(!IS_ANY_POINTER,
                  "a pointer to a pointer cannot be described: describe a pointer to a class that holds the inner one");
    if constexpr (IS_WRAPPER || IS_ANY_POINTER)
        return false;
    else
        return IsDescribableValue<T>();
}

/// Whether there is a description of T as it stands.
template<class T>
constexpr bool IsDescribable()
{
    using Value = typename CHolding<T>::Value;
    constexpr bool IS_POINTER = (CHolding<T>::FLAGS & Enum::HF_POINTER) != 0;
    constexpr bool IS_VALUE_POINTER = IS_POINTER && std::is_same_v<Value, CValue>;
    constexpr bool IS_MAY_NULL = IS_SPECIALIZATION<std::remove_const_t<T>, MayNull>;
    constexpr bool IS_NULL_VALUE = IS_MAY_NULL && std::is_same_v<std::remove_const_t<Value>, CValue>;
    constexpr bool IS_TO_CONST = IS_UNIQUE_POINTER_TO_CONST<T>;
    constexpr bool IS_FAR = CHolding<T>::VALUE_OFFSET > 255;
    constexpr bool IS_OTHER_UNIQUE_POINTER = IS_UNIQUE_POINTER<T> && !IS_POINTER;
    static_assert(!std::is_reference_v<T>, "a reference member cannot be described: make it a pointer or a value");
    static_assert(!IS_VALUE_POINTER,
                  "a pointer to vexa::CValue cannot be described, which is null by itself: hold the value");
    static_assert(!IS_NULL_VALUE,
                  "a vexa::MayNull of vexa::CValue cannot be described, which is null by itself: hold the value alone");
    static_assert(!IS_TO_CONST,
                  "a std::unique_ptr to const cannot be described: use one to a value that can be changed");
    static_assert(!IS_OTHER_UNIQUE_POINTER,
                  "a std::unique_ptr to an array or with a deleter cannot be described: use a "
                  "std::vector or a plain std::unique_ptr");
    static_assert(!IS_FAR,
                  "a vexa::MayNull of a type aligned to 256 bytes or more cannot be described: hold it by pointer");
    if constexpr (std::is_reference_v<T> || IS_VALUE_POINTER || IS_NULL_VALUE || IS_TO_CONST ||
                  IS_OTHER_UNIQUE_POINTER || IS_FAR) {
        return false;
    } else if constexpr (IS_MAY_NULL && std::is_pointer_v<Value>) {
        return false; // MayNull itself has said so
    } else if constexpr (IS_POINTER || IS_MAY_NULL) {
        return IsDescribableInside<Value>();
    } else {
        return IsDescribableValue<Value>();
    }
}

} // namespace detail
} // namespace vexa

#endif
