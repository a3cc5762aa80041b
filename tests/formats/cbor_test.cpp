// CBOR by the examples of RFC 8949, appendix A, and what else is well-formed or broken.

#include <vexa/cbor.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/json_tree.h>

namespace {

using vexa::CJsonTree;
using vexa::CReport;

std::string Bytes(const std::string& hex)
{
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
    return bytes;
}

std::string Hex(const std::string& bytes)
{
    constexpr char DIGITS[] = "0123456789abcdef";
    std::string hex;
    for (const char byte : bytes) {
        hex += DIGITS[static_cast<unsigned char>(byte) >> 4U];
        hex += DIGITS[static_cast<unsigned char>(byte) & 0xFU];
    }
    return hex;
}

/// As JSON, or the code, byte and length of the problem.
std::string Meaning(const std::string& bytes, const vexa::CReadPolicy& policy = {})
{
    CJsonTree tree;
    CReport report;
    vexa::CWritePolicy writing;
    writing.AllowNan = true;
    if (vexa::ReadCbor(tree, bytes, report, policy)) return tree.AsJson(writing);
    const vexa::CProblem& problem = report.Problems().at(0);
    EXPECT_EQ(problem.Place.Line, 0U); // there are no lines
    return "problem " + std::to_string(static_cast<int>(problem.Code)) + " at " + std::to_string(problem.Place.Offset) +
           (problem.Expected.empty() ? "" : ": " + problem.Expected);
}

std::string Written(const std::string& json)
{
    CJsonTree tree;
    CReport report;
    vexa::CReadPolicy policy;
    policy.AllowNan = true;
    EXPECT_TRUE(tree.Parse(json, report, policy)) << report.AsString(json);
    std::string bytes = "before";
    EXPECT_TRUE(vexa::WriteCbor(bytes, tree));
    return Hex(bytes);
}

/// Bytes, and what they mean; both ways.
const std::vector<std::pair<std::string, std::string>> BOTH_WAYS = {
    {"00", "0"},
    {"01", "1"},
    {"0a", "10"},
    {"17", "23"},
    {"1818", "24"},
    {"1819", "25"},
    {"1864", "100"},
    {"1903e8", "1000"},
    {"1a000f4240", "1000000"},
    {"1b000000e8d4a51000", "1000000000000"},
    {"1bffffffffffffffff", "18446744073709551615"},
    {"c249010000000000000000", "18446744073709551616"},
    {"3bffffffffffffffff", "-18446744073709551616"},
    {"c349010000000000000000", "-18446744073709551617"},
    {"20", "-1"},
    {"29", "-10"},
    {"3863", "-100"},
    {"3903e7", "-1000"},
    {"f90000", "0.0"},
    {"f98000", "-0.0"},
    {"f93c00", "1.0"},
    {"fb3ff199999999999a", "1.1"},
    {"f93e00", "1.5"},
    {"f97bff", "65504.0"},
    {"fa47c35000", "1e+05"},
    {"fa7f7fffff", "3.4028234663852886e+38"},
    {"fb7e37e43c8800759c", "1e+300"},
    {"f90001", "5.960464477539063e-08"},
    {"f90400", "6.103515625e-05"},
    {"f9c400", "-4.0"},
    {"fbc010666666666666", "-4.1"},
    {"f97c00", "Infinity"},
    {"f97e00", "NaN"},
    {"f9fc00", "-Infinity"},
    {"f4", "false"},
    {"f5", "true"},
    {"f6", "null"},
    {"60", R"("")"},
    {"6161", R"("a")"},
    {"6449455446", R"("IETF")"},
    {"62225c", R"("\"\\")"},
    {"62c3bc", R"("ü")"},
    {"63e6b0b4", R"("水")"},
    {"64f0908591", R"("𐅑")"},
    {"80", "[]"},
    {"83010203", "[1,2,3]"},
    {"8301820203820405", "[1,[2,3],[4,5]]"},
    {"98190102030405060708090a0b0c0d0e0f101112131415161718181819",
     "[1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25]"},
    {"a0", "{}"},
    {"a26161016162820203", R"({"a":1,"b":[2,3]})"},
    {"826161a161626163", R"(["a",{"b":"c"}])"},
    {"a56161614161626142616361436164614461656145", R"({"a":"A","b":"B","c":"C","d":"D","e":"E"})"},
};

TEST(Cbor, MeansWhatTheExamplesSay)
{
    for (const auto& [hex, meaning] : BOTH_WAYS)
        EXPECT_EQ(Meaning(Bytes(hex)), meaning) << hex;
    const std::pair<const char*, const char*> cases[] = {
        {"f7", "null"},
        {"fa7f800000", "Infinity"},
        {"fa7fc00000", "NaN"},
        {"fb7ff0000000000000", "Infinity"},
        {"fbfff0000000000000", "-Infinity"},
        {"fb7ff8000000000000", "NaN"},
        {"c074323031332d30332d32315432303a30343a30305a", R"("2013-03-21T20:04:00Z")"},
        {"c11a514b67b0", R"("2013-03-21T20:04:00Z")"},
        {"c1fb41d452d9ec200000", R"("2013-03-21T20:04:00.5Z")"},
        {"c120", R"("1969-12-31T23:59:59Z")"},
        {"d74401020304", R"("AQIDBA==")"},
        {"d818456449455446", R"("ZElFVEY=")"},
        {"d82076687474703a2f2f7777772e6578616d706c652e636f6d", R"("http://www.example.com")"},
        {"40", R"("")"},
        {"4401020304", R"("AQIDBA==")"},
        {"a201020304", R"({"1":2,"3":4})"},
        {"a1200a", R"({"-1":10})"},
        {"a13bffffffffffffffff00", R"({"-18446744073709551616":0})"},
        {"a11bffffffffffffffff00", R"({"18446744073709551615":0})"},
        {"5f42010243030405ff", R"("AQIDBAU=")"},
        {"7f657374726561646d696e67ff", R"("streaming")"},
        {"a17f61616162ff01", R"({"ab":1})"},
        {"9fff", "[]"},
        {"9f018202039f0405ffff", "[1,[2,3],[4,5]]"},
        {"9f01820203820405ff", "[1,[2,3],[4,5]]"},
        {"83018202039f0405ff", "[1,[2,3],[4,5]]"},
        {"bf61610161629f0203ffff", R"({"a":1,"b":[2,3]})"},
        {"826161bf61626163ff", R"(["a",{"b":"c"}])"},
        {"bf6346756ef563416d7421ff", R"({"Fun":true,"Amt":-2})"},
        {"1817", "23"}, // longer than need be
        {"1b0000000000000001", "1"},
        {"c24101", "1"},
        {"c240", "0"},
        {"c340", "-1"},
        {"c482200f", "1.5"},
        {"c48221196ab3", "273.15"},
        {"d9d9f783010203", "[1,2,3]"}, // self-described
        {"c4820501", "1e5"},
        {"c48228c249010000000000000000", "18446744073.709551616"},
        {"c4822601", "0.0000001"},
        {"a2616101616102", R"({"a":2})"}, // the last wins in a tree
    };
    for (const auto& [hex, meaning] : cases)
        EXPECT_EQ(Meaning(Bytes(hex)), meaning) << hex;
    EXPECT_EQ(Meaning(Bytes("c48239270f18ff")), "255e-10000");
}

TEST(Cbor, IsWrittenInTheShortestForm)
{
    for (const auto& [hex, meaning] : BOTH_WAYS)
        EXPECT_EQ(Written(meaning), hex) << meaning;
    EXPECT_EQ(Written("273.15"), "fb4071126666666666");
    EXPECT_EQ(Written("0.100000000000000000001"), "c48234c249056bc75e2d63100001"); // 100000000000000000001e-21
    EXPECT_EQ(Written("1e400"), "c48219019001");
    EXPECT_EQ(Written("-1e-400"), "c48239018f20");
    EXPECT_EQ(Written("1e99999999999999999999"), "76" + Hex("1e99999999999999999999"));
}

/// Every number of 16 bits is written as it was, but for the NaNs, which are one.
TEST(Cbor, WritesEveryHalfAsItWas)
{
    for (unsigned int bits = 0; bits < 0x10000; ++bits) {
        const std::string bytes{'\xf9', static_cast<char>(bits >> 8U), static_cast<char>(bits & 0xFFU)};
        double value = 0;
        CReport report;
        ASSERT_TRUE(vexa::ReadCbor(value, bytes, report));
        const bool isNan = (bits & 0x7C00U) == 0x7C00U && (bits & 0x3FFU) != 0;
        ASSERT_EQ(std::isnan(value), isNan);
        ASSERT_EQ(Hex(vexa::WriteCbor(value)), isNan ? "f97e00" : Hex(bytes));
    }
}

TEST(Cbor, TellsWhatIsBroken)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", "problem 2 at 0"},
        {"18", "problem 2 at 0"},
        {"1b00", "problem 2 at 0"},
        {"6261", "problem 2 at 0"},
        {"7bffffffffffffffff61", "problem 2 at 0"},
        {"5b7fffffffffffffff61", "problem 2 at 0"},
        {"82", "problem 2 at 0"},
        {"8201", "problem 2 at 0"},
        {"9bffffffffffffffff01", "problem 2 at 0"},
        {"bbffffffffffffffff0101", "problem 2 at 0"},
        {"a16161", "problem 2 at 3"},
        {"9f01", "problem 2 at 2"},
        {"bf6161", "problem 2 at 3"},
        {"7f6161", "problem 2 at 3"},
        {"c2", "problem 2 at 1"},
        {"0001", "problem 3 at 1"},
        {"8000", "problem 3 at 1"},
        {"1c", "problem 1 at 0: a data item"},
        {"ff", "problem 1 at 0: a data item"},
        {"81ff", "problem 1 at 1: a data item"},
        {"bf6161ff", "problem 1 at 3: a data item"},
        {"c1ff", "problem 1 at 1: a data item"},
        {"9fc1ff", "problem 1 at 2: a data item"},
        {"f800", "problem 1 at 0: a data item"},
        {"f0", "problem 1 at 0: a data item"},
        {"7f4161ff", "problem 1 at 1: a text"},
        {"5f6161ff", "problem 1 at 1: a byte string"},
        {"7f7f6161ffff", "problem 1 at 1: a text"},
        {"a1f500", "problem 1 at 1: a text or an integer as key"},
        {"a1416100", "problem 1 at 1: a text or an integer as key"},
        {"a1800000", "problem 1 at 1: a text or an integer as key"},
        {"c16161", "problem 4 at 1: the seconds of a time of the years 0 to 9999"},
        {"c1f97e00", "problem 4 at 1: the seconds of a time of the years 0 to 9999"},
        {"c11bffffffffffffffff", "problem 4 at 1: the seconds of a time of the years 0 to 9999"},
        {"c201", "problem 1 at 1: a number that is written as its tag says"},
        {"c401", "problem 1 at 1: a number that is written as its tag says"},
        {"c48101", "problem 1 at 1: a number that is written as its tag says"},
        {"c482f401", "problem 1 at 2: an exponent"},
        {"c48201f4", "problem 1 at 3: an integer"},
        {"c4821bffffffffffffffff01", "problem 1 at 2: an exponent"},
        {"6161c3", "problem 3 at 2"},
        {"61ff", "problem 8 at 0"},
    };
    for (const auto& [hex, expected] : cases)
        EXPECT_EQ(Meaning(Bytes(hex)), expected) << hex;
    EXPECT_EQ(Meaning(Bytes("c259103a") + std::string(4154, '\1')), "problem 4 at 1: at most 4153 bytes");
    for (const char open : {'\x81', '\x9f'})
        EXPECT_EQ(Meaning(std::string(100000, open)).substr(0, 10), "problem 9 ");
    vexa::CReadPolicy policy;
    policy.MaxBytes = 3;
    EXPECT_EQ(Meaning(Bytes("83010203"), policy).substr(0, 11), "problem 10 ");
}

} // namespace
