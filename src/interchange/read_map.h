#ifndef VEXA_INTERCHANGE_READ_MAP_H
#define VEXA_INTERCHANGE_READ_MAP_H

#include "interchange/read_container.h"

/// \file
/// Reading maps whose keys stand as keys of an object.

namespace vexa::interchange {

template<class Source>
bool CReader<Source>::ReadMap(const CForm& form, char* container)
{
    if (m_source.Peek() != EventKind::BEGIN_OBJECT) return WrongKind("an object");
    const CContainerInfor& infor = form.ContainerInfor();
    if (infor.Insert == nullptr || !SetAside(form, container)) return Refuse(ProblemCode::CANNOT_BE_MADE);
    if (!m_source.EnterObject()) return Broken();
    const CFreshScope fresh(m_context);
    CLateElements late;
    const bool isWhole = ReadMapEntries(form, container, late);
    late.InsertInto(infor, container);
    return isWhole;
}

/// Stands behind the brace. Where of equal keys the last one counts, the entries are left in \p late.
template<class Source>
bool CReader<Source>::ReadMapEntries(const CForm& form, char* container, CLateElements& late)
{
    CPathScope path(m_context);
    CText key;
    while (m_source.NextKey(key))
        if (!ReadMapEntry(form, container, key, path.Step, late)) return false;
    path.Step.Kind = StepKind::NONE; // the last key is gone
    return !m_source.HasFailed() || Broken();
}

inline bool IsTextKey(const CForm& key) noexcept
{
    return key.Code == Enum::DT_STD_STRING || (key.Shape != nullptr && key.Shape->Kind == detail::ShapeKind::TEXT);
}

/// Stands behind the key.
template<class Source>
bool CReader<Source>::ReadMapEntry(const CForm& form, char* container, const CText& key, CPathStep& step,
                                   CLateElements& late)
{
    const CContainerInfor& infor = form.ContainerInfor();
    const CContainerForm& parts = m_context.Forms.Of(infor);
    const CTextPlace place{m_source.Offset(), m_source.EndOffset() - m_source.Offset(), 0, 0};
    std::string name; // for the path, which needs it until the value has been read
    std::string_view shown = key.Text;
    if (!key.IsKept) shown = name = key.Text;
    step.To(IsTextKey(parts.Key) ? StepKind::TEXT_KEY : StepKind::OTHER_KEY, shown);
    bool isGood = false;
    if (m_context.Policy.LastDuplicateWins) {
        const bool isWhole = ReadLooseEntry(parts, late.Add(parts.Element), shown, place, isGood);
        if (!isGood) late.DropLast();
        return isWhole;
    }
    CLooseElement entry(parts.Element);
    if (!ReadLooseEntry(parts, entry, shown, place, isGood)) return false;
    if (!isGood) return true;
    const unsigned long count = infor.Count(container);
    entry.InsertInto(infor, container);
    if (infor.Count(container) == count)
        Tell(ProblemCode::DUPLICATE_KEY, place.Offset, place.Offset + place.Length, {}, {}, Secrecy::KEY);
    return true;
}

/// The value holds what could be read of it; where that is nothing, there is no entry. \param isGood whether there is
/// one
template<class Source>
bool CReader<Source>::ReadLooseEntry(const CContainerForm& parts, CLooseElement& entry, std::string_view key,
                                     const CTextPlace& place, bool& isGood)
{
    if (!CountOne()) return false;
    if (!entry.IsThere()) return Refuse(ProblemCode::CANNOT_BE_MADE);
    if (!SetKey(parts.Key, entry.Holder() + parts.Key.ValueOffset, key, place)) return m_source.Skip() || Broken();
    const std::size_t before = m_context.Problems;
    if (!ReadValue(parts.Mapped, entry.Holder())) return false;
    isGood = m_context.Problems == before || !IsPlainForm(parts.Mapped);
    return true;
}

/// \return false where the text is no such key, which has been told.
template<class Source>
bool CReader<Source>::SetKey(const CForm& form, char* key, std::string_view text, const CTextPlace& place)
{
    const std::size_t end = place.Offset + place.Length;
    if (form.Kind == FormKind::SHAPE && form.Shape->Kind == detail::ShapeKind::TEXT) {
        const auto& operations = form.ShapeOperations<detail::CTextOperations>();
        if (operations.Set != nullptr) {
            operations.Set(key, text);
            return true;
        }
        Tell(ProblemCode::CANNOT_BE_MADE, place.Offset, end, {}, {}, Secrecy::KEY);
        return false;
    }
    if (form.Code == Enum::DT_STD_STRING) {
        reinterpret_cast<std::string*>(key)->assign(text.data(), text.size());
        return true;
    }
    long long named = 0;
    if (form.Enumeration != nullptr && FindEnumerator(*form.Enumeration, text, named)) {
        std::memcpy(key, &named, form.Kind == FormKind::SHAPE ? 1 : form.Type->Sizeof()); // the least bytes come first
        return true;
    }
    const ProblemCode code = SetIntegerKey(form, key, text);
    if (code == ProblemCode::NONE) return true;
    CProblem problem;
    problem.Code = code;
    problem.Expected = "an integer";
    if (form.Enumeration != nullptr) {
        const std::vector<std::string> names = NamesOf(*form.Enumeration);
        problem.Code = ProblemCode::UNKNOWN_NAME;
        problem.Expected = OneOf(names);
        problem.Nearest = NearestName(text, names);
    }
    problem.Found = ShownText(text);
    Tell(std::move(problem), place.Offset, end, Secrecy::KEY);
    return false;
}

} // namespace vexa::interchange

#endif
