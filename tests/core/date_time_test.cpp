#include <vexa/date_time.h>

#include <climits>
#include <cstring>
#include <ctime>
#include <string>

#include <sys/time.h>

#include <gtest/gtest.h>

#include "support/time_zone.h"

namespace {

using vexa::CDateTime;
using vexa::DateTime2Tm;
using vexa::Enum::VS_ERROR;
using vexa::Enum::VS_NULL;
using vexa::Enum::VS_VALID;
using vexa_test::kCentralEurope;
using vexa_test::TimeZone;

constexpr std::uint64_t kTop = 1ULL << 63;

/// 2001-09-09 01:46:40 UTC.
constexpr long kBillion = 1000000000;

tm Fields(unsigned year, unsigned month, unsigned day, unsigned hour, unsigned min, unsigned sec)
{
    tm t;
    EXPECT_TRUE(DateTime2Tm(t, static_cast<unsigned short>(year), static_cast<unsigned char>(month),
                            static_cast<unsigned char>(day), static_cast<unsigned char>(hour),
                            static_cast<unsigned char>(min), static_cast<unsigned char>(sec)));
    return t;
}

CDateTime Utc(const tm& t) { return CDateTime(&t, true); }

CDateTime Before1970() { return Utc(Fields(1969, 12, 31, 23, 59, 59)); }

/// The packed word of 1969-12-31 23:59:59 UTC as DateTime2Tm sets the fields: day of the year and of the week 0,
/// daylight saving -1, which is 3 in two bits.
constexpr std::uint64_t kBefore1970Word =
    kTop | 1969ULL << 51 | 12ULL << 47 | 31ULL << 42 | 23ULL << 37 | 59ULL << 31 | 59ULL << 25 | 3ULL << 1 | 1ULL;

void ExpectValue(const CDateTime& value, unsigned state, std::uint64_t word)
{
    EXPECT_EQ(state, value.State);
    EXPECT_EQ(word, value.TimeWord);
}

TEST(DateTime, IsNullByDefault)
{
    ExpectValue(CDateTime(), VS_NULL, 0);
    EXPECT_EQ("NULL", CDateTime().AsString());
}

TEST(DateTime, InitMakesItNull)
{
    CDateTime value(5, 6);
    value.Init();
    ExpectValue(value, VS_NULL, 0);
}

TEST(DateTime, CopiesStateAndWord)
{
    const CDateTime value = Before1970();
    CDateTime copy(value);
    ExpectValue(copy, VS_VALID, kBefore1970Word);
    copy = CDateTime(5, 6);
    ExpectValue(copy, VS_VALID, 5006);
    const CDateTime& same = copy;
    copy = same;
    ExpectValue(copy, VS_VALID, 5006);
}

TEST(DateTimeOfSeconds, CountsMillisecondsFrom1970)
{
    ExpectValue(CDateTime(0, 0), VS_VALID, 0);
    ExpectValue(CDateTime(kBillion, 123), VS_VALID, 1000000000123);
    ExpectValue(CDateTime(1L, 1500L), VS_VALID, 2500);
    EXPECT_EQ("1970", CDateTime(0, 0).AsString("%Y", true));
}

TEST(DateTimeOfSeconds, NegativeSecondsAreAnError)
{
    EXPECT_EQ(unsigned{VS_ERROR}, CDateTime(-1, 0).State);
    EXPECT_EQ("(Error)", CDateTime(-1, 0).AsString());
}

TEST(DateTimeOfSeconds, TheTopBitIsCleared)
{
    ExpectValue(CDateTime(0, -1), VS_VALID, kTop - 1);
    // LONG_MAX times 1000 is -1000 in 64 bits.
    ExpectValue(CDateTime(LONG_MAX, 0), VS_VALID, kTop - 1000);
}

TEST(DateTimeOfFields, ReadsUtc)
{
    const TimeZone zone(kCentralEurope);
    ExpectValue(CDateTime(2001, 9, 9, 1, 46, 40, 123, true), VS_VALID, 1000000000123);
}

TEST(DateTimeOfFields, ReadsLocalTime)
{
    const TimeZone zone(kCentralEurope);
    ExpectValue(CDateTime(2001, 9, 9, 3, 46, 40, 123, false), VS_VALID, 1000000000123);
}

TEST(DateTimeOfFields, ARefusedFieldIsAnError)
{
    EXPECT_EQ(unsigned{VS_ERROR}, CDateTime(2001, 13, 9, 0, 0, 0, 0, true).State);
    EXPECT_EQ(unsigned{VS_ERROR}, CDateTime(2001, 9, 9, 24, 0, 0, 0, true).State);
    EXPECT_EQ(unsigned{VS_ERROR}, CDateTime(1899, 9, 9, 0, 0, 0, 0, true).State);
}

TEST(DateTimeOfFields, ADateBefore1970IsAnErrorBecauseMillisecondsAreAdded)
{
    ExpectValue(CDateTime(1969, 12, 31, 23, 59, 59, 0, true), VS_ERROR, kBefore1970Word);
}

TEST(DateTimeOfDay, TakesTheLocalDayWhateverUtcSays)
{
    const TimeZone zone(kCentralEurope);
    // 2001-09-08 23:00 UTC, which is 01:00 of the 9th in summer time.
    const CDateTime day(999990000, 0);
    ExpectValue(CDateTime(day, 1, 46, 40, 7, true), VS_VALID, 1000000000007);
    ExpectValue(CDateTime(day, 3, 46, 40, 7, false), VS_VALID, 1000000000007);
    EXPECT_EQ(unsigned{VS_ERROR}, CDateTime(day, 24, 0, 0, 0, true).State);
}

TEST(DateTimeOfTm, IsReadAsLocalTime)
{
    const TimeZone zone(kCentralEurope);
    const tm t = Fields(2001, 9, 9, 3, 46, 40);
    ExpectValue(CDateTime(t), VS_VALID, 1000000000000);
    CDateTime value;
    value = t;
    ExpectValue(value, VS_VALID, 1000000000000);
}

TEST(DateTimeOfTm, APointerIsReadAsToldAndANullPointerIsAnError)
{
    const TimeZone zone(kCentralEurope);
    const tm t = Fields(2001, 9, 9, 3, 46, 40);
    ExpectValue(CDateTime(&t, false), VS_VALID, 1000000000000);
    ExpectValue(CDateTime(&t, true), VS_VALID, 1000007200000);
    EXPECT_EQ(unsigned{VS_ERROR}, CDateTime(nullptr, true).State);
}

TEST(DateTimeOfText, IsReadAsLocalTimeInTheDefaultFormat)
{
    const TimeZone zone(kCentralEurope);
    ExpectValue(CDateTime("2001-09-09 03:46:40"), VS_VALID, 1000000000000);
    ExpectValue(CDateTime("2001-09-09 03:46:40.9 and more"), VS_VALID, 1000000000000);
}

TEST(DateTimeOfText, AnEmptyTextIsAnErrorAndNotNull)
{
    CDateTime value(5, 0);
    value = std::string();
    ExpectValue(value, VS_ERROR, 0);
    EXPECT_EQ("(Error)", value.AsString());
}

TEST(DateTimeOfText, UnreadableTextIsAnErrorAndLeavesTheWord)
{
    CDateTime value(5, 0);
    value = "rubbish";
    ExpectValue(value, VS_ERROR, 5000);
}

TEST(DateTime, NowIsTheWallClock)
{
    const auto clock = [] {
        timeval now{};
        gettimeofday(&now, nullptr);
        return static_cast<unsigned long>(now.tv_sec) * 1000 + static_cast<unsigned long>(now.tv_usec) / 1000;
    };
    const unsigned long before = clock();
    const CDateTime now = CDateTime::Now();
    EXPECT_EQ(unsigned{VS_VALID}, now.State);
    EXPECT_GE(now.msecs(), before);
    EXPECT_LE(now.msecs(), clock());
}

TEST(DateTimeReading, UtcDoesNotKnowDaylightSaving)
{
    const TimeZone zone(kCentralEurope);
    // In January and in July; the flag that comes with the fields does not count.
    tm winter = Fields(2001, 1, 1, 0, 0, 0);
    tm summer = Fields(2001, 7, 1, 0, 0, 0);
    summer.tm_isdst = 1;
    ExpectValue(Utc(winter), VS_VALID, 978307200000);
    ExpectValue(Utc(summer), VS_VALID, 993945600000);
}

TEST(DateTimeReading, LocalTimeFollowsDaylightSavingWhateverTheFlag)
{
    const TimeZone zone(kCentralEurope);
    for (const int flag : {-1, 0, 1}) {
        tm winter = Fields(2001, 1, 1, 1, 0, 0);
        tm summer = Fields(2001, 7, 1, 2, 0, 0);
        winter.tm_isdst = flag;
        summer.tm_isdst = flag;
        ExpectValue(CDateTime(winter), VS_VALID, 978307200000);
        ExpectValue(CDateTime(summer), VS_VALID, 993945600000);
    }
}

TEST(DateTimeReading, ALocalTimeThatOccursTwiceIsTheLaterOne)
{
    const TimeZone zone(kCentralEurope);
    // 2001-10-28 02:30 is 00:30 UTC in summer time and 01:30 UTC in standard time. Left to itself, the C library is
    // inclined to the reading of the time that it converted last.
    for (const unsigned month : {7U, 1U}) {
        SCOPED_TRACE(month);
        tm last = Fields(2001, month, 1, 12, 0, 0);
        ASSERT_GT(std::mktime(&last), 0);
        ExpectValue(CDateTime("2001-10-28 02:30:00"), VS_VALID, 1004232600000);
    }
    ExpectValue(CDateTime("2001-10-28 01:59:59"), VS_VALID, 1004227199000);
}

TEST(DateTimeReading, LeavesTheGivenFieldsAlone)
{
    const TimeZone zone(kCentralEurope);
    const tm given = Fields(2001, 2, 31, 12, 0, 0);
    tm t = given;
    CDateTime value;
    value.ReadFrom(t, false);
    value.ReadFrom(t, true);
    EXPECT_EQ(0, std::memcmp(&given, &t, sizeof t));
    EXPECT_EQ("2001-03-03 12:00:00", value.AsString(nullptr, true));
}

TEST(DateTimeReading, AUtcTimeBefore1970IsPacked)
{
    for (const char* zone : {"UTC", kCentralEurope, "EST5"}) {
        SCOPED_TRACE(zone);
        const TimeZone scope(zone);
        ExpectValue(Before1970(), VS_VALID, kBefore1970Word);
    }
}

TEST(DateTimeReading, ALocalTimeBefore1970IsPackedWithoutTheUtcBit)
{
    const TimeZone zone("UTC");
    ExpectValue(CDateTime(Fields(1969, 12, 31, 23, 59, 59)), VS_VALID, kBefore1970Word - 1);
}

TEST(DateTimeReading, ALocalTimeOf1969ThatLiesIn1970UtcIsCounted)
{
    const TimeZone zone("EST5");
    ExpectValue(CDateTime(Fields(1969, 12, 31, 20, 0, 0)), VS_VALID, 3600000);
}

TEST(DateTimeReading, ATimeOf1970ThatCannotBeCountedIsAnErrorAndLeavesTheWord)
{
    const TimeZone zone(kCentralEurope);
    CDateTime value(5, 0);
    value.ReadFrom(Fields(1970, 1, 1, 0, 30, 0), false);
    ExpectValue(value, VS_ERROR, 5000);
    value = CDateTime(5, 0);
    value.ReadFrom(Fields(1970, 1, 1, 0, 30, 0), true);
    ExpectValue(value, VS_ERROR, 5000);
}

TEST(DateTimeReading, AYearBeyondTheCLibraryIsAnError)
{
    tm t = Fields(2001, 1, 1, 0, 0, 0);
    t.tm_year = INT_MAX;
    t.tm_mon = INT_MAX;
    CDateTime value(5, 0);
    value.ReadFrom(t, true);
    ExpectValue(value, VS_ERROR, 5000);
    value.ReadFrom(t, false);
    ExpectValue(value, VS_ERROR, 5000);
}

TEST(DateTimeReaders, GiveSecondsAndMilliseconds)
{
    const CDateTime value(kBillion, 123);
    EXPECT_EQ(kBillion, value.secs());
    EXPECT_EQ(kBillion, value.As_time_t());
    EXPECT_EQ(1000000000123U, value.msecs());
    EXPECT_EQ(123, value.msec());
}

TEST(DateTimeReaders, LookAtTheWordWhateverTheState)
{
    CDateTime value(kBillion, 123);
    value.State = VS_NULL;
    EXPECT_EQ(kBillion, value.secs());
    value.State = VS_ERROR;
    EXPECT_EQ(1000000000123U, value.msecs());
    EXPECT_EQ(101, value.As_tm(true).tm_year);
}

TEST(DateTimeAsTm, GivesUtcOrLocalTime)
{
    const TimeZone zone(kCentralEurope);
    const CDateTime value(kBillion, 0);
    const tm utc = value.As_tm(true);
    EXPECT_EQ(1, utc.tm_hour);
    EXPECT_EQ(0, utc.tm_isdst);
    EXPECT_EQ(0, utc.tm_gmtoff);
    EXPECT_STREQ("GMT", utc.tm_zone);
    const tm local = value.As_tm(false);
    EXPECT_EQ(3, local.tm_hour);
    EXPECT_EQ(1, local.tm_isdst);
    EXPECT_EQ(7200, local.tm_gmtoff);
    EXPECT_EQ(46, local.tm_min);
    EXPECT_EQ(40, local.tm_sec);
    EXPECT_EQ(9, local.tm_mday);
    EXPECT_EQ(8, local.tm_mon);
    EXPECT_EQ(101, local.tm_year);
    EXPECT_EQ(0, local.tm_wday);
    EXPECT_EQ(251, local.tm_yday);
}

TEST(DateTimeAsTm, APackedDateIsGMTWithoutOffset)
{
    const TimeZone zone(kCentralEurope);
    const tm t = Before1970().As_tm(false);
    EXPECT_EQ(0, t.tm_gmtoff);
    EXPECT_STREQ("GMT", t.tm_zone);
    EXPECT_EQ(69, t.tm_year);
    EXPECT_EQ(23, t.tm_hour);
}

TEST(DateTimeAsTm, StoresIntoWhatIsNotNull)
{
    tm t;
    CDateTime(kBillion, 0).As_tm(&t, true);
    EXPECT_EQ(101, t.tm_year);
    CDateTime(kBillion, 0).As_tm(nullptr, true);
}

TEST(DateTimeAsTm, TheLargestWordIsRenderedAsErrortime)
{
    CDateTime value(0, -1);
    EXPECT_EQ("errortime", value.AsString(nullptr, true));
    EXPECT_EQ("errortime", value.AsString(nullptr, false));
}

TEST(DateTimeAsString, TakesAFormatOrTheDefault)
{
    const TimeZone zone(kCentralEurope);
    EXPECT_EQ("%Y-%m-%d %H:%M:%S", CDateTime::DEFAULT_DATETIME_FORMAT);
    const CDateTime value(kBillion, 999);
    EXPECT_EQ("2001-09-09 03:46:40", value.AsString());
    EXPECT_EQ("2001-09-09 01:46:40", value.AsString(nullptr, true));
    EXPECT_EQ("09.09.2001", value.AsString("%d.%m.%Y", true));
    EXPECT_EQ("", value.AsString("", true));
}

TEST(DateTimeLeapYear, IsEveryFourthYear)
{
    EXPECT_TRUE(CDateTime::IsLeapYear(1900));
    EXPECT_TRUE(CDateTime::IsLeapYear(2100));
    EXPECT_TRUE(CDateTime::IsLeapYear(2004));
    EXPECT_FALSE(CDateTime::IsLeapYear(2001));
    EXPECT_FALSE(CDateTime::IsLeapYear(2002));
}

} // namespace
