#include <vexa/access.h>

#include <deque>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/group.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>

namespace elements_shop {

enum class Color { red = 3, green };
VEXA_DESCRIBE_ENUM(Color, red, green)

struct Counted {
    Counted() { ++s_live; }
    Counted(const Counted& other) : text(other.text) { ++s_live; }
    Counted(Counted&& other) noexcept : text(std::move(other.text)) { ++s_live; }
    Counted& operator=(const Counted&) = default;
    Counted& operator=(Counted&&) = default;
    ~Counted() { --s_live; }

    std::string text = "none";
    static inline int s_live = 0;
};
VEXA_DESCRIBE(Counted, text)

struct Base {
    virtual ~Base() = default;
    int id = 1;
};
VEXA_DESCRIBE_CLASS(Base)
{
    about.Attrib("id", &Base::id);
    about.Tag("kind");
}
struct Leaf : Base {
    int kind = 1;
    union {
        int number = 3;
        double fraction;
    };
};
VEXA_DESCRIBE_CLASS(Leaf)
{
    about.Base<Base>();
    about.Attrib("kind", &Leaf::kind);
    about.Attrib("number", &Leaf::number).ActiveWhen("kind", 1);
    about.Attrib("fraction", &Leaf::fraction).ActiveWhen("kind", 2);
}

} // namespace elements_shop

namespace {

using namespace elements_shop;
using vexa::Attributes;
using vexa::Elements;

TEST(Attributes, AreThoseOfTheRealObjectAndCanBeWritten)
{
    std::unique_ptr<Base> object = std::make_unique<Leaf>();
    auto& leaf = static_cast<Leaf&>(*object);
    std::vector<std::pair<std::string, const void*>> seen;
    for (const auto& [name, value, infor] : Attributes(object)) {
        seen.emplace_back(name, value.Address);
        EXPECT_EQ(name, infor.Name);
        EXPECT_TRUE(vexa::TrySet(value, name == "kind" ? 1 : 9));
    }
    EXPECT_EQ(seen, (std::vector<std::pair<std::string, const void*>>{
                        {"id", &leaf.id}, {"kind", &leaf.kind}, {"number", &leaf.number}}));
    EXPECT_EQ(leaf.id, 9);
    EXPECT_EQ(leaf.number, 9);
    EXPECT_EQ(Attributes(object)["id"].Address, &leaf.id);
    EXPECT_EQ(Attributes(object).Infor(), &vexa::ClassInforOf<Leaf>());
    vexa::CReport report;
    EXPECT_EQ(Attributes(object).At("fraction", &report).Address, nullptr);
    EXPECT_EQ(Attributes(object).At("idd", &report).Address, nullptr);
    EXPECT_EQ(report.AsString(), "fraction: \"fraction\" is not the active member of its union\n"
                                 "idd: elements_shop::Leaf has no attribute \"idd\"; did you mean \"id\"?\n");
    const auto& fixed = object;
    for (const auto& attrib : Attributes(fixed))
        EXPECT_TRUE(attrib.Value.TypeInfor.Has(vexa::Enum::HF_CONST)) << attrib.Name;
    object.reset();
    EXPECT_TRUE(Attributes(object).IsNull());
    for (const auto& attrib : Attributes(object))
        ADD_FAILURE() << attrib.Name;
}

/// Index, key and text of each element.
template<class T>
std::vector<std::string> Listed(T& container)
{
    std::vector<std::string> lines;
    for (const auto& element : Elements(container)) {
        std::string line = std::to_string(element.Index);
        if (element.Key.Address != nullptr) line += " key " + vexa::TryGet<std::string>(element.Key).value_or("?");
        if (!element.Name.empty()) line += " name " + std::string(element.Name);
        lines.push_back(line + ": " + vexa::TryGet<std::string>(element.Value).value_or("?"));
    }
    EXPECT_EQ(lines.size(), Elements(container).Count());
    return lines;
}
using Lines = std::vector<std::string>;

TEST(Elements, AreListedWithTheirKeysAndNames)
{
    std::vector<int> vector{4, 5};
    std::list<std::string> list{"a", "b"};
    std::set<int> set{2, 1};
    std::map<std::string, int> map{{"x", 1}, {"y", 2}};
    std::multimap<double, int> many{{0.5, 1}, {0.5, 2}};
    std::tuple<int, std::string> tuple{1, "t"};
    std::pair<int, bool> pair{2, true};
    int array[2] = {7, 8};
    vexa::CRow row{1, "r"};
    std::optional<std::vector<int>> held = vector;
    std::vector<int> none;
    int number = 3;
    EXPECT_EQ(Listed(vector), (Lines{"0: 4", "1: 5"}));
    EXPECT_EQ(Listed(list), (Lines{"0: a", "1: b"}));
    EXPECT_EQ(Listed(set), (Lines{"0: 1", "1: 2"}));
    EXPECT_EQ(Listed(map), (Lines{"0 key x: 1", "1 key y: 2"}));
    EXPECT_EQ(Listed(many), (Lines{"0 key 0.5: 1", "1 key 0.5: 2"}));
    EXPECT_EQ(Listed(tuple), (Lines{"0: 1", "1: t"}));
    EXPECT_EQ(Listed(pair), (Lines{"0: 2", "1: true"}));
    EXPECT_EQ(Listed(array), (Lines{"0: 7", "1: 8"}));
    EXPECT_EQ(Listed(row), (Lines{"0: 1", "1: r"}));
    EXPECT_EQ(Listed(held), (Lines{"0: 4", "1: 5"}));
    EXPECT_EQ(Listed(none), Lines{});
    EXPECT_EQ(Listed(number), Lines{});

    vexa::CReferenceGroup group;
    group.Add("n", vexa::RefOf(number));
    group.Add(vexa::RefOf(vector[0]));
    EXPECT_EQ(Listed(group), (Lines{"0 name n: 3", "1: 4"}));
    vexa::CJsonTree tree;
    tree["k"] = 1;
    EXPECT_EQ(Listed(tree), (Lines{"0 name k: 1"}));
}

TEST(Elements, CanBeWrittenButForKeysAndThoseOfSets)
{
    std::vector<int> vector{1, 2};
    for (const auto& element : Elements(vector))
        EXPECT_TRUE(vexa::TrySet(element.Value, element.Index + 10));
    EXPECT_EQ(vector, (std::vector<int>{10, 11}));
    std::map<int, int> map{{1, 2}};
    for (const auto& element : Elements(map)) {
        EXPECT_TRUE(vexa::TrySet(element.Value, "7"));
        EXPECT_TRUE(element.Key.TypeInfor.Has(vexa::Enum::HF_CONST));
    }
    EXPECT_EQ(map[1], 7);
    std::set<int> set{1};
    for (const auto& element : Elements(set))
        EXPECT_FALSE(vexa::TrySet(element.Value, 2));
    EXPECT_EQ(*set.begin(), 1);
}

TEST(Elements, AreFoundByPlaceOrKey)
{
    std::vector<int> vector{4, 5};
    std::map<std::string, int> map{{"x", 1}};
    std::unordered_map<Color, int> colors{{Color::green, 2}};
    EXPECT_EQ(Elements(vector)[1].Address, &vector[1]);
    EXPECT_EQ(Elements(map).At("x").Address, &map["x"]);
    EXPECT_EQ(Elements(colors).At(Color::green).Address, &colors[Color::green]);
    EXPECT_EQ(Elements(colors).At("green").Address, &colors[Color::green]);
    EXPECT_EQ(Elements(vexa::RefOf(vector))[1].Address, &vector[1]);
    vexa::CReport report;
    EXPECT_EQ(Elements(vector).At(2, &report).Address, nullptr);
    EXPECT_EQ(Elements(vector).At(-1, &report).Address, nullptr);
    EXPECT_EQ(Elements(map).At("z", &report).Address, nullptr);
    EXPECT_EQ(Elements(map).At(3, &report).Address, nullptr);
    EXPECT_EQ(report.AsString(), "[2]: there is no such element: expected an index below 2\n"
                                 "[-1]: there is no such element: expected an index below 2\n"
                                 "[\"z\"]: there is no such entry\n"
                                 "[3]: expected a key in quotation marks, found [3]\n");
}

TEST(Elements, AreInserted)
{
    std::vector<int> vector;
    std::list<std::string> list;
    std::vector<std::unique_ptr<int>> pointers;
    std::vector<vexa::MayNull<int>> nullable;
    std::set<int> set{1};
    std::map<std::string, double> map;
    std::unordered_map<Color, int> colors;
    std::multimap<double, int> many;
    vexa::CRow row;
    EXPECT_TRUE(Elements(vector).Insert("12"));
    EXPECT_TRUE(Elements(vector).Insert(13));
    EXPECT_TRUE(Elements(list).Insert("a"));
    EXPECT_TRUE(Elements(pointers).Insert(5));
    EXPECT_TRUE(Elements(nullable).Insert(6));
    EXPECT_TRUE(Elements(set).Insert(2));
    EXPECT_TRUE(Elements(map).Insert("k", 1.5));
    EXPECT_TRUE(Elements(colors).Insert("green", 7));
    EXPECT_TRUE(Elements(colors).Insert(Color::red, 8));
    EXPECT_TRUE(Elements(many).Insert(0.5, 1) && Elements(many).Insert(0.5, 2));
    EXPECT_TRUE(Elements(row).Insert(2.5));
    EXPECT_EQ(vector, (std::vector<int>{12, 13}));
    EXPECT_EQ(list, std::list<std::string>{"a"});
    EXPECT_EQ(*pointers.at(0), 5);
    EXPECT_EQ(nullable.at(0).value_or(0), 6);
    EXPECT_EQ(set, (std::set<int>{1, 2}));
    EXPECT_EQ(map, (std::map<std::string, double>{{"k", 1.5}}));
    EXPECT_EQ(colors, (std::unordered_map<Color, int>{{Color::green, 7}, {Color::red, 8}}));
    EXPECT_EQ(many, (std::multimap<double, int>{{0.5, 1}, {0.5, 2}}));
    EXPECT_EQ(row[0].As_double(), 2.5);
}

TEST(Elements, WhatCannotBeInsertedChangesNothing)
{
    std::vector<int> vector{1};
    std::vector<std::unique_ptr<int>> pointers;
    std::set<int> set{1};
    std::map<std::string, int> map{{"k", 1}};
    int array[1] = {1};
    std::unique_ptr<std::vector<int>> none;
    const std::vector<int> fixed{1};
    vexa::CReport report;
    EXPECT_FALSE(Elements(vector).Insert("x", &report));
    EXPECT_FALSE(Elements(pointers).Insert("x", &report));
    EXPECT_FALSE(Elements(set).Insert(1, &report));
    EXPECT_FALSE(Elements(map).Insert("k", 2, &report));
    EXPECT_FALSE(Elements(map).Insert("l", "x", &report));
    EXPECT_FALSE(Elements(map).Insert(3, &report));
    EXPECT_FALSE(Elements(set).Insert(3, 4, &report));
    EXPECT_FALSE(Elements(array).Insert(3, &report));
    EXPECT_FALSE(Elements(none).Insert(3, &report));
    EXPECT_FALSE(Elements(vexa::CRefrence(vexa::RefOf(fixed).TypeInfor, &vector)).Insert(3, &report));
    EXPECT_EQ(report.AsString(), "the text is not of the right form: expected an integer, found \"x\"\n"
                                 "the text is not of the right form: expected an integer, found \"x\"\n"
                                 "the key is given twice\n"
                                 "the key is given twice\n"
                                 "the text is not of the right form: expected an integer, found \"x\"\n"
                                 "expected a key and a value\n"
                                 "expected a value alone\n"
                                 "no value can be made here: found array<int>\n"
                                 "this is null\n"
                                 "this value cannot be changed\n");
    EXPECT_EQ(vector, std::vector<int>{1});
    EXPECT_TRUE(pointers.empty());
    EXPECT_EQ(set, std::set<int>{1});
    EXPECT_EQ(map, (std::map<std::string, int>{{"k", 1}}));
}

TEST(Elements, AreErased)
{
    std::vector<int> vector{1, 2, 3};
    std::deque<std::string> deque{"a", "b"};
    std::list<int> list{1, 2};
    std::vector<int*> owned{new int(1), new int(2)};
    std::set<int> set{1, 2};
    std::map<std::string, int> map{{"k", 1}, {"l", 2}};
    std::multimap<int, int> many{{1, 1}, {1, 2}};
    vexa::CRow row{1, 2};
    vexa::CJsonTree tree;
    tree["a"].Append(1);
    EXPECT_TRUE(Elements(vector).Erase(1));
    EXPECT_TRUE(Elements(deque).Erase(0));
    EXPECT_TRUE(Elements(list).Erase(1));
    EXPECT_TRUE(Elements(owned).Erase(0));
    EXPECT_TRUE(Elements(set).Erase(0));
    EXPECT_TRUE(Elements(map).Erase("k"));
    EXPECT_TRUE(Elements(many).Erase(1));
    EXPECT_TRUE(Elements(row).Erase(0));
    EXPECT_TRUE(Elements(vexa::Find(tree, "a")).Erase(0));
    EXPECT_TRUE(Elements(tree).Erase("a"));
    EXPECT_EQ(vector, (std::vector<int>{1, 3}));
    EXPECT_EQ(deque, std::deque<std::string>{"b"});
    EXPECT_EQ(list, std::list<int>{1});
    ASSERT_EQ(owned.size(), 1U);
    EXPECT_EQ(*owned[0], 2);
    EXPECT_EQ(set, std::set<int>{2});
    EXPECT_EQ(map, (std::map<std::string, int>{{"l", 2}}));
    EXPECT_EQ(many, (std::multimap<int, int>{{1, 1}}));
    EXPECT_EQ(row.Size(), 1U);
    EXPECT_EQ(tree.Size(), 0U);
    delete owned[0];
    int array[1] = {1};
    vexa::CReport report;
    EXPECT_FALSE(Elements(array).Erase(0, &report));
    EXPECT_FALSE(Elements(vector).Erase(2, &report));
    EXPECT_EQ(report.AsString(), "this element cannot be removed\n"
                                 "[2]: there is no such element: expected an index below 2\n");
}

TEST(Elements, ObjectsAreMovedUpAndDestroyedOnce)
{
    {
        std::vector<Counted> objects(4);
        for (std::size_t i = 0; i < objects.size(); ++i)
            objects[i].text = std::string(20, static_cast<char>('a' + i));
        EXPECT_TRUE(Elements(objects).Erase(1));
        EXPECT_TRUE(Elements(objects).Erase(2));
        EXPECT_EQ(Counted::s_live, 2);
        ASSERT_EQ(objects.size(), 2U);
        EXPECT_EQ(objects[0].text, std::string(20, 'a'));
        EXPECT_EQ(objects[1].text, std::string(20, 'c'));
        EXPECT_FALSE(Elements(objects).Insert("no object"));
        EXPECT_EQ(objects.size(), 2U);
        EXPECT_TRUE(Elements(objects).Insert(Counted(objects[0])));
        EXPECT_EQ(objects.size(), 3U);
    }
    EXPECT_EQ(Counted::s_live, 0);
}

} // namespace
