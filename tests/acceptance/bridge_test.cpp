// A store keeps orders as objects, shows them as a table, edits the table, and takes the orders back: with nothing but
// descriptions, and with the whole of what it prints.

#include <vexa/vexa.h>

#include <list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace bridge_test {

/// An amount in cents that is shown in euros.
struct Amount {
    long cents = 0;
};
void ToValue(const Amount& amount, vexa::CValue& out)
{
    const std::string cents = std::to_string(amount.cents % 100 + 100).substr(1);
    out = vexa::CNumeric(std::to_string(amount.cents / 100) + "." + cents);
}
void FromValue(Amount& amount, const vexa::CValue& in)
{
    amount.cents = in.IsNull() ? 0 : static_cast<long>(in.As_double() * 100 + 0.5);
}
VEXA_DESCRIBE_CUSTOM_ANY(Amount, 1)

struct Sku {
    std::string code;
};
VEXA_DESCRIBE_CUSTOM_STD(Sku, &Sku::code)

struct Customer {
    std::string name;
    std::string card;
};
VEXA_DESCRIBE_CLASS(Customer)
{
    about.Attrib("name", &Customer::name);
    about.Attrib("card", &Customer::card).Masked();
}

struct Order {
    int id = 0;
    Customer customer;
    Sku sku;
    Amount price;
    vexa::MayNull<vexa::CDateTime> shipped;
    std::vector<std::string> notes;
};
VEXA_DESCRIBE(Order, id, customer, sku, price, shipped, notes)

} // namespace bridge_test

namespace {

using namespace bridge_test;
using namespace vexa::Enum;

std::vector<Order> Orders()
{
    std::vector<Order> orders(2);
    orders[0] = {1, {"Ann", "4111"}, {"A-1"}, {1990}, {}, {"fragile"}};
    orders[1] = {2, {"Bob", "4222"}, {"B-2"}, {500}, vexa::CDateTime(std::string("2020-01-02 03:04:05")), {}};
    return orders;
}

TEST(Bridge, ShowsObjectsAsATable)
{
    vexa::CTable table;
    ASSERT_TRUE(vexa::TableFromObjects(table, Orders()));
    EXPECT_EQ(vexa::AsString(table, ASF_TYPE_AND_VALUE),
              "vexa::CTable: "
              "\nint id, std::string customer_name, std::string sku, std::string price, vexa::CDateTime shipped"
              "\n  - int: 1,std::string: Ann,std::string: A-1,std::string: 19.90,vexa::CDateTime: NULL,"
              "\n  - int: 2,std::string: Bob,std::string: B-2,std::string: 5.00,vexa::CDateTime: 2020-01-02 03:04:05,");
    EXPECT_EQ(table.AsString(), "1,Ann,A-1,19.90,NULL,\n2,Bob,B-2,5.00,2020-01-02 03:04:05,\n");
}

TEST(Bridge, ShowsAMaskedAttributeOnlyWhenItIsAskedForByName)
{
    vexa::CTable table;
    ASSERT_TRUE(vexa::TableFromObjects(table, Orders(), {"id", "customer_card"}));
    EXPECT_EQ(table.AsString(), "1,4111,\n2,4222,\n");
    EXPECT_EQ(vexa::AsString(Orders()[0].customer), "\nname: Ann\ncard: ***");
}

TEST(Bridge, TakesAnEditedTableBack)
{
    vexa::CTable table;
    ASSERT_TRUE(vexa::TableFromObjects(table, Orders()));
    table.AddColumn(DT_STD_STRING, "remark");
    table.Rows[0][table.ColumnIndex("price")] = 7.25;
    table.Rows[0][table.ColumnIndex("shipped")] = "2021-12-31 23:59:59";
    table.Rows[1][table.ColumnIndex("shipped")].SetNull();
    table.Rows[1][table.ColumnIndex("id")] = "20";
    table.Append({vexa::null, "Eve", 33, vexa::null, vexa::null, "new"});

    std::list<Order> orders;
    std::vector<std::string> unknown;
    ASSERT_TRUE(vexa::ObjectsFromTable(orders, table, &unknown));
    std::string json;
    ASSERT_EQ(vexa::ToJson(json, orders), 0);

    EXPECT_EQ(unknown, std::vector<std::string>{"remark"});
    EXPECT_EQ(json, R"([{"id":1,"customer":{"name":"Ann","card":""},"sku":"A-1","price":7.25,)"
                    R"("shipped":2021-12-31 23:59:59,"notes":[]},)"
                    R"({"id":20,"customer":{"name":"Bob","card":""},"sku":"B-2","price":5.00,"notes":[]},)"
                    R"({"id":0,"customer":{"name":"Eve","card":""},"sku":"33","price":0.00,"notes":[]}])");
}

TEST(Bridge, LooksThroughAGroupOfObjectsAndRecords)
{
    std::vector<Order> orders = Orders();
    vexa::CTable table;
    ASSERT_TRUE(vexa::TableFromObjects(table, orders, {"id", "sku"}));
    vexa::CReferenceGroup report;
    report.Add("first", vexa::RefOf(orders[0]));
    report.Add("table", vexa::RefOf(table));
    report.Add(vexa::RefOf(table.Rows[1]));

    vexa::CRefrence found;
    ASSERT_TRUE(report.FindReferenceByFlatName(found, "first.customer.name"));
    found.AsStdBasicType().ReadFrom("Anna");
    EXPECT_EQ(orders[0].customer.name, "Anna");
    EXPECT_EQ(report.AsString(), "\nfirst: "
                                 "\n  id: 1"
                                 "\n  customer: "
                                 "\n    name: Anna"
                                 "\n    card: ***"
                                 "\n  sku: A-1"
                                 "\n  price: 19.90"
                                 "\n  shipped: NULL"
                                 "\n  notes: "
                                 "\n    - fragile"
                                 "\ntable: "
                                 "\n  - 1,A-1,"
                                 "\n  - 2,B-2,"
                                 "\ncolumn 0: 2,B-2,");
}

} // namespace
