#ifndef VEXA_INTERCHANGE_READ_SET_ASIDE_H
#define VEXA_INTERCHANGE_READ_SET_ASIDE_H

#include "interchange/form.h"
#include "interchange/undo.h"

namespace vexa::interchange {

/// Takes everything that a value holds into the record; what is left needs only to be destroyed. \return false where
/// that is not possible; what has been taken by then is noted.
bool TakeAway(CForms& forms, CUndo& undo, const CForm& form, char* object);
/// Whether the attribute selects among members of which one holds a pointer or needs a destructor.
bool IsGuardingSelector(const CClassInfor& owner, const CAttribInfor& attrib);

} // namespace vexa::interchange

#endif
