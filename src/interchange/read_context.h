#ifndef VEXA_INTERCHANGE_READ_CONTEXT_H
#define VEXA_INTERCHANGE_READ_CONTEXT_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include <vexa/policy.h>
#include <vexa/report.h>

#include "interchange/form.h"
#include "interchange/path.h"

namespace vexa::interchange {

class CUndo;
struct CObjectFrame;

/// Tells line and column of a place in the text that is read, whatever is replayed meanwhile.
class CLocator {
public:
    virtual void Locate(CTextPlace& place) = 0;

protected:
    ~CLocator() = default;
};

/// What the place of a problem is, which decides whether it may be shown.
enum class Secrecy : unsigned char {
    VALUE, ///< a value, confidential by the way that leads to it, or where it may stand for one that is
    KEY,   ///< a key
    PLAIN, ///< what is no value of an attribute, as a tag or a bracket: confidential by the way alone
    HIDDEN ///< what is broken
};

/// For each member of the objects that are open: where its key stands, plus 1; 0 where it has not been met.
class CFirsts {
public:
    /// Makes room for the members of an object that is entered. \return where it begins.
    std::size_t Push(std::size_t count)
    {
        const std::size_t base = m_used;
        m_used += count;
        if (m_used > m_places.size()) m_places.resize(2 * m_used);
        std::fill_n(m_places.begin() + static_cast<std::ptrdiff_t>(base), count, 0U);
        return base;
    }
    void Pop(std::size_t base) noexcept { m_used = base; }
    std::uint32_t& operator[](std::size_t i) noexcept { return m_places[i]; }
    /// Those from \p base on, until something is pushed.
    std::uint32_t* From(std::size_t base) noexcept { return m_places.data() + base; }

private:
    std::vector<std::uint32_t> m_places;
    std::size_t m_used = 0;
};

/// What one reading has in common, however many readers take part in it.
class CReadContext {
public:
    /// \p text is the whole text where it lies in memory, else empty.
    CReadContext(const CForm& root, CReport& report, const CReadPolicy& policy, std::string_view text)
        : Policy(policy), Text(text), ElementsLeft(policy.MaxElements), m_root(root), m_report(report)
    {
    }
    CReadContext(const CReadContext&) = delete;
    CReadContext& operator=(const CReadContext&) = delete;

    const CReadPolicy& Policy;
    const std::string_view Text;
    CForms Forms;
    CLocator* Locator = nullptr;
    const CTextPlace* Start = nullptr; ///< where the text begins in a longer one, of which places are told; may be null
    const CPathStep* Path = nullptr;
    CUndo* Undo = nullptr; ///< null while nothing need be undone: what is read into is new
    CFirsts Firsts;
    const CObjectFrame* Frame = nullptr; ///< the innermost object that is open
    const CForm* Entry = nullptr;        ///< of the innermost StepKind::ENTRY in the path
    bool IsTrial = false;                ///< problems are only counted
    std::size_t Problems = 0;            ///< so many so far
    std::size_t ElementsLeft;            ///< so many may still be read
    bool IsOver = false;                 ///< there were more: nothing else is read

    /// Takes a problem in, with the path and as much of the text as may be shown.
    void Add(CProblem problem, Secrecy secrecy);

private:
    bool ReachesMasked();
    bool MayHoldMasked();
    ExcerptForm FormOfExcerpt(Secrecy secrecy);

    const CForm& m_root;
    CReport& m_report;
    int m_reachesMasked = -1;             ///< not known yet
    const CMember* m_askedLast = nullptr; ///< by MayHoldMasked
    bool m_mayHoldMasked = false;         ///< what it has said
};

/// Adds a link to the path as long as it lives.
class CPathScope {
public:
    explicit CPathScope(CReadContext& context) noexcept : Step(context.Path), m_context(context)
    {
        context.Path = &Step;
    }
    CPathScope(const CPathScope&) = delete;
    CPathScope& operator=(const CPathScope&) = delete;
    ~CPathScope() { m_context.Path = Step.Outer; }

    CPathStep Step;

private:
    CReadContext& m_context;
};

/// Says what an entry of a generic object or a group is, as long as it lives.
class CEntryScope {
public:
    CEntryScope(CReadContext& context, const CForm& form) noexcept
        : m_context(context), m_outer(std::exchange(context.Entry, &form))
    {
    }
    CEntryScope(const CEntryScope&) = delete;
    CEntryScope& operator=(const CEntryScope&) = delete;
    ~CEntryScope() { m_context.Entry = m_outer; }

private:
    CReadContext& m_context;
    const CForm* m_outer;
};

/// Takes no notes for undoing as long as it lives: what is read into is new, and goes as a whole.
class CFreshScope {
public:
    explicit CFreshScope(CReadContext& context) noexcept
        : m_context(context), m_undo(std::exchange(context.Undo, nullptr))
    {
    }
    CFreshScope(const CFreshScope&) = delete;
    CFreshScope& operator=(const CFreshScope&) = delete;
    ~CFreshScope() { m_context.Undo = m_undo; }

private:
    CReadContext& m_context;
    CUndo* m_undo;
};

/// Problems are only counted, and forgotten again, as long as it lives; what is read into is new.
class CTrialScope {
public:
    explicit CTrialScope(CReadContext& context) noexcept
        : m_context(context), m_fresh(context), m_wasTrial(std::exchange(context.IsTrial, true)),
          m_before(context.Problems), m_left(context.ElementsLeft)
    {
    }
    CTrialScope(const CTrialScope&) = delete;
    CTrialScope& operator=(const CTrialScope&) = delete;
    ~CTrialScope()
    {
        m_context.IsTrial = m_wasTrial;
        m_context.Problems = m_before;
        m_context.ElementsLeft = m_left;
    }
    bool HasProblems() const noexcept { return m_context.Problems != m_before; }

private:
    CReadContext& m_context;
    CFreshScope m_fresh;
    bool m_wasTrial;
    std::size_t m_before;
    std::size_t m_left;
};

} // namespace vexa::interchange

#endif
