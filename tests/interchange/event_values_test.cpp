// What a source may hand over instead of values: tags with what lies behind them, pieces, integers as keys, aliases.

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/event.h>
#include <vexa/json_tree.h>

#include "support/given_events.h"
#include "support/problem_lines.h"

namespace {

using test::Event;
using test::Floating;
using test::Signed;
using test::Sized;
using test::Tag;
using test::Unsigned;
using vexa::CEvent;
using vexa::ValueTag;
using Kind = vexa::EventKind;
using Events = std::vector<CEvent>;

vexa::CFormatAbilities WithTags()
{
    vexa::CFormatAbilities abilities;
    abilities.HasTags = abilities.HasBytes = abilities.HasIntegerKeys = true;
    return abilities;
}

/// The value of the events as JSON, or the problem.
std::string Meaning(Events events, const vexa::CReadPolicy& policy = {})
{
    test::CGivenEvents source(std::move(events), WithTags());
    vexa::CJsonTree tree;
    vexa::CReport report;
    if (!tree.ReadFrom(source, report, policy)) return test::LinesOf(report);
    return tree.AsJson();
}

/// The value behind the tag.
std::string MeaningOf(ValueTag tag, Events events)
{
    events.insert(events.begin(), Tag(tag));
    return Meaning(std::move(events));
}

Events Array(Events events)
{
    events.insert(events.begin(), Event(Kind::BEGIN_ARRAY));
    events.push_back(Event(Kind::END_ARRAY));
    return events;
}

TEST(EventTags, MeanTheValueBehindThem)
{
    EXPECT_EQ(MeaningOf(ValueTag::TIME_TEXT, {Event(Kind::STRING, "x")}), "\"x\"");
    EXPECT_EQ(MeaningOf(ValueTag::INTEGER, {Event(Kind::BYTES, "")}), "0");
    EXPECT_EQ(MeaningOf(ValueTag::INTEGER, {Event(Kind::BYTES, {"\0\0\1\2", 4})}), "258");
    EXPECT_EQ(MeaningOf(ValueTag::NEGATIVE, {Event(Kind::BYTES, "\xff")}), "-256");
    EXPECT_EQ(MeaningOf(ValueTag::INTEGER, {Event(Kind::BYTES, {"\1\0\0\0\0\0\0\0\0", 9})}), "18446744073709551616");
    EXPECT_EQ(MeaningOf(ValueTag::NEGATIVE, {Event(Kind::BYTES, "\x7f\xff\xff\xff\xff\xff\xff\xff")}),
              "-9223372036854775808");
    EXPECT_EQ(MeaningOf(ValueTag::SECONDS, {Signed(0)}), "\"1970-01-01T00:00:00Z\"");
    EXPECT_EQ(MeaningOf(ValueTag::SECONDS, {Unsigned(Kind::NEGATIVE, 0)}), "\"1969-12-31T23:59:59Z\"");
    EXPECT_EQ(MeaningOf(ValueTag::SECONDS, {Unsigned(Kind::UNSIGNED, 253402300799)}), "\"9999-12-31T23:59:59Z\"");
    EXPECT_EQ(MeaningOf(ValueTag::SECONDS, {Signed(-62167219200)}), "\"0000-01-01T00:00:00Z\"");
    EXPECT_EQ(MeaningOf(ValueTag::SECONDS, {Floating(-0.25)}), "\"1969-12-31T23:59:59.75Z\"");
    EXPECT_EQ(MeaningOf(ValueTag::SECONDS, {Floating(0.9999999)}), "\"1970-01-01T00:00:01Z\""); // to the microsecond
    EXPECT_EQ(MeaningOf(ValueTag::DECIMAL, Array({Signed(-2), Signed(-150)})), "-1.50");
    EXPECT_EQ(MeaningOf(ValueTag::DECIMAL, Array({Signed(-3), Signed(5)})), "0.005");
    EXPECT_EQ(MeaningOf(ValueTag::DECIMAL, Array({Unsigned(Kind::UNSIGNED, 2), Signed(5)})), "5e2");
    EXPECT_EQ(MeaningOf(ValueTag::DECIMAL, Array({Unsigned(Kind::NEGATIVE, 0), Unsigned(Kind::NEGATIVE, 9)})), "-1.0");
    EXPECT_EQ(MeaningOf(ValueTag::DECIMAL, Array({Signed(0), Tag(ValueTag::INTEGER), Event(Kind::BYTES, "a")})), "97");
    EXPECT_EQ(Meaning({Unsigned(Kind::TAG, 55799), Tag(ValueTag::SECONDS), Unsigned(Kind::TAG, 5), Signed(1)}),
              "\"1970-01-01T00:00:01Z\""); // the last that means something
    EXPECT_EQ(Meaning({Unsigned(Kind::NEGATIVE, 4)}), "-5");
    EXPECT_EQ(Meaning({Unsigned(Kind::NEGATIVE, UINT64_MAX)}), "-18446744073709551616");
}

TEST(EventTags, AreAProblemWithItsPlaceWhereTheyDoNotFit)
{
    const std::string number = "expected=a number that is written as its tag says\n";
    const std::string seconds = "expected=the seconds of a time of the years 0 to 9999\n";
    EXPECT_EQ(MeaningOf(ValueTag::INTEGER, {Signed(1)}), "1 1+1 0:0 " + number);
    EXPECT_EQ(MeaningOf(ValueTag::INTEGER, {Event(Kind::BYTES, std::string(4154, '\1'))}),
              "4 1+1 0:0 expected=at most 4153 bytes\n");
    EXPECT_EQ(MeaningOf(ValueTag::DECIMAL, {Event(Kind::STRING, "1")}), "1 1+1 0:0 " + number);
    EXPECT_EQ(MeaningOf(ValueTag::DECIMAL, {Sized(Kind::BEGIN_ARRAY, 3)}), "1 1+1 0:0 " + number);
    EXPECT_EQ(MeaningOf(ValueTag::DECIMAL, Array({Floating(1), Signed(1)})), "1 2+1 0:0 expected=an exponent\n");
    EXPECT_EQ(MeaningOf(ValueTag::DECIMAL, Array({Unsigned(Kind::UNSIGNED, UINT64_MAX), Signed(1)})),
              "1 2+1 0:0 expected=an exponent\n");
    EXPECT_EQ(MeaningOf(ValueTag::DECIMAL, Array({Signed(1), Floating(1)})), "1 3+1 0:0 expected=an integer\n");
    EXPECT_EQ(MeaningOf(ValueTag::DECIMAL, Array({Signed(1), Signed(1), Signed(1)})),
              "1 4+1 0:0 expected=the end of an array\n");
    EXPECT_EQ(MeaningOf(ValueTag::SECONDS, {Event(Kind::STRING, "1")}), "4 1+1 0:0 " + seconds);
    EXPECT_EQ(MeaningOf(ValueTag::SECONDS, {Signed(253402300800)}), "4 1+1 0:0 " + seconds);
    EXPECT_EQ(MeaningOf(ValueTag::SECONDS, {Signed(-62167219201)}), "4 1+1 0:0 " + seconds);
    EXPECT_EQ(Meaning(Array({Tag(ValueTag::SECONDS)})), "1 2+1 0:0 expected=a value\n");
    EXPECT_EQ(Meaning({Tag(ValueTag::SECONDS)}), "1 1+1 0:0 expected=a value\n");
}

TEST(EventPieces, AreOneTextOrOneRowOfBytes)
{
    EXPECT_EQ(Meaning({Event(Kind::BEGIN_STRING), Event(Kind::STRING, "ab"), Event(Kind::STRING, ""),
                       Event(Kind::STRING, "c"), Event(Kind::END_PIECES)}),
              "\"abc\"");
    EXPECT_EQ(Meaning(Array({Event(Kind::BEGIN_STRING), Event(Kind::END_PIECES), Event(Kind::STRING, "x")})),
              "[\"\",\"x\"]");
    EXPECT_EQ(
        Meaning({Event(Kind::BEGIN_BYTES), Event(Kind::BYTES, "fo"), Event(Kind::BYTES, "o"), Event(Kind::END_PIECES)}),
        "\"Zm9v\"");
    EXPECT_EQ(MeaningOf(ValueTag::INTEGER, {Event(Kind::BEGIN_BYTES), Event(Kind::BYTES, "\1"),
                                            Event(Kind::BYTES, "\1"), Event(Kind::END_PIECES)}),
              "257");
    EXPECT_EQ(Meaning({Event(Kind::BEGIN_OBJECT), Event(Kind::BEGIN_STRING), Event(Kind::STRING, "k"),
                       Event(Kind::END_PIECES), Signed(1), Event(Kind::END_OBJECT)}),
              "{\"k\":1}");
    EXPECT_EQ(Meaning({Event(Kind::BEGIN_STRING), Event(Kind::BYTES, "a")}), "1 1+1 0:0 expected=a text\n");
    EXPECT_EQ(Meaning({Event(Kind::BEGIN_BYTES), Event(Kind::BEGIN_BYTES)}), "1 1+1 0:0 expected=a byte string\n");
    vexa::CReadPolicy policy;
    policy.MaxTextLength = 2;
    EXPECT_EQ(Meaning({Event(Kind::BEGIN_STRING), Event(Kind::STRING, "ab"), Event(Kind::STRING, "c"),
                       Event(Kind::END_PIECES)},
                      policy),
              "10 0+3 0:0 expected=at most 2 bytes\n"); // the end is not waited for
}

TEST(EventKeys, AreTextsAndIntegers)
{
    const auto object = [](const CEvent& key) {
        return Meaning({Event(Kind::BEGIN_OBJECT), key, Event(Kind::NULL_VALUE), Event(Kind::END_OBJECT)});
    };
    EXPECT_EQ(object(Event(Kind::KEY, "k")), "{\"k\":null}");
    EXPECT_EQ(object(Event(Kind::STRING, "k")), "{\"k\":null}");
    EXPECT_EQ(object(Signed(-7)), "{\"-7\":null}");
    EXPECT_EQ(object(Unsigned(Kind::UNSIGNED, UINT64_MAX)), "{\"18446744073709551615\":null}");
    EXPECT_EQ(object(Unsigned(Kind::NEGATIVE, UINT64_MAX)), "{\"-18446744073709551616\":null}");
    const std::string problem = "1 1+1 0:0 expected=a text or an integer as key\n";
    EXPECT_EQ(object(Floating(1)), problem);
    EXPECT_EQ(object(Event(Kind::BYTES, "k")), problem);
    EXPECT_EQ(object(Event(Kind::NULL_VALUE)), problem);
    EXPECT_EQ(object(Event(Kind::BEGIN_ARRAY)), problem);
}

CEvent Anchored(CEvent event, std::string_view anchor)
{
    event.Anchor = anchor;
    return event;
}

CEvent Alias(std::string_view anchor) { return Anchored(Event(Kind::ALIAS), anchor); }

TEST(EventAliases, AreTheValueOfTheirAnchorAgain)
{
    EXPECT_EQ(Meaning(Array({Anchored(Event(Kind::BEGIN_ARRAY), "a"), Anchored(Event(Kind::STRING, "x"), "b"),
                             Event(Kind::END_ARRAY), Alias("a"), Alias("b")})),
              "[[\"x\"],[\"x\"],\"x\"]");
    EXPECT_EQ(Meaning(Array({Anchored(Signed(1), "a"), Anchored(Signed(2), "a"), Alias("a")})), "[1,2,2]");
    EXPECT_EQ(Meaning({Event(Kind::BEGIN_OBJECT), Anchored(Event(Kind::KEY, "k"), "a"), Alias("a"), Alias("a"),
                       Signed(1), Event(Kind::END_OBJECT)}),
              "{\"k\":1}"); // the last of the two
    EXPECT_EQ(Meaning(Array({Alias("a")})), "1 1+1 0:0 expected=the alias of an anchor that ends before it\n");
    EXPECT_EQ(Meaning({Anchored(Event(Kind::BEGIN_ARRAY), "a"), Alias("a")}),
              "1 1+1 0:0 expected=the alias of an anchor that ends before it\n");
}

TEST(EventAliases, AmountToTheBoundAtMost)
{
    const Events events = Array({Anchored(Event(Kind::STRING, "12345678"), "a"), Alias("a"), Alias("a")});
    vexa::CReadPolicy policy;
    policy.MaxBytes = 6 + 2 * 16; // six events with the end, two of them repeated with 8 bytes beside those of the text
    EXPECT_EQ(Meaning(events, policy), "[\"12345678\",\"12345678\",\"12345678\"]");
    --policy.MaxBytes;
    EXPECT_EQ(Meaning(events, policy).substr(0, 10), "10 5+1 0:0");
    policy.MaxBytes = 2 + 16;
    EXPECT_EQ(Meaning(events, policy).substr(0, 10), "10 1+1 0:0"); // where what is repeated stands
}

} // namespace
