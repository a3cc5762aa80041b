#ifndef VEXA_INTERCHANGE_WRITE_WALK_H
#define VEXA_INTERCHANGE_WRITE_WALK_H

#include <cmath>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

#include <vexa/container_refrence.h>
#include <vexa/group.h>
#include <vexa/json_tree.h>
#include <vexa/table.h>
#include <vexa/value.h>

#include "core/basic_types.h"
#include "interchange/form.h"
#include "interchange/read_phrase.h"
#include "interchange/sink.h"
#include "interchange/write_context.h"
#include "interchange/write_default.h"
#include "interchange/write_number.h"

namespace vexa::interchange {

/// A container at its own address.
inline CContainerConstRefrence ContainerAt(const CForm& form, const char* value)
{
    return {CGnlTypeInfor(form.Code, 0, form.Type->DetailInfor), value};
}

/// The one walk that writes objects, whatever the format: a Sink is told every value in order (see sink.h).
///
/// It goes by forms. What is written of a class without notes, unions and policies stands here; the rest by subject in
/// write_object.h, write_container.h, write_record.h and write_shape.h, which whoever instantiates the walk takes in.
template<class Sink>
class CWritingWalk {
public:
    using Cursor = typename Sink::Cursor;

    CWritingWalk(Sink& sink, CWriteContext& context)
        : m_sink(sink), m_context(context),
          m_isPlain(!context.Policy().SortKeys && !context.Policy().LeaveOutNulls && !context.Policy().LeaveOutDefaults)
    {
    }

    /// The value of a holder; null where there is none. The way of \p outer leads to it.
    Cursor Holder(Cursor at, const CForm& form, const void* holder, CWriteFrame& outer)
    {
        const char* const value = form.Value(static_cast<const char*>(holder));
        return value != nullptr ? Value(at, form, value, outer) : m_sink.Null(at);
    }

private:
    __attribute__((noinline)) Cursor Value(Cursor at, const CForm& form, const char* value, CWriteFrame& outer)
    {
        switch (form.Kind) {
        case FormKind::BASIC: return BasicOfCode(at, form.Code, value, outer);
        case FormKind::ENUMERATION: return Enumeration(at, form, value, outer);
        case FormKind::CLASS: return ClassValue(at, form, value, outer);
        case FormKind::PAIR: return Pair(at, form, value, outer);
        case FormKind::SEQUENCE:
        case FormKind::ARRAY:
        case FormKind::INSERTED:
        case FormKind::PAIR_MAP: return Container(at, form, value, outer);
        case FormKind::MAP: return Map(at, form, value, outer);
        case FormKind::CHAR_ARRAY: return CharArray(at, form, value, outer);
        case FormKind::BITSET: return Bitset(at, form, value, outer);
        case FormKind::VALUE: return OfValue(at, *reinterpret_cast<const CValue*>(value), outer);
        case FormKind::ROW: return Row(at, *reinterpret_cast<const CRow*>(value), outer);
        case FormKind::TABLE: return Table(at, *reinterpret_cast<const CTable*>(value), outer);
        case FormKind::GENERIC: return Group(at, *reinterpret_cast<const CGnlClass*>(value), form, outer);
        case FormKind::GROUP: return Group(at, *reinterpret_cast<const CReferenceGroup*>(value), form, outer);
        case FormKind::CUSTOM: return Custom(at, form, value, outer);
        case FormKind::SHAPE: return Shape(at, form, value, outer);
        case FormKind::NULL_TYPE: return m_sink.Null(at);
        case FormKind::UNSUPPORTED: break;
        }
        return Unsupported(at, form, outer);
    }

    // Whatever cannot be written is null and a problem.

    __attribute__((noinline)) Cursor Refuse(Cursor at, const CPathStep& where, const char* expected,
                                            const char* found = "")
    {
        m_context.Tell(ProblemCode::CANNOT_BE_WRITTEN, where, expected, found);
        return m_sink.Null(at);
    }
    __attribute__((noinline)) Cursor Unsupported(Cursor at, const CForm& form, const CPathStep& where)
    {
        m_context.Tell(ProblemCode::CANNOT_BE_WRITTEN, where, {}, form.Type->RealTypeName());
        return m_sink.Null(at);
    }
    __attribute__((noinline)) Cursor NotEntered(Cursor at, const CWriteFrame& frame)
    {
        if (frame.Depth > m_context.Policy().MaxDepth)
            TellTooDeep(*frame.Outer);
        else
            m_context.Tell(ProblemCode::TOO_DEEP, *frame.Outer, "an object that does not hold itself");
        return m_sink.Null(at);
    }
    void TellTooDeep(const CPathStep& where)
    {
        m_context.Tell(ProblemCode::TOO_DEEP, where, AtMost(m_context.Policy().MaxDepth, "level"));
    }
    bool IsEntered(const CWriteFrame& frame, bool isReached) const
    {
        return __builtin_expect(frame.Depth <= m_context.Policy().MaxDepth, 1) &&
               !(isReached && frame.IsInsideItself());
    }

    // Basic values.

    template<class Type>
    __attribute__((always_inline)) Cursor Basic(Type, Cursor at, const void* address, const CPathStep& where)
    {
        using T = typename Type::Type;
        decltype(auto) value = core::Load<T>(address);
        if constexpr (std::is_same_v<T, bool>) {
            return m_sink.Bool(at, value);
        } else if constexpr (std::is_integral_v<T>) {
            return m_sink.Integer(at, value);
        } else if constexpr (std::is_floating_point_v<T>) {
            const bool isWritten = std::isfinite(value) || m_context.Policy().AllowNan;
            return __builtin_expect(isWritten, 1) ? m_sink.Floating(at, value)
                                                  : Refuse(at, where, "a finite number", NameOfNotFinite(value));
        } else if constexpr (std::is_same_v<T, std::string>) {
            return m_sink.Text(at, value, where);
        } else if constexpr (std::is_same_v<T, core::CTextAtAddress>) {
            return m_sink.Text(at, std::string_view(static_cast<const char*>(address)), where);
        } else if constexpr (std::is_same_v<T, CBinary>) {
            return m_sink.Bytes(at, value);
        } else {
            return Unusual(at, value, where);
        }
    }
    __attribute__((noinline)) Cursor BasicOfCode(Cursor at, unsigned char code, const void* address,
                                                 const CPathStep& where)
    {
        core::VisitBasicType(code, [&](auto type) { at = Basic(type, at, address, where); });
        return at;
    }
    Cursor Unusual(Cursor at, const CNumeric& value, const CPathStep& where);
    Cursor Unusual(Cursor at, const CDateTime& value, const CPathStep& where);
    Cursor Unusual(Cursor at, const tm& value, const CPathStep& where);
    Cursor Enumeration(Cursor at, const CForm& form, const char* value, const CPathStep& where);

    // Objects.

    /// Whether every attribute is written, by its key and value.
    bool IsPlain(const CClassForm& form) const
    {
        return m_isPlain && !form.HasNotes && !form.HasUnions &&
               (!form.HasMasked || m_context.Policy().Masked == MaskedValues::WRITE);
    }
    Cursor ClassValue(Cursor at, const CForm& form, const char* value, CWriteFrame& outer)
    {
        if (form.How == Held::POINTER) return Tagged(at, form.ClassInfor(), value, outer, true);
        return Class(at, form.ClassInfor(), value, outer, false, nullptr);
    }
    /// \param isReached whether through a pointer; \p tag is the key for what the object is, null where that is known.
    Cursor Class(Cursor at, const CClassInfor& infor, const char* object, CWriteFrame& outer, bool isReached,
                 const std::string* tag)
    {
        CWriteFrame frame(outer, object, &infor);
        if (!IsEntered(frame, isReached)) return NotEntered(at, frame);
        const CClassForm& form = m_forms.Of(infor);
        if (tag == nullptr && IsPlain(form)) return PlainObject(at, form, object, frame);
        return NotedObject(at, form, object, frame, tag);
    }
    __attribute__((always_inline)) Cursor PlainObject(Cursor at, const CClassForm& form, const char* object,
                                                      CWriteFrame& frame)
    {
        at = m_sink.BeginObject(at, form.Members.size());
        frame.Kind = StepKind::MEMBER;
        for (const CMember& member : form.Members) {
            frame.Member = &member;
            at = m_sink.Key(at, member, frame);
            const char* const value = object + member.ValueOffset;
            if (member.Kind != FormKind::BASIC || member.How != Held::DIRECT) {
                at = Inner(at, member, object, value, frame);
                continue;
            }
            if (member.Code == Enum::DT_STD_STRING) // the most usual of all
                at = m_sink.Text(at, *reinterpret_cast<const std::string*>(value), frame);
            else
                core::VisitBasicType(member.Code, [&](auto type) { at = Basic(type, at, value, frame); });
        }
        return m_sink.EndObject(at);
    }
    /// A member that is no basic value held directly. Objects and arrays are the most usual.
    Cursor Inner(Cursor at, const CMember& member, const char* object, const char* value, CWriteFrame& frame)
    {
        if (member.How != Held::DIRECT) return Holder(at, member, object, frame);
        if (member.Kind == FormKind::CLASS) return Class(at, member.ClassInfor(), value, frame, false, nullptr);
        if (member.Kind == FormKind::SEQUENCE) return Container(at, member, value, frame);
        return Value(at, member, value, frame);
    }
    /// What a pointer to a class, or an alternative of a variant, leads to, with its tag where its class has one.
    Cursor Tagged(Cursor at, const CClassInfor& base, const char* object, CWriteFrame& outer, bool isReached);
    struct CEntry;
    Cursor NotedObject(Cursor at, const CClassForm& form, const char* object, CWriteFrame& frame,
                       const std::string* tag);
    Cursor SortedObject(Cursor at, const CClassForm& form, const char* object, CWriteFrame& frame,
                        const std::string* tag);
    template<class Use>
    void ForEachEntry(const CClassForm& form, const char* object, const std::string* tag, Use use);
    CEntry KeptEntry(const CMember& keeper, const char* pair);
    Cursor Entry(Cursor at, const CEntry& entry, const CClassForm& form, const char* object, CWriteFrame& frame,
                 const std::string* tag);
    Cursor Attribute(Cursor at, const CMember& member, const char* object, CWriteFrame& frame);
    Cursor KeptEntries(Cursor at, const CMember& keeper, const CClassForm& form, const char* object, CWriteFrame& frame,
                       const std::string* tag);
    Cursor Kept(Cursor at, const CEntry& entry, const CClassForm& form, CWriteFrame& frame, const std::string* tag);
    bool IsLeftOut(const CClassForm& form, const CMember& member, const char* object);
    bool IsNull(const CForm& form, const char* holder);
    bool IsNullShape(const CForm& form, const char* value);
    bool IsNullCustom(const CForm& form, const char* value);

    // Containers.

    Cursor Container(Cursor at, const CForm& form, const char* value, CWriteFrame& outer);
    Cursor Elements(Cursor at, const CForm& element, const CContainerConstRefrence& container, CWriteFrame& frame);
    Cursor Contiguous(Cursor at, const CContainerForm& form, const CContainerInfor& infor, const char* container,
                      CWriteFrame& frame);
    Cursor BasicElements(Cursor at, const CForm& element, const char* first, const char* last, unsigned long stride,
                         CWriteFrame& frame);
    Cursor Objects(Cursor at, const CForm& element, const char* first, const char* last, unsigned long stride,
                   CWriteFrame& frame);
    Cursor Map(Cursor at, const CForm& form, const char* value, CWriteFrame& outer);
    Cursor Entries(Cursor at, const CContainerForm& form, const CContainerConstRefrence& map, CWriteFrame& frame);
    Cursor SortedEntries(Cursor at, const CContainerForm& form, const CContainerConstRefrence& map, CWriteFrame& frame);
    struct CMapKey;
    void ReadKey(CMapKey& key, const CForm& form, const char* pair);
    Cursor KeyOf(Cursor at, const CMapKey& key, CWriteFrame& frame);
    Cursor Pair(Cursor at, const CForm& form, const char* value, CWriteFrame& outer);
    Cursor CharArray(Cursor at, const CForm& form, const char* value, CWriteFrame& outer);
    Cursor Bitset(Cursor at, const CForm& form, const char* value, CWriteFrame& outer);

    // Records and what converts itself.

    Cursor OfValue(Cursor at, const CValue& value, CWriteFrame& outer);
    Cursor Row(Cursor at, const CRow& row, CWriteFrame& outer);
    Cursor Table(Cursor at, const CTable& table, CWriteFrame& outer);
    Cursor TableRow(Cursor at, const CTable& table, const CRow& row, const std::vector<std::size_t>& columns,
                    CWriteFrame& outer);
    std::vector<std::size_t> ColumnsOf(const CTable& table, CWriteFrame& frame);
    template<class NamedEntries>
    Cursor Group(Cursor at, const NamedEntries& group, const CForm& form, CWriteFrame& outer);
    Cursor Referenced(Cursor at, const CConstRefrence& ref, CWriteFrame& outer);
    Cursor Custom(Cursor at, const CForm& form, const char* value, CWriteFrame& outer);
    Cursor Converted(Cursor at, const CCustomBasicTypeInfor& infor, const char* value, CWriteFrame& outer);

    // Shapes.

    Cursor Shape(Cursor at, const CForm& form, const char* value, CWriteFrame& outer);
    const CForm& PartOf(const CForm& form, unsigned int number);
    Cursor SignedByte(Cursor at, const CForm& form, signed char value, const CPathStep& where);
    Cursor Optional(Cursor at, const CForm& form, const char* value, CWriteFrame& outer);
    Cursor Variant(Cursor at, const CForm& form, const char* value, CWriteFrame& outer);
    Cursor Tuple(Cursor at, const CForm& form, const char* value, CWriteFrame& outer);
    Cursor Bits(Cursor at, const CForm& form, const char* value, CWriteFrame& outer);
    Cursor Atomic(Cursor at, const CForm& form, const char* value, CWriteFrame& outer);
    Cursor TimePoint(Cursor at, const CForm& form, const char* value, CWriteFrame& outer);
    Cursor RawJson(Cursor at, const std::string& json, CWriteFrame& outer);
    Cursor Tree(Cursor at, const CJsonTree& tree, CWriteFrame& outer);
    Cursor TextShape(Cursor at, const CForm& form, const char* value, CWriteFrame& outer);

    Sink& m_sink;
    CWriteContext& m_context;
    CForms m_forms;
    CDefaults m_defaults;
    const bool m_isPlain; ///< no policy looks at each attribute
};

} // namespace vexa::interchange

#endif
