// Trees and raw JSON in and out: parsed, written, as members of described classes, in the required functions.

#include <vexa/json_tree.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/vexa.h>

namespace free_form {

struct Order {
    int id = 0;
    vexa::CRawJson note;
    vexa::CJsonTree extra;
    std::vector<vexa::CRawJson> raws;
    std::map<std::string, vexa::CJsonTree> trees;
    vexa::MayNull<vexa::CJsonTree> maybe;
};

VEXA_DESCRIBE(Order, id, note, extra, raws, trees, maybe)

} // namespace free_form

namespace {

using free_form::Order;
using vexa::CJsonTree;
using vexa::CRawJson;
using vexa::CReport;

std::string Reparsed(const std::string& text, const vexa::CReadPolicy& policy = {})
{
    CJsonTree tree = "before";
    CReport report;
    if (tree.Parse(text, report, policy)) return tree.AsJson();
    EXPECT_EQ(tree, CJsonTree("before"));
    return report.AsString();
}

TEST(JsonTreeText, IsParsedAndWrittenAsItWas)
{
    for (const char* text : {"null", "true", "false", "0", "-0", "1.50", "1E+05", "12345678901234567890123", "\"\"",
                             R"("é😀\n\"\\\u0000")", "[]", "{}", "[[],{},[1,[2]]]", R"({"b":1,"a":{"c":[null]},"":0})"})
        EXPECT_EQ(Reparsed(text), text);
    EXPECT_EQ(Reparsed(" [ 1 , { \"a\" : \"\\u00e9\\ud83d\\ude00\\/\" } ] "), R"([1,{"a":"é😀/"}])");
    const std::string deep(1000, '[');
    const std::string close(1000, ']');
    EXPECT_EQ(Reparsed(deep + close), deep + close);
}

TEST(JsonTreeText, KeepsTheLastOfAKeyInTheFirstPlace)
{
    EXPECT_EQ(Reparsed(R"({"a":1,"b":2,"a":{"x":1,"x":2},"c":3,"b":4})"), R"({"a":{"x":2},"b":4,"c":3})");
    std::string text = "{";
    std::string expected = "{";
    for (int i = 0; i < 1000; ++i)
        text += "\"k" + std::to_string(i % 100) + "\":" + std::to_string(i) + (i < 999 ? "," : "}");
    for (int i = 0; i < 100; ++i)
        expected += "\"k" + std::to_string(i) + "\":" + std::to_string(900 + i) + (i < 99 ? "," : "}");
    EXPECT_EQ(Reparsed(text), expected);
}

TEST(JsonTreeText, ThatIsBrokenLeavesTheTreeAsItWas)
{
    for (const char* text : {"", " ", "[1,", "[1,]", "{\"a\"}", "01", "1 2", "\"\\ud800\"", "nul", "\"\xff\"", "NaN"})
        EXPECT_NE(Reparsed(text).find(": "), std::string::npos) << text;
    EXPECT_NE(Reparsed(std::string(1001, '[')).find("1:1001"), std::string::npos);
}

TEST(JsonTreeText, FollowsThePolicies)
{
    vexa::CReadPolicy reading;
    reading.AllowComments = reading.AllowTrailingCommas = reading.AllowNan = true;
    CJsonTree tree;
    CReport report;
    ASSERT_TRUE(tree.Parse("[NaN, -Infinity, /* gone */ {\"b\": 1, \"a\": [2]},]", report, reading));
    vexa::CWritePolicy writing;
    EXPECT_FALSE(tree.AsJson(writing).empty());
    std::string text;
    EXPECT_FALSE(tree.Write(text, writing, &report));
    EXPECT_EQ(text, R"([null,null,{"b":1,"a":[2]}])");
    EXPECT_EQ(report.Problems().at(0).Code, vexa::ProblemCode::CANNOT_BE_WRITTEN);
    writing.AllowNan = writing.SortKeys = true;
    EXPECT_EQ(tree.AsJson(writing), R"([NaN,-Infinity,{"a":[2],"b":1}])");
    writing.MaxDepth = 1;
    report.Clear();
    EXPECT_FALSE(tree.Write(text, writing, &report));
    EXPECT_EQ(text, "[NaN,-Infinity,null]");
    EXPECT_EQ(report.Problems().at(0).Code, vexa::ProblemCode::TOO_DEEP);
    writing = {};
    writing.Indentation = 2;
    EXPECT_EQ(CJsonTree::Object({{"a", CJsonTree::Array({1, CJsonTree::Object()})}}).AsJson(writing),
              "{\n  \"a\": [\n    1,\n    {}\n  ]\n}");
}

TEST(RawJson, KeepsTheTextOfOneValue)
{
    CRawJson raw;
    EXPECT_EQ(raw.Text(), "null");
    EXPECT_TRUE(raw.IsNull());
    EXPECT_TRUE(raw.Set(" { \"a\" : [ 1.50 , 1E5 ] , \"a\" : \"\\u0041\" } \n"));
    EXPECT_EQ(raw.Text(), R"({ "a" : [ 1.50 , 1E5 ] , "a" : "\u0041" })");
    const CRawJson copy = raw;
    CReport report;
    EXPECT_FALSE(raw.Set("[1,]", report));
    EXPECT_EQ(report.Problems().size(), 1U);
    EXPECT_FALSE(raw.Set("") || raw.Set("1 2") || raw.Set("\"\xc3\""));
    EXPECT_EQ(raw, copy);
    EXPECT_NE(raw, CRawJson());
}

TEST(FreeFormMembers, TakeAndGiveAnyValue)
{
    const std::string text =
        R"({"id":1,"note":{ "x" : 1.0 },"extra":[1e2,null],"raws":[1, "a" ,[ ]],"trees":{"k":{"b":1}},"maybe":null})";
    Order order;
    CReport report;
    ASSERT_TRUE(vexa::ReadJson(order, text, report)) << report.AsString(text);
    EXPECT_EQ(order.note.Text(), R"({ "x" : 1.0 })");
    EXPECT_EQ(*order.extra.Find("[0]")->AsInteger(), 100);
    EXPECT_EQ(order.raws.at(2).Text(), "[ ]");
    EXPECT_EQ(*order.trees["k"].Find("b")->AsInteger(), 1);
    EXPECT_FALSE(order.maybe.has_value());
    EXPECT_EQ(vexa::WriteJson(order), R"({"id":1,"note":{ "x" : 1.0 },"extra":[1e2,null],"raws":[1,"a",[ ]],)"
                                      R"("trees":{"k":{"b":1}},"maybe":null})");
    // null is a value of theirs, and replaces what was there
    ASSERT_TRUE(vexa::ReadJson(order, R"({"note":null,"extra":null,"maybe":[1]})", report));
    EXPECT_TRUE(order.note.IsNull() && order.extra.IsNull());
    EXPECT_EQ(order.maybe->AsJson(), "[1]");
}

TEST(FreeFormMembers, AreReadAnewWhereThePolicyLetsMoreIn)
{
    vexa::CReadPolicy policy;
    policy.AllowComments = policy.AllowTrailingCommas = true;
    Order order;
    CReport report;
    ASSERT_TRUE(vexa::ReadJson(order, R"({"note": [1, /* no JSON */ {"a": 1,},]})", report, policy));
    EXPECT_EQ(order.note.Text(), R"([1,{"a":1}])");
}

TEST(FreeFormMembers, AreTheirTextInTheRequiredFunctions)
{
    Order order;
    order.note.Set("[1, 2]");
    order.extra["a"] = "b";
    vexa::CRefrence note;
    vexa::CRefrence extra;
    auto whole = vexa::RefOf(order).AsClass();
    ASSERT_TRUE(whole.FindAttribByName(note, "note") && whole.FindAttribByName(extra, "extra"));
    EXPECT_EQ(note.AsString(), "[1, 2]");
    EXPECT_EQ(extra.AsString(), R"({"a":"b"})");
    EXPECT_EQ(note.TypeName() + ' ' + extra.TypeName(), "vexa::CRawJson vexa::CJsonTree");
    std::string json;
    ASSERT_EQ(vexa::ToJson(json, order), 0);
    EXPECT_EQ(json.substr(0, json.find(",\"raws\"")), R"({"id":0,"note":"[1, 2]","extra":"{\"a\":\"b\"}")");
    note.Clear();
    extra.Clear();
    EXPECT_TRUE(order.note.IsNull() && order.extra.IsNull());
}

} // namespace
