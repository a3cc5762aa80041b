// Text along the plans and along the descriptors: the same text, log lines and questions to converters, whatever the
// value, the format and the depth.

#include <vexa/text.h>

#include <string>

#include <gtest/gtest.h>

#include "support/walk_difference.h"

namespace vexa_test::random_objects {
namespace {

/// All formats, each onto what the string holds already.
std::string TextInAllFormats(const vexa::CConstRefrence& ref)
{
    std::string text = "before";
    for (const unsigned int format : {0U, 1U, 2U, 7U}) {
        text += "\nformat " + std::to_string(format) + ": ";
        vexa::AppendString(text, ref, static_cast<vexa::Enum::AsStringFormatEnum>(format));
    }
    return text;
}

TEST(RenderDifference, TextOfRandomObjectsIsTheSameAlongThePlanAndAlongTheDescriptor)
{
    ExpectTheSameWalksOfRandomObjects(1300, TextInAllFormats);
}

} // namespace
} // namespace vexa_test::random_objects
