#include "reference/emptying.h"

#include <vector>

#include <vexa/class_refrence.h>

namespace vexa::reference {

using namespace Enum;

namespace {

/// Whether a value stays in its wrapper while it is null, and is of a kind that can be emptied there.
bool IsKeptInWrapper(const CGnlTypeInfor& type)
{
    if (type.WrapperKind() != HF_MAY_NULL || !type.Has(HF_NULLABLE) || type.Has(HF_POINTER)) return false;
    return type.IsBasicType() || type.IsContainer() || type.DataType == DT_CLASS || type.DataType == DT_CUSTOM_BASIC;
}

/// The value in a wrapper, as one that is held directly.
CRefrence BelowFlag(const CRefrence& wrapper)
{
    const CGnlTypeInfor& type = wrapper.TypeInfor;
    const unsigned int flags = type.HoldingFlags & ~(HF_KIND_MASK | HF_NULLABLE);
    return {CGnlTypeInfor(type.DataType, flags, type.DetailInfor), type.ValueAddress(wrapper.Address)};
}

/// The members of unions are those that were active before: their selectors are emptied too.
void EmptyMembers(const CClassConstRefrence& object)
{
    std::vector<CRefrence> members;
    for (const auto& attrib : object.Attribs())
        members.emplace_back(attrib.Value().TypeInfor, attrib.Value().Address);
    for (const CRefrence& member : members)
        Empty(member);
}

} // namespace

void Empty(CRefrence value)
{
    const CGnlTypeInfor& type = value.TypeInfor;
    if (value.Address != nullptr && !type.Has(HF_CONST)) {
        if (IsKeptInWrapper(type))
            Empty(BelowFlag(value));
        else if (type.DataType == DT_CLASS && !type.Has(HF_NULLABLE))
            return EmptyMembers(value.AsClass());
    }
    value.Clear();
}

void SetNotNullAndEmpty(CRefrence& value)
{
    if (IsKeptInWrapper(value.TypeInfor) && value.Address != nullptr && value.IsNull()) Empty(BelowFlag(value));
    value.SetNotNull();
}

} // namespace vexa::reference
