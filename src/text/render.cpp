// Rendering any value as indented text.

#include <cstring>
#include <utility>

#include <vexa/class_refrence.h>
#include <vexa/container_refrence.h>
#include <vexa/group.h>
#include <vexa/helper.h>
#include <vexa/text.h>

#include "core/basic_types.h"
#include "reference/custom_value.h"
#include "text/nesting.h"
#include "text/record_text.h"
#include "text/text_sink.h"
#include "typeinfo/plan.h"

namespace vexa {

using namespace Enum;

namespace {

/// Where a value stands: how deep, and whether the first line of a class or container begins with a line break.
struct CPlace {
    unsigned long Level;
    bool BreaksLine;

    CPlace Inner(bool breaksLine) const { return {Level + 1, breaksLine}; }
};

/// Objects and containers whose descriptors are finished are rendered along their plans; everything else, and what a
/// plan leaves out, along the descriptors.
class CRenderer {
    using Nesting = text::CNesting;
    using Operation = typeinfo::Operation;

public:
    CRenderer(std::string& out, AsStringFormatEnum format)
        : m_out(out), m_format(format), m_hasTypes(HasTypes(format)), m_hasValues(format != ASF_TYPE_ONLY)
    {
    }

    static bool HasTypes(AsStringFormatEnum format) { return format == ASF_TYPE_AND_VALUE || format == ASF_TYPE_ONLY; }

    void Render(const CConstRefrence& ref)
    {
        if (m_hasTypes) {
            m_out.Copy(ref.TypeName());
            m_out.Copy(std::string_view(": "));
        }
        if (m_hasValues) RenderValue(ref, {m_hasTypes ? 1UL : 0UL, true}, nullptr);
        m_out.Flush();
    }

    /// A group by itself: with types, its entries stand below the header and then once more at its own level.
    template<class Group>
    void RenderGroupAlone(const Group& group, const char* header)
    {
        if (m_hasTypes) {
            m_out.Copy(std::string_view(header));
            RenderEntries(group, {1, true}, nullptr);
        }
        RenderEntries(group, {0, true}, nullptr);
        m_out.Flush();
    }

private:
    /// The kinds stand in the order of the type table.
    void RenderValue(const CConstRefrence& ref, CPlace place, const Nesting* outer)
    {
        if (IsAddressOnly(ref) && !ref.IsNull()) return RenderAddress(ref);
        const CGnlTypeInfor& type = ref.TypeInfor;
        const void* const value = ref.ValueAddress();
        if (value == nullptr) return RenderFixed("NULL");
        if (type.DataType == DT_UNKNOWN) return RenderFixed("unkown");
        if (type.DataType == DT_CLASS) return RenderNesting(type, value, place, outer);
        if (type.IsBasicType()) return RenderBasic(type.DataType, value);
        if (type.IsContainer()) return RenderNesting(type, value, place, outer);
        switch (type.DataType) {
        case DT_GNL_CLASS:
        case DT_REFERENCE_GROUP: return RenderNesting(type, value, place, outer);
        case DT_ROW: return text::AppendRow(m_out.Flush(), *static_cast<const CRow*>(value), m_format);
        case DT_TABLE:
            return text::AppendTable(m_out.Flush(), *static_cast<const CTable*>(value), m_format, 2 * place.Level,
                                     place.BreaksLine);
        case DT_VALUE:
            return RenderValue(*static_cast<const CConstRefrence*>(value), place, outer); // it is a reference
        case DT_CUSTOM_BASIC: return RenderCustom(ref, place, outer);
        default:
            helper::LogError("It is not currently supported to convert %s types to strings", ref.TypeName().c_str());
        }
    }

    void RenderNesting(const CGnlTypeInfor& type, const void* value, CPlace place, const Nesting* outer)
    {
        const Nesting nesting(outer, value, type);
        if (!nesting.IsEntered()) return Nesting::LogNotEntered({type, nullptr});
        if (type.DataType == DT_CLASS)
            RenderClass(*static_cast<const CClassInfor*>(type.DetailInfor), value, place, nesting);
        else if (type.DataType == DT_GNL_CLASS)
            RenderEntries(*static_cast<const CGnlClass*>(value), place, &nesting);
        else if (type.DataType == DT_REFERENCE_GROUP)
            RenderEntries(*static_cast<const CReferenceGroup*>(value), place, &nesting);
        else
            RenderContainer(type, value, place, nesting);
    }

    /// Not inlined: the longest texts need room, which must not lie on the stack once for each level.
    __attribute__((noinline)) void RenderBasic(unsigned char code, const void* value)
    {
        core::VisitBasicType(code, [&](auto type) { reference::WriteBasic(m_out, type, value, false); });
    }

    void RenderFixed(const char* text)
    {
        if (m_hasValues) m_out.Copy(std::string_view(text));
    }

    /// Untyped memory: only where it is can be told.
    static bool IsAddressOnly(const CConstRefrence& ref)
    {
        return ref.TypeInfor.DataType == DT_VOID && ref.TypeInfor.Has(HF_POINTER);
    }
    void RenderAddress(const CConstRefrence& ref)
    {
        if (m_hasValues) RenderBasic(DT_UNSIGNED_LONG, ref.Address);
    }

    void RenderCustom(const CConstRefrence& ref, CPlace place, const Nesting* outer)
    {
        if (m_hasTypes) {
            m_out.Copy(ref.TypeInfor.RealTypeName());
            m_out.Copy(std::string_view(": "));
        }
        if (!m_hasValues) return;
        reference::WithStandardValue(ref, [&](const CConstRefrence& value) { RenderValue(value, place, outer); });
    }

    void RenderClass(const CClassInfor& infor, const void* value, CPlace place, const Nesting& nesting)
    {
        const typeinfo::CPlan* const plan = typeinfo::PlanOf(infor);
        if (plan != nullptr && !plan->HasUnions())
            RenderRecords(*plan, static_cast<const char*>(value), place, nesting);
        else
            RenderAttribs(CClassConstRefrence(infor, value), place, nesting);
    }
    void RenderRecords(const typeinfo::CPlan& plan, const char* object, CPlace place, const Nesting& nesting)
    {
        for (const typeinfo::CRecordPlan& record : plan) {
            StartLine(place, &record == plan.begin(), *record.Type);
            m_out.Ready(record.Label, record.LabelLength);
            if (record.Infor->IsMasked)
                RenderFixed("***");
            else if (m_hasValues)
                RenderPlanned(record, object, place.Inner(true), nesting);
        }
    }
    void RenderAttribs(const CClassConstRefrence& object, CPlace place, const Nesting& nesting)
    {
        bool isFirst = true;
        for (const auto& attrib : object.Attribs()) {
            StartLine(place, std::exchange(isFirst, false), attrib.Infor().TypeInfor);
            m_out.Copy(attrib.Name());
            m_out.Copy(std::string_view(": "));
            if (attrib.Infor().IsMasked)
                RenderFixed("***");
            else if (m_hasValues)
                RenderValue(attrib.Value(), place.Inner(true), &nesting);
        }
    }

    /// The named entries, then the indexed ones.
    template<class Group>
    void RenderEntries(const Group& group, CPlace place, const Nesting* nesting)
    {
        bool isFirst = true;
        for (const auto& [name, ref] : group.Named)
            RenderEntry(name, ref, std::exchange(isFirst, false), place, nesting);
        for (std::size_t index = 0; index < group.Indexed.size(); ++index) {
            RenderEntry("column " + std::to_string(index), group.Indexed[index], index == 0, place, nesting);
        }
    }
    void RenderEntry(const std::string& name, const CConstRefrence& ref, bool isFirst, CPlace place,
                     const Nesting* nesting)
    {
        StartLine(place, isFirst, ref.TypeInfor);
        m_out.Copy(name);
        m_out.Copy(std::string_view(": "));
        if (m_hasValues) RenderValue(ref, place.Inner(place.BreaksLine), nesting);
    }

    void RenderContainer(const CGnlTypeInfor& type, const void* value, CPlace place, const Nesting& nesting)
    {
        const auto& infor = *static_cast<const CContainerInfor*>(type.DetailInfor);
        const CContainerConstRefrence container(CGnlTypeInfor(type.DataType, 0, &infor), value);
        if (type.DataType == DT_BITSET) return RenderBits(container);
        if (type.DataType == DT_ARRAY && type.IsStringTypeEx()) return RenderCharacters(container);
        const typeinfo::CContainerPlan* const plan = typeinfo::PlanOf(infor);
        for (const CConstRefrence& element : container) {
            // A container inside a container stays on one line: its elements are told apart by their dashes alone.
            if (place.BreaksLine) m_out.Line(2 * place.Level);
            m_out.Copy(std::string_view("- "));
            if (plan != nullptr)
                RenderPlanned(plan->Element(), static_cast<const char*>(element.Address), place.Inner(false), nesting);
            else
                RenderValue(element, place.Inner(false), &nesting);
        }
    }
    void RenderBits(const CContainerConstRefrence& bits)
    {
        for (const CConstRefrence& bit : bits)
            m_out.Copy(std::string_view(core::Load<bool>(bit.Address) ? "1" : "0"));
    }
    void RenderCharacters(const CContainerConstRefrence& array)
    {
        const auto* const text = static_cast<const char*>(array.Address);
        m_out.Copy(text, strnlen(text, array.Count()));
    }

    /// The value of an attribute of the object, or of the element.
    void RenderPlanned(const typeinfo::CValuePlan& plan, const char* object, CPlace place, const Nesting& nesting)
    {
        if (plan.Op == Operation::UNUSUAL)
            return RenderValue({*plan.Type, object + plan.HolderOffset}, place, &nesting);
        const char* const value = plan.Value(object);
        if (value == nullptr)
            RenderFixed("NULL");
        else if (plan.Op >= Operation::FIRST_BASIC)
            RenderBasic(static_cast<unsigned char>(plan.Op), value);
        else
            RenderNesting(*plan.Type, value, place, &nesting);
    }

    /// What stands before a name.
    void StartLine(CPlace place, bool isFirst, const CGnlTypeInfor& type)
    {
        if (!isFirst || place.BreaksLine) m_out.Line(2 * place.Level);
        if (!m_hasTypes) return;
        m_out.Copy(type.TypeName());
        m_out.Copy(std::string_view(" "));
    }

    text::CTextSink m_out;
    AsStringFormatEnum m_format;
    bool m_hasTypes;
    bool m_hasValues;
};

} // namespace

std::string AsString(const CConstRefrence& ref, AsStringFormatEnum format)
{
    std::string out;
    AppendString(out, ref, format);
    return out;
}

void AsString(std::string& out, const CConstRefrence& ref, AsStringFormatEnum format)
{
    out.clear();
    AppendString(out, ref, format);
}

void AppendString(std::string& out, const CConstRefrence& ref, AsStringFormatEnum format)
{
    if (ref.TypeInfor.IsBasicType() && !CRenderer::HasTypes(format))
        ref.AsStdBasicType().AppendToString(out, false);
    else
        CRenderer(out, format).Render(ref);
}

std::string CGnlClass::AsString(const AsStringFormatEnum& format) const
{
    std::string out;
    CRenderer(out, format).RenderGroupAlone(*this, "vexa::CGnlClass: ");
    return out;
}

std::string CReferenceGroup::AsString(const AsStringFormatEnum& format) const
{
    std::string out;
    CRenderer(out, format).RenderGroupAlone(*this, "vexa::CReferenceGroup: ");
    return out;
}

std::string CConstRefrence::AsString(const AsStringFormatEnum& format) const { return vexa::AsString(*this, format); }

} // namespace vexa
