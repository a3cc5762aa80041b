// Texts, names and indentation of every length: none is cut, doubled or out of its place.

#include <vexa/text.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/class_refrence.h>
#include <vexa/describe.h>

#include "support/type_of.h"

namespace render_length {

struct Texts {
    std::string first;
    int number = 7;
    std::string second;
    vexa::CBinary binary{0};
    const char* pointed = "";
    char letter = 'x';
};
VEXA_DESCRIBE(Texts, first, number, second, binary, pointed, letter)

struct Nested {
    int number = 1;
    std::vector<Nested> inner;
};
VEXA_DESCRIBE(Nested, number, inner)

struct Widest {
    long double value = 0;
    long after = -1;
};
VEXA_DESCRIBE(Widest, value, after)

namespace {

using namespace vexa::Enum;
using vexa_test::Plain;

std::string Letters(std::size_t length)
{
    std::string text;
    while (text.size() < length)
        text += static_cast<char>('a' + text.size() % 26);
    return text;
}

TEST(RenderLength, TextsOfAllLengthsStandWhole)
{
    const std::vector<std::size_t> lengths = {0,    1,    15,   16,   17,   31,   32,   500,  1007,  1008,
                                              1023, 1024, 1025, 2030, 2047, 2048, 2049, 5000, 100000};
    for (const std::size_t first : lengths) {
        for (const std::size_t second : lengths) {
            const std::string pointed = Letters(second / 2);
            Texts texts;
            texts.first = Letters(first);
            texts.second = Letters(second);
            texts.binary = vexa::CBinary(std::string(first / 2, '\x5A'));
            texts.pointed = pointed.c_str();
            std::string hex;
            for (std::size_t i = 0; i < first / 2; ++i)
                hex += "5a";
            ASSERT_EQ("\nfirst: " + texts.first + "\nnumber: 7\nsecond: " + texts.second + "\nbinary: " + hex +
                          "\npointed: " + pointed + "\nletter: x",
                      vexa::AsString(texts))
                << first << ' ' << second;
        }
    }
}

TEST(RenderLength, EveryLevelHasItsIndentation)
{
    Nested top;
    std::string expected;
    Nested* at = &top;
    for (std::size_t level = 0; level < 120; ++level) {
        const std::string indent(4 * level, ' '); // a container and its element are a level each
        expected += (level == 0 ? "\n" : "") + ("number: 1\n" + indent + "inner: ");
        if (level + 1 < 120) {
            at->inner.resize(1);
            at = &at->inner.front();
            expected += "\n" + indent + "  - ";
        }
    }
    EXPECT_EQ(expected, vexa::AsString(top));
}

TEST(RenderLength, TheLongestNumberStandsWhole)
{
    Widest widest;
    widest.value = std::numeric_limits<long double>::lowest();
    const std::string text = vexa::AsString(widest);
    EXPECT_EQ("\nvalue: -1189731495357231765", text.substr(0, 28));
    EXPECT_EQ(".000000\nafter: -1", text.substr(text.size() - 17));
    EXPECT_EQ(std::string("\nvalue: -").size() + 4933 + std::string(".000000\nafter: -1").size(), text.size());
}

const std::string& LongName()
{
    static const std::string name = Letters(3000);
    return name;
}

TEST(RenderLength, ANameMayBeLongerThanAnyText)
{
    static vexa::CClassInfor* s_slot = nullptr;
    const vexa::CClassInfor* const infor = vexa::CClassInfor::InitClassInfor(
        s_slot, "Long", 2 * sizeof(int), nullptr, nullptr, [](vexa::CClassInfor& made, AccessSpecifierEnum access) {
            made.AddAttribInfor(access, 0, LongName().c_str(), -1).TypeInfor = Plain(DT_INT);
            made.AddAttribInfor(access, sizeof(int), "short", -1).TypeInfor = Plain(DT_INT);
        });
    const int numbers[] = {5, -6};
    const vexa::CClassConstRefrence object(*infor, numbers);
    EXPECT_EQ("\n" + LongName() + ": 5\nshort: -6", vexa::AsString(object));
    EXPECT_EQ("Long: \n  int " + LongName() + ": 5\n  int short: -6", vexa::AsString(object, ASF_TYPE_AND_VALUE));
}

/// The string that is written to, as part of the value, holds what has been written so far.
TEST(RenderLength, TheStringThatIsWrittenToMayBePartOfTheValue)
{
    for (const std::size_t length : {0, 1, 16, 17, 1023, 1024, 1025, 3000}) {
        Texts texts;
        texts.first = Letters(length);
        texts.second = "s";
        const std::string before = texts.first + "\nfirst: ";
        vexa::AppendString(texts.first, vexa::RefOf(texts));
        EXPECT_EQ(before + before + "\nnumber: 7\nsecond: s\nbinary: \npointed: \nletter: x", texts.first) << length;
    }
}

} // namespace
} // namespace render_length
