#include <vexa/type_infor.h>

#include <stdexcept>

#include <vexa/container_infor.h>
#include <vexa/custom_type_infor.h>

#include "core/type_table.h"

namespace vexa {

using namespace Enum;
using core::TypeRow;
using core::TypeSource;

void CTypeInforBase::SetBaseTypeInfor(const std::string& name, unsigned long size, FactoryFunction factory,
                                      DeleterFunction deleter, unsigned int customTypeID)
{
    Name = name;
    Size = size;
    CustomTypeID = customTypeID;
    Factory = factory;
    Deleter = deleter;
}

unsigned long CGnlTypeInfor::Sizeof() const
{
    const core::CTypeRow& row = TypeRow(DataType);
    return row.Source == TypeSource::Detail || row.Source == TypeSource::Container ? DetailInfor->Size : row.Size;
}

void* CGnlTypeInfor::New() const
{
    const core::CTypeRow& row = TypeRow(DataType);
    void* (*const make)() = row.Source == TypeSource::Row ? row.Make : DetailInfor->Factory;
    return make != nullptr ? make() : nullptr;
}

void CGnlTypeInfor::Delete(void*& object) const
{
    const core::CTypeRow& row = TypeRow(DataType);
    void (*const destroy)(void*) = row.Source == TypeSource::Row ? row.Destroy : DetailInfor->Deleter;
    if (destroy != nullptr) destroy(object);
    object = nullptr;
}

bool CGnlTypeInfor::IsStringTypeEx() const
{
    switch (DataType) {
    case DT_STD_STRING:
    case DT_CONST_CHAR_PTR: return true;
    case DT_CUSTOM_BASIC: return GetStdTypeInforFromCustomType().DataType == DT_STD_STRING;
    case DT_ARRAY: {
        const CGnlTypeInfor& element = static_cast<const CContainerInfor*>(DetailInfor)->ElementType;
        return element.DataType == DT_CHAR && !element.Has(HF_POINTER) && element.WrapperKind() == 0;
    }
    default: return false;
    }
}

bool CGnlTypeInfor::IsNumericTypeEx() const { return IsNumberCode(DataType) || DataType == DT_NUMERIC; }

const CGnlTypeInfor& CGnlTypeInfor::GetStdTypeInforFromCustomType() const
{
    return static_cast<const CCustomBasicTypeInfor*>(DetailInfor)->Underlying;
}

unsigned int CGnlTypeInfor::GetCustomTypeID() const
{
    return DataType == DT_CUSTOM_BASIC || DataType == DT_CUSTOM_OWNED ? DetailInfor->CustomTypeID : 0;
}

std::string CGnlTypeInfor::RealTypeName() const
{
    const core::CTypeRow& row = TypeRow(DataType);
    switch (row.Source) {
    case TypeSource::Detail: return DetailInfor->Name;
    case TypeSource::Container: return static_cast<const CContainerInfor*>(DetailInfor)->TypeName();
    default: return row.Name;
    }
}

std::string CGnlTypeInfor::TypeName() const
{
    if (WrapperKind() == HF_MAY_NULL) return "MayNull<" + RealTypeName() + ">";
    if (WrapperKind() == HF_NON_NULL_POINTER) return "NonNullPointer<" + RealTypeName() + ">";
    if (DataType == DT_CONST_CHAR_PTR || !Has(HF_POINTER)) return RealTypeName();
    return (Has(HF_CONST) ? "const " : "") + RealTypeName() + "*";
}

void CGnlTypeInfor::ChangeTypeTo_CustomType(const char* name, unsigned long size, void* (*factory)(),
                                            void (*deleter)(void*), unsigned int customTypeID)
{
    auto* const custom = new CTypeInforBase();
    DataType = DT_CUSTOM_OWNED;
    DetailInfor = custom;
    if (name == nullptr) throw std::logic_error("basic_string::_M_construct null not valid");
    custom->SetBaseTypeInfor(std::string(name), size, factory, deleter, customTypeID);
}

const CTypeInforBase* CGnlTypeInfor::CopyOfOwned(const CTypeInforBase* owned) { return new CTypeInforBase(*owned); }

void CGnlTypeInfor::ReleaseOwned(const CTypeInforBase* owned) noexcept { delete owned; }

} // namespace vexa
