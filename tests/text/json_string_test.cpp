#include <vexa/json.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/decimal_comma.h"

namespace {

using namespace std::string_literals;

constexpr int NO_QUOTE = 511;
constexpr int ENDS_IN_ESCAPE = 531;
constexpr int NOT_CLOSED = 596;

/// What a string holds after it was read.
void ExpectReads(const std::string& text, const std::string& expected, int code = 0)
{
    std::string target = "what was there before";
    EXPECT_EQ(vexa::FromJson(target, text), code) << text;
    EXPECT_EQ(target, expected) << text;
}

TEST(JsonString, IsWhatStandsBetweenQuotes)
{
    ExpectReads(R"("abc")", "abc");
    ExpectReads(R"("")", "");
    ExpectReads("\t \"a b\" ", "a b");
    ExpectReads(R"("a"b")", "a");
}

TEST(JsonString, KnowsEveryEscapeByItsLetter)
{
    ExpectReads(R"("\"")", "\"");
    ExpectReads(R"("\\")", "\\");
    ExpectReads(R"("\/")", "/");
    ExpectReads(R"("\b")", "\x08");
    ExpectReads(R"("\f")", "\x0C");
    ExpectReads(R"("\n")", "\x0A");
    ExpectReads(R"("\r")", "\x0D");
    ExpectReads(R"("\t")", "\x09");
    ExpectReads(R"("a\"b\\c\/d\be\ff\ng\rh\ti")", "a\"b\\c/d\be\ff\ng\rh\ti");
}

TEST(JsonString, TakesAnyOtherEscapedByteForItself)
{
    for (unsigned byte = 0; byte < 256; ++byte) {
        const auto character = static_cast<char>(byte);
        if ("bfnrtu"s.find(character) != std::string::npos) continue;
        ExpectReads("\"a\\"s + character + "b\"", "a"s + character + "b");
    }
}

TEST(JsonString, TakesEveryRawByteForItself)
{
    std::string all;
    for (unsigned byte = 0; byte < 256; ++byte) {
        const auto character = static_cast<char>(byte);
        if (character != '"' && character != '\\') all += character;
    }
    ExpectReads("\"" + all + "\"", all);
}

TEST(JsonString, ReadsHexadecimalEscapesUpToOneByte)
{
    ExpectReads(R"("\u0041\u00e9\u0100")", "\x41\xE9");
    ExpectReads(R"("\u0000")", "\0"s);
    ExpectReads(R"("\u00ff\u00FF\u00fF")", "\xFF\xFF\xFF");
    ExpectReads(R"("a\uffffb\u20ACc")", "abc");
    ExpectReads(R"("\u00412")", "A2");
}

TEST(JsonString, ReadsEveryByteFromItsHexadecimalEscape)
{
    const char digits[] = "0123456789abcdef";
    for (unsigned byte = 0; byte < 256; ++byte) {
        ExpectReads("\"\\u00"s + digits[byte / 16] + digits[byte % 16] + "\"", std::string(1, static_cast<char>(byte)));
    }
}

TEST(JsonString, TakesTheLeadingHexadecimalDigitsOfABrokenEscape)
{
    ExpectReads(R"("\u4zzzb")", "\x04"s + "b");
    ExpectReads(R"("\u41/zb")", "Ab");
    ExpectReads(R"("\u123 b")", "b");
    ExpectReads(R"("\uzzzzb")", "\0b"s);
    ExpectReads(R"("\u"abcb")", "\0b"s);
}

TEST(JsonString, ReadsHexadecimalEscapesInAnyLocale)
{
    const vexa_test::DecimalComma comma;
    ExpectReads(R"("\u0041")", "A");
    const vexa_test::CDecimalComma cComma;
    ExpectReads(R"("\u41zz")", "A");
}

TEST(JsonString, NeedsFiveBytesBehindTheBackslashForAHexadecimalEscape)
{
    ExpectReads(R"("\u0041)", "A", NOT_CLOSED);
    ExpectReads(R"("\u004")", "\x04", NOT_CLOSED); // the quote is the fourth byte
    ExpectReads(R"("\u04")", "04");
    ExpectReads(R"("\u4")", "4");
    ExpectReads(R"("\u")", "");
    ExpectReads(R"("a\u)", "a", NOT_CLOSED);
    ExpectReads(R"("a\u\")", "a\"", NOT_CLOSED);
}

TEST(JsonString, MustBeginWithAQuote)
{
    for (const char* text : {"abc", "'abc'", "5", "\\\"", "null", "\v\"a\""})
        ExpectReads(text, "", NO_QUOTE);
    ExpectReads("\0\"a\""s, "", NO_QUOTE);
}

TEST(JsonString, KeepsWhatStoodBeforeABackslashThatEndsTheText)
{
    ExpectReads("\"abc\\", "abc", ENDS_IN_ESCAPE);
    ExpectReads("\"\\", "", ENDS_IN_ESCAPE);
    ExpectReads("\"\\\\\\", "\\", ENDS_IN_ESCAPE);
}

TEST(JsonString, KeepsWhatStoodBeforeTheLastEscapeWhereTheTextEnds)
{
    ExpectReads("\"", "", NOT_CLOSED);
    ExpectReads("\"abc", "", NOT_CLOSED);
    ExpectReads("\"ab\\ncd", "ab\n", NOT_CLOSED);
    ExpectReads("\"ab\\\"", "ab\"", NOT_CLOSED);
}

TEST(JsonString, OfAnyLengthIsReadWhole)
{
    // Runs of plain bytes of every length up to some machine words, between escapes.
    for (std::size_t length = 0; length < 70; ++length) {
        const std::string run(length, 'x');
        ExpectReads("\"" + run + "\\n" + run + "\"", run + "\n" + run);
        ExpectReads("\"" + run + "\"", run);
        ExpectReads("\"" + run, "", NOT_CLOSED);
    }
    const std::string large(1U << 20U, '\xC3');
    ExpectReads("\"" + large + "\"", large);
}

} // namespace
