// The attribute records of a class descriptor: adding, inheriting, copying.

#include <vexa/class_infor.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "support/described_class.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CAttribInfor;
using vexa::CBaseClassInfor;
using vexa::CClassInfor;
using vexa_test::Add;
using vexa_test::ListOf;
using vexa_test::Plain;
using vexa_test::RecordAt;

static_assert(sizeof(CAttribInfor) == 72);
static_assert(offsetof(CAttribInfor, TypeInfor) == 0 && offsetof(CAttribInfor, Name) == 16 &&
              offsetof(CAttribInfor, Offset) == 48 && offsetof(CAttribInfor, Sequence) == 50 &&
              offsetof(CAttribInfor, AttribID) == 52 && offsetof(CAttribInfor, UnionAttribEnum) == 54 &&
              offsetof(CAttribInfor, UnionSelector) == 56);
static_assert(std::is_same_v<decltype(CAttribInfor::Offset), unsigned short> &&
              std::is_same_v<decltype(CAttribInfor::Sequence), unsigned short> &&
              std::is_same_v<decltype(CAttribInfor::AttribID), short> &&
              std::is_same_v<decltype(CAttribInfor::UnionAttribEnum), short>);
static_assert(sizeof(CBaseClassInfor) == 16 && offsetof(CBaseClassInfor, Offset) == 0 &&
              offsetof(CBaseClassInfor, ClassInfor) == 8);
static_assert(sizeof(CClassInfor) == 64 + 24 + 48 + 48 + 8 + 8);

template<class Field>
long PlaceOf(const CClassInfor& infor, const Field& field)
{
    return reinterpret_cast<const char*>(&field) - reinterpret_cast<const char*>(&infor);
}

TEST(ClassInfor, HasItsFieldsInOrderBehindTheCommonHead)
{
    const CClassInfor infor;
    EXPECT_EQ(0, PlaceOf(infor, static_cast<const vexa::CTypeInforBase&>(infor)));
    EXPECT_EQ(64, PlaceOf(infor, infor.AttribList));
    EXPECT_EQ(88, PlaceOf(infor, infor.AttribNameMap));
    EXPECT_EQ(136, PlaceOf(infor, infor.FlatAttribMap));
    EXPECT_EQ(184, PlaceOf(infor, infor.IDMap));
    EXPECT_EQ(192, PlaceOf(infor, infor.UnionEnumMap));
}

TEST(AttribInfor, KeepsItsFlagsInTheByteBehindTheSelector)
{
    const auto flagsOf = [](const CAttribInfor& record) {
        return reinterpret_cast<const unsigned char*>(&record)[64] & 0x1FU;
    };
    CAttribInfor record;
    EXPECT_EQ(0x00U, flagsOf(record));
    record.IsInherited = 1;
    EXPECT_EQ(0x01U, flagsOf(record));
    record.Access = 7;
    EXPECT_EQ(0x0FU, flagsOf(record));
    record.IsMasked = 1;
    EXPECT_EQ(0x1FU, flagsOf(record));
}

TEST(AttribInfor, IsEmptyByDefault)
{
    const CAttribInfor record;
    EXPECT_EQ(DT_UNKNOWN, record.TypeInfor.DataType);
    EXPECT_EQ("", record.Name);
    EXPECT_EQ(0, record.Offset);
    EXPECT_EQ(0, record.Sequence);
    EXPECT_EQ(-1, record.AttribID);
    EXPECT_EQ(-1, record.UnionAttribEnum);
    EXPECT_EQ(nullptr, record.UnionSelector);
    EXPECT_EQ(0, record.IsInherited);
    EXPECT_EQ(0, record.Access);
    EXPECT_EQ(0, record.IsMasked);
}

/// A record none of whose fields is empty.
CAttribInfor FullRecord(const CAttribInfor& selector)
{
    CAttribInfor record;
    record.TypeInfor = vexa_test::OwnedPointer(DT_INT);
    record.Name = "rate";
    record.Offset = 8;
    record.Sequence = 3;
    record.AttribID = 4;
    record.UnionAttribEnum = 5;
    record.UnionSelector = &selector;
    record.IsInherited = 1;
    record.Access = AS_PRIVATE;
    record.IsMasked = 1;
    return record;
}

TEST(AttribInforAssignment, LeavesTheUnionFieldsAndTheMaskOfTheTarget)
{
    const CAttribInfor selector;
    CAttribInfor target;
    target.UnionAttribEnum = 99;
    target = FullRecord(selector);
    EXPECT_EQ("int*", target.TypeInfor.TypeName());
    EXPECT_EQ("rate", target.Name);
    EXPECT_EQ(8, target.Offset);
    EXPECT_EQ(3, target.Sequence);
    EXPECT_EQ(4, target.AttribID);
    EXPECT_EQ(1, target.IsInherited);
    EXPECT_EQ(AS_PRIVATE, target.Access);
    EXPECT_EQ(99, target.UnionAttribEnum);
    EXPECT_EQ(nullptr, target.UnionSelector);
    EXPECT_EQ(0, target.IsMasked);
}

TEST(AttribInforAssignment, KeepsAMaskAndASelectorThatTheSourceLacks)
{
    const CAttribInfor selector;
    CAttribInfor target = FullRecord(selector);
    target = CAttribInfor();
    EXPECT_EQ("", target.Name);
    EXPECT_EQ(0, target.IsInherited);
    EXPECT_EQ(5, target.UnionAttribEnum);
    EXPECT_EQ(&selector, target.UnionSelector);
    EXPECT_EQ(1, target.IsMasked);
}

TEST(AttribInforAssignment, CopiesAnOwnedTypeDeeplyAndReleasesTheOldOne)
{
    CAttribInfor source;
    source.TypeInfor.ChangeTypeTo_CustomType("Money", 8, nullptr, nullptr, 0);
    CAttribInfor target;
    target.TypeInfor.ChangeTypeTo_CustomType("Weight", 8, nullptr, nullptr, 0);
    target = source; // the address sanitizer finds what is not released
    EXPECT_EQ("Money", target.TypeInfor.RealTypeName());
    EXPECT_NE(source.TypeInfor.DetailInfor, target.TypeInfor.DetailInfor);
}

TEST(AttribInforAssignment, ToItselfChangesNothing)
{
    const CAttribInfor selector;
    CAttribInfor record = FullRecord(selector);
    const CAttribInfor& same = record;
    record = same;
    EXPECT_EQ("rate", record.Name);
    EXPECT_EQ("int*", record.TypeInfor.TypeName());
}

TEST(AddAttribInfor, AppendsARecordWithWhatItWasGiven)
{
    CClassInfor infor;
    infor.AddAttribInfor(AS_PUBLIC, 0, "first", -1);
    const CAttribInfor& second = infor.AddAttribInfor(AS_PROTECTED, 65535, "second", 300);
    ASSERT_EQ(2U, infor.AttribList.size());
    EXPECT_EQ(&second, &infor.AttribList.back());
    EXPECT_EQ("second", second.Name);
    EXPECT_EQ(65535, second.Offset);
    EXPECT_EQ(2, second.Sequence);
    EXPECT_EQ(300, second.AttribID);
    EXPECT_EQ(AS_PROTECTED, second.Access);
    EXPECT_EQ(0, second.IsInherited);
    EXPECT_EQ(DT_UNKNOWN, second.TypeInfor.DataType);
    EXPECT_EQ(-1, second.UnionAttribEnum);
    EXPECT_EQ(nullptr, second.UnionSelector);
    EXPECT_EQ(0, second.IsMasked);
    EXPECT_EQ(1, RecordAt(infor, 0).Sequence);
    EXPECT_EQ(-1, RecordAt(infor, 0).AttribID);
}

TEST(AddAttribInfor, KeepsTheLowThreeBitsOfTheAccess)
{
    CClassInfor infor;
    EXPECT_EQ(1, infor.AddAttribInfor(static_cast<AccessSpecifierEnum>(9), 0, "a", -1).Access);
    EXPECT_EQ(7, infor.AddAttribInfor(static_cast<AccessSpecifierEnum>(7), 0, "b", -1).Access);
    EXPECT_EQ(0, infor.AddAttribInfor(static_cast<AccessSpecifierEnum>(8), 0, "c", -1).Access);
}

TEST(AddAttribInfor, LeavesEarlierRecordsWhereTheyAre)
{
    CClassInfor infor;
    const CAttribInfor* const first = &infor.AddAttribInfor(AS_PUBLIC, 0, "first", -1);
    for (int i = 0; i < 1000; ++i)
        infor.AddAttribInfor(AS_PUBLIC, 0, "more", -1);
    EXPECT_EQ(first, &infor.AttribList.front());
    EXPECT_EQ(1001, infor.AttribList.back().Sequence);
}

TEST(InheritFromBaseClass, CopiesEveryRecordAtItsOffsetInTheDerivedClass)
{
    CClassInfor base;
    const CAttribInfor& selector = base.AddAttribInfor(AS_PUBLIC, 0, "kind", 1);
    CAttribInfor& member = base.AddAttribInfor(AS_PRIVATE, 8, "code", 2);
    member.TypeInfor = vexa_test::OwnedPointer(DT_LONG);
    member.UnionSelector = &selector;
    member.UnionAttribEnum = 3;
    member.IsMasked = 1;
    CClassInfor derived;
    derived.AddAttribInfor(AS_PUBLIC, 0, "own", -1);
    derived.InheritFromBaseClass_Impl(16, base);
    EXPECT_EQ("own@0 kind+@16 code+@24 ", ListOf(derived));
    const CAttribInfor& copy = RecordAt(derived, 2);
    EXPECT_EQ("long*", copy.TypeInfor.TypeName());
    EXPECT_EQ(3, copy.Sequence);
    EXPECT_EQ(2, copy.AttribID);
    EXPECT_EQ(3, copy.UnionAttribEnum);
    EXPECT_EQ(&selector, copy.UnionSelector) << "the base's record, not its copy";
    EXPECT_EQ(AS_PRIVATE, copy.Access);
    EXPECT_EQ(1, copy.IsMasked);
    EXPECT_EQ("kind@0 code@8 ", ListOf(base));
}

TEST(InheritFromBaseClass, WrapsTheOffsetIn16Bits)
{
    CClassInfor base;
    base.AddAttribInfor(AS_PUBLIC, 65535, "last", -1);
    base.AddAttribInfor(AS_PUBLIC, 100, "near", -1);
    CClassInfor derived;
    derived.InheritFromBaseClass_Impl(1, base);
    derived.InheritFromBaseClass_Impl(65536 + 5, base);
    derived.InheritFromBaseClass_Impl(65436, base);
    EXPECT_EQ("last+@0 near+@101 last+@4 near+@105 last+@65435 near+@0 ", ListOf(derived));
}

TEST(InheritFromBaseClass, CopiesAnOwnedTypeDeeply)
{
    CClassInfor base;
    base.AddAttribInfor(AS_PUBLIC, 0, "price", -1).TypeInfor.ChangeTypeTo_CustomType("Money", 8, nullptr, nullptr, 0);
    CClassInfor derived;
    derived.InheritFromBaseClass_Impl(0, base);
    EXPECT_EQ("Money", derived.AttribList.front().TypeInfor.RealTypeName());
    EXPECT_NE(base.AttribList.front().TypeInfor.DetailInfor, derived.AttribList.front().TypeInfor.DetailInfor);
}

TEST(InitBaseClass, InheritsFromEachBaseInOrder)
{
    CClassInfor left;
    left.AddAttribInfor(AS_PUBLIC, 4, "l", -1);
    CClassInfor right;
    right.AddAttribInfor(AS_PUBLIC, 4, "r", -1);
    CClassInfor derived;
    derived.InitBaseClass({{8, &right}, {0, &left}});
    derived.AddAttribInfor(AS_PUBLIC, 16, "own", -1);
    EXPECT_EQ("r+@12 l+@4 own@16 ", ListOf(derived));
    EXPECT_EQ(3, derived.AttribList.back().Sequence);
}

TEST(InitBaseClass, WithoutBasesAddsNothing)
{
    CClassInfor derived;
    derived.InitBaseClass({});
    EXPECT_EQ("", ListOf(derived));
}

TEST(ClassInfor, SharesOneEmptyMapOfEachKindAmongClassesWithoutOne)
{
    const CClassInfor first;
    const CClassInfor second;
    EXPECT_EQ(&first.AttribIDMap(), &second.AttribIDMap());
    EXPECT_EQ(&first.UnionAttribEnumMap(), &second.UnionAttribEnumMap());
    EXPECT_NE(&first.AttribIDMap(), &first.UnionAttribEnumMap());
    EXPECT_EQ(nullptr, first.IDMap);
    EXPECT_EQ(nullptr, first.UnionEnumMap);
    for (const int key : {-32768, -1, 0, 5, 63, 64, 32767}) {
        EXPECT_EQ(nullptr, first.AttribIDMap().FindAttrib(static_cast<short>(key))) << key;
        EXPECT_EQ(nullptr, first.UnionAttribEnumMap().FindAttrib(static_cast<short>(key))) << key;
    }
}

TEST(ClassInfor, GivesItsOwnMapsOnceItHasThem)
{
    CClassInfor infor; // releases both maps; the address sanitizer finds it if not
    infor.IDMap = new vexa::CAttribIDMap();
    infor.UnionEnumMap = new vexa::CAttribIDMap();
    EXPECT_EQ(infor.IDMap, &infor.AttribIDMap());
    EXPECT_EQ(infor.UnionEnumMap, &infor.UnionAttribEnumMap());
}

} // namespace
