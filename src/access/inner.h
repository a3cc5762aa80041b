#ifndef VEXA_ACCESS_INNER_H
#define VEXA_ACCESS_INNER_H

#include <vexa/detail/access.h>

#include "interchange/form.h"

/// \file
/// What pointers, wrappers, optionals and variants hold.

namespace vexa::access {

using detail::CSpot;
using interchange::CForm;
using interchange::CForms;
using interchange::FormKind;

/// A value itself, whatever holds it.
struct CInner {
    CGnlTypeInfor Type;    ///< held directly
    char* Value = nullptr; ///< null where something on the way is
    FormKind Kind = FormKind::UNSUPPORTED;
    const detail::CShape* Shape = nullptr; ///< where Kind is SHAPE
    bool IsConst = false;

    const CClassInfor& ClassInfor() const { return *static_cast<const CClassInfor*>(Type.DetailInfor); }
    const CContainerInfor& ContainerInfor() const { return *static_cast<const CContainerInfor*>(Type.DetailInfor); }
    const CCustomBasicTypeInfor& CustomInfor() const
    {
        return *static_cast<const CCustomBasicTypeInfor*>(Type.DetailInfor);
    }
    template<class Operations>
    const Operations& ShapeOperations() const
    {
        return *static_cast<const Operations*>(Shape->Operations);
    }
};

/// Where the value of a spot lies: through a pointer or wrapper, but not into an optional or variant.
CInner Opened(const CSpot& spot);

/// Steps into a std::optional, std::shared_ptr or the active alternative of a std::variant, one level deep.
/// \return false where the spot is none of them, or holds nothing; \p spot is as it was then.
bool EnterHolder(CForms& forms, CSpot& spot);

/// The value inside all of them; of a class whose objects tell what they are, as what it is.
CInner Innermost(CForms& forms, CSpot spot);

} // namespace vexa::access

#endif
