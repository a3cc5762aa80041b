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
    return core::kPackedYear.Put(Plus(t.tm_year, 1900)) | core::kPackedMonth.Put(Plus(t.tm_mon, 1)) |
           core::kPackedDay.Put(t.tm_mday) | core::kPackedHour.Put(t.tm_hour) | core::kPackedMinute.Put(t.tm_min) |
           core::kPackedSecond.Put(t.tm_sec) | core::kPackedYearDay.Put(t.tm_yday) |
           core::kPackedWeekDay.Put(t.tm_wday) | core::kPackedDaylight.Put(t.tm_isdst) |
           core::kPackedUtc.Put(utc ? 1 : 0);
}

void CDateTime::mtm2tm(tm& t) const
{
    t.tm_year = Field(core::kPackedYear, TimeWord) - 1900;
    t.tm_mon = Field(core::kPackedMonth, TimeWord) - 1;
    t.tm_mday = Field(core::kPackedDay, TimeWord);
    t.tm_hour = Field(core::kPackedHour, TimeWord);
    t.tm_min = Field(core::kPackedMinute, TimeWord);
    t.tm_sec = Field(core::kPackedSecond, TimeWord);
    t.tm_yday = Field(core::kPackedYearDay, TimeWord);
    t.tm_wday = Field(core::kPackedWeekDay, TimeWord);
    // Two bits with a sign: 3 stands for -1, and 2, which no flag gives, for -2.
    const int daylight = Field(core::kPackedDaylight, TimeWord);
    t.tm_isdst = daylight >= 2 ? daylight - 4 : daylight;
}

} // namespace vexa
