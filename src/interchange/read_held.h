#ifndef VEXA_INTERCHANGE_READ_HELD_H
#define VEXA_INTERCHANGE_READ_HELD_H

#include "interchange/read_problem.h"
#include "interchange/thrown.h"
#include "interchange/undo.h"
#include "reference/emptying.h"

/// \file
/// Reading values that may be null or lie behind pointers, and values that are read later.

namespace vexa::interchange {

/// What the reader has made through a descriptor, destroyed unless it is given away.
class CMadeObject {
public:
    explicit CMadeObject(const CGnlTypeInfor& type) : m_type(type), m_object(type.New())
    {
        if (m_object != nullptr && Enum::IsNumberCode(type.DataType)) std::memset(m_object, 0, type.Sizeof());
    }
    CMadeObject(const CMadeObject&) = delete;
    CMadeObject& operator=(const CMadeObject&) = delete;
    ~CMadeObject()
    {
        if (m_object != nullptr) m_type.Delete(m_object);
    }
    char* Get() const noexcept { return static_cast<char*>(m_object); }
    void* Release() noexcept { return std::exchange(m_object, nullptr); }

private:
    const CGnlTypeInfor& m_type;
    void* m_object;
};

inline void StorePointer(char* holder, void* pointee) noexcept { std::memcpy(holder, &pointee, sizeof pointee); }
inline char* LoadPointer(const char* holder) noexcept
{
    char* pointee = nullptr;
    std::memcpy(&pointee, holder, sizeof pointee);
    return pointee;
}

/// Whether a value of which nothing good has been read is nothing: a wrapper or pointer to it stays null then.
inline bool IsAllOrNothing(const CForm& form) noexcept
{
    return form.Kind == FormKind::BASIC || form.Kind == FormKind::ENUMERATION;
}

template<class Source>
bool CReader<Source>::ReadHeld(const CForm& form, char* object)
{
    const EventKind kind = m_source.Peek();
    if (m_source.HasFailed()) return Broken();
    const bool isFixed = form.IsConst && form.How != Held::POINTER;
    if (isFixed) return Refuse(ProblemCode::READ_ONLY);
    const bool isOwning = form.How == Held::POINTER && !form.IsConst;
    if (isOwning && IsOpen(m_context, LoadPointer(object + form.ValueOffset))) return RefuseOpen();
    if (kind == EventKind::NULL_VALUE && form.IsNullable) return ReadNull(form, object);
    if (form.IsConst) return Refuse(ProblemCode::READ_ONLY);
    return form.How == Held::FLAGGED ? ReadFlagged(form, object) : ReadPointee(form, object + form.ValueOffset);
}

/// A pointer frees what it owns, and only forgets what it does not.
template<class Source>
bool CReader<Source>::ReadNull(const CForm& form, char* object)
{
    if (!m_source.Null()) return Broken();
    if (form.How == Held::FLAGGED) {
        if (m_context.Undo != nullptr) m_context.Undo->SaveBytes(object + form.FlagOffset, 1);
        object[form.FlagOffset] = 1;
        return true;
    }
    char* const holder = object + form.ValueOffset;
    if (m_context.Undo == nullptr) {
        form.Type->SetNull(holder);
    } else if (form.IsConst) {
        m_context.Undo->SaveBytes(holder, sizeof(void*));
        StorePointer(holder, nullptr);
    } else {
        m_context.Undo->TakePointee(*form.Type, holder);
    }
    return true;
}

template<class Source>
bool CReader<Source>::ReadFlagged(const CForm& form, char* object)
{
    char& flag = object[form.FlagOffset];
    if (flag == 0) return ReadAt(form, object + form.ValueOffset);
    if (m_context.Undo != nullptr) m_context.Undo->SaveBytes(&flag, 1);
    if (IsAllOrNothing(form)) return ReadNoLongerNull(form, object);
    CRefrence wrapper(*form.Type, form.Holder(object));
    try {
        if (!reference::SetNotNullAndEmpty(wrapper)) return Refuse(ProblemCode::CANNOT_BE_MADE);
    } catch (...) { // a converter does not know the empty value
        return Refuse(ProblemCode::CONVERTER_FAILED, {}, WhatIsThrown());
    }
    return ReadNoLongerNull(form, object);
}

template<class Source>
bool CReader<Source>::ReadNoLongerNull(const CForm& form, char* object)
{
    char& flag = object[form.FlagOffset];
    const std::size_t before = m_context.Problems;
    flag = 0;
    const bool isWhole = ReadAt(form, object + form.ValueOffset);
    if (IsAllOrNothing(form) && (!isWhole || m_context.Problems != before)) flag = 1;
    return isWhole;
}

/// A pointer that owns an object of some class.
class CPointerTarget : public CTaggedTarget {
public:
    CPointerTarget(CReadContext& context, const CGnlTypeInfor& type, char* holder)
        : m_context(context), m_type(type), m_holder(holder)
    {
    }
    const void* Object() const override { return LoadPointer(m_holder); }
    void Adopt(CMadeObject& made, const CClassInfor&, unsigned long offset) override
    {
        if (m_context.Undo != nullptr) {
            m_context.Undo->TakePointee(m_type, m_holder);
            m_context.Undo->NoteMade(m_type, m_holder);
        } else if (void* old = LoadPointer(m_holder)) {
            m_type.Delete(old);
        }
        StorePointer(m_holder, static_cast<char*>(made.Release()) + offset);
    }

private:
    CReadContext& m_context;
    const CGnlTypeInfor& m_type;
    char* m_holder;
};

template<class Source>
bool CReader<Source>::ReadPointee(const CForm& form, char* holder)
{
    if (IsPolymorphic(form)) {
        CPointerTarget target(m_context, *form.Type, holder);
        return ReadPolymorphic(form.ClassInfor(), target);
    }
    char* const pointee = LoadPointer(holder);
    return pointee != nullptr ? ReadAt(form, pointee) : ReadNewPointee(form, holder);
}

template<class Source>
bool CReader<Source>::ReadNewPointee(const CForm& form, char* holder)
{
    CMadeObject made(*form.Type);
    if (made.Get() == nullptr) return Refuse(ProblemCode::CANNOT_BE_MADE);
    const std::size_t before = m_context.Problems;
    bool isWhole = false;
    {
        const CFreshScope fresh(m_context);
        isWhole = ReadAt(form, made.Get());
    }
    if (IsAllOrNothing(form) && (!isWhole || m_context.Problems != before)) return isWhole;
    if (m_context.Undo != nullptr) m_context.Undo->NoteMade(*form.Type, holder);
    StorePointer(holder, made.Release());
    return isWhole;
}

/// Has the next value for later.
template<class Source>
bool CReader<Source>::Hold(CHeldValue& held)
{
    if constexpr (std::is_same_v<Source, CEventReader>) {
        if (CReplay* const replay = m_source.Replay()) {
            m_source.Peek();
            held.Record = &replay->Record();
            held.First = replay->Position() - 1;
            return m_source.Skip();
        }
    }
    return Record(held, [&](const auto& count) { return held.Own->AddValue(m_source, count); });
}

/// Keeps what \p add adds to a new record. Its elements count anew when they are read.
template<class Source>
template<class Add>
bool CReader<Source>::Record(CHeldValue& held, Add add)
{
    held.Own = std::make_unique<CEventRecord>();
    held.Record = held.Own.get();
    const std::size_t left = m_context.ElementsLeft;
    const bool isWhole = add([this] { return CountOne(); });
    m_context.ElementsLeft = left;
    return isWhole || Broken();
}

/// Calls \p read with a reader that has the held value before it. \return false where reading ends there.
template<class Source>
template<class Read>
bool CReader<Source>::Replay(const CHeldValue& held, Read read)
{
    CReplay replay(*held.Record, held.First, m_source.Abilities());
    CEventReader events(replay);
    CReader<CEventReader> reader(m_context, events);
    read(reader);
    return !m_context.IsOver;
}

} // namespace vexa::interchange

#endif
