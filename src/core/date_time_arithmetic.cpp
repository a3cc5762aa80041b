#include <vexa/date_time.h>

#include "core/packed_time.h"

namespace vexa {

namespace {

constexpr std::uint64_t SECOND = 1000;
constexpr std::uint64_t MINUTE = 60 * SECOND;
constexpr std::uint64_t HOUR = 60 * MINUTE;
constexpr std::uint64_t DAY = 24 * HOUR;

/// The milliseconds of `n` units, as a number to add to a time word. Unsigned, because a sum may wrap.
std::uint64_t Milliseconds(long n, std::uint64_t unit) { return static_cast<std::uint64_t>(n) * unit; }

CDateTime& AddTo(CDateTime& t, std::uint64_t milliseconds)
{
    if (core::IsPacked(t.TimeWord)) {
        t.State = Enum::VS_ERROR;
    } else {
        t.TimeWord = (t.TimeWord + milliseconds) & ~core::PACKED_FLAG;
    }
    return t;
}

/// Orders two words as unsigned numbers once the flag is turned round: packed dates are the earlier ones.
std::uint64_t SortKey(const CDateTime& t) { return t.TimeWord ^ core::PACKED_FLAG; }

} // namespace

CDateTime& CDateTime::operator+=(long ms) { return AddTo(*this, Milliseconds(ms, 1)); }

CDateTime& CDateTime::operator-=(long ms) { return AddTo(*this, 0 - Milliseconds(ms, 1)); }

CDateTime& CDateTime::AddDay(int n) { return AddTo(*this, Milliseconds(n, DAY)); }

CDateTime& CDateTime::SubDay(int n) { return AddTo(*this, 0 - Milliseconds(n, DAY)); }

CDateTime& CDateTime::AddHour(int n) { return AddTo(*this, Milliseconds(n, HOUR)); }

CDateTime& CDateTime::SubHour(int n) { return AddTo(*this, 0 - Milliseconds(n, HOUR)); }

CDateTime& CDateTime::AddMin(int n) { return AddTo(*this, Milliseconds(n, MINUTE)); }

CDateTime& CDateTime::SubMin(int n) { return AddTo(*this, 0 - Milliseconds(n, MINUTE)); }

CDateTime& CDateTime::AddSec(int n) { return AddTo(*this, Milliseconds(n, SECOND)); }

CDateTime& CDateTime::SubSec(int n) { return AddTo(*this, 0 - Milliseconds(n, SECOND)); }

CDateTime& CDateTime::AddMSec(long n) { return AddTo(*this, Milliseconds(n, 1)); }

CDateTime& CDateTime::SubMSec(long n) { return AddTo(*this, 0 - Milliseconds(n, 1)); }

bool CDateTime::operator<(const CDateTime& other) const { return SortKey(*this) < SortKey(other); }

bool CDateTime::operator>(const CDateTime& other) const { return other < *this; }

bool CDateTime::operator<=(const CDateTime& other) const { return !(other < *this); }

bool CDateTime::operator>=(const CDateTime& other) const { return !(*this < other); }

bool CDateTime::operator==(const CDateTime& other) const { return TimeWord == other.TimeWord; }

bool CDateTime::operator!=(const CDateTime& other) const { return !(*this == other); }

bool CDateTime::EqualTo(const CDateTime& other) const { return *this == other; }

int CDateTime::Cmp(const CDateTime& other) const
{
    if (*this == other) {
        return 0;
    }
    return *this < other ? -1 : 1;
}

int CDateTime::Cmp(const CDateTime* other) const
{
    if (other == nullptr) {
        return State == Enum::VS_VALID ? 1 : 0;
    }
    return Cmp(*other);
}

bool CDateTime::IsLeapYear(int year) { return year % 4 == 0; }

} // namespace vexa
