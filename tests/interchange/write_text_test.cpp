// Texts in JSON: escapes, UTF-8, and what is none.

#include <vexa/interchange.h>

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using vexa::BadText;
using vexa::CReport;
using vexa::CWritePolicy;
using vexa::ProblemCode;
using vexa::WriteJson;

std::string Written(const std::string& text, BadText bad = BadText::PROBLEM, bool asciiOnly = false)
{
    CWritePolicy policy;
    policy.Text = bad;
    policy.AsciiOnly = asciiOnly;
    return WriteJson(text, policy);
}

TEST(WriteText, onlyWhatMustBeIsEscaped)
{
    EXPECT_EQ(Written(""), "\"\"");
    EXPECT_EQ(Written("plain/text~\x7F"), "\"plain/text~\x7F\"");
    EXPECT_EQ(Written("\"\\"), "\"\\\"\\\\\"");
    std::string controls;
    for (char byte = 0; byte < 0x20; ++byte)
        controls += byte;
    EXPECT_EQ(Written(controls),
              "\"\\u0000\\u0001\\u0002\\u0003\\u0004\\u0005\\u0006\\u0007\\b\\t\\n\\u000b\\f\\r\\u000e"
              "\\u000f\\u0010\\u0011\\u0012\\u0013\\u0014\\u0015\\u0016\\u0017\\u0018\\u0019\\u001a"
              "\\u001b\\u001c\\u001d\\u001e\\u001f\"");
    EXPECT_EQ(Written("Köln, 東京, 😀"), "\"Köln, 東京, 😀\"");
}

TEST(WriteText, asciiOnlyEscapesTheRest)
{
    EXPECT_EQ(Written("Kö\n", BadText::PROBLEM, true), "\"K\\u00f6\\n\"");
    EXPECT_EQ(Written("\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF", BadText::PROBLEM, true), "\"\\ud7ff\\ue000\\uffff\"");
    EXPECT_EQ(Written("😀\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", BadText::PROBLEM, true),
              "\"\\ud83d\\ude00\\ud800\\udc00\\udbff\\udfff\"");
}

TEST(WriteText, whatIsNoUtf8GoesByThePolicy)
{
    // A lone continuation, a character that breaks off, an overlong one, a surrogate, one too high.
    const std::string bad = "a\x80"
                            "b\xC3"
                            "c\xC0\xAF"
                            "d\xED\xA0\x80"
                            "e\xF4\x90\x80\x80"
                            "f\xE2\x82";
    const std::string one = "\xEF\xBF\xBD";
    const std::string replaced = "\"a" + one + "b" + one + "c" + one + one + "d" + one + one + one + "e" + one + one +
                                 one + one + "f" + one + one + "\"";
    EXPECT_EQ(Written(bad), replaced);
    EXPECT_EQ(Written(bad, BadText::REPLACE), replaced);
    EXPECT_EQ(Written("a\x80z\xFF", BadText::LATIN_1), "\"a\xC2\x80z\xC3\xBF\"");
    EXPECT_EQ(Written("\x80\xFF", BadText::LATIN_1, true), "\"\\u0080\\u00ff\"");
    EXPECT_EQ(Written("\x80", BadText::REPLACE, true), "\"\\ufffd\"");

    CReport report;
    EXPECT_EQ(WriteJson(std::vector<std::string>{"good", bad}, {}, &report), "[\"good\"," + replaced + "]");
    ASSERT_EQ(report.Problems().size(), 1U) << "one for a text";
    EXPECT_EQ(report.Problems()[0].Code, ProblemCode::BAD_UTF8);
    EXPECT_EQ(report.Problems()[0].Path, "[1]");
    report.Clear();
    CWritePolicy policy;
    policy.Text = BadText::REPLACE;
    std::string out;
    EXPECT_TRUE(WriteJson(out, bad, policy, &report));
    EXPECT_TRUE(report.IsEmpty());
}

/// One character after the other, by the rule alone.
std::string Model(const std::string& text)
{
    std::string out = "\"";
    for (const char byte : text) {
        const auto code = static_cast<unsigned char>(byte);
        if (byte == '"' || byte == '\\') {
            out += {'\\', byte};
        } else if (code >= 0x20) {
            out += byte;
        } else {
            const std::size_t letter = std::string("\b\f\n\r\t").find(byte);
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", code);
            out += letter != std::string::npos ? std::string{'\\', "bfnrt"[letter]} : std::string(escape);
        }
    }
    return out + '"';
}

TEST(WriteText, everyLengthAndPlaceIsTheSame)
{
    constexpr unsigned SEED = 77;
    SCOPED_TRACE(SEED);
    std::mt19937 random(SEED);
    static const std::vector<std::string> PARTS{"a", "b", "\"", "\\", "\n", "\x01", "ö", "€", "😀", " "};
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        const unsigned special = random() % 3 == 0 ? 1 : 12;
        for (unsigned length = random() % 70; length > 0; --length)
            text += random() % special == 0 ? PARTS[random() % PARTS.size()] : "x";
        ASSERT_EQ(Written(text), Model(text));
        if (random() % 2 == 0) text.shrink_to_fit();
        const char* const pointer = text.c_str();
        ASSERT_EQ(WriteJson(pointer), Model(text));
    }
    std::string large;
    for (int i = 0; i < 50000; ++i)
        large += PARTS[random() % PARTS.size()];
    EXPECT_EQ(Written(large), Model(large));
}

struct Texts {
    char letters[5] = {'a', 'b', '\0', 'c', 'd'};
    char full[3] = {'x', 'y', 'z'};
    const char* pointer = "p";
    std::string* owned = nullptr;
};
VEXA_DESCRIBE(Texts, letters, full, pointer, owned)

TEST(WriteText, charArraysAreTexts)
{
    EXPECT_EQ(WriteJson(Texts{}), "{\"letters\":\"ab\",\"full\":\"xyz\",\"pointer\":\"p\",\"owned\":null}");
}

} // namespace
