#ifndef VEXA_INTERCHANGE_JSON_PIECES_H
#define VEXA_INTERCHANGE_JSON_PIECES_H

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "interchange/json_events.h"
#include "interchange/json_scanner.h"

namespace vexa::interchange {

/// Where a text in pieces comes from. A piece is looked at where it lies; only a token that goes on in the next piece
/// is joined with that.
class CPieces {
public:
    static constexpr bool IS_WHOLE = false;

    CPieces(InputFunction input, std::size_t maxBytes) : m_input(std::move(input)), m_left(maxBytes) {}

    /// Gives the window the next piece. What lies before its Token is forgotten. An exception of the callback passes
    /// through; nothing has changed then.
    bool More(CJsonWindow& window);
    /// Whether the text has more bytes than it may.
    bool IsTooLong() const noexcept { return m_isTooLong; }
    /// Line and column, as far as they are known: of what lies in the window, and of the last LINES_KEPT lines before.
    void Locate(CTextPlace& place, const CJsonWindow& window) const;
    /// Keeps the place of an array or object, the \p depth -th of those that are open, until another takes its place.
    void Opened(std::size_t depth, std::size_t offset);
    /// Keeps the text from a byte that is in the window on.
    void BeginRaw(std::size_t offset);
    /// Gives what has been kept up to \p end, which is in the window.
    void EndRaw(const CJsonWindow& window, std::size_t end, std::string& text);

private:
    static constexpr std::size_t LINES_KEPT = 4096;

    std::string_view NextPiece();
    void Forget(CJsonWindow& window);
    void Join(CJsonWindow& window);
    void KeepRaw(const CJsonWindow& window, std::size_t end);
    static void Move(CJsonWindow& window, std::string_view text) noexcept;
    std::size_t StartOf(std::size_t line) const;
    void LocateForgotten(CTextPlace& place) const;

    InputFunction m_input;
    std::size_t m_left; ///< bytes that the text may still have
    bool m_isTooLong = false;
    bool m_isAtEnd = false;
    bool m_isJoined = false; ///< the window lies in m_joined
    std::string m_joined;
    std::size_t m_line = 1;            ///< where the window starts
    std::vector<std::size_t> m_starts; ///< of the last lines up to it, but the first: a ring
    std::vector<CTextPlace> m_opened;
    bool m_isRawKept = false;
    std::size_t m_rawEnd = 0; ///< of what has been kept
    std::string m_raw;
};

extern template class CJsonScanner<CPieces>;

/// The source over a JSON text in pieces. An exception of the callback is a problem, but std::bad_alloc.
class CJsonPiecesSource : public CJsonScanner<CPieces> {
public:
    CJsonPiecesSource(InputFunction input, const CReadPolicy& policy)
        : CJsonScanner(policy, std::move(input), policy.MaxBytes)
    {
    }
    void Locate(CTextPlace& place) const { m_input.Locate(place, m_window); }
    void BeginRaw() { m_input.BeginRaw(Offset()); }
    void EndRaw(std::string& text) { m_input.EndRaw(m_window, EndOffset(), text); }
    bool EnterArray() { return CJsonScanner::EnterArray() && HasOpened(); }
    bool EnterObject() { return CJsonScanner::EnterObject() && HasOpened(); }

private:
    bool HasOpened()
    {
        m_input.Opened(Depth(), Offset());
        return true;
    }
};

/// JSON in pieces, with memory for one of them and one token. What has gone by has line and column if it is the start
/// of an array or object that is open or the last to be closed, or lies in the last few thousand lines; otherwise only
/// its byte is known.
class CJsonPieces : public CJsonEvents<CJsonPiecesSource> {
public:
    explicit CJsonPieces(InputFunction input, const CReadPolicy& policy = {}) : CJsonEvents(std::move(input), policy) {}
};

} // namespace vexa::interchange

#endif
