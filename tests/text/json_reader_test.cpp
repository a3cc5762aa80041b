#include <vexa/json.h>

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"
#include "support/described_class.h"
#include "support/text_model.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CRefrence;
using vexa::FromJson;
using vexa::RefOf;

struct Account {
    int id = 0;
    std::string name;
    bool open = false;
    vexa::MayNull<int> limit;
    vexa::MayNull<std::string> note;
    Address address;
    std::vector<int> tags;
    std::unique_ptr<Address> second;
};
VEXA_DESCRIBE(Account, id, name, open, limit, note, address, tags, second)

constexpr char WHOLE[] = R"({"id":7,"name":"Ann","open":true,"limit":-5,"note":"x","address":{"city":"Oslo"},)"
                         R"("tags":[1,2],"second":{"city":"Rome"}})";

// Objects

TEST(JsonReader, ReadsAnObjectOfEveryKindOfMember)
{
    Account account;
    EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(FromJson(account, WHOLE), 0); }), "");
    EXPECT_EQ(account.id, 7);
    EXPECT_EQ(account.name, "Ann");
    EXPECT_TRUE(account.open);
    EXPECT_EQ(account.limit, -5);
    EXPECT_EQ(account.note, std::string("x"));
    EXPECT_EQ(account.address.city, "Oslo");
    EXPECT_EQ(account.tags, (std::vector<int>{1, 2}));
    ASSERT_NE(account.second, nullptr);
    EXPECT_EQ(account.second->city, "Rome");
}

TEST(JsonReader, ReadsThroughAReference)
{
    Account account;
    CRefrence ref = RefOf(account);
    EXPECT_EQ(FromJson(ref, WHOLE), 0);
    EXPECT_EQ(Json(account), WHOLE);
}

TEST(JsonReader, TakesKeysInAnyOrder)
{
    Account account;
    EXPECT_EQ(FromJson(account,
                       R"({"tags":[1,2],"second":{"city":"Rome"},"note":"x","name":"Ann","open":true,"limit":-5,)"
                       R"("address":{"city":"Oslo"},"id":7})"),
              0);
    EXPECT_EQ(Json(account), WHOLE);
}

TEST(JsonReader, DropsWhatTheTargetHeld)
{
    Account account;
    ASSERT_EQ(FromJson(account, WHOLE), 0);
    EXPECT_EQ(FromJson(account, R"({"id":8})"), 0);
    EXPECT_EQ(Json(account), R"({"id":8,"name":"","open":false,"address":{"city":""},"tags":[]})");
}

TEST(JsonReader, OnlyClearsForATextWithoutAValue)
{
    for (const char* text : {"", " ", "\t\n\r ", "                                        "}) {
        Account account;
        ASSERT_EQ(FromJson(account, WHOLE), 0);
        EXPECT_EQ(FromJson(account, text), 0);
        EXPECT_EQ(Json(account), R"({"id":0,"name":"","open":false,"address":{"city":""},"tags":[]})");
    }
}

TEST(JsonReader, IgnoresWhatFollowsTheValue)
{
    Account account;
    EXPECT_EQ(FromJson(account, R"({"id":1,"open":true} trailing)"), 0);
    EXPECT_EQ(Json(account), R"({"id":1,"name":"","open":true,"address":{"city":""},"tags":[]})");
    std::vector<int> numbers;
    EXPECT_EQ(FromJson(numbers, "[1]]]"), 0);
    EXPECT_EQ(Json(numbers), "[1]");
}

TEST(JsonReader, ReadsARepeatedKeyAgain)
{
    Account account;
    EXPECT_EQ(FromJson(account, R"({"id":1,"id":2,"name":"a","name":"b","tags":[1],"tags":[2],"second":{"city":"c"},)"
                                R"("second":{"city":"d"},"limit":3,"limit":4})"),
              0);
    EXPECT_EQ(Json(account), R"({"id":2,"name":"ab","open":false,"limit":4,"address":{"city":""},"tags":[1,2],)"
                             R"("second":{"city":"cd"}})");
}

TEST(JsonReader, DoesNotInterpretEscapesInKeys)
{
    const DescribedClass described("Odd", 2 * sizeof(int), [](vexa::CClassInfor& about) {
        Add(about, "a\\nb", 0, Plain(DT_INT));
        Add(about, "\x01/\xC3", sizeof(int), Plain(DT_INT));
    });
    int numbers[2] = {};
    EXPECT_EQ(FromJson(CRefrence(Plain(DT_CLASS, &*described), numbers), "{\"a\\nb\":1,\"\x01/\xC3\":2}"), 0);
    EXPECT_EQ(numbers[0], 1);
    EXPECT_EQ(numbers[1], 2);
}

struct Wide {
    int a = 0, b = 0, c = 0, d = 0, e = 0, f = 0, g = 0;
};
VEXA_DESCRIBE(Wide, a, b, c, d, e, f, g)

TEST(JsonReader, FindsKeysWhereverTheyAreInTheClass)
{
    Wide wide;
    EXPECT_EQ(FromJson(wide, R"({"g":7,"a":1,"f":6,"b":2,"d":4,"c":3,"e":5})"), 0);
    EXPECT_EQ(Json(wide), R"({"a":1,"b":2,"c":3,"d":4,"e":5,"f":6,"g":7})");
}

struct Payment {
    short kind = 0;
    union {
        int code;
        long amount;
    };
    Payment() : code(0) {}
};
VEXA_DESCRIBE_CLASS(Payment)
{
    about.Attrib("kind", &Payment::kind);
    about.Attrib("code", &Payment::code).ActiveWhen("kind", 0);
    about.Attrib("amount", &Payment::amount).ActiveWhen("kind", 1);
}

TEST(JsonReader, ReadsAnyMemberOfAUnionByItsName)
{
    Payment payment;
    EXPECT_EQ(FromJson(payment, R"({"kind":1,"amount":123456789012})"), 0);
    EXPECT_EQ(payment.amount, 123456789012L);
    EXPECT_EQ(FromJson(payment, R"({"code":5,"kind":0})"), 0);
    EXPECT_EQ(Json(payment), R"({"kind":0,"code":5})");
}

TEST(JsonReader, DropsWhatAMayNullMemberHeldWhenItBecameNull)
{
    Account account;
    account.note = std::string("ab");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(FromJson(account, R"({"note":"cd"})"), 0);
        EXPECT_EQ(account.note, std::string("cd"));
    }
    EXPECT_EQ(FromJson(account, R"({"note":"ef","note":"gh"})"), 0);
    EXPECT_EQ(account.note, std::string("efgh")) << "a repeated key finds what is not null";
}

// Blanks

TEST(JsonReader, AllowsBlanksAroundEverything)
{
    Account account;
    const std::string blanks = " \t\r\n ";
    std::string text;
    for (const char* token :
         {"{",           "\"id\"", ":", "7",        ",", "\"tags\"", ":", "[", "1",        ",", "2",    "]", ",",
          "\"address\"", ":",      "{", "\"city\"", ":", "\"Oslo\"", "}", ",", "\"open\"", ":", "true", "}"}) {
        text += blanks + token;
    }
    EXPECT_EQ(FromJson(account, text + blanks), 0);
    EXPECT_EQ(Json(account), R"({"id":7,"name":"","open":true,"address":{"city":"Oslo"},"tags":[1,2]})");
    EXPECT_EQ(FromJson(account, R"({"tags":[ ]})"), 0);
}

TEST(JsonReader, KnowsFourBlanksAndNoMore)
{
    for (unsigned byte = 0; byte < 256; ++byte) {
        const auto character = static_cast<char>(byte);
        const bool isBlank = byte == 0x20 || byte == 0x09 || byte == 0x0A || byte == 0x0D;
        std::vector<std::string> texts;
        const int code = FromJson(texts, std::string("[") + character + "\"a\"]");
        if (isBlank) {
            EXPECT_EQ(code, 0) << byte;
            EXPECT_EQ(Json(texts), R"(["a"])");
        } else {
            EXPECT_EQ(code, character == ']' ? 0 : character == '"' ? 888 : 511) << byte;
        }
    }
}

} // namespace
