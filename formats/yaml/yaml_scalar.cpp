#include "yaml_scalar.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace vexa::yaml {
namespace {

constexpr double INFINITE = std::numeric_limits<double>::infinity();

template<class... Words>
bool IsOneOf(std::string_view text, Words... words)
{
    return ((text == words) || ...);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Takes digits off. \return them.
std::string_view TakeDigits(std::string_view& text)
{
    const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
    const std::string_view digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(digits.size());
    return digits;
}

bool TakeOne(std::string_view& text, std::string_view choice)
{
    const bool isThere = !text.empty() && choice.find(text[0]) != choice.npos;
    if (isThere) text.remove_prefix(1);
    return isThere;
}

/// Brings a decimal number into JSON's grammar: no plus, no leading zeros, digits on both sides of the point.
/// \return false for what is no number of the core schema.
bool ToJsonNumber(std::string_view text, std::string& number, bool& isInteger)
{
    number = text[0] == '-' ? "-" : "";
    TakeOne(text, "+-");
    std::string_view whole = TakeDigits(text);
    const bool hasPoint = TakeOne(text, ".");
    const std::string_view fraction = hasPoint ? TakeDigits(text) : std::string_view();
    if (whole.empty() && fraction.empty()) return false;
    while (whole.size() > 1 && whole[0] == '0')
        whole.remove_prefix(1);
    number += whole.empty() ? "0" : whole;
    if (hasPoint) (number += '.') += fraction.empty() ? "0" : fraction;
    isInteger = !hasPoint && text.empty();
    if (text.empty()) return true;
    number += text;
    if (!TakeOne(text, "eE")) return false;
    TakeOne(text, "+-");
    return !TakeDigits(text).empty() && text.empty();
}

/// Integers that fit 64 bits as such, all else by the digits.
void SetNumber(CEvent& event, const std::string& number, bool isInteger)
{
    const char* const end = number.data() + number.size();
    event.Text = number;
    event.Kind = EventKind::SIGNED;
    if (isInteger && number != "-0" && std::from_chars(number.data(), end, event.Signed).ec == std::errc()) return;
    event.Kind = EventKind::UNSIGNED;
    if (isInteger && number[0] != '-' && std::from_chars(number.data(), end, event.Unsigned).ec == std::errc()) return;
    event.Kind = EventKind::FLOATING;
    event.Floating = 0; // stays where the number is beyond a double: the digits tell it
    std::from_chars(number.data(), end, event.Floating);
}

bool SetFloating(CEvent& event, double value)
{
    event.Kind = EventKind::FLOATING;
    event.Floating = value;
    event.Text = {};
    return true;
}

/// `0x` and `0o`. \return whether all of it is digits of the base.
bool IsOfBase(std::string_view text, int base)
{
    const std::string_view digits = base == 16 ? "0123456789abcdefABCDEF" : "01234567";
    return text.size() > 2 && text.find_first_not_of(digits, 2) == text.npos;
}

bool SetOfBase(CEvent& event, std::string_view text, int base, std::string& memory)
{
    unsigned long long value = 0;
    if (std::from_chars(text.data() + 2, text.data() + text.size(), value, base).ec != std::errc()) return false;
    memory = std::to_string(value);
    SetNumber(event, memory, true);
    return true;
}

} // namespace

bool Resolve(std::string_view text, CEvent& event, std::string& memory)
{
    event.Text = text;
    event.Kind = EventKind::NULL_VALUE;
    if (IsOneOf(text, "", "~", "null", "Null", "NULL")) return true;
    event.Kind = EventKind::BOOL;
    event.Bool = IsOneOf(text, "true", "True", "TRUE");
    if (event.Bool || IsOneOf(text, "false", "False", "FALSE")) return true;
    if (text.substr(0, 2) == "0x" && IsOfBase(text, 16)) return SetOfBase(event, text, 16, memory);
    if (text.substr(0, 2) == "0o" && IsOfBase(text, 8)) return SetOfBase(event, text, 8, memory);
    if (IsOneOf(text, ".nan", ".NaN", ".NAN")) return SetFloating(event, std::numeric_limits<double>::quiet_NaN());
    const std::string_view unsignedText = text.substr(text[0] == '+' || text[0] == '-' ? 1 : 0);
    if (IsOneOf(unsignedText, ".inf", ".Inf", ".INF")) return SetFloating(event, text[0] == '-' ? -INFINITE : INFINITE);
    bool isInteger = false;
    event.Kind = EventKind::STRING;
    if (ToJsonNumber(text, memory, isInteger)) SetNumber(event, memory, isInteger);
    return true;
}

bool IsPlainText(std::string_view text)
{
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; };
    const auto isInside = [&](char c) { return isLetter(c) || IsDigit(c) || std::string_view(" ./-").find(c) < 4; };
    if (text.empty() || !isLetter(text[0]) || text.back() == ' ' || !std::all_of(text.begin(), text.end(), isInside))
        return false;
    std::string lower(text);
    for (char& c : lower)
        c = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    return !IsOneOf(lower, "null", "true", "false", "yes", "no", "on", "off", "y", "n");
}

} // namespace vexa::yaml
