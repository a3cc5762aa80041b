#ifndef VEXA_INTERCHANGE_READ_SHAPE_H
#define VEXA_INTERCHANGE_READ_SHAPE_H

#include "interchange/raw_json.h"
#include "interchange/read_basic.h"
#include "interchange/read_polymorphic.h"

/// \file
/// Reading custom types by their structure: optionals, tuples, bits, texts and the like.

namespace vexa::interchange {

template<class Source>
bool CReader<Source>::ReadShape(const CForm& form, char* place)
{
    using detail::ShapeKind;
    switch (form.Shape->Kind) {
    case ShapeKind::SIGNED_BYTE: return ReadSignedByte(form, place);
    case ShapeKind::OPTIONAL: return ReadOptional(form, place);
    case ShapeKind::VARIANT: return ReadVariant(form, place);
    case ShapeKind::TUPLE: return ReadTuple(form, place);
    case ShapeKind::BITS: return ReadBits(form, place);
    case ShapeKind::ATOMIC: return ReadAtomic(form, place);
    case ShapeKind::TIME_POINT: return ReadTimePoint(form, place);
    case ShapeKind::DURATION: return ReadValue(m_context.Forms.Of(form.CustomInfor()).Parts.front(), place);
    case ShapeKind::TEXT: return ReadText(form, place);
    case ShapeKind::RAW_JSON: return ReadRawJson(*reinterpret_cast<CRawJson*>(place));
    case ShapeKind::JSON_TREE: return ReadJsonTree(*reinterpret_cast<CJsonTree*>(place));
    }
    return Refuse(ProblemCode::CANNOT_BE_MADE);
}

template<class Source>
bool CReader<Source>::ReadSignedByte(const CForm& form, char* place)
{
    if (form.Enumeration == nullptr || IsNumber(m_source.Peek())) return ReadNumber<signed char>(place);
    if (m_source.Peek() == EventKind::STRING) return ReadEnumerator(form, place);
    return WrongKind(OneOf(NamesOf(*form.Enumeration)));
}

/// A std::shared_ptr of an object of some class.
class CSharedTarget : public CTaggedTarget {
public:
    CSharedTarget(CReadContext& context, const CForm& form, char* shared)
        : m_context(context), m_form(form), m_shared(shared)
    {
    }
    const void* Object() const override { return Operations().Get(m_shared); }
    void Adopt(CMadeObject& made, const CClassInfor& infor, unsigned long offset) override
    {
        if (m_context.Undo != nullptr) m_context.Undo->TakeCustom(m_form, m_shared);
        void* const whole = made.Release();
        Operations().Adopt(m_shared, static_cast<char*>(whole) + offset, whole, infor.Deleter);
    }

private:
    const detail::COptionalOperations& Operations() const
    {
        return m_form.ShapeOperations<detail::COptionalOperations>();
    }

    CReadContext& m_context;
    const CForm& m_form;
    char* m_shared;
};

/// What cannot be moved cannot be put back either, and stays where the reading may be undone.
template<class Source>
bool CReader<Source>::ReadNoValue(const CForm& form, char* optional)
{
    const auto& operations = form.ShapeOperations<detail::COptionalOperations>();
    if (m_context.Undo == nullptr)
        operations.Reset(optional);
    else if (!m_context.Undo->TakeCustom(form, optional) && operations.Get(optional) != nullptr)
        return Refuse(ProblemCode::CANNOT_BE_MADE);
    return m_source.Null() || Broken();
}

/// A value that is there is read into.
template<class Source>
bool CReader<Source>::ReadOptional(const CForm& form, char* optional)
{
    const auto& operations = form.ShapeOperations<detail::COptionalOperations>();
    const CForm& part = m_context.Forms.Of(form.CustomInfor()).Parts.front();
    const void* const value = operations.Get(optional);
    if (m_source.Peek() == EventKind::NULL_VALUE) return ReadNoValue(form, optional);
    if (m_source.HasFailed()) return Broken();
    if (operations.Adopt != nullptr && IsOpen(m_context, value)) return RefuseOpen();
    if (operations.Adopt != nullptr && IsPolymorphic(part)) {
        CSharedTarget target(m_context, form, optional);
        return ReadPolymorphic(part.ClassInfor(), target);
    }
    if (value != nullptr) return ReadValue(part, static_cast<char*>(const_cast<void*>(value)));
    if (m_context.Undo != nullptr && !m_context.Undo->TakeCustom(form, optional))
        m_context.Undo->SaveBy([&operations, optional] { operations.Reset(optional); });
    auto* const made = static_cast<char*>(operations.Make(optional));
    if (made == nullptr) return Refuse(ProblemCode::CANNOT_BE_MADE);
    const CFreshScope fresh(m_context);
    const std::size_t before = m_context.Problems;
    const bool isWhole = ReadValue(part, made);
    if (IsAllOrNothing(part) && (!isWhole || m_context.Problems != before)) operations.Reset(optional);
    return isWhole;
}

template<class Source>
bool CReader<Source>::ReadTuple(const CForm& form, char* tuple)
{
    const CShapeForm& parts = m_context.Forms.Of(form.CustomInfor());
    const auto part = form.ShapeOperations<detail::CTupleOperations>().Part;
    return ReadPlaces(parts.Parts.size(), [&](std::size_t i) {
        return ReadValue(parts.Parts[i], static_cast<char*>(part(tuple, static_cast<unsigned int>(i))));
    });
}

template<class Source>
bool CReader<Source>::ReadBits(const CForm& form, char* bits)
{
    if (m_source.Peek() != EventKind::BEGIN_ARRAY) return WrongKind("an array");
    const auto& operations = form.ShapeOperations<detail::CBitsOperations>();
    if (m_context.Undo == nullptr)
        operations.Clear(bits);
    else if (!m_context.Undo->TakeCustom(form, bits))
        return Refuse(ProblemCode::CANNOT_BE_MADE);
    if (!m_source.EnterArray()) return Broken();
    const CFreshScope fresh(m_context);
    CPathScope path(m_context);
    for (std::size_t index = 0; m_source.NextElement(); ++index) {
        path.Step.To(index);
        char bit = 0;
        if (!CountOne() || !ReadBool(&bit)) return false;
        operations.Append(bits, bit != 0);
    }
    return !m_source.HasFailed() || Broken();
}

template<class Source>
bool CReader<Source>::ReadAtomic(const CForm& form, char* atomic)
{
    struct CBuffer {
        alignas(16) char Bytes[16] = {};
    } value;
    const auto& operations = form.ShapeOperations<detail::CAtomicOperations>();
    operations.Load(atomic, value.Bytes);
    const CBuffer before = value;
    const std::size_t problems = m_context.Problems;
    {
        const CFreshScope fresh(m_context);
        if (!ReadValue(m_context.Forms.Of(form.CustomInfor()).Parts.front(), value.Bytes)) return false;
    }
    if (m_context.Problems != problems) return true;
    if (m_context.Undo != nullptr)
        m_context.Undo->SaveBy([&operations, atomic, before] { operations.Store(atomic, before.Bytes); });
    operations.Store(atomic, value.Bytes);
    return true;
}

template<class Source>
bool CReader<Source>::ReadTimePoint(const CForm& form, char* time)
{
    const auto& operations = form.ShapeOperations<detail::CTimePointOperations>();
    m_source.Peek();
    const std::size_t begin = m_source.Offset();
    CInstant instant;
    bool isGood = false;
    if (!TakeInstant(instant, isGood)) return false;
    if (!isGood) return true;
    if (m_context.Undo != nullptr) m_context.Undo->SaveBytes(time, form.CustomInfor().Size);
    if (!operations.Store(time, instant.Seconds, instant.Nanoseconds))
        Tell(ProblemCode::OUT_OF_RANGE, begin, m_source.EndOffset(), "a time that the clock can tell");
    return true;
}

template<class Source>
bool CReader<Source>::ReadText(const CForm& form, char* place)
{
    const auto& operations = form.ShapeOperations<detail::CTextOperations>();
    if (operations.Set == nullptr) return Refuse(ProblemCode::CANNOT_BE_MADE, "a type that keeps a text of its own");
    if (m_source.Peek() != EventKind::STRING) return WrongKind("a string");
    CText text;
    if (!m_source.String(text)) return Broken();
    if (m_context.Undo != nullptr) {
        std::string memory;
        const std::string before(operations.Get(place, memory));
        m_context.Undo->SaveBy([&operations, place, before] { operations.Set(place, before); });
    }
    operations.Set(place, text.Text);
    return true;
}

template<class Source>
bool CReader<Source>::ReadRawJson(CRawJson& raw)
{
    if (m_context.Undo != nullptr) m_context.Undo->SaveMoved(raw);
    m_source.Peek();
    const std::size_t begin = m_source.Offset();
    bool hasLost = false;
    if (!ReadRaw(m_source, raw, m_context.Text, m_context.Policy, hasLost)) return Broken();
    if (hasLost) Tell(ProblemCode::WRONG_KIND, begin, m_source.EndOffset(), "a number that JSON has");
    return true;
}

template<class Source>
bool CReader<Source>::ReadJsonTree(CJsonTree& tree)
{
    if (m_context.Undo != nullptr) m_context.Undo->SaveMoved(tree);
    return ReadTree(m_source, tree, [this] { return CountOne(); }) || Broken();
}

} // namespace vexa::interchange

#endif
