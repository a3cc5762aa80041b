#ifndef VEXA_TEXT_JSON_PASS_H
#define VEXA_TEXT_JSON_PASS_H

#include <algorithm>
#include <cstdint>
#include <string>
#include <type_traits>

#include <string_view>

#include <vexa/helper.h>

#include "text/json_basic.h"
#include "text/nesting.h"
#include "typeinfo/plan.h"

/// \file
/// What is done at each place of a walk: counting, writing what has been counted, and writing what cannot be counted
/// on.

namespace vexa::text {

/// Counts the room that the text takes at most. Notices whether the text may be written where the last one was, and
/// whether the count holds.
class CMeasuringPass {
public:
    using Cursor = unsigned long;
    using Nesting = CNesting;

    /// \p out is where the text is to be written.
    explicit CMeasuringPass(const std::string& out)
        : m_string(Number(&out)), m_out(Number(out.data())), m_capacity(out.capacity())
    {
    }

    Cursor Null(Cursor at) { return at + 4; }
    Cursor Unknown(Cursor at) { return at + UNKNOWN.size(); }
    Cursor Byte(Cursor at, char) { return at + 1; }
    Cursor Key(Cursor at, const typeinfo::CRecordPlan& record) { return at + record.KeyLength; }
    /// The keys of what is always there are counted for the whole object.
    Cursor DirectKeys(Cursor at, const typeinfo::CPlan& plan) { return at + plan.DirectKeys(); }
    Cursor DirectKey(Cursor at, const typeinfo::CRecordPlan&) { return at; }
    /// A string that is always there.
    Cursor String(Cursor at, const typeinfo::CRecordPlan&, const std::string& text)
    {
        if (__builtin_expect(Number(&text) == m_string, 0)) m_meetsOut = true;
        return at + QUOTES + core::EscapedRoom(text);
    }
    Cursor Key(Cursor at, const std::string& name, bool isFirst) { return at + name.size() + (isFirst ? 3 : 4); }
    template<class Type>
    Cursor Value(Type type, Cursor at, const void* address, bool)
    {
        using T = typename Type::Type;
        if constexpr (std::is_same_v<T, std::string>) {
            Pointer(static_cast<const std::string*>(address)->data());
        } else if constexpr (std::is_same_v<T, core::CTextAtAddress>) {
            Pointer(address);
        } else if constexpr (std::is_same_v<T, CNumeric>) {
            Pointer(static_cast<const CNumeric*>(address)->IntegerDigits.data());
            Pointer(static_cast<const CNumeric*>(address)->FractionDigits.data());
        }
        return at + RoomOf(type, address);
    }
    /// Values one behind the other, separators included. \return false when they are to be walked.
    template<class Type>
    bool Span(Type, Cursor& at, const char* first, const char* last, unsigned long stride)
    {
        if (Type::CODE != Enum::DT_INT || stride != sizeof(int)) return false;
        const auto count = static_cast<unsigned long>(last - first) / sizeof(int);
        at += RoomOfInts(first, count) + count - 1;
        return true;
    }
    void Unsupported(const CConstRefrence&) {}
    /// What is read through a pointer may be the memory that is to be written to.
    void Pointer(const void* address)
    {
        if (__builtin_expect(Number(address) - m_out <= m_capacity, 0)) m_meetsOut = true;
    }
    /// A function of the application's is asked, which may say something else when the text is written.
    void Foreign() { m_isForeign = true; }

    bool MeetsOut() const { return m_meetsOut; }
    bool IsForeign() const { return m_isForeign; }

    static constexpr std::string_view UNKNOWN = "unkown";

private:
    static std::uintptr_t Number(const void* address) { return reinterpret_cast<std::uintptr_t>(address); }

    std::uintptr_t m_string;
    std::uintptr_t m_out;
    std::size_t m_capacity;
    bool m_meetsOut = false;
    bool m_isForeign = false;
};

/// Writes into memory that has been measured, with SPARE_ROOM bytes behind it: no look at the room.
class CWritingPass {
public:
    using Cursor = char*;
    using Nesting = CNoNesting;

    Cursor Null(Cursor at) { return at; }
    Cursor Unknown(Cursor at) { return WriteText(at, CMeasuringPass::UNKNOWN.data(), CMeasuringPass::UNKNOWN.size()); }
    Cursor Byte(Cursor at, char byte)
    {
        *at = byte;
        return at + 1;
    }
    Cursor Key(Cursor at, const typeinfo::CRecordPlan& record) { return WriteReady(at, record.Key, record.KeyLength); }
    Cursor DirectKeys(Cursor at, const typeinfo::CPlan&) { return at; }
    Cursor DirectKey(Cursor at, const typeinfo::CRecordPlan& record) { return Key(at, record); }
    Cursor String(Cursor at, const typeinfo::CRecordPlan& record, const std::string& text)
    {
        at = WriteReady(at, record.Key, record.KeyLength + 1UL); // with the first quotation mark
        at = core::WriteEscaped(at, text);
        *at = '"';
        return at + 1;
    }
    /// The key is taken as it is.
    Cursor Key(Cursor at, const std::string& name, bool isFirst)
    {
        if (!isFirst) *at++ = ',';
        *at++ = '"';
        at = WriteText(at, name.data(), name.size());
        return WriteText(at, "\":", 2);
    }
    template<class Type>
    Cursor Value(Type type, Cursor at, const void* address, bool isQuoted)
    {
        return WriteMeasured(type, at, address, isQuoted);
    }
    template<class Type>
    bool Span(Type, Cursor&, const char*, const char*, unsigned long)
    {
        return false;
    }
    void Unsupported(const CConstRefrence& ref)
    {
        helper::LogError("It is not currently supported to convert %s types to pJson strings", ref.TypeName().c_str());
    }
    void Pointer(const void*) {}
    void Foreign() {}
};

/// Writes onto a string of its own that grows where the room has turned out too small: for values that the
/// application's functions give, which have not said before how long they are.
class CGrowingPass : public CWritingPass {
public:
    using Nesting = CNesting;

    explicit CGrowingPass(unsigned long room) : m_text(room + SPARE_ROOM, '\0') {}

    Cursor Start() { return m_text.data(); }
    /// The text up to its end. Nothing may be written afterwards.
    std::string& Finish(Cursor end)
    {
        m_text.resize(static_cast<std::size_t>(end - m_text.data()));
        return m_text;
    }

    Cursor Unknown(Cursor at) { return CWritingPass::Unknown(Reserve(at, CMeasuringPass::UNKNOWN.size())); }
    Cursor Byte(Cursor at, char byte) { return CWritingPass::Byte(Reserve(at, 1), byte); }
    Cursor Key(Cursor at, const typeinfo::CRecordPlan& record)
    {
        return CWritingPass::Key(Reserve(at, record.KeyLength), record);
    }
    Cursor DirectKey(Cursor at, const typeinfo::CRecordPlan& record) { return Key(at, record); }
    Cursor String(Cursor at, const typeinfo::CRecordPlan& record, const std::string& text)
    {
        const unsigned long room = record.KeyLength + QUOTES + core::EscapedRoom(text);
        return CWritingPass::String(Reserve(at, room), record, text);
    }
    Cursor Key(Cursor at, const std::string& name, bool isFirst)
    {
        return CWritingPass::Key(Reserve(at, name.size() + 4), name, isFirst);
    }
    template<class Type>
    Cursor Value(Type type, Cursor at, const void* address, bool isQuoted)
    {
        return CWritingPass::Value(type, Reserve(at, RoomOf(type, address)), address, isQuoted);
    }

private:
    /// \return where \p at is once there are so many bytes behind it, and SPARE_ROOM.
    Cursor Reserve(Cursor at, unsigned long length)
    {
        const auto position = static_cast<std::size_t>(at - m_text.data());
        if (m_text.size() - position < length + SPARE_ROOM)
            m_text.resize(std::max(2 * m_text.size(), position + length + SPARE_ROOM));
        return m_text.data() + position;
    }

    std::string m_text;
};

} // namespace vexa::text

#endif
