// Following a path that has been resolved.

#include <cstring>

#include "access/bound_way.h"
#include "access/tell.h"
#include "reference/union_member.h"

namespace vexa {

namespace {

using detail::CBoundStep;
using detail::CBoundWay;
using detail::CSpot;
using Kind = CBoundStep::Kind;

/// Where the walk is in a container of a [*].
struct CLevel {
    const CLevel* Outer;
    const CBoundStep& Step;
    unsigned long Index;
    const char* Entry; ///< of a map; null otherwise
};

constexpr std::size_t ALL_LENGTH = 3;

/// The path with what each [*] stands for.
void AppendWay(std::string& way, std::string_view path, const CLevel* level, std::size_t end)
{
    if (level == nullptr) {
        way += path.substr(0, end);
        return;
    }
    AppendWay(way, path, level->Outer, level->Step.Way);
    const bool isEntry = level->Entry != nullptr;
    way.append("[").append(isEntry ? access::TextOfKey(level->Step.Form->Key, level->Entry)
                                   : std::to_string(level->Index));
    way += ']';
    const std::size_t behind = level->Step.Way + ALL_LENGTH;
    if (behind < end) way += path.substr(behind, end - behind);
}

class CFollower {
public:
    CFollower(const CBoundWay& way, bool isConst, CReport* report) : m_way(way), m_isConst(isConst), m_report(report) {}

    /// The place that the steps lead to; null with a problem.
    char* Single(char* at)
    {
        for (const CBoundStep& step : m_way.Steps) {
            char* const next = step.What != Kind::ALL ? Advance(step, at) : nullptr;
            if (next == nullptr) return TellFailure(step, at, nullptr);
            at = next;
        }
        return at;
    }
    bool All(char* at, void* context, detail::UseFunction use)
    {
        m_context = context;
        m_use = use;
        m_end = End();
        WalkFrom(0, at, nullptr);
        return m_isGood;
    }
    CSpot End() const
    {
        CSpot end = m_way.End;
        if (m_isConst) {
            end.IsConst = true;
            end.Ref.TypeInfor.HoldingFlags |= Enum::HF_CONST;
        }
        return end;
    }
    /// What is resolved with the object itself.
    bool TakeRest(CSpot& spot, const CLevel* level)
    {
        interchange::CForms forms;
        CProblem problem;
        std::size_t end = spot.Way.size();
        for (const access::CPathPart& part : m_way.Rest) {
            const bool wasMasked = spot.IsMasked;
            if (!access::Step(forms, spot, part, problem)) {
                const bool isOfValue = problem.Code == ProblemCode::NULL_ON_THE_WAY;
                Tell(std::move(problem), spot, isOfValue ? end : part.End, level);
                return false;
            }
            end = part.End;
            if (!wasMasked) spot.Way = std::string_view(m_way.Path).substr(0, end);
        }
        if (spot.IsConst) spot.Ref.TypeInfor.HoldingFlags |= Enum::HF_CONST;
        return true;
    }

private:
    /// Null where the step leads nowhere.
    char* Advance(const CBoundStep& step, char* at) const
    {
        char* const here = at + step.Offset;
        switch (step.What) {
        case Kind::POINTER: {
            char* pointee = nullptr;
            std::memcpy(&pointee, here, sizeof pointee);
            return pointee;
        }
        case Kind::FLAG: return *here == 0 ? at : nullptr;
        case Kind::OPTIONAL: {
            const auto& operations = *static_cast<const detail::COptionalOperations*>(step.Operations);
            return static_cast<char*>(const_cast<void*>(operations.Get(here)));
        }
        case Kind::VECTOR: {
            const auto [first, last] = detail::ElementsOf(true, 0, here);
            return step.Index < static_cast<unsigned long>(last - first) ? first + step.Index : nullptr;
        }
        case Kind::ELEMENT: {
            unsigned long count = 0;
            return access::ElementAt(*step.Form, *step.Infor, here, step.Index, count);
        }
        case Kind::ENTRY: return access::EntryOf(*step.Infor, here, m_way.Keys[step.Key]);
        case Kind::PART: {
            const auto& operations = *static_cast<const detail::CTupleOperations*>(step.Operations);
            return static_cast<char*>(operations.Part(here, static_cast<unsigned int>(step.Index)));
        }
        case Kind::ACTIVE: return reference::IsActiveWithSelectors(*step.Attrib, here) ? at : nullptr;
        case Kind::ALL: break;
        }
        return nullptr;
    }

    void WalkFrom(std::size_t number, char* at, const CLevel* level)
    {
        for (; number < m_way.Steps.size(); ++number) {
            const CBoundStep& step = m_way.Steps[number];
            if (step.What == Kind::ALL) return WalkAll(number, at + step.Offset, level);
            char* const next = Advance(step, at);
            if (next == nullptr) {
                TellFailure(step, at, level);
                return;
            }
            at = next;
        }
        m_end.Ref.Address = at + m_way.Offset;
        if (m_way.Rest.empty()) return m_use(m_context, m_end.Ref);
        CSpot spot = m_end;
        if (TakeRest(spot, level)) m_use(m_context, spot.Ref);
    }
    void WalkAll(std::size_t number, char* container, const CLevel* outer)
    {
        const CBoundStep& step = m_way.Steps[number];
        CLevel level{outer, step, 0, nullptr};
        if (step.Form->IsVector || step.Form->IsSlots) {
            auto [next, last] = detail::ElementsOf(step.Form->IsVector, step.Infor->Size, container);
            for (; next != last; next += step.Form->Stride, ++level.Index)
                WalkFrom(number + 1, next, &level);
            return;
        }
        for (access::CCursor cursor(*step.Infor, container); cursor.Element() != nullptr;
             cursor.Next(), ++level.Index) {
            if (step.IsMap) level.Entry = cursor.Element();
            WalkFrom(number + 1, cursor.Element(), &level);
        }
    }

    /// \return null
    __attribute__((cold, noinline)) char* TellFailure(const CBoundStep& step, char* at, const CLevel* level)
    {
        CProblem problem;
        switch (step.What) {
        case Kind::VECTOR:
        case Kind::ELEMENT: {
            unsigned long count = 0;
            access::ElementAt(*step.Form, *step.Infor, at + step.Offset, ~0UL, count);
            access::TellNoElement(problem, count, step.IsMasked);
            break;
        }
        case Kind::ENTRY: problem.Code = ProblemCode::NO_ENTRY; break;
        case Kind::ACTIVE:
            problem.Code = ProblemCode::INACTIVE_MEMBER;
            problem.Class = typeinfo::QualifiedNameOf(*step.Owner);
            problem.Attrib = step.Attrib->Name;
            break;
        case Kind::ALL: access::Fail(problem, ProblemCode::MANY_VALUES, "the way to one"); break;
        default: problem.Code = ProblemCode::NULL_ON_THE_WAY; break;
        }
        CSpot told;
        told.IsMasked = step.IsMasked;
        told.Way = m_way.End.Way;
        Tell(std::move(problem), told, step.What == Kind::ALL ? step.Way + ALL_LENGTH : step.Way, level);
        return nullptr;
    }
    void Tell(CProblem problem, const CSpot& spot, std::size_t end, const CLevel* level)
    {
        m_isGood = false;
        if (m_report == nullptr) return;
        std::string way;
        AppendWay(way, m_way.Path, level, end);
        access::Tell(m_report, std::move(problem), spot, way);
    }

    const CBoundWay& m_way;
    const bool m_isConst;
    CReport* m_report;
    void* m_context = nullptr;
    detail::UseFunction m_use = nullptr;
    CSpot m_end;
    bool m_isGood = true;
};

char* Place(const void* object) { return static_cast<char*>(const_cast<void*>(object)); }

} // namespace

detail::CPlainWay detail::PlainWayOf(const CBoundWay& way) noexcept
{
    CPlainWay plain;
    if (!way.IsPlain) return plain;
    const CGnlTypeInfor& type = way.End.Ref.TypeInfor;
    plain.Type = &type;
    plain.First = way.PlainSteps.data();
    plain.Last = plain.First + way.PlainSteps.size();
    plain.Offset = way.Offset;
    if ((type.HoldingFlags & ~static_cast<unsigned int>(Enum::HF_CONST)) == 0) plain.Code = type.DataType;
    return plain;
}

const std::string& detail::PathOf(const CBoundWay& way) noexcept { return way.Path; }
bool detail::LeadsToMany(const CBoundWay& way) noexcept { return way.IsMany; }

const void* detail::ObjectBehind(const CBoundWay& way, const CConstRefrence& ref, CReport* report)
{
    const void* const object = ref.ValueAddress();
    if (object != nullptr && ref.TypeInfor.DataType == Enum::DT_CLASS && ref.TypeInfor.DetailInfor == way.Infor)
        return object;
    CProblem problem;
    problem.Code = object == nullptr ? ProblemCode::NULL_ON_THE_WAY : ProblemCode::WRONG_KIND;
    problem.Expected = typeinfo::QualifiedNameOf(*way.Infor);
    if (object != nullptr) problem.Found = access::NameOfType(ref.TypeInfor);
    access::Tell(report, std::move(problem), CSpot());
    return nullptr;
}

const void* detail::TellOtherClass(const CBoundWay& way, const CClassInfor& infor, CReport* report)
{
    CProblem problem;
    access::Fail(problem, ProblemCode::WRONG_KIND, typeinfo::QualifiedNameOf(*way.Infor),
                 typeinfo::QualifiedNameOf(infor));
    access::Tell(report, std::move(problem), CSpot());
    return nullptr;
}

detail::CSpot detail::FollowWay(const CBoundWay& way, const void* object, bool isConst, CReport* report)
{
    CFollower follower(way, isConst, report);
    char* const place = follower.Single(Place(object));
    if (place == nullptr) return CSpot();
    CSpot spot = follower.End();
    spot.Ref.Address = place + way.Offset;
    return follower.TakeRest(spot, nullptr) ? spot : CSpot();
}

bool detail::ForEachOnWay(const CBoundWay& way, const void* object, bool isConst, void* context, UseFunction use,
                          CReport* report)
{
    return CFollower(way, isConst, report).All(Place(object), context, use);
}

} // namespace vexa
