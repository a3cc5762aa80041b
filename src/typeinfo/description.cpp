// Building the descriptors of described classes, containers and types, in an order that makes each as complete as it
// can be.

#include <vexa/detail/description.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <map>
#include <set>
#include <vector>

#include <vexa/helper.h>

#include "typeinfo/finished_class.h"
#include "typeinfo/kept_selectors.h"
#include "typeinfo/registration.h"

namespace vexa {
namespace detail {

/// The classes that a description names: those that are part of an object (bases, members by value), and all of them.
class CSurvey {
public:
    explicit CSurvey(const CClassSlot& surveyed) { surveyed.Survey(*this); }

    std::vector<CClassSlot*> ByValue;
    std::vector<CClassSlot*> All;
};

void AddToSurvey(CSurvey& survey, CClassSlot& named, bool isByValue)
{
    survey.All.push_back(&named);
    if (isByValue) survey.ByValue.push_back(&named);
}

namespace {

using Classes = std::vector<CClassSlot*>;

/// Made once for each class, since every registration that leads to it asks again.
const CSurvey& SurveyOf(CClassSlot& slot)
{
    if (slot.Surveyed == nullptr) slot.Surveyed = new CSurvey(slot);
    return *slot.Surveyed;
}

/// \p from and every class that is named on the way from it through \p edges, in the order in which they are met, so
/// that every run builds the same descriptors.
Classes Reached(CClassSlot& from, Classes CSurvey::*edges)
{
    Classes reached{&from};
    std::set<CClassSlot*> known{&from};
    for (std::size_t next = 0; next < reached.size(); ++next) {
        for (CClassSlot* const named : SurveyOf(*reached[next]).*edges) {
            if (known.insert(named).second) reached.push_back(named);
        }
    }
    return reached;
}

bool IsPartOf(CClassSlot& part, CClassSlot& whole)
{
    const Classes parts = Reached(whole, &CSurvey::ByValue);
    return std::find(parts.begin(), parts.end(), &part) != parts.end();
}

/// A class that this one refers to and that holds this one as a base or by value must take over its finished records.
/// So it is started first: it asks for this one while it is in progress, and this one, which only refers to it, needs
/// no more than its address.
void BuildWholesFirst(CClassSlot& slot)
{
    for (CClassSlot* const other : Reached(slot, &CSurvey::All)) {
        if (other != &slot && !other->IsStarted && IsPartOf(slot, *other)) Build(*other);
    }
}

} // namespace

const CClassInfor* Build(CClassSlot& slot)
{
    typeinfo::EnterRegistration();
    if (!slot.IsStarted) BuildWholesFirst(slot);
    const bool isBuiltHere = !slot.IsStarted;
    slot.IsStarted = true;
    const CClassInfor* const result =
        CClassInfor::InitClassInfor(slot.Descriptor, slot.Name, slot.Size, slot.Factory, slot.Deleter, slot.Describe);
    if (isBuiltHere) Announce(slot, result);
    typeinfo::LeaveRegistration();
    return result;
}

const CContainerInfor* Build(CContainerSlot& slot)
{
    typeinfo::EnterRegistration();
    if (slot.Descriptor == nullptr) {
        slot.Descriptor = new typeinfo::CFinishedContainer();
        slot.Describe(*slot.Descriptor);
        slot.Descriptor->ElementType = slot.ElementType();
        slot.Descriptor->Mark.Set(CFinishedMark::CONTAINER);
        Announce(slot, slot.Descriptor);
    }
    typeinfo::LeaveRegistration();
    return slot.Descriptor;
}

const CCustomBasicTypeInfor* Build(CCustomSlot& slot)
{
    typeinfo::EnterRegistration();
    if (slot.Descriptor == nullptr) {
        slot.Describe(slot.Descriptor);
        Announce(slot, slot.Descriptor);
    }
    typeinfo::LeaveRegistration();
    return slot.Descriptor;
}

const CGnlTypeInfor* Build(CTypeSlot& slot)
{
    typeinfo::EnterRegistration();
    if (slot.Descriptor == nullptr) {
        slot.Descriptor = new CGnlTypeInfor(slot.Make());
        Announce(slot, slot.Descriptor);
    }
    typeinfo::LeaveRegistration();
    return slot.Descriptor;
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

void CDescriptionBase::AddBase(CClassSlot& base, unsigned long offset)
{
    if (m_survey != nullptr) return AddToSurvey(*m_survey, base, true);
    Inherit(*m_class, offset, *Build(base));
}

CAttribDescription CDescriptionBase::AddAttrib(const char* name, unsigned long offset, const CTypeSource& type)
{
    if (m_survey != nullptr) {
        if (type.Survey != nullptr) type.Survey(*m_survey, (type.HoldingFlags & Enum::HF_POINTER) == 0);
        return {nullptr, nullptr};
    }
    if (!IsReachable(*m_class, name, offset)) return {nullptr, nullptr};
    CAttribInfor& record = m_class->AddAttribInfor(Enum::AS_PUBLIC, static_cast<unsigned short>(offset), name, -1);
    record.TypeInfor = MakeTypeInfor(type);
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
