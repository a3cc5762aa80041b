#ifndef VEXA_DETAIL_ENUMERATION_H
#define VEXA_DETAIL_ENUMERATION_H

#include <vexa/detail/slot.h>

namespace vexa::detail {

/// The names of an enumeration's values. In a descriptor it is its underlying integer; the slot lies beside, where the
/// description keeps what a type's details are made from, and is never filled.
struct CEnumerationSlot : CSlot {
    constexpr CEnumerationSlot(const char* name, const char* names, const long long* values,
                               unsigned long count) noexcept
        : CSlot(SlotForm::ENUMERATION), Name(name), Names(names), Values(values), Count(count)
    {
    }

    const char* Name;        ///< of the type
    const char* Names;       ///< of the enumerators, in one text, separated by commas and blanks
    const long long* Values; ///< in the same order; those of an unsigned long long by their bits
    unsigned long Count;
};

} // namespace vexa::detail

#endif
