// Every basic value as JSON (RFC 8259): whole outputs.

#include <vexa/interchange.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

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

TEST(WriteValues, valuesStandAlone)
{
    EXPECT_EQ(WriteJson(false), "false");
    EXPECT_EQ(WriteJson(-7), "-7");
    EXPECT_EQ(WriteJson(std::string("a\"b")), "\"a\\\"b\"");
    const char* text = nullptr;
    EXPECT_EQ(WriteJson(text), "null");
    text = "text";
    EXPECT_EQ(WriteJson(text), "\"text\"");
    EXPECT_EQ(WriteJson(vexa::MayNull<int>()), "null");
    EXPECT_EQ(WriteJson(vexa::MayNull<int>(3)), "3");
}

TEST(WriteValues, whatTheStringHeldIsReplaced)
{
    std::string out(5000, 'x');
    EXPECT_TRUE(WriteJson(out, 1));
    EXPECT_EQ(out, "1");
    const char* const memory = out.data();
    EXPECT_TRUE(WriteJson(out, std::string(2000, 'y')));
    EXPECT_EQ(out, '"' + std::string(2000, 'y') + '"');
    EXPECT_EQ(out.data(), memory) << "its memory is used again";
}

TEST(WriteValues, floatingValuesAreAsShortAsCanBe)
{
    EXPECT_EQ(WriteJson(0.0), "0.0");
    EXPECT_EQ(WriteJson(-0.0), "-0.0");
    EXPECT_EQ(WriteJson(1.0), "1.0");
    EXPECT_EQ(WriteJson(-99999.0), "-99999.0");
    EXPECT_EQ(WriteJson(100000.0), "1e+05");
    EXPECT_EQ(WriteJson(123456.0), "123456.0");
    EXPECT_EQ(WriteJson(0.1), "0.1");
    EXPECT_EQ(WriteJson(0.1F), "0.1");
    EXPECT_EQ(WriteJson(1e300), "1e+300");
    EXPECT_EQ(WriteJson(5e-324), "5e-324");
    EXPECT_EQ(WriteJson(12345678901234567168.0), "12345678901234567168.0");
    EXPECT_EQ(WriteJson(0.1L), "0.1");
    EXPECT_EQ(WriteJson(1.0L / 3), "0.33333333333333333334");
}

template<class T>
void ExpectReadBack(T value)
{
    const std::string text = WriteJson(value);
    T read = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), read);
    ASSERT_EQ(result.ptr, text.data() + text.size()) << text;
    ASSERT_EQ(read, value) << text;
    ASSERT_EQ(std::signbit(read), std::signbit(value)) << text;
    ASSERT_NE(text.find_first_of(".e"), std::string::npos) << "not to be taken for an integer: " << text;
    char shortest[64];
    const auto length =
        static_cast<std::size_t>(std::to_chars(shortest, shortest + sizeof shortest, value).ptr - shortest);
    ASSERT_LE(text.size(), length + 2) << text;
}

TEST(WriteValues, floatingValuesReadBackEqual)
{
    constexpr std::uint64_t SEED = 20240717;
    SCOPED_TRACE(SEED);
    std::mt19937_64 random(SEED);
    for (int i = 0; i < 100000; ++i) {
        const std::uint64_t bits = random();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isfinite(value)) ExpectReadBack(value);
        float single = 0;
        std::memcpy(&single, &bits, sizeof single);
        if (std::isfinite(single)) ExpectReadBack(single);
        ExpectReadBack(std::ldexp(static_cast<long double>(random()), static_cast<int>(random() % 200) - 100));
        ExpectReadBack(static_cast<double>(static_cast<std::int64_t>(bits) >> random() % 64));
        if (HasFatalFailure()) return;
    }
}

TEST(WriteValues, whatIsNoNumberIsAProblem)
{
    const std::vector<double> values{1.5, std::nan(""), -std::numeric_limits<double>::infinity(), 2};
    CReport report;
    EXPECT_EQ(WriteJson(values, {}, &report), "[1.5,null,null,2.0]");
    ASSERT_EQ(report.Problems().size(), 2U);
    EXPECT_EQ(report.Problems()[0].Code, ProblemCode::CANNOT_BE_WRITTEN);
    EXPECT_EQ(report.Problems()[0].Path, "[1]");
    EXPECT_EQ(report.Problems()[0].Pointer, "/1");
    EXPECT_EQ(report.Problems()[0].Expected, "a finite number");
    EXPECT_EQ(report.Problems()[0].Found, "NaN");
    EXPECT_EQ(report.Problems()[1].Path, "[2]");
    EXPECT_EQ(report.Problems()[1].Found, "-Infinity");

    CWritePolicy policy;
    policy.AllowNan = true;
    report.Clear();
    EXPECT_EQ(WriteJson(values, policy, &report), "[1.5,NaN,-Infinity,2.0]");
    EXPECT_TRUE(report.IsEmpty());
    std::string out;
    EXPECT_FALSE(WriteJson(out, values)) << "also without a report";
    EXPECT_EQ(WriteJson(std::numeric_limits<long double>::infinity(), policy), "Infinity");
}

TEST(WriteValues, numericsKeepTheirDigits)
{
    const auto written = [](const char* text) { return WriteJson(vexa::CNumeric(std::string(text))); };
    EXPECT_EQ(written("0"), "0");
    EXPECT_EQ(written("1.50"), "1.50");
    EXPECT_EQ(written("-0.5"), "-0.5");
    EXPECT_EQ(written("-.5"), "-0.5");
    EXPECT_EQ(written("+007"), "7");
    EXPECT_EQ(written("000"), "0");
    EXPECT_EQ(written("5."), "5");
    EXPECT_EQ(written("123456789012345678901234567890.123456789012345678901234567890"),
              "123456789012345678901234567890.123456789012345678901234567890");
    EXPECT_EQ(WriteJson(vexa::CNumeric()), "null");

    const std::string digits(100000, '9');
    EXPECT_EQ(WriteJson(vexa::CNumeric(digits)), digits);

    CReport report;
    EXPECT_EQ(WriteJson(vexa::CNumeric(std::string("x")), {}, &report), "null");
    ASSERT_EQ(report.Problems().size(), 1U);
    EXPECT_EQ(report.Problems()[0].Code, ProblemCode::CANNOT_BE_WRITTEN);
    vexa::CNumeric broken(std::string("1"));
    broken.FractionDigits = "2e5";
    EXPECT_EQ(WriteJson(broken), "null") << "not what is no digit";
}

TEST(WriteValues, timesAreThoseOfRfc3339)
{
    const auto written = [](long seconds, long milliseconds) {
        return WriteJson(vexa::CDateTime(seconds, milliseconds));
    };
    EXPECT_EQ(written(0, 0), "\"1970-01-01T00:00:00Z\"");
    EXPECT_EQ(written(951782399, 250), "\"2000-02-28T23:59:59.25Z\"");
    EXPECT_EQ(written(951782400, 1), "\"2000-02-29T00:00:00.001Z\"");
    EXPECT_EQ(written(951868800, 100), "\"2000-03-01T00:00:00.1Z\"");
    EXPECT_EQ(written(253402300799, 999), "\"9999-12-31T23:59:59.999Z\"");
    EXPECT_EQ(written(253402300800, 0), "null") << "RFC 3339 has no year of five digits";
    EXPECT_EQ(WriteJson(vexa::CDateTime()), "null");
    EXPECT_EQ(WriteJson(vexa::CDateTime(std::string("no time"))), "null");

    tm early{};
    early.tm_year = 55;
    early.tm_mon = 2;
    early.tm_mday = 4;
    early.tm_hour = 5;
    EXPECT_EQ(WriteJson(vexa::CDateTime(&early, true)), "\"1955-03-04T05:00:00Z\"");
    EXPECT_EQ(WriteJson(vexa::CDateTime(&early, false)), "\"1955-03-04T05:00:00\"") << "a local time of unknown zone";
    EXPECT_EQ(WriteJson(early), "\"1955-03-04T05:00:00\"");
    early.tm_mday = 0;
    CReport report;
    EXPECT_EQ(WriteJson(early, {}, &report), "null");
    ASSERT_EQ(report.Problems().size(), 1U);
    EXPECT_EQ(report.Problems()[0].Expected, "a time of the years 0 to 9999");
    early.tm_mday = 30;
    early.tm_mon = 1;
    EXPECT_EQ(WriteJson(early), "null") << "no such day";
}

/// The days one by one, by the rule of the calendar.
TEST(WriteValues, everyDayHasItsDate)
{
    static constexpr int DAYS[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    long day = 0;
    for (int year = 1970; year <= 2410; ++year) {
        for (int month = 1; month <= 12; ++month) {
            const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
            const int days = DAYS[month - 1] + (month == 2 && isLeap ? 1 : 0);
            for (int inMonth = 1; inMonth <= days; ++inMonth, ++day) {
                char expected[40];
                std::snprintf(expected, sizeof expected, "\"%04d-%02d-%02dT12:34:56Z\"", year, month, inMonth);
                ASSERT_EQ(WriteJson(vexa::CDateTime(day * 86400 + 45296, 0)), expected);
            }
        }
    }
}

TEST(WriteValues, bytesAreBase64)
{
    const auto written = [](const std::string& bytes) { return WriteJson(vexa::CBinary(bytes)); };
    EXPECT_EQ(written(""), "\"\"");
    EXPECT_EQ(written("f"), "\"Zg==\"");
    EXPECT_EQ(written("fo"), "\"Zm8=\"");
    EXPECT_EQ(written("foo"), "\"Zm9v\"");
    EXPECT_EQ(written("foobar"), "\"Zm9vYmFy\"");
    EXPECT_EQ(written(std::string("\0\xFF\xFE", 3)), "\"AP/+\"");
    std::string thousand;
    for (int i = 0; i < 10000; ++i)
        thousand += "Zm9v";
    EXPECT_EQ(written([] {
                  std::string bytes;
                  for (int i = 0; i < 10000; ++i)
                      bytes += "foo";
                  return bytes;
              }()),
              '"' + thousand + '"');
}

} // namespace
