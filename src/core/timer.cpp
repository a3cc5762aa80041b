#include <iostream>
#include <string>

#include <sys/time.h>

#include <vexa/helper.h>

namespace vexa::helper {

namespace {

/// A time in units of `perSecond`. The fields are open and may hold anything, so the sum wraps instead of overflowing.
unsigned long Count(long seconds, unsigned long perSecond, long units)
{
    return static_cast<unsigned long>(seconds) * perSecond + static_cast<unsigned long>(units);
}

} // namespace

CTimer::CTimer() : StartSec(0), StartUsec(0), StopSec(0), StopUsec(0) { Start(); }

void CTimer::Start()
{
    Stop();
    StartSec = StopSec;
    StartUsec = StopUsec;
}

void CTimer::Stop()
{
    timeval now{};
    gettimeofday(&now, nullptr);
    StopSec = now.tv_sec;
    StopUsec = now.tv_usec;
}

long CTimer::GetElapseUs() const
{
    return static_cast<long>(Count(StopSec, 1000000, StopUsec) - Count(StartSec, 1000000, StartUsec));
}

long CTimer::GetElapseMs() const
{
    return static_cast<long>(Count(StopSec, 1000, StopUsec / 1000) - Count(StartSec, 1000, StartUsec / 1000));
}

long CTimer::ReadElapseUs()
{
    Stop();
    const long elapsed = GetElapseUs();
    Start();
    return elapsed;
}

long CTimer::ReadElapseMs()
{
    Stop();
    const long elapsed = GetElapseMs();
    Start();
    return elapsed;
}

void CTimer::PrintElapseMs(const char* label)
{
    Stop();
    std::string line = label != nullptr ? label : "(null)";
    line += " \tmsec:";
    line += std::to_string(static_cast<int>(GetElapseMs()));
    line += '\n';
    std::cout.write(line.data(), static_cast<std::streamsize>(line.size())).flush();
    Start();
}

void CTimer::PrintElapseUs(const char* label) { PrintElapseMs(label); }

} // namespace vexa::helper
