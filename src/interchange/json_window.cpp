#include "interchange/json_window.h"

#include <algorithm>
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

std::string DescribeToken(std::string_view token)
{
    if (token.empty()) return {};
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

bool CJsonFailure::Keep(ProblemCode code, CTextPlace place, std::string expected, std::string found)
{
    if (HasFailed()) return false;
    auto problem = std::make_unique<CProblem>();
    problem->Code = code;
    problem->Place = place;
    problem->Expected = std::move(expected);
    problem->Found = std::move(found);
    m_problem = std::move(problem);
    return false;
}

} // namespace vexa::interchange
