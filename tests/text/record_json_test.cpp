// Values, rows, tables and groups as JSON: what is written, what is read, and what is refused.

#include <vexa/json.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>
#include <vexa/group.h>
#include <vexa/table.h>

#include "support/captured_log.h"
#include "support/value_text.h"

namespace record_json_test {

struct Point {
    int x = 1;
    int y = 2;
};
VEXA_DESCRIBE(Point, x, y)

struct Records {
    int id = 1;
    vexa::CValue value;
    vexa::CRow row;
    vexa::CTable table;
    vexa::CGnlClass generic;
    vexa::CReferenceGroup group;
};
VEXA_DESCRIBE(Records, id, value, row, table, generic, group)

} // namespace record_json_test

namespace {

using namespace record_json_test;
using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CGnlClass;
using vexa::CReferenceGroup;
using vexa::CRow;
using vexa::CTable;
using vexa::CValue;
using vexa::RefOf;

std::string NotSupported(const std::string& type)
{
    return "It is not currently supported to convert " + type + " types to pJson strings\n";
}

/// "code text|log", of a string that held something before.
std::string Written(const vexa::CConstRefrence& ref)
{
    std::string text = "before";
    int code = -1;
    const std::string log = LoggedLines([&] { code = vexa::ToJson(text, ref); });
    return std::to_string(code) + ' ' + text + '|' + log;
}

TEST(RecordJson, CannotHoldAValueARowOrATable)
{
    CValue value = 5;
    CRow row = {1};
    CTable table;
    table.Append({1});
    EXPECT_EQ(Written(RefOf(value)), "262 |" + NotSupported("vexa::CValue"));
    EXPECT_EQ(Written(RefOf(row)), "262 |" + NotSupported("vexa::CRow"));
    EXPECT_EQ(Written(RefOf(table)), "262 |" + NotSupported("vexa::CTable"));
}

TEST(RecordJson, OfANullValueIsEmpty)
{
    CValue value;
    EXPECT_EQ(Written(RefOf(value)), "0 |");
}

TEST(RecordJson, OfAValueAsTheReferenceThatItIsHasItsType)
{
    EXPECT_EQ(Written(CValue("a\"b")), "0 \"a\\\"b\"|");
    EXPECT_EQ(Written(CValue(5)), "0 5|");
}

template<class Record>
void ExpectGroupJson()
{
    Point point;
    std::string text = "a/b";
    int* none = nullptr;
    std::vector<int> numbers = {1, 2};
    Record record;
    EXPECT_EQ(Written(RefOf(record)), "0 {}|");
    record.Add(RefOf(point));
    EXPECT_EQ(Written(RefOf(record)), "0 {}|");
    record.Add("z", RefOf(point));
    record.Add("text", RefOf(text));
    record.Add("none", RefOf(none));
    record.Add("numbers", RefOf(numbers));
    record.Add("a\"\t", RefOf(point.x)); // keys are copied as they are
    EXPECT_EQ(Written(RefOf(record)),
              "0 {\"a\"\t\":1,\"none\":,\"numbers\":[1,2],\"text\":\"a\\/b\",\"z\":{\"x\":1,\"y\":2}}|");
}

TEST(RecordJson, OfAGroupIsAnObjectOfItsNamedEntries)
{
    ExpectGroupJson<CGnlClass>();
    ExpectGroupJson<CReferenceGroup>();
}

TEST(RecordJson, OfGroupsInGroupsIsNested)
{
    int number = 7;
    CReferenceGroup group;
    group.Add("n", RefOf(number));
    CGnlClass inner;
    inner.Add("group", RefOf(group));
    CGnlClass empty;
    CGnlClass outer;
    outer.Add("empty", RefOf(empty));
    outer.Add("inner", RefOf(inner));
    EXPECT_EQ(Written(RefOf(outer)), R"(0 {"empty":{},"inner":{"group":{"n":7}}}|)");
}

TEST(RecordJson, LogsARecordInsideAGroupAndLeavesItOut)
{
    int number = 7;
    CRow row = {1};
    CTable table;
    CValue value = 5;
    CValue null;
    CGnlClass generic;
    generic.Add("a", RefOf(row));
    generic.Add("b", RefOf(table));
    generic.Add("c", RefOf(value));
    generic.Add("d", RefOf(null));
    generic.Add("e", RefOf(number));
    EXPECT_EQ(Written(RefOf(generic)), R"(0 {"a":,"b":,"c":,"d":,"e":7}|)" + NotSupported("vexa::CRow") +
                                           NotSupported("vexa::CTable") + NotSupported("vexa::CValue"));
}

TEST(RecordJson, LogsARecordInsideAClassAndLeavesItOutButSkipsANullValue)
{
    Records records;
    EXPECT_EQ(Written(RefOf(records)), R"(0 {"id":1,"row":,"table":,"generic":{},"group":{}}|)" +
                                           NotSupported("vexa::CRow") + NotSupported("vexa::CTable"));
    records.value = 5;
    EXPECT_EQ(Written(RefOf(records)), R"(0 {"id":1,"value":,"row":,"table":,"generic":{},"group":{}}|)" +
                                           NotSupported("vexa::CValue") + NotSupported("vexa::CRow") +
                                           NotSupported("vexa::CTable"));
}

TEST(RecordJson, RefusesAGroupInsideItself)
{
    CGnlClass generic;
    generic.Add("self", RefOf(generic));
    EXPECT_EQ(Written(RefOf(generic)), "999 |vexa::CGnlClass type is nested in itself or deeper than 1000 levels\n");
}

TEST(RecordJson, IsReadIntoTheValuesThatAGenericClassDesignates)
{
    Point point;
    std::string text = "before";
    int* number = nullptr;
    std::vector<int> numbers = {9};
    CGnlClass inner;
    inner.Add("number", RefOf(number));
    CGnlClass generic;
    generic.Add("point", RefOf(point));
    generic.Add("text", RefOf(text));
    generic.Add("inner", RefOf(inner));
    generic.Add("numbers", RefOf(numbers));

    EXPECT_EQ(vexa::FromJson(generic, R"( { "text" : "x" , "inner":{"number":7},"point":{"y":5}, "numbers":[1,2] } x)"),
              0);
    EXPECT_EQ(Written(RefOf(generic)), R"(0 {"inner":{"number":7},"numbers":[1,2],"point":{"x":0,"y":5},"text":"x"}|)");
    RefOf(number).Clear();
}

TEST(RecordJson, ClearsTheValuesOfAGenericClassBeforeItIsRead)
{
    Point point;
    CGnlClass generic;
    generic.Add("point", RefOf(point));
    EXPECT_EQ(vexa::FromJson(generic, " \t\r\n"), 0);
    EXPECT_EQ(Written(RefOf(generic)), R"(0 {"point":{"x":0,"y":0}}|)");
}

TEST(RecordJson, GivesTheCodesOfAGenericObject)
{
    int number = 0;
    const auto code = [&](const char* text) {
        CGnlClass generic;
        generic.Add("n", RefOf(number));
        return vexa::FromJson(generic, text);
    };
    EXPECT_EQ(code("["), 732);
    EXPECT_EQ(code("{"), 793);
    EXPECT_EQ(code(R"({"n":1,)"), 793);
    EXPECT_EQ(code("{}"), 742);
    EXPECT_EQ(code("{ "), 742);
    EXPECT_EQ(code(R"({"n)"), 751);
    EXPECT_EQ(code(R"({"n")"), 761);
    EXPECT_EQ(code(R"({"n" )"), 761);
    EXPECT_EQ(code(R"({"n"1})"), 761);
    EXPECT_EQ(code(R"({"n": )"), 766);
    EXPECT_EQ(code(R"({"n":1 )"), 776);
    EXPECT_EQ(code(R"({"n":1;)"), 790);
    EXPECT_EQ(code(R"({"unknown":1})"), 790);
}

TEST(RecordJson, CannotBeReadIntoAGroup)
{
    int number = 7;
    CReferenceGroup group;
    group.Add("n", RefOf(number));
    EXPECT_EQ(vexa::FromJson(group, R"({"n":1})"), 956);
    EXPECT_EQ(number, 7);
    EXPECT_EQ(vexa::FromJson(group, ""), 0);
}

TEST(RecordJson, CannotBeReadIntoAValueARowOrATableWhichAreClearedAllTheSame)
{
    CValue value = 5;
    CRow row = {1};
    CTable table;
    table.AddColumn(DT_INT, "id");
    table.Append({1});
    EXPECT_EQ(vexa::FromJson(RefOf(value), "5"), 956);
    EXPECT_EQ(vexa::FromJson(row, "[5]"), 956);
    EXPECT_EQ(vexa::FromJson(table, "[[5]]"), 956);
    EXPECT_EQ(Show(value), "14: NULL");
    EXPECT_EQ(row, CRow());
    EXPECT_EQ(table, CTable());

    Records records;
    EXPECT_EQ(vexa::FromJson(records, R"({"id":4,"value":5})"), 956);
    EXPECT_EQ(records.id, 4);
}

} // namespace
