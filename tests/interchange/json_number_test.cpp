// Numbers as events: what kind each is, and its value; the digits are always there.

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include <vexa/event.h>

#include "support/json_texts.h"

namespace {

using namespace vexa_test;
using vexa::CEvent;
using vexa::EventKind;

CEvent NumberOf(const std::string& text)
{
    CEvent event;
    vexa::CProblem problem;
    EXPECT_TRUE(vexa::JsonEvents(text)->Next(event, problem)) << text;
    EXPECT_EQ(event.Text, text);
    return event;
}

TEST(JsonNumber, IntegersThatFitAreSigned)
{
    for (const long long value : {0LL, 1LL, -1LL, 9LL, 10LL, 12345678LL, -123456789LL, 1234567890123456LL,
                                  std::numeric_limits<long long>::max(), std::numeric_limits<long long>::min()}) {
        const CEvent event = NumberOf(std::to_string(value));
        EXPECT_EQ(event.Kind, EventKind::SIGNED) << value;
        EXPECT_EQ(event.Signed, value);
    }
}

TEST(JsonNumber, LargerOnesAreUnsigned)
{
    for (const unsigned long long value :
         {9223372036854775808ULL, 9999999999999999999ULL, 10000000000000000000ULL, 18446744073709551615ULL}) {
        const CEvent event = NumberOf(std::to_string(value));
        EXPECT_EQ(event.Kind, EventKind::UNSIGNED) << value;
        EXPECT_EQ(event.Unsigned, value);
    }
}

TEST(JsonNumber, OthersAreFloating)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const std::pair<const char*, double> cases[] = {
        {"1.0", 1},
        {"-0.0", -0.0},
        {"-0", -0.0},
        {"1e3", 1000},
        {"25E-1", 2.5},
        {"0.1", 0.1},
        {"18446744073709551616", 18446744073709551616.0},
        {"-9223372036854775809", -9223372036854775808.0},
        {"1e308", 1e308},
        {"1e400", infinity},
        {"-1e400", -infinity},
        {"0.001e403", infinity},
        {"1e-400", 0.0},
        {"-1e-400", -0.0},
        {"5e-324", 5e-324},
        {"1e999999999999999999999", infinity},
        {"1e-999999999999999999999", 0.0},
        {"0e999999999999999999999", 0.0},
    };
    for (const auto& [text, value] : cases) {
        const CEvent event = NumberOf(text);
        EXPECT_EQ(event.Kind, EventKind::FLOATING) << text;
        EXPECT_EQ(event.Floating, value) << text;
        EXPECT_EQ(std::signbit(event.Floating), std::signbit(value)) << text;
    }
}

TEST(JsonNumber, RandomIntegersOfEveryLengthAreExact)
{
    const unsigned seed = std::random_device()();
    std::mt19937_64 random(seed);
    for (int i = 0; i < 20000; ++i) {
        const auto value = static_cast<long long>(random() >> (random() % 64)) * (i % 2 == 0 ? 1 : -1);
        if (value == 0) continue;
        const std::string text = std::to_string(value) + std::string(static_cast<std::size_t>(i % 3), ' ');
        CEvent event;
        vexa::CProblem problem;
        ASSERT_TRUE(vexa::JsonEvents(text)->Next(event, problem)) << "seed " << seed;
        ASSERT_EQ(event.Kind, EventKind::SIGNED) << "seed " << seed;
        ASSERT_EQ(event.Signed, value) << "seed " << seed;
    }
}

TEST(JsonNumber, RandomDoublesAreTheNearest)
{
    const unsigned seed = std::random_device()();
    std::mt19937_64 random(seed);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t bits = random();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value)) continue;
        char text[64];
        const auto format = i % 2 == 0 ? std::chars_format::scientific : std::chars_format::general;
        const char* const end = std::to_chars(text, text + sizeof text, value, format).ptr;
        const std::string digits(text, static_cast<std::size_t>(end - text));
        if (digits.find_first_of(".e") == digits.npos) continue;
        ASSERT_EQ(NumberOf(digits).Floating, value) << "seed " << seed << ": " << digits;
    }
}

} // namespace
