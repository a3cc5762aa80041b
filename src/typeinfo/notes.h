#ifndef VEXA_TYPEINFO_NOTES_H
#define VEXA_TYPEINFO_NOTES_H

#include <atomic>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

#include <vexa/class_metadata.h>
#include <vexa/detail/description.h>
#include <vexa/detail/enumeration.h>
#include <vexa/detail/shape.h>
#include <vexa/find_class.h>
#include <vexa/metadata.h>

#include "typeinfo/finished_class.h"

/// \file
/// Notes: what a description says of a class beyond the descriptor's fields, for the standard formats. They lie behind
/// the finished descriptor (CFinishedClass::Notes), are made with it under the global lock and never change afterwards.
/// A class that says nothing has none.

namespace vexa::typeinfo {

using vexa::CBound;
using vexa::CDerivedClass;
using vexa::DynamicClassOf;
using vexa::FindByTagValue;
using vexa::QualifiedNameOf;
using vexa::TagValuesOf;

/// Of one attribute record.
struct CMemberNotes : CAttribMetadata {
    const detail::CEnumerationSlot* Enumeration = nullptr; ///< names of its values
};

/// One function that looks at objects that have been read.
struct CCheck {
    detail::CheckCall Call;
    void (*Function)();       ///< the application's, as Call knows it
    std::string Text;         ///< what is wrong, where the function only tells that something is
    unsigned long Offset = 0; ///< from the object to the sub-object that it looks at
};

/// A class with a tag that a class is derived from, at any depth.
struct CAncestor {
    const CClassInfor* Infor;
    const std::type_info* Type; ///< null of one that is not polymorphic
    unsigned long Offset;       ///< from the object to the sub-object
};

/// Whether it is this class. A program and what it loads may each have a descriptor of one class.
bool IsSameClass(const CAncestor& ancestor, const CClassInfor& infor) noexcept;

class CDerivedTable;

/// Of a class.
struct CClassNotes : CClassMetadata {
    CClassNotes() { Unknown = UnknownKeys::BY_CLASS; }
    CClassNotes(const CClassNotes&) = delete;
    CClassNotes& operator=(const CClassNotes&) = delete;
    ~CClassNotes();

    bool IsUnknownSaid = false;           ///< whether the description, or that of a base, says what Unknown is
    bool IsUnknownOwn = false;            ///< whether it is the description itself
    bool HasTagOfPlainBase = false;       ///< a base has a tag and is not polymorphic, as this class is
    std::vector<CCheck> Checks;           ///< those of bases too; see FirstComplaint
    bool IsAbstract = false;              ///< no object is of just this class
    const std::type_info* Type = nullptr; ///< of polymorphic classes with a tag
    /// What the object at an address is, and where it begins; of polymorphic classes with a tag.
    detail::DynamicTypeFunction DynamicType = nullptr;
    unsigned long DynamicOffset = 0;  ///< from the object to the sub-object whose address DynamicType takes
    std::vector<CAncestor> Ancestors; ///< those that this class can stand for
    std::map<const CAttribInfor*, CMemberNotes> Members;        ///< by record of this class
    mutable std::atomic<const CDerivedTable*> Derived{nullptr}; ///< owned
};

/// The notes of a finished class; null where there are none.
inline const CClassNotes* NotesOf(const CClassInfor& infor) noexcept
{
    const CFinishedClass* const finished = FinishedClass(infor);
    return finished != nullptr ? finished->Notes : nullptr;
}
/// The notes of one attribute record; null where there are none.
const CMemberNotes* NotesOf(const CClassInfor& owner, const CAttribInfor& record) noexcept;
/// The key under which an attribute is written: its own, or its name in the style of the class.
std::string KeyOf(const CClassInfor& owner, const CAttribInfor& record);
/// What the first check that is not content says of an object that has been read; empty where all are.
std::string FirstComplaint(const CClassNotes& notes, const void* object);

/// The notes of a class that is being described, made when they are missing; null for a descriptor that no registration
/// makes.
CClassNotes* NotesToFill(CClassInfor& infor);
/// Takes over what a base says: of its attributes, whose copies begin at \p copies, and of itself.
void InheritNotes(CClassInfor& derived, CClassInfor::AttribPosition copies, const CClassInfor& base,
                  unsigned long offset);
/// Forgets what is said of a record that goes.
void ForgetNotes(CClassInfor& infor, const CAttribInfor& record) noexcept;
/// Settles what has been said of a class whose records are complete: keys in the class's style, the value of its tag.
void SettleNotes(CFinishedClass& infor);

/// The names of a type's values; null where they have none.
inline const detail::CEnumerationSlot* EnumerationOf(const detail::CTypeSource& source) noexcept
{
    const bool hasNames = source.Detail != nullptr && source.Detail->Form == detail::SlotForm::ENUMERATION;
    return hasNames ? static_cast<const detail::CEnumerationSlot*>(source.Detail) : nullptr;
}
/// The names of the values of a container's elements; null where they have none.
const detail::CEnumerationSlot* EnumerationOfElements(const CContainerInfor& infor) noexcept;
/// The shape of a custom type; null for one that only converts itself.
inline const detail::CShape* ShapeOf(const CCustomBasicTypeInfor& infor) noexcept
{
    const CFinishedCustom* const finished = FinishedCustom(infor);
    return finished != nullptr ? finished->Shape : nullptr;
}
/// What a class writes for its tag.
const std::string& TagValueOf(const CClassInfor& infor);

} // namespace vexa::typeinfo

#endif
