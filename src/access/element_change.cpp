// Elements by their keys, added and removed.

#include <vexa/detail/element_access.h>

#include <vexa/detail/vector.h>
#include <vexa/json_tree.h>
#include <vexa/table.h>

#include "access/element.h"
#include "access/step.h"
#include "access/tell.h"
#include "interchange/path.h"
#include "interchange/read_container.h"

namespace vexa {

namespace {

using access::CInner;
using access::CPathPart;
using access::Fail;
using access::FormKind;
using access::PartKind;
using access::Tell;
using detail::CSpot;
using detail::ShapeKind;

CPathPart PartOf(const detail::CKeyText& key)
{
    CPathPart part;
    part.Text = key.Text;
    part.Kind = key.Form == detail::KeyForm::NAME   ? PartKind::NAME
                : key.Form == detail::KeyForm::TEXT ? PartKind::TEXT
                                                    : PartKind::NUMBER;
    return part;
}

/// The way to an element as a path has it.
std::string WayTo(const CPathPart& part)
{
    if (part.Kind == PartKind::NAME) return part.Text;
    std::string way = "[";
    if (part.Kind == PartKind::TEXT)
        interchange::AppendQuoted(way, part.Text);
    else
        way += part.Text;
    return way + ']';
}

/// \return false
bool Refuse(const CSpot& spot, CReport* report, ProblemCode code, std::string expected = {}, std::string found = {})
{
    CProblem problem;
    Fail(problem, code, std::move(expected), std::move(found));
    return Tell(report, std::move(problem), spot);
}

/// Whether a value can be added to or taken from.
bool IsOpenTo(const CSpot& spot, const CInner& inner, CReport* report)
{
    if (inner.Value == nullptr) return Refuse(spot, report, ProblemCode::NULL_ON_THE_WAY);
    return !inner.IsConst || Refuse(spot, report, ProblemCode::CANNOT_BE_CHANGED);
}

bool CanRemove(const CContainerInfor& infor)
{
    const typeinfo::CFinishedContainer* const finished = typeinfo::FinishedContainer(infor);
    return finished != nullptr && (finished->IsManaged || finished->Remove != nullptr);
}

/// Of a container that can.
void Remove(const CContainerInfor& infor, char* container, char* element)
{
    const typeinfo::CFinishedContainer& finished = *typeinfo::FinishedContainer(infor);
    if (finished.IsManaged)
        detail::RemoveFromVector(container, infor.Mark.Stride(), finished.Manage, element);
    else
        finished.Remove(container, element);
}

/// What is to be added, and how it gets its value.
struct CNewElement {
    const CSpot& Spot;
    const void* Key;
    detail::SetFunction SetKey;
    const void* Value;
    detail::SetFunction Set;
    CReport* Report;

    bool SetAt(const CRefrence& ref, const detail::CEnumerationSlot* names) const
    {
        CSpot place(ref, names);
        place.IsMasked = Spot.IsMasked;
        return Set(Value, place, Report);
    }
    bool SetKeyAt(const CRefrence& ref, const detail::CEnumerationSlot* names) const
    {
        CSpot place(ref, names);
        place.Ref.TypeInfor.HoldingFlags &= static_cast<unsigned char>(~static_cast<unsigned int>(Enum::HF_CONST));
        place.IsMasked = Spot.IsMasked;
        return SetKey(Key, place, Report);
    }
};

/// At the end; it goes again if it does not take the value.
bool AddToSequence(const CNewElement& added, const CInner& inner)
{
    const CContainerInfor& infor = inner.ContainerInfor();
    if (infor.Append == nullptr || !CanRemove(infor))
        return Refuse(added.Spot, added.Report, ProblemCode::CANNOT_BE_MADE);
    auto* const place = static_cast<char*>(infor.Append(inner.Value));
    const detail::CEnumerationSlot* const names = typeinfo::EnumerationOfElements(infor);
    try {
        if (added.SetAt(CRefrence(infor.ElementType, place), names)) return true;
    } catch (...) {
        Remove(infor, inner.Value, place);
        throw;
    }
    Remove(infor, inner.Value, place);
    return false;
}

/// To where its order or key puts it.
bool AddToAssociative(interchange::CForms& forms, const CNewElement& added, const CInner& inner)
{
    const CContainerInfor& infor = inner.ContainerInfor();
    const interchange::CContainerForm& form = forms.Of(infor);
    const bool isMap = inner.Kind != FormKind::INSERTED;
    if (isMap != (added.SetKey != nullptr))
        return Refuse(added.Spot, added.Report, ProblemCode::WRONG_KIND, isMap ? "a key and a value" : "a value alone");
    interchange::CLooseElement loose(form.Element);
    if (infor.Insert == nullptr || !loose.IsThere())
        return Refuse(added.Spot, added.Report, ProblemCode::CANNOT_BE_MADE);
    if (isMap) {
        const CRefrence key(*form.Key.Type, form.Key.Holder(loose.Holder()));
        const CRefrence value(*form.Mapped.Type, form.Mapped.Holder(loose.Holder()));
        const bool isSet = added.SetKeyAt(key, form.Key.Enumeration) && added.SetAt(value, form.Mapped.Enumeration);
        if (!isSet) return false;
    } else if (!added.SetAt(CRefrence(*form.Element.Type, loose.Holder()), form.Element.Enumeration)) {
        return false;
    }
    const unsigned long count = infor.Count(inner.Value);
    loose.InsertInto(infor, inner.Value);
    return infor.Count(inner.Value) != count || Refuse(added.Spot, added.Report, ProblemCode::DUPLICATE_KEY);
}

bool AddToRow(const CNewElement& added, const CInner& inner)
{
    auto& row = *reinterpret_cast<CRow*>(inner.Value);
    CValue value;
    if (!added.SetAt(CRefrence(CGnlTypeInfor(Enum::DT_VALUE), &value), nullptr)) return false;
    row.Append(std::move(value));
    return true;
}

bool EraseFromTree(const CInner& inner, const CPathPart& part)
{
    auto& tree = *reinterpret_cast<CJsonTree*>(inner.Value);
    return tree.IsObject() ? tree.Remove(std::string_view(part.Text)) : tree.Remove(std::stoul(part.Text));
}

} // namespace

detail::CSpot detail::SpotOfKey(const CSpot& spot, const CKeyText& key, CReport* report)
{
    interchange::CForms forms;
    CSpot found = spot;
    CProblem problem;
    const CPathPart part = PartOf(key);
    if (access::Step(forms, found, part, problem)) {
        if (found.IsConst) found.Ref.TypeInfor.HoldingFlags |= Enum::HF_CONST;
        return found;
    }
    const bool isOfValue = problem.Code == ProblemCode::NULL_ON_THE_WAY;
    Tell(report, std::move(problem), spot, isOfValue ? std::string() : WayTo(part));
    return CSpot();
}

bool detail::InsertElement(const CSpot& spot, const void* key, SetFunction setKey, const void* value, SetFunction set,
                           CReport* report)
{
    interchange::CForms forms;
    const CInner inner = access::Innermost(forms, spot);
    if (!IsOpenTo(spot, inner, report)) return false;
    const CNewElement added{spot, key, setKey, value, set, report};
    const bool isAlone = setKey == nullptr;
    if (inner.Kind == FormKind::SEQUENCE && isAlone) return AddToSequence(added, inner);
    if (inner.Kind == FormKind::ROW && isAlone) return AddToRow(added, inner);
    if (inner.Kind == FormKind::INSERTED || inner.Kind == FormKind::MAP || inner.Kind == FormKind::PAIR_MAP)
        return AddToAssociative(forms, added, inner);
    return Refuse(spot, report, ProblemCode::CANNOT_BE_MADE, {}, access::NameOfType(inner.Type));
}

bool detail::EraseElement(const CSpot& spot, const CKeyText& key, CReport* report)
{
    interchange::CForms forms;
    const CInner inner = access::Innermost(forms, spot);
    const CPathPart part = PartOf(key);
    if (!IsOpenTo(spot, inner, report)) return false;
    const CSpot found = SpotOfKey(spot, key, report);
    if (found.Ref.Address == nullptr) return false;
    auto* const element = static_cast<char*>(found.Ref.Address);
    switch (inner.Kind) {
    case FormKind::SEQUENCE:
    case FormKind::INSERTED:
    case FormKind::PAIR_MAP:
    case FormKind::MAP: {
        const CContainerInfor& infor = inner.ContainerInfor();
        if (!CanRemove(infor)) break;
        const bool isMap = inner.Kind == FormKind::MAP;
        Remove(infor, inner.Value, isMap ? element - forms.Of(infor).Mapped.HolderOffset : element);
        return true;
    }
    case FormKind::ROW: {
        auto& values = reinterpret_cast<CRow*>(inner.Value)->Values;
        values.erase(values.begin() + (reinterpret_cast<CValue*>(element) - values.data()));
        return true;
    }
    case FormKind::TABLE: {
        auto& rows = reinterpret_cast<CTable*>(inner.Value)->Rows;
        rows.erase(rows.begin() + (reinterpret_cast<CRow*>(element) - rows.data()));
        return true;
    }
    case FormKind::SHAPE:
        if (inner.Shape->Kind == ShapeKind::JSON_TREE) return EraseFromTree(inner, part);
        break;
    default: break;
    }
    return Refuse(spot, report, ProblemCode::CANNOT_BE_REMOVED);
}

} // namespace vexa
