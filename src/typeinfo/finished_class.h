#ifndef VEXA_TYPEINFO_FINISHED_CLASS_H
#define VEXA_TYPEINFO_FINISHED_CLASS_H

#include <atomic>

#include <vexa/class_infor.h>

namespace vexa::typeinfo {

class CPlan;

/// A class descriptor as registration makes it: with room behind the public fields for the plan by which its objects
/// are walked fast. The plan is made at the first use, published once, and lives as long as the descriptor.
struct CFinishedClass : CClassInfor {
    mutable std::atomic<const CPlan*> Plan{nullptr};
};

/// The descriptor with its room for a plan, or null for one that no registration has finished.
inline const CFinishedClass* FinishedClass(const CClassInfor& infor) noexcept
{
    return infor.Mark.Is(detail::CFinishedMark::CLASS) ? static_cast<const CFinishedClass*>(&infor) : nullptr;
}

} // namespace vexa::typeinfo

#endif
