#ifndef VEXA_TESTS_SUPPORT_WALK_DIFFERENCE_H
#define VEXA_TESTS_SUPPORT_WALK_DIFFERENCE_H

#include <chrono>
#include <cstdint>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/helper.h>

#include "support/captured_log.h"
#include "support/plain_descriptor.h"
#include "support/random_objects.h"

// The walk along the plans beside the walk along the descriptors. A copy of a finished descriptor has no plan, so that
// it is walked plainly.

namespace vexa_test::random_objects {

/// What a function gave for some values: of each its result and what the converters were asked, and the log of all.
struct WalkResults {
    std::vector<std::string> Each;
    std::string Log;
};

/// \param give makes the result of one value, a text.
template<class Give>
WalkResults ResultsOf(const std::vector<vexa::CConstRefrence>& refs, Give& give)
{
    WalkResults results;
    results.Log = LoggedLines([&] {
        for (const vexa::CConstRefrence& ref : refs) {
            vexa::helper::LogError("value %d", static_cast<int>(results.Each.size()));
            ConverterCalls().clear();
            const std::string result = give(ref);
            results.Each.push_back(result + " asked: " + ConverterCalls());
        }
    });
    return results;
}

template<class Give>
void ExpectTheSameWalks(const std::vector<vexa::CConstRefrence>& refs, PlainDescriptors& plain, Give& give)
{
    std::vector<vexa::CConstRefrence> copies;
    for (const vexa::CConstRefrence& ref : refs)
        copies.push_back(plain.Of(ref));
    const WalkResults planned = ResultsOf(refs, give);
    const WalkResults walked = ResultsOf(copies, give);
    for (std::size_t i = 0; i < refs.size(); ++i)
        ASSERT_EQ(planned.Each[i], walked.Each[i]) << refs[i].TypeName();
    ASSERT_EQ(planned.Log, walked.Log);
}

/// Compares random objects of every class, alone and as elements of a container. Prints its seed.
template<class Give>
void ExpectTheSameWalksOfRandomObjects(int objectsOfEachClass, Give give)
{
    constexpr int BATCH = 100;
    const auto seed = static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::cout << "seed " << seed << '\n';
    Random random(seed);
    PlainDescriptors plain;
    int compared = 0;
    ForEachRandomClass([&](auto tag) {
        using T = typename decltype(tag)::Type;
        for (int done = 0; done < objectsOfEachClass && !testing::Test::HasFailure(); done += BATCH) {
            std::vector<std::unique_ptr<T>> objects;
            std::vector<vexa::CConstRefrence> refs;
            for (int i = 0; i < BATCH; ++i) {
                objects.push_back(RandomObject<T>(random));
                refs.push_back(vexa::RefOf(*objects.back()));
            }
            refs.push_back(vexa::RefOf(objects));
            ExpectTheSameWalks(refs, plain, give);
            compared += BATCH;
            objects.clear();
            random.Forget();
        }
    });
    EXPECT_GE(compared, 20000);
}

} // namespace vexa_test::random_objects

#endif
