// Reads arbitrary bytes as standard JSON, whole and in pieces, beside an independent parser: both say the same of them,
// hold the same value where both take it, and what is written of it is the same value again.

#include <algorithm>
#include <cstdlib>

#include <vexa/interchange.h>

#include "support/independent_json.h"

namespace {

void Expect(bool isRight)
{
    if (!isRight) std::abort();
}

/// The first byte says how long the pieces are.
vexa::InputFunction InPieces(const std::string& text, std::size_t length)
{
    return [left = std::string_view(text), piece = std::string(), length]() mutable {
        piece = left.substr(0, length);
        piece.shrink_to_fit();
        left.remove_prefix(piece.size());
        return std::string_view(piece);
    };
}

void ReadInPieces(const vexa::CJsonTree& whole, const vexa::CReport& ofWhole, const std::string& text,
                  std::size_t length)
{
    vexa::CJsonTree tree;
    vexa::CReport report;
    Expect(vexa::ReadJson(tree, InPieces(text, length), report) == ofWhole.IsEmpty());
    Expect(!report.IsEmpty() || tree.IsIdenticalTo(whole));
    if (report.IsEmpty()) return;
    const vexa::CProblem& left = report.Problems()[0];
    const vexa::CProblem& right = ofWhole.Problems()[0];
    Expect(left.Code == right.Code && left.Place.Offset == right.Place.Offset && left.Place.Line == right.Place.Line &&
           left.Place.Column == right.Place.Column);
}

void WriteAndReadAgain(const vexa::CJsonTree& tree, unsigned char style)
{
    vexa::CWritePolicy policy;
    policy.Indentation = style & 3;
    policy.AsciiOnly = (style & 4) != 0;
    policy.SortKeys = (style & 8) != 0;
    const std::string written = vexa::WriteJson(tree, policy);
    vexa::CJsonTree again;
    vexa::CReport report;
    Expect(vexa::ReadJson(again, written, report));
    Expect(again == tree);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const unsigned char style = size != 0 ? data[0] : 0;
    const std::string text(data + std::min<std::size_t>(size, 1), data + size);

    vexa::CJsonTree tree;
    vexa::CReport report;
    const bool isRead = vexa::ReadJson(tree, text, report);
    Expect(isRead == report.IsEmpty());
    report.AsString(text);
    vexa_test::Json json;
    // A depth of 1,000 is ours alone.
    const bool isTooDeep = !isRead && report.Problems()[0].Code == vexa::ProblemCode::TOO_DEEP;
    const vexa_test::Verdict verdict = vexa_test::VerdictOnText(text, json);
    if (verdict != vexa_test::Verdict::UNKNOWN && !isTooDeep) {
        Expect((verdict == vexa_test::Verdict::ACCEPTED) == isRead);
        Expect(!isRead || vexa_test::IsSame(tree, json));
    }

    vexa::CRawJson raw;
    vexa::CReport ofRaw;
    Expect(vexa::ReadJson(raw, text, ofRaw) == isRead);
    ReadInPieces(tree, report, text, style / 16 + 1U);
    if (isRead) WriteAndReadAgain(tree, style);
    return 0;
}
