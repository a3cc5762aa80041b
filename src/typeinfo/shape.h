#ifndef VEXA_TYPEINFO_SHAPE_H
#define VEXA_TYPEINFO_SHAPE_H

#include <memory>

#include <vexa/detail/shape.h>

#include "typeinfo/finished_class.h"

namespace vexa::typeinfo {

/// The custom descriptor of a type with a shape. Nothing of its parts is described for it: a class may hold itself
/// through its parts.
std::unique_ptr<CFinishedCustom> MakeShaped(const detail::CShapedType& type);

} // namespace vexa::typeinfo

#endif
