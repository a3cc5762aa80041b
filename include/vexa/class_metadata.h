#ifndef VEXA_CLASS_METADATA_H
#define VEXA_CLASS_METADATA_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <vexa/class_infor.h>
#include <vexa/export.h>
#include <vexa/metadata.h>

/// \file
/// What a description says of a class and its attributes beyond the descriptor's fields, for whoever writes a format, a
/// form or a document of his own. It never changes once the class is registered, and lives as long as the descriptor.
/// Everything here may be called on any thread.

namespace vexa {

/// Of one attribute.
struct CAttribMetadata {
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
};

/// Of a class.
struct CClassMetadata {
    KeyStyle Style = KeyStyle::AS_IT_IS;        ///< of its own attributes; inherited ones keep their keys
    UnknownKeys Unknown = UnknownKeys::PROBLEM; ///< never BY_CLASS
    std::string Tag;                            ///< the key that tells what class an object is; empty for none
    std::string TagValue;                       ///< what it says of this one; never empty where there is a tag
};

/// Of a class or attribute of which nothing is said, and of one that is no part of the class, everything is as in a new
/// object.
VEXA_API const CClassMetadata& MetadataOf(const CClassInfor& infor);
VEXA_API const CAttribMetadata& MetadataOf(const CClassInfor& owner, const CAttribInfor& attrib);

/// What the first check of the class that is not content says of an object; empty where all are. Throws what the
/// application's function throws.
VEXA_API std::string CheckObject(const CClassInfor& infor, const void* object);

// Classes that stand for others. See CDescription::Tag.

/// One class that can stand where a base of it is expected.
struct CDerivedClass {
    const CClassInfor* Infor = nullptr;
    unsigned long Offset = 0; ///< from the object to its sub-object of the base
};
/// The described class of an object that a pointer to \p base designates, and where the object begins: \p base itself
/// and \p object where the class has no tag, or the class of the object has no description that names the base.
VEXA_API const CClassInfor& DynamicClassOf(const CClassInfor& base, const void* object, const void*& whole);
/// The class with that tag value among \p base and those derived from it; Infor is null where there is none. An
/// abstract class is not among them.
VEXA_API CDerivedClass FindByTagValue(const CClassInfor& base, std::string_view value);
/// The tag values of all of them, sorted.
VEXA_API std::vector<std::string> TagValuesOf(const CClassInfor& base);

} // namespace vexa

#endif
