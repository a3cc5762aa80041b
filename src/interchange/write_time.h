#ifndef VEXA_INTERCHANGE_WRITE_TIME_H
#define VEXA_INTERCHANGE_WRITE_TIME_H

#include "core/write_time.h"

namespace vexa::interchange {

using core::CTimeRoom;
using core::TextOfTime;

} // namespace vexa::interchange

#endif
