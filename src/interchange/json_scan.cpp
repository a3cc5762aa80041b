#include "interchange/json_scan.h"

#include <algorithm>

#include "interchange/utf8.h"
#include "text/digits.h"

namespace vexa::interchange {
namespace {

constexpr std::size_t UNICODE_ESCAPE = 6; // \uXXXX

char ControlOf(char letter) noexcept
{
    for (const core::CControlEscape& control : core::CONTROL_ESCAPED) {
        if (control.Letter == letter) return control.Byte;
    }
    return letter;
}

/// Stands at the backslash. \return the end of what it has written; \p next is moved behind the escape.
char* DecodeEscape(char* out, const char*& next) noexcept
{
    const char letter = next[1];
    if (letter != 'u') {
        next += 2;
        *out++ = ControlOf(letter);
        return out;
    }
    std::uint32_t character = CodeUnit(next + 2);
    next += UNICODE_ESCAPE;
    if (IsSurrogate(character)) {
        character = 0x10000 + ((character - 0xD800) << 10U) + (CodeUnit(next + 2) - 0xDC00);
        next += UNICODE_ESCAPE;
    }
    return Encode(out, character);
}

} // namespace

std::uint32_t CodeUnit(const char* digits) noexcept
{
    std::uint32_t unit = 0;
    for (int i = 0; i < 4; ++i) {
        const int digit = text::HexDigit(digits[i]);
        if (digit < 0) return NO_CODE_UNIT;
        unit = unit << 4U | static_cast<std::uint32_t>(digit);
    }
    return unit;
}

void DecodeString(char* out, std::string_view text, BadText policy) noexcept
{
    const char* const end = text.data() + text.size();
    for (const char* next = text.data(); next != end;) {
        const char* const stop = FindByte<CStringStop>(next, end);
        out = std::copy(next, stop, out);
        next = stop;
        if (next == end) return;
        if (*next == '\\') {
            out = DecodeEscape(out, next);
        } else if (const std::size_t length = LongCharacterLength(next, end)) {
            out = std::copy_n(next, length, out);
            next += length;
        } else {
            out = Encode(out, CharacterOfBadByte(*next++, policy));
        }
    }
}

} // namespace vexa::interchange
