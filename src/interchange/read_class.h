#ifndef VEXA_INTERCHANGE_READ_CLASS_H
#define VEXA_INTERCHANGE_READ_CLASS_H

#include <algorithm>

#include "interchange/read_check.h"
#include "interchange/read_plain.h"
#include "interchange/read_polymorphic.h"
#include "reference/union_member.h"

/// \file
/// Reading objects of described classes, member by member: what the text does not name stays as it is.

namespace vexa::interchange {

/// An object's part of CReadContext::Firsts, as long as it is open.
class CFirstsScope {
public:
    CFirstsScope(CReadContext& context, std::size_t count) : m_firsts(context.Firsts), m_base(m_firsts.Push(count)) {}
    CFirstsScope(const CFirstsScope&) = delete;
    CFirstsScope& operator=(const CFirstsScope&) = delete;
    ~CFirstsScope() { m_firsts.Pop(m_base); }

    std::size_t Base() const noexcept { return m_base; }

private:
    CFirsts& m_firsts;
    std::size_t m_base;
};

template<class Source>
bool CReader<Source>::ReadClass(const CClassInfor& infor, char* object, std::string_view tag)
{
    if (__builtin_expect(m_source.Peek() != EventKind::BEGIN_OBJECT, 0)) return WrongKind("an object");
    const std::size_t brace = m_source.Offset();
    if (!m_source.EnterObject()) return Broken();
    return ReadRest({&infor, object, false}, brace, tag);
}

/// Stands behind the brace, or behind the value of the tag.
template<class Source>
bool CReader<Source>::ReadRest(const CWholeObject& whole, std::size_t brace, std::string_view tag,
                               std::uint32_t firstTag)
{
    const CClassForm& form = m_context.Forms.Of(*whole.Infor);
    const CFirstsScope firsts(m_context, form.Members.size());
    CPathScope path(m_context);
    CObjectFrame frame{form, whole.Object, brace, firsts.Base(), m_context.Problems, tag, firstTag, 0, path.Step};
    const COpenScope open(m_context, frame);
    const bool isWhole = ReadKeys(frame);
    if (frame.Seldom != nullptr) Settle(frame);
    if (!isWhole) return false;
    path.Step.Kind = StepKind::NONE;
    if (!frame.Late.empty() && !ReadLateMembers(frame)) return false;
    if (!form.Required.empty() && !m_context.Policy.IgnoreRequired) TellMissing(frame);
    if (form.Notes != nullptr || !form.Flattened.empty()) CheckObject(frame);
    return true;
}

/// Steps onto the next key if it is written just like the member's; nothing has happened otherwise.
template<class Source>
inline bool CReader<Source>::NextKeyIs([[maybe_unused]] const CMember& member)
{
    if constexpr (IS_JSON)
        return m_source.NextKeyIs(member.JsonKey);
    else
        return false;
}

/// The key that comes next in the class is the most likely one.
template<class Source>
bool CReader<Source>::ReadKeys(CObjectFrame& frame)
{
    const CClassForm& form = frame.Form;
    const bool isPlain = IsPlainReading() && !form.HasNotes && !form.HasUnions;
    const CMember* next = form.Members.data();
    const CMember* const end = next + form.Members.size();
    CText key;
    for (;;) {
        const CMember* member = isPlain ? ReadPlainMembers(frame, next, end) : nullptr;
        bool isGuessed = member != nullptr;
        if (!isGuessed) {
            member = next;
            isGuessed = !isPlain && next != end && next->HasKey && NextKeyIs(*next);
        }
        if (__builtin_expect(!isGuessed, 0)) {
            if (!m_source.NextKey(key)) break;
            if (next == end || !next->HasKey || key.Text != next->Key) member = form.Find(key.Text);
        }
        if (__builtin_expect(member == nullptr, 0)) {
            frame.Step.Kind = StepKind::NONE;
            if (!TakeUnknownKey(frame, key)) return false;
            continue;
        }
        next = member + 1;
        frame.Step.To(*member);
        if (__builtin_expect(!isGuessed && member->Notes != nullptr, 0)) ToAlias(frame.Step, key.Text);
        if (!ReadMember(frame, *member)) return false;
    }
    frame.Step.Kind = StepKind::NONE;
    return !m_source.HasFailed() || Broken();
}

/// Likewise of those that a member has.
__attribute__((cold, noinline)) inline std::size_t ShortestKey(const CMember& member, BadText policy)
{
    std::size_t shortest = ShortestKey(member.Key, policy);
    if (member.Notes == nullptr) return shortest;
    for (const std::string& alias : member.Notes->Aliases)
        shortest = std::min(shortest, ShortestKey(alias, policy));
    return shortest;
}

template<class Source>
inline bool CReader<Source>::ReadMember(CObjectFrame& frame, const CMember& member)
{
    std::uint32_t& first = m_context.Firsts[frame.Base + member.Number];
    if (__builtin_expect(first != 0 && !m_context.Policy.LastDuplicateWins, 0))
        return TellDuplicate({}, first, ShortestKey(member, m_context.Policy.Text));
    first = FirstOf(m_source.Offset());
    if (__builtin_expect(frame.Form.HasNotes || frame.Form.HasUnions, 0)) return ReadNotedMember(frame, member);
    const bool isPlain = member.Kind == FormKind::BASIC && member.How == Held::DIRECT && !member.IsConst;
    if (isPlain && member.Code == Enum::DT_STD_STRING) // the most usual of all
        return ReadString(*reinterpret_cast<std::string*>(frame.Object + member.ValueOffset));
    return isPlain ? ReadBasic(member, frame.Object + member.ValueOffset) : ReadValue(member, frame.Object);
}

template<class Source>
bool CReader<Source>::ReadNotedMember(CObjectFrame& frame, const CMember& member)
{
    if (member.Notes != nullptr && member.Notes->IsReadOnly) return Refuse(ProblemCode::READ_ONLY);
    if (member.Infor->UnionSelector != nullptr) return ReadUnionMember(frame, member);
    const bool isBounded = member.Notes != nullptr && IsBounded(*member.Notes);
    if (!frame.Form.HasUnions && !isBounded) return ReadValue(member, frame.Object);
    m_source.Peek();
    const std::size_t begin = m_source.Offset();
    const std::size_t before = m_context.Problems;
    if (!(frame.Form.HasUnions ? ReadBesideUnions(frame, member) : ReadValue(member, frame.Object))) return false;
    if (isBounded && m_context.Problems == before) CheckMember(member, frame.Object, begin);
    return true;
}

/// \p shortest: see ShortestKey.
template<class Source>
__attribute__((cold, noinline)) bool CReader<Source>::TellDuplicate(CProblem problem, std::uint32_t first,
                                                                    std::size_t shortest)
{
    problem.Code = ProblemCode::DUPLICATE_KEY;
    if (first != FIRST_IS_FAR) {
        problem.Second.Offset = first - 1;
        problem.Second.Length = std::min(m_source.EndOffset() - m_source.Offset(), shortest);
        problem.Second.Length = KeyLengthAt(m_context.Text, problem.Second.Offset, problem.Second.Length);
    }
    Tell(std::move(problem), m_source.Offset(), m_source.EndOffset(), Secrecy::KEY);
    return m_source.Skip() || Broken();
}

/// What waits for the end of the object.
template<class Source>
__attribute__((cold, noinline)) void CReader<Source>::Settle(CObjectFrame& frame)
{
    CSeldomState& state = *frame.Seldom;
    if (state.IsKeeperOpen) {
        const CMember& keeper = frame.Form.Members[frame.Form.Keeper];
        state.Kept.InsertInto(keeper.ContainerInfor(), frame.Object + keeper.ValueOffset);
    }
    if (state.WrongTag) m_context.Add(std::move(*state.WrongTag), Secrecy::PLAIN);
}

/// Stands behind the key of a tag. \p first is where it has been met first.
template<class Source>
bool CReader<Source>::TakeTag(CObjectFrame& frame, const CText& key, std::uint32_t& first)
{
    if (first != 0 && !m_context.Policy.LastDuplicateWins) {
        CProblem problem;
        if (!IsMasked(m_context.Path)) {
            problem.Class = typeinfo::QualifiedNameOf(*frame.Form.Infor);
            problem.Attrib = key.Text;
        }
        return TellDuplicate(std::move(problem), first, ShortestKey(key.Text, m_context.Policy.Text));
    }
    first = FirstOf(m_source.Offset());
    return &first == &frame.FirstOwnTag ? TakeOwnTag(frame) : m_source.Skip() || Broken();
}

/// The policy goes before what the class says.
template<class Source>
__attribute__((noinline)) bool CReader<Source>::TakeUnknownKey(CObjectFrame& frame, const CText& key)
{
    const typeinfo::CClassNotes* const notes = frame.Form.Notes;
    if (!frame.Tag.empty() && key.Text == frame.Tag) return TakeTag(frame, key, frame.FirstTag);
    if (notes != nullptr && !notes->Tag.empty() && key.Text == notes->Tag)
        return TakeTag(frame, key, frame.FirstOwnTag);
    UnknownKeys rule = m_context.Policy.Unknown;
    if (rule == UnknownKeys::BY_CLASS) rule = notes != nullptr ? notes->Unknown : UnknownKeys::PROBLEM;
    if (rule == UnknownKeys::SKIP) return m_source.Skip() || Broken();
    return rule == UnknownKeys::KEEP && frame.Form.Keeper != CClassForm::NO_MEMBER ? KeepUnknown(frame, key)
                                                                                   : TellUnknownKey(frame, key);
}

/// The names of a confidential object's attributes are not shown, nor the keys that a confidential attribute keeps.
template<class Source>
__attribute__((cold, noinline)) bool CReader<Source>::TellUnknownKey(CObjectFrame& frame, const CText& key)
{
    CProblem problem;
    problem.Code = ProblemCode::UNKNOWN_KEY;
    problem.Class = typeinfo::QualifiedNameOf(*frame.Form.Infor);
    const bool isHidden = IsMasked(m_context.Path) || frame.Form.KeepsMasked();
    if (!isHidden) {
        CNearestName nearest(key.Text);
        for (const CMember& member : frame.Form.Members) {
            if (member.Number != frame.Form.Keeper) nearest.Offer(member.Key);
            if (member.Notes == nullptr) continue;
            for (const std::string& alias : member.Notes->Aliases)
                nearest.Offer(alias);
        }
        problem.Attrib = key.Text;
        problem.Nearest = nearest.Name();
    }
    Tell(std::move(problem), m_source.Offset(), m_source.EndOffset(), isHidden ? Secrecy::HIDDEN : Secrecy::KEY);
    return m_source.Skip() || Broken();
}

/// The keys that are kept are those of one object: the first empties the map.
template<class Source>
bool CReader<Source>::KeepUnknown(CObjectFrame& frame, const CText& key)
{
    const CMember& keeper = frame.Form.Members[frame.Form.Keeper];
    if (keeper.Kind != FormKind::MAP || keeper.How != Held::DIRECT) return TellUnknownKey(frame, key);
    char* const map = frame.Object + keeper.ValueOffset;
    CSeldomState& state = frame.SeldomState();
    if (!state.IsKeeperOpen && !SetAside(keeper, map)) return Refuse(ProblemCode::CANNOT_BE_MADE);
    state.IsKeeperOpen = true;
    frame.Step.To(keeper);
    const CFreshScope fresh(m_context);
    CPathScope path(m_context);
    return ReadMapEntry(keeper, map, key, path.Step, state.Kept);
}

/// An object whose class is known says what it is. Where of equal keys the last one counts, its word is waited for.
template<class Source>
bool CReader<Source>::TakeOwnTag(CObjectFrame& frame)
{
    const CClassForm& form = frame.Form;
    if (frame.Seldom != nullptr) frame.Seldom->WrongTag.reset();
    const EventKind kind = m_source.Peek();
    const std::size_t begin = m_source.Offset();
    CText value;
    if (!(kind == EventKind::STRING ? m_source.String(value) : m_source.Skip())) return Broken();
    const std::string& own = typeinfo::TagValueOf(*form.Infor);
    if (kind == EventKind::STRING && value.Text == own) return true;
    CProblem problem;
    problem.Code = ProblemCode::UNKNOWN_TAG;
    problem.Class = typeinfo::QualifiedNameOf(*form.Infor);
    problem.Attrib = form.Notes->Tag;
    problem.Expected = OneOf({own});
    problem.Found = kind == EventKind::STRING ? ShownText(value.Text) : std::string(PhraseOf(kind));
    if (kind == EventKind::STRING) problem.Nearest = NearestName(value.Text, std::vector<std::string>{own});
    problem.Place = {begin, IsLong(kind) ? 1 : m_source.EndOffset() - begin, 0, 0};
    if (m_context.Policy.LastDuplicateWins)
        frame.SeldomState().WrongTag = std::move(problem);
    else
        m_context.Add(std::move(problem), Secrecy::PLAIN);
    return true;
}

/// Told at the closing brace. The members of unions are required only while they are active.
template<class Source>
__attribute__((noinline)) void CReader<Source>::TellMissing(const CObjectFrame& frame)
{
    for (const std::uint32_t number : frame.Form.Required) {
        if (m_context.Firsts[frame.Base + number] != 0) continue;
        const CMember& member = frame.Form.Members[number];
        if (!reference::IsActiveWithSelectors(*member.Infor, frame.Object + member.OwnerOffset)) continue;
        CProblem problem;
        problem.Code = ProblemCode::MISSING_KEY;
        problem.Class = typeinfo::QualifiedNameOf(*member.Owner);
        problem.Attrib = member.Key;
        problem.Second.Offset = frame.Brace;
        problem.Second.Length = 1;
        const std::size_t end = m_source.EndOffset();
        Tell(std::move(problem), end - 1, end, Secrecy::KEY);
    }
}

} // namespace vexa::interchange

#endif
