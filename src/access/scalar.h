#ifndef VEXA_ACCESS_SCALAR_H
#define VEXA_ACCESS_SCALAR_H

#include <string>
#include <string_view>

#include <vexa/event.h>

/// \file
/// One value as an event: the conversions are those of the standard formats, whose reader and writer make them.

namespace vexa::access {

/// Takes what a writer tells of one value.
class CScalarSink : public CEventSink {
public:
    CFormatAbilities Abilities() const override
    {
        CFormatAbilities abilities;
        abilities.HasNan = true;
        return abilities;
    }
    void Null() override { Take(EventKind::NULL_VALUE); }
    void Bool(bool value) override { Take(EventKind::BOOL).Bool = value; }
    void Signed(long long value) override { Take(EventKind::SIGNED).Signed = value; }
    void Unsigned(unsigned long long value) override { Take(EventKind::UNSIGNED).Unsigned = value; }
    void Float(float value) override
    {
        Floating(static_cast<double>(value));
        m_isFloat = true;
    }
    void Floating(double value) override { Take(EventKind::FLOATING).Floating = value; }
    void Number(std::string_view digits) override { TakeText(EventKind::FLOATING, digits); }
    void String(std::string_view text) override { TakeText(EventKind::STRING, text); }
    void BeginObject(std::size_t) override { m_isStructured = true; }
    void Key(std::string_view) override {}
    void EndObject() override {}
    void BeginArray(std::size_t) override { m_isStructured = true; }
    void EndArray() override {}

    /// Whether the value was none of the basic ones.
    bool IsStructured() const noexcept { return m_isStructured; }
    const CEvent& Event() const noexcept { return m_event; }
    /// The number or bool as JSON writes it.
    std::string Text() const;

private:
    CEvent& Take(EventKind kind)
    {
        m_event = CEvent();
        m_event.Kind = kind;
        m_isFloat = false;
        return m_event;
    }
    void TakeText(EventKind kind, std::string_view text)
    {
        m_text = text;
        Take(kind).Text = m_text;
    }

    CEvent m_event;
    std::string m_text;
    bool m_isFloat = false;
    bool m_isStructured = false;
};

/// Hands over one value.
class CScalarSource : public CEventSource {
public:
    explicit CScalarSource(const CEvent& event) noexcept : m_event(event) {}

    CFormatAbilities Abilities() const override
    {
        CFormatAbilities abilities;
        abilities.HasLines = false;
        return abilities;
    }
    bool Next(CEvent& event, CProblem&) override
    {
        event = m_event;
        m_event = CEvent();
        return true;
    }

private:
    CEvent m_event;
};

} // namespace vexa::access

#endif
