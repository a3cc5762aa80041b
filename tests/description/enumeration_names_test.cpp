// Enumerations whose values have names: in the standard formats by their names, to everything else their integer.

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/types.h>

#include "support/described_text.h"

namespace enumeration_names {

enum class Color { red, green = 5, blue };
VEXA_DESCRIBE_ENUM(Color, red, green, blue)
enum Unscoped : short { LOW = -1, HIGH = 1 };
VEXA_DESCRIBE_ENUM(Unscoped, LOW, HIGH)
enum class Small : signed char { MINUS = -128, PLUS = 127 };
VEXA_DESCRIBE_ENUM(Small, MINUS, PLUS)
enum class Letter : char { A = 'a', B = '\xFF' };
VEXA_DESCRIBE_ENUM(Letter, A, B)
enum class Wide : unsigned long long { NONE = 0, ALL = 0xFFFFFFFFFFFFFFFF };
VEXA_DESCRIBE_ENUM(Wide, NONE, ALL)
enum class Bare : signed char { X = 3 };

struct Outer {
    enum class Mode { fast, slow };
    Mode mode = Mode::slow;
};
VEXA_DESCRIBE_ENUM(Outer::Mode, fast, slow)
VEXA_DESCRIBE(Outer, mode)

class Hider {
    enum class Hidden { off, on };
    VEXA_DESCRIBE_NESTED_ENUM(Hidden, off, on)
    VEXA_FRIEND(Hider);
    Hidden hidden = Hidden::on;
};
VEXA_DESCRIBE(Hider, hidden)

struct All {
    Color color = Color::green;
    Unscoped unscoped = LOW;
    Small small = Small::MINUS;
    Letter letter = Letter::B;
    Wide wide = Wide::ALL;
    Bare bare = Bare::X;
    Outer outer;
    Hider hider;
};
VEXA_DESCRIBE(All, color, unscoped, small, letter, wide, bare, outer, hider)

struct Held {
    vexa::MayNull<Color> mayNull = Color::red;
    std::unique_ptr<Color> owned = std::make_unique<Color>(Color::blue);
    std::vector<Color> many{Color::red, static_cast<Color>(3)};
    std::vector<vexa::MayNull<Small>> smalls{Small::PLUS, vexa::null};
    std::map<Color, Small> byColor{{Color::green, Small::PLUS}};
    std::map<Small, int> bySmall{{Small::MINUS, 1}, {Small::PLUS, 2}};
    std::set<Unscoped> set{LOW, HIGH};
    std::optional<Color> optional = Color::green;
    std::shared_ptr<Small> shared = std::make_shared<Small>(Small::PLUS);
    std::variant<int, Color> variant = Color::blue;
    std::tuple<Color, Unscoped> tuple{Color::red, HIGH};
    std::atomic<Color> atomic{Color::green};
    Color array[2] = {Color::red, Color::blue};
};
VEXA_DESCRIBE(Held, mayNull, owned, many, smalls, byColor, bySmall, set, optional, shared, variant, tuple, atomic,
              array)

} // namespace enumeration_names

namespace {

using namespace enumeration_names;
using vexa_test::Line;

TEST(EnumerationNames, ChangeNothingOfTheDescriptor)
{
    const All all;
    EXPECT_EQ(vexa_test::MembersOf(vexa::ClassInforOf<All>()),
              Line(all, all.color, "color", "int, 14, 0x00") + Line(all, all.unscoped, "unscoped", "short, 13, 0x00") +
                  Line(all, all.small, "small", "signed char, 112, 0x00") +
                  Line(all, all.letter, "letter", "char, 12, 0x00") +
                  Line(all, all.wide, "wide", "unsigned long long, 26, 0x00") +
                  Line(all, all.bare, "bare", "signed char, 112, 0x00") +
                  Line(all, all.outer, "outer", "Outer, 1, 0x00") + Line(all, all.hider, "hider", "Hider, 1, 0x00"));
    EXPECT_EQ(vexa::TypeInforOf<Color>().DetailInfor, nullptr);
}

TEST(EnumerationNames, AreNumbersInTextAndInTheDialect)
{
    EXPECT_EQ(vexa::AsString(All()), "\ncolor: 5\nunscoped: -1\nsmall: -128\nletter: \xFF"
                                     "\nwide: 18446744073709551615\nbare: 3\nouter: \n  mode: 1\nhider: \n  hidden: 1");
    EXPECT_EQ(vexa_test::ReadBack<Outer>(R"({"mode":0})"), R"({"mode":0})");
}

TEST(EnumerationNames, StandInStandardJsonWhateverHoldsThem)
{
    EXPECT_EQ(vexa::WriteJson(All()), R"({"color":"green","unscoped":"LOW","small":"MINUS","letter":"B","wide":"ALL",)"
                                      R"("bare":3,"outer":{"mode":"slow"},"hider":{"hidden":"on"}})");
    EXPECT_EQ(vexa::WriteJson(Held()),
              R"({"mayNull":"red","owned":"blue","many":["red",3],"smalls":["PLUS",null],"byColor":{"green":"PLUS"},)"
              R"("bySmall":{"MINUS":1,"PLUS":2},"set":["LOW","HIGH"],"optional":"green","shared":"PLUS",)"
              R"("variant":"blue","tuple":["red","HIGH"],"atomic":"green","array":["red","blue"]})");
}

TEST(EnumerationNames, StandForTheObjectItself)
{
    EXPECT_EQ(vexa::WriteJson(Color::blue), R"("blue")");
    EXPECT_EQ(vexa::WriteJson(Small::PLUS), R"("PLUS")");
    EXPECT_EQ(vexa::WriteJson(static_cast<Color>(77)), "77");
    EXPECT_EQ(vexa::WriteJson(std::optional<Color>(Color::red)), R"("red")");
}

} // namespace
