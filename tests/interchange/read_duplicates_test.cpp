#include <cstddef>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <variant>

#include <gtest/gtest.h>

#include <vexa/group.h>
#include <vexa/interchange.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

#include "support/problem_lines.h"

// A key that an object has twice: a problem, or by policy the last one counts, whatever the keys and their order are.

namespace twice {

/// Case does not count; each comparison does.
struct Less {
    static inline std::size_t s_count = 0;
    bool operator()(const std::string& left, const std::string& right) const
    {
        ++s_count;
        const auto small = [](char byte) { return static_cast<char>(byte >= 'A' && byte <= 'Z' ? byte + 32 : byte); };
        std::string first(left);
        std::string second(right);
        for (char& byte : first)
            byte = small(byte);
        for (char& byte : second)
            byte = small(byte);
        return first < second;
    }
};

struct Value {
    int a = 0;
    int b = 0;
};
VEXA_DESCRIBE(Value, a, b)

struct Shape {
    virtual ~Shape() = default;
};
struct Circle : Shape {
    int radius = 0;
};
struct Square : Shape {
    int side = 0;
};
VEXA_DESCRIBE_CLASS(Shape) { about.Tag("kind"); }
VEXA_DESCRIBE_CLASS(Circle)
{
    about.Base<Shape>();
    about.TagValue("circle");
    about.Attrib("radius", &Circle::radius);
}
VEXA_DESCRIBE_CLASS(Square)
{
    about.Base<Shape>();
    about.TagValue("square");
    about.Attrib("side", &Square::side);
}

struct Card {
    int number = 0;
};
struct Cash {
    int number = 0;
};
VEXA_DESCRIBE_CLASS(Card)
{
    about.Tag("method");
    about.TagValue("card");
    about.Attrib("number", &Card::number);
}
VEXA_DESCRIBE_CLASS(Cash)
{
    about.Tag("method");
    about.TagValue("cash");
    about.Attrib("number", &Cash::number);
}

struct Keeper {
    int a = 0;
    std::map<std::string, vexa::CRawJson> others;
};
VEXA_DESCRIBE_CLASS(Keeper)
{
    about.Attrib("a", &Keeper::a);
    about.Attrib("others", &Keeper::others).KeepsUnknown();
}

} // namespace twice

namespace {

using twice::Card;
using twice::Cash;
using twice::Value;

template<class T>
std::string Read(T& value, const std::string& text, bool isLastMeant = false)
{
    vexa::CReadPolicy policy;
    policy.LastDuplicateWins = isLastMeant;
    return test::ProblemsOf(
        value, [&](T& object, vexa::CReport& report) { return vexa::ReadJson(object, text, report, policy); });
}

/// What is read with and without the policy.
template<class Map>
void ExpectLast(const std::string& text, const std::string& first, const std::string& last)
{
    Map map;
    EXPECT_EQ(0U, Read(map, text).find("25 ")) << text;
    EXPECT_EQ(first, vexa::WriteJson(map)) << text;
    Map other;
    EXPECT_EQ("", Read(other, text, true)) << text;
    EXPECT_EQ(last, vexa::WriteJson(other)) << text;
}

TEST(ReadDuplicates, TheLastOneCountsWhateverTheKeysAre)
{
    ExpectLast<std::map<std::string, int>>(R"({"x": 1, "y": 2, "x": 3})", R"({"x":1,"y":2})", R"({"x":3,"y":2})");
    ExpectLast<std::map<int, int>>(R"({"5": 1, "7": 2, "5": 3})", R"({"5":1,"7":2})", R"({"5":3,"7":2})");
    ExpectLast<std::map<signed char, int>>(R"({"-5": 1, "7": 2, "-5": 3})", R"({"-5":1,"7":2})", R"({"-5":3,"7":2})");
    ExpectLast<std::map<std::filesystem::path, int>>(R"({"/a": 1, "/a": 2})", R"({"/a":1})", R"({"/a":2})");
    ExpectLast<std::map<std::string, int, twice::Less>>(R"({"ab": 1, "AB": 2, "c": 3})", R"({"ab":1,"c":3})",
                                                        R"({"AB":2,"c":3})");
    ExpectLast<std::map<double, int>>(R"([[0.5, 1], [1.5, 2], [0.5, 3]])", R"([[0.5,1],[1.5,2]])",
                                      R"([[0.5,3],[1.5,2]])");
    ExpectLast<std::unordered_map<std::string, Value>>(R"({"x": {"a": 1, "b": 2}, "x": {"a": 3}})",
                                                       R"({"x":{"a":1,"b":2}})", R"({"x":{"a":3,"b":0}})");
}

/// These hold all of them, in the order of the text.
TEST(ReadDuplicates, AreNoneInMapsOfManyValues)
{
    for (const bool isLastMeant : {false, true}) {
        std::multimap<std::string, int> map;
        EXPECT_EQ("", Read(map, R"([["x", 1], ["a", 2], ["x", 3]])", isLastMeant));
        EXPECT_EQ(R"([["a",2],["x",1],["x",3]])", vexa::WriteJson(map));
    }
}

/// What came before a problem of grammar is kept, by the same rule.
TEST(ReadDuplicates, TheLastOneCountsBeforeAProblemToo)
{
    std::map<std::string, int> map;
    EXPECT_EQ(0U, Read(map, R"({"x": 1, "x": 2, "y": 3, "z")", true).find("2 "));
    EXPECT_EQ(R"({"x":2,"y":3})", vexa::WriteJson(map));
    EXPECT_EQ(0U, Read(map, R"({"x": 1, "y": "no", "x": 2})", true).find("20 "));
    EXPECT_EQ(R"({"x":2})", vexa::WriteJson(map));
}

TEST(ReadDuplicates, TheLastOfUnknownKeysIsKept)
{
    twice::Keeper keeper;
    EXPECT_EQ("", Read(keeper, R"({"x": 1, "a": 5, "y": 2, "x": [3]})", true));
    EXPECT_EQ(R"({"a":5,"x":[3],"y":2})", vexa::WriteJson(keeper));
    EXPECT_EQ(0U, Read(keeper, R"({"x": 1, "x": 2})").find("25 9+3 1:10 path=others[\"x\"]"));
    EXPECT_EQ(R"({"a":5,"x":1})", vexa::WriteJson(keeper));
}

std::size_t ComparisonsOf(std::size_t count)
{
    std::string text = "{";
    for (std::size_t i = 0; i < 2 * count; ++i)
        text += (i == 0 ? "\"k" : ",\"k") + std::to_string(i % count * 7919 % count) + "\":1";
    std::map<std::string, int, twice::Less> map;
    twice::Less::s_count = 0;
    EXPECT_EQ("", Read(map, text + "}", true));
    EXPECT_EQ(count, map.size());
    return twice::Less::s_count;
}

/// A look-up for each key costs its logarithm: four times as many cost hardly more than four times as much.
TEST(ReadDuplicates, CostNoSearchThroughTheMap)
{
    const std::size_t few = ComparisonsOf(500);
    EXPECT_LT(ComparisonsOf(2000), 6 * few);
    EXPECT_LT(few, 2U * 500 * 2 * 12);
}

TEST(ReadDuplicates, OfTagsAreToldLikeOthers)
{
    std::unique_ptr<twice::Shape> shape;
    EXPECT_EQ("25 32+6 1:33 second=1+6 1:2 class=twice::Circle attrib=kind "
              "excerpt={\"kind\": \"circle\", \"radius\": 1, \"kind\": \"square\"}\n",
              Read(shape, R"({"kind": "circle", "radius": 1, "kind": "square"})"));
    EXPECT_EQ(R"({"kind":"circle","radius":1})", vexa::WriteJson(shape));
    EXPECT_EQ("25 32+6 1:33 second=14+6 1:15 class=twice::Circle attrib=kind "
              "excerpt={\"radius\": 2, \"kind\": \"circle\", \"kind\": \"circle\"}\n",
              Read(shape, R"({"radius": 2, "kind": "circle", "kind": "circle"})"));
    EXPECT_EQ(R"({"kind":"circle","radius":2})", vexa::WriteJson(shape));
    Card card;
    EXPECT_EQ("25 19+8 1:20 second=1+8 1:2 class=twice::Card attrib=method "
              "excerpt={\"method\": \"card\", \"method\": \"card\"}\n",
              Read(card, R"({"method": "card", "method": "card"})"));
    std::variant<Card, Cash> either;
    EXPECT_EQ("25 19+8 1:20 second=1+8 1:2 class=twice::Cash attrib=method "
              "excerpt={\"method\": \"cash\", \"method\": \"card\", \"number\": 4}\n",
              Read(either, R"({"method": "cash", "method": "card", "number": 4})"));
    EXPECT_EQ(R"({"method":"cash","number":4})", vexa::WriteJson(either));
}

TEST(ReadDuplicates, TheLastTagCounts)
{
    std::unique_ptr<twice::Shape> shape;
    EXPECT_EQ("", Read(shape, R"({"kind": "circle", "side": 1, "kind": "square"})", true));
    EXPECT_EQ(R"({"kind":"square","side":1})", vexa::WriteJson(shape));
    std::variant<Card, Cash> either;
    EXPECT_EQ("", Read(either, R"({"method": "card", "number": 4, "method": "cash"})", true));
    EXPECT_EQ(R"({"method":"cash","number":4})", vexa::WriteJson(either));
    Card card;
    EXPECT_EQ("", Read(card, R"({"method": "cash", "number": 4, "method": "card"})", true));
    EXPECT_EQ(0U, Read(card, R"({"method": "card", "number": 4, "method": "cash"})", true).find("36 42+6 1:43 "));
}

TEST(ReadDuplicates, OfGenericObjectsAndGroups)
{
    int number = 0;
    vexa::CReferenceGroup group;
    group.Add("x", vexa::RefOf(number));
    EXPECT_EQ("25 9+3 1:10 second=1+3 1:2 path=[\"x\"] pointer=/x excerpt=\"x\" (token)\n",
              Read(group, R"({"x": 1, "x": 2})"));
    EXPECT_EQ(1, number);
    EXPECT_EQ("", Read(group, R"({"x": 1, "x": 2})", true));
    EXPECT_EQ(2, number);
}

} // namespace
