#ifndef VEXA_TYPEINFO_NOTES_H
#define VEXA_TYPEINFO_NOTES_H

#include <atomic>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

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

using detail::CBound;

/// Of one attribute record.
struct CMemberNotes {
    std::string Key;                  ///< empty: its name. What a style makes of a name stands here
    std::vector<std::string> Aliases; ///< further keys that are read
    bool IsRequired = false;
    bool IsFlattened = false; ///< its attributes stand among those of the class
    bool IsReadOnly = false;  ///< is written, not read: a key for it is a problem
    bool IsWriteOnly = false; ///< is read, not written
    bool IsOmittedIfDefault = false;
    bool KeepsUnknown = false; ///< a map of CRawJson that takes the keys that no attribute has
    std::optional<CBound> Least, Most;
    std::optional<unsigned long> ShortestLength, LongestLength; ///< bytes of text, or elements
    std::string Doc;
    std::string Unit;
    const detail::CEnumerationSlot* Enumeration = nullptr; ///< names of its values

    bool IsEmpty() const;
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
    unsigned long Offset; ///< from the object to the sub-object
};

class CDerivedTable;

/// Of a class.
struct CClassNotes {
    CClassNotes() = default;
    CClassNotes(const CClassNotes&) = delete;
    CClassNotes& operator=(const CClassNotes&) = delete;
    ~CClassNotes();

    KeyStyle Style = KeyStyle::AS_IT_IS;         ///< of its own attributes; inherited ones keep their keys
    UnknownKeys Unknown = UnknownKeys::BY_CLASS; ///< never so in a finished class
    bool IsUnknownSaid = false;                  ///< whether the description says it
    std::vector<CCheck> Checks;                  ///< those of bases too; see FirstComplaint
    std::string Tag;                             ///< the key that tells what class an object is; also of derived ones
    std::string TagValue;                        ///< what it says of this one; never empty where there is a tag
    bool IsAbstract = false;                     ///< no object is of just this class
    const std::type_info* Type = nullptr;        ///< of polymorphic classes with a tag
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
const detail::CShape* ShapeOf(const CCustomBasicTypeInfor& infor) noexcept;
using vexa::QualifiedNameOf;

// Classes that stand for others.

/// One class that can stand where a base of it is expected.
struct CDerivedClass {
    const CClassInfor* Infor = nullptr;
    unsigned long Offset = 0; ///< from the object to its sub-object of the base
};
/// The described class of an object that a pointer to \p base designates, and where the object begins: \p base itself
/// and \p object where the class has no tag or what the object is has no description.
const CClassInfor& DynamicClassOf(const CClassInfor& base, const void* object, const void*& whole);
/// The class with that tag value among \p base and those derived from it; Infor is null where there is none.
CDerivedClass FindByTagValue(const CClassInfor& base, std::string_view value);
/// The tag values of all of them, sorted.
std::vector<std::string> TagValuesOf(const CClassInfor& base);
/// What a class writes for its tag.
const std::string& TagValueOf(const CClassInfor& infor);

} // namespace vexa::typeinfo

#endif
