#ifndef VEXA_DETAIL_HOLDING_H
#define VEXA_DETAIL_HOLDING_H

#include <cstddef>
#include <memory>
#include <type_traits>

#include <vexa/data_type.h>
#include <vexa/may_null.h>

namespace vexa::detail {

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
    static constexpr unsigned int FLAGS =
        (CHolding<T>::FLAGS & ~(IS_POINTER ? Enum::HF_NULLABLE : 0U)) | Enum::HF_CONST;
};
template<class T, std::size_t SIZE>
struct CHolding<const T[SIZE]> : CHolding<T[SIZE]> {
    static constexpr unsigned int FLAGS = Enum::HF_CONST;
};
template<class T, unsigned int CONSTNESS>
struct CPointerHolding {
    using Value = T;
    static constexpr unsigned int FLAGS = Enum::HF_NULLABLE | Enum::HF_POINTER | CONSTNESS;
    static constexpr std::size_t VALUE_OFFSET = 0;
};
template<class T>
struct CHolding<T*> : CPointerHolding<T, 0> {
};
/// A pointer to const does not own what it points at; no one knows how to make or free untyped memory.
template<class T>
struct CHolding<const T*> : CPointerHolding<T, Enum::HF_CONST> {
};
template<>
struct CHolding<void*> : CHolding<const void*> {
};
template<class T>
struct CHolding<std::unique_ptr<T>> : CHolding<T*> {
};
/// This one does not know how many it owns: it is no pointer to one value.
template<class T>
struct CHolding<std::unique_ptr<T[]>> {
    using Value = std::unique_ptr<T[]>;
    static constexpr unsigned int FLAGS = 0;
    static constexpr std::size_t VALUE_OFFSET = 0;
};
template<class T>
struct CHolding<MayNull<T>> {
    using Value = T;
    static constexpr unsigned int FLAGS = Enum::HF_MAY_NULL | Enum::HF_NULLABLE;
    static constexpr std::size_t VALUE_OFFSET = MayNull<T>::ValueOffset();
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

} // namespace vexa::detail

#endif
