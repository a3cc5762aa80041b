#ifndef VEXA_TYPEINFO_KEPT_SELECTORS_H
#define VEXA_TYPEINFO_KEPT_SELECTORS_H

#include <vexa/class_infor.h>

/// \file
/// Union members and selectors that are no attributes of their class, since their names are taken. A union member reads
/// its selector where it lies in the object, whoever has its name; and a member that the class cannot show lies in its
/// union all the same. What the records knew is kept beside the class, as long as the class lives. Safe on any thread.

namespace vexa::typeinfo {

/// Takes a record out of the class's list and keeps it; its address stays. One that is no union member is a selector.
void KeepHidden(CClassInfor& owner, CClassInfor::AttribPosition record);

/// Keeps a copy of another class's selector, \p offset bytes further on, with the selector that it has itself.
const CAttribInfor& KeepSelectorCopy(const CClassInfor& owner, const CAttribInfor& record, unsigned long offset);

/// Keeps copies of the union members that a base hides, \p offset bytes further on, each with its selector.
void InheritHiddenMembers(const CClassInfor& derived, const CClassInfor& base, unsigned long offset);

/// The union members that a class hides, their selectors before them. They stay the same once the class is indexed.
const std::list<CAttribInfor>& HiddenMembersOf(const CClassInfor& owner);

/// Frees what is kept for a class that goes.
void DropKeptSelectors(const CClassInfor& owner) noexcept;

} // namespace vexa::typeinfo

#endif
