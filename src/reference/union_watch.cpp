#include "reference/union_watch.h"

#include <algorithm>
#include <utility>

#include <vexa/container_infor.h>

#include "reference/union_member.h"
#include "typeinfo/kept_selectors.h"

namespace vexa::reference {

using namespace Enum;

namespace {

const std::list<CAttribInfor>& Hidden(const CClassInfor& infor) { return typeinfo::HiddenMembersOf(infor); }

/// Whether a test holds for a union member of the class, shown or hidden.
template<class Test>
bool AnyUnionMember(const CClassInfor& infor, Test&& test)
{
    const auto isOne = [&](const CAttribInfor& attrib) { return attrib.UnionSelector != nullptr && test(attrib); };
    return std::any_of(infor.AttribList.begin(), infor.AttribList.end(), isOne) ||
           std::any_of(Hidden(infor).begin(), Hidden(infor).end(), isOne);
}

/// A selector may have several records: it is told by its place.
bool IsSame(const CAttribInfor& selector, const CAttribInfor& other)
{
    return &selector == &other ||
           (selector.Offset == other.Offset && selector.TypeInfor.DataType == other.TypeInfor.DataType);
}

/// The selector of the outermost union around a union member.
const CAttribInfor& OutermostSelector(const CAttribInfor& member)
{
    const CAttribInfor* selector = member.UnionSelector;
    for (int depth = 1; depth < MAX_UNION_DEPTH && selector->UnionSelector != nullptr; ++depth)
        selector = selector->UnionSelector;
    return *selector;
}

bool IsSelector(const CClassInfor& infor, const CAttribInfor& attrib)
{
    return AnyUnionMember(infor, [&](const CAttribInfor& member) { return IsSame(*member.UnionSelector, attrib); });
}

bool CanChangeHands(const CClassInfor& infor, const CAttribInfor& member)
{
    return !IsSelector(infor, member) && (!HoldsResources(member.TypeInfor) || IsMadeInPlace(member.TypeInfor));
}

/// Hands a union over from one value of its selector to another. Nothing is changed until nothing can fail.
class CHandOver {
public:
    CHandOver(const CClassInfor& infor, void* object) : m_infor(infor), m_object(static_cast<char*>(object)) {}

    /// \return false when a member cannot change hands.
    bool Prepare(const CAttribInfor& selector, short from, short to)
    {
        return !AnyUnionMember(m_infor, [&](const CAttribInfor& member) {
            const short value = member.UnionAttribEnum;
            if ((value != from && value != to) || !IsSame(*member.UnionSelector, selector)) return false;
            if (!CanChangeHands(m_infor, member)) return true;
            char* const place = m_object + member.Offset;
            if (value == from)
                m_old.Add(member.TypeInfor, place);
            else
                m_new.emplace_back(place, member.TypeInfor);
            return false;
        });
    }
    void Run()
    {
        m_old.Run();
        for (const auto& [place, model] : m_new)
            model.MakeAt(place);
    }

private:
    const CClassInfor& m_infor;
    char* m_object;
    CDestruction m_old;
    std::vector<std::pair<void*, CModelValue>> m_new;
};

} // namespace

bool IsGuarded(const CClassInfor& infor, const CAttribInfor& attrib)
{
    if (attrib.UnionSelector == nullptr) return false;
    const CAttribInfor& outermost = OutermostSelector(attrib);
    return AnyUnionMember(infor, [&](const CAttribInfor& member) {
        return IsSame(OutermostSelector(member), outermost) && HoldsResources(member.TypeInfor);
    });
}

bool IsOpen(const CClassInfor& infor, const CAttribInfor& attrib, const void* object)
{
    return IsActiveWithSelectors(attrib, object) || !IsGuarded(infor, attrib);
}

bool HasGuardedUnions(const CClassInfor& infor)
{
    if (infor.UnionEnumMap == nullptr && Hidden(infor).empty()) return false;
    return AnyUnionMember(infor, [](const CAttribInfor& member) { return HoldsResources(member.TypeInfor); });
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
    if (!HasGuardedUnions(infor)) return;
    AnyUnionMember(infor, [&](const CAttribInfor& member) {
        if (!IsWatched(*member.UnionSelector) && IsGuarded(infor, member)) Watch(*member.UnionSelector);
        return false;
    });
}

CUnionWatch::~CUnionWatch()
{
    while (!m_selected.empty()) {
        try {
            Settle();
        } catch (...) { // the union is as it was
        }
    }
}

bool CUnionWatch::IsWatched(const CAttribInfor& selector) const
{
    return std::any_of(m_selected.begin(), m_selected.end(),
                       [&](const CSelected& known) { return IsSame(*known.Selector, selector); });
}

/// A selector that is not active is none: another member has its bytes.
void CUnionWatch::Watch(const CAttribInfor& selector)
{
    if (!IsActiveWithSelectors(selector, m_object)) return;
    m_selected.push_back({&selector, ValueOf(selector), CSavedSelector(selector.TypeInfor, PlaceOf(selector))});
}

bool CUnionWatch::Settle()
{
    bool isSettled = true;
    while (!m_selected.empty())
        isSettled = SettleLast() && isSettled;
    return isSettled;
}

short CUnionWatch::ValueOf(const CAttribInfor& selector) const
{
    return CStdBasicTypeConstRefrence(selector.TypeInfor, PlaceOf(selector)).As_short();
}

bool CUnionWatch::SettleLast()
{
    CSelected selected = std::move(m_selected.back());
    m_selected.pop_back();
    const short value = ValueOf(*selected.Selector);
    if (value == selected.Value) return true;
    CHandOver handOver(*m_infor, m_object);
    try {
        if (handOver.Prepare(*selected.Selector, selected.Value, value)) {
            handOver.Run();
            return true;
        }
    } catch (...) {
        selected.Saved.PutBack();
        throw;
    }
    selected.Saved.PutBack();
    return false;
}

} // namespace vexa::reference
