// A description in a header, and the descriptors that it stands for.

#include <gtest/gtest.h>

#include "description/shared_description.h"

namespace shared_description {

/// Counts how often it is described, which a description of an application would not do.
struct Unused {
    int x = 1;
    static int s_described;
};
int Unused::s_described = 0;
VEXA_DESCRIBE_CLASS(Unused)
{
    ++Unused::s_described;
    about.Attrib("x", &Unused::x);
}

} // namespace shared_description

namespace {

using shared_description::Unused;

using shared_description::SeeElsewhere;
using shared_description::Whole;

TEST(SharedDescription, GivesTwoFilesTheSameDescriptors)
{
    EXPECT_EQ(SeeElsewhere().Class, &vexa::ClassInforOf<Whole>());
    EXPECT_EQ(SeeElsewhere().Type, &vexa::TypeInforOf<std::vector<Whole>>());
    EXPECT_EQ(SeeElsewhere().Text, "\npart: \n  p: 1\nparts: \nsecret: s");
    EXPECT_EQ(vexa::AsString(Whole()), SeeElsewhere().Text);
}

TEST(SharedDescription, HasTakenEffectBeforeMainWithoutAnyUse)
{
    const int described = Unused::s_described;
    EXPECT_GT(described, 0);
    EXPECT_EQ(vexa::ClassInforOf<Unused>().AttribList.size(), 1U);
    EXPECT_EQ(Unused::s_described, described);
}

TEST(SharedDescription, StandsOnceHoweverOftenItIsAskedFor)
{
    const vexa::CClassInfor& infor = vexa::ClassInforOf<Whole>();
    EXPECT_EQ(&vexa::ClassInforOf<Whole>(), &infor);
    EXPECT_EQ(infor.AttribList.size(), 3U);
    EXPECT_EQ(vexa::TypeInforOf<Whole>().DetailInfor, &infor);
    EXPECT_EQ(&vexa::TypeInforOf<Whole>(), &vexa::TypeInforOf<Whole>());
    EXPECT_EQ(&vexa::TypeInforOf<std::vector<int>>(), &vexa::TypeInforOf<std::vector<int>>());
}

TEST(SharedDescription, TheDescriptorOfAContainerIsOneWhereverItIsReached)
{
    const vexa::CAttribInfor& parts = *vexa::ClassInforOf<Whole>().AttribNameMap.at("parts");
    EXPECT_EQ(parts.TypeInfor.DetailInfor, vexa::TypeInforOf<std::vector<shared_description::Part>>().DetailInfor);
}

} // namespace
