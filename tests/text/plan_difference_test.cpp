// JSON along the plans and along the descriptors: the same text, code, log lines and questions to converters, whatever
// the value.

#include <vexa/json.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/text_links.h"
#include "support/walk_difference.h"

namespace vexa_test::random_objects {
namespace {

/// The code and the text, whose memory one value leaves to the next.
auto JsonInOneString()
{
    return [text = std::string()](const vexa::CConstRefrence& ref) mutable {
        const int code = vexa::ToJson(text, ref);
        return std::to_string(code) + ' ' + text;
    };
}

TEST(PlanDifference, JsonOfRandomObjectsIsTheSameAlongThePlanAndAlongTheDescriptor)
{
    ExpectTheSameWalksOfRandomObjects(1200, JsonInOneString());
}

TEST(PlanDifference, ChainsAroundTheGreatestDepthAreTheSameAlongThePlanAndAlongTheDescriptor)
{
    PlainDescriptors plain;
    auto json = JsonInOneString();
    for (const std::size_t length : {1UL, 499UL, 500UL, 501UL, 999UL, 1000UL, 1001UL, 1002UL}) {
        std::vector<Link> links = LinkedList(length);
        ExpectTheSameWalks({vexa::RefOf(links.front())}, plain, json);
        links.back().next = links.data() + length / 2;
        ExpectTheSameWalks({vexa::RefOf(links.front())}, plain, json);
        ExpectTheSameWalks({vexa::RefOf(links)}, plain, json);
    }
}

} // namespace
} // namespace vexa_test::random_objects
