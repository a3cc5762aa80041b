#ifndef VEXA_INTERCHANGE_READ_POLYMORPHIC_H
#define VEXA_INTERCHANGE_READ_POLYMORPHIC_H

#include "interchange/nearest.h"
#include "interchange/read_held.h"

/// \file
/// Reading objects whose class the text tells, by a tag that may stand anywhere in the object.

namespace vexa::interchange {

template<class Source>
bool CReader<Source>::IsPolymorphic(const CForm& form)
{
    if (form.Kind != FormKind::CLASS) return false;
    const typeinfo::CClassNotes* const notes = typeinfo::NotesOf(form.ClassInfor());
    return notes != nullptr && !notes->Tag.empty();
}

/// The tag is most often the first key; else the object is kept and read again.
template<class Source>
bool CReader<Source>::ReadPolymorphic(const CClassInfor& base, CTaggedTarget& target)
{
    if (m_source.Peek() != EventKind::BEGIN_OBJECT) return WrongKind("an object");
    if constexpr (std::is_same_v<Source, CEventReader>) {
        if (m_source.Replay() != nullptr) return ReadPolymorphicAgain(base, target);
    }
    const std::size_t brace = m_source.Offset();
    CText key;
    if (!m_source.EnterObject()) return Broken();
    const bool hasKey = m_source.NextKey(key);
    if (m_source.HasFailed()) return Broken();
    const bool isFirstMeant = !m_context.Policy.LastDuplicateWins;
    if (hasKey && isFirstMeant && key.Text == typeinfo::NotesOf(base)->Tag) return ReadTagged(base, target, brace);
    CHeldValue held;
    const bool isWhole = Record(held, [&](const auto& count) {
        if (hasKey) return held.Own->AddRestOfObject(m_source, count, key, brace);
        held.Own->AddEmptyObject(brace, m_source.EndOffset());
        return true;
    });
    return isWhole && Replay(held, [&](auto& reader) { reader.ReadPolymorphicAgain(base, target); });
}

/// In a replay the tag is looked for first.
template<class Source>
bool CReader<Source>::ReadPolymorphicAgain(const CClassInfor& base, CTaggedTarget& target)
{
    if constexpr (std::is_same_v<Source, CEventReader>) {
        m_source.Peek();
        const CReplay& replay = *m_source.Replay();
        const std::string& tag = typeinfo::NotesOf(base)->Tag;
        const bool isLast = m_context.Policy.LastDuplicateWins;
        const std::size_t found = replay.Record().FindKey(replay.Position() - 1, tag, isLast);
        CWholeObject whole;
        bool isFound = false;
        if (found == CEventRecord::NOWHERE) {
            isFound = FindWithoutTag(base, target, whole);
        } else {
            const CEvent& value = replay.Record().At(found);
            const CTextPlace place{value.Offset, value.Length, 0, 0};
            isFound = FindByTag(base, target, value.Kind, value.Text, place, whole);
        }
        if (!isFound) return m_source.Skip();
        if (!whole.IsNew) return ReadClass(*whole.Infor, whole.Object, tag);
        const CFreshScope fresh(m_context);
        return ReadClass(*whole.Infor, whole.Object, tag);
    } else {
        return false;
    }
}

/// Stands behind the tag's key.
template<class Source>
bool CReader<Source>::ReadTagged(const CClassInfor& base, CTaggedTarget& target, std::size_t brace)
{
    const std::uint32_t first = FirstOf(m_source.Offset());
    const EventKind kind = m_source.Peek();
    CTextPlace place{m_source.Offset(), 1, 0, 0};
    std::string value;
    if (kind == EventKind::STRING) {
        CText text;
        if (!m_source.String(text)) return Broken();
        value = text.Text;
    } else if (!m_source.Skip()) {
        return Broken();
    }
    if (!IsLong(kind)) place.Length = m_source.EndOffset() - place.Offset;
    CWholeObject whole;
    if (!FindByTag(base, target, kind, value, place, whole)) return SkipRest();
    const std::string& tag = typeinfo::NotesOf(base)->Tag;
    if (!whole.IsNew) return ReadRest(whole, brace, tag, first);
    const CFreshScope fresh(m_context);
    return ReadRest(whole, brace, tag, first);
}

template<class Source>
bool CReader<Source>::SkipRest()
{
    CText key;
    while (m_source.NextKey(key))
        if (!m_source.Skip()) return Broken();
    return !m_source.HasFailed() || Broken();
}

/// The object that is there is filled if it is of the class, else a new one takes its place.
template<class Source>
bool CReader<Source>::FindByTag(const CClassInfor& base, CTaggedTarget& target, EventKind kind, std::string_view value,
                                const CTextPlace& place, CWholeObject& whole)
{
    typeinfo::CDerivedClass derived;
    if (kind == EventKind::STRING) derived = typeinfo::FindByTagValue(base, value);
    if (derived.Infor == nullptr) {
        TellUnknownTag(base, kind, value, place);
        return false;
    }
    whole.Infor = derived.Infor;
    if (const void* const object = target.Object()) {
        const void* begin = object;
        const CClassInfor& present = typeinfo::DynamicClassOf(base, object, begin);
        whole.Object = static_cast<char*>(const_cast<void*>(begin));
        if (&present == derived.Infor) return true;
    }
    const CGnlTypeInfor type(Enum::DT_CLASS, 0, derived.Infor);
    CMadeObject made(type);
    if (made.Get() == nullptr) {
        Tell(ProblemCode::CANNOT_BE_MADE, place.Offset, place.Offset + place.Length, {}, {}, Secrecy::PLAIN);
        return false;
    }
    whole.Object = made.Get();
    whole.IsNew = true;
    target.Adopt(made, *derived.Infor, derived.Offset);
    return true;
}

template<class Source>
bool CReader<Source>::FindWithoutTag(const CClassInfor& base, CTaggedTarget& target, CWholeObject& whole)
{
    if (const void* const object = target.Object()) {
        const void* begin = object;
        whole.Infor = &typeinfo::DynamicClassOf(base, object, begin);
        whole.Object = static_cast<char*>(const_cast<void*>(begin));
        return true;
    }
    const CGnlTypeInfor type(Enum::DT_CLASS, 0, &base);
    CMadeObject made(type);
    if (made.Get() == nullptr) {
        CProblem problem;
        problem.Code = ProblemCode::MISSING_TAG;
        problem.Class = typeinfo::QualifiedNameOf(base);
        problem.Attrib = typeinfo::NotesOf(base)->Tag;
        problem.Expected = OneOf(typeinfo::TagValuesOf(base));
        Tell(std::move(problem), m_source.Offset(), m_source.Offset() + 1, Secrecy::PLAIN);
        return false;
    }
    whole = {&base, made.Get(), true};
    target.Adopt(made, base, 0);
    return true;
}

template<class Source>
__attribute__((cold, noinline)) void CReader<Source>::TellUnknownTag(const CClassInfor& base, EventKind kind,
                                                                     std::string_view value, const CTextPlace& place)
{
    CProblem problem;
    const std::vector<std::string> known = typeinfo::TagValuesOf(base);
    problem.Code = ProblemCode::UNKNOWN_TAG;
    problem.Class = typeinfo::QualifiedNameOf(base);
    problem.Attrib = typeinfo::NotesOf(base)->Tag;
    problem.Expected = OneOf(known);
    problem.Found = kind == EventKind::STRING ? ShownText(value) : std::string(PhraseOf(kind));
    if (kind == EventKind::STRING) problem.Nearest = NearestName(value, known);
    Tell(std::move(problem), place.Offset, place.Offset + place.Length, Secrecy::PLAIN);
}

} // namespace vexa::interchange

#endif
