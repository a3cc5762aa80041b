// The null state of a value: kept by its pointer, by the flag of its wrapper, or by the value itself.

#include <cstring>

#include <vexa/type_infor.h>

#include "core/type_table.h"

namespace vexa {

using namespace Enum;
using core::TypeRow;

namespace {

void* StoredPointer(const void* holder)
{
    void* pointer = nullptr;
    std::memcpy(&pointer, holder, sizeof pointer);
    return pointer;
}

void StorePointer(void* holder, void* pointer) { std::memcpy(holder, &pointer, sizeof pointer); }

/// Whether the null state is that of a pointer variable. A value that keeps its own state can be nulled through a
/// pointer even if it is not marked nullable.
bool IsNullablePointer(const CGnlTypeInfor& type)
{
    return type.Has(HF_POINTER) && (type.Has(HF_NULLABLE) || type.DataType == DT_VALUE);
}

unsigned char* NullFlag(const CGnlTypeInfor& type, void* holder)
{
    const bool hasFlag = type.Has(HF_NULLABLE) && type.WrapperKind() == HF_MAY_NULL;
    return hasFlag ? static_cast<unsigned char*>(holder) + type.NullFlagOffset : nullptr;
}

} // namespace

bool CGnlTypeInfor::IsNullValue(const void* value) { return TypeRow(DT_VALUE).IsNull(value); }

void CGnlTypeInfor::SetNull(void* holder) const
{
    if (holder == nullptr || DataType == DT_NULL) return;
    if (IsNullablePointer(*this)) {
        void* pointee = StoredPointer(holder);
        if (pointee != nullptr && !Has(HF_CONST)) Delete(pointee);
        StorePointer(holder, nullptr);
    } else if (Has(HF_POINTER)) {
        return;
    } else if (auto* const setNull = TypeRow(DataType).SetNull) {
        setNull(holder);
    } else if (unsigned char* const flag = NullFlag(*this, holder)) {
        *flag = HF_MAY_NULL;
    }
}

void CGnlTypeInfor::SetNotNull(void* holder) const
{
    if (holder == nullptr || DataType == DT_NULL) return;
    if (IsNullablePointer(*this)) {
        NewIfNullPointer(holder);
    } else if (Has(HF_POINTER)) {
        return;
    } else if (auto* const setNotNull = TypeRow(DataType).SetNotNull) {
        setNotNull(holder);
    } else if (unsigned char* const flag = NullFlag(*this, holder)) {
        *flag = 0;
    }
}

void CGnlTypeInfor::NewIfNullPointer(void* holder) const
{
    if (holder == nullptr || !Has(HF_POINTER) || Has(HF_CONST) || StoredPointer(holder) != nullptr) return;
    StorePointer(holder, New());
}

} // namespace vexa
