// Trees built by hand: what they are, what lies inside, numbers, comparison, depth.

#include <vexa/json_tree.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using vexa::CJsonTree;
using vexa::JsonKind;

/// A tree in a notation of the tests' own.
std::string Shown(const CJsonTree& tree)
{
    switch (tree.Kind()) {
    case JsonKind::NULL_VALUE: return "null";
    case JsonKind::BOOL: return *tree.AsBool() ? "true" : "false";
    case JsonKind::NUMBER: return std::string(*tree.AsDigits());
    case JsonKind::TEXT: return "'" + std::string(*tree.AsText()) + "'";
    default: break;
    }
    std::string text;
    for (const CJsonTree& element : tree.Elements())
        text += (text.empty() ? "" : " ") + Shown(element);
    for (const CJsonTree::CMember& member : tree.Members())
        text += (text.empty() ? "" : " ") + member.Key() + '=' + Shown(member.Value);
    return tree.IsArray() ? '[' + text + ']' : '{' + text + '}';
}

CJsonTree Number(const std::string& digits)
{
    CJsonTree tree;
    EXPECT_TRUE(tree.SetDigits(digits)) << digits;
    return tree;
}

std::string ShownOrNone(const CJsonTree* tree) { return tree != nullptr ? Shown(*tree) : "none"; }

template<class T>
std::string ShownOrNone(const std::optional<T>& value)
{
    return value ? std::to_string(*value) : "none";
}

CJsonTree Order()
{
    CJsonTree order;
    order["id"] = 7;
    order["items"].Append("pen");
    order["items"].Append(2.50);
    order["items"].Append(CJsonTree::Object({{"a/b", true}, {"m~n", nullptr}, {"", 1}, {"x.y", 2}}));
    order["paid"] = false;
    return order;
}

TEST(JsonTree, IsWhatItIsMadeFrom)
{
    const std::string text = "text";
    const char* none = nullptr;
    const CJsonTree trees[] = {{},
                               nullptr,
                               true,
                               false,
                               'A',
                               short{-1},
                               5,
                               7U,
                               -9L,
                               ~0UL,
                               std::numeric_limits<long long>::min(),
                               0.1F,
                               0.1,
                               0.1L,
                               1.0,
                               -0.0,
                               1e300,
                               text,
                               "literal",
                               std::string_view("view"),
                               none};
    std::string shown;
    for (const CJsonTree& tree : trees)
        shown += Shown(tree) + ' ';
    EXPECT_EQ(shown, "null null true false 65 -1 5 7 -9 18446744073709551615 -9223372036854775808 0.1 0.1 0.1 1.0 -0.0 "
                     "1e+300 'text' 'literal' 'view' null ");
}

TEST(JsonTree, TellsItsKindAndOnlyThatValue)
{
    struct CCase {
        CJsonTree Tree;
        std::string Expected;
    };
    const CCase cases[] = {{nullptr, "0 100000 none none none none"},
                           {true, "1 010000 1 none none none"},
                           {5, "2 001000 none 5 5 5.000000"},
                           {"t", "3 000100 none none none none"},
                           {CJsonTree::Array(), "4 000010 none none none none"},
                           {CJsonTree::Object(), "5 000001 none none none none"}};
    for (const auto& [tree, expected] : cases) {
        std::string found = std::to_string(static_cast<int>(tree.Kind())) + ' ';
        for (const bool is :
             {tree.IsNull(), tree.IsBool(), tree.IsNumber(), tree.IsText(), tree.IsArray(), tree.IsObject()})
            found += is ? '1' : '0';
        found += ' ' + ShownOrNone(tree.AsBool()) + ' ' + ShownOrNone(tree.AsInteger()) + ' ' +
                 ShownOrNone(tree.AsUnsigned()) + ' ' + ShownOrNone(tree.AsDouble());
        EXPECT_EQ(found, expected);
        EXPECT_EQ(tree.AsText().has_value(), tree.IsText());
        EXPECT_EQ(tree.AsDigits().has_value(), tree.IsNumber());
    }
}

TEST(JsonTree, IsBuiltChangedAndEmptied)
{
    CJsonTree order = Order();
    EXPECT_EQ(Shown(order), "{id=7 items=['pen' 2.5 {a/b=true m~n=null =1 x.y=2}] paid=false}");
    order["id"] = "seven"; // in its place
    order.Set("paid", CJsonTree::Array({1, CJsonTree::Array({2, 3})}));
    order["items"][1] = nullptr;
    EXPECT_TRUE(order["items"].Remove(2));
    EXPECT_FALSE(order["items"].Remove(2));
    EXPECT_FALSE(order.Remove("nothing"));
    EXPECT_FALSE(order["id"].Remove("nothing"));
    EXPECT_FALSE(order["id"].Remove(0));
    EXPECT_EQ(Shown(order), "{id='seven' items=['pen' null] paid=[1 [2 3]]}");
    EXPECT_TRUE(order.Remove("id"));
    EXPECT_EQ(order.Size(), 2U);
    order["paid"]["now"] = true; // what is no object becomes one
    order["items"]["x"].Append(1);
    EXPECT_EQ(Shown(order), "{items={x=[1]} paid={now=true}}");
    order.Clear();
    EXPECT_EQ(Shown(order), "null");
    EXPECT_EQ(Shown(CJsonTree::Object({{"a", 1}, {"b", 2}, {"a", 3}})), "{a=3 b=2}");
}

TEST(JsonTree, IsCopiedMovedAndAssignedToItsOwnParts)
{
    CJsonTree order = Order();
    const CJsonTree copy(order);
    CJsonTree moved(std::move(order));
    EXPECT_TRUE(order.IsNull()); // NOLINT: that is promised
    EXPECT_TRUE(moved.IsIdenticalTo(copy));
    moved = moved["items"];
    EXPECT_EQ(Shown(moved), "['pen' 2.5 {a/b=true m~n=null =1 x.y=2}]");
    moved = std::move(moved[2]);
    EXPECT_EQ(Shown(moved), "{a/b=true m~n=null =1 x.y=2}");
    moved.Append(moved);
    EXPECT_EQ(Shown(moved), "[{a/b=true m~n=null =1 x.y=2}]");
    moved.Append(moved);
    EXPECT_EQ(Shown(moved), "[{a/b=true m~n=null =1 x.y=2} [{a/b=true m~n=null =1 x.y=2}]]");
    EXPECT_EQ(Shown(copy), Shown(Order()));
}

TEST(JsonTree, IsLookedAtWithoutBeingChanged)
{
    const CJsonTree order = Order();
    EXPECT_EQ(Shown(order["items"][2]["a/b"]), "true");
    EXPECT_EQ(Shown(order["none"]["of"]["these"]), "null");
    EXPECT_EQ(ShownOrNone(order.Member("id")), "7");
    EXPECT_EQ(ShownOrNone(order.Member("ID")), "none");
    EXPECT_EQ(order["id"].Elements().size() + order["id"].Members().size() + order.Elements().size(), 0U);
    CJsonTree changed = order;
    for (CJsonTree& element : changed["items"].Elements())
        element = 1;
    for (CJsonTree::CMember& member : changed.Members())
        if (member.Key() == "id") member.Value = "i";
    EXPECT_EQ(Shown(changed), "{id='i' items=[1 1 1] paid=false}");
}

TEST(JsonTree, IsFoundByPath)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", "{id=7 items=['pen' 2.5 {a/b=true m~n=null =1 x.y=2}] paid=false}"},
        {"id", "7"},
        {"/id", "7"},
        {"items[1]", "2.5"},
        {"/items/1", "2.5"},
        {"items[2].", "1"},
        {"/items/2/", "1"},
        {"/items/2/a~1b", "true"},
        {"/items/2/m~0n", "null"},
        {"/items/2/x.y", "2"},
        {"items[2].a/b", "true"},
        {"items[2].m~n", "null"},
        {"/items/2/x~2y", "none"},
        {"/items/2/m~", "none"},
        {"items[2].x.y", "none"},
        {"items[3]", "none"},
        {"items[-1]", "none"},
        {"items[01]", "none"},
        {"items[+1]", "none"},
        {"items[1 ]", "none"},
        {"items[]", "none"},
        {"items[1", "none"},
        {"items[1]x", "none"},
        {"items.1", "none"},
        {"items[99999999999999999999]", "none"},
        {"/items/-", "none"},
        {"/items/01", "none"},
        {"/items/", "none"},
        {"/items/1/2", "none"},
        {"items.", "none"},
        {".id", "none"},
        {"id[0]", "none"},
        {"[0]", "none"},
        {"/", "none"},
        {"//", "none"},
        {"ID", "none"},
        {"i", "none"},
    };
    CJsonTree order = Order();
    for (const auto& [path, expected] : cases) {
        EXPECT_EQ(ShownOrNone(std::as_const(order).Find(path)), expected) << path;
        EXPECT_EQ(order.Find(path), std::as_const(order).Find(path));
    }
    *order.Find("items[2].a/b") = 0;
    EXPECT_EQ(ShownOrNone(order.Find("/items/2/a~1b")), "0");
    const CJsonTree rows = CJsonTree::Array({CJsonTree::Array({1, 2}), CJsonTree::Array({3})});
    EXPECT_EQ(ShownOrNone(rows.Find("[0][1]")), "2");
    EXPECT_EQ(ShownOrNone(rows.Find("/1/0")), "3");
}

TEST(JsonTree, TakesNumbersOfTheGrammarOnly)
{
    for (const char* digits : {"0", "-0", "1", "10", "1.0", "0.5", "1e5", "1E+05", "-1.25e-3"})
        EXPECT_EQ(Shown(Number(digits)), digits);
    for (const char* digits : {"00", "1.", ".5", "", "-", "+1", "1e", "1e+", "inf", "NaN", "0x1", "1 ", " 1", "1.e5",
                               "01", "1.5.5", "--1"}) {
        CJsonTree tree = "before";
        EXPECT_FALSE(tree.SetDigits(digits)) << digits;
        EXPECT_EQ(Shown(tree), "'before'");
    }
}

TEST(JsonTree, GivesNumbersByTheirDecimalValue)
{
    struct CCase {
        const char* Digits;
        const char* Integer;
        const char* Unsigned;
        double Double;
    };
    constexpr double INF = std::numeric_limits<double>::infinity(); // stands for none
    const CCase cases[] = {
        {"0", "0", "0", 0},
        {"-0", "0", "0", -0.0},
        {"0.000", "0", "0", 0},
        {"0e999", "0", "0", 0},
        {"1e3", "1000", "1000", 1000},
        {"1.5e1", "15", "15", 15},
        {"150e-1", "15", "15", 15},
        {"-20.00", "-20", "none", -20},
        {"1.5", "none", "none", 1.5},
        {"0.001e3", "1", "1", 1},
        {"0.001e2", "none", "none", 0.1},
        {"9223372036854775807", "9223372036854775807", "9223372036854775807", 9223372036854775807.0},
        {"9223372036854775808", "none", "9223372036854775808", 9223372036854775808.0},
        {"-9223372036854775808", "-9223372036854775808", "none", -9223372036854775808.0},
        {"-9223372036854775809", "none", "none", -9223372036854775808.0},
        {"18446744073709551615", "none", "18446744073709551615", 18446744073709551615.0},
        {"18446744073709551616", "none", "none", 18446744073709551616.0},
        {"1.8446744073709551615e19", "none", "18446744073709551615", 18446744073709551615.0},
        {"1e20", "none", "none", 1e20},
        {"1e400", "none", "none", INF},
        {"-1e400", "none", "none", INF},
        {"1e-400", "none", "none", 0},
        {"-1e-400", "none", "none", -0.0},
        {"1e99999999999999999999", "none", "none", INF},
        {"1e-99999999999999999999", "none", "none", 0},
        {"0.1", "none", "none", 0.1},
        {"4.9e-324", "none", "none", 4.9e-324},
    };
    for (const auto& [digits, integer, natural, value] : cases) {
        const CJsonTree tree = Number(digits);
        EXPECT_EQ(ShownOrNone(tree.AsInteger()), integer) << digits;
        EXPECT_EQ(ShownOrNone(tree.AsUnsigned()), natural) << digits;
        EXPECT_EQ(tree.AsDouble().value_or(INF), value) << digits;
        EXPECT_EQ(std::signbit(tree.AsDouble().value_or(INF)), std::signbit(value)) << digits;
        EXPECT_EQ(*tree.AsDigits(), digits);
    }
    EXPECT_TRUE(std::isnan(*CJsonTree(std::nan("")).AsDouble()));
    EXPECT_EQ(*CJsonTree(-INF).AsDouble(), -INF);
    EXPECT_FALSE(CJsonTree(INF).AsInteger() || CJsonTree(INF).AsUnsigned());
}

TEST(JsonTree, ComparesValuesWithoutRegardToOrderAndNotation)
{
    EXPECT_EQ(CJsonTree::Object({{"a", 1}, {"b", 2}}),
              CJsonTree::Object({{"b", Number("2.0")}, {"a", Number("10e-1")}}));
    EXPECT_FALSE(CJsonTree::Object({{"a", 1}, {"b", 2}}).IsIdenticalTo(CJsonTree::Object({{"b", 2}, {"a", 1}})));
    EXPECT_FALSE(Number("1").IsIdenticalTo(Number("1.0")));
    EXPECT_NE(CJsonTree::Array({1, 2}), CJsonTree::Array({2, 1}));
    EXPECT_NE(CJsonTree::Object({{"a", 1}}), CJsonTree::Object({{"b", 1}}));
    EXPECT_NE(CJsonTree::Object({{"a", 1}}), CJsonTree::Object({{"a", 1}, {"b", 1}}));
    EXPECT_NE(CJsonTree::Array(), CJsonTree::Object());
    EXPECT_NE(CJsonTree(1), CJsonTree("1"));
    EXPECT_NE(CJsonTree(true), CJsonTree(false));
    EXPECT_NE(CJsonTree(), CJsonTree(false));
    EXPECT_EQ(CJsonTree(), CJsonTree(nullptr));
    EXPECT_EQ(Order(), Order());
}

/// In each row all are equal, and none is equal to one of another row.
TEST(JsonTree, ComparesNumbersByTheirDecimalValue)
{
    const std::vector<std::vector<std::string>> rows = {
        {"0", "-0", "0.0", "0e5", "-0.000e-7"},
        {"1", "1.0", "10e-1", "0.1e1", "1E0", "1e+0", "0.001e3", "1000e-3"},
        {"-1", "-1.00", "-100e-2"},
        {"1e400", "10e399", "0.1e401"},
        {"1e-400", "0.1e-399"},
        {"1.0000000000000000000000001", "1.00000000000000000000000010"},
        {"120", "12e1", "1.2e2", "1.20e2"},
        {"0.12", "12e-2", "0.120"},
        {"102", "1.02e2"},
        {"12"}};
    for (std::size_t i = 0; i < rows.size(); ++i)
        for (const std::string& left : rows[i])
            for (std::size_t j = 0; j < rows.size(); ++j)
                for (const std::string& right : rows[j])
                    EXPECT_EQ(Number(left) == Number(right), i == j) << left << ' ' << right;
    EXPECT_EQ(CJsonTree(std::nan("")), CJsonTree(std::nan("")));
    EXPECT_NE(CJsonTree(std::nan("")), Number("0"));
    EXPECT_NE(Number("1e99999999999999999999"), Number("1e99999999999999999998"));
}

/// Arrays and objects in turn, with something before or behind the next one.
CJsonTree Deep(std::size_t levels)
{
    CJsonTree tree = "bottom";
    for (std::size_t i = 0; i < levels; ++i) {
        CJsonTree outer;
        if (i % 2 == 0) {
            outer["k"] = std::move(tree);
            outer["behind"] = 2;
        } else {
            outer.Append(1);
            outer.Append(std::move(tree));
        }
        tree = std::move(outer);
    }
    return tree;
}

/// Whatever recursed would use up the stack.
TEST(JsonTree, MayBeAMillionLevelsDeep)
{
    const CJsonTree deep = Deep(1000000);
    CJsonTree copy = deep;
    EXPECT_TRUE(copy == deep);
    EXPECT_TRUE(copy.IsIdenticalTo(deep));
    CJsonTree* bottom = &copy;
    while (bottom->Size() != 0)
        bottom = bottom->IsArray() ? &(*bottom)[1] : &(*bottom)["k"];
    *bottom = "changed";
    EXPECT_TRUE(copy != deep);
    copy = nullptr;
    EXPECT_TRUE(copy.IsNull());
}

/// Against a plain model: the members in order. Every operation is done to both.
TEST(JsonTree, BehavesLikeAModel)
{
    const unsigned int seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 dice(seed);
    CJsonTree tree;
    std::vector<std::pair<std::string, int>> model; // an object's members in order
    for (int step = 0; step < 20000; ++step) {
        const std::string key = std::to_string(dice() % 40);
        const auto found = std::find_if(model.begin(), model.end(), [&](const auto& m) { return m.first == key; });
        const int value = static_cast<int>(dice() % 1000);
        switch (dice() % 3) {
        case 0:
            EXPECT_EQ(tree.Remove(key), found != model.end());
            if (found != model.end()) model.erase(found);
            break;
        default:
            if (dice() % 2 == 0)
                tree[key] = value;
            else
                tree.Set(key, value);
            if (found != model.end())
                found->second = value;
            else
                model.emplace_back(key, value);
        }
        std::string expected;
        for (const auto& [name, number] : model)
            expected += (expected.empty() ? "" : " ") + name + '=' + std::to_string(number);
        ASSERT_EQ(Shown(tree), tree.IsNull() ? "null" : '{' + expected + '}');
    }
}

} // namespace
