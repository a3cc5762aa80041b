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

namespace vexa {

using namespace Enum;

namespace {

/// Where a value stands: how deep, and whether the first line of a class or container begins with a line break.
struct CPlace {
    unsigned long Level;
    bool BreaksLine;

    CPlace Inner(bool breaksLine) const { return {Level + 1, breaksLine}; }
};

class CRenderer {
public:
    CRenderer(std::string& out, AsStringFormatEnum format)
        : m_out(out), m_format(format), m_hasTypes(format == ASF_TYPE_AND_VALUE || format == ASF_TYPE_ONLY),
          m_hasValues(format != ASF_TYPE_ONLY)
    {
    }

    void Render(const CConstRefrence& ref)
    {
        if (!m_hasTypes) return RenderValue(ref, {0, true}, nullptr);
        m_out.append(ref.TypeName()).append(": ");
        if (m_hasValues) RenderValue(ref, {1, true}, nullptr);
    }

    /// A group by itself: with types, its entries stand below the header and then once more at its own level.
    template<class Group>
    void RenderGroupAlone(const Group& group, const char* header)
    {
        if (m_hasTypes) {
            m_out.append(header);
            RenderGroup(group, {1, true}, nullptr);
        }
        RenderGroup(group, {0, true}, nullptr);
    }

private:
    void RenderValue(const CConstRefrence& ref, CPlace place, const text::CNesting* outer)
    {
        const unsigned char code = ref.TypeInfor.DataType;
        if (IsAddressOnly(ref) && !ref.IsNull()) return RenderAddress(ref);
        if (ref.ValueAddress() == nullptr) return RenderFixed("NULL");
        if (code == DT_CUSTOM_BASIC) return RenderCustom(ref, place, outer);
        if (ref.TypeInfor.IsBasicType()) return ref.AsStdBasicType().AppendToString(m_out, false);
        if (code == DT_CLASS || ref.TypeInfor.IsContainer() || IsGroup(code)) return RenderNesting(ref, place, outer);
        if (code == DT_UNKNOWN) return RenderFixed("unkown");
        RenderRecord(ref, place, outer);
    }

    static bool IsGroup(unsigned char code) { return code == DT_GNL_CLASS || code == DT_REFERENCE_GROUP; }

    void RenderRecord(const CConstRefrence& ref, CPlace place, const text::CNesting* outer)
    {
        const void* const record = ref.ValueAddress();
        switch (ref.TypeInfor.DataType) {
        case DT_VALUE:
            return RenderValue(*static_cast<const CConstRefrence*>(record), place, outer); // it is a reference
        case DT_ROW: return text::AppendRow(m_out, *static_cast<const CRow*>(record), m_format);
        case DT_TABLE:
            return text::AppendTable(m_out, *static_cast<const CTable*>(record), m_format, 2 * place.Level,
                                     place.BreaksLine);
        default: LogUnsupported(ref);
        }
    }

    void RenderNesting(const CConstRefrence& ref, CPlace place, const text::CNesting* outer)
    {
        const text::CNesting nesting = outer != nullptr ? text::CNesting(*outer, ref) : text::CNesting(ref);
        if (!nesting.IsEntered()) return text::CNesting::LogNotEntered(ref);
        const unsigned char code = ref.TypeInfor.DataType;
        if (code == DT_CLASS)
            RenderClass(ref.AsClass(), place, nesting);
        else if (code == DT_GNL_CLASS)
            RenderGroup(*static_cast<const CGnlClass*>(ref.ValueAddress()), place, &nesting);
        else if (code == DT_REFERENCE_GROUP)
            RenderGroup(*static_cast<const CReferenceGroup*>(ref.ValueAddress()), place, &nesting);
        else
            RenderContainer(ref.AsContainer(), place, nesting);
    }

    void RenderFixed(const char* text)
    {
        if (m_hasValues) m_out.append(text);
    }

    /// Untyped memory: only where it is can be told.
    static bool IsAddressOnly(const CConstRefrence& ref)
    {
        return ref.TypeInfor.DataType == DT_VOID && ref.TypeInfor.Has(HF_POINTER);
    }
    void RenderAddress(const CConstRefrence& ref)
    {
        if (!m_hasValues) return;
        static const CGnlTypeInfor addressType(DT_UNSIGNED_LONG);
        CStdBasicTypeConstRefrence(addressType, ref.Address).AppendToString(m_out, false);
    }

    void RenderCustom(const CConstRefrence& ref, CPlace place, const text::CNesting* outer)
    {
        if (m_hasTypes) m_out.append(ref.TypeInfor.RealTypeName()).append(": ");
        if (!m_hasValues) return;
        reference::WithStandardValue(ref, [&](const CConstRefrence& value) { RenderValue(value, place, outer); });
    }

    void RenderClass(const CClassConstRefrence& object, CPlace place, const text::CNesting& nesting)
    {
        bool isFirst = true;
        for (const auto& attrib : object.Attribs()) {
            if (!isFirst || place.BreaksLine) BreakLine(place);
            isFirst = false;
            if (m_hasTypes) m_out.append(attrib.Infor().TypeInfor.TypeName()).append(" ");
            m_out.append(attrib.Name()).append(": ");
            if (attrib.Infor().IsMasked)
                RenderFixed("***");
            else if (m_hasValues)
                RenderValue(attrib.Value(), place.Inner(true), &nesting);
        }
    }

    /// The named entries, then the indexed ones.
    template<class Group>
    void RenderGroup(const Group& group, CPlace place, const text::CNesting* nesting)
    {
        bool isFirst = true;
        for (const auto& [name, ref] : group.Named)
            RenderEntry(name, ref, std::exchange(isFirst, false), place, nesting);
        for (std::size_t index = 0; index < group.Indexed.size(); ++index) {
            RenderEntry("column " + std::to_string(index), group.Indexed[index], index == 0, place, nesting);
        }
    }
    void RenderEntry(const std::string& name, const CConstRefrence& ref, bool isFirst, CPlace place,
                     const text::CNesting* nesting)
    {
        if (!isFirst || place.BreaksLine) BreakLine(place);
        if (m_hasTypes) m_out.append(ref.TypeName()).append(" ");
        m_out.append(name).append(": ");
        if (m_hasValues) RenderValue(ref, place.Inner(place.BreaksLine), nesting);
    }

    void RenderContainer(const CContainerConstRefrence& container, CPlace place, const text::CNesting& nesting)
    {
        if (container.TypeInfor.DataType == DT_ARRAY && container.TypeInfor.IsStringTypeEx()) {
            return RenderCharacters(container);
        }
        for (const CConstRefrence& element : container) {
            if (container.TypeInfor.DataType == DT_BITSET) {
                m_out += core::Load<bool>(element.Address) ? '1' : '0';
                continue;
            }
            // A container inside a container stays on one line: its elements are told apart by their dashes alone.
            if (place.BreaksLine) BreakLine(place);
            m_out.append("- ");
            RenderValue(element, place.Inner(false), &nesting);
        }
    }

    void RenderCharacters(const CContainerConstRefrence& array)
    {
        const auto* const text = static_cast<const char*>(array.ValueAddress());
        m_out.append(text, strnlen(text, array.Count()));
    }

    void BreakLine(CPlace place) { m_out.append(1, '\n').append(2 * place.Level, ' '); }

    static void LogUnsupported(const CConstRefrence& ref)
    {
        helper::LogError("It is not currently supported to convert %s types to strings", ref.TypeName().c_str());
    }

    std::string& m_out;
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
