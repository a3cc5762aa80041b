#ifndef VEXA_TYPEINFO_KEPT_SELECTORS_H
#define VEXA_TYPEINFO_KEPT_SELECTORS_H

#include <vexa/class_infor.h>

/// \file
/// Selectors that are no attributes of their class. A union member reads its selector where it lies in the object, also
/// when the class cannot show the selector because its name is taken: what the record knew of the place is kept beside
/// the class, as long as the class lives. Safe on any thread.

namespace vexa::typeinfo {

/// Takes a record out of the class's list and keeps it; its address stays.
void KeepSelector(CClassInfor& owner, CClassInfor::AttribPosition record);

/// Keeps a copy of another class's record, \p offset bytes further on.
const CAttribInfor& KeepSelectorCopy(const CClassInfor& owner, const CAttribInfor& record, unsigned long offset);

/// Frees what is kept for a class that goes.
void DropKeptSelectors(const CClassInfor& owner) noexcept;

} // namespace vexa::typeinfo

#endif
