#ifndef VEXA_REFERENCE_FLAT_ATTRIB_H
#define VEXA_REFERENCE_FLAT_ATTRIB_H

#include <vexa/class_infor.h>
#include <vexa/refrence.h>

namespace vexa::reference {

/// The flat attribute of one element; a null element gives a reference without address.
inline CConstRefrence FlatAttribOf(const CConstRefrence& element, const CFlatAttribInfor& attrib)
{
    auto* const object = static_cast<char*>(element.ValueAddress());
    return {attrib.AttribInfor->TypeInfor, object != nullptr ? object + attrib.Offset : nullptr};
}

} // namespace vexa::reference

#endif
