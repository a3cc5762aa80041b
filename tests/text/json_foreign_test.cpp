// JSON of values that the application's own functions give: whatever they say at the one time and at the other, all of
// it is written, and nothing outside the text.

#include <vexa/json.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>
#include <vexa/value.h>

#include "support/captured_log.h"
#include "support/described_class.h"
#include "support/described_container.h"
#include "support/text_model.h"
#include "support/type_of.h"

namespace json_foreign_test {

/// A value that says something else each time it is asked, as its sayings go; the last one stays.
struct Moody {
    std::vector<std::string> sayings;
    mutable std::size_t asked = 0;

    void ToValue(vexa::CValue& out) const
    {
        if (sayings[asked] == "null")
            out.SetNull(vexa::Enum::DT_STD_STRING);
        else
            out = sayings[asked];
        asked += asked + 1 < sayings.size() ? 1 : 0;
    }
    void FromValue(const vexa::CValue&) {}
};
VEXA_DESCRIBE_CUSTOM_ANY(Moody, 5)

struct Owner {
    std::string before;
    Moody moody;
    std::vector<int> after;
    std::string last;
};
VEXA_DESCRIBE(Owner, before, moody, after, last)

Owner OwnerOf(const std::vector<std::string>& sayings)
{
    return {"before \xc3", {sayings}, {1, -22, 333}, "the very last, and longer than sixteen bytes"};
}

std::string TextWith(const std::string& attrib)
{
    return R"({"before":"before \u00c3",)" + attrib +
           R"("after":[1,-22,333],"last":"the very last, and longer than sixteen bytes"})";
}

// A member is asked whether it is null and then for its value, in each of the two passes.

TEST(JsonForeign, AValueThatGrowsBetweenThePassesIsWrittenWhole)
{
    for (const std::size_t length : {1U, 15U, 16U, 17U, 100U, 5000U, 100000U}) {
        const std::string grown(length, '/');
        std::string escaped;
        for (std::size_t i = 0; i < length; ++i)
            escaped += "\\/";
        EXPECT_EQ(vexa_test::Json(OwnerOf({"abc", "abc", "abc", grown})), TextWith("\"moody\":\"" + escaped + "\","));
    }
}

TEST(JsonForeign, AValueThatShrinksBetweenThePassesIsWrittenWhole)
{
    EXPECT_EQ(vexa_test::Json(OwnerOf({"abc", std::string(5000, 'x'), "abc", "s"})), TextWith("\"moody\":\"s\","));
}

TEST(JsonForeign, AValueThatComesAndGoesBetweenThePassesIsWrittenAsItIsInTheSecond)
{
    EXPECT_EQ(vexa_test::Json(OwnerOf({"null", "abc", std::string(5000, 'x')})),
              TextWith("\"moody\":\"" + std::string(5000, 'x') + "\","));
    EXPECT_EQ(vexa_test::Json(OwnerOf({"abc", "abc", "null"})), TextWith(""));
    EXPECT_EQ(vexa_test::Json(OwnerOf({"abc", "abc", "abc", "null"})), TextWith("\"moody\":,"));
}

TEST(JsonForeign, AValueAtTheTopAndElementsThatGrowAreWrittenWhole)
{
    const std::string grown(5000, 'y');
    EXPECT_EQ(vexa_test::Json(Moody{{"abc", grown}}), '"' + grown + '"');
    EXPECT_EQ(vexa_test::Json(std::vector<Moody>(3, Moody{{"abc", grown}})),
              "[\"" + grown + "\",\"" + grown + "\",\"" + grown + "\"]");
}

/// A value whose converter changes what stands beside it.
struct Meddler {
    std::string* neighbour = nullptr;

    void ToValue(vexa::CValue& out) const
    {
        neighbour->append(1000, 'n');
        out = 1;
    }
    void FromValue(const vexa::CValue&) {}
};
VEXA_DESCRIBE_CUSTOM_ANY(Meddler, 6)

struct Neighbours {
    Meddler meddler;
    std::string neighbour;
    int number = 7;
};
VEXA_DESCRIBE(Neighbours, meddler, neighbour, number)

TEST(JsonForeign, AConverterThatChangesItsNeighbourHarmsNothing)
{
    Neighbours object;
    object.meddler.neighbour = &object.neighbour;
    EXPECT_EQ(vexa_test::Json(object), R"({"meddler":1,"neighbour":")" + std::string(4000, 'n') + R"(","number":7})");
}

/// A value that gives the text it is written to.
struct Echo {
    const std::string* text = nullptr;

    void ToValue(vexa::CValue& out) const { out = *text; }
    void FromValue(const vexa::CValue&) {}
};
VEXA_DESCRIBE_CUSTOM_ANY(Echo, 7)

TEST(JsonForeign, AConverterMayReadTheTextThatIsAboutToBeReplaced)
{
    std::string out = "the text before";
    ASSERT_EQ(vexa::ToJson(out, std::vector<Echo>{{&out}, {&out}}), 0);
    EXPECT_EQ(out, R"(["the text before","the text before"])");
}

using Numbers = std::vector<int>;

/// A container of which the second walk finds more than the first.
vexa::CContainerInfor GrowingContainer()
{
    vexa::CContainerInfor infor =
        vexa_test::SequenceContainer<Numbers>("growing", vexa_test::Plain(vexa::Enum::DT_INT));
    infor.Begin = [](void* container, void** first) -> void* {
        auto& numbers = *static_cast<Numbers*>(container);
        if (!numbers.empty()) numbers.resize(numbers.size() + 1000, 7);
        return vexa_test::BeginWalk<Numbers, Numbers::iterator>(first, numbers.begin(), numbers.end());
    };
    return infor;
}

TEST(JsonForeign, AContainerThatGrowsBetweenThePassesIsWrittenWhole)
{
    const vexa::CContainerInfor infor = GrowingContainer();
    Numbers numbers = {1};
    std::string text;
    ASSERT_EQ(vexa::ToJson(text, {vexa_test::Plain(vexa::Enum::DT_SEQUENCE_A, &infor), &numbers}), 0);
    std::string expected = "[1";
    for (int i = 0; i < 2000; ++i)
        expected += ",7";
    EXPECT_EQ(text, expected + "]");
}

} // namespace json_foreign_test
