#include <algorithm>
#include <list>
#include <map>
#include <memory>
#include <set>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/vexa.h>

#include "support/problem_lines.h"

// Objects out of JSON: keys, nulls, containers, and where problems are said to be.

namespace shop {

enum class Color { red, green = 5, blue };

struct Address {
    std::string street = "none";
    std::string zip;
};
struct Item {
    std::string name;
    int count = 1;
    std::vector<double> prices;
};
struct Order {
    long id = 0;
    Address address;
    std::vector<Item> items;
    std::map<std::string, Address> others;
    Color color = Color::red;
    vexa::MayNull<int> discount;
    std::unique_ptr<Address> billing;
    int pair[2] = {0, 0};
    char code[4] = {};
};

VEXA_DESCRIBE_ENUM(Color, red, green, blue)
VEXA_DESCRIBE(Address, street, zip)
VEXA_DESCRIBE(Item, name, count, prices)
VEXA_DESCRIBE(Order, id, address, items, others, color, discount, billing, pair, code)

} // namespace shop

namespace {

template<class T>
std::string Read(T& value, const std::string& text, const vexa::CReadPolicy& policy = {})
{
    return test::ProblemsOf(
        value, [&](T& object, vexa::CReport& report) { return vexa::ReadJson(object, text, report, policy); });
}

TEST(ReadClass, FillsWhatTheTextNamesAndLeavesTheRest)
{
    shop::Order order;
    order.id = 3;
    order.address.zip = "89073";
    order.items.resize(2);
    order.items[0].prices = {1, 2};
    order.others["old"].zip = "1";
    EXPECT_EQ("", Read(order, R"({"address": {"street": "Lane"}, "items": [{"name": "pen", "prices": [1.5, 2e1]}, {}],
        "others": {"a b": {"zip": "7"}, "c": {}}, "color": "green", "discount": 5, "billing": {"zip": "8"},
        "pair": [4, 5], "code": "abc"})"));
    EXPECT_EQ(3, order.id);
    EXPECT_EQ("Lane", order.address.street);
    EXPECT_EQ("89073", order.address.zip);
    ASSERT_EQ(2U, order.items.size());
    EXPECT_EQ("pen", order.items[0].name);
    EXPECT_EQ(1, order.items[0].count) << "elements are new, with what their initialisers say";
    EXPECT_EQ((std::vector<double>{1.5, 20}), order.items[0].prices);
    EXPECT_TRUE(order.items[1].prices.empty());
    ASSERT_EQ(2U, order.others.size());
    EXPECT_EQ("7", order.others["a b"].zip);
    EXPECT_EQ("none", order.others["c"].street);
    EXPECT_EQ(shop::Color::green, order.color);
    EXPECT_EQ(5, *order.discount);
    EXPECT_EQ("8", order.billing->zip);
    EXPECT_EQ("none", order.billing->street);
    EXPECT_EQ(5, order.pair[1]);
    EXPECT_STREQ("abc", order.code);
}

TEST(ReadClass, FillsTheObjectBehindAPointer)
{
    shop::Order order;
    order.billing = std::make_unique<shop::Address>();
    order.billing->zip = "5";
    const shop::Address* const before = order.billing.get();
    EXPECT_EQ("", Read(order, R"({"billing": {"street": "s"}, "discount": 6})"));
    EXPECT_EQ(before, order.billing.get());
    EXPECT_EQ("5", order.billing->zip);
    EXPECT_EQ("", Read(order, R"({"billing": null, "discount": null})"));
    EXPECT_EQ(nullptr, order.billing);
    EXPECT_FALSE(order.discount.has_value());
}

TEST(ReadClass, TellsAnUnknownKeyWithTheNearest)
{
    shop::Order order;
    EXPECT_EQ("24 33+6 3:8 path=items[1] pointer=/items/1 class=shop::Item attrib=coun nearest=count "
              "excerpt=      {\"coun\": [1, {\"x\": 2}]}]}\n",
              Read(order, "{\"items\": [\n{\"count\": 1},\n      {\"coun\": [1, {\"x\": 2}]}]}"));
    EXPECT_EQ(2U, order.items.size());
    vexa::CReadPolicy policy;
    policy.Unknown = vexa::UnknownKeys::SKIP;
    EXPECT_EQ("", Read(order, R"({"nothing": [1, {"x": "y"}], "id": 9})", policy));
    EXPECT_EQ(9, order.id);
}

TEST(ReadClass, TellsADuplicateWithItsFirstPlace)
{
    shop::Order order;
    EXPECT_EQ("25 10+4 1:11 second=1+4 1:2 path=id pointer=/id class=shop::Order attrib=id "
              "excerpt={\"id\": 1, \"id\": 2}\n",
              Read(order, R"({"id": 1, "id": 2})"));
    EXPECT_EQ(1, order.id);
    vexa::CReadPolicy policy;
    policy.LastDuplicateWins = true;
    EXPECT_EQ("", Read(order, R"({"id": 1, "id": 2, "others": {"a": {"zip": "1"}, "a": {"street": "2"}}})", policy));
    EXPECT_EQ(2, order.id);
    EXPECT_EQ("", order.others["a"].zip);
    EXPECT_EQ("2", order.others["a"].street);
}

TEST(ReadClass, TellsADuplicateKeyOfAMap)
{
    shop::Order order;
    EXPECT_EQ("25 21+3 1:22 path=others[\"a\"] pointer=/others/a excerpt={\"others\": {\"a\": {}, \"a\": {}}}\n",
              Read(order, R"({"others": {"a": {}, "a": {}}})"));
}

TEST(ReadClass, TellsTheWayThroughContainersAndMaps)
{
    shop::Order order;
    EXPECT_EQ("20 33+1 1:34 path=others[\"x/~y\"].zip pointer=/others/x~1~0y/zip class=shop::Address attrib=zip "
              "expected=a string found=a number excerpt=thers\": {     \"x/~y\": {\"zip\": 1}}, \"items\": "
              "[{\"prices\": [1, \n"
              "20 63+4 1:64 path=items[0].prices[1] pointer=/items/0/prices/1 expected=a number found=true or false "
              "excerpt={     \"x/~y\": {\"zip\": 1}}, \"items\": [{\"prices\": [1, true]}]}\n",
              Read(order, R"({"others": {     "x/~y": {"zip": 1}}, "items": [{"prices": [1, true]}]})"));
    EXPECT_EQ((std::vector<double>{1, 0}).size(), order.items[0].prices.size());
}

TEST(ReadClass, GoesOnBehindEveryProblemOfMeaning)
{
    shop::Order order;
    vexa::CReport report;
    EXPECT_FALSE(vexa::ReadJson(order, R"({"id": "x", "color": "gren", "discount": [], "pair": [1], "code": "abcde",
        "billing": 4, "address": null, "items": {}})",
                                report));
    std::string codes;
    for (const vexa::CProblem& problem : report.Problems())
        codes += std::to_string(static_cast<int>(problem.Code)) + ":" + problem.Path + " ";
    EXPECT_EQ("20:id 27:color 20:discount 42:pair 41:code 20:billing 32:address 20:items ", codes);
    EXPECT_EQ("green", report.Problems()[1].Nearest);
    EXPECT_FALSE(order.discount.has_value());
    EXPECT_EQ(1, order.pair[0]);
}

TEST(ReadClass, EndsAtAProblemOfGrammar)
{
    shop::Order order;
    vexa::CReport report;
    EXPECT_FALSE(vexa::ReadJson(order, R"({"id": 4, "address": {"zip": "1" "street": "2"}})", report));
    ASSERT_EQ(1U, report.Problems().size());
    EXPECT_EQ(vexa::ProblemCode::SYNTAX, report.Problems()[0].Code);
    EXPECT_EQ("address", report.Problems()[0].Path.substr(0, 7));
    EXPECT_EQ(4, order.id);
    EXPECT_EQ("1", order.address.zip);
}

TEST(ReadClass, CountsTheElementsOfFixedArrays)
{
    shop::Order order;
    EXPECT_EQ("41 16+1 1:17 path=pair[2] pointer=/pair/2 expected=2 elements excerpt={\"pair\": [1, 2, 3, 4]}\n",
              Read(order, R"({"pair": [1, 2, 3, 4]})"));
    EXPECT_EQ("42 11+1 1:12 path=pair pointer=/pair class=shop::Order attrib=pair expected=2 elements found=1 "
              "excerpt={\"pair\": [7]}\n",
              Read(order, R"({"pair": [7]})"));
    EXPECT_EQ(7, order.pair[0]);
}

TEST(ReadClass, TakesContainersOfEveryKind)
{
    std::list<int> list{9};
    EXPECT_EQ("", Read(list, "[1, 2, 3]"));
    EXPECT_EQ((std::list<int>{1, 2, 3}), list);
    std::set<std::string> set{"z"};
    EXPECT_EQ("", Read(set, R"(["b", "a", "b"])"));
    EXPECT_EQ((std::set<std::string>{"a", "b"}), set);
    std::map<int, std::string> map;
    EXPECT_EQ("", Read(map, R"({"-1": "x", "20": "y"})"));
    EXPECT_EQ((std::map<int, std::string>{{-1, "x"}, {20, "y"}}), map);
    std::map<shop::Color, int> colors;
    EXPECT_EQ("", Read(colors, R"({"blue": 1, "5": 2, "77": 3})"));
    EXPECT_EQ((std::map<shop::Color, int>{{shop::Color::blue, 1}, {shop::Color::green, 2}, {shop::Color(77), 3}}),
              colors);
    std::map<double, int> pairs;
    EXPECT_EQ("", Read(pairs, "[[1.5, 2], [2.5, 3]]"));
    EXPECT_EQ((std::map<double, int>{{1.5, 2}, {2.5, 3}}), pairs);
    std::multimap<std::string, int> multi;
    EXPECT_EQ("", Read(multi, R"([["a", 1], ["a", 2]])"));
    EXPECT_EQ(2U, multi.count("a"));
    std::bitset<10> bits;
    EXPECT_EQ("", Read(bits, "\"1000000011\""));
    EXPECT_EQ(515U, bits.to_ulong());
    std::vector<std::vector<int>> nested{{1}};
    EXPECT_EQ("", Read(nested, "[[1, 2], [], [3]]"));
    EXPECT_EQ((std::vector<std::vector<int>>{{1, 2}, {}, {3}}), nested);
}

TEST(ReadClass, LeavesOutWhatCannotBeInserted)
{
    std::map<int, int> map;
    EXPECT_EQ(
        "23 1+3 1:2 path=[a] pointer=/a expected=an integer found=\"a\" excerpt={\"a\": 1, \"2\": \"x\", \"3\": 3}\n"
        "20 14+3 1:15 path=[2] pointer=/2 expected=an integer found=a string "
        "excerpt={\"a\": 1, \"2\": \"x\", \"3\": 3}\n",
        Read(map, R"({"a": 1, "2": "x", "3": 3})"));
    EXPECT_EQ((std::map<int, int>{{3, 3}}), map);
    std::set<int> set;
    EXPECT_EQ("20 4+1 1:5 path=[1] pointer=/1 expected=an integer found=an array excerpt=[1, [], 3]\n",
              Read(set, "[1, [], 3]"));
    EXPECT_EQ((std::set<int>{1, 3}), set);
}

/// What is read from a text in pieces of so many bytes.
TEST(ReadClass, ReadsTheSameInPieces)
{
    const std::string text = R"({"id": 12345, "address": {"street": "a \u00e4 b", "zip": 5}, "items": [{"name": "pen",
        "prices": [1.5, 2e1, null]}, {"nam": 1}], "others": {"k\n": {"zip": "7"}}, "color": "gren", "pair": [1, 2]})";
    shop::Order whole;
    const std::string expected = Read(whole, text);
    ASSERT_EQ(4, std::count(expected.begin(), expected.end(), '\n')) << expected;
    for (std::size_t size = 1; size <= text.size(); ++size) {
        shop::Order order;
        std::size_t next = 0;
        const vexa::InputFunction input = [&] {
            const std::string_view piece = std::string_view(text).substr(std::min(next, text.size()), size);
            next += size;
            return piece;
        };
        vexa::CReport report;
        vexa::CReport wholeReport;
        EXPECT_FALSE(vexa::ReadJson(order, input, report));
        shop::Order again;
        vexa::ReadJson(again, text, wholeReport);
        EXPECT_EQ(vexa::WriteJson(whole), vexa::WriteJson(order));
        ASSERT_EQ(wholeReport.Problems().size(), report.Problems().size());
        for (std::size_t i = 0; i < report.Problems().size(); ++i) {
            vexa::CProblem problem = wholeReport.Problems()[i];
            EXPECT_EQ(problem.Sentence(), report.Problems()[i].Sentence());
            EXPECT_EQ(problem.Pointer, report.Problems()[i].Pointer);
            EXPECT_EQ(problem.Place.Offset, report.Problems()[i].Place.Offset);
            EXPECT_EQ(problem.Place.Line, report.Problems()[i].Place.Line);
            EXPECT_EQ(problem.Place.Column, report.Problems()[i].Place.Column);
        }
    }
}

} // namespace
