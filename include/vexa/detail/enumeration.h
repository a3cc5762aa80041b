#ifndef VEXA_DETAIL_ENUMERATION_H
#define VEXA_DETAIL_ENUMERATION_H

#include <string_view>

#include <vexa/detail/slot.h>
#include <vexa/export.h>

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

/// The name of the first enumerator of a value; empty where there is none.
VEXA_API std::string_view NameOfValue(const CEnumerationSlot& enumeration, long long value) noexcept;
/// The names of the values of an attribute, or of a container's elements; null where they have none.
VEXA_API const CEnumerationSlot* EnumerationOf(const CClassInfor& owner, const CAttribInfor& attrib) noexcept;
VEXA_API const CEnumerationSlot* EnumerationOf(const CContainerInfor& container) noexcept;

} // namespace vexa::detail

#endif
