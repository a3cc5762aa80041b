#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/vexa.h>

#include "support/problem_lines.h"

// Rows, tables and the records of references are read by what the text holds, or by what they refer to.

namespace recorded {

struct Point {
    int x = 1;
    int y = 2;
};
VEXA_DESCRIBE(Point, x, y)
struct Holder {
    vexa::CGnlClass object;
    vexa::CReferenceGroup group;
};
VEXA_DESCRIBE(Holder, object, group)

} // namespace recorded

namespace {

using recorded::Holder;
using recorded::Point;
using vexa::CReadPolicy;
using vexa::CTable;

template<class T>
std::string Read(T& value, const std::string& text, const CReadPolicy& policy = {})
{
    return test::ProblemsOf(
        value, [&](T& object, vexa::CReport& report) { return vexa::ReadJson(object, text, report, policy); });
}

/// The same in pieces of one byte.
template<class T>
std::string ReadBytes(T& value, const std::string& text)
{
    std::size_t next = 0;
    vexa::CReport report;
    const vexa::InputFunction input = [&]() -> std::string_view {
        return next < text.size() ? std::string_view(&text[next++], 1) : std::string_view();
    };
    return vexa::ReadJson(value, input, report) && report.IsEmpty() ? "" : test::LinesOf(report);
}

/// The columns with their types, then the JSON of the rows.
std::string TextOf(const CTable& table)
{
    std::string text;
    for (const vexa::CColumn& column : table.Columns)
        text += column.Name + ":" + std::to_string(column.DataType) + " ";
    return text + vexa::WriteJson(table);
}

constexpr char ALL[] = R"([null, true, -5, 18446744073709551615, 1.0, 1e2, "text", 99999999999999999999])";

TEST(ReadRecords, ARowHoldsEachValueByItsKind)
{
    for (const bool isWhole : {true, false}) {
        vexa::CRow row{1, 2};
        ASSERT_EQ("", isWhole ? Read(row, ALL) : ReadBytes(row, ALL));
        ASSERT_EQ(8U, row.Size());
        EXPECT_TRUE(row[0].IsNull());
        EXPECT_EQ(vexa::CValue(true), row[1]);
        EXPECT_EQ(vexa::CValue(-5L), row[2]);
        EXPECT_EQ(vexa::CValue(18446744073709551615UL), row[3]);
        EXPECT_EQ(vexa::CValue(1.0), row[4]);
        EXPECT_EQ(vexa::Enum::DT_DOUBLE, row[4].Type());
        EXPECT_EQ(vexa::CValue(100.0), row[5]);
        EXPECT_EQ(vexa::CValue(std::string("text")), row[6]);
        EXPECT_EQ(vexa::CValue(1e20), row[7]);
    }
}

TEST(ReadRecords, ARowTakesSingleValuesOnly)
{
    vexa::CRow row;
    EXPECT_EQ("20 4+1 1:5 path=[1] pointer=/1 expected=a single value found=an array excerpt=[1, [2], {}, 1e999, 5]\n"
              "20 9+1 1:10 path=[2] pointer=/2 expected=a single value found=an object "
              "excerpt=[1, [2], {}, 1e999, 5]\n"
              "21 13+5 1:14 path=[3] pointer=/3 expected=a number that a double can hold found=1e999 "
              "excerpt=[1, [2], {}, 1e999, 5]\n",
              Read(row, "[1, [2], {}, 1e999, 5]"));
    EXPECT_EQ("[1,null,null,null,5]", vexa::WriteJson(row));
    EXPECT_EQ("20 0+1 1:1 expected=an array found=an object excerpt={}\n", Read(row, "{}"));
    EXPECT_EQ("[1,null,null,null,5]", vexa::WriteJson(row));
    EXPECT_EQ("", Read(row, "[]"));
    EXPECT_EQ(0U, row.Size());
}

TEST(ReadRecords, ATableHasTheColumnsInTheOrderOfTheirFirstAppearance)
{
    using namespace vexa::Enum;
    constexpr char TEXT[] = R"([{"b": null, "a": "x"}, {"c": 1.5}, {}, {"a": null, "b": 7, "c": true}])";
    for (const bool isWhole : {true, false}) {
        CTable table;
        table.AddColumn(DT_INT, "old");
        table.Append({1});
        ASSERT_EQ("", isWhole ? Read(table, TEXT) : ReadBytes(table, TEXT));
        EXPECT_EQ("b:" + std::to_string(DT_LONG) + " a:" + std::to_string(DT_STD_STRING) +
                      " c:" + std::to_string(DT_DOUBLE) +
                      R"( [{"b":null,"a":"x","c":null},{"b":null,"a":null,"c":1.5},)"
                      R"({"b":null,"a":null,"c":null},{"b":7,"a":null,"c":true}])",
                  TextOf(table));
        for (const vexa::CRow& row : table)
            EXPECT_EQ(3U, row.Size());
        CTable again;
        ASSERT_EQ("", Read(again, vexa::WriteJson(table)));
        EXPECT_EQ(table, again);
    }
}

TEST(ReadRecords, ATableTellsWhatIsNoRow)
{
    CTable table;
    EXPECT_EQ("20 1+1 1:2 path=[0] pointer=/0 expected=an object found=a number excerpt=[1, {\"a\": [], \"b\": 2, "
              "\"b\": 3}]\n"
              "20 10+1 1:11 path=[1][\"a\"] pointer=/1/a expected=a single value found=an array "
              "excerpt=[1, {\"a\": [], \"b\": 2, \"b\": 3}]\n"
              "25 22+3 1:23 path=[1][\"b\"] pointer=/1/b excerpt=[1, {\"a\": [], \"b\": 2, \"b\": 3}]\n",
              Read(table, R"([1, {"a": [], "b": 2, "b": 3}])"));
    EXPECT_EQ(R"([{"a":null,"b":2}])", vexa::WriteJson(table));
    CReadPolicy last;
    last.LastDuplicateWins = true;
    EXPECT_EQ("", Read(table, R"([{"b": 2, "b": 3}])", last));
    EXPECT_EQ(R"([{"b":3}])", vexa::WriteJson(table));
}

TEST(ReadRecords, ATableThatIsCutOffHasWholeRows)
{
    CTable table;
    EXPECT_EQ("1 21+1 1:22 path=[1] pointer=/1 expected=a key found='}' excerpt=[{\"a\": 1}, {\"b\": \"x\",}]\n",
              Read(table, R"([{"a": 1}, {"b": "x",}])"));
    for (const vexa::CRow& row : table)
        EXPECT_EQ(table.Columns.size(), row.Size());
    EXPECT_EQ(R"([{"a":1,"b":null},{"a":null,"b":"x"}])", vexa::WriteJson(table));
}

TEST(ReadRecords, AGroupIsReadThroughItsNamedEntries)
{
    Point point;
    std::string text = "old";
    std::vector<int> numbers{9};
    int unnamed = 5;
    vexa::CReferenceGroup group;
    group.Add("point", vexa::RefOf(point));
    group.Add("te/xt", vexa::RefOf(text));
    group.Add("numbers", vexa::RefOf(numbers));
    group.Add(vexa::RefOf(unnamed));
    EXPECT_EQ("", Read(group, R"({"te/xt": "new", "point": {"y": 4}, "numbers": [1, 2]})"));
    EXPECT_EQ(1, point.x);
    EXPECT_EQ(4, point.y);
    EXPECT_EQ("new", text);
    EXPECT_EQ((std::vector<int>{1, 2}), numbers);
    EXPECT_EQ(5, unnamed);
    EXPECT_EQ("24 1+9 1:2 attrib=numbesr nearest=numbers excerpt=\"numbesr\" (token)\n"
              "20 26+1 1:27 path=[\"te/xt\"] pointer=/te~1xt expected=a string found=a number excerpt=1 (token)\n"
              "20 44+4 1:45 path=[\"point\"].x pointer=/point/x class=recorded::Point attrib=x "
              "expected=an integer found=true or false excerpt=true (token)\n",
              Read(group, R"({"numbesr": [1], "te/xt": 1, "point": {"x": true}})"));
}

TEST(ReadRecords, AGroupIsUndoneInWhatItRefersTo)
{
    Point point;
    std::string text = "old";
    vexa::CReferenceGroup group;
    group.Add("point", vexa::RefOf(point));
    group.Add("text", vexa::RefOf(text));
    CReadPolicy policy;
    policy.Transactional = true;
    EXPECT_NE("", Read(group, R"({"text": "new", "point": {"y": 4, "x": "no"}})", policy));
    EXPECT_EQ("old", text);
    EXPECT_EQ(2, point.y);
}

TEST(ReadRecords, AGenericObjectIsReadThroughItsNamedEntries)
{
    Point point;
    const int fixed = 3;
    Holder holder;
    holder.object.Add("point", vexa::RefOf(point));
    holder.object.Add("fixed", vexa::RefOf(fixed));
    holder.object.Add("nowhere", vexa::CConstRefrence(vexa::TypeInforOf<int>(), nullptr));
    vexa::CReport report;
    EXPECT_FALSE(vexa::ReadJson(
        holder, R"({"object": {"point": {"x": 5}, "fixed": 4, "nowhere": 6}, "group": {"a": 1}})", report));
    std::string codes;
    for (const vexa::CProblem& problem : report.Problems())
        codes += std::to_string(static_cast<int>(problem.Code)) + " " + problem.Path + "|";
    EXPECT_EQ("33 object[\"fixed\"]|34 object[\"nowhere\"]|24 group|", codes);
    EXPECT_EQ(5, point.x);
    EXPECT_EQ(3, fixed);
    CReadPolicy skip;
    skip.Unknown = vexa::UnknownKeys::SKIP;
    EXPECT_EQ("", Read(holder, R"({"object": {"other": [1]}, "group": {"a": 1}})", skip));
}

} // namespace
