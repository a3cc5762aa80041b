// Generic values: construction, null state, type changes and raw text.

#include <vexa/value.h>

#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "support/captured_log.h"
#include "support/value_text.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CBinary;
using vexa::CDateTime;
using vexa::CNumeric;
using vexa::CValue;

TEST(Value, IsNullWithoutTypeAtFirst)
{
    const CValue value;

    EXPECT_EQ(Show(value), "0: NULL");
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(value.Address, nullptr);
}

TEST(Value, IsConstructedFromAnyBasicValue)
{
    EXPECT_EQ(Show(CValue(true)), "11: true");
    EXPECT_EQ(Show(CValue('x')), "12: x");
    EXPECT_EQ(Show(CValue(static_cast<short>(-7))), "13: -7");
    EXPECT_EQ(Show(CValue(-8)), "14: -8");
    EXPECT_EQ(Show(CValue(-9L)), "15: -9");
    EXPECT_EQ(Show(CValue(-10LL)), "16: -10");
    EXPECT_EQ(Show(CValue(0.5F)), "17: 0.500000");
    EXPECT_EQ(Show(CValue(0.25)), "18: 0.250000");
    EXPECT_EQ(Show(CValue(0.125L)), "19: 0.125000");
    EXPECT_EQ(Show(CValue(static_cast<unsigned char>(200))), "22: 200");
    EXPECT_EQ(Show(CValue(static_cast<unsigned short>(60000))), "23: 60000");
    EXPECT_EQ(Show(CValue(4000000000U)), "24: 4000000000");
    EXPECT_EQ(Show(CValue(18446744073709551615UL)), "25: 18446744073709551615");
    EXPECT_EQ(Show(CValue(18446744073709551615ULL)), "26: 18446744073709551615");
    EXPECT_EQ(Show(CValue(std::string("Ann"))), "41: Ann");
    EXPECT_EQ(Show(CValue("Bob")), "41: Bob");
    EXPECT_EQ(Show(CValue(CBinary("\x01\xff", 2))), "45: 01ff");
    EXPECT_EQ(Show(CValue(CNumeric(std::string("1.50")))), "47: 1.50");
    EXPECT_EQ(Show(CValue(SampleTime())), "51: 2020-01-02 03:04:05");
    EXPECT_EQ(Show(CValue(CDateTime(SampleTime()))), "52: 2020-01-02 03:04:05");
    EXPECT_EQ(Show(CValue(vexa::null)), "2: NULL");
}

TEST(Value, OfANullTextPointerIsANullString)
{
    const char* const text = nullptr;
    CValue assigned = 5;
    assigned = text;

    EXPECT_EQ(Show(CValue(text)), "41: NULL");
    EXPECT_EQ(Show(assigned), "41: NULL");
}

TEST(Value, TakesTheTypeOfWhatIsAssigned)
{
    CValue value = 5;
    EXPECT_EQ(Show(value = "a text that is too long to lie inside"), "41: a text that is too long to lie inside");
    EXPECT_EQ(Show(value = 2.5), "18: 2.500000");
    EXPECT_EQ(Show(value = CNumeric(7)), "47: 7");
    EXPECT_EQ(Show(value = false), "11: false");
    EXPECT_EQ(Show(value = vexa::null), "2: NULL");
}

TEST(Value, CanBeAssignedAPartOfItself)
{
    CValue number = CNumeric(std::string("12.50"));
    number = number.As_CNumeric_ref().FractionDigits;
    CValue text = "abcdef";
    text = text.As_const_char_ptr() + 3;

    EXPECT_EQ(Show(number), "41: 50");
    EXPECT_EQ(Show(text), "41: def");
}

TEST(Value, KeepsItsTypeWhenItBecomesNull)
{
    for (const auto code : STORED_CODES) {
        CValue value = Sample(code);
        ASSERT_EQ(Show(value), std::to_string(code) + ": " + SampleText(code));

        value.SetNull();

        EXPECT_EQ(Show(value), std::to_string(code) + ": NULL");
        EXPECT_EQ(value.Address, nullptr);
    }
}

TEST(Value, HasTheDefaultOfItsTypeWhenItIsNoLongerNull)
{
    for (const auto code : STORED_CODES) {
        CValue value = Sample(code);
        value.SetNull();
        value.SetNotNull();

        EXPECT_FALSE(value.IsNull()) << code;
        if (code == DT_LONG_DOUBLE || code == DT_TM) continue; // the one keeps bytes, the other has none to rely on
        CValue fresh;
        fresh.ChangeValueTypeEnum(code);
        EXPECT_EQ(value, fresh) << code;
    }
}

TEST(Value, StaysNullWithoutAType)
{
    CValue fresh;
    fresh.SetNotNull();
    CValue null = vexa::null;
    null.SetNotNull();

    EXPECT_EQ(Show(fresh), "0: NULL");
    EXPECT_EQ(Show(null), "2: NULL");
}

TEST(Value, ZeroesEightBytesOfANumberThatBecomesNullAndKeepsTheOthers)
{
    CValue value = 2.0L; // sign and exponent lie behind the eighth byte: 0x4000
    value.SetNull();
    value.SetNotNull();

    unsigned char bytes[10] = {};
    std::memcpy(bytes, value.Address, sizeof bytes);
    const unsigned char expected[10] = {0, 0, 0, 0, 0, 0, 0, 0, 0x00, 0x40};
    EXPECT_EQ(std::memcmp(bytes, expected, sizeof bytes), 0);
}

TEST(Value, HoldsNumbersStringsAndBytesInsideAndTheOthersOutside)
{
    for (const auto code : STORED_CODES) {
        const CValue value = Sample(code);
        const auto* const begin = reinterpret_cast<const char*>(&value);
        const auto* const address = static_cast<const char*>(value.Address);
        const bool isInside = address >= begin && address < begin + sizeof value;

        EXPECT_EQ(isInside, code != DT_NUMERIC && code != DT_TM && code != DT_DATETIME) << code;
        EXPECT_EQ(reinterpret_cast<unsigned long>(address) % 16, 0U) << code;
    }
}

TEST(Value, NormalisesTheTypeOfANull)
{
    for (unsigned int code = 0; code < 256; ++code) {
        CValue value = "a text that is too long to lie inside a std::string object";
        value.SetNull(static_cast<DataTypeEnum>(code));
        EXPECT_EQ(Show(value), std::to_string(NormalisedCode(code)) + ": NULL");
    }
}

TEST(Value, SetNullOfATextPointerLeavesAString)
{
    CValue value;
    value.SetNull(DT_CONST_CHAR_PTR);
    EXPECT_EQ(value.Type(), DT_STD_STRING);
}

TEST(Value, NormalisesTheTypeItIsChangedToAndIsThenNotNullIfItHasOne)
{
    for (unsigned int code = 0; code < 256; ++code) {
        CValue value = "a text that is too long to lie inside a std::string object";
        value.ChangeValueTypeEnum(static_cast<DataTypeEnum>(code));
        EXPECT_EQ(value.Type(), NormalisedCode(code));
        EXPECT_EQ(value.IsNull(), NormalisedCode(code) == 0 || NormalisedCode(code) == 2) << code;
    }
}

TEST(Value, HasTheDefaultOfTheTypeItIsChangedTo)
{
    const auto changed = [](DataTypeEnum code) {
        CValue value = 77;
        value.ChangeValueTypeEnum(code);
        return Show(value);
    };
    EXPECT_EQ(changed(DT_BOOL), "11: false");
    EXPECT_EQ(changed(DT_CHAR), "12: ");
    EXPECT_EQ(changed(DT_LONG), "15: 0");
    EXPECT_EQ(changed(DT_DOUBLE), "18: 0.000000");
    EXPECT_EQ(changed(DT_STD_STRING), "41: ");
    EXPECT_EQ(changed(DT_CONST_CHAR_PTR), "41: ");
    EXPECT_EQ(changed(DT_BINARY), "45: ");
    EXPECT_EQ(changed(DT_NUMERIC), "47: (null)");
    EXPECT_EQ(changed(DT_DATETIME), "52: NULL");
}

TEST(Value, IsEmptiedByAChangeToTheTypeThatItHas)
{
    for (const auto code : STORED_CODES) {
        if (code == DT_TM) continue;
        CValue value = Sample(code);
        value.ChangeValueTypeEnum(code);
        CValue fresh;
        fresh.ChangeValueTypeEnum(code);
        EXPECT_EQ(Show(value), Show(fresh));
    }
}

TEST(Value, KeepsABrokenDownTimeInAChangeToTheTypeThatItHas)
{
    CValue value = SampleTime();
    value.ChangeValueTypeEnum(DT_TM);
    EXPECT_EQ(Show(value), "51: 2020-01-02 03:04:05");
}

TEST(Value, ChangeOfANulledIntToIntLeavesZero)
{
    CValue value = 5;
    value.SetNull();
    value.ChangeValueTypeEnum(DT_INT);
    EXPECT_EQ(Show(value), "14: 0");
}

TEST(Value, ReadsRawTextAsATypeThatIsNamed)
{
    const auto read = [](DataTypeEnum code, const char* text, unsigned long length) {
        CValue value = 1;
        return Show(value.ReadFromMemBlock(code, text, length));
    };
    EXPECT_EQ(read(DT_BOOL, "true", 4), "11: true");
    EXPECT_EQ(read(DT_BOOL, "True", 4), "11: false");
    EXPECT_EQ(read(DT_INT, " -12abc", 7), "14: -12");
    EXPECT_EQ(read(DT_DOUBLE, "3.75", 4), "18: 3.000000");
    EXPECT_EQ(read(DT_CONST_CHAR_PTR, "Ann", 3), "41: Ann");
    EXPECT_EQ(read(DT_STD_STRING, "a\0b", 3), std::string("41: a\0b", 7));
    EXPECT_EQ(read(DT_BINARY, "a\0b", 3), "45: 610062");
    EXPECT_EQ(read(DT_NUMERIC, "1.50", 4), "47: 1.50");
    EXPECT_EQ(read(DT_TM, "2020-01-02 03:04:05", 19), "51: 2020-01-02 03:04:05");
    EXPECT_EQ(read(DT_DATETIME, "2020-01-02 03:04:05", 19), "52: 2020-01-02 03:04:05");
}

TEST(Value, ReadsNoRawTextWithoutAType)
{
    CValue null = 1;
    CValue unknown = 1;
    const std::string log = LoggedLines([&] {
        null.ReadFromMemBlock(DT_NULL, "1", 1);
        unknown.ReadFromMemBlock(DT_CLASS, "1", 1);
    });

    EXPECT_EQ(Show(null), "2: NULL");
    EXPECT_EQ(Show(unknown), "0: NULL");
    EXPECT_EQ(log, "");
}

TEST(Value, ReadsRawTextAsTheTypeThatItHas)
{
    CValue number;
    number.SetNull(DT_LONG);
    CValue fresh;
    const std::string log = LoggedLines([&] { fresh.ReadFromMemBlock("1", 1); });

    EXPECT_EQ(Show(number.ReadFromMemBlock("12", 2)), "15: 12");
    EXPECT_EQ(Show(fresh), "0: NULL");
    EXPECT_EQ(log, "unkown type type can not call ReadFromMemBlock\n");
}

} // namespace
