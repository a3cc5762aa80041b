// vexa::CSqlView: what the columns of a container's table are, and the values in them.

#include <atomic>
#include <chrono>
#include <cmath>
#include <deque>
#include <filesystem>
#include <limits>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <unordered_map>
#include <variant>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vexa/types.h>
#include <vexa/vexa.h>

#include "formats/sqlite_database.h"

namespace sqlite_columns {

using vexa_test::CDatabase;
using vexa_test::Rows;

enum class Color { red, green = 7 };
VEXA_DESCRIBE_ENUM(Color, red, green)
enum class Tiny : signed char { low = -1, high = 1 };
VEXA_DESCRIBE_ENUM(Tiny, low, high)

struct Meters {
    double value = 0;
};
VEXA_DESCRIBE_CUSTOM_STD(Meters, &Meters::value)

struct Temperature {
    double degrees = 0;
    void ToValue(vexa::CValue& out) const { out = degrees; }
    void FromValue(const vexa::CValue& in) { degrees = in.As_double(); }
};
VEXA_DESCRIBE_CUSTOM_ANY(Temperature, 77)

/// All the types that have one value.
struct Values {
    bool flag = true;
    char letter = static_cast<char>(200);
    signed char small = -5;
    unsigned char byte = 255;
    short number16 = -300;
    unsigned int number32 = 4000000000U;
    long long number64 = std::numeric_limits<long long>::min();
    unsigned long large = std::numeric_limits<unsigned long>::max();
    unsigned long held = 9223372036854775807UL;
    float single = 0.5F;
    double real = 0.1;
    double nan = std::nan("");
    double infinite = std::numeric_limits<double>::infinity();
    long double wide = 2.25L;
    std::string text{"Zo\xc3\xab\0 7", 7};
    const char* chars = "abc";
    const char* noChars = nullptr;
    std::string_view view = "view";
    char array[4] = {'a', 'b', 0, 'c'};
    std::filesystem::path path = "/etc/hosts";
    vexa::CBinary binary{std::string("\0\xff", 2)};
    vexa::CBinary noBytes;
    vexa::CNumeric numeric{std::string("01.50")};
    vexa::CNumeric noNumber;
    vexa::CDateTime time{1772366400, 250};
    vexa::CDateTime noTime;
    std::chrono::system_clock::time_point point{std::chrono::milliseconds(1772366400250)};
    std::chrono::milliseconds duration{3000};
    Color color = Color::green;
    Color noColor = static_cast<Color>(3);
    Tiny tiny = Tiny::low;
    std::atomic<int> atomic{7};
    Meters meters{1.5};
    Temperature temperature{36.5};
    vexa::CValue value;
    std::bitset<4> bits{5};
};
VEXA_DESCRIBE(Values, flag, letter, small, byte, number16, number32, number64, large, held, single, real, nan, infinite,
              wide, text, chars, noChars, view, array, path, binary, noBytes, numeric, noNumber, time, noTime, point,
              duration, color, noColor, tiny, atomic, meters, temperature, value, bits)

/// Names, types and values of the only row.
Rows Described(const CDatabase& db, const std::string& table)
{
    vexa_test::CStatement row(db, "SELECT * FROM " + table);
    vexa_test::CStatement types(db, "SELECT type FROM pragma_table_info('" + table + "')");
    if (sqlite3_step(row.Get()) != SQLITE_ROW) return {row.Step()};
    Rows columns;
    for (int i = 0; i < sqlite3_column_count(row.Get()); ++i) {
        sqlite3_step(types.Get());
        columns.push_back(std::string(sqlite3_column_name(row.Get(), i)) + ' ' +
                          reinterpret_cast<const char*>(sqlite3_column_text(types.Get(), 0)) + ": " +
                          vexa_test::Literal(row.Get(), i));
    }
    return columns;
}

TEST(SqlColumns, EachTypeHasItsSqlType)
{
    std::vector<Values> values(1);
    values[0].value = 8;
    CDatabase db;
    ASSERT_TRUE(vexa::CSqlView(db).Add("v", values));
    EXPECT_THAT(
        Described(db, "v"),
        testing::ElementsAre(
            "flag INTEGER: 1", "letter INTEGER: 200", "small INTEGER: -5", "byte INTEGER: 255",
            "number16 INTEGER: -300", "number32 INTEGER: 4000000000", "number64 INTEGER: -9223372036854775808",
            "large INTEGER: real 1.8446744073709552e+19", "held INTEGER: 9223372036854775807", "single REAL: real 0.5",
            "real REAL: real 0.10000000000000001", "nan REAL: NULL", "infinite REAL: real inf", "wide REAL: real 2.25",
            "text TEXT: '" + std::string("Zo\xc3\xab\0 7", 7) + "'", "chars TEXT: 'abc'", "noChars TEXT: NULL",
            "view TEXT: 'view'", "array TEXT: 'ab'", "path TEXT: '/etc/hosts'", "binary BLOB: x'00ff'",
            "noBytes BLOB: x''", "numeric TEXT: '1.50'", "noNumber TEXT: NULL", "time TEXT: '2026-03-01T12:00:00.25Z'",
            "noTime TEXT: NULL", "point TEXT: '2026-03-01T12:00:00.25Z'", "duration INTEGER: 3000",
            "color TEXT: 'green'", "noColor TEXT: '3'", "tiny TEXT: 'low'", "atomic INTEGER: 7",
            "meters REAL: real 1.5", "temperature : real 36.5", "value : 8", "bits TEXT: '0101'"));
}

struct Address {
    std::string city;
    vexa::MayNull<int> zip;
};
VEXA_DESCRIBE(Address, city, zip)

struct Person {
    int id = 0;
    std::optional<int> age;
    vexa::MayNull<std::string> nick;
    Address home;
    std::unique_ptr<Address> work;
    std::shared_ptr<Address> other;
    std::optional<Address> last;
    vexa::MayNull<Address> next;
    std::unique_ptr<double> height;
    const Person* friendOf = nullptr;
};
VEXA_DESCRIBE(Person, id, age, nick, home, work, other, last, next, height, friendOf)

TEST(SqlColumns, WhatIsInsideHasDottedNamesAndIsNullWhereNothingIsThere)
{
    std::vector<Person> people(2);
    people[1].id = 1;
    people[1].age = 30;
    people[1].nick = std::string("Al");
    people[1].home.city = "Oslo";
    people[1].home.zip = 250;
    people[1].work = std::make_unique<Address>();
    people[1].work->city = "Bergen";
    people[1].other = std::make_shared<Address>();
    people[1].last.emplace();
    people[1].next = Address();
    people[1].height = std::make_unique<double>(1.5);
    people[1].friendOf = &people[0];
    CDatabase db;
    ASSERT_TRUE(vexa::CSqlView(db).Add("p", people));
    EXPECT_THAT(Described(db, "p"),
                testing::ElementsAre("id INTEGER: 0", "age INTEGER: NULL", "nick TEXT: NULL", "home.city TEXT: ''",
                                     "home.zip INTEGER: NULL", "work.city TEXT: NULL", "work.zip INTEGER: NULL",
                                     "other.city TEXT: NULL", "other.zip INTEGER: NULL", "last.city TEXT: NULL",
                                     "last.zip INTEGER: NULL", "next.city TEXT: NULL", "next.zip INTEGER: NULL",
                                     "height REAL: NULL"));
    EXPECT_THAT(db.Query("SELECT * FROM p WHERE rowid = 1"),
                testing::ElementsAre("1 30 'Al' 'Oslo' 250 'Bergen' NULL '' NULL '' NULL '' NULL real 1.5"));
}

struct Item {
    std::string sku;
    int count = 0;
};
VEXA_DESCRIBE(Item, sku, count)

struct Basket {
    std::vector<Item> items;
    std::map<std::string, int> scores;
    std::tuple<int, std::string> pair{1, "a"};
    std::variant<std::monostate, int, std::vector<int>> either;
    vexa::CJsonTree tree;
};
VEXA_DESCRIBE(Basket, items, scores, pair, either, tree)

TEST(SqlColumns, WhatHasPartsIsJsonText)
{
    std::list<Basket> baskets(1);
    Basket& basket = baskets.front();
    basket.items = {{"TEA", 2}, {"CUP", 1}};
    basket.scores["a"] = 1;
    basket.either = std::vector<int>{1, 2};
    basket.tree["n"] = 7;
    CDatabase db;
    ASSERT_TRUE(vexa::CSqlView(db).Add("b", baskets));
    EXPECT_THAT(Described(db, "b"),
                testing::ElementsAre(R"(items TEXT: '[{"sku":"TEA","count":2},{"sku":"CUP","count":1}]')",
                                     R"(scores TEXT: '{"a":1}')", R"(pair TEXT: '[1,"a"]')", "either : '[1,2]'",
                                     R"(tree TEXT: '{"n":7}')"));
    basket.either = 5;
    EXPECT_THAT(db.Query("SELECT either FROM b"), testing::ElementsAre("5"));
    basket.either = std::monostate();
    EXPECT_THAT(db.Query("SELECT either FROM b"), testing::ElementsAre("NULL"));
    EXPECT_THAT(db.Query("SELECT json_extract(value, '$.sku') FROM b, json_each(b.items)"),
                testing::ElementsAre("'TEA'", "'CUP'"));
}

TEST(SqlColumns, EveryKindOfContainerIsATable)
{
    const std::vector<int> vector{3, 4};
    const std::deque<Item> deque{{"a", 1}, {"b", 2}};
    const std::set<std::string> set{"y", "x"};
    const std::map<std::string, Item> map{{"k", {"s", 5}}};
    const std::multimap<int, std::string> multi{{1, "one"}, {1, "uno"}};
    const std::unordered_map<int, Address> hashed{{2, {"Rome", {}}}};
    const std::array<double, 2> array{0.5, 1.5};
    const Item slots[2] = {{"p", 1}, {"q", 2}};
    const std::vector<Color> colors{Color::red, Color::green};
    const std::vector<std::pair<int, Item>> pairs{{1, {"z", 3}}};
    std::vector<std::unique_ptr<Item>> pointers(2);
    pointers[1] = std::make_unique<Item>(Item{"r", 9});
    std::vector<std::shared_ptr<Item>> shared{nullptr, std::make_shared<Item>(Item{"t", 8})};
    const std::unique_ptr<std::vector<int>> held = std::make_unique<std::vector<int>>(3, 1);
    CDatabase db;
    vexa::CSqlView view(db);
    const auto rows = [&](const auto& container) {
        EXPECT_TRUE(view.Add("t", container)) << view.Error();
        Rows all = db.Query("SELECT rowid, * FROM t");
        all.insert(all.begin(), db.Query("SELECT group_concat(name) FROM pragma_table_info('t')").at(0));
        return all;
    };
    EXPECT_THAT(rows(vector), testing::ElementsAre("'value'", "0 3", "1 4"));
    EXPECT_THAT(rows(deque), testing::ElementsAre("'sku,count'", "0 'a' 1", "1 'b' 2"));
    EXPECT_THAT(rows(set), testing::ElementsAre("'value'", "0 'x'", "1 'y'"));
    EXPECT_THAT(rows(map), testing::ElementsAre("'key,sku,count'", "0 'k' 's' 5"));
    EXPECT_THAT(rows(multi), testing::ElementsAre("'key,value'", "0 1 'one'", "1 1 'uno'"));
    EXPECT_THAT(rows(hashed), testing::ElementsAre("'key,city,zip'", "0 2 'Rome' NULL"));
    EXPECT_THAT(rows(array), testing::ElementsAre("'value'", "0 real 0.5", "1 real 1.5"));
    EXPECT_THAT(rows(slots), testing::ElementsAre("'sku,count'", "0 'p' 1", "1 'q' 2"));
    EXPECT_THAT(rows(colors), testing::ElementsAre("'value'", "0 'red'", "1 'green'"));
    EXPECT_THAT(rows(pairs), testing::ElementsAre("'first,second.sku,second.count'", "0 1 'z' 3"));
    EXPECT_THAT(rows(pointers), testing::ElementsAre("'sku,count'", "0 NULL NULL", "1 'r' 9"));
    EXPECT_THAT(rows(shared), testing::ElementsAre("'sku,count'", "0 NULL NULL", "1 't' 8"));
    EXPECT_THAT(rows(held), testing::ElementsAre("'value'", "0 1", "1 1", "2 1"));
    EXPECT_THAT(rows(std::as_const(pointers)).size(), 3U);
}

struct Base {
    int id = 1;
    std::string secret = "s3cret";
};
VEXA_DESCRIBE_CLASS(Base)
{
    about.Attrib("id", &Base::id);
    about.Attrib("secret", &Base::secret).Masked();
}
struct Account : Base {
    int ID = 2;
    Base inner;
    std::vector<Base> all{1};
    std::string pin = "1234";
    int select = 3;
};
VEXA_DESCRIBE_CLASS(Account)
{
    about.Base<Base>();
    about.Attrib("ID", &Account::ID);
    about.Attrib("inner", &Account::inner);
    about.Attrib("all", &Account::all);
    about.Attrib("pin", &Account::pin).WriteOnly();
    about.Attrib("a \"select\"", &Account::select);
}

TEST(SqlColumns, ConfidentialAttributesAreNotThereUnlessAskedFor)
{
    const std::vector<Account> accounts(1);
    CDatabase db;
    vexa::CSqlView view(db);
    ASSERT_TRUE(view.Add("a", accounts));
    EXPECT_THAT(Described(db, "a"), testing::ElementsAre("id INTEGER: 1", "ID:1 INTEGER: 2", "inner.id INTEGER: 1",
                                                         R"(all TEXT: '[{"id":1}]')", "a \"select\" INTEGER: 3"));
    EXPECT_THAT(db.Query("SELECT secret FROM a"), testing::ElementsAre("error 1: no such column: secret"));

    vexa::CSqlTableOptions options;
    options.ShowMasked = true;
    ASSERT_TRUE(view.Add("a", accounts, options));
    EXPECT_THAT(Described(db, "a"),
                testing::ElementsAre("id INTEGER: 1", "secret TEXT: 's3cret'", "ID:1 INTEGER: 2", "inner.id INTEGER: 1",
                                     "inner.secret TEXT: 's3cret'", R"(all TEXT: '[{"id":1,"secret":"s3cret"}]')",
                                     "a \"select\" INTEGER: 3"));
}

/// A union is shown by what its selector says.
struct Choice {
    union {
        int number;
        double real;
    };
    short kind = 0;
    Choice() : real(0) {}
};
VEXA_DESCRIBE_CLASS(Choice)
{
    about.Attrib("kind", &Choice::kind);
    about.Attrib("number", &Choice::number).ActiveWhen("kind", 0);
    about.Attrib("real", &Choice::real).ActiveWhen("kind", 1);
}

TEST(SqlColumns, AnInactiveMemberOfAUnionIsNull)
{
    std::vector<Choice> choices(3);
    choices[0].number = 5;
    choices[1].kind = 1;
    choices[1].real = 2.5;
    choices[2].kind = 2;
    CDatabase db;
    ASSERT_TRUE(vexa::CSqlView(db).Add("c", choices));
    EXPECT_THAT(db.Query("SELECT * FROM c"), testing::ElementsAre("0 5 NULL", "1 NULL real 2.5", "2 NULL NULL"));
}

struct Deep {
    int n = 0;
    std::unique_ptr<Person> person;
};
VEXA_DESCRIBE(Deep, n, person)

TEST(SqlColumns, DepthAndNumberOfColumnsAreBounded)
{
    const std::vector<Deep> deep(1);
    CDatabase db;
    vexa::CSqlView view(db);
    vexa::CSqlTableOptions options;
    options.MaxDepth = 0;
    ASSERT_TRUE(view.Add("d", deep, options));
    EXPECT_THAT(Described(db, "d"), testing::ElementsAre("n INTEGER: 0"));
    options.MaxDepth = 1;
    ASSERT_TRUE(view.Add("d", deep, options));
    EXPECT_THAT(Described(db, "d"),
                testing::ElementsAre("n INTEGER: 0", "person.id INTEGER: NULL", "person.age INTEGER: NULL",
                                     "person.nick TEXT: NULL", "person.height REAL: NULL"));
    sqlite3_limit(db, SQLITE_LIMIT_COLUMN, 3);
    EXPECT_FALSE(view.Add("d", deep));
    EXPECT_EQ(view.Error(), "d: more than 3 columns: choose a lesser MaxDepth");
}

} // namespace sqlite_columns
