// What YAML texts mean, by hand-written tables: the JSON that they are, or the problem that they have.

#include <vexa/yaml.h>

#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <vexa/json_tree.h>
#include <vexa/vexa.h>

namespace house {

struct Door {
    int a = 0;
    int b = 0;
};
VEXA_DESCRIBE(Door, a, b)

} // namespace house

namespace {

using vexa::CJsonTree;
using vexa::CReadPolicy;
using vexa::CReport;

/// A YAML text as JSON, or its problems.
std::string Meaning(const std::string& text, const CReadPolicy& policy = {})
{
    CJsonTree tree;
    CReport report;
    if (!vexa::ReadYaml(tree, text, report, policy)) return report.AsString();
    vexa::CWritePolicy writing;
    writing.AllowNan = true;
    return tree.AsJson(writing);
}

TEST(YamlScalars, MeanWhatTheCoreSchemaSays)
{
    const std::pair<const char*, const char*> cases[] = {
        {"~", "null"},
        {"null", "null"},
        {"Null", "null"},
        {"NULL", "null"},
        {"nUll", "\"nUll\""},
        {"''", "\"\""},
        {"\"\"", "\"\""},
        {"'~'", "\"~\""},
        {"\"null\"", "\"null\""},
        {"true", "true"},
        {"True", "true"},
        {"TRUE", "true"},
        {"tRUE", "\"tRUE\""},
        {"false", "false"},
        {"False", "false"},
        {"FALSE", "false"},
        {"'true'", "\"true\""},
        {"yes", "\"yes\""},
        {"no", "\"no\""},
        {"on", "\"on\""},
        {"off", "\"off\""},
        {"y", "\"y\""},
        {"0", "0"},
        {"-0", "-0"},
        {"+12", "12"},
        {"-12", "-12"},
        {"0777", "777"},
        {"007", "7"},
        {"0o17", "15"},
        {"0O17", "\"0O17\""},
        {"0o8", "\"0o8\""},
        {"-0o7", "\"-0o7\""},
        {"0x1F", "31"},
        {"0xff", "255"},
        {"0xfg", "\"0xfg\""},
        {"0x", "\"0x\""},
        {"0xFFFFFFFFFFFFFFFF", "18446744073709551615"},
        {"1_000", "\"1_000\""},
        {"1:30", "\"1:30\""},
        {"0b11", "\"0b11\""},
        {"9223372036854775807", "9223372036854775807"},
        {"9223372036854775808", "9223372036854775808"},
        {"-9223372036854775808", "-9223372036854775808"},
        {"123456789012345678901234567890", "123456789012345678901234567890"},
        {".5", "0.5"},
        {"-.5", "-0.5"},
        {"5.", "5.0"},
        {"+.5e1", "0.5e1"},
        {"1e3", "1e3"},
        {"1E+03", "1E+03"},
        {"1.50", "1.50"},
        {"00.5", "0.5"},
        {"1e", "\"1e\""},
        {"1e+", "\"1e+\""},
        {".", "\".\""},
        {"+", "\"+\""},
        {"-a", "\"-a\""},
        {"1.2.3", "\"1.2.3\""},
        {"e3", "\"e3\""},
        {"1e400", "1e400"},
        {".inf", "Infinity"},
        {"+.Inf", "Infinity"},
        {"-.INF", "-Infinity"},
        {".nan", "NaN"},
        {".NaN", "NaN"},
        {"+.nan", "\"+.nan\""},
        {"inf", "\"inf\""},
        {"nan", "\"nan\""},
        {"'5'", "\"5\""},
        {"\"5\"", "\"5\""},
        {"2024-02-29", "\"2024-02-29\""},
        {"2024-02-29T12:00:00Z", "\"2024-02-29T12:00:00Z\""},
        {"<<", "\"<<\""},
        {"=", "\"=\""},
        {"some words", "\"some words\""},
        {"two\n  lines", "\"two lines\""},
        {"'it''s'", "\"it's\""},
        {R"("a\tb\u00e9\x41\U0001F600\0")", R"("a\tbéA😀\u0000")"},
        {"|\n  kept\n  lines\n", "\"kept\\nlines\\n\""},
        {"|-\n  kept\n  lines\n", "\"kept\\nlines\""},
        {">\n  folded\n  lines\n\n  more\n", "\"folded lines\\nmore\\n\""},
        {"!!str 5", "\"5\""},
        {"!!str true", "\"true\""},
        {"!!str", "\"\""},
        {"! 5", "\"5\""},
        {"!!int 5", "5"},
        {"!!int '5'", "5"},
        {"!!int 0x10", "16"},
        {"!!float 5", "5"},
        {"!!float '.5'", "0.5"},
        {"!!float .inf", "Infinity"},
        {"!!bool 'true'", "true"},
        {"!!null ''", "null"},
        {"!!binary aGk=", "\"aGk=\""},
        {"!!binary 1234", "\"1234\""},
        {"0x1FFFFFFFFFFFFFFFF", "\"0x1FFFFFFFFFFFFFFFF\""},
        {"!mine 5", "5"},
        {"!mine '5'", "\"5\""},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(Meaning(text), expected) << text;
}

TEST(YamlTexts, MeanArraysAndObjects)
{
    const std::pair<const char*, const char*> cases[] = {
        {"a: 1\nb: two\n", R"({"a":1,"b":"two"})"},
        {"- 1\n- two\n-\n- - 3\n  - 4\n", R"([1,"two",null,[3,4]])"},
        {"a:\n- 1\n- x: 2\n  y: 3\n", R"({"a":[1,{"x":2,"y":3}]})"},
        {"{a: 1, 'b': [1, 2, {c: d}], e: }", R"({"a":1,"b":[1,2,{"c":"d"}],"e":null})"},
        {R"({"json": [true, null, 1.5e3, "\u00e9"]})", R"({"json":[true,null,1.5e3,"é"]})"},
        {"[]", "[]"},
        {"{}", "{}"},
        {"1: one\ntrue: yes\n~: none\n1.5: x\n", R"({"1":"one","true":"yes","~":"none","1.5":"x"})"},
        {"? a\n: 1\n? b\n", R"({"a":1,"b":null})"},
        {"# comment\na: 1 # more\n", R"({"a":1})"},
        {"%YAML 1.1\n---\na: 1\n...\n", R"({"a":1})"},
        {"--- text\n", "\"text\""},
        {"\xEF\xBB\xBFtext", "\"text\""},
        {"!!map {a: !!seq [1]}", R"({"a":[1]})"},
        {"!shape {a: 1}", R"({"a":1})"},
        {"a: &x 1\nb: *x\n", R"({"a":1,"b":1})"},
        {"- &x [1, &y {k: v}]\n- *y\n- *x\n", R"([[1,{"k":"v"}],{"k":"v"},[1,{"k":"v"}]])"},
        {"- &x 1\n- &x 2\n- *x\n", "[1,2,2]"},
        {"- &a k\n- {*a : 1}\n", R"(["k",{"k":1}])"},
        {"- &a [1, 2]\n- &b [*a, *a]\n- *b\n", "[[1,2],[[1,2],[1,2]],[[1,2],[1,2]]]"},
        {"{&a 5: *a}", R"({"5":"5"})"},
        {"- &o {&a k: 1}\n- *o\n- *a\n", R"([{"k":1},{"k":1},"k"])"},
        {"a: 1\na: 2\n", R"({"a":2})"},
        {"<<: {a: 1}\nb: 2\n", R"({"<<":{"a":1},"b":2})"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(Meaning(text), expected) << text;
}

/// Code, line, column and byte of the first problem.
template<class T = CJsonTree>
std::string ProblemOf(const std::string& text, const CReadPolicy& policy = {})
{
    T object;
    CReport report;
    if (vexa::ReadYaml(object, text, report, policy)) return "none: " + vexa::WriteJson(object);
    const vexa::CProblem& problem = report.Problems().at(0);
    std::string place = std::to_string(static_cast<int>(problem.Code)) + ' ' + std::to_string(problem.Place.Line) +
                        ':' + std::to_string(problem.Place.Column) + " +" + std::to_string(problem.Place.Offset);
    if (problem.Second.Offset != vexa::CTextPlace::NOWHERE)
        place += " first " + std::to_string(problem.Second.Line) + ':' + std::to_string(problem.Second.Column);
    return place + (problem.Expected.empty() ? "" : " expected " + problem.Expected) +
           (problem.Found.empty() ? "" : " found " + problem.Found);
}

TEST(YamlProblems, AreToldWithTheirPlace)
{
    const std::pair<const char*, const char*> cases[] = {
        {"é: [ü, *x]\n", "1 1:10 +9 expected the alias of an anchor that ends before it"},
        {"- &x [1, *x]\n", "1 1:10 +9 expected the alias of an anchor that ends before it"},
        {"? [a]\n: 1\n", "1 1:3 +2 expected a key"},
        {"{{a: 1}: 2}", "1 1:2 +1 expected a key"},
        {"a: 1\n---\nb: 2\n", "3 3:1 +9 expected the end of the text"},
        {"", "2 1:1 +0 expected a value"},
        {"# nothing\n", "2 2:1 +10 expected a value"},
        {"[1, 2", "2 1:6 +5 expected ',' or ']'"},
        {"a: b: c\n", "1 1:5 +4 found mapping values are not allowed in this context"},
        {"a: [1, 2}\n", "1 1:9 +8 expected ',' or ']'"},
        {"'open", "2 1:6 +5 found unexpected end of stream"},
        {"a: \xff\n", "8 1:4 +3"},
        {"a: \xc3(\n", "8 1:5 +4"},
        {"a: \x01\n", "7 1:4 +3"},
        {"@x", "1 1:1 +0 found character that cannot start any token"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(ProblemOf(text), expected) << text;
}

TEST(YamlProblems, LeaveDuplicatesToThePolicy)
{
    EXPECT_EQ(ProblemOf<house::Door>("a: 1\nb: 2\na: 3\n"), "25 3:1 +10 first 1:1");
    EXPECT_EQ(ProblemOf<house::Door>("{a: 1, a: 2}"), "25 1:8 +7 first 1:2");
    CReadPolicy policy;
    policy.LastDuplicateWins = true;
    EXPECT_EQ(ProblemOf<house::Door>("a: 1\nb: 2\na: 3\n", policy), R"(none: {"a":3,"b":2})");
}

/// Each line of the text holds the one before nine times.
std::string Laughs(int levels)
{
    std::string text = "a0: &a0 lol\n";
    for (int i = 1; i <= levels; ++i) {
        const std::string name = "a" + std::to_string(i);
        text += name + ": &" + name + " [";
        for (int j = 0; j < 9; ++j)
            text += (j == 0 ? "*a" : ", *a") + std::to_string(i - 1);
        text += "]\n";
    }
    return text;
}

TEST(YamlAliases, ExpandWithinTheBoundOnly)
{
    CReadPolicy policy;
    EXPECT_EQ(ProblemOf(Laughs(30)).substr(0, 3), "10 ");
    // 91 laughs of 5 bytes, 88 commas between them, 11 pairs of brackets, 3 keys of 5 bytes, 2 commas, 2 braces.
    EXPECT_EQ(Meaning(Laughs(2)).size(), 584U);
    const std::string text = "- &a xxxxxxxxxx\n- *a\n- *a\n"; // each alias counts 18 bytes
    policy.MaxBytes = text.size() + 36;
    EXPECT_EQ(Meaning(text, policy), R"(["xxxxxxxxxx","xxxxxxxxxx","xxxxxxxxxx"])");
    --policy.MaxBytes;
    EXPECT_EQ(ProblemOf(text, policy).substr(0, 3), "10 ");
    policy.MaxBytes = text.size() - 1;
    EXPECT_EQ(ProblemOf(text, policy).substr(0, 3), "10 ");
}

TEST(YamlDepth, IsBounded)
{
    for (const char* open : {"[", "{a: "}) {
        std::string text;
        for (int i = 0; i < 5000; ++i)
            text += open;
        EXPECT_EQ(ProblemOf(text).substr(0, 2), "9 ") << open;
    }
    EXPECT_EQ(Meaning(std::string(900, '[') + std::string(900, ']')), std::string(900, '[') + std::string(900, ']'));
}

} // namespace
