#include "access/inner.h"

namespace vexa::access {

using detail::ShapeKind;
using interchange::Held;

CInner Opened(const CSpot& spot)
{
    CInner inner;
    if (spot.Ref.Address == nullptr) return inner;
    const CForm form(spot.Ref.TypeInfor, 0, spot.Names);
    inner.Type = spot.Ref.TypeInfor;
    inner.Type.HoldingFlags = 0;
    inner.Value = const_cast<char*>(form.Value(static_cast<const char*>(spot.Ref.Address)));
    inner.Kind = form.Kind;
    inner.Shape = form.Shape;
    inner.IsConst = spot.IsConst || form.IsConst;
    return inner;
}

namespace {

/// Moves a spot to a part of what it holds.
void MoveTo(CSpot& spot, const CInner& inner, const CForm& part, const void* value)
{
    spot.Ref = CRefrence(*part.Type, const_cast<void*>(value));
    spot.Names = part.Enumeration;
    spot.IsConst = inner.IsConst;
}

bool IsAnyOf(const CInner& inner, ShapeKind kind)
{
    return inner.Kind == FormKind::SHAPE && inner.Value != nullptr && inner.Shape->Kind == kind;
}

} // namespace

bool EnterHolder(CForms& forms, CSpot& spot)
{
    const CInner inner = Opened(spot);
    if (IsAnyOf(inner, ShapeKind::OPTIONAL)) {
        const void* const held = inner.ShapeOperations<detail::COptionalOperations>().Get(inner.Value);
        if (held == nullptr) return false;
        MoveTo(spot, inner, forms.Of(inner.CustomInfor()).Parts.front(), held);
        return true;
    }
    if (!IsAnyOf(inner, ShapeKind::VARIANT)) return false;
    const auto& operations = inner.ShapeOperations<detail::CVariantOperations>();
    const unsigned int number = operations.Index(inner.Value);
    if (number == detail::CVariantOperations::VALUELESS) return false;
    MoveTo(spot, inner, forms.Of(inner.CustomInfor()).Parts[number], operations.Get(inner.Value));
    return true;
}

CInner Innermost(CForms& forms, CSpot spot)
{
    bool isReached = spot.Ref.TypeInfor.Has(Enum::HF_POINTER); // through a pointer, so that it may be a derived object
    while (EnterHolder(forms, spot))
        isReached = true;
    CInner inner = Opened(spot);
    const bool isHolder = IsAnyOf(inner, ShapeKind::OPTIONAL) || IsAnyOf(inner, ShapeKind::VARIANT);
    if (isHolder) inner.Value = nullptr; // which holds nothing
    if (inner.Value == nullptr || inner.Kind != FormKind::CLASS || !isReached) return inner;
    const void* whole = inner.Value;
    inner.Type.DetailInfor = &DynamicClassOf(inner.ClassInfor(), inner.Value, whole);
    inner.Value = static_cast<char*>(const_cast<void*>(whole));
    return inner;
}

} // namespace vexa::access
