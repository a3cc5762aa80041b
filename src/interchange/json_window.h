#ifndef VEXA_INTERCHANGE_JSON_WINDOW_H
#define VEXA_INTERCHANGE_JSON_WINDOW_H

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include <vexa/policy.h>
#include <vexa/report.h>

/// \file
/// What the scanners of a whole text and of a text in pieces have in common that is not of the grammar: the part of the
/// text that lies in memory, and the problem.

namespace vexa::interchange {

/// The part of a text that lies in memory, and the place in it.
struct CJsonWindow {
    const char* Begin = nullptr;
    const char* End = nullptr;
    const char* Next = nullptr;  ///< what has not been scanned
    const char* Token = nullptr; ///< what is being scanned starts here; everything before may go
    std::size_t Offset = 0;      ///< of Begin in the text

    std::size_t Left() const noexcept { return static_cast<std::size_t>(End - Next); }
    std::size_t OffsetOf(const char* at) const noexcept { return Offset + static_cast<std::size_t>(at - Begin); }
};

/// Where a text that is whole comes from: all of it is in the window.
class CWholeText {
public:
    static constexpr bool IS_WHOLE = true;
};

/// What a text has at a place, in a few words for people; nothing at its end.
std::string DescribeToken(std::string_view token);

inline constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

/// The first problem of a scanner. Nothing is allocated before there is one.
class CJsonFailure {
public:
    bool HasFailed() const noexcept { return m_problem != nullptr; }
    CProblem& Problem() noexcept { return *m_problem; }

protected:
    /// Keeps a problem, unless there is one already. \return false.
    [[gnu::cold]] bool Keep(ProblemCode code, CTextPlace place, std::string expected, std::string found);

private:
    std::unique_ptr<CProblem> m_problem;
};

} // namespace vexa::interchange

#endif
