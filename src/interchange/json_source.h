#ifndef VEXA_INTERCHANGE_JSON_SOURCE_H
#define VEXA_INTERCHANGE_JSON_SOURCE_H

#include <charconv>
#include <string>
#include <string_view>

#include "interchange/json_scanner.h"
#include "interchange/place.h"

namespace vexa::interchange {

extern template class CJsonScanner<CWholeText>;

/// The source over a whole JSON text, which need not be followed by anything and stays as long as the source. A byte
/// order mark is refused (RFC 8259 forbids to write one).
class CJsonSource : public CJsonScanner<CWholeText> {
public:
    explicit CJsonSource(std::string_view text, const CReadPolicy& policy = {})
        : CJsonScanner(policy), m_text(text), m_lines(text)
    {
        m_window.Begin = m_window.Next = m_window.Token = text.data();
        m_window.End = text.data() + text.size();
        if (__builtin_expect(text.size() > policy.MaxBytes, 0)) FailTooLong();
    }

    /// Steps onto the next key and gives true if it is written just like \p written, which is `"key":`. Otherwise
    /// nothing has happened, and NextKey() is to be asked.
    bool NextKeyIs(std::string_view written)
    {
        const char* next = m_window.Next;
        if (!m_isFirst) {
            if (next == m_window.End || *next != ',') return false;
            ++next;
        }
        if (next != m_window.End && text::IsBlank(*next)) next = FindByte<CNonBlank>(next, m_window.End);
        if (static_cast<std::size_t>(m_window.End - next) < written.size()) return false;
        if (__builtin_expect(written.size() - 3 > m_policy.MaxTextLength, 0)) return false; // without quotes and colon
        if (!IsSame(next, written.data(), written.size())) return false;
        m_window.Token = next;
        m_window.Next = next + written.size();
        m_tokenEnd = m_window.Next - 1;
        m_isFirst = false;
        return true;
    }

    /// The double nearest to the number that Peek() has told. \return false where that is no double or no number:
    /// nothing has happened then, and Number() is to be asked.
    bool Double(double& value) noexcept
    {
        if (!IsDecimalBeginning(m_window.Next, m_window.End)) return false;
        double nearest = 0;
        const auto [end, error] = std::from_chars(m_window.Next, m_window.End, nearest);
        if (error != std::errc() || end == m_window.End || IsWordPart(*end)) return false;
        value = nearest;
        EndToken(end);
        return true;
    }

    std::string_view Text() const noexcept { return m_text; }
    /// The text from the value that Peek() has told last to the end of the last one that has been consumed.
    void BeginRaw() noexcept { m_rawBegin = Offset(); }
    void EndRaw(std::string& text) const { text = m_text.substr(m_rawBegin, EndOffset() - m_rawBegin); }
    void Locate(CTextPlace& place) { m_lines.Fill(place); }

private:
    void FailTooLong();

    std::string_view m_text;
    CLineFinder m_lines;
    std::size_t m_rawBegin = 0;
};

} // namespace vexa::interchange

#endif
