// The null state of a value: kept by its pointer, by the flag of its wrapper, or by the value itself.

#include <cstring>

#include <vexa/type_infor.h>

#include "core/type_table.h"

namespace vexa {

using namespace Enum;
using core::TypeRow;

namespace {

void StorePointer(void* holder, void* pointer) { std::memcpy(holder, &pointer, sizeof pointer); }

unsigned char& NullFlag(const CGnlTypeInfor& type, void* holder)
{
    return static_cast<unsigned char*>(holder)[type.NullFlagOffset];
}

} // namespace

bool CGnlTypeInfor::IsNullValue(const void* value) { return TypeRow(DT_VALUE).IsNull(value); }

void CGnlTypeInfor::SetNull(void* holder) const
{
    if (holder == nullptr || DataType == DT_NULL) return;
    switch (KeeperOfNull()) {
    case NullKeeper::Pointer: {
        void* pointee = ValueAddress(holder);
        if (pointee != nullptr && !Has(HF_CONST)) Delete(pointee);
        StorePointer(holder, nullptr);
        break;
    }
    case NullKeeper::Value: TypeRow(DataType).SetNull(holder); break;
    case NullKeeper::Flag: NullFlag(*this, holder) = HF_MAY_NULL; break;
    case NullKeeper::Nothing: break;
    }
}

void CGnlTypeInfor::SetNotNull(void* holder) const
{
    if (holder == nullptr || DataType == DT_NULL) return;
    switch (KeeperOfNull()) {
    case NullKeeper::Pointer: NewIfNullPointer(holder); break;
    case NullKeeper::Value: TypeRow(DataType).SetNotNull(holder); break;
    case NullKeeper::Flag: NullFlag(*this, holder) = 0; break;
    case NullKeeper::Nothing: break;
    }
}

void CGnlTypeInfor::NewIfNullPointer(void* holder) const
{
    if (holder == nullptr || !Has(HF_POINTER) || Has(HF_CONST) || ValueAddress(holder) != nullptr) return;
    StorePointer(holder, New());
}

} // namespace vexa
