// Arrays of the language, std::array and std::bitset.

#include <array>
#include <bitset>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"
#include "support/described_text.h"

namespace array_members {

struct Point {
    int x = 1;
};
VEXA_DESCRIBE(Point, x)

struct Arrays {
    int plain[3] = {1, 2, 3};
    int grid[2][3] = {{1, 2, 3}, {4, 5, 6}};
    std::array<double, 2> standard{{0.5, 1.5}};
    std::array<std::array<short, 2>, 2> nested{{{{1, 2}}, {{3, 4}}}};
    Point points[2];
    char letters[4] = "ab";
    std::array<char, 2> full{{'x', 'y'}};
    std::bitset<3> bits{5};
    const short fixed[2] = {8, 9};
};
VEXA_DESCRIBE(Arrays, plain, grid, standard, nested, points, letters, full, bits, fixed)

struct Readable {
    int plain[3] = {1, 2, 3};
    int grid[2][2] = {{1, 2}, {3, 4}};
    std::array<std::string, 2> standard{{"a", "b"}};
    std::array<Point, 2> points;
    int guard = 77;
};
VEXA_DESCRIBE(Readable, plain, grid, standard, points, guard)

struct PointerArrays {
    std::unique_ptr<int> owned[2];
    std::array<vexa::MayNull<int>, 2> mayNull;
    int* raw[2] = {nullptr, nullptr};
    const char* texts[2] = {"one", nullptr};
};
VEXA_DESCRIBE(PointerArrays, owned, mayNull, raw, texts)

/// Cannot be made from nothing, nor assigned.
struct Stubborn {
    explicit Stubborn(int value) : number(value) {}
    Stubborn(const Stubborn&) = delete;
    Stubborn& operator=(const Stubborn&) = delete;
    int number;
};
VEXA_DESCRIBE(Stubborn, number)

struct StubbornArray {
    Stubborn elements[2] = {Stubborn(1), Stubborn(2)};
    std::array<const int, 2> constants{{3, 4}};
};
VEXA_DESCRIBE(StubbornArray, elements, constants)

struct Bits {
    std::bitset<0> none;
    std::bitset<70> many;
};
VEXA_DESCRIBE(Bits, none, many)

} // namespace array_members

namespace {

using namespace array_members;
using vexa_test::Json;
using vexa_test::Line;
using vexa_test::LoggedLines;
using vexa_test::MembersOf;

constexpr char BIT_HAS_NO_JSON[] = "It is not currently supported to convert std_bitset_node types to pJson strings\n";

TEST(ArrayMembers, AreArraysOfTheirElements)
{
    const Arrays a;
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Arrays>()),
              Line(a, a.plain, "plain", "array<int>, 64, 0x00") +
                  Line(a, a.grid, "grid", "array<array<int>>, 64, 0x00") +
                  Line(a, a.standard, "standard", "std::array<double>, 64, 0x00") +
                  Line(a, a.nested, "nested", "std::array<std::array<short>>, 64, 0x00") +
                  Line(a, a.points, "points", "array<Point>, 64, 0x00") +
                  Line(a, a.letters, "letters", "array<char>, 64, 0x00") +
                  Line(a, a.full, "full", "std::array<char>, 64, 0x00") +
                  Line(a, a.bits, "bits", "std::bitset<std_bitset_node>, 63, 0x00") +
                  Line(a, a.fixed, "fixed", "array<short>, 64, 0x20"));
}

TEST(ArrayMembers, RenderElementByElementAndCharactersAsText)
{
    EXPECT_EQ(
        vexa::AsString(Arrays()),
        "\nplain: \n  - 1\n  - 2\n  - 3\ngrid: \n  - - 1- 2- 3\n  - - 4- 5- 6\nstandard: \n  - 0.500000\n  - 1.500000"
        "\nnested: \n  - - 1- 2\n  - - 3- 4\npoints: \n  - x: 1\n  - x: 1\nletters: ab\nfull: xy\nbits: 101"
        "\nfixed: \n  - 8\n  - 9");
}

TEST(ArrayMembers, AreWrittenAsJsonArrays)
{
    std::string json;
    EXPECT_EQ(LoggedLines([&] { json = Json(Arrays()); }),
              std::string(BIT_HAS_NO_JSON) + BIT_HAS_NO_JSON + BIT_HAS_NO_JSON);
    EXPECT_EQ(json, R"({"plain":[1,2,3],"grid":[[1,2,3],[4,5,6]],"standard":[0.500000,1.500000],)"
                    R"("nested":[[1,2],[3,4]],"points":[{"x":1},{"x":1}],"letters":[97,98,0,0],)"
                    R"("full":[120,121],"bits":[,,],"fixed":[8,9]})");
}

TEST(ArrayMembers, AreReadInPlace)
{
    const std::string text = R"({"plain":[7,8,9],"grid":[[5,6],[7,8]],"standard":["x","y"],)"
                             R"("points":[{"x":3},{"x":4}],"guard":1})";
    EXPECT_EQ(vexa_test::ReadBack<Readable>(text), text);
}

TEST(ArrayMembers, FewerElementsLeaveTheOtherSlotsCleared)
{
    EXPECT_EQ(vexa_test::ReadBack<Readable>(R"({"plain":[7],"grid":[[5]],"standard":["x"]})"),
              R"({"plain":[7,0,0],"grid":[[5,0],[0,0]],"standard":["x",""],"points":[{"x":1},{"x":1}],"guard":0})");
}

TEST(ArrayMembers, MoreElementsThanSlotsAreAnErrorAndWriteNothingBehind)
{
    Readable r;
    EXPECT_EQ(vexa::FromJson(r, R"({"guard":5,"plain":[1,2,3,4]})"), 888);
    EXPECT_EQ(r.guard, 5);
    EXPECT_EQ(r.plain[2], 3);
    EXPECT_EQ(vexa::FromJson(r, R"({"grid":[[1,2,3]]})"), 888);
    EXPECT_EQ(vexa::FromJson(r, R"({"standard":["a","b","c"]})"), 888);
    EXPECT_EQ(vexa::FromJson(r, R"({"points":[{"x":1},{"x":1},{"x":1}]})"), 888);
}

TEST(ArrayMembers, ClearingGivesEachSlotItsDefault)
{
    Readable r;
    r.points[0].x = 9;
    vexa::RefOf(r).Clear();
    EXPECT_EQ(Json(r),
              R"({"plain":[0,0,0],"grid":[[0,0],[0,0]],"standard":["",""],"points":[{"x":1},{"x":1}],"guard":0})");
}

TEST(ArrayMembers, AConstArrayIsReadOnly)
{
    Arrays a;
    EXPECT_EQ(vexa::FromJson(a, R"({"fixed":[1,2]})"), 965);
    EXPECT_EQ(a.fixed[0], 8);
    EXPECT_EQ(a.fixed[1], 9);
}

TEST(ArrayMembers, SlotsCanBePointersAndWrappers)
{
    PointerArrays p;
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<PointerArrays>()),
              Line(p, p.owned, "owned", "array<int*>, 64, 0x00") +
                  Line(p, p.mayNull, "mayNull", "std::array<MayNull<int>>, 64, 0x00") +
                  Line(p, p.raw, "raw", "array<int*>, 64, 0x00") +
                  Line(p, p.texts, "texts", "array<const char*>, 64, 0x00"));
    EXPECT_EQ(Json(p), R"({"owned":[,],"mayNull":[,],"raw":[,],"texts":["one",]})");
    ASSERT_EQ(vexa::FromJson(p, R"({"owned":[1,2],"mayNull":[3],"raw":[4,5]})"), 0);
    EXPECT_EQ(Json(p), R"({"owned":[1,2],"mayNull":[3,],"raw":[4,5],"texts":[,]})");
    vexa::RefOf(p).Clear();
    EXPECT_EQ(Json(p), R"({"owned":[,],"mayNull":[,],"raw":[,],"texts":[,]})");
}

TEST(ArrayMembers, SlotsThatCannotBeAssignedAreClearedOneByOne)
{
    StubbornArray s;
    vexa::RefOf(s).Clear();
    EXPECT_EQ(Json(s), R"({"elements":[{"number":0},{"number":0}],"constants":[3,4]})");
    EXPECT_EQ(vexa::FromJson(s, R"({"elements":[{"number":5}]})"), 0);
    EXPECT_EQ(s.elements[0].number, 5);
    EXPECT_EQ(vexa::FromJson(s, R"({"constants":[5]})"), 965);
}

TEST(ArrayMembers, ABitSetCannotBeReadFromJson)
{
    Arrays a;
    EXPECT_EQ(vexa::FromJson(a, R"({"bits":[1]})"), 997);
    EXPECT_TRUE(a.bits.none()) << "cleared first";
}

TEST(ArrayMembers, BitSetsOfAnySizeRender)
{
    Bits b;
    b.many.set(0).set(69);
    EXPECT_EQ(vexa::AsString(b), "\nnone: \nmany: 1" + std::string(68, '0') + "1");
    vexa::RefOf(b).Clear();
    EXPECT_EQ(vexa::AsString(b), "\nnone: \nmany: " + std::string(70, '0'));
}

TEST(ArrayMembers, ABitSetIsWalkedBothWays)
{
    std::bitset<4> bits(1);
    vexa::CContainerConstRefrence ref = vexa::RefOf(bits).AsContainer();
    EXPECT_EQ(ref.Count(), 4UL);
    std::string forward;
    for (const vexa::CConstRefrence& bit : ref)
        forward += *static_cast<const bool*>(bit.Address) ? '1' : '0';
    EXPECT_EQ(forward, "1000");
    std::string backward;
    for (vexa::CContainerConstReverseIterator bit(ref); !bit.IsEnd(); ++bit) {
        backward += *static_cast<const bool*>(bit.Current.Address) ? '1' : '0';
    }
    EXPECT_EQ(backward, "0001");
}

TEST(ArrayMembers, AnArrayByItselfHasADescriptor)
{
    int numbers[2] = {1, 2};
    EXPECT_EQ(vexa_test::TypeText(vexa::TypeInforOf<int[2]>()), "array<int>, 64, 0x00");
    EXPECT_EQ(Json(numbers), "[1,2]");
    EXPECT_EQ(vexa::FromJson(numbers, "[3,4]"), 0);
    EXPECT_EQ(numbers[1], 4);
}

} // namespace
