// Containers, records, custom types and the types of the standard library as JSON: whole outputs.

#include <vexa/interchange.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>

#include <bitset>
#include <chrono>
#include <deque>
#include <list>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <vector>

#include <gtest/gtest.h>

namespace write_structures_test {

using vexa::CReport;
using vexa::CWritePolicy;
using vexa::ProblemCode;
using vexa::WriteJson;

enum class Color : int { RED = 1, GREEN = -2 };
VEXA_DESCRIBE_ENUM(Color, RED, GREEN)

struct Point {
    int x = 0;
    double y = 0;
};
VEXA_DESCRIBE(Point, x, y)

struct Containers {
    std::vector<Point> points{{1, 0.5}, {2, 0}};
    std::list<std::string> texts{"a", "b"};
    std::deque<bool> truths{true, false};
    std::set<int> set{3, 1};
    int grid[2][2] = {{1, 2}, {3, 4}};
    std::bitset<5> bits{6};
    std::vector<std::unique_ptr<int>> pointers;
    std::vector<unsigned char> bytes{0, 255};
};
VEXA_DESCRIBE(Containers, points, texts, truths, set, grid, bits, pointers, bytes)

TEST(WriteStructures, containersAreArrays)
{
    Containers containers;
    containers.pointers.push_back(std::make_unique<int>(5));
    containers.pointers.push_back(nullptr);
    EXPECT_EQ(WriteJson(containers),
              R"({"points":[{"x":1,"y":0.5},{"x":2,"y":0.0}],"texts":["a","b"],"truths":[true,false],"set":[1,3],)"
              R"("grid":[[1,2],[3,4]],"bits":"00110","pointers":[5,null],"bytes":[0,255]})");
    EXPECT_EQ(WriteJson(std::vector<int>()), "[]");
    EXPECT_EQ(WriteJson(std::vector<std::vector<int>>{{}, {1}}), "[[],[1]]");
}

struct Maps {
    std::map<std::string, int> text{{"b\"", 1}, {"a", 2}};
    std::map<int, Point> number{{-1, {}}, {10, {3, 1}}};
    std::unordered_map<Color, bool> color{{Color::GREEN, true}};
    std::map<Color, int> unnamed{{static_cast<Color>(7), 7}};
    std::map<double, int> real{{0.5, 1}};
    std::multimap<int, int> multi{{1, 2}, {1, 3}};
    std::map<unsigned long long, int> large{{18446744073709551615ULL, 1}};
};
VEXA_DESCRIBE(Maps, text, number, color, unnamed, real, multi, large)

TEST(WriteStructures, mapsWithKeysAreObjects)
{
    EXPECT_EQ(WriteJson(Maps{}),
              R"({"text":{"a":2,"b\"":1},"number":{"-1":{"x":0,"y":0.0},"10":{"x":3,"y":1.0}},"color":{"GREEN":true},)"
              R"("unnamed":{"7":7},"real":[[0.5,1]],"multi":[[1,2],[1,3]],"large":{"18446744073709551615":1}})");
    const std::map<int, int> numbers{{2, 0}, {10, 0}};
    CWritePolicy policy;
    policy.SortKeys = true;
    EXPECT_EQ(WriteJson(numbers, policy), R"({"10":0,"2":0})") << "by the bytes of the keys";
}

TEST(WriteStructures, enumerationsHaveNames)
{
    EXPECT_EQ(WriteJson(Color::RED), R"("RED")");
    EXPECT_EQ(WriteJson(std::vector<Color>{Color::GREEN, static_cast<Color>(3)}), R"(["GREEN",3])");
}

struct Celsius {
    double degrees = 0;
};
VEXA_DESCRIBE_CUSTOM_STD(Celsius, &Celsius::degrees)

struct Money {
    long cents = 0;
    void ToValue(vexa::CValue& out) const
    {
        if (cents == 13) throw std::runtime_error("unlucky");
        if (cents != 0) out = std::to_string(cents) + "c";
    }
    void FromValue(const vexa::CValue&) {}
};
VEXA_DESCRIBE_CUSTOM_ANY(Money, 3)

struct Customs {
    Celsius outside{-1.5};
    std::vector<Money> prices{{5}, {0}, {13}, {7}};
};
VEXA_DESCRIBE(Customs, outside, prices)

TEST(WriteStructures, customTypesAreWhatTheyConvertTo)
{
    CReport report;
    EXPECT_EQ(WriteJson(Customs{}, {}, &report), R"({"outside":-1.5,"prices":["5c",null,null,"7c"]})");
    ASSERT_EQ(report.Problems().size(), 1U);
    EXPECT_EQ(report.Problems()[0].Code, ProblemCode::CONVERTER_FAILED);
    EXPECT_EQ(report.Problems()[0].Found, "unlucky");
    EXPECT_EQ(report.Problems()[0].Path, "prices[2]");
    EXPECT_EQ(report.Problems()[0].Pointer, "/prices/2");
}

struct Records {
    vexa::CValue value;
    vexa::CRow row{1, "x", vexa::null, 2.5};
    vexa::CTable table;
    vexa::CGnlClass object;
    vexa::NullType nothing;
    const void* address = nullptr;
};
VEXA_DESCRIBE(Records, value, row, table, object, nothing, address)

TEST(WriteStructures, recordsAreWhatTheyHold)
{
    Records records;
    records.value = true;
    records.table.AddColumn(vexa::Enum::DT_INT, "b");
    records.table.AddColumn(vexa::Enum::DT_STD_STRING, "a");
    records.table.Append({1, "x"});
    records.table.Append({2});
    records.object.Add("zero", vexa::RefOf(records.value));
    records.object.Add(vexa::RefOf(records.row));
    const std::string expected = R"({"value":true,"row":[1,"x",null,2.5],"table":[{"b":1,"a":"x"},{"b":2,"a":null}],)"
                                 R"("object":{"zero":true},"nothing":null,"address":null})";
    CReport report;
    EXPECT_EQ(WriteJson(records, {}, &report), expected);
    EXPECT_TRUE(report.IsEmpty());

    records.address = &records;
    records.table.Append({1, "x", 3});
    records.table.AddColumn(vexa::Enum::DT_INT, "b");
    records.table.Rows.pop_back();
    WriteJson(records, {}, &report);
    ASSERT_EQ(report.Problems().size(), 2U);
    EXPECT_EQ(report.Problems()[0].Code, ProblemCode::DUPLICATE_KEY);
    EXPECT_EQ(report.Problems()[0].Path, "table");
    EXPECT_EQ(report.Problems()[1].Code, ProblemCode::CANNOT_BE_WRITTEN);
    EXPECT_EQ(report.Problems()[1].Path, "address");
    EXPECT_EQ(report.Problems()[1].Class, "write_structures_test::Records");
    EXPECT_EQ(report.Problems()[1].Attrib, "address");
}

struct Shapes {
    std::optional<int> none;
    std::optional<Point> some = Point{1, 2};
    std::shared_ptr<std::string> shared = std::make_shared<std::string>("s");
    std::variant<int, std::string, std::vector<int>> choice = std::vector<int>{1};
    std::tuple<int, std::string, bool> three{1, "t", true};
    std::vector<bool> flags{true, false};
    std::atomic<long> counter{-5};
    std::chrono::milliseconds pause{1500};
    std::chrono::system_clock::time_point when{std::chrono::milliseconds(-1500)};
    std::filesystem::path path = "/a b";
    std::int8_t byte = -128;
    vexa::CRawJson raw;
    vexa::CJsonTree tree;
};
VEXA_DESCRIBE(Shapes, none, some, shared, choice, three, flags, counter, pause, when, path, byte, raw, tree)

TEST(WriteStructures, shapesAreWhatTheyAreMadeOf)
{
    Shapes shapes;
    ASSERT_TRUE(shapes.raw.Set("[ 1,\t{\"ö\": 1e2} ]"));
    shapes.tree["b"] = 1;
    shapes.tree["a"].Append("x");
    EXPECT_EQ(WriteJson(shapes),
              R"({"none":null,"some":{"x":1,"y":2.0},"shared":"s","choice":[1],"three":[1,"t",true],)"
              R"("flags":[true,false],"counter":-5,"pause":1500,"when":"1969-12-31T23:59:58.5Z","path":"/a b",)"
              "\"byte\":-128,\"raw\":[ 1,\t{\"ö\": 1e2} ],\"tree\":{\"b\":1,\"a\":[\"x\"]}}");
    CWritePolicy policy;
    policy.AsciiOnly = policy.SortKeys = policy.LeaveOutNulls = true;
    EXPECT_EQ(WriteJson(shapes, policy),
              R"({"byte":-128,"choice":[1],"counter":-5,"flags":[true,false],"path":"/a b","pause":1500,)"
              "\"raw\":[ 1,\t{\"\\u00f6\": 1e2} ],"
              R"("shared":"s","some":{"x":1,"y":2.0},"three":[1,"t",true],"tree":{"a":["x"],"b":1},)"
              R"("when":"1969-12-31T23:59:58.5Z"})");
}

} // namespace write_structures_test
