#ifndef VEXA_INTERCHANGE_JSON_SINK_H
#define VEXA_INTERCHANGE_JSON_SINK_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

#include <vexa/binary.h>
#include <vexa/date_time.h>

#include "core/decimal.h"
#include "interchange/json_escape.h"
#include "interchange/sink.h"
#include "interchange/text_room.h"
#include "interchange/write_context.h"
#include "interchange/write_number.h"
#include "text/ready_text.h"

namespace vexa::interchange {

/// Writes JSON (RFC 8259): compact, or STYLED as the policy says, with indentation or in ASCII.
///
/// Every value is followed by a comma, which the end of its array, object or text takes back: so nobody asks whether a
/// value is the first one. A key and Element() see to the room of the value behind it, as long as that is a short one.
template<bool STYLED>
class CJsonSink : public CTextRoom {
public:
    using Cursor = char*;

    template<class... Room>
    explicit CJsonSink(CWriteContext& context, Room&&... room)
        : CTextRoom(std::forward<Room>(room)...), m_context(context)
    {
    }

    Cursor Begin() { return Reserve(Start(), VALUE_ROOM); }
    /// Behind the only value.
    void End(Cursor at) { Finish(at - 1); }

    Cursor Null(Cursor at) { return Ready(at, "null,", 5); }
    Cursor Bool(Cursor at, bool value)
    {
        static constexpr char TEXTS[2][8] = {"false,", "true,"};
        std::memcpy(at, TEXTS[value ? 1 : 0], sizeof TEXTS[0]);
        return at + (value ? 5 : 6);
    }
    template<class T>
    Cursor Integer(Cursor at, T value)
    {
        return Comma(core::WriteDecimal(at, value));
    }
    template<class T>
    Cursor Floating(Cursor at, T value)
    {
        if (__builtin_expect(!std::isfinite(value), 0)) return Plain(at, NameOfNotFinite(value), false);
        return Comma(WriteShortest(at, value));
    }
    Cursor Decimal(Cursor at, const CDecimal& value)
    {
        if (value.IsNegative) *at++ = '-';
        at = value.Integer.empty() ? Ready(at, "0", 1) : Copy(at, value.Integer);
        if (!value.Fraction.empty()) at = Copy(Ready(at, ".", 1), value.Fraction);
        return Comma(at);
    }
    __attribute__((always_inline)) Cursor Text(Cursor at, const std::string& text, const CPathStep& where)
    {
#ifdef __SSE2__
        const std::size_t length = text.size(); // of a string 16 bytes may be read however short it is
        if (__builtin_expect(length <= core::BLOCK, 1)) {
            const core::Block block = core::LoadBlock(text.data());
            *at = '"';
            core::StoreBlock(at + 1, block);
            const bool isAscii = (SpecialBits(block) & core::FIRST_BITS[length]) == 0;
            if (__builtin_expect(isAscii || (TakesCharacters() && StandAsTheyAre(block, length)), 1))
                return Ready(at + 1 + length, "\",", 2);
        }
#endif
        return Text(at, std::string_view(text), where);
    }
    __attribute__((noinline)) Cursor Text(Cursor at, std::string_view text, const CPathStep& where)
    {
        *at = '"';
        return Ready(Reserve(Escaped(at + 1, text, where), 2), "\",", 2);
    }
    Cursor Plain(Cursor at, std::string_view text) { return Plain(at, text, true); }
    Cursor Bytes(Cursor at, const CBinary& bytes);
    Cursor Time(Cursor at, const CDateTime&, std::string_view text) { return Plain(at, text); }
    Cursor Raw(Cursor at, std::string_view json);

    Cursor BeginObject(Cursor at, std::size_t) { return Open(at, '{'); }
    Cursor EndObject(Cursor at) { return Close(at, '}'); }
    Cursor BeginArray(Cursor at, std::size_t) { return Open(at, '['); }
    Cursor EndArray(Cursor at) { return Close(at, ']'); }
    Cursor Element(Cursor at) { return STYLED ? Line(at) : Reserve(at, VALUE_ROOM); }

    Cursor Key(Cursor at, const CMember& member, const CPathStep& where)
    {
        if constexpr (STYLED) return Key(at, member.Key, where);
        const std::string& key = member.JsonKey;
        if (__builtin_expect(key.size() > core::BLOCK, 0)) return Reserve(Copy(at, key), VALUE_ROOM);
        return text::WriteReady(Reserve(at, VALUE_ROOM + core::BLOCK), key.data(), key.size());
    }
    Cursor Key(Cursor at, std::string_view key, const CPathStep& where)
    {
        at = STYLED ? Line(at) : Reserve(at, VALUE_ROOM);
        *at = '"';
        at = Ready(Reserve(Escaped(at + 1, key, where), VALUE_ROOM), "\":", 2);
        if (STYLED && m_context.Policy().Indentation != 0) *at++ = ' ';
        return at;
    }
    Cursor IntegerKey(Cursor at, long long, std::string_view text, const CPathStep& where)
    {
        return Key(at, text, where);
    }

    /// Reserves for many at a time.
    template<class T>
    Cursor Integers(Cursor at, const char* first, const char* last, T)
    {
        constexpr std::size_t BLOCK = 64 * sizeof(T);
        while (first != last) {
            const auto length = std::min(static_cast<std::size_t>(last - first), BLOCK);
            at = Reserve(at, length / sizeof(T) * (core::DECIMAL_ROOM + 1));
            for (const char* const end = first + length; first != end; first += sizeof(T)) {
                T value;
                std::memcpy(&value, first, sizeof value);
                at = Comma(core::WriteDecimal(STYLED ? Line(at) : at, value));
            }
        }
        return at;
    }

private:
    /// Room that a value may take without asking.
    static constexpr std::size_t VALUE_ROOM = NUMBER_ROOM + 16;
    /// Bytes of a text for which room is reserved at once.
    static constexpr std::size_t SLICE = 4096;
    static_assert(SLICE + VALUE_ROOM <= MAX_RESERVED && 64 * (core::DECIMAL_ROOM + 1) <= MAX_RESERVED);

    /// Whether what lies beyond ASCII is written as it is.
    bool TakesCharacters() const noexcept { return !STYLED || !m_context.Policy().AsciiOnly; }

    static Cursor Comma(Cursor at)
    {
        *at = ',';
        return at + 1;
    }
    static Cursor Ready(Cursor at, const char* text, std::size_t length) { return text::WriteText(at, text, length); }

    Cursor Open(Cursor at, char bracket)
    {
        if (STYLED) ++m_level;
        *at = bracket;
        return at + 1;
    }
    Cursor Close(Cursor at, char bracket)
    {
        const bool isEmpty = at[-1] != ',';
        if constexpr (STYLED) {
            --m_level;
            if (!isEmpty) at = Line(at - 1);
            at = Reserve(at, 2);
        } else {
            at = Reserve(at, 2) - (isEmpty ? 0 : 1);
        }
        *at = bracket;
        return Comma(at + 1);
    }
    Cursor Plain(Cursor at, std::string_view text, bool isQuoted)
    {
        at = Reserve(at, text.size() + 3);
        if (isQuoted) *at++ = '"';
        at = Ready(at, text.data(), text.size());
        if (isQuoted) *at++ = '"';
        return Comma(at);
    }

    /// A new line with its indentation, where there is one; and room for a value.
    Cursor Line(Cursor at);
    /// Any text as it stands; and room for a value.
    Cursor Copy(Cursor at, std::string_view text);
    Cursor Escaped(Cursor at, std::string_view text, const CPathStep& where);
    Cursor Characters(Cursor at, const char*& next, const char* end);
    Cursor Special(Cursor at, const char*& next, const char* end, bool& isBad);
    Cursor Character(Cursor at, const char* character, std::size_t length);

    CWriteContext& m_context;
    std::size_t m_level = 0;
};

extern template class CJsonSink<false>;
extern template class CJsonSink<true>;

} // namespace vexa::interchange

#endif
