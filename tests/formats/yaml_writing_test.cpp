// What is written as YAML, whole, and that it reads back as it was.

#include <vexa/yaml.h>

#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <vexa/json_tree.h>

namespace {

using vexa::CJsonTree;
using vexa::CReport;

CJsonTree Parsed(const std::string& json)
{
    CJsonTree tree;
    CReport report;
    vexa::CReadPolicy policy;
    policy.AllowNan = true;
    EXPECT_TRUE(tree.Parse(json, report, policy)) << report.AsString(json);
    return tree;
}

/// Written, after a look that it reads back.
std::string Written(const CJsonTree& tree, const vexa::CWritePolicy& policy = {})
{
    std::string text = "before";
    EXPECT_TRUE(vexa::WriteYaml(text, tree, policy));
    CJsonTree read;
    CReport report;
    EXPECT_TRUE(vexa::ReadYaml(read, text, report)) << report.AsString(text);
    EXPECT_EQ(read, tree) << text;
    return text;
}

TEST(YamlWriting, QuotesTextsThatMeanSomethingElse)
{
    const std::pair<const char*, const char*> cases[] = {
        {"plain", "plain\n"},
        {"two words", "two words\n"},
        {"a-b_c.d/e 9", "a-b_c.d/e 9\n"},
        {"", "\"\"\n"},
        {" a", "\" a\"\n"},
        {"a ", "\"a \"\n"},
        {"~", "\"~\"\n"},
        {"null", "\"null\"\n"},
        {"Null", "\"Null\"\n"},
        {"true", "\"true\"\n"},
        {"FALSE", "\"FALSE\"\n"},
        {"yes", "\"yes\"\n"},
        {"No", "\"No\"\n"},
        {"on", "\"on\"\n"},
        {"OFF", "\"OFF\"\n"},
        {"y", "\"y\"\n"},
        {"N", "\"N\"\n"},
        {"5", "\"5\"\n"},
        {"0x1F", "\"0x1F\"\n"},
        {".5", "\".5\"\n"},
        {".inf", "\".inf\"\n"},
        {"1_000", "\"1_000\"\n"},
        {"1:30", "\"1:30\"\n"},
        {"2024-02-29", "\"2024-02-29\"\n"},
        {"<<", "\"<<\"\n"},
        {"=", "\"=\"\n"},
        {"- a", "\"- a\"\n"},
        {"a: b", "\"a: b\"\n"},
        {"a #b", "\"a #b\"\n"},
        {"# b", "\"# b\"\n"},
        {"---", "\"---\"\n"},
        {"...", "\"...\"\n"},
        {"&a", "\"&a\"\n"},
        {"*a", "\"*a\"\n"},
        {"!a", "\"!a\"\n"},
        {"{a}", "\"{a}\"\n"},
        {"[a]", "\"[a]\"\n"},
        {"a,b", "\"a,b\"\n"},
        {"%a", "\"%a\"\n"},
        {"@a", "\"@a\"\n"},
        {"'a'", "\"'a'\"\n"},
        {"\"a\"", "\"\\\"a\\\"\"\n"},
        {"a\nb", "\"a\\nb\"\n"},
        {"tab\t", "\"tab\\t\"\n"},
        {"back\\slash", "\"back\\\\slash\"\n"},
        {"\x01\x7f", "\"\\x01\\x7F\"\n"},
        {"é😀", "\"é\\U0001F600\"\n"},
        {"\xEF\xBB\xBF", "\"\\uFEFF\"\n"},
        {"\xC2\x85\xE2\x80\xA8", "\"\\N\\L\"\n"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(Written(CJsonTree(text)), expected) << text;
    EXPECT_EQ(Written(CJsonTree(std::string(1, '\0'))), "\"\\0\"\n");
}

TEST(YamlWriting, HasAFormForEveryValue)
{
    const std::pair<const char*, const char*> cases[] = {
        {"null", "null\n"},
        {"true", "true\n"},
        {"-5", "-5\n"},
        {"18446744073709551615", "18446744073709551615\n"},
        {"123456789012345678901234567890", "123456789012345678901234567890\n"},
        {"1.50", "1.5\n"},
        {"1.0", "1.0\n"},
        {"-0", "-0.0\n"},
        {"1e300", "1e+300\n"},
        {"1e400", "1e400\n"},
        {"0.1000000000000000000000001", "0.1000000000000000000000001\n"},
        {"NaN", ".nan\n"},
        {"Infinity", ".inf\n"},
        {"-Infinity", "-.inf\n"},
        {"[]", "[]\n"},
        {"{}", "{}\n"},
        {R"([1,[2,[]],{"a":{}}])", "- 1\n- - 2\n  - []\n- a: {}\n"},
        {R"({"b":1,"a":[1,{"x":null}],"yes":{"k":"no"}})", "b: 1\na:\n- 1\n- x: null\n\"yes\":\n  k: \"no\"\n"},
        {R"({"":1,"a b":2,"1":3})", "\"\": 1\na b: 2\n\"1\": 3\n"},
    };
    for (const auto& [json, expected] : cases)
        EXPECT_EQ(Written(Parsed(json)), expected) << json;
}

TEST(YamlWriting, FollowsThePolicy)
{
    vexa::CWritePolicy policy;
    policy.SortKeys = true;
    policy.Indentation = 4;
    policy.AsciiOnly = true;
    EXPECT_EQ(Written(Parsed(R"({"b":"é","a":{"d":[1],"c":2}})"), policy),
              "a:\n    c: 2\n    d:\n    - 1\nb: \"\\xE9\"\n");
    policy.MaxDepth = 1;
    std::string text;
    CReport report;
    EXPECT_FALSE(vexa::WriteYaml(text, Parsed(R"({"a":{"b":1}})"), policy, &report));
    EXPECT_EQ(text, "a: null\n");
    EXPECT_EQ(report.Problems().at(0).Code, vexa::ProblemCode::TOO_DEEP);
}

TEST(YamlWriting, ReadsBackTextsAndKeysOfAnyLength)
{
    CJsonTree tree;
    for (const std::size_t length : {1U, 79U, 80U, 127U, 128U, 129U, 1023U, 1024U, 1025U, 5000U}) {
        const std::string blanks(length, ' ');
        tree["k" + blanks + "k"] = "v" + blanks + "v" + blanks;
        tree[std::string(length, 'k')] = std::string(length, '\n');
        tree[std::string(length, '"')] = std::string(length, '\'');
    }
    Written(tree);
}

} // namespace
