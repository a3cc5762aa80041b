#ifndef VEXA_TESTS_SUPPORT_DESCRIBED_CLASSES_H
#define VEXA_TESTS_SUPPORT_DESCRIBED_CLASSES_H

#include <array>
#include <bitset>
#include <deque>
#include <list>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <vexa/json_tree.h>
#include <vexa/vexa.h>

#include "support/everything_fill.h"
#include "support/everything_same.h"
#include "support/random_standard_json.h"

/// Described classes of every basic type and container, held in every way, and of records, JSON and classes.

namespace vexa_test::everything {

enum class Plain : short { ONE = 1, MINUS_TWO = -2 };

// Custom types: over a string in place, and with a layout of their own.

struct Tag {
    long padding = -1;
    std::string text;
};
VEXA_DESCRIBE_CUSTOM_STD(Tag, &Tag::text)
inline void Fill(Filler& filler, Tag& tag) { tag.text = RandomText(filler); }
inline bool Same(Comparison& comparison, const Tag& left, const Tag& right)
{
    return comparison.Expect(left.text == right.text);
}

struct Money {
    long cents = 0;
    void ToValue(vexa::CValue& out) const { out = cents; }
    void FromValue(const vexa::CValue& in) { cents = in.As_long(); }
};
VEXA_DESCRIBE_CUSTOM_ANY(Money, 17)
inline void Fill(Filler& filler, Money& money) { vexa_test::Randomize(filler, money.cents); }
inline bool Same(Comparison& comparison, const Money& left, const Money& right)
{
    return comparison.Expect(left.cents == right.cents);
}

// Every basic type, and a class, held in one way after the other.

struct Inner {
    int number = 0;
    std::string text;
    VEXA_TEST_MEMBERS(number, text)
};
VEXA_DESCRIBE(Inner, number, text)
inline bool operator<(const Inner& left, const Inner& right)
{
    return std::tie(left.number, left.text) < std::tie(right.number, right.text);
}

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
    Held<vexa::CNumeric> numeric{vexa::CNumeric(0)};
    Held<tm> time{};
    Held<vexa::CDateTime> date{vexa::CDateTime(0, 0)};
    Held<Plain> plain{};
    Held<Inner> inner{};
    Held<std::vector<int>> numbers{};
    Held<Tag> tag{};
    Held<Money> money{};
    VEXA_TEST_MEMBERS(truth, letter, small, number, large, wide, single, real, widest, byte, word, natural, huge,
                      hugest, text, binary, numeric, time, date, plain, inner, numbers, tag, money)
};

template<class T>
using AsItIs = T;

#define VEXA_TEST_ALL_HELD(Name, Held)                                                                                 \
    struct Name : AllHeld<Held> {};                                                                                    \
    VEXA_DESCRIBE(Name, truth, letter, small, number, large, wide, single, real, widest, byte, word, natural, huge,    \
                  hugest, text, binary, numeric, time, date, plain, inner, numbers, tag, money)

VEXA_TEST_ALL_HELD(Direct, AsItIs)
VEXA_TEST_ALL_HELD(MayBeNull, vexa::MayNull)
#undef VEXA_TEST_ALL_HELD

template<template<class> class Held>
struct SomeHeld {
    Held<bool> truth{};
    Held<int> number{};
    Held<double> real{};
    Held<std::string> text{};
    Held<vexa::CBinary> binary{};
    Held<Inner> inner{};
    Held<std::vector<Inner>> inners{};
    Held<std::map<std::string, int>> named{};
    Held<Money> money{};
    VEXA_TEST_MEMBERS(truth, number, real, text, binary, inner, inners, named, money)
};

template<class T>
using Unique = std::unique_ptr<T>;
template<class T>
using Owned = T*;

#define VEXA_TEST_SOME_HELD(Name, Held)                                                                                \
    struct Name : SomeHeld<Held> {};                                                                                   \
    VEXA_DESCRIBE(Name, truth, number, real, text, binary, inner, inners, named, money)

VEXA_TEST_SOME_HELD(ByUnique, Unique)
VEXA_TEST_SOME_HELD(ByNonNull, vexa::NonNullPointer)
#undef VEXA_TEST_SOME_HELD

/// Raw pointers that own: whoever destroys the object frees what they lead to.
struct ByOwned : SomeHeld<Owned> {
    ByOwned() = default;
    ByOwned(const ByOwned&) = delete;
    ByOwned& operator=(const ByOwned&) = delete;
    ~ByOwned()
    {
        std::apply([](auto*... pointers) { (delete pointers, ...); }, Members());
    }
};
VEXA_DESCRIBE(ByOwned, truth, number, real, text, binary, inner, inners, named, money)

// Records of values.

struct Records {
    vexa::CValue value;
    vexa::CRow row;
    vexa::CTable table;
    vexa::NullType nothing;
    std::vector<vexa::CValue> values;
    std::vector<vexa::CTable> tables;
    VEXA_TEST_MEMBERS(value, row, table, nothing, values, tables)
};
VEXA_DESCRIBE(Records, value, row, table, nothing, values, tables)

// JSON of any form.

inline void Fill(Filler& filler, vexa::CRawJson& raw)
{
    raw.Set(RandomStandardJson(filler, 200).Text(filler.IsDeep() ? 0 : 2));
}
inline bool Same(Comparison& comparison, const vexa::CRawJson& left, const vexa::CRawJson& right)
{
    const auto value = [](const vexa::CRawJson& raw) {
        vexa::CJsonTree tree;
        vexa::CReport report;
        tree.Parse(raw.Text(), report);
        return tree;
    };
    const bool isSame = comparison.KeepsDigits() ? left.Text() == right.Text() : value(left) == value(right);
    return comparison.Expect(isSame, left.Text() + " and " + right.Text());
}
inline void Fill(Filler& filler, vexa::CJsonTree& tree)
{
    vexa::CReport report;
    tree.Parse(RandomStandardJson(filler, 200).Text(filler.IsDeep() ? 0 : 2), report);
}
inline bool Same(Comparison& comparison, const vexa::CJsonTree& left, const vexa::CJsonTree& right)
{
    if (!comparison.KeepsDigits()) return comparison.Expect(left == right, left.AsJson() + " and " + right.AsJson());
    const bool isSame = left.Kind() == right.Kind() && left.AsBool() == right.AsBool() &&
                        left.AsText() == right.AsText() && left.AsDigits() == right.AsDigits();
    if (!comparison.Expect(isSame && left.Size() == right.Size())) return false;
    for (const vexa::CJsonTree::CMember& member : left.Members()) {
        const vexa::CJsonTree* const other = right.Member(member.Key());
        if (!comparison.Expect(other != nullptr, member.Key()) || !Same(comparison, member.Value, *other)) return false;
    }
    std::size_t number = 0;
    for (const vexa::CJsonTree& element : left.Elements()) {
        if (!Same(comparison, element, right[number++])) return false;
    }
    return true;
}

struct AnyJson {
    vexa::CRawJson raw;
    vexa::CJsonTree tree;
    std::vector<vexa::CJsonTree> trees;
    std::map<std::string, vexa::CRawJson> raws;
    std::unique_ptr<vexa::CJsonTree> elsewhere;
    VEXA_TEST_MEMBERS(raw, tree, trees, raws, elsewhere)
};
VEXA_DESCRIBE(AnyJson, raw, tree, trees, raws, elsewhere)
// A null tree and no tree look the same.
inline void Fill(Filler& filler, std::unique_ptr<vexa::CJsonTree>& tree)
{
    tree = filler.OneIn(2) ? nullptr : std::make_unique<vexa::CJsonTree>(RandomText(filler));
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
    VEXA_TEST_MEMBERS(letters, numbers, grid, texts, inners, none, maybes, bits, pointers)
};
VEXA_DESCRIBE(Arrays, letters, numbers, grid, texts, inners, none, maybes, bits, pointers)

struct Vectors {
    std::vector<int> numbers;
    std::vector<char> letters;
    std::vector<unsigned char> bytes;
    std::vector<double> reals;
    std::vector<std::string> texts;
    std::vector<Inner> inners;
    std::vector<vexa::MayNull<std::string>> maybes;
    std::vector<vexa::MayNull<Inner>> maybeInners;
    std::vector<std::unique_ptr<Inner>> uniques;
    std::vector<std::vector<std::string>> nested;
    std::vector<std::array<short, 2>> arrays;
    std::vector<std::bitset<3>> bits;
    std::vector<Money> moneys;
    std::vector<Tag> tags;
    std::vector<Plain> plains;
    std::vector<vexa::CNumeric> numerics;
    std::vector<std::pair<int, std::string>> pairs;
    VEXA_TEST_MEMBERS(numbers, letters, bytes, reals, texts, inners, maybes, maybeInners, uniques, nested, arrays, bits,
                      moneys, tags, plains, numerics, pairs)
};
VEXA_DESCRIBE(Vectors, numbers, letters, bytes, reals, texts, inners, maybes, maybeInners, uniques, nested, arrays,
              bits, moneys, tags, plains, numerics, pairs)

struct Others {
    std::list<int> list;
    std::deque<bool> deque;
    std::set<std::string> set;
    std::set<Inner> inners;
    std::multiset<int> multiset;
    std::unordered_set<int> unorderedSet;
    std::unordered_multiset<std::string> unorderedMultiset;
    std::list<std::vector<std::string>> nested;
    std::unique_ptr<std::list<std::string>> elsewhere;
    VEXA_TEST_MEMBERS(list, deque, set, inners, multiset, unorderedSet, unorderedMultiset, nested, elsewhere)
};
VEXA_DESCRIBE(Others, list, deque, set, inners, multiset, unorderedSet, unorderedMultiset, nested, elsewhere)

struct Maps {
    std::map<std::string, int> byText;
    std::map<char, int> byLetter;
    std::map<short, std::string> bySmall;
    std::map<long, std::vector<vexa::MayNull<short>>> byNumber;
    std::map<unsigned long, int> byNatural;
    std::map<Plain, int> byPlain;
    std::map<double, int> byReal;
    std::map<Inner, std::unique_ptr<Inner>> byClass;
    std::map<std::string, std::map<std::string, Inner>> nested;
    std::multimap<std::string, int> multi;
    std::unordered_map<int, std::string> unordered;
    std::unordered_map<std::string, Inner> unorderedTexts;
    std::unordered_multimap<int, int> unorderedMulti;
    vexa::MayNull<std::map<int, int>> maybe;
    std::list<std::map<int, Money>> inList;
    VEXA_TEST_MEMBERS(byText, byLetter, bySmall, byNumber, byNatural, byPlain, byReal, byClass, nested, multi,
                      unordered, unorderedTexts, unorderedMulti, maybe, inList)
};
VEXA_DESCRIBE(Maps, byText, byLetter, bySmall, byNumber, byNatural, byPlain, byReal, byClass, nested, multi, unordered,
              unorderedTexts, unorderedMulti, maybe, inList)

// Recursion: by value in containers and by owning pointers.

struct Node {
    int number = 0;
    std::unique_ptr<Node> next;
    std::vector<Node> children;
    std::map<std::string, Node> named;
    VEXA_TEST_MEMBERS(number, next, children, named)
};
VEXA_DESCRIBE(Node, number, next, children, named)

struct Nothing {
    auto Members() { return std::tuple<>(); }
    auto Members() const { return std::tuple<>(); }
    static std::vector<std::string> Names() { return {}; }
};
VEXA_DESCRIBE_CLASS(Nothing) {}

/// Attributes of bases stand before those of the class.
struct Derived : Inner, Arrays {
    vexa::MayNull<int> own;
    auto Members() { return std::tuple_cat(Inner::Members(), Arrays::Members(), std::tie(own)); }
    auto Members() const { return std::tuple_cat(Inner::Members(), Arrays::Members(), std::tie(own)); }
    static std::vector<std::string> Names()
    {
        std::vector<std::string> names = Inner::Names();
        for (const std::string& name : Arrays::Names())
            names.push_back(name);
        names.push_back("own");
        return names;
    }
};
VEXA_DESCRIBE_CLASS(Derived)
{
    about.Base<Inner>();
    about.Base<Arrays>();
    about.Attrib("own", &Derived::own).ID(3).Private();
}

} // namespace vexa_test::everything

#endif
