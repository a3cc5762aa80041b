#include <vexa/date_time.h>

#include <ctime>

#include <ace/OS_NS_sys_time.h>
#include <ace/OS_NS_time.h>
#include <ace/Time_Value.h>

#include "core/calendar.h"
#include "core/packed_time.h"
#include "core/value_text.h"

namespace vexa {

namespace {

/// Milliseconds in a second. Time words are reckoned with as unsigned numbers, which may wrap.
constexpr std::uint64_t SECOND = 1000;

/// Seconds since 1970 of a UTC time; negative when there is no such time. The C library knows local time only, whose
/// distance from UTC is taken off again.
std::time_t SecondsOfUtc(tm t)
{
    t.tm_isdst = 0;
    const std::time_t local = ACE_OS::mktime(&t);
    if (local < 0) {
        return local;
    }
    tzset();
    return local - ::timezone;
}

/// Seconds since 1970 of a local time; negative when there is no such time.
std::time_t SecondsOfLocal(const tm& given)
{
    tm t = given;
    t.tm_isdst = -1;
    const std::time_t first = ACE_OS::mktime(&t);
    if (t.tm_isdst <= 0) {
        return first;
    }
    // In the hour that occurs twice, standard time has the same hour on its clock, and is what is meant.
    t.tm_isdst = 0;
    const std::time_t standard = ACE_OS::mktime(&t);
    return t.tm_hour == given.tm_hour ? standard : first;
}

} // namespace

const std::string CDateTime::DEFAULT_DATETIME_FORMAT = core::DATE_TIME_FORMAT;

CDateTime::CDateTime(long secs, long msecs)
{
    State = secs >= 0 ? Enum::VS_VALID : Enum::VS_ERROR;
    if (secs >= 0) {
        TimeWord = (static_cast<std::uint64_t>(secs) * SECOND + static_cast<std::uint64_t>(msecs)) & ~core::PACKED_FLAG;
    }
}

CDateTime::CDateTime(const tm& t) { ReadFrom(t, false); }

CDateTime::CDateTime(const tm* t, bool utc)
{
    State = Enum::VS_ERROR;
    if (t != nullptr) {
        ReadFrom(*t, utc);
    }
}

CDateTime::CDateTime(unsigned short year, unsigned char month, unsigned char day, unsigned char hour, unsigned char min,
                     unsigned char sec, unsigned short msec, bool utc)
{
    tm t;
    if (!DateTime2Tm(t, year, month, day, hour, min, sec)) {
        State = Enum::VS_ERROR;
        return;
    }
    ReadFrom(t, utc);
    *this += msec;
}

CDateTime::CDateTime(const CDateTime& date, unsigned char hour, unsigned char min, unsigned char sec,
                     unsigned short msec, bool utc)
{
    const tm day = date.As_tm(false);
    *this = CDateTime(static_cast<unsigned short>(day.tm_year + 1900), static_cast<unsigned char>(day.tm_mon + 1),
                      static_cast<unsigned char>(day.tm_mday), hour, min, sec, msec, utc);
}

CDateTime::CDateTime(const std::string& s) { *this = s; }

CDateTime& CDateTime::operator=(const tm& t)
{
    ReadFrom(t, false);
    return *this;
}

CDateTime& CDateTime::operator=(const std::string& s)
{
    tm t;
    if (s.empty()) {
        Init();
        State = Enum::VS_ERROR;
    } else if (String2Tm(t, s)) {
        ReadFrom(t, false);
    } else {
        State = Enum::VS_ERROR;
    }
    return *this;
}

void CDateTime::Init()
{
    State = Enum::VS_NULL;
    TimeWord = 0;
}

CDateTime CDateTime::Now()
{
    // A clock that cannot be read gives -1 seconds, and with that an error.
    const ACE_Time_Value now = ACE_OS::gettimeofday();
    return CDateTime(static_cast<long>(now.sec()), static_cast<long>(now.usec() / 1000));
}

void CDateTime::ReadFrom(const tm& t, bool utc)
{
    const std::time_t seconds = utc ? SecondsOfUtc(t) : SecondsOfLocal(t);
    if (seconds >= 0) {
        TimeWord = static_cast<std::uint64_t>(seconds) * SECOND & ~core::PACKED_FLAG;
        State = Enum::VS_VALID;
    } else if (t.tm_year < 70) {
        TimeWord = tm2mtm(t, utc) | core::PACKED_FLAG;
        State = Enum::VS_VALID;
    } else {
        State = Enum::VS_ERROR;
    }
}

long CDateTime::secs() const { return core::IsPacked(TimeWord) ? -1 : static_cast<long>(TimeWord / SECOND); }

std::time_t CDateTime::As_time_t() const { return secs(); }

unsigned long CDateTime::msecs() const { return core::IsPacked(TimeWord) ? ~0UL : TimeWord; }

unsigned short CDateTime::msec() const
{
    const std::uint64_t part = core::IsPacked(TimeWord) ? core::PACKED_MILLISECOND.Get(TimeWord) : TimeWord % SECOND;
    return static_cast<unsigned short>(part);
}

tm CDateTime::As_tm(bool utc) const
{
    tm zero{};
    zero.tm_zone = "GMT";
    tm t = zero;
    if (core::IsPacked(TimeWord)) {
        mtm2tm(t);
        return t;
    }
    const std::time_t seconds = As_time_t();
    const tm* converted = utc ? gmtime_r(&seconds, &t) : ACE_OS::localtime_r(&seconds, &t);
    return converted != nullptr ? t : zero;
}

void CDateTime::As_tm(tm* out, bool utc) const
{
    if (out != nullptr) {
        *out = As_tm(utc);
    }
}

std::string CDateTime::AsString(const char* format, bool utc) const
{
    core::CTimeText room;
    return std::string(core::TextOf(room, *this, format, utc));
}

std::string_view core::TextOf(CTimeText& room, const CDateTime& value, const char* format, bool utc)
{
    if (value.State == Enum::VS_NULL) return "NULL";
    if (value.State == Enum::VS_ERROR) return "(Error)";
    return FormatTm(room, value.As_tm(utc), format != nullptr ? format : DATE_TIME_FORMAT);
}

} // namespace vexa
