#include <vexa/numeric.h>

#include <climits>
#include <limits>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "support/decimal_comma.h"

namespace {

using namespace std::string_literals;
using vexa::CNumeric;
using vexa::Enum::VS_ERROR;
using vexa::Enum::VS_NULL;
using vexa::Enum::VS_VALID;

static_assert(VS_NULL == 0 && VS_VALID == 1 && VS_ERROR == 2);

void ExpectFields(const CNumeric& number, unsigned state, int negative, const std::string& integer,
                  const std::string& fraction)
{
    EXPECT_EQ(state, number.State);
    EXPECT_EQ(negative, number.Negative);
    EXPECT_EQ(integer, number.IntegerDigits);
    EXPECT_EQ(fraction, number.FractionDigits);
}

void ExpectUnreadable(const std::string& text)
{
    SCOPED_TRACE('"' + text + '"');
    const CNumeric number(text);
    ExpectFields(number, VS_ERROR, 0, "", "");
    EXPECT_EQ("(NaN)", number.AsString());
}

TEST(Numeric, IsNullByDefault)
{
    ExpectFields(CNumeric(), VS_NULL, 0, "", "");
    EXPECT_EQ("(null)", CNumeric().AsString());
}

TEST(Numeric, InitMakesItNull)
{
    CNumeric number("-1.5");
    number.Init();
    ExpectFields(number, VS_NULL, 0, "", "");
}

TEST(Numeric, CopiesAllFields)
{
    const CNumeric number("-1.50");
    CNumeric copy;
    copy = number;
    ExpectFields(copy, VS_VALID, 1, "1", "50");
    ExpectFields(CNumeric(number), VS_VALID, 1, "1", "50");
    const CNumeric& same = copy;
    copy = same;
    ExpectFields(copy, VS_VALID, 1, "1", "50");
}

TEST(NumericText, KeepsItsDigits)
{
    const CNumeric number("007.500");
    ExpectFields(number, VS_VALID, 0, "007", "500");
    EXPECT_EQ("007.500", number.AsString());
}

TEST(NumericText, LeadingBlanksAndBlanksBehindTheSignAreSkipped)
{
    ExpectFields(CNumeric("  +12"), VS_VALID, 0, "12", "");
    ExpectFields(CNumeric("- 5"), VS_VALID, 1, "5", "");
    ExpectFields(CNumeric("  -  .5"), VS_VALID, 1, "", "5");
}

TEST(NumericText, NothingToReadIsAnError)
{
    ExpectUnreadable("");
    ExpectUnreadable("   ");
    ExpectUnreadable("-");
    ExpectUnreadable("+");
    ExpectUnreadable(" -  ");
}

TEST(NumericText, AnyOtherCharacterIsAnErrorAndLeavesNoDigits)
{
    ExpectUnreadable("12 ");
    ExpectUnreadable("1e5");
    ExpectUnreadable("\t12");
    ExpectUnreadable("--5");
    ExpectUnreadable("-+5");
    ExpectUnreadable("1,5");
    ExpectUnreadable("-12x");
    ExpectUnreadable("1.5\xC3");
}

TEST(NumericText, OfSeveralPointsTheFirstCounts)
{
    ExpectFields(CNumeric("1.2.3"), VS_VALID, 0, "1", "23");
    EXPECT_EQ("1.23", CNumeric("1.2.3").AsString());
}

TEST(NumericText, ABarePointIsValidAndRendersAsAnEmptyText)
{
    ExpectFields(CNumeric("."), VS_VALID, 0, "", "");
    EXPECT_EQ("", CNumeric(".").AsString());
    EXPECT_EQ("-", CNumeric("-.").AsString());
}

TEST(NumericText, AnEmptyPartIsLeftOut)
{
    EXPECT_EQ("5", CNumeric("5.").AsString());
    EXPECT_EQ("-.5", CNumeric("-.5").AsString());
}

TEST(NumericText, EndsAtAZeroByte)
{
    EXPECT_EQ("12", CNumeric("12\0x"s).AsString());
    ExpectUnreadable("\0"
                     "12"s);
}

TEST(NumericText, AssignmentForgetsTheOldValue)
{
    CNumeric number("-1.5");
    number = "7"s;
    ExpectFields(number, VS_VALID, 0, "7", "");
    number = "x"s;
    ExpectFields(number, VS_ERROR, 0, "", "");
}

TEST(NumericText, ANumberCanBeAssignedItsOwnDigits)
{
    CNumeric number("1.25");
    number = number.FractionDigits;
    ExpectFields(number, VS_VALID, 0, "25", "");
}

TEST(NumericText, AnyNumberOfDigitsIsKept)
{
    const std::string digits = std::string(5000, '9') + "." + std::string(5000, '1');
    EXPECT_EQ(digits, CNumeric(digits).AsString());
}

TEST(NumericInteger, KeepsEveryInteger)
{
    EXPECT_EQ("0", CNumeric(0).AsString());
    EXPECT_EQ("-12", CNumeric(-12).AsString());
    EXPECT_EQ("-2147483648", CNumeric(INT_MIN).AsString());
    EXPECT_EQ("9223372036854775807", CNumeric(LONG_MAX).AsString());
    EXPECT_EQ("-9223372036854775808", CNumeric(LONG_MIN).AsString());
    ExpectFields(CNumeric(-12L), VS_VALID, 1, "12", "");
}

TEST(NumericFloating, HoldsTheExactBinaryExpansion)
{
    EXPECT_EQ("0.1000000000000000055511151231257827021181583404541015625", CNumeric(0.1).AsString());
    EXPECT_EQ("0.100000001490116119384765625", CNumeric(0.1F).AsString());
    // 14757395258967641293 / 2^67
    EXPECT_EQ("0.1000000000000000000013552527156068805425093160010874271392822265625", CNumeric(0.1L).AsString());
}

TEST(NumericFloating, LosesTrailingZerosAndThePointOfAWholeNumber)
{
    EXPECT_EQ("3", CNumeric(3.0).AsString());
    ExpectFields(CNumeric(3.0), VS_VALID, 0, "3", "");
    EXPECT_EQ("100", CNumeric(100.0F).AsString());
    EXPECT_EQ("-2.5", CNumeric(-2.5L).AsString());
    EXPECT_EQ("-0", CNumeric(-0.0).AsString());
}

TEST(NumericFloating, HoldsTheLargestValuesWhole)
{
    // 2^1023 and 2^16383 by doubling in decimal.
    const auto powerOfTwo = [](int exponent) {
        std::string reversed = "1";
        for (int i = 0; i < exponent; ++i) {
            int carry = 0;
            for (char& digit : reversed) {
                const int doubled = 2 * (digit - '0') + carry;
                digit = static_cast<char>('0' + doubled % 10);
                carry = doubled / 10;
            }
            if (carry != 0) {
                reversed += '1';
            }
        }
        return std::string(reversed.rbegin(), reversed.rend());
    };
    EXPECT_EQ(powerOfTwo(1023), CNumeric(0x1p1023).AsString());
    EXPECT_EQ("-" + powerOfTwo(16383), CNumeric(-0x1p16383L).AsString());
    EXPECT_EQ(4933U, CNumeric(std::numeric_limits<long double>::max()).IntegerDigits.size());
}

TEST(NumericFloating, Has256PlacesAtMost)
{
    EXPECT_EQ("0", CNumeric(std::numeric_limits<double>::denorm_min()).AsString());
    // 2^-256 ends in its 256th place, 2^-257 behind it: the tie, ...5 behind the even place 2, is rounded to even.
    EXPECT_EQ(256U, CNumeric(0x1p-256).FractionDigits.size());
    EXPECT_EQ('5', CNumeric(0x1p-256).FractionDigits.back());
    EXPECT_EQ(256U, CNumeric(0x1p-257).FractionDigits.size());
    EXPECT_EQ('2', CNumeric(0x1p-257).FractionDigits.back());
}

TEST(NumericFloating, NaNAndTheInfinitiesAreErrors)
{
    ExpectFields(CNumeric(std::numeric_limits<double>::quiet_NaN()), VS_ERROR, 0, "", "");
    ExpectFields(CNumeric(-std::numeric_limits<double>::infinity()), VS_ERROR, 0, "", "");
    ExpectFields(CNumeric(std::numeric_limits<float>::infinity()), VS_ERROR, 0, "", "");
    ExpectFields(CNumeric(std::numeric_limits<long double>::infinity()), VS_ERROR, 0, "", "");
}

TEST(NumericLocale, NumbersDoNotFollowTheGlobalLocaleOfCPlusPlus)
{
    const vexa_test::DecimalComma comma;
    EXPECT_EQ("1234567", CNumeric(1234567).AsString());
    EXPECT_EQ("1234.5", CNumeric(1234.5).AsString());
    EXPECT_EQ("1234.5", CNumeric(1234.5L).AsString());
}

TEST(NumericLocale, NumbersDoNotFollowTheLocaleOfTheCLibrary)
{
    const vexa_test::CDecimalComma comma;
    if (!comma.Found()) {
        GTEST_SKIP() << "no locale de_DE.UTF-8";
    }
    EXPECT_EQ("1234.5", CNumeric(1234.5).AsString());
    EXPECT_EQ("1234.5", CNumeric(1234.5L).AsString());
}

TEST(NumericZero, LooksPastTheSignAndAllZeros)
{
    EXPECT_TRUE(CNumeric("-0.0").IsZero());
    EXPECT_TRUE(CNumeric("000.000").IsZero());
    EXPECT_TRUE(CNumeric(".").IsZero());
    EXPECT_FALSE(CNumeric("0.01").IsZero());
    EXPECT_FALSE(CNumeric("10").IsZero());
    EXPECT_FALSE(CNumeric().IsZero());
    EXPECT_FALSE(CNumeric("x").IsZero());
}

TEST(NumericEquality, LooksPastOuterZeros)
{
    EXPECT_TRUE(CNumeric("007.500").IsEqu(CNumeric("7.5")));
    EXPECT_TRUE(CNumeric(".50") == CNumeric("0.5"));
    EXPECT_FALSE(CNumeric("70") == CNumeric("7"));
    EXPECT_FALSE(CNumeric("7.05") == CNumeric("7.5"));
    EXPECT_TRUE(CNumeric("7.5") != CNumeric("7.6"));
    EXPECT_FALSE(CNumeric("7.5") != CNumeric("7.50"));
}

TEST(NumericEquality, DifferentSignsAreEqualOnlyForZero)
{
    EXPECT_TRUE(CNumeric("-0.0") == CNumeric("0"));
    EXPECT_FALSE(CNumeric("-5") == CNumeric("5"));
    EXPECT_FALSE(CNumeric("-0") == CNumeric("5"));
}

TEST(NumericEquality, TwoThatAreNotValidAreEqualInTheSameState)
{
    EXPECT_TRUE(CNumeric() == CNumeric());
    EXPECT_TRUE(CNumeric("x") == CNumeric("y"));
    EXPECT_FALSE(CNumeric() == CNumeric("x"));
}

TEST(NumericEquality, AValidOneEqualsAnInvalidOneOfTheSameSign)
{
    EXPECT_TRUE(CNumeric() == CNumeric("5"));
    EXPECT_TRUE(CNumeric("5") == CNumeric("x"));
    EXPECT_FALSE(CNumeric() == CNumeric("-5"));
    EXPECT_FALSE(CNumeric("-5") == CNumeric());
}

TEST(NumericEquality, OneEqualsItself)
{
    const CNumeric number("-5");
    EXPECT_TRUE(number.IsEqu(number));
}

TEST(NumericStream, WritesItsText)
{
    std::ostringstream out;
    out << CNumeric("-1.50") << ' ' << CNumeric() << ' ' << CNumeric("x");
    EXPECT_EQ("-1.50 (null) (NaN)", out.str());
}

TEST(NumericStream, ReadsOneWord)
{
    std::istringstream in(" \t\n-1.50 x");
    CNumeric number;
    in >> number;
    ExpectFields(number, VS_VALID, 1, "1", "50");
    in >> number;
    ExpectFields(number, VS_ERROR, 0, "", "");
}

TEST(NumericStream, WithoutAWordTheNumberIsAnError)
{
    std::istringstream in("  ");
    CNumeric number("5");
    in >> number;
    EXPECT_TRUE(in.fail());
    ExpectFields(number, VS_ERROR, 0, "", "");
}

} // namespace
