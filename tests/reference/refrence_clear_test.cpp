// How references empty texts, value objects, containers and custom values.

#include <cstddef>
#include <ctime>
#include <list>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include <vexa/custom_type_infor.h>
#include <vexa/refrence.h>

#include "support/clearing.h"
#include "support/described_container.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CGnlTypeInfor;
using vexa::CStdBasicTypeRefrence;
using vexa_test::Cleared;
using vexa_test::ClearSilently;
using vexa_test::ConstPointer;
using vexa_test::MayNull;
using vexa_test::NonNullPointer;
using vexa_test::OwnedPointer;
using vexa_test::Plain;
using vexa_test::Wrapped;

TEST(ClearValue, AMayNullIntBecomesNullAndKeepsItsNumberAPlainIntBecomes0)
{
    Wrapped<int> age{0, 30};
    ClearSilently(MayNull<int>(DT_INT), &age);
    EXPECT_EQ(1, age.IsNull);
    EXPECT_EQ(30, age.Value);
    int number = 30;
    ClearSilently(Plain(DT_INT), &number);
    EXPECT_EQ(0, number);
    EXPECT_FALSE(Plain(DT_INT).IsNull(&number));
}

TEST(ClearValue, EmptiesAString)
{
    std::string text(1000, 'x');
    ClearSilently(Plain(DT_STD_STRING), &text);
    EXPECT_EQ("", text);
}

TEST(ClearValue, EmptiesTheThreeValueClassesWhereTheyLive)
{
    vexa::CBinary binary("abc", 3);
    vexa::CNumeric number("12.5");
    vexa::CDateTime time(1000L, 0L);
    ClearSilently(Plain(DT_BINARY), &binary);
    ClearSilently(Plain(DT_NUMERIC), &number);
    ClearSilently(Plain(DT_DATETIME), &time);
    EXPECT_EQ(0U, binary.Size);
    EXPECT_EQ("(null)", number.AsString());
    EXPECT_EQ("", number.IntegerDigits);
    EXPECT_EQ(VS_NULL, time.State);
    EXPECT_EQ(vexa::CDateTime().TimeWord, time.TimeWord);
}

TEST(ClearValue, FollowsAPointerThatIsNeverNullToAValueClass)
{
    vexa::CBinary binary("abc", 3);
    vexa::CNumeric number("12.5");
    vexa::CDateTime time(1000L, 0L);
    void* pointers[] = {&binary, &number, &time};
    ClearSilently(NonNullPointer(DT_BINARY), &pointers[0]);
    ClearSilently(NonNullPointer(DT_NUMERIC), &pointers[1]);
    ClearSilently(NonNullPointer(DT_DATETIME), &pointers[2]);
    EXPECT_EQ(&binary, pointers[0]);
    EXPECT_EQ(0U, binary.Size);
    EXPECT_EQ(&number, pointers[1]);
    EXPECT_EQ("(null)", number.AsString());
    EXPECT_EQ(&time, pointers[2]);
    EXPECT_EQ(VS_NULL, time.State);
}

TEST(ClearValue, OfTheBasicReferenceReachesAWrappedValueClassAndKeepsTheNullState)
{
    Wrapped<vexa::CBinary> wrapper{1, vexa::CBinary("abc", 3)};
    CStdBasicTypeRefrence(MayNull<vexa::CBinary>(DT_BINARY), &wrapper).Clear();
    EXPECT_EQ(1, wrapper.IsNull);
    EXPECT_EQ(0U, wrapper.Value.Size);
}

TEST(ClearValue, FreesAnOwnedPointeeAndForgetsAConstOne)
{
    auto* owned = new std::string("abc");
    ClearSilently(OwnedPointer(DT_STD_STRING), &owned);
    EXPECT_EQ(nullptr, owned);
    const std::string text = "abc";
    const std::string* pointer = &text;
    ClearSilently(ConstPointer(DT_STD_STRING), &pointer);
    EXPECT_EQ(nullptr, pointer);
    EXPECT_EQ("abc", text);
}

TEST(ClearValue, LeavesATmAndACharacterTextAloneSilently)
{
    tm time{};
    time.tm_year = 99;
    char text[] = "abc";
    ClearSilently(Plain(DT_TM), &time);
    ClearSilently(Plain(DT_CONST_CHAR_PTR), text);
    EXPECT_EQ(99, time.tm_year);
    EXPECT_STREQ("abc", text);
}

TEST(ClearValue, LeavesUnassignedBasicCodesAloneSilently)
{
    for (unsigned int code = 11; code <= 58; ++code) {
        if (Plain(code).RealTypeName() != "unkown type") continue;
        long value = 5;
        ClearSilently(Plain(code), &value);
        CStdBasicTypeRefrence(Plain(code), &value).Clear();
        EXPECT_EQ(5, value) << code;
    }
}

TEST(ClearValue, LogsEveryOtherCodeAndLeavesTheValue)
{
    const std::set<unsigned int> known = {1, 101, 102, 105, 106, 111, 112, 114};
    for (unsigned int code = 0; code < 256; ++code) {
        if (known.count(code) != 0 || (code >= 11 && code <= 58) || (code >= 61 && code <= 98)) continue;
        long value = 5;
        EXPECT_EQ("Not supported type " + Plain(code).RealTypeName() + " In function CRefrence::Clear()\n",
                  Cleared(Plain(code), &value));
        EXPECT_EQ(5, value) << code;
    }
}

TEST(ClearValue, LogsTheTypeNameWithItsHoldingForm)
{
    int value = 5;
    void* pointer = &value;
    EXPECT_EQ("Not supported type vexa::NullType In function CRefrence::Clear()\n", Cleared(Plain(DT_NULL), &value));
    EXPECT_EQ("Not supported type void* In function CRefrence::Clear()\n",
              Cleared(CGnlTypeInfor(DT_VOID, HF_POINTER), &pointer));
    CGnlTypeInfor custom;
    custom.ChangeTypeTo_CustomType("Money", 4, nullptr, nullptr, 0);
    EXPECT_EQ("Not supported type Money In function CRefrence::Clear()\n", Cleared(custom, &value));
    EXPECT_EQ(&value, pointer);
    EXPECT_EQ(5, value);
}

TEST(ClearValue, LogsAnUnsupportedTypeEvenWithoutAnAddress)
{
    EXPECT_EQ("Not supported type unkown type In function CRefrence::Clear()\n", Cleared(CGnlTypeInfor(), nullptr));
    EXPECT_EQ("Not supported type const void* In function CRefrence::Clear()\n",
              Cleared(CGnlTypeInfor(DT_VOID, HF_POINTER | HF_CONST), nullptr));
}

TEST(ClearValue, DoesNothingWithoutAnAddress)
{
    for (unsigned int code = 11; code <= 58; ++code) {
        ClearSilently(Plain(code), nullptr);
        CStdBasicTypeRefrence(Plain(code), nullptr).Clear();
        void* pointer = nullptr;
        ClearSilently(NonNullPointer(code), &pointer);
        EXPECT_EQ(nullptr, pointer) << code;
    }
}

TEST(ClearContainer, RemovesAllElements)
{
    const auto infor = vexa_test::SequenceContainer<std::list<int>>("std::list", Plain(DT_INT));
    std::list<int> direct = {1, 2};
    ClearSilently(Plain(DT_SEQUENCE_B, &infor), &direct);
    EXPECT_TRUE(direct.empty());
    std::list<int> pointee = {1, 2};
    void* pointer = &pointee;
    ClearSilently(NonNullPointer(DT_SEQUENCE_B, &infor), &pointer);
    EXPECT_TRUE(pointee.empty());
    EXPECT_EQ(&pointee, pointer);
}

TEST(ClearContainer, WorksForEveryCodeOfTheBand)
{
    const auto infor = vexa_test::SequenceContainer<std::list<int>>("std::list", Plain(DT_INT));
    for (unsigned int code = 61; code <= 98; ++code) {
        std::list<int> numbers = {1, 2};
        ClearSilently(Plain(code, &infor), &numbers);
        EXPECT_TRUE(numbers.empty()) << code;
    }
}

TEST(ClearContainer, NullsANullableOneAndKeepsAReadOnlyOne)
{
    const auto infor = vexa_test::SequenceContainer<std::list<int>>("std::list", Plain(DT_INT));
    auto* owned = new std::list<int>{1, 2};
    ClearSilently(OwnedPointer(DT_SEQUENCE_B, &infor), &owned);
    EXPECT_EQ(nullptr, owned);
    std::list<int> readOnly = {1, 2};
    ClearSilently(CGnlTypeInfor(DT_SEQUENCE_B, HF_CONST, &infor), &readOnly);
    EXPECT_EQ(2U, readOnly.size());
}

/// A wrapper round one text, described as a custom basic type.
struct Title {
    int Before = 7;
    std::string Text;
};

TEST(ClearCustom, EmptiesTheStandardValueInside)
{
    vexa::CCustomBasicTypeInfor infor;
    infor.Underlying = Plain(DT_STD_STRING);
    infor.ValueOffset = offsetof(Title, Text);
    Title title;
    title.Text = "abc";
    ClearSilently(Plain(DT_CUSTOM_BASIC, &infor), &title);
    EXPECT_EQ("", title.Text);
    EXPECT_EQ(7, title.Before);
    title.Text = "abc";
    void* pointer = &title;
    ClearSilently(NonNullPointer(DT_CUSTOM_BASIC, &infor), &pointer);
    EXPECT_EQ("", title.Text);
    EXPECT_EQ(&title, pointer);
}

TEST(ClearCustom, TakesTheOffsetAsSigned)
{
    vexa::CCustomBasicTypeInfor infor;
    infor.Underlying = Plain(DT_INT);
    infor.ValueOffset = -4;
    int numbers[] = {5, 6};
    ClearSilently(Plain(DT_CUSTOM_BASIC, &infor), &numbers[1]);
    EXPECT_EQ(0, numbers[0]);
    EXPECT_EQ(6, numbers[1]);
}

TEST(ClearCustom, NullsANullableOne)
{
    vexa::CCustomBasicTypeInfor infor;
    infor.Underlying = Plain(DT_STD_STRING);
    Wrapped<std::string> wrapper{0, "abc"};
    ClearSilently(MayNull<std::string>(DT_CUSTOM_BASIC, &infor), &wrapper);
    EXPECT_EQ(1, wrapper.IsNull);
    EXPECT_EQ("abc", wrapper.Value);
}

TEST(ClearCustom, LogsAnUnderlyingTypeThatCannotBeCleared)
{
    vexa::CCustomBasicTypeInfor infor;
    infor.Name = "Custom";
    infor.Underlying = Plain(DT_NULL);
    int value = 5;
    EXPECT_EQ("Not supported type vexa::NullType In function CRefrence::Clear()\n",
              Cleared(Plain(DT_CUSTOM_BASIC, &infor), &value));
    EXPECT_EQ(5, value);
}

} // namespace
