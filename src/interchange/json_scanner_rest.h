#ifndef VEXA_INTERCHANGE_JSON_SCANNER_REST_H
#define VEXA_INTERCHANGE_JSON_SCANNER_REST_H

#include <limits>

#include "interchange/json_scanner.h"
#include "interchange/read_phrase.h"
#include "interchange/thrown.h"
#include "interchange/utf8.h"

/// \file
/// What a scanner does less often than json_scanner.h: included where scanners are instantiated.

namespace vexa::interchange {

inline constexpr std::size_t MAX_WORD_LENGTH = 64; ///< that a problem tells of

// More text

template<class Input>
bool CJsonScanner<Input>::MoreInput()
{
    if constexpr (!Input::IS_WHOLE) {
        const std::size_t end = m_window.OffsetOf(m_window.End);
        try {
            if (m_input.More(m_window)) return true;
            if (m_input.IsTooLong()) Keep(ProblemCode::TOO_LONG, {end, 0}, AtMost(m_policy.MaxBytes, "byte"), {});
        } catch (...) {
            Keep(ProblemCode::INPUT_FAILED, {end, 0}, {}, WhatIsThrown());
        }
    }
    return false;
}

// Between tokens

template<class Input>
bool CJsonScanner<Input>::SkipBlanksRest()
{
    while (true) {
        m_window.Next = FindByte<CNonBlank>(m_window.Next, m_window.End);
        if (m_window.Next == m_window.End) {
            if (!MoreBetweenTokens()) return false;
        } else if (*m_window.Next != '/' || !m_policy.AllowComments) {
            return true;
        } else if (!SkipComment()) {
            return !HasFailed();
        }
    }
}

template<class Input>
bool CJsonScanner<Input>::MoreBetweenTokens()
{
    if constexpr (!Input::IS_WHOLE) m_window.Token = m_window.Next;
    return More();
}

/// \return false if what stands here is none, or has no end.
template<class Input>
bool CJsonScanner<Input>::SkipComment()
{
    if constexpr (!Input::IS_WHOLE) m_window.Token = m_window.Next;
    if (!Ensure(2)) return false;
    const char second = m_window.Next[1];
    if (second != '/' && second != '*') return false;
    m_window.Next += 2;
    return second == '/' ? SkipLineComment() : SkipBlockComment();
}

template<class Input>
bool CJsonScanner<Input>::SkipLineComment()
{
    do {
        if (const void* const found = std::memchr(m_window.Next, '\n', m_window.Left())) {
            m_window.Next = static_cast<const char*>(found);
            return true;
        }
        m_window.Next = m_window.End;
    } while (MoreBetweenTokens());
    return true;
}

template<class Input>
bool CJsonScanner<Input>::SkipBlockComment()
{
    char last = 0;
    do {
        for (; m_window.Next != m_window.End; last = *m_window.Next++) {
            if (*m_window.Next != '/' || last != '*') continue;
            ++m_window.Next;
            return true;
        }
    } while (MoreBetweenTokens());
    return FailAtToken(ProblemCode::SYNTAX, "'*/'");
}

template<class Input>
bool CJsonScanner<Input>::TakeTrailingComma(char close)
{
    if (!SkipBlanks()) return FailAtToken(ProblemCode::SYNTAX, close == ']' ? "a value or ']'" : "a key or '}'");
    return *m_window.Next == close ? Leave() : true;
}

template<class Input>
bool CJsonScanner<Input>::AtEnd()
{
    if (HasFailed()) return false;
    if (!SkipBlanks()) return !HasFailed();
    return FailAtToken(ProblemCode::TEXT_AFTER_VALUE, "");
}

// Which value

template<class Input>
EventKind CJsonScanner<Input>::PeekAtEnd()
{
    const bool isBehindValue = m_depth == 0 && m_tokenEnd != nullptr;
    if (!isBehindValue) FailAtToken(ProblemCode::SYNTAX, "a value");
    return EventKind::END;
}

template<class Input>
EventKind CJsonScanner<Input>::PeekOther()
{
    const std::size_t length = WordLength(MAX_WORD_LENGTH);
    const std::string_view word(m_window.Next, length);
    const bool isNamed = word == "NaN" || word == "Infinity";
    if (isNamed && m_policy.AllowNan) return EventKind::SIGNED;
    const bool isNumber = isNamed || *m_window.Next == '+' || *m_window.Next == '.';
    FailAtToken(isNumber ? ProblemCode::BAD_NUMBER : ProblemCode::SYNTAX, isNumber ? "" : "a value");
    return EventKind::END;
}

// Words and numbers

/// Bytes of the word or number that starts here, all of them in the window; of a longer one \p limit or some more.
template<class Input>
std::size_t CJsonScanner<Input>::WordLength(std::size_t limit)
{
    if constexpr (!Input::IS_WHOLE) m_window.Token = m_window.Next;
    std::size_t length = 0;
    while (length < limit && Ensure(length + 1) && IsWordPart(m_window.Next[length]))
        ++length;
    return length;
}

template<class Input>
bool CJsonScanner<Input>::WordRest(std::string_view word)
{
    const std::size_t length = WordLength(MAX_WORD_LENGTH);
    const std::string_view found(m_window.Next, length);
    if (found == word) {
        EndToken(m_window.Next + length);
        return true;
    }
    const bool isCut = length == m_window.Left() && word.substr(0, length) == found;
    if (isCut) m_window.Next = m_window.End;
    return FailAtToken(ProblemCode::SYNTAX, "a value");
}

template<class Input>
bool CJsonScanner<Input>::NumberRest(CNumber& number)
{
    if constexpr (!Input::IS_WHOLE) WordLength(std::numeric_limits<std::size_t>::max());
    const char* const end = ScanNumber(m_window.Next, m_window.End, number);
    if (end != nullptr && (end == m_window.End || !IsWordPart(*end))) {
        EndToken(end);
        return true;
    }
    return NamedNumber(number) || FailAtToken(ProblemCode::BAD_NUMBER, "");
}

template<class Input>
bool CJsonScanner<Input>::NamedNumber(CNumber& number)
{
    if (!m_policy.AllowNan) return false;
    const std::size_t length = WordLength(MAX_WORD_LENGTH);
    const std::string_view word(m_window.Next, length);
    using Limits = std::numeric_limits<double>;
    if (word == "NaN")
        number.Floating = Limits::quiet_NaN();
    else if (word == "Infinity")
        number.Floating = Limits::infinity();
    else if (word == "-Infinity")
        number.Floating = -Limits::infinity();
    else
        return false;
    number.Kind = CNumber::Form::FLOATING;
    number.Digits = {};
    EndToken(m_window.Next + word.size());
    return true;
}

// Strings

template<class Input>
bool CJsonScanner<Input>::StringRest(CText& text, const char* stop)
{
    CScannedString scanned;
    if (!ScanString(stop, scanned)) return false;
    text.Text = std::string_view(m_window.Token + 1, static_cast<std::size_t>(m_window.Next - m_window.Token) - 1);
    text.IsKept = Input::IS_WHOLE && scanned.IsPlain;
    EndToken(m_window.Next + 1);
    if (scanned.IsPlain) return true;
    m_scratch.resize(text.Text.size() + scanned.Growth);
    DecodeString(m_scratch.data(), text.Text, m_policy.Text);
    text.Text = m_scratch;
    return true;
}

/// Goes on at \p stop, a place behind the quotation mark that Token is, to the one that closes it.
template<class Input>
bool CJsonScanner<Input>::ScanString(const char* stop, CScannedString& scanned)
{
    m_window.Next = stop;
    while (true) {
        m_window.Next = FindByte<CStringStop>(m_window.Next, m_window.End);
        if (IsTooLong(scanned)) return FailLongString();
        if (m_window.Next == m_window.End) {
            if (!More()) return FailOpenString("'\"'");
            continue;
        }
        const char byte = *m_window.Next;
        if (byte == '"') return true;
        if (byte == '\\') {
            if (!ScanEscape(scanned)) return false;
        } else if (static_cast<unsigned char>(byte) >= 0x80) {
            if (!ScanLongCharacters(scanned)) return false;
        } else {
            return FailAt(ProblemCode::CONTROL_CHARACTER, 1, "");
        }
    }
}

template<class Input>
bool CJsonScanner<Input>::ScanLongCharacters(CScannedString& scanned)
{
    const char* const first = m_window.Next;
    m_window.Next = EndOfCharacters(first, m_window.End);
    if (m_window.Next != first) return true;
    while (m_window.Next != m_window.End && static_cast<unsigned char>(*m_window.Next) >= 0x80) {
        Ensure(MAX_CHARACTER_LENGTH);
        std::size_t length = LongCharacterLength(m_window.Next, m_window.End);
        if (length == 0) {
            if (m_policy.Text == BadText::PROBLEM) return FailAt(ProblemCode::BAD_UTF8, 1, "");
            scanned.IsPlain = false;
            scanned.Growth += EncodedLength(CharacterOfBadByte(*m_window.Next, m_policy.Text)) - 1;
            length = 1;
        }
        m_window.Next += length;
    }
    return true;
}

template<class Input>
bool CJsonScanner<Input>::ScanEscape(CScannedString& scanned)
{
    if (!Ensure(2)) return FailOpenString("an escape");
    scanned.IsPlain = false;
    switch (m_window.Next[1]) {
    case 'u': return ScanUnicodeEscape(scanned);
    case '"':
    case '\\':
    case '/':
    case 'b':
    case 'f':
    case 'n':
    case 'r':
    case 't':
        m_window.Next += 2;
        --scanned.Growth;
        return true;
    default:
        Ensure(1 + MAX_CHARACTER_LENGTH);
        const std::size_t length = CharacterLength(m_window.Next + 1, m_window.End);
        return FailAt(ProblemCode::BAD_ESCAPE, 1 + (length != 0 ? length : 1),
                      "one of \\\" \\\\ \\/ \\b \\f \\n \\r \\t \\u");
    }
}

template<class Input>
bool CJsonScanner<Input>::ScanUnicodeEscape(CScannedString& scanned)
{
    constexpr std::size_t LENGTH = 6;
    for (std::size_t at = 2; at < LENGTH; ++at) {
        if (!Ensure(at + 1)) return FailOpenString("four hexadecimal digits");
        if (text::HexDigit(m_window.Next[at]) < 0)
            return FailAt(ProblemCode::BAD_ESCAPE, at, "four hexadecimal digits");
    }
    const std::uint32_t unit = CodeUnit(m_window.Next + 2);
    if (!IsSurrogate(unit)) {
        scanned.Growth += EncodedLength(unit) - LENGTH;
        m_window.Next += LENGTH;
        return true;
    }
    if (IsLowSurrogate(unit)) return FailAt(ProblemCode::LONE_SURROGATE, LENGTH, "");
    const char* const second = Ensure(2 * LENGTH) ? m_window.Next + LENGTH : nullptr;
    if (second == nullptr || second[0] != '\\' || second[1] != 'u' || !IsLowSurrogate(CodeUnit(second + 2)))
        return FailAt(ProblemCode::LONE_SURROGATE, LENGTH, "");
    scanned.Growth += 4 - 2 * LENGTH;
    m_window.Next += 2 * LENGTH;
    return true;
}

template<class Input>
bool CJsonScanner<Input>::IsTooLong(const CScannedString& scanned) const noexcept
{
    const auto length = static_cast<std::size_t>(m_window.Next - m_window.Token) - 1;
    return length + scanned.Growth > m_policy.MaxTextLength;
}

// Skipping

template<class Input>
bool CJsonScanner<Input>::Skip()
{
    EventKind kind = Peek();
    const char* const token = m_window.Token;
    CNestedKinds open;
    CText key;
    while (true) {
        const bool isObject = kind == EventKind::BEGIN_OBJECT;
        if (isObject || kind == EventKind::BEGIN_ARRAY) {
            if (!Enter()) return false;
            open.Push(isObject);
        } else if (!SkipSingle(kind)) {
            return false;
        }
        while (!open.IsEmpty() && !(open.IsObject() ? NextKey(key) : NextElement())) {
            if (HasFailed()) return false;
            open.Pop();
        }
        if (open.IsEmpty()) break;
        kind = Peek();
    }
    if constexpr (Input::IS_WHOLE) m_window.Token = token;
    return true;
}

template<class Input>
bool CJsonScanner<Input>::SkipSingle(EventKind kind)
{
    CScannedString scanned;
    CNumber number;
    bool value = false;
    switch (kind) {
    case EventKind::NULL_VALUE: return Null();
    case EventKind::BOOL: return Bool(value);
    case EventKind::SIGNED: return Number(number);
    case EventKind::STRING:
        if (!ScanString(m_window.Next + 1, scanned)) return false;
        EndToken(m_window.Next + 1);
        return true;
    default: return false;
    }
}

// Problems

/// Sees to it that nothing more is found.
template<class Input>
bool CJsonScanner<Input>::Stop() noexcept
{
    m_window.End = m_window.Next;
    return false;
}

/// A problem of the token that starts here, which may be the end of the text.
template<class Input>
bool CJsonScanner<Input>::FailAtToken(ProblemCode code, const char* expected)
{
    if (HasFailed()) return Stop();
    if constexpr (!Input::IS_WHOLE) m_window.Token = m_window.Next;
    if (!Ensure(1)) return FailAt(ProblemCode::UNEXPECTED_END, 0, expected);
    std::size_t length = WordLength(MAX_WORD_LENGTH);
    const std::string_view word(m_window.Next, length);
    if (m_window.OffsetOf(m_window.Next) == 0 && word.substr(0, BYTE_ORDER_MARK.size()) == BYTE_ORDER_MARK)
        length = BYTE_ORDER_MARK.size();
    return FailAt(code, length != 0 ? length : 1, expected);
}

/// A problem of the bytes that start here and lie in the window.
template<class Input>
bool CJsonScanner<Input>::FailAt(ProblemCode code, std::size_t length, const char* expected)
{
    const std::size_t offset = m_window.OffsetOf(m_window.Next);
    if (!HasFailed()) Keep(code, {offset, length}, expected, DescribeToken(std::string_view(m_window.Next, length)));
    return Stop();
}

template<class Input>
bool CJsonScanner<Input>::FailOpenString(const char* expected)
{
    if (HasFailed()) return Stop();
    const std::size_t quote = m_window.OffsetOf(m_window.Token);
    m_window.Next = m_window.End;
    FailAt(ProblemCode::UNEXPECTED_END, 0, expected);
    Problem().Second.Offset = quote;
    Problem().Second.Length = 1;
    return false;
}

template<class Input>
bool CJsonScanner<Input>::FailLongString()
{
    Keep(ProblemCode::TOO_LONG, {m_window.OffsetOf(m_window.Token), 1}, AtMost(m_policy.MaxTextLength, "byte"), {});
    return Stop();
}

template<class Input>
bool CJsonScanner<Input>::FailToEnter()
{
    if (m_window.Next == m_window.End) return FailAtToken(ProblemCode::SYNTAX, "a value");
    Keep(ProblemCode::TOO_DEEP, {m_window.OffsetOf(m_window.Next), 1}, AtMost(m_policy.MaxDepth, "level"), {});
    return Stop();
}

} // namespace vexa::interchange

#endif
