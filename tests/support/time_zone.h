#ifndef VEXA_TESTS_SUPPORT_TIME_ZONE_H
#define VEXA_TESTS_SUPPORT_TIME_ZONE_H

#include <cstdlib>
#include <optional>
#include <string>

#include <time.h>

namespace vexa_test {

/// Central European time, written out so that no time-zone files are needed: one hour east of UTC, two in summer.
constexpr char kCentralEurope[] = "CET-1CEST,M3.5.0,M10.5.0/3";

/// Puts the process into a time zone (a TZ text) for the length of a scope.
class TimeZone {
public:
    explicit TimeZone(const char* zone)
    {
        if (const char* previous = std::getenv("TZ")) {
            m_previous = previous;
        }
        setenv("TZ", zone, 1);
        tzset();
    }

    ~TimeZone()
    {
        if (m_previous) {
            setenv("TZ", m_previous->c_str(), 1);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }

    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

private:
    std::optional<std::string> m_previous;
};

} // namespace vexa_test

#endif
