// vexa::CSqlView: statements, indexes, and what happens when tables and containers change.

#include <functional>
#include <list>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vexa/vexa.h>

#include "formats/sqlite_database.h"

namespace sqlite_view {

using testing::ElementsAre;
using testing::HasSubstr;
using vexa_test::CDatabase;
using vexa_test::CStatement;
using vexa_test::Rows;

struct Order {
    int id = 0;
    std::string customer;
    double amount = 0;
};
VEXA_DESCRIBE(Order, id, customer, amount)
struct Customer {
    std::string name;
    std::string country;
};
VEXA_DESCRIBE(Customer, name, country)

struct SqlView : testing::Test {
    std::vector<Order> orders{{1, "Ann", 5}, {2, "Bob", 7}, {3, "Ann", 9}};
    std::vector<Customer> customers{{"Bob", "NO"}, {"Ann", "IT"}};
    CDatabase db;
    vexa::CSqlView view{db};

    void SetUp() override
    {
        ASSERT_TRUE(view.Add("orders", orders));
        ASSERT_TRUE(view.Add("customers", customers));
    }
};

TEST_F(SqlView, JoinsAndGroupsLiveContainers)
{
    const std::string sql =
        "SELECT country, sum(amount) FROM orders JOIN customers ON name = customer GROUP BY country";
    EXPECT_THAT(db.Query(sql), ElementsAre("'IT' real 14", "'NO' real 7"));
    orders[0].amount = 100;
    EXPECT_THAT(db.Query(sql), ElementsAre("'IT' real 109", "'NO' real 7"));
    orders.push_back({4, "Bob", 1});
    EXPECT_THAT(db.Query(sql + " ORDER BY country DESC"), ElementsAre("'NO' real 8", "'IT' real 109"));
}

TEST_F(SqlView, TablesStayWithTheConnectionWhenTheViewGoes)
{
    ASSERT_TRUE(vexa::CSqlView(db).Add("more", customers));
    EXPECT_THAT(db.Query("SELECT count(*) FROM more"), ElementsAre("2"));
    EXPECT_TRUE(view.Remove("MORE"));
    EXPECT_THAT(db.Query("SELECT count(*) FROM more"), ElementsAre("error 1: no such table: more"));
    EXPECT_FALSE(view.Remove("more"));
    EXPECT_EQ(view.Error(), "more: the view has no such table");
}

TEST_F(SqlView, StatementsOnlyRead)
{
    for (const char* const sql :
         {"DELETE FROM orders", "UPDATE orders SET id = 1", "INSERT INTO orders VALUES (1, 2, 3)"})
        EXPECT_THAT(db.Query(sql), ElementsAre("error 1: table orders may not be modified"));
    EXPECT_EQ(orders.size(), 3U);
}

TEST_F(SqlView, BadSqlIsAnErrorOfSqlite)
{
    EXPECT_THAT(db.Query("SELECT adress FROM orders"), ElementsAre("error 1: no such column: adress"));
    EXPECT_THAT(db.Query("SELEC 1"), ElementsAre("error 1: near \"SELEC\": syntax error"));
    EXPECT_THAT(db.Query("SELECT * FROM orders(1)"), ElementsAre(HasSubstr("error 1: too many arguments on orders()")));
    EXPECT_THAT(db.Query("SELECT count(*) FROM orders"), ElementsAre("3"));
}

TEST_F(SqlView, AStatementEndsWhereTheContainerHasChangedUnderIt)
{
    const std::string changed = "error 4: orders: the container has changed under the statement: run it again";
    CStatement statement(db, "SELECT id FROM orders");
    EXPECT_EQ(statement.Step(), "1");
    orders.push_back({4, "Eve", 1});
    EXPECT_EQ(statement.Step(), changed);
    statement.Reset();
    EXPECT_EQ(statement.Step(), "1");
    orders.clear();
    orders.shrink_to_fit();
    EXPECT_EQ(statement.Step(), changed);
    statement.Reset();
    EXPECT_EQ(statement.Step(), "done");

    orders = {{1, "Ann", 5}, {2, "Bob", 7}};
    statement.Reset();
    EXPECT_EQ(statement.Step(), "1");
    EXPECT_TRUE(view.Changed("Orders"));
    EXPECT_EQ(statement.Step(), changed);
}

TEST_F(SqlView, AContainerThatAFunctionOfTheStatementChangesIsNotTouchedAgain)
{
    const auto grow = [](sqlite3_context* context, int, sqlite3_value**) {
        auto& grown = *static_cast<std::vector<Order>*>(sqlite3_user_data(context));
        for (int i = 0; i < 100; ++i)
            grown.push_back({i, "x", 0});
    };
    sqlite3_create_function(db, "grow", 0, SQLITE_UTF8, &orders, grow, nullptr, nullptr);
    EXPECT_THAT(db.Query("SELECT id, grow(), customer FROM orders"),
                ElementsAre("error 4: orders: the container has changed under the statement: run it again"));
}

TEST_F(SqlView, ATextOfAnEarlierStepStaysWhenItsObjectGoes)
{
    const auto words = std::make_unique<std::list<std::string>>(2, std::string(100, 'a'));
    ASSERT_TRUE(view.Add("words", *words));
    CStatement statement(db, "SELECT value, (SELECT max(value) FROM words) FROM customers JOIN words LIMIT 2");
    EXPECT_EQ(statement.Step(), '\'' + std::string(100, 'a') + "' '" + std::string(100, 'a') + '\'');
    words->front() = std::string(200, 'b');
    EXPECT_EQ(vexa_test::Literal(statement.Get(), 0), '\'' + std::string(100, 'a') + '\'');
    EXPECT_TRUE(view.Remove("words"));
    words->clear();
    EXPECT_EQ(statement.Step(), "error 4: words: the table has been removed or replaced: prepare the statement again");
    statement.Reset();
    EXPECT_EQ(statement.Step(), "error 4: words: the table has been removed or replaced: prepare the statement again");
    EXPECT_THAT(db.Query("SELECT * FROM words"), ElementsAre("error 1: no such table: words"));
}

TEST_F(SqlView, AReplacedTableHasItsNewColumnsInNewStatements)
{
    CStatement statement(db, "SELECT amount FROM orders");
    EXPECT_EQ(statement.Step(), "real 5");
    ASSERT_TRUE(view.Add("ORDERS", customers));
    EXPECT_EQ(statement.Step(), "error 4: orders: the table has been removed or replaced: prepare the statement again");
    EXPECT_THAT(db.Query("SELECT amount FROM orders"), ElementsAre("error 1: no such column: amount"));
    EXPECT_THAT(db.Query("SELECT country FROM orders"), ElementsAre("'NO'", "'IT'"));
}

TEST_F(SqlView, WhatTheDatabaseHasIsNotReplaced)
{
    db.Query("CREATE TABLE Mine(a)");
    db.Query("CREATE VIEW shown AS SELECT 1");
    EXPECT_FALSE(view.Add("mine", orders));
    EXPECT_EQ(view.Error(), "mine: there is a table of the database main with that name");
    EXPECT_FALSE(view.Add("shown", orders));
    EXPECT_EQ(view.Error(), "shown: there is a view of the database main with that name");
    EXPECT_FALSE(view.Add("json_each", orders));
    EXPECT_EQ(view.Error(), "json_each: there is a module with that name");
    EXPECT_FALSE(view.Add("one", orders[0]));
    EXPECT_EQ(view.Error(), "one: Order is no container of objects or values");
    const std::vector<const void*> nothing;
    EXPECT_FALSE(view.Add("nothing", nothing));
    EXPECT_THAT(view.Error(), HasSubstr("nothing that can be a column"));
    EXPECT_FALSE(view.Index("mine", "a"));
    EXPECT_EQ(view.Error(), "mine: the view has no such table");
    EXPECT_FALSE(view.Index("orders", "b"));
    EXPECT_EQ(view.Error(), "orders: no such column: b");
    EXPECT_FALSE(view.Changed("mine"));
}

TEST_F(SqlView, AnIndexIsBuiltOnceUntilItsContainerChanges)
{
    ASSERT_TRUE(view.Index("orders", "customer"));
    const auto builds = [&] { return view.Indexes("orders").at(0).Builds; };
    EXPECT_EQ(builds(), 0U);
    for (int i = 0; i < 3; ++i)
        EXPECT_THAT(db.Query("SELECT id FROM orders WHERE customer = 'Ann'"), ElementsAre("1", "3"));
    EXPECT_EQ(builds(), 1U);
    EXPECT_EQ(view.Indexes("orders").at(0).Column, "customer");
    EXPECT_GE(view.Indexes("orders").at(0).Bytes, 3 * 16U);

    orders.push_back({4, "Ann", 0});
    EXPECT_THAT(db.Query("SELECT id FROM orders WHERE customer = 'Ann'"), ElementsAre("1", "3", "4"));
    EXPECT_EQ(builds(), 2U);
    orders[1].customer = "Ann";
    EXPECT_TRUE(view.Changed("orders"));
    EXPECT_THAT(db.Query("SELECT id FROM orders WHERE customer = 'Ann'"), ElementsAre("1", "2", "3", "4"));
    EXPECT_EQ(builds(), 3U);
    EXPECT_THAT(db.Query("SELECT id FROM orders"), ElementsAre("1", "2", "3", "4"));
    EXPECT_EQ(builds(), 3U);
}

TEST_F(SqlView, AnIndexServesItsPlans)
{
    ASSERT_TRUE(view.Index("orders", "id"));
    ASSERT_TRUE(view.Index("orders", "customer"));
    const auto plan = [&](const char* where) {
        return db.Plan(std::string("SELECT * FROM orders WHERE ") + where).substr(std::string("SCAN orders ").size());
    };
    EXPECT_THAT(plan("amount = 5"), HasSubstr("VIRTUAL TABLE INDEX 0:"));
    EXPECT_THAT(plan("id = 2"), HasSubstr(":id = ?"));
    EXPECT_THAT(plan("id IS 2"), HasSubstr(":id IS ?"));
    EXPECT_THAT(plan("id IS NULL"), HasSubstr(":id IS NULL"));
    EXPECT_THAT(plan("id IN (1, 2)"), HasSubstr(":id IN (...)"));
    EXPECT_THAT(plan("id > 2"), HasSubstr(":id >= ?"));
    EXPECT_THAT(plan("id < 2"), HasSubstr(":id <= ?"));
    EXPECT_THAT(plan("id BETWEEN 1 AND 2"), HasSubstr(":id BETWEEN ? AND ?"));
    EXPECT_THAT(plan("rowid = 1"), HasSubstr(":rowid = ?"));
    EXPECT_THAT(plan("customer = 'Ann'"), HasSubstr(":customer = ?"));
    EXPECT_THAT(plan("customer = 'Ann' COLLATE NOCASE"), HasSubstr("VIRTUAL TABLE INDEX 0:"));
    EXPECT_THAT(plan("customer > 'Ann'"), HasSubstr("VIRTUAL TABLE INDEX 0:"));
    EXPECT_THAT(db.Query("SELECT id FROM orders WHERE customer = 'ANN' COLLATE NOCASE"), ElementsAre("1", "3"));
}

struct Mixed {
    long long number = 0;
    unsigned long large = 0;
    double real = 0;
    std::string text;
    vexa::CBinary bytes;
    vexa::MayNull<int> maybe;
    vexa::CValue any;
};
VEXA_DESCRIBE(Mixed, number, large, real, text, bytes, maybe, any)

/// What is pushed down has no affinity applied: an index must find what the comparison itself finds.
TEST(SqlIndex, FindsWhatTheComparisonFinds)
{
    std::vector<Mixed> rows(6);
    rows[0].number = rows[1].number = 9007199254740993;
    rows[1].number += 1;
    rows[2].large = 18446744073709551615UL;
    rows[3].large = 9223372036854775807UL;
    rows[0].real = -0.0;
    rows[1].real = 0.1;
    rows[2].real = std::numeric_limits<double>::quiet_NaN();
    rows[3].real = -std::numeric_limits<double>::infinity();
    rows[0].text = "12";
    rows[1].text = " 12.0";
    rows[2].text = "12x";
    rows[0].bytes = std::string("12");
    rows[4].maybe = 12;
    CDatabase db;
    vexa::CSqlView view(db);
    ASSERT_TRUE(view.Add("plain", rows));
    ASSERT_TRUE(view.Add("found", rows));
    for (const char* const column : {"number", "large", "real", "text", "bytes", "maybe"})
        ASSERT_TRUE(view.Index("found", column)) << view.Error();
    EXPECT_FALSE(view.Index("found", "any"));
    EXPECT_EQ(view.Error(), "found: the column has values of several types: any");
    db.Query("CREATE TABLE other(i INTEGER, r REAL, t TEXT, n NUMERIC, b)");
    db.Query("INSERT INTO other VALUES (12, 12, '12', '12', x'3132'), (0, 0.0, '', '12x', '12'), (NULL, NULL, ' 12', "
             "1, 12)");
    const Rows values{"9007199254740993",
                      "9007199254740994.0",
                      "'9007199254740993'",
                      "9007199254740993.5",
                      "18446744073709551615",
                      "9223372036854775807",
                      "1e400",
                      "-1e400",
                      "0",
                      "-0.0",
                      "'0'",
                      "0.1",
                      "12",
                      "'12'",
                      "'12x'",
                      "' 12.0'",
                      "12.0",
                      "x'3132'",
                      "NULL",
                      "''",
                      "x''",
                      "+12",
                      "'12' || ''",
                      "(SELECT i FROM other)",
                      "(SELECT n FROM other LIMIT 1 OFFSET 1)",
                      "CAST('12' AS BLOB)"};
    for (const char* const column : {"number", "large", "real", "text", "bytes", "maybe", "rowid"}) {
        for (const std::string& value : values) {
            for (const char* const op : {"=", "IS", "<", "<=", ">", ">=", "<>"}) {
                const std::string where = " WHERE " + (column + (' ' + (op + (' ' + value)))) + " ORDER BY rowid";
                EXPECT_EQ(db.Query("SELECT rowid FROM found" + where), db.Query("SELECT rowid FROM plain" + where))
                    << where;
            }
            const std::string in = " WHERE " + (column + (" IN (1, " + value)) + ", '12', 0.1) ORDER BY rowid";
            EXPECT_EQ(db.Query("SELECT rowid FROM found" + in), db.Query("SELECT rowid FROM plain" + in)) << in;
        }
        for (const char* const other : {"i", "r", "t", "n", "b"}) {
            for (const char* const op : {"=", "IS", "<", ">="}) {
                const std::string join = std::string(" JOIN other ON ") + column + ' ' + op + " other." + other;
                const std::string rest = join + " ORDER BY 1, other.rowid";
                EXPECT_EQ(db.Query("SELECT x.rowid, other.rowid FROM found AS x CROSS" + rest),
                          db.Query("SELECT x.rowid, other.rowid FROM plain AS x CROSS" + rest))
                    << rest;
                const std::string turned =
                    std::string(" ON x.") + column + ' ' + op + " other." + other + " ORDER BY 1, other.rowid";
                EXPECT_EQ(db.Query("SELECT x.rowid, other.rowid FROM other CROSS JOIN found AS x" + turned),
                          db.Query("SELECT x.rowid, other.rowid FROM other CROSS JOIN plain AS x" + turned))
                    << turned;
            }
            const std::string in = std::string(" WHERE ") + column + " IN (SELECT " + other + " FROM other) ORDER BY 1";
            EXPECT_EQ(db.Query("SELECT rowid FROM found" + in), db.Query("SELECT rowid FROM plain" + in)) << in;
        }
    }
}

struct Failing {
    int number = 0;
    void ToValue(vexa::CValue& out) const
    {
        if (number == 2) throw std::runtime_error("two is refused");
        out = number;
    }
    void FromValue(const vexa::CValue& in) { number = in.As_int(); }
};
VEXA_DESCRIBE_CUSTOM_ANY(Failing, 78)
struct Holder {
    Failing failing;
};
VEXA_DESCRIBE(Holder, failing)

TEST(SqlColumn, AConverterThatThrowsEndsTheStatementOnly)
{
    std::list<Holder> holders(3);
    holders.front().failing.number = 1;
    std::next(holders.begin())->failing.number = 2;
    CDatabase db;
    ASSERT_TRUE(vexa::CSqlView(db).Add("h", holders));
    const Rows rows = db.Query("SELECT failing FROM h");
    EXPECT_EQ(rows.at(0), "1");
    EXPECT_THAT(db.Query("SELECT count(*) FROM h"), ElementsAre("3"));
    EXPECT_EQ(rows, db.Query("SELECT failing FROM h"));
}

TEST(SqlView16, TextsOfADatabaseInUtf16AreFound)
{
    CDatabase db;
    db.Query("PRAGMA encoding = 'UTF-16'");
    const std::vector<std::string> words{"a", "Zo\xc3\xab", "\xff"};
    vexa::CSqlView view(db);
    ASSERT_TRUE(view.Add("words", words));
    ASSERT_TRUE(view.Index("words", "value"));
    EXPECT_THAT(db.Query("SELECT rowid FROM words WHERE value = 'Zo\xc3\xab'"), ElementsAre("1"));
    EXPECT_THAT(db.Query("SELECT rowid FROM words WHERE value = 'a'"), ElementsAre("0"));
}

} // namespace sqlite_view
