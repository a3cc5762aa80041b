#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/vexa.h>

#include "support/problem_lines.h"

// Values of the basic types out of JSON: what is taken, and what is told of everything else.

namespace {

template<class T>
std::string Read(T& value, const std::string& text, const vexa::CReadPolicy& policy = {})
{
    return test::ProblemsOf(
        value, [&](T& object, vexa::CReport& report) { return vexa::ReadJson(object, text, report, policy); });
}

/// What is read, or the problems.
template<class T>
std::string Show(const std::string& text)
{
    T value{};
    const std::string problems = Read(value, text);
    if (!problems.empty()) return problems;
    if constexpr (std::is_same_v<T, std::string>)
        return value;
    else
        return std::to_string(+value);
}

TEST(ReadValues, TakesEveryIntegerThatTheTypeHolds)
{
    EXPECT_EQ("0", Show<unsigned char>("0"));
    EXPECT_EQ("255", Show<unsigned char>("255"));
    char byte = 0;
    EXPECT_EQ("", Read(byte, "200"));
    EXPECT_EQ(200, static_cast<unsigned char>(byte));
    EXPECT_EQ("-32768", Show<short>("-32768"));
    EXPECT_EQ("65535", Show<unsigned short>("65535"));
    EXPECT_EQ("-2147483648", Show<int>("-2147483648"));
    EXPECT_EQ("4294967295", Show<unsigned int>("4294967295"));
    EXPECT_EQ("-9223372036854775808", Show<long>("-9223372036854775808"));
    EXPECT_EQ("9223372036854775807", Show<long long>("9223372036854775807"));
    EXPECT_EQ("18446744073709551615", Show<unsigned long>("18446744073709551615"));
    EXPECT_EQ("18446744073709551615", Show<unsigned long long>("18446744073709551615"));
    EXPECT_EQ("-128", Show<signed char>("-128"));
}

TEST(ReadValues, TakesAnIntegerHoweverItIsWritten)
{
    EXPECT_EQ("1000", Show<int>("1e3"));
    EXPECT_EQ("1000", Show<int>("1E+3"));
    EXPECT_EQ("20", Show<int>("20.0"));
    EXPECT_EQ("125", Show<int>("1.25e2"));
    EXPECT_EQ("3", Show<int>("3000e-3"));
    EXPECT_EQ("0", Show<int>("-0"));
    EXPECT_EQ("0", Show<unsigned int>("-0.0"));
    EXPECT_EQ("0", Show<int>("0e999999999999999999999"));
    EXPECT_EQ("18446744073709551615", Show<unsigned long>("1844674407370955161500e-2"));
}

TEST(ReadValues, TellsIntegersThatDoNotFit)
{
    EXPECT_EQ("21 0+3 1:1 expected=0 to 255 found=300 excerpt=300\n", Show<unsigned char>("300"));
    EXPECT_EQ("21 0+2 1:1 expected=0 to 255 found=-1 excerpt=-1\n", Show<unsigned char>("-1"));
    EXPECT_EQ("21 0+4 1:1 expected=-128 to 127 found=-129 excerpt=-129\n", Show<signed char>("-129"));
    EXPECT_EQ("21 0+5 1:1 expected=-32768 to 32767 found=32768 excerpt=32768\n", Show<short>("32768"));
    EXPECT_EQ("21 0+10 1:1 expected=-2147483648 to 2147483647 found=2147483648 excerpt=2147483648\n",
              Show<int>("2147483648"));
    EXPECT_EQ("21 0+5 1:1 expected=-2147483648 to 2147483647 found=1e400 excerpt=1e400\n", Show<int>("1e400"));
    EXPECT_EQ("21 0+20 1:1 expected=0 to 18446744073709551615 found=18446744073709551616 "
              "excerpt=18446744073709551616\n",
              Show<unsigned long>("18446744073709551616"));
    EXPECT_EQ("22 0+3 1:1 expected=an integer found=1.5 excerpt=1.5\n", Show<int>("1.5"));
    EXPECT_EQ("22 0+4 1:1 expected=an integer found=1e-1 excerpt=1e-1\n", Show<int>("1e-1"));
}

TEST(ReadValues, LeavesTheValueWhereTheTextDoesNotFit)
{
    int value = 7;
    Read(value, "1.5");
    EXPECT_EQ(7, value);
    Read(value, "\"8\"");
    EXPECT_EQ(7, value);
    Read(value, "null");
    EXPECT_EQ(7, value);
}

TEST(ReadValues, TellsAnotherKind)
{
    EXPECT_EQ("20 0+3 1:1 expected=an integer found=a string excerpt=\"8\"\n", Show<int>("\"8\""));
    EXPECT_EQ("20 0+4 1:1 expected=an integer found=true or false excerpt=true\n", Show<int>("true"));
    EXPECT_EQ("32 0+4 1:1 expected=an integer found=null excerpt=null\n", Show<int>("null"));
    EXPECT_EQ("20 1+1 1:2 expected=an integer found=an array excerpt= [1, [2]]\n", Show<int>(" [1, [2]]"));
    EXPECT_EQ("20 0+1 1:1 expected=a number found=an object excerpt={\"a\": 1}\n", Show<double>("{\"a\": 1}"));
    EXPECT_EQ("20 0+1 1:1 expected=true or false found=a number excerpt=1\n", Show<bool>("1"));
    EXPECT_EQ("20 0+1 1:1 expected=a string found=a number excerpt=1\n", Show<std::string>("1"));
}

TEST(ReadValues, TakesTheNearestFloatingValue)
{
    double value = 0;
    EXPECT_EQ("", Read(value, "0.1"));
    EXPECT_EQ(0.1, value);
    EXPECT_EQ("", Read(value, "123456789012345678901234567890"));
    EXPECT_EQ(123456789012345678901234567890.0, value);
    EXPECT_EQ("", Read(value, "18446744073709551615"));
    EXPECT_EQ(18446744073709551615.0, value);
    EXPECT_EQ("", Read(value, "5e-324"));
    EXPECT_EQ(std::numeric_limits<double>::denorm_min(), value);
    EXPECT_EQ("", Read(value, "1e-400"));
    EXPECT_EQ(0.0, value);
    EXPECT_FALSE(std::signbit(value));
    EXPECT_EQ("", Read(value, "-1e-400"));
    EXPECT_EQ(0.0, value);
    EXPECT_TRUE(std::signbit(value));
    EXPECT_EQ("", Read(value, "-0"));
    EXPECT_TRUE(std::signbit(value));
    EXPECT_EQ("", Read(value, "0.0000000000000000000000000000000000000001e60"));
    EXPECT_EQ(1e20, value);
    EXPECT_EQ("21 0+5 1:1 expected=a number that a double can hold found=1e400 excerpt=1e400\n", Read(value, "1e400"));
    EXPECT_EQ(1e20, value);
}

TEST(ReadValues, TakesFloatsAndLongDoublesByTheirOwnPrecision)
{
    float single = 0;
    EXPECT_EQ("", Read(single, "16777217"));
    EXPECT_EQ(16777216.0F, single);
    EXPECT_EQ("", Read(single, "1e-50"));
    EXPECT_EQ(0.0F, single);
    EXPECT_EQ("21 0+4 1:1 expected=a number that a float can hold found=1e39 excerpt=1e39\n", Read(single, "1e39"));
    long double big = 0;
    EXPECT_EQ("", Read(big, "1e400"));
    EXPECT_EQ(1e400L, big);
    EXPECT_EQ("", Read(big, "18446744073709551615"));
    EXPECT_EQ(18446744073709551615.0L, big);
}

TEST(ReadValues, TakesNanOnlyByThePolicy)
{
    vexa::CReadPolicy policy;
    policy.AllowNan = true;
    double value = 0;
    EXPECT_EQ("", Read(value, "NaN", policy));
    EXPECT_TRUE(std::isnan(value));
    EXPECT_EQ("", Read(value, "-Infinity", policy));
    EXPECT_EQ(-std::numeric_limits<double>::infinity(), value);
    float single = 0;
    EXPECT_EQ("", Read(single, "Infinity", policy));
    EXPECT_EQ(std::numeric_limits<float>::infinity(), single);
    EXPECT_NE("", Read(value, "NaN"));
}

TEST(ReadValues, KeepsEveryDigitOfANumeric)
{
    const auto show = [](const std::string& text) {
        vexa::CNumeric value;
        const std::string problems = Read(value, text);
        return problems.empty() ? value.AsString() : problems;
    };
    EXPECT_EQ("123456789012345678901234567890.10", show("123456789012345678901234567890.10"));
    EXPECT_EQ("-0.50", show("-0.50"));
    EXPECT_EQ("1250", show("1.25e3"));
    EXPECT_EQ("0.00125", show("1.25e-3"));
    EXPECT_EQ("12.5", show("1.25e1"));
    EXPECT_EQ("(null)", show("null"));
    EXPECT_EQ("21 0+7 1:1 expected=at most 10000 digits found=1e10001 excerpt=1e10001\n", show("1e10001"));
    EXPECT_EQ("21 0+8 1:1 expected=at most 10000 digits found=1e-10001 excerpt=1e-10001\n", show("1e-10001"));
    EXPECT_EQ("20 0+3 1:1 expected=a number found=a string excerpt=\"1\"\n", show("\"1\""));
}

TEST(ReadValues, TakesDatesOfRfc3339)
{
    const auto show = [](const std::string& text) {
        vexa::CDateTime time;
        const std::string problems = Read(time, text);
        return problems.empty() ? time.AsString("%Y-%m-%d %H:%M:%S", true) + "." + std::to_string(time.msec())
                                : problems;
    };
    EXPECT_EQ("2024-02-29 12:30:05.0", show("\"2024-02-29T12:30:05Z\""));
    EXPECT_EQ("2024-02-29 10:30:05.250", show("\"2024-02-29t12:30:05.25+02:00\""));
    EXPECT_EQ("2024-03-01 00:00:05.1", show("\"2024-02-29 23:00:05.0010-01:00\""));
    EXPECT_EQ("1969-12-31 23:59:59.500", show("\"1969-12-31T23:59:59.5Z\""));
    EXPECT_EQ("NULL.0", show("null"));
    EXPECT_EQ("23 0+22 1:1 expected=a date and time (RFC 3339) found=\"2023-02-29T00:00:00Z\" "
              "excerpt=\"2023-02-29T00:00:00Z\"\n",
              show("\"2023-02-29T00:00:00Z\""));
    EXPECT_EQ("21 0+29 1:1 expected=a time in whole milliseconds excerpt=\"2024-02-29T12:30:05.123456Z\"\n",
              show("\"2024-02-29T12:30:05.123456Z\""));
    EXPECT_EQ("20 0+1 1:1 expected=a date and time (RFC 3339) found=a number excerpt=5\n", show("5"));
}

TEST(ReadValues, TakesBrokenDownTimesWithoutZone)
{
    tm time{};
    EXPECT_EQ("", Read(time, "\"2024-02-29T12:30:05\""));
    EXPECT_EQ(124, time.tm_year);
    EXPECT_EQ(1, time.tm_mon);
    EXPECT_EQ(29, time.tm_mday);
    EXPECT_EQ(12, time.tm_hour);
    EXPECT_EQ(30, time.tm_min);
    EXPECT_EQ(5, time.tm_sec);
    EXPECT_EQ(4, time.tm_wday);
    EXPECT_EQ(59, time.tm_yday);
    EXPECT_EQ("23 0+22 1:1 expected=a date and time without zone found=\"2024-02-29T12:30:05Z\" "
              "excerpt=\"2024-02-29T12:30:05Z\"\n",
              Read(time, "\"2024-02-29T12:30:05Z\""));
}

TEST(ReadValues, TakesBytesOfBase64)
{
    const auto show = [](const std::string& text) {
        vexa::CBinary bytes;
        const std::string problems = Read(bytes, text);
        return problems.empty() ? bytes.AsHexString() : problems;
    };
    EXPECT_EQ("", show("\"\""));
    EXPECT_EQ("66", show("\"Zg==\""));
    EXPECT_EQ("666f", show("\"Zm8=\""));
    EXPECT_EQ("666f6f", show("\"Zm9v\""));
    EXPECT_EQ("fbff00", show("\"+/8A\""));
    for (const char* const bad :
         {"Z", "Zg", "Zg=", "Zg===", "Z===", "====", "Zh==", "Zm9=", "Zm 9", "Zm-_", "Zg==Zg=="}) {
        const std::string quoted = std::string("\"") + bad + '"';
        EXPECT_EQ("23 0+" + std::to_string(quoted.size()) + " 1:1 expected=base64 text found=" + quoted +
                      " excerpt=" + quoted + "\n",
                  show(quoted));
    }
}

TEST(ReadValues, TellsWhatFollows) { EXPECT_EQ("3 2+1 1:3 found='2' excerpt=1 2\n", Show<int>("1 2")); }

/// An offset may lead beyond the years that a text can tell again.
TEST(ReadValues, RefusesATimeBeyondTheYearsOfItsText)
{
    vexa::CDateTime time;
    EXPECT_EQ("", Read(time, "\"9999-12-31T23:59:59Z\""));
    EXPECT_EQ("\"9999-12-31T23:59:59Z\"", vexa::WriteJson(time));
    EXPECT_EQ("21 0+27 1:1 expected=a time in the years 0000 to 9999 of UTC found=\"9999-12-31T23:59:59-01:00\" "
              "excerpt=\"9999-12-31T23:59:59-01:00\"\n",
              Read(time, "\"9999-12-31T23:59:59-01:00\""));
    EXPECT_EQ("21 0+27 1:1 expected=a time in the years 0000 to 9999 of UTC found=\"0000-01-01T00:00:00+01:00\" "
              "excerpt=\"0000-01-01T00:00:00+01:00\"\n",
              Read(time, "\"0000-01-01T00:00:00+01:00\""));
    EXPECT_EQ("\"9999-12-31T23:59:59Z\"", vexa::WriteJson(time));
}

} // namespace
