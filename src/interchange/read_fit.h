#ifndef VEXA_INTERCHANGE_READ_FIT_H
#define VEXA_INTERCHANGE_READ_FIT_H

#include <vexa/event.h>

#include "interchange/form.h"

namespace vexa::interchange {

/// Whether a value of a form can be read from such a value of a text, by the kind alone. \p form must not be const.
bool TakesKind(CForms& forms, const CForm& form, EventKind kind);
/// Whether numbers of that form are integers.
bool IsIntegerForm(const CForm& form) noexcept;

} // namespace vexa::interchange

#endif
