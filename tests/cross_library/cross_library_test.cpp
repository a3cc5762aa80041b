#include <gtest/gtest.h>

#include "plugin.h"
#include "shared_point.h"

namespace {

TEST(CrossLibrary, AnObjectOfAnUnknownClassIsLookedUpConvertedRenderedAndWritten)
{
    vexa::CRefrence sensor = SensorOfPlugin();
    vexa::CRefrence limit;
    ASSERT_TRUE(sensor.AsClass().FindAttribByName(limit, "limit"));
    limit.AsStdBasicType().ReadFrom(7);
    vexa::CConstRefrence x;
    ASSERT_TRUE(sensor.AsClass().FindAttribByFlatName(x, "place.x"));
    EXPECT_EQ(3, x.AsStdBasicType().As_int());
    EXPECT_EQ("\nname: north\nplace: \n  x: 3\n  y: 4\nreadings: \n  - 1.500000\n  - 2.500000\nlimit: 7",
              vexa::AsString(sensor));
    std::string json;
    EXPECT_EQ(0, vexa::ToJson(json, sensor));
    EXPECT_EQ(R"({"name":"north","place":{"x":3,"y":4},"readings":[1.500000,2.500000],"limit":7})", json);
    EXPECT_EQ("Sensor", sensor.TypeName());
}

TEST(CrossLibrary, AnObjectOfAnUnknownClassIsReadFromJson)
{
    vexa::CRefrence sensor = SensorOfPlugin();
    EXPECT_EQ(0, vexa::FromJson(sensor, R"({"name":"south","readings":[9]})"));
    EXPECT_EQ("\nname: south\nplace: \n  x: 0\n  y: 0\nreadings: \n  - 9.000000\nlimit: NULL", vexa::AsString(sensor));
}

TEST(CrossLibrary, AClassThatBothDescribeHasOneDescriptor)
{
    EXPECT_EQ(&PointOfPlugin(), &vexa::ClassInforOf<shared::Point>());
}

} // namespace
