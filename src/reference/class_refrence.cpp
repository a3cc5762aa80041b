#include <vexa/class_refrence.h>

#include "typeinfo/plan.h"

namespace vexa {
namespace {

bool SetToAttrib(CConstRefrence& out, void* object, unsigned long offset, const CGnlTypeInfor& type)
{
    out.TypeInfor = type;
    out.Address = static_cast<char*>(object) + offset;
    return true;
}

bool SetToAttrib(CConstRefrence& out, void* object, const CAttribInfor* record)
{
    return record != nullptr && SetToAttrib(out, object, record->Offset, record->TypeInfor);
}

} // namespace

// A null object has no attributes.

bool CClassConstRefrence::FindAttribByName(CConstRefrence& out, const std::string& name) const
{
    void* const object = ValueAddress();
    if (object == nullptr) return false;
    if (const typeinfo::CPlan* const plan = typeinfo::PlanOf(ClassInfor())) {
        const typeinfo::CRecordPlan* const record = plan->Find(name.data(), name.size());
        return record != nullptr && SetToAttrib(out, object, record->HolderOffset, *record->Type);
    }
    const auto& names = ClassInfor().AttribNameMap;
    const auto found = names.find(name);
    return found != names.end() && SetToAttrib(out, object, found->second);
}

bool CClassConstRefrence::FindAttribByFlatName(CConstRefrence& out, const std::string& name) const
{
    void* const object = ValueAddress();
    if (object == nullptr) return false;
    const CFlatAttribInfor* const entry = ClassInfor().FindAttribInforByFlatName(name);
    return entry != nullptr && entry->AttribInfor != nullptr &&
           SetToAttrib(out, object, entry->Offset, entry->AttribInfor->TypeInfor);
}

bool CClassConstRefrence::FindAttribByID(CConstRefrence& out, short id) const
{
    void* const object = ValueAddress();
    return object != nullptr && SetToAttrib(out, object, ClassInfor().AttribIDMap().FindAttrib(id));
}

bool CClassConstRefrence::FindAttribByUnionAttribEnum(CConstRefrence& out, short value) const
{
    void* const object = ValueAddress();
    return object != nullptr && SetToAttrib(out, object, ClassInfor().UnionAttribEnumMap().FindAttrib(value));
}

bool IsActiveAttrib(const CAttribInfor& attrib, const void* object)
{
    const CAttribInfor* const selector = attrib.UnionSelector;
    if (selector == nullptr) return true;
    const CStdBasicTypeConstRefrence value(selector->TypeInfor, static_cast<const char*>(object) + selector->Offset);
    return value.As_short() == attrib.UnionAttribEnum;
}

void CClassInfor::GetUnionAttrib(CConstRefrence& out, const void* object, AttribPosition& position) const
{
    while (position != AttribList.end() && !IsActiveAttrib(*position, object))
        ++position;
    if (position == AttribList.end()) return;
    out.TypeInfor = position->TypeInfor;
    out.Address = static_cast<char*>(const_cast<void*>(object)) + position->Offset;
}

} // namespace vexa
