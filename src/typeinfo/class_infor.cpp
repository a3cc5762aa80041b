#include <vexa/class_infor.h>

#include <cstring>
#include <iterator>

#include "typeinfo/class_list.h"
#include "typeinfo/kept_selectors.h"
#include "typeinfo/notes.h"
#include "typeinfo/plan.h"

namespace vexa {

CAttribInfor& CAttribInfor::operator=(const CAttribInfor& other)
{
    if (this == &other) return *this;
    TypeInfor = other.TypeInfor;
    Name = other.Name;
    Offset = other.Offset;
    Sequence = other.Sequence;
    AttribID = other.AttribID;
    IsInherited = other.IsInherited;
    Access = other.Access;
    return *this;
}

CClassInfor::~CClassInfor()
{
    typeinfo::Unlist(*this);
    typeinfo::DropKeptSelectors(*this);
    typeinfo::ReleasePlan(*this);
    delete IDMap;
    delete UnionEnumMap;
}

CAttribInfor& CClassInfor::AddAttribInfor(Enum::AccessSpecifierEnum access, unsigned short offset, const char* name,
                                          short attribID)
{
    CAttribInfor& record = AttribList.emplace_back();
    record.Access = static_cast<unsigned char>(access & 7U);
    record.Offset = offset;
    record.Sequence = static_cast<unsigned short>(AttribList.size());
    record.AttribID = attribID;
    record.Name.assign(name, std::strlen(name));
    return record;
}

void CClassInfor::InitBaseClass(const std::vector<CBaseClassInfor>& bases)
{
    for (const CBaseClassInfor& base : bases)
        InheritFromBaseClass_Impl(base.Offset, *base.ClassInfor);
}

void CClassInfor::InheritFromBaseClass_Impl(unsigned long offset, const CClassInfor& base)
{
    const auto before = static_cast<std::ptrdiff_t>(AttribList.size());
    for (const CAttribInfor& inherited : base.AttribList) {
        CAttribInfor& record = AttribList.emplace_back(inherited);
        record.Offset = static_cast<unsigned short>(inherited.Offset + offset);
        record.IsInherited = 1;
        record.Sequence = static_cast<unsigned short>(AttribList.size());
    }
    typeinfo::InheritHiddenMembers(*this, base, offset);
    typeinfo::InheritNotes(*this, std::next(AttribList.cbegin(), before), base, offset);
}

const CAttribIDMap& CClassInfor::AttribIDMap() const
{
    static const CAttribIDMap s_CAttribIDMap;
    return IDMap != nullptr ? *IDMap : s_CAttribIDMap;
}

const CAttribIDMap& CClassInfor::UnionAttribEnumMap() const
{
    static const CAttribIDMap s_UnionAttribEnumMap;
    return UnionEnumMap != nullptr ? *UnionEnumMap : s_UnionAttribEnumMap;
}

} // namespace vexa
