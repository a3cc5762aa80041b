#ifndef VEXA_DETAIL_DESCRIPTION_H
#define VEXA_DETAIL_DESCRIPTION_H

#include <string>
#include <typeinfo>

#include <vexa/detail/slot.h>
#include <vexa/export.h>
#include <vexa/metadata.h>

/// \file
/// The compiled half of a class description.

namespace vexa {

namespace typeinfo {
struct CMemberNotes;
}

/// Completes one attribute; every call returns the same object, so that calls chain.
class VEXA_API CAttribDescription {
public:
    CAttribDescription(CClassInfor* owner, CAttribInfor* record) noexcept : m_owner(owner), m_record(record) {}

    /// The ID by which FindAttribByID finds it, 0 or more.
    CAttribDescription& ID(short id);
    CAttribDescription& Public() { return Access(Enum::AS_PUBLIC); }
    CAttribDescription& Protected() { return Access(Enum::AS_PROTECTED); }
    CAttribDescription& Private() { return Access(Enum::AS_PRIVATE); }
    /// Its value is confidential: text shows "***" in its place.
    CAttribDescription& Masked();
    /// It is a union member, active while the attribute \p selector, described before, has \p value. An unknown
    /// selector is logged, and the attribute is then an ordinary one.
    CAttribDescription& ActiveWhen(const char* selector, short value);

    // What the standard formats go by. It changes nothing elsewhere, but for NotOwned().

    /// The key under which it is written and read, whatever the style of the class, in UTF-8; anything else is logged
    /// and ignored. Where another attribute, described before, has the key as well, that is logged, and this one is
    /// neither written nor read. The key of the class's tag belongs to the tag.
    CAttribDescription& Key(const char* key);
    /// One more key under which it is read, likewise.
    CAttribDescription& Alias(const char* key);
    /// An object without it is a problem. So is one with null, unless the attribute can be null.
    CAttribDescription& Required();
    /// Numbers that are read lie between these two, or are one of them.
    CAttribDescription& Range(CBound least, CBound most);
    /// A text that is read has so many bytes, a container so many elements.
    CAttribDescription& Length(unsigned long shortest, unsigned long longest);
    /// What people should know of it.
    CAttribDescription& Doc(const char* text);
    /// What its number counts, for example "ms".
    CAttribDescription& Unit(const char* unit);
    /// The attributes of this one, an object of a described class held by value, stand among those of the class
    /// itself. On anything else it is logged and ignored.
    CAttribDescription& Flatten();
    /// It is written and not read: its key is a problem in a text that is read.
    CAttribDescription& ReadOnly();
    /// It is read and not written.
    CAttribDescription& WriteOnly();
    /// It is not written while it is as in a new object.
    CAttribDescription& OmitIfDefault();
    /// A raw pointer to what belongs to someone else. It takes the form of a pointer to const everywhere: what it
    /// points at is never made, freed or written through. On anything else it is logged and ignored.
    CAttribDescription& NotOwned();
    /// A std::map<std::string, vexa::CRawJson> that takes the keys that no attribute has, each with its value as it
    /// stands; they are written with the others. The class's UnknownKeys is then KEEP, whatever a base says, unless its
    /// own description says otherwise. On anything else it is logged and ignored.
    CAttribDescription& KeepsUnknown();

    /// It is held by a std::unique_ptr, which a descriptor cannot tell from a raw pointer.
    CAttribDescription& HeldByUniquePointer() noexcept
    {
        m_isHeldByUniquePointer = true;
        return *this;
    }

private:
    CAttribDescription& Access(Enum::AccessSpecifierEnum access);
    typeinfo::CMemberNotes* Notes();
    void LogMisuse(const char* call, const char* what) const;
    bool IsKey(const char* key) const;

    CClassInfor* m_owner;
    CAttribInfor* m_record; // null while the description is only surveyed
    bool m_isHeldByUniquePointer = false;
};

namespace detail {

/// Receives the classes that a description names.
class CSurvey;

/// Adds the members with these names, which stand in one text, separated by commas.
VEXA_API void AddMembers(CDescriptionBase& about, const CTypeSource* members, unsigned long count, const char* names);

/// Tells a survey of the class that a type leads to, if any.
void AddToSurvey(CSurvey& survey, const CTypeSource& type, bool isByValue);

/// Calls the application's function on an object. \p text is what is wrong where it only tells that something is.
using CheckCall = std::string (*)(void (*function)(), const char* text, const void* object);
/// Gives the class of which an object is, and where the object begins.
using DynamicTypeFunction = const std::type_info* (*)(const void* object, const void*& whole);

/// What is known of a polymorphic class besides its description.
struct CPolymorphic {
    const std::type_info* Type = nullptr; ///< null of other classes, and without run-time type information
    bool IsAbstract = false;
    DynamicTypeFunction DynamicType = nullptr; ///< only where there is a tag
    bool HasPlainBase = false;                 ///< the base that is added is not polymorphic
};

/// The part of a description that does not depend on the class: either fills its descriptor or only lists the classes
/// named.
class VEXA_API CDescriptionBase {
public:
    explicit CDescriptionBase(CClassInfor& infor) noexcept : m_class(&infor), m_survey(nullptr) {}
    explicit CDescriptionBase(CSurvey& survey) noexcept : m_class(nullptr), m_survey(&survey) {}
    ~CDescriptionBase() = default;
    CDescriptionBase& operator=(const CDescriptionBase&) = delete;

    // What the standard formats go by.

    /// How the names of the class's own attributes become keys. Those of a base keep the keys that they have there.
    void KeyStyle(vexa::KeyStyle style);
    /// What becomes of keys that the class does not have. Where nothing is said, it is as the first base says that says
    /// anything, and a problem otherwise.
    void UnknownKeys(vexa::UnknownKeys rule);
    /// What the tag says of this class; its qualified name where nothing is said, which for an instance of a template
    /// may depend on the compiler (see vexa/find_class.h).
    void TagValue(const char* value);

protected:
    friend void AddMembers(CDescriptionBase& about, const CTypeSource* members, unsigned long count, const char* names);

    CDescriptionBase(const CDescriptionBase&) = default;

    void AddBase(CClassSlot& base, unsigned long offset, const CPolymorphic& derived = {});
    void SetTag(const char* key, const CPolymorphic& polymorphic);
    void AddCheck(CheckCall call, void (*function)(), const char* text);
    CAttribDescription AddAttrib(const char* name, unsigned long offset, const CTypeSource& type);

private:
    CClassInfor* m_class;
    CSurvey* m_survey;
};

} // namespace detail
} // namespace vexa

#endif
