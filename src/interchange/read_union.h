#ifndef VEXA_INTERCHANGE_READ_UNION_H
#define VEXA_INTERCHANGE_READ_UNION_H

#include <algorithm>

#include "interchange/read_class.h"
#include "interchange/read_set_aside.h"
#include "reference/saved_selector.h"
#include "reference/union_member.h"
#include "reference/union_watch.h"

/// \file
/// Reading objects with unions: only the active member is read, and its selector may stand behind it in the text.

namespace vexa::interchange {

/// Whether a member has been given, but not read yet.
inline bool Waits(const CObjectFrame& frame, const CMember& member)
{
    return std::any_of(frame.Late.begin(), frame.Late.end(),
                       [&](const CLateMember& late) { return late.Step.Member == &member; });
}

/// In how many unions, one inside the other, a member is.
inline unsigned int UnionDepth(const CMember& member)
{
    unsigned int depth = 0;
    for (const CAttribInfor* attrib = member.Infor; attrib->UnionSelector != nullptr; attrib = attrib->UnionSelector)
        ++depth;
    return depth;
}

/// Whether a selector that the text may still name, or that waits itself, decides about the member.
template<class Source>
bool CReader<Source>::SelectorMayCome(const CObjectFrame& frame, const CMember& member) const
{
    const CAttribInfor& selector = *member.Infor->UnionSelector;
    for (const CMember& other : frame.Form.Members) {
        const bool isIt = other.OwnerOffset == member.OwnerOffset && other.Infor->Offset == selector.Offset &&
                          other.Infor->TypeInfor.DataType == selector.TypeInfor.DataType;
        if (isIt && other.Infor->UnionSelector == selector.UnionSelector)
            return m_context.Firsts[frame.Base + other.Number] == 0 || Waits(frame, other);
    }
    return false;
}

/// What comes before its selector waits for it.
template<class Source>
bool CReader<Source>::ReadUnionMember(CObjectFrame& frame, const CMember& member)
{
    if (SelectorMayCome(frame, member)) {
        CLateMember& late = frame.Late.emplace_back();
        late.Step = frame.Step;
        return Hold(late.Value);
    }
    return ReadIfActive(frame, member);
}

template<class Source>
bool CReader<Source>::ReadIfActive(CObjectFrame& frame, const CMember& member)
{
    if (!reference::IsActiveWithSelectors(*member.Infor, frame.Object + member.OwnerOffset))
        return Refuse(ProblemCode::INACTIVE_MEMBER);
    m_source.Peek();
    const std::size_t begin = m_source.Offset();
    const std::size_t before = m_context.Problems;
    if (!ReadBesideUnions(frame, member)) return false;
    if (member.Notes != nullptr && m_context.Problems == before) CheckMember(member, frame.Object, begin);
    return true;
}

/// At the end of the object, in the order of the text, but selectors that are unions' members themselves before what
/// they decide about.
template<class Source>
__attribute__((noinline)) bool CReader<Source>::ReadLateMembers(CObjectFrame& frame)
{
    const std::vector<CLateMember> late = std::move(frame.Late);
    std::size_t left = late.size();
    for (unsigned int depth = 0; left != 0; ++depth) {
        for (const CLateMember& member : late) {
            if (UnionDepth(*member.Step.Member) != depth) continue;
            frame.Step = member.Step;
            if (!Replay(member.Value, [&](auto& reader) { reader.ReadIfActive(frame, *member.Step.Member); }))
                return false;
            --left;
        }
    }
    frame.Step.Kind = StepKind::NONE;
    return true;
}

/// The present value of a selector among the numbers by which members become active.
inline short SelectorValue(const CMember& member, const char* object)
{
    return CStdBasicTypeConstRefrence(member.Infor->TypeInfor, object + member.HolderOffset).As_short();
}

/// What a selector held before it was read.
struct COldSelector {
    reference::CSavedSelector Saved;
    short Value;
    bool IsReplaced = false; ///< what was active has given way
};

/// Reads an attribute that may be a selector: where it changes, what was active gives way to what becomes active.
template<class Source>
bool CReader<Source>::ReadBesideUnions(CObjectFrame& frame, const CMember& member)
{
    const CClassInfor& owner = *member.Owner;
    char* const object = frame.Object + member.OwnerOffset;
    if (!member.Infor->TypeInfor.IsBasicType() || !IsGuardingSelector(owner, *member.Infor))
        return ReadValue(member, frame.Object);
    m_source.Peek();
    const std::size_t begin = m_source.Offset();
    reference::CSavedSelector saved(member.Infor->TypeInfor, object + member.Infor->Offset);
    const auto old =
        std::make_shared<COldSelector>(COldSelector{std::move(saved), SelectorValue(member, frame.Object)});
    reference::CUnionWatch watch(owner, object);
    bool isWhole = false;
    {
        const CFreshScope fresh(m_context);
        isWhole = ReadValue(member, frame.Object);
    }
    const bool isNoted = NoteSelector(frame, member, old);
    old->IsReplaced = watch.Settle() && isNoted;
    if (!old->IsReplaced) Tell(ProblemCode::CANNOT_BE_MADE, begin, m_source.EndOffset());
    return isWhole;
}

/// Notes how a selector that has just been read gets its old value again. \return false where that cannot be: it has
/// it again, as after an exception.
template<class Source>
bool CReader<Source>::NoteSelector(CObjectFrame& frame, const CMember& member, const std::shared_ptr<COldSelector>& old)
{
    if (m_context.Undo == nullptr) return true;
    const CClassInfor& owner = *member.Owner;
    char* const object = frame.Object + member.OwnerOffset;
    try {
        if (SelectorValue(member, frame.Object) == old->Value || TakeOldMembers(frame, member, old->Value)) {
            m_context.Undo->SaveBy([&owner, object, old] {
                if (!old->IsReplaced) return;
                reference::CUnionWatch back(owner, object);
                old->Saved.PutBack();
                back.Settle();
            });
            return true;
        }
    } catch (...) {
        old->Saved.PutBack();
        throw;
    }
    old->Saved.PutBack();
    return false;
}

/// Takes what the members that were active hold into the undo record, so that nothing is left to be destroyed.
template<class Source>
bool CReader<Source>::TakeOldMembers(CObjectFrame& frame, const CMember& selector, short from)
{
    return frame.Form.IsTrueOfAll([&](const CMember& member) {
        const CAttribInfor& infor = *member.Infor;
        if (infor.UnionSelector == nullptr || infor.UnionAttribEnum != from) return true;
        if (member.OwnerOffset != selector.OwnerOffset || infor.UnionSelector->Offset != selector.Infor->Offset)
            return true;
        return TakeAway(m_context.Forms, *m_context.Undo, member, frame.Object);
    });
}

} // namespace vexa::interchange

#endif
