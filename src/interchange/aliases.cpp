#include "interchange/aliases.h"

namespace vexa::interchange {

namespace {

constexpr std::size_t EVENT_BYTES = 8; // what an event that is told again counts beside its text

bool IsBegin(EventKind kind) { return kind == EventKind::BEGIN_ARRAY || kind == EventKind::BEGIN_OBJECT; }
bool IsEnd(EventKind kind) { return kind == EventKind::END_ARRAY || kind == EventKind::END_OBJECT; }

} // namespace

/// A key may stand again as a value, and a value as a key.
bool CAliases::Next(CEventSource& source, CEvent& event, CProblem& problem)
{
    CKept taken;
    bool isTaken = Take(source, taken, problem);
    for (; isTaken && taken.Event.Kind == EventKind::ALIAS; isTaken = Take(source, taken, problem))
        m_aliases.push_back(taken.Alias);
    event = taken.Event;
    if (!isTaken) return false;
    const bool isScalar = !IsBegin(event.Kind) && !IsEnd(event.Kind);
    if (!m_aliases.empty() && isScalar && m_nesting.IsKeyDue())
        event.Kind = EventKind::KEY;
    else if (!m_aliases.empty() && event.Kind == EventKind::KEY)
        event.Kind = EventKind::STRING;
    m_nesting.Add(event);
    return true;
}

bool CAliases::Take(CEventSource& source, CKept& taken, CProblem& problem)
{
    while (!m_aliases.empty() && m_aliases.back().first == m_aliases.back().second)
        m_aliases.pop_back();
    if (!m_aliases.empty()) {
        taken = m_kept[m_aliases.back().first++];
        m_repeatedBytes += taken.Event.Text.size() + EVENT_BYTES;
        return true;
    }
    taken = CKept();
    if (!source.Next(taken.Event, problem)) return false;
    if (taken.Event.Kind == EventKind::ALIAS && !FindAnchor(taken, problem)) return false;
    if (!m_open.empty() || (!taken.Event.Anchor.empty() && taken.Event.Kind != EventKind::ALIAS)) Keep(taken);
    return true;
}

bool CAliases::FindAnchor(CKept& alias, CProblem& problem) const
{
    const auto found = m_anchors.find(alias.Event.Anchor);
    if (found != m_anchors.end()) {
        alias.Alias = found->second;
        return true;
    }
    problem.Code = ProblemCode::SYNTAX;
    problem.Expected = "the alias of an anchor that ends before it";
    return false;
}

/// Keeps what lies in an anchor, and the anchor once that is whole.
void CAliases::Keep(const CKept& taken)
{
    const EventKind kind = taken.Event.Kind;
    if (IsEnd(kind)) --m_depth;
    if (!taken.Event.Anchor.empty() && kind != EventKind::ALIAS)
        m_open.push_back({std::string(taken.Event.Anchor), m_kept.size(), m_depth});
    CEvent& kept = m_kept.emplace_back(taken).Event;
    kept.Text = m_texts.emplace_back(kept.Text);
    kept.IsTextKept = false;
    kept.Anchor = {};
    if (IsBegin(kind)) {
        ++m_depth;
    } else if (m_open.back().Depth == m_depth) {
        m_anchors[m_open.back().Name] = {m_open.back().First, m_kept.size()};
        m_open.pop_back();
    }
}

} // namespace vexa::interchange
