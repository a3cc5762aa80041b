// Every basic value as JSON (RFC 8259), whole outputs.

#include <vexa/interchange.h>

#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>
#include <map>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

using vexa::CReport;
using vexa::CWritePolicy;
using vexa::ProblemCode;
using vexa::WriteJson;

struct Numbers {
    bool truth = true;
    char letter = 'a';
    unsigned char byte = 255;
    short small = -32768;
    unsigned short word = 65535;
    int number = std::numeric_limits<int>::min();
    unsigned int natural = 4294967295U;
    long large = std::numeric_limits<long>::min();
    unsigned long huge = std::numeric_limits<unsigned long>::max();
    long long wide = 0;
    unsigned long long widest = 10;
};
VEXA_DESCRIBE(Numbers, truth, letter, byte, small, word, number, natural, large, huge, wide, widest)

TEST(WriteValues, integersAreDecimal)
{
    EXPECT_EQ(WriteJson(Numbers{}),
              "{\"truth\":true,\"letter\":97,\"byte\":255,\"small\":-32768,\"word\":65535,\"number\":-2147483648,"
              "\"natural\":4294967295,\"large\":-9223372036854775808,\"huge\":18446744073709551615,\"wide\":0,"
              "\"widest\":10}");
}

TEST(WriteValues, basicValuesStandAlone)
{
    EXPECT_EQ(WriteJson(false), "false");
    EXPECT_EQ(WriteJson(-7), "-7");
    EXPECT_EQ(WriteJson(std::string("a\"b")), "\"a\\\"b\"");
    const char* text = nullptr;
    EXPECT_EQ(WriteJson(text), "null");
    text = "text";
    EXPECT_EQ(WriteJson(text), "\"text\"");
}
} // namespace
