#ifndef TESTS_SUPPORT_PROBLEM_LINES_H
#define TESTS_SUPPORT_PROBLEM_LINES_H

#include <string>

#include <vexa/report.h>

namespace test {

/// Every field of every problem that says something, a problem a line: the code, byte and length, line and column, then
/// the others by their names.
inline std::string LinesOf(const vexa::CReport& report)
{
    std::string lines;
    const auto place = [](const vexa::CTextPlace& at) {
        return std::to_string(at.Offset) + "+" + std::to_string(at.Length) + " " + std::to_string(at.Line) + ":" +
               std::to_string(at.Column);
    };
    const auto field = [&lines](const char* name, const std::string& value) {
        if (!value.empty()) lines += std::string(" ") + name + "=" + value;
    };
    for (const vexa::CProblem& problem : report.Problems()) {
        lines += std::to_string(static_cast<int>(problem.Code)) + " " + place(problem.Place);
        if (problem.Second.Offset != vexa::CTextPlace::NOWHERE) lines += " second=" + place(problem.Second);
        field("path", problem.Path);
        field("pointer", problem.Pointer);
        field("class", problem.Class);
        field("attrib", problem.Attrib);
        field("expected", problem.Expected);
        field("found", problem.Found);
        field("nearest", problem.Nearest);
        field("excerpt", problem.Excerpt);
        if (problem.Shown == vexa::ExcerptForm::TOKEN) lines += " (token)";
        if (problem.Shown == vexa::ExcerptForm::NOTHING) lines += " (nothing)";
        lines += "\n";
    }
    return lines;
}

/// What reading a text into an object tells; empty where there is no problem.
template<class Object, class Read>
std::string ProblemsOf(Object& object, Read read)
{
    vexa::CReport report;
    const bool isGood = read(object, report);
    if (isGood != report.IsEmpty()) return "the result does not fit the report";
    return LinesOf(report);
}

} // namespace test

#endif
