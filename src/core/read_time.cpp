#include "core/read_time.h"

namespace vexa::core {
namespace {

constexpr long long DAYS_AN_ERA = 146097;  // of 400 years
constexpr long long DAYS_TO_1970 = 719468; // from the first of March of the year 0
constexpr unsigned int FRACTION_DIGITS = 9;

struct CFields {
    int Year = 0;
    int Month = 0;
    int Day = 0;
    int Hour = 0;
    int Minute = 0;
    int Second = 0;
    long Nanosecond = 0;
};

constexpr long long FloorDivide(long long value, long long divisor)
{
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

bool IsLeap(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int DaysOf(int year, int month)
{
    static constexpr int DAYS[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeap(year) ? 29 : DAYS[month - 1];
}

/// Years begin in March here, so that the leap day is their last.
long long DaysSince1970(int year, int month, int day)
{
    const long long shifted = static_cast<long long>(year) - (month <= 2 ? 1 : 0);
    const long long era = FloorDivide(shifted, 400);
    const long long yearOfEra = shifted - era * 400;
    const long long dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return era * DAYS_AN_ERA + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - DAYS_TO_1970;
}

long long SecondsOf(int year, int month, int day, int hour, int minute, int second)
{
    return DaysSince1970(year, month, day) * 86400 + hour * 3600LL + minute * 60LL + second;
}

/// Takes a text apart from its beginning. After the first that does not fit everything fails.
class CScanner {
public:
    explicit CScanner(std::string_view text) : m_text(text) {}

    int Number(unsigned int digits)
    {
        int value = 0;
        for (unsigned int i = 0; i < digits; ++i) {
            if (!IsDigit()) m_isGood = false;
            if (!m_isGood) return 0;
            value = value * 10 + (Take() - '0');
        }
        return value;
    }
    void Expect(char wanted) { m_isGood = m_isGood && Accept(wanted); }
    bool Accept(char wanted)
    {
        const bool isThere = !m_text.empty() && m_text.front() == wanted;
        if (isThere) Take();
        return isThere;
    }
    bool AcceptAny(std::string_view wanted)
    {
        const bool isThere = !m_text.empty() && wanted.find(m_text.front()) != std::string_view::npos;
        if (isThere) Take();
        return isThere;
    }
    long Fraction()
    {
        long value = 0;
        unsigned int digits = 0;
        for (; IsDigit(); ++digits) {
            const int digit = Take() - '0';
            if (digits < FRACTION_DIGITS)
                value = value * 10 + digit;
            else if (digit != 0)
                m_isGood = false;
        }
        if (digits == 0) m_isGood = false;
        for (; digits < FRACTION_DIGITS; ++digits)
            value *= 10;
        return value;
    }
    void Fail() { m_isGood = false; }
    bool IsAtEnd() const { return m_isGood && m_text.empty(); }

private:
    bool IsDigit() const { return !m_text.empty() && m_text.front() >= '0' && m_text.front() <= '9'; }
    char Take()
    {
        const char first = m_text.front();
        m_text.remove_prefix(1);
        return first;
    }

    std::string_view m_text;
    bool m_isGood = true;
};

/// Minutes east of UTC.
int ReadZone(CScanner& scan)
{
    if (scan.AcceptAny("Zz")) return 0;
    const bool isWest = scan.Accept('-');
    if (!isWest) scan.Expect('+');
    const int hours = scan.Number(2);
    scan.Expect(':');
    const int minutes = scan.Number(2);
    if (hours > 23 || minutes > 59) scan.Fail();
    return (isWest ? -1 : 1) * (hours * 60 + minutes);
}

void ReadFields(CScanner& scan, CFields& time)
{
    time.Year = scan.Number(4);
    scan.Expect('-');
    time.Month = scan.Number(2);
    scan.Expect('-');
    time.Day = scan.Number(2);
    if (!scan.AcceptAny("Tt ")) scan.Fail();
    time.Hour = scan.Number(2);
    scan.Expect(':');
    time.Minute = scan.Number(2);
    scan.Expect(':');
    time.Second = scan.Number(2);
    time.Nanosecond = scan.Accept('.') ? scan.Fraction() : 0;
}

bool IsInCalendar(const CFields& time, int lastSecond)
{
    return time.Month >= 1 && time.Month <= 12 && time.Day >= 1 && time.Day <= DaysOf(time.Year, time.Month) &&
           time.Hour <= 23 && time.Minute <= 59 && time.Second <= lastSecond;
}

} // namespace

bool ReadTime(std::string_view text, long long& seconds, long& nanoseconds) noexcept
{
    CScanner scan(text);
    CFields time;
    ReadFields(scan, time);
    const int offset = ReadZone(scan);
    if (!scan.IsAtEnd() || !IsInCalendar(time, 59)) return false;
    seconds = SecondsOf(time.Year, time.Month, time.Day, time.Hour, time.Minute, time.Second) - offset * 60LL;
    nanoseconds = time.Nanosecond;
    return true;
}

bool ReadTime(std::string_view text, tm& time) noexcept
{
    CScanner scan(text);
    CFields read;
    ReadFields(scan, read);
    if (!scan.IsAtEnd() || !IsInCalendar(read, 60) || read.Nanosecond != 0) return false;
    time = tm();
    time.tm_year = read.Year - 1900;
    time.tm_mon = read.Month - 1;
    time.tm_mday = read.Day;
    time.tm_hour = read.Hour;
    time.tm_min = read.Minute;
    time.tm_sec = read.Second;
    const long long day = DaysSince1970(read.Year, read.Month, read.Day);
    time.tm_yday = static_cast<int>(day - DaysSince1970(read.Year, 1, 1));
    time.tm_wday = static_cast<int>(((day + 4) % 7 + 7) % 7); // 1970 began on a Thursday
    time.tm_isdst = -1;
    return true;
}

long long SecondsOf(const tm& time) noexcept
{
    return SecondsOf(time.tm_year + 1900, time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec);
}

} // namespace vexa::core
