#include <map>
#include <memory>
#include <optional>
#include <variant>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

#include "support/problem_lines.h"

// What descriptions say of classes, types with a structure of their own, tags and unions, when objects are read.

namespace noted {

/// Keeps unknown keys between two others; its name is no key.
struct Keeper {
    int first = 0;
    std::map<std::string, vexa::CRawJson> rest;
    int last = 0;
};
VEXA_DESCRIBE_CLASS(Keeper)
{
    about.UnknownKeys(vexa::UnknownKeys::KEEP);
    about.Attrib("first", &Keeper::first);
    about.Attrib("rest", &Keeper::rest).KeepsUnknown();
    about.Attrib("last", &Keeper::last);
    about.Check([](const Keeper& keeper) {
        if (keeper.last == 9) throw 9;
        return std::string();
    });
}

struct Limits {
    int low = 0;
    int high = 10;
};
struct Server {
    int port = 0;
    std::string host;
    int version = 2;
    std::vector<int> ids;
    Limits limits;
    std::string password;
    std::map<std::string, vexa::CRawJson> others;
};
VEXA_DESCRIBE_CLASS(Limits)
{
    about.Attrib("low", &Limits::low);
    about.Attrib("high", &Limits::high);
    about.Check([](const Limits& limits) { return limits.low <= limits.high; }, "low is above high");
}
VEXA_DESCRIBE_CLASS(Server)
{
    about.Attrib("port", &Server::port).Key("serverPort").Alias("port_no").Required().Range(1, 65535);
    about.Attrib("host", &Server::host).Length(1, 4);
    about.Attrib("version", &Server::version).ReadOnly();
    about.Attrib("ids", &Server::ids).Length(1, 2);
    about.Attrib("limits", &Server::limits).Flatten();
    about.Attrib("password", &Server::password).Masked();
    about.Attrib("others", &Server::others).KeepsUnknown();
}

struct Shape {
    virtual ~Shape() = default;
    virtual double Area() const = 0;
    std::string name;
};
struct Circle : Shape {
    double Area() const override { return r * r; }
    double r = 1;
};
struct Square : Shape {
    double Area() const override { return side * side; }
    double side = 2;
};
struct Drawing {
    std::unique_ptr<Shape> first;
    std::vector<std::shared_ptr<Shape>> others;
    std::variant<std::monostate, long, double, std::string, std::vector<int>> any;
    std::optional<int> depth;
};
VEXA_DESCRIBE_CLASS(Shape)
{
    about.Tag("kind");
    about.Attrib("name", &Shape::name);
}
VEXA_DESCRIBE_CLASS(Circle)
{
    about.template Base<Shape>();
    about.TagValue("circle");
    about.Attrib("r", &Circle::r);
}
VEXA_DESCRIBE_CLASS(Square)
{
    about.template Base<Shape>();
    about.TagValue("square");
    about.Attrib("side", &Square::side);
}
VEXA_DESCRIBE(Drawing, first, others, any, depth)

} // namespace noted

namespace {

template<class T>
std::string Read(T& value, const std::string& text, const vexa::CReadPolicy& policy = {})
{
    return test::ProblemsOf(
        value, [&](T& object, vexa::CReport& report) { return vexa::ReadJson(object, text, report, policy); });
}

TEST(ReadNotes, TakesKeysAliasesAndFlattenedMembers)
{
    noted::Server server;
    EXPECT_EQ("", Read(server, R"({"port_no": 80, "host": "h", "low": 3, "high": 4, "x": {"y": [1]}, "z": null})"));
    EXPECT_EQ(80, server.port);
    EXPECT_EQ(3, server.limits.low);
    ASSERT_EQ(2U, server.others.size());
    EXPECT_EQ("{\"y\": [1]}", server.others["x"].Text());
    EXPECT_EQ("", Read(server, R"({"serverPort": 80, "w": 1})"));
    EXPECT_EQ(1U, server.others.size()) << "those of one object";
    vexa::CReadPolicy policy;
    policy.Unknown = vexa::UnknownKeys::PROBLEM;
    EXPECT_EQ("24 19+3 1:20 class=noted::Server attrib=x excerpt=\"x\" (token)\n",
              Read(server, R"({"serverPort": 80, "x": 2})", policy));
    EXPECT_EQ(1U, server.others.size());
}

TEST(ReadNotes, HoldsBoundsAndRequirements)
{
    noted::Server server;
    const auto codes = [&](const std::string& text) {
        vexa::CReport report;
        vexa::ReadJson(server, text, report);
        std::string list;
        for (const vexa::CProblem& problem : report.Problems())
            list += std::to_string(static_cast<int>(problem.Code)) + ":" + problem.Path + ":" + problem.Attrib + ":" +
                    problem.Expected + ":" + problem.Found + " ";
        return list;
    };
    EXPECT_EQ("26::serverPort:: ", codes("{}"));
    EXPECT_EQ("28:port:port:1 to 65535:0 ", codes(R"({"serverPort": 0})"));
    EXPECT_EQ("29:port:port:1 to 65535:65536 ", codes(R"({"serverPort": 65536})"));
    EXPECT_EQ("30:host:host:at least 1 byte:0 30:ids:ids:at least 1 element:0 33:version:version:: ",
              codes(R"({"serverPort": 1, "host": "", "ids": [], "version": 5})"));
    EXPECT_EQ("31:host:host:at most 4 bytes:5 31:ids:ids:at most 2 elements:3 ",
              codes(R"({"serverPort": 1, "host": "abcde", "ids": [1, 2, 3]})"));
    EXPECT_EQ("40::::low is above high ", codes(R"({"serverPort": 1, "low": 5, "high": 4})"));
    EXPECT_EQ(2, server.version);
}

TEST(ReadNotes, NeverShowsWhatIsConfidential)
{
    noted::Server server;
    EXPECT_EQ("20 30+6 1:31 path=password pointer=/password class=noted::Server attrib=password expected=a string "
              "(nothing)\n"
              "20 46+5 1:47 path=host pointer=/host class=noted::Server attrib=host expected=a string "
              "found=true or false excerpt=false (token)\n",
              Read(server, R"({"serverPort": 1, "password": 123456, "host": false})"));
    vexa::CReport report;
    EXPECT_FALSE(vexa::ReadJson(server, R"({"password": "hush\qhush"})", report));
    EXPECT_EQ(std::string::npos, test::LinesOf(report).find("hush"));
}

TEST(ReadNotes, MakesTheClassOfTheTagWhereverItStands)
{
    noted::Drawing drawing;
    EXPECT_EQ("", Read(drawing, R"({"first": {"kind": "circle", "r": 3}, "others": [{"side": 4, "kind": "square",
        "name": "s"}, null, {"r": 2.50, "name": "c", "kind": "circle"}], "depth": 3})"));
    ASSERT_NE(nullptr, drawing.first);
    EXPECT_EQ(9, drawing.first->Area());
    ASSERT_EQ(3U, drawing.others.size());
    EXPECT_EQ(16, drawing.others[0]->Area());
    EXPECT_EQ("s", drawing.others[0]->name);
    EXPECT_EQ(nullptr, drawing.others[1]);
    EXPECT_EQ(6.25, drawing.others[2]->Area());
    const noted::Shape* const before = drawing.first.get();
    EXPECT_EQ("", Read(drawing, R"({"first": {"name": "n"}})"));
    EXPECT_EQ("", Read(drawing, R"({"first": {"name": "m", "kind": "circle"}})"));
    EXPECT_EQ(before, drawing.first.get());
    EXPECT_EQ(9, drawing.first->Area());
    EXPECT_EQ("", Read(drawing, R"({"first": {"kind": "square"}})"));
    EXPECT_EQ(4, drawing.first->Area());
    EXPECT_EQ("", drawing.first->name);
}

TEST(ReadNotes, TellsTagsThatNoClassHas)
{
    noted::Drawing drawing;
    EXPECT_EQ("36 19+8 1:20 path=first pointer=/first class=noted::Shape attrib=kind "
              "expected=one of \"circle\", \"square\" found=\"cirkle\" nearest=circle "
              "excerpt={\"first\": {\"kind\": \"cirkle\", \"r\": 1}}\n",
              Read(drawing, R"({"first": {"kind": "cirkle", "r": 1}})"));
    EXPECT_EQ("37 10+1 1:11 path=first pointer=/first class=noted::Shape attrib=kind "
              "expected=one of \"circle\", \"square\" excerpt={\"first\": {\"r\": 1}}\n",
              Read(drawing, R"({"first": {"r": 1}})"));
    EXPECT_EQ(nullptr, drawing.first);
}

TEST(ReadNotes, TakesTheOneAlternativeThatFits)
{
    noted::Drawing drawing;
    const auto index = [&](const std::string& value) {
        const std::string problems = Read(drawing, "{\"any\": " + value + "}");
        return problems.empty() ? std::to_string(drawing.any.index()) : problems;
    };
    EXPECT_EQ("1", index("5"));
    EXPECT_EQ("2", index("5.5"));
    EXPECT_EQ("2", index("1e300"));
    EXPECT_EQ("3", index("\"x\""));
    EXPECT_EQ("4", index("[1, 2]"));
    EXPECT_EQ("0", index("null"));
    EXPECT_EQ("38 8+4 1:9 path=any pointer=/any class=noted::Drawing attrib=any excerpt={\"any\": true}\n",
              index("true"));
    EXPECT_EQ("20 12+3 1:13 path=any[1] pointer=/any/1 expected=an integer found=a string "
              "excerpt={\"any\": [1, \"a\"]}\n",
              index("[1, \"a\"]"));
}

TEST(ReadNotes, KeepsAnUnknownKeyThatIsNamedLikeItsKeeper)
{
    noted::Keeper keeper;
    for (const char* const text : {R"({"first":1,"rest":[2],"last":3})", R"({"rest":[2],"first":1,"last":3})",
                                   R"({"first":1,"\u0072est":[2],"last":3})"}) {
        EXPECT_EQ("", Read(keeper, text));
        EXPECT_EQ(R"({"first":1,"rest":[2],"last":3})", vexa::WriteJson(keeper)) << text;
    }
}

TEST(ReadNotes, TellsAnythingThatACheckThrows)
{
    noted::Keeper keeper;
    EXPECT_EQ("40 0+1 1:1 class=noted::Keeper found=an exception excerpt={\"last\":9}\n",
              Read(keeper, R"({"last":9})"));
}

/// Whichever of the keys it is.
TEST(ReadNotes, ATagThatIsNoTextIsToldAsWhatItIs)
{
    std::unique_ptr<noted::Shape> shape;
    EXPECT_EQ(0U, Read(shape, R"({"kind": 5})")
                      .find("36 9+1 1:10 class=noted::Shape attrib=kind expected=one of \"circle\", \"square\" found=a "
                            "number"));
    EXPECT_EQ(0U, Read(shape, R"({"r": 1, "kind": [5]})")
                      .find("36 17+1 1:18 class=noted::Shape attrib=kind expected=one of \"circle\", \"square\" "
                            "found=an array"));
    EXPECT_EQ(nullptr, shape);
}

} // namespace
