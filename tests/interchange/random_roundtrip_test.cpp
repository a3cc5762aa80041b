// Random objects of every described type, written as standard JSON: what an independent parser makes of the text is
// compared with the object by a model by hand, and what the library reads of it is the object again.

#include <cstdlib>

#include <gtest/gtest.h>

#include <vexa/interchange.h>

#include "support/everything_json.h"

namespace {

using namespace vexa_test::everything;
using vexa_test::Json;

/// Objects of each class: a few in each test run, ORDANA_RANDOM_OBJECTS in all for a long one.
std::uint64_t CountOfEach()
{
    std::uint64_t classes = 0;
    ForEachClass([&classes](auto) { ++classes; });
    const char* const wished = std::getenv("ORDANA_RANDOM_OBJECTS");
    return wished != nullptr ? std::strtoull(wished, nullptr, 10) / classes + 1 : 200;
}

/// Calls \p check with random objects of every class, until one fails.
template<class F>
void ForEachObject(F check)
{
    const std::uint64_t count = CountOfEach();
    ForEachClass([&](auto tag) {
        using Class = typename decltype(tag)::Type;
        for (std::uint64_t seed = 0; seed < count && !testing::Test::HasFailure(); ++seed) {
            SCOPED_TRACE(vexa::ClassInforOf<Class>().Name + ", seed " + std::to_string(seed));
            check(*MakeRandom<Class>(seed), seed);
        }
    });
}

template<class T>
void ExpectSame(const T& read, const T& object, Comparison comparison = Comparison())
{
    EXPECT_TRUE(Same(comparison, read, object)) << comparison.Difference();
}

vexa::CWritePolicy RandomWritePolicy(Filler& filler)
{
    vexa::CWritePolicy policy;
    policy.Indentation = static_cast<unsigned int>(filler.OneOf({0, 1, 4}));
    policy.SortKeys = filler.OneIn(2);
    policy.AsciiOnly = filler.OneIn(2);
    return policy;
}

TEST(RandomRoundTrip, IsReadByAnIndependentParserAsTheModelSays)
{
    ForEachObject([](const auto& object, std::uint64_t) {
        vexa::CReport report;
        const std::string text = vexa::WriteJson(object, {}, &report);
        ASSERT_TRUE(report.IsEmpty()) << report.AsString();
        Comparison comparison;
        EXPECT_TRUE(Agrees(comparison, Json::parse(text), object)) << comparison.Difference() << '\n' << text;
    });
}

TEST(RandomRoundTrip, IsTheSameValueInEveryStyle)
{
    ForEachObject([](const auto& object, std::uint64_t seed) {
        Filler filler(seed);
        const std::string text = vexa::WriteJson(object, RandomWritePolicy(filler));
        Comparison comparison;
        EXPECT_TRUE(Agrees(comparison, Json::parse(text), object)) << comparison.Difference() << '\n' << text;
    });
}

TEST(RandomRoundTrip, IntoAFreshObjectGivesTheObject)
{
    ForEachObject([](const auto& object, std::uint64_t) {
        const std::string text = vexa::WriteJson(object);
        std::decay_t<decltype(object)> read;
        vexa::CReport report;
        ASSERT_TRUE(vexa::ReadJson(read, text, report)) << report.AsString(text) << text;
        ExpectSame(read, object);
    });
}

TEST(RandomRoundTrip, IntoAUsedObjectGivesTheObject)
{
    ForEachObject([](const auto& object, std::uint64_t seed) {
        Filler filler(seed);
        const std::string text = vexa::WriteJson(object, RandomWritePolicy(filler));
        const auto used = MakeRandom<std::decay_t<decltype(object)>>(~seed);
        vexa::CReport report;
        vexa::CReadPolicy policy;
        policy.Transactional = filler.OneIn(2);
        ASSERT_TRUE(vexa::ReadJson(*used, text, report, policy)) << report.AsString(text) << text;
        ExpectSame(*used, object, Comparison(Comparison::Digits::WORTH_THE_SAME)); // ASCII also of raw JSON
    });
}

TEST(RandomRoundTrip, InPiecesGivesTheSameTextAndObject)
{
    ForEachObject([](const auto& object, std::uint64_t seed) {
        std::string written;
        ASSERT_TRUE(vexa::WriteJson([&written](std::string_view piece) { return written += piece, true; }, object));
        ASSERT_EQ(written, vexa::WriteJson(object));

        Filler filler(seed);
        std::string_view left = written;
        std::string piece; // each goes when the next is asked for
        std::decay_t<decltype(object)> read;
        vexa::CReport report;
        const auto next = [&] {
            piece = left.substr(0, 1 + filler.Below(filler.OneIn(3) ? 200 : 5));
            piece.shrink_to_fit();
            left.remove_prefix(piece.size());
            return std::string_view(piece);
        };
        ASSERT_TRUE(vexa::ReadJson(read, next, report)) << report.AsString(written) << written;
        ExpectSame(read, object, Comparison(Comparison::Digits::WORTH_THE_SAME)); // of raw JSON the blanks are lost
    });
}

TEST(RandomRoundTrip, TheModelItselfCanFail)
{
    Inner inner;
    inner.number = 1;
    inner.text = "a";
    const auto agrees = [&inner](const char* text) {
        Comparison comparison;
        return Agrees(comparison, Json::parse(text), inner);
    };
    EXPECT_TRUE(agrees(R"({"number":1,"text":"a"})"));
    EXPECT_FALSE(agrees(R"({"number":1,"text":"b"})"));
    EXPECT_FALSE(agrees(R"({"number":1.0,"text":"a"})"));
    EXPECT_FALSE(agrees(R"({"number":1})"));
    EXPECT_FALSE(agrees(R"({"number":1,"text":"a","more":0})"));
    ForEachObject([](const auto& object, std::uint64_t seed) {
        Comparison comparison;
        EXPECT_TRUE(Same(comparison, object, *MakeRandom<std::decay_t<decltype(object)>>(seed)));
    });
}

} // namespace
