// Members that are standard containers.

#include <deque>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/described_text.h"

namespace container_members {

struct Point {
    int x = 1;
};
VEXA_DESCRIBE(Point, x)
inline bool operator<(const Point& left, const Point& right) { return left.x < right.x; }

struct Containers {
    std::vector<int> vector{1, 2};
    std::list<std::string> list{"a", "b"};
    std::deque<bool> deque{true, false};
    std::set<int> set{2, 1};
    std::multiset<int> multiset{3, 3};
    std::map<std::string, int> map{{"k", 1}};
    std::multimap<int, Point> multimap{{1, {}}, {1, {}}};
    std::unordered_set<int> unorderedSet{4};
    std::unordered_multiset<int> unorderedMultiset{5, 5};
    std::unordered_map<int, std::string> unorderedMap{{6, "v"}};
    std::unordered_multimap<int, int> unorderedMultimap{{7, 8}};
};
VEXA_DESCRIBE(Containers, vector, list, deque, set, multiset, map, multimap, unorderedSet, unorderedMultiset,
              unorderedMap, unorderedMultimap)

struct Nested {
    std::vector<std::map<std::string, std::list<Point>>> deep;
    std::map<std::string, std::map<int, std::vector<std::string>>> maps;
    std::set<Point> points;
    std::set<std::vector<int>> lists;
    std::set<std::pair<int, int>> pairs;
    std::pair<int, std::string> pair;
};
VEXA_DESCRIBE(Nested, deep, maps, points, lists, pairs, pair)

struct Wrapped {
    vexa::MayNull<std::vector<int>> mayNull;
    std::unique_ptr<std::map<int, int>> owned;
    std::map<std::string, vexa::MayNull<int>> values;
};
VEXA_DESCRIBE(Wrapped, mayNull, owned, values)

} // namespace container_members

namespace {

using namespace container_members;
using vexa_test::Json;
using vexa_test::Line;
using vexa_test::MembersOf;

constexpr char CONTAINERS[] =
    R"({"vector":[1,2],"list":["a","b"],"deque":[true,false],"set":[1,2],"multiset":[3,3],)"
    R"("map":[{"first":"k","second":1}],"multimap":[{"first":1,"second":{"x":1}},{"first":1,"second":{"x":1}}],)"
    R"("unorderedSet":[4],"unorderedMultiset":[5,5],"unorderedMap":[{"first":6,"second":"v"}],)"
    R"("unorderedMultimap":[{"first":7,"second":8}]})";

TEST(ContainerMembers, EachHasItsCodeAndName)
{
    const Containers c;
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Containers>()),
              Line(c, c.vector, "vector", "std::vector<int>, 61, 0x00") +
                  Line(c, c.list, "list", "std::list<std::string>, 62, 0x00") +
                  Line(c, c.deque, "deque", "std::deque<bool>, 78, 0x00") +
                  Line(c, c.set, "set", "std::set<int>, 81, 0x00") +
                  Line(c, c.multiset, "multiset", "std::multiset<int>, 82, 0x00") +
                  Line(c, c.map, "map", "std::map<std::pair>, 83, 0x00") +
                  Line(c, c.multimap, "multimap", "std::multimap<std::pair>, 84, 0x00") +
                  Line(c, c.unorderedSet, "unorderedSet", "std::unordered_set<int>, 98, 0x00") +
                  Line(c, c.unorderedMultiset, "unorderedMultiset", "std::unordered_multiset<int>, 98, 0x00") +
                  Line(c, c.unorderedMap, "unorderedMap", "std::unordered_map<std::pair>, 98, 0x00") +
                  Line(c, c.unorderedMultimap, "unorderedMultimap", "std::unordered_multimap<std::pair>, 98, 0x00"));
}

TEST(ContainerMembers, RenderElementByElement)
{
    EXPECT_EQ(vexa::AsString(Containers()),
              "\nvector: \n  - 1\n  - 2\nlist: \n  - a\n  - b\ndeque: \n  - true\n  - false\nset: \n  - 1\n  - 2"
              "\nmultiset: \n  - 3\n  - 3\nmap: \n  - first: k\n    second: 1"
              "\nmultimap: \n  - first: 1\n    second: \n      x: 1\n  - first: 1\n    second: \n      x: 1"
              "\nunorderedSet: \n  - 4\nunorderedMultiset: \n  - 5\n  - 5"
              "\nunorderedMap: \n  - first: 6\n    second: v\nunorderedMultimap: \n  - first: 7\n    second: 8");
}

TEST(ContainerMembers, AreWrittenAndReadAsJsonArrays)
{
    EXPECT_EQ(Json(Containers()), CONTAINERS);
    Containers empty;
    vexa::RefOf(empty).Clear();
    ASSERT_EQ(vexa::FromJson(empty, CONTAINERS), 0);
    EXPECT_EQ(Json(empty), CONTAINERS);
}

TEST(ContainerMembers, ClearingEmptiesEach)
{
    Containers c;
    vexa::RefOf(c).Clear();
    EXPECT_EQ(Json(c), R"({"vector":[],"list":[],"deque":[],"set":[],"multiset":[],"map":[],"multimap":[],)"
                       R"("unorderedSet":[],"unorderedMultiset":[],"unorderedMap":[],"unorderedMultimap":[]})");
}

TEST(ContainerMembers, AMapsElementIsAPairOfTwoAttributes)
{
    const vexa::CGnlTypeInfor& type = vexa::TypeInforOf<std::map<std::string, short>>();
    const auto& map = *static_cast<const vexa::CContainerInfor*>(type.DetailInfor);
    ASSERT_EQ(map.ElementType.DataType, vexa::Enum::DT_CLASS);
    const auto& pair = *static_cast<const vexa::CClassInfor*>(map.ElementType.DetailInfor);
    const std::pair<const std::string, short> element;
    EXPECT_EQ(MembersOf(pair), Line(element, element.first, "first", "std::string, 41, 0x00") +
                                   Line(element, element.second, "second", "short, 13, 0x00"));
    EXPECT_EQ(pair.Size, sizeof element);
}

TEST(ContainerMembers, AKeyThatIsThereKeepsItsValue)
{
    Containers c;
    ASSERT_EQ(vexa::FromJson(c, R"({"map":[{"first":"k","second":1},{"first":"k","second":2}],)"
                                R"("unorderedMap":[{"first":1,"second":"a"},{"first":1,"second":"b"}],)"
                                R"("multimap":[{"first":1,"second":{"x":1}},{"first":1,"second":{"x":2}}],)"
                                R"("set":[1,1],"multiset":[1,1]})"),
              0);
    EXPECT_EQ(c.map, (std::map<std::string, int>{{"k", 1}}));
    EXPECT_EQ(c.unorderedMap.at(1), "a");
    EXPECT_EQ(c.multimap.size(), 2U);
    EXPECT_EQ(c.set, (std::set<int>{1}));
    EXPECT_EQ(c.multiset, (std::multiset<int>{1, 1}));
}

TEST(ContainerMembers, NestToAnyDepth)
{
    const Nested n;
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Nested>()),
              Line(n, n.deep, "deep", "std::vector<std::map<std::pair>>, 61, 0x00") +
                  Line(n, n.maps, "maps", "std::map<std::pair>, 83, 0x00") +
                  Line(n, n.points, "points", "std::set<Point>, 81, 0x00") +
                  Line(n, n.lists, "lists", "std::set<std::vector<int>>, 81, 0x00") +
                  Line(n, n.pairs, "pairs", "std::set<std::pair>, 81, 0x00") +
                  Line(n, n.pair, "pair", "std::pair, 1, 0x00"));
    const std::string text =
        R"({"deep":[[{"first":"a","second":[{"x":1},{"x":2}]}],[]],)"
        R"("maps":[{"first":"m","second":[{"first":1,"second":["p","q"]}]}],"points":[{"x":3},{"x":4}],)"
        R"("lists":[[1,2],[3]],"pairs":[{"first":1,"second":2},{"first":1,"second":3}],"pair":{"first":9,"second":"z"}})";
    EXPECT_EQ(vexa_test::ReadBack<Nested>(text), text);
}

TEST(ContainerMembers, NestedOnesRender)
{
    Nested n;
    n.deep.push_back({{"a", {Point()}}, {"b", {}}});
    n.lists = {{1, 2}, {3}};
    n.pair = {9, "z"};
    EXPECT_EQ(vexa::AsString(n),
              "\ndeep: \n  - - first: a\n      second: \n        - x: 1- first: b\n      second: "
              "\nmaps: \npoints: \nlists: \n  - - 1- 2\n  - - 3\npairs: \npair: \n  first: 9\n  second: z");
}

TEST(ContainerMembers, CanBeWrapped)
{
    Wrapped w;
    EXPECT_EQ(Json(w), R"({,"values":[]})");
    const std::string text = R"({"mayNull":[1],"owned":[{"first":1,"second":2}],"values":[{"first":"a","second":3}]})";
    ASSERT_EQ(vexa::FromJson(w, text), 0);
    EXPECT_EQ(Json(w), text);
    w.values["b"] = vexa::null;
    EXPECT_EQ(vexa::AsString(w.values), "\n- first: a\n  second: 3\n- first: b\n  second: NULL");
}

TEST(ContainerMembers, AContainerByItselfHasADescriptor)
{
    std::vector<Point> points(2);
    EXPECT_EQ(vexa::AsString(points), "\n- x: 1\n- x: 1");
    EXPECT_EQ(Json(points), R"([{"x":1},{"x":1}])");
    EXPECT_EQ(vexa::FromJson(points, R"([{"x":5}])"), 0);
    ASSERT_EQ(points.size(), 1U);
    EXPECT_EQ(points[0].x, 5);
}

TEST(ContainerMembers, OrderedOnesAreWalkedBackwardAndUnorderedOnesAreNot)
{
    std::map<int, int> map{{1, 10}, {2, 20}};
    std::string keys;
    const vexa::CContainerConstRefrence ref = vexa::RefOf(map).AsContainer();
    for (vexa::CContainerConstReverseIterator element(ref); !element.IsEnd(); ++element) {
        vexa::CConstRefrence key;
        ASSERT_TRUE(element.Current.AsClass().FindAttribByName(key, "first"));
        keys += key.AsString() + ' ';
    }
    EXPECT_EQ(keys, "2 1 ");
    const vexa::CGnlTypeInfor& unordered = vexa::TypeInforOf<std::unordered_set<int>>();
    EXPECT_EQ(static_cast<const vexa::CContainerInfor*>(unordered.DetailInfor)->RBegin, nullptr);
}

} // namespace
