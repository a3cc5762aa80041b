#include "interchange/json_pieces.h"

#include <algorithm>

#include "interchange/json_scanner_rest.h"
#include "interchange/place.h"

namespace vexa::interchange {

template class CJsonScanner<CPieces>;

bool CPieces::More(CJsonWindow& window)
{
    Forget(window);
    if (window.Begin != window.End) Join(window);
    const std::string_view piece = NextPiece();
    if (piece.empty()) return false;
    if (window.Begin == window.End) {
        m_isJoined = false;
        Move(window, piece);
    } else {
        m_joined.append(piece);
        Move(window, m_joined);
    }
    return true;
}

std::string_view CPieces::NextPiece()
{
    if (m_isAtEnd) return {};
    std::string_view piece = m_input();
    m_isTooLong = piece.size() > m_left;
    m_isAtEnd = piece.empty() || m_isTooLong;
    piece = piece.substr(0, m_left);
    m_left -= piece.size();
    return piece;
}

/// Lets the window start at its token.
void CPieces::Forget(CJsonWindow& window)
{
    const std::size_t token = window.OffsetOf(window.Token);
    for (CTextPlace& place : m_opened) {
        if (place.Line == 0 && place.Offset < token) Locate(place, window);
    }
    const auto gone = static_cast<std::size_t>(window.Token - window.Begin);
    const std::string_view text(window.Begin, gone);
    for (std::size_t end = text.find('\n'); end != text.npos; end = text.find('\n', end + 1)) {
        if (m_starts.size() < LINES_KEPT) m_starts.emplace_back();
        m_starts[(++m_line - 2) % LINES_KEPT] = window.Offset + end + 1;
    }
    if (m_isRawKept) KeepRaw(window, window.Offset + gone);
    window.Begin = window.Token;
    window.Offset += gone;
}

void CPieces::BeginRaw(std::size_t offset)
{
    m_isRawKept = true;
    m_rawEnd = offset;
    m_raw.clear();
}

void CPieces::KeepRaw(const CJsonWindow& window, std::size_t end)
{
    if (end <= m_rawEnd) return;
    m_raw.append(window.Begin + (m_rawEnd - window.Offset), end - m_rawEnd);
    m_rawEnd = end;
}

void CPieces::EndRaw(const CJsonWindow& window, std::size_t end, std::string& text)
{
    KeepRaw(window, end);
    m_isRawKept = false;
    text.swap(m_raw);
}

/// Takes what the window has out of the piece, which may go when the next one is asked for.
void CPieces::Join(CJsonWindow& window)
{
    const std::string_view text(window.Begin, static_cast<std::size_t>(window.End - window.Begin));
    if (m_isJoined)
        m_joined.erase(0, static_cast<std::size_t>(text.data() - m_joined.data()));
    else
        m_joined.assign(text);
    m_isJoined = true;
    Move(window, m_joined);
}

void CPieces::Move(CJsonWindow& window, std::string_view text) noexcept
{
    window.Next = text.data() + (window.Next - window.Begin);
    window.Begin = window.Token = text.data();
    window.End = text.data() + text.size();
}

/// Of a line up to the one of the window; one that is not kept any more must not be asked for.
std::size_t CPieces::StartOf(std::size_t line) const { return line == 1 ? 0 : m_starts[(line - 2) % LINES_KEPT]; }

void CPieces::Locate(CTextPlace& place, const CJsonWindow& window) const
{
    if (place.Offset == CTextPlace::NOWHERE) return;
    if (place.Offset < window.Offset) return LocateForgotten(place);
    CTextPlace inside;
    inside.Offset = place.Offset - window.Offset;
    CLineFinder(std::string_view(window.Begin, inside.Offset)).Fill(inside);
    place.Line = m_line + inside.Line - 1;
    place.Column = inside.Line == 1 ? place.Offset - StartOf(m_line) + 1 : inside.Column;
}

void CPieces::LocateForgotten(CTextPlace& place) const
{
    std::size_t line = m_line;
    const std::size_t first = m_line - std::min(m_line - 1, LINES_KEPT - 1);
    while (line > first && StartOf(line) > place.Offset)
        --line;
    if (StartOf(line) <= place.Offset) {
        place.Line = line;
        place.Column = place.Offset - StartOf(line) + 1;
        return;
    }
    const auto is = [&place](const CTextPlace& opened) { return opened.Offset == place.Offset; };
    const auto opened = std::find_if(m_opened.begin(), m_opened.end(), is);
    if (opened == m_opened.end()) return;
    place.Line = opened->Line;
    place.Column = opened->Column;
}

void CPieces::Opened(std::size_t depth, std::size_t offset)
{
    m_opened.resize(depth);
    m_opened[depth - 1] = CTextPlace();
    m_opened[depth - 1].Offset = offset;
}

} // namespace vexa::interchange
