#ifndef VEXA_TESTS_FORMATS_TYPES_TABLE_HOLDERS_H
#define VEXA_TESTS_FORMATS_TYPES_TABLE_HOLDERS_H

#include <array>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

#include "formats/types_table_values.h"

/// \file
/// The rows of what holds other values.

namespace vexa_test::types_table {

struct Point {
    int x = 1;
    int y = 2;
};
VEXA_DESCRIBE(Point, x, y)

struct Shape {
    virtual ~Shape() = default;
};
VEXA_DESCRIBE_CLASS(Shape) { about.Tag("kind"); }
struct Circle : Shape {
    int radius = 3;
};
VEXA_DESCRIBE_CLASS(Circle)
{
    about.Base<Shape>();
    about.TagValue("circle");
    about.Attrib("radius", &Circle::radius);
}

inline CGroup Absent()
{
    using Variant = std::variant<std::monostate, int, std::string>;
    CGroup group{"What may be absent, and what stands behind a pointer", {}};
    group.Rows = {
        TYPE_ROW(vexa::MayNull<int>, 7, {"7", "7", "7", "07"}),
        Row<vexa::MayNull<int>>("vexa::MayNull<int>, null", [](auto&) {}, {"left out", "null", "null", "f6"}),
        TYPE_ROW(std::optional<int>, 7, {"7", "7", "7", "07"}),
        Row<std::optional<int>>("std::optional<int>, empty", [](auto&) {}, {"left out", "null", "null", "f6"}),
        TYPE_ROW(std::unique_ptr<int>, std::make_unique<int>(7), {"7", "7", "7", "07"}),
        Row<std::unique_ptr<int>>("std::unique_ptr<int>, null", [](auto&) {}, {"left out", "null", "null", "f6"}),
        TYPE_ROW(std::shared_ptr<int>, std::make_shared<int>(7), {"7", "7", "7", "07"}),
        Row<std::unique_ptr<Shape>>("std::unique_ptr<Shape> to a Circle",
                                    [](auto& held) { held = std::make_unique<Circle>(); },
                                    {"{}", "{\"kind\":\"circle\",\"radius\":3}", "  kind: circle\n  radius: 3",
                                     "a2 64 6b 69 6e 64 66 63 69 72 63 6c 65 66 72 61 64 69 75 73 03"}),
        Row<std::shared_ptr<Shape>>("std::shared_ptr<Shape> to a Circle",
                                    [](auto& held) { held = std::make_shared<Circle>(); },
                                    {"\"{}\"", "{\"kind\":\"circle\",\"radius\":3}", "  kind: circle\n  radius: 3",
                                     "a2 64 6b 69 6e 64 66 63 69 72 63 6c 65 66 72 61 64 69 75 73 03"}),
        Row<Variant>("std::variant<std::monostate, int, std::string>", [](auto& held) { held = 7; },
                     {"7", "7", "7", "07"}),
        Row<Variant>("the same, empty", [](auto&) {}, {"left out", "null", "null", "f6"}),
    };
    return group;
}

inline CGroup Containers()
{
    CGroup group{"Containers", {}};
    group.Rows = {
        Row<std::vector<int>>("std::vector<int>",
                              [](auto& held) {
                                  held = {1, 2};
                              },
                              {"[1,2]", "[1,2]", "- 1\n- 2", "82 01 02"}),
        Row<std::vector<int>>("std::vector<int>, empty", [](auto&) {}, {"[]", "[]", "[]", "80"}),
        Row<std::vector<bool>>("std::vector<bool>",
                               [](auto& held) {
                                   held = {true, false};
                               },
                               {"\"10\"", "[true,false]", "- true\n- false", "82 f5 f4"}),
        Row<std::list<std::string>>("std::list<std::string>",
                                    [](auto& held) {
                                        held = {"a", "b"};
                                    },
                                    {"[\"a\",\"b\"]", "[\"a\",\"b\"]", "- a\n- b", "82 61 61 61 62"}),
        Row<std::set<int>>("std::set<int>",
                           [](auto& held) {
                               held = {2, 1};
                           },
                           {"[1,2]", "[1,2]", "- 1\n- 2", "82 01 02"}),
        Row<int[2]>("int[2]", [](auto& held) { held[1] = 5; }, {"[0,5]", "[0,5]", "- 0\n- 5", "82 00 05"}),
        Row<std::map<std::string, int>>("std::map<std::string, int>",
                                        [](auto& held) {
                                            held = {{"a", 1}};
                                        },
                                        {"[{\"first\":\"a\",\"second\":1}]", "{\"a\":1}", "  a: 1", "a1 61 61 01"}),
        Row<std::map<int, bool>>("std::map<int, bool>",
                                 [](auto& held) {
                                     held = {{-1, true}};
                                 },
                                 {"[{\"first\":-1,\"second\":true}]", "{\"-1\":true}", "  \"-1\": true", "a1 20 f5"}),
        Row<std::map<Color, int>>("std::map<Color, int>, with names", [](auto& held) { held[Color::red] = 1; },
                                  {"[{\"first\":1,\"second\":1}]", "{\"red\":1}", "  red: 1", "a1 63 72 65 64 01"}),
        Row<std::map<double, int>>(
            "std::map<double, int>",
            [](auto& held) {
                held = {{0.5, 1}};
            },
            {"[{\"first\":0.500000,\"second\":1}]", "[[0.5,1]]", "- - 0.5\n  - 1", "81 82 f9 38 00 01"}),
        Row<std::multimap<std::string, int>>("std::multimap<std::string, int>",
                                             [](auto& held) {
                                                 held = {{"a", 1}, {"a", 2}};
                                             },
                                             {"[{\"first\":\"a\",\"second\":1},{\"first\":\"a\",\"second\":2}]",
                                              "[[\"a\",1],[\"a\",2]]", "- - a\n  - 1\n- - a\n  - 2",
                                              "82 82 61 61 01 82 61 61 02"}),
        Row<std::tuple<int, std::string>>("std::tuple<int, std::string>",
                                          [](auto& held) {
                                              held = {1, "a"};
                                          },
                                          {"\"[1, a]\"", "[1,\"a\"]", "- 1\n- a", "82 01 61 61"}),
        Row<std::pair<int, std::string>>("std::pair<int, std::string>",
                                         [](auto& held) {
                                             held = {1, "a"};
                                         },
                                         {"{\"first\":1,\"second\":\"a\"}", "[1,\"a\"]", "- 1\n- a", "82 01 61 61"}),
    };
    return group;
}

/// What generic objects and groups designate.
inline int number = 7;

inline CGroup Objects()
{
    CGroup group{"Objects and records", {}};
    group.Rows = {
        TYPE_ROW(Point, Point(),
                 {"{\"x\":1,\"y\":2}", "{\"x\":1,\"y\":2}", "  x: 1\n  \"y\": 2", "a2 61 78 01 61 79 02"}),
        Row<vexa::CGnlClass>(
            "vexa::CGnlClass", [](auto& held) { held.Add("n", vexa::RefOf(number)); },
            {"{\"n\":7}", "{\"n\":7}", "  \"n\": 7", "a1 61 6e 07"}, false),
        Row<vexa::CReferenceGroup>(
            "vexa::CReferenceGroup", [](auto& held) { held.Add("n", vexa::RefOf(number)); },
            {"{\"n\":7}", "{\"n\":7}", "  \"n\": 7", "a1 61 6e 07"}, false),
        TYPE_ROW(vexa::CValue, vexa::CValue(7), {"", "7", "7", "07"}),
        Row<vexa::CRow>("vexa::CRow",
                        [](auto& held) {
                            held.Append(vexa::CValue(7));
                            held.Append(vexa::CValue(std::string("a")));
                        },
                        {"", "[7,\"a\"]", "- 7\n- a", "82 07 61 61"}),
        Row<vexa::CTable>("vexa::CTable",
                          [](auto& held) {
                              held.AddColumn(vexa::Enum::DT_LONG, "n");
                              held.AddRow()[0] = 7L;
                          },
                          {"", "[{\"n\":7}]", "- \"n\": 7", "81 a1 61 6e 07"}),
    };
    return group;
}

inline std::vector<CGroup> Groups()
{
    return {Numbers(), Texts(), Times(), Customs(), Absent(), Containers(), Objects()};
}

} // namespace vexa_test::types_table

#endif
