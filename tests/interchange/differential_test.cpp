// Random texts, sound and broken, read by the library and by an independent parser: both say the same of each, and hold
// the same value where both take it.

#include <cstdlib>
#include <functional>

#include <gtest/gtest.h>
#include <vexa/interchange.h>

#include "support/independent_json.h"
#include "support/random_standard_json.h"

namespace {

using vexa_test::IsSame;
using vexa_test::Json;
using vexa_test::Random;
using vexa_test::RandomStandardJson;
using vexa_test::Shown;
using vexa_test::Verdict;
using vexa_test::VerdictOnText;

std::size_t Count()
{
    const char* const wished = std::getenv("ORDANA_RANDOM_TEXTS");
    return wished != nullptr ? std::strtoull(wished, nullptr, 10) : 20000;
}

/// Calls \p check with random texts, half of them broken, until one fails.
void ForEachText(std::uint64_t seed, const std::function<void(const std::string&, Random&)>& check)
{
    for (std::size_t i = 0; i < Count() && !testing::Test::HasFailure(); ++i) {
        Random random(seed + i);
        RandomStandardJson texts(random);
        std::string text = texts.Text();
        if (random.OneIn(2)) text = texts.Mutated(std::move(text));
        SCOPED_TRACE("seed " + std::to_string(seed + i) + ": " + Shown(text));
        check(text, random);
    }
}

/// Hands the text over in pieces of random length, each of which goes when the next is asked for.
vexa::InputFunction InPieces(const std::string& text, Random& random)
{
    return [left = std::string_view(text), piece = std::string(), &random]() mutable {
        piece = left.substr(0, 1 + random.Below(random.OneIn(4) ? 100 : 4));
        piece.shrink_to_fit();
        left.remove_prefix(piece.size());
        return std::string_view(piece);
    };
}

TEST(Differential, ATreeTakesAndHoldsWhatTheOtherParserDoes)
{
    std::size_t counts[3] = {};
    ForEachText(1, [&counts](const std::string& text, Random&) {
        Json json;
        const Verdict verdict = VerdictOnText(text, json);
        ++counts[static_cast<int>(verdict)];
        vexa::CJsonTree tree;
        vexa::CReport report;
        const bool isRead = vexa::ReadJson(tree, text, report);
        EXPECT_EQ(isRead, report.IsEmpty());
        if (verdict == Verdict::UNKNOWN) return;
        EXPECT_EQ(verdict == Verdict::ACCEPTED, isRead) << report.AsString();
        EXPECT_TRUE(!isRead || IsSame(tree, json)) << tree.AsJson() << '\n' << json;
    });
    EXPECT_GT(counts[0], Count() / 10); // both verdicts are asked for
    EXPECT_GT(counts[1], Count() / 2);
}

TEST(Differential, RawTextIsKeptAsItStands)
{
    ForEachText(2, [](const std::string& text, Random&) {
        Json json;
        const Verdict verdict = VerdictOnText(text, json);
        vexa::CRawJson raw;
        vexa::CReport report;
        const bool isRead = vexa::ReadJson(raw, text, report);
        EXPECT_EQ(isRead, report.IsEmpty());
        if (verdict == Verdict::UNKNOWN) return;
        EXPECT_EQ(verdict == Verdict::ACCEPTED, isRead) << report.AsString();
        const std::size_t first = text.find_first_not_of(" \t\r\n");
        const std::size_t last = text.find_last_not_of(" \t\r\n");
        if (!isRead) return;
        EXPECT_EQ(Shown(text.substr(first, last + 1 - first)), Shown(raw.Text()));
    });
}

TEST(Differential, InPiecesIsTheSame)
{
    ForEachText(3, [](const std::string& text, Random& random) {
        vexa::CJsonTree whole, pieced;
        vexa::CReport ofWhole, ofPieced;
        const bool isRead = vexa::ReadJson(whole, text, ofWhole);
        EXPECT_EQ(isRead, vexa::ReadJson(pieced, InPieces(text, random), ofPieced));
        EXPECT_TRUE(!isRead || whole.IsIdenticalTo(pieced));
        ASSERT_EQ(ofWhole.Problems().size(), ofPieced.Problems().size());
        if (isRead) return;
        const vexa::CProblem& left = ofWhole.Problems()[0];
        const vexa::CProblem& right = ofPieced.Problems()[0];
        EXPECT_EQ(left.Code, right.Code) << ofWhole.AsString() << ofPieced.AsString();
        EXPECT_EQ(left.Place.Offset, right.Place.Offset);
        EXPECT_EQ(left.Place.Line, right.Place.Line);
        EXPECT_EQ(left.Place.Column, right.Place.Column);
    });
}

TEST(Differential, AWrittenTreeIsTheSameValueToBoth)
{
    ForEachText(4, [](const std::string& text, Random& random) {
        vexa::CJsonTree tree;
        vexa::CReport report;
        if (!vexa::ReadJson(tree, text, report)) return;
        vexa::CWritePolicy policy;
        policy.Indentation = static_cast<unsigned int>(random.OneOf({0, 2}));
        policy.AsciiOnly = random.OneIn(2);
        policy.SortKeys = random.OneIn(2);
        const std::string written = vexa::WriteJson(tree, policy);
        Json json;
        if (VerdictOnText(written, json) == Verdict::UNKNOWN) return;
        EXPECT_TRUE(IsSame(tree, json)) << written;
        vexa::CJsonTree again;
        ASSERT_TRUE(vexa::ReadJson(again, written, report)) << report.AsString(written);
        EXPECT_TRUE(again == tree);
        EXPECT_TRUE(policy.SortKeys || again.IsIdenticalTo(tree));
    });
}

} // namespace
