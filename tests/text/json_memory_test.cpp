// Where JSON is written: into the memory that the text has, unless the value is read from there.

#include <vexa/json.h>

#include <array>
#include <atomic>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/plain_descriptor.h"
#include "support/text_links.h"

namespace json_memory_test {

struct Parts {
    std::string text;
    vexa::MayNull<std::string> maybe;
    std::vector<std::string> texts;
    std::map<int, std::string> named;
    std::unique_ptr<std::string> elsewhere;
    vexa::CNumeric numeric;
    const char* pointer = nullptr;
    const std::string* borrowed = nullptr;
};
VEXA_DESCRIBE(Parts, text, maybe, texts, named, elsewhere, numeric, pointer, borrowed)

struct Tag {
    std::string text;
};
VEXA_DESCRIBE_CUSTOM_STD(Tag, &Tag::text)

/// All parts set, and their JSON.
Parts SomeParts()
{
    Parts parts;
    parts.text = "text";
    parts.maybe = "maybe";
    parts.texts = {"first", "a second one of more than sixteen bytes"};
    parts.named = {{1, "one"}};
    parts.elsewhere = std::make_unique<std::string>("elsewhere");
    parts.numeric = vexa::CNumeric(std::string("12.50"));
    parts.pointer = "pointer";
    return parts;
}
const std::string PARTS =
    R"({"text":"text","maybe":"maybe","texts":["first","a second one of more than sixteen bytes"],)"
    R"("named":[{"first":1,"second":"one"}],"elsewhere":"elsewhere","numeric":12.50,)"
    R"("pointer":"pointer"})";

/// Writes the parts into one of their own strings.
template<class Choose>
void ExpectWrittenIntoItself(Choose choose)
{
    for (const bool isRoomy : {false, true}) {
        Parts parts = SomeParts();
        std::string& out = choose(parts);
        if (isRoomy) out.reserve(10000);
        ASSERT_EQ(vexa::ToJson(out, parts), 0);
        EXPECT_EQ(out, PARTS);
    }
}

TEST(JsonMemory, AStringOfTheValueCanBeWrittenTo)
{
    ExpectWrittenIntoItself([](Parts& parts) -> std::string& { return parts.text; });
    ExpectWrittenIntoItself([](Parts& parts) -> std::string& { return *parts.maybe; });
    ExpectWrittenIntoItself([](Parts& parts) -> std::string& { return parts.texts[0]; });
    ExpectWrittenIntoItself([](Parts& parts) -> std::string& { return parts.texts[1]; });
    ExpectWrittenIntoItself([](Parts& parts) -> std::string& { return parts.named[1]; });
    ExpectWrittenIntoItself([](Parts& parts) -> std::string& { return *parts.elsewhere; });
    ExpectWrittenIntoItself([](Parts& parts) -> std::string& { return parts.numeric.IntegerDigits; });
    ExpectWrittenIntoItself([](Parts& parts) -> std::string& { return parts.numeric.FractionDigits; });
}

TEST(JsonMemory, TheTextItselfCanBeTheValue)
{
    std::string out = "a text";
    EXPECT_EQ(vexa::ToJson(out, out), 0);
    EXPECT_EQ(out, R"("a text")");
    Tag tag{"tag"};
    EXPECT_EQ(vexa::ToJson(tag.text, tag), 0);
    EXPECT_EQ(tag.text, R"("tag")");
}

TEST(JsonMemory, PointersIntoTheTextAreReadBeforeItIsWritten)
{
    for (const std::string& before : {std::string("short"), std::string(1000, 'b')}) {
        std::string out = before;
        out.reserve(5000);
        Parts parts;
        parts.pointer = out.c_str() + 1;
        parts.borrowed = &out;
        ASSERT_EQ(vexa::ToJson(out, parts), 0);
        EXPECT_EQ(out, R"({"text":"","texts":[],"named":[],"numeric":(null),"pointer":")" + before.substr(1) +
                           R"(","borrowed":")" + before + R"("})");
    }
}

TEST(JsonMemory, TheMemoryOfTheTextIsKeptWhereItSuffices)
{
    std::string out;
    out.reserve(1000);
    const char* const memory = out.data();
    for (const std::size_t count : {3U, 30U, 0U, 90U}) {
        ASSERT_EQ(vexa::ToJson(out, std::vector<int>(count, 7)), 0);
        EXPECT_EQ(out.size(), count == 0 ? 2 : 2 * count + 1);
        EXPECT_EQ(out.data(), memory);
    }
}

/// Written by several threads that all come first.
struct Leaf {
    int number = 5;
    std::array<short, 3> shorts = {1, 2, 3};
};
VEXA_DESCRIBE(Leaf, number, shorts)
struct Branch {
    std::vector<Leaf> leaves{3};
    std::list<Leaf> others{2};
};
VEXA_DESCRIBE(Branch, leaves, others)

TEST(JsonMemory, ConcurrentFirstWritersMakeOnePlan)
{
    constexpr std::size_t THREADS = 8;
    std::vector<std::string> texts(THREADS);
    std::atomic<std::size_t> ready{0};
    std::vector<std::thread> threads;
    const Branch branch;
    for (std::string& text : texts) {
        threads.emplace_back([&] {
            for (++ready; ready != THREADS;) {
            }
            vexa::ToJson(text, branch);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    const std::string leaf = R"({"number":5,"shorts":[1,2,3]})";
    for (const std::string& text : texts)
        EXPECT_EQ(text, "{\"leaves\":[" + leaf + "," + leaf + "," + leaf + "],\"others\":[" + leaf + "," + leaf + "]}");
}

} // namespace json_memory_test
