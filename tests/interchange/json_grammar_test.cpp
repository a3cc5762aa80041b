// The grammar of RFC 8259: what is accepted, what is refused and what is said of it, and the policy's exceptions.

#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <vexa/event.h>

#include "support/json_texts.h"

namespace {

using namespace vexa_test;
using vexa::CReadPolicy;
using vexa::ProblemCode;

/// The problem of a text, which has one.
vexa::CProblem ProblemOf(std::string_view text, const CReadPolicy& policy = {})
{
    const std::vector<char> exact(text.begin(), text.end());
    const auto source = vexa::JsonEvents(std::string_view(exact.data(), exact.size()), policy);
    vexa::CProblem problem;
    vexa::CEvent event;
    while (source->Next(event, problem)) {
        if (event.Kind == vexa::EventKind::END) return problem;
    }
    EXPECT_NE(problem.Code, ProblemCode::NONE);
    return problem;
}
bool IsAccepted(std::string_view text, const CReadPolicy& policy = {})
{
    return ProblemOf(text, policy).Code == ProblemCode::NONE;
}
std::string Described(const vexa::CProblem& problem)
{
    return std::to_string(static_cast<int>(problem.Code)) + ' ' + std::to_string(problem.Place.Offset) + '+' +
           std::to_string(problem.Place.Length) + " expected " + problem.Expected + " found " + problem.Found;
}

TEST(JsonGrammar, TextsOfTheGrammarAreAccepted)
{
    for (const std::string& text : AcceptedTexts()) {
        EXPECT_EQ(Described(ProblemOf(text)), "0 18446744073709551615+0 expected  found ") << text;
        EXPECT_TRUE(nlohmann::json::accept(text) || text == "1e400") << text;
    }
}

TEST(JsonGrammar, OtherTextsAreRefusedWithThePlaceAndTheReason)
{
    for (const RefusedText& refused : RefusedTexts()) {
        vexa::CProblem expected;
        expected.Code = refused.Code;
        expected.Place = {refused.Offset, refused.Length};
        expected.Expected = refused.Expected;
        expected.Found = refused.Found;
        EXPECT_EQ(Described(ProblemOf(refused.Text)), Described(expected)) << refused.Text;
    }
}

TEST(JsonGrammar, EveryBeginningOfATextThatIsNoNumberIsRefused)
{
    for (const std::string& text : AcceptedTexts()) {
        if (text[0] != '[' && text[0] != '{' && text[0] != '"') continue;
        for (std::size_t length = 0; length < text.size(); ++length)
            EXPECT_FALSE(IsAccepted(text.substr(0, length))) << text.substr(0, length);
    }
}

TEST(JsonGrammar, AStringThatIsNotClosedTellsWhereItStarts)
{
    const vexa::CProblem problem = ProblemOf("[1, \"abc");
    EXPECT_EQ(problem.Place.Offset, 8U);
    EXPECT_EQ(problem.Second.Offset, 4U);
}

TEST(JsonGrammar, EventsTellValuesAndPlaces)
{
    EXPECT_EQ(EventsOf("{\"a\\n\" :\n [-1, 2.5,\"x\\u00e9\",true]}"), "0+1 {\n 0+1 at 1:1"
                                                                      "1+5 key 2 a\n\n 1+5 at 1:2"
                                                                      "10+1 [\n 10+1 at 2:2"
                                                                      "11+2 signed -1 of -1\n 11+2 at 2:3"
                                                                      "15+3 floating 2.5 of 2.5\n 15+3 at 2:7"
                                                                      "19+9 string 3 x\xC3\xA9\n 19+9 at 2:11"
                                                                      "29+4 true\n 29+4 at 2:21"
                                                                      "33+1 ]\n 33+1 at 2:25"
                                                                      "34+1 }\n 34+1 at 2:26"
                                                                      "35+0 end\n 35+0 at 2:27");
}

TEST(JsonGrammar, CommentsAreBlanksIfAllowed)
{
    CReadPolicy policy;
    policy.AllowComments = true;
    EXPECT_EQ(EventsOf("//\n/**/[/*,*/1/***/,//]\n2]// *", policy), "7+1 [\n 7+1 at 2:5"
                                                                    "13+1 signed 1 of 1\n 13+1 at 2:11"
                                                                    "24+1 signed 2 of 2\n 24+1 at 3:1"
                                                                    "25+1 ]\n 25+1 at 3:2"
                                                                    "26+0 end\n 26+0 at 3:3");
    EXPECT_TRUE(IsAccepted("{/**/\"a\"/* \" */://x\n1 /*/*/}", policy));
    EXPECT_EQ(Described(ProblemOf("[1 /* 2]", policy)), "2 8+0 expected '*/' found ");
    EXPECT_EQ(Described(ProblemOf("[1 / 2]", policy)), "1 3+1 expected ',' or ']' found '/'");
    EXPECT_EQ(Described(ProblemOf("/*/1", policy)), "2 4+0 expected '*/' found ");
    EXPECT_EQ(Described(ProblemOf("//1", policy)), "2 3+0 expected a value found ");
}

TEST(JsonGrammar, TrailingCommasAreIgnoredIfAllowed)
{
    CReadPolicy policy;
    policy.AllowTrailingCommas = true;
    EXPECT_TRUE(IsAccepted("[1,]", policy));
    EXPECT_TRUE(IsAccepted("{\"a\":[[1 , ] , ] , }", policy));
    EXPECT_EQ(Described(ProblemOf("[,]", policy)), "1 1+1 expected a value found ','");
    EXPECT_EQ(Described(ProblemOf("{,}", policy)), "1 1+1 expected a key or '}' found ','");
    EXPECT_EQ(Described(ProblemOf("[1,,]", policy)), "1 3+1 expected a value found ','");
    EXPECT_EQ(Described(ProblemOf("[1,", policy)), "2 3+0 expected a value or ']' found ");
}

TEST(JsonGrammar, NanAndTheInfinitiesAreNumbersIfAllowed)
{
    CReadPolicy policy;
    policy.AllowNan = true;
    EXPECT_EQ(EventsOf("[NaN,Infinity,-Infinity]", policy), "0+1 [\n 0+1 at 1:1"
                                                            "1+3 floating nan of \n 1+3 at 1:2"
                                                            "5+8 floating inf of \n 5+8 at 1:6"
                                                            "14+9 floating -inf of \n 14+9 at 1:15"
                                                            "23+1 ]\n 23+1 at 1:24"
                                                            "24+0 end\n 24+0 at 1:25");
    EXPECT_EQ(Described(ProblemOf("-NaN", policy)), "4 0+4 expected  found '-NaN'");
    EXPECT_EQ(Described(ProblemOf("Nan", policy)), "1 0+3 expected a value found 'Nan'");
}

TEST(JsonGrammar, DepthIsBounded)
{
    CReadPolicy policy;
    policy.MaxDepth = 3;
    EXPECT_TRUE(IsAccepted("[{\"a\":[]},[[]]]", policy));
    EXPECT_EQ(Described(ProblemOf("[{\"a\":[{}]}]", policy)), "9 7+1 expected at most 3 levels found ");
    EXPECT_TRUE(IsAccepted(std::string(1000, '[') + std::string(1000, ']')));
    EXPECT_EQ(Described(ProblemOf(std::string(1001, '['))), "9 1000+1 expected at most 1000 levels found ");
}

TEST(JsonGrammar, BytesAndTextsAreBounded)
{
    CReadPolicy policy;
    policy.MaxTextLength = 3;
    EXPECT_TRUE(IsAccepted(R"(["abc","\u00e9\n","\n\n\n",""])", policy));
    EXPECT_EQ(Described(ProblemOf(R"(["abcd"])", policy)), "10 1+1 expected at most 3 bytes found ");
    EXPECT_EQ(Described(ProblemOf(R"(["\ud83d\ude00"])", policy)), "10 1+1 expected at most 3 bytes found ");
    EXPECT_EQ(Described(ProblemOf(R"({"abcd":1})", policy)), "10 1+1 expected at most 3 bytes found ");
    policy = {};
    policy.MaxBytes = 5;
    EXPECT_TRUE(IsAccepted("[1,2]", policy));
    EXPECT_EQ(Described(ProblemOf("[1,2] ", policy)), "10 5+0 expected at most 5 bytes found ");
}

/// Random texts of pieces that the grammar is made of, and texts of the tables with some bytes changed.
class Mutations {
public:
    explicit Mutations(unsigned seed) : m_random(seed) {}

    std::string Text()
    {
        if (Below(2) == 0) return Pieces();
        std::string text = m_texts[Below(m_texts.size())];
        for (std::size_t changes = 1 + Below(3); changes > 0; --changes)
            Change(text);
        return text;
    }

private:
    std::size_t Below(std::size_t count) { return m_random() % count; }
    std::string Piece()
    {
        static const std::vector<std::string> PIECES = {"{",
                                                        "}",
                                                        "[",
                                                        "]",
                                                        ",",
                                                        ":",
                                                        "\"",
                                                        "\"a\"",
                                                        "\"key\":",
                                                        "1",
                                                        "0",
                                                        "-",
                                                        "1.5",
                                                        "e5",
                                                        "E",
                                                        "+",
                                                        ".",
                                                        "true",
                                                        "false",
                                                        "null",
                                                        " ",
                                                        "\n",
                                                        "\\u00e9",
                                                        "\\ud83d\\ude00",
                                                        "\\n",
                                                        "\\",
                                                        "\xC3\xA9",
                                                        "\xE2\x82\xAC",
                                                        "\xF0\x9F\x98\x80",
                                                        "\x80",
                                                        "\xFF",
                                                        "tru",
                                                        "a long run of plain text",
                                                        "12345678901234567890",
                                                        "/",
                                                        "\xED"};
        return PIECES[Below(PIECES.size())];
    }
    std::string Pieces()
    {
        std::string text;
        for (std::size_t count = Below(8); count > 0; --count)
            text += Piece();
        return text;
    }
    void Change(std::string& text)
    {
        const std::size_t at = Below(text.size() + 1);
        switch (Below(4)) {
        case 0: text.erase(at, 1 + Below(3)); break;
        case 1: text.insert(at, Piece()); break;
        case 2:
            if (at < text.size()) text[at] = static_cast<char>(Below(256));
            break;
        default: text = text.substr(0, at) + text.substr(Below(text.size() + 1));
        }
    }

    std::mt19937 m_random;
    std::vector<std::string> m_texts = AcceptedTexts();
};

/// Where the independent parser is known to judge otherwise: a zero byte ends its text, a byte order mark is skipped,
/// and a number beyond a double's range, which takes an exponent of at least three digits or hundreds of digits in a
/// row, is refused.
bool IsJudgedOtherwise(const std::string& text)
{
    std::size_t longest = 0;
    std::size_t digits = 0;
    for (const char byte : text) {
        digits = byte >= '0' && byte <= '9' ? digits + 1 : 0;
        longest = std::max(longest, digits);
    }
    if (longest > 300) return true;
    const std::size_t exponent = text.find_first_of("eE");
    const bool isHuge = exponent != text.npos && text.find_first_of("0123456789", exponent) != text.npos &&
                        text.find_first_not_of("+0123456789", exponent + 1) >= exponent + 4;
    return text.find('\0') != text.npos || text.substr(0, 1) == "\xEF" || isHuge;
}

TEST(JsonGrammar, AgreesWithAnIndependentParserOnRandomTexts)
{
    const unsigned seed = std::random_device()();
    Mutations mutations(seed);
    std::size_t accepted = 0;
    for (int i = 0; i < 300000; ++i) {
        const std::string text = mutations.Text();
        const bool isAccepted = IsAccepted(text);
        accepted += isAccepted ? 1 : 0;
        if (isAccepted == nlohmann::json::accept(text) || IsJudgedOtherwise(text)) continue;
        FAIL() << "seed " << seed << ": " << (isAccepted ? "accepted " : "refused ") << text;
    }
    EXPECT_GT(accepted, 10000U);
}

} // namespace
