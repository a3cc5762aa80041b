#include "typeinfo/slot_group.h"

#include <utility>

#include "typeinfo/finished_class.h"

namespace vexa::typeinfo {
namespace {

/// The one that was made last; the others are linked behind it.
detail::CSlot* s_made = nullptr;
/// The same of the classes that the application registers itself.
CFinishedClass* s_madeClass = nullptr;

void DestroyCustom(CCustomBasicTypeInfor* descriptor) noexcept
{
    if (descriptor != nullptr && FinishedCustom(*descriptor) != nullptr)
        delete static_cast<CFinishedCustom*>(descriptor);
    else
        delete descriptor;
}

void Destroy(detail::SlotForm form, void* descriptor) noexcept
{
    switch (form) {
    case detail::SlotForm::TYPE: delete static_cast<CGnlTypeInfor*>(descriptor); break;
    case detail::SlotForm::CLASS: delete static_cast<CFinishedClass*>(descriptor); break;
    case detail::SlotForm::CONTAINER: delete static_cast<CFinishedContainer*>(descriptor); break;
    case detail::SlotForm::CUSTOM: DestroyCustom(static_cast<CCustomBasicTypeInfor*>(descriptor)); break;
    case detail::SlotForm::ENUMERATION: break; // is never filled
    }
}

detail::CSlot& TakeLast() noexcept
{
    detail::CSlot& last = *s_made;
    s_made = std::exchange(last.MadeBefore, nullptr);
    return last;
}

CFinishedClass& TakeLastClass() noexcept
{
    CFinishedClass& last = *s_madeClass;
    s_madeClass = std::exchange(last.MadeBefore, nullptr);
    return last;
}

} // namespace

void Fill(detail::CSlot& slot, void* descriptor) noexcept
{
    slot.Made = descriptor;
    slot.MadeBefore = std::exchange(s_made, &slot);
}

void Fill(CClassInfor*& slot, CFinishedClass& descriptor) noexcept
{
    descriptor.Slot = &slot;
    descriptor.MadeBefore = std::exchange(s_madeClass, &descriptor);
    // An application may read its slot without the lock.
    __atomic_store_n(&slot, &descriptor, __ATOMIC_RELEASE);
}

void PublishMade() noexcept
{
    while (s_madeClass != nullptr)
        TakeLastClass();
    while (s_made != nullptr) {
        detail::CSlot& slot = TakeLast();
        slot.Published.store(slot.Made, std::memory_order_release);
    }
}

CSlotGroup::CSlotGroup() noexcept : m_before(s_made), m_classBefore(s_madeClass) {}

CSlotGroup::~CSlotGroup()
{
    if (m_isComplete) return;
    while (s_madeClass != m_classBefore) {
        const CFinishedClass& made = TakeLastClass();
        __atomic_store_n(made.Slot, nullptr, __ATOMIC_RELEASE);
        delete &made;
    }
    while (s_made != m_before) {
        detail::CSlot& slot = TakeLast();
        Destroy(slot.Form, std::exchange(slot.Made, nullptr));
    }
}

} // namespace vexa::typeinfo
