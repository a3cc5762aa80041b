#include "interchange/form.h"

#include <algorithm>

#include "core/basic_types.h"

namespace vexa::interchange {

using namespace Enum;

namespace {

const CContainerInfor& ContainerOf(const CGnlTypeInfor& type)
{
    return *static_cast<const CContainerInfor*>(type.DetailInfor);
}

/// The class of a container's elements where they can be the pairs of a map; else null.
const CClassInfor* PairOf(const CGnlTypeInfor& type)
{
    if (type.DataType != DT_CLASS || type.HoldingFlags != 0) return nullptr;
    const auto* const pair = static_cast<const CClassInfor*>(type.DetailInfor);
    const auto& attribs = pair->AttribList;
    const bool isPair = attribs.size() == 2 && attribs.front().Name == "first" && attribs.back().Name == "second";
    return isPair ? pair : nullptr;
}

bool IsInteger(unsigned char code)
{
    return IsNumberCode(code) && code != DT_BOOL && code != DT_FLOAT && code != DT_DOUBLE && code != DT_LONG_DOUBLE;
}

/// Whether such keys can stand as keys of an object.
bool CanBeKey(const CForm& key)
{
    if (key.How != Held::DIRECT) return false;
    if (key.Kind == FormKind::ENUMERATION) return true;
    if (key.Kind == FormKind::BASIC) return key.Code == DT_STD_STRING || IsInteger(key.Code);
    return key.Kind == FormKind::SHAPE &&
           (key.Shape->Kind == detail::ShapeKind::SIGNED_BYTE || key.Shape->Kind == detail::ShapeKind::TEXT);
}

CForm FormOf(const CClassInfor& owner, const CAttribInfor& attrib)
{
    const typeinfo::CMemberNotes* const notes = typeinfo::NotesOf(owner, attrib);
    return {attrib.TypeInfor, attrib.Offset, notes != nullptr ? notes->Enumeration : nullptr};
}

/// The four unordered containers have one code.
bool IsMulti(const CContainerInfor& infor, unsigned char code)
{
    return code == DT_ASSOCIATIVE_D || infor.Name.find("multi") != std::string::npos;
}

FormKind KindOfAssociative(const CContainerInfor& infor, unsigned char code)
{
    const CClassInfor* const pair = PairOf(infor.ElementType);
    const std::string_view name = infor.Name;
    const bool isMap = code == DT_ASSOCIATIVE_C || code == DT_ASSOCIATIVE_D ||
                       (code == DT_ASSOCIATIVE_E && name.size() >= 3 && name.substr(name.size() - 3) == "map");
    if (!isMap || pair == nullptr) return FormKind::INSERTED;
    return !IsMulti(infor, code) && CanBeKey(FormOf(*pair, pair->AttribList.front())) ? FormKind::MAP
                                                                                      : FormKind::PAIR_MAP;
}

FormKind KindOfContainer(const CGnlTypeInfor& type)
{
    const CContainerInfor& infor = ContainerOf(type);
    if (type.DataType == DT_BITSET) return FormKind::BITSET;
    if (type.IsAssociative()) return KindOfAssociative(infor, type.DataType);
    if (type.DataType != DT_ARRAY) return FormKind::SEQUENCE;
    const bool isText = infor.ElementType.DataType == DT_CHAR && infor.ElementType.HoldingFlags == 0 &&
                        infor.Mark.Is(detail::CFinishedMark::SLOTS) &&
                        typeinfo::EnumerationOfElements(infor) == nullptr;
    return isText ? FormKind::CHAR_ARRAY : FormKind::ARRAY;
}

/// A std::pair is described by the library, under a name that no class of an application has.
bool IsStdPair(const CGnlTypeInfor& type)
{
    return type.DetailInfor->Name == "std::pair" &&
           typeinfo::FinishedClass(*static_cast<const CClassInfor*>(type.DetailInfor)) != nullptr;
}

FormKind KindOf(const CGnlTypeInfor& type)
{
    switch (type.DataType) {
    case DT_CLASS: return IsStdPair(type) ? FormKind::PAIR : FormKind::CLASS;
    case DT_NULL: return FormKind::NULL_TYPE;
    case DT_VALUE: return FormKind::VALUE;
    case DT_ROW: return FormKind::ROW;
    case DT_TABLE: return FormKind::TABLE;
    case DT_GNL_CLASS: return FormKind::GENERIC;
    case DT_REFERENCE_GROUP: return FormKind::GROUP;
    case DT_CUSTOM_BASIC: return FormKind::CUSTOM;
    default: break;
    }
    if (type.IsContainer()) return KindOfContainer(type);
    return core::VisitBasicType(type.DataType, [](auto) {}) ? FormKind::BASIC : FormKind::UNSUPPORTED;
}

} // namespace

bool IsMultiMap(const CForm& form) { return IsMulti(form.ContainerInfor(), form.Code); }

CForm::CForm(const CGnlTypeInfor& type, unsigned long offset, const detail::CEnumerationSlot* enumeration)
    : Kind(KindOf(type)), Code(type.DataType), IsConst(type.Has(HF_CONST)),
      HolderOffset(static_cast<std::uint32_t>(offset)), FlagOffset(HolderOffset), ValueOffset(HolderOffset),
      Type(&type), Enumeration(enumeration)
{
    const bool isMarked = type.Has(HF_NULLABLE);
    if (type.Has(HF_POINTER)) {
        How = Held::POINTER;
        IsNullable = isMarked && type.WrapperKind() != HF_NON_NULL_POINTER;
    } else if (type.WrapperKind() == HF_MAY_NULL) {
        How = isMarked ? Held::FLAGGED : Held::DIRECT;
        IsNullable = isMarked;
        FlagOffset += type.NullFlagOffset;
        ValueOffset += type.ValueOffset;
    }
    if (Kind == FormKind::CUSTOM) Shape = typeinfo::ShapeOf(CustomInfor());
    if (Shape != nullptr) Kind = FormKind::SHAPE;
    if (Kind == FormKind::SHAPE && Shape->Kind == detail::ShapeKind::SIGNED_BYTE)
        Enumeration = static_cast<const detail::CEnumerationSlot*>(Shape->Operations);
    if (Kind == FormKind::BASIC && Enumeration != nullptr) Kind = FormKind::ENUMERATION;
}

const CMember* CClassForm::Find(std::string_view key) const noexcept
{
    const std::uint32_t number = Keys.Find(key);
    return number != typeinfo::CNameTable::NONE ? &Members[KeyOwners[number]] : nullptr;
}

} // namespace vexa::interchange
