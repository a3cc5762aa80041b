#ifndef VEXA_INTERCHANGE_JSON_EVENTS_H
#define VEXA_INTERCHANGE_JSON_EVENTS_H

#include <cstddef>
#include <utility>
#include <vector>

#include <vexa/event.h>

#include "interchange/json_number.h"
#include "interchange/json_scan.h"
#include "interchange/source.h"

namespace vexa::interchange {

/// What a number is as an event.
void SetNumber(CEvent& event, const CNumber& number) noexcept;

/// The events of a JSON scanner.
template<class Source>
class CJsonEvents : public CEventSource {
public:
    template<class... Arguments>
    explicit CJsonEvents(Arguments&&... arguments) : m_source(std::forward<Arguments>(arguments)...)
    {
    }

    CFormatAbilities Abilities() const override { return m_source.Abilities(); }
    bool Next(CEvent& event, CProblem& problem) override
    {
        event = CEvent();
        if (Find(event)) return true;
        if (m_source.HasFailed()) problem = m_source.Problem();
        return false;
    }
    bool RawJson(std::string& text, CProblem& problem) override
    {
        if (!m_source.IsStrict()) return false;
        m_source.BeginRaw();
        if (!PassOver(problem)) return false;
        m_source.EndRaw(text);
        return true;
    }
    void Locate(CTextPlace& place) override { m_source.Locate(place); }

private:
    /// To the end of the value whose first event has been given.
    bool PassOver(CProblem& problem)
    {
        CEvent event;
        event.Kind = m_last;
        for (std::size_t depth = 0;;) {
            if (event.Kind == EventKind::BEGIN_ARRAY || event.Kind == EventKind::BEGIN_OBJECT) ++depth;
            if (event.Kind == EventKind::END_ARRAY || event.Kind == EventKind::END_OBJECT) --depth;
            if (depth == 0) return true;
            if (!Next(event, problem)) return false;
        }
    }
    bool Find(CEvent& event)
    {
        if (m_isValueDue) return Value(event);
        if (m_open.IsEmpty()) return Behind(event);
        if (m_open.IsObject()) return KeyOrEnd(event);
        if (m_source.NextElement()) return Value(event);
        return End(event, EventKind::END_ARRAY);
    }

    bool Value(CEvent& event)
    {
        m_isValueDue = false;
        m_last = event.Kind = m_source.Peek();
        if (m_source.HasFailed()) event.Kind = EventKind::NULL_VALUE; // which tells that a value was due
        if (m_source.HasFailed() || !Consume(event)) return false;
        event.Offset = m_source.Offset();
        event.Length = m_source.EndOffset() - event.Offset;
        return true;
    }
    bool Consume(CEvent& event)
    {
        CNumber number;
        switch (event.Kind) {
        case EventKind::NULL_VALUE: return m_source.Null();
        case EventKind::BOOL: return m_source.Bool(event.Bool);
        case EventKind::STRING: return Text(event, &Source::String);
        case EventKind::BEGIN_ARRAY: return m_source.EnterArray() && Open(false);
        case EventKind::BEGIN_OBJECT: return m_source.EnterObject() && Open(true);
        default:
            if (!m_source.Number(number)) return false;
            SetNumber(event, number);
            return true;
        }
    }
    bool Open(bool isObject)
    {
        m_open.Push(isObject);
        return true;
    }
    bool Text(CEvent& event, bool (Source::*read)(CText&))
    {
        CText text;
        if (!(m_source.*read)(text)) return false;
        event.Text = text.Text;
        event.IsTextKept = text.IsKept;
        return true;
    }

    bool KeyOrEnd(CEvent& event)
    {
        if (!Text(event, &Source::NextKey)) return End(event, EventKind::END_OBJECT);
        m_isValueDue = true;
        event.Kind = EventKind::KEY;
        event.Offset = m_source.Offset();
        event.Length = m_source.EndOffset() - event.Offset;
        return true;
    }
    bool End(CEvent& event, EventKind kind)
    {
        if (m_source.HasFailed()) return false;
        m_open.Pop();
        event.Kind = kind;
        event.Offset = m_source.EndOffset() - 1;
        event.Length = 1;
        return true;
    }
    bool Behind(CEvent& event)
    {
        if (!m_source.AtEnd()) return false;
        event.Kind = EventKind::END;
        event.Offset = m_source.EndOffset();
        return true;
    }

    Source m_source;
    CNestedKinds m_open;
    bool m_isValueDue = true;
    EventKind m_last = EventKind::END; ///< the last value that has begun
};

} // namespace vexa::interchange

#endif
