#include <vexa/helper.h>

#include <cstddef>
#include <cstdlib>
#include <string>

#include <sys/time.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/captured_log.h"
#include "support/decimal_comma.h"

namespace {

using vexa::helper::CTimer;
using vexa_test::LoggedLines;

static_assert(offsetof(CTimer, StartSec) == 0 && offsetof(CTimer, StartUsec) == 8 && offsetof(CTimer, StopSec) == 16 &&
              offsetof(CTimer, StopUsec) == 24);

CTimer TimerOf(long startSec, long startUsec, long stopSec, long stopUsec)
{
    CTimer timer;
    timer.StartSec = startSec;
    timer.StartUsec = startUsec;
    timer.StopSec = stopSec;
    timer.StopUsec = stopUsec;
    return timer;
}

long NowUs()
{
    timeval now{};
    gettimeofday(&now, nullptr);
    return now.tv_sec * 1000000 + now.tv_usec;
}

long StartUs(const CTimer& timer) { return timer.StartSec * 1000000 + timer.StartUsec; }

void ExpectRestartedAfter(const CTimer& timer, long beforeUs)
{
    EXPECT_GE(StartUs(timer), beforeUs);
    EXPECT_LE(StartUs(timer), NowUs());
    EXPECT_EQ(timer.StartSec, timer.StopSec);
    EXPECT_EQ(timer.StartUsec, timer.StopUsec);
}

/// The number behind the label of a printed line.
long PrintedMs(const std::string& line, const std::string& label)
{
    const std::string head = label + " \tmsec:";
    EXPECT_EQ(head, line.substr(0, head.size()));
    EXPECT_EQ('\n', line.back());
    return std::atol(line.c_str() + head.size());
}

TEST(Timer, RunsFromItsConstruction)
{
    const long before = NowUs();
    ExpectRestartedAfter(CTimer(), before);
}

TEST(Timer, StartTakesTheTimeAsBothTimes)
{
    CTimer timer = TimerOf(1, 2, 3, 4);
    const long before = NowUs();
    timer.Start();
    ExpectRestartedAfter(timer, before);
}

TEST(Timer, StopTakesTheStopTimeOnly)
{
    CTimer timer = TimerOf(1, 2, 3, 4);
    const long before = NowUs();
    timer.Stop();
    EXPECT_EQ(1, timer.StartSec);
    EXPECT_EQ(2, timer.StartUsec);
    EXPECT_GE(timer.StopSec * 1000000 + timer.StopUsec, before);
}

TEST(Timer, MillisecondsAreCutBeforeTheSubtraction)
{
    const CTimer timer = TimerOf(1, 999999, 2, 0);
    EXPECT_EQ(1, timer.GetElapseMs());
    EXPECT_EQ(1, timer.GetElapseUs());
}

TEST(Timer, ReadsStopMinusStartInBothUnits)
{
    const CTimer timer = TimerOf(10, 900500, 12, 100400);
    EXPECT_EQ(1199900, timer.GetElapseUs());
    EXPECT_EQ(1200, timer.GetElapseMs());
}

TEST(Timer, IsNegativeWhenTheClockWentBack)
{
    const CTimer timer = TimerOf(12, 0, 10, 500000);
    EXPECT_EQ(-1500000, timer.GetElapseUs());
    EXPECT_EQ(-1500, timer.GetElapseMs());
}

TEST(Timer, ReadingTheElapsedTimeChangesNothing)
{
    const CTimer timer = TimerOf(1, 2, 3, 4);
    timer.GetElapseUs();
    timer.GetElapseMs();
    EXPECT_EQ(2000002, timer.GetElapseUs());
    EXPECT_EQ(1, timer.StartSec);
    EXPECT_EQ(3, timer.StopSec);
}

TEST(Timer, AMicrosecondLapStopsReadsAndRestarts)
{
    CTimer timer;
    timer.StartSec -= 5;
    const long before = NowUs();
    const long elapsed = timer.ReadElapseUs();
    EXPECT_GE(elapsed, 5000000);
    EXPECT_LT(elapsed, 65000000);
    ExpectRestartedAfter(timer, before);
}

TEST(Timer, AMillisecondLapStopsReadsAndRestarts)
{
    CTimer timer;
    timer.StartSec -= 5;
    const long before = NowUs();
    const long elapsed = timer.ReadElapseMs();
    EXPECT_GE(elapsed, 5000);
    EXPECT_LT(elapsed, 65000);
    ExpectRestartedAfter(timer, before);
}

TEST(Timer, PrintsLabelAndMillisecondsAndRestarts)
{
    CTimer timer;
    timer.StartSec -= 5;
    const long before = NowUs();
    const long printed = PrintedMs(LoggedLines([&] { timer.PrintElapseMs("load"); }), "load");
    EXPECT_GE(printed, 5000);
    EXPECT_LT(printed, 65000);
    ExpectRestartedAfter(timer, before);
}

TEST(Timer, PrintElapseUsPrintsMillisecondsToo)
{
    CTimer timer;
    timer.StartSec -= 5;
    const long before = NowUs();
    const long printed = PrintedMs(LoggedLines([&] { timer.PrintElapseUs("load"); }), "load");
    EXPECT_GE(printed, 5000);
    EXPECT_LT(printed, 65000);
    ExpectRestartedAfter(timer, before);
}

TEST(Timer, PrintedMillisecondsAreCutTo32Bits)
{
    CTimer timer;
    // 2^32 ms are 4294967.296 s: what is left of 4294968 s is 704 ms.
    timer.StartSec -= 4294968;
    const long printed = PrintedMs(LoggedLines([&] { timer.PrintElapseMs("load"); }), "load");
    EXPECT_GE(printed, 703);
    EXPECT_LT(printed, 60704);
}

TEST(Timer, PrintsANumberWithoutGroupingWhateverTheLocale)
{
    const vexa_test::DecimalComma comma;
    CTimer timer;
    timer.StartSec -= 5;
    EXPECT_GE(PrintedMs(LoggedLines([&] { timer.PrintElapseMs("load"); }), "load"), 5000);
}

TEST(Timer, PrintsANullLabelAsText)
{
    CTimer timer;
    EXPECT_GE(PrintedMs(LoggedLines([&] { timer.PrintElapseMs(nullptr); }), "(null)"), 0);
}

} // namespace
