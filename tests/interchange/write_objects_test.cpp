// Objects as JSON by the notes of their classes and by policies: whole outputs.

#include <vexa/interchange.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>

#include <map>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

namespace write_objects_test {

using vexa::CReport;
using vexa::CWritePolicy;
using vexa::MaskedValues;
using vexa::ProblemCode;
using vexa::WriteJson;

struct Address {
    std::string city = "Bonn";
    int zip = 0;
};
VEXA_DESCRIBE(Address, city, zip)

struct Account {
    std::string user_name = "ann";
    std::string password = "geheim";
    std::map<std::string, double> secrets{{"key", 0.5}};
    int port = 80;
    vexa::MayNull<int> limit;
    Address address;
    std::string input = "only read";
    std::map<std::string, vexa::CRawJson> rest;
    std::vector<int> last{1};
};
VEXA_DESCRIBE_CLASS(Account)
{
    about.KeyStyle(vexa::KeyStyle::CAMEL);
    about.Attrib("user_name", &Account::user_name);
    about.Attrib("password", &Account::password).Masked();
    about.Attrib("secrets", &Account::secrets).Masked();
    about.Attrib("port", &Account::port).Key("server-port").OmitIfDefault();
    about.Attrib("limit", &Account::limit);
    about.Attrib("address", &Account::address).Flatten();
    about.Attrib("input", &Account::input).WriteOnly();
    about.Attrib("rest", &Account::rest).KeepsUnknown();
    about.Attrib("last", &Account::last);
}

TEST(WriteObjects, notesSayWhatIsWritten)
{
    Account account;
    ASSERT_TRUE(account.rest["extra"].Set("{\"a\":1}"));
    EXPECT_EQ(WriteJson(account), R"({"userName":"ann","password":"geheim","secrets":{"key":0.5},"limit":null,)"
                                  R"("city":"Bonn","zip":0,"extra":{"a":1},"last":[1]})");
    account.port = 81;
    CWritePolicy policy;
    policy.SortKeys = true;
    EXPECT_EQ(WriteJson(account, policy),
              R"({"city":"Bonn","extra":{"a":1},"last":[1],"limit":null,"password":"geheim",)"
              R"("secrets":{"key":0.5},"server-port":81,"userName":"ann","zip":0})");
}

TEST(WriteObjects, policiesLeaveOut)
{
    Account account;
    account.address.zip = 7;
    CWritePolicy policy;
    policy.LeaveOutNulls = true;
    policy.Masked = MaskedValues::LEAVE_OUT;
    EXPECT_EQ(WriteJson(account, policy), R"({"userName":"ann","city":"Bonn","zip":7,"last":[1]})");
    policy = {};
    policy.LeaveOutDefaults = true;
    EXPECT_EQ(WriteJson(account, policy), R"({"zip":7})");
    EXPECT_EQ(WriteJson(Address{}, policy), "{}");
    policy = {};
    policy.Masked = MaskedValues::MASK;
    EXPECT_EQ(WriteJson(account, policy), R"({"userName":"ann","password":"***","secrets":"***","limit":null,)"
                                          R"("city":"Bonn","zip":7,"last":[1]})");
}

TEST(WriteObjects, aProblemShowsNothingConfidential)
{
    Account account;
    account.secrets["hidden"] = 1e300 * 1e300;
    CReport report;
    WriteJson(account, {}, &report);
    ASSERT_EQ(report.Problems().size(), 1U);
    EXPECT_EQ(report.Problems()[0].Path, "secrets");
    EXPECT_EQ(report.Problems()[0].Pointer, "/secrets");
    EXPECT_EQ(report.Problems()[0].Found, "");
}

TEST(WriteObjects, aKeptKeyThatTheClassHasIsLeftOut)
{
    Account account;
    account.rest["zip"];
    account.rest["more"];
    CReport report;
    EXPECT_EQ(WriteJson(account, {}, &report), R"({"userName":"ann","password":"geheim","secrets":{"key":0.5},)"
                                               R"("limit":null,"city":"Bonn","zip":0,"more":null,"last":[1]})");
    ASSERT_EQ(report.Problems().size(), 1U);
    EXPECT_EQ(report.Problems()[0].Code, ProblemCode::DUPLICATE_KEY);
}

TEST(WriteObjects, indentationIsThatOfThePolicy)
{
    struct Local {};
    CWritePolicy policy;
    policy.Indentation = 2;
    EXPECT_EQ(WriteJson(std::map<std::string, std::vector<Address>>{{"a", {{"ö", 1}}}, {"b", {}}}, policy),
              "{\n  \"a\": [\n    {\n      \"city\": \"ö\",\n      \"zip\": 1\n    }\n  ],\n  \"b\": []\n}");
    EXPECT_EQ(WriteJson(std::vector<int>{1, 2}, policy), "[\n  1,\n  2\n]");
    policy.Indentation = 5000;
    const std::string blanks(5000, ' ');
    EXPECT_EQ(WriteJson(std::vector<int>{1}, policy), "[\n" + blanks + "1\n]");
}

struct Choice {
    union {
        int number;
        double real;
    };
    short kind = 0;
    Choice() : number(3) {}
};
VEXA_DESCRIBE_CLASS(Choice)
{
    about.Attrib("kind", &Choice::kind);
    about.Attrib("number", &Choice::number).ActiveWhen("kind", 0);
    about.Attrib("real", &Choice::real).ActiveWhen("kind", 1);
}

TEST(WriteObjects, onlyTheActiveMemberOfAUnionIsWritten)
{
    Choice choice;
    EXPECT_EQ(WriteJson(choice), R"({"kind":0,"number":3})");
    choice.kind = 1;
    choice.real = 0.5;
    EXPECT_EQ(WriteJson(choice), R"({"kind":1,"real":0.5})");
    choice.kind = 2;
    EXPECT_EQ(WriteJson(std::vector<Choice>{choice}), R"([{"kind":2}])");
}

struct Shape {
    virtual ~Shape() = default;
    std::string name = "s";
};
VEXA_DESCRIBE_CLASS(Shape)
{
    about.Tag("kind");
    about.TagValue("shape");
    about.Attrib("name", &Shape::name);
}
struct Circle : Shape {
    double radius = 1;
};
VEXA_DESCRIBE_CLASS(Circle)
{
    about.Base<Shape>();
    about.TagValue("circle");
    about.Attrib("radius", &Circle::radius);
}
struct Square : Shape {
    int side = 2;
};
VEXA_DESCRIBE_CLASS(Square)
{
    about.Base<Shape>();
    about.Attrib("side", &Square::side);
}
struct Drawing {
    std::unique_ptr<Shape> one = std::make_unique<Circle>();
    std::shared_ptr<Shape> two = std::make_shared<Square>();
    std::vector<std::unique_ptr<Shape>> more;
    std::variant<Circle, Square> either = Square();
    Circle itself;
};
VEXA_DESCRIBE(Drawing, one, two, more, either, itself)

TEST(WriteObjects, pointersTellWhatTheyLeadTo)
{
    Drawing drawing;
    drawing.more.push_back(nullptr);
    drawing.more.push_back(std::make_unique<Shape>());
    EXPECT_EQ(WriteJson(drawing), R"({"one":{"kind":"circle","name":"s","radius":1.0},)"
                                  R"("two":{"kind":"write_objects_test::Square","name":"s","side":2},)"
                                  R"("more":[null,{"kind":"shape","name":"s"}],)"
                                  R"("either":{"kind":"write_objects_test::Square","name":"s","side":2},)"
                                  R"("itself":{"name":"s","radius":1.0}})");
}

} // namespace write_objects_test
