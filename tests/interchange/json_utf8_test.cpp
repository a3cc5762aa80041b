// Strings in UTF-8: every character, every byte that is part of none, and what policies make of those.

#include <cstdint>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include <vexa/event.h>
#include <vexa/interchange.h>

#include "support/json_texts.h"

namespace {

using vexa::BadText;
using vexa::CReadPolicy;

/// The bytes of a character by the definition: six bits a byte behind the first.
std::string Bytes(std::uint32_t character)
{
    const auto byte = [](std::uint32_t bits) { return std::string(1, static_cast<char>(bits)); };
    const auto rest = [&](int shift) { return byte(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) return byte(character);
    if (character < 0x800) return byte(0xC0 | character >> 6) + rest(0);
    if (character < 0x10000) return byte(0xE0 | character >> 12) + rest(6) + rest(0);
    return byte(0xF0 | character >> 18) + rest(12) + rest(6) + rest(0);
}

/// The string that a text between quotation marks is; "refused" if it is.
std::string Read(const std::string& text, BadText bad = BadText::PROBLEM)
{
    CReadPolicy policy;
    policy.Text = bad;
    const std::string quoted = '"' + text + '"';
    vexa::CEvent event;
    vexa::CProblem problem;
    const auto source = vexa::JsonEvents(quoted, policy);
    return source->Next(event, problem) ? std::string(event.Text) : "refused";
}

TEST(JsonUtf8, EveryCharacterIsReadAsItStandsAndAsAnEscape)
{
    for (std::uint32_t character = 0x80; character <= 0x110000; ++character) {
        const bool isCharacter = character < 0xD800 || (character > 0xDFFF && character <= 0x10FFFF);
        const std::string bytes = Bytes(character);
        ASSERT_EQ(Read(bytes), isCharacter ? bytes : "refused") << character;
        if (!isCharacter) continue;
        char escape[16];
        const std::uint32_t above = character - 0x10000;
        if (character < 0x10000)
            std::snprintf(escape, sizeof escape, "\\u%04x", character);
        else
            std::snprintf(escape, sizeof escape, "\\u%04X\\u%04X", 0xD800 + (above >> 10), 0xDC00 + (above & 0x3FF));
        ASSERT_EQ(Read(escape), bytes) << escape;
    }
}

/// UTF-8 by its definition: the length of the first byte, six bits each behind, and no other way to write it.
std::size_t ModelLength(const std::string& text, std::size_t at)
{
    const auto first = static_cast<unsigned char>(text[at]);
    const std::size_t length = first < 0x80   ? 1
                               : first < 0xC0 ? 0
                               : first < 0xE0 ? 2
                               : first < 0xF0 ? 3
                               : first < 0xF8 ? 4
                                              : 0;
    if (length == 0 || text.size() - at < length) return 0;
    if (length == 1) return 1;
    std::uint32_t character = first & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[at + i]);
        if (byte >> 6 != 2) return 0;
        character = character << 6 | (byte & 0x3FU);
    }
    const bool isCharacter = character <= 0x10FFFF && (character < 0xD800 || character > 0xDFFF);
    return isCharacter && Bytes(character).size() == length ? length : 0;
}

std::string Mended(const std::string& text, BadText policy)
{
    std::string mended;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = ModelLength(text, at);
        if (length != 0)
            mended.append(text, at, length);
        else if (policy == BadText::PROBLEM)
            return "refused";
        else
            mended += policy == BadText::REPLACE ? "\xEF\xBF\xBD" : Bytes(static_cast<unsigned char>(text[at]));
        at += length != 0 ? length : 1;
    }
    return mended;
}

TEST(JsonUtf8, BytesThatArePartOfNoCharacterGoByThePolicy)
{
    const unsigned seed = std::random_device()();
    std::mt19937 random(seed);
    static const unsigned char EDGES[] = {0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xC1, 0xC2, 0xDF, 0xE0, 0xE1,
                                          0xEC, 0xED, 0xEE, 0xEF, 0xF0, 0xF1, 0xF3, 0xF4, 0xF5, 0xFF, 'a',  ' '};
    for (int i = 0; i < 200000; ++i) {
        std::string text(random() % 20, 'x');
        for (std::size_t count = random() % 6; count > 0; --count)
            text += static_cast<char>(EDGES[random() % sizeof EDGES]);
        text += std::string(random() % 3, 'y');
        for (const BadText policy : {BadText::PROBLEM, BadText::REPLACE, BadText::LATIN_1})
            ASSERT_EQ(Read(text, policy), Mended(text, policy)) << "seed " << seed;
    }
}

/// Mostly characters of all lengths, some of them broken, so that sixteen bytes at a time may be good.
std::string MostlyCharacters(std::mt19937& random, int badOneIn)
{
    std::string text;
    for (std::size_t left = random() % 60; left > 0; --left) {
        const unsigned range = random() % 4;
        const std::uint32_t character = range == 0   ? 0x20 + random() % 2
                                        : range == 1 ? 0x80 + random() % 0x780
                                        : range == 2 ? 0xE000 + random() % 0x1000
                                                     : 0x10000 + random() % 0x100000;
        std::string bytes = Bytes(character);
        if (random() % static_cast<unsigned>(badOneIn) == 0) {
            const std::size_t at = random() % bytes.size();
            if (random() % 2 == 0)
                bytes[at] = static_cast<char>(random() % 128 + 128);
            else
                bytes.erase(at, 1);
        }
        text += bytes;
    }
    return text;
}

TEST(JsonUtf8, LongTextsGoByThePolicyBothWays)
{
    const unsigned seed = std::random_device()();
    std::mt19937 random(seed);
    for (int i = 0; i < 30000; ++i) {
        const std::string text = MostlyCharacters(random, i % 2 == 0 ? 1000000 : 40);
        for (const BadText policy : {BadText::PROBLEM, BadText::REPLACE, BadText::LATIN_1}) {
            const std::string mended = Mended(text, policy);
            ASSERT_EQ(Read(text, policy), mended) << "seed " << seed;
            vexa::CWritePolicy writing;
            writing.Text = policy;
            std::string written;
            ASSERT_EQ(vexa::WriteJson(written, text, writing), mended != "refused") << "seed " << seed;
            if (mended == "refused") continue;
            ASSERT_EQ(written, '"' + mended + '"') << "seed " << seed;
        }
    }
}

TEST(JsonUtf8, AStringWithoutEscapesIsHandedOutWhereItStands)
{
    const std::string text = "[\"plain \xC3\xA9\", \"esc\\n\"]";
    const auto source = vexa::JsonEvents(text);
    vexa::CEvent event;
    vexa::CProblem problem;
    ASSERT_TRUE(source->Next(event, problem));
    ASSERT_TRUE(source->Next(event, problem));
    EXPECT_EQ(static_cast<const void*>(event.Text.data()), static_cast<const void*>(text.data() + 2));
    EXPECT_TRUE(event.IsTextKept);
    ASSERT_TRUE(source->Next(event, problem));
    EXPECT_EQ(event.Text, "esc\n");
    EXPECT_FALSE(event.IsTextKept);
}

} // namespace
