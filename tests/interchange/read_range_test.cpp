#include <atomic>
#include <chrono>
#include <cmath>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/may_null.h>
#include <vexa/numeric.h>
#include <vexa/table.h>
#include <vexa/types.h>
#include <vexa/value.h>
#include <vexa/vexa.h>

#include "support/problem_lines.h"

// Ranges and lengths of everything that has a number or a length, however it is held.

namespace ranged {

struct Cents {
    long count = 0;
};
VEXA_DESCRIBE_CUSTOM_STD(Cents, &Cents::count)

struct Numbers {
    int whole = 0;
    signed char small = 0;
    char character = 0;
    unsigned long large = 0;
    float single = 0;
    double floating = 0;
    long double precise = 0;
    vexa::CNumeric numeric;
    vexa::MayNull<int> flagged;
    std::optional<double> optional;
    std::unique_ptr<int> pointer;
    std::shared_ptr<int> shared;
    std::atomic<double> atomic{0};
    std::chrono::milliseconds duration{0};
    std::variant<std::string, int> variant;
    Cents custom;
    vexa::CValue any;
};
VEXA_DESCRIBE_CLASS(Numbers)
{
    about.Attrib("whole", &Numbers::whole).Range(1, 9);
    about.Attrib("small", &Numbers::small).Range(-3, 9);
    about.Attrib("character", &Numbers::character).Range(0, 199);
    about.Attrib("large", &Numbers::large).Range(0, 18446744073709551614U);
    about.Attrib("single", &Numbers::single).Range(0.1, 0.3);
    about.Attrib("floating", &Numbers::floating).Range(0.1, 0.3);
    about.Attrib("precise", &Numbers::precise).Range(0, 18446744073709551614U);
    about.Attrib("numeric", &Numbers::numeric).Range(-1, 0.3);
    about.Attrib("flagged", &Numbers::flagged).Range(1, 9);
    about.Attrib("optional", &Numbers::optional).Range(1, 9);
    about.Attrib("pointer", &Numbers::pointer).Range(1, 9);
    about.Attrib("shared", &Numbers::shared).Range(1, 9);
    about.Attrib("atomic", &Numbers::atomic).Range(1, 9);
    about.Attrib("duration", &Numbers::duration).Range(1, 9);
    about.Attrib("variant", &Numbers::variant).Range(1, 9).Length(1, 3);
    about.Attrib("custom", &Numbers::custom).Range(1, 9);
    about.Attrib("any", &Numbers::any).Range(1, 9).Length(1, 3);
}

struct Lengths {
    std::string text;
    vexa::MayNull<std::string> flagged;
    std::unique_ptr<std::vector<int>> pointer;
    std::optional<std::string> optional;
    std::map<int, int> map;
    std::vector<bool> bits;
    vexa::CBinary bytes;
    char letters[4] = {};
    vexa::CRow row;
    vexa::CTable table;
};
VEXA_DESCRIBE_CLASS(Lengths)
{
    about.Attrib("text", &Lengths::text).Length(1, 2);
    about.Attrib("flagged", &Lengths::flagged).Length(1, 2);
    about.Attrib("pointer", &Lengths::pointer).Length(1, 2);
    about.Attrib("optional", &Lengths::optional).Length(1, 2);
    about.Attrib("map", &Lengths::map).Length(1, 2);
    about.Attrib("bits", &Lengths::bits).Length(1, 2);
    about.Attrib("bytes", &Lengths::bytes).Length(1, 2);
    about.Attrib("letters", &Lengths::letters).Length(1, 2);
    about.Attrib("row", &Lengths::row).Length(1, 2);
    about.Attrib("table", &Lengths::table).Length(1, 2);
}

} // namespace ranged

namespace {

/// `code expected; found` of the one problem, which must be of that attribute; empty for none.
template<class Object>
std::string Told(const std::string& key, const std::string& value)
{
    Object object;
    vexa::CReport report;
    vexa::CReadPolicy policy;
    policy.AllowNan = true;
    vexa::ReadJson(object, "{\"" + key + "\": " + value + "}", report, policy);
    if (report.IsEmpty()) return "";
    const vexa::CProblem& problem = report.Problems().front();
    EXPECT_EQ(1U, report.Problems().size());
    EXPECT_EQ(key, problem.Attrib);
    return std::to_string(static_cast<int>(problem.Code)) + ' ' + problem.Expected + "; " + problem.Found;
}

using ranged::Lengths;
using ranged::Numbers;

TEST(ReadRange, OfNumbersHoweverTheyAreHeld)
{
    for (const char* const key :
         {"whole", "flagged", "optional", "pointer", "shared", "atomic", "duration", "variant", "custom", "any"}) {
        EXPECT_EQ("28 1 to 9; 0", Told<Numbers>(key, "0"));
        EXPECT_EQ("", Told<Numbers>(key, "1"));
        EXPECT_EQ("", Told<Numbers>(key, "9"));
        EXPECT_EQ("29 1 to 9; 10", Told<Numbers>(key, "10"));
    }
    for (const char* const key : {"flagged", "optional", "pointer", "shared", "any"})
        EXPECT_EQ("", Told<Numbers>(key, "null"));
    EXPECT_EQ("28 -3 to 9; -4", Told<Numbers>("small", "-4"));
    EXPECT_EQ("29 0 to 199; 200", Told<Numbers>("character", "200"));
}

TEST(ReadRange, OfLargeNumbersIsExact)
{
    for (const char* const key : {"large", "precise"}) {
        EXPECT_EQ("", Told<Numbers>(key, "18446744073709551614"));
        EXPECT_EQ(0U, Told<Numbers>(key, "18446744073709551615").find("29 0 to 18446744073709551614; "));
    }
    EXPECT_EQ("", Told<Numbers>("large", "9223372036854775808"));
}

TEST(ReadRange, OfFloatingValuesTellsTheirShortestDigits)
{
    EXPECT_EQ("29 0.1 to 0.3; 0.4", Told<Numbers>("single", "0.4"));
    EXPECT_EQ("28 0.1 to 0.3; 0.01", Told<Numbers>("floating", "0.01"));
    EXPECT_EQ("29 1 to 9; 9.5", Told<Numbers>("atomic", "9.5"));
    EXPECT_EQ("29 1 to 9; 1e+20", Told<Numbers>("optional", "1e20"));
    EXPECT_EQ("28 0 to 18446744073709551614; -0.1", Told<Numbers>("precise", "-0.1"));
    EXPECT_EQ("", Told<Numbers>("single", "0.1"));
    EXPECT_EQ("", Told<Numbers>("single", "0.3"));
    EXPECT_EQ("29 0.1 to 0.3; NaN", Told<Numbers>("floating", "NaN"));
    EXPECT_EQ("29 0.1 to 0.3; Infinity", Told<Numbers>("floating", "Infinity"));
}

TEST(ReadRange, OfDecimalsIsThatOfTheirDigits)
{
    EXPECT_EQ("", Told<Numbers>("numeric", "0.3"));
    EXPECT_EQ("", Told<Numbers>("numeric", "0.300000"));
    EXPECT_EQ("29 -1 to 0.3; 0.30000000000000000000001", Told<Numbers>("numeric", "0.30000000000000000000001"));
    EXPECT_EQ("", Told<Numbers>("numeric", "-1.000"));
    EXPECT_EQ("", Told<Numbers>("numeric", "-0.99999999999999999999"));
    EXPECT_EQ("28 -1 to 0.3; -1.00000000000000000001", Told<Numbers>("numeric", "-1.00000000000000000001"));
    EXPECT_EQ("29 -1 to 0.3; 20", Told<Numbers>("numeric", "2e1"));
    EXPECT_EQ("", Told<Numbers>("numeric", "0e5"));
    EXPECT_EQ("", Told<Numbers>("numeric", "null"));
}

TEST(ReadRange, LengthsOfTextsAndContainersHoweverTheyAreHeld)
{
    for (const char* const key : {"text", "flagged", "optional", "letters"}) {
        EXPECT_EQ("30 at least 1 byte; 0", Told<Lengths>(key, "\"\""));
        EXPECT_EQ("", Told<Lengths>(key, "\"ab\""));
        EXPECT_EQ("31 at most 2 bytes; 3", Told<Lengths>(key, "\"abc\""));
    }
    EXPECT_EQ("31 at most 2 bytes; 3", Told<Lengths>("bytes", "\"YWJj\""));
    for (const char* const key : {"pointer", "row"}) {
        EXPECT_EQ("30 at least 1 element; 0", Told<Lengths>(key, "[]"));
        EXPECT_EQ("", Told<Lengths>(key, "[1, 2]"));
        EXPECT_EQ("31 at most 2 elements; 3", Told<Lengths>(key, "[1, 2, 3]"));
    }
    EXPECT_EQ("31 at most 2 elements; 3", Told<Lengths>("bits", "[true, true, false]"));
    EXPECT_EQ("31 at most 2 elements; 3", Told<Lengths>("map", R"({"1": 1, "2": 2, "3": 3})"));
    EXPECT_EQ("31 at most 2 elements; 3", Told<Lengths>("table", "[{}, {}, {}]"));
    EXPECT_EQ("31 at most 3 bytes; 4", Told<Numbers>("variant", "\"abcd\""));
    EXPECT_EQ("31 at most 3 bytes; 4", Told<Numbers>("any", "\"abcd\""));
}

} // namespace
