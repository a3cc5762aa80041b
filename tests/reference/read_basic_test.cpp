// Reading one basic value: what the matrix of conversions does not show.

#include <gtest/gtest.h>

#include <vexa/refrence.h>

#include "support/captured_log.h"
#include "support/conversion_reading.h"
#include "support/decimal_comma.h"

namespace {

using namespace vexa_test;

constexpr char NOT_READABLE[] = " type CStdBasicTypeConstRefrence can not be converted to ";

/// A reference to a directly held value, which must outlive it.
template<class T>
Ref RefTo(const T& value)
{
    return Ref(vexa::CGnlTypeInfor(BasicType<T>::Code), &value);
}

TEST(ReadBasicTest, ANullIntReadsAsZeroAndANullStringAsEmptyWithoutAMessage)
{
    Held<int> number(HoldingForm::MayNull, 5, true);
    Held<std::string> text(HoldingForm::OwnedPointer, "", true);
    const std::string log = LoggedLines([&] {
        EXPECT_EQ(Ref(number.Ref()).As_int(), 0);
        EXPECT_EQ(Ref(text.Ref()).As_std_string(), "");
    });
    EXPECT_EQ(log, "");
}

TEST(ReadBasicTest, ATextReadsAsItsLeadingDigits)
{
    EXPECT_EQ(RefTo(std::string("42abc")).As_int(), 42);
    EXPECT_EQ(RefTo(std::string(" -7")).As_int(), -7);
    EXPECT_EQ(RefTo(std::string("abc")).As_int(), 0);
}

TEST(ReadBasicTest, OnlyTheWordTrueReadsAsTrue)
{
    EXPECT_TRUE(RefTo(std::string("true")).As_bool());
    EXPECT_FALSE(RefTo(std::string("True")).As_bool());
    EXPECT_FALSE(RefTo(std::string("1")).As_bool());
    EXPECT_FALSE(RefTo(std::string("true\0", 5)).As_bool());
}

TEST(ReadBasicTest, AFloatingNumberIsCutTowardZero)
{
    EXPECT_EQ(RefTo(2.9).As_int(), 2);
    EXPECT_EQ(RefTo(-2.9).As_int(), -2);
}

TEST(ReadBasicTest, ACharIsAnUnsignedByte)
{
    EXPECT_EQ(RefTo(C(200)).As_int(), 200);
    EXPECT_EQ(static_cast<unsigned char>(RefTo(200).As_char()), 200);
}

TEST(ReadBasicTest, AnExponentCountsForLongLongOnly)
{
    const std::string text = "1e3";
    EXPECT_EQ(RefTo(text).As_long_long(), 1000);
    EXPECT_EQ(RefTo(text).As_long(), 1);
    EXPECT_EQ(RefTo(text).As_long_double(), 1.0L);
}

TEST(ReadBasicTest, AFractionCountsForDoubleButNotForLongDouble)
{
    const std::string text = "3.75";
    EXPECT_EQ(RefTo(text).As_double(), 3.75);
    EXPECT_EQ(RefTo(text).As_long_double(), 3.0L);
}

TEST(ReadBasicTest, ANumericReadsWithoutItsFractionAndIsNeverTrue)
{
    const vexa::CNumeric number(std::string("5.5"));
    EXPECT_EQ(RefTo(number).As_int(), 5);
    EXPECT_FALSE(RefTo(number).As_bool());
}

TEST(ReadBasicTest, ANumericWithoutAValueReadsAsZeroInEveryNumber)
{
    ExpectReadsNumbers(RefTo(vexa::CNumeric()), AllNumbers{});
    ExpectReadsNumbers(RefTo(vexa::CNumeric(std::string("x"))), AllNumbers{});
}

TEST(ReadBasicTest, ANotANumberIsTrueAndReadsAsTheLowestIntegers)
{
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    const Ref source = RefTo(notANumber);
    EXPECT_TRUE(source.As_bool());
    EXPECT_EQ(source.As_unsigned_char(), 0);
    EXPECT_EQ(source.As_short(), 0);
    EXPECT_EQ(source.As_int(), INT_MIN);
    EXPECT_EQ(source.As_unsigned_int(), 0U);
    EXPECT_EQ(source.As_long(), LONG_MIN);
    EXPECT_EQ(source.As_unsigned_long(), TOP64);
    EXPECT_TRUE(std::isnan(source.As_float()));
    EXPECT_TRUE(std::isnan(source.As_double()));
    EXPECT_TRUE(std::isnan(source.As_long_double()));
}

TEST(ReadBasicTest, ANumberEndsAtAZeroByteInsideTheText) { EXPECT_EQ(RefTo(std::string("12\0003", 4)).As_int(), 12); }

TEST(ReadBasicTest, ADateTimeDoesNotReadAsInt)
{
    const vexa::CDateTime time(12L, 0L);
    int value = -1;
    EXPECT_EQ(LoggedLines([&] { value = RefTo(time).As_int(); }),
              "vexa::CDateTime type CStdBasicTypeConstRefrence can not be converted to int\n");
    EXPECT_EQ(value, 0);
}

TEST(ReadBasicTest, AReferenceConvertsByItself)
{
    const int value = 65;
    const Ref number = RefTo(value);
    const int asInt = number;
    const double asDouble = number;
    const vexa::CNumeric asNumeric = number;
    const vexa::CBinary asBinary = number;
    const std::string text = "abc";
    const char* const asText = RefTo(text);
    EXPECT_EQ(asInt, 65);
    EXPECT_EQ(asDouble, 65.0);
    EXPECT_EQ(asNumeric.AsString(), "65");
    EXPECT_EQ(asBinary.AsHexString(), "41000000");
    EXPECT_EQ(asText, text.c_str());
}

TEST(ReadBasicTest, NumbersHaveADecimalPointInEveryLocale)
{
    const DecimalComma comma;
    EXPECT_EQ(RefTo(std::string("1.5")).As_double(), 1.5);
    EXPECT_EQ(RefTo(std::string("1,5")).As_double(), 1.0);
    EXPECT_EQ(RefTo(1234.5).As_std_string(), "1234.500000");
    EXPECT_EQ(RefTo(1234567).As_CNumeric().AsString(), "1234567");
}

TEST(ReadBasicTest, NumbersHaveADecimalPointInEveryLocaleOfTheCLibrary)
{
    const CDecimalComma comma;
    if (!comma.Found()) GTEST_SKIP() << "no locale with a decimal comma on this machine";
    EXPECT_EQ(RefTo(std::string("1.5")).As_float(), 1.5F);
    EXPECT_EQ(RefTo(std::string("1,5")).As_double(), 1.0);
    EXPECT_EQ(RefTo(std::string("12.9")).As_long_long(), 12);
    EXPECT_EQ(RefTo(1234.5).As_std_string(), "1234.500000");
}

TEST(ReadTextTest, AStringGivesItsOwnCharacters)
{
    const std::string text = "abc";
    InEveryForm(text, [](const Ref& source, const std::string&) {
        const auto* const stored = static_cast<const std::string*>(source.ValueAddress());
        EXPECT_EQ(source.As_const_char_ptr(), stored->c_str());
        EXPECT_EQ(static_cast<const char*>(source), stored->c_str());
    });
}

TEST(ReadTextTest, ATextGivesItsOwnCharacters)
{
    InEveryForm(TextCharacters("abc"), [](const Ref& source, const std::string&) {
        EXPECT_EQ(source.As_const_char_ptr(), source.ValueAddress());
        EXPECT_EQ(static_cast<const char*>(source), source.ValueAddress());
        EXPECT_STREQ(source.As_const_char_ptr(), "abc");
    });
}

TEST(ReadTextTest, EveryOtherTypeGivesAnEmptyTextAndAMessage)
{
    for (const AnyBasicType& type : BasicTypes()) {
        if (type.Code == 41 || type.Code == 42) continue;
        for (HoldingForm form : ALL_FORMS) {
            const std::unique_ptr<AnyHeld> held = type.Hold(form, false);
            const Ref source = held->Ref();
            const std::string message = held->TypeName() + NOT_READABLE + "const char*\n";
            EXPECT_EQ(LoggedLines([&] { EXPECT_STREQ(source.As_const_char_ptr(), ""); }), message);
            EXPECT_EQ(LoggedLines([&] { EXPECT_STREQ(source.operator const char*(), ""); }), message);
        }
    }
}

TEST(ReadTextTest, ANullGivesAnEmptyTextWithoutAMessage)
{
    for (const AnyBasicType& type : BasicTypes()) {
        for (HoldingForm form : {HoldingForm::MayNull, HoldingForm::OwnedPointer, HoldingForm::ConstPointer}) {
            const std::unique_ptr<AnyHeld> held = type.Hold(form, true);
            EXPECT_EQ(LoggedLines([&] { EXPECT_STREQ(Ref(held->Ref()).As_const_char_ptr(), ""); }), "");
        }
    }
}

} // namespace
