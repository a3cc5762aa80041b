#ifndef VEXA_TESTS_SUPPORT_DESCRIBED_SHAPES_H
#define VEXA_TESTS_SUPPORT_DESCRIBED_SHAPES_H

#include <vexa/types.h>

#include "support/described_structures.h"

/// Described classes of the types that are one custom value to look-ups and conversions, and have a structure in
/// standard formats; of named enumerations; and of pointers to what stands for a base.

namespace vexa_test::everything {

enum class Signal : signed char { red = -1, amber = 0, green = 100 };
VEXA_DESCRIBE_ENUM(Signal, red, amber, green)
/// The name, or the number of a value without name.
inline std::string NameOf(Signal signal)
{
    switch (signal) {
    case Signal::red: return "red";
    case Signal::amber: return "amber";
    case Signal::green: return "green";
    default: return std::to_string(static_cast<int>(signal));
    }
}
inline bool HasName(Signal signal) { return NameOf(signal) != std::to_string(static_cast<int>(signal)); }
inline void Fill(Filler& filler, Signal& signal)
{
    signal = filler.OneOf({Signal::red, Signal::amber, Signal::green, static_cast<Signal>(filler.Below(128))});
}

struct Signals {
    Signal signal = Signal::red;
    vexa::MayNull<Signal> maybe;
    std::unique_ptr<Signal> elsewhere;
    std::optional<Signal> optional;
    Signal some[2] = {};
    std::vector<Signal> all;
    std::set<Signal> set;
    std::map<Signal, int> bySignal;
    std::unordered_map<std::string, Signal> byText;
    std::tuple<Signal, int> tuple{};
    VEXA_TEST_MEMBERS(signal, maybe, elsewhere, optional, some, all, set, bySignal, byText, tuple)
};
VEXA_DESCRIBE(Signals, signal, maybe, elsewhere, optional, some, all, set, bySignal, byText, tuple)

struct Optionals {
    std::optional<bool> truth;
    std::optional<int> number;
    std::optional<double> real;
    std::optional<std::string> text;
    std::optional<Inner> inner;
    std::optional<std::vector<Inner>> inners;
    std::optional<std::map<std::string, int>> named;
    std::optional<vexa::CDateTime> date;
    std::shared_ptr<int> sharedNumber;
    std::shared_ptr<Inner> sharedInner;
    std::shared_ptr<std::vector<std::string>> sharedTexts;
    std::vector<std::optional<int>> numbers;
    std::vector<std::shared_ptr<Inner>> shared;
    std::map<std::string, std::optional<Inner>> byText;
    VEXA_TEST_MEMBERS(truth, number, real, text, inner, inners, named, date, sharedNumber, sharedInner, sharedTexts,
                      numbers, shared, byText)
};
VEXA_DESCRIBE(Optionals, truth, number, real, text, inner, inners, named, date, sharedNumber, sharedInner, sharedTexts,
              numbers, shared, byText)

/// One alternative fits each value.
using AnyOf = std::variant<std::monostate, bool, long, std::string, Inner, std::vector<int>>;

struct Structures {
    AnyOf any;
    std::vector<AnyOf> all;
    std::map<std::string, AnyOf> named;
    std::tuple<int, std::string, Inner> tuple{};
    std::tuple<> empty;
    std::vector<std::tuple<bool, double>> tuples;
    std::pair<int, std::optional<std::string>> pair;
    std::vector<bool> bits;
    std::map<std::string, std::vector<bool>> bitsByText;
    std::atomic<int> counter{0};
    std::atomic<bool> flag{false};
    std::atomic<double> real{0};
    VEXA_TEST_MEMBERS(any, all, named, tuple, empty, tuples, pair, bits, bitsByText, counter, flag, real)
};
VEXA_DESCRIBE(Structures, any, all, named, tuple, empty, tuples, pair, bits, bitsByText, counter, flag, real)

template<class Duration>
using TimePoint = std::chrono::time_point<std::chrono::system_clock, Duration>;

struct Times {
    std::chrono::system_clock::time_point time;
    TimePoint<std::chrono::seconds> second;
    TimePoint<std::chrono::milliseconds> millisecond;
    TimePoint<std::chrono::microseconds> microsecond;
    std::chrono::nanoseconds nanoseconds{};
    std::chrono::seconds seconds{};
    std::chrono::hours hours{};
    std::chrono::duration<double> real{};
    std::chrono::duration<int, std::ratio<86400>> days{};
    std::optional<TimePoint<std::chrono::seconds>> maybe;
    std::vector<std::chrono::milliseconds> all;
    std::filesystem::path path;
    std::vector<std::filesystem::path> paths;
    signed char small = 0;
    std::vector<std::int8_t> smalls;
    std::map<signed char, int> bySmall;
    std::unique_ptr<signed char> elsewhere;
    VEXA_TEST_MEMBERS(time, second, millisecond, microsecond, nanoseconds, seconds, hours, real, days, maybe, all, path,
                      paths, small, smalls, bySmall, elsewhere)
};
VEXA_DESCRIBE(Times, time, second, millisecond, microsecond, nanoseconds, seconds, hours, real, days, maybe, all, path,
              paths, small, smalls, bySmall, elsewhere)

// What stands for a base, and says what it is.

struct Figure {
    std::string label;
    virtual ~Figure() = default;
};
struct Circle : Figure {
    double radius = 0;
};
struct Drawing : Figure {
    std::unique_ptr<Figure> inside;
    std::vector<std::unique_ptr<Figure>> figures;
    std::shared_ptr<Figure> shared;
    std::map<std::string, std::shared_ptr<Circle>> circles;
};
VEXA_DESCRIBE_CLASS(Figure)
{
    about.Tag("kind");
    about.Attrib("label", &Figure::label);
}
VEXA_DESCRIBE_CLASS(Circle)
{
    about.Base<Figure>();
    about.TagValue("circle");
    about.Attrib("radius", &Circle::radius);
}
VEXA_DESCRIBE_CLASS(Drawing)
{
    about.Base<Figure>();
    about.TagValue("drawing");
    about.Attrib("inside", &Drawing::inside);
    about.Attrib("figures", &Drawing::figures);
    about.Attrib("shared", &Drawing::shared);
    about.Attrib("circles", &Drawing::circles);
}
inline const std::vector<std::string> DRAWING_MEMBERS = {"inside", "figures", "shared", "circles"};
inline auto MembersOf(Drawing& drawing)
{
    return std::tie(drawing.inside, drawing.figures, drawing.shared, drawing.circles);
}
inline auto MembersOf(const Drawing& drawing)
{
    return std::tie(drawing.inside, drawing.figures, drawing.shared, drawing.circles);
}

inline void Fill(Filler& filler, std::unique_ptr<Figure>& figure);
inline void Fill(Filler& filler, std::shared_ptr<Figure>& figure);
inline void Fill(Filler& filler, Circle& circle)
{
    Fill(filler, circle.label);
    Fill(filler, circle.radius);
}
inline void Fill(Filler& filler, Drawing& drawing)
{
    ++filler.Depth;
    Fill(filler, drawing.label);
    std::apply([&](auto&... members) { (Fill(filler, members), ...); }, MembersOf(drawing));
    --filler.Depth;
}
inline std::unique_ptr<Figure> RandomFigure(Filler& filler)
{
    const auto make = [&filler](auto figure) -> std::unique_ptr<Figure> {
        Fill(filler, *figure);
        return figure;
    };
    if (filler.IsDeep() || filler.OneIn(3)) return nullptr;
    if (filler.OneIn(2)) return make(std::make_unique<Circle>());
    if (filler.OneIn(2)) return make(std::make_unique<Drawing>());
    auto figure = std::make_unique<Figure>();
    Fill(filler, figure->label);
    return figure;
}
inline void Fill(Filler& filler, std::unique_ptr<Figure>& figure) { figure = RandomFigure(filler); }
inline void Fill(Filler& filler, std::shared_ptr<Figure>& figure) { figure = RandomFigure(filler); }
inline void Fill(Filler& filler, std::vector<std::unique_ptr<Figure>>& figures)
{
    figures.clear();
    for (std::size_t left = filler.Count(); left > 0; --left)
        figures.push_back(RandomFigure(filler));
}

inline bool Same(Comparison& comparison, const Circle& left, const Circle& right)
{
    return comparison.Expect(left.label == right.label) && Same(comparison, left.radius, right.radius);
}
inline bool Same(Comparison& comparison, const Drawing& left, const Drawing& right)
{
    return comparison.Expect(left.label == right.label) &&
           SameMembers(comparison, DRAWING_MEMBERS, MembersOf(left), MembersOf(right));
}
inline bool Same(Comparison& comparison, const Figure& left, const Figure& right)
{
    if (!comparison.Expect(typeid(left) == typeid(right), "another class")) return false;
    if (const auto* const circle = dynamic_cast<const Circle*>(&left))
        return Same(comparison, *circle, dynamic_cast<const Circle&>(right));
    if (const auto* const drawing = dynamic_cast<const Drawing*>(&left))
        return Same(comparison, *drawing, dynamic_cast<const Drawing&>(right));
    return comparison.Expect(left.label == right.label);
}

/// Alternatives that a tag tells apart.
struct Cat {
    int lives = 0;
    VEXA_TEST_MEMBERS(lives)
};
struct Dog {
    std::string name;
    int lives = 0;
    VEXA_TEST_MEMBERS(name, lives)
};
VEXA_DESCRIBE_CLASS(Cat)
{
    about.Tag("species");
    about.TagValue("cat");
    about.Attrib("lives", &Cat::lives);
}
VEXA_DESCRIBE_CLASS(Dog)
{
    about.Tag("species");
    about.TagValue("dog");
    about.Attrib("name", &Dog::name);
    about.Attrib("lives", &Dog::lives);
}
struct Pets {
    std::variant<Cat, Dog> pet;
    std::vector<std::variant<std::monostate, Cat, Dog>> all;
    VEXA_TEST_MEMBERS(pet, all)
};
VEXA_DESCRIBE(Pets, pet, all)

} // namespace vexa_test::everything

#endif
