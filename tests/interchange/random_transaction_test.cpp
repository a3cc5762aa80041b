// Texts with problems, read into random objects of every described type: a transactional reading leaves the object as
// it was, any other a valid object.

#include <cstdlib>

#include <gtest/gtest.h>
#include <vexa/interchange.h>

#include "support/described_everything.h"
#include "support/random_standard_json.h"

namespace {

using namespace vexa_test::everything;

std::uint64_t CountOfEach()
{
    const char* const wished = std::getenv("ORDANA_RANDOM_TEXTS");
    return wished != nullptr ? std::strtoull(wished, nullptr, 10) / 10 : 300;
}

/// A text for the class with something wrong in it, mostly.
template<class T>
std::string BrokenText(Filler& filler, std::uint64_t seed)
{
    std::string text = vexa::WriteJson(*MakeRandom<T>(seed));
    vexa_test::RandomStandardJson texts(filler);
    if (filler.OneIn(2)) return texts.Mutated(std::move(text));
    // A value of another kind where one begins.
    const std::size_t at = text.find(':', filler.Below(text.size()));
    if (at != std::string::npos) text.insert(at + 1, texts.Text(2) + ",\"nobody\":");
    return text;
}

/// Calls \p check with the tag of each class, a seed and a text.
template<class F>
void ForEachText(F check)
{
    ForEachClass([&](auto tag) {
        using Class = typename decltype(tag)::Type;
        for (std::uint64_t seed = 0; seed < CountOfEach() && !testing::Test::HasFailure(); ++seed) {
            Filler filler(seed + 77);
            const std::string text = BrokenText<Class>(filler, seed + 1000000);
            SCOPED_TRACE(vexa::ClassInforOf<Class>().Name + ", seed " + std::to_string(seed) + ": " + text);
            check(tag, seed, text);
        }
    });
}

TEST(RandomTransaction, LeavesTheObjectAsItWasAfterAProblem)
{
    std::size_t problems = 0;
    ForEachText([&problems](auto tag, std::uint64_t seed, const std::string& text) {
        using Class = typename decltype(tag)::Type;
        const auto object = MakeRandom<Class>(seed);
        const auto before = MakeRandom<Class>(seed);
        vexa::CReport report;
        vexa::CReadPolicy policy;
        policy.Transactional = true;
        const bool isRead = vexa::ReadJson(*object, text, report, policy);
        ASSERT_EQ(isRead, report.IsEmpty());
        if (isRead) return;
        ++problems;
        Comparison comparison;
        EXPECT_TRUE(Same(comparison, *object, *before)) << comparison.Difference() << '\n' << report.AsString();
    });
    EXPECT_GT(problems, CountOfEach());
}

TEST(RandomTransaction, IsNeededOnlyForWhatWasThere)
{
    ForEachText([](auto tag, std::uint64_t seed, const std::string& text) {
        using Class = typename decltype(tag)::Type;
        const auto object = MakeRandom<Class>(seed);
        vexa::CReport report;
        const bool isRead = vexa::ReadJson(*object, text, report);
        ASSERT_EQ(isRead, report.IsEmpty());
        // The object is sound: it can be written, and what is written read.
        vexa::CReport ofWriting;
        const std::string written = vexa::WriteJson(*object, {}, &ofWriting);
        Class again;
        EXPECT_TRUE(!ofWriting.IsEmpty() || vexa::ReadJson(again, written, ofWriting)) << ofWriting.AsString(written);
    });
}

TEST(RandomTransaction, ReadsTheSameAsAnyOther)
{
    ForEachText([](auto tag, std::uint64_t seed, const std::string& text) {
        using Class = typename decltype(tag)::Type;
        const auto plain = MakeRandom<Class>(seed);
        const auto guarded = MakeRandom<Class>(seed);
        vexa::CReport ofPlain, ofGuarded;
        vexa::CReadPolicy policy;
        policy.Transactional = true;
        EXPECT_EQ(vexa::ReadJson(*plain, text, ofPlain), vexa::ReadJson(*guarded, text, ofGuarded, policy));
        EXPECT_EQ(ofPlain.AsString(), ofGuarded.AsString());
        Comparison comparison;
        EXPECT_TRUE(!ofPlain.IsEmpty() || Same(comparison, *plain, *guarded)) << comparison.Difference();
    });
}

} // namespace
