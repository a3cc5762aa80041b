#include "reference/emptying.h"

#include <vector>

#include <vexa/class_refrence.h>
#include <vexa/container_refrence.h>

#include "reference/union_watch.h"

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

using Drop = bool (*)(CRefrence value);

/// Drops the contents of every attribute. The members of unions are those that were active before: their selectors are
/// dropped too.
bool DropMembers(const CClassConstRefrence& object, Drop drop)
{
    if (object.ValueAddress() == nullptr) return true;
    CUnionWatch watch(object.ClassInfor(), object.ValueAddress());
    std::vector<CRefrence> members;
    for (const auto& attrib : object.Attribs()) {
        // The walk shows the first record whatever its union holds.
        if (IsOpen(object.ClassInfor(), attrib.Infor(), object.ValueAddress()))
            members.emplace_back(attrib.Value().TypeInfor, attrib.Value().Address);
    }
    bool isSettled = true;
    for (const CRefrence& member : members)
        isSettled = drop(member) && isSettled;
    return watch.Settle() && isSettled;
}

bool DropSlots(const CContainerConstRefrence& array, Drop drop)
{
    bool isSettled = true;
    for (const CConstRefrence& slot : array)
        isSettled = drop({slot.TypeInfor, slot.Address}) && isSettled;
    return isSettled;
}

bool IsObject(const CGnlTypeInfor& type) { return type.DataType == DT_CLASS && !type.Has(HF_NULLABLE); }

} // namespace

bool ClearAndSettle(CRefrence value)
{
    const CGnlTypeInfor& type = value.TypeInfor;
    if (value.Address == nullptr || type.Has(HF_CONST) || !ContainsGuardedUnions(type)) {
        value.Clear();
        return true;
    }
    return IsObject(type) ? DropMembers(value.AsClass(), &ClearAndSettle)
                          : DropSlots(value.AsContainer(), &ClearAndSettle);
}

bool Empty(CRefrence value)
{
    const CGnlTypeInfor& type = value.TypeInfor;
    if (value.Address == nullptr || type.Has(HF_CONST)) return ClearAndSettle(value);
    if (IsObject(type)) return DropMembers(value.AsClass(), &Empty);
    const bool isSettled = !IsKeptInWrapper(type) || Empty(BelowFlag(value));
    return ClearAndSettle(value) && isSettled;
}

bool SetNotNullAndEmpty(CRefrence& value)
{
    const bool isKept = IsKeptInWrapper(value.TypeInfor) && value.Address != nullptr && value.IsNull();
    const bool isSettled = !isKept || Empty(BelowFlag(value));
    value.SetNotNull();
    return isSettled;
}

} // namespace vexa::reference
