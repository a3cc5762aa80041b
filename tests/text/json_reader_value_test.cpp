// Reading numbers and truth values, and values in each of their holding forms.

#include <vexa/json.h>

#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"
#include "support/text_model.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CRefrence;
using vexa::FromJson;

// Numbers and truth values

template<class T>
void ExpectReads(const std::string& text, T expected)
{
    T target = static_cast<T>(77);
    EXPECT_EQ(FromJson(target, text), 0) << text;
    EXPECT_EQ(target, expected) << text;
}

TEST(JsonReaderValue, ReadsDecimalDigitsIntoEveryNumber)
{
    ExpectReads<char>("200", static_cast<char>(200));
    ExpectReads<unsigned char>("255", 255);
    ExpectReads<short>("-32768", -32768);
    ExpectReads<unsigned short>("65535", 65535);
    ExpectReads<int>("-2147483648", std::numeric_limits<int>::min());
    ExpectReads<unsigned int>("4294967295", 4294967295U);
    ExpectReads<long>("-9223372036854775808", std::numeric_limits<long>::min());
    ExpectReads<unsigned long>("18446744073709551615", 18446744073709551615UL);
    ExpectReads<long long>("9223372036854775807", 9223372036854775807LL);
    ExpectReads<unsigned long long>("18446744073709551615", 18446744073709551615ULL);
    ExpectReads<float>("-12", -12.0F);
    ExpectReads<double>("9007199254740993", 9007199254740992.0);
    ExpectReads<long double>("9223372036854775807", 9223372036854775807.0L);
}

/// Digit by digit, modulo 2 to the 64.
unsigned long SumOf(const std::string& digits)
{
    unsigned long sum = 0;
    for (const char digit : digits)
        sum = sum * 10 + static_cast<unsigned long>(digit - '0');
    return sum;
}

TEST(JsonReaderValue, ReadsNumbersOfAnyLengthBeforeAnyByte)
{
    std::mt19937_64 engine(11);
    for (int round = 0; round < 20000; ++round) {
        std::string digits(engine() % 28, '0');
        for (char& digit : digits)
            digit = static_cast<char>('0' + engine() % 10);
        std::string behind(engine() % 12, '\0');
        for (char& byte : behind)
            byte = static_cast<char>(engine());
        if (!behind.empty() && behind[0] >= '0' && behind[0] <= '9') behind[0] = ':';
        const bool isNegative = round % 2 == 0;
        unsigned long number = 1;
        ASSERT_EQ(FromJson(number, " " + std::string(isNegative ? "-" : "") + digits + behind), 0);
        ASSERT_EQ(number, isNegative ? 0 - SumOf(digits) : SumOf(digits)) << digits << '|' << behind;
        std::vector<unsigned long> numbers;
        ASSERT_EQ(FromJson(numbers, "[" + digits + ",7]"), 0);
        ASSERT_EQ(numbers, (std::vector<unsigned long>{SumOf(digits), 7})) << digits;
    }
}

TEST(JsonReaderValue, NarrowsNumbersWithoutARangeCheck)
{
    ExpectReads<unsigned int>("-12", 4294967284U);
    ExpectReads<unsigned char>("300", 44);
    ExpectReads<char>("65", 'A');
    ExpectReads<short>("65536", 0);
    ExpectReads<int>("4294967295", -1);
}

TEST(JsonReaderValue, WrapsNumbersOfMoreThanSixtyFourBits)
{
    ExpectReads<unsigned long>("18446744073709551616", 0UL);
    ExpectReads<unsigned long>("18446744073709551623", 7UL);
    ExpectReads<long>("-18446744073709551615", 1L);
    ExpectReads<long>("9223372036854775808", std::numeric_limits<long>::min());
}

TEST(JsonReaderValue, ReadsNothingButASignAndDigitsFromANumber)
{
    ExpectReads<int>("007", 7);
    ExpectReads<int>("1.5", 1);
    ExpectReads<double>("1.5", 1.0);
    ExpectReads<double>("2e3", 2.0);
    ExpectReads<int>("12x", 12);
}

TEST(JsonReaderValue, StoresZeroWhereNoDigitFollows)
{
    for (const char* text : {"-", "--5", "+5", "abc", "null", ".5", "\"5\"", "[", "- 5"})
        ExpectReads<int>(text, 0);
    ExpectReads<double>("nan", 0.0);
    vexa::MayNull<int> wrapped;
    EXPECT_EQ(FromJson(wrapped, "null"), 0);
    EXPECT_EQ(wrapped, 0) << "and the value is not null";
    std::vector<int> numbers;
    EXPECT_EQ(FromJson(numbers, "[,-,]"), 0);
    EXPECT_EQ(Json(numbers), "[0,0,0]");
}

TEST(JsonReaderValue, ReadsTheTwoTruthValues)
{
    ExpectReads<bool>("true", true);
    ExpectReads<bool>("false", false);
    ExpectReads<bool>("truex", true);
    ExpectReads<bool>("falsetrue", false);
    vexa::MayNull<bool> wrapped;
    EXPECT_EQ(FromJson(wrapped, " false"), 0);
    EXPECT_EQ(wrapped, false);
}

TEST(JsonReaderValue, LogsANumberForABasicCodeWithoutAType)
{
    char something = 1;
    EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(FromJson(CRefrence(Plain(20), &something), "5"), 0); }),
              "long long type CStdBasicTypeRefrence can not be converted to unkown type\n");
    EXPECT_EQ(something, 1);
}

// How values are held

TEST(JsonReaderValue, MakesAndReplacesWhatPointersOwn)
{
    auto number = std::make_unique<int>(1);
    EXPECT_EQ(FromJson(number, "5"), 0);
    EXPECT_EQ(Json(number), "5");
    std::unique_ptr<std::string> text;
    EXPECT_EQ(FromJson(text, R"("a")"), 0);
    EXPECT_EQ(Json(text), R"("a")");
    auto list = std::make_unique<std::vector<int>>(3, 9);
    EXPECT_EQ(FromJson(list, "[1]"), 0);
    EXPECT_EQ(Json(list), "[1]") << "a new list, with nothing of the old one";
    vexa::NonNullPointer<Address> address(Address{"Oslo"});
    EXPECT_EQ(FromJson(address, R"({"city":"Rome"})"), 0);
    EXPECT_EQ(address->city, "Rome");
}

TEST(JsonReaderValue, LeavesAClearedPointerNullWhereNothingIsRead)
{
    auto address = std::make_unique<Address>(Address{"Oslo"});
    EXPECT_EQ(FromJson(address, " "), 0);
    EXPECT_EQ(address, nullptr);
    address = std::make_unique<Address>();
    EXPECT_EQ(FromJson(address, "x"), 663);
    EXPECT_EQ(address, nullptr);
    EXPECT_EQ(FromJson(address, "{"), 725);
    EXPECT_NE(address, nullptr) << "the brace was enough";
}

TEST(JsonReaderValue, DropsWhatAMayNullHeldWhenItBecameNull)
{
    vexa::MayNull<std::string> text(std::string("ab"));
    vexa::MayNull<std::vector<int>> numbers(std::vector<int>{1});
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(FromJson(text, R"("cd")"), 0);
        EXPECT_EQ(text, std::string("cd"));
        EXPECT_EQ(FromJson(numbers, "[2]"), 0);
        EXPECT_EQ(numbers, (std::vector<int>{2}));
    }
}

TEST(JsonReaderValue, ConsumesNothingForAReferenceThatDesignatesNothing)
{
    EXPECT_EQ(LoggedLines([] {
                  EXPECT_EQ(FromJson(CRefrence(Plain(DT_INT), nullptr), "x"), 0);
                  EXPECT_EQ(FromJson(CRefrence(vexa::TypeInforOf<Address>(), nullptr), "x"), 0);
                  EXPECT_EQ(FromJson(CRefrence(vexa::TypeInforOf<std::unique_ptr<Address>>(), nullptr), "x"), 0);
              }),
              "");
}

TEST(JsonReaderValue, StoresNothingBehindANullPointerThatStaysNull)
{
    void* nowhere = nullptr;
    const auto read = [&](const vexa::CGnlTypeInfor& type, const char* text) {
        return FromJson(CRefrence(type, &nowhere), text);
    };
    const vexa::CGnlTypeInfor number(DT_INT, HF_POINTER);
    EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(read(number, "5"), 0); }),
              "long long type CStdBasicTypeRefrence can not be converted to int*\n");
    EXPECT_NE(
        read(vexa::CGnlTypeInfor(DT_CLASS, HF_POINTER, vexa::TypeInforOf<Address>().DetailInfor), R"({"city":"x"})"),
        0);
    EXPECT_NE(
        read(vexa::CGnlTypeInfor(DT_SEQUENCE_A, HF_POINTER, vexa::TypeInforOf<std::vector<int>>().DetailInfor), "[1]"),
        0);
    EXPECT_EQ(nowhere, nullptr);
}

} // namespace
