// JSON in pieces: the same events and problems as of the whole text, wherever it is cut, in little memory.

#include <new>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include <vexa/event.h>

#include "support/json_texts.h"

namespace {

using namespace vexa_test;
using vexa::CEvent;
using vexa::CProblem;
using vexa::CReadPolicy;
using vexa::EventKind;
using vexa::ProblemCode;

TEST(JsonPieces, TextsOfTheGrammarAreTheSameWhereverTheyAreCut)
{
    for (const std::string& text : AcceptedTexts())
        ASSERT_EQ(PiecesDifference(text), "");
}

TEST(JsonPieces, ProblemsAreTheSameWhereverTheTextIsCut)
{
    for (const RefusedText& refused : RefusedTexts()) {
        ASSERT_EQ(PiecesDifference(refused.Text), "");
        ASSERT_EQ(PiecesDifference("[\n" + refused.Text + "\n,"), "");
    }
}

TEST(JsonPieces, PoliciesHoldWhereverTheTextIsCut)
{
    CReadPolicy policy;
    policy.AllowComments = policy.AllowTrailingCommas = policy.AllowNan = true;
    policy.MaxTextLength = 12;
    policy.MaxDepth = 3;
    for (const vexa::BadText bad : {vexa::BadText::PROBLEM, vexa::BadText::REPLACE, vexa::BadText::LATIN_1}) {
        policy.Text = bad;
        for (const char* const text :
             {"//\n/**/[/*,*/1/***/,//]\n2,/* * / **/]// *", "{/* */\"a\"/**/:/**/NaN/**/,/**/}/**/",
              "[-Infinity,Infinity,]", "[1 /* 2]", "[1 / 2]", "[\"\x80\xC3\", \"a\xE2\x82\"]",
              "[\"\xF0\x9F\x98\", \"\xFF\"]", "[\"123456789012\"]", "[\"1234567890123\"]",
              "[\"\\n\\n\\n\\n\\n\\n\\n\\n\\n\\n\\n\xE9\"]", "[[[1]]]", "[[[{}]]]", "[nan]", "[-Inf]"})
            ASSERT_EQ(PiecesDifference(text, policy), "");
    }
}

TEST(JsonPieces, EmptyInputIsAnEmptyText) { EXPECT_EQ(EventsOf(*vexa::JsonEvents(InPieces({}))), EventsOf("")); }

TEST(JsonPieces, MoreBytesThanAllowedAreAProblemAtTheFirst)
{
    CReadPolicy policy;
    policy.MaxBytes = 6;
    const std::string expected = "0+1 [\n 0+1 at 1:1"
                                 "1+1 signed 1 of 1\n 1+1 at 1:2"
                                 "3+1 signed 2 of 2\n 3+1 at 1:4"
                                 "problem 10 expected at most 6 bytes found  6+0 at 1:7 18446744073709551615+0 at 0:0";
    const std::string text = "[1,2, 3,4]";
    for (std::size_t cut = 1; cut < text.size(); ++cut)
        EXPECT_EQ(EventsOf(*vexa::JsonEvents(InPieces({text.substr(0, cut), text.substr(cut)}), policy)), expected);
    EXPECT_EQ(EventsOf(*vexa::JsonEvents(InPieces({"[1,", "2] "}), policy)), EventsOf("[1,2] "));
}

TEST(JsonPieces, AnExceptionOfTheCallbackIsAProblem)
{
    int calls = 0;
    const auto source = vexa::JsonEvents([&calls]() -> std::string_view {
        if (calls++ != 0) throw std::runtime_error("the line is dead");
        return "[1,\n\"a";
    });
    EXPECT_EQ(EventsOf(*source),
              "0+1 [\n 0+1 at 1:1"
              "1+1 signed 1 of 1\n 1+1 at 1:2"
              "problem 11 expected  found the line is dead 6+0 at 2:3 18446744073709551615+0 at 0:0");
    CEvent event;
    CProblem problem;
    EXPECT_FALSE(source->Next(event, problem));
    EXPECT_EQ(calls, 2);
}

TEST(JsonPieces, LackOfMemoryInTheCallbackPassesThrough)
{
    const auto source = vexa::JsonEvents([]() -> std::string_view { throw std::bad_alloc(); });
    CEvent event;
    CProblem problem;
    EXPECT_THROW(source->Next(event, problem), std::bad_alloc);
}

/// Lines of an array without end, and how long they have been.
struct LongArray {
    std::string Piece = "[\n";
    std::size_t Lines = 0;
    std::size_t Limit;

    std::string_view operator()()
    {
        if (Lines == Limit) return {};
        if (Lines != 0)
            Piece = (Lines == 1 ? "" : ",\n") + std::string("  {\"key\": \"some text\", \"number\": 12345}");
        ++Lines;
        return Piece;
    }
};

TEST(JsonPieces, PlacesAreKnownAsFarAsStated)
{
    constexpr std::size_t LINES = 20000;
    LongArray lines;
    lines.Limit = LINES;
    const auto source = vexa::JsonEvents(std::ref(lines));
    CEvent event;
    CProblem problem;
    std::vector<std::size_t> starts;
    while (source->Next(event, problem)) {
        if (event.Kind == EventKind::BEGIN_OBJECT) starts.push_back(event.Offset);
    }
    EXPECT_EQ(problem.Code, ProblemCode::UNEXPECTED_END);
    const auto located = [&source](std::size_t offset) {
        vexa::CTextPlace place{offset, 1};
        source->Locate(place);
        return std::to_string(place.Line) + ':' + std::to_string(place.Column);
    };
    EXPECT_EQ(located(0), "1:1"); // the array is open
    EXPECT_EQ(located(starts[10]), "0:0");
    for (std::size_t back = 1; back <= 4000; ++back)
        ASSERT_EQ(located(starts[starts.size() - back]), std::to_string(starts.size() + 2 - back) + ":3");
}

} // namespace
