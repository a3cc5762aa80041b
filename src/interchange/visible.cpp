#include "interchange/visible.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace vexa::interchange {

namespace {

struct CRange {
    std::uint32_t First;
    std::uint32_t Last;
};

/// Not seen, or changing how others are seen: controls, joiners, marks of direction, line ends, variation tags.
constexpr CRange HIDDEN[] = {{0x00, 0x1F},     {0x7F, 0x9F},     {0xAD, 0xAD},     {0x061C, 0x061C},  {0x115F, 0x1160},
                             {0x180E, 0x180E}, {0x200B, 0x200F}, {0x2028, 0x202E}, {0x2060, 0x206F},  {0x3164, 0x3164},
                             {0xFEFF, 0xFEFF}, {0xFFA0, 0xFFA0}, {0xFFF0, 0xFFFB}, {0xE0000, 0xE0FFF}};
/// Joining the character before them: combining marks and variation selectors.
constexpr CRange JOINING[] = {{0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD}, {0x0610, 0x061A}, {0x064B, 0x065F},
                              {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x20D0, 0x20F0}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}};
/// Two columns wide: East Asian scripts and pictures.
constexpr CRange WIDE[] = {{0x1100, 0x115E},   {0x2E80, 0x303E},  {0x3041, 0x4DBF},   {0x4E00, 0xA4CF},
                           {0xA960, 0xA97C},   {0xAC00, 0xD7A3},  {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},
                           {0xFF01, 0xFF60},   {0xFFE0, 0xFFE6},  {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF},
                           {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};

template<std::size_t N>
bool IsIn(const CRange (&ranges)[N], std::uint32_t character)
{
    const CRange* const range = std::lower_bound(std::begin(ranges), std::end(ranges), character,
                                                 [](const CRange& r, std::uint32_t c) { return r.Last < c; });
    return range != std::end(ranges) && range->First <= character;
}

unsigned char ByteAt(std::string_view text, std::size_t at) { return static_cast<unsigned char>(text[at]); }
bool IsContinuation(unsigned char byte) { return (byte & 0xC0U) == 0x80; }

struct CCharacter {
    std::uint32_t Code = 0;
    std::size_t Length = 0; ///< 0: no UTF-8
};

/// The first character of a text that is not empty.
CCharacter FirstCharacter(std::string_view text)
{
    static constexpr std::uint32_t LEAST[] = {0, 0x80, 0x800, 0x10000};
    const unsigned char head = ByteAt(text, 0);
    if (head < 0x80) return {head, 1};
    const std::size_t more = head < 0xC0 ? 0 : head < 0xE0 ? 1 : head < 0xF0 ? 2 : head < 0xF8 ? 3 : 0;
    if (more == 0 || text.size() <= more) return {};
    std::uint32_t code = head & (0x3FU >> more);
    for (std::size_t i = 1; i <= more; ++i) {
        if (!IsContinuation(ByteAt(text, i))) return {};
        code = code << 6U | (ByteAt(text, i) & 0x3FU);
    }
    const bool isCharacter = code >= LEAST[more] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
    return isCharacter ? CCharacter{code, more + 1} : CCharacter{};
}

/// `<` head, at least as many digits, `>`. \return the columns.
std::size_t AppendNumber(std::string& out, const char* head, std::uint32_t number, unsigned int digits)
{
    const std::size_t before = out.size();
    out.append(head);
    unsigned int shift = 4 * digits;
    while (shift < 32 && number >> shift != 0)
        shift += 4;
    for (; shift != 0; shift -= 4)
        out.push_back("0123456789ABCDEF"[number >> (shift - 4) & 0x0FU]);
    out.push_back('>');
    return out.size() - before;
}

} // namespace

std::size_t AppendVisible(std::string& out, std::string_view text, std::size_t column, TabForm tabs)
{
    while (!text.empty()) {
        const CCharacter character = FirstCharacter(text);
        const std::size_t length = std::max<std::size_t>(character.Length, 1);
        if (character.Length == 0) {
            column += AppendNumber(out, "<0x", ByteAt(text, 0), 2);
        } else if (character.Code == '\t' && tabs == TabForm::BLANKS) {
            const std::size_t blanks = TAB_COLUMNS - column % TAB_COLUMNS;
            out.append(blanks, ' ');
            column += blanks;
        } else if (IsIn(HIDDEN, character.Code)) {
            column += AppendNumber(out, "<U+", character.Code, 4);
        } else {
            out.append(text.substr(0, length));
            column += IsIn(JOINING, character.Code) ? 0U : IsIn(WIDE, character.Code) ? 2U : 1U;
        }
        text.remove_prefix(length);
    }
    return column;
}

std::size_t CharacterFrom(std::string_view text, std::size_t at) noexcept
{
    for (std::size_t i = at; i < at + 4 && i < text.size(); ++i)
        if (!IsContinuation(ByteAt(text, i))) return i;
    return std::min(at, text.size());
}

} // namespace vexa::interchange
