// Random objects of every described type in the other formats: what is read is the object again, a tree of it is what
// the model by hand says, and an independent parser of CBOR finds the values that JSON has.

#include <vexa/cbor.h>
#include <vexa/yaml.h>

#include <cstdlib>

#include <gtest/gtest.h>

#include <vexa/json_tree.h>

#include "support/everything_objects.h"
#include "support/independent_cbor.h"

namespace {

using namespace vexa_test::everything;
using vexa_test::IsSameValue;
using vexa_test::Json;

/// Objects of each class: a few in each test run, ORDANA_RANDOM_OBJECTS in all for a long one.
std::uint64_t CountOfEach()
{
    const char* const wished = std::getenv("ORDANA_RANDOM_OBJECTS");
    return wished != nullptr ? std::strtoull(wished, nullptr, 10) / Kinds().size() + 1 : 60;
}

struct CFormat {
    bool (*Write)(std::string& out, const vexa::CConstRefrence& ref, const vexa::CWritePolicy& policy,
                  vexa::CReport* report, const vexa::detail::CEnumerationSlot* names);
    bool (*Read)(const vexa::CRefrence& target, std::string_view text, vexa::CReport& report,
                 const vexa::CReadPolicy& policy, const vexa::detail::CEnumerationSlot* names);
};
const CFormat YAML{vexa::WriteYaml, vexa::ReadYaml};
const CFormat CBOR{vexa::WriteCbor, vexa::ReadCbor};

/// Calls \p check with random objects of every class and their text, until one fails.
template<class F>
void ForEachObject(const CFormat& format, F check)
{
    const std::uint64_t count = CountOfEach();
    for (const CKind& kind : Kinds()) {
        for (std::uint64_t seed = 0; seed < count && !testing::Test::HasFailure(); ++seed) {
            SCOPED_TRACE(NameOf(kind) + ", seed " + std::to_string(seed));
            const CAnyObject object(kind, seed);
            std::string text;
            vexa::CReport report;
            ASSERT_TRUE(format.Write(text, object.Ref(), {}, &report, nullptr)) << report.AsString();
            check(object, text, seed);
        }
    }
}

void ExpectSame(const CAnyObject& read, const CAnyObject& object, const std::string& text)
{
    Comparison comparison(Comparison::Digits::WORTH_THE_SAME);
    EXPECT_TRUE(Same(comparison, read, object)) << comparison.Difference() << '\n' << text;
}

void ExpectObjectsAgain(const CFormat& format)
{
    ForEachObject(format, [&format](const CAnyObject& object, const std::string& text, std::uint64_t seed) {
        vexa::CReport report;
        const CAnyObject fresh(object.Kind());
        ASSERT_TRUE(format.Read(fresh.Ref(), text, report, {}, nullptr)) << report.AsString(text) << text;
        ExpectSame(fresh, object, text);
        if (object.Kind().LeavesOut) return; // what the text does not name stays
        const CAnyObject used(object.Kind(), ~seed);
        vexa::CReadPolicy policy;
        policy.Transactional = seed % 2 == 0;
        ASSERT_TRUE(format.Read(used.Ref(), text, report, policy, nullptr)) << report.AsString(text) << text;
        ExpectSame(used, object, text);
    });
}

TEST(EveryFormatRoundTrip, GivesTheObjectThroughYaml) { ExpectObjectsAgain(YAML); }
TEST(EveryFormatRoundTrip, GivesTheObjectThroughCbor) { ExpectObjectsAgain(CBOR); }

void ExpectTreesAsTheModelSays(const CFormat& format)
{
    ForEachObject(format, [&format](const CAnyObject& object, const std::string& text, std::uint64_t) {
        if (&format == &CBOR && NameOf(object.Kind()) == "AnyJson") return; // of numbers only their worth is kept
        vexa::CReport report;
        vexa::CJsonTree tree;
        ASSERT_TRUE(format.Read(vexa::RefOf(tree), text, report, {}, nullptr)) << report.AsString(text) << text;
        Comparison comparison;
        EXPECT_TRUE(Agrees(comparison, Json::parse(tree.AsJson()), object)) << comparison.Difference() << '\n' << text;
    });
}

TEST(EveryFormatRoundTrip, GivesTheTreeThatTheModelSaysThroughYaml) { ExpectTreesAsTheModelSays(YAML); }
TEST(EveryFormatRoundTrip, GivesTheTreeThatTheModelSaysThroughCbor) { ExpectTreesAsTheModelSays(CBOR); }

/// The other parser knows no integers as keys.
bool HasIntegerKeys(const CKind& kind)
{
    const std::string name = NameOf(kind);
    return name == "Maps" || name == "Mixes" || name == "Signals" || name == "Times";
}

TEST(EveryFormatRoundTrip, IsReadByAnIndependentParserOfCbor)
{
    ForEachObject(CBOR, [](const CAnyObject& object, const std::string& bytes, std::uint64_t) {
        std::string text;
        vexa::WriteJson(text, object.Ref());
        const Json cbor = vexa_test::ParsedCbor(vexa_test::WithoutTags(bytes));
        if (cbor.is_discarded() && HasIntegerKeys(object.Kind())) return;
        EXPECT_TRUE(IsSameValue(cbor, Json::parse(text))) << cbor.dump(-1, ' ', true) << '\n' << text;
    });
}

TEST(EveryFormatRoundTrip, WouldSeeAnotherValue)
{
    const Json json = Json::parse(R"({"a":[1,"b",0.5,null]})");
    EXPECT_TRUE(IsSameValue(json, json));
    for (const char* const other : {R"({"a":[1,"b",0.5]})", R"({"a":[2,"b",0.5,null]})", R"({"a":[1,"c",0.5,null]})",
                                    R"({"a":[1,"b",0.25,null]})", R"({"b":[1,"b",0.5,null]})"})
        EXPECT_FALSE(IsSameValue(Json::parse(other), json)) << other;
}

} // namespace
