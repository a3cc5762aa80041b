// Confidential attributes that hold others, or are held by others, are as confidential as plain ones.

#include <vexa/interchange.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace confidential_inside {

struct Inner {
    std::string word = "hush";
    int number = 7;
};
VEXA_DESCRIBE(Inner, word, number)

struct Outer {
    Inner inner;
    int plain = 1;
};
VEXA_DESCRIBE_CLASS(Outer)
{
    about.Attrib("inner", &Outer::inner).Masked().Flatten();
    about.Attrib("plain", &Outer::plain);
}

struct Keeper {
    std::map<std::string, vexa::CRawJson> kept;
    int plain = 1;
};
VEXA_DESCRIBE_CLASS(Keeper)
{
    about.Attrib("kept", &Keeper::kept).Masked().KeepsUnknown();
    about.Attrib("plain", &Keeper::plain);
}

struct Card {
    virtual ~Card() = default;
    std::string pin;
};
VEXA_DESCRIBE_CLASS(Card)
{
    about.Tag("kind");
    about.TagValue("card");
    about.Attrib("pin", &Card::pin).Masked();
}

struct Wallet {
    std::unique_ptr<Card> card;
    std::vector<std::unique_ptr<Card>> cards;
    std::map<std::string, std::optional<Outer>> outers;
    std::vector<int> numbers;
};
VEXA_DESCRIBE(Wallet, card, cards, outers, numbers)

template<class T>
std::string Written(const T& object, vexa::MaskedValues masked, bool sortKeys = false)
{
    vexa::CWritePolicy policy;
    policy.Masked = masked;
    policy.SortKeys = sortKeys;
    return vexa::WriteJson(object, policy);
}

/// What each problem shows of the text.
template<class T>
std::string Shown(const std::string& text)
{
    T object;
    vexa::CReport report;
    EXPECT_FALSE(vexa::ReadJson(object, text, report)) << text;
    std::string shown;
    for (const vexa::CProblem& problem : report.Problems())
        shown += problem.Path + " found=" + problem.Found + " excerpt=" + problem.Excerpt + '\n';
    return shown;
}

TEST(ConfidentialInside, flattenedAttributesAreConfidentialLikeTheirHolder)
{
    EXPECT_EQ(R"({"word":"hush","number":7,"plain":1})", Written(Outer(), vexa::MaskedValues::WRITE));
    EXPECT_EQ(R"({"word":"***","number":"***","plain":1})", Written(Outer(), vexa::MaskedValues::MASK));
    EXPECT_EQ(R"({"plain":1})", Written(Outer(), vexa::MaskedValues::LEAVE_OUT));
    EXPECT_EQ("inner.word found= excerpt=\ninner.number found= excerpt=\nplain found=a string excerpt=\"x\"\n",
              Shown<Outer>(R"({"word":1234,"number":"hush","plain":"x"})"));
}

TEST(ConfidentialInside, keptKeysOfAConfidentialAttributeAreLeftOut)
{
    Keeper keeper;
    ASSERT_TRUE(keeper.kept["name"].Set("\"hush\""));
    EXPECT_EQ(R"({"name":"hush","plain":1})", Written(keeper, vexa::MaskedValues::WRITE));
    EXPECT_EQ(R"({"plain":1})", Written(keeper, vexa::MaskedValues::MASK));
    EXPECT_EQ(R"({"plain":1})", Written(keeper, vexa::MaskedValues::MASK, true));
    EXPECT_EQ(R"({"plain":1})", Written(keeper, vexa::MaskedValues::LEAVE_OUT));
}

TEST(ConfidentialInside, whatStandsForConfidentialObjectsIsNotShown)
{
    EXPECT_EQ(
        "card found= excerpt=\ncards found= excerpt=\nouters found= excerpt=\nnumbers found=a string excerpt=\"x\"\n",
        Shown<Wallet>(R"({"card":"hush","cards":"hush","outers":"hush","numbers":"x"})"));
    EXPECT_EQ("cards[0] found= excerpt=\nouters[\"a\"] found= excerpt=\n",
              Shown<Wallet>(R"({"cards":[1234],"outers":{"a":"hush"}})"));
}

struct Nulls {
    vexa::CRawJson raw;
    vexa::CJsonTree tree;
    std::optional<std::optional<int>> nested = std::optional<int>();
    std::shared_ptr<vexa::CNumeric> number = std::make_shared<vexa::CNumeric>();
    int plain = 1;
};
VEXA_DESCRIBE(Nulls, raw, tree, nested, number, plain)

TEST(LeaveOutNulls, leavesOutWhateverWouldBeNull)
{
    EXPECT_EQ(R"({"raw":null,"tree":null,"nested":null,"number":null,"plain":1})", vexa::WriteJson(Nulls()));
    vexa::CWritePolicy policy;
    policy.LeaveOutNulls = true;
    EXPECT_EQ(R"({"plain":1})", vexa::WriteJson(Nulls(), policy));
    Nulls nulls;
    ASSERT_TRUE(nulls.raw.Set("[null]"));
    nulls.tree.Append();
    nulls.nested = 5;
    *nulls.number = vexa::CNumeric(6);
    EXPECT_EQ(R"({"raw":[null],"tree":[null],"nested":5,"number":6,"plain":1})", vexa::WriteJson(nulls, policy));
}

} // namespace confidential_inside
