#include "interchange/aliases.h"

namespace vexa::interchange {

namespace {

constexpr std::size_t EVENT_BYTES = 8; // what an event that is told again counts beside its text

bool IsBegin(EventKind kind) { return kind == EventKind::BEGIN_ARRAY || kind == EventKind::BEGIN_OBJECT; }
bool IsIntegerText(std::string_view digits) { return !digits.empty() && digits.find_first_of(".eE") == digits.npos; }
bool IsEnd(EventKind kind) { return kind == EventKind::END_ARRAY || kind == EventKind::END_OBJECT; }

} // namespace

/// A key may stand again as a value, and a value as a key.
bool CAliases::Next(CEventSource& source, CEvent& event, CProblem& problem)
{
    do {
        if (!Take(source, event, problem)) return false;
    } while (event.Kind == EventKind::ALIAS);
    if (m_nesting.IsKeyDue())
        SetKey(event);
    else if (!m_aliases.empty() && event.Kind == EventKind::KEY)
        event.Kind = EventKind::STRING;
    m_nesting.Add(event);
    return true;
}

/// A text or an integer stands for itself, and of what an alias stands for whatever is no array or object.
void CAliases::SetKey(CEvent& event)
{
    const bool isInteger = event.Kind == EventKind::SIGNED || event.Kind == EventKind::UNSIGNED ||
                           (event.Kind == EventKind::FLOATING && IsIntegerText(event.Text));
    const bool isRepeated = !m_aliases.empty() && !IsBegin(event.Kind) && !IsEnd(event.Kind);
    if (!isInteger && !isRepeated && event.Kind != EventKind::STRING) return;
    if (isInteger && event.Text.empty()) {
        m_key = event.Kind == EventKind::SIGNED ? std::to_string(event.Signed) : std::to_string(event.Unsigned);
        event.Text = m_key;
        event.IsTextKept = false;
    }
    event.Kind = EventKind::KEY;
}

void CAliases::PassOver(const CEvent& begin)
{
    if (!IsBegin(begin.Kind)) return;
    CEvent end;
    end.Kind = begin.Kind == EventKind::BEGIN_ARRAY ? EventKind::END_ARRAY : EventKind::END_OBJECT;
    m_nesting.Add(end);
}

/// An ALIAS is followed by what it stands for.
bool CAliases::Take(CEventSource& source, CEvent& event, CProblem& problem)
{
    while (!m_aliases.empty() && m_aliases.back().first == m_aliases.back().second)
        m_aliases.pop_back();
    CRange alias;
    if (!m_aliases.empty()) {
        const CKept& kept = m_kept[m_aliases.back().first++];
        m_repeatedBytes += kept.Event.Text.size() + EVENT_BYTES;
        event = kept.Event;
        alias = kept.Alias;
    } else {
        if (!m_tagged.Next(source, event, problem)) return false;
        if (event.Kind == EventKind::ALIAS && !FindAnchor(event, alias, problem)) return false;
        if (!m_open.empty() || (!event.Anchor.empty() && event.Kind != EventKind::ALIAS)) Keep(event, alias);
    }
    if (event.Kind == EventKind::ALIAS) m_aliases.push_back(alias);
    return true;
}

bool CAliases::FindAnchor(const CEvent& event, CRange& alias, CProblem& problem) const
{
    const auto found = m_anchors.find(event.Anchor);
    if (found != m_anchors.end()) {
        alias = found->second;
        return true;
    }
    problem.Code = ProblemCode::SYNTAX;
    problem.Expected = "the alias of an anchor that ends before it";
    return false;
}

/// Keeps what lies in an anchor, and the anchor once that is whole.
void CAliases::Keep(const CEvent& event, const CRange& alias)
{
    const EventKind kind = event.Kind;
    if (IsEnd(kind)) --m_depth;
    if (!event.Anchor.empty() && kind != EventKind::ALIAS)
        m_open.push_back({std::string(event.Anchor), m_kept.size(), m_depth});
    CEvent& kept = m_kept.emplace_back(CKept{event, alias}).Event;
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
