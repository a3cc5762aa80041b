#ifndef VEXA_REFERENCE_EMPTYING_H
#define VEXA_REFERENCE_EMPTYING_H

#include <vexa/refrence.h>

namespace vexa::reference {

/// Clears a value, and before that what a MayNull in it keeps below its flag, which clearing alone leaves as it is: no
/// one who makes the value not null again meets what it held.
void Empty(CRefrence value);

/// Makes a value not null for one who then adds to what it holds: a null MayNull is emptied first. A value that is not
/// null stays as it is.
void SetNotNullAndEmpty(CRefrence& value);

} // namespace vexa::reference

#endif
