#ifndef VEXA_TYPEINFO_NOTES_H
#define VEXA_TYPEINFO_NOTES_H

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <vexa/detail/enumeration.h>
#include <vexa/detail/shape.h>
#include <vexa/numeric.h>

#include "typeinfo/finished_class.h"

/// \file
/// Notes: what a description says of a class beyond the descriptor's fields, for the standard formats. They lie behind
/// the finished descriptor (CFinishedClass::Notes), are made with it under the global lock and never change afterwards.
/// A class that says nothing has none.

namespace vexa::typeinfo {

/// A bound of a range, as it was given: integers keep every digit.
struct CBound {
    bool IsInteger = true;
    bool IsUnsigned = false; ///< Integer holds an unsigned long long's bits
    long long Integer = 0;
    double Floating = 0;
};

/// Of one attribute record.
struct CMemberNotes {
    std::string Key;                  ///< empty: by the class's style from its name
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

/// How an attribute's name becomes a key.
enum class KeyStyle : unsigned char { AS_IT_IS, CAMEL, SNAKE, KEBAB };

enum class UnknownKeyRule : unsigned char { PROBLEM, SKIP, KEEP };

/// Of a class.
struct CClassNotes {
    std::string QualifiedName; ///< with its namespaces; of a class without it, the registered one
    KeyStyle Style = KeyStyle::AS_IT_IS;
    UnknownKeyRule Unknown = UnknownKeyRule::PROBLEM;
    /// Looks at an object that has been read; gives what is wrong with it, or an empty text.
    std::string (*Check)(const void* object, void (*function)()) = nullptr;
    void (*CheckFunction)() = nullptr; ///< what Check calls
    std::string Tag;                   ///< the key that tells what class an object is; also of all derived classes
    std::string TagValue;              ///< what it says of this one; empty: its qualified name
    /// What the object at this class's address is, and where it begins; of polymorphic classes with a tag.
    const void* (*DynamicType)(const void* object, const void*& whole) = nullptr;
    std::map<const CAttribInfor*, CMemberNotes> Members; ///< by record of this class
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
/// The notes of a class that is being described, made when they are missing.
CClassNotes& NotesToFill(CClassInfor& infor);

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
/// The class by its qualified name where the library knows it, else by its registered one.
const std::string& QualifiedNameOf(const CClassInfor& infor);

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
