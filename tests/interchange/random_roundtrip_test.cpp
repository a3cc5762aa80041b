// Random objects of every described type, written as standard JSON: what an independent parser makes of the text is
// compared with the object by a model by hand, and what the library reads of it is the object again.

#include <algorithm>
#include <cstdlib>

#include <gtest/gtest.h>

#include <vexa/interchange.h>

#include "support/everything_objects.h"
#include "support/random_values.h"

namespace {

using namespace vexa_test::everything;
using vexa_test::Json;

/// Objects of each class: a few in each test run, ORDANA_RANDOM_OBJECTS in all for a long one.
std::uint64_t CountOfEach()
{
    const char* const wished = std::getenv("ORDANA_RANDOM_OBJECTS");
    return wished != nullptr ? std::strtoull(wished, nullptr, 10) / Kinds().size() + 1 : 200;
}

/// Calls \p check with random objects of every class, until one fails.
template<class F>
void ForEachObject(F check)
{
    const std::uint64_t count = CountOfEach();
    for (const CKind& kind : Kinds()) {
        for (std::uint64_t seed = 0; seed < count && !testing::Test::HasFailure(); ++seed) {
            SCOPED_TRACE(NameOf(kind) + ", seed " + std::to_string(seed));
            check(CAnyObject(kind, seed), seed);
        }
    }
}

void ExpectSame(const CAnyObject& read, const CAnyObject& object, Comparison comparison = Comparison())
{
    EXPECT_TRUE(Same(comparison, read, object)) << comparison.Difference();
}

std::string Written(const CAnyObject& object, const vexa::CWritePolicy& policy = {}, vexa::CReport* report = nullptr)
{
    std::string text;
    vexa::WriteJson(text, object.Ref(), policy, report);
    return text;
}

vexa::CWritePolicy RandomWritePolicy(vexa_test::Random& random)
{
    vexa::CWritePolicy policy;
    policy.Indentation = static_cast<unsigned int>(random.OneOf({0, 1, 4}));
    policy.SortKeys = random.OneIn(2);
    policy.AsciiOnly = random.OneIn(2);
    return policy;
}

TEST(RandomRoundTrip, IsReadByAnIndependentParserAsTheModelSays)
{
    ForEachObject([](const CAnyObject& object, std::uint64_t) {
        vexa::CReport report;
        const std::string text = Written(object, {}, &report);
        ASSERT_TRUE(report.IsEmpty()) << report.AsString();
        Comparison comparison;
        EXPECT_TRUE(Agrees(comparison, Json::parse(text), object)) << comparison.Difference() << '\n' << text;
    });
}

TEST(RandomRoundTrip, IsTheSameValueInEveryStyle)
{
    ForEachObject([](const CAnyObject& object, std::uint64_t seed) {
        vexa_test::Random random(seed);
        const std::string text = Written(object, RandomWritePolicy(random));
        Comparison comparison;
        EXPECT_TRUE(Agrees(comparison, Json::parse(text), object)) << comparison.Difference() << '\n' << text;
    });
}

/// On one line raw JSON loses its line breaks.
TEST(RandomRoundTrip, IntoAFreshObjectGivesTheObject)
{
    ForEachObject([](const CAnyObject& object, std::uint64_t seed) {
        vexa::CWritePolicy policy;
        policy.Indentation = seed % 2 == 0 ? 0U : 1U;
        const std::string text = Written(object, policy);
        const CAnyObject read(object.Kind());
        vexa::CReport report;
        ASSERT_TRUE(vexa::ReadJson(read.Ref(), text, report)) << report.AsString(text) << text;
        ExpectSame(read, object,
                   Comparison(seed % 2 == 0 ? Comparison::Digits::WORTH_THE_SAME : Comparison::Digits::KEPT));
    });
}

TEST(RandomRoundTrip, IntoAUsedObjectGivesTheObject)
{
    ForEachObject([](const CAnyObject& object, std::uint64_t seed) {
        if (object.Kind().LeavesOut) return; // what the text does not name stays
        vexa_test::Random random(seed);
        const std::string text = Written(object, RandomWritePolicy(random));
        const CAnyObject used(object.Kind(), ~seed);
        vexa::CReport report;
        vexa::CReadPolicy policy;
        policy.Transactional = random.OneIn(2);
        ASSERT_TRUE(vexa::ReadJson(used.Ref(), text, report, policy)) << report.AsString(text) << text;
        ExpectSame(used, object, Comparison(Comparison::Digits::WORTH_THE_SAME)); // ASCII also of raw JSON
    });
}

TEST(RandomRoundTrip, InPiecesGivesTheSameTextAndObject)
{
    ForEachObject([](const CAnyObject& object, std::uint64_t seed) {
        std::string written;
        ASSERT_TRUE(
            vexa::WriteJson([&written](std::string_view piece) { return written += piece, true; }, object.Ref()));
        ASSERT_EQ(written, Written(object));

        vexa_test::Random random(seed);
        std::string_view left = written;
        std::string piece; // each goes when the next is asked for
        const CAnyObject read(object.Kind());
        vexa::CReport report;
        const auto next = [&] {
            piece = left.substr(0, 1 + random.Below(random.OneIn(3) ? 200 : 5));
            piece.shrink_to_fit();
            left.remove_prefix(piece.size());
            return std::string_view(piece);
        };
        ASSERT_TRUE(vexa::ReadJson(read.Ref(), next, report)) << report.AsString(written) << written;
        ExpectSame(read, object, Comparison(Comparison::Digits::WORTH_THE_SAME)); // of raw JSON the blanks are lost
    });
}

TEST(RandomRoundTrip, TheModelItselfCanFail)
{
    const auto inner =
        std::find_if(Kinds().begin(), Kinds().end(), [](const CKind& kind) { return NameOf(kind) == "Inner"; });
    ASSERT_NE(inner, Kinds().end());
    const CAnyObject read(*inner);
    vexa::CReport report;
    ASSERT_TRUE(vexa::ReadJson(read.Ref(), R"({"number":1,"text":"a"})", report));
    const auto agrees = [&read](const char* text) {
        Comparison comparison;
        return Agrees(comparison, Json::parse(text), read);
    };
    EXPECT_TRUE(agrees(R"({"number":1,"text":"a"})"));
    EXPECT_FALSE(agrees(R"({"number":1,"text":"b"})"));
    EXPECT_FALSE(agrees(R"({"number":1.0,"text":"a"})"));
    EXPECT_FALSE(agrees(R"({"number":1})"));
    EXPECT_FALSE(agrees(R"({"number":1,"text":"a","more":0})"));
    ForEachObject([](const CAnyObject& object, std::uint64_t seed) {
        Comparison comparison;
        EXPECT_TRUE(Same(comparison, object, CAnyObject(object.Kind(), seed)));
    });
}

} // namespace
