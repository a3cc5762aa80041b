// Data items as events.

#include "cbor_source.h"

#include <vexa/cbor.h>

namespace vexa {
namespace cbor {

using Form = CItem::Form;

bool CCborSource::Take(CItem& item, CProblem& problem)
{
    m_itemAt = m_at;
    const cbor_decoder_result result = Decode(m_bytes.substr(m_at), item);
    if (result.status == CBOR_DECODER_NEDATA) return Fail(problem, ProblemCode::UNEXPECTED_END, "");
    if (result.status != CBOR_DECODER_FINISHED) return Fail(problem, ProblemCode::SYNTAX, "a data item");
    m_at += result.read;
    return true;
}

/// Passes over tags; the last one that means something here is told.
bool CCborSource::TakeTagged(CItem& item, std::uint64_t& tag, CProblem& problem)
{
    tag = TAG_NONE;
    for (bool isTagged = false;; isTagged = true) {
        if (!Take(item, problem)) return false;
        if (item.Kind == Form::BREAK && isTagged) return Fail(problem, ProblemCode::SYNTAX, "a data item");
        if (item.Kind != Form::TAG) return true;
        if (item.Number <= TAG_DECIMAL_FRACTION) tag = item.Number;
    }
}

bool CCborSource::Give(CEvent& event, CProblem& problem)
{
    CLevel outside;
    CLevel& level = m_levels.empty() ? outside : m_levels.back();
    if (m_levels.empty() && m_hasValue) {
        m_itemAt = m_at;
        event.Kind = EventKind::END;
        return m_at == m_bytes.size() || Fail(problem, ProblemCode::TEXT_AFTER_VALUE, "");
    }
    if (!m_levels.empty() && !level.IsIndefinite && !level.IsValueNext && level.Left == 0) return Close(event);
    CItem item;
    std::uint64_t tag = TAG_NONE;
    if (!TakeTagged(item, tag, problem)) return false;
    if (item.Kind == Form::BREAK) {
        const bool isEnd = level.IsIndefinite && !level.IsValueNext;
        return isEnd ? Close(event) : Fail(problem, ProblemCode::SYNTAX, "a data item");
    }
    m_hasValue = true;
    const bool isKey = level.IsObject && !level.IsValueNext;
    level.IsValueNext = isKey;
    if (isKey || !level.IsObject) --level.Left;
    if (isKey) return GiveKey(item, event, problem);
    return tag == TAG_NONE || tag == TAG_DATE_TEXT ? GiveValue(item, event, problem)
                                                   : GiveTagged(item, tag, event, problem);
}

bool CCborSource::GiveKey(const CItem& item, CEvent& event, CProblem& problem)
{
    if (item.Kind == Form::INTEGER) {
        GiveInteger(item, event);
        m_memory = IntegerText(event);
        return GiveMemory(EventKind::KEY, event);
    }
    if (item.Kind != Form::TEXT && item.Kind != Form::MANY_TEXTS)
        return Fail(problem, ProblemCode::SYNTAX, "a text or an integer as key");
    if (!GiveValue(item, event, problem)) return false;
    event.Kind = EventKind::KEY;
    return true;
}

bool CCborSource::GiveValue(const CItem& item, CEvent& event, CProblem& problem)
{
    event.Text = item.Text;
    event.IsTextKept = true;
    switch (item.Kind) {
    case Form::INTEGER: return GiveInteger(item, event);
    case Form::BYTES: event.Kind = EventKind::BYTES; return true;
    case Form::TEXT: event.Kind = EventKind::STRING; return true;
    case Form::MANY_BYTES:
    case Form::MANY_TEXTS: return GiveChunks(item.Kind == Form::MANY_TEXTS, event, problem);
    case Form::ARRAY:
    case Form::MAP: return Open(item, event, problem);
    case Form::BOOL:
        event.Kind = EventKind::BOOL;
        event.Bool = item.Bool;
        return true;
    case Form::FLOATING:
        event.Kind = EventKind::FLOATING;
        event.Floating = item.Floating;
        return true;
    default: event.Kind = EventKind::NULL_VALUE; return true;
    }
}

bool CCborSource::GiveMemory(EventKind kind, CEvent& event)
{
    event.Kind = kind;
    event.Text = m_memory;
    event.IsTextKept = false;
    return true;
}

bool CCborSource::GiveChunks(bool isText, CEvent& event, CProblem& problem)
{
    m_memory.clear();
    for (CItem chunk; Take(chunk, problem); m_memory += chunk.Text) {
        if (chunk.Kind == Form::BREAK) return GiveMemory(isText ? EventKind::STRING : EventKind::BYTES, event);
        if (chunk.Kind != (isText ? Form::TEXT : Form::BYTES))
            return Fail(problem, ProblemCode::SYNTAX, isText ? "a text" : "a byte string");
    }
    return false;
}

bool CCborSource::Open(const CItem& item, CEvent& event, CProblem& problem)
{
    const bool isObject = item.Kind == Form::MAP;
    const std::uint64_t most = (m_bytes.size() - m_at) / (isObject ? 2 : 1); // each takes a byte at least
    if (!item.IsIndefinite && item.Number > most) return Fail(problem, ProblemCode::UNEXPECTED_END, "");
    event.Kind = isObject ? EventKind::BEGIN_OBJECT : EventKind::BEGIN_ARRAY;
    event.Size = item.IsIndefinite ? CEvent::UNKNOWN_SIZE : static_cast<std::size_t>(item.Number);
    m_levels.push_back({isObject, item.IsIndefinite, false, item.Number});
    return true;
}

bool CCborSource::Close(CEvent& event)
{
    event.Kind = m_levels.back().IsObject ? EventKind::END_OBJECT : EventKind::END_ARRAY;
    m_levels.pop_back();
    return true;
}

} // namespace cbor

bool ReadCbor(const CRefrence& target, std::string_view bytes, CReport& report, const CReadPolicy& policy,
              const detail::CEnumerationSlot* names)
{
    cbor::CCborSource source(bytes, policy);
    return ReadEvents(target, source, report, policy, names);
}

} // namespace vexa
