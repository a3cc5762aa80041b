#ifndef VEXA_INTERCHANGE_REPLAY_H
#define VEXA_INTERCHANGE_REPLAY_H

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <vexa/event.h>

#include "interchange/source.h"

/// \file
/// Values that are read again: what stands before a late tag or selector, and what a variant is tried with. Numbers
/// keep their digits. What is recorded is never recorded again: whoever needs to look ahead in a replay has its record.

namespace vexa::interchange {

/// One value as events.
class CEventRecord {
public:
    static constexpr std::size_t NOWHERE = static_cast<std::size_t>(-1);

    /// Adds what \p source has next, whole. \p count is asked for each element of an array whether it may be kept.
    /// \return false where it may not or the source has failed.
    template<class Source, class Count>
    bool AddValue(Source& source, const Count& count);
    /// Adds the object whose \p key has just been read, with all that follows in it.
    template<class Source, class Count>
    bool AddRestOfObject(Source& source, const Count& count, const CText& key, std::size_t brace);

    /// Adds an object without keys.
    void AddEmptyObject(std::size_t brace, std::size_t end)
    {
        const std::size_t begin = m_events.size();
        Add(EventKind::BEGIN_OBJECT, brace, brace + 1);
        Close(begin, EventKind::END_OBJECT, end);
    }

    const CEvent& At(std::size_t number) const { return m_events[number].Event; }
    std::size_t Size() const noexcept { return m_events.size(); }
    /// The number of the event behind the value that begins with that one.
    std::size_t Behind(std::size_t number) const
    {
        const std::size_t end = m_events[number].End;
        return end != NOWHERE ? end + 1 : number + 1;
    }
    /// The number of the value of the first or the last such key in the object that begins with an event; NOWHERE where
    /// it is no object, or has no such key.
    std::size_t FindKey(std::size_t object, std::string_view key, bool isLast) const;

    /// Which alternative of a variant the value that begins with that event is.
    std::map<std::pair<std::size_t, const void*>, unsigned int> Chosen;

private:
    struct CRecorded {
        CEvent Event;
        std::size_t End = NOWHERE; ///< of what begins an array or object: the event that ends it
    };

    CEvent& Add(EventKind kind, std::size_t offset, std::size_t end);
    void AddText(EventKind kind, std::string_view text, std::size_t offset, std::size_t end);
    void AddNumber(const CNumber& number, std::size_t offset, std::size_t end);
    void Close(std::size_t begin, EventKind kind, std::size_t end);
    template<class Source, class Count>
    bool AddKeys(Source& source, const Count& count, std::size_t begin);

    std::vector<CRecorded> m_events;
    std::deque<std::string> m_texts; ///< which stay where they are
};

/// Hands over a record as a source.
class CReplay : public CEventSource {
public:
    CReplay(CEventRecord& record, std::size_t first, const CFormatAbilities& abilities)
        : m_record(record), m_next(first), m_abilities(abilities)
    {
    }

    CFormatAbilities Abilities() const override { return m_abilities; }
    bool Next(CEvent& event, CProblem& problem) override;

    CEventRecord& Record() const noexcept { return m_record; }
    /// The event that is given next.
    std::size_t Position() const noexcept { return m_next; }
    /// Passes over the rest of the value whose first event has been given. \return where it ends in the text.
    std::size_t SkipValue();

private:
    CEventRecord& m_record;
    std::size_t m_next;
    CFormatAbilities m_abilities;
};

template<class Source, class Count>
bool CEventRecord::AddKeys(Source& source, const Count& count, std::size_t begin)
{
    CText key;
    while (source.NextKey(key)) {
        AddText(EventKind::KEY, key.Text, source.Offset(), source.EndOffset());
        if (!AddValue(source, count)) return false;
    }
    if (source.HasFailed()) return false;
    Close(begin, EventKind::END_OBJECT, source.EndOffset());
    return true;
}

template<class Source, class Count>
bool CEventRecord::AddRestOfObject(Source& source, const Count& count, const CText& key, std::size_t brace)
{
    const std::size_t begin = m_events.size();
    Add(EventKind::BEGIN_OBJECT, brace, brace + 1);
    AddText(EventKind::KEY, key.Text, source.Offset(), source.EndOffset());
    return AddValue(source, count) && AddKeys(source, count, begin);
}

template<class Source, class Count>
bool CEventRecord::AddValue(Source& source, const Count& count)
{
    const EventKind kind = source.Peek();
    const std::size_t offset = source.Offset();
    const std::size_t begin = m_events.size();
    switch (kind) {
    case EventKind::BEGIN_OBJECT: {
        if (!source.EnterObject()) return false;
        Add(kind, offset, offset + 1);
        return AddKeys(source, count, begin);
    }
    case EventKind::BEGIN_ARRAY: {
        if (!source.EnterArray()) return false;
        Add(kind, offset, offset + 1);
        while (source.NextElement())
            if (!count() || !AddValue(source, count)) return false;
        if (source.HasFailed()) return false;
        Close(begin, EventKind::END_ARRAY, source.EndOffset());
        return true;
    }
    case EventKind::NULL_VALUE:
        if (!source.Null()) return false;
        Add(kind, offset, source.EndOffset());
        return true;
    case EventKind::BOOL: {
        bool value = false;
        if (!source.Bool(value)) return false;
        Add(kind, offset, source.EndOffset()).Bool = value;
        return true;
    }
    case EventKind::STRING:
    case EventKind::BYTES: {
        CText text;
        if (!(kind == EventKind::STRING ? source.String(text) : source.Bytes(text))) return false;
        AddText(kind, text.Text, offset, source.EndOffset());
        return true;
    }
    case EventKind::DATE_TIME: {
        CDateTime time;
        if (!source.DateTime(time)) return false;
        Add(kind, offset, source.EndOffset()).Time = time;
        return true;
    }
    case EventKind::SIGNED:
    case EventKind::UNSIGNED:
    case EventKind::FLOATING: {
        CNumber number;
        if (!source.Number(number)) return false;
        AddNumber(number, offset, source.EndOffset());
        return true;
    }
    default: return source.Skip() && false; // which tells the problem
    }
}

} // namespace vexa::interchange

#endif
