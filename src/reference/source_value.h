#ifndef VEXA_REFERENCE_SOURCE_VALUE_H
#define VEXA_REFERENCE_SOURCE_VALUE_H

#include "core/basic_types.h"

namespace vexa::reference {

/// Calls \p store with the basic value at an address as the type that it has for the writing functions: a char as char,
/// a text by its first character. Any other code is passed over.
template<class Store>
void WithSourceValue(unsigned char code, const void* address, Store&& store)
{
    core::VisitBasicType(code, [&](auto type) {
        using T = typename decltype(type)::Type;
        if constexpr (type.CODE == Enum::DT_CHAR)
            store(static_cast<char>(core::Load<T>(address)));
        else if constexpr (std::is_same_v<T, core::CTextAtAddress>)
            store(static_cast<const char*>(address));
        else
            store(core::Load<T>(address));
    });
}

} // namespace vexa::reference

#endif
