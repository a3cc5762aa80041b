#include <vexa/date_time.h>

#include <climits>
#include <cstdint>

#include <gtest/gtest.h>

#include "support/time_zone.h"

namespace {

using vexa::CDateTime;
using vexa::Enum::VS_VALID;

constexpr std::uint64_t kTop = 1ULL << 63;

CDateTime Before1970()
{
    tm t;
    EXPECT_TRUE(vexa::DateTime2Tm(t, 1969, 12, 31, 23, 59, 59));
    return CDateTime(&t, true);
}

TEST(DateTimePacked, ReadersGiveNoCount)
{
    const CDateTime value = Before1970();
    EXPECT_EQ(-1, value.secs());
    EXPECT_EQ(-1, value.As_time_t());
    EXPECT_EQ(ULONG_MAX, value.msecs());
    EXPECT_EQ(0, value.msec());
}

TEST(DateTimePacked, ReadersFindEveryFieldInItsBits)
{
    CDateTime value;
    value.TimeWord = kTop | 1234ULL << 51 | 11ULL << 47 | 30ULL << 42 | 22ULL << 37 | 58ULL << 31 | 57ULL << 25 |
                     987ULL << 15 | 333ULL << 6 | 5ULL << 3 | 1ULL << 1;
    EXPECT_EQ(987, value.msec());
    tm t{};
    value.mtm2tm(t);
    EXPECT_EQ(1234 - 1900, t.tm_year);
    EXPECT_EQ(10, t.tm_mon);
    EXPECT_EQ(30, t.tm_mday);
    EXPECT_EQ(22, t.tm_hour);
    EXPECT_EQ(58, t.tm_min);
    EXPECT_EQ(57, t.tm_sec);
    EXPECT_EQ(333, t.tm_yday);
    EXPECT_EQ(5, t.tm_wday);
    EXPECT_EQ(1, t.tm_isdst);
}

TEST(DateTimePacked, PackingPutsEveryFieldIntoItsBits)
{
    tm t{};
    t.tm_year = 1234 - 1900;
    t.tm_mon = 10;
    t.tm_mday = 30;
    t.tm_hour = 22;
    t.tm_min = 58;
    t.tm_sec = 57;
    t.tm_yday = 333;
    t.tm_wday = 5;
    const std::uint64_t word =
        1234ULL << 51 | 11ULL << 47 | 30ULL << 42 | 22ULL << 37 | 58ULL << 31 | 57ULL << 25 | 333ULL << 6 | 5ULL << 3;
    EXPECT_EQ(word, CDateTime::tm2mtm(t, false));
    EXPECT_EQ(word + 1, CDateTime::tm2mtm(t, true));
    t.tm_isdst = 1;
    EXPECT_EQ(word + 2, CDateTime::tm2mtm(t, false));
    t.tm_isdst = -1;
    EXPECT_EQ(word + 6, CDateTime::tm2mtm(t, false));
}

TEST(DateTimePacked, AFieldThatIsTooWideDoesNotTouchTheOthers)
{
    tm t{};
    t.tm_year = INT_MAX;
    t.tm_mday = 32;
    // The year is cut to 12 bits: 2^31 - 1 + 1900 leaves 1899. The day is cut to 5 bits: 32 leaves 0.
    EXPECT_EQ(1899ULL << 51 | 1ULL << 47, CDateTime::tm2mtm(t, false));
}

TEST(DateTimePacked, IsRenderedAsItWasReadWhateverTheZone)
{
    const vexa_test::TimeZone zone(vexa_test::kCentralEurope);
    EXPECT_EQ("1969-12-31 23:59:59", Before1970().AsString());
    EXPECT_EQ("1969-12-31 23:59:59", Before1970().AsString(nullptr, true));
    EXPECT_EQ(-1, Before1970().As_tm(true).tm_isdst);
}

TEST(DateTimePacked, AYearBefore1900RendersAsErrortime)
{
    tm t;
    ASSERT_TRUE(vexa::Date2Tm(t, 1900, 1, 1));
    t.tm_year = -1;
    const CDateTime value(&t, true);
    EXPECT_EQ(unsigned{VS_VALID}, value.State);
    EXPECT_EQ("errortime", value.AsString());
}

} // namespace
