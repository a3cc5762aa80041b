#include "core/escape.h"

#include <functional>

#include <vexa/helper.h>

#include "core/bounded.h"

namespace vexa::core {
namespace {

/// Hands the escaped text to `put` piece by piece: each run of plain bytes whole, then the escape sequence behind it.
template<typename Put>
void ForEachPiece(const char* p, std::size_t n, Put put)
{
    for (std::size_t i = 0; i < n; ++i) {
        const std::size_t run = FindByteToEscape(BytesOf(p) + i, n - i);
        if (run != 0) {
            put(p + i, run);
            i += run;
        }
        if (i < n) {
            const CEscape& escape = ESCAPES[BytesOf(p)[i]];
            put(escape.Text, std::size_t{escape.Length});
        }
    }
}

bool LiesInside(const std::string& text, const char* p)
{
    const std::less_equal<const char*> notBehind;
    return notBehind(text.data(), p) && notBehind(p, text.data() + text.size());
}

} // namespace

void SetStringWithEscape(char* buf, unsigned long& pos, unsigned long cap, const char* p, std::size_t n) noexcept
{
    ForEachPiece(p, n, [buf, &pos, cap](const char* piece, std::size_t length) {
        // The address of a position beyond the buffer is not even formed.
        if (buf != nullptr && pos <= cap) memcpy_s(buf + pos, cap - pos, piece, length);
        pos += length;
    });
}

void AppendStringWithEscape(std::string& out, const char* p, std::size_t n)
{
    if (LiesInside(out, p)) {
        // Growing the string would pull the text away from under the walk.
        const std::string copy(p, n);
        ForEachPiece(copy.data(), n, [&out](const char* piece, std::size_t length) { out.append(piece, length); });
        return;
    }
    ForEachPiece(p, n, [&out](const char* piece, std::size_t length) { out.append(piece, length); });
}

} // namespace vexa::core

namespace vexa::helper {

void SetStringWithEscape(char* buf, unsigned long& pos, unsigned long cap, const std::string& s)
{
    core::SetStringWithEscape(buf, pos, cap, s.data(), s.size());
}

void AppendStringWithEscape(std::string& out, const std::string& s)
{
    core::AppendStringWithEscape(out, s.data(), s.size());
}

} // namespace vexa::helper
