#include <cstdlib>
#include <cstring>

#include "core/c_locale.h"
#include "core/scan.h"
#include "text/digits.h"
#include "text/json_code.h"
#include "text/json_cursor.h"

namespace vexa::text {
namespace {

constexpr std::size_t HEX_DIGITS = 4;

/// The number that four bytes form, as formatted input reads it: leading digits count, none at all are 0.
long HexNumber(const char* digits)
{
    long number = 0;
    for (std::size_t i = 0; i < HEX_DIGITS; ++i) {
        const int digit = HexDigit(digits[i]);
        if (digit < 0) {
            char text[HEX_DIGITS + 1] = {};
            std::memcpy(text, digits, HEX_DIGITS);
            return strtol_l(text, nullptr, 16, core::CLocale());
        }
        number = number * 16 + digit;
    }
    return number;
}

/// Stands behind the u. A number beyond a byte adds nothing; a u too near the end of the text is left out.
void ReadHexEscape(std::string& out, CJsonCursor& cursor)
{
    if (cursor.Left() < HEX_DIGITS) return;
    const long number = HexNumber(cursor.Next());
    if (number < 256) out += static_cast<char>(number);
    cursor.MoveTo(cursor.Next() + HEX_DIGITS);
}

/// Stands behind the backslash, with at least one byte left.
void ReadEscape(std::string& out, CJsonCursor& cursor)
{
    const char selector = *cursor.Next();
    cursor.MoveTo(cursor.Next() + 1);
    switch (selector) {
    case 'b': out += '\b'; break;
    case 'f': out += '\f'; break;
    case 'n': out += '\n'; break;
    case 'r': out += '\r'; break;
    case 't': out += '\t'; break;
    case 'u': ReadHexEscape(out, cursor); break;
    default: out += selector; // a quotation mark, a backslash, a slash, and whatever else
    }
}

} // namespace

int ReadJsonString(std::string& out, CJsonCursor& cursor)
{
    if (!cursor.Take('"')) return STRING_NO_QUOTE;
    while (true) {
        const char* const run = cursor.Next();
        const char* const stop = core::FindQuoteOrBackslash(run, cursor.End());
        if (stop == cursor.End()) return STRING_NOT_CLOSED;
        out.append(run, stop);
        cursor.MoveTo(stop + 1);
        if (*stop == '"') return 0;
        if (cursor.AtEnd()) return STRING_ENDS_IN_ESCAPE;
        ReadEscape(out, cursor);
    }
}

} // namespace vexa::text
