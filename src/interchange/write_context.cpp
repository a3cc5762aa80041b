#include "interchange/write_context.h"

#include <utility>

namespace vexa::interchange {

void CWriteContext::Tell(ProblemCode code, const CPathStep& where, std::string expected, std::string found)
{
    m_hasProblems = true;
    if (m_report == nullptr) return;
    CProblem problem;
    problem.Code = code;
    problem.Path = PathOf(&where);
    problem.Pointer = PointerOf(&where);
    problem.Shown = ExcerptForm::NOTHING; // there is no text yet that could be shown
    problem.Expected = std::move(expected);
    if (!IsMasked(&where)) problem.Found = std::move(found);
    TellAttribute(&where, problem);
    m_report->Add(std::move(problem));
}

} // namespace vexa::interchange
