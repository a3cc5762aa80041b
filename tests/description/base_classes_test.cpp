// Classes with described bases.

#include <string>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/described_text.h"

namespace base_classes {

struct First {
    int one = 1;
    std::string shared = "first";
};
VEXA_DESCRIBE(First, one, shared)

struct Second {
    int two = 2;
    std::string shared = "second";
    short kind = 1;
    union {
        int code;
        double rate = 0.5;
    };
};
VEXA_DESCRIBE_CLASS(Second)
{
    about.Attrib("two", &Second::two).ID(7);
    about.Attrib("shared", &Second::shared).Protected().Masked();
    about.Attrib("kind", &Second::kind);
    about.Attrib("code", &Second::code).ActiveWhen("kind", 0);
    about.Attrib("rate", &Second::rate).ActiveWhen("kind", 1);
}

struct Both : First, Second {
    int own = 3;
};
VEXA_DESCRIBE_CLASS(Both)
{
    about.Base<First>();
    about.Base<Second>();
    about.Attrib("own", &Both::own);
}

struct Middle : First {
    long middle = 4;
};
VEXA_DESCRIBE_CLASS(Middle)
{
    about.Base<First>();
    about.Attrib("middle", &Middle::middle);
}
struct Last : Middle {
    int one = 5; // hides that of the base, whose description stays
    int last = 6;
};
VEXA_DESCRIBE_CLASS(Last)
{
    about.Base<Middle>();
    about.Attrib("one", &Last::one);
    about.Attrib("last", &Last::last);
}

/// The base stands behind the class's own members in the description, and inside the object before them.
struct OwnFirst : First {
    int own = 7;
};
VEXA_DESCRIBE_CLASS(OwnFirst)
{
    about.Attrib("own", &OwnFirst::own);
    about.Base<First>();
}

/// A member of a base that is not described itself.
struct Undescribed {
    int hidden = 8;
};
struct Picks : Second, Undescribed {};
VEXA_DESCRIBE(Picks, hidden, two)

struct Polymorphic {
    virtual ~Polymorphic() = default;
    int p = 9;
};
VEXA_DESCRIBE(Polymorphic, p)
struct Mixed : First, Polymorphic {
    int own = 10;
};
VEXA_DESCRIBE_CLASS(Mixed)
{
    about.Base<First>();
    about.Base<Polymorphic>();
    about.Attrib("own", &Mixed::own);
}

} // namespace base_classes

namespace {

using namespace base_classes;
using vexa_test::Json;
using vexa_test::Line;
using vexa_test::MembersOf;

/// "name sequence inherited access masked id" for every attribute.
std::string RecordsOf(const vexa::CClassInfor& infor)
{
    std::string text;
    for (const vexa::CAttribInfor& r : infor.AttribList) {
        text += r.Name + ' ' + std::to_string(r.Sequence) + ' ' + std::to_string(unsigned{r.IsInherited}) + ' ' +
                std::to_string(unsigned{r.Access}) + ' ' + std::to_string(unsigned{r.IsMasked}) + ' ' +
                std::to_string(r.AttribID) + '\n';
    }
    return text;
}

TEST(BaseClasses, OfTwoBasesTheAttributesComeInOrderAtTheirOffsets)
{
    const Both b{};
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Both>()),
              Line(b, b.one, "one", "int, 14, 0x00") + Line(b, b.First::shared, "shared", "std::string, 41, 0x00") +
                  Line(b, b.two, "two", "int, 14, 0x00") + Line(b, b.kind, "kind", "short, 13, 0x00") +
                  Line(b, b.code, "code", "int, 14, 0x00") + Line(b, b.rate, "rate", "double, 18, 0x00") +
                  Line(b, b.own, "own", "int, 14, 0x00"));
}

TEST(BaseClasses, InheritedRecordsSaySoAndKeepTheirOptions)
{
    // A name that is there already is dropped, after the places have been counted.
    EXPECT_EQ(RecordsOf(vexa::ClassInforOf<Both>()),
              "one 1 1 0 0 -1\nshared 2 1 0 0 -1\ntwo 3 1 0 0 7\nkind 5 1 0 0 -1\n"
              "code 6 1 0 0 -1\nrate 7 1 0 0 -1\nown 8 0 0 0 -1\n");
}

TEST(BaseClasses, AnObjectShowsTheAttributesOfItsBases)
{
    // The union's selector keeps its place relative to the base it comes from.
    const Middle m;
    EXPECT_EQ(vexa::AsString(m), "\none: 1\nshared: first\nmiddle: 4");
    EXPECT_EQ(Json(m), R"({"one":1,"shared":"first","middle":4})");
    EXPECT_EQ(vexa_test::ReadBack<Middle>(R"({"middle":9,"one":8,"shared":"x"})"),
              R"({"one":8,"shared":"x","middle":9})");
}

TEST(BaseClasses, TheBaseOfABaseComesWithIt)
{
    const Last l;
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Last>()),
              Line(l, l.First::one, "one", "int, 14, 0x00") + Line(l, l.shared, "shared", "std::string, 41, 0x00") +
                  Line(l, l.middle, "middle", "long, 15, 0x00") + Line(l, l.last, "last", "int, 14, 0x00"));
    EXPECT_EQ(RecordsOf(vexa::ClassInforOf<Last>()),
              "one 1 1 0 0 -1\nshared 2 1 0 0 -1\nmiddle 3 1 0 0 -1\nlast 5 0 0 0 -1\n");
}

TEST(BaseClasses, ABaseAddedLastComesLast) { EXPECT_EQ(vexa::AsString(OwnFirst()), "\nown: 7\none: 1\nshared: first"); }

TEST(BaseClasses, AMemberOfABaseCanBeDescribedAsTheClasssOwn)
{
    const Picks p{};
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Picks>()),
              Line(p, p.hidden, "hidden", "int, 14, 0x00") + Line(p, p.two, "two", "int, 14, 0x00"));
    EXPECT_EQ(Json(p), R"({"hidden":8,"two":2})");
}

TEST(BaseClasses, PolymorphicBasesLieWhereTheCompilerPutsThem)
{
    const Mixed m;
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Mixed>()),
              Line(m, m.one, "one", "int, 14, 0x00") + Line(m, m.shared, "shared", "std::string, 41, 0x00") +
                  Line(m, m.p, "p", "int, 14, 0x00") + Line(m, m.own, "own", "int, 14, 0x00"));
    EXPECT_EQ(Json(m), R"({"one":1,"shared":"first","p":9,"own":10})");
}

} // namespace
