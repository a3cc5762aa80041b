#include <vexa/class_refrence.h>

namespace vexa {
namespace {

bool SetToAttrib(CConstRefrence& out, const CClassConstRefrence& owner, unsigned long offset,
                 const CAttribInfor* record)
{
    char* const object = static_cast<char*>(owner.ValueAddress());
    if (object == nullptr || record == nullptr) return false;
    out.TypeInfor = record->TypeInfor;
    out.Address = object + offset;
    return true;
}

bool SetToAttrib(CConstRefrence& out, const CClassConstRefrence& owner, const CAttribInfor* record)
{
    return record != nullptr && SetToAttrib(out, owner, record->Offset, record);
}

} // namespace

bool CClassConstRefrence::FindAttribByName(CConstRefrence& out, const std::string& name) const
{
    if (IsNull()) return false;
    const auto& names = ClassInfor().AttribNameMap;
    const auto found = names.find(name);
    return found != names.end() && SetToAttrib(out, *this, found->second);
}

bool CClassConstRefrence::FindAttribByFlatName(CConstRefrence& out, const std::string& name) const
{
    if (IsNull()) return false;
    const CFlatAttribInfor* const entry = ClassInfor().FindAttribInforByFlatName(name);
    return entry != nullptr && SetToAttrib(out, *this, entry->Offset, entry->AttribInfor);
}

bool CClassConstRefrence::FindAttribByID(CConstRefrence& out, short id) const
{
    return !IsNull() && SetToAttrib(out, *this, ClassInfor().AttribIDMap().FindAttrib(id));
}

bool CClassConstRefrence::FindAttribByUnionAttribEnum(CConstRefrence& out, short value) const
{
    return !IsNull() && SetToAttrib(out, *this, ClassInfor().UnionAttribEnumMap().FindAttrib(value));
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
