#include <vexa/event.h>

#include <cmath>

#include "interchange/json_source.h"
#include "interchange/place.h"
#include "interchange/raw_json.h"
#include "interchange/utf8.h"
#include "interchange/write_time.h"

namespace vexa {

CEventSource::~CEventSource() = default;

void CEventSource::Locate(CTextPlace&) {}

CEventSink::~CEventSink() = default;

void CEventSink::Float(float value) { Floating(static_cast<double>(value)); }

void CEventSink::Number(std::string_view digits) { String(digits); }

void CEventSink::Bytes(std::string_view bytes) { String(interchange::BytesAsText(bytes)); }

void CEventSink::DateTime(const CDateTime& time) { TimeText(interchange::DateTimeAsText(time)); }

void CEventSink::TimeText(std::string_view rfc3339) { String(rfc3339); }

void CEventSink::IntegerKey(long long key) { Key(std::to_string(key)); }

void CEventSink::RawJson(std::string_view json)
{
    CReadPolicy policy;
    policy.MaxDepth = CReadPolicy::NO_LIMIT; // nothing recurses here
    interchange::CJsonSource source(json, policy);
    interchange::CopyValue(source, *this);
}

void CNesting::Add(const CEvent& event)
{
    if (event.Kind == EventKind::END) return;
    if (event.Kind == EventKind::END_ARRAY || event.Kind == EventKind::END_OBJECT) {
        if (m_levels.size() > 1) m_levels.pop_back();
        return;
    }
    CLevel& level = m_levels.back();
    level.IsValueDue = level.IsObject && !level.IsValueDue;
    if (!level.IsValueDue) --level.Left;
    if (event.Kind == EventKind::BEGIN_ARRAY || event.Kind == EventKind::BEGIN_OBJECT)
        m_levels.push_back({event.Kind == EventKind::BEGIN_OBJECT, false, event.Size});
}

CTextPlace CTextPlaces::OfCharacters(std::size_t first, std::size_t end)
{
    CTextPlace place;
    place.Offset = ByteOf(first);
    place.Length = ByteOf(end) - place.Offset;
    return place;
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

std::string TimeText(double seconds)
{
    constexpr double MOST = 1e12; // beyond the year 9999
    constexpr long long MICROSECONDS = 1000000;
    constexpr long NANOSECONDS = 1000;
    if (!(std::fabs(seconds) < MOST)) return {};
    const double whole = std::floor(seconds);
    const long long fraction = std::llround((seconds - whole) * static_cast<double>(MICROSECONDS));
    interchange::CTimeRoom room;
    return std::string(interchange::TextOfTime(room, static_cast<long long>(whole) + fraction / MICROSECONDS,
                                               static_cast<long>(fraction % MICROSECONDS) * NANOSECONDS));
}

} // namespace vexa
