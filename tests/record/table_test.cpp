#include <vexa/table.h>

#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "support/value_text.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CColumn;
using vexa::CRow;
using vexa::CTable;
using vexa::CValue;

CTable People()
{
    CTable table;
    table.AddColumn(DT_INT, "id");
    table.AddColumn(DT_STD_STRING, "name");
    table.Append({1, "Ann"});
    table.Append({2, "Bob"});
    return table;
}

TEST(Table, IsEmptyAtFirst)
{
    const CTable table;
    EXPECT_TRUE(table.Rows.empty());
    EXPECT_TRUE(table.Columns.empty());
    EXPECT_EQ(table.AsString(), "");
}

TEST(Table, IsItsRowsWithoutItsColumns)
{
    EXPECT_EQ(People().AsString(), "1,Ann,\n2,Bob,\n");
    EXPECT_EQ(People().AsString(ASF_TYPE_AND_VALUE), "int: 1,std::string: Ann,\nint: 2,std::string: Bob,\n");
    EXPECT_EQ(People().AsString(ASF_TYPE_ONLY), "int: ,std::string: ,\nint: ,std::string: ,\n");
}

TEST(Table, OfColumnsOnlyHasNoText)
{
    CTable table;
    table.AddColumn(DT_INT, "id");
    EXPECT_EQ(table.AsString(), "");
    EXPECT_EQ(table.AsString(ASF_TYPE_AND_VALUE), "");
}

TEST(Table, AddsARowOfNullsOfTheColumnsTypes)
{
    CTable table = People();
    table.AddColumn(DT_CONST_CHAR_PTR, "text");
    table.AddColumn(DT_CLASS, "none");
    CRow& row = table.AddRow();

    std::string values;
    for (const CValue& value : row)
        values += Show(value) + ", ";
    EXPECT_EQ(values, "14: NULL, 41: NULL, 41: NULL, 0: NULL, ");
    EXPECT_EQ(&row, &table.Rows.back());
}

TEST(Table, FindsAColumnByItsName)
{
    CTable table = People();
    table.AddColumn(DT_LONG, "name");

    EXPECT_EQ(table.ColumnIndex("id"), 0U);
    EXPECT_EQ(table.ColumnIndex("name"), 1U);
    EXPECT_EQ(table.ColumnIndex("Name"), CTable::NO_COLUMN);
    EXPECT_EQ(table.ColumnIndex(""), CTable::NO_COLUMN);
}

TEST(Table, FindsAValueByRowAndName)
{
    const CTable table = People();
    EXPECT_EQ(Show(table.Value(0, "id")), "14: 1");
    EXPECT_EQ(Show(table.Value(1, "name")), "41: Bob");
    EXPECT_EQ(&table.Value(1, "name"), &table.Rows[1][1]);
}

TEST(Table, GivesTheSameNullForEveryValueThatIsNotThere)
{
    CTable table = People();
    table.Append({3});

    const CValue& noName = table.Value(2, "name");
    EXPECT_EQ(Show(noName), "0: NULL");
    EXPECT_EQ(&table.Value(3, "id"), &noName);
    EXPECT_EQ(&table.Value(0, "age"), &noName);
    EXPECT_EQ(&CTable().Value(0, ""), &noName);
}

TEST(Table, ReservesRoomSoThatItsRowsStayWhereTheyAre)
{
    CTable table;
    table.Reserve(50);
    const CRow* const first = &table.Append({1});
    for (int i = 1; i < 50; ++i)
        table.AddRow();

    EXPECT_EQ(&table.Rows[0], first);
    EXPECT_EQ(table.Rows.size(), 50U);
}

TEST(Table, IsWalkedRowByRow)
{
    CTable table = People();
    for (CRow& row : table)
        row[0] = row[0].As_int() + 10;

    std::string texts;
    for (const CRow& row : std::as_const(table))
        texts += row.AsString() + ' ';
    EXPECT_EQ(texts, "11,Ann, 12,Bob, ");
}

TEST(Table, IsEqualToOneWithTheSameColumnsAndRows)
{
    CTable renamed = People();
    renamed.Columns[0].Name = "ID";
    CTable retyped = People();
    retyped.Columns[0].DataType = DT_LONG;
    CTable shorter = People();
    shorter.Rows.pop_back();

    EXPECT_EQ(People(), People());
    EXPECT_NE(People(), renamed);
    EXPECT_NE(People(), retyped);
    EXPECT_NE(People(), shorter);
    EXPECT_EQ((CColumn{DT_INT, "id"}), People().Columns[0]);
}

TEST(Table, IsCopiedDeeplyAndMovedWhole)
{
    CTable table = People();
    const CTable copy = table;
    table.Rows[0][1] = "Eve";
    table.Columns[0].Name = "number";
    EXPECT_EQ(copy, People());

    const CTable moved = std::move(table);
    EXPECT_EQ(moved.AsString(), "1,Eve,\n2,Bob,\n");
    EXPECT_EQ(moved.ColumnIndex("number"), 0U);
}

TEST(Table, HasNeitherRowsNorColumnsWhenItIsCleared)
{
    CTable table = People();
    table.Clear();
    EXPECT_EQ(table, CTable());
}

} // namespace
