#include <vexa/report.h>

#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;
using vexa::CProblem;
using vexa::CReport;
using vexa::CTextPlace;
using vexa::ExcerptForm;
using vexa::ProblemCode;

/// The place of the first \p token in a text, by counting.
CTextPlace PlaceOf(const std::string& text, const std::string& token)
{
    CTextPlace place;
    place.Offset = text.find(token);
    place.Length = token.size();
    place.Line = 1;
    place.Column = 1;
    for (std::size_t i = 0; i < place.Offset; ++i) {
        ++place.Column;
        if (text[i] == '\n') {
            ++place.Line;
            place.Column = 1;
        }
    }
    return place;
}

CProblem Problem(ProblemCode code, const CTextPlace& place = {})
{
    CProblem problem;
    problem.Code = code;
    problem.Place = place;
    return problem;
}

/// One problem at a token, without a name of the text.
std::string Reported(const std::string& text, const std::string& token, ExcerptForm form = ExcerptForm::LINE)
{
    CProblem problem = Problem(ProblemCode::BAD_NUMBER, PlaceOf(text, token));
    problem.Shown = form;
    CReport report;
    report.Add(std::move(problem));
    return report.AsString(text);
}

std::string Blanks(std::size_t count) { return std::string(count, ' '); }

const std::string SENTENCE = "this is not how a number is written\n";

// Sentences.

struct CSentence {
    ProblemCode Code;
    const char* Bare; ///< of the code alone
    const char* Full; ///< with every parameter
};

constexpr CSentence SENTENCES[] = {
    {ProblemCode::NONE, "no problem", "no problem: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::SYNTAX, "broken grammar", "expected E, found F; did you mean \"N\"?"},
    {ProblemCode::UNEXPECTED_END, "the text ends too early",
     "the text ends too early: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::TEXT_AFTER_VALUE, "something follows the value",
     "something follows the value: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::BAD_NUMBER, "this is not how a number is written",
     "this is not how a number is written: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::BAD_ESCAPE, "there is no such escape",
     "there is no such escape: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::LONE_SURROGATE, "half of a surrogate pair",
     "half of a surrogate pair: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::CONTROL_CHARACTER, "a control character must be escaped",
     "a control character must be escaped: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::BAD_UTF8, "this is not UTF-8", "this is not UTF-8: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::TOO_DEEP, "nested too deeply", "nested too deeply: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::TOO_LONG, "longer than allowed", "longer than allowed: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::INPUT_FAILED, "the input has failed", "the input has failed: expected E, F; did you mean \"N\"?"},
    {ProblemCode::WRONG_KIND, "a value of another kind", "expected E, found F; did you mean \"N\"?"},
    {ProblemCode::OUT_OF_RANGE, "the number does not fit",
     "the number does not fit: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::NOT_AN_INTEGER, "the number is not an integer",
     "the number is not an integer: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::BAD_TEXT, "the text is not of the right form",
     "the text is not of the right form: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::UNKNOWN_KEY, "there is no such attribute",
     "C has no attribute \"A\": expected E, found F; did you mean \"N\"?"},
    {ProblemCode::DUPLICATE_KEY, "the key is given twice",
     "the key \"A\" is given twice: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::MISSING_KEY, "a required attribute is missing",
     "C needs the attribute \"A\": expected E, found F; did you mean \"N\"?"},
    {ProblemCode::UNKNOWN_NAME, "the name is not known",
     "the name is not known: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::BELOW_RANGE, "the value is out of range",
     "the value is out of range: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::ABOVE_RANGE, "the value is out of range",
     "the value is out of range: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::TOO_SHORT, "shorter than allowed", "shorter than allowed: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::TOO_MANY, "longer than allowed", "longer than allowed: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::NULL_NOT_ALLOWED, "null is not allowed here",
     "null is not allowed here: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::READ_ONLY, "this is not read", "\"A\" of C is not read: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::CANNOT_BE_MADE, "no value can be made here",
     "no value can be made here: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::INACTIVE_MEMBER, "this is not the active member of its union",
     "\"A\" is not the active member of its union: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::UNKNOWN_TAG, "the tag is not known",
     "the tag is not known: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::MISSING_TAG, "the tag is missing",
     "the tag \"A\" is missing: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::NO_ALTERNATIVE, "the value fits no alternative",
     "the value fits no alternative: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::MANY_ALTERNATIVES, "the value fits more than one alternative",
     "the value fits more than one alternative: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::CHECK_FAILED, "the check has failed",
     "the check of C has failed: expected E, F; did you mean \"N\"?"},
    {ProblemCode::TOO_MANY_ELEMENTS, "there are too many elements",
     "there are too many elements: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::TOO_FEW_ELEMENTS, "there are too few elements",
     "there are too few elements: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::CANNOT_BE_WRITTEN, "the value cannot be written",
     "the value cannot be written: expected E, found F; did you mean \"N\"?"},
    {ProblemCode::CONVERTER_FAILED, "the converter has failed",
     "the converter has failed: expected E, F; did you mean \"N\"?"},
    {ProblemCode::MORE_PROBLEMS, " more problems", "F more problems"},
};

TEST(Report, HasASentenceForEveryCode)
{
    for (const CSentence& sentence : SENTENCES) {
        CProblem problem = Problem(sentence.Code);
        EXPECT_EQ(sentence.Bare, problem.Sentence());
        problem.Class = "C";
        problem.Attrib = "A";
        problem.Expected = "E";
        problem.Found = "F";
        problem.Nearest = "N";
        EXPECT_EQ(sentence.Full, problem.Sentence());
    }
    EXPECT_EQ("a problem", Problem(static_cast<ProblemCode>(1000)).Sentence());
}

TEST(Report, SaysWhatIsKnown)
{
    CProblem problem = Problem(ProblemCode::OUT_OF_RANGE);
    problem.Expected = "0 to 255";
    EXPECT_EQ("the number does not fit: expected 0 to 255", problem.Sentence());
    problem.Expected.clear();
    problem.Found = "300";
    EXPECT_EQ("the number does not fit: found 300", problem.Sentence());
    problem.Code = ProblemCode::SYNTAX;
    EXPECT_EQ("found 300", problem.Sentence());
    problem = Problem(ProblemCode::UNKNOWN_KEY);
    problem.Attrib = "zpi";
    EXPECT_EQ("the class has no attribute \"zpi\"", problem.Sentence());
    problem = Problem(ProblemCode::CHECK_FAILED);
    problem.Class = "shop::Order";
    problem.Found = "paid before it was ordered";
    EXPECT_EQ("the check of shop::Order has failed: paid before it was ordered", problem.Sentence());
}

TEST(Report, MakesParametersSafeAndCutsThem)
{
    CProblem problem = Problem(ProblemCode::UNKNOWN_KEY);
    problem.Class = "shop::Address";
    problem.Attrib = "a\x1B[2J\tb\nc\0d\x7F\xC2\x9B\xE2\x80\xAE\xFF\xED\xA0\x80\xC3"s;
    EXPECT_EQ("shop::Address has no attribute \"a<U+001B>[2J<U+0009>b<U+000A>c<U+0000>d<U+007F><U+009B><U+202E><0xFF>"
              "<0xED><0xA0><0x80><0xC3>\"",
              problem.Sentence());
    problem.Attrib = std::string(199, 'x') + "\xC3\xBC" + "yz";
    EXPECT_EQ("shop::Address has no attribute \"" + std::string(199, 'x') + "\xC3\xBC...\"", problem.Sentence());
    problem.Attrib = std::string(200, 'x');
    EXPECT_EQ("shop::Address has no attribute \"" + problem.Attrib + "\"", problem.Sentence());
}

// Whole reports.

std::string ConfigText()
{
    return R"({
    "service": "shop",
    "port": 8080,
    "orders": [
        {"id": 1},
        {"id": 2},
        {
        "id": 3,
        "lines": [
        ],
        "address": {
        "street": "Am Markt 1",
        "city": "Halle",
        "zpi": "89073",
        "country": "DE"
        }
        }
    ]
})";
}

CProblem UnknownZip(const std::string& text)
{
    CProblem problem = Problem(ProblemCode::UNKNOWN_KEY, PlaceOf(text, "\"zpi\""));
    problem.Path = "orders[2].address";
    problem.Pointer = "/orders/2/address/zpi";
    problem.Class = "shop::Address";
    problem.Attrib = "zpi";
    problem.Nearest = "zip";
    return problem;
}

TEST(Report, ShowsTheLineAndAMark)
{
    const std::string text = ConfigText();
    CReport report;
    report.SetName("config.json");
    report.Add(UnknownZip(text));
    EXPECT_EQ(R"(config.json:14:9: orders[2].address: shop::Address has no attribute "zpi"; did you mean "zip"?
    14 |         "zpi": "89073",
       |         ^~~~~
)",
              report.AsString(text));
    const std::string alone =
        "config.json:14:9: orders[2].address: shop::Address has no attribute \"zpi\"; did you mean \"zip\"?\n";
    EXPECT_EQ(alone, report.AsString());
    std::ostringstream stream;
    stream << report;
    EXPECT_EQ(alone, stream.str());
}

TEST(Report, TellsPlacesOfEachKind)
{
    CReport report;
    CTextPlace place;
    report.Add(Problem(ProblemCode::BAD_UTF8));
    place.Offset = 57;
    report.Add(Problem(ProblemCode::BAD_UTF8, place));
    place.Line = 3;
    place.Column = 5;
    report.Add(Problem(ProblemCode::BAD_UTF8, place));
    report.Add(Problem(ProblemCode::BAD_UTF8, place));
    EXPECT_EQ("this is not UTF-8\n"
              "byte 57: this is not UTF-8\n"
              "3:5: this is not UTF-8\n"
              "3:5: this is not UTF-8\n",
              report.AsString());
    report.SetName("a\x1B.json");
    EXPECT_EQ("a\x1B.json", report.Name());
    EXPECT_EQ("a<U+001B>.json: this is not UTF-8\n"
              "a<U+001B>.json: byte 57: this is not UTF-8\n"
              "a<U+001B>.json:3:5: this is not UTF-8\n"
              "a<U+001B>.json:3:5: this is not UTF-8\n",
              report.AsString());
}

TEST(Report, ShowsASecondPlace)
{
    const std::string text = "{\n    \"port\": 1,\n    \"port\" : 2\n}\n";
    CProblem problem = Problem(ProblemCode::DUPLICATE_KEY, PlaceOf(text, "\"port\" "));
    problem.Place.Length = 6;
    problem.Second = PlaceOf(text, "\"port\"");
    problem.Attrib = "port";
    CReport report;
    report.SetName("config.json");
    report.Add(problem);
    problem.Code = ProblemCode::MISSING_KEY;
    problem.Class = "Config";
    problem.Attrib = "host";
    problem.Place = PlaceOf(text, "}");
    problem.Second = PlaceOf(text, "{");
    report.Add(problem);
    problem.Second = problem.Place;
    report.Add(problem);
    EXPECT_EQ(R"(config.json:3:5: the key "port" is given twice
     3 |     "port" : 2
       |     ^~~~~~
config.json:2:5: first given here
     2 |     "port": 1,
       |     ^~~~~~
config.json:4:1: Config needs the attribute "host"
     4 | }
       | ^
config.json:1:1: the object begins here
     1 | {
       | ^
config.json:4:1: Config needs the attribute "host"
     4 | }
       | ^
)",
              report.AsString(text));
    EXPECT_EQ(R"(config.json:3:5: the key "port" is given twice
config.json:2:5: first given here
config.json:4:1: Config needs the attribute "host"
config.json:1:1: the object begins here
config.json:4:1: Config needs the attribute "host"
)",
              report.AsString());
}

TEST(Report, PutsTheMarkUnderWhatIsSeen)
{
    EXPECT_EQ("1:11: " + SENTENCE + "     1 | \"Zürich\" 01\n" + "       |          ^~\n", // two bytes, one column
              Reported("\"Zürich\" 01", "01"));
    EXPECT_EQ("1:11: " + SENTENCE + "     1 | \"東京\", 01\n" + "       |         ^~\n", // three bytes, two columns
              Reported("\"東京\", 01", "01"));
    EXPECT_EQ("1:7: " + SENTENCE + "     1 | \"e\xCC\x81\" 01\n" + "       |     ^~\n", // joins the letter before
              Reported("\"e\xCC\x81\" 01", "01"));
    EXPECT_EQ("1:9: " + SENTENCE + "     1 | \"\xF0\x9F\x98\x80\", 01\n" + "       |       ^~\n",
              Reported("\"\xF0\x9F\x98\x80\", 01", "01"));
    EXPECT_EQ("1:4: " + SENTENCE + "     1 |     a   01  b\n" + "       |         ^~\n", // stops at 4, 8, 12
              Reported("\ta\t01\tb", "01"));
    EXPECT_EQ("1:2: " + SENTENCE + "     1 | <U+001B><U+000D>x<0xFF>\n" + "       |         ^~~~~~~~~\n",
              Reported("\x1B\rx\xFF", "\rx"));
}

TEST(Report, KnowsLineEnds)
{
    EXPECT_EQ("2:3: " + SENTENCE + "     2 |   01,\n       |   ^~\n", Reported("[\r\n  01,\r\n2]", "01"));
    EXPECT_EQ("2:1: " + SENTENCE + "     2 | 01\n       | ^~\n", Reported("[\n01\n]", "01\n]")); // ends with its line
    EXPECT_EQ("1:2: " + SENTENCE + "     1 | [\n       |  ^\n", Reported("[\n]", "\n"));
    EXPECT_EQ("1:2: " + SENTENCE + "     1 | [\n       |  ^\n", Reported("[\r\n]", "\r\n"));
    EXPECT_EQ("2:1: " + SENTENCE + "     2 |\n       | ^\n", Reported("[\n\n]", "\n]"));
}

TEST(Report, MarksTheEndOfTheText)
{
    const std::string text = "[1,";
    CTextPlace place = PlaceOf(text, "");
    place.Offset = 3;
    place.Column = 4;
    CReport report;
    report.Add(Problem(ProblemCode::UNEXPECTED_END, place));
    EXPECT_EQ("1:4: the text ends too early\n"
              "     1 | [1,\n"
              "       |    ^\n",
              report.AsString(text));
    place.Offset = 0;
    place.Column = 1;
    CReport empty;
    empty.Add(Problem(ProblemCode::UNEXPECTED_END, place));
    EXPECT_EQ("1:1: the text ends too early\n"
              "     1 |\n"
              "       | ^\n",
              empty.AsString(""));
}

TEST(Report, MakesRoomForLongLineNumbers)
{
    CTextPlace place = PlaceOf("01", "01");
    place.Line = 999'999;
    CReport report;
    report.Add(Problem(ProblemCode::BAD_NUMBER, place));
    place.Line = 12'345'678;
    report.Add(Problem(ProblemCode::BAD_NUMBER, place));
    EXPECT_EQ("999999:1: " + SENTENCE + "999999 | 01\n       | ^~\n" + "12345678:1: " + SENTENCE +
                  "12345678 | 01\n         | ^~\n",
              report.AsString("01"));
}

TEST(Report, CutsLongLinesAroundThePlace)
{
    const std::string many(2000, 'a');
    // 100 bytes are shown, 40 of them before the place.
    EXPECT_EQ("1:2001: " + SENTENCE + "     1 | ..." + many.substr(0, 40) + "01" + many.substr(0, 58) + "...\n" +
                  "       | " + Blanks(43) + "^~\n",
              Reported(many + "01" + many, "01"));
    EXPECT_EQ("1:11: " + SENTENCE + "     1 | " + many.substr(0, 10) + "01" + many.substr(0, 88) + "...\n" +
                  "       | " + Blanks(10) + "^~\n",
              Reported(many.substr(0, 10) + "01" + many, "01"));
    // Where the line ends soon, more of what is before is shown.
    EXPECT_EQ("2:2001: " + SENTENCE + "     2 | ..." + many.substr(0, 97) + "01b\n" + "       | " + Blanks(100) +
                  "^~\n",
              Reported("[\n" + many + "01b\n]", "01"));
    // A line of 100 bytes is not cut.
    EXPECT_EQ("2:99: " + SENTENCE + "     2 | " + many.substr(0, 98) + "01\n" + "       | " + Blanks(98) + "^~\n",
              Reported("[\n" + many.substr(0, 98) + "01\n]", "01"));
    // The end of a token that is longer is not shown.
    EXPECT_EQ("1:2: " + SENTENCE + "     1 | [" + many.substr(0, 99) + "...\n" + "       |  ^" + std::string(98, '~') +
                  '\n',
              Reported("[" + many + "]", many));
}

TEST(Report, CutsBetweenCharacters)
{
    std::string many;
    for (int i = 0; i < 100; ++i)
        many += "ü";
    // 39 bytes before the place begin inside a character, and so do the last of the 100.
    EXPECT_EQ("1:202: " + SENTENCE + "     1 | ..." + many.substr(0, 38) + "x01" + many.substr(0, 58) + "...\n" +
                  "       | " + Blanks(23) + "^~\n",
              Reported(many + "x01" + many, "01"));
    EXPECT_EQ("1:201: " + SENTENCE + "     1 | ..." + many.substr(0, 40) + "01x" + many.substr(0, 56) + "...\n" +
                  "       | " + Blanks(23) + "^~\n",
              Reported(many + "01x" + many, "01"));
}

TEST(Report, ShowsOnlyTheTokenWhereItMust)
{
    const std::string text = R"({"password": "secret", "zpi": "secret"})";
    EXPECT_EQ("1:24: " + SENTENCE + "     1 | " + Blanks(23) + "\"zpi\"\n" + "       | " + Blanks(23) + "^~~~~\n",
              Reported(text, "\"zpi\"", ExcerptForm::TOKEN));
    EXPECT_EQ("1:24: " + SENTENCE, Reported(text, "\"zpi\"", ExcerptForm::NOTHING));
    EXPECT_EQ("1:2001: " + SENTENCE + "     1 | ...\"zpi\"\n" + "       |    ^~~~~\n",
              Reported(std::string(2000, 's') + "\"zpi\": \"secret\"", "\"zpi\"", ExcerptForm::TOKEN));
    EXPECT_EQ("1:1: " + SENTENCE + "     1 | " + std::string(100, 'k') + "...\n" + "       | ^" + std::string(99, '~') +
                  '\n',
              Reported(std::string(200, 'k'), std::string(200, 'k'), ExcerptForm::TOKEN));
    CTextPlace place = PlaceOf(text, "secret");
    place.Length = 0;
    CProblem problem = Problem(ProblemCode::BAD_NUMBER, place);
    problem.Shown = ExcerptForm::TOKEN;
    CReport report;
    report.Add(problem);
    EXPECT_EQ("1:15: " + SENTENCE, report.AsString(text));
}

TEST(Report, TakesAnotherTextThanTheOneThatWasRead)
{
    const std::string text = ConfigText();
    CReport report;
    report.Add(UnknownZip(text));
    const std::string first =
        "14:9: orders[2].address: shop::Address has no attribute \"zpi\"; did you mean \"zip\"?\n";
    EXPECT_EQ(first, report.AsString(""));
    EXPECT_EQ(first, report.AsString("shorter"));
    const std::string bytes(1000, '\x9C');
    std::string shown;
    for (int i = 0; i < 100; ++i)
        shown += "<0x9C>";
    EXPECT_EQ(first + "    14 | ..." + shown + "...\n" + "       | " + Blanks(3 + 40 * 6) + "^" +
                  std::string(5 * 6 - 1, '~') + '\n',
              report.AsString(bytes));
    // A token that begins in the middle of a character, and one that ends there.
    const std::string lines(report.Problems()[0].Place.Offset - 1, '\n');
    EXPECT_EQ(first + "    14 | <0xC3><0xBC>üüü\n" + "       |       ^~~~~~~~\n", report.AsString(lines + "üüüü"));
    EXPECT_EQ(first + "    14 | xüü<0xC3><0xBC>\n" + "       |  ^~~~~~~~\n", report.AsString(lines + "xüüü"));
}

TEST(Report, ShowsNoLineInAFormatWithoutLines)
{
    CTextPlace place = PlaceOf("01", "01");
    place.Line = place.Column = 0;
    CReport report;
    report.Add(Problem(ProblemCode::BAD_NUMBER, place));
    EXPECT_EQ("byte 0: " + SENTENCE, report.AsString("01"));
}

/// Whether a text is valid UTF-8 and holds no control character but the ends of lines.
bool IsReadable(const std::string& text)
{
    for (std::size_t i = 0; i < text.size();) {
        const auto byte = [&](std::size_t at) { return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U; };
        const unsigned int head = byte(i);
        if ((head < 0x20 && head != '\n') || head == 0x7F) return false;
        const std::size_t length = head < 0x80   ? 1
                                   : head < 0xC2 ? 0
                                   : head < 0xE0 ? 2
                                   : head < 0xF0 ? 3
                                   : head < 0xF5 ? 4
                                                 : 0;
        if (length == 0) return false;
        for (std::size_t k = 1; k < length; ++k)
            if ((byte(i + k) & 0xC0U) != 0x80) return false;
        if ((head == 0xC2 && byte(i + 1) < 0xA0) || (head == 0xE0 && byte(i + 1) < 0xA0) ||
            (head == 0xED && byte(i + 1) > 0x9F) || (head == 0xF0 && byte(i + 1) < 0x90) ||
            (head == 0xF4 && byte(i + 1) > 0x8F))
            return false;
        i += length;
    }
    return true;
}

TEST(Report, StaysReadableWhateverTheTextAndThePlaces)
{
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const std::string pieces[] = {"a",    "ü",    "€",    "\xF0\x9F\x98\x80", "\n", "\r\n", "\t",
                                  "\x1B", "\x80", "\xFF", "\xE2\x80\xAE"};
    const std::size_t numbers[] = {0, 1, 2, 50, 101, 1000, static_cast<std::size_t>(-1)};
    const auto number = [&] { return random() % 2 == 0 ? random() % 300 : numbers[random() % std::size(numbers)]; };
    for (int i = 0; i < 3000; ++i) {
        std::string text;
        for (std::size_t k = random() % 300; k != 0; --k)
            text += pieces[random() % (1 + random() % std::size(pieces))];
        CProblem problem = Problem(ProblemCode::UNKNOWN_KEY);
        problem.Place.Offset = number();
        problem.Place.Length = number();
        problem.Place.Line = number();
        problem.Place.Column = number();
        problem.Second = problem.Place;
        problem.Second.Offset = number();
        problem.Shown = static_cast<ExcerptForm>(random() % 3);
        problem.Path = text;
        problem.Attrib = text;
        CReport report;
        report.Add(std::move(problem));
        EXPECT_TRUE(IsReadable(report.AsString(text))) << report.AsString(text);
    }
}

// Limits.

TEST(Report, KeepsAHundredAndCountsTheOthers)
{
    CReport report;
    EXPECT_TRUE(report.IsEmpty());
    for (int i = 0; i < 100; ++i)
        report.Add(Problem(ProblemCode::BAD_UTF8));
    EXPECT_EQ(100U, report.Problems().size());
    EXPECT_EQ(ProblemCode::BAD_UTF8, report.Problems().back().Code);
    report.Add(Problem(ProblemCode::BAD_NUMBER));
    ASSERT_EQ(101U, report.Problems().size());
    EXPECT_EQ(ProblemCode::MORE_PROBLEMS, report.Problems().back().Code);
    EXPECT_EQ("1 more problem", report.Problems().back().Sentence());
    for (int i = 0; i < 16; ++i)
        report.Add(Problem(ProblemCode::BAD_NUMBER));
    ASSERT_EQ(101U, report.Problems().size());
    EXPECT_EQ("17 more problems", report.Problems().back().Sentence());
    report.SetName("n");
    report.Clear();
    EXPECT_TRUE(report.IsEmpty());
    EXPECT_EQ("n", report.Name());
    EXPECT_EQ("", report.AsString());
    EXPECT_EQ("", report.AsString("text"));
}

TEST(Report, TakesALimitOfItsOwn)
{
    CReport two(2);
    CReport none(0);
    for (int i = 0; i < 5; ++i) {
        two.Add(Problem(ProblemCode::BAD_UTF8));
        none.Add(Problem(ProblemCode::BAD_UTF8));
    }
    EXPECT_EQ("this is not UTF-8\nthis is not UTF-8\n3 more problems\n", two.AsString());
    EXPECT_EQ("5 more problems\n", none.AsString());
    two.Clear();
    two.Add(Problem(ProblemCode::BAD_NUMBER));
    EXPECT_EQ(SENTENCE, two.AsString());
}

} // namespace
