#ifndef VEXA_TESTS_SUPPORT_TYPE_OF_H
#define VEXA_TESTS_SUPPORT_TYPE_OF_H

#include <cstddef>

#include <vexa/type_infor.h>

/// General descriptors in each holding form, put together by hand.

namespace vexa_test {

inline vexa::CGnlTypeInfor Plain(unsigned int code, const vexa::CTypeInforBase* detail = nullptr)
{
    return vexa::CGnlTypeInfor(code, 0, detail);
}

inline vexa::CGnlTypeInfor OwnedPointer(unsigned int code, const vexa::CTypeInforBase* detail = nullptr)
{
    return vexa::CGnlTypeInfor(code, vexa::Enum::HF_NULLABLE | vexa::Enum::HF_POINTER, detail);
}

inline vexa::CGnlTypeInfor ConstPointer(unsigned int code, const vexa::CTypeInforBase* detail = nullptr)
{
    return vexa::CGnlTypeInfor(code, vexa::Enum::HF_NULLABLE | vexa::Enum::HF_POINTER | vexa::Enum::HF_CONST, detail);
}

/// A pointer that never is null, whose descriptor lacks the may-be-null flag.
inline vexa::CGnlTypeInfor NonNullPointer(unsigned int code, const vexa::CTypeInforBase* detail = nullptr)
{
    return vexa::CGnlTypeInfor(code, vexa::Enum::HF_NON_NULL_POINTER | vexa::Enum::HF_POINTER, detail);
}

/// The offset of a member, also of a class for which offsetof is not guaranteed, such as one that holds a std::list.
template<class T, class Member>
std::size_t OffsetOf(Member T::*member)
{
    alignas(T) static const char place[sizeof(T)] = {};
    const auto& object = reinterpret_cast<const T&>(place);
    return static_cast<std::size_t>(reinterpret_cast<const char*>(&(object.*member)) - place);
}

/// A wrapper as an application lays one out: the flag first.
template<class T>
struct Wrapped {
    unsigned char IsNull;
    T Value;
};

/// The descriptor of a Wrapped<T>, whose T has this code.
template<class T>
vexa::CGnlTypeInfor MayNull(unsigned int code, const vexa::CTypeInforBase* detail = nullptr)
{
    vexa::CGnlTypeInfor type(code, vexa::Enum::HF_MAY_NULL | vexa::Enum::HF_NULLABLE, detail);
    type.NullFlagOffset = 0;
    type.ValueOffset = static_cast<unsigned char>(OffsetOf(&Wrapped<T>::Value));
    return type;
}

} // namespace vexa_test

#endif
