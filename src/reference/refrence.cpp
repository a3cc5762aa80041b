// Clearing: what every kind of value becomes when it is emptied.

#include <vexa/refrence.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include <vexa/class_refrence.h>
#include <vexa/container_refrence.h>
#include <vexa/custom_type_infor.h>
#include <vexa/helper.h>

#include "core/basic_types.h"
#include "core/type_table.h"
#include "reference/custom_value.h"

namespace vexa {

using namespace Enum;

namespace {

/// The members of unions that are cleared are those that were active before: the walk looks at the selectors, which are
/// attributes and will be cleared too.
void ClearUnions(const CClassConstRefrence& object)
{
    std::vector<CRefrence> active;
    for (const auto& attrib : object.Attribs())
        active.emplace_back(attrib.Value().TypeInfor, attrib.Value().Address);
    for (CRefrence& attrib : active)
        attrib.Clear();
}

void ClearClass(const CClassConstRefrence& object)
{
    if (object.ClassInfor().UnionEnumMap != nullptr) return ClearUnions(object);
    for (const auto& attrib : object.Attribs()) {
        CRefrence(attrib.Value().TypeInfor, attrib.Value().Address).Clear();
    }
}

/// Only the converter of a type with a layout of its own knows its empty state: that of a null value.
void ClearCustom(const CRefrence& custom)
{
    if (!reference::HasOwnLayout(custom.TypeInfor)) return reference::StandardValueInPlace(custom).Clear();
    const auto convert = reference::CustomInfor(custom.TypeInfor).FromValue;
    void* const object = custom.ValueAddress();
    if (convert != nullptr && object != nullptr) convert(object, reference::CMadeValue().Get());
}

} // namespace

void CRefrence::Clear()
{
    const unsigned char code = TypeInfor.DataType;
    if (TypeInfor.Has(HF_NULLABLE) || code == DT_VALUE) {
        // What is read-only stays; a pointer to it is only forgotten.
        if (!TypeInfor.Has(HF_CONST) || TypeInfor.Has(HF_POINTER)) SetNull();
        return;
    }
    auto* const clearRecord = core::TypeRow(code).Clear;
    const bool isNesting = code == DT_CLASS || TypeInfor.IsContainer();
    if (!isNesting && !TypeInfor.IsBasicType() && code != DT_CUSTOM_BASIC && clearRecord == nullptr) {
        helper::LogError("Not supported type %s In function CRefrence::Clear()", TypeName().c_str());
        return;
    }
    void* const value = Address != nullptr && !TypeInfor.Has(HF_CONST) ? TypeInfor.ValueAddress(Address) : nullptr;
    if (value == nullptr) return;
    if (code == DT_CLASS)
        ClearClass(AsClass());
    else if (TypeInfor.IsContainer())
        AsContainer().Clear();
    else if (code == DT_CUSTOM_BASIC)
        ClearCustom(*this);
    else if (clearRecord != nullptr)
        clearRecord(value);
    else
        AsStdBasicType().Clear();
}

void CStdBasicTypeRefrence::Clear()
{
    void* const value = Address != nullptr && !TypeInfor.Has(HF_CONST) ? TypeInfor.ValueAddress(Address) : nullptr;
    if (value == nullptr) return;
    core::VisitBasicType(TypeInfor.DataType, [&](auto type) {
        using T = typename decltype(type)::Type;
        // Numbers are emptied at the address itself, objects where the value lives: the two differ for a pointer that
        // is never null, which is zeroed, and its pointee left alone. A string is told by where it lives too, since the
        // memory of a pointer or a wrapper is none.
        if constexpr (type.IS_NUMBER) {
            std::memset(Address, 0, TypeInfor.Has(HF_POINTER) ? std::min(sizeof(T), sizeof(void*)) : sizeof(T));
        } else if constexpr (std::is_same_v<T, std::string>) {
            static_cast<std::string*>(value)->clear();
        } else if constexpr (std::is_same_v<T, CBinary>) {
            static_cast<CBinary*>(value)->Reset(0);
        } else if constexpr (std::is_same_v<T, CNumeric> || std::is_same_v<T, CDateTime>) {
            *static_cast<T*>(value) = T();
        }
    });
}

namespace helper {

void ChangeTypeTo_ClassType(CRefrence& ref, const CClassInfor& classInfor, const void* object)
{
    CGnlTypeInfor type(DT_CLASS, ref.TypeInfor.HoldingFlags, &classInfor);
    type.NullFlagOffset = ref.TypeInfor.NullFlagOffset;
    type.ValueOffset = ref.TypeInfor.ValueOffset;
    ref.TypeInfor = type;
    ref.Address = const_cast<void*>(object);
}

} // namespace helper
} // namespace vexa
