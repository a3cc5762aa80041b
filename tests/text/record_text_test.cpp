// The text of values, rows, tables and groups, by themselves and inside other values.

#include <vexa/text.h>

#include <list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>
#include <vexa/group.h>
#include <vexa/table.h>

#include "support/captured_log.h"
#include "support/value_text.h"

namespace record_text_test {

struct Point {
    int x = 1;
    int y = 2;
};
VEXA_DESCRIBE(Point, x, y)

struct Records {
    vexa::CValue value;
    vexa::CRow row;
    vexa::CTable table;
    vexa::CGnlClass generic;
    vexa::CReferenceGroup group;
};
VEXA_DESCRIBE(Records, value, row, table, generic, group)

} // namespace record_text_test

namespace {

using namespace record_text_test;
using namespace vexa::Enum;
using namespace vexa_test;
using vexa::AsString;
using vexa::CGnlClass;
using vexa::CReferenceGroup;
using vexa::CRow;
using vexa::CTable;
using vexa::CValue;
using vexa::RefOf;

CTable People()
{
    CTable table;
    table.AddColumn(DT_INT, "id");
    table.AddColumn(DT_STD_STRING, "name");
    table.Append({1, "Ann"});
    table.Append({2, "Bob"});
    return table;
}

TEST(ValueText, IsThatOfWhatItHolds)
{
    for (const auto code : STORED_CODES) {
        const CValue value = Sample(code);
        const auto ref = RefOf(value);
        EXPECT_EQ(AsString(ref), SampleText(code));
        EXPECT_EQ(AsString(ref, ASF_TYPE_AND_VALUE), "vexa::CValue: " + SampleText(code));
        EXPECT_EQ(AsString(ref, ASF_TYPE_ONLY), "vexa::CValue: ");
        EXPECT_EQ(AsString(value, ASF_TYPE_AND_VALUE), value.TypeName() + ": " + SampleText(code));
    }
}

TEST(ValueText, OfANullIsNull)
{
    CValue value = 5;
    value.SetNull();
    EXPECT_EQ(AsString(RefOf(value)), "NULL");
    EXPECT_EQ(AsString(RefOf(value), ASF_TYPE_AND_VALUE), "vexa::CValue: NULL");
    EXPECT_EQ(AsString(RefOf(value), ASF_TYPE_ONLY), "vexa::CValue: ");
    EXPECT_EQ(AsString(CValue()), "NULL");
}

TEST(ValueText, OfAnOwnedCustomTypeIsLoggedAndLeftOut)
{
    CValue value = 5;
    value.TypeInfor.ChangeTypeTo_CustomType("Money", 8, nullptr, nullptr, 7);
    std::string text;
    const std::string log = LoggedLines([&] { text = AsString(RefOf(value)); });
    EXPECT_EQ(text, "");
    EXPECT_EQ(log, "It is not currently supported to convert Money types to strings\n");
}

TEST(RowText, IsItsOwnTextBehindAHeader)
{
    const CRow row = {5, "Ann"};
    EXPECT_EQ(AsString(row), "5,Ann,");
    EXPECT_EQ(AsString(row, ASF_TYPE_AND_VALUE), "vexa::CRow: int: 5,std::string: Ann,");
    EXPECT_EQ(AsString(row, ASF_TYPE_ONLY), "vexa::CRow: ");
    EXPECT_EQ(AsString(CRow(), ASF_TYPE_AND_VALUE), "vexa::CRow: ");
}

TEST(TableText, IsALineForEachRow) { EXPECT_EQ(AsString(People()), "\n- 1,Ann,\n- 2,Bob,"); }

TEST(TableText, WithTypesBeginsWithItsColumns)
{
    EXPECT_EQ(AsString(People(), ASF_TYPE_AND_VALUE), "vexa::CTable: "
                                                      "\nint id, std::string name"
                                                      "\n  - int: 1,std::string: Ann,"
                                                      "\n  - int: 2,std::string: Bob,");
    EXPECT_EQ(AsString(People(), ASF_TYPE_ONLY), "vexa::CTable: ");
}

TEST(TableText, OfAnUnknownFormatIsThatOfTheValues)
{
    EXPECT_EQ(AsString(People(), static_cast<AsStringFormatEnum>(3)), "\n- 1,Ann,\n- 2,Bob,");
}

TEST(TableText, OfATableWithoutColumnsOrRowsIsShorter)
{
    CTable noColumns;
    noColumns.Append({1});
    CTable noRows;
    noRows.AddColumn(DT_INT, "id");
    EXPECT_EQ(AsString(noColumns, ASF_TYPE_AND_VALUE), "vexa::CTable: \n  - int: 1,");
    EXPECT_EQ(AsString(noRows, ASF_TYPE_AND_VALUE), "vexa::CTable: \nint id");
    EXPECT_EQ(AsString(noRows), "");
    EXPECT_EQ(AsString(CTable(), ASF_TYPE_AND_VALUE), "vexa::CTable: ");
}

TEST(TableText, NamesColumnsOfBasicTypesOnly)
{
    CTable table;
    for (unsigned int code = 0; code < 256; ++code)
        table.AddColumn(static_cast<DataTypeEnum>(code), "c");
    std::string expected = "vexa::CTable: ";
    for (unsigned int code = 0; code < 256; ++code) {
        const bool isBasic = code >= 11 && code <= 52;
        expected += (code == 0 ? "\n" : ", ") + (isBasic ? vexa::CGnlTypeInfor(code).TypeName() : "unkown type") + " c";
    }
    EXPECT_EQ(AsString(table, ASF_TYPE_AND_VALUE), expected);
}

TEST(TableText, LooksAtAllBitsOfAColumnsType)
{
    CTable table;
    table.AddColumn(static_cast<DataTypeEnum>(0x100 + vexa::Enum::DT_INT), "c");
    table.AddColumn(static_cast<DataTypeEnum>(0x80000000U + vexa::Enum::DT_INT), "d");
    EXPECT_EQ(AsString(table, ASF_TYPE_AND_VALUE), "vexa::CTable: \nunkown type c, unkown type d");
}

TEST(RecordText, OfMembersIsIndentedLikeAnyOther)
{
    int number = 7;
    Records records;
    records.value = 2.5;
    records.row = {5, vexa::null};
    records.table = People();
    records.generic.Add("n", RefOf(number));
    records.group.Add(RefOf(number));

    EXPECT_EQ(AsString(records), "\nvalue: 2.500000\nrow: 5,NULL,\ntable: \n  - 1,Ann,\n  - 2,Bob,"
                                 "\ngeneric: \n  n: 7\ngroup: \n  column 0: 7");
    EXPECT_EQ(AsString(records, ASF_TYPE_AND_VALUE), "Records: "
                                                     "\n  vexa::CValue value: 2.500000"
                                                     "\n  vexa::CRow row: int: 5,vexa::NullType: NULL,"
                                                     "\n  vexa::CTable table: "
                                                     "\nint id, std::string name"
                                                     "\n    - int: 1,std::string: Ann,"
                                                     "\n    - int: 2,std::string: Bob,"
                                                     "\n  vexa::CGnlClass generic: "
                                                     "\n    int n: 7"
                                                     "\n  vexa::CReferenceGroup group: "
                                                     "\n    int column 0: 7");
}

TEST(RecordText, OfElementsStandsBehindTheirDashes)
{
    int number = 7;
    Point point;
    const std::vector<CRow> rows = {{1, "a"}, {2}};
    const std::vector<CTable> tables = {People(), CTable()};
    const std::list<CValue> values = {1, vexa::null, "a"};
    CReferenceGroup group;
    group.Add("p", RefOf(point));
    group.Add("q", RefOf(number));
    group.Add(RefOf(number));
    group.Add(RefOf(number));

    EXPECT_EQ(AsString(rows), "\n- 1,a,\n- 2,");
    EXPECT_EQ(AsString(tables), "\n- - 1,Ann,- 2,Bob,\n- ");
    EXPECT_EQ(AsString(tables, ASF_TYPE_AND_VALUE),
              "std::vector<vexa::CTable>: \n  - \nint id, std::string name- int: 1,std::string: Ann,"
              "- int: 2,std::string: Bob,\n  - ");
    EXPECT_EQ(AsString(values), "\n- 1\n- NULL\n- a");
    // The first indexed entry stays on the line that it finds, also behind named ones.
    EXPECT_EQ(AsString(std::vector<CReferenceGroup>{group}), "\n- p: x: 1\n    y: 2\n  q: 7column 0: 7\n  column 1: 7");
}

template<class Record>
void ExpectGroupText(const std::string& type)
{
    Point point;
    std::string name = "Ann";
    int* none = nullptr;
    Record record;
    record.Add("point", RefOf(point));
    record.Add("name", RefOf(name));
    record.Add(RefOf(none));

    const std::string values = "\nname: Ann\npoint: \n  x: 1\n  y: 2\ncolumn 0: NULL";
    const std::string typed =
        "\n  std::string name: Ann\n  Point point: \n    int x: 1\n    int y: 2\n  int* column 0: NULL";
    const std::string typedAgain =
        "\nstd::string name: Ann\nPoint point: \n  int x: 1\n  int y: 2\nint* column 0: NULL";
    EXPECT_EQ(record.AsString(), values);
    EXPECT_EQ(AsString(record), values);
    EXPECT_EQ(record.AsString(ASF_TYPE_AND_VALUE), type + ": " + typed + typedAgain);
    EXPECT_EQ(AsString(record, ASF_TYPE_AND_VALUE), type + ": " + typed);
    EXPECT_EQ(record.AsString(ASF_TYPE_ONLY), type + ": \n  std::string name: \n  Point point: \n  int* column 0: "
                                                     "\nstd::string name: \nPoint point: \nint* column 0: ");
    EXPECT_EQ(AsString(record, ASF_TYPE_ONLY), type + ": ");
    EXPECT_EQ(record.AsString(static_cast<AsStringFormatEnum>(3)), values);
    EXPECT_EQ(Record().AsString(), "");
    EXPECT_EQ(Record().AsString(ASF_TYPE_AND_VALUE), type + ": ");
}

TEST(GroupText, IsALineForEachEntryAndWithTypesTwice)
{
    ExpectGroupText<CGnlClass>("vexa::CGnlClass");
    ExpectGroupText<CReferenceGroup>("vexa::CReferenceGroup");
}

TEST(GroupText, OfRecordsInsideIsIndented)
{
    int number = 7;
    CRow row = {1};
    CTable table = People();
    CValue value = "v";
    CReferenceGroup inner;
    inner.Add("n", RefOf(number));
    CGnlClass outer;
    outer.Add("inner", RefOf(inner));
    outer.Add("row", RefOf(row));
    outer.Add("table", RefOf(table));
    outer.Add("value", RefOf(value));

    EXPECT_EQ(outer.AsString(), "\ninner: \n  n: 7\nrow: 1,\ntable: \n  - 1,Ann,\n  - 2,Bob,\nvalue: v");
}

TEST(GroupText, LeavesAnEntryInsideItselfOutAndLogsIt)
{
    int number = 7;
    CReferenceGroup group;
    group.Add("number", RefOf(number));
    group.Add("self", RefOf(group));
    std::string text;
    const std::string log = LoggedLines([&] { text = AsString(group); });

    EXPECT_EQ(text, "\nnumber: 7\nself: ");
    EXPECT_EQ(log, "vexa::CReferenceGroup type is nested in itself or deeper than 1000 levels\n");
}

TEST(GroupText, LogsAnEntryWithoutTextAndGoesOn)
{
    int number = 7;
    CGnlClass generic;
    generic.Add("a", vexa::CConstRefrence(vexa::CGnlTypeInfor(DT_VOID), &number));
    generic.Add("b", RefOf(number));
    std::string text;
    const std::string log = LoggedLines([&] { text = generic.AsString(); });

    EXPECT_EQ(text, "\na: \nb: 7");
    EXPECT_EQ(log, "It is not currently supported to convert void types to strings\n");
}

} // namespace
