#include "interchange/event_reader.h"

#include <algorithm>
#include <utility>

#include "interchange/read_phrase.h"
#include "interchange/replay.h"
#include "interchange/utf8.h"

namespace vexa::interchange {

namespace {

const CReadPolicy& WithoutBounds()
{
    static const CReadPolicy policy = [] {
        CReadPolicy made;
        made.MaxDepth = CReadPolicy::NO_LIMIT;
        return made;
    }();
    return policy;
}

bool IsValue(EventKind kind)
{
    return kind != EventKind::END && kind != EventKind::KEY && kind != EventKind::END_ARRAY &&
           kind != EventKind::END_OBJECT;
}

/// More room than this is not taken on a format's word.
constexpr std::size_t MOST_RESERVED = 1024;

constexpr std::size_t EXPANSION = std::size_t{8} << 20U;
constexpr std::size_t EXPANSION_FACTOR = 10;

} // namespace

CEventReader::CEventReader(CReplay& replay)
    : m_source(replay), m_policy(WithoutBounds()), m_replay(&replay), m_aliases(CReadPolicy::NO_LIMIT)
{
}

bool CEventReader::Fail(ProblemCode code, std::string expected)
{
    if (m_hasFailed) return false;
    m_hasFailed = true;
    m_problem.Code = code;
    m_problem.Expected = std::move(expected);
    m_problem.Place.Offset = m_event.Offset;
    m_problem.Place.Length = m_event.Length;
    return false;
}

/// Without a bound, aliases have one of their own.
bool CEventReader::IsShortEnough()
{
    m_told = std::max(m_told, m_event.Offset + m_event.Length);
    const bool isBounded = m_policy.MaxBytes != CReadPolicy::NO_LIMIT;
    const std::size_t most = isBounded ? m_policy.MaxBytes : m_told + std::max(EXPANSION, EXPANSION_FACTOR * m_told);
    const std::size_t repeated = m_aliases.RepeatedBytes();
    if (m_told <= most && repeated <= most - m_told) return true;
    return Fail(ProblemCode::TOO_LONG, AtMost(most, "byte"));
}

bool CEventReader::IsWithinBounds()
{
    if (m_replay != nullptr) return true;
    if (!IsShortEnough()) return false;
    const bool isText =
        m_event.Kind == EventKind::STRING || m_event.Kind == EventKind::BYTES || m_event.Kind == EventKind::KEY;
    if (isText && m_event.Text.size() > m_policy.MaxTextLength)
        return Fail(ProblemCode::TOO_LONG, AtMost(m_policy.MaxTextLength, "byte"));
    return m_event.Kind == EventKind::BYTES || !isText || IsGoodText();
}

/// By the policy, other bytes are mended.
bool CEventReader::IsGoodText()
{
    const std::size_t bad = FindBadUtf8(m_event.Text);
    if (bad == m_event.Text.size()) return true;
    if (m_policy.Text == BadText::PROBLEM) return Fail(ProblemCode::BAD_UTF8, {});
    m_mended.clear();
    AppendMended(m_mended, m_event.Text, m_policy.Text);
    m_event.Text = m_mended;
    m_event.IsTextKept = false;
    return true;
}

/// Has the next event in m_event.
bool CEventReader::Look()
{
    if (m_hasEvent) return !m_hasFailed;
    if (m_hasFailed) return false;
    m_event = CEvent();
    if (!(m_replay != nullptr ? m_source.Next(m_event, m_problem) : m_aliases.Next(m_source, m_event, m_problem))) {
        m_hasFailed = true;
        if (m_problem.Code == ProblemCode::NONE) m_problem.Code = ProblemCode::SYNTAX;
        if (m_problem.Place.Offset == CTextPlace::NOWHERE) {
            m_problem.Place.Offset = m_event.Offset;
            m_problem.Place.Length = m_event.Length;
        }
        return false;
    }
    m_hasEvent = true;
    return IsWithinBounds();
}

EventKind CEventReader::Peek()
{
    if (!Look()) return EventKind::END;
    const EventKind kind = m_event.Kind;
    if (kind == EventKind::END) Fail(ProblemCode::UNEXPECTED_END, "a value");
    if (kind == EventKind::KEY || kind == EventKind::END_ARRAY || kind == EventKind::END_OBJECT) {
        Fail(ProblemCode::SYNTAX, "a value");
        return EventKind::END;
    }
    return m_event.Kind;
}

bool CEventReader::TakeValue(EventKind kind)
{
    if (!Look()) return false;
    if (m_event.Kind != kind) return Fail(ProblemCode::SYNTAX, "another value");
    m_hasEvent = false;
    m_end = m_event.Offset + m_event.Length;
    return true;
}

bool CEventReader::TakeText(EventKind kind, CText& text)
{
    if (!TakeValue(kind)) return false;
    text.Text = m_event.Text;
    text.IsKept = m_event.IsTextKept;
    return true;
}

bool CEventReader::Bool(bool& value)
{
    if (!TakeValue(EventKind::BOOL)) return false;
    value = m_event.Bool;
    return true;
}

bool CEventReader::DateTime(CDateTime& time)
{
    if (!TakeValue(EventKind::DATE_TIME)) return false;
    time = m_event.Time;
    return true;
}

bool CEventReader::Number(CNumber& number)
{
    const EventKind kind = Peek();
    if (kind != EventKind::UNSIGNED && kind != EventKind::FLOATING && kind != EventKind::SIGNED)
        return Fail(ProblemCode::SYNTAX, "a number");
    TakeValue(kind);
    number.Digits = m_event.Text;
    number.IsNegative = kind == EventKind::SIGNED && m_event.Signed < 0;
    if (kind == EventKind::FLOATING) {
        number.Kind = m_event.Text.empty() ? CNumber::Form::FLOATING : CNumber::Form::DIGITS;
        number.Floating = m_event.Floating;
        return true;
    }
    number.Kind = CNumber::Form::INTEGER;
    const auto bits = static_cast<std::uint64_t>(m_event.Signed);
    number.Magnitude = kind == EventKind::UNSIGNED ? m_event.Unsigned : number.IsNegative ? 0 - bits : bits;
    return true;
}

bool CEventReader::Enter(EventKind kind)
{
    if (!Look()) return false;
    if (m_depth >= m_policy.MaxDepth) return Fail(ProblemCode::TOO_DEEP, AtMost(m_policy.MaxDepth, "level"));
    if (!TakeValue(kind)) return false;
    ++m_depth;
    return true;
}

bool CEventReader::Leave(EventKind kind)
{
    TakeValue(kind);
    --m_depth;
    return false;
}

/// Where a source fails in the middle of an element, there is one: whoever reads it tells the problem with its way.
bool CEventReader::NextElement()
{
    const bool wasGood = !m_hasFailed;
    if (!Look()) return wasGood && IsValue(m_event.Kind);
    const EventKind kind = m_event.Kind;
    if (kind == EventKind::END_ARRAY) return Leave(kind);
    if (kind == EventKind::END || kind == EventKind::END_OBJECT || kind == EventKind::KEY)
        return Fail(ProblemCode::SYNTAX, "an element");
    return true;
}

bool CEventReader::NextKey(CText& key)
{
    if (!Look()) return false;
    if (m_event.Kind == EventKind::END_OBJECT) return Leave(EventKind::END_OBJECT);
    if (m_event.Kind != EventKind::KEY)
        return Fail(ProblemCode::SYNTAX, Abilities().HasIntegerKeys ? "a text or an integer as key" : "a key");
    return TakeText(EventKind::KEY, key);
}

/// Nested values are passed over without recursion.
bool CEventReader::Skip()
{
    if (m_replay != nullptr && Look()) {
        m_end = m_replay->SkipValue();
        m_hasEvent = false;
        return true;
    }
    const std::size_t depth = m_depth;
    do {
        CText key;
        if (m_depth > depth && Look()) {
            const bool isInObject = m_event.Kind == EventKind::KEY || m_event.Kind == EventKind::END_OBJECT;
            if (!(isInObject ? NextKey(key) : NextElement())) continue;
        }
        const EventKind kind = Peek();
        if (kind == EventKind::BEGIN_ARRAY || kind == EventKind::BEGIN_OBJECT)
            Enter(kind);
        else if (kind == EventKind::END)
            Fail(ProblemCode::SYNTAX, "a value");
        else
            TakeValue(kind);
    } while (!m_hasFailed && m_depth > depth);
    return !m_hasFailed;
}

bool CEventReader::Raw(std::string& text, bool& isTaken)
{
    isTaken = false;
    if (m_replay != nullptr || !Look() || !IsValue(m_event.Kind) || !m_aliases.IsIdle()) return !m_hasFailed;
    isTaken = m_source.RawJson(text, m_problem);
    m_hasFailed = !isTaken && m_problem.Code != ProblemCode::NONE;
    if (!isTaken) return !m_hasFailed;
    m_hasEvent = false;
    m_end = m_event.Offset + text.size();
    m_aliases.PassOver(m_event);
    return true;
}

bool CEventReader::AtEnd()
{
    return Look() && (m_event.Kind == EventKind::END || Fail(ProblemCode::TEXT_AFTER_VALUE, "the end of the text"));
}

std::size_t CEventReader::SizeHint() const noexcept
{
    return m_event.Size == CEvent::UNKNOWN_SIZE ? 0 : m_event.Size < MOST_RESERVED ? m_event.Size : MOST_RESERVED;
}

} // namespace vexa::interchange
