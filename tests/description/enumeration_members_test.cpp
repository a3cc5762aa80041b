// Enumerations are described as their underlying integers.

#include <cstdint>
#include <map>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/described_text.h"

namespace enumeration_members {

enum class Byte : std::uint8_t { A = 1, B = 255 };
enum class Letter : char { A = 'a', B = 'b' };
enum class Truth : bool { No, Yes };
enum class Short : short { A = -5 };
enum class UShort : unsigned short { A = 65535 };
enum class Plain { A = -7, B = 8 };
enum class UInt : unsigned { A = 4000000000U };
enum class Wide : long { A = -(1L << 40) };
enum class UWide : std::uint64_t { A = 1UL << 40 };
enum class Wider : long long { A = 9 };
enum Unscoped : int { LOW = -1, HIGH = 1 };

struct Enumerations {
    Byte byte = Byte::B;
    Letter letter = Letter::B;
    Truth truth = Truth::Yes;
    Short small = Short::A;
    UShort uShort = UShort::A;
    Plain plain = Plain::A;
    UInt uInt = UInt::A;
    Wide wide = Wide::A;
    UWide uWide = UWide::A;
    Wider wider = Wider::A;
    Unscoped unscoped = LOW;
};
VEXA_DESCRIBE(Enumerations, byte, letter, truth, small, uShort, plain, uInt, wide, uWide, wider, unscoped)

struct Held {
    vexa::MayNull<Plain> mayNull = Plain::B;
    std::unique_ptr<Plain> owned;
    std::vector<Unscoped> many;
    std::map<Byte, Plain> byByte;
};
VEXA_DESCRIBE(Held, mayNull, owned, many, byByte)

} // namespace enumeration_members

namespace {

using namespace enumeration_members;
using vexa_test::Json;
using vexa_test::Line;
using vexa_test::MembersOf;

TEST(EnumerationMembers, EachHasTheCodeOfItsUnderlyingInteger)
{
    const Enumerations e;
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Enumerations>()),
              Line(e, e.byte, "byte", "unsigned char, 22, 0x00") + Line(e, e.letter, "letter", "char, 12, 0x00") +
                  Line(e, e.truth, "truth", "bool, 11, 0x00") + Line(e, e.small, "small", "short, 13, 0x00") +
                  Line(e, e.uShort, "uShort", "unsigned short, 23, 0x00") + Line(e, e.plain, "plain", "int, 14, 0x00") +
                  Line(e, e.uInt, "uInt", "unsigned int, 24, 0x00") + Line(e, e.wide, "wide", "long, 15, 0x00") +
                  Line(e, e.uWide, "uWide", "unsigned long, 25, 0x00") +
                  Line(e, e.wider, "wider", "long long, 16, 0x00") + Line(e, e.unscoped, "unscoped", "int, 14, 0x00"));
}

TEST(EnumerationMembers, RenderAsTheirNumbers)
{
    EXPECT_EQ(vexa::AsString(Enumerations()),
              "\nbyte: 255\nletter: b\ntruth: true\nsmall: -5\nuShort: 65535\nplain: -7\nuInt: 4000000000"
              "\nwide: -1099511627776\nuWide: 1099511627776\nwider: 9\nunscoped: -1");
}

TEST(EnumerationMembers, AreWrittenAndReadAsNumbers)
{
    const std::string text =
        R"({"byte":255,"letter":98,"truth":true,"small":-5,"uShort":65535,"plain":-7,)"
        R"("uInt":4000000000,"wide":-1099511627776,"uWide":1099511627776,"wider":9,"unscoped":-1})";
    EXPECT_EQ(Json(Enumerations()), text);
    EXPECT_EQ(vexa_test::ReadBack<Enumerations>(text), text);
}

TEST(EnumerationMembers, ReadingSetsTheEnumerator)
{
    Enumerations e;
    ASSERT_EQ(vexa::FromJson(e, R"({"plain":8,"unscoped":1,"byte":1,"truth":false})"), 0);
    EXPECT_EQ(e.plain, Plain::B);
    EXPECT_EQ(e.unscoped, HIGH);
    EXPECT_EQ(e.byte, Byte::A);
    EXPECT_EQ(e.truth, Truth::No);
    EXPECT_EQ(static_cast<int>(e.small), 0) << "cleared first";
}

TEST(EnumerationMembers, CanBeHeldInEveryForm)
{
    Held held;
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Held>()),
              Line(held, held.mayNull, "mayNull", "MayNull<int>, 14, 0x09, 0/4") +
                  Line(held, held.owned, "owned", "int*, 14, 0x18") +
                  Line(held, held.many, "many", "std::vector<int>, 61, 0x00") +
                  Line(held, held.byByte, "byByte", "std::map<std::pair>, 83, 0x00"));
    const std::string text = R"({"mayNull":8,"owned":-7,"many":[1,-1],"byByte":[{"first":1,"second":8}]})";
    ASSERT_EQ(vexa::FromJson(held, text), 0);
    EXPECT_EQ(Json(held), text);
    EXPECT_EQ(*held.owned, Plain::A);
    EXPECT_EQ(held.byByte.at(Byte::A), Plain::B);
}

} // namespace
