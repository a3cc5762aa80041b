// vexa::MayNull by itself: it is used like std::optional.

#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include <vexa/may_null.h>

namespace {

using vexa::MayNull;

struct alignas(64) Wide {
    char letter = 'w';
};

TEST(MayNull, IsNullByDefault)
{
    const MayNull<int> value;
    EXPECT_FALSE(value.has_value());
    EXPECT_FALSE(static_cast<bool>(value));
    EXPECT_TRUE(value == vexa::null);
    EXPECT_FALSE(value != vexa::null);
}

TEST(MayNull, HoldsWhatItIsMadeFrom)
{
    const MayNull<std::string> copied(std::string("Ann"));
    EXPECT_TRUE(copied.has_value());
    EXPECT_EQ(*copied, "Ann");
    EXPECT_EQ(copied->size(), 3U);
    const MayNull<std::string> null(vexa::null);
    EXPECT_FALSE(null.has_value());
}

TEST(MayNull, HoldsWhatConvertsToTheValue)
{
    const MayNull<std::string> text = "Ann";
    EXPECT_EQ(*text, "Ann");
    const MayNull<long> number = 3;
    EXPECT_EQ(*number, 3L);
    const MayNull<bool> truth = false;
    EXPECT_TRUE(truth.has_value());
}

TEST(MayNull, TakesWhatTheValueCanBeAssignedFrom)
{
    MayNull<std::string> text;
    text = "Ann";
    EXPECT_EQ(*text, "Ann");
    MayNull<long> number;
    number = 3;
    EXPECT_EQ(*number, 3L);
    number = MayNull<long>();
    EXPECT_FALSE(number.has_value());
}

TEST(MayNull, AssigningNullEmptiesTheValue)
{
    MayNull<std::string> text(std::string("secret"));
    text = vexa::null;
    EXPECT_FALSE(text.has_value());
    EXPECT_EQ(*text, "") << "what was there is gone, not only hidden";
}

TEST(MayNull, ResetEmptiesTheValue)
{
    MayNull<std::string> text(std::string("secret"));
    text.reset();
    EXPECT_FALSE(text.has_value());
    EXPECT_EQ(*text, "");
}

TEST(MayNull, ValueOfANullThrows)
{
    MayNull<int> number;
    EXPECT_THROW(number.value(), std::logic_error);
    EXPECT_THROW(std::as_const(number).value(), std::logic_error);
    number = 4;
    EXPECT_EQ(number.value(), 4);
    EXPECT_EQ(std::as_const(number).value(), 4);
}

TEST(MayNull, ValueOrGivesTheOtherForANullOnly)
{
    MayNull<int> number;
    EXPECT_EQ(number.value_or(7), 7);
    number = 4;
    EXPECT_EQ(number.value_or(7), 4);
    EXPECT_EQ(MayNull<std::string>().value_or("none"), "none");
}

TEST(MayNull, EmplaceMakesTheValueInPlace)
{
    MayNull<std::string> text;
    std::string& made = text.emplace(3UL, 'x');
    EXPECT_EQ(&made, &*text);
    EXPECT_EQ(*text, "xxx");
    EXPECT_TRUE(text.has_value());
}

TEST(MayNull, WritesThroughItsAccessors)
{
    MayNull<std::string> text(std::string("a"));
    text->append("b");
    *text += "c";
    text.value() += "d";
    EXPECT_EQ(*text, "abcd");
}

TEST(MayNull, ComparesLikeAnOptional)
{
    const MayNull<int> null;
    const MayNull<int> three(3);
    EXPECT_TRUE(null == MayNull<int>());
    EXPECT_TRUE(three == MayNull<int>(3));
    EXPECT_FALSE(three == null);
    EXPECT_FALSE(three == MayNull<int>(4));
    EXPECT_TRUE(three != null);
    EXPECT_TRUE(three == 3);
    EXPECT_TRUE(three != 4);
    EXPECT_TRUE(MayNull<std::string>("a") == "a");
    EXPECT_TRUE(null != 0) << "a null differs from every value, that of its empty storage too";
}

TEST(MayNull, CopiesAndMoves)
{
    MayNull<std::string> first(std::string("Ann"));
    MayNull<std::string> second(first);
    EXPECT_TRUE(first == second);
    const MayNull<std::string> third(std::move(second));
    EXPECT_EQ(*third, "Ann");
    first = third;
    EXPECT_EQ(*first, "Ann");
}

TEST(MayNull, KeepsItsFlagFirstAndItsValueAligned)
{
    EXPECT_EQ(MayNull<char>::FlagOffset(), 0U);
    EXPECT_EQ(MayNull<char>::ValueOffset(), 1U);
    EXPECT_EQ(MayNull<std::string>::ValueOffset(), 8U);
    EXPECT_EQ(MayNull<Wide>::ValueOffset(), 64U);
    MayNull<Wide> wide;
    EXPECT_EQ(reinterpret_cast<char*>(&*wide) - reinterpret_cast<char*>(&wide), 64);
}

TEST(MayNull, IsNotMadeFromAnythingElseByItself)
{
    EXPECT_FALSE((std::is_convertible_v<MayNull<int>, int>));
    EXPECT_FALSE((std::is_convertible_v<MayNull<int>, bool>)) << "only where a condition is asked for";
}

TEST(MayNull, EmptyBracesMakeItNull)
{
    MayNull<int> number = 5;
    number = {};
    EXPECT_FALSE(number.has_value());
    MayNull<std::string> text = std::string("text");
    text = vexa::null;
    EXPECT_FALSE(text.has_value());
}

} // namespace
