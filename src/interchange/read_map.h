#ifndef VEXA_INTERCHANGE_READ_MAP_H
#define VEXA_INTERCHANGE_READ_MAP_H

#include "interchange/read_container.h"

/// \file
/// Reading maps whose keys stand as keys of an object.

namespace vexa::interchange {

template<class Source>
bool CReader<Source>::ReadMap(const CForm& form, char* container)
{
    if (m_source.Peek() != EventKind::BEGIN_OBJECT) return WrongKind("an object", form);
    const CContainerInfor& infor = form.ContainerInfor();
    if (infor.Insert == nullptr || !SetAside(form, container)) return Refuse(ProblemCode::CANNOT_BE_MADE);
    if (!m_source.EnterObject()) return Broken();
    const CFreshScope fresh(m_context);
    CPathScope path(m_context);
    CText key;
    while (m_source.NextKey(key))
        if (!ReadMapEntry(form, container, key, path.Step)) return false;
    path.Step.Kind = StepKind::NONE; // the last key is gone
    return !m_source.HasFailed() || Broken();
}

inline bool IsTextKey(const CForm& key) noexcept
{
    return key.Code == Enum::DT_STD_STRING || (key.Shape != nullptr && key.Shape->Kind == detail::ShapeKind::TEXT);
}

/// Stands behind the key. The value holds what could be read of it; where that is nothing, there is no entry.
template<class Source>
bool CReader<Source>::ReadMapEntry(const CForm& form, char* container, const CText& key, CPathStep& step)
{
    const CContainerInfor& infor = form.ContainerInfor();
    const CContainerForm& parts = m_context.Forms.Of(infor);
    const CTextPlace place{m_source.Offset(), m_source.EndOffset() - m_source.Offset(), 0, 0};
    CLooseElement entry(parts.Element);
    if (!entry.IsThere()) return Refuse(ProblemCode::CANNOT_BE_MADE);
    std::string name; // for the path, which needs it until the value has been read
    std::string_view shown = key.Text;
    if (!key.IsKept) shown = name = key.Text;
    step.To(IsTextKey(parts.Key) ? StepKind::TEXT_KEY : StepKind::OTHER_KEY, shown);
    if (!SetKey(parts.Key, entry.Holder() + parts.Key.ValueOffset, shown, place)) return m_source.Skip() || Broken();
    if (m_context.Policy.LastDuplicateWins) return ReadLastEntry(form, container, entry);
    const std::size_t before = m_context.Problems;
    if (!ReadValue(parts.Mapped, entry.Holder())) return false;
    if (m_context.Problems != before && IsPlainForm(parts.Mapped)) return true;
    const unsigned long count = infor.Count(container);
    entry.InsertInto(infor, container);
    if (infor.Count(container) != count) return true;
    Tell(ProblemCode::DUPLICATE_KEY, place.Offset, place.Offset + place.Length);
    return true;
}

/// The address of the entry that has the key of another.
inline char* FindEntry(const CContainerInfor& infor, const CForm& key, char* container, const char* wanted)
{
    const CGnlTypeInfor type(key.Code);
    const auto textOf = [&](const char* entry) {
        return CStdBasicTypeConstRefrence(type, entry + key.ValueOffset).As_std_string();
    };
    void* entry = nullptr;
    void* const cursor = infor.Begin(container, &entry);
    if (cursor == nullptr) return nullptr;
    while (entry != nullptr && textOf(static_cast<char*>(entry)) != textOf(wanted))
        entry = infor.Next(container, cursor);
    infor.Release(cursor);
    return static_cast<char*>(entry);
}

/// An entry that is there already is read into anew.
template<class Source>
bool CReader<Source>::ReadLastEntry(const CForm& form, char* container, CLooseElement& entry)
{
    const CContainerInfor& infor = form.ContainerInfor();
    const CContainerForm& parts = m_context.Forms.Of(infor);
    const bool isBasic = parts.Key.Kind == FormKind::BASIC || parts.Key.Kind == FormKind::ENUMERATION;
    if (char* const old = isBasic ? FindEntry(infor, parts.Key, container, entry.Holder()) : nullptr) {
        reference::Empty(CRefrence(*parts.Mapped.Type, parts.Mapped.Holder(old)));
        return ReadValue(parts.Mapped, old);
    }
    if (!ReadValue(parts.Mapped, entry.Holder())) return false;
    entry.InsertInto(infor, container);
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
        Tell(ProblemCode::CANNOT_BE_MADE, place.Offset, end);
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
