// Confidential attributes that hold others, or are held by others, are as confidential as plain ones.

#include <vexa/interchange.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <variant>
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

enum class Level { low, high };
VEXA_DESCRIBE_ENUM(Level, low, high)

struct Pin {
    std::string code;
    friend bool operator<(const Pin& left, const Pin& right) { return left.code < right.code; }
};
VEXA_DESCRIBE_CLASS(Pin)
{
    about.Attrib("code", &Pin::code).Masked().Alias("the_long_name_of_it");
    about.Check([](const Pin& pin) { return pin.code.empty() ? pin.code : "not " + pin.code; });
}
struct Places {
    Pin fixed[2];
    std::pair<int, Pin> pair;
    std::tuple<double, Pin> tuple;
    std::map<Pin, int> byPin;
    std::variant<int, bool, Pin> any;
    std::variant<std::monostate, Pin, Card> tagged;
};
VEXA_DESCRIBE(Places, fixed, pair, tuple, byPin, any, tagged)
struct Hidden {
    Pin pin;
    Level level = Level::low;
};
VEXA_DESCRIBE_CLASS(Hidden)
{
    about.Attrib("pin", &Hidden::pin).Masked().Flatten();
    about.Attrib("level", &Hidden::level).Masked();
}

TEST(ConfidentialInside, whatStandsInAPlaceForConfidentialObjectsIsNotShown)
{
    EXPECT_EQ("fixed found= excerpt=\npair found= excerpt=\ntuple found= excerpt=\n"
              "byPin found= excerpt=\nany found= excerpt=\ntagged found= excerpt=\n",
              Shown<Places>(R"({"fixed":"hush","pair":"hush","tuple":"hush","byPin":"hush","any":"hush",)"
                            R"("tagged":"hush"})"));
    EXPECT_EQ("fixed[1] found= excerpt=\nfixed[2] found= excerpt=\npair[1] found= excerpt=\n"
              "tuple[0] found= excerpt=\nbyPin[0] found= excerpt=\nbyPin[1][0] found= excerpt=\n"
              "tagged found= excerpt=\n",
              Shown<Places>(R"({"fixed":[{},1234,"hush"],"pair":[1,"hush"],"tuple":["hush",{}],)"
                            R"("byPin":["hush",["hush",1]],"tagged":{"kind":"hush","code":"hush"}})"));
}

TEST(ConfidentialInside, whatIsKnownOfAConfidentialValueIsNotShownEither)
{
    Hidden hidden;
    vexa::CReport report;
    const std::string text = R"({"level":"hihg","code":"hush"})";
    EXPECT_FALSE(vexa::ReadJson(hidden, text, report));
    EXPECT_EQ("1:10: level: the name is not known: expected one of \"low\", \"high\"\n", report.AsString(text));
    hidden = {};
    vexa::CReport ofCheck;
    EXPECT_TRUE(vexa::ReadJson(hidden, R"({"level":"high"})", ofCheck));
    EXPECT_FALSE(vexa::ReadJson(hidden, R"({"code":"hush"})", ofCheck));
    EXPECT_EQ("1:1: the check of confidential_inside::Pin has failed\n", ofCheck.AsString());
}

TEST(ConfidentialInside, noMoreThanAKeyIsShownWhereItWasGivenFirst)
{
    Pin pin;
    vexa::CReport report;
    const std::string text = R"({"code":"hush","the_long_name_of_it":"hush"})";
    EXPECT_FALSE(vexa::ReadJson(pin, text, report));
    EXPECT_EQ("1:16: code: the key \"code\" is given twice\n"
              "     1 |                \"the_long_name_of_it\"\n"
              "       |                ^~~~~~~~~~~~~~~~~~~~~\n"
              "1:2: first given here\n"
              "     1 |  \"code\"\n"
              "       |  ^~~~~~\n",
              report.AsString(text));
}

TEST(ConfidentialInside, aTagIsShownButNotWhatElseStandsThere)
{
    EXPECT_EQ("card found=\"crad\" excerpt=\"crad\"\ncards[0] found=an object excerpt={\n",
              Shown<Wallet>(R"({"card":{"kind":"crad"},"cards":[{"kind":{"pin":"hush"}}]})"));
}

TEST(ConfidentialInside, keysThatAConfidentialAttributeKeepsAreNotShown)
{
    Keeper keeper;
    vexa::CReport report;
    vexa::CReadPolicy policy;
    policy.Unknown = vexa::UnknownKeys::PROBLEM;
    const std::string text = R"({"hush":1})";
    EXPECT_FALSE(vexa::ReadJson(keeper, text, report, policy));
    EXPECT_EQ("1:2: there is no such attribute\n", report.AsString(text));

    ASSERT_TRUE(keeper.kept["plain"].Set("1"));
    vexa::CReport writing;
    EXPECT_EQ(R"({"plain":1})", vexa::WriteJson(keeper, {}, &writing));
    EXPECT_EQ("kept: the key \"kept\" is given twice\n", writing.AsString());
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
