#ifndef VEXA_MAY_NULL_H
#define VEXA_MAY_NULL_H

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <type_traits>
#include <utility>

#include <vexa/data_type.h>

/// \file
/// Two ways to hold a value in a described class: one that may be absent, and one behind a pointer that is never null
/// to those who look. Both belong to one thread at a time, like the values they hold.

namespace vexa {

/// A value that may be null, to be used like std::optional. The flag stands before the value, so that a descriptor can
/// reach both by short offsets, whatever the size of the value.
///
/// The value is always constructed. Becoming null does not empty it, except through reset().
template<class T>
class MayNull {
    static_assert(!std::is_pointer_v<T> && !std::is_reference_v<T> && !std::is_array_v<T>,
                  "vexa::MayNull cannot hold a pointer, a reference or an array: a pointer may be null by itself");

    /// Neither one of these nor a null.
    template<class U>
    static constexpr bool IS_OTHER =
        !std::is_base_of_v<MayNull, std::decay_t<U>> && !std::is_same_v<std::decay_t<U>, NullType>;

public:
    using value_type = T;

    MayNull() = default;
    MayNull(NullType) {}
    MayNull(const T& value) : m_isNull(0), m_value(value) {}
    MayNull(T&& value) : m_isNull(0), m_value(std::move(value)) {}
    /// What converts to T, for example a literal to a std::string.
    template<class U, class = std::enable_if_t<std::conjunction_v<std::bool_constant<std::is_class_v<T> && IS_OTHER<U>>,
                                                                  std::is_convertible<U&&, T>>>>
    MayNull(U&& value) : m_isNull(0), m_value(std::forward<U>(value))
    {
    }
    /// A template, so that `= {}` assigns a MayNull and not this.
    template<class U, std::enable_if_t<std::is_same_v<U, NullType>, int> = 0>
    MayNull& operator=(U)
    {
        reset();
        return *this;
    }
    /// Takes what T can be assigned from.
    template<class U, class = std::enable_if_t<std::is_assignable_v<T&, U&&> && IS_OTHER<U>>>
    MayNull& operator=(U&& value)
    {
        m_value = std::forward<U>(value);
        m_isNull = 0;
        return *this;
    }

    bool has_value() const noexcept { return m_isNull == 0; }
    explicit operator bool() const noexcept { return has_value(); }
    /// Undefined for a null, as for std::optional.
    T& operator*() noexcept { return m_value; }
    const T& operator*() const noexcept { return m_value; }
    T* operator->() noexcept { return std::addressof(m_value); }
    const T* operator->() const noexcept { return std::addressof(m_value); }
    /// Throws std::logic_error for a null.
    T& value()
    {
        Check();
        return m_value;
    }
    const T& value() const
    {
        Check();
        return m_value;
    }
    template<class U>
    T value_or(U&& other) const
    {
        return has_value() ? m_value : static_cast<T>(std::forward<U>(other));
    }
    template<class... Arguments>
    T& emplace(Arguments&&... arguments)
    {
        m_value = T(std::forward<Arguments>(arguments)...);
        m_isNull = 0;
        return m_value;
    }
    /// Makes it null and empties the value.
    void reset()
    {
        m_value = T();
        m_isNull = HF_NULL;
    }

    static constexpr std::size_t FlagOffset() noexcept { return 0; }
    static constexpr std::size_t ValueOffset() noexcept { return alignof(T); }

private:
    static constexpr unsigned char HF_NULL = 1;

    void Check() const
    {
        if (!has_value()) throw std::logic_error("vexa::MayNull is null");
    }

    unsigned char m_isNull = HF_NULL;
    T m_value{};
};

/// Two nulls are equal; a null differs from every value.
template<class T, class U>
bool operator==(const MayNull<T>& left, const MayNull<U>& right)
{
    return left.has_value() == right.has_value() && (!left.has_value() || *left == *right);
}
template<class T, class U>
bool operator!=(const MayNull<T>& left, const MayNull<U>& right)
{
    return !(left == right);
}
template<class T>
bool operator==(const MayNull<T>& left, NullType)
{
    return !left.has_value();
}
template<class T>
bool operator!=(const MayNull<T>& left, NullType)
{
    return left.has_value();
}
template<class T>
bool operator==(const MayNull<T>& left, const typename MayNull<T>::value_type& right)
{
    return left.has_value() && *left == right;
}
template<class T>
bool operator!=(const MayNull<T>& left, const typename MayNull<T>::value_type& right)
{
    return !(left == right);
}

/// An owning pointer that makes its object when it is first looked at, so that no one ever sees it null. Looking at it
/// is therefore a write: do not share one between threads, not even a const one.
template<class T>
class NonNullPointer {
public:
    using element_type = T;

    NonNullPointer() noexcept = default;
    explicit NonNullPointer(T value) : m_object(new T(std::move(value))) {}
    NonNullPointer(const NonNullPointer& other) : m_object(other.m_object != nullptr ? new T(*other.m_object) : nullptr)
    {
    }
    NonNullPointer(NonNullPointer&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    NonNullPointer& operator=(NonNullPointer other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~NonNullPointer() { delete m_object; }

    T& operator*() const { return *get(); }
    T* operator->() const { return get(); }
    T* get() const
    {
        if (m_object == nullptr) m_object = new T();
        return m_object;
    }

private:
    mutable T* m_object = nullptr;
};

} // namespace vexa

#endif
