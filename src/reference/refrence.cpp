// Clearing: what every kind of value becomes when it is emptied.

#include <vexa/refrence.h>

#include <vexa/class_refrence.h>
#include <vexa/container_refrence.h>
#include <vexa/custom_type_infor.h>
#include <vexa/helper.h>

#include "core/basic_types.h"
#include "reference/custom_value.h"

namespace vexa {

using namespace Enum;

namespace {

void ClearClass(const CClassConstRefrence& object)
{
    for (const auto& attrib : object.Attribs()) {
        CRefrence(attrib.Value().TypeInfor, attrib.Value().Address).Clear();
    }
}

} // namespace

void CRefrence::Clear()
{
    if (TypeInfor.Has(HF_NULLABLE) || TypeInfor.DataType == DT_VALUE) {
        TypeInfor.SetNull(Address);
    } else if (TypeInfor.Has(HF_CONST) || Address == nullptr) {
        return;
    } else if (TypeInfor.IsBasicType()) {
        AsStdBasicType().Clear();
    } else if (TypeInfor.IsContainer()) {
        AsContainer().Clear();
    } else if (TypeInfor.DataType == DT_CLASS) {
        ClearClass(AsClass());
    } else if (TypeInfor.DataType == DT_CUSTOM_BASIC) {
        const CConstRefrence value = reference::StandardValue(*this);
        CRefrence(value.TypeInfor, value.Address).Clear();
    } else {
        helper::LogError("Not supported type %s In function CRefrence::Clear()", TypeName().c_str());
    }
}

void CStdBasicTypeRefrence::Clear()
{
    void* const value = Address != nullptr && !TypeInfor.Has(HF_CONST) ? TypeInfor.ValueAddress(Address) : nullptr;
    if (value == nullptr) return;
    core::VisitBasicType(TypeInfor.DataType, [&](auto type) {
        using T = typename decltype(type)::Type;
        // Numbers and strings are emptied at the address itself, value objects where the value lives: the two differ for a
        // pointer that is never null, which is zeroed, and its pointee left alone.
        if constexpr (type.IS_NUMBER) {
            core::Store(Address, T());
        } else if constexpr (std::is_same_v<T, std::string>) {
            *static_cast<std::string*>(Address) = std::string();
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
