#ifndef VEXA_DETAIL_SLOT_H
#define VEXA_DETAIL_SLOT_H

#include <atomic>

#include <vexa/class_infor.h>
#include <vexa/container_infor.h>
#include <vexa/custom_type_infor.h>
#include <vexa/export.h>

/// \file
/// Where the descriptors that the description layer makes are kept, and the compiled functions that make them.
/// Everything here is built under the global recursive lock; no function-local static stands around a registration.

namespace vexa::detail {

class CSurvey;

/// Where a finished descriptor is read without the lock. It stays null until every registration that was in progress
/// together with the descriptor's own has ended, so that a reader never follows it into one that is still being built.
struct CPublication {
    std::atomic<const void*> Published{nullptr};
};

/// Queues a descriptor for publication at the end of the outermost registration. Call under the global lock.
VEXA_API void Announce(CPublication& publication, const void* descriptor);

/// Everything that the library must know of a class to describe it.
struct CClassSlot : CPublication {
    constexpr CClassSlot(const char* name, unsigned long size, void* (*factory)(), void (*deleter)(void*),
                         CClassInfor::DescribeFunction describe, void (*survey)(CSurvey&)) noexcept
        : Name(name), Size(size), Factory(factory), Deleter(deleter), Describe(describe), Survey(survey)
    {
    }

    const char* Name;
    unsigned long Size;
    void* (*Factory)();
    void (*Deleter)(void*);
    CClassInfor::DescribeFunction Describe;
    void (*Survey)(CSurvey&);          ///< lists the classes that the description names
    CClassInfor* Descriptor = nullptr; ///< set when complete
    bool IsStarted = false;            ///< its describing function has been called
    const CSurvey* Surveyed = nullptr; ///< what Survey has listed
};

struct CContainerSlot : CPublication {
    constexpr explicit CContainerSlot(void (*describe)(CContainerInfor&), CGnlTypeInfor (*elementType)()) noexcept
        : Describe(describe), ElementType(elementType)
    {
    }

    void (*Describe)(CContainerInfor&); ///< fills everything but the element type
    CGnlTypeInfor (*ElementType)();
    CContainerInfor* Descriptor = nullptr;
};

struct CCustomSlot : CPublication {
    constexpr explicit CCustomSlot(void (*describe)(CCustomBasicTypeInfor*&)) noexcept : Describe(describe) {}

    void (*Describe)(CCustomBasicTypeInfor*&); ///< registers the type
    CCustomBasicTypeInfor* Descriptor = nullptr;
};

struct CTypeSlot : CPublication {
    constexpr explicit CTypeSlot(CGnlTypeInfor (*make)()) noexcept : Make(make) {}

    CGnlTypeInfor (*Make)();
    CGnlTypeInfor* Descriptor = nullptr;
};

/// Each builds what the slot describes, unless it stands already, and returns it; a descriptor that is asked for while
/// it is in progress on this thread is returned as it is.
VEXA_API const CClassInfor* Build(CClassSlot& slot);
VEXA_API const CContainerInfor* Build(CContainerSlot& slot);
VEXA_API const CCustomBasicTypeInfor* Build(CCustomSlot& slot);
VEXA_API const CGnlTypeInfor* Build(CTypeSlot& slot);

/// Tells a survey of a class that a description names.
VEXA_API void AddToSurvey(CSurvey& survey, CClassSlot& named, bool isByValue);

/// The descriptor of a slot: one load and one branch once it stands.
template<class Descriptor, class Slot>
const Descriptor& DescriptorOf(Slot& slot)
{
    const void* const published = slot.Published.load(std::memory_order_acquire);
    return __builtin_expect(published != nullptr, 1) ? *static_cast<const Descriptor*>(published) : *Build(slot);
}

/// How a type is described, without a descriptor: what an attribute record takes over, and where its details come from.
struct CTypeSource {
    unsigned char DataType;
    unsigned char HoldingFlags;
    unsigned char NullFlagOffset;
    unsigned char ValueOffset;
    const CTypeInforBase* (*Detail)();               ///< null for a type without detailed descriptor
    void (*Survey)(CSurvey& survey, bool isByValue); ///< null likewise
};

inline CGnlTypeInfor MakeTypeInfor(const CTypeSource& source)
{
    CGnlTypeInfor type(source.DataType, source.HoldingFlags, source.Detail != nullptr ? source.Detail() : nullptr);
    type.NullFlagOffset = source.NullFlagOffset;
    type.ValueOffset = source.ValueOffset;
    return type;
}

} // namespace vexa::detail

#endif
