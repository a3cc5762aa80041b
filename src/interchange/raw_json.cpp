#include "interchange/raw_json.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>

#include "interchange/base64.h"
#include "interchange/json_escape.h"
#include "interchange/write_number.h"
#include "interchange/write_time.h"

namespace vexa::interchange {
namespace {

/// Whether all of the digits are one number of the type.
template<class T>
bool ReadWhole(std::string_view digits, T& value) noexcept
{
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    return error == std::errc() && stop == end;
}

std::string_view Shortest(char (&room)[NUMBER_ROOM], double value) noexcept
{
    if (!std::isfinite(value)) return NameOfNotFinite(value);
    return {room, static_cast<std::size_t>(WriteShortest(room, value) - room)};
}

} // namespace

std::string BytesAsText(std::string_view bytes)
{
    std::string text(Base64Length(bytes.size()), '\0');
    WriteBase64(text.data(), reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    return text;
}

std::string DateTimeAsText(const CDateTime& time)
{
    CTimeRoom room;
    return std::string(TextOfTime(room, time));
}

std::string_view DigitsOf(const CNumber& number, std::string& memory)
{
    if (!number.Digits.empty()) return number.Digits;
    if (number.Kind == CNumber::Form::FLOATING) {
        char room[NUMBER_ROOM];
        memory = Shortest(room, number.Floating);
    } else {
        memory = (number.IsNegative ? "-" : "") + std::to_string(number.Magnitude);
    }
    return memory;
}

CNumberChoice ChoiceOf(std::string_view digits)
{
    using Form = CNumberChoice::Form;
    CNumberChoice choice;
    choice.Kind = Form::SIGNED;
    if (digits != "-0" && ReadWhole(digits, choice.Signed)) return choice;
    choice.Kind = Form::UNSIGNED;
    if (ReadWhole(digits, choice.Unsigned)) return choice;
    choice.Kind = Form::DIGITS;
    if (digits != "-0" && digits.find_first_not_of("-0123456789") == digits.npos) return choice; // a large integer
    char room[NUMBER_ROOM];
    const bool isFloating = ReadWhole(digits, choice.Floating) && IsSameNumber(Shortest(room, choice.Floating), digits);
    choice.Kind = isFloating ? Form::FLOATING : Form::DIGITS;
    return choice;
}

std::string JoinedLines(std::string_view json)
{
    std::string joined;
    std::size_t at = 0;
    while (at < json.size()) {
        const std::size_t end = std::min(json.find_first_of(LINE_BREAKS, at), json.size());
        joined.append(json, at, end - at);
        at = json.find_first_not_of(" \t\r\n", end);
    }
    return joined;
}

bool IsDeeperThan(std::string_view json, std::size_t levels) noexcept
{
    if (json.size() / 2 <= levels) return false; // each level has two brackets
    std::size_t depth = 0;
    for (std::size_t i = 0; i < json.size(); ++i) {
        const char byte = json[i];
        if (byte == '"') {
            while (json[++i] != '"')
                if (json[i] == '\\') ++i;
        } else if (byte == '[' || byte == '{') {
            if (++depth > levels) return true;
        } else if (byte == ']' || byte == '}') {
            --depth;
        }
    }
    return false;
}

void CCompactJson::Put(std::string_view text)
{
    if (!m_isFirst) m_out += ',';
    m_isFirst = false;
    m_out += text;
}

void CCompactJson::Open(char bracket)
{
    Put({&bracket, 1});
    m_isFirst = true;
}

void CCompactJson::Close(char bracket)
{
    m_out += bracket;
    m_isFirst = false;
}

void CCompactJson::Signed(long long value) { Put(std::to_string(value)); }
void CCompactJson::Unsigned(unsigned long long value) { Put(std::to_string(value)); }

void CCompactJson::Floating(double value)
{
    char room[NUMBER_ROOM];
    m_hasLost = m_hasLost || !std::isfinite(value);
    Put(std::isfinite(value) ? Shortest(room, value) : "null");
}

void CCompactJson::String(std::string_view text)
{
    Put("\"");
    for (const char byte : text) {
        char escaped[ESCAPE_ROOM] = {byte};
        const bool isEscaped = IsSpecial(byte) && static_cast<unsigned char>(byte) < 0x80;
        m_out.append(escaped, isEscaped ? static_cast<std::size_t>(WriteEscape(escaped, byte) - escaped) : 1);
    }
    m_out += '"';
}

void CCompactJson::Key(std::string_view name)
{
    String(name);
    m_out += ':';
    m_isFirst = true;
}

void CCompactJson::IntegerKey(long long key) { Key(std::to_string(key)); }

CTreeFrame::CTreeFrame(const CJsonTree& holder, bool sortKeys) : Holder(&holder)
{
    const auto members = holder.Members();
    if (!sortKeys || members.empty()) return;
    Order.resize(members.size());
    std::iota(Order.begin(), Order.end(), std::size_t{0});
    std::sort(Order.begin(), Order.end(),
              [members](std::size_t left, std::size_t right) { return members[left].Key() < members[right].Key(); });
}

} // namespace vexa::interchange
