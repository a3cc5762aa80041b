#ifndef VEXA_INTERCHANGE_JSON_SOURCE_H
#define VEXA_INTERCHANGE_JSON_SOURCE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "core/scan.h"
#include "interchange/json_plain.h"
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

    /// Where the reading is, for those who go on by themselves (json_plain.h) and tell by the functions below how far
    /// they have come.
    const char* Place() const noexcept { return m_window.Next; }
    const char* End() const noexcept { return m_window.End; }
    /// Whether nothing of the innermost array or object has been met.
    bool IsAtFirst() const noexcept { return m_isFirst; }
    /// The next key if it is written just like \p written, which is `"key":`, 16 bytes of which may be read at least;
    /// null otherwise. \p next is the place of the brace's or the last value's end.
    const char* KeyAt(const char* next, bool isFirst, std::string_view written) const noexcept
    {
        if (!isFirst) {
            if (next == m_window.End || *next != ',') return nullptr;
            ++next;
        }
        const auto isHere = [&] { return core::StartsWith(next, m_window.End, written.data(), written.size()); };
        if (__builtin_expect(isHere(), 1)) return next;
        if (next == m_window.End || !text::IsBlank(*next)) return nullptr;
        next = PlainBlanks(next, m_window.End);
        return isHere() ? next : nullptr;
    }
    /// A key has been taken, and what comes behind its colon has not.
    void MoveBehindKey(const char* key, std::size_t length) noexcept
    {
        m_window.Token = key;
        m_window.Next = key + length;
        m_tokenEnd = m_window.Next - 1;
        m_isFirst = false;
    }
    /// A value of the innermost array or object has been taken.
    void MoveBehindValue(const char* end) noexcept
    {
        EndToken(end);
        m_isFirst = false;
    }
    std::size_t OffsetOf(const char* at) const noexcept { return m_window.OffsetOf(at); }

    /// Steps onto the next key and gives true if it is written just like \p written, which is `"key":`. Otherwise
    /// nothing has happened, and NextKey() is to be asked.
    bool NextKeyIs(std::string_view written)
    {
        if (__builtin_expect(written.size() - 3 > m_policy.MaxTextLength, 0)) return false; // without quotes and colon
        const char* const key = KeyAt(m_window.Next, m_isFirst, written);
        if (key != nullptr) MoveBehindKey(key, written.size());
        return key != nullptr;
    }

    /// Takes elements of the array just entered and adds them to \p elements, as long as they are written as most are.
    /// \return how many. NextElement() is to be asked for the others.
    template<class T>
    std::size_t TakeElements(std::vector<T>& elements);

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

/// Numbers are handed over by many, so that a short array is one allocation.
template<class T>
__attribute__((noinline)) std::size_t CJsonSource::TakeElements(std::vector<T>& elements)
{
    constexpr bool ARE_TEXTS = std::is_same_v<T, std::string>;
    constexpr std::size_t ROOM = 32;
    [[maybe_unused]] std::conditional_t<ARE_TEXTS, char, T> room[ROOM];
    const std::size_t before = elements.size();
    const char* next = m_window.Next;
    std::size_t count = 0;
    for (bool isFirst = m_isFirst;; isFirst = false) {
        const char* element = next;
        if (!isFirst) {
            if (element == m_window.End || *element != ',') break;
            ++element;
        }
        element = PlainBlanks(element, m_window.End);
        if constexpr (ARE_TEXTS) {
            std::string_view text;
            element = PlainText(element, m_window.End, text);
            if (element == nullptr) break;
            elements.emplace_back(text);
        } else {
            if (count == ROOM) elements.insert(elements.end(), room, room + std::exchange(count, 0));
            element = PlainNumber(element, m_window.End, room[count]);
            if (element == nullptr) break;
            ++count;
        }
        next = element;
    }
    if constexpr (!ARE_TEXTS) elements.insert(elements.end(), room, room + count);
    const std::size_t taken = elements.size() - before;
    if (taken != 0) MoveBehindValue(next);
    return taken;
}

} // namespace vexa::interchange

#endif
