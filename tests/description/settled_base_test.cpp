// What a description takes over from a base class that does not lie at the start of the object.

#include <vexa/vexa.h>

#include <gtest/gtest.h>

#include "support/captured_log.h"

namespace settled {

struct Head {
    long number = 1;
};
VEXA_DESCRIBE(Head, number)

struct Choice {
    short kind = 0;
    union {
        int whole = 5;
        double real;
    };
};
VEXA_DESCRIBE_CLASS(Choice)
{
    about.Attrib("kind", &Choice::kind);
    about.Attrib("whole", &Choice::whole).ActiveWhen("kind", 0);
    about.Attrib("real", &Choice::real).ActiveWhen("kind", 1);
}

struct Both : Head, Choice {};
VEXA_DESCRIBE_CLASS(Both)
{
    about.Base<Head>();
    about.Base<Choice>();
}

struct Big {
    char fill[70000] = {};
};
VEXA_DESCRIBE_CLASS(Big) {}

struct Small {
    int near = 1;
};
VEXA_DESCRIBE(Small, near)

struct Far : Big, Small {};

} // namespace settled

// Described by a function of its own, so that the line it logs can be caught.
namespace settled {
VEXA_DESCRIBE_CLASS(Far)
{
    about.Base<Big>();
    about.Base<Small>();
}
} // namespace settled

namespace {

TEST(SettledBase, AUnionMemberReadsItsSelectorWhereItLiesInTheObject)
{
    settled::Both both;
    EXPECT_EQ("\nnumber: 1\nkind: 0\nwhole: 5", vexa::AsString(both));
    both.kind = 1;
    both.real = 2.5;
    EXPECT_EQ("\nnumber: 1\nkind: 1\nreal: 2.500000", vexa::AsString(both));
}

TEST(SettledBase, AnAttributeThatAnOffsetCannotExpressIsLeftOut)
{
    EXPECT_TRUE(vexa::ClassInforOf<settled::Far>().AttribList.empty());
    EXPECT_EQ("", vexa::AsString(settled::Far()));
}

} // namespace
