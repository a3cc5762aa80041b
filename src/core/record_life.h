#ifndef VEXA_CORE_RECORD_LIFE_H
#define VEXA_CORE_RECORD_LIFE_H

#include "core/type_table.h"

// How a record is made and destroyed, for the floors that know its type to instantiate.

namespace vexa::core {

template<class Record>
void* MakeRecord()
{
    return new Record();
}

template<class Record>
void DestroyRecord(void* record)
{
    delete static_cast<Record*>(record);
}

} // namespace vexa::core

#endif
