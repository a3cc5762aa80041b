// What values, rows and tables contribute to the type table.

#include <vexa/table.h>

#include "core/record_life.h"
#include "reference/custom_value.h"

namespace vexa::core {

template<class Record>
void ClearRecord(void* record)
{
    static_cast<Record*>(record)->Clear();
}

template void* MakeRecord<CValue>();
template void* MakeRecord<CRow>();
template void* MakeRecord<CTable>();
template void DestroyRecord<CValue>(void*);
template void DestroyRecord<CRow>(void*);
template void DestroyRecord<CTable>(void*);
template void ClearRecord<CRow>(void*);
template void ClearRecord<CTable>(void*);

bool IsNullValue(const void* value) { return static_cast<const CValue*>(value)->IsNull(); }
void SetNullValue(void* value) { static_cast<CValue*>(value)->SetNull(); }
void SetNotNullValue(void* value) { static_cast<CValue*>(value)->SetNotNull(); }

} // namespace vexa::core

namespace vexa::reference {

void AssignValue(CValue& value, const CStdBasicTypeConstRefrence& source)
{
    value.SetNull(static_cast<Enum::DataTypeEnum>(source.TypeInfor.DataType));
    value.ReadFrom(source);
}

} // namespace vexa::reference
