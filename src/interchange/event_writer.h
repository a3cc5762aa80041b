#ifndef VEXA_INTERCHANGE_EVENT_WRITER_H
#define VEXA_INTERCHANGE_EVENT_WRITER_H

#include <string>
#include <string_view>
#include <type_traits>

#include <vexa/binary.h>
#include <vexa/event.h>

#include "core/basic_types.h"
#include "interchange/base64.h"
#include "interchange/sink.h"
#include "interchange/utf8.h"
#include "interchange/write_context.h"

namespace vexa::interchange {

/// The sink that passes everything on to one of any format, in the forms that it can tell apart.
class CEventWriter {
public:
    struct Cursor {};

    CEventWriter(CEventSink& sink, CWriteContext& context)
        : m_sink(sink), m_context(context), m_abilities(sink.Abilities())
    {
    }

    Cursor Null(Cursor at) { return m_sink.Null(), at; }
    Cursor Bool(Cursor at, bool value) { return m_sink.Bool(value), at; }
    template<class T>
    Cursor Integer(Cursor at, T value)
    {
        if constexpr (std::is_signed_v<T> || sizeof(T) < sizeof(long long))
            m_sink.Signed(value);
        else if (value <= static_cast<T>(__LONG_LONG_MAX__))
            m_sink.Signed(static_cast<long long>(value));
        else
            m_sink.Unsigned(value);
        return at;
    }
    template<class T>
    Cursor Integers(Cursor at, const char* first, const char* last, T)
    {
        for (; first != last; first += sizeof(T))
            Integer(at, core::Load<T>(first));
        return at;
    }
    template<class T>
    Cursor Floating(Cursor at, T value);
    Cursor Decimal(Cursor at, const CDecimal& value);
    Cursor Text(Cursor at, std::string_view text, const CPathStep& where)
    {
        if (__builtin_expect(FindBadUtf8(text) == text.size(), 1))
            m_sink.String(text);
        else
            m_sink.String(Mended(text, where));
        return at;
    }
    Cursor Plain(Cursor at, std::string_view text) { return m_sink.String(text), at; }
    Cursor Bytes(Cursor at, const CBinary& bytes);
    Cursor Time(Cursor at, const CDateTime& time, std::string_view text);
    Cursor BeginObject(Cursor at, std::size_t size) { return m_sink.BeginObject(size), at; }
    Cursor Key(Cursor at, const CMember& member, const CPathStep&) { return m_sink.Key(member.Key), at; }
    Cursor Key(Cursor at, std::string_view key, const CPathStep& where)
    {
        if (__builtin_expect(FindBadUtf8(key) == key.size(), 1))
            m_sink.Key(key);
        else
            m_sink.Key(Mended(key, where));
        return at;
    }
    Cursor IntegerKey(Cursor at, long long number, std::string_view text, const CPathStep&)
    {
        if (m_abilities.HasIntegerKeys)
            m_sink.IntegerKey(number);
        else
            m_sink.Key(text);
        return at;
    }
    Cursor EndObject(Cursor at) { return m_sink.EndObject(), at; }
    Cursor BeginArray(Cursor at, std::size_t size) { return m_sink.BeginArray(size), at; }
    Cursor Element(Cursor at) { return at; }
    Cursor EndArray(Cursor at) { return m_sink.EndArray(), at; }
    Cursor Raw(Cursor at, std::string_view json) { return m_sink.RawJson(json), at; }

private:
    /// The text with something in place of what is no UTF-8, which is a problem unless the policy says what.
    std::string Mended(std::string_view text, const CPathStep& where);

    CEventSink& m_sink;
    CWriteContext& m_context;
    const CFormatAbilities m_abilities;
};

} // namespace vexa::interchange

#endif
