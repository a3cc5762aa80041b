#ifndef VEXA_TEXT_JSON_MEASURE_H
#define VEXA_TEXT_JSON_MEASURE_H

#include <vexa/refrence.h>

namespace vexa::text {

/// What one basic value takes in JSON text: the bound that is counted for it, and how far its text may pass that bound.
struct CJsonLength {
    unsigned long Bound;
    unsigned long Excess;
};

/// \p ref must have a value.
CJsonLength MeasureBasic(const CConstRefrence& ref);

} // namespace vexa::text

#endif
