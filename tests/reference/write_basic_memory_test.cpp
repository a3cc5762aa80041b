// Writing basic values from raw text and bytes.

#include <stdexcept>

#include <gtest/gtest.h>

#include <vexa/refrence.h>

#include "support/conversion_numbers.h"
#include "support/conversion_writing.h"
#include "support/time_zone.h"

namespace {

using namespace vexa_test;

constexpr char NO_MEMORY[] = " type can not call ReadFromMemBlock\n";

Write WritingBytes(const std::string& bytes)
{
    return [bytes](WritableRef& ref) -> WritableRef& { return ref.ReadFromMemBlock(bytes.data(), bytes.size()); };
}

/// A text, and the number that every number type but bool takes from it.
struct DigitsRow {
    const char* Text;
    AllNumbers Expected;
};

// Each row: text, {unused, char, short, int, long, long long, unsigned char, unsigned short, unsigned int, unsigned
// long,
//                  unsigned long long, float, double, long double}
const DigitsRow DIGITS_ROWS[] = {
    {"42abc", {false, C(42), 42, 42, 42, 42, 42, 42, 42, 42, 42, 42.F, 42., 42.L}},
    {" \t-7",
     {false, C(249), -7, -7, -7, -7, 249, 65529, 4294967289U, 18446744073709551609UL, 18446744073709551609ULL, -7.F,
      -7., -7.L}},
    {"+300", {false, C(44), 300, 300, 300, 300, 44, 300, 300, 300, 300, 300.F, 300., 300.L}},
    {"3.75", {false, C(3), 3, 3, 3, 3, 3, 3, 3, 3, 3, 3.F, 3., 3.L}},
    {"1e3", {false, C(1), 1, 1, 1, 1, 1, 1, 1, 1, 1, 1.F, 1., 1.L}},
    {"abc", {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
    {"", {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
    {"99999999999999999999",
     {false, C(255), -1, -1, LONG_MAX, LLONG_MAX, 255, 65535, UINT_MAX, 9223372036854775807UL, 9223372036854775807UL,
      9223372036854775808.F, 9223372036854775808., 9223372036854775807.L}},
    {"-99999999999999999999",
     {false, C(0), 0, 0, LONG_MIN, LLONG_MIN, 0, 0, 0, TOP64, TOP64, -9223372036854775808.F, -9223372036854775808.,
      -9223372036854775808.L}},
};

TEST(WriteMemoryTest, EveryNumberButBoolTakesTheLeadingDigitsWhateverTheLength)
{
    for (const DigitsRow& row : DIGITS_ROWS) {
        for (unsigned long length : {0UL, 1UL, 100UL}) {
            SCOPED_TRACE(testing::Message() << '"' << row.Text << "\" of length " << length);
            const Write write = [&](WritableRef& ref) -> WritableRef& {
                return ref.ReadFromMemBlock(row.Text, length);
            };
            ForEachType(NumberTypes{}, [&](auto tag) {
                using T = typename decltype(tag)::Type;
                if constexpr (std::is_same_v<T, bool>) return;
                for (const AnyBasicType& type : BasicTypes()) {
                    if (type.Code != BasicType<T>::Code) continue;
                    ExpectStores(type, write, Shown(std::get<T>(row.Expected)),
                                 "long type CStdBasicTypeRefrence can not be converted to ");
                }
            });
        }
    }
}

TEST(WriteMemoryTest, OnlyTheFourBytesOfTheWordTrueAreTrue)
{
    struct TruthRow {
        std::string Text;
        bool Expected;
    };
    const TruthRow rows[] = {
        {"true", true}, {"True", false}, {"TRUE", false}, {"1", false},     {"true ", false},
        {"tru", false}, {" tru", false}, {"", false},     {"false", false}, {std::string("true\0", 5), false},
    };
    for (const TruthRow& row : rows) {
        SCOPED_TRACE(row.Text);
        for (bool before : {false, true}) {
            Held<bool> target(HoldingForm::MayNull, before, true);
            EXPECT_EQ(LoggedLines([&] { target.Ref().ReadFromMemBlock(row.Text.data(), row.Text.size()); }), "");
            EXPECT_EQ(target.Value(), row.Expected);
            EXPECT_FALSE(target.IsNull());
        }
    }
    bool target = false;
    WritableRef(vexa::CGnlTypeInfor(11), &target).ReadFromMemBlock("true and more", 4);
    EXPECT_TRUE(target) << "what lies behind the length does not count";
}

TEST(WriteMemoryTest, ATextWithAFractionIsCutForADouble)
{
    double target = 0;
    WritableRef(vexa::CGnlTypeInfor(18), &target).ReadFromMemBlock("3.75", 4);
    EXPECT_EQ(target, 3.0);
}

TEST(WriteMemoryTest, ATextWithoutDigitsMakesAnIntZeroAndNotNull)
{
    Held<int> target(HoldingForm::MayNull, 5, true);
    target.Ref().ReadFromMemBlock("abc", 3);
    EXPECT_EQ(target.Value(), 0);
    EXPECT_FALSE(target.IsNull());
}

TEST(WriteMemoryTest, StringsAndBinariesTakeExactlyTheLength)
{
    for (const std::string& bytes : {std::string("a\0b", 3), std::string(), std::string("ab")}) {
        for (const AnyBasicType& type : BasicTypes()) {
            if (type.Code != 41 && type.Code != 45) continue;
            for (HoldingForm form : ALL_FORMS) {
                if (form == HoldingForm::ConstPointer) continue;
                WriteCase target(type, form, form == HoldingForm::OwnedPointer);
                SCOPED_TRACE(NameIn(form, type.Name));
                target.ExpectStores(WritingBytes(bytes), bytes);
            }
        }
    }
    std::string target;
    WritableRef(vexa::CGnlTypeInfor(41), &target).ReadFromMemBlock("abcdef", 3);
    EXPECT_EQ(target, "abc");
}

TEST(WriteMemoryTest, NumericsAndDateTimesTakeTheTextUpToItsZeroByte)
{
    const TimeZone zone("UTC0");
    for (HoldingForm form : {HoldingForm::Plain, HoldingForm::MayNull, HoldingForm::OwnedPointer}) {
        SCOPED_TRACE(testing::Message() << form);
        Held<vexa::CNumeric> numeric(form, Untouched<vexa::CNumeric>(), form != HoldingForm::Plain);
        numeric.Ref().ReadFromMemBlock("12.50\0007", 1);
        EXPECT_FALSE(numeric.IsNull());
        EXPECT_EQ(numeric.ShownValue(), "1/12.50");
        numeric.Ref().ReadFromMemBlock("12x", 2);
        EXPECT_EQ(numeric.ShownValue(), "2/(NaN)");

        Held<vexa::CDateTime> time(form, Untouched<vexa::CDateTime>(), form != HoldingForm::Plain);
        time.Ref().ReadFromMemBlock("2020-01-02 03:04:05\0x", 4);
        EXPECT_FALSE(time.IsNull());
        EXPECT_EQ(time.ShownValue(), "1/1577934245000");
        time.Ref().ReadFromMemBlock("", 0);
        EXPECT_EQ(time.ShownValue(), "2");
    }
}

TEST(WriteMemoryTest, ATmIsParsedAndKeepsItsNullState)
{
    for (bool isNull : {false, true}) {
        Held<tm> target(HoldingForm::MayNull, Untouched<tm>(), isNull);
        EXPECT_EQ(LoggedLines([&] { target.Ref().ReadFromMemBlock("2020-01-02 03:04:05\0x", 4); }), "");
        EXPECT_EQ(target.IsNull(), isNull);
        // A Thursday, the second day of the year: the parser works both out.
        EXPECT_EQ(target.ShownValue(), "2020 1 2 3 4 5 4 1 0 0");
    }
    Held<tm> owned(HoldingForm::OwnedPointer, Untouched<tm>(), false);
    owned.Ref().ReadFromMemBlock("junk", 4);
    EXPECT_EQ(owned.ShownValue(), Shown(tm{}));
}

TEST(WriteMemoryTest, ANullTmPointerStaysNull)
{
    Held<tm> target(HoldingForm::OwnedPointer, tm{}, true);
    EXPECT_EQ(LoggedLines([&] { target.Ref().ReadFromMemBlock("2020-01-02 03:04:05", 19); }),
              std::string("tm*") + NO_MEMORY);
    EXPECT_TRUE(target.IsNull());
}

TEST(WriteMemoryTest, NoDataForATmThrows)
{
    Held<tm> target(HoldingForm::Plain, Untouched<tm>());
    EXPECT_THROW(target.Ref().ReadFromMemBlock(nullptr, 0), std::logic_error);
    EXPECT_EQ(target.ShownValue(), Shown(Untouched<tm>()));
}

TEST(WriteMemoryTest, NoDataForADateTimeOrANumericThrows)
{
    vexa::CDateTime time(5, 0);
    vexa::CNumeric number(7);
    EXPECT_THROW(WritableRef(vexa::CGnlTypeInfor(52), &time).ReadFromMemBlock(nullptr, 0), std::logic_error);
    EXPECT_THROW(WritableRef(vexa::CGnlTypeInfor(47), &number).ReadFromMemBlock(nullptr, 0), std::logic_error);
    EXPECT_EQ(5, time.secs());
    EXPECT_EQ("7", number.AsString());
}

TEST(WriteMemoryTest, NoDataMakesStringsAndBinariesEmpty)
{
    std::string text = "before";
    vexa::CBinary binary(std::string("before"));
    WritableRef(vexa::CGnlTypeInfor(41), &text).ReadFromMemBlock(nullptr, 0);
    WritableRef(vexa::CGnlTypeInfor(45), &binary).ReadFromMemBlock(nullptr, 0);
    EXPECT_EQ(text, "");
    EXPECT_EQ(binary.Size, 0U);
}

TEST(WriteMemoryTest, AReadOnlyTargetIsLeftAlone)
{
    for (const AnyBasicType& type : BasicTypes()) {
        for (bool isNull : {false, true}) {
            SCOPED_TRACE(testing::Message() << type.Name << (isNull ? ", null" : ""));
            const std::unique_ptr<AnyHeld> target = type.Hold(HoldingForm::ConstPointer, isNull);
            const std::string before = target->ShownValue();
            const std::string log = LoggedLines([&] { target->Ref().ReadFromMemBlock("true", 4); });
            if (IsNumberCode(type.Code))
                EXPECT_NE(log, "");
            else
                EXPECT_EQ(log, target->TypeName() + NO_MEMORY);
            EXPECT_EQ(target->IsNull(), isNull);
            EXPECT_EQ(target->ShownValue(), before);
        }
    }
}

TEST(WriteMemoryTest, ConstCharPointersAndCodesThatAreNoBasicTypeAreRefused)
{
    const Write write = WritingBytes("12");
    Held<TextCharacters> text(HoldingForm::Plain, "before");
    EXPECT_EQ(LoggedLines([&] { text.Ref().ReadFromMemBlock("12", 2); }), std::string("const char*") + NO_MEMORY);
    EXPECT_EQ(text.ShownValue(), "before");
    for (const UnsupportedType& type : UNSUPPORTED_TYPES) {
        if (type.Code == 20 || type.Code == 21) continue;
        for (unsigned char isNull : {0, 1}) {
            SCOPED_TRACE(type.Code);
            unsigned char wrapper[16] = {isNull, 5, 6};
            vexa::CGnlTypeInfor infor(type.Code, 0x09);
            infor.ValueOffset = 1;
            WritableRef ref(infor, wrapper);
            EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(&write(ref), &ref); }),
                      std::string("MayNull<") + type.Name + ">" + NO_MEMORY);
            const unsigned char expected[16] = {isNull, 5, 6};
            EXPECT_EQ(std::memcmp(wrapper, expected, sizeof wrapper), 0);
        }
    }
}

TEST(WriteMemoryTest, AnUnassignedNumberCodeIsRefusedAsALongAndIsNotNullThen)
{
    for (unsigned code : {20U, 21U}) {
        unsigned char wrapper[16] = {1, 5, 6};
        vexa::CGnlTypeInfor infor(code, 0x09);
        infor.ValueOffset = 1;
        EXPECT_EQ(LoggedLines([&] { WritableRef(infor, wrapper).ReadFromMemBlock("12", 2); }),
                  "long type CStdBasicTypeRefrence can not be converted to MayNull<unkown type>\n");
        const unsigned char expected[16] = {0, 5, 6};
        EXPECT_EQ(std::memcmp(wrapper, expected, sizeof wrapper), 0);
    }
}

} // namespace
