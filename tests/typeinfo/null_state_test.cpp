// The null state of a value in every holding form, of which a general descriptor knows 64.

#include <cstddef>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <vexa/type_infor.h>
#include <vexa/value.h>

#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CGnlTypeInfor;
using vexa_test::ConstPointer;
using vexa_test::MayNull;
using vexa_test::NonNullPointer;
using vexa_test::OwnedPointer;
using vexa_test::Plain;
using vexa_test::Wrapped;

/// A place that can be looked at in every holding form: a pointer, and behind it a null flag and a value.
struct Holder {
    void* Pointer = nullptr;
    unsigned char Flag = 0;
    int Value = 4711;
};

CGnlTypeInfor TypeWith(unsigned int code, unsigned int flags)
{
    CGnlTypeInfor type(code, flags);
    type.NullFlagOffset = offsetof(Holder, Flag);
    type.ValueOffset = offsetof(Holder, Value);
    return type;
}

/// The 64 ways of holding a value: wrapper kind, may be null, pointer and const.
class HoldingForm : public testing::TestWithParam<unsigned int> {
protected:
    unsigned int Kind() const { return GetParam() & 0x07U; }
    bool IsNullable() const { return (GetParam() & 0x08U) != 0; }
    bool IsPointer() const { return (GetParam() & 0x10U) != 0; }
    bool IsConst() const { return (GetParam() & 0x20U) != 0; }
    bool HasFlag() const { return IsNullable() && !IsPointer() && Kind() == 1; }
    CGnlTypeInfor Type() const { return TypeWith(DT_INT, GetParam()); }
};

TEST_P(HoldingForm, TellsWhetherTheValueIsNull)
{
    for (const bool hasPointee : {false, true}) {
        for (const int flag : {0, 1, 2, 255}) {
            Holder holder;
            holder.Pointer = hasPointee ? &holder.Value : nullptr;
            holder.Flag = static_cast<unsigned char>(flag);
            const bool isNull = IsNullable() && (IsPointer() ? !hasPointee : Kind() == 1 && flag != 0);
            EXPECT_EQ(isNull, Type().IsNull(&holder)) << hasPointee << ' ' << flag;
        }
    }
}

TEST_P(HoldingForm, IsNullWithoutAHolderAndLeavesItAlone)
{
    EXPECT_TRUE(Type().IsNull(nullptr));
    Type().SetNull(nullptr);
    Type().SetNotNull(nullptr);
    Type().NewIfNullPointer(nullptr);
}

TEST_P(HoldingForm, SetNullForgetsThePointerOrSetsTheFlag)
{
    Holder holder;
    void* const made = Plain(DT_INT).New();
    holder.Pointer = made;
    Type().SetNull(&holder);
    const bool isForgotten = IsNullable() && IsPointer();
    EXPECT_EQ(isForgotten ? nullptr : made, holder.Pointer);
    EXPECT_EQ(HasFlag() ? 1 : 0, holder.Flag);
    EXPECT_EQ(4711, holder.Value);
    // An owned pointee has been freed; the address sanitizer finds it if not, and if a const one has been.
    if (!isForgotten || IsConst()) ::operator delete(made);
}

TEST_P(HoldingForm, SetNullOfANullPointerChangesNothing)
{
    Holder holder;
    Type().SetNull(&holder);
    EXPECT_EQ(nullptr, holder.Pointer);
    EXPECT_EQ(4711, holder.Value);
}

TEST_P(HoldingForm, SetNotNullGivesANullPointerAPointeeOrClearsTheFlag)
{
    Holder holder;
    holder.Flag = 2;
    Type().SetNotNull(&holder);
    EXPECT_EQ(IsNullable() && IsPointer() && !IsConst(), holder.Pointer != nullptr);
    EXPECT_EQ(HasFlag() ? 0 : 2, holder.Flag);
    EXPECT_EQ(4711, holder.Value);
    Plain(DT_INT).Delete(holder.Pointer);
}

TEST_P(HoldingForm, SetNotNullKeepsAPointee)
{
    Holder holder;
    holder.Pointer = &holder.Value;
    Type().SetNotNull(&holder);
    EXPECT_EQ(&holder.Value, holder.Pointer);
    EXPECT_EQ(4711, holder.Value);
}

TEST_P(HoldingForm, NewIfNullPointerLooksAtPointerAndConstOnly)
{
    Holder holder;
    holder.Flag = 1;
    Type().NewIfNullPointer(&holder);
    EXPECT_EQ(IsPointer() && !IsConst(), holder.Pointer != nullptr);
    EXPECT_EQ(1, holder.Flag);
    EXPECT_EQ(4711, holder.Value);
    Plain(DT_INT).Delete(holder.Pointer);
}

TEST_P(HoldingForm, NewIfNullPointerKeepsAPointee)
{
    Holder holder;
    holder.Pointer = &holder.Value;
    Type().NewIfNullPointer(&holder);
    EXPECT_EQ(&holder.Value, holder.Pointer);
}

TEST_P(HoldingForm, TheNullTypeIsAlwaysNullAndIsNeverChanged)
{
    const CGnlTypeInfor type = TypeWith(DT_NULL, GetParam());
    Holder holder;
    holder.Pointer = &holder.Value;
    EXPECT_TRUE(type.IsNull(&holder));
    type.SetNull(&holder);
    EXPECT_EQ(&holder.Value, holder.Pointer);
    EXPECT_EQ(0, holder.Flag);
    holder.Pointer = nullptr;
    holder.Flag = 1;
    type.SetNotNull(&holder);
    EXPECT_EQ(nullptr, holder.Pointer);
    EXPECT_EQ(1, holder.Flag);
    EXPECT_EQ(4711, holder.Value);
}

TEST_P(HoldingForm, ATaggedValueAnswersForItselfEvenBehindAPointer)
{
    const CGnlTypeInfor type = TypeWith(DT_VALUE, GetParam());
    const vexa::CValue number(5);
    const vexa::CValue null(vexa::null);
    EXPECT_FALSE(type.IsNull(&number)) << "the holder is taken for the value, whatever the flags say";
    EXPECT_TRUE(type.IsNull(&null));
}

TEST_P(HoldingForm, ATaggedValueIsMadeNullAndNotNullInPlace)
{
    if (IsPointer()) return;
    const CGnlTypeInfor type = TypeWith(DT_VALUE, GetParam());
    vexa::CValue value(5);
    type.SetNull(&value);
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(DT_INT, value.Type());
    type.SetNotNull(&value);
    EXPECT_FALSE(value.IsNull());
    EXPECT_EQ(0, value.As_int());
}

TEST_P(HoldingForm, ATaggedValueBehindAPointerIsMadeAndFreedEvenIfNotNullable)
{
    if (!IsPointer()) return;
    const CGnlTypeInfor type = TypeWith(DT_VALUE, GetParam());
    vexa::CValue* pointer = nullptr;
    type.SetNotNull(&pointer);
    EXPECT_EQ(IsConst(), pointer == nullptr);
    vexa::CValue kept(std::string(1000, 'x'));
    if (IsConst()) pointer = &kept;
    type.SetNull(&pointer); // the address sanitizer finds a value that is not freed, and a const one that is
    EXPECT_EQ(nullptr, pointer);
    EXPECT_FALSE(kept.IsNull());
}

INSTANTIATE_TEST_SUITE_P(NullState, HoldingForm, testing::Range(0U, 64U), testing::PrintToStringParamName());

TEST(NullState, APlainIntIsNotNullEvenWhenItIsZero)
{
    const int zero = 0;
    EXPECT_FALSE(Plain(DT_INT).IsNull(&zero));
}

TEST(NullState, NoHolderIsNullForEveryType)
{
    for (unsigned int code = 0; code < 256; ++code)
        EXPECT_TRUE(CGnlTypeInfor(code).IsNull(nullptr)) << code;
}

TEST(NullState, AMayNullKeepsItsValueWhenItsFlagIsWritten)
{
    const CGnlTypeInfor type = MayNull<int>(DT_INT);
    Wrapped<int> age{0, 30};
    type.SetNull(&age);
    EXPECT_EQ(1, age.IsNull);
    EXPECT_EQ(30, age.Value);
    EXPECT_TRUE(type.IsNull(&age));
    type.SetNotNull(&age);
    EXPECT_EQ(0, age.IsNull);
    EXPECT_EQ(30, age.Value);
    EXPECT_FALSE(type.IsNull(&age));
}

TEST(NullState, AnOwnedPointerIsMadeAndFreed)
{
    const CGnlTypeInfor type = OwnedPointer(DT_INT);
    int* pointer = nullptr;
    type.SetNotNull(&pointer);
    ASSERT_NE(nullptr, pointer);
    *pointer = 5;
    EXPECT_FALSE(type.IsNull(&pointer));
    type.SetNull(&pointer);
    EXPECT_EQ(nullptr, pointer);
    EXPECT_TRUE(type.IsNull(&pointer));
    type.SetNull(&pointer);
    EXPECT_EQ(nullptr, pointer);
}

TEST(NullState, AnOwnedPointeeIsDestroyedWithItsOwnDestructor)
{
    const CGnlTypeInfor type = OwnedPointer(DT_STD_STRING);
    auto* text = new std::string(1000, 'x');
    type.SetNull(&text);
    EXPECT_EQ(nullptr, text);
    type.SetNotNull(&text);
    ASSERT_NE(nullptr, text);
    const std::unique_ptr<std::string> owner(text);
    EXPECT_EQ("", *text);
}

TEST(NullState, AConstPointerIsForgottenAndStaysNull)
{
    const CGnlTypeInfor type = ConstPointer(DT_INT);
    const int value = 5;
    const int* pointer = &value;
    type.SetNull(&pointer);
    EXPECT_EQ(nullptr, pointer);
    EXPECT_EQ(5, value);
    type.SetNotNull(&pointer);
    EXPECT_EQ(nullptr, pointer);
    type.NewIfNullPointer(&pointer);
    EXPECT_EQ(nullptr, pointer);
}

TEST(NullState, ANonNullPointerIsNeverNullAndIsFilledByNewIfNullPointerOnly)
{
    const CGnlTypeInfor type = NonNullPointer(DT_LONG);
    long* pointer = nullptr;
    EXPECT_FALSE(type.IsNull(&pointer));
    type.SetNotNull(&pointer);
    EXPECT_EQ(nullptr, pointer);
    type.NewIfNullPointer(&pointer);
    ASSERT_NE(nullptr, pointer);
    *pointer = 5;
    type.SetNull(&pointer);
    ASSERT_NE(nullptr, pointer);
    ::operator delete(pointer);
}

TEST(NullState, NewIfNullPointerIgnoresTheType)
{
    void* pointer = nullptr;
    CGnlTypeInfor(DT_NULL, HF_POINTER).NewIfNullPointer(&pointer);
    EXPECT_NE(nullptr, pointer);
    ::operator delete(pointer);
    pointer = nullptr;
    CGnlTypeInfor(DT_VOID, HF_POINTER).NewIfNullPointer(&pointer);
    EXPECT_EQ(nullptr, pointer) << "void cannot be made";
}

} // namespace
