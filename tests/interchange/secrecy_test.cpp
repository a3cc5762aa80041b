// Whatever is wrong with a text, what it gives for confidential attributes stands nowhere in the report.

#include <cstdlib>

#include <gtest/gtest.h>

#include "support/random_standard_json.h"
#include "support/secret_texts.h"

namespace {

using namespace vexa_test::secrets;
using vexa_test::Random;
using vexa_test::RandomStandardJson;

std::size_t Count()
{
    const char* const wished = std::getenv("ORDANA_RANDOM_TEXTS");
    return wished != nullptr ? std::strtoull(wished, nullptr, 10) : 2000;
}

vexa::CReadPolicy RandomPolicy(Random& random)
{
    vexa::CReadPolicy policy;
    policy.Unknown = random.OneOf({vexa::UnknownKeys::BY_CLASS, vexa::UnknownKeys::PROBLEM, vexa::UnknownKeys::KEEP});
    policy.LastDuplicateWins = random.OneIn(4);
    policy.Transactional = random.OneIn(2);
    policy.MaxTextLength = random.OneIn(4) ? 10 : vexa::CReadPolicy::NO_LIMIT;
    policy.MaxElements = random.OneIn(4) ? 1 : vexa::CReadPolicy::NO_LIMIT;
    policy.MaxBytes = random.OneIn(8) ? random.Below(300) : vexa::CReadPolicy::NO_LIMIT;
    policy.MaxDepth = random.OneIn(8) ? 3 : 1000;
    return policy;
}

vexa::InputFunction InPieces(const std::string& text, Random& random)
{
    return [left = std::string_view(text), &random]() mutable {
        const std::string_view piece = left.substr(0, 1 + random.Below(40));
        left.remove_prefix(piece.size());
        return piece;
    };
}

/// Reads random texts, as they are or broken, and gives the number of problems.
std::size_t ReadAll(std::uint64_t first, bool isBroken)
{
    std::size_t problems = 0;
    for (std::uint64_t seed = first; seed < first + Count() && !testing::Test::HasFailure(); ++seed) {
        Random random(seed);
        RandomVault vaults(random);
        std::string text = vaults.Text();
        if (isBroken) text = RandomStandardJson(random).Mutated(std::move(text));
        Vault vault;
        vexa::CReport report;
        const vexa::CReadPolicy policy = RandomPolicy(random);
        if (random.OneIn(4))
            vexa::ReadJson(vault, InPieces(text, random), report, policy);
        else
            vexa::ReadJson(vault, text, report, policy);
        EXPECT_EQ("", LeakOf(vaults.Secrets(), report, text)) << "seed " << seed << ":\n" << text;
        problems += report.Problems().size();
    }
    return problems;
}

TEST(Secrecy, OfValuesThatDoNotFit)
{
    EXPECT_GT(ReadAll(1, false), Count()); // most texts have several problems
}

TEST(Secrecy, OfBrokenTexts) { EXPECT_GT(ReadAll(1000000, true), Count()); }

/// Without confidential attributes near, a report says what it has found.
TEST(Secrecy, IsOfConfidentialAttributesOnly)
{
    Note note;
    vexa::CReport report;
    const std::string text = R"({"words":"zqxjkvw0123456789","count":"zqxjkvw"})";
    EXPECT_FALSE(vexa::ReadJson(note, text, report));
    EXPECT_NE("", FindLeak(AllTexts(report, text), "zqxjkvw"));
}

TEST(Secrecy, IsLookedForWhereTheTextItselfKeepsIt)
{
    const CSecret secret{"zqxjkvw", R"("pin":"zqxjkvw)"};
    EXPECT_TRUE(IsStillSecret(R"({"pin":"zqxjkvw"})", secret));
    EXPECT_FALSE(IsStillSecret(R"({"pen":"zqxjkvw"})", secret));
    EXPECT_FALSE(IsStillSecret(R"({"pin":"zqxjkvw","title":"zqxjkvw"})", secret));
    EXPECT_FALSE(IsStillSecret(R"({"pin":"zqx"})", secret));
}

} // namespace
