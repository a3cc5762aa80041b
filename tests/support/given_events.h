#ifndef TESTS_SUPPORT_GIVEN_EVENTS_H
#define TESTS_SUPPORT_GIVEN_EVENTS_H

#include <charconv>
#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <vexa/event.h>

/// A format without a text: events that are given one after the other, and kept as they are written.

namespace test {

/// Each event takes one byte.
class CGivenEvents : public vexa::CEventSource {
public:
    explicit CGivenEvents(std::vector<vexa::CEvent> events, const vexa::CFormatAbilities& abilities = {})
        : m_events(std::move(events)), m_abilities(abilities)
    {
    }
    vexa::CFormatAbilities Abilities() const override { return m_abilities; }
    bool Next(vexa::CEvent& event, vexa::CProblem&) override
    {
        event = m_next < m_events.size() ? m_events[m_next] : vexa::CEvent();
        event.Offset = m_next++;
        event.Length = 1;
        return true;
    }

private:
    std::vector<vexa::CEvent> m_events;
    vexa::CFormatAbilities m_abilities;
    std::size_t m_next = 0;
};

inline vexa::CEvent Event(vexa::EventKind kind, std::string_view text = {})
{
    vexa::CEvent event;
    event.Kind = kind;
    event.Text = text;
    return event;
}
inline vexa::CEvent Signed(long long value)
{
    vexa::CEvent event = Event(vexa::EventKind::SIGNED);
    event.Signed = value;
    return event;
}
/// UNSIGNED, NEGATIVE or TAG.
inline vexa::CEvent Unsigned(vexa::EventKind kind, unsigned long long value)
{
    vexa::CEvent event = Event(kind);
    event.Unsigned = value;
    return event;
}
inline vexa::CEvent Tag(vexa::ValueTag tag)
{
    return Unsigned(vexa::EventKind::TAG, static_cast<unsigned long long>(tag));
}
inline vexa::CEvent Floating(double value)
{
    vexa::CEvent event = Event(vexa::EventKind::FLOATING);
    event.Floating = value;
    return event;
}
inline vexa::CEvent Sized(vexa::EventKind kind, std::size_t size)
{
    vexa::CEvent event = Event(kind);
    event.Size = size;
    return event;
}

/// Keeps what it is told, to be given again. What the abilities leave to the seam is left to it.
class CKeptEvents : public vexa::CEventSink {
public:
    explicit CKeptEvents(const vexa::CFormatAbilities& abilities) : m_abilities(abilities) {}

    const std::vector<vexa::CEvent>& Events() const { return m_events; }
    vexa::CFormatAbilities Abilities() const override { return m_abilities; }
    void Null() override { m_events.push_back(Event(Kind::NULL_VALUE)); }
    void Bool(bool value) override
    {
        m_events.push_back(Event(Kind::BOOL));
        m_events.back().Bool = value;
    }
    void Signed(long long value) override { m_events.push_back(test::Signed(value)); }
    void Unsigned(unsigned long long value) override { m_events.push_back(test::Unsigned(Kind::UNSIGNED, value)); }
    void Floating(double value) override { m_events.push_back(test::Floating(value)); }
    void Number(std::string_view digits) override
    {
        if (m_abilities.HasTags || !m_abilities.HasDecimals) return CEventSink::Number(digits);
        Add(Kind::FLOATING, digits);
        std::from_chars(digits.data(), digits.data() + digits.size(), m_events.back().Floating);
    }
    void String(std::string_view text) override { Add(Kind::STRING, text); }
    void Bytes(std::string_view bytes) override
    {
        m_abilities.HasBytes ? Add(Kind::BYTES, bytes) : CEventSink::Bytes(bytes);
    }
    void DateTime(const vexa::CDateTime& time) override
    {
        if (!m_abilities.HasDateTime) return CEventSink::DateTime(time);
        m_events.push_back(Event(Kind::DATE_TIME));
        m_events.back().Time = time;
    }
    void Tag(vexa::ValueTag tag) override { m_events.push_back(test::Tag(tag)); }
    void BeginObject(std::size_t size) override { m_events.push_back(Sized(Kind::BEGIN_OBJECT, size)); }
    void Key(std::string_view name) override { Add(Kind::KEY, name); }
    void IntegerKey(long long key) override { m_abilities.HasIntegerKeys ? Signed(key) : CEventSink::IntegerKey(key); }
    void EndObject() override { m_events.push_back(Event(Kind::END_OBJECT)); }
    void BeginArray(std::size_t size) override { m_events.push_back(Sized(Kind::BEGIN_ARRAY, size)); }
    void EndArray() override { m_events.push_back(Event(Kind::END_ARRAY)); }

private:
    using Kind = vexa::EventKind;

    void Add(Kind kind, std::string_view text) { m_events.push_back(Event(kind, m_texts.emplace_back(text))); }

    vexa::CFormatAbilities m_abilities;
    std::vector<vexa::CEvent> m_events;
    std::deque<std::string> m_texts;
};

} // namespace test

#endif
