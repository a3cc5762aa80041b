// The custom descriptors of types whose structure is known.

#include "typeinfo/shape.h"

#include "typeinfo/source_name.h"

namespace vexa::typeinfo {

std::unique_ptr<CFinishedCustom> MakeShaped(const detail::CShapedType& type)
{
    auto made = std::make_unique<CFinishedCustom>();
    made->SetBaseTypeInfor(NameOf(type), type.Size, type.Factory, type.Deleter, 0);
    made->ToValue = type.ToValue;
    made->FromValue = type.FromValue;
    made->Shape = &type.Shape;
    made->Mark.Set(detail::CFinishedMark::SHAPE);
    return made;
}

} // namespace vexa::typeinfo
