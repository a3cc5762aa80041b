#include <vexa/value.h>

#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "support/value_text.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CRow;
using vexa::CValue;

TEST(Row, IsEmptyAtFirst)
{
    const CRow row;
    EXPECT_EQ(row.Size(), 0U);
    EXPECT_EQ(row.AsString(), "");
}

TEST(Row, OfOneValueIsItsTextAndAComma) { EXPECT_EQ(CRow({5}).AsString(), "5,"); }

TEST(Row, PutsACommaBehindEveryValueInEachFormat)
{
    const CRow row = {5, "Ann", vexa::null, CValue(), 2.5};
    EXPECT_EQ(row.AsString(), "5,Ann,NULL,NULL,2.500000,");
    EXPECT_EQ(row.AsString(ASF_TYPE_AND_VALUE),
              "int: 5,std::string: Ann,vexa::NullType: NULL,unkown type: NULL,double: 2.500000,");
    EXPECT_EQ(row.AsString(ASF_TYPE_ONLY), "int: ,std::string: ,vexa::NullType: ,unkown type: ,double: ,");
    EXPECT_EQ(row.AsString(static_cast<AsStringFormatEnum>(3)), "5,Ann,NULL,NULL,2.500000,");
}

TEST(Row, DoesNotEscapeACommaInAText) { EXPECT_EQ(CRow({"a,b", ""}).AsString(), "a,b,,"); }

TEST(Row, GivesTheValueThatItAppends)
{
    CRow row;
    row.Append(5);
    row.Append() = "Ann";
    row.Append().SetNull(DT_NUMERIC);

    EXPECT_EQ(row.Size(), 3U);
    EXPECT_EQ(Show(row[0]) + ' ' + Show(row[1]) + ' ' + Show(row[2]), "14: 5 41: Ann 47: NULL");
}

TEST(Row, CanAppendAValueOfItsOwn)
{
    CRow row = {"a text that is too long to lie inside a std::string object"};
    for (int i = 0; i < 20; ++i)
        row.Append(row[0]);
    EXPECT_EQ(row.Size(), 21U);
    EXPECT_EQ(row[20], row[0]);
}

TEST(Row, ReservesRoomSoThatItsValuesStayWhereTheyAre)
{
    CRow row;
    row.Reserve(100);
    const CValue* const first = &row.Append(1);
    for (int i = 1; i < 100; ++i)
        row.Append(i);

    EXPECT_EQ(&row[0], first);
    EXPECT_EQ(row.Size(), 100U);
}

TEST(Row, IsWalkedInOrder)
{
    CRow row = {1, 2, 3};
    for (CValue& value : row)
        value.ReadFrom(value.As_int() * 10);

    std::string texts;
    for (const CValue& value : std::as_const(row))
        texts += value.AsString() + ' ';
    EXPECT_EQ(texts, "10 20 30 ");
}

TEST(Row, IsEqualToOneWithTheSameValuesInTheSameOrder)
{
    EXPECT_EQ(CRow({1, "a"}), CRow({1, "a"}));
    EXPECT_NE(CRow({1, "a"}), CRow({"a", 1}));
    EXPECT_NE(CRow({1}), CRow({1, vexa::null}));
    EXPECT_EQ(CRow(), CRow());
}

TEST(Row, IsCopiedDeeplyAndMovedWhole)
{
    CRow row = {"a text that is too long to lie inside a std::string object", vexa::CNumeric(5)};
    const CRow copy = row;
    row[0] = 1;
    row[1].SetNull();
    EXPECT_EQ(copy.AsString(), "a text that is too long to lie inside a std::string object,5,");

    const CRow moved = std::move(row);
    EXPECT_EQ(moved.AsString(), "1,NULL,");
}

TEST(Row, IsEmptyWhenItIsCleared)
{
    CRow row = {1, "a"};
    row.Clear();
    EXPECT_EQ(row, CRow());
}

} // namespace
