// Copying, moving and releasing generic values, whatever they hold.

#include <vexa/value.h>

#include <algorithm>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/value_text.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CGnlTypeInfor;
using vexa::CRow;
using vexa::CValue;

TEST(ValueCopy, HasContentsOfItsOwn)
{
    for (const auto code : STORED_CODES) {
        CValue original = Sample(code);
        const CValue copy(original);
        original.ChangeValueTypeEnum(code);
        original.SetNull();

        EXPECT_EQ(Show(copy), std::to_string(code) + ": " + SampleText(code));
        EXPECT_NE(copy.Address, original.Address);
    }
}

TEST(ValueCopy, TakesAllBytesOfALongDouble)
{
    const CValue original = 1.5L;
    CValue assigned = "text";
    assigned = original;
    CValue moved = CValue(original);

    EXPECT_EQ(CValue(original).As_long_double(), 1.5L);
    EXPECT_EQ(assigned.As_long_double(), 1.5L);
    EXPECT_EQ(moved.As_long_double(), 1.5L);
}

TEST(ValueCopy, OfANullHasItsType)
{
    for (const auto code : STORED_CODES) {
        CValue original = Sample(code);
        original.SetNull();
        EXPECT_EQ(Show(CValue(original)), std::to_string(code) + ": NULL");
    }
    EXPECT_EQ(Show(CValue(CValue())), "0: NULL");
}

TEST(ValueCopy, ReplacesAnyValueByAnyOther)
{
    for (const auto target : STORED_CODES) {
        for (const auto source : STORED_CODES) {
            const CValue original = Sample(source);
            CValue copied = Sample(target);
            copied = original;
            CValue moved = Sample(target);
            moved = Sample(source);

            EXPECT_EQ(Show(copied), std::to_string(source) + ": " + SampleText(source));
            EXPECT_EQ(Show(moved), Show(copied));
        }
    }
}

TEST(ValueCopy, AssignmentToItselfChangesNothing)
{
    for (const auto code : STORED_CODES) {
        CValue value = Sample(code);
        CValue& same = value;
        value = same;
        value = std::move(same);
        EXPECT_EQ(Show(value), std::to_string(code) + ": " + SampleText(code));
    }
}

TEST(ValueMove, LeavesANullOfTheSameTypeBehind)
{
    for (const auto code : STORED_CODES) {
        CValue original = Sample(code);
        const CValue moved(std::move(original));

        EXPECT_EQ(Show(moved), std::to_string(code) + ": " + SampleText(code));
        EXPECT_EQ(Show(original), std::to_string(code) + ": NULL");
        original = 5;
        EXPECT_EQ(Show(original), "14: 5");
    }
}

TEST(ValueMove, LeavesNothingInTheStorageThatALaterNumberWouldShow)
{
    for (const auto code : STORED_CODES) {
        CValue original = Sample(code);
        const CValue moved(std::move(original));
        original.ChangeValueTypeEnum(DT_LONG);
        EXPECT_EQ(Show(original), "15: 0");
    }
}

TEST(ValueMove, CannotFailSoThatAVectorMovesItsValuesWhenItGrows)
{
    static_assert(std::is_nothrow_move_constructible_v<CValue> && std::is_nothrow_move_assignable_v<CValue>);
    std::vector<CValue> values;
    for (const auto code : STORED_CODES)
        values.push_back(Sample(code));
    std::reverse(values.begin(), values.end());
    values.erase(values.begin());

    std::string texts;
    for (const CValue& value : values)
        texts += Show(value) + ' ';
    std::string expected;
    for (auto code = std::end(STORED_CODES) - 1; code-- != std::begin(STORED_CODES);) {
        expected += std::to_string(*code) + ": " + SampleText(*code) + ' ';
    }
    EXPECT_EQ(texts, expected);
}

TEST(ValueMove, SwapsAnyTwo)
{
    for (const auto left : STORED_CODES) {
        for (const auto right : STORED_CODES) {
            CValue a = Sample(left);
            CValue b = Sample(right);
            std::swap(a, b);
            EXPECT_EQ(Show(a) + ' ' + Show(b), std::to_string(right) + ": " + SampleText(right) + ' ' +
                                                   std::to_string(left) + ": " + SampleText(left));
        }
    }
}

/// A value whose descriptor the application has turned into the owner of a custom type.
CValue Custom(CValue value)
{
    value.TypeInfor.ChangeTypeTo_CustomType("Money", 8, nullptr, nullptr, 7);
    return value;
}

void ExpectMoney(const CValue& value)
{
    EXPECT_EQ(value.Type(), DT_CUSTOM_OWNED);
    EXPECT_EQ(value.TypeName(), "Money");
    EXPECT_EQ(value.TypeInfor.GetCustomTypeID(), 7U);
}

TEST(ValueOfAnOwnedType, IsCopiedWithADescriptorOfItsOwn)
{
    const CValue original = Custom(5);
    const CValue copy(original);
    CValue assigned = "text";
    assigned = original;

    for (const CValue* const value : {&copy, &std::as_const(assigned)}) {
        ExpectMoney(*value);
        EXPECT_NE(value->TypeInfor.DetailInfor, original.TypeInfor.DetailInfor);
        ASSERT_FALSE(value->IsNull());
        EXPECT_EQ(*static_cast<const int*>(value->Address), 5);
    }
    EXPECT_NE(copy.TypeInfor.DetailInfor, assigned.TypeInfor.DetailInfor);
}

TEST(ValueOfAnOwnedType, KeepsWhateverItHolds)
{
    for (const auto code : STORED_CODES) {
        CValue copy(Custom(Sample(code)));
        copy.TypeInfor = CGnlTypeInfor(code);
        EXPECT_EQ(Show(copy), std::to_string(code) + ": " + SampleText(code));
    }
}

TEST(ValueOfAnOwnedType, IsMovedWithItsDescriptorAndLeavesAValueWithoutType)
{
    CValue original = Custom(5);
    const auto* const descriptor = original.TypeInfor.DetailInfor;
    const CValue moved(std::move(original));

    ExpectMoney(moved);
    EXPECT_EQ(moved.TypeInfor.DetailInfor, descriptor);
    EXPECT_EQ(*static_cast<const int*>(moved.Address), 5);
    EXPECT_EQ(Show(original), "0: NULL");
    EXPECT_EQ(original.TypeName(), "unkown type");
}

TEST(ValueOfAnOwnedType, ReleasesItsDescriptorWithItsType)
{
    CValue nulled = Custom("a text that is too long to lie inside a std::string object");
    nulled.SetNull(DT_INT);
    CValue changed = Custom("a text that is too long to lie inside a std::string object");
    changed.ChangeValueTypeEnum(DT_NUMERIC);
    CValue read = Custom("a text that is too long to lie inside a std::string object");
    read.ReadFrom(CValue(5));
    CValue assigned = Custom("a text that is too long to lie inside a std::string object");
    assigned = 2.5;

    EXPECT_EQ(Show(nulled), "14: NULL");
    EXPECT_EQ(Show(changed), "47: (null)");
    EXPECT_EQ(Show(read), "14: 5");
    EXPECT_EQ(Show(assigned), "18: 2.500000");
}

TEST(ValueOfAnOwnedType, IsNullForOneThatReadsIt)
{
    CValue value = 5;
    EXPECT_EQ(Show(value.ReadFrom(Custom("text"))), "0: NULL");
}

TEST(ValueOfAnOwnedType, IsCopiedWithItsRow)
{
    CRow row = {Custom(5), "text"};
    const CRow copy = row;
    const auto* const descriptor = row[0].TypeInfor.DetailInfor;
    ExpectMoney(copy[0]);
    EXPECT_NE(copy[0].TypeInfor.DetailInfor, descriptor);

    const CRow moved = std::move(row);
    EXPECT_EQ(moved[0].TypeInfor.DetailInfor, descriptor);
}

TEST(ValueOfAnOwnedType, IsReleasedWithTheRecordThatItLiesIn)
{
    for (const auto code : {DT_ROW, DT_VALUE}) {
        const CGnlTypeInfor type(code);
        void* object = type.New();
        if (code == DT_ROW)
            static_cast<CRow*>(object)->Append(Custom("text"));
        else
            *static_cast<CValue*>(object) = Custom("text");
        type.Delete(object);
        EXPECT_EQ(object, nullptr);
    }
}

} // namespace
