#include "record/leaf.h"

#include <type_traits>

#include "core/basic_types.h"
#include "reference/custom_value.h"

namespace vexa::record {

using namespace Enum;

bool IsLeaf(const CGnlTypeInfor& type)
{
    return type.IsBasicType() ||
           (type.DataType == DT_CUSTOM_BASIC &&
            (reference::HasOwnLayout(type) || type.GetStdTypeInforFromCustomType().IsBasicType()));
}

namespace {

/// Sets a basic value by reading \p value as its type, so that a text goes into a number and a number into a text.
void WriteBasic(CStdBasicTypeRefrence& target, const CValue& value)
{
    core::VisitBasicType(target.TypeInfor.DataType, [&](auto type) {
        using T = typename decltype(type)::Type;
        if constexpr (std::is_same_v<T, std::string>)
            target.ReadFrom(value.As_std_string());
        else if constexpr (std::is_same_v<T, long double>)
            target.ReadFrom(value.As_long_double());
        else if constexpr (std::is_same_v<T, core::CTextAtAddress>)
            target.ReadFrom(value.As_const_char_ptr());
        else {
            T converted{};
            value.WriteTo(converted);
            target.ReadFrom(converted);
        }
    });
}

} // namespace

void WriteLeaf(CRefrence leaf, const CValue& value)
{
    if (value.IsNull()) return leaf.Clear();
    if (leaf.TypeInfor.DataType != DT_CUSTOM_BASIC) return WriteBasic(leaf.AsStdBasicType(), value);
    leaf.SetNotNull();
    if (!reference::HasOwnLayout(leaf.TypeInfor)) {
        CRefrence standard = reference::StandardValueInPlace(leaf);
        WriteBasic(standard.AsStdBasicType(), value);
        return;
    }
    const auto convert = reference::CustomInfor(leaf.TypeInfor).FromValue;
    if (convert != nullptr && leaf.ValueAddress() != nullptr) convert(leaf.ValueAddress(), value);
}

} // namespace vexa::record
