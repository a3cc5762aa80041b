// Integers as keys of CBOR: for maps of integers, classes and trees.

#include <vexa/cbor.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

namespace keys {

struct Point {
    int x = 0;
    int y = 0;
};
VEXA_DESCRIBE_CLASS(Point)
{
    about.Attrib("x", &Point::x).Key("1");
    about.Attrib("y", &Point::y).Key("2");
}

} // namespace keys

namespace {

using vexa::CReport;

std::string Bytes(const std::string& hex)
{
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
    return bytes;
}

/// As JSON, or code, byte and the second place's byte of the problem.
template<class T>
std::string Read(const std::string& hex, const vexa::CReadPolicy& policy = {})
{
    T object{};
    CReport report;
    if (vexa::ReadCbor(object, Bytes(hex), report, policy)) return vexa::WriteJson(object);
    const vexa::CProblem& problem = report.Problems().at(0);
    const std::string text =
        std::to_string(static_cast<int>(problem.Code)) + " at " + std::to_string(problem.Place.Offset);
    const std::size_t second = problem.Second.Offset;
    return second == vexa::CTextPlace::NOWHERE ? text : text + " and " + std::to_string(second);
}

using Map = std::map<int, int>;

TEST(CborKeys, OfMapsAreIntegersOrTheirText)
{
    EXPECT_EQ(Read<Map>("a201022003"), R"({"-1":3,"1":2})");
    EXPECT_EQ(Read<Map>("a1613102"), R"({"1":2})");
    EXPECT_EQ(Read<Map>("bf010218ff03ff"), R"({"1":2,"255":3})");
    EXPECT_EQ(Read<Map>("a1c10102"), "23 at 1");                   // a time, whose text is no integer
    EXPECT_EQ(Read<Map>("a11b00000000000000010a"), R"({"1":10})"); // longer than need be
    EXPECT_EQ((Read<std::map<unsigned long, int>>("a11bffffffffffffffff01")), R"({"18446744073709551615":1})");
    EXPECT_EQ((Read<std::map<std::string, int>>("a1200a")), R"({"-1":10})");
}

TEST(CborKeys, GivenTwiceAreAProblem)
{
    EXPECT_EQ(Read<Map>("a201020103"), "25 at 3") << "a map keeps no places";
    EXPECT_EQ(Read<Map>("a20102613103"), "25 at 3") << "1 and \"1\"";
    EXPECT_EQ(Read<keys::Point>("a201020103"), "25 at 3 and 1");
    vexa::CReadPolicy policy;
    policy.LastDuplicateWins = true;
    EXPECT_EQ(Read<Map>("a201020103", policy), R"({"1":3})");
}

TEST(CborKeys, NameAttributes)
{
    EXPECT_EQ(Read<keys::Point>("a201050206"), R"({"1":5,"2":6})");
    EXPECT_EQ(Read<keys::Point>("a10305"), "24 at 1");
}

/// No more is taken than what comes, whatever size is claimed.
TEST(CborKeys, AndValuesThatAreClaimedTakeNoMemory)
{
    std::vector<long> numbers;
    CReport report;
    EXPECT_FALSE(vexa::ReadCbor(numbers, Bytes("9a7fffffff01"), report));
    EXPECT_EQ(numbers.capacity(), 0U);
    const std::string bytes = Bytes("9a00010000") + std::string(0x10000 - 1, '\1'); // one short
    EXPECT_FALSE(vexa::ReadCbor(numbers, bytes, report));
    EXPECT_EQ(report.Problems().at(0).Code, vexa::ProblemCode::UNEXPECTED_END);
    EXPECT_EQ(report.Problems()[0].Place.Offset, 0U);
    EXPECT_EQ(numbers.capacity(), 0U);
    EXPECT_TRUE(vexa::ReadCbor(numbers, bytes + '\2', report));
    EXPECT_EQ(numbers.size(), 0x10000U);
    EXPECT_EQ(numbers.back(), 2);
}

} // namespace
