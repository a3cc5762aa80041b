#ifndef VEXA_INTERCHANGE_WRITE_OBJECT_H
#define VEXA_INTERCHANGE_WRITE_OBJECT_H

#include <algorithm>
#include <vector>

#include "interchange/write_walk.h"
#include "reference/custom_value.h"
#include "reference/union_member.h"

/// \file
/// Objects of which not every attribute is simply written: by its notes, by a union's selector, by a policy; and those
/// that tell what they are.

namespace vexa::interchange {

/// Stands in place of a confidential value.
inline constexpr std::string_view MASK_TEXT = "***";

/// The key for what objects of a class are; null where they do not tell.
inline const std::string* TagOf(const CClassInfor& infor) noexcept
{
    const typeinfo::CClassNotes* const notes = typeinfo::NotesOf(infor);
    return notes != nullptr && !notes->Tag.empty() ? &notes->Tag : nullptr;
}

/// What an object is written as: its tag, an attribute, or a kept unknown key.
template<class Sink>
struct CWritingWalk<Sink>::CEntry {
    std::string_view Key;
    const CMember* Member = nullptr; ///< null: the tag
    const char* Kept = nullptr;      ///< a pair of the map that keeps unknown keys, which is Member
};

template<class Sink>
__attribute__((noinline)) typename Sink::Cursor
CWritingWalk<Sink>::Tagged(Cursor at, const CClassInfor& base, const char* object, CWriteFrame& outer, bool isReached)
{
    const void* whole = object;
    const CClassInfor& infor = typeinfo::DynamicClassOf(base, object, whole);
    return Class(at, infor, static_cast<const char*>(whole), outer, isReached, TagOf(base));
}

/// The entries, in the order in which they are written where they are not sorted.
template<class Sink>
template<class Use>
void CWritingWalk<Sink>::ForEachEntry(const CClassForm& form, const char* object, const std::string* tag, Use use)
{
    if (tag != nullptr) use(CEntry{*tag});
    for (const CMember& member : form.Members) {
        if (IsLeftOut(form, member, object)) continue;
        if (member.Number != form.Keeper)
            use(CEntry{member.Key, &member});
        else if (const char* const map = member.Value(object); map != nullptr)
            for (const CConstRefrence& pair : ContainerAt(member, map))
                use(KeptEntry(member, static_cast<const char*>(pair.Address)));
    }
}

template<class Sink>
typename CWritingWalk<Sink>::CEntry CWritingWalk<Sink>::KeptEntry(const CMember& keeper, const char* pair)
{
    const CContainerForm& map = m_forms.Of(keeper.ContainerInfor());
    return {*reinterpret_cast<const std::string*>(map.Key.Value(pair)), &keeper, pair};
}

template<class Sink>
__attribute__((noinline)) typename Sink::Cursor CWritingWalk<Sink>::NotedObject(Cursor at, const CClassForm& form,
                                                                                const char* object, CWriteFrame& frame,
                                                                                const std::string* tag)
{
    if (m_context.Policy().SortKeys) return SortedObject(at, form, object, frame, tag);
    at = m_sink.BeginObject(at, CEvent::UNKNOWN_SIZE);
    if (tag != nullptr) at = Entry(at, CEntry{*tag}, form, object, frame, tag);
    for (const CMember& member : form.Members) {
        if (IsLeftOut(form, member, object)) continue;
        const bool isKeeper = member.Number == form.Keeper;
        at = isKeeper ? KeptEntries(at, member, form, object, frame, tag) : Attribute(at, member, object, frame);
    }
    return m_sink.EndObject(at);
}

template<class Sink>
__attribute__((noinline)) typename Sink::Cursor
CWritingWalk<Sink>::KeptEntries(Cursor at, const CMember& keeper, const CClassForm& form, const char* object,
                                CWriteFrame& frame, const std::string* tag)
{
    const char* const map = keeper.Value(object);
    if (map == nullptr) return at;
    for (const CConstRefrence& pair : ContainerAt(keeper, map))
        at = Kept(at, KeptEntry(keeper, static_cast<const char*>(pair.Address)), form, frame, tag);
    return at;
}

template<class Sink>
__attribute__((always_inline)) inline typename Sink::Cursor
CWritingWalk<Sink>::Attribute(Cursor at, const CMember& member, const char* object, CWriteFrame& frame)
{
    frame.To(member);
    at = m_sink.Key(at, member, frame);
    const bool isMasked = member.IsMasked && m_context.Policy().Masked == MaskedValues::MASK;
    return isMasked ? m_sink.Plain(at, MASK_TEXT) : Holder(at, member, object, frame);
}

template<class Sink>
__attribute__((noinline)) typename Sink::Cursor CWritingWalk<Sink>::SortedObject(Cursor at, const CClassForm& form,
                                                                                 const char* object, CWriteFrame& frame,
                                                                                 const std::string* tag)
{
    std::vector<CEntry> entries;
    ForEachEntry(form, object, tag, [&](const CEntry& entry) { entries.push_back(entry); });
    std::stable_sort(entries.begin(), entries.end(),
                     [](const CEntry& left, const CEntry& right) { return left.Key < right.Key; });
    at = m_sink.BeginObject(at, CEvent::UNKNOWN_SIZE);
    for (const CEntry& entry : entries)
        at = Entry(at, entry, form, object, frame, tag);
    return m_sink.EndObject(at);
}

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Entry(Cursor at, const CEntry& entry, const CClassForm& form,
                                                const char* object, CWriteFrame& frame, const std::string* tag)
{
    if (entry.Member == nullptr)
        return m_sink.Text(m_sink.Key(at, entry.Key, frame), typeinfo::TagValueOf(*form.Infor), frame);
    if (entry.Kept != nullptr) return Kept(at, entry, form, frame, tag);
    return Attribute(at, *entry.Member, object, frame);
}

/// A kept key that the class has meanwhile would stand there twice.
template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Kept(Cursor at, const CEntry& entry, const CClassForm& form,
                                               CWriteFrame& frame, const std::string* tag)
{
    if (entry.Member->IsMasked)
        frame.To(*entry.Member); // the way tells no key that is confidential
    else
        frame.To(StepKind::TEXT_KEY, entry.Key);
    if (form.Find(entry.Key) != nullptr || (tag != nullptr && *tag == entry.Key)) {
        m_context.Tell(ProblemCode::DUPLICATE_KEY, frame, {});
        return at;
    }
    at = m_sink.Key(at, entry.Key, frame);
    return Holder(at, m_forms.Of(entry.Member->ContainerInfor()).Mapped, entry.Kept, frame);
}

template<class Sink>
bool CWritingWalk<Sink>::IsLeftOut(const CClassForm& form, const CMember& member, const char* object)
{
    const CWritePolicy& policy = m_context.Policy();
    const typeinfo::CMemberNotes* const notes = member.Notes;
    if (notes != nullptr && notes->IsWriteOnly) return true;
    if (member.Infor->UnionSelector != nullptr &&
        !reference::IsActiveWithSelectors(*member.Infor, object + member.OwnerOffset))
        return true;
    if (member.IsMasked && policy.Masked != MaskedValues::WRITE) // the keys that are kept are confidential too
        return policy.Masked == MaskedValues::LEAVE_OUT || member.Number == form.Keeper;
    if (policy.LeaveOutNulls && IsNull(member, object)) return true;
    const bool isOmitted = policy.LeaveOutDefaults || (notes != nullptr && notes->IsOmittedIfDefault);
    return isOmitted && !m_context.IsComplete() && m_defaults.IsDefault(form, member, object);
}

/// Whether `null` would be written, but for what only a converter tells.
template<class Sink>
bool CWritingWalk<Sink>::IsNull(const CForm& form, const char* holder)
{
    const char* const value = form.Value(holder);
    if (value == nullptr || form.Kind == FormKind::NULL_TYPE) return true;
    if (form.Kind == FormKind::VALUE) return reinterpret_cast<const CValue*>(value)->IsNull();
    if (form.Kind == FormKind::SHAPE) return IsNullShape(form, value);
    if (form.Kind == FormKind::CUSTOM) return IsNullCustom(form, value);
    if (form.Code == Enum::DT_NUMERIC) return reinterpret_cast<const CNumeric*>(value)->State == Enum::VS_NULL;
    return form.Code == Enum::DT_DATETIME && reinterpret_cast<const CDateTime*>(value)->State == Enum::VS_NULL;
}

template<class Sink>
bool CWritingWalk<Sink>::IsNullCustom(const CForm& form, const char* value)
{
    const CCustomBasicTypeInfor& infor = form.CustomInfor();
    if (reference::HasOwnLayout(*form.Type) || infor.Underlying.DataType == Enum::DT_UNKNOWN) return false;
    return IsNull(CForm(infor.Underlying, 0, nullptr), value + infor.ValueOffset);
}

template<class Sink>
bool CWritingWalk<Sink>::IsNullShape(const CForm& form, const char* value)
{
    using detail::ShapeKind;
    if (form.Shape->Kind == ShapeKind::RAW_JSON) return reinterpret_cast<const CRawJson*>(value)->IsNull();
    if (form.Shape->Kind == ShapeKind::JSON_TREE) return reinterpret_cast<const CJsonTree*>(value)->IsNull();
    if (form.Shape->Kind == ShapeKind::OPTIONAL) {
        const void* const inner = form.ShapeOperations<detail::COptionalOperations>().Get(value);
        return inner == nullptr || IsNull(PartOf(form, 0), static_cast<const char*>(inner));
    }
    if (form.Shape->Kind != ShapeKind::VARIANT) return false;
    const auto& operations = form.ShapeOperations<detail::CVariantOperations>();
    const unsigned int number = operations.Index(value);
    if (number == detail::CVariantOperations::VALUELESS) return true;
    const auto* const alternative = static_cast<const char*>(operations.Get(value));
    return IsNull(m_forms.Of(form.CustomInfor()).Parts[number], alternative);
}

} // namespace vexa::interchange

#endif
