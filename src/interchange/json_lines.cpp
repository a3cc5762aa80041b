#include <algorithm>
#include <string>
#include <string_view>

#include <vexa/detail/interchange.h>

#include "interchange/json_line.h"
#include "interchange/json_scan.h"
#include "interchange/thrown.h"

namespace vexa {
namespace {

/// Takes a text that comes in pieces apart into lines.
class CLineInput {
public:
    /// Of a line one byte more is kept than \p maxBytes.
    CLineInput(const InputFunction& input, std::size_t maxBytes)
        : m_input(input), m_kept(maxBytes == CReadPolicy::NO_LIMIT ? maxBytes : maxBytes + 1)
    {
    }

    /// Gives the next line without its end; it stays until the next call. \return false behind the last one.
    bool Next(std::string_view& line)
    {
        m_start.Offset += m_length;
        ++m_start.Line;
        m_length = 0;
        m_joined.clear();
        bool isEnded = false;
        while (!isEnded && HasMore()) {
            const std::string_view part = TakePart(isEnded);
            if (isEnded && m_joined.empty()) {
                line = part;
                return true;
            }
            m_joined.append(part, 0, m_kept - std::min(m_kept, m_joined.size()));
        }
        line = m_joined;
        return m_length != 0;
    }
    /// Of the line that was given last.
    const CTextPlace& Start() const noexcept { return m_start; }
    /// What has been taken of it.
    std::size_t Length() const noexcept { return m_length; }

private:
    bool HasMore()
    {
        if (m_rest.empty() && !m_isAtEnd) m_rest = m_input();
        m_isAtEnd = m_rest.empty();
        return !m_isAtEnd;
    }
    std::string_view TakePart(bool& isEnded)
    {
        const std::string_view part = m_rest.substr(0, m_rest.find('\n'));
        isEnded = part.size() != m_rest.size();
        const std::size_t taken = part.size() + (isEnded ? 1 : 0);
        m_rest.remove_prefix(taken);
        m_length += taken;
        return part;
    }

    const InputFunction& m_input;
    std::size_t m_kept;
    std::string_view m_rest; ///< of the piece
    bool m_isAtEnd = false;
    std::string m_joined; ///< a line of several pieces
    CTextPlace m_start{0, 0, 0, 1};
    std::size_t m_length = 0;
};

/// The next line that has more than blanks.
bool NextFilled(CLineInput& lines, std::string_view& line)
{
    while (lines.Next(line)) {
        const char* const end = line.data() + line.size();
        if (interchange::FindByte<interchange::CNonBlank>(line.data(), end) != end) return true;
    }
    return false;
}

/// The same. An exception of the callback is a problem, but std::bad_alloc.
bool NextFilled(CLineInput& lines, std::string_view& line, CReport& report, bool& isGood)
{
    try {
        return NextFilled(lines, line);
    } catch (...) {
        CProblem problem;
        problem.Code = ProblemCode::INPUT_FAILED;
        problem.Found = interchange::WhatIsThrown();
        problem.Place = lines.Start();
        problem.Place.Offset += lines.Length();
        problem.Place.Column += lines.Length();
        report.Add(std::move(problem));
        isGood = false;
        return false;
    }
}

} // namespace

bool ReadJsonLines(const CRefrence& object, const InputFunction& input, const std::function<void()>& reset,
                   const std::function<bool()>& take, CReport& report, const CReadPolicy& policy)
{
    CLineInput lines(input, policy.MaxBytes);
    bool isGood = true;
    std::string_view line;
    while (NextFilled(lines, line, report, isGood)) {
        reset();
        if (!interchange::ReadJsonLine(object, line, lines.Start(), report, policy))
            isGood = false;
        else if (!take())
            break;
    }
    return isGood;
}

} // namespace vexa
