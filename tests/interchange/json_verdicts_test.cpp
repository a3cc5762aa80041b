// What is JSON and what is not: one table of texts, each read into raw text and into a tree, whole and byte by byte.

#include <chrono>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <vexa/interchange.h>
#include <vexa/json_tree.h>

#include "support/independent_json.h"
#include "support/json_texts.h"
#include "support/told_verdicts.h"

namespace {

using namespace std::string_literals;
using vexa_test::Shown;

/// Texts of which the grammar says the same.
struct Group {
    const char* Name;
    std::vector<std::string> Texts;
};

std::string Times(std::size_t count, const std::string& text)
{
    std::string all;
    for (; count > 0; --count)
        all += text;
    return all;
}

const std::vector<Group> ACCEPTED = {
    {"an array",
     {"[]", "[[]   ]", "[\"\"]", " [] ", "[1,2]", "[1\n]", " [1]", "[2] ", "[1,null,null,null,2]",
      "[null, 1, \"1\", {}]", "[[[[]],[]]]", "\t[\r\n1\t,\r2 ]\n"}},
    {"an object",
     {"{}", "{\"\":0}", "{\"a\":[]}", "{\"a\":\"b\",\"a\":\"c\"}", "{\"a\":1,\"a\":1}", "{\"a\\u0000b\":1}",
      "{\n\"a\" : \"b\"\n}", "{\"least\":-1.0e+28, \"most\": 1.0e+28}", "{\"x\":[{\"id\":\"" + Times(40, "x") + "\"}]}",
      "{\"\\u0430\":\"\\u0431\"}", "{\"a\":{\"b\":{\"c\":{}}}}"}},
    {"a number",
     {"0",
      "-0",
      "[-0]",
      "[0e+1]",
      "[0e1]",
      "[ 4]",
      "[-1]",
      "[-123]",
      "[20e1]",
      "[123e65]",
      "[1E22]",
      "[1E-2]",
      "[1E+2]",
      "[123e45]",
      "[123.456e78]",
      "[1e-2]",
      "[1e+2]",
      "[123]",
      "[123.456789]",
      "[0.5]",
      "[-0.0]",
      "[123.000000000000]",
      "[-0." + Times(77, "0") + "1]",
      "[1.0e0000000000]",
      "-1",
      "42",
      "0.1"}},
    {"a string",
     {"\"\"",
      "\" \"",
      "[\"\\u0060\\u012a\\u12AB\"]",
      "[\"\\ud801\\udc37\"]",
      "[\"\\ud83d\\ude39\\ud83d\\udc8d\"]",
      "[\"\\\"\\\\\\/\\b\\f\\n\\r\\t\"]",
      "[\"\\\\u0000\"]",
      "[\"\\\"\"]",
      "[\"a/*b*/c/*d//e\"]",
      "[\"\\\\a\"]",
      "[\"\\\\n\"]",
      "[\"\\u0012\"]",
      "[\"\\uFFFF\"]",
      "[\"asd\"]",
      "[ \"asd\"]",
      "[\"\\uDBFF\\uDFFF\"]",
      "[\"new\\u00A0line\"]",
      "[\"\xF4\x8F\xBF\xBF\"]",
      "[\"\xEF\xBF\xBF\"]",
      "[\"\\u0000\"]",
      "[\"\\u002c\"]",
      "[\"\xCF\x80\"]",
      "[\"\xF0\x9B\xBF\xBF\"]",
      "[\"\\uD834\\uDd1e\"]",
      "[\"\\u0821\"]",
      "[\"\\u0123\"]",
      "[\"\xE2\x80\xA8\"]",
      "[\"\xE2\x80\xA9\"]",
      "[\"\\u0061\\u30af\\u30EA\\u30b9\"]",
      "[\"new\\u000Aline\"]",
      "[\"\x7F\"]",
      "[\"\\uA66D\"]",
      "[\"\\u0022\"]",
      "[\"\\uDBFF\\uDFFE\"]",
      "[\"\\uD83F\\uDFFE\"]",
      "[\"\\u200B\"]",
      "[\"\\u2064\"]",
      "[\"\\uFDD0\"]",
      "[\"\\uFFFE\"]",
      "[\"\xE2\x82\xAC\xF0\x9D\x84\x9E\"]",
      "[\"a\x7F"
      "a\"]",
      "[\"\xE2\x8D\x82\xE3\x88\xB4\xE2\x8D\x82\"]",
      "[\"\\u005C\"]"}},
    {"a word", {"true", "false", "null", "[true]", "[false]", "[null]", " true ", "null\n"}},
};

const std::vector<Group> REFUSED = {
    {"an array whose elements are not apart",
     {"[1 true]", "[3[4]]", "[\"\": 1]", "[1:2]", "[1;2]", "[1}", "[\"x\"\"y\"]", "[{}{}]"}},
    {"an array with a comma too many",
     {"[,1]", "[1,,2]", "[\"x\",,]", "[\"\",]", "[,]", "[   , \"\"]", "[1,]", "[1,,]", "[1,\n]"}},
    {"an array that does not end",
     {"[", "[[", "[\"\"", "[\"x\"", "[1", "[1,", "[1,\n1\n,1", "[\"a\",\n4\n,1,", "[{}", "[x", "[,", "['", "[\"a", "[{",
      "[ false, nul", "[ true, fals", "[ false, tru", "[\"\\{[\"\\{[\"\\{[\"\\{"}},
    {"an array with what is no value",
     {"[*]", "[-]", "[a\xE5]", "[\xFF]", "[\"\va\"\f]", "[\f]", "[\v]", "[\0]"s, "[<null>]", "[\xE2\x81\xA0]",
      "[\xC2\xA0]", "[\xEF\xBB\xBF]", "[\\n]", "[\\u0020\"asd\"]", "[\\u000A\"\"]", "[undefined]", "[\x1F]"}},
    {"an object with what is no key",
     {"{[: \"x\"}", "{\xF0\x9F\x87\xA8\xF0\x9F\x87\xAD}", "{key: 'value'}", "{:\"b\"}", "{1:1}", "{9999E9999:1}",
      "{null:null,null:null}", "{'a':0}", "{a: \"b\"}", "{true:1}", "{{}:1}", "{-1:1}"}},
    {"an object whose parts are not apart",
     {"{\"x\", null}", "{\"x\"::\"b\"}", "{\"a\" b}", "{\"a\" \"b\"}", "{\"a\":\"a\" 123}", "{\"a\":1 \"b\":2}",
      "{\"a\"=1}", "{ \"foo\" : \"bar\", \"a\" }", "{\"a\":1;\"b\":2}", "{\"a\":}", "{\"a\"}"}},
    {"an object with a comma too many",
     {"{\"id\":0,}", "{\"id\":0,,,,,}", "{\"a\":\"b\",,\"c\":\"d\"}", "{,\"a\":1}", "{,}", "{\"\xB9\":\"0\",}"}},
    {"an object that does not end",
     {"{", "{\"a\"", "{\"a\":", "{\"\":", "{\"a\":\"a", "{\"asd\":\"asd\"", "{\"x\": true,", "{,", "{[", "{]", "{\"a",
      "{'a'", "{\"a\":{", "{\"a\":1]"}},
    {"a comment",
     {"{\"a\":\"b\"}/**/", "{\"a\":\"b\"}/**//", "{\"a\":\"b\"}//", "{\"a\":\"b\"}/", "{\"a\":/*comment*/\"b\"}",
      "{\"a\":\"b\"}#", "{\"a\":\"b\"}#{}", "//\n1", "[1#2\n]"}},
    {"a number with a sign too many",
     {"[++1234]", "[+1]", "[+Inf]", "[- 1]", "[--1]", "[0e+-1]", "[.-1]", "[-foo]", "[1e++2]", "-", "+", "[1-]"}},
    {"a number that begins with zero", {"[-01]", "[012]", "[-012]", "[00]", "[-00.5]", "01"}},
    {"a number whose fraction is not whole",
     {"[-1.0.]", "[-2.]", "[.2e-3]", "[0.1.2]", "[0.e1]", "[1.]", "[2.e+3]", "[2.e-3]", "[2.e3]", "[9.e+]", "[-.123]",
      "[.123]", "[.]", "1.", ".5"}},
    {"a number whose exponent is not whole",
     {"[0.3e+]", "[0.3e]", "[0E+]", "[0E]", "[0e+]", "[0e]", "[1.0e+]", "[1.0e-]", "[1.0e]", "[1eE2]", "[1ea]",
      "[1e1.5]", "[e1]", "1e", "1e+"}},
    {"a number with something behind",
     {"[1 000.0]", "[1_000]", "[1+2]", "[0x1]", "[0x42]", "[-123.123foo]", "[-1x]", "[1.2a-3]", "[1f]", "[1L]",
      "[1.8011670033376514H-308]", "[123\xE5]", "[1e1\xE5]", "[0\xE5]", "[1e\xE5]", "123\0"s, "2@", "0x", "1,2"}},
    {"what is no number",
     {"[Inf]", "[NaN]", "[nan]", "[Infinity]", "[-Infinity]", "[-NaN]", "[inf]", "[\xEF\xBC\x91]"}},
    {"a word that is not whole or not small",
     {"[fals]", "[nul]", "[tru]", "[True]", "[TRUE]", "[NULL]", "[\"x\", truth]", "[nulls]", "truefalse", "tru",
      "abc"}},
    {"an escape that is none",
     {"[\"\\x00\"]", "[\"\\a\"]", "[\"\\\xF0\x9F\x8C\x80\"]", "[\"\\\t\"]", "[\"\\\0\"]"s, "[\"\\uqqqq\"]",
      "[\"\\u00A\"]", "[\"\\u\xE5\"]", "[\"\\\xE5\"]", "\"\\UA66D\"", "[\"\\'\"]", "[\"\\v\"]", "[\"\\0\"]",
      "[\"\\u+123\"]", "[\"\\u 123\"]", "[\"\\u0x1\"]", "[\"\\N\"]"}},
    {"half of a pair and an escape that is none",
     {"[\"\\uD800\\\"]", "[\"\\uD800\\u\"]", "[\"\\uD800\\u1\"]", "[\"\\uD800\\u1x\"]", "[\"\\uD834\\uDd\"]",
      "[\"\\uD800\\uD800\\x\"]"}},
    {"a string that does not end",
     {"\"", "[\"\\", "[\"\\\"]", "[\"\\\\\\\"]", "[\"asd]", "[\"asd", "\"\\u12", "\"a\n\"", "\"\\uD800", "\"\xE2\x82"}},
    {"a control character in a string",
     {"[\"a\0a\"]"s, "[\"new\nline\"]", "[\"\t\"]", "[\"\x1F\"]", "[\"\r\"]", "{\"\n\":1}"}},
    {"a string without its quotation marks",
     {"[\xC3\xA9]", "['single quote']", "abc", "\xE9", "a\xC3\xA5", "\xC3\xA5"}},
    {"a text behind the value",
     {"[\"\"],", "[\"x\"]]", "\"\"x", "[1]x", "[1]]", "[][]", "{}}", "1]", "{\"a\": true} \"x\"", "1 2", "{} {}",
      "[]\0"s, "null,", "\"a\"\"b\""}},
    {"no value at all",
     {"", " ", "\n", "\t\r\n ", "]", "}", ",", ":", "*", "<.>", "\0"s, "\xE5", "\x1A", "\xE2\x81\xA0"}},
    {"a byte order mark", {"\xEF\xBB\xBF", "\xEF\xBB{}", "\xEF\xBB\xBF[]", "\xEF", "\xFE\xFF\0[\0]"s}},
    {"nesting without end", {Times(100000, "["), Times(50000, "[{\"\":"), Times(100000, "{\"a\":"), Times(1001, "[")}},
};

bool IsRaw(const std::string& text)
{
    vexa::CRawJson raw;
    const bool isRaw = raw.Set(text);
    EXPECT_EQ(raw.Text(), isRaw ? text.substr(text.find_first_not_of(" \t\r\n"), raw.Text().size()) : "null");
    return isRaw;
}

bool IsTree(const std::string& text, bool isInPieces)
{
    vexa::CJsonTree tree;
    vexa::CReport report;
    const bool isTree = isInPieces ? vexa::ReadJson(tree, vexa_test::InPieces(vexa_test::ByteByByte(text)), report)
                                   : tree.Parse(text, report);
    EXPECT_EQ(isTree, report.IsEmpty());
    return isTree;
}

void ExpectVerdict(const std::string& name, const std::string& text, bool isAccepted)
{
    SCOPED_TRACE(name + ": " + Shown(text.substr(0, 80)));
    EXPECT_EQ(IsRaw(text), isAccepted);
    EXPECT_EQ(IsTree(text, false), isAccepted);
    EXPECT_EQ(IsTree(text, true), isAccepted);
}

TEST(JsonVerdicts, WhatIsJsonIsAccepted)
{
    for (const Group& group : ACCEPTED) {
        for (const std::string& text : group.Texts) {
            ExpectVerdict(group.Name, text, true);
            EXPECT_TRUE(vexa_test::Json::accept(text)) << Shown(text);
        }
    }
}

TEST(JsonVerdicts, WhatIsNotIsRefused)
{
    vexa_test::Json json;
    for (const Group& group : REFUSED) {
        for (const std::string& text : group.Texts) {
            ExpectVerdict(group.Name, text, false);
            EXPECT_NE(vexa_test::VerdictOnText(text, json), vexa_test::Verdict::ACCEPTED) << Shown(text);
        }
    }
}

TEST(JsonVerdicts, WhatTheStandardLeavesOpenIsAsThePageSays)
{
    const std::vector<std::pair<std::string, std::string>> texts = {
        {"i_number_double_huge_neg_exp", "[98.7e-650]"},
        {"i_number_huge_exp", "[0.5e00" + Times(120, "7") + "]"},
        {"i_number_neg_int_huge_exp", "[-2e+8888]"},
        {"i_number_pos_double_huge_exp", "[2.5e+8888]"},
        {"i_number_real_neg_overflow", "[-4567e90000]"},
        {"i_number_real_pos_overflow", "[4567e90000]"},
        {"i_number_real_underflow", "[45e-9000000]"},
        {"i_number_too_big_neg_int", "[-" + Times(10, "456") + "]"},
        {"i_number_too_big_pos_int", "[3" + Times(20, "0") + "]"},
        {"i_number_very_big_negative_int", "[-" + Times(12, "8765") + "]"},
        {"i_object_key_lone_2nd_surrogate", "{\"\\uDEAD\":0}"},
        {"i_string_1st_surrogate_but_2nd_missing", "[\"\\uDABA\"]"},
        {"i_string_1st_valid_surrogate_2nd_invalid", "[\"\\uD877\\u4321\"]"},
        {"i_string_UTF-16LE_with_BOM", "\xFF\xFE[\0\"\0\xE8\0\"\0]\0"s},
        {"i_string_UTF-8_invalid_sequence", "[\"\xE6\x97\xA5\xD1\x88\xFB\"]"},
        {"i_string_UTF8_surrogate_U+D800", "[\"\xED\xA0\x80\"]"},
        {"i_string_incomplete_surrogate_and_escape_valid", "[\"\\uD801\\n\"]"},
        {"i_string_incomplete_surrogate_pair", "[\"\\uDd2eb\"]"},
        {"i_string_incomplete_surrogates_escape_valid", "[\"\\uD801\\uD801\\n\"]"},
        {"i_string_invalid_lonely_surrogate", "[\"\\ud801\"]"},
        {"i_string_invalid_surrogate", "[\"\\ud801bcd\"]"},
        {"i_string_invalid_utf-8", "[\"\xFE\"]"},
        {"i_string_inverted_surrogates_U+1D11E", "[\"\\uDd1e\\uD834\"]"},
        {"i_string_iso_latin_1", "[\"\xE8\"]"},
        {"i_string_lone_second_surrogate", "[\"\\uDEAD\"]"},
        {"i_string_lone_utf8_continuation_byte", "[\"\x82\"]"},
        {"i_string_not_in_unicode_range", "[\"\xF4\xBF\xBF\xBE\"]"},
        {"i_string_overlong_sequence_2_bytes", "[\"\xC0\xAE\"]"},
        {"i_string_overlong_sequence_6_bytes", "[\"\xFC\x83\xBF\xBF\xBF\xBE\"]"},
        {"i_string_overlong_sequence_6_bytes_null", "[\"\xFC\x80\x80\x80\x80\x80\"]"},
        {"i_string_truncated-utf-8", "[\"\xE0\xFE\"]"},
        {"i_string_utf16BE_no_BOM", "\0[\0\"\0\xE8\0\"\0]"s},
        {"i_string_utf16LE_no_BOM", "[\0\"\0\xE8\0\"\0]\0"s},
        {"i_structure_500_nested_arrays", Times(500, "[") + Times(500, "]")},
        {"i_structure_UTF-8_BOM_empty_object", "\xEF\xBB\xBF{}"},
    };
    const std::map<std::string, std::string> told = vexa_test::ToldVerdicts();
    EXPECT_EQ(told.size(), texts.size());
    for (const auto& [name, text] : texts) {
        const auto found = told.find(name + ".json");
        ASSERT_NE(found, told.end()) << name;
        ExpectVerdict(name, text, found->second == "accepted");
    }
}

/// However deep, a text takes time by its length, and no stack by its depth.
TEST(JsonVerdicts, DeepNestingEndsAtTheBoundOfThePolicy)
{
    vexa::CReadPolicy policy;
    policy.MaxDepth = 200000;
    const std::string deep = Times(200000, "[") + Times(200000, "]");
    vexa::CJsonTree tree;
    vexa::CReport report;
    EXPECT_TRUE(tree.Parse(deep, report, policy));
    const vexa::CJsonTree copy = tree;
    EXPECT_TRUE(copy == tree);
    vexa::CWritePolicy writing;
    writing.MaxDepth = policy.MaxDepth;
    EXPECT_TRUE(tree.AsJson(writing) == deep);
    vexa::CRawJson raw;
    EXPECT_TRUE(vexa::ReadJson(raw, deep, report, policy));
    EXPECT_FALSE(tree.Parse('[' + deep + ']', report, policy));
}

} // namespace
