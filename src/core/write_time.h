#ifndef VEXA_CORE_WRITE_TIME_H
#define VEXA_CORE_WRITE_TIME_H

#include <array>
#include <ctime>
#include <string_view>

#include <vexa/date_time.h>

/// \file
/// Instants as RFC 3339 has them: `2024-02-29T12:00:00.25Z`, with as many digits of a fraction as it needs.

namespace vexa::core {

/// Where such a text is formed.
using CTimeRoom = std::array<char, 40>;

// All of them give an empty text for what is no instant of the years 0 to 9999.

/// An instant that was read as local time before 1970 has no zone in its text, as nobody knows what it was then.
std::string_view TextOfTime(CTimeRoom& room, const CDateTime& time) noexcept;
/// Without a zone. A leap second may be one.
std::string_view TextOfTime(CTimeRoom& room, const tm& time) noexcept;
/// Seconds since 1970 in UTC, and nanoseconds from 0 to 999,999,999.
std::string_view TextOfTime(CTimeRoom& room, long long seconds, long nanoseconds) noexcept;

} // namespace vexa::core

#endif
