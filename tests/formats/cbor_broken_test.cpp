// Broken CBOR: described objects with bytes changed, left out and put in, and where the independent parser reads it,
// the same value.

#include <vexa/cbor.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include <vexa/json_tree.h>

#include "support/everything_objects.h"
#include "support/independent_cbor.h"

namespace {

using namespace vexa_test::everything;
using vexa_test::Json;

/// Breaks bytes, with a liking for heads: large sizes, tags, breaks, what is reserved.
class CBreaker {
public:
    explicit CBreaker(std::uint64_t seed) : m_dice(seed) {}

    std::size_t Below(std::size_t end) { return m_dice() % end; }
    std::string Broken(std::string bytes)
    {
        for (std::size_t left = 1 + Below(3); left != 0; --left) {
            const std::size_t at = Below(bytes.size() + 1);
            switch (Below(5)) {
            case 0: bytes.insert(at, Piece()); break;
            case 1: bytes.erase(at, 1 + Below(3)); break;
            case 2: bytes.resize(at); break;
            case 3: bytes.insert(at, bytes.substr(Below(bytes.size() + 1), Below(12))); break;
            default:
                if (at < bytes.size()) bytes[at] = static_cast<char>(m_dice());
            }
        }
        return bytes;
    }

private:
    std::string Piece()
    {
        static const std::string PIECES[] = {
            "\x7b\xff\xff\xff\xff\xff\xff\xff\xff",
            std::string("\x5b\x7f\xff\xff\xff\xff\xff\xff\x00", 9),
            "\x9b\xff\xff\xff\xff\xff\xff\xff\xff",
            std::string("\xbb\x80\0\0\0\0\0\0\0", 9),
            std::string("\x9a\0\1\0\0", 5),
            "\x9f",
            "\xbf",
            "\x5f",
            "\x7f",
            "\xff",
            "\xc0",
            "\xc1",
            "\xc2\x42\x01\x02",
            "\xc3",
            "\xc4",
            "\xc4\x82\x20\x0f",
            "\xd9\xd9\xf7",
            "\xdb\xff\xff\xff\xff\xff\xff\xff\xff",
            "\xf9\x7e",
            "\xf0",
            "\xf8\xff",
            "\x1c",
            "\x3b\xff\xff\xff\xff\xff\xff\xff\xff",
            std::string(1, '\0'),
        };
        return PIECES[Below(std::size(PIECES))];
    }

    std::mt19937_64 m_dice;
};

std::uint64_t CountOf(std::uint64_t usual)
{
    const char* const wished = std::getenv("ORDANA_RANDOM_OBJECTS");
    return wished != nullptr ? std::strtoull(wished, nullptr, 10) : usual;
}

std::string JsonOf(const CAnyObject& object)
{
    std::string text;
    vexa::WriteJson(text, object.Ref());
    return text;
}
std::string CborOf(const CAnyObject& object)
{
    std::string bytes;
    vexa::WriteCbor(bytes, object.Ref());
    return bytes;
}

/// What can be read can be written and read again. What cannot leaves the object as it was, and tells its place.
void ReadBroken(const CAnyObject& object, std::uint64_t seed)
{
    const std::string bytes = CBreaker(seed).Broken(CborOf(object));
    const CAnyObject read(object.Kind(), ~seed);
    const std::string before = JsonOf(read);
    vexa::CReport report;
    vexa::CReadPolicy policy;
    policy.Transactional = true;
    if (vexa::ReadCbor(read.Ref(), bytes, report, policy)) {
        const CAnyObject again(object.Kind());
        ASSERT_TRUE(vexa::ReadCbor(again.Ref(), CborOf(read), report)) << report.AsString();
        std::string json;
        if (!vexa::WriteJson(json, read.Ref(), {}, &report)) return; // a NaN is not even equal to itself
        Comparison comparison(Comparison::Digits::WORTH_THE_SAME);
        ASSERT_TRUE(Same(comparison, again, read)) << comparison.Difference();
        return;
    }
    ASSERT_EQ(JsonOf(read), before);
    ASSERT_FALSE(report.IsEmpty());
    for (const vexa::CProblem& problem : report.Problems()) {
        ASSERT_NE(problem.Code, vexa::ProblemCode::NONE);
        ASSERT_LE(problem.Place.Offset, bytes.size());
        ASSERT_LE(problem.Place.Length, bytes.size() - problem.Place.Offset);
    }
    ASSERT_FALSE(report.AsString(bytes).empty());
}

TEST(CborBroken, LeavesObjectsValid)
{
    const std::uint64_t start = std::random_device{}();
    const std::uint64_t count = CountOf(1000) / Kinds().size() + 1;
    for (const CKind& kind : Kinds()) {
        for (std::uint64_t seed = start; seed < start + count && !testing::Test::HasFatalFailure(); ++seed) {
            SCOPED_TRACE(NameOf(kind) + ", seed " + std::to_string(seed));
            ReadBroken(CAnyObject(kind, seed), seed);
        }
    }
}

/// The other parser reads integers below 64 bits with another sign, and JSON has no NaN.
bool IsComparable(const Json& json)
{
    if (json.is_structured()) return std::all_of(json.begin(), json.end(), IsComparable);
    return !json.is_number_float() || (std::isfinite(json.get<double>()) && json.get<double>() > -9e18);
}

/// The other parser does not look at UTF-8, and takes no tags here.
TEST(CborBroken, MeansWhatTheIndependentParserReads)
{
    const std::uint64_t start = std::random_device{}();
    std::uint64_t accepted = 0;
    for (std::uint64_t seed = start; seed < start + CountOf(2000); ++seed) {
        const CAnyObject object(Kinds()[seed % Kinds().size()], seed);
        const std::string bytes = CBreaker(seed).Broken(CborOf(object));
        const Json other = vexa_test::ParsedCbor(bytes);
        if (other.is_discarded()) continue;
        vexa::CJsonTree tree;
        vexa::CReport report;
        const bool isRead = vexa::ReadCbor(tree, bytes, report);
        if (!isRead && report.Problems().at(0).Code == vexa::ProblemCode::BAD_UTF8) continue;
        ASSERT_TRUE(isRead) << "seed " << seed << ": " << report.AsString();
        ++accepted;
        const Json json = Json::parse(tree.AsJson());
        if (!IsComparable(other) || !IsComparable(json)) continue;
        ASSERT_TRUE(vexa_test::IsSameValue(other, json)) << "seed " << seed << ": " << json;
    }
    EXPECT_GT(accepted, 0U);
}

} // namespace
