// Building the descriptors of described classes, containers and types, in an order that makes each as complete as it
// can be.

#include <vexa/detail/description.h>

#include <cstring>
#include <iterator>
#include <limits>
#include <map>
#include <memory>
#include <string>

#include <vexa/detail/vector.h>
#include <vexa/helper.h>

#include "typeinfo/class_graph.h"
#include "typeinfo/class_list.h"
#include "typeinfo/finished_class.h"
#include "typeinfo/kept_selectors.h"
#include "typeinfo/notes.h"
#include "typeinfo/qualified_name.h"
#include "typeinfo/registration.h"
#include "typeinfo/shape.h"
#include "typeinfo/slot_group.h"
#include "typeinfo/source_name.h"

namespace vexa {
namespace detail {
namespace {

/// What the slot owns from now on, so that nobody else need release it.
template<class Descriptor>
Descriptor& FillWith(CSlot& slot, std::unique_ptr<Descriptor> made)
{
    typeinfo::Fill(slot, made.get());
    return *made.release();
}

void Make(CClassSlot& slot)
{
    for (CClassSlot* const whole : typeinfo::UnstartedWholesOf(slot))
        Build(*whole);
    if (slot.Made != nullptr) return; // one of them needed it
    auto& made = FillWith(slot, std::make_unique<typeinfo::CFinishedClass>());
    made.Mark.Set(CFinishedMark::DRAFT);
    made.SetBaseTypeInfor(typeinfo::NameOf(slot), slot.Size, slot.Factory, slot.Deleter, 0);
    CDescriptionBase about(made);
    slot.Describe(about);
    made.CreateIndex();
    if (slot.Spelled != nullptr) made.QualifiedName = new std::string(typeinfo::QualifiedName(slot.Spelled));
    typeinfo::SettleNotes(made);
    made.Mark.Set(CFinishedMark::CLASS);
    if (slot.Spelled != nullptr) typeinfo::List(made, &slot);
}

/// What the headers take for granted where they know the standard library by name.
void CheckVectorLayout()
{
    if (IsVectorLayoutKnown()) return;
    ::___Coredump_due_to_assertion_failure___("a std::vector is three pointers", __FILE__, __LINE__, __func__);
}

void Make(CContainerSlot& slot)
{
    const CContainerRecord& record = slot.Record;
    auto& made = FillWith(slot, std::make_unique<typeinfo::CFinishedContainer>());
    const bool isManaged = (record.Form & CContainerRecord::MANAGED) != 0;
    const unsigned int form = record.Form & ~CContainerRecord::MANAGED;
    made.SetBaseTypeInfor(record.Name, record.Size, isManaged ? &NewVector : record.Maker.Factory, record.Deleter, 0);
    made.IsManaged = isManaged;
    if (isManaged) made.Manage = record.Maker.Manage;
    made.Append = record.Append;
    made.Clear = record.Clear;
    made.Mark.Set(CFinishedMark::CONTAINER);
    record.Fill(made);
    made.ElementType = MakeTypeInfor(record.Element);
    made.ElementNames = typeinfo::EnumerationOf(record.Element);
    if (form == CFinishedMark::VECTOR) CheckVectorLayout();
    if (form != 0) made.Mark.Set(form, record.Stride);
}

} // namespace

void SetSwap(CContainerInfor& infor, void (*swap)(void* left, void* right)) noexcept
{
    if (infor.Mark.Is(CFinishedMark::CONTAINER)) static_cast<typeinfo::CFinishedContainer&>(infor).Swap = swap;
}

void SetFindKey(CContainerInfor& infor, void* (*find)(void* map, const void* key)) noexcept
{
    if (infor.Mark.Is(CFinishedMark::CONTAINER)) static_cast<typeinfo::CFinishedContainer&>(infor).FindKey = find;
}

void SetRemove(CContainerInfor& infor, void (*remove)(void* container, const void* element)) noexcept
{
    if (infor.Mark.Is(CFinishedMark::CONTAINER)) static_cast<typeinfo::CFinishedContainer&>(infor).Remove = remove;
}

namespace {

void Make(CCustomSlot& slot)
{
    if (slot.Shaped != nullptr) {
        FillWith(slot, typeinfo::MakeShaped(*slot.Shaped));
        return;
    }
    CCustomBasicTypeInfor* made = nullptr;
    slot.Describe(made);
    typeinfo::Fill(slot, made);
}

void Make(CTypeSlot& slot) { FillWith(slot, std::make_unique<CGnlTypeInfor>(MakeTypeInfor(slot.Source))); }

void MakeBySlotForm(CSlot& slot)
{
    switch (slot.Form) {
    case SlotForm::TYPE: return Make(static_cast<CTypeSlot&>(slot));
    case SlotForm::CLASS: return Make(static_cast<CClassSlot&>(slot));
    case SlotForm::CONTAINER: return Make(static_cast<CContainerSlot&>(slot));
    case SlotForm::CUSTOM: return Make(static_cast<CCustomSlot&>(slot));
    case SlotForm::ENUMERATION: return; // is constant
    }
}

/// The descriptor that a slot of details holds, as what they have in common.
const CTypeInforBase* DetailOf(CSlot& slot)
{
    switch (slot.Form) {
    case SlotForm::CLASS: return &DescriptorOf<CClassInfor>(slot);
    case SlotForm::CONTAINER: return &DescriptorOf<CContainerInfor>(slot);
    case SlotForm::CUSTOM: return &DescriptorOf<CCustomBasicTypeInfor>(slot);
    default: return nullptr;
    }
}

} // namespace

const void* Build(CSlot& slot)
{
    const typeinfo::CRegistration registration;
    typeinfo::CSlotGroup group;
    if (slot.Made == nullptr) MakeBySlotForm(slot);
    group.Complete();
    return slot.Made;
}

CGnlTypeInfor MakeTypeInfor(const CTypeSource& source)
{
    CGnlTypeInfor type(source.DataType, source.HoldingFlags,
                       source.Detail != nullptr ? DetailOf(*source.Detail) : nullptr);
    type.NullFlagOffset = source.NullFlagOffset;
    type.ValueOffset = source.ValueOffset;
    return type;
}

namespace {

bool IsReachable(const CClassInfor& owner, const char* attrib, unsigned long offset)
{
    if (offset <= std::numeric_limits<unsigned short>::max()) return true;
    helper::LogError("The class %s's attribute %s lies %lu bytes into the object, beyond 65535, and is left out",
                     owner.Name.c_str(), attrib, offset);
    return false;
}

/// The same for a record that is taken over from a base \p offset bytes into the object: a union member goes with its
/// selector.
bool IsReachableInherited(const CClassInfor& owner, const CAttribInfor& original, unsigned long offset)
{
    if (!IsReachable(owner, original.Name.c_str(), offset + original.Offset)) return false;
    if (original.UnionSelector == nullptr) return true;
    const unsigned long selector = offset + original.UnionSelector->Offset;
    if (selector <= std::numeric_limits<unsigned short>::max()) return true;
    helper::LogError("The class %s's attribute %s is left out: its union selector lies %lu bytes into the object, "
                     "beyond 65535",
                     owner.Name.c_str(), original.Name.c_str(), selector);
    return false;
}

/// Takes over the records of a base: those that an offset can express, each union member with its selector where it
/// lies in this object.
void Inherit(CClassInfor& derived, unsigned long offset, const CClassInfor& base)
{
    const auto before = static_cast<std::ptrdiff_t>(derived.AttribList.size());
    derived.InitBaseClass({{offset, &base}});
    std::map<const CAttribInfor*, const CAttribInfor*> places; // from a record of the base to that of its place here
    auto copy = std::next(derived.AttribList.begin(), before);
    for (const CAttribInfor& original : base.AttribList)
        places[&original] = &*copy++;
    copy = std::next(derived.AttribList.begin(), before);
    for (const CAttribInfor& original : base.AttribList) {
        if (!IsReachableInherited(derived, original, offset)) {
            typeinfo::ForgetNotes(derived, *copy);
            copy = derived.AttribList.erase(copy);
            continue;
        }
        if (original.UnionSelector != nullptr) {
            const CAttribInfor*& selector = places[original.UnionSelector];
            if (selector == nullptr) {
                selector = &typeinfo::KeepSelectorCopy(derived, *original.UnionSelector, offset);
            }
            copy->UnionSelector = selector;
        }
        ++copy;
    }
}

} // namespace

void CDescriptionBase::AddBase(CClassSlot& base, unsigned long offset, const CPolymorphic& derived)
{
    if (m_survey != nullptr) return AddToSurvey(*m_survey, {Enum::DT_CLASS, 0, 0, 0, 0, &base}, true);
    const auto& inherited = DescriptorOf<CClassInfor>(base);
    Inherit(*m_class, offset, inherited);
    typeinfo::CClassNotes* const notes = static_cast<typeinfo::CFinishedClass*>(m_class)->Notes;
    if (notes == nullptr || notes->Ancestors.empty()) return;
    if (derived.HasPlainBase) { // which tells nothing of the class
        const typeinfo::CClassNotes* const ofBase = typeinfo::NotesOf(inherited);
        if (ofBase != nullptr && !ofBase->Tag.empty()) notes->HasTagOfPlainBase = true;
        return;
    }
    if (derived.Type != nullptr) notes->Type = derived.Type;
    if (derived.IsAbstract) notes->IsAbstract = true;
}

void AddMembers(CDescriptionBase& about, const CTypeSource* members, unsigned long count, const char* names)
{
    std::string name;
    for (unsigned long i = 0; i < count; ++i) {
        names += std::strspn(names, ", ");
        const std::size_t length = std::strcspn(names, ", ");
        name.assign(names, length);
        names += length;
        about.AddAttrib(name.c_str(), members[i].Offset, members[i]);
    }
}

CAttribDescription CDescriptionBase::AddAttrib(const char* name, unsigned long offset, const CTypeSource& type)
{
    if (m_survey != nullptr) {
        AddToSurvey(*m_survey, type, (type.HoldingFlags & Enum::HF_POINTER) == 0);
        return {nullptr, nullptr};
    }
    if (!IsReachable(*m_class, name, offset)) return {nullptr, nullptr};
    CAttribInfor& record = m_class->AddAttribInfor(Enum::AS_PUBLIC, static_cast<unsigned short>(offset), name, -1);
    record.TypeInfor = MakeTypeInfor(type);
    if (const CEnumerationSlot* const names = typeinfo::EnumerationOf(type))
        typeinfo::NotesToFill(*m_class)->Members[&record].Enumeration = names;
    return {m_class, &record};
}

} // namespace detail

CAttribDescription& CAttribDescription::ID(short id)
{
    if (m_record != nullptr) m_record->AttribID = id;
    return *this;
}

CAttribDescription& CAttribDescription::Access(Enum::AccessSpecifierEnum access)
{
    if (m_record != nullptr) m_record->Access = static_cast<unsigned char>(access & 7U);
    return *this;
}

CAttribDescription& CAttribDescription::Masked()
{
    if (m_record != nullptr) m_record->IsMasked = 1;
    return *this;
}

namespace {

/// The attribute that a union member of the class names as its selector: the class's own before one of a base, whose
/// name it may hide. Null when there is none.
const CAttribInfor* FindSelector(const CClassInfor& owner, const CAttribInfor& member, const char* name)
{
    const CAttribInfor* inherited = nullptr;
    for (const CAttribInfor& record : owner.AttribList) {
        if (record.Name != name || &record == &member) continue;
        if (record.IsInherited == 0) return &record;
        if (inherited == nullptr) inherited = &record;
    }
    return inherited;
}

} // namespace

CAttribDescription& CAttribDescription::ActiveWhen(const char* selector, short value)
{
    if (m_record == nullptr) return *this;
    const CAttribInfor* const found = FindSelector(*m_owner, *m_record, selector);
    if (found == nullptr) {
        helper::LogError("The class %s's attribute %s names an unknown union selector %s", m_owner->Name.c_str(),
                         m_record->Name.c_str(), selector);
        return *this;
    }
    m_record->UnionSelector = found;
    m_record->UnionAttribEnum = value;
    return *this;
}

} // namespace vexa
