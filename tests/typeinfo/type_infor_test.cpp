#include <vexa/type_infor.h>

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include <vexa/class_infor.h>
#include <vexa/container_infor.h>
#include <vexa/custom_type_infor.h>
#include <vexa/refrence.h>

#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CGnlTypeInfor;
using vexa::CTypeInforBase;
using vexa_test::ConstPointer;
using vexa_test::MayNull;
using vexa_test::NonNullPointer;
using vexa_test::OwnedPointer;
using vexa_test::Plain;

static_assert(sizeof(CGnlTypeInfor) == 16);
static_assert(offsetof(CGnlTypeInfor, DataType) == 0 && offsetof(CGnlTypeInfor, HoldingFlags) == 1 &&
              offsetof(CGnlTypeInfor, NullFlagOffset) == 2 && offsetof(CGnlTypeInfor, ValueOffset) == 3 &&
              offsetof(CGnlTypeInfor, DetailInfor) == 8);
static_assert(!std::is_polymorphic_v<CGnlTypeInfor> && !std::is_polymorphic_v<CTypeInforBase>);
static_assert(offsetof(CTypeInforBase, Name) == 0 && offsetof(CTypeInforBase, Size) == 32 &&
              offsetof(CTypeInforBase, CustomTypeID) == 40 && offsetof(CTypeInforBase, Factory) == 48 &&
              offsetof(CTypeInforBase, Deleter) == 56 && sizeof(CTypeInforBase) == 64);

void* NewThing() { return ::operator new(3); }

void DeleteThing(void* thing) { ::operator delete(thing); }

CGnlTypeInfor OwnedCustom(const char* name)
{
    CGnlTypeInfor type(DT_INT, HF_POINTER | HF_NULLABLE);
    type.NullFlagOffset = 5;
    type.ValueOffset = 6;
    type.ChangeTypeTo_CustomType(name, 3, &NewThing, &DeleteThing, 77);
    return type;
}

/// That the descriptor is the one of OwnedCustom under this name.
void ExpectOwnedCustom(const CGnlTypeInfor& type, const char* name)
{
    EXPECT_EQ(114, type.DataType);
    EXPECT_EQ(0x18, type.HoldingFlags);
    EXPECT_EQ(5, type.NullFlagOffset);
    EXPECT_EQ(6, type.ValueOffset);
    ASSERT_NE(nullptr, type.DetailInfor);
    EXPECT_EQ(name, type.DetailInfor->Name);
    EXPECT_EQ(3U, type.DetailInfor->Size);
    EXPECT_EQ(77U, type.DetailInfor->CustomTypeID);
    EXPECT_EQ(&NewThing, type.DetailInfor->Factory);
    EXPECT_EQ(&DeleteThing, type.DetailInfor->Deleter);
}

TEST(TypeInfor, IsEmptyByDefault)
{
    const CGnlTypeInfor type;
    EXPECT_EQ(0, type.DataType);
    EXPECT_EQ(0, type.HoldingFlags);
    EXPECT_EQ(0, type.NullFlagOffset);
    EXPECT_EQ(0, type.ValueOffset);
    EXPECT_EQ(nullptr, type.DetailInfor);
}

TEST(TypeInforBase, SetBaseTypeInforAssignsTheFiveFields)
{
    CTypeInforBase base;
    base.SetBaseTypeInfor("Thing", 3, &NewThing, &DeleteThing, 9);
    EXPECT_EQ("Thing", base.Name);
    EXPECT_EQ(3U, base.Size);
    EXPECT_EQ(9U, base.CustomTypeID);
    EXPECT_EQ(&NewThing, base.Factory);
    EXPECT_EQ(&DeleteThing, base.Deleter);
}

TEST(TypeInforCopy, SharesABorrowedDetailedDescriptor)
{
    CTypeInforBase registered;
    const CGnlTypeInfor type = MayNull<double>(DT_CLASS, &registered);
    CGnlTypeInfor assigned;
    assigned = type;
    const CGnlTypeInfor copied(type);
    for (const CGnlTypeInfor& copy : {assigned, copied}) {
        EXPECT_EQ(1, copy.DataType);
        EXPECT_EQ(0x09, copy.HoldingFlags);
        EXPECT_EQ(0, copy.NullFlagOffset);
        EXPECT_EQ(8, copy.ValueOffset);
        EXPECT_EQ(&registered, copy.DetailInfor);
    }
}

TEST(TypeInforCopy, CopiesAnOwnedDetailedDescriptorDeeply)
{
    const CGnlTypeInfor type = OwnedCustom("Money");
    const CGnlTypeInfor copy(type);
    ExpectOwnedCustom(copy, "Money");
    EXPECT_NE(type.DetailInfor, copy.DetailInfor);
}

TEST(TypeInforCopy, AssignmentReleasesWhatTheTargetOwned)
{
    CGnlTypeInfor type = OwnedCustom("Money"); // the address sanitizer finds what is not released
    const CGnlTypeInfor other = OwnedCustom("Weight");
    type = other;
    ExpectOwnedCustom(type, "Weight");
    EXPECT_NE(other.DetailInfor, type.DetailInfor);
    type = Plain(DT_INT);
    EXPECT_EQ(14, type.DataType);
    EXPECT_EQ(nullptr, type.DetailInfor);
}

TEST(TypeInforCopy, AssignmentToItselfChangesNothing)
{
    CGnlTypeInfor type = OwnedCustom("Money");
    const CTypeInforBase* const owned = type.DetailInfor;
    const CGnlTypeInfor& same = type;
    type = same;
    EXPECT_EQ(owned, type.DetailInfor);
    ExpectOwnedCustom(type, "Money");
}

TEST(TypeInforCopy, MovingHandsAnOwnedDescriptorOver)
{
    CGnlTypeInfor type = OwnedCustom("Money");
    const CTypeInforBase* const owned = type.DetailInfor;
    CGnlTypeInfor target = OwnedCustom("Weight");
    target = std::move(type);
    EXPECT_EQ(owned, target.DetailInfor);
    ExpectOwnedCustom(target, "Money");
    const CGnlTypeInfor second(std::move(target));
    EXPECT_EQ(owned, second.DetailInfor);
}

TEST(TypeInforCopy, ADescriptorThatWasMovedFromIsThatOfNoType)
{
    CGnlTypeInfor type = OwnedCustom("Money");
    const CGnlTypeInfor target(std::move(type));
    EXPECT_EQ("unkown type", type.RealTypeName());
    EXPECT_EQ(0U, type.Sizeof());
    EXPECT_EQ(nullptr, type.New());
}

TEST(TypeInforCopy, OfAnOwnerWithoutDescriptorHasNoneEither)
{
    const CGnlTypeInfor type(DT_CUSTOM_OWNED);
    CGnlTypeInfor copy(type);
    copy = type;
    EXPECT_EQ(nullptr, copy.DetailInfor);
}

TEST(ChangeTypeToCustomType, MakesAnOwnerAndKeepsFlagsAndOffsets) { ExpectOwnedCustom(OwnedCustom("Money"), "Money"); }

TEST(ChangeTypeToCustomType, DoesNotReleaseWhatWasOwnedBefore)
{
    CGnlTypeInfor type = OwnedCustom("Money");
    const std::unique_ptr<const CTypeInforBase> before(type.DetailInfor);
    type.ChangeTypeTo_CustomType("Weight", 3, &NewThing, &DeleteThing, 77);
    ExpectOwnedCustom(type, "Weight");
    EXPECT_EQ("Money", before->Name);
}

TEST(ChangeTypeToCustomType, ThrowsForANullNameAndLeavesAnOwnerWithoutName)
{
    CGnlTypeInfor type(DT_INT);
    std::string message;
    try {
        type.ChangeTypeTo_CustomType(nullptr, 3, &NewThing, &DeleteThing, 77);
    } catch (const std::logic_error& error) {
        message = error.what();
    }
    EXPECT_EQ("basic_string::_M_construct null not valid", message);
    EXPECT_EQ(114, type.DataType);
    ASSERT_NE(nullptr, type.DetailInfor);
    EXPECT_EQ("", type.DetailInfor->Name);
}

TEST(ChangeTypeToClassType, SetsCodeDescriptorAndAddressOnly)
{
    const vexa::CClassInfor infor;
    const int object = 0;
    vexa::CRefrence ref(OwnedCustom("Money"), nullptr);
    vexa::helper::ChangeTypeTo_ClassType(ref, infor, &object);
    EXPECT_EQ(1, ref.TypeInfor.DataType);
    EXPECT_EQ(0x18, ref.TypeInfor.HoldingFlags);
    EXPECT_EQ(5, ref.TypeInfor.NullFlagOffset);
    EXPECT_EQ(6, ref.TypeInfor.ValueOffset);
    EXPECT_EQ(&infor, ref.TypeInfor.DetailInfor);
    EXPECT_EQ(&object, ref.Address);
}

TEST(ValueAddress, IsTheHolderThePointeeOrInsideTheWrapper)
{
    int value = 1;
    int* pointer = &value;
    vexa_test::Wrapped<int> wrapper{0, 1};
    EXPECT_EQ(&value, Plain(DT_INT).ValueAddress(&value));
    EXPECT_EQ(&wrapper.Value, MayNull<int>(DT_INT).ValueAddress(&wrapper));
    for (const CGnlTypeInfor& type : {OwnedPointer(DT_INT), ConstPointer(DT_INT), NonNullPointer(DT_INT)}) {
        EXPECT_EQ(&value, type.ValueAddress(&pointer)) << type.TypeName();
    }
}

TEST(ValueAddress, FollowsThePointerBeforeTheWrapper)
{
    int value = 1;
    int* pointer = &value;
    CGnlTypeInfor both(DT_INT, HF_POINTER | HF_MAY_NULL | HF_NULLABLE);
    both.ValueOffset = 4;
    EXPECT_EQ(&value, both.ValueAddress(&pointer));
}

TEST(ValueAddress, DoesNotLookAtTheNullState)
{
    vexa_test::Wrapped<int> wrapper{1, 1};
    EXPECT_EQ(&wrapper.Value, MayNull<int>(DT_INT).ValueAddress(&wrapper));
}

TEST(ValueAddress, UsesTheOffsetOfTheMayNullWrapperOnly)
{
    int value = 1;
    for (unsigned int kind = 0; kind <= 7; ++kind) {
        CGnlTypeInfor type(DT_INT, kind | HF_NULLABLE | HF_CONST);
        type.ValueOffset = 2;
        EXPECT_EQ(reinterpret_cast<char*>(&value) + (kind == 1 ? 2 : 0), type.ValueAddress(&value)) << kind;
    }
}

TEST(TypeName, ShowsTheHoldingForm)
{
    EXPECT_EQ("int", Plain(DT_INT).TypeName());
    EXPECT_EQ("MayNull<int>", MayNull<int>(DT_INT).TypeName());
    EXPECT_EQ("int*", OwnedPointer(DT_INT).TypeName());
    EXPECT_EQ("const int*", ConstPointer(DT_INT).TypeName());
    EXPECT_EQ("NonNullPointer<int>", NonNullPointer(DT_INT).TypeName());
    EXPECT_EQ("const vexa::CBinary*", ConstPointer(DT_BINARY).TypeName());
    EXPECT_EQ("MayNull<long>", MayNull<long>(DT_LONG).TypeName());
}

TEST(TypeName, ShowsAWrapperWithoutItsPointerAndConst)
{
    for (const unsigned int more : {0U, 0x08U, 0x10U, 0x18U, 0x20U, 0x38U}) {
        EXPECT_EQ("MayNull<int>", CGnlTypeInfor(DT_INT, 1U | more).TypeName()) << more;
        EXPECT_EQ("NonNullPointer<int>", CGnlTypeInfor(DT_INT, 2U | more).TypeName()) << more;
    }
}

TEST(TypeName, OfATextPointerIsTheSameInEveryFormButTheWrappers)
{
    for (const unsigned int flags : {0U, 0x08U, 0x10U, 0x18U, 0x20U, 0x30U, 0x38U}) {
        EXPECT_EQ("const char*", CGnlTypeInfor(DT_CONST_CHAR_PTR, flags).TypeName()) << flags;
    }
    EXPECT_EQ("MayNull<const char*>", CGnlTypeInfor(DT_CONST_CHAR_PTR, 0x09).TypeName());
    EXPECT_EQ("NonNullPointer<const char*>", CGnlTypeInfor(DT_CONST_CHAR_PTR, 0x12).TypeName());
}

TEST(TypeName, ShowsNeitherConstAloneNorMayBeNullAlone)
{
    EXPECT_EQ("int", CGnlTypeInfor(DT_INT, HF_CONST).TypeName());
    EXPECT_EQ("int", CGnlTypeInfor(DT_INT, HF_NULLABLE).TypeName());
}

TEST(CustomTypeID, IsThatOfTheDetailedDescriptorForCustomTypesOnly)
{
    vexa::CCustomBasicTypeInfor custom;
    custom.CustomTypeID = 12;
    EXPECT_EQ(12U, Plain(DT_CUSTOM_BASIC, &custom).GetCustomTypeID());
    EXPECT_EQ(77U, OwnedCustom("Money").GetCustomTypeID());
    for (unsigned int code = 0; code < 256; ++code) {
        if (code == DT_CUSTOM_BASIC || code == DT_CUSTOM_OWNED) continue;
        EXPECT_EQ(0U, Plain(code, &custom).GetCustomTypeID()) << code;
    }
}

TEST(StdTypeInforFromCustomType, IsTheUnderlyingType)
{
    vexa::CCustomBasicTypeInfor custom;
    custom.Underlying = Plain(DT_DATETIME);
    EXPECT_EQ(&custom.Underlying, &Plain(DT_CUSTOM_BASIC, &custom).GetStdTypeInforFromCustomType());
}

} // namespace
