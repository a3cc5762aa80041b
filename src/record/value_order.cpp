// Equality and order of values.

#include <algorithm>
#include <cstring>
#include <ctime>
#include <string>
#include <tuple>

#include <vexa/value.h>

#include "core/basic_types.h"

namespace vexa {
namespace {

auto Fields(const tm& value)
{
    return std::tie(value.tm_year, value.tm_mon, value.tm_mday, value.tm_hour, value.tm_min, value.tm_sec);
}

/// The digits of a number without the zeros that do not count, and how many stand before its point.
struct CMagnitude {
    explicit CMagnitude(const CNumeric& value) : Digits(value.IntegerDigits + value.FractionDigits)
    {
        const std::size_t zeros = std::min(value.IntegerDigits.find_first_not_of('0'), value.IntegerDigits.size());
        Digits.erase(0, zeros);
        Digits.erase(Digits.find_last_not_of('0') + 1);
        IntegerLength = value.IntegerDigits.size() - zeros;
    }
    bool operator<(const CMagnitude& other) const
    {
        return std::tie(IntegerLength, Digits) < std::tie(other.IntegerLength, other.Digits);
    }

    std::size_t IntegerLength;
    std::string Digits;
};

/// By value; null numbers come first, what is no number last.
bool IsBeforeNumeric(const CNumeric& left, const CNumeric& right)
{
    if (left.State != Enum::VS_VALID || right.State != Enum::VS_VALID) return left.State < right.State;
    const bool isLeftNegative = left.Negative != 0 && !left.IsZero();
    const bool isRightNegative = right.Negative != 0 && !right.IsZero();
    if (isLeftNegative != isRightNegative) return isLeftNegative;
    return isLeftNegative ? CMagnitude(right) < CMagnitude(left) : CMagnitude(left) < CMagnitude(right);
}

/// Whether \p left comes before \p right; both are of one type.
template<class T>
bool IsBefore(const T& left, const T& right)
{
    if constexpr (std::is_same_v<T, CBinary>) {
        const int order = std::memcmp(left.data(), right.data(), left.Size < right.Size ? left.Size : right.Size);
        return order != 0 ? order < 0 : left.Size < right.Size;
    } else if constexpr (std::is_same_v<T, CNumeric>) {
        return IsBeforeNumeric(left, right);
    } else if constexpr (std::is_same_v<T, tm>) {
        return Fields(left) < Fields(right);
    } else {
        return left < right;
    }
}

/// Calls \p f with the contents of two values of one type, neither of them null.
template<class F>
void VisitBoth(const CValue& left, const CValue& right, F&& f)
{
    core::VisitBasicType(left.TypeInfor.DataType, [&](auto type) {
        using T = typename decltype(type)::Type;
        if constexpr (!std::is_same_v<T, core::CTextAtAddress>)
            f(core::Load<T>(left.Address), core::Load<T>(right.Address));
    });
}

bool HaveOneType(const CValue& left, const CValue& right) { return left.Type() == right.Type(); }

} // namespace

bool operator==(const CValue& left, const CValue& right)
{
    if (left.IsNull() || right.IsNull()) return left.IsNull() == right.IsNull();
    if (!HaveOneType(left, right)) return false;
    bool isEqual = true;
    VisitBoth(left, right, [&](const auto& a, const auto& b) {
        if constexpr (std::is_same_v<std::decay_t<decltype(a)>, tm>)
            isEqual = Fields(a) == Fields(b);
        else
            isEqual = a == b;
    });
    return isEqual;
}

bool operator<(const CValue& left, const CValue& right)
{
    if (left.IsNull() || right.IsNull()) return left.IsNull() && !right.IsNull();
    if (!HaveOneType(left, right)) return left.Type() < right.Type();
    bool isBefore = false;
    VisitBoth(left, right, [&](const auto& a, const auto& b) { isBefore = IsBefore(a, b); });
    return isBefore;
}

} // namespace vexa
