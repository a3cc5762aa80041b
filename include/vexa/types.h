#ifndef VEXA_TYPES_H
#define VEXA_TYPES_H

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

#include <vexa/describe.h>

/// \file
/// Describes std::optional, std::variant with std::monostate, the time points of std::chrono::system_clock, durations
/// and std::filesystem::path as members, elements and parts. Their headers cost a compiler as much as the rest of the
/// library, so that vexa/describe.h leaves them out.
///
/// In look-ups, conversions, text, ToJson and tables each is one custom basic value; see vexa/describe.h.

namespace vexa::detail {

template<class T>
struct CShapeTrait<std::optional<T>> : CShapeKind<ShapeKind::OPTIONAL, T> {
    using Optional = std::optional<T>;
    static constexpr const char* NAME = "std::optional";

    static const void* Get(const void* optional)
    {
        const auto& held = *static_cast<const Optional*>(optional);
        return held.has_value() ? std::addressof(*held) : nullptr;
    }
    static void* Make([[maybe_unused]] void* optional)
    {
        if constexpr (std::is_default_constructible_v<T>)
            return const_cast<void*>(
                static_cast<const void*>(std::addressof(static_cast<Optional*>(optional)->emplace())));
        else
            return nullptr;
    }
    static void Reset(void* optional) { static_cast<Optional*>(optional)->reset(); }
    static constexpr COptionalOperations OPERATIONS{&Get, &Make, &Reset, nullptr};
    static constexpr const void* Operations() { return &OPERATIONS; }
};

template<>
struct CKind<std::monostate> : CKind<NullType> {
};

template<class T, class... Others>
inline constexpr bool ARE_DISTINCT = !std::disjunction_v<std::is_same<T, Others>...> && ARE_DISTINCT<Others...>;
template<class T>
inline constexpr bool ARE_DISTINCT<T> = true;

template<class... Alternatives>
struct CShapeTrait<std::variant<Alternatives...>> : CShapeKind<ShapeKind::VARIANT, Alternatives...> {
    using Variant = std::variant<Alternatives...>;
    static constexpr const char* NAME = "std::variant";

    static unsigned int Index(const void* variant)
    {
        return static_cast<unsigned int>(static_cast<const Variant*>(variant)->index()); // npos becomes VALUELESS
    }
    static const void* Get(const void* variant)
    {
        const auto& held = *static_cast<const Variant*>(variant);
        if (held.valueless_by_exception()) return nullptr;
        return std::visit([](const auto& value) { return static_cast<const void*>(std::addressof(value)); }, held);
    }
    template<std::size_t I>
    static void* MakeOne([[maybe_unused]] Variant& variant)
    {
        if constexpr (std::is_default_constructible_v<std::variant_alternative_t<I, Variant>>)
            return const_cast<void*>(static_cast<const void*>(std::addressof(variant.template emplace<I>())));
        else
            return nullptr;
    }
    template<std::size_t... I>
    static void* MakeNumbered(Variant& variant, unsigned int number, std::index_sequence<I...>)
    {
        static constexpr void* (*MAKERS[])(Variant&) = {&MakeOne<I>...};
        return MAKERS[number](variant);
    }
    static void* Make(void* variant, unsigned int alternative)
    {
        return MakeNumbered(*static_cast<Variant*>(variant), alternative, std::index_sequence_for<Alternatives...>());
    }
    static constexpr CVariantOperations OPERATIONS{&Index, &Get, &Make};
    static constexpr const void* Operations() { return &OPERATIONS; }

    static constexpr bool IsDescribable()
    {
        static_assert(ARE_DISTINCT<Alternatives...>,
                      "a std::variant that has one type twice cannot be described, as no text tells which is meant: "
                      "give each alternative a type of its own");
        if constexpr (ARE_DISTINCT<Alternatives...>)
            return CShapeKind<ShapeKind::VARIANT, Alternatives...>::IsDescribable();
        else
            return false;
    }
};

/// `, 1/1000`: what a period adds to a name, nothing for seconds.
template<class Period>
void AppendPeriod(std::string& name)
{
    if (Period::num == 1 && Period::den == 1) return;
    name += ", " + std::to_string(Period::num);
    if (Period::den != 1) name += '/' + std::to_string(Period::den);
}

template<class Count, class Period>
struct CShapeTrait<std::chrono::duration<Count, Period>> : CShapeKind<ShapeKind::DURATION, Count> {
    static_assert(sizeof(std::chrono::duration<Count, Period>) == sizeof(Count), "the count lies in place");
    static constexpr const char* NAME = "std::chrono::duration";

    static void AppendName(std::string& name)
    {
        name += '<' + MakeTypeInfor(TYPE_SOURCE<Count>).TypeName();
        AppendPeriod<Period>(name);
        name += '>';
    }
    static constexpr bool IsDescribable()
    {
        constexpr bool IS_ARITHMETIC = std::is_arithmetic_v<Count>;
        static_assert(IS_ARITHMETIC, "only a std::chrono::duration that counts by an arithmetic type can be described");
        return IS_ARITHMETIC;
    }
};

template<class Duration>
struct CShapeTrait<std::chrono::time_point<std::chrono::system_clock, Duration>> : CShapeKind<ShapeKind::TIME_POINT> {
    using TimePoint = std::chrono::time_point<std::chrono::system_clock, Duration>;
    using Count = typename Duration::rep;
    /// How many of it a second has, and how many seconds it has: one of the two is 1 for every usual unit.
    using Period = typename Duration::period;
    static constexpr const char* NAME = "std::chrono::time_point";

    static void AppendName(std::string& name)
    {
        if (std::is_same_v<TimePoint, std::chrono::system_clock::time_point>) {
            name = "std::chrono::system_clock::time_point";
            return;
        }
        name += "<std::chrono::system_clock, std::chrono::duration<" + MakeTypeInfor(TYPE_SOURCE<Count>).TypeName();
        AppendPeriod<Period>(name);
        name += ">>";
    }
    static void Load(const void* time, long long& seconds, long& nanoseconds)
    {
        const Duration since = static_cast<const TimePoint*>(time)->time_since_epoch();
        if constexpr (std::is_floating_point_v<Count>)
            TimeOfCount(static_cast<long double>(since.count()), Period::num, Period::den, seconds, nanoseconds);
        else
            TimeOfCount(static_cast<long long>(since.count()), Period::num, Period::den, seconds, nanoseconds);
    }
    static bool Store(void* time, long long seconds, long nanoseconds)
    {
        Count count{};
        if constexpr (std::is_floating_point_v<Count>) {
            count = static_cast<Count>(FloatingCountOfTime(seconds, nanoseconds, Period::num, Period::den));
        } else {
            long long exact = 0;
            if (!CountOfTime(seconds, nanoseconds, Period::num, Period::den, exact)) return false;
            count = static_cast<Count>(exact);
            if (static_cast<long long>(count) != exact || (count < Count{}) != (exact < 0)) return false;
        }
        *static_cast<TimePoint*>(time) = TimePoint(Duration(count));
        return true;
    }
    static constexpr CTimePointOperations OPERATIONS{&Load, &Store};
    static constexpr const void* Operations() { return &OPERATIONS; }
};

/// Nothing tells what date a moment of another clock is.
template<class Clock, class Duration>
struct CShapeTrait<std::chrono::time_point<Clock, Duration>> : CShapeKind<ShapeKind::TIME_POINT> {
    static constexpr bool IsDescribable()
    {
        static_assert(ALWAYS_FALSE<Clock>, "only a std::chrono::time_point of std::chrono::system_clock can be "
                                           "described: describe the duration since a moment that you know");
        return false;
    }
};

template<>
struct CShapeTrait<std::filesystem::path> : CShapeKind<ShapeKind::TEXT> {
    using Path = std::filesystem::path;
    static constexpr const char* NAME = "std::filesystem::path";

    static constexpr CTextOperations OPERATIONS{
        [](const void* path, std::string&) -> std::string_view { return static_cast<const Path*>(path)->native(); },
        [](void* path, std::string_view text) { static_cast<Path*>(path)->assign(text); },
        [](void* path) { static_cast<Path*>(path)->clear(); }};
    static constexpr const void* Operations() { return &OPERATIONS; }
};

} // namespace vexa::detail

#endif
