// Equality and order of generic values.

#include <vexa/value.h>

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/captured_log.h"
#include "support/value_text.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CBinary;
using vexa::CDateTime;
using vexa::CNumeric;
using vexa::CRow;
using vexa::CValue;

TEST(ValueEquality, IsThatOfTypeAndContents)
{
    for (const auto left : STORED_CODES) {
        for (const auto right : STORED_CODES) {
            EXPECT_EQ(Sample(left) == Sample(right), left == right) << left << ' ' << right;
            EXPECT_EQ(Sample(left) != Sample(right), left != right) << left << ' ' << right;
        }
        if (left == DT_NUMERIC) continue;
        CValue other;
        other.ChangeValueTypeEnum(left);
        EXPECT_NE(Sample(left), other) << left;
    }
}

TEST(ValueEquality, OfDecimalNumbersIsTheirOwn)
{
    EXPECT_EQ(CValue(CNumeric(std::string("12.50"))), CValue(CNumeric(std::string("012.5"))));
    EXPECT_NE(CValue(CNumeric(std::string("12.50"))), CValue(CNumeric(std::string("12.51"))));
    EXPECT_EQ(CValue(CNumeric(std::string("12.50"))), CValue(CNumeric())); // as CNumeric has it
}

TEST(ValueEquality, OfNullsDoesNotLookAtTheirTypes)
{
    CValue null;
    null.SetNull(DT_INT);
    EXPECT_EQ(null, CValue());
    EXPECT_EQ(null, vexa::null);
    EXPECT_NE(null, CValue(0));
    EXPECT_NE(CValue(0), null);
}

TEST(ValueEquality, TakesAPlainValueForOneOfItsOwnType)
{
    EXPECT_TRUE(CValue(5) == 5);
    EXPECT_FALSE(CValue(5) == 6);
    EXPECT_FALSE(CValue(5) == 5L);
    EXPECT_TRUE(CValue(5) != 5L);
    EXPECT_TRUE(CValue("Ann") == std::string("Ann"));
    EXPECT_TRUE(CValue(CNumeric(7)) == CNumeric(std::string("7.0")));
}

TEST(ValueEquality, OfANumberThatIsNone)
{
    const CValue value = std::stod("nan");
    EXPECT_NE(value, value);
}

TEST(ValueEquality, ComparesTheStoredTextWithAText)
{
    const CValue value = "Ann";
    EXPECT_FALSE(value != "Ann");
    EXPECT_TRUE(value != "Anna");
    EXPECT_TRUE(value == "Ann");
}

TEST(ValueEquality, TakesANullForAnEmptyText)
{
    CValue value = "Ann";
    value.SetNull();
    EXPECT_TRUE(value == "");
    EXPECT_TRUE(value != "Ann");
}

TEST(ValueEquality, LogsAValueThatIsNoTextAndTakesItForAnEmptyOne)
{
    const CValue value = 5;
    bool isOther = false;
    bool isEmpty = false;
    const std::string log = LoggedLines([&] {
        isOther = value != "5";
        isEmpty = value == "";
    });
    EXPECT_TRUE(isOther);
    EXPECT_TRUE(isEmpty);
    EXPECT_EQ(log, "int type CStdBasicTypeConstRefrence can not be converted to const char*\n"
                   "int type CStdBasicTypeConstRefrence can not be converted to const char*\n");
}

/// Each comes before all that follow it.
void ExpectOrder(const std::vector<CValue>& values)
{
    for (std::size_t i = 0; i < values.size(); ++i) {
        for (std::size_t j = 0; j < values.size(); ++j) {
            EXPECT_EQ(values[i] < values[j], i < j) << Show(values[i]) << " < " << Show(values[j]);
        }
    }
}

TEST(ValueOrder, PutsNullsFirstThenGoesByTypeCode)
{
    std::vector<CValue> values = {CValue()};
    for (const auto code : STORED_CODES)
        values.push_back(Sample(code));
    ExpectOrder(values);
}

TEST(ValueOrder, IsThatOfTheContents)
{
    ExpectOrder({false, true});
    ExpectOrder({'A', '\x7f', static_cast<char>(0x80)});
    ExpectOrder({-5, 0, 7});
    ExpectOrder({-0.5, 0.25, 10.0});
    ExpectOrder({"", "Ann", "Bob"});
    ExpectOrder({CBinary(), CBinary("\x01", 1), CBinary("\x01\x00", 2), CBinary("\x02", 1), CBinary("\xff", 1)});
    ExpectOrder({CDateTime(std::string("2020-01-02 03:04:05")), CDateTime(std::string("2020-01-02 03:04:06"))});
}

TEST(ValueOrder, OfBrokenDownTimesGoesFromTheYearToTheSecond)
{
    const auto time = [](int year, int month, int day, int hour, int minute, int second) {
        tm value{};
        value.tm_year = year;
        value.tm_mon = month;
        value.tm_mday = day;
        value.tm_hour = hour;
        value.tm_min = minute;
        value.tm_sec = second;
        return CValue(value);
    };
    ExpectOrder({time(1, 9, 9, 9, 9, 9), time(2, 1, 9, 9, 9, 9), time(2, 2, 1, 9, 9, 9), time(2, 2, 2, 1, 9, 9),
                 time(2, 2, 2, 2, 1, 9), time(2, 2, 2, 2, 2, 1), time(2, 2, 2, 2, 2, 2)});
}

TEST(ValueOrder, OfDecimalNumbersIsTheirValuesAndNotTheirTexts)
{
    const auto number = [](const char* text) { return CValue(CNumeric(std::string(text))); };
    ExpectOrder({CNumeric(), number("-10"), number("-9.5"), number("-9"), number("0"), number(".05"), number("0.5"),
                 number("9"), number("9.01"), number("10"), number("100"), number("no number")});
    for (const char* const same : {"1", "001", "1.0", "01.000"}) {
        EXPECT_FALSE(number(same) < number("1.00"));
        EXPECT_FALSE(number("1.00") < number(same));
    }
    EXPECT_FALSE(number("-0") < number("0"));
    EXPECT_FALSE(number("0") < number("-0.0"));
}

TEST(ValueOrder, SortsARow)
{
    CRow row = {"b", 3, vexa::null, "a", 1.5, -3};
    std::sort(row.begin(), row.end());
    EXPECT_EQ(row.AsString(), "NULL,-3,3,1.500000,a,b,");
}

} // namespace
