#include "core/write_time.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "core/decimal.h"
#include "core/packed_time.h"

namespace vexa::core {

namespace {

constexpr long NANOSECONDS = 1000000000;
constexpr long long DAY = 86400;

struct CCalendarTime {
    long long Year, Month, Day, Hour, Minute, Second;
    long Nanosecond;
};

bool IsIn(long long value, long long least, long long most) { return value >= least && value <= most; }

bool IsLeapYear(long long year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

long long DaysInMonth(long long year, long long month)
{
    static constexpr int DAYS[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return DAYS[month - 1] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

bool IsTime(const CCalendarTime& time)
{
    return IsIn(time.Year, 0, 9999) && IsIn(time.Month, 1, 12) && IsIn(time.Hour, 0, 23) && IsIn(time.Minute, 0, 59) &&
           IsIn(time.Second, 0, 60) && IsIn(time.Nanosecond, 0, NANOSECONDS - 1) &&
           IsIn(time.Day, 1, DaysInMonth(time.Year, time.Month));
}

char* WriteTwo(char* at, long long value)
{
    std::memcpy(at, DIGIT_PAIRS.Pairs[value], 2);
    return at + 2;
}

/// Up to nine digits, without the zeros at their end.
char* WriteFraction(char* at, long nanoseconds)
{
    if (nanoseconds == 0) return at;
    *at++ = '.';
    for (long unit = NANOSECONDS / 10; nanoseconds != 0; nanoseconds %= unit, unit /= 10)
        *at++ = static_cast<char>('0' + nanoseconds / unit);
    return at;
}

std::string_view Text(CTimeRoom& room, const CCalendarTime& time, bool isUtc)
{
    if (!IsTime(time)) return {};
    char* at = WriteTwo(WriteTwo(room.data(), time.Year / 100), time.Year % 100);
    const auto next = [&at](char separator, long long value) {
        *at = separator;
        at = WriteTwo(at + 1, value);
    };
    next('-', time.Month);
    next('-', time.Day);
    next('T', time.Hour);
    next(':', time.Minute);
    next(':', time.Second);
    at = WriteFraction(at, time.Nanosecond);
    if (isUtc) *at++ = 'Z';
    return {room.data(), static_cast<std::size_t>(at - room.data())};
}

/// Sets the date of a day that is counted from 1970. Years begin in March here, so that a leap day is their last one.
void SetDate(CCalendarTime& time, long long day)
{
    constexpr long long DAYS_OF_400_YEARS = 146097;
    constexpr long long MARCH_OF_YEAR_0 = 719468; // days from then to 1970
    day += MARCH_OF_YEAR_0;
    const long long era = (day >= 0 ? day : day - DAYS_OF_400_YEARS + 1) / DAYS_OF_400_YEARS;
    const long long inEra = day - era * DAYS_OF_400_YEARS;
    const long long year = (inEra - inEra / 1460 + inEra / 36524 - inEra / 146096) / 365;
    const long long inYear = inEra - (365 * year + year / 4 - year / 100);
    const long long month = (5 * inYear + 2) / 153; // from March
    time.Day = inYear - (153 * month + 2) / 5 + 1;
    time.Month = month < 10 ? month + 3 : month - 9;
    time.Year = year + era * 400 + (time.Month <= 2 ? 1 : 0);
}

std::string_view TextOfPacked(CTimeRoom& room, std::uint64_t word)
{
    const auto field = [word](const PackedField& place) { return static_cast<long long>(place.Get(word)); };
    const CCalendarTime time{field(PACKED_YEAR),
                             field(PACKED_MONTH),
                             field(PACKED_DAY),
                             field(PACKED_HOUR),
                             field(PACKED_MINUTE),
                             field(PACKED_SECOND),
                             static_cast<long>(field(PACKED_MILLISECOND)) * 1000000};
    return Text(room, time, field(PACKED_UTC) != 0);
}

} // namespace

std::string_view TextOfTime(CTimeRoom& room, const CDateTime& time) noexcept
{
    if (IsPacked(time.TimeWord)) return TextOfPacked(room, time.TimeWord);
    return TextOfTime(room, static_cast<long long>(time.TimeWord / 1000),
                      static_cast<long>(time.TimeWord % 1000) * 1000000);
}

std::string_view TextOfTime(CTimeRoom& room, const tm& time) noexcept
{
    return Text(room,
                {time.tm_year + 1900LL, time.tm_mon + 1LL, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec, 0},
                false);
}

std::string_view TextOfTime(CTimeRoom& room, long long seconds, long nanoseconds) noexcept
{
    constexpr long long LEAST = -62167219200; // the year 0
    constexpr long long MOST = 253402300799;  // the end of 9999
    if (!IsIn(seconds, LEAST, MOST)) return {};
    const long long day = (seconds - (seconds < 0 ? DAY - 1 : 0)) / DAY;
    const long long inDay = seconds - day * DAY;
    CCalendarTime time{0, 0, 0, inDay / 3600, inDay / 60 % 60, inDay % 60, nanoseconds};
    SetDate(time, day);
    return Text(room, time, true);
}

} // namespace vexa::core
