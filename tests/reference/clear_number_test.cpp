// Emptying numbers, in every holding form.

#include <algorithm>
#include <array>
#include <cstring>

#include <gtest/gtest.h>

#include <vexa/refrence.h>

#include "support/clearing.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CGnlTypeInfor;
using vexa::CStdBasicTypeRefrence;
using vexa_test::ClearSilently;
using vexa_test::NonNullPointer;
using vexa_test::Plain;

class ClearNumber : public testing::TestWithParam<unsigned int> {
protected:
    static constexpr unsigned char kFill = 0xA5;
    using Bytes = std::array<unsigned char, 32>;

    static Bytes Filled()
    {
        Bytes bytes;
        bytes.fill(kFill);
        return bytes;
    }
    /// The bytes of a number of this type that has been zeroed at the start.
    static Bytes Zeroed(unsigned int code)
    {
        Bytes bytes = Filled();
        std::memset(bytes.data(), 0, Plain(code).Sizeof());
        return bytes;
    }
};

TEST_P(ClearNumber, ZeroesEveryByteOfItAndNoOther)
{
    alignas(16) Bytes bytes = Filled();
    ClearSilently(Plain(GetParam()), bytes.data());
    EXPECT_EQ(Zeroed(GetParam()), bytes);
}

TEST_P(ClearNumber, ZeroesThePointerThatIsNeverNullInsteadOfItsPointee)
{
    alignas(16) Bytes pointee = Filled();
    struct {
        alignas(16) void* Pointer;
        alignas(16) Bytes Behind;
    } holder{pointee.data(), Filled()};
    void* const before = holder.Pointer;
    ClearSilently(NonNullPointer(GetParam()), &holder);
    std::array<unsigned char, 8> expected;
    std::memcpy(expected.data(), &before, 8);
    std::memset(expected.data(), 0, std::min<unsigned long>(8, Plain(GetParam()).Sizeof()));
    EXPECT_EQ(0, std::memcmp(expected.data(), &holder, 8));
    EXPECT_EQ(Filled(), pointee);
    EXPECT_EQ(Filled(), holder.Behind);
}

TEST_P(ClearNumber, MakesANullableOneNullAndKeepsTheNumber)
{
    alignas(16) Bytes bytes = Filled();
    CGnlTypeInfor type(GetParam(), HF_MAY_NULL | HF_NULLABLE);
    type.NullFlagOffset = 16;
    ClearSilently(type, bytes.data());
    Bytes expected = Filled();
    expected[16] = 1;
    EXPECT_EQ(expected, bytes);
}

TEST_P(ClearNumber, LeavesAReadOnlyOneAlone)
{
    alignas(16) Bytes bytes = Filled();
    ClearSilently(CGnlTypeInfor(GetParam(), HF_CONST), bytes.data());
    EXPECT_EQ(Filled(), bytes);
}

TEST_P(ClearNumber, OfTheBasicReferenceIsAtTheAddressItselfAndKeepsTheNullState)
{
    alignas(16) Bytes bytes = Filled();
    CGnlTypeInfor type(GetParam(), HF_MAY_NULL | HF_NULLABLE);
    type.NullFlagOffset = 31;
    type.ValueOffset = 16;
    CStdBasicTypeRefrence(type, bytes.data()).Clear();
    EXPECT_EQ(Zeroed(GetParam()), bytes);
}

INSTANTIATE_TEST_SUITE_P(Clear, ClearNumber,
                         testing::Values(11U, 12U, 13U, 14U, 15U, 16U, 17U, 18U, 19U, 22U, 23U, 24U, 25U, 26U),
                         testing::PrintToStringParamName());

} // namespace
