#ifndef VEXA_ACCESS_STEP_H
#define VEXA_ACCESS_STEP_H

#include <string>

#include "access/inner.h"
#include "access/path_text.h"

namespace vexa::access {

/// Leads on by one part of a path. \return false with a problem, which does not tell the path yet; \p spot is as it was
/// then.
bool Step(CForms& forms, CSpot& spot, const CPathPart& part, CProblem& problem);

/// The record of an attribute, or null with a problem.
const CAttribInfor* FindAttrib(const CClassInfor& infor, const CPathPart& part, bool isMasked, CProblem& problem);
/// Moves a spot from an object of a class to one of its attributes.
void MoveToAttrib(CSpot& spot, const CClassInfor& infor, const CAttribInfor& attrib, char* object, bool isConst);

/// The index that a part is. \return false with a problem where it is none.
bool IndexOf(const CPathPart& part, unsigned long& index, CProblem& problem);
/// That there is no such element of \p count.
void TellNoElement(CProblem& problem, unsigned long count, bool isMasked);

/// What a value is called in a problem.
std::string NameOfType(const CGnlTypeInfor& type);
/// What a part is called there.
std::string ShownPart(const CPathPart& part);
/// \return false
bool Fail(CProblem& problem, ProblemCode code, std::string expected = {}, std::string found = {});

} // namespace vexa::access

#endif
