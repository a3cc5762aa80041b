#include <vexa/helper.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "core/escape.h"

namespace {

using namespace std::string_literals;
using vexa::helper::AppendStringWithEscape;
using vexa::helper::SetStringWithEscape;

/// The rule, one byte at a time.
std::string EscapedByte(unsigned byte)
{
    switch (byte) {
    case 0x22: return "\\\"";
    case 0x5C: return "\\\\";
    case 0x2F: return "\\/";
    case 0x08: return "\\b";
    case 0x0C: return "\\f";
    case 0x0A: return "\\n";
    case 0x0D: return "\\r";
    case 0x09: return "\\t";
    default: break;
    }
    if (byte >= 0x20 && byte <= 0x7E) {
        return std::string(1, static_cast<char>(byte));
    }
    char text[8];
    std::snprintf(text, sizeof text, "\\u00%02x", byte);
    return text;
}

std::string Appended(const std::string& s)
{
    std::string out;
    AppendStringWithEscape(out, s);
    return out;
}

/// Writes into a room of ample size, with guards around it.
std::string Written(const std::string& s)
{
    std::string buffer(6 * s.size() + 2, '#');
    unsigned long position = 1;
    SetStringWithEscape(buffer.data(), position, buffer.size(), s);
    EXPECT_EQ('#', buffer[0]);
    EXPECT_EQ('#', buffer[position]);
    return buffer.substr(1, position - 1);
}

/// What is counted for an escaped text: a control byte with a letter of its own counts like one without.
unsigned long Room(const std::string& escaped, const std::string& s)
{
    const auto named = std::count_if(s.begin(), s.end(), [](char c) { return c >= '\b' && c <= '\r' && c != '\v'; });
    return escaped.size() + 4 * static_cast<unsigned long>(named);
}

void ExpectEscaped(const std::string& expected, const std::string& s)
{
    EXPECT_EQ(expected, Appended(s));
    EXPECT_EQ(expected, Written(s));
    EXPECT_EQ(Room(expected, s), vexa::core::EscapedRoom(s.data(), s.size()));
}

TEST(Escape, AnEmptyTextWritesNothing)
{
    char buffer[4] = "###";
    unsigned long position = 1;
    SetStringWithEscape(buffer, position, sizeof buffer, "");
    EXPECT_EQ(1U, position);
    EXPECT_STREQ("###", buffer);
    ExpectEscaped("", "");
}

TEST(Escape, TheSlashIsAlwaysEscaped) { ExpectEscaped("a\\/b", "a/b"); }

TEST(Escape, TheEightNamedBytesTakeTwoCharacters) { ExpectEscaped(R"(\"\\\/\b\f\n\r\t)", "\"\\/\b\f\n\r\t"); }

TEST(Escape, OtherBytesOutsidePrintableAsciiTakeSixCharacters)
{
    ExpectEscaped("\\u0001\\u007f\\u0000", "\x01\x7F\0"s);
}

TEST(Escape, EachByteOfAMultiByteCharacterIsEscapedByItself) { ExpectEscaped("\\u00c3\\u00a9", "\xC3\xA9"); }

TEST(Escape, APrintableTextStaysAsItIs)
{
    ExpectEscaped(" !#$%&'()*+,-.0:;<=>?@AZ[]^_`az{|}~", " !#$%&'()*+,-.0:;<=>?@AZ[]^_`az{|}~");
}

TEST(Escape, EveryByteFollowsTheRuleAtEveryPlaceOfAText)
{
    for (unsigned byte = 0; byte < 256; ++byte) {
        for (std::size_t length = 1; length <= 40; length += 13) {
            for (std::size_t place = 0; place < length; ++place) {
                std::string text(length, 'x');
                text[place] = static_cast<char>(byte);
                const std::string expected =
                    std::string(place, 'x') + EscapedByte(byte) + std::string(length - place - 1, 'x');
                ASSERT_EQ(expected, Appended(text));
                ASSERT_EQ(expected, Written(text));
                ASSERT_EQ(Room(expected, text), vexa::core::EscapedRoom(text.data(), text.size()));
            }
        }
    }
}

TEST(Escape, AllBytesInARowFollowTheRule)
{
    std::string text;
    std::string expected;
    for (unsigned byte = 0; byte < 512; ++byte) {
        text += static_cast<char>(byte % 256);
        expected += EscapedByte(byte % 256);
    }
    ExpectEscaped(expected, text);
}

TEST(EscapeIntoBuffer, StartsAtThePositionAndEndsWithoutATerminator)
{
    char buffer[9] = "########";
    unsigned long position = 2;
    SetStringWithEscape(buffer, position, 8, "a\tb");
    EXPECT_STREQ("##a\\tb##", buffer);
    EXPECT_EQ(6U, position);
}

TEST(EscapeIntoBuffer, FillsTheRoomToItsLastByte)
{
    char buffer[9] = "########";
    unsigned long position = 0;
    SetStringWithEscape(buffer, position, 8, "ab\x01");
    EXPECT_STREQ("ab\\u0001", buffer);
    EXPECT_EQ(8U, position);
}

TEST(EscapeIntoBuffer, APieceThatDoesNotFitIsLeftOutButCounted)
{
    char buffer[9] = "########";
    unsigned long position = 0;
    SetStringWithEscape(buffer, position, 3, "abcd");
    EXPECT_STREQ("########", buffer);
    EXPECT_EQ(4U, position);
}

TEST(EscapeIntoBuffer, AnEscapeSequenceThatDoesNotFitIsLeftOutWhole)
{
    char buffer[9] = "########";
    unsigned long position = 0;
    SetStringWithEscape(buffer, position, 3, "ab/");
    EXPECT_STREQ("ab######", buffer);
    EXPECT_EQ(4U, position);
}

TEST(EscapeIntoBuffer, NothingIsWrittenOncePositionIsBeyondTheCapacity)
{
    char buffer[9] = "########";
    unsigned long position = 0;
    SetStringWithEscape(buffer, position, 3, "ab/c\td");
    EXPECT_STREQ("ab######", buffer);
    EXPECT_EQ(8U, position);
}

TEST(EscapeIntoBuffer, APositionBeyondTheCapacityIsNoRoom)
{
    char buffer[9] = "########";
    unsigned long position = 5;
    SetStringWithEscape(buffer, position, 4, "a");
    EXPECT_STREQ("########", buffer);
    EXPECT_EQ(6U, position);
}

TEST(EscapeIntoBuffer, ANullBufferIsOnlyCounted)
{
    unsigned long position = 0;
    SetStringWithEscape(nullptr, position, 100, "a/b");
    EXPECT_EQ(4U, position);
}

TEST(EscapeIntoString, AppendsToWhatIsThere)
{
    std::string out = "[";
    AppendStringWithEscape(out, "a\nb");
    AppendStringWithEscape(out, "c");
    EXPECT_EQ("[a\\nbc", out);
}

TEST(EscapeIntoString, AStringCanBeAppendedToItself)
{
    const std::string plain(40, 'x');
    std::string text = plain + "/b";
    text.shrink_to_fit();
    AppendStringWithEscape(text, text);
    EXPECT_EQ(plain + "/b" + plain + "\\/b", text);
}

TEST(EscapeScan, FindsTheFirstOfSeveralBytesAndNeverLooksBehindTheEnd)
{
    const auto find = [](std::string_view text, std::size_t n) {
        return vexa::core::FindByteToEscape(reinterpret_cast<const unsigned char*>(text.data()), n);
    };
    const std::string text = std::string(37, 'x') + "/\"";
    EXPECT_EQ(37U, find(text, 39));
    EXPECT_EQ(37U, find(text, 38));
    EXPECT_EQ(37U, find(text, 37));
    EXPECT_EQ(20U, find(text, 20));
    EXPECT_EQ(0U, find(text, 0));
}

TEST(EscapeScan, TheWordTestAgreesWithTheTableForEveryByteAndPlace)
{
    for (unsigned byte = 0; byte < 256; ++byte) {
        for (std::size_t place = 0; place < 8; ++place) {
            for (const unsigned char neighbour : {' ', '~', '!', '0'}) {
                unsigned char word[8];
                std::fill(word, word + 8, neighbour);
                word[place] = static_cast<unsigned char>(byte);
                ASSERT_EQ(EscapedByte(byte).size() != 1, vexa::core::WordNeedsEscape(word)) << byte << ' ' << place;
            }
        }
    }
}

} // namespace
