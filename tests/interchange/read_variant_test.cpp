#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

#include "support/problem_lines.h"

// Which alternative of a variant a value is, and what a tag says of objects whose class is known.

namespace chosen {

enum class Level : std::int8_t { LOW = -1, HIGH = 1 };
VEXA_DESCRIBE_ENUM(Level, LOW, HIGH)

struct Card {
    std::string number;
    int code = 1;
};
struct Invoice {
    std::string number;
    int days = 30;
};
struct Free {
    std::string reason;
};
VEXA_DESCRIBE_CLASS(Card)
{
    about.Tag("method");
    about.TagValue("card");
    about.Attrib("number", &Card::number);
    about.Attrib("code", &Card::code).Range(0, 9);
}
VEXA_DESCRIBE_CLASS(Invoice)
{
    about.Tag("method");
    about.TagValue("invoice");
    about.Attrib("number", &Invoice::number);
    about.Attrib("days", &Invoice::days);
}
VEXA_DESCRIBE(Free, reason)

struct Small {
    int a = 0;
    int b = 0;
};
struct Large {
    int a = 0;
    int c = 0;
};
VEXA_DESCRIBE(Small, a, b)
VEXA_DESCRIBE(Large, a, c)

struct Sale {
    std::variant<std::monostate, Card, Invoice, Free> payment;
    std::variant<Small, Large> size;
    std::variant<long, double, bool> number;
    std::variant<int, Level, std::vector<bool>> level;
    Card card;
    std::vector<Card> cards;
};
VEXA_DESCRIBE(Sale, payment, size, number, level, card, cards)

} // namespace chosen

namespace {

using chosen::Sale;

/// Without excerpts.
std::string Read(Sale& value, const std::string& text)
{
    std::string lines = test::ProblemsOf(
        value, [&](Sale& object, vexa::CReport& report) { return vexa::ReadJson(object, text, report); });
    std::string kept;
    for (std::size_t begin = 0, end; begin < lines.size(); begin = end + 1) {
        end = lines.find('\n', begin);
        const std::string line = lines.substr(begin, end - begin);
        kept += line.substr(0, line.find(" excerpt=")) + "\n";
    }
    return kept;
}

TEST(ReadVariant, TheTagChoosesWhereverItStands)
{
    Sale sale;
    EXPECT_EQ("", Read(sale, R"({"payment": {"method": "invoice", "number": "7"}})"));
    EXPECT_EQ("7", std::get<chosen::Invoice>(sale.payment).number);
    EXPECT_EQ(R"({"method":"invoice","number":"7","days":30})",
              vexa::WriteJson(sale).substr(11, 43)); // behind `{"payment":`
    EXPECT_EQ("", Read(sale, R"({"payment": {"number": "8", "code": 2, "method": "card"}})"));
    EXPECT_EQ("8", std::get<chosen::Card>(sale.payment).number);
    EXPECT_EQ("", Read(sale, R"({"payment": {"method": "card", "number": "9"}})"));
    EXPECT_EQ(2, std::get<chosen::Card>(sale.payment).code) << "the object that is there is read into";
    EXPECT_EQ("", Read(sale, R"({"payment": {"days": 3}})"));
    EXPECT_EQ(3, std::get<chosen::Invoice>(sale.payment).days) << "the only one that fits";
    EXPECT_EQ("", Read(sale, R"({"payment": {"reason": "staff"}})"));
    EXPECT_EQ("", Read(sale, R"({"payment": null})"));
    EXPECT_EQ(0U, sale.payment.index());
}

TEST(ReadVariant, TheProblemsAreThoseOfTheChosenOne)
{
    Sale sale;
    EXPECT_EQ("29 40+2 1:41 path=payment.code pointer=/payment/code class=chosen::Card attrib=code expected=0 to 9 "
              "found=10\n",
              Read(sale, R"({"payment": {"method": "card", "code" : 10}})"));
    EXPECT_EQ("36 23+6 1:24 path=payment pointer=/payment attrib=method expected=one of \"card\", \"invoice\" "
              "found=\"crad\" nearest=card\n",
              Read(sale, R"({"payment": {"method": "crad", "number": "1"}})"));
    EXPECT_EQ("36 23+1 1:24 path=payment pointer=/payment attrib=method expected=one of \"card\", \"invoice\" found=a "
              "number\n",
              Read(sale, R"({"payment": {"method": 5, "number": "1"}})"));
}

template<class T>
std::string ToldOf(T& value, const std::string& text)
{
    return test::ProblemsOf(value,
                            [&](T& object, vexa::CReport& report) { return vexa::ReadJson(object, text, report); });
}

TEST(ReadVariant, TellsOfTagsWhatTheTextSays)
{
    std::variant<chosen::Card, std::string> one;
    EXPECT_EQ(0U,
              ToldOf(one, R"({"method": "crad"})")
                  .find("36 11+6 1:12 class=chosen::Card attrib=method expected=\"card\" found=\"crad\" nearest=card"));
    std::variant<chosen::Card, signed char, unsigned char> number;
    const std::string told = ToldOf(number, "300");
    EXPECT_EQ(0U, told.find("38 0+3 1:1")) << told;
    EXPECT_EQ(std::string::npos, told.find("expected")) << "a number has no tag: " << told;
}

TEST(ReadVariant, TellsWhereNoneOrMoreFit)
{
    Sale sale;
    EXPECT_EQ("38 9+1 1:10 path=size pointer=/size class=chosen::Sale attrib=size\n",
              Read(sale, R"({"size": {"b": 1, "c": 2}})"));
    EXPECT_EQ("39 9+1 1:10 path=size pointer=/size class=chosen::Sale attrib=size\n",
              Read(sale, R"({"size": {"a": 1}})"));
    EXPECT_EQ("38 9+3 1:10 path=size pointer=/size class=chosen::Sale attrib=size\n", Read(sale, R"({"size": "x"})"));
    EXPECT_EQ("39 12+1 1:13 path=payment pointer=/payment class=chosen::Sale attrib=payment\n",
              Read(sale, R"({"payment": {"number": "1"}})"));
    EXPECT_EQ("", Read(sale, R"({"size": {"c": 5}})"));
    EXPECT_EQ(5, std::get<chosen::Large>(sale.size).c);
}

TEST(ReadVariant, AnIntegerIsRatherAnInteger)
{
    Sale sale;
    EXPECT_EQ("", Read(sale, R"({"number": 5})"));
    EXPECT_EQ(0U, sale.number.index());
    EXPECT_EQ("", Read(sale, R"({"number": 5.5})"));
    EXPECT_EQ(1U, sale.number.index());
    EXPECT_EQ("", Read(sale, R"({"number": true})"));
    EXPECT_EQ(2U, sale.number.index());
}

TEST(ReadVariant, TakesTheNamesOfSignedBytes)
{
    Sale sale;
    EXPECT_EQ("", Read(sale, R"({"level": "LOW"})"));
    EXPECT_EQ(chosen::Level::LOW, std::get<chosen::Level>(sale.level));
    EXPECT_EQ("", Read(sale, R"({"level": 1000})"));
    EXPECT_EQ(1000, std::get<int>(sale.level));
    EXPECT_EQ("", Read(sale, R"({"level": [true]})"));
    EXPECT_EQ(2U, sale.level.index());
}

TEST(ReadTags, OfAnObjectWhoseClassIsKnownMayNameThatClass)
{
    Sale sale;
    EXPECT_EQ("",
              Read(sale, R"({"card": {"method": "card", "number": "1"}, "cards": [{"code": 2, "method": "card"}]})"));
    EXPECT_EQ("1", sale.card.number);
    EXPECT_EQ(2, sale.cards.at(0).code);
    const std::string json = vexa::WriteJson(sale);
    EXPECT_NE(std::string::npos, json.find(R"("card":{"number":"1","code":1},"cards":[{"number":"","code":2}])"))
        << json;
    EXPECT_EQ("36 20+9 1:21 path=card pointer=/card class=chosen::Card attrib=method expected=\"card\" "
              "found=\"invoice\"\n",
              Read(sale, R"({"card": {"method": "invoice", "number": "2"}})"));
    EXPECT_EQ("2", sale.card.number);
    EXPECT_EQ(
        "36 20+1 1:21 path=card pointer=/card class=chosen::Card attrib=method expected=\"card\" found=a number\n",
        Read(sale, R"({"card": {"method": 5}})"));
}

} // namespace
