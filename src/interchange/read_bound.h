#ifndef VEXA_INTERCHANGE_READ_BOUND_H
#define VEXA_INTERCHANGE_READ_BOUND_H

#include <string>

#include <vexa/report.h>

#include "interchange/form.h"

namespace vexa::interchange {

/// What is wrong with a value by the bounds of its attribute.
struct CBoundProblem {
    ProblemCode Code = ProblemCode::NONE;
    bool IsContainer = false;
    std::string Expected;
    std::string Found;
};

inline bool IsBounded(const typeinfo::CMemberNotes& notes) noexcept
{
    return notes.Least || notes.Most || notes.ShortestLength || notes.LongestLength;
}

/// Looks at the range of a number, also one in a wrapper, and at the bytes of a text or the elements of a container. A
/// null has no bounds.
CBoundProblem CheckBounds(CForms& forms, const CMember& member, const char* object);

} // namespace vexa::interchange

#endif
