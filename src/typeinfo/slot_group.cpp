#include "typeinfo/slot_group.h"

#include <utility>

#include "typeinfo/finished_class.h"

namespace vexa::typeinfo {
namespace {

/// The one that was made last; the others are linked behind it.
detail::CSlot* s_made = nullptr;

void Destroy(detail::SlotForm form, void* descriptor) noexcept
{
    switch (form) {
    case detail::SlotForm::TYPE: delete static_cast<CGnlTypeInfor*>(descriptor); break;
    case detail::SlotForm::CLASS: delete static_cast<CFinishedClass*>(descriptor); break;
    case detail::SlotForm::CONTAINER: delete static_cast<CFinishedContainer*>(descriptor); break;
    case detail::SlotForm::CUSTOM: delete static_cast<CCustomBasicTypeInfor*>(descriptor); break;
    }
}

detail::CSlot& TakeLast() noexcept
{
    detail::CSlot& last = *s_made;
    s_made = std::exchange(last.MadeBefore, nullptr);
    return last;
}

} // namespace

void Fill(detail::CSlot& slot, void* descriptor) noexcept
{
    slot.Made = descriptor;
    slot.MadeBefore = std::exchange(s_made, &slot);
}

void PublishMade() noexcept
{
    while (s_made != nullptr) {
        detail::CSlot& slot = TakeLast();
        slot.Published.store(slot.Made, std::memory_order_release);
    }
}

CSlotGroup::CSlotGroup() noexcept : m_before(s_made) {}

CSlotGroup::~CSlotGroup()
{
    if (m_isComplete) return;
    while (s_made != m_before) {
        detail::CSlot& slot = TakeLast();
        Destroy(slot.Form, std::exchange(slot.Made, nullptr));
    }
}

} // namespace vexa::typeinfo
