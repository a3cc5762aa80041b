// Tables from containers of described objects.

#include <vexa/table.h>

#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/bridge_model.h"

namespace {

using namespace bridge_model;
using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CNumeric;
using vexa::CTable;
using vexa::TableFromObjects;

TEST(TableFromObjects, MakesAColumnForEachBasicAttributeThatLiesInTheObject)
{
    EXPECT_EQ(TableText(std::vector<Person>()),
              "14 id, 13 level, 18 weight, 41 note, 15 score, 41 home_city, 14 home_zip, 41 work_city, 14 work_zip, "
              "41 tag, 41 money, 41 bonus, |");
}

TEST(TableFromObjects, GivesEachColumnTheTypeOfItsAttribute)
{
    EXPECT_EQ(TableText(std::vector<Basics>()),
              "11 b, 12 c, 13 s, 14 i, 15 l, 16 ll, 17 f, 18 d, 19 ld, 22 uc, 23 us, 24 ui, 25 ul, 26 ull, "
              "41 text, 45 binary, 47 numeric, 51 time, 52 instant, |");
}

TEST(TableFromObjects, MakesARowForEachObject)
{
    std::vector<Person> people(2);
    people[1].id = 7;
    people[1].level = Level::High;
    people[1].weight = 2.5;
    people[1].note = "noted";
    people[1].score = std::make_unique<long>(9);
    people[1].home = {"Oslo", 1};
    people[1].work = Address{"Rome", 2};
    people[1].tag.text = "t";
    people[1].money.cents = 3;
    people[1].bonus = Money{4};
    CTable table;
    ASSERT_TRUE(TableFromObjects(table, people));

    ASSERT_EQ(table.Rows.size(), 2U);
    EXPECT_EQ(RowText(table.Rows[0]), "14: 0, 13: 1, 18: NULL, 41: NULL, 15: NULL, 41: , 14: 0, 41: NULL, 14: NULL, "
                                      "41: , 41: 0c, 41: NULL, ");
    EXPECT_EQ(RowText(table.Rows[1]), "14: 7, 13: 2, 18: 2.500000, 41: noted, 15: 9, 41: Oslo, 14: 1, 41: Rome, 14: 2, "
                                      "41: t, 41: 3c, 41: 4c, ");
}

TEST(TableFromObjects, TakesEveryBasicTypeWhole)
{
    std::vector<Basics> objects(1);
    Basics& object = objects[0];
    object.b = true;
    object.c = 'A';
    object.ld = 1.5L;
    object.ull = ~0ULL;
    object.text = std::string("a\0b", 3);
    object.binary = vexa::CBinary("AB", 2);
    object.numeric = CNumeric(std::string("12.50"));
    object.time = SampleTime();
    object.instant = vexa::CDateTime(SampleTime());
    CTable table;
    ASSERT_TRUE(TableFromObjects(table, objects));

    EXPECT_EQ(table.Value(0, "b"), true);
    EXPECT_EQ(table.Value(0, "c"), 'A');
    EXPECT_EQ(table.Value(0, "ld"), 1.5L);
    EXPECT_EQ(table.Value(0, "ull"), ~0ULL);
    EXPECT_EQ(table.Value(0, "text"), std::string("a\0b", 3));
    EXPECT_EQ(table.Value(0, "binary"), vexa::CBinary("AB", 2));
    EXPECT_EQ(Show(table.Value(0, "numeric")), "47: 12.50");
    EXPECT_EQ(table.Value(0, "time"), SampleTime());
    EXPECT_EQ(table.Value(0, "instant"), vexa::CDateTime(SampleTime()));
}

TEST(TableFromObjects, LeavesMaskedAttributesOutUnlessTheyAreNamed)
{
    const std::vector<Account> accounts = {{"ann", "pw", {"Oslo", 5}}};
    EXPECT_EQ(TableText(accounts), "41 user, |ann,\n");
    EXPECT_EQ(TableText(accounts, {"password", "secretPlace_zip", "user"}),
              "41 password, 14 secretPlace_zip, 41 user, |pw,5,ann,\n");
}

TEST(TableFromObjects, MakesTheNamedColumnsInTheirOrder)
{
    const std::vector<Address> places = {{"Oslo", 1}, {"Rome", 2}};
    EXPECT_EQ(TableText(places, {"zip", "city", "zip"}), "14 zip, 41 city, 14 zip, |1,Oslo,1,\n2,Rome,2,\n");
}

TEST(TableFromObjects, LeavesOutANameThatIsNoSuchAttributeAndSaysSo)
{
    EXPECT_EQ(TableText(std::vector<Address>{{"Oslo", 1}}, {"town", "zip"}), "incomplete: 14 zip, |1,\n");
    EXPECT_EQ(TableText(std::vector<Person>(1), {"list", "away", "any", "row", "home", "away_city"}),
              "incomplete: |\n");
}

TEST(TableFromObjects, GivesANullForAnInactiveUnionMember)
{
    std::vector<Choice> choices(2);
    choices[0].kind = 1;
    choices[0].code = 5;
    choices[1].kind = 2;
    choices[1].rate = 0.5;
    EXPECT_EQ(TableText(choices), "13 kind, 14 code, 18 rate, |1,5,NULL,\n2,NULL,0.500000,\n");
}

TEST(TableFromObjects, PutsTheAttributesOfBaseClassesFirst)
{
    EXPECT_EQ(TableText(std::vector<Derived>(1)), "14 baseNumber, 14 ownNumber, |3,4,\n");
}

TEST(TableFromObjects, TakesAnyContainerOfObjects)
{
    const std::list<Address> list = {{"Oslo", 1}};
    const Address array[2] = {{"Oslo", 1}, {"Rome", 2}};
    const std::map<int, std::string> map = {{2, "b"}, {1, "a"}};
    EXPECT_EQ(TableText(list), "41 city, 14 zip, |Oslo,1,\n");
    EXPECT_EQ(TableText(array), "41 city, 14 zip, |Oslo,1,\nRome,2,\n");
    EXPECT_EQ(TableText(map), "14 first, 41 second, |1,a,\n2,b,\n");
}

TEST(TableFromObjects, GivesARowOfNullsForANullObject)
{
    const Address place{"Oslo", 1};
    const std::vector<const Address*> places = {&place, nullptr};
    EXPECT_EQ(TableText(places), "41 city, 14 zip, |Oslo,1,\nNULL,NULL,\n");
}

TEST(TableFromObjects, GivesTheColumnsOfANullContainer)
{
    const std::unique_ptr<std::vector<Address>> none;
    CTable table;
    EXPECT_TRUE(TableFromObjects(table, vexa::RefOf(none).AsContainer()));
    EXPECT_EQ(ColumnsOf(table) + table.AsString(), "41 city, 14 zip, ");
}

TEST(TableFromObjects, EmptiesTheTableWhenTheElementsAreNoObjects)
{
    CTable table;
    ASSERT_TRUE(TableFromObjects(table, std::vector<Address>(2)));
    EXPECT_FALSE(TableFromObjects(table, std::vector<int>{1, 2}));
    EXPECT_EQ(table, CTable());
}

} // namespace
