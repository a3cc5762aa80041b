#include <vexa/helper.h>

#include <atomic>
#include <mutex>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"

namespace {

using vexa::helper::LogError;
using vexa::helper::LogHandler;
using vexa::helper::LogLevel;
using vexa::helper::LogWarning;
using vexa::helper::SetLogHandler;
using vexa_test::LoggedLines;

using Line = std::pair<LogLevel, std::string>;

std::mutex s_mutex;
std::vector<Line> s_lines;

void Keep(LogLevel level, std::string_view text)
{
    const std::lock_guard<std::mutex> guard(s_mutex);
    s_lines.emplace_back(level, text);
}

class LogHandlerTest : public testing::Test {
protected:
    void SetUp() override { s_lines.clear(); }
    void TearDown() override { SetLogHandler(nullptr); }
};

TEST_F(LogHandlerTest, TakesLevelAndTextInPlaceOfStandardOutput)
{
    SetLogHandler(&Keep);
    EXPECT_EQ("", LoggedLines([] {
                  LogWarning("%s %d", "disk", 7);
                  LogError("%s", "gone");
                  LogError("%s", "");
              }));
    const std::vector<Line> expected{{LogLevel::WARNING, "disk 7"}, {LogLevel::ERROR, "gone"}, {LogLevel::ERROR, ""}};
    EXPECT_EQ(expected, s_lines);
}

TEST_F(LogHandlerTest, TakesWhatTheLibraryItselfLogs)
{
    SetLogHandler(&Keep);
    const std::string text = "a";
    int number = 0;
    EXPECT_EQ("", LoggedLines([&] { vexa::RefOf(number).AsStdBasicType().ReadFrom(text); }));
    ASSERT_EQ(1U, s_lines.size());
    EXPECT_EQ(LogLevel::ERROR, s_lines[0].first);
    EXPECT_EQ("std::string type can not be converted to int", s_lines[0].second.substr(0, 44)) << s_lines[0].second;
}

TEST_F(LogHandlerTest, TakesALongTextCutAsOnStandardOutput)
{
    SetLogHandler(&Keep);
    LogError("%s", std::string(3000, 'x').c_str());
    LogError(nullptr);
    EXPECT_EQ((std::vector<Line>{{LogLevel::ERROR, std::string(2046, 'x')}}), s_lines);
}

TEST_F(LogHandlerTest, NullGivesTheLinesToStandardOutputAgain)
{
    EXPECT_EQ(nullptr, SetLogHandler(&Keep));
    LogError("%s", "taken");
    const LogHandler before = SetLogHandler(nullptr);
    EXPECT_EQ(&Keep, before);
    EXPECT_EQ("told\n", LoggedLines([] { LogError("%s", "told"); }));
    EXPECT_EQ((std::vector<Line>{{LogLevel::ERROR, "taken"}}), s_lines);
}

TEST_F(LogHandlerTest, WhatAHandlerLogsItselfGoesToStandardOutput)
{
    SetLogHandler([](LogLevel level, std::string_view text) {
        LogWarning("%s", "from inside");
        Keep(level, text);
    });
    EXPECT_EQ("from inside\nfrom inside\n", LoggedLines([] {
                  LogError("%s", "one");
                  LogError("%s", "two");
              }));
    EXPECT_EQ((std::vector<Line>{{LogLevel::ERROR, "one"}, {LogLevel::ERROR, "two"}}), s_lines);
}

TEST_F(LogHandlerTest, ALineWhoseHandlerThrowsIsNotLost)
{
    SetLogHandler([](LogLevel, std::string_view text) {
        if (text == "number") throw 7;
        if (text == "exception") throw std::runtime_error("no room");
    });
    EXPECT_EQ("number\nexception\n", LoggedLines([] {
                  LogError("%s", "number");
                  LogError("%s", "taken");
                  LogError("%s", "exception");
              }));
    SetLogHandler(&Keep); // the next line goes to the handler again
    LogError("%s", "after");
    EXPECT_EQ((std::vector<Line>{{LogLevel::ERROR, "after"}}), s_lines);
}

TEST_F(LogHandlerTest, AHandlerMayReplaceItself)
{
    SetLogHandler([](LogLevel level, std::string_view text) {
        SetLogHandler(nullptr);
        Keep(level, text);
    });
    EXPECT_EQ("second\n", LoggedLines([] {
                  LogError("%s", "first");
                  LogError("%s", "second");
              }));
    EXPECT_EQ((std::vector<Line>{{LogLevel::ERROR, "first"}}), s_lines);
}

TEST_F(LogHandlerTest, ConcurrentLinesAllArriveOnceWhileTheHandlerChanges)
{
    constexpr int THREADS = 4;
    constexpr int LINES = 500;
    static const LogHandler other = [](LogLevel level, std::string_view text) { Keep(level, text); };
    SetLogHandler(&Keep);
    std::atomic<int> running{THREADS};
    std::vector<std::thread> threads;
    for (int t = 0; t < THREADS; ++t)
        threads.emplace_back([t, &running] {
            for (int i = 0; i < LINES; ++i)
                LogWarning("%d:%d", t, i);
            --running;
        });
    while (running.load() != 0) {
        SetLogHandler(other);
        SetLogHandler(&Keep);
    }
    for (std::thread& thread : threads)
        thread.join();
    std::set<std::string> texts;
    for (const Line& line : s_lines)
        texts.insert(line.second);
    EXPECT_EQ(static_cast<std::size_t>(THREADS) * LINES, s_lines.size());
    EXPECT_EQ(s_lines.size(), texts.size());
}

} // namespace
