#ifndef VEXA_ACCESS_PATH_TEXT_H
#define VEXA_ACCESS_PATH_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

#include <vexa/report.h>

/// \file
/// The text of a path, taken apart. Its grammar stands in vexa/access.h.

namespace vexa::access {

enum class PartKind : unsigned char {
    NAME,   ///< `city`
    TEXT,   ///< `["Köln"]`
    NUMBER, ///< `[12]`, `[-3]`
    WORD,   ///< `[red]`
    ALL     ///< `[*]`
};

/// How a path leads on by one.
struct CPathPart {
    PartKind Kind = PartKind::NAME;
    std::string Text;    ///< the name, key, digits or word
    std::size_t End = 0; ///< where the part ends in the path: what stands before leads to its value
};

/// Hands over the parts of a path, which must stay.
class CPathReader {
public:
    explicit CPathReader(std::string_view path) noexcept : m_path(path) {}

    /// \return false at the end, and where the path is broken: Problem() has a code then.
    bool Next(CPathPart& part);
    CProblem& Problem() noexcept { return m_problem; }
    /// What stands before the broken place of a path is one.
    std::size_t Place() const noexcept { return m_place; }

private:
    bool Name(CPathPart& part);
    bool Bracket(CPathPart& part);
    bool Inside(CPathPart& part);
    bool Quoted(CPathPart& part);
    bool Fail(const char* expected);

    std::string_view m_path;
    std::size_t m_next = 0;
    std::size_t m_place = 0;
    CProblem m_problem;
};

} // namespace vexa::access

#endif
