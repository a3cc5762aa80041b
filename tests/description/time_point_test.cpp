// Time points as text: by rule, and against the C library's calendar.

#include <cstdio>
#include <ctime>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include <vexa/types.h>

#include "support/captured_log.h"

namespace {

template<class Unit>
using TimeIn = std::chrono::time_point<std::chrono::system_clock, Unit>;
using Nanoseconds = TimeIn<std::chrono::nanoseconds>;
using Milliseconds = TimeIn<std::chrono::milliseconds>;

/// What a value becomes in such a time point, as its count; empty when it is refused, and the time point kept.
template<class T>
std::string CountOf(const vexa::CValue& value)
{
    const auto& infor = *static_cast<const vexa::CCustomBasicTypeInfor*>(vexa::TypeInforOf<T>().DetailInfor);
    T time(typename T::duration(77));
    const std::string log = vexa_test::LoggedLines([&] { infor.FromValue(&time, value); });
    const std::string count = std::to_string(time.time_since_epoch().count());
    if (log.empty()) return count;
    return count == "77" ? "" : "changed to " + count;
}

TEST(TimePoint, TakesAnInstantWithItsZone)
{
    EXPECT_EQ(CountOf<Nanoseconds>("1970-01-01T00:00:00Z"), "0");
    EXPECT_EQ(CountOf<Nanoseconds>("1970-01-01t00:00:01z"), "1000000000");
    EXPECT_EQ(CountOf<Nanoseconds>("1970-01-01 00:00:01.5Z"), "1500000000");
    EXPECT_EQ(CountOf<Nanoseconds>("1969-12-31T23:59:59.000000001Z"), "-999999999");
    EXPECT_EQ(CountOf<Nanoseconds>("1970-01-01T00:00:00.12345678900000Z"), "123456789");
    EXPECT_EQ(CountOf<Milliseconds>("2024-02-29T12:00:00+01:30"), "1709202600000");
    EXPECT_EQ(CountOf<Milliseconds>("2024-02-29T12:00:00-23:59"), "1709294340000");
    EXPECT_EQ(CountOf<Milliseconds>("0000-03-01T00:00:00Z"), "-62162035200000");
    EXPECT_EQ(CountOf<Milliseconds>("9999-12-31T23:59:59.999Z"), "253402300799999");
    EXPECT_EQ(CountOf<Milliseconds>("0000-01-01T00:00:00+01:00"), "-62167222800000");
}

TEST(TimePoint, TakesADateTime)
{
    EXPECT_EQ(CountOf<Nanoseconds>(vexa::CDateTime(5L, 250L)), "5250000000");
    EXPECT_EQ(CountOf<Nanoseconds>(vexa::CDateTime()), "");
    EXPECT_EQ(CountOf<Nanoseconds>(7), "");
}

TEST(TimePoint, RefusesEveryOtherText)
{
    const char* const refused[] = {"",
                                   "1970-01-01T00:00:00",
                                   "1970-01-01T00:00:00+0100",
                                   "1970-01-01T00:00:00+24:00",
                                   "1970-01-01T00:00:00+01:60",
                                   "1970-01-01T00:00:00Zx",
                                   " 1970-01-01T00:00:00Z",
                                   "1970-01-01X00:00:00Z",
                                   "970-01-01T00:00:00Z",
                                   "+1970-01-01T00:00:00Z",
                                   "1970-1-01T00:00:00Z",
                                   "1970-00-01T00:00:00Z",
                                   "1970-13-01T00:00:00Z",
                                   "1970-01-00T00:00:00Z",
                                   "1970-01-32T00:00:00Z",
                                   "1970-04-31T00:00:00Z",
                                   "1900-02-29T00:00:00Z",
                                   "2023-02-29T00:00:00Z",
                                   "1970-01-01T24:00:00Z",
                                   "1970-01-01T00:60:00Z",
                                   "1970-01-01T00:00:60Z",
                                   "1970-01-01T00:00:00.Z",
                                   "1970-01-01T00:00:00.1234567891Z",
                                   "1970-01-01T00:00Z"};
    for (const char* const text : refused)
        EXPECT_EQ(CountOf<Nanoseconds>(text), "") << text;
}

TEST(TimePoint, RefusesWhatItsUnitCannotHold)
{
    using Hours = TimeIn<std::chrono::hours>;
    using Small = TimeIn<std::chrono::duration<short, std::ratio<86400>>>;
    EXPECT_EQ(CountOf<Milliseconds>("1970-01-01T00:00:00.0005Z"), "");
    EXPECT_EQ(CountOf<Nanoseconds>("2262-04-11T23:47:16.854775807Z"), "9223372036854775807");
    EXPECT_EQ(CountOf<Nanoseconds>("2262-04-11T23:47:16.854775808Z"), "");
    EXPECT_EQ(CountOf<Nanoseconds>("1677-09-21T00:12:43.145224192Z"), "-9223372036854775808");
    EXPECT_EQ(CountOf<Nanoseconds>("1677-09-21T00:12:43.145224191Z"), "");
    EXPECT_EQ(CountOf<Hours>("1970-01-02T01:00:00Z"), "25");
    EXPECT_EQ(CountOf<Hours>("1970-01-02T01:00:01Z"), "");
    EXPECT_EQ(CountOf<Small>("2059-09-18T00:00:00Z"), "32767");
    EXPECT_EQ(CountOf<Small>("2059-09-19T00:00:00Z"), "");
}

TEST(TimePoint, OfAFloatingCountIsRoundedToANanosecond)
{
    using Seconds = TimeIn<std::chrono::duration<double>>;
    EXPECT_EQ(vexa::AsString(Seconds(std::chrono::duration<double>(0.3))), "1970-01-01T00:00:00.3Z");
    EXPECT_EQ(vexa::AsString(Seconds(std::chrono::duration<double>(-0.25))), "1969-12-31T23:59:59.75Z");
    EXPECT_EQ(vexa::AsString(Seconds(std::chrono::duration<double>(0.9999999999))), "1970-01-01T00:00:01Z");
    EXPECT_EQ(CountOf<Seconds>("1970-01-01T00:01:00.25Z"), "60.250000");
}

TEST(TimePoint, HasNoTextOutsideTheYearsOfTheFormat)
{
    using Days = TimeIn<std::chrono::duration<long, std::ratio<86400>>>;
    EXPECT_EQ(vexa::AsString(Days(Days::duration(2932896))), "9999-12-31T00:00:00Z");
    EXPECT_EQ(vexa::AsString(Days(Days::duration(2932897))), "NULL");
    EXPECT_EQ(vexa::AsString(Days(Days::duration(-719528))), "0000-01-01T00:00:00Z");
    EXPECT_EQ(vexa::AsString(Days(Days::duration(-719529))), "NULL");
    EXPECT_EQ(vexa::AsString(Days(Days::max())), "NULL");
}

TEST(TimePoint, AgreesWithTheCalendarOfTheCLibrary)
{
    constexpr unsigned int SEED = 20240229;
    std::mt19937_64 random(SEED);
    std::uniform_int_distribution<long> seconds(-62167219200, 253402300799);
    for (int i = 0; i < 2000; ++i) {
        const std::time_t moment = seconds(random);
        const auto fraction = static_cast<int>(random() % 1000);
        tm fields{};
        gmtime_r(&moment, &fields);
        char text[64];
        std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03d", fields.tm_year + 1900, fields.tm_mon + 1,
                      fields.tm_mday, fields.tm_hour, fields.tm_min, fields.tm_sec, fraction);
        std::string expected = text;
        expected.erase(expected.find_last_not_of('0') + 1);
        if (expected.back() == '.') expected.pop_back();
        expected += 'Z';
        const std::chrono::milliseconds count(moment * 1000 + fraction);
        ASSERT_EQ(vexa::AsString(Milliseconds(count)), expected) << "seed " << SEED;
        ASSERT_EQ(CountOf<Milliseconds>(expected), std::to_string(count.count())) << "seed " << SEED;
    }
}

} // namespace
