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

/// Only the converter of a type with a layout of its own knows its empty state: that of a null value. \param object is
/// null for one that is null or read-only: the standard type has its say nevertheless.
void ClearCustom(const CGnlTypeInfor& type, void* object)
{
    const CCustomBasicTypeInfor& infor = reference::CustomInfor(type);
    if (object != nullptr && infor.FromValue != nullptr && reference::HasOwnLayout(type))
        infor.FromValue(object, reference::CMadeValue().Get());
    else
        reference::StandardValueAt(infor, object).Clear();
}

using ClearFunction = void (*)(CRefrence& ref, void* value);

/// How values of a kind are emptied; null for a kind that cannot be.
ClearFunction ClearFunctionOf(const CGnlTypeInfor& type)
{
    if (type.DataType == DT_CLASS) return [](CRefrence& ref, void*) { ClearClass(ref.AsClass()); };
    if (type.IsBasicType()) return [](CRefrence& ref, void*) { ref.AsStdBasicType().Clear(); };
    if (type.IsContainer()) return [](CRefrence& ref, void*) { ref.AsContainer().Clear(); };
    if (core::TypeRow(type.DataType).Clear == nullptr) return nullptr;
    return [](CRefrence& ref, void* value) { core::TypeRow(ref.TypeInfor.DataType).Clear(value); };
}

} // namespace

void CRefrence::Clear()
{
    if (TypeInfor.Has(HF_NULLABLE) || TypeInfor.DataType == DT_VALUE) {
        if (!TypeInfor.IsFixed()) SetNull();
        return;
    }
    void* const value = Address != nullptr && !TypeInfor.Has(HF_CONST) ? TypeInfor.ValueAddress(Address) : nullptr;
    if (TypeInfor.DataType == DT_CUSTOM_BASIC) return ClearCustom(TypeInfor, value);
    const ClearFunction clear = ClearFunctionOf(TypeInfor);
    if (clear == nullptr)
        helper::LogError("Not supported type %s In function CRefrence::Clear()", TypeName().c_str());
    else if (value != nullptr)
        clear(*this, value);
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
