#ifndef VEXA_DETAIL_SLOT_H
#define VEXA_DETAIL_SLOT_H

#include <atomic>

#include <vexa/class_infor.h>
#include <vexa/container_infor.h>
#include <vexa/custom_type_infor.h>
#include <vexa/detail/vector.h>
#include <vexa/export.h>

/// \file
/// Where the descriptors that the description layer makes are kept, and the constant records that they are made from.
/// Everything here is built under the global recursive lock; no function-local static stands around a registration.

namespace vexa::detail {

class CDescriptionBase;

enum class SlotForm : unsigned char { TYPE, CLASS, CONTAINER, CUSTOM, ENUMERATION };

/// Where the descriptor of one type is kept. It can be read without the lock when every registration that was in
/// progress together with its own has ended, so that a reader never follows it into one that is still being built; it
/// stays null until then, and for good when they have failed.
struct CSlot {
    constexpr explicit CSlot(SlotForm form) noexcept : Form(form) {}

    std::atomic<const void*> Published{nullptr};
    void* Made = nullptr;        ///< under the global lock: the descriptor, perhaps still being built
    CSlot* MadeBefore = nullptr; ///< under the global lock: links what is not published yet
    const SlotForm Form;
};

/// Builds what the slot describes, unless it stands already, and returns it; a descriptor that is asked for while it is
/// in progress on this thread is returned as it is. An exception leaves nothing behind of what the outermost call has
/// built, and the lock free; the next use tries again.
VEXA_API const void* Build(CSlot& slot);

/// The descriptor of a slot: one load and one branch once it stands.
template<class Descriptor>
const Descriptor& DescriptorOf(CSlot& slot)
{
    const void* const published = slot.Published.load(std::memory_order_acquire);
    return *static_cast<const Descriptor*>(__builtin_expect(published != nullptr, 1) ? published : Build(slot));
}

/// How a type is described, without a descriptor: what an attribute record takes over, and where its details come from.
struct CTypeSource {
    unsigned char DataType;
    unsigned char HoldingFlags;
    unsigned char NullFlagOffset;
    unsigned char ValueOffset;
    unsigned int Offset; ///< of a member: bytes from the object; 0 for a type by itself
    CSlot* Detail;       ///< null for a type without detailed descriptor
};

VEXA_API CGnlTypeInfor MakeTypeInfor(const CTypeSource& source);

/// Everything that the library must know of a class to describe it.
struct CClassSlot : CSlot {
    constexpr CClassSlot(const char* name, const char* spelled, unsigned long size, void* (*factory)(),
                         void (*deleter)(void*), void (*describe)(CDescriptionBase&), bool isOutside) noexcept
        : CSlot(SlotForm::CLASS), IsOutside(isOutside), Name(name), Spelled(spelled), Size(size), Factory(factory),
          Deleter(deleter), Describe(describe)
    {
    }

    const bool IsOutside; ///< described from outside: the arguments of a template's instance follow the name
    const char* Name;     ///< null for the spelled one
    const char* Spelled;  ///< a text in which the compiler spells the class with its namespaces; null for none
    unsigned long Size;
    void* (*Factory)();
    void (*Deleter)(void*);
    void (*Describe)(CDescriptionBase&); ///< of a CDescription of the class
};

/// How a container is made: by a factory, or as a vector whose elements the library handles by one function.
union CContainerMaker {
    constexpr CContainerMaker(void* (*factory)()) noexcept : Factory(factory) {}
    constexpr CContainerMaker(ManageFunction manage) noexcept : Manage(manage) {}

    void* (*Factory)();
    ManageFunction Manage; ///< with CContainerRecord::MANAGED; null for elements that are plain bytes
};

/// Everything that the library must know of a container type to describe it.
struct CContainerRecord {
    static constexpr unsigned int MANAGED = 1U << 31U;

    const char* Name;
    unsigned long Size;
    unsigned int Form;   ///< CFinishedMark::VECTOR, SLOTS or none; perhaps also MANAGED
    unsigned int Stride; ///< bytes from one element to the next, where there is a form
    CContainerMaker Maker;
    void (*Deleter)(void*);
    CContainerInfor::AppendFunction Append; ///< null where Fill sets it, or where there is none; Clear likewise
    CContainerInfor::ClearFunction Clear;
    void (*Fill)(CContainerInfor&); ///< sets the other operations
    CTypeSource Element;
};

/// Keeps how the contents of two containers are exchanged, beside the descriptor's fields.
VEXA_API void SetSwap(CContainerInfor& infor, void (*swap)(void* left, void* right)) noexcept;

/// Keeps how an element, given by its address, is removed, likewise.
VEXA_API void SetRemove(CContainerInfor& infor, void (*remove)(void* container, const void* element)) noexcept;

/// Keeps how the entry of a map is found by its key, given by the address of one; null where there is none. Likewise.
VEXA_API void SetFindKey(CContainerInfor& infor, void* (*find)(void* map, const void* key)) noexcept;

struct CContainerSlot : CSlot {
    constexpr explicit CContainerSlot(const CContainerRecord& record) noexcept
        : CSlot(SlotForm::CONTAINER), Record(record)
    {
    }

    CContainerRecord Record;
};

/// Names a custom basic type to the function that registers it.
template<class T>
struct CCustomTag {
};

struct CShapedType;

/// A custom type registers itself, or is made from its shape.
struct CCustomSlot : CSlot {
    constexpr explicit CCustomSlot(void (*describe)(CCustomBasicTypeInfor*&)) noexcept
        : CSlot(SlotForm::CUSTOM), Describe(describe)
    {
    }
    constexpr explicit CCustomSlot(const CShapedType* shaped) noexcept : CSlot(SlotForm::CUSTOM), Shaped(shaped) {}

    void (*Describe)(CCustomBasicTypeInfor*&) = nullptr;
    const CShapedType* Shaped = nullptr;
};

struct CTypeSlot : CSlot {
    constexpr explicit CTypeSlot(const CTypeSource& source) noexcept : CSlot(SlotForm::TYPE), Source(source) {}

    CTypeSource Source;
};

} // namespace vexa::detail

#endif
