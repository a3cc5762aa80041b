// Words without quotation marks.

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include <vexa/format.h>

#include "interchange/json_events.h"
#include "interchange/write_number.h"

namespace vexa {
namespace {

template<class... Words>
bool IsOneOf(std::string_view text, Words... words)
{
    return ((text == words) || ...);
}

bool SetNumber(CEvent& event, std::string_view digits)
{
    interchange::CNumber number;
    const char* const end = digits.data() + digits.size();
    if (interchange::ScanNumber(digits.data(), end, number) != end) return false;
    interchange::SetNumber(event, number);
    return true;
}

/// `0x1F` and `0o17`. \return false for anything else, and what is more than 64 bits.
bool SetOfBase(CEvent& event, std::string_view text, std::string& memory)
{
    const int base = text.substr(0, 2) == "0x" ? 16 : text.substr(0, 2) == "0o" ? 8 : 0;
    if (base == 0) return false;
    const char* const end = text.data() + text.size();
    unsigned long long value = 0;
    const auto result = std::from_chars(text.data() + 2, end, value, base);
    if (result.ec != std::errc() || result.ptr != end) return false;
    memory = std::to_string(value);
    return SetNumber(event, memory);
}

/// A number with a plus sign, zeros in front, or no digits on one side of the point.
bool SetLoose(CEvent& event, std::string_view text, std::string& memory)
{
    memory = text[0] == '-' ? "-" : "";
    text.remove_prefix(text[0] == '-' || text[0] == '+' ? 1 : 0);
    const std::size_t whole = std::min(text.find_first_not_of("0123456789"), text.size());
    const bool hasPoint = whole < text.size() && text[whole] == '.';
    const bool hasFraction = whole + 1 < text.size() && interchange::IsDigit(text[whole + 1]);
    if (whole == 0 && !(hasPoint && hasFraction)) return false;
    const std::size_t zeros = std::min(text.find_first_not_of('0'), whole);
    memory += whole == zeros ? "0" : text.substr(zeros, whole - zeros);
    if (hasPoint) memory += hasFraction ? "." : ".0";
    memory += text.substr(whole + (hasPoint ? 1 : 0));
    return SetNumber(event, memory);
}

bool SetNotFinite(CEvent& event, std::string_view text)
{
    using CLimits = std::numeric_limits<double>;
    const std::string_view magnitude = text.substr(text[0] == '-' || text[0] == '+' ? 1 : 0);
    const bool isInfinite = IsOneOf(magnitude, ".inf", ".Inf", ".INF");
    if (!isInfinite && !IsOneOf(text, ".nan", ".NaN", ".NAN")) return false;
    event.Kind = EventKind::FLOATING;
    event.Text = {};
    event.Floating = !isInfinite ? CLimits::quiet_NaN() : text[0] == '-' ? -CLimits::infinity() : CLimits::infinity();
    return true;
}

template<class T>
std::string PlainNumberOf(T value)
{
    if (std::isnan(value)) return ".nan";
    if (std::isinf(value)) return value < 0 ? "-.inf" : ".inf";
    char digits[interchange::NUMBER_ROOM];
    return {digits, interchange::WriteShortest(digits, value)};
}

} // namespace

void SetPlain(CEvent& event, std::string_view text, std::string& memory)
{
    event.Text = text;
    event.Kind = EventKind::NULL_VALUE;
    if (IsOneOf(text, "", "~", "null", "Null", "NULL")) return;
    event.Kind = EventKind::BOOL;
    event.Bool = IsOneOf(text, "true", "True", "TRUE");
    if (event.Bool || IsOneOf(text, "false", "False", "FALSE")) return;
    event.Kind = EventKind::STRING;
    if (SetNumber(event, text) || SetOfBase(event, text, memory) || SetNotFinite(event, text)) return;
    SetLoose(event, text, memory);
}

bool IsPlainText(std::string_view text) noexcept
{
    constexpr std::size_t LONGEST_WORD = 5;
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; };
    const auto isInside = [&](char c) {
        return isLetter(c) || interchange::IsDigit(c) || std::string_view(" ./-").find(c) < 4;
    };
    if (text.empty() || !isLetter(text[0]) || text.back() == ' ' || !std::all_of(text.begin(), text.end(), isInside))
        return false;
    std::string lower(text.substr(0, LONGEST_WORD + 1));
    for (char& c : lower)
        c = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    return !IsOneOf(lower, "null", "true", "false", "yes", "no", "on", "off", "y", "n");
}

std::string PlainNumber(float value) { return PlainNumberOf(value); }
std::string PlainNumber(double value) { return PlainNumberOf(value); }
std::string PlainNumber(long double value) { return PlainNumberOf(value); }

} // namespace vexa
