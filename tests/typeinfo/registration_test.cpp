// The one-time registration of classes.

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <vexa/class_infor.h>

#include "support/described_class.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CClassInfor;
using vexa_test::Add;
using vexa_test::DescribedClass;
using vexa_test::ListOf;
using vexa_test::OwnedPointer;
using vexa_test::Plain;
using vexa_test::RecordAt;

void* NewThing() { return nullptr; }
void DeleteThing(void*) {}

/// A slot whose descriptor goes away with the test.
struct Slot {
    ~Slot() { delete Infor; }
    CClassInfor* Infor = nullptr;
};

/// What the describing functions of this file saw; they are plain functions and cannot hold it themselves.
struct Seen {
    int Calls = 0;
    unsigned int Access = 99;
    std::string Name;
    std::string List;
    bool HadIndex = true;
    bool SlotWasNull = false;
    CClassInfor* Inner = nullptr;
};
Seen g_seen;
CClassInfor** g_slot = nullptr;

void DescribeThing(CClassInfor& about, AccessSpecifierEnum access)
{
    ++g_seen.Calls;
    g_seen.Access = access;
    g_seen.Name = about.Name;
    g_seen.List = ListOf(about);
    Add(about, "own", 0, Plain(DT_INT), 3);
    g_seen.HadIndex = !about.AttribNameMap.empty() || !about.FlatAttribMap.empty() || about.IDMap != nullptr;
    g_seen.SlotWasNull = g_slot != nullptr && *g_slot == nullptr;
}

CClassInfor* RegisterThing(CClassInfor*& slot, CClassInfor::DescribeFunction describe = &DescribeThing)
{
    return CClassInfor::InitClassInfor(slot, "Thing", 24, &NewThing, &DeleteThing, describe);
}

CClassInfor* RegisterDerived(CClassInfor*& slot, const CClassInfor& base, unsigned long offset,
                             CClassInfor::DescribeFunction describe = &DescribeThing)
{
    return CClassInfor::InitClassInforWithBaseClass(slot, "Thing", 24, &NewThing, &DeleteThing, describe, base, offset);
}

class Registration : public testing::Test {
protected:
    Registration()
    {
        g_seen = Seen();
        g_slot = &m_slot.Infor;
    }

    static void ExpectThing(const CClassInfor& infor)
    {
        EXPECT_EQ("Thing", infor.Name);
        EXPECT_EQ(24U, infor.Size);
        EXPECT_EQ(0U, infor.CustomTypeID);
        EXPECT_EQ(&NewThing, infor.Factory);
        EXPECT_EQ(&DeleteThing, infor.Deleter);
    }

    Slot m_slot;
};

TEST_F(Registration, BuildsTheDescriptorAndStoresItInTheSlot)
{
    CClassInfor* const infor = RegisterThing(m_slot.Infor);
    ASSERT_NE(nullptr, infor);
    EXPECT_EQ(infor, m_slot.Infor);
    ExpectThing(*infor);
    EXPECT_EQ("own@0 ", ListOf(*infor));
    EXPECT_EQ(&infor->AttribList.front(), infor->AttribIDMap().FindAttrib(3));
    EXPECT_NE(nullptr, infor->FindAttribInforByFlatName("own"));
}

TEST_F(Registration, DescribesOnceBetweenTheCommonPartAndTheIndexWithAccess0)
{
    RegisterThing(m_slot.Infor);
    EXPECT_EQ(1, g_seen.Calls);
    EXPECT_EQ(0U, g_seen.Access);
    EXPECT_EQ("Thing", g_seen.Name);
    EXPECT_FALSE(g_seen.HadIndex);
    EXPECT_TRUE(g_seen.SlotWasNull);
}

TEST_F(Registration, ASecondCallGivesTheSameDescriptorWithoutDescribing)
{
    CClassInfor* const infor = RegisterThing(m_slot.Infor);
    EXPECT_EQ(infor, CClassInfor::InitClassInfor(m_slot.Infor, "Other", 1, nullptr, nullptr, &DescribeThing));
    EXPECT_EQ(infor, RegisterDerived(m_slot.Infor, *infor, 8));
    EXPECT_EQ(1, g_seen.Calls);
    ExpectThing(*infor);
    EXPECT_EQ("own@0 ", ListOf(*infor));
}

TEST_F(Registration, ABaseComesBeforeTheOwnAttributesAndBeforeTheDescription)
{
    DescribedClass base("Base", 16, [](CClassInfor& about) { Add(about, "inherited", 8, Plain(DT_INT)); });
    CClassInfor* const infor = RegisterDerived(m_slot.Infor, *base, 16);
    ExpectThing(*infor);
    EXPECT_EQ(infor, m_slot.Infor);
    EXPECT_EQ("inherited+@24 ", g_seen.List);
    EXPECT_EQ("inherited+@24 own@0 ", ListOf(*infor));
    EXPECT_EQ(1, RecordAt(*infor, 0).Sequence);
    EXPECT_EQ(2, RecordAt(*infor, 1).Sequence);
    EXPECT_EQ(0U, g_seen.Access);
}

TEST_F(Registration, ABaseBringsItsOwnBases)
{
    DescribedClass root("Root", 16, [](CClassInfor& about) { Add(about, "root", 8, Plain(DT_INT)); });
    DescribedClass middle(
        "Middle", 32, [](CClassInfor& about) { Add(about, "middle", 24, Plain(DT_INT)); }, root, 4);
    EXPECT_EQ("root+@12 middle@24 ", ListOf(*middle));
    CClassInfor* const infor = RegisterDerived(m_slot.Infor, *middle, 100);
    EXPECT_EQ("root+@112 middle+@124 own@0 ", ListOf(*infor));
}

TEST_F(Registration, AMemberNamedLikeABaseMemberDisappearsSilently)
{
    DescribedClass base("Base", 16, [](CClassInfor& about) {
        Add(about, "first", 0, Plain(DT_INT));
        Add(about, "own", 8, Plain(DT_LONG));
    });
    testing::internal::CaptureStdout();
    CClassInfor* const infor = RegisterDerived(m_slot.Infor, *base, 0);
    EXPECT_EQ("", testing::internal::GetCapturedStdout());
    EXPECT_EQ("first+@0 own+@8 ", ListOf(*infor));
    EXPECT_EQ("long", infor->AttribNameMap.at("own")->TypeInfor.TypeName());
}

/// Registers the class that is in progress once more, as a member that points to it needs to.
void DescribeNode(CClassInfor& about, AccessSpecifierEnum access)
{
    DescribeThing(about, access);
    g_seen.Inner = RegisterThing(*g_slot, &DescribeNode);
    Add(about, "next", 8, OwnedPointer(DT_CLASS, g_seen.Inner));
}

TEST_F(Registration, AClassThatPointsToItselfGetsItsDescriptorInProgress)
{
    CClassInfor* const infor = RegisterThing(m_slot.Infor, &DescribeNode);
    EXPECT_EQ(infor, g_seen.Inner);
    EXPECT_TRUE(g_seen.SlotWasNull);
    EXPECT_EQ(1, g_seen.Calls);
    EXPECT_EQ("own@0 next@8 ", ListOf(*infor));
    EXPECT_EQ(infor, RecordAt(*infor, 1).TypeInfor.DetailInfor);
    EXPECT_EQ("Thing*", RecordAt(*infor, 1).TypeInfor.TypeName());
}

DescribedClass* g_base = nullptr;

void DescribeDerivedNode(CClassInfor& about, AccessSpecifierEnum access)
{
    DescribeThing(about, access);
    g_seen.Inner = RegisterDerived(*g_slot, **g_base, 0, &DescribeDerivedNode);
}

TEST_F(Registration, ADerivedClassThatPointsToItselfGetsItsDescriptorInProgress)
{
    DescribedClass base("Base", 16, [](CClassInfor& about) { Add(about, "inherited", 8, Plain(DT_INT)); });
    g_base = &base;
    EXPECT_EQ(RegisterDerived(m_slot.Infor, *base, 0, &DescribeDerivedNode), g_seen.Inner);
    EXPECT_EQ(1, g_seen.Calls);
}

/// A class whose member's class refers back to it.
Slot* g_other = nullptr;

void DescribeOther(CClassInfor& about, AccessSpecifierEnum)
{
    Add(about, "owner", 0, vexa_test::ConstPointer(DT_CLASS, RegisterThing(*g_slot)));
    Add(about, "number", 8, Plain(DT_INT));
}

void DescribeOwner(CClassInfor& about, AccessSpecifierEnum access)
{
    DescribeThing(about, access);
    Add(about, "part", 8,
        OwnedPointer(DT_CLASS,
                     CClassInfor::InitClassInfor(g_other->Infor, "Other", 16, nullptr, nullptr, &DescribeOther)));
}

TEST_F(Registration, ClassesThatPointToEachOtherGetEachOthersDescriptor)
{
    Slot other;
    g_other = &other;
    CClassInfor* const infor = RegisterThing(m_slot.Infor, &DescribeOwner);
    EXPECT_EQ(other.Infor, RecordAt(*infor, 1).TypeInfor.DetailInfor);
    EXPECT_EQ(infor, RecordAt(*other.Infor, 0).TypeInfor.DetailInfor);
    EXPECT_EQ(1, g_seen.Calls);
    EXPECT_EQ(nullptr, other.Infor->FindAttribInforByFlatName("owner_own")) << "its index was not built yet";
    EXPECT_NE(nullptr, infor->FindAttribInforByFlatName("part_number"));
}

/// Asks for the class in progress by the other of the two calls.
void DescribeThingAsDerivedMeanwhile(CClassInfor&, AccessSpecifierEnum)
{
    g_seen.Inner = RegisterDerived(*g_slot, **g_base, 0);
}
void DescribeDerivedAsPlainMeanwhile(CClassInfor&, AccessSpecifierEnum) { g_seen.Inner = RegisterThing(*g_slot); }

TEST_F(Registration, AClassInProgressIsFoundByTheSameCallOnly)
{
    DescribedClass base("Base", 16, [](CClassInfor&) {});
    g_base = &base;
    CClassInfor* const plain = RegisterThing(m_slot.Infor, &DescribeThingAsDerivedMeanwhile);
    const std::unique_ptr<CClassInfor> innerDerived(g_seen.Inner);
    EXPECT_NE(plain, innerDerived.get());
    EXPECT_EQ(plain, m_slot.Infor) << "the outer call ends last";
    EXPECT_EQ("", ListOf(*plain));
    EXPECT_EQ("own@0 ", ListOf(*innerDerived));

    Slot slot;
    g_slot = &slot.Infor;
    CClassInfor* const derived = RegisterDerived(slot.Infor, *base, 0, &DescribeDerivedAsPlainMeanwhile);
    const std::unique_ptr<CClassInfor> innerPlain(g_seen.Inner);
    EXPECT_NE(derived, innerPlain.get());
    EXPECT_EQ(derived, slot.Infor);
    EXPECT_EQ(2, g_seen.Calls);
}

TEST_F(Registration, LeavesNothingInProgressBehind)
{
    RegisterThing(m_slot.Infor);
    const std::unique_ptr<CClassInfor> first(m_slot.Infor);
    m_slot.Infor = nullptr; // the same slot again: an entry left behind would be found
    EXPECT_NE(first.get(), RegisterThing(m_slot.Infor));
    EXPECT_EQ(2, g_seen.Calls);
}

TEST_F(Registration, SeveralBasesAreAddedByTheDescription)
{
    static DescribedClass* left = nullptr;
    static DescribedClass* right = nullptr;
    DescribedClass leftBase("Left", 8, [](CClassInfor& about) { Add(about, "l", 0, Plain(DT_INT)); });
    DescribedClass rightBase("Right", 8, [](CClassInfor& about) { Add(about, "r", 4, Plain(DT_INT)); });
    left = &leftBase;
    right = &rightBase;
    CClassInfor* const infor = RegisterThing(m_slot.Infor, [](CClassInfor& about, AccessSpecifierEnum access) {
        about.InitBaseClass({{0, &**left}, {8, &**right}});
        DescribeThing(about, access);
    });
    EXPECT_EQ("l+@0 r+@12 own@0 ", ListOf(*infor));
}

} // namespace
