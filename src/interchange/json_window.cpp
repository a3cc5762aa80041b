#include "interchange/json_window.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "interchange/utf8.h"

namespace vexa::interchange {
namespace {

constexpr std::size_t MAX_SHOWN = 24;

std::string HexOf(unsigned char byte)
{
    constexpr char DIGITS[] = "0123456789ABCDEF";
    return {'0', 'x', DIGITS[byte >> 4U], DIGITS[byte & 0x0FU]};
}

/// The first byte that is not shown as it is, or the token's size.
std::size_t FindHidden(std::string_view token)
{
    const auto isControl = [](char byte) { return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F; };
    const auto control = std::find_if(token.begin(), token.end(), isControl);
    return std::min(static_cast<std::size_t>(control - token.begin()), FindBadUtf8(token));
}

} // namespace

void LocateIn(CTextPlace& place, std::string_view text, std::size_t offset, std::size_t line, std::size_t lineStart)
{
    const std::size_t length = std::min(text.size(), place.Offset - offset);
    const char* const end = text.data() + length;
    for (const char* next = text.data(); next != end; ++next) {
        next = static_cast<const char*>(std::memchr(next, '\n', static_cast<std::size_t>(end - next)));
        if (next == nullptr) break;
        ++line;
        lineStart = offset + static_cast<std::size_t>(next - text.data()) + 1;
    }
    place.Line = line;
    place.Column = place.Offset - lineStart + 1;
}

std::string DescribeToken(std::string_view token)
{
    if (token.empty()) return "the end of the text";
    if (token == BYTE_ORDER_MARK) return "a byte order mark";
    if (token[0] == '"') return "a string";
    std::size_t length = std::min(token.size(), MAX_SHOWN);
    while (length < token.size() && length > 0 && IsContinuation(token[length]))
        --length;
    const std::string_view shown = token.substr(0, length);
    const std::size_t hidden = FindHidden(shown);
    if (hidden != length) return "the byte " + HexOf(static_cast<unsigned char>(token[hidden]));
    return '\'' + std::string(shown) + (length < token.size() ? "...'" : "'");
}

bool CJsonFailure::Fail(CJsonWindow& window, ProblemCode code, CTextPlace place, std::string expected,
                        std::string found)
{
    window.End = window.Next;
    if (HasFailed()) return false;
    m_problem = std::make_unique<CProblem>();
    m_problem->Code = code;
    m_problem->Place = place;
    m_problem->Expected = std::move(expected);
    m_problem->Found = std::move(found);
    return false;
}

} // namespace vexa::interchange
