// Every basic type read as text, bytes, a decimal number and a time.

#include <vector>

#include <gtest/gtest.h>

#include <vexa/refrence.h>

#include "support/conversion_reading.h"
#include "support/time_zone.h"

namespace {

using namespace vexa_test;

/// A value, and what it reads as: its text, the bytes of the CBinary, and the other types as Shown() shows them.
struct ValueRow {
    std::function<void(const ReadAction&)> InEveryForm;
    std::string Text;
    std::string Bytes;
    std::string Numeric;
    std::string DateTime;
    std::string Tm;
};

template<class T>
std::function<void(const ReadAction&)> Source(const T& value)
{
    return [value](const ReadAction& action) {
        SCOPED_TRACE(testing::Message() << BasicType<T>::Name << ' ' << Shown(value));
        InEveryForm(value, action);
    };
}

/// Text with zero bytes inside, as long as its literal.
template<std::size_t SIZE>
std::string Bytes(const char (&text)[SIZE])
{
    return std::string(text, SIZE - 1);
}

const std::string NAN_TEXT = "2/(NaN)";
const std::string NO_TIME = "2";
/// What a time without a value gives: its time word is zero.
const std::string EPOCH = "1970 1 1 0 0 0 4 0 0 0";

const std::string TIME_TEXT = "2020-01-02 03:04:05";
const std::string TIME = "1/1577934245000";
const std::string TIME_TM = "2020 1 2 3 4 5 4 1 0 0";

std::vector<ValueRow> NumberValues()
{
    return {
        {Source(true), "true", Bytes("\1"), "1/1", NO_TIME, EPOCH},
        {Source(false), "false", Bytes("\0"), "1/0", NO_TIME, EPOCH},
        {Source(C('x')), "x", "x", "1/120", NO_TIME, EPOCH},
        {Source(C(200)), "\xC8", "\xC8", "1/200", NO_TIME, EPOCH},
        {Source(C(0)), "", Bytes("\0"), "1/0", NO_TIME, EPOCH},
        {Source(short{SHRT_MIN}), "-32768", Bytes("\0\x80"), "1/-32768", NO_TIME, EPOCH},
        {Source(1), "1", Bytes("\1\0\0\0"), "1/1", NO_TIME, EPOCH},
        {Source(-2L), "-2", "\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF", "1/-2", NO_TIME, EPOCH},
        {Source(LLONG_MAX), "9223372036854775807", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F", "1/9223372036854775807", NO_TIME,
         EPOCH},
        {Source(static_cast<unsigned char>(255)), "255", "\xFF", "1/255", NO_TIME, EPOCH},
        {Source(static_cast<unsigned short>(258)), "258", "\2\1", "1/258", NO_TIME, EPOCH},
        {Source(4294967295U), "4294967295", "\xFF\xFF\xFF\xFF", "1/4294967295", NO_TIME, EPOCH},
        {Source(256UL), "256", Bytes("\0\1\0\0\0\0\0\0"), "1/256", NO_TIME, EPOCH},
        {Source(ULLONG_MAX), "18446744073709551615", std::string(8, '\xFF'), "1/18446744073709551615", NO_TIME, EPOCH},
        {Source(1.5F), "1.500000", Bytes("\0\0\xC0\x3F"), "1/1.500000", NO_TIME, EPOCH},
        {Source(1e20), "100000000000000000000.000000", "\x40\x8C\xB5\x78\x1D\xAF\x15\x44",
         "1/100000000000000000000.000000", NO_TIME, EPOCH},
    };
}

std::vector<ValueRow> TextValues()
{
    const std::string withZero = Bytes("5\0x");
    return {
        {Source(std::string("12.50")), "12.50", "12.50", "1/12.50", NO_TIME, EPOCH},
        {Source(std::string()), "", "", NAN_TEXT, NO_TIME, EPOCH},
        {Source(withZero), withZero, withZero, "1/5", NO_TIME, EPOCH},
        {Source(TIME_TEXT), TIME_TEXT, TIME_TEXT, NAN_TEXT, TIME, TIME_TM},
        {Source(TextCharacters("12.50")), "12.50", "12.50", "1/12.50", NO_TIME, EPOCH},
        {Source(TextCharacters("")), "", "", NAN_TEXT, NO_TIME, EPOCH},
        {Source(TextCharacters(TIME_TEXT.c_str())), TIME_TEXT, TIME_TEXT, NAN_TEXT, TIME, TIME_TM},
        {Source(vexa::CBinary(withZero)), withZero, withZero, "1/5", NO_TIME, EPOCH},
        {Source(vexa::CBinary(std::string())), "", "", NAN_TEXT, NO_TIME, EPOCH},
        {Source(vexa::CBinary(TIME_TEXT)), TIME_TEXT, TIME_TEXT, NAN_TEXT, TIME, TIME_TM},
    };
}

std::vector<ValueRow> ObjectValues()
{
    return {
        {Source(vexa::CNumeric(std::string("007.500"))), "007.500", "007.500", "1/007.500", NO_TIME, EPOCH},
        {Source(vexa::CNumeric()), "(null)", "(null)", "0/(null)", NO_TIME, EPOCH},
        {Source(vexa::CNumeric(std::string("x"))), "(NaN)", "(NaN)", NAN_TEXT, NO_TIME, EPOCH},
        {Source(MakeTm(2020, 1, 2, 3, 4, 5)), TIME_TEXT, TIME_TEXT, NAN_TEXT, TIME, "2020 1 2 3 4 5 0 0 0 0"},
        {Source(vexa::CDateTime(1577934245L, 678L)), TIME_TEXT, TIME_TEXT, NAN_TEXT, "1/1577934245678", TIME_TM},
        {Source(vexa::CDateTime()), "NULL", "NULL", NAN_TEXT, "0", EPOCH},
        {Source(vexa::CDateTime(-1L, 0L)), "(Error)", "(Error)", NAN_TEXT, NO_TIME, EPOCH},
    };
}

void ExpectReadsValues(const ValueRow& row)
{
    const TimeZone zone("UTC0");
    row.InEveryForm([&](const Ref& source, const std::string&) {
        const std::string log = LoggedLines([&] {
            ExpectReads<std::string>(source, row.Text);
            ExpectReads<vexa::CBinary>(source, row.Bytes);
            ExpectReads<vexa::CNumeric>(source, row.Numeric);
            ExpectReads<vexa::CDateTime>(source, row.DateTime);
            ExpectReads<tm>(source, row.Tm);
        });
        EXPECT_EQ(log, "");
    });
}

TEST(ReadValueTest, NumbersReadAsEveryValueType)
{
    for (const ValueRow& row : NumberValues())
        ExpectReadsValues(row);
}

TEST(ReadValueTest, TextsAndBytesReadAsEveryValueType)
{
    for (const ValueRow& row : TextValues())
        ExpectReadsValues(row);
}

TEST(ReadValueTest, NumericsAndTimesReadAsEveryValueType)
{
    for (const ValueRow& row : ObjectValues())
        ExpectReadsValues(row);
}

TEST(ReadValueTest, ALongDoubleReadsAsSixDecimalsAndAsItsSixteenBytes)
{
    InEveryForm(2.5L, [](const Ref& source, const std::string&) {
        EXPECT_EQ(source.As_std_string(), "2.500000");
        EXPECT_EQ(source.As_CNumeric().AsString(), "2.500000");
        EXPECT_EQ(Shown(source.As_CDateTime()), NO_TIME);
        // Ten bytes of number; what the other six hold is the compiler's business.
        const vexa::CBinary bytes = source.As_CBinary();
        EXPECT_EQ(bytes.Size, 16U);
        EXPECT_EQ(bytes.AsHexString().substr(0, 20), "00000000000000a00040");
    });
}

TEST(ReadValueTest, EveryNullReadsAsAnEmptyValueWithoutAMessage)
{
    for (const AnyBasicType& type : BasicTypes()) {
        for (HoldingForm form : ALL_FORMS) {
            if (form == HoldingForm::Plain) continue;
            const std::unique_ptr<AnyHeld> held = type.Hold(form, true);
            ExpectReadsValues({[&](const ReadAction& action) {
                                   SCOPED_TRACE(held->TypeName());
                                   action(held->Ref(), held->TypeName());
                               },
                               "", "", "0/(null)", "0", Shown(tm{})});
        }
    }
}

TEST(ReadValueTest, AnUnknownTypeReadsAsItsTextAndAnUnassignedCodeAsNothing)
{
    const char memory[16] = "memory";
    EXPECT_EQ(Ref(vexa::CGnlTypeInfor(0), memory).As_std_string(), "unkown");
    EXPECT_EQ(Ref(vexa::CGnlTypeInfor(0), memory).As_CBinary(), vexa::CBinary(std::string("unkown")));
    EXPECT_EQ(Ref(vexa::CGnlTypeInfor(43), memory).As_std_string(), "");
    EXPECT_EQ(Ref(vexa::CGnlTypeInfor(20), memory).As_CBinary().Size, 0U) << "a number without size has no bytes";
}

TEST(ReadValueTest, AnInt1ReadsAsFourBytes)
{
    const int number = 1;
    EXPECT_EQ(Ref(vexa::CGnlTypeInfor(14), &number).As_CBinary().AsHexString(), "01000000");
}

TEST(ReadValueTest, ATmIsReadByItsFieldsAndNotByItsText)
{
    const TimeZone zone("UTC0");
    const tm time = MakeTm(2020, 1, 2, 3, 3, 65); // a minute and five seconds past 03:03
    EXPECT_EQ(Shown(Ref(vexa::CGnlTypeInfor(51), &time).As_CDateTime()), TIME);
}

TEST(ReadValueTest, TimesAreLocal)
{
    const TimeZone zone(kCentralEurope);
    const std::string text = "2020-07-02 03:04:05"; // summer, two hours east: 01:04:05 UTC
    const tm broken = MakeTm(2020, 7, 2, 3, 4, 5);
    const vexa::CDateTime instant(1593651845L, 0L);
    EXPECT_EQ(Shown(Ref(vexa::CGnlTypeInfor(41), &text).As_CDateTime()), "1/1593651845000");
    EXPECT_EQ(Shown(Ref(vexa::CGnlTypeInfor(51), &broken).As_CDateTime()), "1/1593651845000");
    EXPECT_EQ(Shown(Ref(vexa::CGnlTypeInfor(52), &instant).As_tm()), "2020 7 2 3 4 5 4 183 1 7200");
    EXPECT_EQ(Shown(Ref(vexa::CGnlTypeInfor(41), &text).As_tm()), "2020 7 2 3 4 5 4 183 1 7200");
    EXPECT_EQ(Ref(vexa::CGnlTypeInfor(52), &instant).As_std_string(), text);
}

} // namespace
