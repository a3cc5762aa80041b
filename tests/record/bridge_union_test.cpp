// Unions between tables and objects: every member on the way to a leaf must be the active one of its union.

#include <vexa/table.h>

#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/bridge_model.h"

namespace {

using namespace vexa_test;
using namespace vexa::Enum;
using vexa::CTable;
using vexa::CValue;
using vexa::ObjectsFromTable;
using vexa::TableFromObjects;

struct Named {
    const char* name;
    int length;
};
VEXA_DESCRIBE(Named, name, length)

/// The leaves of a member of a union lie two objects deep.
struct Tagged {
    short shape;
    union {
        Named label;
        long number;
    };
};
VEXA_DESCRIBE_CLASS(Tagged)
{
    about.Attrib("shape", &Tagged::shape);
    about.Attrib("label", &Tagged::label).ActiveWhen("shape", 1);
    about.Attrib("number", &Tagged::number).ActiveWhen("shape", 2);
}

struct Variant {
    int kind = 0;
    union {
        Tagged tagged;
        std::uint64_t words[3];
        double real;
    };
    Variant() : words{~0UL, ~0UL, ~0UL} {}
};
VEXA_DESCRIBE_CLASS(Variant)
{
    about.Attrib("kind", &Variant::kind);
    about.Attrib("tagged", &Variant::tagged).ActiveWhen("kind", 1);
    about.Attrib("real", &Variant::real).ActiveWhen("kind", 2);
}

const std::string HEAD = "14 kind, 13 tagged_shape, 41 tagged_label_name, 14 tagged_label_length, "
                         "15 tagged_number, 18 real, |";

TEST(BridgeUnion, GivesNullsBelowAnInactiveMember)
{
    std::vector<Variant> variants(4);
    variants[1].kind = 1;
    variants[1].tagged.shape = 1;
    variants[1].tagged.label = {"ab", 2};
    variants[2].kind = 1;
    variants[2].tagged.shape = 2;
    variants[2].tagged.number = 0x4141414141414141;
    variants[3].kind = 2;
    variants[3].real = 0.5;
    EXPECT_EQ(TableText(variants), HEAD + "0,NULL,NULL,NULL,NULL,NULL,\n1,1,ab,2,NULL,NULL,\n"
                                          "1,2,NULL,NULL,4702111234474983745,NULL,\n2,NULL,NULL,NULL,NULL,0.500000,\n");
}

TEST(BridgeUnion, WritesNothingBelowAnInactiveMember)
{
    CTable table;
    for (const char* const name : {"tagged_shape", "tagged_label_length", "tagged_number"})
        table.AddColumn(DT_LONG, name);
    table.AddColumn(DT_DOUBLE, "real");
    table.AddColumn(DT_INT, "kind");
    table.Append({1, 5, 6, 0.5, 2});
    table.Append({vexa::null, vexa::null, vexa::null, 0.5, 2});
    table.Append({2, 5, 6, 0.5, 1});
    table.Append({2, vexa::null, 6, vexa::null, 1});
    table.Append({1, 1, 1, 1, 7});
    std::vector<Variant> variants;
    ASSERT_TRUE(ObjectsFromTable(variants, table));

    EXPECT_EQ(variants[0].real, 0.5);
    EXPECT_EQ(variants[0].words[1], ~0UL);
    EXPECT_EQ(variants[1].real, 0.5);
    EXPECT_EQ(variants[1].words[1], ~0UL);
    for (const std::size_t i : {2U, 3U}) {
        EXPECT_EQ(variants[i].tagged.shape, 2);
        EXPECT_EQ(variants[i].tagged.number, 6);
    }
    for (const std::uint64_t word : variants[4].words)
        EXPECT_EQ(word, ~0UL);
}

/// What the rule gives for one leaf: its text, or NULL.
struct Expected {
    const char* Name;
    bool IsActive;
    long Value;
};

/// Unions of plain values two levels deep, through random selectors.
struct Inner {
    short shape = 0;
    union {
        int whole;
        short part;
    };
    Inner() : whole(0) {}
};
VEXA_DESCRIBE_CLASS(Inner)
{
    about.Attrib("shape", &Inner::shape);
    about.Attrib("whole", &Inner::whole).ActiveWhen("shape", 1);
    about.Attrib("part", &Inner::part).ActiveWhen("shape", 2);
}
struct Middle {
    short depth = 0;
    union {
        Inner inner;
        long plain;
    };
    Middle() : plain(0) {}
};
VEXA_DESCRIBE_CLASS(Middle)
{
    about.Attrib("depth", &Middle::depth);
    about.Attrib("inner", &Middle::inner).ActiveWhen("depth", 1);
    about.Attrib("plain", &Middle::plain).ActiveWhen("depth", 2);
}
struct Outer {
    short kind = 0;
    union {
        Middle middle;
        long alone;
    };
    Outer() : alone(0) {}
};
VEXA_DESCRIBE_CLASS(Outer)
{
    about.Attrib("kind", &Outer::kind);
    about.Attrib("middle", &Outer::middle).ActiveWhen("kind", 1);
    about.Attrib("alone", &Outer::alone).ActiveWhen("kind", 2);
}

std::vector<Expected> ModelOf(const Outer& outer)
{
    const bool isMiddle = outer.kind == 1;
    const bool isInner = isMiddle && outer.middle.depth == 1;
    const Inner& inner = outer.middle.inner;
    const bool isWhole = isInner && inner.shape == 1;
    const bool isPart = isInner && inner.shape == 2;
    const bool isPlain = isMiddle && outer.middle.depth == 2;
    return {{"middle_depth", isMiddle, isMiddle ? outer.middle.depth : 0},
            {"middle_inner_shape", isInner, isInner ? inner.shape : 0},
            {"middle_inner_whole", isWhole, isWhole ? inner.whole : 0},
            {"middle_inner_part", isPart, isPart ? inner.part : 0},
            {"middle_plain", isPlain, isPlain ? outer.middle.plain : 0},
            {"alone", outer.kind == 2, outer.kind == 2 ? outer.alone : 0}};
}

TEST(BridgeUnion, AgreesWithAModelForRandomSelectorsAndCells)
{
    const std::uint64_t seed = 20241;
    std::mt19937_64 engine(seed);
    const auto below = [&](unsigned limit) { return static_cast<long>(engine() % limit); };
    for (int round = 0; round < 2000; ++round) {
        CTable table;
        CTable written;
        const std::vector<const char*> names = {
            "kind",         "middle_depth", "middle_inner_shape", "middle_inner_whole", "middle_inner_part",
            "middle_plain", "alone"};
        vexa::CRow row;
        long cells[7] = {};
        bool isNull[7] = {};
        for (std::size_t i = 0; i < names.size(); ++i) {
            table.AddColumn(DT_LONG, names[i]);
            isNull[i] = below(4) == 0;
            cells[i] = i < 3 ? below(4) : 1 + below(30000);
            row.Append(isNull[i] ? CValue() : CValue(cells[i]));
        }
        table.Append(row);
        std::vector<Outer> outers;
        ASSERT_TRUE(ObjectsFromTable(outers, table));

        // What the object must hold, written by hand in the order of the class.
        Outer made;
        const auto set = [&](std::size_t i, auto& member) {
            using T = std::decay_t<decltype(member)>;
            member = isNull[i] ? T() : static_cast<T>(cells[i]);
        };
        set(0, made.kind);
        if (made.kind == 1) set(1, made.middle.depth);
        if (made.kind == 1 && made.middle.depth == 1) {
            Inner& inner = made.middle.inner;
            set(2, inner.shape);
            if (inner.shape == 1) set(3, inner.whole);
            if (inner.shape == 2) set(4, inner.part);
        }
        if (made.kind == 1 && made.middle.depth == 2) set(5, made.middle.plain);
        if (made.kind == 2) set(6, made.alone);

        ASSERT_TRUE(TableFromObjects(written, outers));
        EXPECT_EQ(written.Value(0, "kind").As_short(), made.kind) << "seed " << seed << " round " << round;
        for (const Expected& leaf : ModelOf(made)) {
            const CValue& value = written.Value(0, leaf.Name);
            ASSERT_EQ(value.IsNull(), !leaf.IsActive) << leaf.Name << " seed " << seed << " round " << round;
            if (leaf.IsActive) {
                EXPECT_EQ(value.As_long(), leaf.Value) << leaf.Name << " seed " << seed << " round " << round;
            }
        }
    }
}

// Members that hold pointers or objects

struct Owner {
    int kind = 0;
    union {
        long number;
        std::string text;
        std::unique_ptr<int> pointed;
        std::map<int, int> map;
    };
    Owner() : number(0x4141414141414141) {}
    Owner(const Owner&) = delete;
    ~Owner()
    {
        if (kind == 2) text.~basic_string();
        if (kind == 3) pointed.~unique_ptr();
    }
};
VEXA_DESCRIBE_CLASS(Owner)
{
    about.Attrib("kind", &Owner::kind);
    about.Attrib("number", &Owner::number).ActiveWhen("kind", 1);
    about.Attrib("text", &Owner::text).ActiveWhen("kind", 2);
    about.Attrib("pointed", &Owner::pointed).ActiveWhen("kind", 3);
    about.Attrib("map", &Owner::map).ActiveWhen("kind", 4);
}

TEST(BridgeUnion, MakesTheMemberThatTheSelectorOfARowMakesActive)
{
    CTable table;
    table.AddColumn(DT_INT, "kind");
    table.AddColumn(DT_STD_STRING, "text");
    table.AddColumn(DT_LONG, "number");
    table.AddColumn(DT_INT, "pointed");
    table.Append({1, "a text that is too long for its own place", 5, 6});
    table.Append({2, "a text that is too long for its own place", 5, 6});
    table.Append({3, "a text that is too long for its own place", 5, 6});
    table.Append({3, vexa::null, vexa::null, vexa::null});
    table.Append({4, vexa::null, vexa::null, vexa::null});
    table.Append({vexa::null, "x", 5, 6});
    std::list<Owner> owners;
    ASSERT_TRUE(ObjectsFromTable(owners, table));
    EXPECT_EQ(TableText(owners), "14 kind, 15 number, 41 text, 14 pointed, |1,5,NULL,NULL,\n"
                                 "2,NULL,a text that is too long for its own place,NULL,\n3,NULL,NULL,6,\n"
                                 "3,NULL,NULL,NULL,\n0,NULL,NULL,NULL,\n0,NULL,NULL,NULL,\n")
        << "the selector does not lead to a map, which cannot be made in place";
}

} // namespace
