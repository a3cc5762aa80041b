#ifndef VEXA_INTERCHANGE_READ_KEY_H
#define VEXA_INTERCHANGE_READ_KEY_H

#include <string_view>

#include <vexa/detail/enumeration.h>
#include <vexa/report.h>

#include "interchange/form.h"

namespace vexa::interchange {

/// The value of a name; false where there is none.
bool FindEnumerator(const detail::CEnumerationSlot& enumeration, std::string_view name, long long& value);

/// Stores the decimal number that a text is into an integer, a signed byte or an enumeration. \return what is wrong;
/// nothing is stored then.
ProblemCode SetIntegerKey(const CForm& form, char* key, std::string_view text);

} // namespace vexa::interchange

#endif
