// What a description says of a class for the standard formats.

#include <vexa/detail/description.h>

#include <vexa/helper.h>

#include "core/utf8.h"
#include "typeinfo/finished_class.h"
#include "typeinfo/notes.h"

namespace vexa {

using namespace Enum;

typeinfo::CMemberNotes* CAttribDescription::Notes()
{
    typeinfo::CClassNotes* const notes = m_record != nullptr ? typeinfo::NotesToFill(*m_owner) : nullptr;
    return notes != nullptr ? &notes->Members[m_record] : nullptr;
}

void CAttribDescription::LogMisuse(const char* call, const char* what) const
{
    helper::LogError("The class %s's attribute %s cannot have %s: it is no %s", m_owner->Name.c_str(),
                     m_record->Name.c_str(), call, what);
}

/// Every format has its keys in UTF-8.
bool CAttribDescription::IsKey(const char* key) const
{
    const bool isText = core::IsUtf8(key);
    if (!isText && m_record != nullptr) LogMisuse("such a key", "UTF-8");
    return isText;
}

CAttribDescription& CAttribDescription::Key(const char* key)
{
    if (!IsKey(key)) return *this;
    if (auto* const notes = Notes()) notes->Key = key;
    return *this;
}

CAttribDescription& CAttribDescription::Alias(const char* key)
{
    if (!IsKey(key)) return *this;
    if (auto* const notes = Notes()) notes->Aliases.emplace_back(key);
    return *this;
}

CAttribDescription& CAttribDescription::Required()
{
    if (auto* const notes = Notes()) notes->IsRequired = true;
    return *this;
}

CAttribDescription& CAttribDescription::Range(CBound least, CBound most)
{
    if (auto* const notes = Notes()) {
        notes->Least = least;
        notes->Most = most;
    }
    return *this;
}

CAttribDescription& CAttribDescription::Length(unsigned long shortest, unsigned long longest)
{
    if (auto* const notes = Notes()) {
        notes->ShortestLength = shortest;
        notes->LongestLength = longest;
    }
    return *this;
}

CAttribDescription& CAttribDescription::Doc(const char* text)
{
    if (auto* const notes = Notes()) notes->Doc = text;
    return *this;
}

CAttribDescription& CAttribDescription::Unit(const char* unit)
{
    if (auto* const notes = Notes()) notes->Unit = unit;
    return *this;
}

CAttribDescription& CAttribDescription::Flatten()
{
    if (m_record == nullptr) return *this;
    const bool isPlainClass = m_record->TypeInfor.DataType == DT_CLASS && m_record->TypeInfor.HoldingFlags == 0;
    if (!isPlainClass)
        LogMisuse("Flatten", "object of a described class that is held by value");
    else if (auto* const notes = Notes())
        notes->IsFlattened = true;
    return *this;
}

CAttribDescription& CAttribDescription::ReadOnly()
{
    if (auto* const notes = Notes()) notes->IsReadOnly = true;
    return *this;
}

CAttribDescription& CAttribDescription::WriteOnly()
{
    if (auto* const notes = Notes()) notes->IsWriteOnly = true;
    return *this;
}

CAttribDescription& CAttribDescription::OmitIfDefault()
{
    if (auto* const notes = Notes()) notes->IsOmittedIfDefault = true;
    return *this;
}

CAttribDescription& CAttribDescription::NotOwned()
{
    if (m_record == nullptr) return *this;
    CGnlTypeInfor& type = m_record->TypeInfor;
    const bool isRawPointer = type.Has(HF_POINTER) && type.WrapperKind() == 0 && !m_isHeldByUniquePointer;
    if (isRawPointer)
        type.HoldingFlags = static_cast<unsigned char>(type.HoldingFlags | HF_CONST);
    else
        LogMisuse("NotOwned", "raw pointer");
    return *this;
}

namespace {

/// Whether it is a container of pairs of a text and JSON as it stands.
bool IsMapOfRawJson(const CGnlTypeInfor& type)
{
    if (!type.IsAssociative() || type.HoldingFlags != 0 || type.DetailInfor == nullptr) return false;
    const CGnlTypeInfor& element = static_cast<const CContainerInfor*>(type.DetailInfor)->ElementType;
    if (element.DataType != DT_CLASS || element.HoldingFlags != 0) return false;
    const std::list<CAttribInfor>& parts = static_cast<const CClassInfor*>(element.DetailInfor)->AttribList;
    if (parts.size() != 2 || parts.front().TypeInfor.DataType != DT_STD_STRING) return false;
    const CGnlTypeInfor& mapped = parts.back().TypeInfor;
    if (mapped.DataType != DT_CUSTOM_BASIC || mapped.HoldingFlags != 0 || mapped.DetailInfor == nullptr) return false;
    const detail::CShape* const shape =
        typeinfo::ShapeOf(*static_cast<const CCustomBasicTypeInfor*>(mapped.DetailInfor));
    return shape != nullptr && shape->Kind == detail::ShapeKind::RAW_JSON;
}

} // namespace

CAttribDescription& CAttribDescription::KeepsUnknown()
{
    if (m_record == nullptr) return *this;
    if (!IsMapOfRawJson(m_record->TypeInfor))
        LogMisuse("KeepsUnknown", "map of std::string to vexa::CRawJson");
    else if (auto* const notes = Notes())
        notes->KeepsUnknown = true;
    return *this;
}

namespace detail {

void CDescriptionBase::KeyStyle(vexa::KeyStyle style)
{
    if (m_class != nullptr) typeinfo::NotesToFill(*m_class)->Style = style;
}

void CDescriptionBase::UnknownKeys(vexa::UnknownKeys rule)
{
    if (m_class == nullptr) return;
    typeinfo::CClassNotes& notes = *typeinfo::NotesToFill(*m_class);
    notes.Unknown = rule;
    notes.IsUnknownOwn = rule != vexa::UnknownKeys::BY_CLASS;
}

void CDescriptionBase::TagValue(const char* value)
{
    if (m_class != nullptr) typeinfo::NotesToFill(*m_class)->TagValue = value;
}

void CDescriptionBase::SetTag(const char* key, const CPolymorphic& polymorphic)
{
    if (m_class == nullptr) return;
    if (!core::IsUtf8(key)) {
        helper::LogError("The class %s cannot have such a tag: its key is no UTF-8", m_class->Name.c_str());
        return;
    }
    typeinfo::CClassNotes& notes = *typeinfo::NotesToFill(*m_class);
    notes.Tag = key;
    notes.Type = polymorphic.Type;
    notes.IsAbstract = polymorphic.IsAbstract;
    notes.DynamicType = polymorphic.DynamicType;
    notes.DynamicOffset = 0;
}

void CDescriptionBase::AddCheck(CheckCall call, void (*function)(), const char* text)
{
    if (m_class == nullptr) return;
    const bool hasText = text != nullptr && *text != '\0';
    typeinfo::NotesToFill(*m_class)->Checks.push_back({call, function, hasText ? text : "it is not right", 0});
}

} // namespace detail
} // namespace vexa
