#include "interchange/place.h"

#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

using vexa::CTextPlace;
using vexa::interchange::CLineFinder;

TEST(LineFinder, TellsLinesAndColumnsInAnyOrder)
{
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    for (const unsigned int rarity : {2U, 50U, 10'000U, 1'000'000U}) {
        std::string text(random() % 20'000, 'x');
        for (char& byte : text)
            if (random() % rarity == 0) byte = '\n';
        CLineFinder finder(text);
        for (int i = 0; i < 200; ++i) {
            CTextPlace place;
            place.Offset = random() % (text.size() + 1);
            const std::string before = text.substr(0, place.Offset);
            const std::size_t newline = before.rfind('\n');
            std::size_t lines = 1;
            for (const char byte : before)
                lines += byte == '\n' ? 1 : 0;
            finder.Fill(place);
            EXPECT_EQ(lines, place.Line);
            EXPECT_EQ(newline == std::string::npos ? before.size() + 1 : before.size() - newline, place.Column);
        }
    }
}

TEST(LineFinder, LeavesNoPlaceAndStaysInTheText)
{
    CLineFinder finder("a\nb");
    CTextPlace place;
    finder.Fill(place);
    EXPECT_EQ(0U, place.Line);
    EXPECT_EQ(0U, place.Column);
    place.Offset = 100;
    finder.Fill(place);
    EXPECT_EQ(2U, place.Line);
    EXPECT_EQ(2U, place.Column);
    CLineFinder empty("");
    place.Offset = 0;
    empty.Fill(place);
    EXPECT_EQ(1U, place.Line);
    EXPECT_EQ(1U, place.Column);
}

} // namespace
