#ifndef VEXA_TESTS_SUPPORT_DESCRIBED_STRUCTURES_H
#define VEXA_TESTS_SUPPORT_DESCRIBED_STRUCTURES_H

#include "support/described_classes.h"

/// Described classes whose contents depend on other contents: unions, and what is put together at run time.

namespace vexa_test::everything {

struct Point {
    int x = 0;
    short y = 0;
    VEXA_TEST_MEMBERS(x, y)
};
VEXA_DESCRIBE(Point, x, y)

/// Two unions, each with a selector.
struct Choice {
    union {
        int number;
        double real;
        int numbers[2];
    };
    short kind = 0;
    unsigned char form = 0;
    union {
        Point point;
        unsigned char byte;
    };
    std::string text;
    Choice() : numbers{}, point{} {}
};
VEXA_DESCRIBE_CLASS(Choice)
{
    about.Attrib("kind", &Choice::kind);
    about.Attrib("number", &Choice::number).ActiveWhen("kind", 0);
    about.Attrib("real", &Choice::real).ActiveWhen("kind", 1);
    about.Attrib("numbers", &Choice::numbers).ActiveWhen("kind", 2);
    about.Attrib("text", &Choice::text);
    about.Attrib("form", &Choice::form);
    about.Attrib("point", &Choice::point).ActiveWhen("form", 11);
    about.Attrib("byte", &Choice::byte).ActiveWhen("form", 12);
}
/// Calls \p f with the name and the pointer of each member that the selectors make active.
template<class F>
bool ForEachActive(const Choice& choice, F f)
{
    bool isGood = f("kind", &Choice::kind) && f("form", &Choice::form) && f("text", &Choice::text);
    if (choice.kind == 0) isGood = isGood && f("number", &Choice::number);
    if (choice.kind == 1) isGood = isGood && f("real", &Choice::real);
    if (choice.kind == 2) isGood = isGood && f("numbers", &Choice::numbers);
    if (choice.form == 11) isGood = isGood && f("point", &Choice::point);
    if (choice.form == 12) isGood = isGood && f("byte", &Choice::byte);
    return isGood;
}
inline void Fill(Filler& filler, Choice& choice)
{
    choice.kind = static_cast<short>(filler.Below(4));
    choice.form = static_cast<unsigned char>(10 + filler.Below(4));
    ForEachActive(choice, [&](const std::string& name, auto member) {
        if (name != "kind" && name != "form") Fill(filler, choice.*member);
        return true;
    });
}
inline bool Same(Comparison& comparison, const Choice& left, const Choice& right)
{
    return ForEachActive(left, [&](const char* name, auto member) {
        return comparison.Inside(name, [&] { return Same(comparison, left.*member, right.*member); });
    });
}

struct Choices : Choice {
    Choice one;
    std::vector<Choice> all;
    std::unique_ptr<Choice> elsewhere;
};
VEXA_DESCRIBE_CLASS(Choices)
{
    about.Base<Choice>();
    about.Attrib("one", &Choices::one);
    about.Attrib("all", &Choices::all);
    about.Attrib("elsewhere", &Choices::elsewhere);
}
inline auto OwnMembers(const Choices& choices) { return std::tie(choices.one, choices.all, choices.elsewhere); }
inline void Fill(Filler& filler, Choices& choices)
{
    Fill(filler, static_cast<Choice&>(choices));
    Fill(filler, choices.one);
    Fill(filler, choices.all);
    Fill(filler, choices.elsewhere);
}
inline bool Same(Comparison& comparison, const Choices& left, const Choices& right)
{
    return Same(comparison, static_cast<const Choice&>(left), static_cast<const Choice&>(right)) &&
           SameMembers(comparison, {"one", "all", "elsewhere"}, OwnMembers(left), OwnMembers(right));
}

/// Objects and groups put together at run time, whose entries lead to what no attribute is.
struct Groups {
    int before = 0;
    vexa::CGnlClass object;
    vexa::CReferenceGroup group;
    int number = 0;
    std::string text;
    Inner inner;
    std::vector<int> numbers;

    Groups()
    {
        object.Add("number", vexa::RefOf(number));
        object.Add("text", vexa::RefOf(text));
        group.Add("inner", vexa::RefOf(inner));
        group.Add("numbers", vexa::RefOf(numbers));
        group.Add(vexa::RefOf(number)); // by its number only
    }
    Groups(const Groups&) = delete;
    Groups& operator=(const Groups&) = delete;
    auto Entries() { return std::tie(before, number, text, inner, numbers); }
    auto Entries() const { return std::tie(before, number, text, inner, numbers); }
};
VEXA_DESCRIBE(Groups, before, object, group)
inline void Fill(Filler& filler, Groups& groups)
{
    std::apply([&](auto&... entries) { (Fill(filler, entries), ...); }, groups.Entries());
}
inline bool Same(Comparison& comparison, const Groups& left, const Groups& right)
{
    return SameMembers(comparison, {"before", "number", "text", "inner", "numbers"}, left.Entries(), right.Entries());
}

} // namespace vexa_test::everything

#endif
