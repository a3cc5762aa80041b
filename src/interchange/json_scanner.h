#ifndef VEXA_INTERCHANGE_JSON_SCANNER_H
#define VEXA_INTERCHANGE_JSON_SCANNER_H

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "interchange/json_number.h"
#include "interchange/json_scan.h"
#include "interchange/json_window.h"
#include "interchange/source.h"

/// \file
/// The grammar of RFC 8259, once, for whole texts and for texts in pieces: the concept of source.h. What is met all the
/// time is here; the rest in json_scanner_rest.h.

namespace vexa::interchange {

/// \p Input gives more text when the window is at its end: `bool More(CJsonWindow&)` keeps what lies from Token on,
/// moves the window's pointers, and gives false at the end of the text.
template<class Input>
class CJsonScanner : public CJsonFailure {
public:
    template<class... Arguments>
    explicit CJsonScanner(const CReadPolicy& policy, Arguments&&... arguments)
        : m_policy(policy), m_input(std::forward<Arguments>(arguments)...)
    {
    }

    /// To be asked where a value is due, as after NextElement() and NextKey().
    EventKind Peek()
    {
        if (__builtin_expect(!SkipBlanks(), 0)) return PeekAtEnd();
        StartToken();
        const EventKind kind = VALUE_KINDS[static_cast<unsigned char>(*m_window.Next)];
        return __builtin_expect(kind != EventKind::END, 1) ? kind : PeekOther();
    }

    bool Null() { return Word("null"); }
    bool Bool(bool& value)
    {
        value = m_window.Next != m_window.End && *m_window.Next == 't';
        return value ? Word("true") : Word("false");
    }
    bool Number(CNumber& number)
    {
        const char* const end = ScanInteger(m_window.Next, m_window.End, number);
        if (__builtin_expect(end == nullptr || end == m_window.End || IsWordPart(*end), 0)) return NumberRest(number);
        number.Digits = std::string_view(m_window.Next, static_cast<std::size_t>(end - m_window.Next));
        EndToken(end);
        return true;
    }
    bool String(CText& text)
    {
        const char* const first = m_window.Next + (m_window.Next != m_window.End);
        const char* const stop = FindByte<CStringStop>(first, m_window.End);
        const auto length = static_cast<std::size_t>(stop - first);
        if (__builtin_expect(stop == m_window.End || *stop != '"' || length > m_policy.MaxTextLength, 0))
            return StringRest(text, stop);
        text.Text = std::string_view(first, length);
        text.IsKept = Input::IS_WHOLE;
        EndToken(stop + 1);
        return true;
    }
    bool Bytes(CText&) noexcept { return false; }
    bool DateTime(CDateTime&) noexcept { return false; }

    bool EnterArray() { return Enter(); }
    bool EnterObject() { return Enter(); }
    bool NextElement()
    {
        if (__builtin_expect(SkipBlanks(), 1)) {
            if (*m_window.Next == ']') return Leave();
            if (m_isFirst) return TakeFirst();
            if (*m_window.Next == ',') return TakeComma(']');
        }
        return FailAtToken(ProblemCode::SYNTAX, m_isFirst ? "a value or ']'" : "',' or ']'");
    }
    bool NextKey(CText& key)
    {
        if (__builtin_expect(SkipBlanks(), 1)) {
            if (*m_window.Next == '}') return Leave();
            if (m_isFirst) return Key(key);
            if (*m_window.Next == ',') return TakeComma('}') && Key(key);
        }
        return FailAtToken(ProblemCode::SYNTAX, m_isFirst ? "a key or '}'" : "',' or '}'");
    }
    bool Skip();
    bool AtEnd();

    std::size_t Offset() const noexcept
    {
        if constexpr (Input::IS_WHOLE)
            return m_window.OffsetOf(m_window.Token);
        else
            return m_tokenOffset;
    }
    std::size_t EndOffset() const noexcept
    {
        if constexpr (Input::IS_WHOLE)
            return m_window.OffsetOf(m_tokenEnd);
        else
            return m_tokenEndOffset;
    }
    static CFormatAbilities Abilities() noexcept { return {}; }
    /// Whether all that is let in is JSON.
    bool IsStrict() const noexcept
    {
        return !m_policy.AllowComments && !m_policy.AllowTrailingCommas && !m_policy.AllowNan &&
               m_policy.Text == BadText::PROBLEM;
    }
    static std::size_t SizeHint() noexcept { return 0; }

protected:
    std::size_t Depth() const noexcept { return m_depth; }
    void EndToken(const char* end) noexcept
    {
        m_window.Next = m_tokenEnd = end;
        if constexpr (!Input::IS_WHOLE) m_tokenEndOffset = m_window.OffsetOf(end);
    }

    CJsonWindow m_window;
    const CReadPolicy m_policy;
    Input m_input;
    const char* m_tokenEnd = nullptr; ///< of the last one; stale where the text is in pieces
    bool m_isFirst = false;           ///< nothing of the innermost array or object has been met

private:
    bool More()
    {
        if constexpr (Input::IS_WHOLE) return false;
        return !HasFailed() && MoreInput();
    }
    bool MoreInput();
    /// Sees to it that so many bytes are left, if the text has them.
    bool Ensure(std::size_t count)
    {
        while (m_window.Left() < count) {
            if (!More()) return false;
        }
        return true;
    }

    /// \return whether something is left behind the blanks.
    bool SkipBlanks()
    {
        const char* const next = m_window.Next;
        if (__builtin_expect(m_window.Left() > 1, 1)) {
            if (IsTokenStart(*next)) return true;
            if (*next == ' ' && IsTokenStart(next[1])) {
                m_window.Next = next + 1;
                return true;
            }
        }
        return SkipBlanksRest();
    }
    bool SkipBlanksRest();
    bool MoreBetweenTokens();
    bool SkipComment();
    bool SkipLineComment();
    bool SkipBlockComment();

    void StartToken() noexcept
    {
        m_window.Token = m_window.Next;
        if constexpr (!Input::IS_WHOLE) m_tokenOffset = m_window.OffsetOf(m_window.Next);
    }
    bool Enter()
    {
        if (__builtin_expect(m_window.Next == m_window.End || m_depth >= m_policy.MaxDepth, 0)) return FailToEnter();
        ++m_depth;
        m_isFirst = true;
        EndToken(m_window.Next + 1);
        return true;
    }
    /// \return false, for there is no further element.
    bool Leave() noexcept
    {
        --m_depth;
        m_isFirst = false;
        EndToken(m_window.Next + 1);
        return false;
    }
    bool TakeFirst() noexcept
    {
        m_isFirst = false;
        return true;
    }
    /// \return false if the comma was the last thing before \p close, which is left, or the text is broken.
    bool TakeComma(char close)
    {
        ++m_window.Next;
        return __builtin_expect(!m_policy.AllowTrailingCommas, 1) || TakeTrailingComma(close);
    }
    bool TakeTrailingComma(char close);
    const char* KeyExpected() const noexcept { return m_isFirst ? "a key or '}'" : "a key"; }
    bool Key(CText& key)
    {
        if (!SkipBlanks() || *m_window.Next != '"') return FailAtToken(ProblemCode::SYNTAX, KeyExpected());
        m_isFirst = false;
        StartToken();
        if (!String(key)) return false;
        if constexpr (!Input::IS_WHOLE) key.Text = Kept(key.Text);
        if (!SkipBlanks() || *m_window.Next != ':') return FailAtToken(ProblemCode::SYNTAX, "':'");
        ++m_window.Next;
        return true;
    }
    /// A key stays while what follows it is looked for, which may be in another piece.
    std::string_view Kept(std::string_view text)
    {
        if (text.data() != m_scratch.data()) m_scratch.assign(text);
        return m_scratch;
    }

    template<std::size_t SIZE>
    bool Word(const char (&word)[SIZE])
    {
        constexpr std::size_t LENGTH = SIZE - 1;
        const char* const next = m_window.Next;
        if (__builtin_expect(
                m_window.Left() > LENGTH && std::memcmp(next, word, LENGTH) == 0 && !IsWordPart(next[LENGTH]), 1)) {
            EndToken(next + LENGTH);
            return true;
        }
        return WordRest(std::string_view(word, LENGTH));
    }
    bool WordRest(std::string_view word);
    std::size_t WordLength(std::size_t limit);
    bool NumberRest(CNumber& number);
    bool NamedNumber(CNumber& number);

    /// What has been found out about a string between its quotation marks.
    struct CScannedString {
        std::size_t Growth = 0; ///< bytes that it has more than its form in the text; modulo the size's range
        bool IsPlain = true;    ///< it is its form in the text
    };
    bool StringRest(CText& text, const char* stop);
    bool ScanString(const char* stop, CScannedString& scanned);
    bool ScanEscape(CScannedString& scanned);
    bool ScanUnicodeEscape(CScannedString& scanned);
    bool ScanLongCharacters(CScannedString& scanned);
    bool IsTooLong(const CScannedString& scanned) const noexcept;

    EventKind PeekAtEnd();
    EventKind PeekOther();
    bool SkipSingle(EventKind kind);

    bool Stop() noexcept;
    bool FailAtToken(ProblemCode code, const char* expected);
    bool FailAt(ProblemCode code, std::size_t length, const char* expected);
    bool FailOpenString(const char* expected);
    bool FailLongString();
    bool FailToEnter();

    std::size_t m_tokenOffset = 0;
    std::size_t m_tokenEndOffset = 0;
    std::size_t m_depth = 0;
    std::string m_scratch;
};

} // namespace vexa::interchange

#endif
