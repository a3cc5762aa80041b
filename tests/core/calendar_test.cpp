#include <vexa/date_time.h>

#include <climits>
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "support/decimal_comma.h"

namespace {

using vexa::Date2Tm;
using vexa::DateTime2Tm;
using vexa::String2Tm;
using vexa::Tm2String;

/// A tm without a zero byte, to see what is cleared.
tm Garbage()
{
    tm t;
    std::memset(&t, 0x5A, sizeof t);
    return t;
}

tm Fields(int year, int month, int day, int hour, int min, int sec, int isdst)
{
    tm t{};
    t.tm_year = year - 1900;
    t.tm_mon = month - 1;
    t.tm_mday = day;
    t.tm_hour = hour;
    t.tm_min = min;
    t.tm_sec = sec;
    t.tm_isdst = isdst;
    return t;
}

void ExpectFields(const tm& expected, const tm& t)
{
    EXPECT_EQ(expected.tm_year, t.tm_year);
    EXPECT_EQ(expected.tm_mon, t.tm_mon);
    EXPECT_EQ(expected.tm_mday, t.tm_mday);
    EXPECT_EQ(expected.tm_hour, t.tm_hour);
    EXPECT_EQ(expected.tm_min, t.tm_min);
    EXPECT_EQ(expected.tm_sec, t.tm_sec);
    EXPECT_EQ(expected.tm_isdst, t.tm_isdst);
    EXPECT_EQ(expected.tm_gmtoff, t.tm_gmtoff);
    EXPECT_EQ(expected.tm_zone, t.tm_zone);
}

TEST(Date2Tm, ClearsAndSetsTheDate)
{
    tm t = Garbage();
    EXPECT_TRUE(Date2Tm(t, 2001, 9, 8));
    const tm expected = Fields(2001, 9, 8, 0, 0, 0, 0);
    EXPECT_EQ(0, std::memcmp(&expected, &t, sizeof t));
}

TEST(Date2Tm, TakesTheYears1900To9999)
{
    tm t;
    EXPECT_FALSE(Date2Tm(t, 1899, 1, 1));
    EXPECT_FALSE(Date2Tm(t, 0, 1, 1));
    EXPECT_TRUE(Date2Tm(t, 1900, 1, 1));
    EXPECT_EQ(0, t.tm_year);
    EXPECT_TRUE(Date2Tm(t, 9999, 1, 1));
    EXPECT_EQ(8099, t.tm_year);
    EXPECT_FALSE(Date2Tm(t, 10000, 1, 1));
    EXPECT_FALSE(Date2Tm(t, 65535, 1, 1));
}

TEST(Date2Tm, TakesTheMonths1To12)
{
    tm t;
    EXPECT_FALSE(Date2Tm(t, 2001, 0, 1));
    EXPECT_TRUE(Date2Tm(t, 2001, 1, 1));
    EXPECT_TRUE(Date2Tm(t, 2001, 12, 1));
    EXPECT_FALSE(Date2Tm(t, 2001, 13, 1));
}

TEST(Date2Tm, TakesTheDays1To31InAnyMonth)
{
    tm t;
    EXPECT_FALSE(Date2Tm(t, 2001, 2, 0));
    EXPECT_TRUE(Date2Tm(t, 2001, 2, 31));
    EXPECT_EQ(31, t.tm_mday);
    EXPECT_FALSE(Date2Tm(t, 2001, 2, 32));
}

TEST(Date2Tm, ARefusedDateLeavesTheFieldsCleared)
{
    tm t = Garbage();
    EXPECT_FALSE(Date2Tm(t, 2001, 13, 1));
    const tm expected{};
    EXPECT_EQ(0, std::memcmp(&expected, &t, sizeof t));
}

TEST(DateTime2Tm, SetsDateAndTimeWithUnknownDaylightSaving)
{
    tm t = Garbage();
    EXPECT_TRUE(DateTime2Tm(t, 2001, 9, 8, 23, 59, 58));
    ExpectFields(Fields(2001, 9, 8, 23, 59, 58, -1), t);
}

TEST(DateTime2Tm, TakesTheTimesOfADay)
{
    tm t;
    EXPECT_TRUE(DateTime2Tm(t, 2001, 9, 8, 0, 0, 0));
    EXPECT_TRUE(DateTime2Tm(t, 2001, 9, 8, 23, 59, 59));
    EXPECT_FALSE(DateTime2Tm(t, 2001, 9, 8, 24, 0, 0));
    EXPECT_FALSE(DateTime2Tm(t, 2001, 9, 8, 0, 60, 0));
    EXPECT_FALSE(DateTime2Tm(t, 2001, 9, 8, 0, 0, 60));
    EXPECT_FALSE(DateTime2Tm(t, 2001, 13, 8, 0, 0, 0));
}

TEST(DateTime2Tm, ARefusedTimeLeavesTheDateOnly)
{
    tm t = Garbage();
    EXPECT_FALSE(DateTime2Tm(t, 2001, 9, 8, 24, 1, 2));
    ExpectFields(Fields(2001, 9, 8, 0, 0, 0, 0), t);
}

TEST(String2Tm, ReadsTheDefaultFormat)
{
    tm t = Garbage();
    EXPECT_TRUE(String2Tm(t, "2001-09-08 23:59:58"));
    ExpectFields(Fields(2001, 9, 8, 23, 59, 58, 0), t);
}

TEST(String2Tm, TextBehindTheTimeIsIgnored)
{
    tm t;
    EXPECT_TRUE(String2Tm(t, "2001-09-08 23:59:58.125 and more"));
    ExpectFields(Fields(2001, 9, 8, 23, 59, 58, 0), t);
}

TEST(String2Tm, RefusesAnythingElse)
{
    tm t;
    EXPECT_FALSE(String2Tm(t, ""));
    EXPECT_FALSE(String2Tm(t, "2001-09-08"));
    EXPECT_FALSE(String2Tm(t, "2001-13-08 23:59:58"));
    EXPECT_FALSE(String2Tm(t, "rubbish"));
}

TEST(Tm2String, FormatsAsStrftimeDoes)
{
    const tm t = Fields(2001, 9, 8, 3, 4, 5, 0);
    EXPECT_EQ("2001-09-08 03:04:05", Tm2String(t, vexa::CDateTime::DEFAULT_DATETIME_FORMAT));
    EXPECT_EQ("day 08 of Sep", Tm2String(t, "day %d of %b"));
    EXPECT_EQ("", Tm2String(t, ""));
}

TEST(Tm2String, AFieldOutOfItsRangeGivesErrortime)
{
    const char* const format = "%Y-%m-%d %H:%M:%S";
    EXPECT_EQ("1900-01-01 00:00:00", Tm2String(Fields(1900, 1, 1, 0, 0, 0, 0), format));
    EXPECT_EQ("9999-12-31 23:59:59", Tm2String(Fields(9999, 12, 31, 23, 59, 59, 0), format));
    EXPECT_EQ("errortime", Tm2String(Fields(1899, 1, 1, 0, 0, 0, 0), format));
    EXPECT_EQ("errortime", Tm2String(Fields(10000, 1, 1, 0, 0, 0, 0), format));
    EXPECT_EQ("errortime", Tm2String(Fields(2001, 0, 1, 0, 0, 0, 0), format));
    EXPECT_EQ("errortime", Tm2String(Fields(2001, 13, 1, 0, 0, 0, 0), format));
    EXPECT_EQ("errortime", Tm2String(Fields(2001, 1, 0, 0, 0, 0, 0), format));
    EXPECT_EQ("errortime", Tm2String(Fields(2001, 1, 32, 0, 0, 0, 0), format));
    EXPECT_EQ("errortime", Tm2String(Fields(2001, 1, INT_MIN, 0, 0, 0, 0), format));
    EXPECT_EQ("errortime", Tm2String(Fields(2001, 1, 1, -1, 0, 0, 0), format));
    EXPECT_EQ("errortime", Tm2String(Fields(2001, 1, 1, 24, 0, 0, 0), format));
    EXPECT_EQ("errortime", Tm2String(Fields(2001, 1, 1, 0, -1, 0, 0), format));
    EXPECT_EQ("errortime", Tm2String(Fields(2001, 1, 1, 0, 60, 0, 0), format));
    EXPECT_EQ("errortime", Tm2String(Fields(2001, 1, 1, 0, 0, -1, 0), format));
    EXPECT_EQ("errortime", Tm2String(Fields(2001, 1, 1, 0, 0, 60, 0), format));
}

TEST(Tm2String, Gives511BytesAtMost)
{
    const tm t = Fields(2001, 9, 8, 3, 4, 5, 0);
    EXPECT_EQ(std::string(511, 'x'), Tm2String(t, std::string(511, 'x')));
    EXPECT_LE(Tm2String(t, std::string(2000, 'x')).size(), 511U);
}

TEST(Tm2String, DoesNotFollowTheLocaleOfTheCLibrary)
{
    const vexa_test::CDecimalComma german;
    if (!german.Found()) {
        GTEST_SKIP() << "no locale de_DE.UTF-8";
    }
    EXPECT_EQ("Saturday", Tm2String(
                              [] {
                                  tm t = Fields(2001, 9, 8, 0, 0, 0, 0);
                                  t.tm_wday = 6;
                                  return t;
                              }(),
                              "%A"));
}

} // namespace
