// Numbers and times, with their tags.

#include <charconv>

#include "cbor_source.h"

namespace vexa::cbor {

using Form = CItem::Form;

std::string IntegerText(const CEvent& event)
{
    if (event.Kind == EventKind::SIGNED) return std::to_string(event.Signed);
    return event.Kind == EventKind::UNSIGNED ? std::to_string(event.Unsigned) : std::string(event.Text);
}

bool CCborSource::GiveTagged(const CItem& item, std::uint64_t tag, CEvent& event, CProblem& problem)
{
    constexpr std::size_t MOST_BYTES = 1024;
    if (tag == TAG_SECONDS) return GiveTime(item, event, problem);
    if (tag == TAG_DECIMAL_FRACTION && item.Kind == Form::ARRAY && !item.IsIndefinite && item.Number == 2)
        return GiveFraction(event, problem);
    if (tag == TAG_DECIMAL_FRACTION || item.Kind != Form::BYTES)
        return Fail(problem, ProblemCode::SYNTAX, "a number that is written as its tag says");
    if (item.Text.size() > MOST_BYTES) return Fail(problem, ProblemCode::BAD_NUMBER, "at most 1024 bytes");
    return GiveDigits(DigitsOf(item.Text, tag == TAG_NEGATIVE_BIGNUM), event);
}

bool CCborSource::GiveTime(const CItem& item, CEvent& event, CProblem& problem)
{
    constexpr double FIRST_SECOND = -62167219200.0; // of the year 0
    constexpr double BEHIND_LAST = 253402300799.0;  // the last of the year 9999
    const auto number = static_cast<double>(item.Number);
    const double seconds = item.Kind == Form::FLOATING ? item.Floating : item.IsNegative ? -1 - number : number;
    const bool isNumber = item.Kind == Form::INTEGER || item.Kind == Form::FLOATING;
    if (!isNumber || !(seconds >= FIRST_SECOND && seconds <= BEHIND_LAST))
        return Fail(problem, ProblemCode::BAD_NUMBER, "the seconds of a time of the years 0 to 9999");
    m_memory = DateText(seconds);
    return GiveMemory(EventKind::STRING, event);
}

bool CCborSource::GiveInteger(const CItem& item, CEvent& event)
{
    event.Kind = item.IsNegative ? EventKind::SIGNED : EventKind::UNSIGNED;
    event.Unsigned = item.Number;
    if (item.Number <= static_cast<std::uint64_t>(INT64_MAX)) {
        const auto number = static_cast<long long>(item.Number);
        event.Kind = EventKind::SIGNED;
        event.Signed = item.IsNegative ? -1 - number : number;
    } else if (item.IsNegative) {
        std::string bytes;
        for (unsigned int shift = 64; shift != 0; shift -= 8)
            bytes += static_cast<char>(item.Number >> (shift - 8) & 0xFFU);
        return GiveDigits(DigitsOf(bytes, true), event);
    }
    return true;
}

/// A number of decimal digits; one that fits is an integer like others.
bool CCborSource::GiveDigits(std::string digits, CEvent& event)
{
    m_memory = std::move(digits);
    const char* const first = m_memory.data();
    const char* const end = first + m_memory.size();
    const auto isWhole = [end](std::from_chars_result result) { return result.ec == std::errc() && result.ptr == end; };
    event.Floating = 0; // stays where the number is beyond a double: the digits tell it
    if (isWhole(std::from_chars(first, end, event.Signed))) return GiveMemory(EventKind::SIGNED, event);
    if (isWhole(std::from_chars(first, end, event.Unsigned))) return GiveMemory(EventKind::UNSIGNED, event);
    std::from_chars(first, end, event.Floating);
    return GiveMemory(EventKind::FLOATING, event);
}

/// The exponent and the digits follow, each as an integer of its own.
bool CCborSource::GiveFraction(CEvent& event, CProblem& problem)
{
    CItem item;
    std::uint64_t tag = TAG_NONE;
    if (!Take(item, problem)) return false;
    if (item.Kind != Form::INTEGER || !GiveInteger(item, event) || event.Kind != EventKind::SIGNED)
        return Fail(problem, ProblemCode::SYNTAX, "an exponent");
    const long long exponent = event.Signed;
    if (!TakeTagged(item, tag, problem)) return false;
    const bool isBig = tag == TAG_BIGNUM || tag == TAG_NEGATIVE_BIGNUM;
    if (!isBig && item.Kind != Form::INTEGER) return Fail(problem, ProblemCode::SYNTAX, "an integer");
    if (!(isBig ? GiveTagged(item, tag, event, problem) : GiveInteger(item, event))) return false;
    return GiveDigits(Scaled(IntegerText(event), exponent), event);
}

} // namespace vexa::cbor
