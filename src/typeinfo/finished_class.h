#ifndef VEXA_TYPEINFO_FINISHED_CLASS_H
#define VEXA_TYPEINFO_FINISHED_CLASS_H

#include <atomic>

#include <vexa/class_infor.h>
#include <vexa/container_infor.h>
#include <vexa/custom_type_infor.h>
#include <vexa/detail/enumeration.h>
#include <vexa/detail/shape.h>
#include <vexa/detail/vector.h>

namespace vexa::typeinfo {

class CPlan;
class CContainerPlan;
class CFlatNames;
struct CClassNotes;

/// What a higher room keeps behind a descriptor. It is made at the first use, published once, and goes with the
/// descriptor.
class CKept {
public:
    virtual ~CKept() = default;
};

/// A class descriptor as registration makes it: with room behind the public fields for the plan by which its objects
/// are walked fast. The plan is made at the first use, published once, and lives as long as the descriptor. What it
/// owns is released by the descriptor's own destructor, since an application may delete it as a CClassInfor.
struct CFinishedClass : CClassInfor {
    CClassInfor** Slot = nullptr;         ///< the application's, in a class that it registers itself
    CFinishedClass* MadeBefore = nullptr; ///< while such a class may still be withdrawn
    mutable std::atomic<const CPlan*> Plan{nullptr};
    mutable std::atomic<const CFlatNames*> FlatNames{nullptr};
    CClassNotes* Notes = nullptr;                    ///< owned; null where the description says nothing of them
    const std::string* QualifiedName = nullptr;      ///< owned; null where it is the registered one
    mutable std::atomic<const CKept*> Form{nullptr}; ///< owned; of the standard formats
};

/// A container descriptor as the description layer makes it, with the same room.
struct CFinishedContainer : CContainerInfor {
    ~CFinishedContainer() { delete Form.load(std::memory_order_relaxed); }

    mutable std::atomic<const CContainerPlan*> Plan{nullptr};
    const detail::CEnumerationSlot* ElementNames = nullptr; ///< of the elements' values, where they have names
    void (*Swap)(void* left, void* right) = nullptr;        ///< exchanges the contents of two; null for vectors
    /// Removes the element at an address; null for vectors that are handled by Manage, and where it cannot be done.
    void (*Remove)(void* container, const void* element) = nullptr;
    /// The entry of a map that has a key; null for a map whose keys are neither text, integers nor enumerators.
    void* (*FindKey)(void* map, const void* key) = nullptr;
    bool IsManaged = false;                  ///< a vector whose elements Manage handles
    detail::ManageFunction Manage = nullptr; ///< null for elements that are plain bytes
    mutable std::atomic<const CKept*> Form{nullptr};
};

/// The descriptor of a custom type whose structure is known.
struct CFinishedCustom : CCustomBasicTypeInfor {
    ~CFinishedCustom() { delete Form.load(std::memory_order_relaxed); }

    const detail::CShape* Shape = nullptr;
    mutable std::atomic<const CKept*> Form{nullptr};
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

inline const CFinishedCustom* FinishedCustom(const CCustomBasicTypeInfor& infor) noexcept
{
    return infor.Mark.Is(detail::CFinishedMark::SHAPE) ? static_cast<const CFinishedCustom*>(&infor) : nullptr;
}

} // namespace vexa::typeinfo

#endif
