#include <vexa/access.h>

#include <array>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/json_tree.h>
#include <vexa/types.h>

#include "support/counted_allocation.h"

namespace bound_shop {

struct Address {
    std::string city = "Bonn";
    int zip = 53111;
    bool isHome = true;
};
VEXA_DESCRIBE(Address, city, zip, isHome)
struct Shape {
    virtual ~Shape() = default;
    int id = 1;
};
VEXA_DESCRIBE_CLASS(Shape)
{
    about.Attrib("id", &Shape::id);
    about.Tag("kind");
}
struct Circle : Shape {
    double radius = 2.5;
};
VEXA_DESCRIBE_CLASS(Circle)
{
    about.Base<Shape>();
    about.Attrib("radius", &Circle::radius);
}
struct Item {
    double price = 1;
    std::unique_ptr<Address> from;
    std::vector<int> parts;
};
VEXA_DESCRIBE(Item, price, from, parts)
struct Order {
    Address address;
    std::unique_ptr<Address> billing = std::make_unique<Address>();
    const Address* known = nullptr;
    vexa::MayNull<Address> pickup = Address();
    std::optional<Address> delivery = Address();
    std::shared_ptr<Shape> drawn = std::make_shared<Circle>();
    std::variant<int, Address> choice = Address();
    std::vector<Item> items;
    std::list<Item> list;
    std::array<int, 3> fixed{{1, 2, 3}};
    std::map<std::string, double> scores{{"a", 1.5}, {"b", 2.5}, {"a key that is longer than others", 3.5}};
    std::map<int, Address> places{{-3, Address()}};
    std::multimap<int, int> many{{1, 2}};
    std::tuple<int, Address> tuple;
    int kind = 1;
    union {
        int number = 3;
        double fraction;
    };
    vexa::CJsonTree tree;
    std::vector<bool> bits{true};
    Address secret;
    std::vector<Item> hidden{2};
};
VEXA_DESCRIBE_CLASS(Order)
{
    VEXA_MEMBERS(Order, address, billing, known, pickup, delivery, drawn, choice, items, list, fixed, scores, places,
                 many, tuple, kind)
    about.Attrib("number", &Order::number).ActiveWhen("kind", 1);
    about.Attrib("fraction", &Order::fraction).ActiveWhen("kind", 2);
    VEXA_MEMBERS(Order, tree, bits)
    about.Attrib("secret", &Order::secret).Masked();
    about.Attrib("hidden", &Order::hidden).Masked();
}

} // namespace bound_shop

namespace {

using namespace bound_shop;
using vexa::CBoundPath;

const vexa::CClassInfor& OrderInfor() { return vexa::ClassInforOf<Order>(); }

Order Filled()
{
    Order order;
    order.items.resize(3);
    for (std::size_t i = 0; i < 3; ++i) {
        order.items[i].price = 10.0 * static_cast<double>(i);
        order.items[i].parts.assign(i, static_cast<int>(i));
    }
    order.items[1].from = std::make_unique<Address>();
    order.list.resize(2);
    order.tree["a"].Append(7);
    return order;
}

/// Paths that lead somewhere in such an order.
const char* const GOOD[] = {"",
                            "address",
                            "address.zip",
                            "billing",
                            "billing.city",
                            "pickup.zip",
                            "delivery.city",
                            "drawn.id",
                            "drawn.radius",
                            "choice.zip",
                            "items[2].price",
                            "items[1].from.city",
                            "items[2].parts[1]",
                            "list[1].price",
                            "fixed[2]",
                            "scores[\"b\"]",
                            "scores[\"a key that is longer than others\"]",
                            "places[-3].zip",
                            "many[0].first",
                            "many[0][1]",
                            "tuple[1].city",
                            "number",
                            "tree.a[0]",
                            "secret.city",
                            "known"};

TEST(BoundPath, LeadsWhereFindDoes)
{
    Order order = Filled();
    const Order& fixed = order;
    for (const char* path : GOOD) {
        vexa::CReport report;
        const CBoundPath bound(OrderInfor(), path, &report);
        ASSERT_TRUE(bound && report.IsEmpty()) << path << '\n' << report;
        const vexa::CRefrence expected = vexa::Find(order, path);
        ASSERT_NE(expected.Address, nullptr) << path;
        EXPECT_EQ(bound.Find(order).Address, expected.Address) << path;
        EXPECT_EQ(bound.Find(order).TypeName(), expected.TypeName()) << path;
        EXPECT_EQ(bound.Find(order).TypeInfor.HoldingFlags, expected.TypeInfor.HoldingFlags) << path;
        EXPECT_EQ(bound.Find(vexa::RefOf(order)).Address, expected.Address) << path;
        EXPECT_EQ(bound.Find(fixed).Address, expected.Address) << path;
        EXPECT_EQ(bound.Find(fixed).TypeInfor.HoldingFlags, vexa::Find(fixed, path).TypeInfor.HoldingFlags) << path;
        EXPECT_EQ(bound.Path(), path);
        EXPECT_FALSE(bound.LeadsToMany());
    }
}

TEST(BoundPath, GetsAndSetsValues)
{
    Order order = Filled();
    EXPECT_EQ(CBoundPath(OrderInfor(), "billing.zip").Get<int>(order), 53111);
    EXPECT_EQ(CBoundPath(OrderInfor(), "billing.zip").Get<std::string>(order), "53111");
    EXPECT_EQ(CBoundPath(OrderInfor(), "billing.isHome").Get<bool>(order), true);
    EXPECT_EQ(CBoundPath(OrderInfor(), "items[2].price").Get<double>(order), 20.0);
    EXPECT_EQ(CBoundPath(OrderInfor(), "scores[\"a\"]").Get<double>(vexa::RefOf(order)), 1.5);
    EXPECT_TRUE(CBoundPath(OrderInfor(), "items[2].price").Set(order, "2.25"));
    EXPECT_TRUE(CBoundPath(OrderInfor(), "billing.zip").Set(order, 5));
    EXPECT_EQ(order.items[2].price, 2.25);
    EXPECT_EQ(order.billing->zip, 5);
    vexa::CReport report;
    EXPECT_FALSE(CBoundPath(OrderInfor(), "billing.zip").Set(order, "5x", &report));
    EXPECT_FALSE(CBoundPath(OrderInfor(), "many[0].first").Set(order, 5, &report));
    EXPECT_EQ(report.AsString(), "billing.zip: the text is not of the right form: expected an integer, found \"5x\"\n"
                                 "many[0].first: this value cannot be changed\n");
}

std::string BindingOf(const char* path)
{
    vexa::CReport report;
    const CBoundPath bound(OrderInfor(), path, &report);
    Order order;
    EXPECT_FALSE(bound) << path;
    EXPECT_EQ(bound.Find(order).Address, nullptr);
    EXPECT_EQ(bound.Get<int>(order), std::nullopt);
    EXPECT_FALSE(bound.Set(order, 1));
    EXPECT_FALSE(bound.ForEach(order, [](const vexa::CRefrence&) {}));
    return report.AsString();
}

TEST(BoundPath, TellsWhenItIsMadeWhatNoObjectHas)
{
    EXPECT_EQ(BindingOf("adress.zip"),
              "adress: bound_shop::Order has no attribute \"adress\"; did you mean \"address\"?\n");
    EXPECT_EQ(BindingOf("items[0].prize"),
              "items[0].prize: bound_shop::Item has no attribute \"prize\"; did you mean \"price\"?\n");
    EXPECT_EQ(BindingOf("drawn.color"), "drawn.color: bound_shop::Shape has no attribute \"color\"\n");
    EXPECT_EQ(BindingOf("fixed[3]"), "fixed[3]: there is no such element: expected an index below 3\n");
    EXPECT_EQ(BindingOf("tuple[2]"), "tuple[2]: there is no such element: expected an index below 2\n");
    EXPECT_EQ(BindingOf("places[\"x\"]"), "places[\"x\"]: expected an integer key, found \"x\"\n");
    EXPECT_EQ(BindingOf("kind.x"), "kind.x: expected an object or container, found int\n");
    EXPECT_EQ(BindingOf("bits[0]"), "bits[0]: this value has no address of its own\n");
    EXPECT_EQ(BindingOf("items[0"), "items[0: this is not a path: expected \"]\", found the end of the path\n");
    EXPECT_EQ(BindingOf("tree.a[*]"), "tree.a[*]: these are many values: expected containers that the class tells\n");
    EXPECT_EQ(BindingOf("secret.cty"), "secret: there is no such attribute\n");
}

template<class T>
std::string UseOf(const char* path, T& object)
{
    const CBoundPath bound(OrderInfor(), path);
    EXPECT_TRUE(bound) << path;
    vexa::CReport report;
    EXPECT_EQ(bound.Find(object, &report).Address, nullptr);
    EXPECT_EQ(bound.Find(object).Address, nullptr);
    return report.AsString();
}

TEST(BoundPath, TellsWithEachObjectWhatThatLacks)
{
    Order order;
    order.billing = nullptr;
    order.pickup = {};
    order.delivery.reset();
    order.drawn = std::make_shared<Shape>();
    order.choice = 3;
    EXPECT_EQ(UseOf("billing.zip", order), "billing: this is null\n");
    EXPECT_EQ(UseOf("known.zip", order), "known: this is null\n");
    EXPECT_EQ(UseOf("pickup.zip", order), "pickup: this is null\n");
    EXPECT_EQ(UseOf("delivery.zip", order), "delivery: this is null\n");
    EXPECT_EQ(UseOf("items[2].price", order), "items[2]: there is no such element: found an empty container\n");
    EXPECT_EQ(UseOf("list[2].price", order), "list[2]: there is no such element: found an empty container\n");
    EXPECT_EQ(UseOf("scores[\"c\"]", order), "scores[\"c\"]: there is no such entry\n");
    EXPECT_EQ(UseOf("fraction", order), "fraction: \"fraction\" is not the active member of its union\n");
    EXPECT_EQ(UseOf("drawn.radius", order), "drawn.radius: bound_shop::Shape has no attribute \"radius\"\n");
    EXPECT_EQ(UseOf("choice.zip", order), "choice.zip: expected an object or container, found int\n");
    EXPECT_EQ(UseOf("items[*].price", order), "items[*]: these are many values: expected the way to one\n");
    EXPECT_EQ(UseOf("hidden[2].price", order), "hidden: there is no such element\n");
    EXPECT_EQ(UseOf("hidden[1].from.zip", order), "hidden: this is null\n");
    Address other;
    EXPECT_EQ(UseOf("kind", other), "expected bound_shop::Order, found bound_shop::Address\n");
    const vexa::CRefrence nothing(vexa::TypeInforOf<Order>(), nullptr);
    EXPECT_EQ(UseOf("kind", nothing), "this is null: expected bound_shop::Order\n");
}

TEST(BoundPath, GoesThroughAllElements)
{
    Order order = Filled();
    const CBoundPath prices(OrderInfor(), "items[*].price");
    EXPECT_TRUE(prices.LeadsToMany());
    double sum = 0;
    EXPECT_TRUE(prices.ForEach(order, [&](const vexa::CRefrence& price) {
        sum += price.AsStdBasicType().As_double();
        vexa::TrySet(price, 1);
    }));
    EXPECT_EQ(sum, 30.0);
    EXPECT_EQ(order.items[2].price, 1.0);

    std::vector<const void*> found;
    const auto keep = [&](const vexa::CConstRefrence& ref) { found.push_back(ref.Address); };
    const Order& fixed = order;
    EXPECT_TRUE(CBoundPath(OrderInfor(), "items[*].parts[*]").ForEach(fixed, keep));
    EXPECT_EQ(found,
              (std::vector<const void*>{&order.items[1].parts[0], &order.items[2].parts[0], &order.items[2].parts[1]}));
    found.clear();
    EXPECT_TRUE(CBoundPath(OrderInfor(), "places[*].zip").ForEach(vexa::RefOf(order), keep));
    EXPECT_TRUE(CBoundPath(OrderInfor(), "many[*].second").ForEach(order, keep));
    EXPECT_TRUE(CBoundPath(OrderInfor(), "list[*].price").ForEach(order, keep));
    EXPECT_TRUE(CBoundPath(OrderInfor(), "kind").ForEach(order, keep));
    EXPECT_EQ(found, (std::vector<const void*>{&order.places[-3].zip, &order.many.begin()->second,
                                               &order.list.front().price, &order.list.back().price, &order.kind}));
}

TEST(BoundPath, PassesOverWhatIsMissingAndTellsWhichItIs)
{
    Order order = Filled();
    vexa::CReport report;
    int count = 0;
    const auto countOne = [&](const vexa::CRefrence&) { ++count; };
    EXPECT_FALSE(CBoundPath(OrderInfor(), "items[*].from.city").ForEach(order, countOne, &report));
    EXPECT_FALSE(CBoundPath(OrderInfor(), "items[*].parts[1]").ForEach(order, countOne, &report));
    EXPECT_EQ(count, 2);
    EXPECT_EQ(report.AsString(), "items[0].from: this is null\n"
                                 "items[2].from: this is null\n"
                                 "items[0].parts[1]: there is no such element: found an empty container\n"
                                 "items[1].parts[1]: there is no such element: expected an index below 1\n");
}

TEST(BoundPath, UsingItAllocatesNothing)
{
    Order order = Filled();
    for (const char* path : {"billing.zip", "items[2].price", "list[1].price", "delivery.zip", "pickup.zip",
                             "scores[\"a key that is longer than others\"]", "number", "tuple[1].zip"}) {
        const CBoundPath bound(OrderInfor(), path);
        bound.Find(order); // a walk's memory is kept from one to the next
        const CBoundPath all(OrderInfor(), "items[*].price");
        double sum = 0;
        const long before = vexa_test::s_made;
        const void* const found = bound.Find(order).Address;
        all.ForEach(order, [&](const vexa::CRefrence& ref) { sum += ref.AsStdBasicType().As_double(); });
        EXPECT_EQ(vexa_test::s_made, before) << path;
        EXPECT_NE(found, nullptr);
    }
}

TEST(BoundPath, CopiesOutliveTheirOriginal)
{
    Order order = Filled();
    auto first = std::make_unique<CBoundPath>(OrderInfor(), "items[2].price");
    const CBoundPath second = *first;
    first.reset();
    EXPECT_EQ(second.Get<double>(order), 20.0);
}

} // namespace
