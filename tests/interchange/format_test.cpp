// What formats have in common.

#include <vexa/format.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "support/given_events.h"

namespace {

using test::Event;
using test::Sized;
using Kind = vexa::EventKind;

TEST(Nesting, TellsKeysAndEnds)
{
    vexa::CNesting nesting;
    EXPECT_EQ(nesting.EndKind(), Kind::END);
    EXPECT_FALSE(nesting.IsFull());
    nesting.Add(Sized(Kind::BEGIN_OBJECT, 1));
    EXPECT_TRUE(nesting.IsKeyDue());
    nesting.Add(Event(Kind::KEY));
    EXPECT_FALSE(nesting.IsKeyDue());
    EXPECT_TRUE(nesting.IsValueDue());
    EXPECT_FALSE(nesting.IsFull());
    nesting.Add(Event(Kind::BEGIN_ARRAY));
    EXPECT_EQ(nesting.EndKind(), Kind::END_ARRAY);
    EXPECT_FALSE(nesting.IsKeyDue() || nesting.IsValueDue() || nesting.IsFull());
    nesting.Add(Event(Kind::NULL_VALUE));
    nesting.Add(Event(Kind::END_ARRAY));
    EXPECT_EQ(nesting.EndKind(), Kind::END_OBJECT);
    EXPECT_TRUE(nesting.IsFull());
    nesting.Add(Event(Kind::END_OBJECT));
    EXPECT_EQ(nesting.EndKind(), Kind::END);
    EXPECT_TRUE(nesting.IsFull());
}

TEST(Nesting, TellsWhatMayEnd)
{
    vexa::CNesting nesting;
    EXPECT_FALSE(nesting.MayEnd()); // outside of all
    nesting.Add(Event(Kind::BEGIN_OBJECT));
    EXPECT_TRUE(nesting.MayEnd());
    nesting.Add(Event(Kind::KEY));
    EXPECT_FALSE(nesting.MayEnd());
    nesting.Add(Sized(Kind::BEGIN_ARRAY, 1));
    EXPECT_FALSE(nesting.MayEnd());
    nesting.Add(Event(Kind::BEGIN_STRING));
    EXPECT_EQ(nesting.EndKind(), Kind::END_PIECES);
    EXPECT_TRUE(nesting.MayEnd());
    nesting.Add(Event(Kind::STRING));
    nesting.Add(Event(Kind::END_PIECES));
    EXPECT_TRUE(nesting.IsFull());
    nesting.Add(Event(Kind::END_ARRAY));
    EXPECT_TRUE(nesting.MayEnd());
    nesting.Add(Event(Kind::TAG));
    EXPECT_FALSE(nesting.MayEnd());
    EXPECT_TRUE(nesting.IsKeyDue());
}

TEST(Sizes, TellEachLevelItsOwn)
{
    std::string out = "x";
    vexa::CSizes sizes;
    sizes.Begin(out);
    sizes.AddItem();
    sizes.Begin(out);
    EXPECT_EQ(out, std::string("x\0\0", 3));
    const auto inner = sizes.End();
    EXPECT_EQ(inner.Begin, 2U);
    EXPECT_EQ(inner.Items, 0U);
    sizes.AddItem();
    const auto outer = sizes.End();
    EXPECT_EQ(outer.Begin, 1U);
    EXPECT_EQ(outer.Items, 3U);
}

TEST(TextPlaces, AreThoseOfCharacters)
{
    const std::string text = "aé\n水😀b";
    vexa::CTextPlaces places(text);
    const std::size_t bytes[] = {0, 1, 3, 4, 7, 11, 12};
    const auto check = [&](std::size_t first, std::size_t end) {
        const vexa::CTextPlace place = places.OfCharacters(first, end);
        EXPECT_EQ(place.Offset, bytes[first]);
        EXPECT_EQ(place.Length, bytes[end] - bytes[first]);
    };
    for (std::size_t first = 0; first < 7; ++first) // in order, and back again
        for (std::size_t end = first; end < 7; ++end)
            check(first, end);
    EXPECT_EQ(places.OfCharacters(100, 200).Offset, text.size());
    vexa::CTextPlace place = places.OfCharacters(4, 5);
    places.Locate(place);
    EXPECT_EQ(place.Line, 2U);
    EXPECT_EQ(place.Column, 4U); // in bytes
}

/// The kind of a word, and its value.
std::string Plain(std::string_view text)
{
    vexa::CEvent event;
    std::string memory;
    vexa::SetPlain(event, text, memory);
    switch (event.Kind) {
    case Kind::NULL_VALUE: return "null";
    case Kind::BOOL: return event.Bool ? "true" : "false";
    case Kind::SIGNED: return "s" + std::to_string(event.Signed) + " " + std::string(event.Text);
    case Kind::UNSIGNED: return "u" + std::to_string(event.Unsigned) + " " + std::string(event.Text);
    case Kind::FLOATING: return "f" + vexa::PlainNumber(event.Floating) + " " + std::string(event.Text);
    case Kind::STRING: return "'" + std::string(event.Text) + "'";
    default: return "another kind";
    }
}

TEST(PlainWords, MeanWhatTheCoreSchemaSays)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", "null"},
        {"~", "null"},
        {"Null", "null"},
        {"nULL", "'nULL'"},
        {"True", "true"},
        {"FALSE", "false"},
        {"yes", "'yes'"},
        {"7", "s7 7"},
        {"+7", "s7 7"},
        {"007", "s7 7"},
        {"-0", "f-0.0 -0"},
        {"18446744073709551615", "u18446744073709551615 18446744073709551615"},
        {"-9223372036854775809", "f-9223372036854775808.0 -9223372036854775809"},
        {"0x1f", "s31 31"},
        {"0o17", "s15 15"},
        {"0x", "'0x'"},
        {"-0x1", "'-0x1'"},
        {"0o8", "'0o8'"},
        {".5", "f0.5 0.5"},
        {"5.", "f5.0 5.0"},
        {"-.5e1", "f-5.0 -0.5e1"},
        {"1e3", "f1000.0 1e3"},
        {".", "'.'"},
        {"1.e", "'1.e'"},
        {"1_000", "'1_000'"},
        {"-", "'-'"},
        {"+", "'+'"},
        {".inf", "f.inf "},
        {"-.Inf", "f-.inf "},
        {"+.INF", "f.inf "},
        {".nan", "f.nan "},
        {"-.nan", "'-.nan'"},
        {"inf", "'inf'"},
    };
    for (const auto& [text, meaning] : cases)
        EXPECT_EQ(Plain(text), meaning) << text;
}

TEST(PlainWords, MayBeTextsOnlyIfTheyMeanNothingElse)
{
    for (const char* const text : {"a", "two words", "a.b/c-d_e 9", "nulls", "yess", "_", "ofF2"})
        EXPECT_TRUE(vexa::IsPlainText(text)) << text;
    for (const char* const text : {"",   " a",  "a ", "5", "-a",  ".a",  "/a",  "null", "NULL", "True",  "yes", "No",
                                   "on", "OFF", "y",  "N", "a:b", "a#b", "a,b", "é",    "a\n",  "a\xff", "~"})
        EXPECT_FALSE(vexa::IsPlainText(text)) << text;
}

TEST(PlainNumbers, AreShortestAndNeverIntegers)
{
    EXPECT_EQ(vexa::PlainNumber(0.1), "0.1");
    EXPECT_EQ(vexa::PlainNumber(0.1F), "0.1");
    EXPECT_EQ(vexa::PlainNumber(2.0), "2.0");
    EXPECT_EQ(vexa::PlainNumber(-0.0), "-0.0");
    EXPECT_EQ(vexa::PlainNumber(1e21), "1e+21");
    EXPECT_EQ(vexa::PlainNumber(-std::numeric_limits<double>::infinity()), "-.inf");
    EXPECT_EQ(vexa::PlainNumber(std::numeric_limits<float>::quiet_NaN()), ".nan");
}

std::uint64_t BitsOf(const std::string& bytes)
{
    std::uint64_t bits = 0;
    for (const char byte : bytes)
        bits = bits << 8U | static_cast<unsigned char>(byte);
    return bits;
}

/// The value of 16 bits, by the definition.
double HalfOf(unsigned int bits)
{
    const int exponent = static_cast<int>(bits >> 10U & 0x1FU);
    const unsigned int digits = bits & 0x3FFU;
    const double magnitude = exponent == 31  ? digits == 0 ? std::numeric_limits<double>::infinity() : std::nan("")
                              : exponent == 0 ? std::ldexp(digits, -24)
                                             : std::ldexp(digits + 1024, exponent - 25);
    return (bits & 0x8000U) != 0 ? -magnitude : magnitude;
}

TEST(FloatingBytes, AreTheFewestThatHoldTheValue)
{
    for (unsigned int bits = 0; bits < 0x10000; ++bits) {
        const double value = HalfOf(bits);
        const std::string bytes = vexa::FloatingBytes(value);
        ASSERT_EQ(bytes.size(), 2U);
        ASSERT_EQ(BitsOf(bytes), std::isnan(value) ? 0x7E00 : bits);
        if (!std::isfinite(value) || value == 0) continue;
        const float next = std::nextafter(static_cast<float>(value), 1e9F); // needs more digits
        const std::string single = vexa::FloatingBytes(next);
        ASSERT_EQ(single.size(), 4U) << next;
        std::uint32_t word = 0;
        std::memcpy(&word, &next, sizeof word);
        ASSERT_EQ(BitsOf(single), word);
        const double last = std::nextafter(value, 0.0);
        std::uint64_t all = 0;
        std::memcpy(&all, &last, sizeof all);
        ASSERT_EQ(vexa::FloatingBytes(last).size(), 8U) << last;
        ASSERT_EQ(BitsOf(vexa::FloatingBytes(last)), all);
    }
    EXPECT_EQ(vexa::FloatingBytes(65536).size(), 4U);
    EXPECT_EQ(vexa::FloatingBytes(1e300).size(), 8U);
    EXPECT_EQ(vexa::FloatingBytes(5e-324).size(), 8U);
    EXPECT_EQ(vexa::FloatingBytes(static_cast<double>(std::numeric_limits<float>::denorm_min())).size(), 4U);
}

} // namespace
