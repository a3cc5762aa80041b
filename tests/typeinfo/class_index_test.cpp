// The indexes over a class's attributes that look one record up: names, attribute IDs, union selector values.

#include <cstddef>
#include <string>

#include <gtest/gtest.h>

#include <vexa/class_infor.h>

#include "support/captured_log.h"
#include "support/described_class.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CAttribIDMap;
using vexa::CAttribInfor;
using vexa::CClassInfor;
using vexa_test::Add;
using vexa_test::AddUnionMember;
using vexa_test::DescribedClass;
using vexa_test::ListOf;
using vexa_test::LoggedLines;
using vexa_test::Plain;
using vexa_test::RecordAt;

static_assert(sizeof(CAttribIDMap) == 24 + 48);

TEST(AttribIDMap, HasTheDirectTableBeforeTheTree)
{
    const CAttribIDMap map;
    EXPECT_EQ(static_cast<const void*>(&map), &map.DirectTable);
    EXPECT_EQ(reinterpret_cast<const char*>(&map) + 24, reinterpret_cast<const char*>(&map.OtherIDs));
}

/// A map, the class that it belongs to, and two records for it.
class IDMap : public testing::Test {
protected:
    IDMap()
    {
        m_owner.Name = "Thing";
        m_first.Name = "first";
        m_second.Name = "second";
    }

    std::string AddBoth(short key)
    {
        m_map.AddAttrib(m_owner, key, &m_first);
        return LoggedLines([&] { m_map.AddAttrib(m_owner, key, &m_second); });
    }

    CClassInfor m_owner;
    CAttribInfor m_first;
    CAttribInfor m_second;
    CAttribIDMap m_map;
};

TEST_F(IDMap, Keys0To63AreInTheDirectTable)
{
    m_map.AddAttrib(m_owner, 0, &m_first);
    EXPECT_EQ(1U, m_map.DirectTable.size());
    m_map.AddAttrib(m_owner, 63, &m_second);
    EXPECT_EQ(64U, m_map.DirectTable.size());
    EXPECT_TRUE(m_map.OtherIDs.empty());
    EXPECT_EQ(&m_first, m_map.FindAttrib(0));
    EXPECT_EQ(&m_second, m_map.FindAttrib(63));
    for (short key = 1; key < 63; ++key)
        EXPECT_EQ(nullptr, m_map.FindAttrib(key)) << key;
}

TEST_F(IDMap, TheDirectTableIsAsLongAsItsHighestKeyNeeds)
{
    m_map.AddAttrib(m_owner, 5, &m_first);
    EXPECT_EQ(6U, m_map.DirectTable.size());
    m_map.AddAttrib(m_owner, 2, &m_second);
    EXPECT_EQ(6U, m_map.DirectTable.size());
}

TEST_F(IDMap, EveryOtherKeyIsInTheTree)
{
    std::size_t count = 0;
    for (const int number : {64, 200, 32767, -1, -3, -32768}) {
        const auto key = static_cast<short>(number);
        m_map.AddAttrib(m_owner, key, &m_first);
        EXPECT_EQ(++count, m_map.OtherIDs.size());
        EXPECT_EQ(&m_first, m_map.FindAttrib(key)) << number;
    }
    EXPECT_TRUE(m_map.DirectTable.empty());
    EXPECT_EQ(nullptr, m_map.FindAttrib(65));
    EXPECT_EQ(nullptr, m_map.FindAttrib(-2));
}

TEST_F(IDMap, AKeyBeyondTheDirectTableHasNoRecord)
{
    EXPECT_EQ(nullptr, m_map.FindAttrib(0));
    m_map.AddAttrib(m_owner, 5, &m_first);
    EXPECT_EQ(nullptr, m_map.FindAttrib(6));
    EXPECT_EQ(nullptr, m_map.FindAttrib(63));
}

TEST_F(IDMap, TheLaterRecordOfAKeyWinsAndTheConflictIsLogged)
{
    EXPECT_EQ("The class Thing's attribute second's attribID \"5\" is conflict with attribute first.\n", AddBoth(5));
    EXPECT_EQ("The class Thing's attribute second's attribID \"0\" is conflict with attribute first.\n", AddBoth(0));
    EXPECT_EQ("The class Thing's attribute second's attribID \"63\" is conflict with attribute first.\n", AddBoth(63));
    EXPECT_EQ("The class Thing's attribute second's attribID \"64\" is conflict with attribute first.\n", AddBoth(64));
    EXPECT_EQ("The class Thing's attribute second's attribID \"200\" is conflict with attribute first.\n",
              AddBoth(200));
    EXPECT_EQ("The class Thing's attribute second's attribID \"-3\" is conflict with attribute first.\n", AddBoth(-3));
    for (const short key : {5, 0, 63, 64, 200, -3})
        EXPECT_EQ(&m_second, m_map.FindAttrib(key)) << key;
}

TEST(ClassIndex, FindsEveryRecordByName)
{
    const DescribedClass infor("Thing", 8, [](CClassInfor& about) {
        Add(about, "b", 0, Plain(DT_INT));
        Add(about, "a", 4, Plain(DT_INT));
    });
    ASSERT_EQ(2U, infor->AttribNameMap.size());
    EXPECT_EQ(&RecordAt(*infor, 0), infor->AttribNameMap.at("b"));
    EXPECT_EQ(&RecordAt(*infor, 1), infor->AttribNameMap.at("a"));
}

TEST(ClassIndex, RemovesALaterRecordOfTheSameNameSilently)
{
    const std::string logged = LoggedLines([] {
        const DescribedClass infor("Thing", 16, [](CClassInfor& about) {
            Add(about, "a", 0, Plain(DT_INT), 1);
            Add(about, "a", 4, Plain(DT_LONG), 2);
            Add(about, "b", 8, Plain(DT_INT), 3);
            Add(about, "a", 12, Plain(DT_INT), 1);
        });
        EXPECT_EQ("a@0 b@8 ", ListOf(*infor));
        EXPECT_EQ(3, RecordAt(*infor, 1).Sequence) << "sequence numbers stay";
        EXPECT_EQ(&RecordAt(*infor, 0), infor->AttribNameMap.at("a"));
        EXPECT_EQ(&RecordAt(*infor, 0), infor->FlatAttribMap.at("a").AttribInfor);
        EXPECT_EQ(&RecordAt(*infor, 0), infor->AttribIDMap().FindAttrib(1));
        EXPECT_EQ(nullptr, infor->AttribIDMap().FindAttrib(2)) << "a removed record has no ID either";
    });
    EXPECT_EQ("", logged);
}

TEST(ClassIndex, FindsRecordsByTheirIDs)
{
    const DescribedClass infor("Thing", 24, [](CClassInfor& about) {
        Add(about, "zero", 0, Plain(DT_INT), 0);
        Add(about, "last", 4, Plain(DT_INT), 63);
        Add(about, "first", 8, Plain(DT_INT), 64);
        Add(about, "far", 12, Plain(DT_INT), 200);
        Add(about, "none", 16, Plain(DT_INT));
        Add(about, "below", 20, Plain(DT_INT), -3);
    });
    const CAttribIDMap& map = infor->AttribIDMap();
    EXPECT_EQ(infor->IDMap, &map);
    EXPECT_EQ(&RecordAt(*infor, 0), map.FindAttrib(0));
    EXPECT_EQ(&RecordAt(*infor, 1), map.FindAttrib(63));
    EXPECT_EQ(&RecordAt(*infor, 2), map.FindAttrib(64));
    EXPECT_EQ(&RecordAt(*infor, 3), map.FindAttrib(200));
    EXPECT_EQ(nullptr, map.FindAttrib(-1)) << "-1 stands for no ID";
    EXPECT_EQ(nullptr, map.FindAttrib(-3)) << "and so does every other negative one";
    EXPECT_EQ(2U, map.OtherIDs.size());
}

TEST(ClassIndex, HasNoMapOfItsOwnWithoutIDsAndUnions)
{
    const DescribedClass infor("Thing", 8, [](CClassInfor& about) { Add(about, "a", 0, Plain(DT_INT)); });
    EXPECT_EQ(nullptr, infor->IDMap);
    EXPECT_EQ(nullptr, infor->UnionEnumMap);
}

TEST(ClassIndex, OfTwoAttributesWithOneIDTheLaterIsFoundAndBothStayInTheList)
{
    const std::string logged = LoggedLines([] {
        const DescribedClass infor("Thing", 8, [](CClassInfor& about) {
            Add(about, "first", 0, Plain(DT_INT), 5);
            Add(about, "second", 4, Plain(DT_INT), 5);
        });
        EXPECT_EQ(&RecordAt(*infor, 1), infor->AttribIDMap().FindAttrib(5));
        EXPECT_EQ("first@0 second@4 ", ListOf(*infor));
    });
    EXPECT_EQ("The class Thing's attribute second's attribID \"5\" is conflict with attribute first.\n", logged);
}

TEST(ClassIndex, ADerivedAttributeTakesTheIDOfABaseAttributeOver)
{
    const DescribedClass base("Base", 8, [](CClassInfor& about) { Add(about, "inherited", 0, Plain(DT_INT), 300); });
    const std::string logged = LoggedLines([&] {
        const DescribedClass infor(
            "Thing", 16, [](CClassInfor& about) { Add(about, "own", 8, Plain(DT_INT), 300); }, base, 0);
        EXPECT_EQ(&RecordAt(*infor, 1), infor->AttribIDMap().FindAttrib(300));
    });
    EXPECT_EQ("The class Thing's attribute own's attribID \"300\" is conflict with attribute inherited.\n", logged);
    EXPECT_EQ(&RecordAt(*base, 0), base->AttribIDMap().FindAttrib(300));
}

TEST(ClassIndex, FindsUnionMembersByTheirSelectorValues)
{
    const DescribedClass infor("Thing", 16, [](CClassInfor& about) {
        const CAttribInfor& kind = Add(about, "kind", 0, Plain(DT_SHORT), 1);
        AddUnionMember(about, "code", 8, Plain(DT_INT), kind, 0);
        AddUnionMember(about, "rate", 8, Plain(DT_DOUBLE), kind, -3);
        AddUnionMember(about, "big", 8, Plain(DT_LONG), kind, 200);
    });
    const CAttribIDMap& map = infor->UnionAttribEnumMap();
    EXPECT_EQ(infor->UnionEnumMap, &map);
    EXPECT_EQ(&RecordAt(*infor, 1), map.FindAttrib(0));
    EXPECT_EQ(&RecordAt(*infor, 2), map.FindAttrib(-3));
    EXPECT_EQ(&RecordAt(*infor, 3), map.FindAttrib(200));
    EXPECT_EQ(nullptr, map.FindAttrib(1)) << "an attribute ID is no selector value";
}

TEST(ClassIndex, AConflictOfSelectorValuesIsLoggedInTheSameWords)
{
    const std::string logged = LoggedLines([] {
        const DescribedClass infor("Thing", 16, [](CClassInfor& about) {
            const CAttribInfor& kind = Add(about, "kind", 0, Plain(DT_SHORT));
            AddUnionMember(about, "code", 8, Plain(DT_INT), kind, 3);
            AddUnionMember(about, "rate", 8, Plain(DT_DOUBLE), kind, 3);
        });
        EXPECT_EQ(&RecordAt(*infor, 2), infor->UnionAttribEnumMap().FindAttrib(3));
    });
    EXPECT_EQ("The class Thing's attribute rate's attribID \"3\" is conflict with attribute code.\n", logged);
}

} // namespace
