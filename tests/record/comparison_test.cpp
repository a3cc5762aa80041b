// Every value type beside every operand that converts to it, through the whole header: each comparison finds its own
// operator, in both directions. The program is also built as C++20, where the compiler turns operands round by itself.

#include <vexa/vexa.h>

#include <string>

#include <gtest/gtest.h>

namespace {

using vexa::CBinary;
using vexa::CDateTime;
using vexa::CNumeric;
using vexa::CValue;
using vexa::MayNull;

/// Both operators in both directions.
template<class Left, class Right>
void ExpectEqual(const Left& left, const Right& right, bool isEqual)
{
    EXPECT_EQ(isEqual, left == right);
    EXPECT_EQ(isEqual, right == left);
    EXPECT_EQ(!isEqual, left != right);
    EXPECT_EQ(!isEqual, right != left);
}

template<class T>
void ExpectValueOf(const T& same, const T& other)
{
    ExpectEqual(CValue(same), same, true);
    ExpectEqual(CValue(same), other, false);
    ExpectEqual(CValue(same), CValue(same), true);
    ExpectEqual(CValue(same), CValue(other), false);
    ExpectEqual(CValue(), same, false);
    ExpectEqual(CValue(vexa::null), same, false);
}

tm TimeOf(int year)
{
    tm time{};
    time.tm_year = year - 1900;
    time.tm_mday = 1;
    return time;
}

TEST(Comparison, ValueBesideEveryBasicType)
{
    ExpectValueOf(true, false);
    ExpectValueOf('a', 'b');
    ExpectValueOf<short>(1, 2);
    ExpectValueOf(5, 6);
    ExpectValueOf(5L, 6L);
    ExpectValueOf(5LL, 6LL);
    ExpectValueOf(1.5F, 2.5F);
    ExpectValueOf(1.5, 2.5);
    ExpectValueOf(1.5L, 2.5L);
    ExpectValueOf<unsigned char>(1, 2);
    ExpectValueOf<unsigned short>(1, 2);
    ExpectValueOf(5U, 6U);
    ExpectValueOf(5UL, 6UL);
    ExpectValueOf(5ULL, 6ULL);
    ExpectValueOf(std::string("a"), std::string("b"));
    ExpectValueOf(CBinary(std::string("a")), CBinary(std::string("b")));
    ExpectValueOf(CNumeric("5"), CNumeric("6"));
    ExpectValueOf(TimeOf(2020), TimeOf(2021));
    ExpectValueOf(CDateTime(5, 0), CDateTime(6, 0));
}

TEST(Comparison, ValueBesideLiteralsAndNull)
{
    const char* const text = "a";
    ExpectEqual(CValue("a"), "a", true);
    ExpectEqual(CValue("a"), text, true);
    ExpectEqual(CValue("a"), "b", false);
    EXPECT_TRUE(5 == CValue(5));
    EXPECT_TRUE(CValue(0) == 0);
    EXPECT_FALSE(CValue(5) == 0);
    EXPECT_FALSE(CValue(5) == 5L) << "another type";
    EXPECT_TRUE(CValue() == vexa::null);
    EXPECT_TRUE(vexa::null != CValue(5));
    EXPECT_TRUE(CValue(4) < CValue(5));
}

TEST(Comparison, NumericBesideEveryOperand)
{
    const CNumeric five("5");
    const char* const text = "5";
    char buffer[] = "5";
    ExpectEqual(five, CNumeric("05.0"), true);
    ExpectEqual(five, std::string("5"), true);
    ExpectEqual(five, std::string("6"), false);
    ExpectEqual(five, "5", true);
    ExpectEqual(five, "6", false);
    ExpectEqual(five, text, true);
    ExpectEqual(five, buffer, true);
    ExpectEqual(five, 5, true);
    ExpectEqual(five, 6, false);
    ExpectEqual(five, 5L, true);
    ExpectEqual(five, static_cast<short>(5), true);
    ExpectEqual(five, '\5', true);
    ExpectEqual(five, true, false);
    ExpectEqual(five, 5.0F, true);
    ExpectEqual(five, 5.0, true);
    ExpectEqual(five, 5.5L, false);
    ExpectEqual(five, CValue(five), true);
    EXPECT_FALSE(five == 0) << "0 is a number, not a text that is missing";
    EXPECT_TRUE(CNumeric("0") == 0);
    EXPECT_TRUE(0 == CNumeric("0.00"));
}

TEST(Comparison, DateTimeBesideEveryOperand)
{
    const tm time = TimeOf(2020);
    const CDateTime date(time);
    EXPECT_TRUE(date == date);
    ExpectEqual(date, time, true);
    ExpectEqual(date, TimeOf(2021), false);
    EXPECT_TRUE(date < TimeOf(2021));
    EXPECT_TRUE(date == std::string("2020-01-01 00:00:00"));
    EXPECT_TRUE(date != std::string("2020-01-01 00:00:01"));
    ExpectEqual(date, CValue(date), true);
}

TEST(Comparison, BinaryBesideEveryOperand)
{
    const CBinary bytes(std::string("ab"));
    ExpectEqual(bytes, CBinary("ab", 2), true);
    ExpectEqual(bytes, std::string("ab"), true);
    ExpectEqual(bytes, std::string("ac"), false);
    ExpectEqual(bytes, CValue(bytes), true);
}

TEST(Comparison, MayNullBesideEveryOperand)
{
    const MayNull<int> five(5);
    EXPECT_TRUE(five == 5);
    EXPECT_TRUE(five != 6);
    EXPECT_TRUE(five == MayNull<int>(5));
    EXPECT_TRUE(five != vexa::null);
    EXPECT_TRUE(MayNull<int>() == vexa::null);
    EXPECT_TRUE(MayNull<std::string>("a") == "a");
    EXPECT_TRUE(MayNull<std::string>("a") != std::string("b"));
    EXPECT_TRUE(MayNull<CNumeric>(CNumeric("5")) == CNumeric("5"));
    EXPECT_TRUE(MayNull<CDateTime>(CDateTime(5, 0)) == CDateTime(5, 0));
}

TEST(Comparison, RecordsBesideTheirLike)
{
    const vexa::CRow row{CValue(1), CValue("a")};
    ExpectEqual(row, vexa::CRow{CValue(1), CValue("a")}, true);
    ExpectEqual(row, vexa::CRow{CValue(1)}, false);
    vexa::CTable table;
    table.AddColumn(vexa::Enum::DT_INT, "id");
    ExpectEqual(table, table, true);
    ExpectEqual(table, vexa::CTable(), false);
    ExpectEqual(table.Columns[0], vexa::CColumn{vexa::Enum::DT_INT, "id"}, true);
}

} // namespace
