#ifndef VEXA_INTERCHANGE_READ_TEXT_H
#define VEXA_INTERCHANGE_READ_TEXT_H

#include <string_view>

#include <vexa/binary.h>
#include <vexa/date_time.h>

/// \file
/// Values that JSON has as text: dates and times, bytes, bits.

namespace vexa::interchange {

/// A point of time in UTC.
struct CInstant {
    long long Seconds = 0; ///< since 1970; negative before
    long Nanoseconds = 0;  ///< 0 to 999,999,999
};

/// Reads RFC 3339; see core/read_time.h.
bool InstantOf(std::string_view text, CInstant& instant);
/// \return false where it is no whole number of milliseconds of the years that a CDateTime has.
bool DateTimeOf(const CInstant& instant, CDateTime& time);
/// Before 1970 too; false where the value is null or an error.
bool InstantOf(const CDateTime& time, CInstant& instant);

/// Reads base64 with its padding (RFC 4648). \return false for any other text; \p bytes is then as it was.
bool BytesOfBase64(std::string_view text, CBinary& bytes);

} // namespace vexa::interchange

#endif
