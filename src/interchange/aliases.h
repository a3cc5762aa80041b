#ifndef VEXA_INTERCHANGE_ALIASES_H
#define VEXA_INTERCHANGE_ALIASES_H

#include <cstddef>
#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <vexa/format.h>

#include "interchange/tagged.h"

namespace vexa::interchange {

/// The events of a source, with those of what an alias stands for in its place. What has an anchor is kept, once. Tags
/// have become values, and what stands where a key is due a KEY.
class CAliases {
public:
    /// \param most see CTaggedEvents.
    explicit CAliases(std::size_t most) : m_tagged(most) {}
    bool Next(CEventSource& source, CEvent& event, CProblem& problem);
    /// The rest of a value whose first event has been told is not told.
    void PassOver(const CEvent& begin);
    /// Whether nothing is told again or kept.
    bool IsIdle() const noexcept { return m_aliases.empty() && m_open.empty(); }
    /// What the events that were told again amount to.
    std::size_t RepeatedBytes() const noexcept { return m_repeatedBytes; }

private:
    using CRange = std::pair<std::size_t, std::size_t>; ///< of m_kept

    struct CKept {
        CEvent Event;
        CRange Alias; ///< what an ALIAS stands for
    };
    struct CAnchor {
        std::string Name;
        std::size_t First; ///< in m_kept
        std::size_t Depth;
    };

    bool Take(CEventSource& source, CEvent& event, CProblem& problem);
    bool FindAnchor(const CEvent& event, CRange& alias, CProblem& problem) const;
    void Keep(const CEvent& event, const CRange& alias);
    void SetKey(CEvent& event);

    CTaggedEvents m_tagged;
    CNesting m_nesting;      ///< of what is told
    std::string m_key;       ///< the digits of one that is an integer
    std::size_t m_depth = 0; ///< of the source, from the outermost open anchor on
    std::vector<CAnchor> m_open;
    std::map<std::string, CRange, std::less<>> m_anchors; ///< that are whole
    std::vector<CKept> m_kept;
    std::deque<std::string> m_texts;
    std::vector<CRange> m_aliases; ///< what comes next, the innermost last
    std::size_t m_repeatedBytes = 0;
};

} // namespace vexa::interchange

#endif
