// Emptying generic records through a reference.

#include <string>

#include <gtest/gtest.h>

#include <vexa/group.h>
#include <vexa/refrence.h>
#include <vexa/table.h>
#include <vexa/value.h>

#include "support/clearing.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CRefrence;
using vexa_test::Cleared;
using vexa_test::ClearSilently;
using vexa_test::Plain;

TEST(ClearRecord, AGenericClassKeepsItsNamesAndClearsEachValue)
{
    int number = 5;
    std::string text = "abc";
    vexa_test::Wrapped<int> age{0, 30};
    vexa::CGnlClass object;
    object.Add("number", CRefrence(Plain(DT_INT), &number));
    object.Add("text", CRefrence(Plain(DT_STD_STRING), &text));
    object.Add("age", CRefrence(vexa_test::MayNull<int>(DT_INT), &age));
    ClearSilently(Plain(DT_GNL_CLASS), &object);
    ASSERT_EQ(3U, object.Named.size());
    EXPECT_EQ(&number, object.Named.at("number").Address);
    EXPECT_EQ(0, number);
    EXPECT_EQ("", text);
    EXPECT_EQ(1, age.IsNull);
    EXPECT_EQ(30, age.Value);
}

TEST(ClearRecord, AGenericClassIsClearedInTheOrderOfTheNamesAndDeeply)
{
    vexa::CGnlTypeInfor a;
    a.ChangeTypeTo_CustomType("A", 1, nullptr, nullptr, 0);
    vexa::CGnlTypeInfor b;
    b.ChangeTypeTo_CustomType("B", 1, nullptr, nullptr, 0);
    char byte = 0;
    vexa::CGnlClass inner;
    inner.Add("x", CRefrence(a, &byte));
    vexa::CGnlClass outer;
    outer.Add("2", CRefrence(b, &byte));
    outer.Add("1", CRefrence(Plain(DT_GNL_CLASS), &inner));
    EXPECT_EQ(
        "Not supported type A In function CRefrence::Clear()\nNot supported type B In function CRefrence::Clear()\n",
        Cleared(Plain(DT_GNL_CLASS), &outer));
}

TEST(ClearRecord, AReferenceGroupKeepsItsEntriesAndTheirValues)
{
    int number = 5;
    vexa::CReferenceGroup group;
    group.Add("number", CRefrence(Plain(DT_INT), &number));
    group.Add(CRefrence(Plain(DT_INT), &number));
    ClearSilently(Plain(DT_REFERENCE_GROUP), &group);
    EXPECT_EQ(1U, group.Named.size());
    EXPECT_EQ(1U, group.Indexed.size());
    EXPECT_EQ(5, number);
}

TEST(ClearRecord, ARowLosesItsValues)
{
    vexa::CRow row = {1, std::string("abc"), vexa::null};
    ClearSilently(Plain(DT_ROW), &row);
    EXPECT_EQ(0U, row.Size());
    vexa::CRow pointee = {1, 2};
    void* pointer = &pointee;
    ClearSilently(vexa_test::NonNullPointer(DT_ROW), &pointer);
    EXPECT_EQ(0U, pointee.Size());
    EXPECT_EQ(&pointee, pointer);
}

TEST(ClearRecord, ATableLosesRowsAndColumns)
{
    vexa::CTable table;
    table.AddColumn(DT_INT, "number");
    table.AddRow()[0] = 5;
    ClearSilently(Plain(DT_TABLE), &table);
    EXPECT_TRUE(table.Rows.empty());
    EXPECT_TRUE(table.Columns.empty());
}

TEST(ClearRecord, ATaggedValueBecomesNullAndKeepsItsType)
{
    vexa::CValue value(5);
    ClearSilently(Plain(DT_VALUE), &value);
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(DT_INT, value.Type());
}

TEST(ClearRecord, AnOwnedRecordIsFreedAndAConstOneForgotten)
{
    auto* owned = new vexa::CRow{1, 2};
    ClearSilently(vexa_test::OwnedPointer(DT_ROW), &owned);
    EXPECT_EQ(nullptr, owned);
    const vexa::CRow row = {1, 2};
    const vexa::CRow* pointer = &row;
    ClearSilently(vexa_test::ConstPointer(DT_ROW), &pointer);
    EXPECT_EQ(nullptr, pointer);
    EXPECT_EQ(2U, row.Size());
}

} // namespace
