// JSON along the plans and along the descriptors: the same text, code, log lines and questions to converters, whatever
// the value. A copy of a finished descriptor has no plan, so that it is walked plainly.

#include <vexa/json.h>

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
#include "support/text_links.h"

namespace vexa_test::random_objects {
namespace {

constexpr int OBJECTS_OF_EACH_CLASS = 1200;
constexpr int BATCH = 100;

/// What writing some objects gave, of each its code, its text and what the converters were asked.
struct Written {
    std::vector<std::string> Results;
    std::string Log;
};

/// Writes all values, with the objects told apart in the log.
Written WriteAll(const std::vector<vexa::CConstRefrence>& refs)
{
    Written written;
    written.Log = LoggedLines([&] {
        std::string text;
        for (const vexa::CConstRefrence& ref : refs) {
            vexa::helper::LogError("value %d", static_cast<int>(written.Results.size()));
            ConverterCalls().clear();
            const int code = vexa::ToJson(text, ref);
            written.Results.push_back(std::to_string(code) + ' ' + text + " asked: " + ConverterCalls());
        }
    });
    return written;
}

void ExpectTheSame(const std::vector<vexa::CConstRefrence>& refs, PlainDescriptors& plain)
{
    std::vector<vexa::CConstRefrence> copies;
    for (const vexa::CConstRefrence& ref : refs)
        copies.push_back(plain.Of(ref));
    const Written planned = WriteAll(refs);
    const Written walked = WriteAll(copies);
    for (std::size_t i = 0; i < refs.size(); ++i)
        ASSERT_EQ(planned.Results[i], walked.Results[i]) << refs[i].TypeName();
    ASSERT_EQ(planned.Log, walked.Log);
}

std::uint64_t NewSeed()
{
    return static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
}

TEST(PlanDifference, JsonOfRandomObjectsIsTheSameAlongThePlanAndAlongTheDescriptor)
{
    const std::uint64_t seed = NewSeed();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::cout << "seed " << seed << '\n';
    Random random(seed);
    PlainDescriptors plain;
    ForEachRandomClass([&](auto tag) {
        using T = typename decltype(tag)::Type;
        for (int done = 0; done < OBJECTS_OF_EACH_CLASS && !testing::Test::HasFailure(); done += BATCH) {
            std::vector<std::unique_ptr<T>> objects;
            std::vector<vexa::CConstRefrence> refs;
            for (int i = 0; i < BATCH; ++i) {
                objects.push_back(RandomObject<T>(random));
                refs.push_back(vexa::RefOf(*objects.back()));
            }
            ExpectTheSame(refs, plain);
            ExpectTheSame({vexa::RefOf(objects)}, plain);
            objects.clear();
            random.Forget();
        }
    });
}

TEST(PlanDifference, ChainsAroundTheGreatestDepthAreTheSameAlongThePlanAndAlongTheDescriptor)
{
    PlainDescriptors plain;
    for (const std::size_t length : {1UL, 499UL, 500UL, 501UL, 999UL, 1000UL, 1001UL, 1002UL}) {
        std::vector<Link> links = LinkedList(length);
        ExpectTheSame({vexa::RefOf(links.front())}, plain);
        links.back().next = links.data() + length / 2;
        ExpectTheSame({vexa::RefOf(links.front())}, plain);
        ExpectTheSame({vexa::RefOf(links)}, plain);
    }
}

} // namespace
} // namespace vexa_test::random_objects
