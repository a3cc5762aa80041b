#include "interchange/replay.h"

#include <limits>

namespace vexa::interchange {

CEvent& CEventRecord::Add(EventKind kind, std::size_t offset, std::size_t end)
{
    CEvent& event = m_events.emplace_back().Event;
    event.Kind = kind;
    event.Offset = offset;
    event.Length = end > offset ? end - offset : 0;
    return event;
}

void CEventRecord::AddText(EventKind kind, std::string_view text, std::size_t offset, std::size_t end)
{
    const std::string& kept = m_texts.emplace_back(text);
    CEvent& event = Add(kind, offset, end);
    event.Text = kept;
    event.IsTextKept = true;
}

/// A negative zero, and what fits no integer, is a floating value with its digits.
void CEventRecord::AddNumber(const CNumber& number, std::size_t offset, std::size_t end)
{
    constexpr auto MOST = static_cast<std::uint64_t>(std::numeric_limits<long long>::max());
    const bool hasDigits = number.Kind != CNumber::Form::FLOATING;
    AddText(EventKind::FLOATING, hasDigits ? number.Digits : std::string_view(), offset, end);
    CEvent& event = m_events.back().Event;
    event.Floating = number.Floating;
    if (number.Kind != CNumber::Form::INTEGER) return;
    if (number.IsNegative && (number.Magnitude == 0 || number.Magnitude > MOST + 1)) {
        const auto magnitude = static_cast<double>(number.Magnitude);
        event.Floating = -magnitude;
    } else if (!number.IsNegative && number.Magnitude > MOST) {
        event.Kind = EventKind::UNSIGNED;
        event.Unsigned = number.Magnitude;
    } else {
        event.Kind = EventKind::SIGNED;
        event.Signed = static_cast<long long>(number.IsNegative ? 0 - number.Magnitude : number.Magnitude);
    }
}

void CEventRecord::Close(std::size_t begin, EventKind kind, std::size_t end)
{
    m_events[begin].End = m_events.size();
    Add(kind, end - 1, end);
}

std::size_t CEventRecord::FindKey(std::size_t object, std::string_view key, bool isLast) const
{
    if (At(object).Kind != EventKind::BEGIN_OBJECT) return NOWHERE;
    std::size_t found = NOWHERE;
    for (std::size_t next = object + 1; At(next).Kind == EventKind::KEY; next = Behind(next + 1)) {
        if (At(next).Text != key) continue;
        found = next + 1;
        if (!isLast) break;
    }
    return found;
}

bool CReplay::Next(CEvent& event, CProblem&)
{
    event = m_next < m_record.Size() ? m_record.At(m_next++) : CEvent();
    return true;
}

std::size_t CReplay::SkipValue()
{
    m_next = m_record.Behind(m_next - 1);
    const CEvent& last = m_record.At(m_next - 1);
    return last.Offset + last.Length;
}

} // namespace vexa::interchange
