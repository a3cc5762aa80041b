#include "reference/custom_value.h"

namespace vexa {

std::string CCustomBasicTypeInfor::AsString(const void* value) const
{
    if (value == nullptr || ToValue == nullptr) return {};
    const reference::CMadeValue converted;
    ToValue(value, converted.Get());
    return converted.Described().AsString(Enum::ASF_VALUE);
}

} // namespace vexa
