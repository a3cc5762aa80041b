// A text of one JSON value a line.

#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>

#include "support/json_texts.h"

namespace {

using vexa::CReport;

struct Line {
    int id = -1;
    std::string name = "none";
};
VEXA_DESCRIBE(Line, id, name)

/// What is handed over, and the places and codes of the problems.
std::string ReadLines(const vexa::InputFunction& input, const vexa::CReadPolicy& policy = {}, std::size_t most = 100)
{
    std::string text;
    CReport report;
    const std::function<bool(Line&)> take = [&](Line& line) {
        text += std::to_string(line.id) + line.name + ' ';
        return --most != 0;
    };
    const bool isGood = vexa::ReadJsonLines<Line>(input, take, report, policy);
    EXPECT_EQ(isGood, report.IsEmpty());
    for (const vexa::CProblem& problem : report.Problems())
        text += '[' + std::to_string(static_cast<int>(problem.Code)) + " at " + std::to_string(problem.Place.Offset) +
                ' ' + std::to_string(problem.Place.Line) + ':' + std::to_string(problem.Place.Column) + ' ' +
                problem.Path + ']';
    return text;
}

/// The same of a text that comes whole, in two pieces cut anywhere and byte by byte.
std::string ReadCut(const std::string& text, const vexa::CReadPolicy& policy = {})
{
    const std::string expected = ReadLines(vexa_test::InPieces({text}), policy);
    EXPECT_EQ(ReadLines(vexa_test::InPieces(vexa_test::ByteByByte(text)), policy), expected);
    for (std::size_t cut = 1; cut < text.size(); ++cut)
        EXPECT_EQ(ReadLines(vexa_test::InPieces({text.substr(0, cut), text.substr(cut)}), policy), expected) << cut;
    return expected;
}

TEST(JsonLines, EachLineIsReadIntoADefaultObject)
{
    EXPECT_EQ(ReadCut("{\"id\":1,\"name\":\"a\"}\n{\"id\":2}\n{}"), "1a 2none -1none ");
    EXPECT_EQ(ReadCut("{\"id\":1}\n"), "1none ");
}

TEST(JsonLines, EmptyLinesArePassedOverAndCarriageReturnsAreBlanks)
{
    EXPECT_EQ(ReadCut(""), "");
    EXPECT_EQ(ReadCut("\n\r\n  \n{\"id\":1}\r\n\r\n{\"id\":2}\r\n"), "1none 2none ");
}

TEST(JsonLines, ProblemsHaveThePlaceInTheWholeText)
{
    EXPECT_EQ(ReadCut("{\"id\":1}\n\n{\"id\":2,}\n{\"id\":\"x\"}\n{\"id\":4}"),
              "1none 4none [1 at 18 3:9 ][20 at 26 4:7 id]");
}

TEST(JsonLines, ALineIsOneTextForTheBounds)
{
    vexa::CReadPolicy policy;
    policy.MaxBytes = 9;
    EXPECT_EQ(ReadCut("{\"id\":10}\n{\"id\":200}\n{\"id\":3}", policy), "10none 3none [10 at 19 2:10 ]");
}

TEST(JsonLines, TheTakerEndsTheReading)
{
    EXPECT_EQ(ReadLines(vexa_test::InPieces({"{\"id\":1}\n{\"id\":2}\n{\"id\":3}\n"}), {}, 2), "1none 2none ");
}

TEST(JsonLines, AnExceptionOfTheCallbackIsAProblemButLackOfMemory)
{
    int calls = 0;
    EXPECT_EQ(ReadLines([&calls]() -> std::string_view {
                  if (calls++ != 0) throw std::runtime_error("gone");
                  return "{\"id\":1}\n{\"id\"";
              }),
              "1none [11 at 14 2:6 ]");
    EXPECT_THROW(ReadLines([]() -> std::string_view { throw std::bad_alloc(); }), std::bad_alloc);
}

/// Neither copied nor moved, and counted.
struct Resident {
    static inline int s_alive = 0;
    Resident() { ++s_alive; }
    Resident(const Resident&) = delete;
    Resident& operator=(const Resident&) = delete;
    ~Resident() { --s_alive; }

    int id = -1;
    const int kind = 3;
};
VEXA_DESCRIBE(Resident, id)

TEST(JsonLines, AnObjectNeedBeNeitherCopiedNorMoved)
{
    std::string text;
    CReport report;
    const std::function<bool(Resident&)> take = [&text](Resident& object) {
        text += std::to_string(object.id) + '/' + std::to_string(Resident::s_alive) + ' ';
        object.id = 7;
        return true;
    };
    EXPECT_TRUE(vexa::ReadJsonLines<Resident>(vexa_test::InPieces({"{\"id\":1}\n{}\n{\"id\":3}"}), take, report));
    EXPECT_EQ("1/1 -1/1 3/1 ", text);
    EXPECT_EQ(0, Resident::s_alive);
}

/// One line with more problems than the report takes is told like many lines.
TEST(JsonLines, ALineOfManyProblemsFillsNoMoreThanTheReport)
{
    std::string line = "[";
    for (int i = 0; i < 5000; ++i)
        line += "1,";
    CReport report(3);
    const std::function<bool(std::vector<std::string>&)> take = [](std::vector<std::string>&) { return true; };
    EXPECT_FALSE(vexa::ReadJsonLines<std::vector<std::string>>(vexa_test::InPieces({"\n" + line + "1]\n" + "[2]"}),
                                                               take, report));
    ASSERT_EQ(4U, report.Problems().size());
    EXPECT_EQ(2U, report.Problems()[2].Place.Line);
    EXPECT_EQ(6U, report.Problems()[2].Place.Offset);
    EXPECT_EQ(vexa::ProblemCode::MORE_PROBLEMS, report.Problems()[3].Code);
    EXPECT_EQ("4999", report.Problems()[3].Found);
}

} // namespace
