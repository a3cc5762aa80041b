// Numbers as decimal text, beside what the C library makes of them.

#include "core/fixed_decimal.h"

#include <cfloat>
#include <climits>
#include <cstdio>
#include <iostream>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace vexa::core;

/// What is written, between guards, in a room of the stated size.
template<class T>
std::string Decimal(T value)
{
    std::string room(DECIMAL_ROOM + 1, '#');
    const char* const end = WriteDecimal(room.data(), value);
    EXPECT_EQ(room.back(), '#');
    return room.substr(0, static_cast<std::size_t>(end - room.data()));
}

template<class T>
std::string Fixed(T value)
{
    std::string room(FIXED_ROOM<T> + 1, '#');
    const char* const end = WriteFixed(room.data(), value);
    EXPECT_EQ(room.back(), '#');
    return room.substr(0, static_cast<std::size_t>(end - room.data()));
}

template<class T>
std::string FixedOfC(T value)
{
    std::vector<char> text(FIXED_ROOM<long double>);
    std::snprintf(text.data(), text.size(), "%Lf", static_cast<long double>(value));
    return text.data();
}

template<class T>
void ExpectDecimal(T value)
{
    ASSERT_EQ(Decimal(value), std::to_string(value));
    ASSERT_EQ(DecimalLength(value), std::to_string(value).size());
}

void ExpectDecimals(unsigned long value)
{
    ExpectDecimal(value);
    ExpectDecimal(static_cast<long>(value));
    ExpectDecimal(static_cast<unsigned int>(value));
    ExpectDecimal(static_cast<int>(value));
    ExpectDecimal(static_cast<short>(value));
    ExpectDecimal(static_cast<unsigned short>(value));
    ExpectDecimal(static_cast<unsigned char>(value));
    ExpectDecimal(static_cast<unsigned long long>(value));
    ExpectDecimal(static_cast<long long>(value));
}

TEST(Decimal, IntegersAreWrittenAndMeasuredAroundEveryPowerOfTenAndOfTwo)
{
    unsigned long power = 1;
    for (int digits = 1; digits <= 20; ++digits, power *= 10) {
        for (unsigned long near = power - 2; near != power + 3; ++near) {
            ExpectDecimals(near);
            ExpectDecimals(0 - near);
        }
    }
    for (unsigned int bit = 0; bit < 64; ++bit) {
        ExpectDecimals(1UL << bit);
        ExpectDecimals((1UL << bit) - 1);
    }
}

TEST(Decimal, RandomIntegersAreWrittenAndMeasured)
{
    const auto seed = std::random_device()();
    SCOPED_TRACE(seed);
    std::mt19937_64 random(seed);
    for (int i = 0; i < 50000; ++i)
        ExpectDecimals(random() >> random() % 64);
}

TEST(Decimal, FloatingValuesHaveSixDecimalsRoundedAsTheirExactValueIs)
{
    EXPECT_EQ(Fixed(0.0), "0.000000");
    EXPECT_EQ(Fixed(-0.0), "-0.000000");
    EXPECT_EQ(Fixed(1.5F), "1.500000");
    EXPECT_EQ(Fixed(0.9999995), "1.000000"); // the double lies above the tie
    EXPECT_EQ(Fixed(0.99999949), "0.999999");
    EXPECT_EQ(Fixed(0.0000005), "0.000000"); // and this one below
    EXPECT_EQ(Fixed(0.5 / 64), "0.007812");  // a tie, to even
    EXPECT_EQ(Fixed(1.5 / 64), "0.023438");
    EXPECT_EQ(Fixed(-1234.5678), "-1234.567800");
    EXPECT_EQ(Fixed(9223372036854774784.0), "9223372036854774784.000000");
    EXPECT_EQ(Fixed(9223372036854775808.0), "9223372036854775808.000000");
    EXPECT_EQ(Fixed(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(Fixed(-std::numeric_limits<double>::infinity()), "-inf");
    EXPECT_EQ(Fixed(std::numeric_limits<float>::quiet_NaN()), "nan");
}

template<class T>
void ExpectFixed(T value)
{
    ASSERT_EQ(Fixed(value), FixedOfC(value));
}

TEST(Decimal, FloatingValuesAreWrittenAtTheirLimits)
{
    ExpectFixed(FLT_MAX);
    ExpectFixed(FLT_TRUE_MIN);
    ExpectFixed(-DBL_MAX);
    ExpectFixed(DBL_MIN);
    ExpectFixed(LDBL_MAX);
    ExpectFixed(18446744073709551615.0L);
    ExpectFixed(9223372036854775807.5L);
    ExpectFixed(0.4999999999999999999e-6L);
}

TEST(Decimal, RandomFloatingValuesAreWritten)
{
    const auto seed = std::random_device()();
    SCOPED_TRACE(seed);
    std::mt19937_64 random(seed);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t bits = random();
        double any = 0;
        std::memcpy(&any, &bits, sizeof any);
        if (any == any) ExpectFixed(any);
        ExpectFixed(static_cast<float>(any));
        ExpectFixed(static_cast<double>(random() % 2000000000) / 1e6 - 1000);
        ExpectFixed(static_cast<double>(random() % 200000) / static_cast<double>(1UL << random() % 40));
        ExpectFixed(static_cast<long double>(bits) / static_cast<long double>(1UL << random() % 64));
    }
}

} // namespace
