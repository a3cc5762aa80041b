#ifndef VEXA_REFERENCE_EMPTYING_H
#define VEXA_REFERENCE_EMPTYING_H

#include <vexa/refrence.h>

namespace vexa::reference {

/// Clears a value as CRefrence::Clear does, and settles the unions in it. The slots of an array that holds such unions
/// are cleared one by one by their description, since the array's own way is to assign to them. \return as
/// CUnionWatch::Settle.
bool ClearAndSettle(CRefrence value);

/// The same, and before that empties what every MayNull in the value keeps below its flag, which clearing alone leaves
/// as it is: no one who makes the value not null again meets what it held.
bool Empty(CRefrence value);

/// Makes a value not null for one who then adds to what it holds: a null MayNull is emptied first. A value that is not
/// null stays as it is. \return as Empty.
bool SetNotNullAndEmpty(CRefrence& value);

} // namespace vexa::reference

#endif
