// Text along the plans and along the descriptors: the same text, log lines and questions to converters, whatever the
// value, the format and the depth. A copy of a finished descriptor has no plan, so that it is rendered plainly.

#include <vexa/text.h>

#include <chrono>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/helper.h>

#include "support/captured_log.h"
#include "support/plain_descriptor.h"
#include "support/random_objects.h"

namespace vexa_test::random_objects {
namespace {

constexpr int OBJECTS_OF_EACH_CLASS = 1300;
constexpr int BATCH = 100;

/// What rendering some objects gave: the text of each, and what the converters were asked for it.
struct Rendered {
    std::vector<std::string> Results;
    std::string Log;
};

/// Renders all values in all formats, with the objects told apart in the log, onto what each string holds already.
Rendered RenderAll(const std::vector<vexa::CConstRefrence>& refs)
{
    Rendered rendered;
    rendered.Log = LoggedLines([&] {
        for (const vexa::CConstRefrence& ref : refs) {
            for (const unsigned int format : {0U, 1U, 2U, 7U}) {
                vexa::helper::LogError("value %d", static_cast<int>(rendered.Results.size()));
                ConverterCalls().clear();
                std::string text = "before";
                vexa::AppendString(text, ref, static_cast<vexa::Enum::AsStringFormatEnum>(format));
                rendered.Results.push_back(text + " asked: " + ConverterCalls());
            }
        }
    });
    return rendered;
}

void ExpectTheSame(const std::vector<vexa::CConstRefrence>& refs, PlainDescriptors& plain)
{
    std::vector<vexa::CConstRefrence> copies;
    for (const vexa::CConstRefrence& ref : refs)
        copies.push_back(plain.Of(ref));
    const Rendered planned = RenderAll(refs);
    const Rendered walked = RenderAll(copies);
    for (std::size_t i = 0; i < planned.Results.size(); ++i)
        ASSERT_EQ(planned.Results[i], walked.Results[i]) << refs[i / 4].TypeName() << ", format " << i % 4;
    ASSERT_EQ(planned.Log, walked.Log);
}

std::uint64_t NewSeed()
{
    return static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
}

TEST(RenderDifference, TextOfRandomObjectsIsTheSameAlongThePlanAndAlongTheDescriptor)
{
    const std::uint64_t seed = NewSeed();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::cout << "seed " << seed << '\n';
    Random random(seed);
    PlainDescriptors plain;
    int compared = 0;
    ForEachRandomClass([&](auto tag) {
        using T = typename decltype(tag)::Type;
        for (int done = 0; done < OBJECTS_OF_EACH_CLASS && !testing::Test::HasFailure(); done += BATCH) {
            std::vector<std::unique_ptr<T>> objects;
            std::vector<vexa::CConstRefrence> refs;
            for (int i = 0; i < BATCH; ++i) {
                objects.push_back(RandomObject<T>(random));
                refs.push_back(vexa::RefOf(*objects.back()));
            }
            refs.push_back(vexa::RefOf(objects)); // the same in a container
            ExpectTheSame(refs, plain);
            compared += BATCH;
            objects.clear();
            random.Forget();
        }
    });
    EXPECT_GE(compared, 20000);
}

} // namespace
} // namespace vexa_test::random_objects
