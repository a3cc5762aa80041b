#ifndef VEXA_TYPEINFO_FINISHED_CLASS_H
#define VEXA_TYPEINFO_FINISHED_CLASS_H

#include <atomic>

#include <vexa/class_infor.h>
#include <vexa/container_infor.h>

namespace vexa::typeinfo {

class CPlan;
class CContainerPlan;
class CFlatNames;

/// A class descriptor as registration makes it: with room behind the public fields for the plan by which its objects
/// are walked fast. The plan is made at the first use, published once, and lives as long as the descriptor.
struct CFinishedClass : CClassInfor {
    CClassInfor** Slot = nullptr;         ///< the application's, in a class that it registers itself
    CFinishedClass* MadeBefore = nullptr; ///< while such a class may still be withdrawn
    mutable std::atomic<const CPlan*> Plan{nullptr};
    mutable std::atomic<const CFlatNames*> FlatNames{nullptr};
};

/// A container descriptor as the description layer makes it, with the same room.
struct CFinishedContainer : CContainerInfor {
    mutable std::atomic<const CContainerPlan*> Plan{nullptr};
};

/// The descriptor with its room for a plan, or null for one that no registration has finished.
inline const CFinishedClass* FinishedClass(const CClassInfor& infor) noexcept
{
    return infor.Mark.Is(detail::CFinishedMark::CLASS) ? static_cast<const CFinishedClass*>(&infor) : nullptr;
}

inline const CFinishedContainer* FinishedContainer(const CContainerInfor& infor) noexcept
{
    return infor.Mark.Is(detail::CFinishedMark::CONTAINER) ? static_cast<const CFinishedContainer*>(&infor) : nullptr;
}

} // namespace vexa::typeinfo

#endif
