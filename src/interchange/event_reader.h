#ifndef VEXA_INTERCHANGE_EVENT_READER_H
#define VEXA_INTERCHANGE_EVENT_READER_H

#include <string>

#include <vexa/event.h>
#include <vexa/policy.h>

#include "interchange/aliases.h"
#include "interchange/source.h"

namespace vexa::interchange {

class CReplay;

/// The reader's source over any format's events (see source.h), with one event of look-ahead. It holds the bounds of
/// the policy: depth, bytes with those that aliases stand for, and the length of texts.
class CEventReader {
public:
    /// \p source and \p policy must outlive this.
    CEventReader(CEventSource& source, const CReadPolicy& policy)
        : m_source(source), m_policy(policy), m_aliases(policy.MaxTextLength)
    {
    }
    /// Events that have been within the bounds before.
    explicit CEventReader(CReplay& replay);
    CEventReader(const CEventReader&) = delete;
    CEventReader& operator=(const CEventReader&) = delete;

    bool HasFailed() const noexcept { return m_hasFailed; }
    CProblem& Problem() noexcept { return m_problem; }
    EventKind Peek();
    bool Null() { return TakeValue(EventKind::NULL_VALUE); }
    bool Bool(bool& value);
    bool Number(CNumber& number);
    bool String(CText& text) { return TakeText(EventKind::STRING, text); }
    bool Bytes(CText& bytes) { return TakeText(EventKind::BYTES, bytes); }
    bool DateTime(CDateTime& time);
    bool EnterArray() { return Enter(EventKind::BEGIN_ARRAY); }
    bool NextElement();
    bool EnterObject() { return Enter(EventKind::BEGIN_OBJECT); }
    bool NextKey(CText& key);
    bool Skip();
    /// The next value by its JSON text as it stands. \p isTaken tells whether it is to be had: otherwise nothing has
    /// happened. \return false where the source has failed.
    bool Raw(std::string& text, bool& isTaken);
    bool AtEnd();
    std::size_t Offset() const noexcept { return m_event.Offset; }
    std::size_t EndOffset() const noexcept { return m_end; }
    void Locate(CTextPlace& place) { m_source.Locate(place); }
    CFormatAbilities Abilities() const { return m_source.Abilities(); }
    std::size_t SizeHint() const noexcept;

    /// What the events are replayed from; null where they come from a format.
    CReplay* Replay() const noexcept { return m_replay; }
    /// Begins anew where the replay has been set to.
    void Restart() noexcept { m_hasEvent = false; }

private:
    bool Look();
    bool TakeValue(EventKind kind);
    bool TakeText(EventKind kind, CText& text);
    bool Enter(EventKind kind);
    bool Leave(EventKind kind);
    bool IsWithinBounds();
    bool IsShortEnough();
    bool IsGoodText();
    bool Fail(ProblemCode code, std::string expected);

    CEventSource& m_source;
    const CReadPolicy& m_policy;
    CReplay* m_replay = nullptr;
    CEvent m_event;
    bool m_hasEvent = false; ///< m_event has not been taken
    bool m_hasFailed = false;
    std::size_t m_end = 0;
    std::size_t m_told = 0; ///< bytes of the text that have been told
    CAliases m_aliases;
    std::size_t m_depth = 0; ///< of arrays and objects that are open
    CProblem m_problem;
    std::string m_mended; ///< a text with something in place of what is no UTF-8
};

} // namespace vexa::interchange

#endif
