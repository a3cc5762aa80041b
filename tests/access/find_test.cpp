#include <vexa/access.h>

#include <array>
#include <bitset>
#include <filesystem>
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

#include <gtest/gtest.h>

#include <vexa/group.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>

namespace find_shop {

enum class Color { red, green = 5 };
VEXA_DESCRIBE_ENUM(Color, red, green)

struct Address {
    std::string city = "Bonn";
    int zip = 53111;
};
VEXA_DESCRIBE(Address, city, zip)

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
    about.TagValue("circle");
}

struct Order {
    int id = 7;
    Address address;
    std::unique_ptr<Address> billing;
    vexa::MayNull<Address> pickup;
    std::optional<Address> delivery;
    std::shared_ptr<Address> shared = std::make_shared<Address>();
    std::shared_ptr<Shape> drawn = std::make_shared<Circle>();
    const Address* known = nullptr;
    std::variant<int, Address> choice = Address();
    std::vector<Address> previous{3};
    std::list<int> numbers{4, 5, 6};
    std::array<int, 2> pair{{8, 9}};
    std::vector<std::unique_ptr<Shape>> shapes;
    std::map<std::string, double> scores{{"a", 1.5}, {"K\xC3\xB6ln", 2.5}, {"x.y", 3}, {"q\"", 4}, {"apple", 5}};
    std::map<int, std::string> names{{-3, "minus"}, {12, "twelve"}};
    std::unordered_map<Color, int> colors{{Color::red, 1}, {Color::green, 2}};
    std::map<std::filesystem::path, int> files{{"/etc", 1}};
    std::map<std::int8_t, int> bytes{{-1, 7}};
    std::map<double, int> odd{{0.5, 1}};
    std::multimap<std::string, int> many{{"m", 1}, {"m", 2}};
    std::set<int> sorted{3, 1, 2};
    std::tuple<int, Address> tuple{1, {}};
    std::vector<bool> bits{true, false};
    std::bitset<3> flags;
    Color color = Color::green;
    vexa::CJsonTree tree;
};
VEXA_DESCRIBE(Order, id, address, billing, pickup, delivery, shared, drawn, known, choice, previous, numbers, pair,
              shapes, scores, names, colors, files, bytes, odd, many, sorted, tuple, bits, flags, color, tree)

struct Selected {
    int kind = 1;
    union {
        int number;
        double fraction;
    };
    Selected() : number(3) {}
};
VEXA_DESCRIBE_CLASS(Selected)
{
    about.Attrib("kind", &Selected::kind);
    about.Attrib("number", &Selected::number).ActiveWhen("kind", 1);
    about.Attrib("fraction", &Selected::fraction).ActiveWhen("kind", 2);
}

struct Secret {
    std::string city = "hidden";
    std::vector<int> parts{1, 2};
};
VEXA_DESCRIBE(Secret, city, parts)
struct Holder {
    Secret secret;
    std::vector<Order> orders{3};
};
VEXA_DESCRIBE_CLASS(Holder)
{
    about.Attrib("secret", &Holder::secret).Masked();
    about.Attrib("orders", &Holder::orders);
}

} // namespace find_shop

namespace {

using namespace find_shop;
using vexa::Find;

/// The address and the type, where there is one; otherwise what the report says.
struct Found {
    const void* Address;
    std::string Text;
};
bool operator==(const Found& left, const Found& right)
{
    return left.Address == right.Address && left.Text == right.Text;
}
std::ostream& operator<<(std::ostream& stream, const Found& found)
{
    return stream << found.Address << ' ' << found.Text;
}

template<class T>
Found In(T& object, std::string_view path)
{
    vexa::CReport report;
    const auto ref = Find(object, path, &report);
    EXPECT_EQ(ref.Address == nullptr, !report.IsEmpty()) << path;
    EXPECT_EQ(ref.Address, Find(object, path).Address) << path;
    return {ref.Address, ref.Address != nullptr ? ref.TypeName() : report.AsString()};
}
template<class T>
Found At(const T& object, const std::string& type)
{
    return {&object, type};
}
Found Problem(const std::string& text) { return {nullptr, text + "\n"}; }

TEST(Find, FollowsMembersPointersAndWrappers)
{
    Order order;
    order.billing = std::make_unique<Address>();
    order.pickup = Address();
    order.delivery = Address();
    EXPECT_EQ(At(order, "Order"), In(order, ""));
    EXPECT_EQ(At(order.id, "int"), In(order, "id"));
    EXPECT_EQ(At(order.address.zip, "int"), In(order, "address.zip"));
    EXPECT_EQ(At(order.billing, "Address*"), In(order, "billing"));
    EXPECT_EQ(At(order.billing->city, "std::string"), In(order, "billing.city"));
    EXPECT_EQ(At(order.pickup->zip, "int"), In(order, "pickup.zip"));
    EXPECT_EQ(At(order.delivery->zip, "int"), In(order, "delivery.zip"));
    EXPECT_EQ(At(order.shared->zip, "int"), In(order, "shared.zip"));
    EXPECT_EQ(At(std::get<Address>(order.choice).city, "std::string"), In(order, "choice.city"));
    EXPECT_EQ(At(order.address.zip, "int"), In(order, "[\"address\"][\"zip\"]"));
}

TEST(Find, LeadsToElementsByTheirPlace)
{
    Order order;
    order.shapes.push_back(std::make_unique<Circle>());
    EXPECT_EQ(At(order.previous[2].city, "std::string"), In(order, "previous[2].city"));
    EXPECT_EQ(At(*std::next(order.numbers.begin()), "int"), In(order, "numbers[1]"));
    EXPECT_EQ(At(order.pair[1], "int"), In(order, "pair[1]"));
    EXPECT_EQ(At(std::get<1>(order.tuple).zip, "int"), In(order, "tuple[1].zip"));
    EXPECT_EQ(At(*order.sorted.rbegin(), "int"), In(order, "sorted[2]"));
    EXPECT_EQ(At(order.many.begin()->second, "int"), In(order, "many[0].second"));
    EXPECT_EQ(At(order.many.begin()->second, "int"), In(order, "many[0][1]"));
    EXPECT_EQ(At(order.odd.begin()->first, "double"), In(order, "odd[0].first"));
    EXPECT_EQ(At(order.shapes[0], "Shape*"), In(order, "shapes[0]"));
}

TEST(Find, LeadsToTheRealObjectBehindAPointer)
{
    Order order;
    order.shapes.push_back(std::make_unique<Circle>());
    order.shapes.push_back(std::make_unique<Shape>());
    auto& circle = static_cast<Circle&>(*order.shapes[0]);
    EXPECT_EQ(At(circle.radius, "double"), In(order, "shapes[0].radius"));
    EXPECT_EQ(At(circle.id, "int"), In(order, "shapes[0].id"));
    EXPECT_EQ(At(static_cast<Circle&>(*order.drawn).radius, "double"), In(order, "drawn.radius"));
    EXPECT_EQ(Problem("shapes[1].radius: find_shop::Shape has no attribute \"radius\""), In(order, "shapes[1].radius"));
}

TEST(Find, LeadsToEntriesByTheirKeys)
{
    Order order;
    EXPECT_EQ(At(order.scores["a"], "double"), In(order, "scores[\"a\"]"));
    EXPECT_EQ(At(order.scores["K\xC3\xB6ln"], "double"), In(order, "scores[\"K\\u00f6ln\"]"));
    EXPECT_EQ(At(order.scores["K\xC3\xB6ln"], "double"), In(order, "scores[\"K\xC3\xB6ln\"]"));
    EXPECT_EQ(At(order.scores["x.y"], "double"), In(order, "scores[\"x.y\"]"));
    EXPECT_EQ(At(order.scores["q\""], "double"), In(order, "scores[\"q\\\"\"]"));
    EXPECT_EQ(At(order.names[-3], "std::string"), In(order, "names[-3]"));
    EXPECT_EQ(At(order.names[12], "std::string"), In(order, "names[12]"));
    EXPECT_EQ(At(order.colors[Color::green], "int"), In(order, "colors[green]"));
    EXPECT_EQ(At(order.colors[Color::red], "int"), In(order, "colors[\"red\"]"));
    EXPECT_EQ(At(order.colors[Color::green], "int"), In(order, "colors[5]"));
    EXPECT_EQ(At(order.files["/etc"], "int"), In(order, "files[\"/etc\"]"));
    EXPECT_EQ(At(order.bytes[-1], "int"), In(order, "bytes[-1]"));
}

TEST(Find, MarksWhatCannotBeChanged)
{
    Order order;
    const Address known;
    order.known = &known;
    const auto isConst = [&](std::string_view path) { return Find(order, path).TypeInfor.Has(vexa::Enum::HF_CONST); };
    EXPECT_TRUE(isConst("known.zip"));
    EXPECT_TRUE(isConst("sorted[0]"));
    EXPECT_TRUE(isConst("many[0].first"));
    EXPECT_FALSE(isConst("many[0].second"));
    EXPECT_FALSE(isConst("scores[\"a\"]"));
    EXPECT_FALSE(isConst("address.zip"));
    const Order& fixed = order;
    EXPECT_TRUE(Find(fixed, "previous[1].zip").TypeInfor.Has(vexa::Enum::HF_CONST));
    EXPECT_TRUE(Find(vexa::RefOf(fixed), "id").TypeInfor.Has(vexa::Enum::HF_CONST));
}

TEST(Find, LooksIntoRecordsTablesAndTrees)
{
    vexa::CTable table;
    table.AddColumn(vexa::Enum::DT_INT, "id");
    table.AddColumn(vexa::Enum::DT_STD_STRING, "name");
    table.AddRow();
    table.AddRow();
    EXPECT_EQ(At(table.Rows[1], "vexa::CRow"), In(table, "[1]"));
    EXPECT_EQ(&table.Rows[1][1], In(table, "[1].name").Address);
    EXPECT_EQ(&table.Rows[1][0], In(table, "[1][\"id\"]").Address);
    EXPECT_EQ(&table.Rows[0][1], In(table, "[0][1]").Address);
    EXPECT_EQ(Problem("[0].nam: there is no such entry; did you mean \"name\"?"), In(table, "[0].nam"));
    EXPECT_EQ(Problem("[2]: there is no such element: expected an index below 2"), In(table, "[2].name"));

    Order order;
    vexa::CReferenceGroup group;
    group.Add("order", vexa::RefOf(order));
    group.Add("a.b", vexa::RefOf(order.id));
    group.Add(vexa::RefOf(order.address));
    group.Add(vexa::CRefrence());
    EXPECT_EQ(At(order.address.zip, "int"), In(group, "order.address.zip"));
    EXPECT_EQ(At(order.id, "int"), In(group, "[\"a.b\"]"));
    EXPECT_EQ(At(order.address.zip, "int"), In(group, "[0].zip"));
    EXPECT_EQ(Problem("this is null: expected a value behind the entry"), In(group, "[1].zip"));
    EXPECT_EQ(Problem("ordr: there is no such entry; did you mean \"order\"?"), In(group, "ordr.id"));

    order.tree["items"].Append(3);
    EXPECT_EQ(&order.tree["items"][std::size_t{0}], In(order, "tree.items[0]").Address);
    EXPECT_EQ(Problem("tree.item: there is no such entry"), In(order, "tree.item"));
}

TEST(Find, LeadsToTheActiveMemberOfAUnionOnly)
{
    Selected selected;
    EXPECT_EQ(At(selected.number, "int"), In(selected, "number"));
    EXPECT_EQ(Problem("fraction: \"fraction\" is not the active member of its union"), In(selected, "fraction"));
}

TEST(Find, SaysInOneSentenceWhatIsWrong)
{
    Holder holder;
    EXPECT_EQ(Problem("orders[2].adress: find_shop::Order has no attribute \"adress\"; did you mean \"address\"?"),
              In(holder, "orders[2].adress"));
    EXPECT_EQ(Problem("orders[3]: there is no such element: expected an index below 3"), In(holder, "orders[3].id"));
    EXPECT_EQ(Problem("orders[-1]: there is no such element: expected an index below 3"), In(holder, "orders[-1]"));
    EXPECT_EQ(Problem("orders[0].shapes[0]: there is no such element: found an empty container"),
              In(holder, "orders[0].shapes[0]"));
    EXPECT_EQ(Problem("orders[0].billing: this is null"), In(holder, "orders[0].billing.city"));
    EXPECT_EQ(Problem("orders[0].known: this is null"), In(holder, "orders[0].known.city"));
    EXPECT_EQ(Problem("orders[0].pickup: this is null"), In(holder, "orders[0].pickup.city"));
    EXPECT_EQ(Problem("orders[0].delivery: this is null"), In(holder, "orders[0].delivery.city"));
    EXPECT_EQ(Problem("orders[1].scores[\"appel\"]: there is no such entry; did you mean \"apple\"?"),
              In(holder, "orders[1].scores[\"appel\"]"));
    EXPECT_EQ(Problem("orders[1].names[7]: there is no such entry"), In(holder, "orders[1].names[7]"));
    EXPECT_EQ(Problem("orders[1].colors[gren]: the name is not known: expected one of \"red\", \"green\", found "
                      "\"gren\"; did you mean \"green\"?"),
              In(holder, "orders[1].colors[gren]"));
    EXPECT_EQ(Problem("orders[1].scores[7]: expected a key in quotation marks, found [7]"),
              In(holder, "orders[1].scores[7]"));
    EXPECT_EQ(Problem("orders.id: expected an index in brackets, found \"id\""), In(holder, "orders.id"));
    EXPECT_EQ(Problem("orders[0][1]: expected the name of an attribute, found [1]"), In(holder, "orders[0][1]"));
    EXPECT_EQ(Problem("orders[0].id.x: expected an object or container, found int"), In(holder, "orders[0].id.x"));
    EXPECT_EQ(Problem("orders[0].bits[0]: this value has no address of its own"), In(holder, "orders[0].bits[0]"));
    EXPECT_EQ(Problem("orders[0].flags[0]: this value has no address of its own"), In(holder, "orders[0].flags[0]"));
    EXPECT_EQ(Problem("orders[*]: these are many values: expected the way to one"), In(holder, "orders[*].id"));
    EXPECT_EQ(Problem("this is null"), In(*std::make_unique<vexa::CRefrence>(vexa::TypeInforOf<Order>(), nullptr), ""));
}

TEST(Find, TellsABrokenPath)
{
    Order order;
    EXPECT_EQ(Problem("previous[: this is not a path: expected an index, a key or \"*\", found the end of the path"),
              In(order, "previous["));
    EXPECT_EQ(Problem("previous[1: this is not a path: expected \"]\", found the end of the path"),
              In(order, "previous[1"));
    EXPECT_EQ(Problem("previous[: this is not a path: expected an index, a key or \"*\", found \"01]\""),
              In(order, "previous[01]"));
    EXPECT_EQ(Problem("address.: this is not a path: expected a name, found the end of the path"),
              In(order, "address."));
    EXPECT_EQ(Problem("this is not a path: expected a name, found \".id\""), In(order, ".id"));
    EXPECT_EQ(Problem("previous[1]: this is not a path: expected \".\" or \"[\", found \"city\""),
              In(order, "previous[1]city"));
    EXPECT_EQ(Problem("scores[: this is not a path: expected a key as JSON writes texts, found \"\\\"\\\\x\\\"]\""),
              In(order, "scores[\"\\x\"]"));
    EXPECT_EQ(Problem("scores[\"a\": this is not a path: expected \"]\", found \"b]\""), In(order, "scores[\"a\"b]"));
}

TEST(Find, ShowsNothingOfWhatIsInsideAConfidentialAttribute)
{
    Holder holder;
    EXPECT_EQ(At(holder.secret.parts[1], "int"), In(holder, "secret.parts[1]"));
    EXPECT_EQ(Problem("secret: there is no such element"), In(holder, "secret.parts[2]"));
    EXPECT_EQ(Problem("secret: there is no such attribute"), In(holder, "secret.cty"));
}

} // namespace
