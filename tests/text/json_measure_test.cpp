// The JSON text of basic values: every type, at the limits of the room that is measured for it and beyond them.

#include <vexa/json.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"
#include "support/decimal_comma.h"
#include "support/text_model.h"
#include "support/type_of.h"

namespace {

using namespace std::string_literals;
using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CConstRefrence;

/// The text of the value alone, between others, and many times over, where any room that one lacks would add up.
template<class T>
void ExpectJson(const std::string& text, const T& value)
{
    EXPECT_EQ(Json(value), text);
    EXPECT_EQ(Json(std::vector<T>{value}), "[" + text + "]");
    std::string all = "[" + text;
    for (int i = 1; i < 20; ++i)
        all += "," + text;
    EXPECT_EQ(Json(std::vector<T>(20, value)), all + "]");
}

TEST(JsonMeasure, BothTruthValuesFitExactly)
{
    EXPECT_EQ(Json(true), "true");
    EXPECT_EQ(Json(false), "false");
    const bool* const pointer = nullptr;
    EXPECT_EQ(Json(pointer), "");
}

TEST(JsonMeasure, CharactersAreTheNumbersOfTheirBytes)
{
    ExpectJson("65", 'A');
    ExpectJson("0", '\0');
    ExpectJson("34", '"');
    ExpectJson("200", static_cast<char>(200));
    ExpectJson("255", static_cast<char>(255));
    ExpectJson("255", static_cast<unsigned char>(255));
}

TEST(JsonMeasure, IntegersAreDecimalToTheirLimits)
{
    ExpectJson("-32768", static_cast<short>(SHRT_MIN));
    ExpectJson("32767", static_cast<short>(SHRT_MAX));
    ExpectJson("0", 0);
    ExpectJson("9", 9);
    ExpectJson("10", 10);
    ExpectJson("-9", -9);
    ExpectJson("-10", -10);
    ExpectJson("-2147483648", INT_MIN);
    ExpectJson("2147483647", INT_MAX);
    ExpectJson("65535", static_cast<unsigned short>(USHRT_MAX));
    ExpectJson("99", 99U);
    ExpectJson("100", 100U);
    ExpectJson("4294967295", UINT_MAX);
    ExpectJson("-9223372036854775808", LLONG_MIN);
    ExpectJson("9223372036854775807", LLONG_MAX);
    ExpectJson("99", 99ULL);
    ExpectJson("100", 100ULL);
    ExpectJson("18446744073709551615", ULLONG_MAX);
}

TEST(JsonMeasure, LongsOfMoreDigitsThanTheirBoundAreWrittenInFull)
{
    ExpectJson("-9999999999", -9999999999L); // 11 bytes, the bound of a long
    ExpectJson("99999999999", 99999999999L);
    ExpectJson("-10000000000", -10000000000L);
    ExpectJson("100000000000", 100000000000L);
    ExpectJson("-9223372036854775808", LONG_MIN);
    ExpectJson("9223372036854775807", LONG_MAX);
    ExpectJson("99", 99UL);
    ExpectJson("100", 100UL);
    ExpectJson("9999999999", 9999999999UL); // 10 bytes, the bound of an unsigned long
    ExpectJson("10000000000", 10000000000UL);
    ExpectJson("18446744073709551615", ULONG_MAX);
}

template<class T>
std::string Fixed(T value)
{
    const auto wide = static_cast<long double>(value);
    std::string text(static_cast<std::size_t>(std::snprintf(nullptr, 0, "%Lf", wide)) + 1, '\0');
    std::snprintf(text.data(), text.size(), "%Lf", wide);
    text.pop_back();
    return text;
}

TEST(JsonMeasure, FloatingValuesHaveSixDecimals)
{
    ExpectJson("0.000000", 0.0);
    ExpectJson("-0.000000", -0.0);
    ExpectJson("1.500000", 1.5F);
    ExpectJson("0.100000", 0.1F);
    ExpectJson("-123.456000", -123.456);
    ExpectJson("2.500000", 2.5L);
    ExpectJson("0.000000", DBL_MIN);
    ExpectJson("-99999999999999.984375", -99999999999999.984375);
}

TEST(JsonMeasure, FloatingValuesLongerThanTheirBoundAreWrittenInFull)
{
    ExpectJson("9999999999999998.000000", 9999999999999998.0); // 23 bytes, and a zero behind it in the room of 24
    ExpectJson("-9999999999999998.000000", -9999999999999998.0);
    ExpectJson("100000000000000000000.000000", 1e20);
    ExpectJson("340282346638528859811704183484516925440.000000", FLT_MAX);
    ExpectJson(Fixed(DBL_MAX), DBL_MAX);
    ExpectJson(Fixed(-DBL_MAX), -DBL_MAX);
    EXPECT_EQ(Json(LDBL_MAX), Fixed(LDBL_MAX));
    EXPECT_EQ(Json(-LDBL_MAX).size(), 4933U + 1 + 1 + 6);
}

TEST(JsonMeasure, EveryPowerOfTwoIsWrittenInFull)
{
    for (int exponent = -2; exponent < DBL_MAX_EXP; ++exponent) {
        const double value = std::ldexp(1.0, exponent);
        EXPECT_EQ(Json(value), Fixed(value)) << exponent;
        EXPECT_EQ(Json(-std::nextafter(value, 0)), Fixed(-std::nextafter(value, 0))) << exponent;
    }
    for (int exponent = 0; exponent < LDBL_MAX_EXP; exponent += 61) {
        EXPECT_EQ(Json(std::ldexp(-1.0L, exponent)), Fixed(std::ldexp(-1.0L, exponent))) << exponent;
    }
}

TEST(JsonMeasure, FloatingValuesThatAreNoNumbersHaveWords)
{
    ExpectJson("inf", std::numeric_limits<double>::infinity());
    ExpectJson("-inf", -std::numeric_limits<float>::infinity());
    ExpectJson("nan", std::numeric_limits<long double>::quiet_NaN());
    ExpectJson("-nan", -std::numeric_limits<double>::quiet_NaN());
}

TEST(JsonMeasure, NumbersAreTheSameInAnyLocaleOfCpp)
{
    const DecimalComma comma;
    EXPECT_EQ(Json(std::vector<double>{1234567.5}), "[1234567.500000]");
    EXPECT_EQ(Json(std::vector<int>{1234567}), "[1234567]");
}

TEST(JsonMeasure, NumbersAreTheSameInAnyLocaleOfC)
{
    const CDecimalComma comma;
    if (!comma.Found()) GTEST_SKIP() << "this machine has no locale with a decimal comma";
    EXPECT_EQ(Json(std::vector<double>{1234567.5}), "[1234567.500000]");
}

// Texts

TEST(JsonMeasure, StringsStandInQuotesAndAreEscaped)
{
    ExpectJson(R"("")", std::string());
    ExpectJson(R"("a\/b\"c\t\u00c3")", "a/b\"c\t\xC3"s);
    ExpectJson(R"("\\")", "\\"s);
}

TEST(JsonMeasure, EveryByteOfAStringIsEscapedByItsRule)
{
    const std::string letters[] = {"\"\"", "\\\\", "//", "\bb", "\ff", "\nn", "\rr", "\tt"};
    for (unsigned byte = 0; byte < 256; ++byte) {
        const auto character = static_cast<char>(byte);
        char sequence[8];
        std::snprintf(sequence, sizeof sequence, "\\u00%02x", byte);
        std::string expected = byte >= 0x20 && byte <= 0x7E ? std::string(1, character) : sequence;
        for (const std::string& letter : letters) {
            if (letter[0] == character) expected = "\\"s + letter[1];
        }
        EXPECT_EQ(Json(std::string(1, character)), "\"" + expected + "\"") << byte;
        EXPECT_EQ(Json(std::string(1000, character)).size(), 1000 * expected.size() + 2) << byte;
    }
}

TEST(JsonMeasure, AConstantTextEndsAtItsZero)
{
    const char* text = "a/\xFF\0b";
    EXPECT_EQ(Json(text), R"("a\/\u00ff")");
    text = "";
    EXPECT_EQ(Json(text), R"("")");
    text = nullptr;
    EXPECT_EQ(Json(text), "");
}

TEST(JsonMeasure, ALargeStringIsWrittenInFull)
{
    constexpr std::size_t LENGTH = (256UL << 20U) + 10; // more than the bounded copies of C libraries take
    std::string out;
    ASSERT_EQ(vexa::ToJson(out, std::string(LENGTH, 'a')), 0);
    ASSERT_EQ(out.size(), LENGTH + 2);
    EXPECT_EQ(out.find_first_not_of('a', 1), LENGTH + 1);
}

// Value objects, which stand without quotes

TEST(JsonMeasure, BinaryIsHexadecimalWithoutQuotes)
{
    ExpectJson("00ff7a", vexa::CBinary("\0\xFFz", 3));
    ExpectJson("", vexa::CBinary());
    EXPECT_EQ(Json(vexa::CBinary(std::string(1000, '\xAB'))).size(), 2000U);
}

TEST(JsonMeasure, NumericIsDecimalWithoutQuotes)
{
    ExpectJson("-0012.340", vexa::CNumeric("-0012.340"));
    ExpectJson("12", vexa::CNumeric("12"));
    ExpectJson("(null)", vexa::CNumeric());
    ExpectJson("(NaN)", vexa::CNumeric("x"));
    const std::string digits(500, '7');
    ExpectJson("-" + digits + "." + digits, vexa::CNumeric("-" + digits + "." + digits));
}

tm Noon()
{
    tm time{};
    time.tm_year = 120;
    time.tm_mday = 2;
    time.tm_hour = 12;
    return time;
}

TEST(JsonMeasure, TimesAreDatesWithoutQuotes)
{
    ExpectJson("2020-01-02 12:00:00", Noon());
    ExpectJson("2020-01-02 12:00:00", vexa::CDateTime(Noon()));
    ExpectJson("NULL", vexa::CDateTime());
    ExpectJson("(Error)", vexa::CDateTime("x"));
}

TEST(JsonMeasure, TimesWithFieldsOutOfRangeAreWrittenInFull)
{
    tm time = Noon();
    time.tm_year = INT_MAX - 1900;
    ExpectJson("2147483647-01-02 12:00:00", time);
    time.tm_mday = time.tm_hour = time.tm_min = time.tm_sec = INT_MAX;
    ExpectJson("2147483647-01-2147483647 2147483647:2147483647:2147483647", time);
}

// Custom types and codes without a type

TEST(JsonMeasure, ACustomValueIsWrittenAsItsStandardValue)
{
    const vexa::CCustomBasicTypeInfor label = CustomType<std::string>("Label", Plain(DT_STD_STRING));
    const vexa::CCustomBasicTypeInfor grade = CustomType<int>("Grade", Plain(DT_INT));
    const vexa::CCustomBasicTypeInfor letter = CustomType<char>("Letter", Plain(DT_CHAR));
    Custom<std::string> text;
    text.Value = "a/b";
    Custom<int> number;
    number.Value = -5;
    Custom<char> character;
    character.Value = 'A';
    EXPECT_EQ(Json(CConstRefrence(Plain(DT_CUSTOM_BASIC, &label), &text)), R"("a\/b")");
    EXPECT_EQ(Json(CConstRefrence(Plain(DT_CUSTOM_BASIC, &grade), &number)), "-5");
    EXPECT_EQ(Json(CConstRefrence(Plain(DT_CUSTOM_BASIC, &letter), &character)), "65");
}

TEST(JsonMeasure, OnlyACustomValueOverAStringStandsInQuotes)
{
    const vexa::CCustomBasicTypeInfor words = CustomType<const char*>("Words", ConstPointer(DT_CONST_CHAR_PTR));
    Custom<const char*> text;
    text.Value = "a/b";
    EXPECT_EQ(Json(CConstRefrence(Plain(DT_CUSTOM_BASIC, &words), &text)), R"(a\/b)");
}

TEST(JsonMeasure, ANullCustomValueIsEmpty)
{
    const vexa::CCustomBasicTypeInfor grade = CustomType<int>("Grade", Plain(DT_INT));
    const void* pointer = nullptr;
    EXPECT_EQ(Json(CConstRefrence(OwnedPointer(DT_CUSTOM_BASIC, &grade), &pointer)), "");
    const vexa::CCustomBasicTypeInfor maybe = CustomType<Wrapped<int>>("Maybe", vexa_test::MayNull<int>(DT_INT));
    Custom<Wrapped<int>> value;
    value.Value = {1, 5};
    EXPECT_EQ(Json(CConstRefrence(Plain(DT_CUSTOM_BASIC, &maybe), &value)), "");
}

TEST(JsonMeasure, ACustomValueOverAnUnknownTypeIsUnkown)
{
    const vexa::CCustomBasicTypeInfor opaque = CustomType<int>("Opaque", Plain(DT_UNKNOWN));
    const Custom<int> value;
    const CConstRefrence ref(Plain(DT_CUSTOM_BASIC, &opaque), &value);
    EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(Json(ref), "unkown"); }), "");
}

TEST(JsonMeasure, ACustomValueThatIsNoBasicValueIsEmpty)
{
    const vexa::CCustomBasicTypeInfor bag = CustomType<std::vector<int>>("Bag", vexa::TypeInforOf<std::vector<int>>());
    Custom<std::vector<int>> value;
    value.Value = {1, 2};
    const CConstRefrence ref(Plain(DT_CUSTOM_BASIC, &bag), &value);
    EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(Json(ref), ""); }), "");
}

TEST(JsonMeasure, ABasicCodeWithoutATypeIsEmpty)
{
    const char something = 1;
    for (const unsigned code : {20U, 43U, 58U}) {
        EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(Json(CConstRefrence(Plain(code), &something)), ""); }), "") << code;
    }
}

} // namespace
