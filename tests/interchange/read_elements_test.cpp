#include <array>
#include <cstddef>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

#include "support/problem_lines.h"

// How many elements and entries a text may have: the same whether it lies in memory, comes in pieces or as events.

namespace counted {

struct Shape {
    virtual ~Shape() = default;
};
struct Polygon : Shape {
    std::vector<int> corners;
    std::string colour;
};
VEXA_DESCRIBE_CLASS(Shape) { about.Tag("kind"); }
VEXA_DESCRIBE_CLASS(Polygon)
{
    about.Base<Shape>();
    about.TagValue("polygon");
    about.Attrib("corners", &Polygon::corners);
    about.Attrib("colour", &Polygon::colour);
}

struct Everything {
    int a = 0;
    int b = 0;
    std::vector<int> numbers;
    std::vector<std::string> texts;
    std::vector<std::vector<bool>> bits;
    std::set<int> set;
    std::map<std::string, int> map;
    std::map<double, int> pairs;
    std::array<int, 2> places{};
    std::unique_ptr<Shape> shape;
    std::variant<std::vector<int>, std::vector<std::string>> either;
    vexa::CRow row;
    vexa::CTable table;
    vexa::CJsonTree tree;
    vexa::CRawJson raw;
    std::map<std::string, vexa::CRawJson> others;
};
VEXA_DESCRIBE_CLASS(Everything)
{
    about.Attrib("a", &Everything::a);
    about.Attrib("b", &Everything::b);
    about.Attrib("numbers", &Everything::numbers);
    about.Attrib("texts", &Everything::texts);
    about.Attrib("bits", &Everything::bits);
    about.Attrib("set", &Everything::set);
    about.Attrib("map", &Everything::map);
    about.Attrib("pairs", &Everything::pairs);
    about.Attrib("places", &Everything::places);
    about.Attrib("shape", &Everything::shape);
    about.Attrib("either", &Everything::either);
    about.Attrib("row", &Everything::row);
    about.Attrib("table", &Everything::table);
    about.Attrib("tree", &Everything::tree);
    about.Attrib("raw", &Everything::raw);
    about.Attrib("others", &Everything::others).KeepsUnknown();
}

} // namespace counted

namespace {

using counted::Everything;

vexa::CReadPolicy AtMost(std::size_t count)
{
    vexa::CReadPolicy policy;
    policy.MaxElements = count;
    return policy;
}

std::string Read(const std::string& text, std::size_t most)
{
    Everything object;
    return test::ProblemsOf(object, [&](Everything& read, vexa::CReport& report) {
        return vexa::ReadJson(read, text, report, AtMost(most));
    });
}

std::string ReadBytes(const std::string& text, std::size_t most)
{
    Everything object;
    std::size_t next = 0;
    vexa::CReport report;
    const vexa::InputFunction input = [&]() -> std::string_view {
        return next < text.size() ? std::string_view(&text[next++], 1) : std::string_view();
    };
    vexa::ReadJson(object, input, report, AtMost(most));
    return test::LinesOf(report);
}

std::string ReadEvents(const std::string& text, std::size_t most)
{
    Everything object;
    vexa::CReport report;
    const auto source = vexa::JsonEvents(text);
    vexa::ReadEvents(object, *source, report, AtMost(most));
    return test::LinesOf(report);
}

struct CCase {
    const char* Text;
    std::size_t Count; ///< elements and entries that the text has
};

constexpr CCase CASES[] = {
    {R"({"a": 1, "b": 2})", 0},
    {R"({"numbers": [1, 2, 3]})", 3},
    {R"({"texts": ["x", "y"]})", 2},
    {R"({"bits": [[true, false], []]})", 4},
    {R"({"set": [1, 1, 2]})", 3},
    {R"({"map": {"x": 1, "y": 2}})", 2},
    {R"({"pairs": [[0.5, 1]]})", 3},
    {R"({"places": [1, 2]})", 2},
    {R"({"shape": {"kind": "polygon", "corners": [1, 2], "colour": "red"}})", 2},
    {R"({"shape": {"corners": [1, 2], "colour": "red", "kind": "polygon"}})", 2},
    {R"({"either": ["1", "2"], "numbers": [3]})", 3},
    {R"({"row": [1, "2"]})", 2},
    {R"({"table": [{"x": 1, "y": 2}, {"x": 3}]})", 5},
    {R"({"tree": [{"x": [1, 2]}, {}]})", 5},
    {R"({"raw": [1, {"x": [2, 3]}]})", 0},
    {R"({"else": [1, 2], "more": 3})", 2},
    {R"({"numbers": [1], "map": {"x": 1}, "texts": ["x"], "a": 1})", 3},
};

TEST(ReadElements, AreCountedOverTheWholeText)
{
    for (const CCase& one : CASES) {
        EXPECT_EQ("", Read(one.Text, one.Count)) << one.Text;
        EXPECT_EQ("", ReadBytes(one.Text, one.Count)) << one.Text;
        EXPECT_EQ("", ReadEvents(one.Text, one.Count)) << one.Text;
        for (std::size_t most = 0; most < one.Count; ++most) {
            const std::string expected =
                "expected=at most " + std::to_string(most) + " element" + (most == 1 ? "" : "s");
            for (const std::string& found :
                 {Read(one.Text, most), ReadBytes(one.Text, most), ReadEvents(one.Text, most)}) {
                EXPECT_EQ(0U, found.find("10 ")) << one.Text << most << found;
                EXPECT_NE(std::string::npos, found.find(expected)) << one.Text << found;
                EXPECT_EQ(found.size() - 1, found.find('\n')) << one.Text << found;
            }
        }
    }
}

TEST(ReadElements, ThatAreTooManyEndTheReading)
{
    Everything object;
    vexa::CReport report;
    EXPECT_FALSE(vexa::ReadJson(object, R"({"a": 1, "numbers": [7, 8, 9], "b": 2, "none": 0})", report, AtMost(2)));
    EXPECT_EQ("10 27+1 1:28 path=numbers[2] pointer=/numbers/2 expected=at most 2 elements "
              "excerpt={\"a\": 1, \"numbers\": [7, 8, 9], \"b\": 2, \"none\": 0}\n",
              test::LinesOf(report));
    EXPECT_EQ((std::vector<int>{7, 8}), object.numbers);
    EXPECT_EQ(1, object.a);
    EXPECT_EQ(0, object.b);

    EXPECT_EQ("10 22+1 1:23 path=map[\"y\"] pointer=/map/y expected=at most 1 element "
              "excerpt={\"map\": {\"x\": 1, \"y\": 2}, \"none\": 0}\n",
              Read(R"({"map": {"x": 1, "y": 2}, "none": 0})", 1));
}

/// Told as what it is, and not as a value that no alternative takes.
TEST(ReadElements, ThatAreTooManyAreNoMatterOfTheAlternative)
{
    EXPECT_EQ("10 17+1 1:18 path=either pointer=/either class=counted::Everything attrib=either expected=at most 1 "
              "element excerpt={\"either\": [\"1\", \"2\"]}\n",
              Read(R"({"either": ["1", "2"]})", 1));
}

TEST(ReadElements, OfATreeAreBoundedToo)
{
    vexa::CJsonTree tree;
    vexa::CReport report;
    EXPECT_FALSE(tree.Parse(R"([1, {"x": 2}])", report, AtMost(2)));
    EXPECT_TRUE(tree.Parse(R"([1, {"x": 2}])", report, AtMost(3)));
}

/// Input without end must end the reading, wherever its elements are kept meanwhile.
TEST(ReadElements, WithoutEndAreNotKept)
{
    for (const std::string start :
         {R"({"numbers": [)", R"({"shape": {"corners": [)", R"({"either": [)", R"({"tree": [)"}) {
        std::size_t asked = 0;
        vexa::CReport report;
        Everything object;
        const vexa::InputFunction input = [&]() -> std::string_view {
            return asked++ == 0 ? std::string_view(start) : asked < 5000 ? "1," : "";
        };
        EXPECT_FALSE(vexa::ReadJson(object, input, report, AtMost(100)));
        EXPECT_EQ(vexa::ProblemCode::TOO_LONG, report.Problems().at(0).Code) << start;
        EXPECT_GT(120U, asked) << start;
    }
}

} // namespace
