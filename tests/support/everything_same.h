#ifndef VEXA_TESTS_SUPPORT_EVERYTHING_SAME_H
#define VEXA_TESTS_SUPPORT_EVERYTHING_SAME_H

#include <cmath>
#include <ctime>
#include <iterator>

#include "support/everything_comparison.h"
#include "support/everything_types.h"

/// Whether two values are the same, worked out by hand.

namespace vexa_test::everything {

template<class T>
bool Same(Comparison& comparison, const T& left, const T& right);

inline bool Same(Comparison& comparison, const tm& left, const tm& right)
{
    const auto fields = [](const tm& t) {
        return std::make_tuple(t.tm_year, t.tm_mon, t.tm_mday, t.tm_hour, t.tm_min, t.tm_sec);
    };
    return comparison.Expect(fields(left) == fields(right));
}
inline bool Same(Comparison& comparison, const vexa::CDateTime& left, const vexa::CDateTime& right)
{
    return comparison.Expect(left.State == right.State && left.TimeWord == right.TimeWord);
}
inline bool Same(Comparison& comparison, const vexa::CNumeric& left, const vexa::CNumeric& right)
{
    const bool isSame = comparison.KeepsDigits() ? left.AsString() == right.AsString() : left == right;
    return comparison.Expect(left.State == right.State && isSame, left.AsString() + " and " + right.AsString());
}
inline bool Same(Comparison& comparison, const vexa::CValue& left, const vexa::CValue& right)
{
    if (left.IsNull() || right.IsNull()) return comparison.Expect(left.IsNull() && right.IsNull(), "one is null");
    return comparison.Expect(left == right, left.AsString() + " and " + right.AsString());
}
inline bool Same(Comparison& comparison, const vexa::CTable& left, const vexa::CTable& right)
{
    const auto names = [](const vexa::CTable& table) {
        std::vector<std::string> all;
        for (const vexa::CColumn& column : table.Columns)
            all.push_back(column.Name);
        return all;
    };
    return comparison.Expect(names(left) == names(right), "other columns") && Same(comparison, left.Rows, right.Rows);
}
inline bool Same(Comparison&, const vexa::NullType&, const vexa::NullType&) { return true; }

template<class T>
bool SameElements(Comparison& comparison, const T& left, const T& right)
{
    auto other = std::begin(right);
    std::size_t number = 0;
    for (const auto& element : left) {
        const bool isSame =
            comparison.Inside(std::to_string(number++), [&] { return Same(comparison, element, *other); });
        if (!isSame) return false;
        ++other;
    }
    return true;
}

/// Each element on the left is one on the right, as often.
template<class T>
bool SameUnordered(Comparison& comparison, const T& left, const T& right)
{
    std::vector<bool> isTaken(right.size());
    for (const auto& element : left) {
        bool isFound = false;
        std::size_t number = 0;
        for (const auto& other : right) {
            Comparison quiet = comparison;
            if (!isFound && !isTaken[number] && Same(quiet, element, other)) isFound = isTaken[number] = true;
            ++number;
        }
        if (!isFound) return comparison.Fail("an element is missing");
    }
    return true;
}

template<std::size_t INDEX = 0, class T>
bool SameMembers(Comparison& comparison, const std::vector<std::string>& names, const T& left, const T& right)
{
    if constexpr (INDEX == std::tuple_size_v<T>) {
        return true;
    } else {
        const std::string name = names.empty() ? std::to_string(INDEX) : names[INDEX];
        return comparison.Inside(name, [&] {
            return Same(comparison, std::get<INDEX>(left), std::get<INDEX>(right));
        }) && SameMembers<INDEX + 1>(comparison, names, left, right);
    }
}

template<class T>
bool SameApart(Comparison& comparison, const T& left, const T& right)
{
    if (!left || !right) return comparison.Expect(!left == !right, "one is null");
    return Same(comparison, *left, *right);
}

template<std::size_t INDEX = 0, class T>
bool SameAlternative(Comparison& comparison, const T& left, const T& right)
{
    if constexpr (INDEX == std::variant_size_v<T>) {
        return true;
    } else {
        return left.index() == INDEX ? Same(comparison, std::get<INDEX>(left), std::get<INDEX>(right))
                                     : SameAlternative<INDEX + 1>(comparison, left, right);
    }
}

template<class T>
bool Same(Comparison& comparison, const T& left, const T& right)
{
    if constexpr (std::is_floating_point_v<T>) {
        return comparison.Expect(left == right && std::signbit(left) == std::signbit(right));
    } else if constexpr (IS_HELD_APART<T>) {
        return SameApart(comparison, left, right);
    } else if constexpr (IS<T, vexa::NonNullPointer>) {
        return Same(comparison, *left, *right);
    } else if constexpr (IS<T, std::variant>) {
        return comparison.Expect(left.index() == right.index(), "another alternative") &&
               SameAlternative(comparison, left, right);
    } else if constexpr (IS<T, std::tuple>) {
        return SameMembers(comparison, {}, left, right);
    } else if constexpr (IS<T, std::pair>) {
        return Same(comparison, left.first, right.first) && Same(comparison, left.second, right.second);
    } else if constexpr (IS<T, std::atomic>) {
        return comparison.Expect(left.load() == right.load());
    } else if constexpr (std::is_same_v<T, std::vector<bool>>) {
        return comparison.Expect(left == right);
    } else if constexpr (HAS_MEMBERS<T>) {
        return SameMembers(comparison, T::Names(), left.Members(), right.Members());
    } else if constexpr (IS_FIXED<T>) {
        return SameElements(comparison, left, right);
    } else if constexpr (std::is_same_v<T, vexa::CRow>) {
        return Same(comparison, left.Values, right.Values);
    } else if constexpr (IS_ITERABLE<T>) {
        if (!comparison.Expect(left.size() == right.size(), "another number of elements")) return false;
        if constexpr (IS_HASHED<T>)
            return SameUnordered(comparison, left, right);
        else
            return SameElements(comparison, left, right);
    } else {
        return comparison.Expect(left == right);
    }
}

} // namespace vexa_test::everything

#endif
