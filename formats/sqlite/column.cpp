// From a container's description to the columns of its table.

#include "column.h"

#include <algorithm>

#include <vexa/class_metadata.h>
#include <vexa/custom_type_infor.h>

namespace vexa::sqlite {

using namespace Enum;
using detail::ShapeKind;

const char* CHop::Follow(const char* at) const
{
    at += Offset;
    switch (Kind) {
    case HopKind::POINTER: {
        const char* value = nullptr;
        std::memcpy(&value, at, sizeof value);
        return value;
    }
    case HopKind::FLAG: return at[FlagOffset] != 0 ? nullptr : at + ValueOffset;
    case HopKind::OPTIONAL: return static_cast<const char*>(Optional->Get(at));
    case HopKind::UNION: {
        // Moves on to the next active member where this one is not.
        CConstRefrence active;
        auto position = Member;
        Owner->GetUnionAttrib(active, at, position);
        return position == Member ? at : nullptr;
    }
    }
    return nullptr;
}

std::string Lower(std::string_view text)
{
    std::string small(text);
    for (char& letter : small)
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    return small;
}

CColumns::CColumns(const CContainerInfor& container, const CSqlTableOptions& options, std::size_t limit)
    : m_options(options), m_limit(limit)
{
    const CGnlTypeInfor& element = container.ElementType;
    const bool isClass = element.DataType == DT_CLASS;
    const auto* const infor = isClass ? static_cast<const CClassInfor*>(element.DetailInfor) : nullptr;
    const bool isMap = container.Name.size() >= 3 && container.Name.compare(container.Name.size() - 3, 3, "map") == 0;
    if (isMap && isClass && infor->Name == "std::pair")
        AddPair(*infor);
    else
        AddHeld("", element, {}, detail::EnumerationOf(container));
}

/// A map's element: its object's attributes are columns as those of any other element.
void CColumns::AddPair(const CClassInfor& pair)
{
    AddAttrib("key", pair, pair.AttribList.begin(), {});
    AddAttrib("", pair, std::next(pair.AttribList.begin()), {});
}

void CColumns::AddClass(const std::string& prefix, const CClassInfor& infor, const CWay& way)
{
    if (m_open.size() > m_options.MaxDepth || std::find(m_open.begin(), m_open.end(), &infor) != m_open.end()) return;
    m_open.push_back(&infor);
    for (auto attrib = infor.AttribList.begin(); attrib != infor.AttribList.end() && !IsTooMany(); ++attrib)
        AddAttrib(prefix.empty() ? attrib->Name : prefix + '.' + attrib->Name, infor, attrib, way);
    m_open.pop_back();
}

void CColumns::AddAttrib(const std::string& name, const CClassInfor& owner, CClassInfor::AttribPosition attrib,
                         CWay way)
{
    if ((attrib->IsMasked != 0 && !m_options.ShowMasked) || MetadataOf(owner, *attrib).IsWriteOnly) return;
    if (attrib->UnionSelector != nullptr) {
        CHop& hop = way.Add(HopKind::UNION);
        hop.Owner = &owner;
        hop.Member = attrib;
    }
    way.Offset += attrib->Offset;
    AddHeld(name, attrib->TypeInfor, std::move(way), detail::EnumerationOf(owner, *attrib));
}

void CColumns::AddHeld(const std::string& name, const CGnlTypeInfor& type, CWay way,
                       const detail::CEnumerationSlot* names)
{
    if (type.Has(HF_POINTER)) {
        way.Add(HopKind::POINTER);
    } else if (type.WrapperKind() == HF_MAY_NULL && type.Has(HF_NULLABLE)) {
        CHop& hop = way.Add(HopKind::FLAG);
        hop.FlagOffset = type.NullFlagOffset;
        hop.ValueOffset = type.ValueOffset;
    } else if (type.WrapperKind() == HF_MAY_NULL) {
        way.Offset += type.ValueOffset;
    }
    if (type.DataType == DT_CLASS) return AddClass(name, *static_cast<const CClassInfor*>(type.DetailInfor), way);
    if (type.DataType == DT_CUSTOM_BASIC) return AddCustom(name, type, std::move(way));
    CColumn* const column = AddColumn(name, type, ReadingOf(type, names), std::move(way));
    if (column == nullptr || names == nullptr) return;
    for (unsigned long i = 0; i < names->Count; ++i)
        column->Names.emplace_back(names->Values[i], detail::NameOfValue(*names, names->Values[i]));
    std::sort(column->Names.begin(), column->Names.end());
}

void CColumns::AddCustom(const std::string& name, const CGnlTypeInfor& type, CWay way)
{
    const auto& custom = *static_cast<const CCustomBasicTypeInfor*>(type.DetailInfor);
    if (const detail::CShape* const shape = detail::ShapeOf(custom))
        return AddShape(name, type, *shape, std::move(way));
    const bool isStd = custom.Underlying.DataType != DT_UNKNOWN;
    if (isStd) way.Offset += static_cast<unsigned long>(custom.ValueOffset);
    AddColumn(name, isStd ? custom.Underlying : type, ReadingOf(isStd ? custom.Underlying : type, nullptr),
              std::move(way));
}

void CColumns::AddShape(const std::string& name, const CGnlTypeInfor& type, const detail::CShape& shape, CWay way)
{
    if (shape.Kind == ShapeKind::OPTIONAL || shape.Kind == ShapeKind::DURATION) {
        if (shape.Kind == ShapeKind::OPTIONAL)
            way.Add(HopKind::OPTIONAL).Optional = static_cast<const detail::COptionalOperations*>(shape.Operations);
        m_types.push_back(detail::MakeTypeInfor(shape.Parts[0]));
        const detail::CSlot* const slot = shape.Parts[0].Detail;
        const bool isNamed = slot != nullptr && slot->Form == detail::SlotForm::ENUMERATION;
        return AddHeld(name, m_types.back(), std::move(way),
                       isNamed ? static_cast<const detail::CEnumerationSlot*>(slot) : nullptr);
    }
    CColumn* const column = AddColumn(name, type, ReadingOf(shape), std::move(way));
    if (column != nullptr && shape.Kind == ShapeKind::TEXT)
        column->Text = static_cast<const detail::CTextOperations*>(shape.Operations);
}

CColumn* CColumns::AddColumn(const std::string& name, const CGnlTypeInfor& type, const CReading& reading, CWay way)
{
    if (reading.Reader == nullptr) return nullptr;
    m_types.push_back(type);
    m_types.back().HoldingFlags = 0;
    CColumn& column = m_columns.emplace_back();
    column.Name = FreeName(name.empty() ? "value" : name);
    column.Type = reading.Type;
    column.Reader = reading.Reader;
    column.Infor = &m_types.back();
    column.Way = std::move(way);
    column.ShowsMasked = m_options.ShowMasked;
    return &column;
}

std::string CColumns::FreeName(const std::string& name)
{
    std::string free = name;
    for (unsigned int number = 1; !m_taken.insert(Lower(free)).second; ++number)
        free = name + ':' + std::to_string(number);
    return free;
}

} // namespace vexa::sqlite
