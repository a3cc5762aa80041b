#ifndef VEXA_INTERCHANGE_TAGGED_H
#define VEXA_INTERCHANGE_TAGGED_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include <vexa/event.h>

/// \file
/// Values that a tag says, see ValueTag.

namespace vexa::interchange {

/// The events of a source, with the value in the place of a tag and what lies behind it, of pieces and of a NEGATIVE.
class CTaggedEvents {
public:
    /// \param most bytes of a text or of bytes in pieces: what is longer is told when it is, and not read to its end.
    explicit CTaggedEvents(std::size_t most) : m_most(most) {}
    /// What \p event has of this object stays until the next one.
    bool Next(CEventSource& source, CEvent& event, CProblem& problem);

private:
    bool Take(CEventSource& source, CEvent& event, CProblem& problem);
    bool Join(CEventSource& source, CEvent& event, CProblem& problem);
    bool FillTagged(CEventSource& source, CEvent& event, CProblem& problem);
    bool FillSeconds(CEvent& event, CProblem& problem);
    bool FillInteger(CEvent& event, bool isNegative, CProblem& problem);
    bool FillDecimal(CEventSource& source, CEvent& event, CProblem& problem);
    bool PassTags(CEventSource& source, CEvent& event, std::optional<ValueTag>& tag, CProblem& problem);
    bool TakeInteger(CEventSource& source, CEvent& event, CProblem& problem);
    void SetDigits(CEvent& event, std::string digits);

    const std::size_t m_most;
    std::string m_memory; ///< of digits or a time
    std::string m_joined; ///< pieces
};

/// Writes the integer -1 - \p below by a tag.
void PutNegative(CEventSink& sink, unsigned long long below);
/// Writes a number by its digits, as an integer or by a tag. \return false, with nothing written, where it has too
/// many.
bool PutDecimal(CEventSink& sink, std::string_view digits);

} // namespace vexa::interchange

#endif
