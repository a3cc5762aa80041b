#ifndef VEXA_INTERCHANGE_READ_VARIANT_H
#define VEXA_INTERCHANGE_READ_VARIANT_H

#include <algorithm>

#include "interchange/read_container.h"
#include "interchange/read_fit.h"
#include "interchange/read_shape.h"

/// \file
/// Reading variants: by the tag of a class, else as the one alternative that the value fits.

namespace vexa::interchange {

inline constexpr unsigned int NO_ALTERNATIVE_FITS = detail::CVariantOperations::VALUELESS;

/// What takes such a value, by its kind alone.
struct CCandidates {
    unsigned int Count = 0;
    unsigned int First = NO_ALTERNATIVE_FITS;
};

inline CCandidates CandidatesOf(CForms& forms, const CShapeForm& shape, EventKind kind)
{
    CCandidates candidates;
    for (unsigned int i = 0; i < shape.Parts.size(); ++i)
        if (TakesKind(forms, shape.Parts[i], kind) && candidates.Count++ == 0) candidates.First = i;
    return candidates;
}

template<class Source>
bool CReader<Source>::ReadVariant(const CForm& form, char* variant)
{
    const CShapeForm& shape = m_context.Forms.Of(form.CustomInfor());
    const EventKind kind = m_source.Peek();
    const std::size_t begin = m_source.Offset();
    if (m_source.HasFailed()) return Broken();
    const CCandidates candidates = CandidatesOf(m_context.Forms, shape, kind);
    if (candidates.Count == 0) return Refuse(ProblemCode::NO_ALTERNATIVE);
    if (candidates.Count == 1) return ReadAlternative(form, variant, candidates.First);
    CHeldValue held;
    if (!Hold(held)) return Broken();
    const unsigned int chosen = ChooseAlternative(form, held, begin);
    if (chosen == NO_ALTERNATIVE_FITS) return !m_context.IsOver;
    return Replay(held, [&](auto& reader) { reader.ReadAlternative(form, variant, chosen); });
}

/// The value of the alternative is read into if the variant holds it already.
template<class Source>
bool CReader<Source>::ReadAlternative(const CForm& form, char* variant, unsigned int number)
{
    const auto& operations = form.ShapeOperations<detail::CVariantOperations>();
    const CForm& part = m_context.Forms.Of(form.CustomInfor()).Parts[number];
    if (operations.Index(variant) == number)
        return ReadValue(part, static_cast<char*>(const_cast<void*>(operations.Get(variant))));
    if (m_context.Undo != nullptr && !m_context.Undo->TakeCustom(form, variant))
        return Refuse(ProblemCode::CANNOT_BE_MADE);
    auto* const made = static_cast<char*>(operations.Make(variant, number));
    if (made == nullptr) return Refuse(ProblemCode::CANNOT_BE_MADE);
    const CFreshScope fresh(m_context);
    return ReadValue(part, made);
}

/// The tag that an alternative's class has; empty for none.
inline std::string_view TagOf(const CForm& part)
{
    if (part.Kind != FormKind::CLASS || part.How != Held::DIRECT) return {};
    const typeinfo::CClassNotes* const notes = typeinfo::NotesOf(part.ClassInfor());
    return notes != nullptr ? std::string_view(notes->Tag) : std::string_view();
}

/// \return the alternative whose class has the tag that the object says; none where it says none that is known.
inline unsigned int AlternativeByTag(const CShapeForm& shape, const CHeldValue& held, bool isLast)
{
    for (unsigned int i = 0; i < shape.Parts.size(); ++i) {
        const std::string_view tag = TagOf(shape.Parts[i]);
        if (tag.empty()) continue;
        const std::size_t value = held.Record->FindKey(held.First, tag, isLast);
        if (value == CEventRecord::NOWHERE) continue;
        const CEvent& event = held.Record->At(value);
        if (event.Kind == EventKind::STRING && event.Text == typeinfo::TagValueOf(shape.Parts[i].ClassInfor()))
            return i;
    }
    return NO_ALTERNATIVE_FITS;
}

/// A value is tried with all alternatives once, however often it is read again. \return none where a problem is told.
template<class Source>
unsigned int CReader<Source>::ChooseAlternative(const CForm& form, const CHeldValue& held, std::size_t begin)
{
    const CShapeForm& shape = m_context.Forms.Of(form.CustomInfor());
    const auto known = held.Record->Chosen.find({held.First, &shape});
    if (known != held.Record->Chosen.end()) return known->second;
    unsigned int chosen = AlternativeByTag(shape, held, m_context.Policy.LastDuplicateWins);
    bool isDoubtful = false;
    if (chosen == NO_ALTERNATIVE_FITS) chosen = FittingAlternative(shape, held, isDoubtful);
    if (m_context.IsOver) return NO_ALTERNATIVE_FITS;
    if (chosen != NO_ALTERNATIVE_FITS) {
        held.Record->Chosen[{held.First, &shape}] = chosen;
        return chosen;
    }
    TellNoAlternative(shape, held, isDoubtful, begin);
    return chosen;
}

/// An integer is rather an integer than a floating value.
template<class Source>
unsigned int CReader<Source>::FittingAlternative(const CShapeForm& shape, const CHeldValue& held, bool& isDoubtful)
{
    const EventKind kind = held.Begin().Kind;
    const bool isInteger = kind == EventKind::SIGNED || kind == EventKind::UNSIGNED;
    unsigned int fitting = NO_ALTERNATIVE_FITS;
    bool isExact = false;
    for (unsigned int i = 0; i < shape.Parts.size(); ++i) {
        const CForm& part = shape.Parts[i];
        const bool isOfKind = IsNumber(kind) && IsIntegerForm(part) == isInteger;
        if (!TakesKind(m_context.Forms, part, kind) || (isExact && !isOfKind) || m_context.IsOver) continue;
        if (!Fits(part, held)) continue;
        isDoubtful = fitting != NO_ALTERNATIVE_FITS && isExact == isOfKind;
        isExact = isOfKind;
        fitting = i;
    }
    return isDoubtful ? NO_ALTERNATIVE_FITS : fitting;
}

/// Tries the value with a new object, which goes again.
template<class Source>
bool CReader<Source>::Fits(const CForm& part, const CHeldValue& held)
{
    CForm plain = part;
    if (part.How == Held::FLAGGED) {
        if (held.Begin().Kind == EventKind::NULL_VALUE) return true;
        plain.How = Held::DIRECT;
        plain.ValueOffset = plain.HolderOffset;
    }
    CLooseElement tried(plain);
    if (!tried.IsThere()) return false;
    const CTrialScope trial(m_context);
    Replay(held, [&](auto& reader) { reader.ReadValue(plain, tried.Holder()); });
    return !trial.HasProblems();
}

/// Whether what a key gives can be nothing confidential: every alternative has it as its tag, or has no such attribute.
inline bool IsTagOfAll(CForms& forms, const CShapeForm& shape, std::string_view tag)
{
    return std::all_of(shape.Parts.begin(), shape.Parts.end(),
                       [&](const CForm& part) { return TagOf(part) == tag || !forms.ReachesMasked(part); });
}

template<class Source>
__attribute__((cold, noinline)) void CReader<Source>::TellNoAlternative(const CShapeForm& shape, const CHeldValue& held,
                                                                        bool isDoubtful, std::size_t begin)
{
    CProblem problem;
    problem.Code = isDoubtful ? ProblemCode::MANY_ALTERNATIVES : ProblemCode::NO_ALTERNATIVE;
    std::vector<std::string> tags;
    std::string_view said; // by the tag
    bool isText = false;
    std::size_t place = begin;
    std::size_t end = begin + std::max<std::size_t>(held.Begin().Length, 1);
    bool isTag = false;
    for (const CForm& part : shape.Parts) {
        const std::string_view tag = TagOf(part);
        if (tag.empty() || held.Begin().Kind != EventKind::BEGIN_OBJECT) continue;
        tags.push_back(typeinfo::TagValueOf(part.ClassInfor()));
        const std::size_t value = held.Record->FindKey(held.First, tag, m_context.Policy.LastDuplicateWins);
        if (value == CEventRecord::NOWHERE || isDoubtful) continue;
        const CEvent& event = held.Record->At(value);
        problem.Code = ProblemCode::UNKNOWN_TAG;
        problem.Attrib = tag;
        isTag = IsTagOfAll(m_context.Forms, shape, tag);
        isText = event.Kind == EventKind::STRING;
        said = event.Text;
        problem.Found = isText ? ShownText(said) : std::string(PhraseOf(event.Kind));
        place = event.Offset;
        end = place + event.Length;
    }
    if (isText) problem.Nearest = NearestName(said, tags);
    problem.Expected = isDoubtful ? std::string() : OneOf(tags);
    Tell(std::move(problem), place, end, isTag ? Secrecy::PLAIN : Secrecy::VALUE);
}

} // namespace vexa::interchange

#endif
