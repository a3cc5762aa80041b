// Resolving a path once.

#include <algorithm>
#include <utility>

#include "access/bound_way.h"
#include "access/tell.h"

namespace vexa {

namespace {

using access::CForm;
using access::CPathPart;
using access::Fail;
using access::FormKind;
using access::PartKind;
using detail::CBoundStep;
using detail::CBoundWay;
using detail::CSpot;
using detail::ShapeKind;
using interchange::Held;

/// Whether some class that can stand for another, as far as they are known, has an attribute.
bool HasDerivedAttrib(const CClassInfor& infor, const std::string& name)
{
    for (const std::string& value : TagValuesOf(infor)) {
        const CClassInfor* const derived = FindByTagValue(infor, value).Infor;
        if (derived != nullptr && derived->AttribNameMap.count(name) != 0) return true;
    }
    return false;
}

class CBinder {
public:
    CBinder(CBoundWay& way, CReport* report) : m_way(way), m_spot(way.End), m_report(report)
    {
        m_spot.Ref.TypeInfor = CGnlTypeInfor(Enum::DT_CLASS, 0, way.Infor);
    }

    bool Bind()
    {
        access::CPathReader reader(m_way.Path);
        CPathPart part;
        while (reader.Next(part)) {
            const bool wasMasked = m_spot.IsMasked;
            if (!Take(part)) return false;
            m_end = part.End;
            if (!wasMasked) m_spot.Way = Way(m_end);
        }
        if (reader.Problem().Code != ProblemCode::NONE) return Tell(std::move(reader.Problem()), Way(reader.Place()));
        m_way.Offset = m_offset;
        if (m_spot.IsConst) m_spot.Ref.TypeInfor.HoldingFlags |= Enum::HF_CONST;
        SettlePlain();
        return true;
    }

private:
    struct CBefore {
        std::size_t Steps;
        unsigned long Offset;
        CSpot Spot;
    };

    std::string_view Way(std::size_t end) const { return std::string_view(m_way.Path).substr(0, end); }

    bool Take(const CPathPart& part)
    {
        if (!m_way.Rest.empty()) return TakeLater(part);
        CProblem problem;
        const CBefore before{m_way.Steps.size(), m_offset, m_spot};
        if (Open() && Resolve(part, problem)) return true;
        if (problem.Code != ProblemCode::NONE) return Tell(std::move(problem), Way(part.End));
        m_way.Steps.resize(before.Steps);
        m_offset = before.Offset;
        m_spot = before.Spot;
        return TakeLater(part);
    }
    /// What only the object tells.
    bool TakeLater(const CPathPart& part)
    {
        m_way.Rest.push_back(part);
        if (part.Kind != PartKind::ALL) return true;
        CProblem problem;
        Fail(problem, ProblemCode::MANY_VALUES, "containers that the class tells");
        return Tell(std::move(problem), Way(part.End));
    }
    bool Tell(CProblem problem, std::string_view way)
    {
        return access::Tell(m_report, std::move(problem), m_spot, way);
    }

    CBoundStep& Add(CBoundStep::Kind kind, std::size_t way)
    {
        CBoundStep& step = m_way.Steps.emplace_back();
        step.What = kind;
        step.Way = way;
        step.IsMasked = m_spot.IsMasked;
        step.Offset = static_cast<std::uint32_t>(std::exchange(m_offset, 0));
        return step;
    }
    /// A step that only looks: the place stays.
    CBoundStep& AddLook(CBoundStep::Kind kind, std::size_t way)
    {
        const unsigned long before = m_offset;
        CBoundStep& step = Add(kind, way);
        m_offset = before;
        return step;
    }
    const CGnlTypeInfor& Type() const { return m_spot.Ref.TypeInfor; }
    void MoveTo(const CGnlTypeInfor& type, const detail::CEnumerationSlot* names)
    {
        m_spot.Ref.TypeInfor = type;
        m_spot.Names = names;
        m_spot.IsEntry = false;
    }

    /// Steps into what holds the value. \return false where only the object tells what that is.
    bool Open()
    {
        m_isReached = false;
        for (;;) {
            const CForm form(Type(), 0, m_spot.Names);
            m_spot.IsConst = m_spot.IsConst || form.IsConst;
            OpenHolder(form);
            m_kind = form.Kind;
            m_spot.Ref.TypeInfor.HoldingFlags = 0;
            if (form.Kind != FormKind::SHAPE || form.Shape->Kind != ShapeKind::OPTIONAL)
                return form.Kind != FormKind::SHAPE || form.Shape->Kind != ShapeKind::VARIANT;
            Add(CBoundStep::Kind::OPTIONAL, m_end).Operations = form.Shape->Operations;
            const CForm& part = m_way.Forms.Of(form.CustomInfor()).Parts.front();
            MoveTo(*part.Type, part.Enumeration);
            m_isReached = true;
        }
    }
    void OpenHolder(const CForm& form)
    {
        if (form.How == Held::POINTER) {
            Add(CBoundStep::Kind::POINTER, m_end);
            m_isReached = true;
            return;
        }
        if (form.How == Held::FLAGGED) {
            CBoundStep& step = AddLook(CBoundStep::Kind::FLAG, m_end);
            step.Offset += form.FlagOffset;
        }
        m_offset += form.ValueOffset;
    }

    /// \return false with a problem, or without one where only the object tells.
    bool Resolve(const CPathPart& part, CProblem& problem)
    {
        switch (m_kind) {
        case FormKind::CLASS:
        case FormKind::PAIR: return Attrib(part, problem);
        case FormKind::SEQUENCE:
        case FormKind::ARRAY:
        case FormKind::CHAR_ARRAY:
        case FormKind::INSERTED:
        case FormKind::PAIR_MAP: return Element(part, problem);
        case FormKind::MAP: return Entry(part, problem);
        case FormKind::BITSET: return Fail(problem, ProblemCode::NO_ADDRESS);
        case FormKind::ROW:
        case FormKind::TABLE:
        case FormKind::GENERIC:
        case FormKind::GROUP: return false;
        case FormKind::SHAPE: return Shape(part, problem);
        default: return Fail(problem, ProblemCode::WRONG_KIND, "an object or container", access::NameOfType(Type()));
        }
    }
    const CClassInfor& ClassInfor() const { return *static_cast<const CClassInfor*>(Type().DetailInfor); }
    const CContainerInfor& ContainerInfor() const { return *static_cast<const CContainerInfor*>(Type().DetailInfor); }

    bool Attrib(const CPathPart& part, CProblem& problem)
    {
        const CClassInfor& infor = ClassInfor();
        const CAttribInfor* attrib = nullptr;
        if (m_kind == FormKind::PAIR && part.Kind == PartKind::NUMBER) {
            if (part.Text != "0" && part.Text != "1") return access::TellNoElement(problem, 2, m_spot.IsMasked), false;
            attrib = part.Text == "0" ? &infor.AttribList.front() : &infor.AttribList.back();
        } else {
            attrib = access::FindAttrib(infor, part, m_spot.IsMasked, problem);
        }
        if (attrib == nullptr) {
            const bool isOfDerived = problem.Code == ProblemCode::UNKNOWN_KEY && m_isReached &&
                                     !MetadataOf(infor).Tag.empty() && HasDerivedAttrib(infor, part.Text);
            if (isOfDerived) problem = CProblem();
            return false;
        }
        if (attrib->UnionSelector != nullptr) {
            CBoundStep& step = AddLook(CBoundStep::Kind::ACTIVE, part.End);
            step.Attrib = attrib;
            step.Owner = &infor;
        }
        access::MoveToAttrib(m_spot, infor, *attrib, nullptr, m_spot.IsConst);
        m_spot.Ref.Address = nullptr;
        m_offset += attrib->Offset;
        return true;
    }

    CBoundStep& AddContainer(CBoundStep::Kind kind, std::size_t way)
    {
        CBoundStep& step = Add(kind, way);
        step.Infor = &ContainerInfor();
        step.Form = &m_way.Forms.Of(*step.Infor);
        return step;
    }
    bool Element(const CPathPart& part, CProblem& problem)
    {
        const CContainerInfor& infor = ContainerInfor();
        const interchange::CContainerForm& form = m_way.Forms.Of(infor);
        unsigned long index = 0;
        if (part.Kind != PartKind::ALL && !access::IndexOf(part, index, problem)) return false;
        if (part.Kind == PartKind::ALL) {
            AddContainer(CBoundStep::Kind::ALL, m_end);
            m_way.IsMany = true;
        } else if (form.IsSlots) {
            const unsigned long count = infor.Size / form.Stride;
            if (index >= count) return access::TellNoElement(problem, count, m_spot.IsMasked), false;
            m_offset += index * form.Stride;
        } else {
            const bool isNear = form.IsVector && index < ~0UL / form.Stride;
            const auto kind = isNear ? CBoundStep::Kind::VECTOR : CBoundStep::Kind::ELEMENT;
            AddContainer(kind, part.End).Index = isNear ? index * form.Stride : index;
        }
        const bool isConst = m_kind == FormKind::INSERTED;
        const bool isEntry = m_kind == FormKind::PAIR_MAP;
        MoveTo(infor.ElementType, typeinfo::EnumerationOfElements(infor));
        m_spot.IsConst = m_spot.IsConst || isConst;
        m_spot.IsEntry = isEntry;
        return true;
    }
    bool Entry(const CPathPart& part, CProblem& problem)
    {
        const interchange::CContainerForm& form = m_way.Forms.Of(ContainerInfor());
        if (part.Kind == PartKind::ALL) {
            AddContainer(CBoundStep::Kind::ALL, m_end).IsMap = true;
            m_way.IsMany = true;
        } else {
            access::CMapKey key;
            if (!key.Set(form.Key, part, problem)) {
                if (problem.Code == ProblemCode::WRONG_KIND) problem.Found = access::ShownPart(part);
                return false;
            }
            problem = CProblem();
            AddContainer(CBoundStep::Kind::ENTRY, part.End).Key = m_way.Keys.size();
            m_way.Keys.push_back(std::move(key));
        }
        m_offset = form.Mapped.HolderOffset;
        MoveTo(*form.Mapped.Type, form.Mapped.Enumeration);
        return true;
    }
    bool Shape(const CPathPart& part, CProblem& problem)
    {
        const auto& infor = *static_cast<const CCustomBasicTypeInfor*>(Type().DetailInfor);
        const detail::CShape& shape = *typeinfo::ShapeOf(infor);
        if (shape.Kind == ShapeKind::JSON_TREE) return false;
        if (shape.Kind == ShapeKind::BITS) return Fail(problem, ProblemCode::NO_ADDRESS);
        if (shape.Kind != ShapeKind::TUPLE)
            return Fail(problem, ProblemCode::WRONG_KIND, "an object or container", access::NameOfType(Type()));
        unsigned long index = 0;
        if (!access::IndexOf(part, index, problem)) return false;
        const auto& parts = m_way.Forms.Of(infor).Parts;
        if (index >= parts.size()) return access::TellNoElement(problem, parts.size(), m_spot.IsMasked), false;
        CBoundStep& step = Add(CBoundStep::Kind::PART, part.End);
        step.Operations = shape.Operations;
        step.Index = index;
        MoveTo(*parts[index].Type, parts[index].Enumeration);
        return true;
    }

    void SettlePlain()
    {
        const auto isPlain = [](const CBoundStep& step) {
            return step.What == CBoundStep::Kind::POINTER || step.What == CBoundStep::Kind::VECTOR;
        };
        m_way.IsPlain = m_way.Rest.empty() && std::all_of(m_way.Steps.begin(), m_way.Steps.end(), isPlain);
        if (!m_way.IsPlain) return;
        for (const CBoundStep& step : m_way.Steps)
            m_way.PlainSteps.push_back({step.Offset, step.Index, step.What == CBoundStep::Kind::VECTOR});
    }

    CBoundWay& m_way;
    CSpot& m_spot;
    CReport* m_report;
    std::size_t m_end = 0;      ///< of the way so far
    unsigned long m_offset = 0; ///< from the place of the last step
    FormKind m_kind = FormKind::CLASS;
    bool m_isReached = false; ///< through a pointer
};

} // namespace

std::shared_ptr<const detail::CBoundWay> detail::BindPath(const CClassInfor& infor, std::string_view path,
                                                          CReport* report)
{
    auto way = std::make_shared<CBoundWay>();
    way->Infor = &infor;
    way->Path = path;
    if (!CBinder(*way, report).Bind()) way = nullptr;
    return way;
}

} // namespace vexa
