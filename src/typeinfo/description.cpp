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
        slot.Descriptor = new CContainerInfor();
        slot.Describe(*slot.Descriptor);
        slot.Descriptor->ElementType = slot.ElementType();
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

/// After the records of a base that does not lie at the start of the object have been taken over: leaves out what an
/// offset cannot express, and lets union members read their selector where it lies in this object instead of in the
/// base.
void SettleInherited(CClassInfor& derived, std::size_t first, unsigned long offset, const CClassInfor& base)
{
    std::map<const CAttribInfor*, const CAttribInfor*> copies;
    auto record = std::next(derived.AttribList.begin(), static_cast<std::ptrdiff_t>(first));
    for (const CAttribInfor& original : base.AttribList) {
        if (!IsReachable(derived, original.Name.c_str(), offset + original.Offset)) {
            record = derived.AttribList.erase(record);
            continue;
        }
        copies[&original] = &*record;
        const auto selector = copies.find(record->UnionSelector);
        if (selector != copies.end()) record->UnionSelector = selector->second;
        ++record;
    }
}

} // namespace

void CDescriptionBase::AddBase(CClassSlot& base, unsigned long offset)
{
    if (m_survey != nullptr) return AddToSurvey(*m_survey, base, true);
    const CClassInfor* const infor = Build(base);
    const std::size_t before = m_class->AttribList.size();
    m_class->InitBaseClass({{offset, infor}});
    if (offset != 0) SettleInherited(*m_class, before, offset, *infor);
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

CAttribDescription& CAttribDescription::ActiveWhen(const char* selector, short value)
{
    if (m_record == nullptr) return *this;
    const auto& records = m_owner->AttribList;
    const auto found = std::find_if(records.begin(), records.end(),
                                    [&](const CAttribInfor& record) { return record.Name == selector; });
    if (found == records.end() || &*found == m_record) {
        helper::LogError("The class %s's attribute %s names an unknown union selector %s", m_owner->Name.c_str(),
                         m_record->Name.c_str(), selector);
        return *this;
    }
    m_record->UnionSelector = &*found;
    m_record->UnionAttribEnum = value;
    return *this;
}

} // namespace vexa
