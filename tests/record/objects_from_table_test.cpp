// Objects from the rows of a table.

#include <vexa/table.h>

#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/bridge_model.h"
#include "support/captured_log.h"

namespace {

using namespace bridge_model;
using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CNumeric;
using vexa::CRow;
using vexa::CTable;
using vexa::CValue;
using vexa::ObjectsFromTable;
using vexa::TableFromObjects;

CTable Places()
{
    CTable table;
    table.AddColumn(DT_INT, "zip");
    table.AddColumn(DT_STD_STRING, "city");
    table.Append({1, "Oslo"});
    table.Append({2, "Rome"});
    return table;
}

TEST(ObjectsFromTable, AppendsAnObjectForEachRow)
{
    std::vector<Address> places = {{"Bonn", 9}};
    EXPECT_TRUE(ObjectsFromTable(places, Places()));
    EXPECT_EQ(TableText(places), "41 city, 14 zip, |Bonn,9,\nOslo,1,\nRome,2,\n");
}

TEST(ObjectsFromTable, MakesTheObjectsOfAContainerOfPointers)
{
    std::list<std::unique_ptr<Address>> places;
    EXPECT_TRUE(ObjectsFromTable(places, Places()));
    EXPECT_EQ(TableText(places), "41 city, 14 zip, |Oslo,1,\nRome,2,\n");
}

TEST(ObjectsFromTable, SaysWhichColumnsHaveNoAttribute)
{
    CTable table = Places();
    table.AddColumn(DT_INT, "town");
    table.AddColumn(DT_INT, "");
    table.Append({3, "Bonn", 4, 5});
    std::vector<Address> places;
    Names unknown = {"before"};

    EXPECT_TRUE(ObjectsFromTable(places, table, &unknown));
    EXPECT_EQ(unknown, (Names{"town", ""}));
    EXPECT_EQ(TableText(places), "41 city, 14 zip, |Oslo,1,\nRome,2,\nBonn,3,\n");
    EXPECT_TRUE(ObjectsFromTable(places, Places(), &unknown));
    EXPECT_EQ(unknown, Names());
}

TEST(ObjectsFromTable, SaysThatAnAttributeWithoutAColumnFormIsUnknown)
{
    CTable table;
    for (const char* const name : {"list", "away", "any", "row", "home", "away_city", "id"})
        table.AddColumn(DT_INT, name);
    std::vector<Person> people;
    Names unknown;
    EXPECT_TRUE(ObjectsFromTable(people, table, &unknown));
    EXPECT_EQ(unknown, (Names{"list", "away", "any", "row", "home", "away_city"}));
}

TEST(ObjectsFromTable, LeavesTheDefaultWhereARowIsTooShortOrHasNoColumn)
{
    CTable table = Places();
    table.Append({3});
    table.Append(CRow());
    std::vector<Address> places;
    EXPECT_TRUE(ObjectsFromTable(places, table));
    EXPECT_EQ(TableText(places), "41 city, 14 zip, |Oslo,1,\nRome,2,\n,3,\n,0,\n");
}

TEST(ObjectsFromTable, TakesTheFirstOfTwoColumnsOfOneName)
{
    CTable table = Places();
    table.AddColumn(DT_INT, "zip");
    for (CRow& row : table)
        row.Append(99);
    std::vector<Address> places;
    EXPECT_TRUE(ObjectsFromTable(places, table));
    EXPECT_EQ(TableText(places), "41 city, 14 zip, |Oslo,1,\nRome,2,\n");
}

/// One object from one value under one name, as the value that the object then gives under that name.
template<class Object>
std::string Converted(const char* name, const CValue& value)
{
    CTable table;
    table.AddColumn(value.Type(), name);
    table.Append({value});
    std::vector<Object> objects;
    const std::string log = LoggedLines([&] { EXPECT_TRUE(ObjectsFromTable(objects, table)); });
    TableFromObjects(table, objects, {name});
    return Show(table.Value(0, name)) + (log.empty() ? "" : " | " + log);
}

TEST(ObjectsFromTable, ConvertsTextsIntoNumbers)
{
    EXPECT_EQ(Converted<Basics>("b", "true"), "11: true");
    EXPECT_EQ(Converted<Basics>("c", "65"), "12: A");
    EXPECT_EQ(Converted<Basics>("s", "-7"), "13: -7");
    EXPECT_EQ(Converted<Basics>("i", "42abc"), "14: 42");
    EXPECT_EQ(Converted<Basics>("l", "1e3"), "15: 1");
    EXPECT_EQ(Converted<Basics>("ll", "1e3"), "16: 1000");
    EXPECT_EQ(Converted<Basics>("f", "0.5"), "17: 0.500000");
    EXPECT_EQ(Converted<Basics>("d", "3.75"), "18: 3.750000");
    EXPECT_EQ(Converted<Basics>("ld", "3.75"), "19: 3.000000");
    EXPECT_EQ(Converted<Basics>("uc", "200"), "22: 200");
    EXPECT_EQ(Converted<Basics>("us", "60000"), "23: 60000");
    EXPECT_EQ(Converted<Basics>("ui", "4000000000"), "24: 4000000000");
    EXPECT_EQ(Converted<Basics>("ul", "5"), "25: 5");
    EXPECT_EQ(Converted<Basics>("ull", "5"), "26: 5");
}

TEST(ObjectsFromTable, ConvertsAnyValueIntoTextsAndValueTypes)
{
    EXPECT_EQ(Converted<Basics>("text", 2.5), "41: 2.500000");
    EXPECT_EQ(Converted<Basics>("text", true), "41: true");
    EXPECT_EQ(Converted<Basics>("text", vexa::CDateTime(SampleTime())), "41: 2020-01-02 03:04:05");
    EXPECT_EQ(Converted<Basics>("binary", "AB"), "45: 4142");
    EXPECT_EQ(Converted<Basics>("numeric", -5), "47: -5");
    EXPECT_EQ(Converted<Basics>("numeric", "1.50"), "47: 1.50");
    EXPECT_EQ(Converted<Basics>("time", "2020-01-02 03:04:05"), "51: 2020-01-02 03:04:05");
    EXPECT_EQ(Converted<Basics>("instant", SampleTime()), "52: 2020-01-02 03:04:05");
}

TEST(ObjectsFromTable, LogsWhatCannotBeConverted)
{
    EXPECT_EQ(Converted<Basics>("i", vexa::CDateTime(SampleTime())),
              "14: 0 | vexa::CDateTime type CStdBasicTypeConstRefrence can not be converted to int\n");
}

TEST(ObjectsFromTable, ReachesEveryFormOfAttribute)
{
    EXPECT_EQ(Converted<Person>("level", 2), "13: 2");
    EXPECT_EQ(Converted<Person>("weight", 2.5), "18: 2.500000");
    EXPECT_EQ(Converted<Person>("score", 9), "15: 9");
    EXPECT_EQ(Converted<Person>("home_city", "Oslo"), "41: Oslo");
    EXPECT_EQ(Converted<Person>("work_zip", 5), "14: 5");
    EXPECT_EQ(Converted<Person>("tag", 12), "41: 12");
    EXPECT_EQ(Converted<Person>("money", 12), "41: 12c");
    EXPECT_EQ(Converted<Person>("bonus", "12"), "41: 12c");
    EXPECT_EQ(Converted<Account>("password", "pw"), "41: pw");
    EXPECT_EQ(Converted<Account>("secretPlace_zip", 5), "14: 5");
    EXPECT_EQ(Converted<Derived>("baseNumber", 5), "14: 5");
}

TEST(ObjectsFromTable, SetsANullOrTheDefaultForANull)
{
    const CValue null;
    EXPECT_EQ(Converted<Person>("id", null), "14: 0");
    EXPECT_EQ(Converted<Person>("weight", null), "18: NULL");
    EXPECT_EQ(Converted<Person>("score", null), "15: NULL");
    EXPECT_EQ(Converted<Person>("work_zip", null), "14: NULL");
    EXPECT_EQ(Converted<Person>("tag", null), "41: ");
    EXPECT_EQ(Converted<Person>("money", null), "41: -1c");
    EXPECT_EQ(Converted<Person>("bonus", null), "41: NULL");
}

TEST(ObjectsFromTable, MakesAMemberObjectForTheFirstValueThatIsNotNull)
{
    CTable table;
    table.AddColumn(DT_INT, "work_zip");
    table.AddColumn(DT_STD_STRING, "work_city");
    table.Append({vexa::null, "Rome"});
    table.Append({vexa::null, vexa::null});
    std::vector<Person> people;
    EXPECT_TRUE(ObjectsFromTable(people, table));

    ASSERT_TRUE(people[0].work.has_value());
    EXPECT_EQ(people[0].work->city, "Rome");
    EXPECT_EQ(people[0].work->zip, 0);
    EXPECT_FALSE(people[1].work.has_value());
}

TEST(ObjectsFromTable, SetsTheSelectorOfAUnionFirst)
{
    CTable table;
    table.AddColumn(DT_DOUBLE, "rate");
    table.AddColumn(DT_INT, "code");
    table.AddColumn(DT_SHORT, "kind");
    table.Append({0.5, 7, 1});
    table.Append({0.5, 7, 2});
    table.Append({0.5, 7, 3});
    std::vector<Choice> choices;
    EXPECT_TRUE(ObjectsFromTable(choices, table));
    EXPECT_EQ(TableText(choices), "13 kind, 14 code, 18 rate, |1,7,NULL,\n2,NULL,0.500000,\n3,NULL,NULL,\n");
}

TEST(ObjectsFromTable, RefusesAContainerThatItCannotAppendObjectsTo)
{
    std::vector<int> numbers = {1};
    Address array[2] = {{"Oslo", 1}, {"Rome", 2}};
    std::map<int, std::string> map = {{1, "a"}};
    std::unique_ptr<std::vector<Address>> none;
    vexa::CContainerRefrence null = vexa::RefOf(none).AsContainer();

    EXPECT_FALSE(ObjectsFromTable(numbers, Places()));
    EXPECT_FALSE(ObjectsFromTable(array, Places()));
    EXPECT_FALSE(ObjectsFromTable(map, Places()));
    EXPECT_FALSE(ObjectsFromTable(null, Places()));
    EXPECT_EQ(numbers, std::vector<int>{1});
    EXPECT_EQ(TableText(array), "41 city, 14 zip, |Oslo,1,\nRome,2,\n");
    EXPECT_EQ(map, (std::map<int, std::string>{{1, "a"}}));
    EXPECT_EQ(none, nullptr);
}

TEST(ObjectsFromTable, GivesBackWhatATableWasMadeFrom)
{
    std::vector<Basics> objects(2);
    objects[1].c = static_cast<char>(200);
    objects[1].ld = 1.5L;
    objects[1].ul = ~0UL;
    objects[1].text = std::string("a\0b", 3);
    objects[1].binary = vexa::CBinary("\0\xff", 2);
    objects[1].numeric = CNumeric(std::string("-12.50"));
    objects[1].time = SampleTime();
    objects[1].instant = vexa::CDateTime(SampleTime());
    CTable table;
    ASSERT_TRUE(TableFromObjects(table, objects));
    std::vector<Basics> back;
    ASSERT_TRUE(ObjectsFromTable(back, table));
    CTable again;
    ASSERT_TRUE(TableFromObjects(again, back));

    EXPECT_EQ(again, table);
    EXPECT_EQ(back[1].ul, ~0UL);
    EXPECT_EQ(back[1].ld, 1.5L);
}

} // namespace
