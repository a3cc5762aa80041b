// The text of basic values, and how it gets onto a string or into a buffer.

#include <cfloat>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/refrence.h>

#include "support/conversion_reading.h"
#include "support/decimal_comma.h"
#include "support/time_zone.h"

namespace {

using namespace vexa_test;

/// A value with its texts.
struct TextRowOf {
    std::function<void(const ReadAction&)> InEveryForm;
    std::string Text;
    std::string Escaped;
};

template<class T>
TextRowOf Row(const T& value, const std::string& text, const std::string& escaped)
{
    const auto inEveryForm = [value](const ReadAction& action) {
        SCOPED_TRACE(testing::Message() << BasicType<T>::Name << ' ' << Shown(value));
        InEveryForm(value, action);
    };
    return {inEveryForm, text, escaped};
}

template<class T>
TextRowOf Row(const T& value, const std::string& text)
{
    return Row(value, text, text);
}

std::vector<TextRowOf> IntegerRows()
{
    return {
        Row(false, "false"),
        Row(true, "true"),
        Row(short{0}, "0"),
        Row(short{SHRT_MIN}, "-32768"),
        Row(short{SHRT_MAX}, "32767"),
        Row(0, "0"),
        Row(-7, "-7"),
        Row(1000000, "1000000"),
        Row(INT_MIN, "-2147483648"),
        Row(INT_MAX, "2147483647"),
        Row(0L, "0"),
        Row(LONG_MIN, "-9223372036854775808"),
        Row(LONG_MAX, "9223372036854775807"),
        Row(0LL, "0"),
        Row(LLONG_MIN, "-9223372036854775808"),
        Row(LLONG_MAX, "9223372036854775807"),
        Row(static_cast<unsigned char>(0), "0"),
        Row(static_cast<unsigned char>(255), "255"),
        Row(static_cast<unsigned short>(0), "0"),
        Row(static_cast<unsigned short>(65535), "65535"),
        Row(0U, "0"),
        Row(UINT_MAX, "4294967295"),
        Row(0UL, "0"),
        Row(ULONG_MAX, "18446744073709551615"),
        Row(0ULL, "0"),
        Row(ULLONG_MAX, "18446744073709551615"),
    };
}

std::vector<TextRowOf> FloatingRows()
{
    return {
        Row(0.F, "0.000000"),
        Row(1.5F, "1.500000"),
        Row(0.1F, "0.100000"),
        Row(-1e-9F, "-0.000000"),
        // 2^128 - 2^104, exactly.
        Row(FLT_MAX, "340282346638528859811704183484516925440.000000"),
        Row(-FLT_MAX, "-340282346638528859811704183484516925440.000000"),
        Row(0., "0.000000"),
        Row(-0., "-0.000000"),
        Row(0.0000005, "0.000000"), // the double is a little less than half a millionth
        Row(0.0000015, "0.000002"),
        Row(1e20, "100000000000000000000.000000"),
        Row(INF_D, "inf"),
        Row(-INF_D, "-inf"),
        Row(2.5L, "2.500000"),
        Row(-1234567.0625L, "-1234567.062500"),
    };
}

std::vector<TextRowOf> CharacterRows()
{
    const std::string mixed("a\"b\\c/d\b\f\n\r\t\1\x7F\xC3\xA9", 16);
    const std::string escaped = R"(a\"b\\c\/d\b\f\n\r\t\u0001\u007f\u00c3\u00a9)";
    return {
        Row(C('x'), "x"),
        Row(C('/'), "/", "\\/"),
        Row(C('"'), "\"", "\\\""),
        Row(C('\n'), "\n", "\\n"),
        Row(C(200), "\xC8", "\\u00c8"),
        Row(C(255), "\xFF", "\\u00ff"),
        Row(std::string(), ""),
        Row(std::string("plain"), "plain"),
        Row(mixed, mixed, escaped),
        Row(std::string("a\0b", 3), std::string("a\0b", 3), "a\\u0000b"),
        Row(TextCharacters(""), ""),
        Row(TextCharacters("plain"), "plain"),
        Row(TextCharacters(mixed.c_str()), mixed, escaped),
    };
}

std::vector<TextRowOf> ObjectRows()
{
    return {
        Row(vexa::CBinary(std::string("\0\xAB\x7F", 3)), "00ab7f"),
        Row(vexa::CBinary(), ""),
        Row(vexa::CNumeric(std::string("-007.500")), "-007.500"),
        Row(vexa::CNumeric(), "(null)"),
        Row(vexa::CNumeric(std::string("x")), "(NaN)"),
        Row(MakeTm(2020, 1, 2, 3, 4, 5), "2020-01-02 03:04:05"),
        Row(vexa::CDateTime(1577934245L, 678L), "2020-01-02 03:04:05"),
        Row(vexa::CDateTime(), "NULL"),
        Row(vexa::CDateTime(-1L, 0L), "(Error)"),
    };
}

/// Writes in the middle of a buffer with more than enough room, and gives the whole buffer back.
std::string InBuffer(const Ref& source, unsigned long& position, bool escape)
{
    std::string buffer(6000, '#');
    source.AppendToString(buffer.data(), position, buffer.size(), escape);
    return buffer;
}

void ExpectText(const Ref& source, const std::string& text, bool escape)
{
    std::string out = "before ";
    source.AppendToString(out, escape);
    EXPECT_EQ(out, "before " + text);

    unsigned long position = 5;
    const std::string buffer = InBuffer(source, position, escape);
    EXPECT_EQ(position, 5 + text.size());
    // Not even a zero is written behind the text.
    EXPECT_EQ(buffer, "#####" + text + std::string(5995 - text.size(), '#'));
}

void ExpectTexts(const std::vector<TextRowOf>& rows)
{
    const TimeZone zone("UTC0");
    for (const TextRowOf& row : rows) {
        row.InEveryForm([&](const Ref& source, const std::string&) {
            const std::string log = LoggedLines([&] {
                ExpectText(source, row.Text, false);
                ExpectText(source, row.Escaped, true);
            });
            EXPECT_EQ(log, "");
        });
    }
}

TEST(BasicTextTest, IntegersAreDecimal) { ExpectTexts(IntegerRows()); }

TEST(BasicTextTest, FloatingNumbersHaveSixDecimals) { ExpectTexts(FloatingRows()); }

TEST(BasicTextTest, CharactersAreEscapedOnRequestAndNeverQuoted) { ExpectTexts(CharacterRows()); }

TEST(BasicTextTest, ObjectsHaveTheirOwnTexts) { ExpectTexts(ObjectRows()); }

TEST(BasicTextTest, NotANumberIsWritten)
{
    InEveryForm(std::numeric_limits<double>::quiet_NaN(),
                [](const Ref& source, const std::string&) { ExpectText(source, "nan", false); });
}

TEST(BasicTextTest, EveryNullIsWrittenInCapitals)
{
    for (const AnyBasicType& type : BasicTypes()) {
        for (HoldingForm form : ALL_FORMS) {
            if (form == HoldingForm::Plain) continue;
            const std::unique_ptr<AnyHeld> held = type.Hold(form, true);
            SCOPED_TRACE(held->TypeName());
            ExpectText(held->Ref(), "NULL", false);
            ExpectText(held->Ref(), "NULL", true);
        }
        ExpectText(Ref(vexa::CGnlTypeInfor(type.Code), nullptr), "NULL", false);
    }
    const unsigned char memory[1] = {1};
    ExpectText(Ref(vexa::CGnlTypeInfor(2), memory), "NULL", false);
}

TEST(BasicTextTest, ANullBoolIsNoFalse)
{
    Held<bool> null(HoldingForm::MayNull, false, true);
    Held<bool> no(HoldingForm::MayNull, false, false);
    ExpectText(null.Ref(), "NULL", false);
    ExpectText(no.Ref(), "false", false);
}

TEST(BasicTextTest, AnUnknownTypeSaysSoAndAnyOtherCodeWritesNothing)
{
    const char memory[16] = "memory";
    for (const UnsupportedType& type : UNSUPPORTED_TYPES) {
        SCOPED_TRACE(type.Code);
        const std::string text = type.Code == 0 ? "unkown" : "";
        const Ref source(vexa::CGnlTypeInfor(type.Code), memory);
        EXPECT_EQ(LoggedLines([&] { ExpectText(source, text, false); }), "");
        EXPECT_EQ(LoggedLines([&] { ExpectText(source, text, true); }), "");
    }
}

TEST(BasicTextTest, AZeroCharIsAByteInABufferButEndsTheTextOfAString)
{
    const char zero = 0;
    const Ref source(vexa::CGnlTypeInfor(12), &zero);
    std::string out = "before";
    source.AppendToString(out, false);
    EXPECT_EQ(out, "before");
    unsigned long position = 0;
    EXPECT_EQ(InBuffer(source, position, false), std::string(1, '\0') + std::string(5999, '#'));
    EXPECT_EQ(position, 1U);
    ExpectText(source, "\\u0000", true);
}

/// The digits of 2 to a power.
std::string PowerOfTwo(int exponent)
{
    std::string reversed = "1";
    for (; exponent > 0; --exponent) {
        int carry = 0;
        for (char& digit : reversed) {
            const int doubled = (digit - '0') * 2 + carry;
            digit = static_cast<char>('0' + doubled % 10);
            carry = doubled / 10;
        }
        if (carry != 0) reversed += '1';
    }
    return {reversed.rbegin(), reversed.rend()};
}

TEST(BasicTextTest, TheLargestFloatingNumbersAreWrittenInFull)
{
    const long double largeLong = 0x1p16383L;
    const double large = 0x1p1023;
    ExpectText(Ref(vexa::CGnlTypeInfor(19), &largeLong), PowerOfTwo(16383) + ".000000", false);
    ExpectText(Ref(vexa::CGnlTypeInfor(18), &large), PowerOfTwo(1023) + ".000000", false);

    // The last digits of the largest one come from its exact value, too: 2^16384 - 2^16320.
    std::string out;
    const long double largest = LDBL_MAX;
    Ref(vexa::CGnlTypeInfor(19), &largest).AppendToString(out, false);
    EXPECT_EQ(out.size(), 4933U + 7U);
    EXPECT_EQ(out.substr(0, 20), "11897314953572317650");
}

TEST(BasicTextTest, ATimeOfMoreThan63CharactersIsLeftOut)
{
    // Ten digits each but for the last: with the separators 63 characters, or 64.
    tm time = MakeTm(2000000000, 1000000000, 1000000000, 1000000000, 1000000000, 12345678);
    const Ref source(vexa::CGnlTypeInfor(51), &time);
    ExpectText(source, "2000000000-1000000000-1000000000 1000000000:1000000000:12345678", false);
    time.tm_sec = 123456789;
    ExpectText(source, "", false);
}

TEST(BasicTextTest, TextIsTheSameInEveryLocale)
{
    const DecimalComma comma;
    ExpectTexts(FloatingRows());
    ExpectTexts(IntegerRows());
}

TEST(BasicTextTest, TextIsTheSameInEveryLocaleOfTheCLibrary)
{
    const CDecimalComma comma;
    if (!comma.Found()) GTEST_SKIP() << "no locale with a decimal comma on this machine";
    ExpectTexts(FloatingRows());
    ExpectTexts(IntegerRows());
}

} // namespace
