#ifndef VEXA_DATE_TIME_H
#define VEXA_DATE_TIME_H

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <string>
#include <type_traits>

#include <vexa/export.h>
#include <vexa/value_state.h>

namespace vexa {

/// An instant with millisecond resolution, or null, or an error.
///
/// From 1970 on the instant is a count of milliseconds. Before 1970, where the C library's time functions give no
/// result, it is a packed date and time: such a value can be read, rendered and compared, but not calculated with.
/// Nothing is thrown or logged; every failure makes the state VS_ERROR. Text does not depend on the process's locale;
/// local time is that of the process's time zone (TZ). Separate objects may be used from several threads; one object
/// belongs to one thread at a time.
class VEXA_API CDateTime {
public:
    std::uint32_t State = Enum::VS_NULL; ///< one of Enum::ValueStateEnum

    /// Top bit 0: milliseconds since 1970-01-01 00:00:00 UTC.
    /// Top bit 1: a packed date and time before 1970. From the highest bit down: 1, year (12 bits), month (4, from 1),
    /// day (5), hour (5), minute (6), second (6), millisecond (10), day of the year (9, from 0), day of the week (3,
    /// from Sunday, 0), daylight saving (2, signed: 1 in effect, 0 not, -1 unknown), read as UTC (1).
    std::uint64_t TimeWord = 0;

    /// "%Y-%m-%d %H:%M:%S": how text is read, and written when no other format is given.
    static const std::string DEFAULT_DATETIME_FORMAT;

    /// Null.
    CDateTime() = default;

    /// An instant given in seconds since 1970-01-01 00:00:00 UTC, plus milliseconds. Negative seconds are an error.
    CDateTime(long secs, long msecs);

    /// The same for any other integers, so that two literal zeros mean this and not a null `tm` pointer.
    template<typename Secs, typename Msecs,
             typename = std::enable_if_t<std::is_integral_v<Secs> && std::is_integral_v<Msecs> &&
                                         !std::is_same_v<Msecs, bool>>>
    CDateTime(Secs secs, Msecs msecs) : CDateTime(static_cast<long>(secs), static_cast<long>(msecs))
    {
    }

    /// Local time; see ReadFrom.
    CDateTime(const tm& t);

    /// See ReadFrom; a null `t` is an error.
    CDateTime(const tm* t, bool utc);

    /// From calendar fields, which are checked as DateTime2Tm does it. A date before 1970 is an error here, because
    /// milliseconds cannot be added to it.
    CDateTime(unsigned short year, unsigned char month, unsigned char day, unsigned char hour, unsigned char min,
              unsigned char sec, unsigned short msec, bool utc);

    /// The calendar day that `date` has in local time, at another time of day; `utc` tells how the result is read.
    CDateTime(const CDateTime& date, unsigned char hour, unsigned char min, unsigned char sec, unsigned short msec,
              bool utc);

    /// Reads the text, as operator= does.
    CDateTime(const std::string& s);

    CDateTime& operator=(const tm& t);

    /// Reads local time in DEFAULT_DATETIME_FORMAT; text behind it is ignored. An empty text is an error, not null.
    CDateTime& operator=(const std::string& s);

    /// Makes the value null.
    void Init();

    /// The present time of the wall clock.
    static CDateTime Now();

    /// Reads a broken-down time, as local time or as UTC. `tm_isdst` is not looked at: a local time that occurs twice,
    /// when daylight saving ends, means the later instant. A date before 1970 is kept packed, as the fields stand. If
    /// there is no such instant, the state becomes VS_ERROR and the time word stays as it was.
    void ReadFrom(const tm& t, bool utc);

    // The readers below look at the time word only, whatever the state.

    /// Whole seconds since 1970-01-01 00:00:00 UTC; -1 before 1970.
    long secs() const;

    /// The same as secs().
    std::time_t As_time_t() const;

    /// Milliseconds since 1970-01-01 00:00:00 UTC; all bits set before 1970.
    unsigned long msecs() const;

    /// The millisecond within the second, 0 to 999.
    unsigned short msec() const;

    /// The broken-down time, UTC or local. A packed date is given as it was read, whatever `utc` says. A year that a
    /// `tm` cannot hold gives all fields zero.
    tm As_tm(bool utc = false) const;

    /// Stores As_tm(utc) into `out`, unless it is null.
    void As_tm(tm* out, bool utc = false) const;

    /// "NULL", "(Error)", or the time as Tm2String formats it, in DEFAULT_DATETIME_FORMAT when `format` is null.
    std::string AsString(const char* format = nullptr, bool utc = false) const;

    /// Unpacks the time word of a date before 1970; sets every field except `tm_gmtoff` and `tm_zone`.
    void mtm2tm(tm& t) const;

    /// Packs a broken-down time into a time word, as its fields stand, with millisecond 0 and without the top bit.
    static std::uint64_t tm2mtm(const tm& t, bool utc);

    // Arithmetic. A date before 1970 cannot be calculated with: the state becomes VS_ERROR and the time word stays.
    // Going back past 1970 is not noticed: the top bit is cleared and leaves a time in the far future.

    CDateTime& operator+=(long ms);
    CDateTime& operator-=(long ms);

    CDateTime& AddDay(int n);
    CDateTime& SubDay(int n);
    CDateTime& AddHour(int n);
    CDateTime& SubHour(int n);
    CDateTime& AddMin(int n);
    CDateTime& SubMin(int n);
    CDateTime& AddSec(int n);
    CDateTime& SubSec(int n);
    CDateTime& AddMSec(long n);
    CDateTime& SubMSec(long n);

    // The order of the instants; the states take no part in it. A date before 1970 is earlier than any other, and two
    // of them are ordered by their packed fields.

    bool operator<(const CDateTime& other) const;
    bool operator>(const CDateTime& other) const;
    bool operator<=(const CDateTime& other) const;
    bool operator>=(const CDateTime& other) const;
    bool operator==(const CDateTime& other) const;
    bool operator!=(const CDateTime& other) const;

    bool EqualTo(const CDateTime& other) const;

    /// -1 when this is earlier than `other`, 0 when they are equal, 1 when it is later.
    int Cmp(const CDateTime& other) const;

    /// The same; against a null pointer, 1 when this is valid and 0 when it is not.
    int Cmp(const CDateTime* other) const;

    /// True when the year is divisible by 4. There is no century rule: 1900 and 2100 count as leap years.
    static bool IsLeapYear(int year);
};

inline bool operator==(const tm& left, const CDateTime& right) { return right.EqualTo(CDateTime(left)); }
inline bool operator!=(const tm& left, const CDateTime& right) { return !right.EqualTo(CDateTime(left)); }

static_assert(sizeof(CDateTime) == 16, "applications compile the size of a CDateTime in");
static_assert(offsetof(CDateTime, State) == 0 && offsetof(CDateTime, TimeWord) == 8, "and the places of its fields");

/// Clears `t` and sets its date. False, with `t` cleared, unless the year is 1900 to 9999, the month 1 to 12 and the
/// day 1 to 31; the day is not checked against the month.
VEXA_API bool Date2Tm(tm& t, unsigned short year, unsigned char month, unsigned char day);

/// Clears `t` and sets its date and time, with `tm_isdst` -1. False when Date2Tm refuses the date, or unless the hour
/// is at most 23, the minute 59 and the second 59; `t` then has the date at most.
VEXA_API bool DateTime2Tm(tm& t, unsigned short year, unsigned char month, unsigned char day, unsigned char hour,
                          unsigned char min, unsigned char sec);

/// Clears `t` and reads it from text in CDateTime::DEFAULT_DATETIME_FORMAT; text behind it is ignored. When it returns
/// false, `t` may hold the fields that were read before the text failed.
VEXA_API bool String2Tm(tm& t, const std::string& s);

/// Formats `t` as strftime does in the "C" locale, up to 511 bytes. "errortime" when the year is not 1900 to 9999 or
/// another field of the date or the time of day is out of its range.
VEXA_API std::string Tm2String(const tm& t, const std::string& format);

} // namespace vexa

#endif
