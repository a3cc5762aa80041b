#ifndef VEXA_INTERCHANGE_ENUMERATION_H
#define VEXA_INTERCHANGE_ENUMERATION_H

#include <string_view>

#include <vexa/detail/enumeration.h>

namespace vexa::interchange {

/// The name of the first enumerator of a value; empty where there is none.
inline std::string_view NameOfValue(const detail::CEnumerationSlot& enumeration, long long value) noexcept
{
    unsigned long number = 0;
    while (number < enumeration.Count && enumeration.Values[number] != value)
        ++number;
    if (number == enumeration.Count) return {};
    std::string_view names = enumeration.Names;
    for (; number != 0; --number)
        names.remove_prefix(names.find(',') + 1);
    names = names.substr(0, names.find(','));
    names.remove_prefix(names.find_first_not_of(' '));
    return names.substr(0, names.find_last_not_of(' ') + 1);
}

} // namespace vexa::interchange

#endif
