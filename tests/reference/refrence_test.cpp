// References as such: their layout, and what they take from their descriptors.

#include <vexa/refrence.h>

#include <cstddef>
#include <type_traits>

#include <gtest/gtest.h>

#include <vexa/class_refrence.h>
#include <vexa/container_refrence.h>

#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CGnlTypeInfor;
using vexa::CRefrence;
using vexa::CStdBasicTypeRefrence;
using vexa_test::MayNull;
using vexa_test::Plain;
using vexa_test::Wrapped;

/// One layout for all reference classes: the descriptor, then the address.
template<class Refrence>
constexpr bool HasTheLayout = sizeof(Refrence) == 24 &&
                              !std::is_polymorphic_v<Refrence> && std::is_standard_layout_v<Refrence>;
static_assert(HasTheLayout<vexa::CConstRefrence> && HasTheLayout<CRefrence>);
static_assert(HasTheLayout<vexa::CStdBasicTypeConstRefrence> && HasTheLayout<CStdBasicTypeRefrence>);
static_assert(HasTheLayout<vexa::CClassConstRefrence>);
static_assert(HasTheLayout<vexa::CContainerConstRefrence> && HasTheLayout<vexa::CContainerRefrence>);
static_assert(offsetof(CRefrence, TypeInfor) == 0 && offsetof(CRefrence, Address) == 16);
static_assert(std::is_base_of_v<vexa::CConstRefrence, CRefrence> &&
              std::is_base_of_v<vexa::CStdBasicTypeConstRefrence, CStdBasicTypeRefrence> &&
              std::is_base_of_v<vexa::CContainerConstRefrence, vexa::CContainerRefrence>);

TEST(Refrence, DesignatesNothingByDefaultAndIsNull)
{
    const CRefrence ref;
    EXPECT_EQ(DT_UNKNOWN, ref.TypeInfor.DataType);
    EXPECT_EQ(nullptr, ref.Address);
    EXPECT_TRUE(ref.IsNull());
    EXPECT_EQ(nullptr, ref.ValueAddress());
    EXPECT_TRUE(CRefrence(Plain(DT_INT), nullptr).IsNull());
}

TEST(Refrence, CopiesAnOwnedTypeWithTheDescriptor)
{
    CGnlTypeInfor type;
    type.ChangeTypeTo_CustomType("Money", 8, nullptr, nullptr, 0);
    long money = 0;
    const CRefrence ref(type, &money);
    const CRefrence copy(ref);
    EXPECT_EQ("Money", copy.TypeName());
    EXPECT_NE(ref.TypeInfor.DetailInfor, copy.TypeInfor.DetailInfor);
    EXPECT_EQ(&money, copy.Address);
}

TEST(Refrence, ReinterpretsTheSameTwoFields)
{
    int value = 0;
    CRefrence ref(Plain(DT_INT), &value);
    EXPECT_EQ(static_cast<void*>(&ref), &ref.AsStdBasicType());
    EXPECT_EQ(static_cast<void*>(&ref), &ref.AsContainer());
    EXPECT_EQ(static_cast<const void*>(&ref), &ref.AsClass());
    const CStdBasicTypeRefrence kept = CRefrence(Plain(DT_INT), &value).AsStdBasicType();
    EXPECT_EQ(&value, kept.Address);
    EXPECT_EQ("int", kept.TypeName());
}

TEST(Refrence, AsksItsDescriptorForTheNullState)
{
    Wrapped<int> age{1, 30};
    CRefrence ref(MayNull<int>(DT_INT), &age);
    EXPECT_TRUE(ref.IsNull());
    EXPECT_EQ(nullptr, ref.ValueAddress());
    ref.SetNotNull();
    EXPECT_FALSE(ref.IsNull());
    EXPECT_EQ(&age.Value, ref.ValueAddress());
    ref.SetNull();
    EXPECT_EQ(1, age.IsNull);
    EXPECT_EQ("MayNull<int>", ref.TypeName());
}

} // namespace
