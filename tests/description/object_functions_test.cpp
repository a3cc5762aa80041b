// RefOf and the text functions on objects themselves.

#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/described_text.h"

namespace object_functions {

struct Point {
    int x = 1;
    std::string name = "p";
};
VEXA_DESCRIBE(Point, x, name)

/// Its address operator is its own affair.
struct Elusive {
    int x = 2;
    void operator&() const {}
};
VEXA_DESCRIBE(Elusive, x)

} // namespace object_functions

namespace {

using object_functions::Elusive;
using object_functions::Point;

TEST(ObjectFunctions, RefOfIsWritableForAnObjectAndReadOnlyForAConstOne)
{
    Point point;
    const Point fixed;
    EXPECT_TRUE((std::is_same_v<decltype(vexa::RefOf(point)), vexa::CRefrence>));
    EXPECT_TRUE((std::is_same_v<decltype(vexa::RefOf(fixed)), vexa::CConstRefrence>));
    EXPECT_EQ(vexa::RefOf(point).Address, &point);
    EXPECT_EQ(vexa::RefOf(fixed).Address, &fixed);
    EXPECT_EQ(vexa::RefOf(fixed).TypeInfor.DetailInfor, &vexa::ClassInforOf<Point>());
}

TEST(ObjectFunctions, RefOfTakesTheObjectsRealAddress)
{
    Elusive elusive;
    EXPECT_EQ(vexa::RefOf(elusive).Address, std::addressof(elusive));
    EXPECT_EQ(vexa::AsString(elusive), "\nx: 2");
}

TEST(ObjectFunctions, AsStringHasThreeFormsAndThreeFormats)
{
    const Point point;
    EXPECT_EQ(vexa::AsString(point), "\nx: 1\nname: p");
    EXPECT_EQ(vexa::AsString(point, vexa::Enum::ASF_TYPE_AND_VALUE), "Point: \n  int x: 1\n  std::string name: p");
    EXPECT_EQ(vexa::AsString(point, vexa::Enum::ASF_TYPE_ONLY), "Point: ");
    std::string text = "before";
    vexa::AsString(text, point, vexa::Enum::ASF_TYPE_ONLY);
    EXPECT_EQ(text, "Point: ");
    vexa::AppendString(text, point);
    EXPECT_EQ(text, "Point: \nx: 1\nname: p");
}

TEST(ObjectFunctions, TakeAReferenceForWhatItDesignates)
{
    Point point;
    vexa::CRefrence ref = vexa::RefOf(point);
    EXPECT_EQ(vexa::AsString(ref), vexa::AsString(point));
    std::string json;
    EXPECT_EQ(vexa::ToJson(json, ref), 0);
    EXPECT_EQ(json, R"({"x":1,"name":"p"})");
    EXPECT_EQ(vexa::FromJson(ref, R"({"x":5})"), 0);
    EXPECT_EQ(point.x, 5);
    EXPECT_EQ(point.name, "");
}

TEST(ObjectFunctions, RangeForGoesOverAttributesAndElements)
{
    const Point point;
    std::string seen;
    for (const auto& attrib : vexa::RefOf(point).AsClass().Attribs()) {
        seen += attrib.Name() + '=' + attrib.Value().AsString() + ':' + attrib.Value().TypeName() + ';';
    }
    EXPECT_EQ(seen, "x=1:int;name=p:std::string;");
    const std::vector<int> numbers{1, 2, 3};
    seen.clear();
    for (const vexa::CConstRefrence& element : vexa::RefOf(numbers).AsContainer())
        seen += element.AsString() + ';';
    EXPECT_EQ(seen, "1;2;3;");
}

} // namespace
