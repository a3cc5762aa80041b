// The text of types with a structure that are one value to the required functions: a line, whatever lies inside.

#include <bitset>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/types.h>
#include <vexa/vexa.h>

namespace one_line {

struct Inner {
    int number = 1;
    std::string text = "a b";
    char code[4] = {'x', 'y', 0, 0};
    std::bitset<3> bits = 5;
    std::string secret = "hidden";
    std::unique_ptr<int> none;
};
VEXA_DESCRIBE_CLASS(Inner)
{
    about.Attrib("number", &Inner::number);
    about.Attrib("text", &Inner::text);
    about.Attrib("code", &Inner::code);
    about.Attrib("bits", &Inner::bits);
    about.Attrib("secret", &Inner::secret).Masked();
    about.Attrib("none", &Inner::none);
}

struct Node {
    int number = 0;
    std::shared_ptr<Node> next;
    std::optional<std::vector<std::shared_ptr<Node>>> others;
};
VEXA_DESCRIBE(Node, number, next, others)

} // namespace one_line

namespace {

using one_line::Inner;

template<class T>
std::string Line(const T& object)
{
    return vexa::AsString(object);
}

TEST(OneLine, HasBasicValuesAsTheyAre)
{
    EXPECT_EQ(Line(std::tuple<int, std::string, bool>(7, "a, b", true)), "[7, a, b, true]");
    EXPECT_EQ((Line(std::optional<std::tuple<int, double>>({7, 0.5}))), "[7, 0.500000]");
    EXPECT_EQ((Line(std::tuple<std::optional<int>, std::unique_ptr<int>>())), "[NULL, NULL]");
    EXPECT_EQ((Line(std::tuple<std::variant<std::monostate, int>, int>())), "[NULL, 0]");
    EXPECT_EQ((Line(std::tuple<>())), "[]");
}

TEST(OneLine, HasClassesWithTheirNames)
{
    EXPECT_EQ(Line(std::optional<Inner>(Inner())),
              "{number: 1, text: a b, code: xy, bits: 101, secret: ***, none: NULL}");
}

TEST(OneLine, HasContainersOfThem)
{
    std::optional<std::map<std::string, std::vector<int>>> map;
    map.emplace();
    (*map)["a"] = {1, 2};
    (*map)["b"] = {};
    EXPECT_EQ(Line(map), "[{first: a, second: [1, 2]}, {first: b, second: []}]");
}

TEST(OneLine, HasValuesOfAnyTypeRecordsAndGroups)
{
    int number = 3;
    std::tuple<vexa::CValue, vexa::CGnlClass, vexa::CReferenceGroup> parts;
    std::get<0>(parts) = std::string("v");
    std::get<1>(parts).Add("number", vexa::RefOf(number));
    std::get<1>(parts).Add(vexa::RefOf(number));
    std::get<2>(parts).Add(vexa::RefOf(number));
    EXPECT_EQ(Line(parts), "[v, {number: 3, 3}, {3}]");
}

TEST(OneLine, HasShapesInside)
{
    std::tuple<signed char, std::chrono::seconds, std::vector<bool>, std::filesystem::path> parts(
        static_cast<signed char>(-1), 60, std::vector<bool>{true, false}, "/tmp/a");
    EXPECT_EQ(Line(parts), "[-1, 60, 10, /tmp/a]");
}

TEST(OneLine, EndsWhereAPointerLeadsBack)
{
    auto node = std::make_shared<one_line::Node>();
    node->next = node;
    const std::string line = Line(std::tuple<std::shared_ptr<one_line::Node>>(node));
    EXPECT_EQ(line, "[{number: 0, next: , others: NULL}]");
    node->next.reset();
}

} // namespace
