#ifndef VEXA_TYPEINFO_SLOT_GROUP_H
#define VEXA_TYPEINFO_SLOT_GROUP_H

#include <vexa/detail/slot.h>

/// \file
/// The slots that have been filled since the outermost registration began. They refer to one another, so they are
/// published together, and one that cannot be completed takes those that were made for it along. All of this is only
/// touched under the global lock.

namespace vexa {
class CClassInfor;
}

namespace vexa::typeinfo {

struct CFinishedClass;

/// Fills a slot. The slot owns the descriptor until it is published.
void Fill(detail::CSlot& slot, void* descriptor) noexcept;

/// Stores a class that the application registers itself in its slot, where the application may read it at once. The
/// slot owns the descriptor.
void Fill(CClassInfor*& slot, CFinishedClass& descriptor) noexcept;

/// Lets every thread read what has been made, without the lock.
void PublishMade() noexcept;

/// What is made in its scope goes again, and the slots are null as before, unless the scope is completed.
class CSlotGroup {
public:
    CSlotGroup() noexcept;
    ~CSlotGroup();
    CSlotGroup(const CSlotGroup&) = delete;
    CSlotGroup& operator=(const CSlotGroup&) = delete;

    void Complete() noexcept { m_isComplete = true; }
    /// What is made goes again, until the scope is completed once more.
    void Reopen() noexcept { m_isComplete = false; }

private:
    detail::CSlot* m_before;
    CFinishedClass* m_classBefore;
    bool m_isComplete = false;
};

} // namespace vexa::typeinfo

#endif
