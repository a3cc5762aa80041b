#include "interchange/read_context.h"

#include <utility>

#include "interchange/place.h"

namespace vexa::interchange {

bool CReadContext::ReachesMasked()
{
    if (m_reachesMasked < 0) m_reachesMasked = Forms.ReachesMasked(m_root) ? 1 : 0;
    return m_reachesMasked != 0;
}

/// Whether what the way leads to is part of an attribute that holds confidential ones: where it is not what is
/// expected, it may be one of them in the wrong place.
bool CReadContext::MayHoldMasked()
{
    for (const CPathStep* step = Path; step != nullptr; step = step->Outer) {
        if (step->Kind == StepKind::ENTRY) return Forms.ReachesMasked(*Entry);
        if (!step->IsOfMember()) continue;
        if (std::exchange(m_askedLast, step->Member) != step->Member)
            m_mayHoldMasked = Forms.ReachesMasked(*step->Member);
        return m_mayHoldMasked;
    }
    return ReachesMasked();
}

/// Where something is confidential only what is meant is shown, and that only if it is not confidential itself. The key
/// of a confidential attribute is no secret, the keys inside one are.
ExcerptForm CReadContext::FormOfExcerpt(Secrecy secrecy)
{
    if (!ReachesMasked()) return ExcerptForm::LINE;
    if (secrecy == Secrecy::HIDDEN) return ExcerptForm::NOTHING;
    const bool isOfMember = secrecy == Secrecy::KEY && Path != nullptr && Path->IsOfMember();
    const bool isHidden = IsMasked(isOfMember ? Path->Outer : Path) || (secrecy == Secrecy::VALUE && MayHoldMasked());
    return isHidden ? ExcerptForm::NOTHING : ExcerptForm::TOKEN;
}

namespace {

/// From a place in a line to the same in the whole text.
void Move(CTextPlace& place, const CTextPlace& line)
{
    if (place.Offset == CTextPlace::NOWHERE) return;
    place.Offset += line.Offset;
    if (place.Line != 0) place.Line += line.Line - 1;
}

} // namespace

__attribute__((cold, noinline)) void CReadContext::Add(CProblem problem, Secrecy secrecy)
{
    ++Problems;
    if (IsTrial) return;
    if (Locator != nullptr) {
        if (problem.Place.Offset != CTextPlace::NOWHERE) Locator->Locate(problem.Place);
        if (problem.Second.Offset != CTextPlace::NOWHERE) Locator->Locate(problem.Second);
    }
    problem.Path = PathOf(Path);
    problem.Pointer = PointerOf(Path);
    if (problem.Class.empty() && problem.Attrib.empty()) TellAttribute(Path, problem);
    problem.Shown = FormOfExcerpt(secrecy);
    if (problem.Shown == ExcerptForm::NOTHING) {
        problem.Found.clear();
        problem.Nearest.clear();
    }
    if (!Text.empty()) problem.Excerpt = ExcerptOf(Text, problem.Place, problem.Shown);
    if (Start != nullptr) {
        Move(problem.Place, *Start);
        Move(problem.Second, *Start);
    }
    m_report.Add(std::move(problem));
}

} // namespace vexa::interchange
