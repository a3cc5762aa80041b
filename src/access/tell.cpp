#include "access/tell.h"

#include "typeinfo/notes.h"

namespace vexa::access {

bool Tell(CReport* report, CProblem problem, const detail::CSpot& spot, std::string_view way)
{
    if (report == nullptr) return false;
    problem.Path = spot.IsMasked ? spot.Way : way;
    problem.Place = problem.Second = {};
    problem.Pointer.clear();
    problem.Excerpt.clear();
    problem.Shown = ExcerptForm::NOTHING;
    if (spot.IsMasked) {
        problem.Found.clear();
        problem.Nearest.clear();
    }
    if (problem.Class.empty() && problem.Attrib.empty() && spot.Attrib != nullptr) {
        problem.Class = typeinfo::QualifiedNameOf(*spot.Owner);
        problem.Attrib = spot.Attrib->Name;
    }
    report->Add(std::move(problem));
    return false;
}

} // namespace vexa::access
