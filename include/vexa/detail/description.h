#ifndef VEXA_DETAIL_DESCRIPTION_H
#define VEXA_DETAIL_DESCRIPTION_H

#include <vexa/detail/slot.h>
#include <vexa/export.h>

/// \file
/// The compiled half of a class description.

namespace vexa {

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

private:
    CAttribDescription& Access(Enum::AccessSpecifierEnum access);

    CClassInfor* m_owner;
    CAttribInfor* m_record; // null while the description is only surveyed
};

namespace detail {

/// Receives the classes that a description names.
class CSurvey;

/// Adds the members with these names, which stand in one text, separated by commas.
VEXA_API void AddMembers(CDescriptionBase& about, const CTypeSource* members, unsigned long count, const char* names);

/// Tells a survey of the class that a type leads to, if any.
void AddToSurvey(CSurvey& survey, const CTypeSource& type, bool isByValue);

/// The part of a description that does not depend on the class: either fills its descriptor or only lists the classes
/// named.
class VEXA_API CDescriptionBase {
public:
    explicit CDescriptionBase(CClassInfor& infor) noexcept : m_class(&infor), m_survey(nullptr) {}
    explicit CDescriptionBase(CSurvey& survey) noexcept : m_class(nullptr), m_survey(&survey) {}
    ~CDescriptionBase() = default;
    CDescriptionBase& operator=(const CDescriptionBase&) = delete;

protected:
    friend void AddMembers(CDescriptionBase& about, const CTypeSource* members, unsigned long count, const char* names);

    CDescriptionBase(const CDescriptionBase&) = default;

    void AddBase(CClassSlot& base, unsigned long offset);
    CAttribDescription AddAttrib(const char* name, unsigned long offset, const CTypeSource& type);

private:
    CClassInfor* m_class;
    CSurvey* m_survey;
};

} // namespace detail
} // namespace vexa

#endif
