#ifndef VEXA_INTERCHANGE_WRITE_SHAPE_H
#define VEXA_INTERCHANGE_WRITE_SHAPE_H

#include <algorithm>

#include <vexa/json_tree.h>

#include "interchange/json_tree_io.h"
#include "interchange/raw_json.h"
#include "interchange/write_basic.h"

/// \file
/// Types whose structure is known by a shape: std::optional, std::variant and the like.

namespace vexa::interchange {

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Shape(Cursor at, const CForm& form, const char* value, CWriteFrame& outer)
{
    using detail::ShapeKind;
    switch (form.Shape->Kind) {
    case ShapeKind::SIGNED_BYTE: return SignedByte(at, form, core::Load<signed char>(value), outer);
    case ShapeKind::OPTIONAL: return Optional(at, form, value, outer);
    case ShapeKind::VARIANT: return Variant(at, form, value, outer);
    case ShapeKind::TUPLE: return Tuple(at, form, value, outer);
    case ShapeKind::BITS: return Bits(at, form, value, outer);
    case ShapeKind::ATOMIC: return Atomic(at, form, value, outer);
    case ShapeKind::TIME_POINT: return TimePoint(at, form, value, outer);
    case ShapeKind::DURATION: return Holder(at, PartOf(form, 0), value, outer);
    case ShapeKind::TEXT: return TextShape(at, form, value, outer);
    case ShapeKind::RAW_JSON: return RawJson(at, reinterpret_cast<const CRawJson*>(value)->Text(), outer);
    case ShapeKind::JSON_TREE: return Tree(at, *reinterpret_cast<const CJsonTree*>(value), outer);
    }
    return Unsupported(at, form, outer);
}

template<class Sink>
const CForm& CWritingWalk<Sink>::PartOf(const CForm& form, unsigned int number)
{
    return m_forms.Of(form.CustomInfor()).Parts[number];
}

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::SignedByte(Cursor at, const CForm& form, signed char value,
                                                     const CPathStep& where)
{
    std::string_view name;
    if (form.Enumeration != nullptr) name = NameOfValue(*form.Enumeration, value);
    return !name.empty() ? m_sink.Text(at, name, where) : m_sink.Integer(at, value);
}

/// Also a std::shared_ptr, whose object may be of a derived class, and may lead back to it.
template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Optional(Cursor at, const CForm& form, const char* value, CWriteFrame& outer)
{
    const auto& operations = form.ShapeOperations<detail::COptionalOperations>();
    const auto* const inner = static_cast<const char*>(operations.Get(value));
    if (inner == nullptr) return m_sink.Null(at);
    const CForm& part = PartOf(form, 0);
    const bool isPointedTo = operations.Adopt != nullptr && part.Kind == FormKind::CLASS && part.How == Held::DIRECT;
    return isPointedTo ? Tagged(at, part.ClassInfor(), inner, outer, true) : Holder(at, part, inner, outer);
}

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Variant(Cursor at, const CForm& form, const char* value, CWriteFrame& outer)
{
    const auto& operations = form.ShapeOperations<detail::CVariantOperations>();
    const unsigned int number = operations.Index(value);
    if (number == detail::CVariantOperations::VALUELESS) return Refuse(at, outer, "a value", "none");
    const auto* const alternative = static_cast<const char*>(operations.Get(value));
    const CForm& part = PartOf(form, number);
    const bool isObject = part.Kind == FormKind::CLASS && part.How == Held::DIRECT;
    return isObject ? Tagged(at, part.ClassInfor(), alternative, outer, false) : Holder(at, part, alternative, outer);
}

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Tuple(Cursor at, const CForm& form, const char* value, CWriteFrame& outer)
{
    CWriteFrame frame(outer, value, form.Shape);
    if (!IsEntered(frame, form.How == Held::POINTER)) return NotEntered(at, frame);
    const auto& operations = form.ShapeOperations<detail::CTupleOperations>();
    at = m_sink.BeginArray(at, form.Shape->PartCount);
    for (unsigned int i = 0; i < form.Shape->PartCount; ++i) {
        frame.To(i);
        at = Holder(m_sink.Element(at), PartOf(form, i), operations.Part(const_cast<char*>(value), i), frame);
    }
    return m_sink.EndArray(at);
}

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Bits(Cursor at, const CForm& form, const char* value, CWriteFrame& outer)
{
    const CWriteFrame frame(outer, value, form.Shape);
    if (!IsEntered(frame, false)) return NotEntered(at, frame);
    const auto& operations = form.ShapeOperations<detail::CBitsOperations>();
    const unsigned long count = operations.Count(value);
    at = m_sink.BeginArray(at, count);
    for (unsigned long i = 0; i < count; ++i)
        at = m_sink.Bool(m_sink.Element(at), operations.Get(value, i));
    return m_sink.EndArray(at);
}

template<class Sink>
__attribute__((noinline)) typename Sink::Cursor CWritingWalk<Sink>::Atomic(Cursor at, const CForm& form,
                                                                           const char* value, CWriteFrame& outer)
{
    alignas(long double) char loaded[sizeof(long double)] = {};
    form.ShapeOperations<detail::CAtomicOperations>().Load(value, loaded);
    return Holder(at, PartOf(form, 0), loaded, outer);
}

template<class Sink>
__attribute__((noinline)) typename Sink::Cursor CWritingWalk<Sink>::TimePoint(Cursor at, const CForm& form,
                                                                              const char* value, CWriteFrame& outer)
{
    long long seconds = 0;
    long nanoseconds = 0;
    form.ShapeOperations<detail::CTimePointOperations>().Load(value, seconds, nanoseconds);
    CTimeRoom room;
    const std::string_view text = TextOfTime(room, seconds, nanoseconds);
    return !text.empty() ? m_sink.Plain(at, text) : Refuse(at, outer, "a time of the years 0 to 9999");
}

template<class Sink>
__attribute__((noinline)) typename Sink::Cursor CWritingWalk<Sink>::TextShape(Cursor at, const CForm& form,
                                                                              const char* value, CWriteFrame& outer)
{
    std::string memory;
    return m_sink.Text(at, form.ShapeOperations<detail::CTextOperations>().Get(value, memory), outer);
}

/// As it stands, but for line breaks where everything else is on one line.
template<class Sink>
__attribute__((noinline)) typename Sink::Cursor CWritingWalk<Sink>::RawJson(Cursor at, const std::string& json,
                                                                            CWriteFrame& outer)
{
    const CWritePolicy& policy = m_context.Policy();
    if (IsDeeperThan(json, policy.MaxDepth - std::min(outer.Depth, policy.MaxDepth))) {
        TellTooDeep(outer);
        return m_sink.Null(at);
    }
    const bool isJoined =
        policy.Indentation == 0 && !m_context.IsComplete() && json.find_first_of(LINE_BREAKS) != json.npos;
    return isJoined ? m_sink.Raw(at, JoinedLines(json)) : m_sink.Raw(at, json);
}

/// A problem inside is told of the whole tree, once.
template<class Sink>
__attribute__((noinline)) typename Sink::Cursor CWritingWalk<Sink>::Tree(Cursor at, const CJsonTree& tree,
                                                                         CWriteFrame& outer)
{
    const CWritePolicy& policy = m_context.Policy();
    CTreeWriting writing{policy.SortKeys, policy.AllowNan, policy.MaxDepth - std::min(outer.Depth, policy.MaxDepth)};
    at = WriteTree(m_sink, at, tree, writing, outer);
    if (writing.WasTooDeep) TellTooDeep(outer);
    if (writing.HasLost) m_context.Tell(ProblemCode::CANNOT_BE_WRITTEN, outer, "finite numbers");
    return at;
}

} // namespace vexa::interchange

#endif
