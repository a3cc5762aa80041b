#include "typeinfo/source_name.h"

#include <algorithm>
#include <utility>

#include <vexa/custom_type_infor.h>

#include "typeinfo/qualified_name.h"

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
    case detail::SlotForm::CLASS: return NameOf(static_cast<const detail::CClassSlot&>(slot));
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

/// `<int>`: where the arguments of a template's instance begin in its name; the end of every other name.
static std::size_t ArgumentsIn(const std::string& name)
{
    if (name.empty() || name.back() != '>') return name.size();
    std::size_t place = name.size();
    int depth = 0;
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (name[i] == '\'') i = std::min(name.find('\'', i + (name[i + 1] == '\\' ? 3 : 2)), name.size());
        if (name[i] == '<' && depth++ == 0) place = i;
        if (name[i] == '>') --depth;
    }
    return place;
}

std::string NameOf(const detail::CClassSlot& slot)
{
    if (!slot.IsOutside) return slot.Name;
    const std::string spelled = QualifiedName(slot.Spelled);
    return slot.Name != nullptr ? slot.Name + spelled.substr(ArgumentsIn(spelled)) : spelled;
}

} // namespace vexa::typeinfo
