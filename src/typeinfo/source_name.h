#ifndef VEXA_TYPEINFO_SOURCE_NAME_H
#define VEXA_TYPEINFO_SOURCE_NAME_H

#include <string>

#include <vexa/detail/shape.h>
#include <vexa/detail/slot.h>

/// \file
/// The registered names of types before anything of them is described: a type may be named by one that it names.

namespace vexa::typeinfo {

/// What CGnlTypeInfor::TypeName will say.
std::string NameOf(const detail::CTypeSource& source);
/// What the descriptor will have as its name.
std::string NameOf(const detail::CShapedType& type);
std::string NameOf(const detail::CClassSlot& slot);

} // namespace vexa::typeinfo

#endif
