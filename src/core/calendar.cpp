#include "core/calendar.h"

#include <cstring>
#include <ctime>

#include <vexa/date_time.h>

#include "core/bounded.h"
#include "core/value_text.h"

namespace vexa {

namespace {

constexpr int FIRST_YEAR = 1900;

/// The year 9999, counted as a `tm` counts.
constexpr unsigned LAST_TM_YEAR = 9999 - FIRST_YEAR;

void Clear(tm& t) { core::memset_s(&t, sizeof t, 0, sizeof t); }

/// Compared as unsigned numbers, so that a negative field is out of range too.
bool IsAtMost(int field, unsigned limit) { return static_cast<unsigned>(field) <= limit; }

bool HasCalendarFields(const tm& t)
{
    return IsAtMost(t.tm_year, LAST_TM_YEAR) && IsAtMost(t.tm_mon, 11) && t.tm_mday >= 1 && t.tm_mday <= 31 &&
           IsAtMost(t.tm_hour, 23) && IsAtMost(t.tm_min, 59) && IsAtMost(t.tm_sec, 59);
}

} // namespace

bool Date2Tm(tm& t, unsigned short year, unsigned char month, unsigned char day)
{
    Clear(t);
    // A year before 1900 wraps to one far behind 9999.
    const auto tmYear = static_cast<unsigned short>(year - FIRST_YEAR);
    if (tmYear > LAST_TM_YEAR || month < 1 || month > 12 || day < 1 || day > 31) {
        return false;
    }
    t.tm_year = tmYear;
    t.tm_mon = month - 1;
    t.tm_mday = day;
    return true;
}

bool DateTime2Tm(tm& t, unsigned short year, unsigned char month, unsigned char day, unsigned char hour,
                 unsigned char min, unsigned char sec)
{
    if (!Date2Tm(t, year, month, day) || hour > 23 || min > 59 || sec > 59) {
        return false;
    }
    t.tm_hour = hour;
    t.tm_min = min;
    t.tm_sec = sec;
    t.tm_isdst = -1;
    return true;
}

bool String2Tm(tm& t, const std::string& s)
{
    Clear(t);
    return strptime_l(s.c_str(), core::DATE_TIME_FORMAT, &t, core::CLocale()) != nullptr;
}

std::string Tm2String(const tm& t, const std::string& format)
{
    core::CTimeText room;
    return std::string(core::FormatTm(room, t, format.c_str()));
}

std::string_view core::FormatTm(CTimeText& room, const tm& t, const char* format)
{
    if (!HasCalendarFields(t)) return "errortime";
    room.fill('\0');
    strftime_l(room.data(), room.size(), format, &t, CLocale());
    // A text that is too long leaves what was formatted of it, and one byte at least is still zero.
    return {room.data(), strnlen(room.data(), room.size())};
}

} // namespace vexa
