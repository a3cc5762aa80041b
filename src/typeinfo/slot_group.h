#ifndef VEXA_TYPEINFO_SLOT_GROUP_H
#define VEXA_TYPEINFO_SLOT_GROUP_H

#include <vexa/detail/slot.h>

/// \file
/// The slots that have been filled since the outermost registration began. They refer to one another, so they are
/// published together, and one that cannot be completed takes those that were made for it along. All of this is only
/// touched under the global lock.

namespace vexa::typeinfo {

/// Fills a slot. The slot owns the descriptor until it is published.
void Fill(detail::CSlot& slot, void* descriptor) noexcept;

/// Lets every thread read what has been made, without the lock.
void PublishMade() noexcept;

/// What is made in its scope goes again, unless the scope is completed.
class CSlotGroup {
public:
    CSlotGroup() noexcept;
    ~CSlotGroup();
    CSlotGroup(const CSlotGroup&) = delete;
    CSlotGroup& operator=(const CSlotGroup&) = delete;

    void Complete() noexcept { m_isComplete = true; }

private:
    detail::CSlot* m_before;
    bool m_isComplete = false;
};

} // namespace vexa::typeinfo

#endif
