#include <vexa/detail/element_access.h>

#include <optional>
#include <utility>

#include <vexa/group.h>
#include <vexa/json_tree.h>
#include <vexa/table.h>

#include "access/element.h"
#include "access/step.h"
#include "reference/union_member.h"

namespace vexa {

using access::CInner;
using access::FormKind;
using detail::ShapeKind;

detail::CObjectSpot detail::ObjectOf(const CSpot& spot)
{
    static const std::list<CAttribInfor> NONE;
    interchange::CForms forms;
    const CInner inner = access::Innermost(forms, spot);
    const bool isObject = inner.Value != nullptr && (inner.Kind == FormKind::CLASS || inner.Kind == FormKind::PAIR);
    if (!isObject) return {nullptr, &NONE, nullptr, false};
    return {&inner.ClassInfor(), &inner.ClassInfor().AttribList, inner.Value, inner.IsConst};
}

bool detail::IsActive(const CAttribInfor& attrib, const void* object)
{
    return attrib.UnionSelector == nullptr || reference::IsActiveWithSelectors(attrib, object);
}

namespace {

/// What has a number of places.
std::size_t CountOfPlaces(interchange::CForms& forms, const CInner& inner)
{
    switch (inner.Kind) {
    case FormKind::ROW: return reinterpret_cast<CRow*>(inner.Value)->Size();
    case FormKind::TABLE: return reinterpret_cast<CTable*>(inner.Value)->Rows.size();
    case FormKind::GENERIC: return reinterpret_cast<CGnlClass*>(inner.Value)->Indexed.size();
    case FormKind::GROUP: return reinterpret_cast<CReferenceGroup*>(inner.Value)->Indexed.size();
    case FormKind::PAIR: return 2;
    case FormKind::SHAPE:
        if (inner.Shape->Kind == ShapeKind::JSON_TREE) return reinterpret_cast<CJsonTree*>(inner.Value)->Size();
        return inner.Shape->Kind == ShapeKind::TUPLE ? forms.Of(inner.CustomInfor()).Parts.size() : 0;
    default: return 0;
    }
}

bool IsContainer(FormKind kind)
{
    return kind == FormKind::SEQUENCE || kind == FormKind::ARRAY || kind == FormKind::CHAR_ARRAY ||
           kind == FormKind::INSERTED || kind == FormKind::MAP || kind == FormKind::PAIR_MAP;
}

/// The names of the entries that a group has; of what is none, nothing.
std::vector<std::string> NamesIn(const CInner& inner)
{
    std::vector<std::string> names;
    const auto add = [&names](const auto& record) {
        for (const auto& entry : record.Named)
            names.push_back(entry.first);
    };
    if (inner.Kind == FormKind::GENERIC) add(*reinterpret_cast<const CGnlClass*>(inner.Value));
    if (inner.Kind == FormKind::GROUP) add(*reinterpret_cast<const CReferenceGroup*>(inner.Value));
    return names;
}

} // namespace

/// Containers are walked by their cursors; everything else by place, named entries first.
struct detail::CElementWalk::CState {
    explicit CState(const CSpot& spot) : Spot(spot), Inner(access::Innermost(Forms, spot))
    {
        if (Inner.Value == nullptr) return;
        if (IsContainer(Inner.Kind)) {
            Form = &Forms.Of(Inner.ContainerInfor());
            Cursor.emplace(Inner.ContainerInfor(), Inner.Value);
        } else {
            Names = NamesIn(Inner);
            Count = Names.size() + CountOfPlaces(Forms, Inner);
        }
        Settle();
    }

    void Settle()
    {
        IsEnd = Form != nullptr ? Cursor->Element() == nullptr : Index == Count;
        if (IsEnd) return;
        Name = {};
        if (Form != nullptr)
            ToElement(Cursor->Element());
        else
            ToPlace();
        if (Value.IsConst) Value.Ref.TypeInfor.HoldingFlags |= Enum::HF_CONST;
    }

    void ToElement(char* element)
    {
        const bool isMap = Inner.Kind == FormKind::MAP || Inner.Kind == FormKind::PAIR_MAP;
        const CGnlTypeInfor& type = isMap ? *Form->Mapped.Type : Inner.ContainerInfor().ElementType;
        Value.IsConst = Inner.IsConst || Inner.Kind == FormKind::INSERTED;
        Value.Ref = CRefrence(type, isMap ? Form->Mapped.Holder(element) : element);
        if (!isMap) return;
        Key = CConstRefrence(*Form->Key.Type, Form->Key.Holder(element));
        Key.TypeInfor.HoldingFlags |= Enum::HF_CONST;
    }

    /// An entry without value has no address either.
    void ToPlace()
    {
        access::CPathPart part;
        part.Kind = Index < Names.size() ? access::PartKind::TEXT : access::PartKind::NUMBER;
        part.Text = Index < Names.size() ? Names[Index] : std::to_string(Index - Names.size());
        if (Inner.Kind == FormKind::SHAPE && Inner.Shape->Kind == ShapeKind::JSON_TREE) {
            auto& tree = *reinterpret_cast<CJsonTree*>(Inner.Value);
            if (tree.IsObject()) return ToMember(tree.Members()[Index]);
        }
        if (Index < Names.size()) Name = Names[Index];
        CProblem problem;
        Value = Spot;
        if (!access::Step(Forms, Value, part, problem)) Value.Ref = CRefrence();
    }
    void ToMember(CJsonTree::CMember& member)
    {
        Name = member.Key();
        Value.IsConst = Inner.IsConst;
        Value.Ref = CRefrence(Inner.Type, &member.Value);
    }

    interchange::CForms Forms;
    const CSpot Spot;
    const CInner Inner;
    const interchange::CContainerForm* Form = nullptr; ///< null for what has no cursor
    std::optional<access::CCursor> Cursor;
    std::vector<std::string> Names;
    std::size_t Count = 0;
    std::size_t Index = 0;
    bool IsEnd = true;
    CSpot Value;
    CConstRefrence Key;
    std::string_view Name;
};

detail::CElementWalk::CElementWalk(const CSpot& spot) : m_state(std::make_unique<CState>(spot)) {}
detail::CElementWalk::CElementWalk(CElementWalk&& other) noexcept = default;
detail::CElementWalk::~CElementWalk() = default;

bool detail::CElementWalk::IsEnd() const noexcept { return m_state->IsEnd; }
std::size_t detail::CElementWalk::Index() const noexcept { return m_state->Index; }
const CRefrence& detail::CElementWalk::Value() const noexcept { return m_state->Value.Ref; }
const CConstRefrence& detail::CElementWalk::Key() const noexcept { return m_state->Key; }
std::string_view detail::CElementWalk::Name() const noexcept { return m_state->Name; }

void detail::CElementWalk::Next()
{
    ++m_state->Index;
    if (m_state->Form != nullptr) m_state->Cursor->Next();
    m_state->Settle();
}

unsigned long detail::CountElements(const CSpot& spot)
{
    interchange::CForms forms;
    const CInner inner = access::Innermost(forms, spot);
    if (inner.Value == nullptr) return 0;
    if (!IsContainer(inner.Kind)) return NamesIn(inner).size() + CountOfPlaces(forms, inner);
    return CContainerConstRefrence(inner.Type, inner.Value).Count();
}

} // namespace vexa
