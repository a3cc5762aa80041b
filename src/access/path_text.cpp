#include "access/path_text.h"

#include <algorithm>

#include "interchange/json_source.h"
#include "interchange/read_phrase.h"

namespace vexa::access {

namespace {

/// `12`, `-3`, without a zero too many.
bool IsInteger(std::string_view text)
{
    interchange::CNumber number;
    const char* const end = text.data() + text.size();
    return !text.empty() && interchange::ScanInteger(text.data(), end, number) == end;
}

bool IsWord(std::string_view text)
{
    const bool isNumber = text.empty() || text[0] == '-' || interchange::IsDigit(text[0]);
    return !isNumber && text.find_first_of(".[]*\"") == text.npos;
}

} // namespace

bool CPathReader::Next(CPathPart& part)
{
    if (m_next == m_path.size()) return false;
    if (m_path[m_next] == '[') return Bracket(part);
    if (m_next != 0) {
        if (m_path[m_next] != '.') return Fail("\".\" or \"[\"");
        ++m_next;
    }
    return Name(part);
}

bool CPathReader::Name(CPathPart& part)
{
    const std::size_t end = std::min(m_path.find_first_of(".[]\"", m_next), m_path.size());
    if (end == m_next) return Fail("a name");
    part.Kind = PartKind::NAME;
    part.Text = m_path.substr(m_next, end - m_next);
    part.End = m_next = end;
    return true;
}

bool CPathReader::Bracket(CPathPart& part)
{
    ++m_next;
    const bool isQuoted = m_next < m_path.size() && m_path[m_next] == '"';
    if (!(isQuoted ? Quoted(part) : Inside(part))) return false;
    if (m_next == m_path.size() || m_path[m_next] != ']') return Fail("\"]\"");
    part.End = ++m_next;
    return true;
}

/// What stands between brackets without quotation marks.
bool CPathReader::Inside(CPathPart& part)
{
    const std::size_t end = std::min(m_path.find_first_of("]", m_next), m_path.size());
    const std::string_view text = m_path.substr(m_next, end - m_next);
    if (text == "*")
        part.Kind = PartKind::ALL;
    else if (IsInteger(text))
        part.Kind = PartKind::NUMBER;
    else if (IsWord(text))
        part.Kind = PartKind::WORD;
    else
        return Fail("an index, a key or \"*\"");
    part.Text = text;
    m_next = end;
    return true;
}

bool CPathReader::Quoted(CPathPart& part)
{
    interchange::CJsonSource source(m_path.substr(m_next));
    interchange::CText text;
    if (source.Peek() != EventKind::STRING || !source.String(text)) return Fail("a key as JSON writes texts");
    part.Kind = PartKind::TEXT;
    part.Text = text.Text;
    m_next += source.EndOffset();
    return true;
}

bool CPathReader::Fail(const char* expected)
{
    constexpr std::size_t SHOWN = 20;
    m_problem.Code = ProblemCode::BAD_PATH;
    m_place = m_next;
    m_problem.Expected = expected;
    const std::string_view rest = m_path.substr(m_next, SHOWN);
    m_problem.Found = rest.empty() ? "the end of the path" : interchange::ShownText(rest);
    m_next = m_path.size();
    return false;
}

} // namespace vexa::access
