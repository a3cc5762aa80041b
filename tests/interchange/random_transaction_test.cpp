// Texts with problems, read into random objects of every described type: a transactional reading leaves the object as
// it was, any other a valid object.

#include <cstdlib>

#include <gtest/gtest.h>
#include <vexa/interchange.h>

#include "support/everything_objects.h"
#include "support/random_standard_json.h"

namespace {

using namespace vexa_test::everything;

std::uint64_t CountOfEach()
{
    const char* const wished = std::getenv("ORDANA_RANDOM_TEXTS");
    return wished != nullptr ? std::strtoull(wished, nullptr, 10) / 10 : 300;
}

/// A text for the class with something wrong in it, mostly.
std::string BrokenText(const CKind& kind, vexa_test::Random& random, std::uint64_t seed)
{
    std::string text;
    vexa::WriteJson(text, CAnyObject(kind, seed).Ref());
    vexa_test::RandomStandardJson texts(random);
    if (random.OneIn(2)) return texts.Mutated(std::move(text));
    // A value of another kind where one begins.
    const std::size_t at = text.find(':', random.Below(text.size()));
    if (at != std::string::npos) text.insert(at + 1, texts.Text(2) + ",\"nobody\":");
    return text;
}

/// Calls \p check with each kind of object, a seed and a text.
template<class F>
void ForEachText(F check)
{
    for (const CKind& kind : Kinds()) {
        for (std::uint64_t seed = 0; seed < CountOfEach() && !testing::Test::HasFailure(); ++seed) {
            vexa_test::Random random(seed + 77);
            const std::string text = BrokenText(kind, random, seed + 1000000);
            SCOPED_TRACE(NameOf(kind) + ", seed " + std::to_string(seed) + ": " + text);
            check(kind, seed, text);
        }
    }
}

TEST(RandomTransaction, LeavesTheObjectAsItWasAfterAProblem)
{
    std::size_t problems = 0;
    ForEachText([&problems](const CKind& kind, std::uint64_t seed, const std::string& text) {
        const CAnyObject object(kind, seed);
        const CAnyObject before(kind, seed);
        vexa::CReport report;
        vexa::CReadPolicy policy;
        policy.Transactional = true;
        const bool isRead = vexa::ReadJson(object.Ref(), text, report, policy);
        ASSERT_EQ(isRead, report.IsEmpty());
        if (isRead) return;
        ++problems;
        Comparison comparison;
        EXPECT_TRUE(Same(comparison, object, before)) << comparison.Difference() << '\n' << report.AsString();
    });
    EXPECT_GT(problems, CountOfEach());
}

TEST(RandomTransaction, IsNeededOnlyForWhatWasThere)
{
    ForEachText([](const CKind& kind, std::uint64_t seed, const std::string& text) {
        const CAnyObject object(kind, seed);
        vexa::CReport report;
        const bool isRead = vexa::ReadJson(object.Ref(), text, report);
        ASSERT_EQ(isRead, report.IsEmpty());
        // The object is sound: it can be written, and what is written read.
        vexa::CReport ofWriting;
        std::string written;
        vexa::WriteJson(written, object.Ref(), {}, &ofWriting);
        const CAnyObject again(kind);
        EXPECT_TRUE(!ofWriting.IsEmpty() || vexa::ReadJson(again.Ref(), written, ofWriting))
            << ofWriting.AsString(written);
    });
}

TEST(RandomTransaction, ReadsTheSameAsAnyOther)
{
    ForEachText([](const CKind& kind, std::uint64_t seed, const std::string& text) {
        const CAnyObject plain(kind, seed);
        const CAnyObject guarded(kind, seed);
        vexa::CReport ofPlain, ofGuarded;
        vexa::CReadPolicy policy;
        policy.Transactional = true;
        EXPECT_EQ(vexa::ReadJson(plain.Ref(), text, ofPlain), vexa::ReadJson(guarded.Ref(), text, ofGuarded, policy));
        EXPECT_EQ(ofPlain.AsString(), ofGuarded.AsString());
        Comparison comparison;
        EXPECT_TRUE(!ofPlain.IsEmpty() || Same(comparison, plain, guarded)) << comparison.Difference();
    });
}

} // namespace
