// The flat index: leaf attributes of member objects under composed names.

#include <cstddef>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/class_infor.h>

#include "support/captured_log.h"
#include "support/described_class.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CAttribInfor;
using vexa::CClassInfor;
using vexa::CFlatAttribInfor;
using vexa::CGnlTypeInfor;
using vexa_test::Add;
using vexa_test::DescribedClass;
using vexa_test::LoggedLines;
using vexa_test::OwnedPointer;
using vexa_test::Plain;
using vexa_test::RecordAt;

static_assert(sizeof(CFlatAttribInfor) == 56);
static_assert(offsetof(CFlatAttribInfor, PointerPath) == 0 && offsetof(CFlatAttribInfor, Offset) == 8 &&
              offsetof(CFlatAttribInfor, AttribInfor) == 16 && offsetof(CFlatAttribInfor, FlatName) == 24);

using Path = std::vector<const CAttribInfor*>;

/// "name@offset " for every entry, in key order, with ">" and the pointer attributes behind one that has a path. Checks
/// that each entry knows its own key.
std::string FlatListOf(const CClassInfor& infor)
{
    std::string list;
    for (const auto& [key, entry] : infor.FlatAttribMap) {
        EXPECT_EQ(key, entry.FlatName);
        list += key + '@' + std::to_string(entry.Offset);
        if (entry.PointerPath != nullptr) {
            for (const CAttribInfor* pointer : *entry.PointerPath)
                list += '>' + pointer->Name;
        }
        list += ' ';
    }
    return list;
}

void DescribePoint(CClassInfor& about)
{
    Add(about, "x", 4, Plain(DT_INT));
    Add(about, "y", 8, Plain(DT_LONG));
}

/// A class with one member of a described class, "inner" at 16 if not told otherwise.
DescribedClass WithMember(const CGnlTypeInfor& type, const char* name = "inner")
{
    return DescribedClass("Outer", 64, [&](CClassInfor& about) { Add(about, name, 16, type); });
}

class FlatIndex : public testing::Test {
protected:
    const DescribedClass m_point{"Point", 16, &DescribePoint};
    CGnlTypeInfor m_direct = Plain(DT_CLASS, &*m_point);
    CGnlTypeInfor m_pointer = OwnedPointer(DT_CLASS, &*m_point);
};

TEST_F(FlatIndex, HoldsAPlainAttributeUnderItsName)
{
    EXPECT_EQ("x@4 y@8 ", FlatListOf(*m_point));
    EXPECT_EQ(&RecordAt(*m_point, 0), m_point->FlatAttribMap.at("x").AttribInfor);
}

TEST_F(FlatIndex, SpreadsAMemberObjectOutAtItsOffset)
{
    const DescribedClass outer = WithMember(m_direct);
    EXPECT_EQ("inner_x@20 inner_y@24 ", FlatListOf(*outer)) << "the member itself has no entry";
    EXPECT_EQ(&RecordAt(*m_point, 0), outer->FlatAttribMap.at("inner_x").AttribInfor);
    EXPECT_EQ(nullptr, outer->FindAttribInforByFlatName("inner"));
}

TEST_F(FlatIndex, GivesAMemberBehindAPointerItsPath)
{
    for (const CGnlTypeInfor& type :
         {m_pointer, vexa_test::ConstPointer(DT_CLASS, &*m_point), vexa_test::NonNullPointer(DT_CLASS, &*m_point)}) {
        const DescribedClass outer = WithMember(type);
        EXPECT_EQ("inner_x@4>inner inner_y@8>inner ", FlatListOf(*outer)) << type.TypeName();
        EXPECT_EQ(Path{&RecordAt(*outer, 0)}, *outer->FlatAttribMap.at("inner_x").PointerPath);
    }
}

TEST_F(FlatIndex, SpreadsAWrappedMemberOutWithoutTheWrappersOffset)
{
    const CGnlTypeInfor wrapped = vexa_test::MayNull<long>(DT_CLASS, &*m_point);
    ASSERT_EQ(8, wrapped.ValueOffset);
    EXPECT_EQ("inner_x@20 inner_y@24 ", FlatListOf(*WithMember(wrapped)));
}

TEST_F(FlatIndex, ComposesTheNamesOfNestedMembers)
{
    const DescribedClass middle = WithMember(m_direct, "pos");
    const DescribedClass outer = WithMember(Plain(DT_CLASS, &*middle));
    EXPECT_EQ("inner_pos_x@36 inner_pos_y@40 ", FlatListOf(*outer));
}

TEST_F(FlatIndex, KeepsTheOutermostPointerOnly)
{
    const DescribedClass middleDirect = WithMember(m_direct, "pos");
    const DescribedClass middlePointer = WithMember(m_pointer, "pos");
    EXPECT_EQ("inner_pos_x@20>inner inner_pos_y@24>inner ",
              FlatListOf(*WithMember(OwnedPointer(DT_CLASS, &*middleDirect))));
    EXPECT_EQ("inner_pos_x@4>inner inner_pos_y@8>inner ",
              FlatListOf(*WithMember(OwnedPointer(DT_CLASS, &*middlePointer))));
    EXPECT_EQ("inner_pos_x@20 inner_pos_y@24 ", FlatListOf(*WithMember(Plain(DT_CLASS, &*middlePointer))));
}

TEST_F(FlatIndex, AMemberThatPointsToItsOwnClassHasNoEntries)
{
    const DescribedClass node("Node", 16, [](CClassInfor& about) {
        Add(about, "next", 0, OwnedPointer(DT_CLASS, &about));
        Add(about, "value", 8, Plain(DT_INT));
    });
    EXPECT_EQ("value@8 ", FlatListOf(*node));
}

TEST_F(FlatIndex, SpreadsInheritedMembersOut)
{
    const DescribedClass base = WithMember(m_direct);
    const DescribedClass derived(
        "Derived", 128, [](CClassInfor&) {}, base, 100);
    EXPECT_EQ("inner_x@120 inner_y@124 ", FlatListOf(*derived));
}

TEST_F(FlatIndex, FindsAPathJoinedByUnderscoresOrDots)
{
    const DescribedClass middle = WithMember(m_direct, "pos");
    const DescribedClass outer = WithMember(Plain(DT_CLASS, &*middle));
    const CFlatAttribInfor* const entry = &outer->FlatAttribMap.at("inner_pos_x");
    for (const char* name : {"inner_pos_x", "inner.pos.x", "inner_pos.x", "inner.pos_x"}) {
        EXPECT_EQ(entry, outer->FindAttribInforByFlatName(name)) << name;
    }
    for (const char* name : {"", ".", "inner", "inner.pos", "inner..x", "inner.pos.z", ".inner.pos.x", "Inner.pos.x"}) {
        EXPECT_EQ(nullptr, outer->FindAttribInforByFlatName(name)) << name;
    }
}

TEST_F(FlatIndex, FindsANameWithADotOfItsOwnFirst)
{
    const DescribedClass infor("Thing", 16, [](CClassInfor& about) {
        Add(about, "a_b", 0, Plain(DT_INT));
        Add(about, "a.b", 4, Plain(DT_INT));
        Add(about, "c_d", 8, Plain(DT_INT));
    });
    EXPECT_EQ(4U, infor->FindAttribInforByFlatName("a.b")->Offset);
    EXPECT_EQ(0U, infor->FindAttribInforByFlatName("a_b")->Offset);
    EXPECT_EQ(8U, infor->FindAttribInforByFlatName("c.d")->Offset)
        << "a dot finds an underscore of the name itself, too";
}

constexpr const char* kPlainAfterMember = "The class Outer's combination attribute inner_x's sub-attribute path "
                                          "\"inner_x\" has the same name as the existing attribute\n";
constexpr const char* kMemberAfterPlain = "The class Outer's combination attribute inner's sub-attribute path "
                                          "\"inner_x\" has the same name as the existing attribute\n";

TEST_F(FlatIndex, APlainAttributeDeclaredAfterAMemberWinsTheirName)
{
    const std::string logged = LoggedLines([&] {
        const DescribedClass outer("Outer", 64, [&](CClassInfor& about) {
            Add(about, "inner", 16, m_direct);
            Add(about, "inner_x", 40, Plain(DT_SHORT));
        });
        EXPECT_EQ("inner_x@40 inner_y@24 ", FlatListOf(*outer));
        EXPECT_EQ(&RecordAt(*outer, 1), outer->FlatAttribMap.at("inner_x").AttribInfor);
    });
    EXPECT_EQ(kPlainAfterMember, logged);
}

TEST_F(FlatIndex, APlainAttributeDeclaredBeforeAMemberWinsTheirName)
{
    const std::string logged = LoggedLines([&] {
        const DescribedClass outer("Outer", 64, [&](CClassInfor& about) {
            Add(about, "inner_x", 40, Plain(DT_SHORT));
            Add(about, "inner", 16, m_direct);
        });
        EXPECT_EQ("inner_x@40 inner_y@24 ", FlatListOf(*outer));
        EXPECT_EQ(&RecordAt(*outer, 0), outer->FlatAttribMap.at("inner_x").AttribInfor);
    });
    EXPECT_EQ(kMemberAfterPlain, logged);
}

TEST_F(FlatIndex, APlainAttributeThatWinsOverAPointerKeepsThePath)
{
    const std::string logged = LoggedLines([&] {
        const DescribedClass outer("Outer", 64, [&](CClassInfor& about) {
            Add(about, "inner", 16, m_pointer);
            Add(about, "inner_x", 40, Plain(DT_SHORT));
        });
        EXPECT_EQ("inner_x@40>inner inner_y@8>inner ", FlatListOf(*outer));
    });
    EXPECT_EQ(kPlainAfterMember, logged);
}

TEST_F(FlatIndex, OfTwoMembersTheEarlierWinsTheirName)
{
    const DescribedClass underscored("Underscored", 8, [](CClassInfor& about) { Add(about, "b_x", 0, Plain(DT_INT)); });
    const std::string logged = LoggedLines([&] {
        const DescribedClass outer("Outer", 64, [&](CClassInfor& about) {
            Add(about, "a", 0, Plain(DT_CLASS, &*underscored));
            Add(about, "a_b", 16, m_direct);
        });
        EXPECT_EQ("a_b_x@0 a_b_y@24 ", FlatListOf(*outer));
        EXPECT_EQ(&RecordAt(*underscored, 0), outer->FlatAttribMap.at("a_b_x").AttribInfor);
    });
    EXPECT_EQ(
        "The class Outer's combination attribute a_b's sub-attribute path \"a_b_x\" has the same name as the existing "
        "attribute\n",
        logged);
}

TEST_F(FlatIndex, AMemberNamedLikeTheLeafInTheWayReplacesItSilently)
{
    const DescribedClass underscored("Underscored", 8, [](CClassInfor& about) { Add(about, "y_x", 2, Plain(DT_INT)); });
    const auto outerWith = [&](const CGnlTypeInfor& first, const CGnlTypeInfor& second) {
        std::string list;
        EXPECT_EQ("", LoggedLines([&] {
                      const DescribedClass outer("Outer", 64, [&](CClassInfor& about) {
                          Add(about, "x_y", 16, first);
                          Add(about, "x", 32, second);
                      });
                      list = FlatListOf(*outer);
                  }));
        return list;
    };
    const CGnlTypeInfor direct = Plain(DT_CLASS, &*underscored);
    const CGnlTypeInfor pointer = OwnedPointer(DT_CLASS, &*underscored);
    EXPECT_EQ("x_y_x@34 x_y_y@24 ", outerWith(m_direct, direct));
    EXPECT_EQ("x_y_x@2>x x_y_y@24 ", outerWith(m_direct, pointer));
    EXPECT_EQ("x_y_x@34>x_y x_y_y@8>x_y ", outerWith(m_pointer, direct)) << "a path in place stays";
    EXPECT_EQ("x_y_x@2>x x_y_y@8>x_y ", outerWith(m_pointer, pointer));
}

/// A flat entry with every field set, and a path if asked for.
CFlatAttribInfor Entry(const CAttribInfor& record, const char* name, unsigned long offset, bool hasPath)
{
    CFlatAttribInfor entry;
    entry.FlatName = name;
    entry.Offset = offset;
    entry.AttribInfor = &record;
    if (hasPath) entry.PointerPath = new Path{&record};
    return entry;
}

void ExpectEntry(const CFlatAttribInfor& entry, const CAttribInfor& record, bool hasPath)
{
    EXPECT_EQ("source", entry.FlatName);
    EXPECT_EQ(7U, entry.Offset);
    EXPECT_EQ(&record, entry.AttribInfor);
    ASSERT_EQ(hasPath, entry.PointerPath != nullptr);
    if (hasPath) {
        EXPECT_EQ(Path{&record}, *entry.PointerPath);
    }
}

TEST(FlatAttribInfor, IsEmptyByDefault)
{
    const CFlatAttribInfor entry;
    EXPECT_EQ(nullptr, entry.PointerPath);
    EXPECT_EQ(0U, entry.Offset);
    EXPECT_EQ(nullptr, entry.AttribInfor);
    EXPECT_EQ("", entry.FlatName);
}

TEST(FlatAttribInfor, CopiesItsPathDeeply)
{
    const CAttribInfor record;
    const CAttribInfor other;
    for (const bool sourceHasPath : {false, true}) {
        const CFlatAttribInfor source = Entry(record, "source", 7, sourceHasPath);
        const CFlatAttribInfor copy(source);
        ExpectEntry(copy, record, sourceHasPath);
        EXPECT_TRUE(!sourceHasPath || copy.PointerPath != source.PointerPath);
        for (const bool targetHasPath : {false, true}) {
            CFlatAttribInfor target = Entry(other, "target", 1, targetHasPath);
            const Path* const before = target.PointerPath;
            target = source; // the address sanitizer finds a path that is not released
            ExpectEntry(target, record, sourceHasPath);
            EXPECT_TRUE(!sourceHasPath || target.PointerPath != source.PointerPath);
            if (sourceHasPath && targetHasPath) {
                EXPECT_EQ(before, target.PointerPath) << "its own vector is used again";
            }
        }
    }
}

TEST(FlatAttribInfor, AssignmentToItselfChangesNothing)
{
    const CAttribInfor record;
    CFlatAttribInfor entry = Entry(record, "source", 7, true);
    const CFlatAttribInfor& same = entry;
    entry = same;
    ExpectEntry(entry, record, true);
}

} // namespace
