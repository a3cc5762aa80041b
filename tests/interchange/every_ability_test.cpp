// Random objects of every described type through formats of every ability: what is read is the object again.

#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include <vexa/interchange.h>

#include "support/everything_objects.h"
#include "support/given_events.h"

namespace {

using namespace vexa_test::everything;

/// What the bits of a number say that a format can do. What no format can do without is left to it.
vexa::CFormatAbilities AbilitiesOf(unsigned int bits)
{
    vexa::CFormatAbilities abilities;
    abilities.TellsIntegersFromFloats = true;
    abilities.HasBytes = (bits & 1U) != 0;
    abilities.HasTags = (bits & 3U) == 3U;
    abilities.HasDecimals = (bits & 4U) != 0;
    abilities.HasDateTime = (bits & 8U) != 0;
    abilities.HasIntegerKeys = (bits & 16U) != 0;
    return abilities;
}
constexpr unsigned int EVERY_ABILITY = 32; ///< all numbers below are different

void ExpectSame(const CAnyObject& object, const vexa::CFormatAbilities& abilities)
{
    test::CKeptEvents sink(abilities);
    vexa::CReport report;
    ASSERT_TRUE(vexa::WriteEvents(sink, object.Ref(), {}, &report)) << report.AsString();
    test::CGivenEvents source(sink.Events(), abilities);
    const CAnyObject read(object.Kind());
    ASSERT_TRUE(vexa::ReadEvents(read.Ref(), source, report)) << report.AsString();
    Comparison comparison(Comparison::Digits::WORTH_THE_SAME);
    EXPECT_TRUE(Same(comparison, read, object)) << comparison.Difference();
}

TEST(EveryAbility, KeepsEveryObject)
{
    for (const CKind& kind : Kinds()) {
        for (unsigned int seed = 0; seed < 2 * EVERY_ABILITY && !testing::Test::HasFailure(); ++seed) {
            SCOPED_TRACE(NameOf(kind) + ", seed " + std::to_string(seed));
            const vexa::CFormatAbilities abilities = AbilitiesOf(seed % EVERY_ABILITY);
            const bool hasJson = NameOf(kind) == "AnyJson" || NameOf(kind) == "Noted";
            if (!abilities.HasDecimals && hasJson) continue; // has numbers that only digits hold
            ExpectSame(CAnyObject(kind, seed), abilities);
        }
    }
}

} // namespace
