#include <vexa/detail/access.h>

#include <utility>

#include "access/step.h"
#include "access/tell.h"

namespace vexa {

detail::CSpot detail::FindSpot(CSpot spot, std::string_view path, CReport* report)
{
    interchange::CForms forms;
    access::CPathReader reader(path);
    access::CPathPart part;
    CProblem problem;
    std::size_t end = 0; // of the way to the spot
    while (reader.Next(part)) {
        const bool wasMasked = spot.IsMasked;
        if (!access::Step(forms, spot, part, problem)) {
            const bool isOfValue = problem.Code == ProblemCode::NULL_ON_THE_WAY;
            access::Tell(report, std::move(problem), spot, path.substr(0, isOfValue ? end : part.End));
            return CSpot();
        }
        end = part.End;
        if (!wasMasked) spot.Way = path.substr(0, end);
    }
    problem = std::move(reader.Problem());
    if (problem.Code != ProblemCode::NONE) {
        access::Tell(report, std::move(problem), CSpot(), path.substr(0, reader.Place()));
        return CSpot();
    }
    if (spot.Ref.Address == nullptr) {
        problem.Code = ProblemCode::NULL_ON_THE_WAY;
        access::Tell(report, std::move(problem), spot);
    } else if (spot.IsConst) {
        spot.Ref.TypeInfor.HoldingFlags |= Enum::HF_CONST;
    }
    return spot;
}

CRefrence Find(const CRefrence& object, std::string_view path, CReport* report)
{
    return detail::FindSpot(detail::CSpot(object), path, report).Ref;
}

CConstRefrence Find(const CConstRefrence& object, std::string_view path, CReport* report)
{
    return detail::FindSpot(detail::CSpot(object), path, report).Ref;
}

} // namespace vexa
