#ifndef VEXA_REFERENCE_CLEARING_H
#define VEXA_REFERENCE_CLEARING_H

namespace vexa::reference {

/// One record that is being cleared on this thread; those of one thread form a chain, the innermost first. Entries are
/// references, so a record may lead back to itself, and would be cleared for ever.
class CClearing {
public:
    explicit CClearing(const void* record) : m_record(record), m_outer(t_innermost) { t_innermost = this; }
    CClearing(const CClearing&) = delete;
    CClearing& operator=(const CClearing&) = delete;
    ~CClearing() { t_innermost = m_outer; }

    bool IsInsideItself() const
    {
        const CClearing* outer = m_outer;
        while (outer != nullptr && outer->m_record != m_record)
            outer = outer->m_outer;
        return outer != nullptr;
    }

private:
    inline static thread_local const CClearing* t_innermost = nullptr;

    const void* m_record;
    const CClearing* m_outer;
};

} // namespace vexa::reference

#endif
