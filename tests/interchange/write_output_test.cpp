// Where the text goes, how deep it may be, and reports as JSON.

#include <vexa/interchange.h>

#include <pthread.h>

#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace write_output_test {

using vexa::CReport;
using vexa::CWritePolicy;
using vexa::ProblemCode;
using vexa::WriteJson;

struct Record {
    int number = -1;
    std::string text;
    vexa::CBinary bytes;
    vexa::CNumeric numeric;
    std::vector<int> numbers;
};
VEXA_DESCRIBE(Record, number, text, bytes, numeric, numbers)

std::vector<Record> LargeRecords()
{
    std::vector<Record> records(300);
    for (std::size_t i = 0; i < records.size(); ++i) {
        records[i].text = std::string(i * 7, i % 3 == 0 ? '\x01' : 'x') + "ö";
        records[i].bytes = std::string(i * 5, 'b');
        records[i].numeric = std::string(1 + i, '7');
        records[i].numbers.assign(i, static_cast<int>(i));
    }
    records[250].text.assign(100000, '"');
    return records;
}

TEST(WriteOutput, piecesMakeTheWholeText)
{
    const std::vector<Record> records = LargeRecords();
    for (const unsigned int indentation : {0U, 3U}) {
        CWritePolicy policy;
        policy.Indentation = indentation;
        std::string text;
        std::size_t largest = 0;
        ASSERT_TRUE(WriteJson(
            [&](std::string_view piece) {
                largest = std::max(largest, piece.size());
                text += piece;
                return true;
            },
            records, policy));
        ASSERT_EQ(text, WriteJson(records, policy));
        EXPECT_LE(largest, 16384U);
        EXPECT_GT(largest, 4096U);
    }
}

TEST(WriteOutput, whoeverTakesThePiecesEndsIt)
{
    int pieces = 0;
    EXPECT_FALSE(WriteJson([&](std::string_view) { return ++pieces < 3; }, LargeRecords()));
    EXPECT_EQ(pieces, 3);
    EXPECT_THROW(WriteJson([](std::string_view) -> bool { throw std::runtime_error("full"); }, LargeRecords()),
                 std::runtime_error);
    EXPECT_FALSE(WriteJson([](std::string_view) { return false; }, 1)) << "the last piece too";
}

struct Node {
    int number = 0;
    std::unique_ptr<Node> next;
    std::vector<Node> children;
    const Node* link = nullptr;
};
VEXA_DESCRIBE(Node, number, next, children, link)

TEST(WriteOutput, whatHoldsItselfIsNull)
{
    Node node;
    node.link = &node;
    CReport report;
    EXPECT_EQ(WriteJson(node, {}, &report), R"({"number":0,"next":null,"children":[],"link":null})");
    ASSERT_EQ(report.Problems().size(), 1U);
    EXPECT_EQ(report.Problems()[0].Code, ProblemCode::TOO_DEEP);
    EXPECT_EQ(report.Problems()[0].Path, "link");
    EXPECT_EQ(report.Problems()[0].Expected, "an object that does not hold itself");
}

TEST(WriteOutput, depthIsBoundByThePolicy)
{
    const std::vector<std::vector<std::vector<int>>> three{{{1}}, {}};
    CWritePolicy policy;
    policy.MaxDepth = 3;
    CReport report;
    EXPECT_EQ(WriteJson(three, policy, &report), "[[[1]],[]]");
    EXPECT_TRUE(report.IsEmpty());
    policy.MaxDepth = 2;
    EXPECT_EQ(WriteJson(three, policy, &report), "[[null],[]]");
    ASSERT_EQ(report.Problems().size(), 1U);
    EXPECT_EQ(report.Problems()[0].Code, ProblemCode::TOO_DEEP);
    EXPECT_EQ(report.Problems()[0].Path, "[0][0]");
    EXPECT_EQ(report.Problems()[0].Expected, "at most 2 levels");
    policy.MaxDepth = 0;
    EXPECT_EQ(WriteJson(three, policy), "null");
    EXPECT_EQ(WriteJson(1, policy), "1");
}

/// Runs a function on a thread with so small a stack.
void RunOnStack(std::size_t bytes, std::function<void()> function)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, bytes);
    pthread_t thread{};
    const auto run = [](void* called) -> void* {
        (*static_cast<std::function<void()>*>(called))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &function), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(__OPTIMIZE__)
constexpr std::size_t STACK = 4096 * 1024; // their frames are larger
#else
constexpr std::size_t STACK = 256 * 1024;
#endif

TEST(WriteOutput, thousandLevelsFitASmallStack)
{
    Node top;
    Node* node = &top;
    // The last one has an array, which is a level.
    for (int levels = 1; levels < 999;) {
        const bool isElement = levels % 3 != 0 && levels < 998; // a level for the array, too
        if (isElement)
            node = &node->children.emplace_back();
        else
            node = (node->next = std::make_unique<Node>()).get();
        levels += isElement ? 2 : 1;
    }
    RunOnStack(STACK, [&top] {
        CReport report;
        const std::string text = WriteJson(top, {}, &report);
        EXPECT_TRUE(report.IsEmpty()) << report.AsString();
        EXPECT_EQ(text.find("{\"number\":0,\"next\":null,\"children\":[{"), 0U);
    });
}

TEST(WriteOutput, reportsAreArraysOfProblems)
{
    CReport report;
    EXPECT_EQ(WriteJson(report), "[]");
    vexa::CProblem problem;
    problem.Code = ProblemCode::UNKNOWN_KEY;
    problem.Place = {12, 5, 2, 3};
    problem.Path = "orders[2]";
    problem.Pointer = "/orders/2";
    problem.Class = "shop::Order";
    problem.Attrib = "zpi";
    problem.Nearest = "zip";
    report.Add(problem);
    problem = {};
    problem.Code = ProblemCode::BAD_UTF8;
    problem.Second.Offset = 7;
    report.Add(problem);
    EXPECT_EQ(
        WriteJson(report),
        R"([{"code":24,"name":"UNKNOWN_KEY","message":"shop::Order has no attribute \"zpi\"; did you mean \"zip\"?",)"
        R"("offset":12,"length":5,"line":2,"column":3,"path":"orders[2]","pointer":"/orders/2",)"
        R"("class":"shop::Order","attribute":"zpi","expected":null,"found":null,"nearest":"zip","excerpt":null,)"
        R"("second":null},{"code":8,"name":"BAD_UTF8","message":"this is not UTF-8","offset":null,"length":null,)"
        R"("line":null,"column":null,"path":"","pointer":"","class":null,"attribute":null,"expected":null,)"
        R"("found":null,"nearest":null,"excerpt":null,"second":{"offset":7,"length":0,"line":null,"column":null}}])");
    CWritePolicy policy;
    policy.LeaveOutNulls = true;
    policy.Indentation = 1;
    report.Clear();
    report.Add(problem);
    EXPECT_EQ(WriteJson(report, policy),
              "[\n {\n  \"code\": 8,\n  \"name\": \"BAD_UTF8\",\n  \"message\": \"this is not UTF-8\",\n  \"path\": "
              "\"\",\n  \"pointer\": \"\",\n  \"second\": {\n   \"offset\": 7,\n   \"length\": 0\n  }\n }\n]");
}

} // namespace write_output_test
