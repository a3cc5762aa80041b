#ifndef VEXA_CORE_READ_TIME_H
#define VEXA_CORE_READ_TIME_H

#include <ctime>
#include <string_view>

/// \file
/// Instants from RFC 3339 text, in the Gregorian calendar, whatever the process's time zone; the other way round is
/// core/write_time.h. `t`, `z` and a blank for the T are read too. The whole text must be one instant; digits of the
/// fraction beyond the ninth must be 0.

namespace vexa::core {

/// With a zone: seconds since 1970 in UTC, and nanoseconds from 0 to 999,999,999. \return false, with both unchanged,
/// for every other text. There are no leap seconds.
bool ReadTime(std::string_view text, long long& seconds, long& nanoseconds) noexcept;

/// Without a zone and without a fraction other than 0; a leap second may be one. Sets all fields, `tm_isdst` to -1.
/// \return false, with \p time unchanged, for every other text.
bool ReadTime(std::string_view text, tm& time) noexcept;

/// Seconds since 1970 of a date and time in UTC, by its year, month, day, hour, minute and second.
long long SecondsOf(const tm& time) noexcept;

} // namespace vexa::core

#endif
