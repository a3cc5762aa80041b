#ifndef VEXA_TESTS_SUPPORT_RANDOM_OBJECTS_H
#define VEXA_TESTS_SUPPORT_RANDOM_OBJECTS_H

#include <deque>
#include <list>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "support/random_values.h"

/// Described classes that together hold every type that can be described in every way in which it can be held, and
/// random objects of them: ForEachRandomClass calls a function with a tag of each class, and RandomObject makes one.
/// What the converters of custom types were asked is in ConverterCalls().

namespace vexa_test::random_objects {

/// How often any converter was called, and with what.
inline std::string& ConverterCalls()
{
    static std::string calls;
    return calls;
}

enum class Color : short { RED = 1, GREEN = -2 };
enum Bits : unsigned char { NO_BITS = 0, ALL_BITS = 255 };

// Custom types: over a string and a number in place, and with a layout of their own.

struct Tag {
    long padding = -1;
    std::string text;
    auto Members() { return std::tie(text); }
};
VEXA_DESCRIBE_CUSTOM_STD(Tag, &Tag::text)

struct Meters {
    char padding = 'm';
    int value = 0;
    auto Members() { return std::tie(value); }
};
VEXA_DESCRIBE_CUSTOM_STD(Meters, &Meters::value)

struct Money {
    int form = 0;
    long cents = 0;
    std::string text;
    auto Members() { return std::tie(form, cents, text); }

    void ToValue(vexa::CValue& out) const
    {
        ConverterCalls() += "to" + std::to_string(cents) + ' ';
        switch (form & 3) {
        case 0: out.SetNull(vexa::Enum::DT_STD_STRING); break;
        case 1: out = cents; break;
        case 2: out = text; break;
        default: break;
        }
    }
    void FromValue(const vexa::CValue& in)
    {
        ConverterCalls() += "from" + in.AsString() + ' ';
        form = in.IsNull() ? 0 : 2;
        text = in.As_std_string();
    }
};
VEXA_DESCRIBE_CUSTOM_ANY(Money, 17)

// Every basic type, and a class, held in one way after the other.

struct Inner {
    int number = 0;
    std::string text;
    auto Members() { return std::tie(number, text); }
};
VEXA_DESCRIBE(Inner, number, text)
inline bool operator<(const Inner& left, const Inner& right) { return left.number < right.number; }

template<template<class> class Held>
struct AllHeld {
    Held<bool> truth{};
    Held<char> letter{};
    Held<short> small{};
    Held<int> number{};
    Held<long> large{};
    Held<long long> wide{};
    Held<float> single{};
    Held<double> real{};
    Held<long double> widest{};
    Held<unsigned char> byte{};
    Held<unsigned short> word{};
    Held<unsigned int> natural{};
    Held<unsigned long> huge{};
    Held<unsigned long long> hugest{};
    Held<std::string> text{};
    Held<vexa::CBinary> binary{};
    Held<vexa::CNumeric> numeric{};
    Held<tm> time{};
    Held<vexa::CDateTime> date{};
    Held<Color> color{};
    Held<Inner> inner{};
    Held<std::vector<int>> numbers{};
    Held<Tag> tag{};
    Held<Money> money{};

    auto Members()
    {
        return std::tie(truth, letter, small, number, large, wide, single, real, widest, byte, word, natural, huge,
                        hugest, text, binary, numeric, time, date, color, inner, numbers, tag, money);
    }
};

template<class T>
using AsItIs = T;
template<class T>
using Owned = T*;
template<class T>
using Borrowed = const T*;
template<class T>
using Unique = std::unique_ptr<T>;

#define VEXA_TEST_ALL_HELD(Name, Held)                                                                                 \
    struct Name : AllHeld<Held> {};                                                                                    \
    VEXA_DESCRIBE(Name, truth, letter, small, number, large, wide, single, real, widest, byte, word, natural, huge,    \
                  hugest, text, binary, numeric, time, date, color, inner, numbers, tag, money)

VEXA_TEST_ALL_HELD(Direct, AsItIs)
VEXA_TEST_ALL_HELD(MayBeNull, vexa::MayNull)
VEXA_TEST_ALL_HELD(ByUnique, Unique)
VEXA_TEST_ALL_HELD(ByBorrowed, Borrowed)
VEXA_TEST_ALL_HELD(ByNonNull, vexa::NonNullPointer)
#undef VEXA_TEST_ALL_HELD

/// Raw pointers that own: whoever destroys the object frees what they lead to.
struct ByOwned {
    bool* truth = nullptr;
    int* number = nullptr;
    double* real = nullptr;
    std::string* text = nullptr;
    vexa::CNumeric* numeric = nullptr;
    Inner* inner = nullptr;
    std::vector<std::string>* texts = nullptr;
    Money* money = nullptr;

    auto Members() { return std::tie(truth, number, real, text, numeric, inner, texts, money); }
    ByOwned() = default;
    ByOwned(const ByOwned&) = delete;
    ByOwned& operator=(const ByOwned&) = delete;
    ~ByOwned()
    {
        std::apply([](auto*... pointers) { (delete pointers, ...); }, Members());
    }
};
VEXA_DESCRIBE(ByOwned, truth, number, real, text, numeric, inner, texts, money)

/// What cannot be changed, from the moment that the object is made.
struct Constants {
    static Random& Source()
    {
        static Random source(7);
        return source;
    }
    const int number = RandomValue<int>(Source());
    const std::string text = RandomValue<std::string>(Source());
    const vexa::MayNull<short> maybe = RandomValue<vexa::MayNull<short>>(Source());
    const Inner inner = RandomValue<Inner>(Source());
    const std::vector<int> numbers = RandomValue<std::vector<int>>(Source());
    const int* const pointer = &number;
    int free = 0;
    auto Members() { return std::tie(free); }
};
VEXA_DESCRIBE(Constants, number, text, maybe, inner, numbers, pointer, free)

// Kinds that not every writer and reader takes.

struct Records {
    std::string before;
    vexa::CValue value;
    vexa::CRow row;
    vexa::CTable table;
    vexa::NullType nothing;
    const void* address = nullptr;
    const char* text = nullptr;
    std::vector<vexa::CValue> values;
    std::string after;
    auto Members() { return std::tie(before, value, row, table, nothing, address, text, values, after); }
};
VEXA_DESCRIBE(Records, before, value, row, table, nothing, address, text, values, after)

/// Groups, whose entries lead to what stands beside them.
struct Groups {
    int number = 0;
    std::string text;
    Inner inner;
    vexa::CGnlClass object;
    vexa::CReferenceGroup group;
};
VEXA_DESCRIBE(Groups, number, text, inner, object, group)

inline void Randomize(Random& random, Groups& groups)
{
    vexa_test::Randomize(random, groups.number);
    vexa_test::Randomize(random, groups.text);
    vexa_test::Randomize(random, groups.inner);
    groups.object = {};
    groups.group = {};
    if (random.OneIn(2)) groups.object.Add("number", vexa::RefOf(groups.number));
    if (random.OneIn(2)) groups.object.Add("text", vexa::RefOf(groups.text));
    if (random.OneIn(2)) groups.group.Add("inner", vexa::RefOf(groups.inner));
    if (random.OneIn(2)) groups.group.Add(vexa::RefOf(groups.text));
    if (random.OneIn(8)) groups.object.Add("itself", vexa::RefOf(groups));
}

// Containers.

struct Arrays {
    char letters[5] = {};
    int numbers[3] = {};
    short grid[2][3] = {};
    std::string texts[2];
    std::array<Inner, 2> inners;
    std::array<int, 0> none{};
    std::array<vexa::MayNull<int>, 3> maybes;
    std::bitset<9> bits;
    std::array<std::unique_ptr<int>, 2> pointers;
    auto Members() { return std::tie(letters, numbers, grid, texts, inners, none, maybes, bits, pointers); }
};
VEXA_DESCRIBE(Arrays, letters, numbers, grid, texts, inners, none, maybes, bits, pointers)

struct Vectors {
    std::vector<int> numbers;
    std::vector<char> letters;
    std::vector<long> larges;
    std::vector<double> reals;
    std::vector<std::string> texts;
    std::vector<Inner> inners;
    std::vector<vexa::MayNull<std::string>> maybes;
    std::vector<vexa::MayNull<Inner>> maybeInners;
    std::vector<std::unique_ptr<Inner>> uniques;
    std::vector<const int*> borrowed;
    std::vector<const char*> pointers;
    std::vector<std::vector<std::string>> nested;
    std::vector<std::array<short, 2>> pairs;
    std::vector<std::bitset<3>> bits;
    std::vector<Money> moneys;
    std::vector<Tag> tags;
    std::vector<Color> colors;
    std::vector<vexa::CNumeric> numerics;
    auto Members()
    {
        return std::tie(numbers, letters, larges, reals, texts, inners, maybes, maybeInners, uniques, borrowed,
                        pointers, nested, pairs, bits, moneys, tags, colors, numerics);
    }
};
VEXA_DESCRIBE(Vectors, numbers, letters, larges, reals, texts, inners, maybes, maybeInners, uniques, borrowed, pointers,
              nested, pairs, bits, moneys, tags, colors, numerics)

struct Others {
    std::list<int> list;
    std::deque<bool> deque;
    std::set<std::string> set;
    std::multiset<int> multiset;
    std::map<std::string, int> map;
    std::multimap<int, Inner> multimap;
    std::map<int, std::vector<vexa::MayNull<short>>> mapOfVectors;
    std::map<Inner, std::unique_ptr<Inner>> mapOfPointers;
    std::unordered_set<int> unorderedSet;
    std::unordered_multiset<std::string> unorderedMultiset;
    std::unordered_map<int, std::string> unorderedMap;
    std::unordered_multimap<int, int> unorderedMultimap;
    std::list<std::map<int, Money>> listOfMaps;
    vexa::MayNull<std::map<int, int>> maybeMap;
    std::unique_ptr<std::list<std::string>> listElsewhere;
    auto Members()
    {
        return std::tie(list, deque, set, multiset, map, multimap, mapOfVectors, mapOfPointers, unorderedSet,
                        unorderedMultiset, unorderedMap, unorderedMultimap, listOfMaps, maybeMap, listElsewhere);
    }
};
VEXA_DESCRIBE(Others, list, deque, set, multiset, map, multimap, mapOfVectors, mapOfPointers, unorderedSet,
              unorderedMultiset, unorderedMap, unorderedMultimap, listOfMaps, maybeMap, listElsewhere)

// Recursion, by value in containers, by owning pointers, and by pointers that may lead back.

struct Node {
    int number = 0;
    std::unique_ptr<Node> next;
    std::vector<Node> children;
    std::vector<std::unique_ptr<Node>> others;
    std::map<int, Node> named;
    const Node* link = nullptr;
};
VEXA_DESCRIBE(Node, number, next, children, others, named, link)

inline void Randomize(Random& random, Node& node)
{
    vexa_test::Randomize(random, node.number);
    if (random.OneIn(40)) node.link = &node; // a circle
    if (++random.Depth < Random::DEEPEST) {
        if (random.OneIn(2)) Randomize(random, *(node.next = std::make_unique<Node>()));
        node.children.resize(random.Below(3)); // all at once: a circle must not move
        for (Node& child : node.children)
            Randomize(random, child);
        if (random.OneIn(3)) Randomize(random, *node.others.emplace_back(std::make_unique<Node>()));
        if (random.OneIn(3)) node.others.emplace_back();
        if (random.OneIn(3)) Randomize(random, node.named[static_cast<int>(random.Below(9))]);
        if (random.OneIn(9)) node.link = &random.Keep(Node{});
    }
    --random.Depth;
}

// Unions: a class of nothing else, one among other members, and inherited twice over.

struct Point {
    int x;
    short y;
};
VEXA_DESCRIBE(Point, x, y)

struct Choice {
    union {
        int number;
        double real;
        Point point;
        int numbers[2];
    };
    std::string text;
    short kind = 0;
    Choice() : numbers{} {} // all of it: whatever member is asked for has a value
};
VEXA_DESCRIBE_CLASS(Choice)
{
    about.Attrib("kind", &Choice::kind);
    about.Attrib("number", &Choice::number).ActiveWhen("kind", 0);
    about.Attrib("real", &Choice::real).ActiveWhen("kind", 1);
    about.Attrib("point", &Choice::point).ActiveWhen("kind", 2).Masked();
    about.Attrib("numbers", &Choice::numbers).ActiveWhen("kind", 3);
    about.Attrib("text", &Choice::text);
}

inline void Randomize(Random& random, Choice& choice)
{
    choice.kind = static_cast<short>(random.Below(5));
    switch (choice.kind) {
    case 1: vexa_test::Randomize(random, choice.real = 0); break;
    case 2: choice.point = {RandomValue<int>(random), RandomValue<short>(random)}; break;
    case 3: vexa_test::Randomize(random, choice.numbers); break;
    default: vexa_test::Randomize(random, choice.number = 0); break;
    }
    vexa_test::Randomize(random, choice.text);
}

struct Derived : Inner, Choice {
    vexa::MayNull<int> own;
    Choice choice;
    std::vector<Choice> choices;
};
VEXA_DESCRIBE_CLASS(Derived)
{
    about.Base<Inner>();
    about.Base<Choice>();
    about.Attrib("own", &Derived::own).ID(3).Private();
    about.Attrib("choice", &Derived::choice).ID(70);
    about.Attrib("choices", &Derived::choices).Masked();
}

inline void Randomize(Random& random, Derived& derived)
{
    vexa_test::Randomize(random, static_cast<Inner&>(derived));
    Randomize(random, static_cast<Choice&>(derived));
    vexa_test::Randomize(random, derived.own);
    Randomize(random, derived.choice);
    for (std::size_t i = random.Below(3); i > 0; --i)
        Randomize(random, derived.choices.emplace_back());
}

/// Many members behind names of all lengths.
struct Names {
    int a = 0, ab = 0, abc = 0, abcd = 0, abcdefg = 0, abcdefgh = 0, abcdefghi = 0;
    int abcdefghijklmno = 0, abcdefghijklmnop = 0, abcdefghijklmnopq = 0;
    std::string a_name_of_more_than_thirty_two_bytes_in_all;
    std::string a_name_of_more_THAN_thirty_two_bytes_in_all;
    Inner a_;
    auto Members()
    {
        return std::tie(a, ab, abc, abcd, abcdefg, abcdefgh, abcdefghi, abcdefghijklmno, abcdefghijklmnop,
                        abcdefghijklmnopq, a_name_of_more_than_thirty_two_bytes_in_all,
                        a_name_of_more_THAN_thirty_two_bytes_in_all, a_);
    }
};
VEXA_DESCRIBE(Names, a, ab, abc, abcd, abcdefg, abcdefgh, abcdefghi, abcdefghijklmno, abcdefghijklmnop,
              abcdefghijklmnopq, a_name_of_more_than_thirty_two_bytes_in_all,
              a_name_of_more_THAN_thirty_two_bytes_in_all, a_)

struct Nothing {
    auto Members() { return std::tuple<>(); }
};
VEXA_DESCRIBE_CLASS(Nothing) {}

template<class T>
struct ClassTag {
    using Type = T;
};

/// Calls \p f with the tag of each class.
template<class F>
void ForEachRandomClass(F f)
{
    const auto callWith = [&f](auto... tags) { (f(tags), ...); };
    callWith(ClassTag<Inner>(), ClassTag<Direct>(), ClassTag<MayBeNull>(), ClassTag<ByUnique>(), ClassTag<ByBorrowed>(),
             ClassTag<ByNonNull>(), ClassTag<ByOwned>(), ClassTag<Constants>(), ClassTag<Records>(), ClassTag<Groups>(),
             ClassTag<Arrays>(), ClassTag<Vectors>(), ClassTag<Others>(), ClassTag<Node>(), ClassTag<Choice>(),
             ClassTag<Derived>(), ClassTag<Names>(), ClassTag<Nothing>());
}

/// An object that stays where it is made.
template<class T>
std::unique_ptr<T> RandomObject(Random& random)
{
    auto object = std::make_unique<T>();
    Randomize(random, *object);
    return object;
}

} // namespace vexa_test::random_objects

#endif
