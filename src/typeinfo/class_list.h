#ifndef VEXA_TYPEINFO_CLASS_LIST_H
#define VEXA_TYPEINFO_CLASS_LIST_H

#include <vector>

#include <vexa/class_infor.h>

/// \file
/// The list of the registered classes, by their qualified names. Everything here takes the global lock.

namespace vexa::typeinfo {

/// Lists a class that is finished. \p place lies in the program or shared object that describes it, and the class is
/// found as long as that is loaded. Throws std::bad_alloc; the class is then not listed.
void List(const CClassInfor& infor, const void* place);
/// Takes a class off the list that may not be on it.
void Unlist(const CClassInfor& infor) noexcept;

/// The classes that can stand for another (CClassNotes::Ancestors), in the order of their names.
std::vector<const CClassInfor*> ListedDerivedOf(const CClassInfor& base);
/// Changes with every class that can stand for another, and is on the list or off it from then on.
unsigned long DerivedGeneration() noexcept;

} // namespace vexa::typeinfo

#endif
