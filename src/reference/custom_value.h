#ifndef VEXA_REFERENCE_CUSTOM_VALUE_H
#define VEXA_REFERENCE_CUSTOM_VALUE_H

#include <vexa/custom_type_infor.h>
#include <vexa/refrence.h>

namespace vexa::reference {

/// The standard value inside a custom basic value; without address when the custom value is null.
inline CConstRefrence StandardValue(const CConstRefrence& custom)
{
    const auto& infor = *static_cast<const CCustomBasicTypeInfor*>(custom.TypeInfor.DetailInfor);
    auto* const object = static_cast<char*>(custom.ValueAddress());
    return {infor.Underlying, object != nullptr ? object + infor.ValueOffset : nullptr};
}

} // namespace vexa::reference

#endif
