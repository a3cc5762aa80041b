#include "typeinfo/plan.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <new>

#include "core/basic_types.h"
#include "typeinfo/flat_names.h"
#include "typeinfo/kept_selectors.h"
#include "typeinfo/notes.h"

namespace vexa::typeinfo {

using namespace Enum;
using detail::CFinishedMark;

namespace {

Operation OperationOf(const CGnlTypeInfor& type)
{
    if (type.DataType == DT_CLASS) return Operation::CLASS;
    if (type.IsContainer() && type.DataType != DT_BITSET) return Operation::CONTAINER;
    const bool isBasic = core::VisitBasicType(type.DataType, [](auto) {});
    return isBasic ? static_cast<Operation>(type.DataType) : Operation::UNUSUAL;
}

} // namespace

// The null rules are those of CGnlTypeInfor: a pointer tells by itself, marked nullable or not; a wrapper's flag counts
// only when the type is marked so.
CValuePlan::CValuePlan(const CGnlTypeInfor& type, unsigned long offset)
    : Op(OperationOf(type)), HolderOffset(static_cast<std::uint32_t>(offset)), FlagOffset(HolderOffset),
      ValueOffset(HolderOffset), Type(&type)
{
    if (type.Has(HF_POINTER)) {
        Held = Holding::POINTER;
    } else if (type.WrapperKind() == HF_MAY_NULL) {
        Held = type.Has(HF_NULLABLE) ? Holding::FLAGGED : Holding::DIRECT;
        FlagOffset += type.NullFlagOffset;
        ValueOffset += type.ValueOffset;
    }
    if (Held == Holding::DIRECT && Op >= Operation::FIRST_BASIC) DirectCode = type.DataType;
    IsPlain = Held == Holding::DIRECT && !type.Has(HF_CONST);
}

CPlan::CPlan(const CClassInfor& infor) : m_hasUnions(!HiddenMembersOf(infor).empty())
{
    m_records.reserve(infor.AttribList.size());
    for (const CAttribInfor& attrib : infor.AttribList) {
        CRecordPlan& record = m_records.emplace_back(attrib.TypeInfor, attrib.Offset);
        record.Infor = &attrib;
        m_hasUnions = m_hasUnions || attrib.UnionSelector != nullptr;
        m_hasQuotedNames = m_hasQuotedNames || attrib.Name.find('"') != std::string::npos;
    }
    PlaceTexts();
}

/// Each record has `,"name":"name: ` and then what may be read with it.
void CPlan::PlaceTexts()
{
    std::size_t room = 0;
    for (const CRecordPlan& record : m_records)
        room += 2 * record.Infor->Name.size() + 7 + CRecordPlan::SPARE;
    m_texts.resize(room);
    std::vector<std::string_view> names;
    char* text = m_texts.data();
    for (CRecordPlan& record : m_records) {
        const std::string& name = record.Infor->Name;
        const bool isFirst = names.empty();
        record.Key = isFirst ? text + 1 : text;
        record.KeyLength = static_cast<std::uint32_t>(name.size() + (isFirst ? 3 : 4));
        *text++ = ',';
        *text++ = '"';
        text = std::copy(name.begin(), name.end(), text);
        *text++ = '"';
        *text++ = ':';
        *text++ = '"';
        if (record.DirectCode != 0) m_directKeys += record.KeyLength;
        record.Label = text;
        record.LabelLength = static_cast<std::uint32_t>(name.size() + 2);
        text = std::copy(name.begin(), name.end(), text);
        *text++ = ':';
        *text++ = ' ';
        text += CRecordPlan::SPARE;
        names.push_back(record.Name());
    }
    m_names = CNameTable(names);
}

CFlatNames::CFlatNames(const CClassInfor& infor)
{
    std::vector<std::string_view> names;
    for (const auto& [name, entry] : infor.FlatAttribMap) {
        names.emplace_back(name);
        m_entries.push_back(&entry);
    }
    m_names = CNameTable(names);
}

CContainerPlan::CContainerPlan(const CContainerInfor& infor) : m_element(infor.ElementType, 0), m_infor(&infor)
{
    m_stride = infor.Mark.Stride();
    if (infor.Mark.Is(CFinishedMark::VECTOR) && m_stride != 0)
        m_form = Form::VECTOR;
    else if (infor.Mark.Is(CFinishedMark::SLOTS) && m_stride != 0)
        m_form = Form::SLOTS;
    else if (infor.Begin != nullptr && infor.Next != nullptr && infor.Release != nullptr)
        m_form = Form::CURSOR;
    if (m_element.Op == Operation::UNUSUAL) m_form = Form::UNUSUAL;
}

namespace {

template<class Plan, class Finished>
const Plan* MakeAndPublish(const Finished& infor, std::atomic<const Plan*>& place) noexcept
{
    try {
        auto made = std::make_unique<const Plan>(infor);
        const Plan* published = nullptr;
        if (place.compare_exchange_strong(published, made.get(), std::memory_order_acq_rel)) published = made.release();
        return published;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

} // namespace

const CPlan* MakePlan(const CFinishedClass& infor) noexcept { return MakeAndPublish(infor, infor.Plan); }

const CContainerPlan* MakePlan(const CFinishedContainer& infor) noexcept { return MakeAndPublish(infor, infor.Plan); }

const CFlatNames* MakeFlatNames(const CFinishedClass& infor) noexcept { return MakeAndPublish(infor, infor.FlatNames); }

void ReleasePlan(const CClassInfor& infor) noexcept
{
    if (!infor.Mark.Is(CFinishedMark::DRAFT)) return;
    const auto& begun = static_cast<const CFinishedClass&>(infor);
    delete begun.Plan.load();
    delete begun.FlatNames.load();
    delete begun.Form.load();
    delete begun.Notes;
    delete begun.QualifiedName;
}

} // namespace vexa::typeinfo
