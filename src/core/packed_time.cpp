#include "core/packed_time.h"

#include <vexa/date_time.h>

namespace vexa {

namespace {

int Field(const core::PackedField& field, std::uint64_t word) { return static_cast<int>(field.Get(word)); }

/// The sum of two fields of any value; it wraps where the plain sum would overflow.
int Plus(int field, unsigned offset) { return static_cast<int>(static_cast<unsigned>(field) + offset); }

} // namespace

std::uint64_t CDateTime::tm2mtm(const tm& t, bool utc)
{
    return core::PACKED_YEAR.Put(Plus(t.tm_year, 1900)) | core::PACKED_MONTH.Put(Plus(t.tm_mon, 1)) |
           core::PACKED_DAY.Put(t.tm_mday) | core::PACKED_HOUR.Put(t.tm_hour) | core::PACKED_MINUTE.Put(t.tm_min) |
           core::PACKED_SECOND.Put(t.tm_sec) | core::PACKED_YEAR_DAY.Put(t.tm_yday) |
           core::PACKED_WEEK_DAY.Put(t.tm_wday) | core::PACKED_DAYLIGHT.Put(t.tm_isdst) |
           core::PACKED_UTC.Put(utc ? 1 : 0);
}

void CDateTime::mtm2tm(tm& t) const
{
    t.tm_year = Field(core::PACKED_YEAR, TimeWord) - 1900;
    t.tm_mon = Field(core::PACKED_MONTH, TimeWord) - 1;
    t.tm_mday = Field(core::PACKED_DAY, TimeWord);
    t.tm_hour = Field(core::PACKED_HOUR, TimeWord);
    t.tm_min = Field(core::PACKED_MINUTE, TimeWord);
    t.tm_sec = Field(core::PACKED_SECOND, TimeWord);
    t.tm_yday = Field(core::PACKED_YEAR_DAY, TimeWord);
    t.tm_wday = Field(core::PACKED_WEEK_DAY, TimeWord);
    // Two bits with a sign: 3 stands for -1, and 2, which no flag gives, for -2.
    const int daylight = Field(core::PACKED_DAYLIGHT, TimeWord);
    t.tm_isdst = daylight >= 2 ? daylight - 4 : daylight;
}

} // namespace vexa
