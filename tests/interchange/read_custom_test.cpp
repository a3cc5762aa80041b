#include <map>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

#include "support/problem_lines.h"

// Custom types are read as the value that lies in them, or by their converters, which may throw.

namespace converted {

struct Celsius {
    double degrees = 0;
};
VEXA_DESCRIBE_CUSTOM_STD(Celsius, &Celsius::degrees)

/// `5c` or a number of cents.
struct Money {
    long cents = 0;
    void ToValue(vexa::CValue& out) const
    {
        if (cents != 0) out = std::to_string(cents) + "c";
    }
    void FromValue(const vexa::CValue& in)
    {
        cents = -1; // a converter may fail half way
        const std::string text = in.IsNull() ? "0c" : in.As_std_string();
        if (text == "memory") throw std::bad_alloc();
        if (text == "number") throw 5;
        if (text == "silent") throw std::runtime_error("");
        std::size_t end = 0;
        const long read = std::stol(text, &end);
        if (end != text.size() && text.substr(end) != "c") throw std::runtime_error("no money");
        cents = read;
    }
};
VEXA_DESCRIBE_CUSTOM_ANY(Money, 3)

struct Shelf {
    Celsius cold;
    Money price{7};
    std::vector<Money> prices;
    std::optional<Money> maybe;
    std::unique_ptr<Money> owned;
    std::map<std::string, Money> named;
    vexa::MayNull<Celsius> warm;
};
VEXA_DESCRIBE(Shelf, cold, price, prices, maybe, owned, named, warm)

} // namespace converted

namespace {

using converted::Shelf;

std::string Read(Shelf& value, const std::string& text, const vexa::CReadPolicy& policy = {})
{
    return test::ProblemsOf(
        value, [&](Shelf& object, vexa::CReport& report) { return vexa::ReadJson(object, text, report, policy); });
}

TEST(ReadCustom, IsReadByItsValueOrConverter)
{
    constexpr char TEXT[] = R"({"cold":-1.5,"price":"5c","prices":["1c",null,"20c"],"maybe":"3c","owned":"4c",)"
                            R"("named":{"a":"6c"},"warm":null})";
    Shelf shelf;
    ASSERT_EQ("", Read(shelf, TEXT));
    EXPECT_EQ(TEXT, vexa::WriteJson(shelf));
    ASSERT_EQ("", Read(shelf, R"({"price": null, "prices": [12], "warm": 2, "maybe": null})"));
    EXPECT_EQ(R"({"cold":-1.5,"price":null,"prices":["12c"],"maybe":null,"owned":"4c","named":{"a":"6c"},"warm":2.0})",
              vexa::WriteJson(shelf));
}

TEST(ReadCustom, WhatAConverterThrowsIsAProblem)
{
    Shelf shelf;
    EXPECT_EQ("44 10+4 1:11 path=price pointer=/price class=converted::Shelf attrib=price found=no money "
              "excerpt={\"price\": \"5x\", \"prices\": [\"number\", \"5c\", \"silent\"]}\n"
              "44 27+8 1:28 path=prices[0] pointer=/prices/0 "
              "excerpt={\"price\": \"5x\", \"prices\": [\"number\", \"5c\", \"silent\"]}\n"
              "44 43+8 1:44 path=prices[2] pointer=/prices/2 "
              "excerpt={\"price\": \"5x\", \"prices\": [\"number\", \"5c\", \"silent\"]}\n",
              Read(shelf, R"({"price": "5x", "prices": ["number", "5c", "silent"]})"));
    EXPECT_EQ(3U, shelf.prices.size());
    EXPECT_EQ(5, shelf.prices[1].cents);
}

TEST(ReadCustom, TakesSingleValuesOnly)
{
    Shelf shelf;
    EXPECT_EQ("20 10+1 1:11 path=price pointer=/price class=converted::Shelf attrib=price expected=a single value "
              "found=an array excerpt={\"price\": [1], \"cold\": \"x\"}\n"
              "20 23+3 1:24 path=cold pointer=/cold class=converted::Shelf attrib=cold expected=a number "
              "found=a string excerpt={\"price\": [1], \"cold\": \"x\"}\n",
              Read(shelf, R"({"price": [1], "cold": "x"})"));
    EXPECT_EQ(7, shelf.price.cents);
}

TEST(ReadCustom, IsUndoneByItsConverters)
{
    vexa::CReadPolicy policy;
    policy.Transactional = true;
    Shelf shelf;
    ASSERT_EQ("", Read(shelf, R"({"cold": 1, "price": "5c", "prices": ["1c"], "maybe": "2c", "named": {"a": "3c"}})"));
    const std::string before = vexa::WriteJson(shelf);
    EXPECT_NE("", Read(shelf, R"({"cold": 9, "price": "9c", "prices": [], "maybe": "9c", "owned": "9c",
        "named": {"b": "9c"}, "warm": 9, "unknown": 1})",
                       policy));
    EXPECT_EQ(before, vexa::WriteJson(shelf));
    EXPECT_NE("", Read(shelf, R"({"price": "number"})", policy));
    EXPECT_EQ(before, vexa::WriteJson(shelf)) << "also what a converter has half done";
}

TEST(ReadCustom, LackOfMemoryGoesThroughAConverter)
{
    vexa::CReadPolicy policy;
    policy.Transactional = true;
    Shelf shelf;
    vexa::CReport report;
    EXPECT_THROW(vexa::ReadJson(shelf, R"({"cold": 9, "price": "memory"})", report, policy), std::bad_alloc);
    EXPECT_TRUE(report.IsEmpty());
    EXPECT_EQ(0, shelf.cold.degrees);
    EXPECT_EQ(7, shelf.price.cents);
    EXPECT_THROW(vexa::ReadJson(shelf, R"({"cold": 9, "prices": ["1c", "memory"]})", report), std::bad_alloc);
    EXPECT_EQ(9, shelf.cold.degrees);
}

} // namespace
