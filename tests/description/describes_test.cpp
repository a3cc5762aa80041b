// Classes described from outside, instances of class templates, and private nested classes.

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/find_class.h>
#include <vexa/types.h>

#include "support/described_text.h"

namespace describes_test::third {

struct Money {
    long units = 3;
    std::string code = "EUR";
};
struct Wallet {
    virtual ~Wallet() = default;
    Money money;
};
struct Purse : Wallet {
    int coins = 2;
};
template<class T>
struct Box {
    T value{};
};
template<class T, unsigned int N>
struct Row {
    T values[N]{};
};
template<char LEFT, char RIGHT>
struct Between {
    int x = 1;
};
struct AtStart {
    int x = 1;
};

} // namespace describes_test::third

namespace describes_test {

class Hider {
public:
    int Sum() const { return inner.x + full.y + full.Half(); }

private:
    struct Inner {
        int x = 4;
        std::unique_ptr<Inner> next;
    };
    class Full {
    public:
        int y = 5;
        int Half() const { return half; }

    private:
        friend class Hider;
        VEXA_FRIEND(Full);
        int half = 2;
    };
    VEXA_DESCRIBE_NESTED(Inner, x, next)
    VEXA_DESCRIBE_NESTED_CLASS(Full)
    {
        about.Attrib("y", &Full::y);
        about.Attrib("half", &Full::half);
    }
    VEXA_FRIEND(Hider);

    Inner inner;
    std::vector<Inner> inners{2};
    Full full;
};
VEXA_DESCRIBE(Hider, inner, inners, full)

} // namespace describes_test

template<>
struct vexa::Describes<describes_test::third::Money> {
    static constexpr const char* NAME = "Money";
    static void Describe(vexa::CDescription<describes_test::third::Money>& about)
    {
        VEXA_MEMBERS(describes_test::third::Money, units, code)
    }
};
template<>
struct vexa::Describes<describes_test::third::Wallet> {
    using Wallet = describes_test::third::Wallet;
    static void Describe(vexa::CDescription<Wallet>& about) { about.Attrib("money", &Wallet::money); }
};
template<>
struct vexa::Describes<describes_test::third::Purse> {
    using Purse = describes_test::third::Purse;
    static void Describe(vexa::CDescription<Purse>& about)
    {
        about.Base<describes_test::third::Wallet>();
        about.Attrib("coins", &Purse::coins);
    }
};
template<class T>
struct vexa::Describes<describes_test::third::Box<T>> {
    using Box = describes_test::third::Box<T>;
    static constexpr const char* NAME = "Box";
    static void Describe(vexa::CDescription<Box>& about) { VEXA_MEMBERS(Box, value) }
};
template<class T, unsigned int N>
struct vexa::Describes<describes_test::third::Row<T, N>> {
    using Row = describes_test::third::Row<T, N>;
    static void Describe(vexa::CDescription<Row>& about) { VEXA_MEMBERS(Row, values) }
};
template<char LEFT, char RIGHT>
struct vexa::Describes<describes_test::third::Between<LEFT, RIGHT>> {
    using Between = describes_test::third::Between<LEFT, RIGHT>;
    static constexpr const char* NAME = "Between";
    static void Describe(vexa::CDescription<Between>& about) { VEXA_MEMBERS(Between, x) }
};
template<>
struct vexa::Describes<describes_test::third::AtStart> {
    using AtStart = describes_test::third::AtStart;
    static void Describe(vexa::CDescription<AtStart>& about) { VEXA_MEMBERS(AtStart, x) }
};
VEXA_DESCRIBED_AT_START(describes_test::third::AtStart)

namespace describes_test {

struct Use {
    third::Money money;
    third::Purse purse;
    third::Box<std::string> text;
    third::Box<third::Box<int>> nested;
    third::Row<int, 2> row;
    std::optional<third::Box<long>> maybe;
    std::map<std::string, third::Money> byName;
};
VEXA_DESCRIBE(Use, money, purse, text, nested, row, maybe, byName)

} // namespace describes_test

namespace {

using namespace describes_test;
using vexa_test::Line;

TEST(Describes, MakesClassesOfAThirdPartyMembers)
{
    const Use use;
    EXPECT_EQ(vexa_test::MembersOf(vexa::ClassInforOf<Use>()),
              Line(use, use.money, "money", "Money, 1, 0x00") +
                  Line(use, use.purse, "purse", "describes_test::third::Purse, 1, 0x00") +
                  Line(use, use.text, "text", "Box<std::string>, 1, 0x00") +
                  Line(use, use.nested, "nested", "Box<describes_test::third::Box<int>>, 1, 0x00") +
                  Line(use, use.row, "row", "describes_test::third::Row<int, 2>, 1, 0x00") +
                  Line(use, use.maybe, "maybe", "std::optional<Box<long>>, 112, 0x00") +
                  Line(use, use.byName, "byName", "std::map<std::pair>, 83, 0x00"));
    const third::Purse purse;
    EXPECT_EQ(vexa_test::MembersOf(vexa::ClassInforOf<third::Purse>()),
              Line(purse, purse.money, "money", "Money, 1, 0x00") + Line(purse, purse.coins, "coins", "int, 14, 0x00"));
}

template<char LEFT, char RIGHT>
std::string NameOfBetween()
{
    return vexa::ClassInforOf<third::Between<LEFT, RIGHT>>().Name;
}

TEST(Describes, NamesTheArgumentsOfAnInstanceWhateverTheyAre)
{
    EXPECT_EQ((NameOfBetween<'<', '>'>()), "Between<'<', '>'>");
    EXPECT_EQ((NameOfBetween<'>', '>'>()), "Between<'>', '>'>");
    EXPECT_EQ((NameOfBetween<'<', 'a'>()), "Between<'<', 'a'>");
    EXPECT_EQ((NameOfBetween<'\\', '\''>()), "Between<'\\\\', '\\''>");
    EXPECT_EQ((vexa::ClassInforOf<third::Box<third::Between<'<', '<'>>>().Name),
              "Box<describes_test::third::Between<'<', '<'>>");
}

TEST(Describes, ReadsAndWritesThem)
{
    const std::string text = R"({"money":{"units":7,"code":"CHF"},"purse":{"money":{"units":1,"code":"X"},"coins":9},)"
                             R"("text":{"value":"t"},"nested":{"value":{"value":8}},"row":{"values":[1,2]},)"
                             R"("byName":[{"first":"a","second":{"units":2,"code":"Y"}}]})";
    EXPECT_EQ(vexa_test::ReadBack<Use>(text), text);
}

TEST(Describes, IsFoundByItsQualifiedName)
{
    EXPECT_EQ(vexa::FindClass("describes_test::third::AtStart"), &vexa::ClassInforOf<third::AtStart>());
    EXPECT_EQ(vexa::FindClass("describes_test::third::Money"), &vexa::ClassInforOf<third::Money>());
    EXPECT_EQ(vexa::FindClass("describes_test::third::Box<int>"), &vexa::ClassInforOf<third::Box<int>>());
}

TEST(PrivateNestedClasses, AreDescribedInsideTheirClass)
{
    EXPECT_EQ(vexa::AsString(Hider()), "\ninner: \n  x: 4\n  next: NULL\ninners: \n  - x: 4\n    next: NULL\n"
                                       "  - x: 4\n    next: NULL\nfull: \n  y: 5\n  half: 2");
    Hider hider;
    EXPECT_EQ(vexa::FromJson(hider, R"({"inner":{"x":1,"next":{"x":2}},"full":{"y":10,"half":20}})"), 0);
    EXPECT_EQ(hider.Sum(), 31);
    EXPECT_EQ(vexa_test::Json(hider), R"({"inner":{"x":1,"next":{"x":2}},"inners":[],"full":{"y":10,"half":20}})");
    EXPECT_NE(vexa::FindClass("describes_test::Hider::Inner"), nullptr);
}

} // namespace
