// What JSON text leaves out for being null.

#include <vexa/vexa.h>

#include <gtest/gtest.h>

#include "support/captured_log.h"

namespace json_null {

/// A custom type that may have no value.
struct Weight {
    long grams = 0;
    void ToValue(vexa::CValue& out) const
    {
        if (grams != 0) out = grams;
    }
    void FromValue(const vexa::CValue& in) { grams = in.As_long(); }
};
VEXA_DESCRIBE_CUSTOM_ANY(Weight, 3)

struct Parcel {
    int id = 1;
    Weight weight;
    int size = 2;
};
VEXA_DESCRIBE(Parcel, id, weight, size)

} // namespace json_null

namespace {

std::string Written(const vexa::CConstRefrence& ref)
{
    std::string json = "before";
    const std::string log = vexa_test::LoggedLines([&] { EXPECT_EQ(0, vexa::ToJson(json, ref)); });
    EXPECT_EQ("", log);
    return json;
}

TEST(JsonNull, ANullTypeHasNoText)
{
    vexa::NullType nothing;
    EXPECT_EQ("", Written(vexa::RefOf(nothing)));
    vexa::CGnlClass record;
    record.Add("n", vexa::RefOf(nothing));
    EXPECT_EQ(R"({"n":})", Written(vexa::RefOf(record)));
}

TEST(JsonNull, ACustomAttributeThatConvertsToNullIsLeftOut)
{
    json_null::Parcel parcel;
    EXPECT_EQ(R"({"id":1,"size":2})", Written(vexa::RefOf(parcel)));
    parcel.weight.grams = 7;
    EXPECT_EQ(R"({"id":1,"weight":7,"size":2})", Written(vexa::RefOf(parcel)));
}

} // namespace
