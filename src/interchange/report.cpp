#include <vexa/report.h>

#include <ostream>
#include <utility>

#include "interchange/excerpt.h"
#include "interchange/visible.h"

namespace vexa {

namespace {

using interchange::AppendVisible;

/// `name:14:9: `; in a format without lines `name: byte 57: `, and `name: ` for what has no place.
void AppendPlace(std::string& out, const std::string& name, const CTextPlace& place)
{
    AppendVisible(out, name);
    if (place.Line != 0) {
        if (!name.empty()) out += ':';
        out.append(std::to_string(place.Line)).append(":").append(std::to_string(place.Column)).append(": ");
        return;
    }
    if (!name.empty()) out += ": ";
    if (place.Offset != CTextPlace::NOWHERE) out.append("byte ").append(std::to_string(place.Offset)).append(": ");
}

/// What is at a problem's second place.
const char* SecondNote(ProblemCode code)
{
    switch (code) {
    case ProblemCode::UNEXPECTED_END: return "it begins here";
    case ProblemCode::DUPLICATE_KEY: return "first given here";
    case ProblemCode::MISSING_KEY:
    case ProblemCode::MISSING_TAG:
    case ProblemCode::CHECK_FAILED: return "the object begins here";
    default: return "see here";
    }
}

bool IsSame(const CTextPlace& left, const CTextPlace& right)
{
    return left.Offset == right.Offset && left.Line == right.Line && left.Column == right.Column;
}

void AppendProblem(std::string& out, const std::string& name, const CProblem& problem, const std::string_view* text)
{
    AppendPlace(out, name, problem.Place);
    if (!problem.Path.empty()) {
        AppendVisible(out, problem.Path);
        out += ": ";
    }
    out.append(problem.Sentence()).append("\n");
    if (text != nullptr) interchange::AppendExcerpt(out, *text, problem.Place, problem.Shown);
    if (IsSame(problem.Second, CTextPlace{}) || IsSame(problem.Second, problem.Place)) return;
    AppendPlace(out, name, problem.Second);
    out.append(SecondNote(problem.Code)).append("\n");
    if (text != nullptr) interchange::AppendExcerpt(out, *text, problem.Second, problem.Shown);
}

std::string Render(const CReport& report, const std::string_view* text)
{
    std::string out;
    for (const CProblem& problem : report.Problems())
        AppendProblem(out, report.Name(), problem, text);
    return out;
}

} // namespace

void CReport::Clear() noexcept { m_problems.clear(); }

void CReport::Add(CProblem problem)
{
    if (m_problems.size() < m_limit) {
        m_problems.push_back(std::move(problem));
        return;
    }
    if (m_problems.size() == m_limit) {
        CProblem more;
        more.Code = ProblemCode::MORE_PROBLEMS;
        more.Found = "0";
        m_problems.push_back(std::move(more));
    }
    CProblem& more = m_problems.back();
    more.Found = std::to_string(std::stoull(more.Found) + 1);
}

std::string CReport::AsString() const { return Render(*this, nullptr); }

std::string CReport::AsString(std::string_view text) const { return Render(*this, &text); }

std::ostream& operator<<(std::ostream& stream, const CReport& report) { return stream << report.AsString(); }

} // namespace vexa
