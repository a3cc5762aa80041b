#include "access/step.h"

#include <charconv>

#include <vexa/group.h>
#include <vexa/json_tree.h>
#include <vexa/table.h>

#include "access/element.h"
#include "interchange/nearest.h"
#include "interchange/read_phrase.h"
#include "reference/union_member.h"

namespace vexa::access {

using detail::ShapeKind;
using interchange::ShownText;

bool Fail(CProblem& problem, ProblemCode code, std::string expected, std::string found)
{
    problem.Code = code;
    problem.Expected = std::move(expected);
    problem.Found = std::move(found);
    return false;
}

std::string NameOfType(const CGnlTypeInfor& type)
{
    const bool isClass = type.DataType == Enum::DT_CLASS && type.DetailInfor != nullptr;
    return isClass ? typeinfo::QualifiedNameOf(*static_cast<const CClassInfor*>(type.DetailInfor))
                   : type.RealTypeName();
}

std::string ShownPart(const CPathPart& part)
{
    return part.Kind == PartKind::NAME || part.Kind == PartKind::TEXT ? ShownText(part.Text) : '[' + part.Text + ']';
}

namespace {

bool IsName(const CPathPart& part) { return part.Kind == PartKind::NAME || part.Kind == PartKind::TEXT; }

bool FailKind(CProblem& problem, const char* expected, const CPathPart& part)
{
    return Fail(problem, ProblemCode::WRONG_KIND, expected, ShownPart(part));
}

/// Moves a spot to a value that is no attribute.
void MoveTo(CSpot& spot, const CGnlTypeInfor& type, void* holder, const detail::CEnumerationSlot* names, bool isConst)
{
    spot.Ref = CRefrence(type, holder);
    spot.Names = names;
    spot.IsConst = isConst;
    spot.IsEntry = false;
    spot.Table = nullptr;
}

} // namespace

bool IndexOf(const CPathPart& part, unsigned long& index, CProblem& problem)
{
    if (part.Kind != PartKind::NUMBER) return FailKind(problem, "an index in brackets", part);
    const char* const end = part.Text.data() + part.Text.size();
    const auto result = std::from_chars(part.Text.data(), end, index);
    if (result.ec != std::errc() || result.ptr != end) index = ~0UL; // which no container reaches
    return true;
}

void TellNoElement(CProblem& problem, unsigned long count, bool isMasked)
{
    Fail(problem, ProblemCode::NO_ELEMENT);
    if (isMasked) return; // how many there are is nobody's business
    if (count == 0)
        problem.Found = "an empty container";
    else
        problem.Expected = "an index below " + std::to_string(count);
}

const CAttribInfor* FindAttrib(const CClassInfor& infor, const CPathPart& part, bool isMasked, CProblem& problem)
{
    if (!IsName(part)) {
        FailKind(problem, "the name of an attribute", part);
        return nullptr;
    }
    const auto found = infor.AttribNameMap.find(part.Text);
    if (found != infor.AttribNameMap.end() && found->second != nullptr) return found->second;
    problem.Code = ProblemCode::UNKNOWN_KEY;
    problem.Class = typeinfo::QualifiedNameOf(infor);
    if (isMasked) return nullptr;
    interchange::CNearestName nearest(part.Text);
    for (const CAttribInfor& attrib : infor.AttribList)
        nearest.Offer(attrib.Name);
    problem.Attrib = part.Text;
    problem.Nearest = nearest.Name();
    return nullptr;
}

void MoveToAttrib(CSpot& spot, const CClassInfor& infor, const CAttribInfor& attrib, char* object, bool isConst)
{
    const typeinfo::CMemberNotes* const notes = typeinfo::NotesOf(infor, attrib);
    const bool isKey = spot.IsEntry && &attrib == &infor.AttribList.front();
    MoveTo(spot, attrib.TypeInfor, object + attrib.Offset, notes != nullptr ? notes->Enumeration : nullptr,
           isConst || isKey);
    spot.Owner = &infor;
    spot.Attrib = &attrib;
    spot.IsReadOnly = spot.IsReadOnly || (notes != nullptr && notes->IsReadOnly);
    spot.IsMasked = spot.IsMasked || attrib.IsMasked != 0;
}

namespace {

bool StepToAttrib(CSpot& spot, const CInner& inner, const CPathPart& part, CProblem& problem)
{
    const CClassInfor& infor = inner.ClassInfor();
    const bool isPair = inner.Kind == FormKind::PAIR;
    if (isPair && part.Kind == PartKind::NUMBER) {
        unsigned long index = 0;
        IndexOf(part, index, problem);
        if (index > 1) return TellNoElement(problem, 2, spot.IsMasked), false;
        const CAttribInfor& attrib = index == 0 ? infor.AttribList.front() : infor.AttribList.back();
        MoveToAttrib(spot, infor, attrib, inner.Value, inner.IsConst);
        return true;
    }
    const CAttribInfor* const attrib = FindAttrib(infor, part, spot.IsMasked, problem);
    if (attrib == nullptr) return false;
    if (attrib->UnionSelector != nullptr && !reference::IsActiveWithSelectors(*attrib, inner.Value)) {
        problem.Class = typeinfo::QualifiedNameOf(infor);
        problem.Attrib = attrib->Name;
        return Fail(problem, ProblemCode::INACTIVE_MEMBER);
    }
    MoveToAttrib(spot, infor, *attrib, inner.Value, inner.IsConst);
    return true;
}

bool StepToElement(CForms& forms, CSpot& spot, const CInner& inner, const CPathPart& part, CProblem& problem)
{
    unsigned long index = 0;
    if (!IndexOf(part, index, problem)) return false;
    const CContainerInfor& infor = inner.ContainerInfor();
    unsigned long count = 0;
    char* const element = ElementAt(forms.Of(infor), infor, inner.Value, index, count);
    if (element == nullptr) return TellNoElement(problem, count, spot.IsMasked), false;
    MoveTo(spot, infor.ElementType, element, typeinfo::EnumerationOfElements(infor),
           inner.IsConst || inner.Kind == FormKind::INSERTED);
    spot.IsEntry = inner.Kind == FormKind::PAIR_MAP;
    return true;
}

bool StepToEntry(CForms& forms, CSpot& spot, const CInner& inner, const CPathPart& part, CProblem& problem)
{
    const CContainerInfor& infor = inner.ContainerInfor();
    const interchange::CContainerForm& form = forms.Of(infor);
    CMapKey key;
    if (!key.Set(form.Key, part, problem)) {
        if (problem.Code == ProblemCode::WRONG_KIND) problem.Found = ShownPart(part);
        return false;
    }
    char* const entry = EntryOf(infor, inner.Value, key);
    if (entry == nullptr) {
        Fail(problem, ProblemCode::NO_ENTRY);
        if (!spot.IsMasked) problem.Nearest = NearestKey(infor, inner.Value, form.Key, part.Text);
        return false;
    }
    problem = CProblem();
    MoveTo(spot, *form.Mapped.Type, form.Mapped.Holder(entry), form.Mapped.Enumeration, inner.IsConst);
    return true;
}

bool StepToPart(CForms& forms, CSpot& spot, const CInner& inner, const CPathPart& part, CProblem& problem)
{
    unsigned long index = 0;
    if (!IndexOf(part, index, problem)) return false;
    const interchange::CShapeForm& parts = forms.Of(inner.CustomInfor());
    if (index >= parts.Parts.size()) return TellNoElement(problem, parts.Parts.size(), spot.IsMasked), false;
    void* const place =
        inner.ShapeOperations<detail::CTupleOperations>().Part(inner.Value, static_cast<unsigned int>(index));
    MoveTo(spot, *parts.Parts[index].Type, place, parts.Parts[index].Enumeration, inner.IsConst);
    return true;
}

bool StepIntoTree(CSpot& spot, const CInner& inner, const CPathPart& part, CProblem& problem)
{
    auto& tree = *reinterpret_cast<CJsonTree*>(inner.Value);
    CJsonTree* found = nullptr;
    if (tree.IsArray()) {
        unsigned long index = 0;
        if (!IndexOf(part, index, problem)) return false;
        if (index >= tree.Size()) return TellNoElement(problem, tree.Size(), spot.IsMasked), false;
        found = &tree[index];
    } else if (tree.IsObject()) {
        if (!IsName(part)) return FailKind(problem, "a key", part);
        found = tree.Member(part.Text);
        if (found == nullptr) return Fail(problem, ProblemCode::NO_ENTRY);
    } else {
        return Fail(problem, tree.IsNull() ? ProblemCode::NULL_ON_THE_WAY : ProblemCode::WRONG_KIND,
                    "an array or object");
    }
    MoveTo(spot, inner.Type, found, nullptr, inner.IsConst);
    return true;
}

const CGnlTypeInfor VALUE_TYPE(Enum::DT_VALUE);
const CGnlTypeInfor ROW_TYPE(Enum::DT_ROW);

bool StepToColumn(const CSpot& spot, const CPathPart& part, unsigned long& index, CProblem& problem)
{
    interchange::CNearestName nearest(part.Text);
    index = spot.Table->ColumnIndex(part.Text);
    if (index != CTable::NO_COLUMN) return true;
    for (const CColumn& column : spot.Table->Columns)
        nearest.Offer(column.Name);
    Fail(problem, ProblemCode::NO_ENTRY);
    if (!spot.IsMasked) problem.Nearest = nearest.Name();
    return false;
}

bool StepIntoRow(CSpot& spot, const CInner& inner, const CPathPart& part, CProblem& problem)
{
    auto& row = *reinterpret_cast<CRow*>(inner.Value);
    unsigned long index = 0;
    const bool isColumn = IsName(part) && spot.Table != nullptr;
    if (!(isColumn ? StepToColumn(spot, part, index, problem) : IndexOf(part, index, problem))) return false;
    if (index >= row.Size()) return TellNoElement(problem, row.Size(), spot.IsMasked), false;
    MoveTo(spot, VALUE_TYPE, &row[index], nullptr, inner.IsConst);
    return true;
}

bool StepIntoTable(CSpot& spot, const CInner& inner, const CPathPart& part, CProblem& problem)
{
    auto& table = *reinterpret_cast<CTable*>(inner.Value);
    unsigned long index = 0;
    if (!IndexOf(part, index, problem)) return false;
    if (index >= table.Rows.size()) return TellNoElement(problem, table.Rows.size(), spot.IsMasked), false;
    MoveTo(spot, ROW_TYPE, &table.Rows[index], nullptr, inner.IsConst);
    spot.Table = &table;
    return true;
}

template<class Record>
bool StepIntoRecord(CSpot& spot, const CInner& inner, const CPathPart& part, CProblem& problem)
{
    auto& record = *reinterpret_cast<Record*>(inner.Value);
    const CConstRefrence* entry = nullptr;
    if (IsName(part)) {
        const auto found = record.Named.find(part.Text);
        if (found == record.Named.end()) {
            interchange::CNearestName nearest(part.Text);
            for (const auto& named : record.Named)
                nearest.Offer(named.first);
            Fail(problem, ProblemCode::NO_ENTRY);
            if (!spot.IsMasked) problem.Nearest = nearest.Name();
            return false;
        }
        entry = &found->second;
    } else {
        unsigned long index = 0;
        if (!IndexOf(part, index, problem)) return false;
        if (index >= record.Indexed.size()) return TellNoElement(problem, record.Indexed.size(), spot.IsMasked), false;
        entry = &record.Indexed[index];
    }
    if (entry->Address == nullptr) return Fail(problem, ProblemCode::NULL_ON_THE_WAY, "a value behind the entry");
    MoveTo(spot, entry->TypeInfor, entry->Address, nullptr, inner.IsConst);
    return true;
}

bool StepIntoShape(CForms& forms, CSpot& spot, const CInner& inner, const CPathPart& part, CProblem& problem)
{
    if (inner.Shape->Kind == ShapeKind::TUPLE) return StepToPart(forms, spot, inner, part, problem);
    if (inner.Shape->Kind == ShapeKind::JSON_TREE) return StepIntoTree(spot, inner, part, problem);
    if (inner.Shape->Kind == ShapeKind::BITS) return Fail(problem, ProblemCode::NO_ADDRESS);
    return Fail(problem, ProblemCode::WRONG_KIND, "an object or container", NameOfType(inner.Type));
}

} // namespace

bool Step(CForms& forms, CSpot& spot, const CPathPart& part, CProblem& problem)
{
    const CInner inner = Innermost(forms, spot);
    if (part.Kind == PartKind::ALL) return Fail(problem, ProblemCode::MANY_VALUES, "the way to one");
    if (inner.Value == nullptr) return Fail(problem, ProblemCode::NULL_ON_THE_WAY);
    switch (inner.Kind) {
    case FormKind::CLASS:
    case FormKind::PAIR: return StepToAttrib(spot, inner, part, problem);
    case FormKind::SEQUENCE:
    case FormKind::ARRAY:
    case FormKind::CHAR_ARRAY:
    case FormKind::INSERTED:
    case FormKind::PAIR_MAP: return StepToElement(forms, spot, inner, part, problem);
    case FormKind::MAP: return StepToEntry(forms, spot, inner, part, problem);
    case FormKind::BITSET: return Fail(problem, ProblemCode::NO_ADDRESS);
    case FormKind::ROW: return StepIntoRow(spot, inner, part, problem);
    case FormKind::TABLE: return StepIntoTable(spot, inner, part, problem);
    case FormKind::GENERIC: return StepIntoRecord<CGnlClass>(spot, inner, part, problem);
    case FormKind::GROUP: return StepIntoRecord<CReferenceGroup>(spot, inner, part, problem);
    case FormKind::SHAPE: return StepIntoShape(forms, spot, inner, part, problem);
    default: return Fail(problem, ProblemCode::WRONG_KIND, "an object or container", NameOfType(inner.Type));
    }
}

} // namespace vexa::access
