#include <vexa/vexa.h>

#include <gtest/gtest.h>

namespace bridge_clash {

struct Inner {
    int x = 1;
};
VEXA_DESCRIBE(Inner, x)

struct Outer {
    Inner inner;
    int inner_x = 2;
};
VEXA_DESCRIBE(Outer, inner, inner_x)

} // namespace bridge_clash

namespace {

TEST(BridgeClash, TheAttributeOfTheObjectItselfWinsAsInTheFlatIndex)
{
    std::vector<bridge_clash::Outer> objects(1);
    vexa::CTable table;
    EXPECT_TRUE(vexa::TableFromObjects(table, objects));
    EXPECT_EQ("2,\n", table.AsString());
    table.Rows[0][0] = 9;
    EXPECT_TRUE(vexa::ObjectsFromTable(objects, table));
    EXPECT_EQ(9, objects[1].inner_x);
    EXPECT_EQ(1, objects[1].inner.x);
}

} // namespace
