#include <memory>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

#include "support/given_events.h"
#include "support/problem_lines.h"

// What a reading may cost: bounds by policy, deep texts, variants in variants; and sources that break their word.

namespace bounds {

struct Node;
struct Leaf {
    int value = 0;
};
struct Node {
    std::unique_ptr<Node> next;
    std::vector<std::variant<Leaf, Node>> inner;
};
VEXA_DESCRIBE(Leaf, value)
VEXA_DESCRIBE(Node, next, inner)

} // namespace bounds

namespace {

template<class T>
std::string Read(T& value, const std::string& text, const vexa::CReadPolicy& policy = {})
{
    return test::ProblemsOf(
        value, [&](T& object, vexa::CReport& report) { return vexa::ReadJson(object, text, report, policy); });
}

std::string Nested(std::size_t depth)
{
    std::string text;
    for (std::size_t i = 0; i + 1 < depth; ++i)
        text += "{\"next\":";
    text += "{}";
    return text + std::string(depth - 1, '}');
}

TEST(ReadBounds, HoldsTheDepth)
{
    bounds::Node node;
    EXPECT_EQ("", Read(node, Nested(1000)));
    EXPECT_NE(std::string::npos, Read(node, Nested(1001)).find("9 8000+1 "));
    vexa::CReadPolicy policy;
    policy.MaxDepth = 2;
    std::vector<std::vector<std::vector<int>>> deep;
    EXPECT_EQ("", Read(deep, "[[]]", policy));
    EXPECT_EQ("9 2+1 1:3", Read(deep, "[[[1]]]", policy).substr(0, 9));
}

/// Two alternatives that are tried at every level would be 2 to the power of 60 tries.
TEST(ReadBounds, TriesAlternativesOfAlternativesOnce)
{
    std::string text = "{\"value\": 1}";
    for (int i = 0; i < 60; ++i)
        text = "{\"inner\": [" + text + "]}";
    bounds::Node node;
    EXPECT_EQ("", Read(node, text));
    const bounds::Node* innermost = &node;
    int depth = 1;
    for (; innermost->inner[0].index() == 1; ++depth)
        innermost = &std::get<1>(innermost->inner[0]);
    EXPECT_EQ(60, depth);
    EXPECT_EQ(1, std::get<0>(innermost->inner[0]).value);
}

using test::CGivenEvents;
using test::Event;

std::string ReadGiven(std::vector<vexa::CEvent> events, const vexa::CReadPolicy& policy = {})
{
    CGivenEvents source(std::move(events));
    std::vector<std::string> texts;
    vexa::CReport report;
    vexa::ReadEvents(texts, source, report, policy);
    std::string lines = test::LinesOf(report);
    for (const std::string& text : texts)
        lines += text + "|";
    return lines;
}

TEST(ReadBounds, HoldsThoseOfThePolicyForEveryFormat)
{
    using Kind = vexa::EventKind;
    const std::vector<vexa::CEvent> events = {Event(Kind::BEGIN_ARRAY), Event(Kind::STRING, "abc"),
                                              Event(Kind::STRING, "d"), Event(Kind::END_ARRAY)};
    EXPECT_EQ("abc|d|", ReadGiven(events));
    vexa::CReadPolicy policy;
    policy.MaxElements = 1;
    EXPECT_EQ("10 2+1 0:0 path=[1] pointer=/1 expected=at most 1 element\nabc|", ReadGiven(events, policy));
    policy = {};
    policy.MaxTextLength = 2;
    EXPECT_EQ("10 1+1 0:0 path=[0] pointer=/0 expected=at most 2 bytes\n", ReadGiven(events, policy));
    policy = {};
    policy.MaxBytes = 2;
    EXPECT_EQ("10 2+1 0:0", ReadGiven(events, policy).substr(0, 10));
    policy = {};
    policy.MaxDepth = 0;
    EXPECT_EQ("9 0+1 0:0 expected=at most 0 levels\n", ReadGiven(events, policy));
}

/// The keys that come as expected are no longer than others.
TEST(ReadBounds, HoldTheLengthOfEveryKey)
{
    bounds::Leaf leaf;
    vexa::CReadPolicy policy;
    policy.MaxTextLength = 5;
    EXPECT_EQ("", Read(leaf, R"({"value": 1})", policy));
    policy.MaxTextLength = 4;
    EXPECT_EQ("10 1+1 1:2 expected=at most 4 bytes", Read(leaf, R"({"value": 2})", policy).substr(0, 35));
    EXPECT_EQ("10 2+1 1:3 expected=at most 4 bytes", Read(leaf, R"({ "value": 2})", policy).substr(0, 35));
    EXPECT_EQ(1, leaf.value);
}

TEST(ReadBounds, ChecksTheTextsOfEveryFormat)
{
    using Kind = vexa::EventKind;
    const std::vector<vexa::CEvent> events = {Event(Kind::BEGIN_ARRAY), Event(Kind::STRING, "a\xFF"),
                                              Event(Kind::END_ARRAY)};
    EXPECT_EQ("8 1+1 0:0", ReadGiven(events).substr(0, 9));
    vexa::CReadPolicy policy;
    policy.Text = vexa::BadText::LATIN_1;
    EXPECT_EQ("a\xC3\xBF|", ReadGiven(events, policy));
    policy.Text = vexa::BadText::REPLACE;
    EXPECT_EQ("a\xEF\xBF\xBD|", ReadGiven(events, policy));
}

TEST(ReadBounds, EndsWhereASourceBreaksItsWord)
{
    using Kind = vexa::EventKind;
    EXPECT_EQ("1 1+1 0:0", ReadGiven({Event(Kind::BEGIN_ARRAY), Event(Kind::END_OBJECT)}).substr(0, 9));
    EXPECT_EQ("1 1+1 0:0", ReadGiven({Event(Kind::BEGIN_ARRAY), Event(Kind::KEY, "k")}).substr(0, 9));
    EXPECT_EQ("1 1+1 0:0", ReadGiven({Event(Kind::BEGIN_ARRAY)}).substr(0, 9));
    EXPECT_EQ("3 2+1 0:0",
              ReadGiven({Event(Kind::BEGIN_ARRAY), Event(Kind::END_ARRAY), Event(Kind::BOOL)}).substr(0, 9));
    EXPECT_EQ("1 0+1 0:0", ReadGiven({Event(Kind::END_ARRAY)}).substr(0, 9));
}

/// What a problem tells but the line of the text, which is not at hand where that comes as events.
std::string WayOf(const vexa::CReport& report)
{
    const vexa::CProblem& problem = report.Problems().at(0);
    return std::to_string(static_cast<int>(problem.Code)) + ' ' + std::to_string(problem.Place.Offset) + ' ' +
           problem.Path + ' ' + problem.Pointer;
}

TEST(ReadBounds, TellsTheWayToABrokenElementFromEverySource)
{
    using Lists = std::vector<std::vector<int>>;
    for (const std::string text :
         {"[[1], x]", "[[1, 2, x]]", "[[1], [2 3]]", "[[1], [2,]]", "[x", "[[1],", "[[01]]", "[[1] 2"}) {
        Lists numbers;
        vexa::CReport whole, events, bytes;
        EXPECT_FALSE(vexa::ReadJson(numbers, text, whole));
        const auto source = vexa::JsonEvents(text);
        Lists others;
        EXPECT_FALSE(vexa::ReadEvents(others, *source, events));
        std::size_t next = 0;
        const vexa::InputFunction input = [&]() -> std::string_view {
            return next < text.size() ? std::string_view(&text[next++], 1) : std::string_view();
        };
        EXPECT_FALSE(vexa::ReadJson(others, input, bytes));
        EXPECT_EQ(WayOf(whole), WayOf(events)) << text;
        EXPECT_EQ(WayOf(whole), WayOf(bytes)) << text;
    }
}

} // namespace
