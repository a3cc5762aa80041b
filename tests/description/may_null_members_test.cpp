// Members in a vexa::MayNull.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/described_text.h"

namespace may_null_members {

struct Point {
    int x = 1;
    int y = 2;
};
VEXA_DESCRIBE(Point, x, y)

struct alignas(64) Wide {
    int number = 5;
};
VEXA_DESCRIBE(Wide, number)

struct Optional {
    vexa::MayNull<bool> truth;
    vexa::MayNull<int> whole;
    vexa::MayNull<long double> extended;
    vexa::MayNull<std::string> text;
    vexa::MayNull<vexa::CNumeric> number;
    vexa::MayNull<Point> point;
    vexa::MayNull<Wide> wide;
    vexa::MayNull<std::vector<int>> list;
};
VEXA_DESCRIBE(Optional, truth, whole, extended, text, number, point, wide, list)

struct Elements {
    std::vector<vexa::MayNull<int>> list;
};
VEXA_DESCRIBE(Elements, list)

} // namespace may_null_members

namespace {

using namespace may_null_members;
using vexa_test::Json;
using vexa_test::Line;
using vexa_test::MembersOf;

Optional Filled()
{
    Optional o;
    o.truth = false;
    o.whole = 3;
    o.extended = 0.5L;
    o.text = "Ann";
    o.number = vexa::CNumeric(std::string("1.5"));
    o.point = Point();
    o.wide = Wide();
    o.list = std::vector<int>{1, 2};
    return o;
}

TEST(MayNullMembers, HaveTheWrapperFlagsAndOffsets)
{
    const Optional o;
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Optional>()),
              Line(o, o.truth, "truth", "MayNull<bool>, 11, 0x09, 0/1") +
                  Line(o, o.whole, "whole", "MayNull<int>, 14, 0x09, 0/4") +
                  Line(o, o.extended, "extended", "MayNull<long double>, 19, 0x09, 0/16") +
                  Line(o, o.text, "text", "MayNull<std::string>, 41, 0x09, 0/8") +
                  Line(o, o.number, "number", "MayNull<vexa::CNumeric>, 47, 0x09, 0/8") +
                  Line(o, o.point, "point", "MayNull<Point>, 1, 0x09, 0/4") +
                  Line(o, o.wide, "wide", "MayNull<Wide>, 1, 0x09, 0/64") +
                  Line(o, o.list, "list", "MayNull<std::vector<int>>, 61, 0x09, 0/8"));
}

TEST(MayNullMembers, NullsRenderAsNullAndAreLeftOutOfJson)
{
    EXPECT_EQ(vexa::AsString(Optional()), "\ntruth: NULL\nwhole: NULL\nextended: NULL\ntext: NULL\nnumber: NULL"
                                          "\npoint: NULL\nwide: NULL\nlist: NULL");
    EXPECT_EQ(Json(Optional()), "{}");
}

TEST(MayNullMembers, ValuesRenderLikePlainOnes)
{
    EXPECT_EQ(vexa::AsString(Filled()), "\ntruth: false\nwhole: 3\nextended: 0.500000\ntext: Ann\nnumber: 1.5"
                                        "\npoint: \n  x: 1\n  y: 2\nwide: \n  number: 5\nlist: \n  - 1\n  - 2");
    EXPECT_EQ(Json(Filled()), R"({"truth":false,"whole":3,"extended":0.500000,"text":"Ann","number":1.5,)"
                              R"("point":{"x":1,"y":2},"wide":{"number":5},"list":[1,2]})");
}

TEST(MayNullMembers, ReadingJsonMakesThemNotNull)
{
    Optional o;
    ASSERT_EQ(vexa::FromJson(o, R"({"truth":true,"whole":-4,"extended":2,"text":"B","point":{"y":9},)"
                                R"("wide":{"number":6},"list":[7]})"),
              0);
    EXPECT_EQ(Json(o), R"({"truth":true,"whole":-4,"extended":2.000000,"text":"B","point":{"x":0,"y":9},)"
                       R"("wide":{"number":6},"list":[7]})")
        << "what a null held is emptied, its default too";
    EXPECT_FALSE(o.number.has_value());
}

TEST(MayNullMembers, ClearingMakesThemNullAndKeepsTheValueBehindTheFlag)
{
    Optional o = Filled();
    vexa::RefOf(o).Clear();
    EXPECT_EQ(Json(o), "{}");
    EXPECT_FALSE(o.whole.has_value());
    EXPECT_EQ(*o.whole, 3);
    EXPECT_EQ(*o.text, "Ann");
    EXPECT_EQ(*o.list, (std::vector<int>{1, 2}));
}

TEST(MayNullMembers, TheNullStateIsTheWrappersOwn)
{
    Optional o;
    vexa::CConstRefrence found;
    ASSERT_TRUE(vexa::RefOf(o).AsClass().FindAttribByName(found, "whole"));
    EXPECT_TRUE(found.IsNull());
    vexa::CRefrence whole(found.TypeInfor, found.Address);
    whole.SetNotNull();
    EXPECT_TRUE(o.whole.has_value());
    whole.AsStdBasicType().ReadFrom(12);
    EXPECT_EQ(*o.whole, 12);
    whole.SetNull();
    EXPECT_FALSE(o.whole.has_value());
}

TEST(MayNullMembers, CanBeTheElementsOfASequence)
{
    Elements e;
    e.list = {1, vexa::null, 3};
    EXPECT_EQ(vexa::AsString(e), "\nlist: \n  - 1\n  - NULL\n  - 3");
    EXPECT_EQ(Json(e), R"({"list":[1,,3]})");
    ASSERT_EQ(vexa::FromJson(e, R"({"list":[4,5]})"), 0);
    EXPECT_EQ(e.list, (std::vector<vexa::MayNull<int>>{4, 5}));
}

TEST(MayNullMembers, AWrapperByItselfHasADescriptor)
{
    vexa::MayNull<int> number(8);
    EXPECT_EQ(vexa::AsString(number, vexa::Enum::ASF_TYPE_AND_VALUE), "MayNull<int>: 8");
    EXPECT_EQ(Json(number), "8");
    EXPECT_EQ(vexa::FromJson(number, ""), 0);
    EXPECT_FALSE(number.has_value());
}

} // namespace
