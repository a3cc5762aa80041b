#ifndef VEXA_INTERCHANGE_READ_PROBLEM_H
#define VEXA_INTERCHANGE_READ_PROBLEM_H

#include <algorithm>
#include <string_view>

#include "interchange/read_phrase.h"
#include "interchange/reader.h"

/// \file
/// The reader's problems. Whatever tells one lies apart from the walk.

namespace vexa::interchange {

/// The fewest bytes that a text can have for a key, quotes included: as many as a place may have that is known by its
/// beginning only, so that nothing behind the key is shown.
inline std::size_t ShortestKey(std::string_view key, BadText policy)
{
    // A byte that is no UTF-8 may have been mended.
    const auto counts = [policy](char byte) { return policy == BadText::PROBLEM || (byte & 0xC0) != 0x80; };
    return static_cast<std::size_t>(std::count_if(key.begin(), key.end(), counts)) + 2;
}

/// The bytes of the key that begins there in the text of JSON, quotes included; \p otherwise where there is no text.
inline std::size_t KeyLengthAt(std::string_view text, std::size_t offset, std::size_t otherwise)
{
    if (offset >= text.size() || text[offset] != '"') return otherwise;
    std::size_t end = offset + 1;
    for (; end < text.size() && text[end] != '"'; ++end)
        if (text[end] == '\\') ++end;
    return end < text.size() ? end + 1 - offset : otherwise;
}

/// The source has failed: tells why, once. \return false
template<class Source>
__attribute__((cold, noinline)) bool CReader<Source>::Broken()
{
    if (!m_isTold && m_source.HasFailed()) {
        m_isTold = true;
        m_context.Add(m_source.Problem(), Secrecy::HIDDEN);
    }
    return false;
}

template<class Source>
__attribute__((cold, noinline)) void CReader<Source>::Tell(CProblem problem, std::size_t begin, std::size_t end,
                                                           Secrecy secrecy)
{
    problem.Place.Offset = begin;
    problem.Place.Length = end > begin ? end - begin : 0;
    m_context.Add(std::move(problem), secrecy);
}

template<class Source>
__attribute__((cold, noinline)) void CReader<Source>::Tell(ProblemCode code, std::size_t begin, std::size_t end,
                                                           std::string expected, std::string found, Secrecy secrecy)
{
    CProblem problem;
    problem.Code = code;
    problem.Expected = std::move(expected);
    problem.Found = std::move(found);
    Tell(std::move(problem), begin, end, secrecy);
}

/// Passes over the next value, which is not what is expected.
template<class Source>
__attribute__((cold, noinline)) bool CReader<Source>::WrongKind(std::string expected)
{
    const EventKind kind = m_source.Peek();
    const std::size_t begin = m_source.Offset();
    if (m_source.HasFailed() || !m_source.Skip()) return Broken();
    CProblem problem;
    problem.Code = kind == EventKind::NULL_VALUE ? ProblemCode::NULL_NOT_ALLOWED : ProblemCode::WRONG_KIND;
    problem.Expected = std::move(expected);
    problem.Found = PhraseOf(kind);
    Tell(std::move(problem), begin, IsLong(kind) ? begin + 1 : m_source.EndOffset());
    return true;
}

/// Passes over the next value, which cannot be taken whatever it is.
template<class Source>
__attribute__((cold, noinline)) bool CReader<Source>::Refuse(ProblemCode code, std::string expected, std::string found)
{
    const EventKind kind = m_source.Peek();
    const std::size_t begin = m_source.Offset();
    if (m_source.HasFailed() || !m_source.Skip()) return Broken();
    Tell(code, begin, IsLong(kind) ? begin + 1 : m_source.EndOffset(), std::move(expected), std::move(found));
    return true;
}

/// Counts an element or entry that the reader stands before. \return false where the source has failed in it, and where
/// there are too many of them in the text, which ends the reading.
template<class Source>
inline bool CReader<Source>::CountOne()
{
    if constexpr (std::is_same_v<Source, CEventReader>) {
        if (m_source.HasFailed()) return Broken(); // inside it
    }
    return __builtin_expect(m_context.ElementsLeft-- != 0, 1) || TooManyElements();
}

/// Told while a value is only tried, too: with the others it would be no shorter. \return false
template<class Source>
__attribute__((cold, noinline)) bool CReader<Source>::TooManyElements()
{
    if (std::exchange(m_context.IsOver, true)) return false;
    m_source.Peek();
    if (m_source.HasFailed()) return Broken();
    const bool wasTrial = std::exchange(m_context.IsTrial, false);
    CProblem problem;
    problem.Code = ProblemCode::TOO_LONG;
    problem.Expected = AtMost(m_context.Policy.MaxElements, "element");
    Tell(std::move(problem), m_source.Offset(), m_source.Offset() + 1, Secrecy::HIDDEN);
    m_context.IsTrial = wasTrial;
    return false;
}

/// \return true: the number has been taken.
template<class Source>
__attribute__((cold, noinline)) bool CReader<Source>::TellNumber(NumberVerdict verdict, const CNumber& number,
                                                                 std::size_t begin, std::string range)
{
    const bool isFraction = verdict == NumberVerdict::NOT_AN_INTEGER;
    Tell(isFraction ? ProblemCode::NOT_AN_INTEGER : ProblemCode::OUT_OF_RANGE, begin, m_source.EndOffset(),
         isFraction ? "an integer" : std::move(range), ShownNumber(number));
    return true;
}

} // namespace vexa::interchange

#endif
