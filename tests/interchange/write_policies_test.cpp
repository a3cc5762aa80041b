// What write policies do where a value is not simply written: to custom types, raw JSON, defaults and reports.

#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

#include "support/random_values.h"

namespace write_policies {

struct Moment {
    vexa::CDateTime time;
};
struct Amount {
    vexa::CNumeric number;
};
VEXA_DESCRIBE_CUSTOM_STD(Moment, &Moment::time)
VEXA_DESCRIBE_CUSTOM_STD(Amount, &Amount::number)

struct Wrapped {
    Moment moment;
    Amount amount;
    vexa::MayNull<Amount> perhaps;
    std::optional<Moment> maybe = Moment();
    int plain = 1;
};
VEXA_DESCRIBE(Wrapped, moment, amount, perhaps, maybe, plain)

struct Texts {
    std::string text = "\xEF\xBF\xBD";
    std::map<std::string, int> byText = {{"\xEF\xBF\xBD", 1}};
    std::filesystem::path path = "\xEF\xBF\xBD";
    vexa::CNumeric number;
    vexa::CRawJson raw;
};
VEXA_DESCRIBE_CLASS(Texts)
{
    about.Attrib("text", &Texts::text).OmitIfDefault();
    about.Attrib("byText", &Texts::byText).OmitIfDefault();
    about.Attrib("path", &Texts::path).OmitIfDefault();
    about.Attrib("number", &Texts::number).OmitIfDefault();
    about.Attrib("raw", &Texts::raw).OmitIfDefault();
}

struct Letter {
    std::string text = "\xEF\xBF\xBD";
};
VEXA_DESCRIBE_CLASS(Letter) { about.Attrib("text", &Letter::text).OmitIfDefault(); }

struct Raw {
    std::vector<vexa::CRawJson> raw = std::vector<vexa::CRawJson>(1);
};
VEXA_DESCRIBE(Raw, raw)

} // namespace write_policies

namespace {

using namespace write_policies;

TEST(WritePolicies, NullsOfCustomTypesOverAStandardValueAreLeftOut)
{
    vexa::CWritePolicy policy;
    policy.LeaveOutNulls = true;
    Wrapped wrapped;
    EXPECT_EQ(R"({"moment":null,"amount":null,"perhaps":null,"maybe":null,"plain":1})", vexa::WriteJson(wrapped));
    EXPECT_EQ(R"({"plain":1})", vexa::WriteJson(wrapped, policy));
    wrapped.amount.number = vexa::CNumeric(5);
    EXPECT_EQ(R"({"amount":5,"plain":1})", vexa::WriteJson(wrapped, policy));
}

TEST(WritePolicies, ValuesAreDefaultsOnlyWhereTheyAreEqualByteByByte)
{
    Texts texts;
    EXPECT_EQ("{}", vexa::WriteJson(texts));
    texts.text = texts.path = "\x80";
    texts.byText = {{"\xFF", 1}};
    ASSERT_TRUE(texts.raw.Set("[\n]"));
    vexa::CReport report;
    EXPECT_EQ("{\"text\":\"\xEF\xBF\xBD\",\"byText\":{\"\xEF\xBF\xBD\":1},\"path\":\"\xEF\xBF\xBD\",\"raw\":[]}",
              vexa::WriteJson(texts, {}, &report));
    EXPECT_EQ("text: this is not UTF-8\nbyText[\"<0xFF>\"]: this is not UTF-8\npath: this is not UTF-8\n",
              report.AsString());
}

TEST(WritePolicies, WhatCannotBeWrittenIsNoDefault)
{
    Texts texts;
    Texts other;
    other.number = vexa::CNumeric("no number");
    ASSERT_EQ(vexa::Enum::VS_ERROR, other.number.State);
    vexa::CReport report;
    EXPECT_EQ(R"({"number":null})", vexa::WriteJson(other, {}, &report));
    EXPECT_EQ("number: the value cannot be written: expected a number, found an error\n", report.AsString());
}

/// Whatever bytes a text has, it is left out only where it is the default, and otherwise written as ever.
TEST(WritePolicies, NoTextButTheDefaultIsLeftOut)
{
    for (std::uint64_t seed = 1; seed <= 2000; ++seed) {
        vexa_test::Random random(seed);
        Letter letter;
        if (!random.OneIn(4)) vexa_test::Randomize(random, letter.text);
        vexa::CWritePolicy policy;
        policy.Text = random.OneOf({vexa::BadText::PROBLEM, vexa::BadText::REPLACE, vexa::BadText::LATIN_1});
        EXPECT_EQ(letter.text == Letter().text, vexa::WriteJson(letter, policy) == "{}") << seed;
    }
}

TEST(WritePolicies, RawJsonStaysOnTheOneLineOfEverythingElse)
{
    Raw raw;
    ASSERT_TRUE(raw.raw[0].Set("{\r\n  \"a\": [1, \n\t2],\r\"\\n\": \"\\\\\"\n}"));
    EXPECT_EQ(R"({"raw":[{"a": [1, 2],"\n": "\\"}]})", vexa::WriteJson(raw));
    vexa::CWritePolicy ascii;
    ascii.AsciiOnly = true;
    EXPECT_EQ(R"({"raw":[{"a": [1, 2],"\n": "\\"}]})", vexa::WriteJson(raw, ascii));
    vexa::CWritePolicy indented;
    indented.Indentation = 1;
    EXPECT_EQ("{\n \"raw\": [\n  " + raw.raw[0].Text() + "\n ]\n}", vexa::WriteJson(raw, indented));
}

std::string Nested(std::size_t levels) { return std::string(levels, '[') + "\"]}[{\"" + std::string(levels, ']'); }

TEST(WritePolicies, LevelsOfRawJsonCountBothWays)
{
    vexa::CReadPolicy reading;
    vexa::CWritePolicy writing;
    reading.MaxDepth = writing.MaxDepth = 10;
    Raw raw;
    vexa::CReport report;
    EXPECT_TRUE(vexa::ReadJson(raw, R"({"raw":[)" + Nested(8) + "]}", report, reading)) << report;
    EXPECT_EQ(R"({"raw":[)" + Nested(8) + "]}", vexa::WriteJson(raw, writing, &report));
    EXPECT_FALSE(vexa::ReadJson(raw, R"({"raw":[)" + Nested(9) + "]}", report, reading));
    EXPECT_EQ("1:17: raw[0]: nested too deeply: expected at most 10 levels\n", report.AsString());

    ASSERT_TRUE(raw.raw[0].Set(Nested(9)));
    vexa::CReport lost;
    EXPECT_EQ(R"({"raw":[null]})", vexa::WriteJson(raw, writing, &lost));
    EXPECT_EQ("raw[0]: nested too deeply: expected at most 10 levels\n", lost.AsString());
}

std::string ReportAs(const vexa::CWritePolicy& policy)
{
    Letter letter;
    vexa::CReport report;
    vexa::ReadJson(letter, R"({"text":"a","text":"b"})", report);
    vexa::ReadJson(letter, "7", report);
    return vexa::WriteJson(report, policy);
}

TEST(WritePolicies, HoldForReportsToo)
{
    vexa::CWritePolicy policy;
    policy.SortKeys = policy.LeaveOutNulls = true;
    EXPECT_EQ(
        R"([{"attribute":"text","class":"write_policies::Letter","code":25,"column":13,)"
        R"("excerpt":"{\"text\":\"a\",\"text\":\"b\"}","length":6,"line":1,)"
        R"("message":"the key \"text\" is given twice","name":"DUPLICATE_KEY","offset":12,"path":"text",)"
        R"("pointer":"/text","second":{"column":2,"length":6,"line":1,"offset":1}},)"
        R"({"code":20,"column":1,"excerpt":"7","expected":"an object","found":"a number","length":1,"line":1,)"
        R"("message":"expected an object, found a number","name":"WRONG_KIND","offset":0,"path":"","pointer":""}])",
        ReportAs(policy));
    policy.LeaveOutNulls = false;
    policy.LeaveOutDefaults = true;
    policy.MaxDepth = 2;
    EXPECT_EQ(R"([{"attribute":"text","class":"write_policies::Letter","code":25,"column":13,)"
              R"("excerpt":"{\"text\":\"a\",\"text\":\"b\"}","length":6,"line":1,)"
              R"("message":"the key \"text\" is given twice","name":"DUPLICATE_KEY","offset":12,"path":"text",)"
              R"("pointer":"/text","second":null},)"
              R"({"code":20,"column":1,"excerpt":"7","expected":"an object","found":"a number","length":1,"line":1,)"
              R"("message":"expected an object, found a number","name":"WRONG_KIND","offset":0}])",
              ReportAs(policy));
    policy.MaxDepth = 1;
    EXPECT_EQ("[null,null]", ReportAs(policy));
    policy.MaxDepth = 0;
    EXPECT_EQ("null", ReportAs(policy));
}

TEST(WritePolicies, TreesThatAreGivenThemselvesStay)
{
    vexa::CJsonTree tree = vexa::CJsonTree::Object({{"a", vexa::CJsonTree::Array({1, "two"})}, {"b", nullptr}});
    vexa::CJsonTree& same = tree;
    tree = same;
    EXPECT_EQ(R"({"a":[1,"two"],"b":null})", tree.AsJson());
    tree = std::move(same);
    EXPECT_EQ(R"({"a":[1,"two"],"b":null})", tree.AsJson());
    tree.Swap(same);
    EXPECT_EQ(R"({"a":[1,"two"],"b":null})", tree.AsJson());
    tree["b"] = tree;
    EXPECT_EQ(R"({"a":[1,"two"],"b":{"a":[1,"two"],"b":null}})", tree.AsJson());
    tree = std::move(tree["a"]);
    EXPECT_EQ(R"([1,"two"])", tree.AsJson());
}

} // namespace
