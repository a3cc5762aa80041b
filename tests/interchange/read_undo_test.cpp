#include <deque>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <unordered_map>
#include <variant>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

#include "support/problem_lines.h"

// After a problem in a transactional reading every object is as it was, those that cannot be copied too.

namespace undone {

struct Part {
    int number = 0;
    std::string text;
};
struct Whole {
    int number = 0;
    double real = 0;
    std::string text;
    vexa::CNumeric numeric;
    vexa::CBinary bytes;
    vexa::CDateTime time;
    vexa::MayNull<Part> wrapped;
    std::unique_ptr<Part> part;
    std::unique_ptr<Part> none;
    std::vector<Part> parts;
    std::vector<std::unique_ptr<Part>> owned;
    std::list<std::string> list;
    std::deque<int> deque;
    std::set<std::string> set;
    std::map<std::string, std::unique_ptr<Part>> map;
    std::unordered_map<int, std::string> hashed;
    Part fixed[2];
    char code[8] = {};
    std::bitset<70> bits;
    std::optional<std::string> maybe;
    std::shared_ptr<Part> shared;
    std::variant<int, std::string, std::unique_ptr<Part>> either;
    std::vector<bool> flags;
    std::tuple<int, std::string> tuple;
    std::atomic<int> counter{0};
    vexa::CValue value;
    vexa::CRow row;
    vexa::CTable table;
    vexa::CRawJson raw;
    vexa::CJsonTree tree;
};
VEXA_DESCRIBE(Part, number, text)
VEXA_DESCRIBE(Whole, number, real, text, numeric, bytes, time, wrapped, part, none, parts, owned, list, deque, set, map,
              hashed, fixed, code, bits, maybe, shared, either, flags, tuple, counter, value, row, table, raw, tree)

/// Can be copied no more than moved.
struct Fixed {
    std::atomic<int> number{1};
    std::string text = "f";
};
struct Holder {
    std::optional<Fixed> maybe;
    std::optional<Fixed> none;
    int number = 0;
};
/// Whose order is told when they are made.
using Order = bool (*)(int, int);
struct Ordered {
    std::set<int, Order> set{[](int left, int right) { return left > right; }};
    std::map<int, std::string, Order> map{[](int left, int right) { return left > right; }};
    std::unordered_map<int, int, std::size_t (*)(int)> hashed{8, [](int key) { return static_cast<std::size_t>(key); }};
};
VEXA_DESCRIBE(Ordered, set, map, hashed)
VEXA_DESCRIBE(Fixed, number, text)
VEXA_DESCRIBE(Holder, maybe, none, number)

} // namespace undone

namespace {

constexpr char FIRST[] = R"({"number": 1, "real": 1.5, "text": "a text that is too long to lie in the object itself",
    "numeric": 12.50, "bytes": "Zm9v", "time": "2024-02-29T12:00:00.5Z", "wrapped": {"number": 2, "text": "w"},
    "part": {"number": 3, "text": "p"}, "parts": [{"number": 4}, {"text": "q"}], "owned": [{"number": 5}, null],
    "list": ["x", "y"], "deque": [1, 2, 3], "set": ["m", "n"], "map": {"k": {"number": 6}, "l": null},
    "hashed": {"1": "one", "2": "two"}, "fixed": [{"number": 7}, {"text": "f"}], "code": "code",
    "bits": "1000000000000000000000000000000000000000000000000000000000000000000001", "maybe": "some",
    "shared": {"number": 8}, "either": "e", "flags": [true, false], "tuple": [9, "t"], "counter": 10, "value": "v",
    "row": [1, "two"], "table": [{"a": 1}, {"b": "2"}], "raw": {"r" : 1}, "tree": [1, {"t": 2}]})";
constexpr char SECOND[] = R"({"number": 91, "real": 91.5, "text": "t", "numeric": 9, "bytes": "AAAA", "time": null,
    "wrapped": null, "part": {"number": 93, "text": "P"}, "none": {"number": 1}, "parts": [{}], "owned": [],
    "list": [], "deque": [9], "set": ["z"], "map": {"k": {"number": 96}, "z": {}}, "hashed": {"7": "seven"},
    "fixed": [{"text": "97"}, {"number": 98}], "code": "c",
    "bits": "0000000000000000000000000000000000000000000000000000000000000000000000", "maybe": null,
    "shared": {"number": 98}, "either": 5, "flags": [], "tuple": [99, "T"], "counter": 910, "value": 1,
    "row": [], "table": [], "raw": null, "tree": null)";

TEST(ReadUndo, LeavesTheObjectAsItWas)
{
    undone::Whole whole;
    vexa::CReport report;
    ASSERT_TRUE(vexa::ReadJson(whole, FIRST, report)) << report;
    const std::string before = vexa::WriteJson(whole);
    const undone::Part* const part = whole.part.get();
    const undone::Part* const owned = whole.owned[0].get();
    const undone::Part* const mapped = whole.map["k"].get();
    const undone::Part* const shared = whole.shared.get();
    vexa::CReadPolicy policy;
    policy.Transactional = true;
    for (const char* const ending : {R"(, "wrong": 1})", R"(, "number": 92})", ",}", ""}) {
        report.Clear();
        EXPECT_FALSE(vexa::ReadJson(whole, SECOND + std::string(ending), report, policy));
        EXPECT_EQ(1U, report.Problems().size()) << report;
        EXPECT_EQ(before, vexa::WriteJson(whole));
        EXPECT_EQ(part, whole.part.get());
        EXPECT_EQ(owned, whole.owned[0].get());
        EXPECT_EQ(mapped, whole.map["k"].get());
        EXPECT_EQ(shared, whole.shared.get());
    }
    report.Clear();
    EXPECT_TRUE(vexa::ReadJson(whole, SECOND + std::string("}"), report, policy)) << report;
    undone::Whole plain;
    EXPECT_TRUE(vexa::ReadJson(plain, FIRST, report));
    EXPECT_TRUE(vexa::ReadJson(plain, SECOND + std::string("}"), report));
    EXPECT_EQ(vexa::WriteJson(plain), vexa::WriteJson(whole));
}

TEST(ReadUndo, LeavesOptionalsThatCannotBeMovedAsTheyWere)
{
    undone::Holder holder;
    holder.maybe.emplace();
    const std::string before = vexa::WriteJson(holder);
    vexa::CReadPolicy policy;
    policy.Transactional = true;
    const auto read = [&](const char* text) {
        return test::ProblemsOf(holder, [&](undone::Holder& object, vexa::CReport& report) {
            return vexa::ReadJson(object, text, report, policy);
        });
    };
    EXPECT_EQ("34 9+4 1:10 path=maybe pointer=/maybe class=undone::Holder attrib=maybe excerpt={\"maybe\":null}\n",
              read(R"({"maybe":null})"));
    EXPECT_EQ(before, vexa::WriteJson(holder));
    EXPECT_NE("", read(R"({"maybe":{"number":2},"none":{"text":"n"},"number":3,"wrong":1})"));
    EXPECT_EQ(before, vexa::WriteJson(holder));
    EXPECT_EQ("", read(R"({"maybe":{"number":2},"none":{"text":"n"}})"));
    EXPECT_EQ(R"({"maybe":{"number":2,"text":"f"},"none":{"number":1,"text":"n"},"number":0})",
              vexa::WriteJson(holder));
}

TEST(ReadUndo, KeepsTheOrderOfContainers)
{
    undone::Ordered ordered;
    vexa::CReadPolicy policy;
    policy.Transactional = true;
    vexa::CReport report;
    EXPECT_TRUE(vexa::ReadJson(ordered, R"({"set":[1,3,2],"map":{"1":"a","2":"b"},"hashed":{"7":8}})", report, policy));
    const std::string before = R"({"set":[3,2,1],"map":{"2":"b","1":"a"},"hashed":{"7":8}})";
    EXPECT_EQ(before, vexa::WriteJson(ordered));
    EXPECT_FALSE(vexa::ReadJson(ordered, R"({"set":[5,6],"map":{"5":"c","6":""},"hashed":{},"no":1})", report, policy));
    EXPECT_EQ(before, vexa::WriteJson(ordered));
    ordered.set.insert(4);
    EXPECT_EQ(4, *ordered.set.begin());
    EXPECT_TRUE(vexa::ReadJson(ordered, R"({"set":[],"map":{}})", report, policy));
    EXPECT_TRUE(vexa::ReadJson(ordered, R"({"set":[5,6],"map":{"5":"c","6":""}})", report, policy));
    EXPECT_EQ(R"({"set":[6,5],"map":{"6":"","5":"c"},"hashed":{"7":8}})", vexa::WriteJson(ordered));
}

} // namespace
