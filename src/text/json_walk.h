#ifndef VEXA_TEXT_JSON_WALK_H
#define VEXA_TEXT_JSON_WALK_H

#include <utility>

#include <vexa/class_refrence.h>
#include <vexa/container_refrence.h>
#include <vexa/group.h>

#include "core/basic_types.h"
#include "reference/custom_value.h"
#include "text/json_code.h"
#include "text/nesting.h"
#include "typeinfo/plan.h"

namespace vexa::text {

/// The walk that measures a value as JSON and the one that writes it.
///
/// A Pass says what is done at each place. Where the walk has got to is handed from place to place as a small value, a
/// length or a pointer, which stays in a register. Objects and containers whose descriptors are finished are walked
/// along their plans; everything else, and what a plan leaves out, along the descriptors.
template<class Pass>
class CJsonWalk {
    using Cursor = typename Pass::Cursor;
    using Nesting = typename Pass::Nesting;
    using Operation = typeinfo::Operation;

public:
    explicit CJsonWalk(Pass& pass) : m_pass(pass) {}

    /// Any value; \p outer is null at the top. A kind that has no JSON is told to the pass.
    Cursor Walk(Cursor at, const CConstRefrence& ref, const Nesting* outer)
    {
        const unsigned char code = ref.TypeInfor.DataType;
        const void* const value = ref.ValueAddress();
        if (value == nullptr) return m_pass.Null(at);
        if (ref.TypeInfor.Has(Enum::HF_POINTER)) m_pass.Pointer(value);
        if (ref.TypeInfor.IsBasicType()) return Basic(at, code, value, ref.TypeInfor.IsStringTypeEx());
        if (code == Enum::DT_CUSTOM_BASIC) return Custom(at, ref);
        const Nesting nesting = outer != nullptr ? Nesting(*outer, ref) : Nesting(ref);
        if (IsNestingCode(code)) return Enters(nesting, ref.TypeInfor) ? Inner(at, ref, value, nesting) : at;
        if (outer == nullptr) m_isUnsupported = true;
        m_pass.Unsupported(ref);
        return at;
    }
    /// Whether a value was left out for being nested too deep, or in itself.
    bool IsTooDeep() const { return m_isTooDeep; }
    /// Whether the value at the top is of a kind that has no JSON.
    bool IsUnsupported() const { return m_isUnsupported; }

private:
    static bool IsNestingCode(unsigned char code)
    {
        return code == Enum::DT_CLASS || Enum::IsContainerCode(code) || code == Enum::DT_GNL_CLASS ||
               code == Enum::DT_REFERENCE_GROUP;
    }
    Cursor Inner(Cursor at, const CConstRefrence& ref, const void* value, const Nesting& nesting)
    {
        switch (ref.TypeInfor.DataType) {
        case Enum::DT_CLASS: return Class(at, ref.AsClass().ClassInfor(), value, nesting);
        case Enum::DT_GNL_CLASS: return Group(at, *static_cast<const CGnlClass*>(value), nesting);
        case Enum::DT_REFERENCE_GROUP: return Group(at, *static_cast<const CReferenceGroup*>(value), nesting);
        default: return Container(at, ref.AsContainer().ContainerInfor(), value, nesting);
        }
    }

    /// A value whose type is only known here.
    __attribute__((noinline)) Cursor Basic(Cursor at, unsigned char code, const void* value, bool isQuoted)
    {
        core::VisitBasicType(code, [&](auto type) { at = m_pass.Value(type, at, value, isQuoted); });
        return at;
    }

    /// After the first value that is not entered none is.
    bool Enters(const Nesting& nesting, const CGnlTypeInfor& type)
    {
        if (__builtin_expect(!m_isTooDeep && nesting.IsEntered(), 1)) return true;
        if (!m_isTooDeep) CNesting::LogNotEntered({type, nullptr});
        m_isTooDeep = true;
        return false;
    }

    /// Calls \p use with the standard value of a custom one. Its converter may say something else the next time.
    template<class Use>
    auto WithStandardValue(const CConstRefrence& custom, Use use)
    {
        if (reference::HasOwnLayout(custom.TypeInfor)) m_pass.Foreign();
        return reference::WithStandardValue(custom, use);
    }

    /// A value that a converter gave is quoted by what it is.
    Cursor Custom(Cursor at, const CConstRefrence& ref)
    {
        return WithStandardValue(ref, [&](const CConstRefrence& value) {
            const void* const address = value.ValueAddress();
            if (address == nullptr) return m_pass.Null(at);
            const CConstRefrence& quoted = reference::HasOwnLayout(ref.TypeInfor) ? value : ref;
            if (value.TypeInfor.DataType == Enum::DT_UNKNOWN) return m_pass.Unknown(at);
            return Basic(at, value.TypeInfor.DataType, address, quoted.TypeInfor.IsStringTypeEx());
        });
    }

    /// A custom value may be null by what its converter gives.
    bool IsNullValue(const CConstRefrence& ref)
    {
        if (ref.ValueAddress() == nullptr) return true;
        return ref.TypeInfor.DataType == Enum::DT_CUSTOM_BASIC && reference::HasOwnLayout(ref.TypeInfor) &&
               WithStandardValue(ref, [](const CConstRefrence& value) { return value.ValueAddress() == nullptr; });
    }

    // Along the descriptors.

    /// Of the named entries none is left out for being null; the indexed ones have no keys.
    template<class Entries>
    Cursor Group(Cursor at, const Entries& group, const Nesting& nesting)
    {
        at = m_pass.Byte(at, '{');
        bool isFirst = true;
        for (const auto& [name, ref] : group.Named) {
            at = m_pass.Key(at, name, std::exchange(isFirst, false));
            at = Walk(at, ref, &nesting);
        }
        return m_pass.Byte(at, '}');
    }

    Cursor Class(Cursor at, const CClassInfor& infor, const void* value, const Nesting& nesting)
    {
        const typeinfo::CPlan* const plan = typeinfo::PlanOf(infor);
        if (plan != nullptr && !plan->HasUnions()) return Object(at, *plan, static_cast<const char*>(value), nesting);
        return PlainClass(at, CClassConstRefrence(infor, value), nesting);
    }
    Cursor PlainClass(Cursor at, const CClassConstRefrence& object, const Nesting& nesting)
    {
        const auto& attribs = object.ClassInfor().AttribList;
        at = m_pass.Byte(at, '{');
        for (const auto& attrib : object.Attribs())
            at = Attrib(at, attrib.Value(), attrib.Infor(), &attrib.Infor() == &attribs.front(), nesting);
        return m_pass.Byte(at, '}');
    }

    Cursor Attrib(Cursor at, const CConstRefrence& value, const CAttribInfor& infor, bool isFirst,
                  const Nesting& nesting)
    {
        if (IsNullValue(value)) return at;
        return Walk(m_pass.Key(at, infor.Name, isFirst), value, &nesting);
    }

    Cursor Container(Cursor at, const CContainerInfor& infor, const void* value, const Nesting& nesting)
    {
        const typeinfo::CContainerPlan* const plan = typeinfo::PlanOf(infor);
        if (plan != nullptr && plan->IsContiguous())
            return Contiguous(at, *plan, static_cast<const char*>(value), nesting);
        const CContainerConstRefrence container(CGnlTypeInfor(Enum::DT_SEQUENCE_A, 0, &infor), value);
        if (plan != nullptr && plan->Shape() == typeinfo::CContainerPlan::Form::CURSOR)
            return Elements(at, container, [&](Cursor place, const CConstRefrence& element) {
                return Element(place, plan->Element(), element.Address, nesting);
            });
        if (typeinfo::FinishedContainer(infor) == nullptr) m_pass.Foreign(); // the operations are the application's own
        return Elements(at, container,
                        [&](Cursor place, const CConstRefrence& element) { return Walk(place, element, &nesting); });
    }
    /// The elements that the container's operations lead to.
    template<class Write>
    Cursor Elements(Cursor at, const CContainerConstRefrence& container, Write write)
    {
        at = m_pass.Byte(at, '[');
        bool isFirst = true;
        for (const CConstRefrence& element : container) {
            if (!std::exchange(isFirst, false)) at = m_pass.Byte(at, ',');
            at = write(at, element);
        }
        return m_pass.Byte(at, ']');
    }

    // Along the plans.

    Cursor Object(Cursor at, const typeinfo::CPlan& plan, const char* object, const Nesting& nesting)
    {
        at = m_pass.DirectKeys(m_pass.Byte(at, '{'), plan);
        for (const typeinfo::CRecordPlan& record : plan) {
            const char* const direct = object + record.ValueOffset;
            if (record.DirectCode == Enum::DT_STD_STRING) { // the most usual of all
                at = m_pass.String(at, record, *reinterpret_cast<const std::string*>(direct));
                continue;
            }
            const bool isDone = core::VisitBasicType(record.DirectCode, [this, &at, &record, direct](auto type) {
                at = m_pass.Value(type, m_pass.DirectKey(at, record), direct, true);
            });
            if (!isDone) at = Indirect(at, record, object, plan, nesting);
        }
        return m_pass.Byte(at, '}');
    }

    /// What is not a basic value that is always there.
    Cursor Indirect(Cursor at, const typeinfo::CRecordPlan& record, const char* object, const typeinfo::CPlan& plan,
                    const Nesting& nesting)
    {
        if (record.Op == Operation::UNUSUAL) {
            const CConstRefrence held(*record.Type, object + record.HolderOffset);
            return Attrib(at, held, *record.Infor, &record == plan.begin(), nesting);
        }
        const char* const value = record.Value(object);
        return value != nullptr ? Planned(m_pass.Key(at, record), record, value, nesting) : at;
    }

    /// A value that is not null.
    Cursor Planned(Cursor at, const typeinfo::CValuePlan& plan, const char* value, const Nesting& outer)
    {
        if (plan.Held == typeinfo::Holding::POINTER) m_pass.Pointer(value);
        if (plan.Op >= Operation::FIRST_BASIC) return Basic(at, static_cast<unsigned char>(plan.Op), value, true);
        const Nesting nesting(outer, value, *plan.Type);
        if (!Enters(nesting, *plan.Type)) return at;
        return plan.Op == Operation::CLASS ? Class(at, plan.ClassInfor(), value, nesting)
                                           : Container(at, plan.ContainerInfor(), value, nesting);
    }

    Cursor Element(Cursor at, const typeinfo::CValuePlan& plan, const void* element, const Nesting& nesting)
    {
        const char* const value = plan.Value(static_cast<const char*>(element));
        return value != nullptr ? Planned(at, plan, value, nesting) : m_pass.Null(at);
    }

    /// Elements that lie one behind the other: what they are is asked once.
    Cursor Contiguous(Cursor at, const typeinfo::CContainerPlan& plan, const char* container, const Nesting& nesting)
    {
        const detail::CElementSpan span = plan.Elements(container);
        at = m_pass.Byte(at, '[');
        if (span.First != span.Last) at = Span(at, plan.Element(), span, plan.Stride(), nesting);
        return m_pass.Byte(at, ']');
    }
    Cursor Span(Cursor at, const typeinfo::CValuePlan& element, const detail::CElementSpan& span, unsigned long stride,
                const Nesting& nesting)
    {
        if (element.Held == typeinfo::Holding::DIRECT) {
            if (element.Op >= Operation::FIRST_BASIC) return BasicElements(at, element, span, stride);
            if (element.Op == Operation::CLASS) {
                const typeinfo::CPlan* const inner = typeinfo::PlanOf(element.ClassInfor());
                if (inner != nullptr && !inner->HasUnions()) return Objects(at, element, *inner, span, stride, nesting);
            }
        }
        return ForEach(at, span.First, span.Last, stride,
                       [&](Cursor place, const char* next) { return Element(place, element, next, nesting); });
    }
    Cursor Objects(Cursor at, const typeinfo::CValuePlan& element, const typeinfo::CPlan& plan,
                   const detail::CElementSpan& span, unsigned long stride, const Nesting& nesting)
    {
        return ForEach(at, span.First, span.Last, stride, [&](Cursor place, const char* next) {
            const Nesting within(nesting, next + element.ValueOffset, *element.Type);
            return Enters(within, *element.Type) ? Object(place, plan, next + element.ValueOffset, within) : place;
        });
    }
    Cursor BasicElements(Cursor at, const typeinfo::CValuePlan& element, const detail::CElementSpan& span,
                         unsigned long stride)
    {
        const char* const first = span.First + element.ValueOffset;
        const char* const last = span.Last + element.ValueOffset;
        core::VisitBasicType(static_cast<unsigned char>(element.Op), [this, &at, first, last, stride](auto type) {
            if (m_pass.Span(type, at, first, last, stride)) return;
            at = ForEach(at, first, last, stride, [this, type](Cursor place, const char* next) {
                return m_pass.Value(type, place, next, true);
            });
        });
        return at;
    }
    /// There is a first one.
    template<class Write>
    Cursor ForEach(Cursor at, const char* first, const char* last, unsigned long stride, Write write)
    {
        at = write(at, first);
        for (const char* next = first + stride; next != last; next += stride)
            at = write(m_pass.Byte(at, ','), next);
        return at;
    }

    Pass& m_pass;
    bool m_isTooDeep = false;
    bool m_isUnsupported = false;
};

} // namespace vexa::text

#endif
