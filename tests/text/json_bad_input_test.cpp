// Text that cannot be read: the code that names the point of failure, and what the target holds then.

#include <vexa/json.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"
#include "support/text_model.h"

namespace {

using namespace vexa_test;
using vexa::FromJson;

struct Form {
    int a = 0;
    int b = 0;
    std::string s;
    bool f = false;
    std::vector<int> v;
    Address address;
};
VEXA_DESCRIBE(Form, a, b, s, f, v, address)

struct BadText {
    std::string Text;
    int Code;
    std::string State; ///< as JSON
};

/// No failure logs anything.
template<class T>
void ExpectFails(const std::vector<BadText>& texts)
{
    for (const BadText& bad : texts) {
        T target{};
        EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(FromJson(target, bad.Text), bad.Code) << bad.Text; }), "");
        EXPECT_EQ(Json(target), bad.State) << bad.Text;
    }
}

std::string FormOf(int a, int b, const std::string& s = "", const std::string& v = "[]", const std::string& city = "")
{
    return "{\"a\":" + std::to_string(a) + ",\"b\":" + std::to_string(b) + ",\"s\":\"" + s +
           "\",\"f\":false,\"v\":" + v + ",\"address\":{\"city\":\"" + city + "\"}}";
}

TEST(JsonBadInput, AnObjectMustBeginWithABrace)
{
    const std::string empty = FormOf(0, 0);
    ExpectFails<Form>({{"x", 663, empty},
                       {"[", 663, empty},
                       {"\"a\"", 663, empty},
                       {" \n1", 663, empty},
                       {"\v{\"a\":1}", 663, empty},
                       {"null", 663, empty},
                       {R"({"a":1,"address":5})", 663, FormOf(1, 0)}});
}

TEST(JsonBadInput, TheTextEndsAfterABraceOrAComma)
{
    ExpectFails<Form>({{"{", 725, FormOf(0, 0)},
                       {R"({"a":1,)", 725, FormOf(1, 0)},
                       {R"({"a":1 ,)", 725, FormOf(1, 0)},
                       {R"({"address":{)", 725, FormOf(0, 0)}});
}

TEST(JsonBadInput, AKeyMustFollow)
{
    ExpectFails<Form>({{"{}", 674, FormOf(0, 0)},
                       {"{ }", 674, FormOf(0, 0)},
                       {"{ ", 674, FormOf(0, 0)},
                       {"{a", 674, FormOf(0, 0)},
                       {"{'a':1}", 674, FormOf(0, 0)},
                       {R"({,"a":1})", 674, FormOf(0, 0)},
                       {R"({"a":1,})", 674, FormOf(1, 0)},
                       {R"({"a":1,,"b":2})", 674, FormOf(1, 0)},
                       {R"({"a":1, )", 674, FormOf(1, 0)},
                       {R"({"a":1,"address":{}})", 674, FormOf(1, 0)}});
}

TEST(JsonBadInput, TheTextEndsInsideAKey)
{
    ExpectFails<Form>(
        {{R"({")", 683, FormOf(0, 0)}, {R"({"a)", 683, FormOf(0, 0)}, {R"({"a":1,"b:2})", 683, FormOf(1, 0)}});
}

TEST(JsonBadInput, AColonMustFollowTheKey)
{
    ExpectFails<Form>({{R"({"a")", 693, FormOf(0, 0)},
                       {R"({"a" )", 693, FormOf(0, 0)},
                       {R"({"a"1})", 693, FormOf(0, 0)},
                       {R"({"a" "b"})", 693, FormOf(0, 0)},
                       {R"({"a\"b":1})", 693, FormOf(0, 0)},
                       {R"({"a":1,"b"=2})", 693, FormOf(1, 0)},
                       {R"({"unknown"})", 693, FormOf(0, 0)}});
}

TEST(JsonBadInput, TheTextEndsAfterTheColon)
{
    ExpectFails<Form>({{R"({"a":)", 698, FormOf(0, 0)},
                       {R"({"a": )", 698, FormOf(0, 0)},
                       {R"({"unknown":)", 698, FormOf(0, 0)},
                       {R"({"address":)", 698, FormOf(0, 0)}});
}

TEST(JsonBadInput, TheTextEndsAfterAValue)
{
    ExpectFails<Form>({{R"({"a":1)", 708, FormOf(1, 0)},
                       {R"({"a":1 )", 708, FormOf(1, 0)},
                       {R"({"s":"x")", 708, FormOf(0, 0, "x")},
                       {R"({"v":[1])", 708, FormOf(0, 0, "", "[1]")},
                       {R"({"address":{"city":"x"})", 708, FormOf(0, 0, "", "[]", "x")}});
}

TEST(JsonBadInput, ACommaOrABraceMustFollowAValue)
{
    ExpectFails<Form>({{R"({"a":1x})", 722, FormOf(1, 0)},
                       {R"({"a":1 "b":2})", 722, FormOf(1, 0)},
                       {R"({"a":1.5})", 722, FormOf(1, 0)},
                       {R"({"a":1e5})", 722, FormOf(1, 0)},
                       {R"({"a":+1})", 722, FormOf(0, 0)},
                       {R"({"a":null})", 722, FormOf(0, 0)},
                       {R"({"a":"1"})", 722, FormOf(0, 0)},
                       {R"({"a":1])", 722, FormOf(1, 0)},
                       {R"({"s":"x"y})", 722, FormOf(0, 0, "x")},
                       {R"({"a":1;"b":2})", 722, FormOf(1, 0)}});
}

TEST(JsonBadInput, AnUnknownKeyIsAnError)
{
    ExpectFails<Form>({{R"({"unknown":1})", 722, FormOf(0, 0)},
                       {R"({"a":1,"unknown":2,"b":3})", 722, FormOf(1, 0)},
                       {R"({"":1})", 722, FormOf(0, 0)},
                       {R"({"A":1})", 722, FormOf(0, 0)},
                       {R"({"address.city":"x"})", 722, FormOf(0, 0)}});
}

TEST(JsonBadInput, AnArrayMustBeginWithABracket)
{
    ExpectFails<std::vector<int>>({{"x", 800, "[]"}, {"1", 800, "[]"}, {"{", 800, "[]"}, {" ]", 800, "[]"}});
    ExpectFails<Form>({{R"({"v":1})", 800, FormOf(0, 0)}});
}

TEST(JsonBadInput, TheTextEndsInsideAnArray)
{
    ExpectFails<std::vector<int>>({{"[", 805, "[]"},
                                   {"[ ", 805, "[]"},
                                   {"[1,", 891, "[1]"},
                                   {"[1 ,", 891, "[1]"},
                                   {"[1, ", 842, "[1]"},
                                   {"[1,2,\n\t", 842, "[1,2]"},
                                   {"[1", 873, "[1]"},
                                   {"[1 ", 873, "[1]"},
                                   {"[1,2", 873, "[1,2]"},
                                   {"[-", 873, "[0]"}});
    ExpectFails<std::vector<std::vector<int>>>(
        {{"[[", 805, "[[]]"}, {"[[1],[2,", 891, "[[1],[2]]"}, {"[[1]", 873, "[[1]]"}});
}

TEST(JsonBadInput, ACommaOrABracketMustFollowAnElement)
{
    ExpectFails<std::vector<int>>({{"[1x", 888, "[1]"},
                                   {"[1 2]", 888, "[1]"},
                                   {"[1.5]", 888, "[1]"},
                                   {"[1}", 888, "[1]"},
                                   {"[null]", 888, "[0]"},
                                   {"[\"1\"]", 888, "[0]"}});
}

TEST(JsonBadInput, AStringMustBeWhole)
{
    ExpectFails<std::vector<std::string>>({{"[x]", 511, R"([""])"},
                                           {"[1]", 511, R"([""])"},
                                           {R"(["a",])", 511, R"(["a",""])"},
                                           {R"(["a)", 596, R"([""])"},
                                           {"[\"a\\", 531, R"(["a"])"}});
    ExpectFails<Form>({{R"({"s":5})", 511, FormOf(0, 0)}, {R"({"a":1,"s":null})", 511, FormOf(1, 0)}});
}

TEST(JsonBadInput, ATruthValueMustBeSpeltOut)
{
    for (const char* text : {"t", "tru", "fal", "1", "0", "nul"})
        ExpectFails<bool>({{text, 603, "false"}});
    for (const char* text : {"TRUE", "True", "fals", "falsy", "null", "truthy", "nope!", "\"true\"", "1234"}) {
        ExpectFails<bool>({{text, 622, "false"}});
    }
    ExpectFails<std::vector<vexa::MayNull<bool>>>({{"[1]", 603, "[]"}, {"[maybe]", 622, "[]"}});
    ExpectFails<Form>({{R"({"f":1})", 603, FormOf(0, 0)}, {R"({"f":"true"})", 622, FormOf(0, 0)}});
}

} // namespace
