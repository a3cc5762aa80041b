#include <vexa/format.h>

#include "interchange/place.h"
#include "interchange/utf8.h"

namespace vexa {

namespace {

/// What ends that which an event begins; END where it begins nothing.
EventKind EndOf(EventKind kind) noexcept
{
    switch (kind) {
    case EventKind::BEGIN_OBJECT: return EventKind::END_OBJECT;
    case EventKind::BEGIN_ARRAY: return EventKind::END_ARRAY;
    case EventKind::BEGIN_STRING:
    case EventKind::BEGIN_BYTES: return EventKind::END_PIECES;
    default: return EventKind::END;
    }
}

} // namespace

void CNesting::Add(const CEvent& event)
{
    m_isTagged = event.Kind == EventKind::TAG;
    if (m_isTagged || event.Kind == EventKind::END) return;
    if (m_levels.size() > 1 && event.Kind == EndKind()) return m_levels.pop_back();
    CLevel& level = m_levels.back();
    level.IsValueDue = level.End == EventKind::END_OBJECT && !level.IsValueDue;
    if (!level.IsValueDue) --level.Left;
    const EventKind end = EndOf(event.Kind);
    if (end == EventKind::END) return;
    const bool isSized = end != EventKind::END_PIECES && event.Size != CEvent::UNKNOWN_SIZE;
    m_levels.push_back({end, isSized, isSized ? event.Size : CEvent::UNKNOWN_SIZE, false});
}

void CSizes::Begin(std::string& out)
{
    AddItem();
    m_levels.push_back({out.size(), 0});
    out += '\0';
}

CSizes::CLevel CSizes::End()
{
    const CLevel level = m_levels.back();
    m_levels.pop_back();
    return level;
}

CTextPlace CTextPlaces::OfCharacters(std::size_t first, std::size_t end)
{
    CTextPlace place;
    place.Offset = ByteOf(first);
    place.Length = ByteOf(end) - place.Offset;
    return place;
}

void CTextPlaces::SetPlace(CEvent& event, std::size_t first, std::size_t end)
{
    const CTextPlace place = OfCharacters(first, end);
    event.Offset = place.Offset;
    event.Length = place.Length;
}

std::size_t CTextPlaces::ByteOf(std::size_t character)
{
    const auto isInside = [this](std::size_t byte) {
        return byte < m_text.size() && interchange::IsContinuation(m_text[byte]);
    };
    for (; m_character < character && m_byte < m_text.size(); ++m_character)
        while (isInside(++m_byte)) {
        }
    for (; m_character > character; --m_character)
        while (isInside(--m_byte)) {
        }
    return m_byte;
}

void CTextPlaces::Locate(CTextPlace& place) const { interchange::CLineFinder(m_text).Fill(place); }

} // namespace vexa
