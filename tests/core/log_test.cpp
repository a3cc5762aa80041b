#include <vexa/helper.h>

#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "support/captured_log.h"
#include "support/decimal_comma.h"

namespace {

using vexa::helper::LogError;
using vexa::helper::LogWarning;
using vexa_test::LoggedLines;

using LogFunction = void (*)(const char*, ...);

class Log : public testing::TestWithParam<LogFunction> {};

TEST_P(Log, WritesTheFormattedTextAndANewlineAndNothingElse)
{
    EXPECT_EQ("a 1 of type int\n", LoggedLines([] { GetParam()("%s %d of type %s", "a", 1, "int"); }));
}

TEST_P(Log, KeepsTheFirst2046CharactersOfALongerText)
{
    const std::string text = std::string(2045, 'x') + "yz" + std::string(953, 'x');
    EXPECT_EQ(std::string(2045, 'x') + "y\n", LoggedLines([&] { GetParam()("%s", text.c_str()); }));
}

TEST_P(Log, KeepsATextOf2046CharactersWhole)
{
    const std::string text = std::string(2045, 'x') + "y";
    EXPECT_EQ(text + "\n", LoggedLines([&] { GetParam()("%s", text.c_str()); }));
}

TEST_P(Log, WritesNothingForANullFormat)
{
    EXPECT_EQ("", LoggedLines([] { GetParam()(nullptr); }));
}

TEST_P(Log, WritesAnEmptyTextAsAnEmptyLine)
{
    EXPECT_EQ("\n", LoggedLines([] { GetParam()("%s", ""); }));
}

TEST_P(Log, RefusesAFormatThatStoresThroughAnArgument)
{
    for (const char* format : {"%n", "a%d%n", "%hhn", "%5lln", "%-*n", "%1$n", "%%%n"}) {
        long stored[2] = {7, 7};
        EXPECT_EQ("\n", LoggedLines([&] { GetParam()(format, stored, stored); })) << format;
        EXPECT_EQ(7, stored[0]) << format;
        EXPECT_EQ(7, stored[1]) << format;
    }
}

TEST_P(Log, TakesAnNThatBelongsToNoDirective)
{
    EXPECT_EQ("%n 1n sn\n", LoggedLines([] { GetParam()("%%n %dn %sn", 1, "s"); }));
}

TEST_P(Log, EndsTheTextAtAZeroCharacter)
{
    EXPECT_EQ("ab\n", LoggedLines([] { GetParam()("ab%ccd", '\0'); }));
}

TEST_P(Log, DoesNotFollowTheGlobalLocaleOfCPlusPlus)
{
    const vexa_test::DecimalComma comma;
    EXPECT_EQ("1234.5 and 1234567\n", LoggedLines([] { GetParam()("%.1f and %d", 1234.5, 1234567); }));
}

TEST_P(Log, DoesNotFollowTheLocaleOfTheCLibrary)
{
    const vexa_test::CDecimalComma comma;
    if (!comma.Found()) {
        GTEST_SKIP() << "no locale de_DE.UTF-8";
    }
    EXPECT_EQ("1234.5\n", LoggedLines([] { GetParam()("%.1f", 1234.5); }));
}

TEST_P(Log, LinesOfSeveralThreadsStayWhole)
{
    constexpr int kLines = 200;
    const std::string texts[] = {std::string(1500, 'a'), std::string(1500, 'b')};
    std::istringstream lines(LoggedLines([&] {
        std::vector<std::thread> threads;
        for (const std::string& text : texts) {
            threads.emplace_back([&text, log = GetParam()] {
                for (int i = 0; i < kLines; ++i) {
                    log("%s", text.c_str());
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    }));
    int counts[2] = {};
    for (std::string line; std::getline(lines, line);) {
        ASSERT_TRUE(line == texts[0] || line == texts[1]) << line;
        ++counts[line == texts[1] ? 1 : 0];
    }
    EXPECT_EQ(kLines, counts[0]);
    EXPECT_EQ(kLines, counts[1]);
}

INSTANTIATE_TEST_SUITE_P(WarningsAndErrors, Log, testing::Values(&LogWarning, &LogError),
                         [](const auto& param) { return param.index == 0 ? "LogWarning" : "LogError"; });

} // namespace
