#include "interchange/tagged.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

#include "interchange/big_integer.h"
#include "interchange/json_events.h"
#include "interchange/write_time.h"

namespace vexa::interchange {
namespace {

constexpr std::size_t MOST_BYTES = 4153; // of an integer of 10,000 decimal digits

bool Fail(CProblem& problem, const CEvent& event, ProblemCode code, const char* expected)
{
    problem.Code = code;
    problem.Expected = expected;
    problem.Place.Offset = event.Offset;
    problem.Place.Length = event.Length;
    return false;
}

bool IsInteger(EventKind kind)
{
    return kind == EventKind::SIGNED || kind == EventKind::UNSIGNED || kind == EventKind::NEGATIVE;
}

/// Of an integer.
std::string DigitsOf(const CEvent& event)
{
    if (event.Kind == EventKind::SIGNED) return std::to_string(event.Signed);
    std::string digits = std::to_string(event.Unsigned);
    if (event.Kind == EventKind::UNSIGNED) return digits;
    Increment(digits);
    return '-' + digits;
}

/// Digits times ten to the exponent, in JSON's grammar.
std::string Scaled(std::string digits, long long exponent)
{
    constexpr long long MOST_PLACES = 1000;
    if (exponent == 0) return digits;
    if (exponent > 0 || exponent < -MOST_PLACES) return digits + 'e' + std::to_string(exponent);
    const auto places = static_cast<std::size_t>(-exponent);
    const std::size_t start = digits[0] == '-' ? 1 : 0;
    const std::size_t count = digits.size() - start;
    if (count <= places) digits.insert(start, places + 1 - count, '0');
    digits.insert(digits.size() - places, 1, '.');
    return digits;
}

/// To the microsecond.
std::string TextOfSeconds(double seconds)
{
    constexpr int MICROSECONDS = 1'000'000;
    constexpr long NANOSECONDS = 1000;
    const double whole = std::floor(seconds);
    const long long fraction = std::llround((seconds - whole) * MICROSECONDS);
    CTimeRoom room;
    return std::string(TextOfTime(room, static_cast<long long>(whole) + fraction / MICROSECONDS,
                                  static_cast<long>(fraction % MICROSECONDS) * NANOSECONDS));
}

double SecondsOf(const CEvent& event)
{
    switch (event.Kind) {
    case EventKind::SIGNED: return static_cast<double>(event.Signed);
    case EventKind::UNSIGNED: return static_cast<double>(event.Unsigned);
    case EventKind::NEGATIVE: return -1 - static_cast<double>(event.Unsigned);
    case EventKind::FLOATING: return event.Floating;
    default: return std::numeric_limits<double>::quiet_NaN();
    }
}

} // namespace

bool CTaggedEvents::Next(CEventSource& source, CEvent& event, CProblem& problem)
{
    if (!Take(source, event, problem)) return false;
    const std::size_t begin = event.Offset;
    if (event.Kind == EventKind::TAG) {
        if (!FillTagged(source, event, problem)) return false;
        event.Length += event.Offset - begin;
        event.Offset = begin;
    }
    if (event.Kind == EventKind::NEGATIVE) SetDigits(event, DigitsOf(event));
    return true;
}

/// The next event, with pieces as one.
bool CTaggedEvents::Take(CEventSource& source, CEvent& event, CProblem& problem)
{
    event = CEvent();
    if (!source.Next(event, problem)) return false;
    const bool isInPieces = event.Kind == EventKind::BEGIN_STRING || event.Kind == EventKind::BEGIN_BYTES;
    return !isInPieces || Join(source, event, problem);
}

bool CTaggedEvents::Join(CEventSource& source, CEvent& event, CProblem& problem)
{
    const std::size_t begin = event.Offset;
    const EventKind kind = event.Kind == EventKind::BEGIN_STRING ? EventKind::STRING : EventKind::BYTES;
    for (m_joined.clear(); m_joined.size() <= m_most; m_joined += event.Text) {
        event = CEvent();
        if (!source.Next(event, problem)) return false;
        if (event.Kind == EventKind::END_PIECES) break;
        if (event.Kind != kind)
            return Fail(problem, event, ProblemCode::SYNTAX, kind == EventKind::STRING ? "a text" : "a byte string");
    }
    event.Kind = kind;
    event.Text = m_joined;
    event.Length += event.Offset - begin;
    event.Offset = begin;
    return true;
}

/// Passes over tags to the value. \param tag the last that means something.
bool CTaggedEvents::PassTags(CEventSource& source, CEvent& event, std::optional<ValueTag>& tag, CProblem& problem)
{
    while (event.Kind == EventKind::TAG) {
        if (event.Unsigned <= static_cast<unsigned long long>(ValueTag::DECIMAL))
            tag = static_cast<ValueTag>(event.Unsigned);
        if (!Take(source, event, problem)) return false;
    }
    const bool isEnd =
        event.Kind == EventKind::END || event.Kind == EventKind::END_ARRAY || event.Kind == EventKind::END_OBJECT;
    return !isEnd || Fail(problem, event, ProblemCode::SYNTAX, "a value");
}

bool CTaggedEvents::FillTagged(CEventSource& source, CEvent& event, CProblem& problem)
{
    std::optional<ValueTag> tag;
    if (!PassTags(source, event, tag, problem)) return false;
    if (!tag || event.Kind == EventKind::KEY) return true;
    switch (*tag) {
    case ValueTag::TIME_TEXT: return true;
    case ValueTag::SECONDS: return FillSeconds(event, problem);
    case ValueTag::INTEGER:
    case ValueTag::NEGATIVE: return FillInteger(event, tag == ValueTag::NEGATIVE, problem);
    case ValueTag::DECIMAL: break;
    }
    return FillDecimal(source, event, problem);
}

bool CTaggedEvents::FillSeconds(CEvent& event, CProblem& problem)
{
    constexpr double FIRST_SECOND = -62167219200.0; // of the year 0
    constexpr double LAST_SECOND = 253402300799.0;  // of the year 9999
    const double seconds = SecondsOf(event);
    if (!(seconds >= FIRST_SECOND && seconds <= LAST_SECOND))
        return Fail(problem, event, ProblemCode::BAD_NUMBER, "the seconds of a time of the years 0 to 9999");
    m_memory = TextOfSeconds(seconds);
    event.Kind = EventKind::STRING;
    event.Text = m_memory;
    event.IsTextKept = false;
    return true;
}

bool CTaggedEvents::FillInteger(CEvent& event, bool isNegative, CProblem& problem)
{
    if (event.Kind != EventKind::BYTES)
        return Fail(problem, event, ProblemCode::SYNTAX, "a number that is written as its tag says");
    if (event.Text.size() > MOST_BYTES) return Fail(problem, event, ProblemCode::BAD_NUMBER, "at most 4153 bytes");
    std::string digits = DigitsOfBytes(event.Text);
    if (isNegative) Increment(digits);
    SetDigits(event, (isNegative ? "-" : "") + digits);
    return true;
}

bool CTaggedEvents::FillDecimal(CEventSource& source, CEvent& event, CProblem& problem)
{
    if (event.Kind != EventKind::BEGIN_ARRAY || (event.Size != 2 && event.Size != CEvent::UNKNOWN_SIZE))
        return Fail(problem, event, ProblemCode::SYNTAX, "a number that is written as its tag says");
    if (!Take(source, event, problem)) return false;
    const std::string text = IsInteger(event.Kind) ? DigitsOf(event) : "";
    long long exponent = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), exponent).ec != std::errc())
        return Fail(problem, event, ProblemCode::SYNTAX, "an exponent");
    if (!TakeInteger(source, event, problem)) return false;
    std::string digits = event.Text.empty() ? DigitsOf(event) : std::string(event.Text);
    if (!Take(source, event, problem)) return false;
    if (event.Kind != EventKind::END_ARRAY) return Fail(problem, event, ProblemCode::SYNTAX, "the end of an array");
    SetDigits(event, Scaled(std::move(digits), exponent));
    return true;
}

/// An integer, with its digits as Text where it has a tag.
bool CTaggedEvents::TakeInteger(CEventSource& source, CEvent& event, CProblem& problem)
{
    std::optional<ValueTag> tag;
    if (!Take(source, event, problem) || !PassTags(source, event, tag, problem)) return false;
    if (tag == ValueTag::INTEGER || tag == ValueTag::NEGATIVE)
        return FillInteger(event, tag == ValueTag::NEGATIVE, problem);
    event.Text = {};
    return IsInteger(event.Kind) || Fail(problem, event, ProblemCode::SYNTAX, "an integer");
}

void CTaggedEvents::SetDigits(CEvent& event, std::string digits)
{
    m_memory = std::move(digits);
    CNumber number;
    ScanNumber(m_memory.data(), m_memory.data() + m_memory.size(), number);
    SetNumber(event, number);
    event.IsTextKept = false;
}

} // namespace vexa::interchange
