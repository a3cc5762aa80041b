// The custom descriptors of types whose structure is known, and the names that are composed of their parts' names.

#include "typeinfo/shape.h"

#include <utility>

#include "typeinfo/notes.h"

namespace vexa::typeinfo {

namespace {

/// A descriptor that has nothing but a name.
CTypeInforBase Named(std::string name)
{
    CTypeInforBase named;
    named.Name = std::move(name);
    return named;
}

std::string NameOfContainer(const detail::CContainerRecord& record)
{
    const CTypeInforBase element = Named(NameOf(record.Element));
    CContainerInfor container;
    container.Name = record.Name;
    container.ElementType = CGnlTypeInfor(Enum::DT_CLASS, 0, &element);
    return container.TypeName();
}

/// Without how it is held.
std::string NameOfDetail(detail::CSlot& slot)
{
    switch (slot.Form) {
    case detail::SlotForm::CLASS: return static_cast<const detail::CClassSlot&>(slot).Name;
    case detail::SlotForm::CONTAINER: return NameOfContainer(static_cast<const detail::CContainerSlot&>(slot).Record);
    case detail::SlotForm::CUSTOM: {
        const detail::CShapedType* const shaped = static_cast<const detail::CCustomSlot&>(slot).Shaped;
        return shaped != nullptr ? NameOf(*shaped) : detail::DescriptorOf<CTypeInforBase>(slot).Name;
    }
    default: return {};
    }
}

} // namespace

std::string NameOf(const detail::CTypeSource& source)
{
    if (source.Detail == nullptr || source.Detail->Form == detail::SlotForm::ENUMERATION)
        return CGnlTypeInfor(source.DataType, source.HoldingFlags).TypeName();
    const CTypeInforBase value = Named(NameOfDetail(*source.Detail));
    return CGnlTypeInfor(Enum::DT_CLASS, source.HoldingFlags, &value).TypeName();
}

/// Tells a part that is const.
static std::string NameOfPart(const detail::CTypeSource& part)
{
    const unsigned int constness = part.HoldingFlags & (Enum::HF_CONST | Enum::HF_POINTER);
    return (constness == Enum::HF_CONST ? "const " : "") + NameOf(part);
}

std::string NameOf(const detail::CShapedType& type)
{
    std::string name = type.Name;
    if (type.AppendName != nullptr) {
        type.AppendName(name);
    } else if (type.Shape.PartCount != 0) {
        for (unsigned int i = 0; i < type.Shape.PartCount; ++i)
            name += (i == 0 ? "<" : ", ") + NameOfPart(type.Shape.Parts[i]);
        name += '>';
    }
    return name;
}

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

const detail::CShape* ShapeOf(const CCustomBasicTypeInfor& infor) noexcept
{
    const CFinishedCustom* const finished = FinishedCustom(infor);
    return finished != nullptr ? finished->Shape : nullptr;
}

} // namespace vexa::typeinfo
