#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/vexa.h>

#include "support/decimal_comma.h"
#include "support/problem_lines.h"

// Floating values over their whole range: written with the shortest digits and read back equal, each with limits of
// its own.

namespace {

/// The value of a text, or its problem's code and what was expected.
template<class T>
std::string Told(const std::string& text, T& value)
{
    vexa::CReport report;
    vexa::ReadJson(value, text, report);
    if (report.IsEmpty()) return "";
    const vexa::CProblem& problem = report.Problems().front();
    return std::to_string(static_cast<int>(problem.Code)) + ' ' + problem.Expected;
}

/// A value of any exponent, denormal ones too.
template<class T>
T RandomFloating(std::mt19937_64& random)
{
    using Limits = std::numeric_limits<T>;
    std::uniform_int_distribution<int> exponents(Limits::min_exponent - Limits::digits - 1, Limits::max_exponent - 1);
    const T mantissa = static_cast<T>(random()) / static_cast<T>(std::numeric_limits<std::uint64_t>::max()) + T(1);
    const T value = std::ldexp(mantissa, exponents(random) - 1);
    return random() % 2 == 0 ? value : -value;
}

template<class T>
void ExpectBack(T value)
{
    T back = T(7);
    const std::string text = vexa::WriteJson(value);
    EXPECT_EQ("", Told(text, back)) << text;
    EXPECT_EQ(value, back) << text;
    EXPECT_EQ(std::signbit(value), std::signbit(back)) << text;
}

template<class T>
void ExpectWholeRangeBack(std::mt19937_64& random)
{
    using Limits = std::numeric_limits<T>;
    for (const T value : {T(0), Limits::denorm_min(), Limits::min(), Limits::max(), Limits::epsilon(), T(1) / T(3)}) {
        ExpectBack(value);
        ExpectBack(-value);
    }
    ExpectBack(std::nextafter(Limits::min(), T(0)));
    for (int i = 0; i < 500; ++i)
        ExpectBack(RandomFloating<T>(random));
}

TEST(ReadFloating, TheWholeRangeComesBack)
{
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937_64 random(seed);
    ExpectWholeRangeBack<float>(random);
    ExpectWholeRangeBack<double>(random);
    ExpectWholeRangeBack<long double>(random);
}

TEST(ReadFloating, WhatIsTooSmallIsZeroAndWhatIsTooLargeAProblem)
{
    double number = 1;
    EXPECT_EQ("", Told("1e-400", number));
    EXPECT_EQ(0, number);
    EXPECT_EQ("", Told("-1e-400", number));
    EXPECT_TRUE(number == 0 && std::signbit(number));
    EXPECT_EQ("21 a number that a double can hold", Told("1e400", number));
    float single = 1;
    EXPECT_EQ("", Told("1e-60", single));
    EXPECT_EQ(0, single);
    EXPECT_EQ("21 a number that a float can hold", Told("1e39", single));
    long double precise = 1;
    EXPECT_EQ("", Told("1e-400", precise));
    EXPECT_EQ(1e-400L, precise);
    EXPECT_EQ("", Told("1e400", precise));
    EXPECT_EQ(1e400L, precise);
    EXPECT_EQ("", Told("1e-5000", precise));
    EXPECT_EQ(0, precise);
    EXPECT_EQ("", Told("-1e-5000", precise));
    EXPECT_TRUE(precise == 0 && std::signbit(precise));
    EXPECT_EQ("21 a number that a long double can hold", Told("1e5000", precise));
    EXPECT_EQ("", Told("0." + std::string(6000, '0') + "1e6001", precise));
    EXPECT_EQ(1, precise);
}

TEST(ReadFloating, SmallLongDoublesDependOnNoLocale)
{
    const vexa_test::CDecimalComma comma;
    if (!comma.Found()) GTEST_SKIP() << "no locale with a decimal comma";
    long double precise = 1;
    EXPECT_EQ("", Told("3.6451995318824746025e-4951", precise));
    EXPECT_EQ(std::numeric_limits<long double>::denorm_min(), precise);
}

} // namespace
