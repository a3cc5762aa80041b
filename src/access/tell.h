#ifndef VEXA_ACCESS_TELL_H
#define VEXA_ACCESS_TELL_H

#include <vexa/detail/access.h>

namespace vexa::access {

/// Adds a problem of the value at a spot, of which nothing is shown that is confidential. There may be no report.
/// \return false
bool Tell(CReport* report, CProblem problem, const detail::CSpot& spot, std::string_view way);
inline bool Tell(CReport* report, CProblem problem, const detail::CSpot& spot)
{
    return Tell(report, std::move(problem), spot, spot.Way);
}

} // namespace vexa::access

#endif
