#ifndef VEXA_INTERCHANGE_WRITE_CONTEXT_H
#define VEXA_INTERCHANGE_WRITE_CONTEXT_H

#include <cstddef>
#include <cstdint>
#include <string>

#include <vexa/policy.h>
#include <vexa/report.h>

#include "interchange/path.h"

namespace vexa::interchange {

/// An object or container that the writing walk is inside of.
struct CWriteFrame : CPathStep {
    const void* Object = nullptr;
    const void* Type = nullptr; ///< the descriptor of its structure: an object and its first member have one address
    std::size_t Depth = 0;

    /// Outside of everything.
    CWriteFrame() = default;
    CWriteFrame(const CWriteFrame& outer, const void* object, const void* type) noexcept
        : CPathStep(&outer), Object(object), Type(type), Depth(outer.Depth + 1)
    {
    }
    /// Whether the object is one of those that it lies in. Only what a pointer leads to can be.
    bool IsInsideItself() const noexcept
    {
        const auto* outer = static_cast<const CWriteFrame*>(Outer);
        for (; outer != nullptr; outer = static_cast<const CWriteFrame*>(outer->Outer))
            if (outer->Object == Object && outer->Type == Type) return true;
        return false;
    }
};

/// What one writing is told, and what comes of it beside the text.
class CWriteContext {
public:
    /// \p isComplete: every attribute is written, also one that its class leaves out when it is as in a new object, and
    /// texts and raw JSON byte by byte, for a text that tells one value from every other.
    CWriteContext(const CWritePolicy& policy, CReport* report, bool isComplete = false) noexcept
        : m_policy(policy), m_report(report), m_isComplete(isComplete)
    {
    }

    const CWritePolicy& Policy() const noexcept { return m_policy; }
    bool IsComplete() const noexcept { return m_isComplete; }
    bool HasProblems() const noexcept { return m_hasProblems; }

    /// Tells a problem of the value that the innermost step leads to. \p found is left out where it may be
    /// confidential.
    __attribute__((noinline)) void Tell(ProblemCode code, const CPathStep& where, std::string expected,
                                        std::string found = {});

private:
    const CWritePolicy& m_policy;
    CReport* m_report;
    const bool m_isComplete;
    bool m_hasProblems = false;
};

} // namespace vexa::interchange

#endif
