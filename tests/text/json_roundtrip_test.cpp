// What is written as JSON and read back is what it was.

#include <vexa/json.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"
#include "support/text_everything.h"
#include "support/text_model.h"

namespace {

using namespace vexa_test;
using vexa::FromJson;

void ExpectSurvives(const std::string& text)
{
    std::string read = "what was there before";
    ASSERT_EQ(FromJson(read, Json(text)), 0);
    ASSERT_EQ(read, text);
}

TEST(JsonRoundTrip, ThePersonSurvives)
{
    Person person = Ann();
    person.next = std::make_unique<Person>(Ann());
    Person read;
    EXPECT_EQ(FromJson(read, Json(person)), 0);
    EXPECT_EQ(vexa::AsString(read), vexa::AsString(person));
}

TEST(JsonRoundTrip, EveryPairOfBytesSurvives)
{
    for (unsigned first = 0; first < 256; ++first) {
        std::string pairs;
        for (unsigned second = 0; second < 256; ++second) {
            pairs += static_cast<char>(first);
            pairs += static_cast<char>(second);
        }
        ExpectSurvives(pairs);
    }
}

TEST(JsonRoundTrip, RandomBytesSurvive)
{
    Dice dice(1);
    for (int i = 0; i < 3000; ++i)
        ExpectSurvives(dice.Bytes(100));
}

TEST(JsonRoundTrip, RandomPrintableTextWithEscapesSurvives)
{
    const std::string letters = "ab\"\\/ u0041\n\t{}[]:,";
    Dice dice(2);
    for (int i = 0; i < 3000; ++i) {
        std::string text;
        for (std::size_t length = dice.Below(40); length > 0; --length)
            text += letters[dice.Below(letters.size())];
        ExpectSurvives(text);
    }
}

TEST(JsonRoundTrip, RandomObjectsSurvive)
{
    Dice dice(3);
    Everything read;
    for (int i = 0; i < 300; ++i) {
        Everything object;
        Fill(object, dice, 4);
        const std::string json = Json(object);
        Everything fresh;
        ASSERT_EQ(LoggedLines([&] { ASSERT_EQ(FromJson(fresh, json), 0) << json; }), "");
        ASSERT_EQ(vexa::AsString(fresh), vexa::AsString(object)) << json;
        ASSERT_EQ(Json(fresh), json);
        // An object that was read into before holds nothing of that, but for the text of a note that became null.
        read.note.reset();
        ASSERT_EQ(FromJson(read, json), 0);
        ASSERT_EQ(Json(read), json);
    }
}

// What does not survive

struct Nulls {
    vexa::MayNull<int> first;
    int second = 5;
};
VEXA_DESCRIBE(Nulls, first, second)

TEST(JsonRoundTrip, AnObjectWhoseFirstAttributeIsNullCannotBeReadBack)
{
    Nulls nulls;
    ASSERT_EQ(Json(nulls), R"({,"second":5})");
    EXPECT_EQ(FromJson(nulls, R"({,"second":5})"), 674);
}

TEST(JsonRoundTrip, AnObjectWithoutAttributesCannotBeReadBack)
{
    Empty empty;
    ASSERT_EQ(Json(empty), "{}");
    EXPECT_EQ(FromJson(empty, "{}"), 674);
}

TEST(JsonRoundTrip, ANullNumberInAContainerComesBackAsZero)
{
    std::vector<vexa::MayNull<int>> numbers{1, {}, 3};
    ASSERT_EQ(Json(numbers), "[1,,3]");
    EXPECT_EQ(FromJson(numbers, "[1,,3]"), 0);
    EXPECT_EQ(Json(numbers), "[1,0,3]");
}

TEST(JsonRoundTrip, AFractionCannotBeReadBack)
{
    std::vector<double> numbers{1.5};
    ASSERT_EQ(Json(numbers), "[1.500000]");
    EXPECT_EQ(FromJson(numbers, "[1.500000]"), 888);
    EXPECT_EQ(Json(numbers), "[1.000000]");
}

TEST(JsonRoundTrip, RunsOnManyThreadsAtOnce)
{
    Dice dice(4);
    Everything shared;
    Fill(shared, dice, 3);
    const std::string expected = Json(shared);
    std::vector<std::string> results(4);
    std::vector<std::thread> threads;
    for (std::string& result : results) {
        threads.emplace_back([&] {
            for (int i = 0; i < 20; ++i) {
                std::string json;
                vexa::ToJson(json, shared);
                Everything read;
                FromJson(read, json);
                vexa::ToJson(result, read);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (const std::string& result : results)
        EXPECT_EQ(result, expected);
}

} // namespace
