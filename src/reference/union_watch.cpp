#include "reference/union_watch.h"

#include <algorithm>

#include <vexa/container_infor.h>

#include "reference/union_member.h"

namespace vexa::reference {

using namespace Enum;

namespace {

bool IsResourceIn(const CAttribInfor& attrib, const CAttribInfor* selector)
{
    return attrib.UnionSelector == selector && HoldsResources(attrib.TypeInfor);
}

bool CanChangeHands(const CAttribInfor* member)
{
    return !HoldsResources(member->TypeInfor) || IsMadeInPlace(member->TypeInfor);
}

} // namespace

bool IsGuarded(const CClassInfor& infor, const CAttribInfor& attrib)
{
    if (attrib.UnionSelector == nullptr) return false;
    return std::any_of(infor.AttribList.begin(), infor.AttribList.end(),
                       [&](const CAttribInfor& other) { return IsResourceIn(other, attrib.UnionSelector); });
}

bool HasGuardedUnions(const CClassInfor& infor)
{
    if (infor.UnionEnumMap == nullptr) return false;
    return std::any_of(infor.AttribList.begin(), infor.AttribList.end(), [](const CAttribInfor& attrib) {
        return attrib.UnionSelector != nullptr && HoldsResources(attrib.TypeInfor);
    });
}

bool ContainsGuardedUnions(const CGnlTypeInfor& type)
{
    if (type.Has(HF_NULLABLE)) return false;
    if (type.DataType == DT_ARRAY)
        return ContainsGuardedUnions(static_cast<const CContainerInfor*>(type.DetailInfor)->ElementType);
    if (type.DataType != DT_CLASS) return false;
    const auto& infor = *static_cast<const CClassInfor*>(type.DetailInfor);
    return HasGuardedUnions(infor) ||
           std::any_of(infor.AttribList.begin(), infor.AttribList.end(), [](const CAttribInfor& attrib) {
               return !attrib.TypeInfor.Has(HF_POINTER) && ContainsGuardedUnions(attrib.TypeInfor);
           });
}

CUnionWatch::CUnionWatch(const CClassInfor& infor, void* object) : m_infor(&infor), m_object(object)
{
    if (infor.UnionEnumMap == nullptr) return;
    for (const CAttribInfor& attrib : infor.AttribList) {
        const CAttribInfor* const selector = attrib.UnionSelector;
        const bool isKnown = std::any_of(m_selected.begin(), m_selected.end(),
                                         [&](const CSelected& known) { return known.Selector == selector; });
        if (isKnown || !IsGuarded(infor, attrib)) continue;
        CSelected selected{selector, 0, std::make_unique<const CMadeValue>()};
        const CStdBasicTypeRefrence value = SelectorOf(selected);
        selected.Value = value.As_short();
        if (!value.IsNull()) AssignValue(selected.Whole->Get(), value);
        m_selected.push_back(std::move(selected));
    }
}

CUnionWatch::~CUnionWatch()
{
    try {
        Settle();
    } catch (...) { // the unions are as they were
    }
}

bool CUnionWatch::Settle()
{
    bool isSettled = true;
    while (!m_selected.empty()) {
        const CSelected selected = std::move(m_selected.back());
        m_selected.pop_back();
        const short value = SelectorOf(selected).As_short();
        if (value != selected.Value && !HandOver(selected, value)) isSettled = false;
    }
    return isSettled;
}

CStdBasicTypeRefrence CUnionWatch::SelectorOf(const CSelected& selected) const
{
    CStdBasicTypeRefrence selector;
    selector.TypeInfor = selected.Selector->TypeInfor;
    selector.Address = PlaceOf(*selected.Selector);
    return selector;
}

std::vector<const CAttribInfor*> CUnionWatch::MembersOf(const CAttribInfor* selector, short value) const
{
    std::vector<const CAttribInfor*> members;
    for (const CAttribInfor& attrib : m_infor->AttribList) {
        if (attrib.UnionSelector == selector && attrib.UnionAttribEnum == value) members.push_back(&attrib);
    }
    return members;
}

bool CUnionWatch::HandOver(const CSelected& selected, short value)
{
    const auto takeBack = [&] { SelectorOf(selected).ReadFrom(selected.Whole->AsRefrence()); };
    const auto from = MembersOf(selected.Selector, selected.Value);
    const auto to = MembersOf(selected.Selector, value);
    if (!std::all_of(from.begin(), from.end(), CanChangeHands) || !std::all_of(to.begin(), to.end(), CanChangeHands)) {
        takeBack();
        return false;
    }
    std::vector<CModelValue> models;
    try {
        for (const CAttribInfor* const member : to)
            models.emplace_back(member->TypeInfor);
    } catch (...) {
        takeBack();
        throw;
    }
    for (const CAttribInfor* const member : from)
        DestroyInPlace(member->TypeInfor, PlaceOf(*member));
    for (std::size_t i = 0; i < to.size(); ++i)
        models[i].MakeAt(PlaceOf(*to[i]));
    return true;
}

} // namespace vexa::reference
