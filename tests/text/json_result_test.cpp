#include <vexa/json.h>

#include <climits>
#include <iterator>
#include <set>
#include <string>

#include <gtest/gtest.h>

namespace {

using vexa::JsonResultText;

/// Every result that writing and reading may give.
constexpr int CODES[] = {0,   262, 511, 531, 596, 603, 622, 656, 663, 674, 683, 693, 698, 708, 722, 725, 732, 742,
                         751, 761, 766, 776, 790, 793, 800, 805, 842, 873, 888, 891, 939, 956, 965, 997, 998, 999};

void ExpectSentence(const std::string& text)
{
    EXPECT_GT(text.size(), 1U);
    EXPECT_TRUE(text[0] >= 'A' && text[0] <= 'Z') << text;
    EXPECT_EQ(text.find('.'), text.size() - 1) << "one sentence: " << text;
    EXPECT_EQ(text.find('\n'), std::string::npos) << text;
}

TEST(JsonResult, EveryCodeHasASentenceOfItsOwn)
{
    std::set<std::string> texts;
    for (const int code : CODES) {
        ExpectSentence(JsonResultText(code));
        EXPECT_TRUE(texts.insert(JsonResultText(code)).second) << code << ": " << JsonResultText(code);
    }
}

TEST(JsonResult, AnyOtherNumberIsNoResultCode)
{
    const std::string unknown = JsonResultText(1);
    ExpectSentence(unknown);
    const std::set<int> codes(std::begin(CODES), std::end(CODES));
    for (int code = -2; code <= 1001; ++code) {
        EXPECT_EQ(JsonResultText(code) == unknown, codes.count(code) == 0) << code;
    }
    for (const int code : {INT_MIN, INT_MAX, 262 + (1 << 16)})
        EXPECT_EQ(JsonResultText(code), unknown) << code;
}

TEST(JsonResult, TheTextsStay)
{
    const char* const text = JsonResultText(722);
    JsonResultText(0);
    EXPECT_STREQ(JsonResultText(722), text);
    EXPECT_EQ(JsonResultText(722), text) << "no buffer is shared";
}

} // namespace
