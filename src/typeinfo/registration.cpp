// The one-time creation of descriptors under the global recursive lock.

#include "typeinfo/registration.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <vexa/class_infor.h>
#include <vexa/detail/slot.h>
#include <vexa/helper.h>

#include "typeinfo/finished_class.h"

namespace vexa {
namespace typeinfo {
namespace {

// All of this is only touched under the global lock.
unsigned long s_nesting = 0;

/// Never destroyed: an object that outlives the library's statics may still be the first to use a type.
std::vector<std::pair<detail::CPublication*, const void*>>& Announced()
{
    static auto& announced = *new std::vector<std::pair<detail::CPublication*, const void*>>();
    return announced;
}

} // namespace

void EnterRegistration()
{
    helper::Acquire_Recursive_Thread_Mutex();
    ++s_nesting;
}

void LeaveRegistration()
{
    if (--s_nesting == 0) {
        for (const auto& [publication, descriptor] : Announced()) {
            publication->Published.store(descriptor, std::memory_order_release);
        }
        Announced().clear();
    }
    helper::Release_Recursive_Thread_Mutex();
}

} // namespace typeinfo

namespace detail {

void Announce(CPublication& publication, const void* descriptor)
{
    typeinfo::Announced().emplace_back(&publication, descriptor);
}

} // namespace detail

namespace {

/// A class whose describing function has not returned yet: the address of its slot, and its descriptor.
using ClassesInProgress = std::vector<std::pair<CClassInfor**, CClassInfor*>>;

struct CClassRegistration {
    CClassInfor*& Slot;
    const char* Name;
    unsigned long Size;
    void* (*NewFn)();
    void (*DeleteFn)(void*);
    CClassInfor::DescribeFunction Describe;
    const CClassInfor* Base;
    unsigned long BaseOffset;
};

CClassInfor* CreateDescriptor(const CClassRegistration& request, ClassesInProgress& inProgress)
{
    auto* const created = new typeinfo::CFinishedClass();
    inProgress.emplace_back(&request.Slot, created);
    created->SetBaseTypeInfor(request.Name, request.Size, request.NewFn, request.DeleteFn, 0);
    if (request.Base != nullptr) created->InheritFromBaseClass_Impl(request.BaseOffset, *request.Base);
    request.Describe(*created, Enum::AS_PUBLIC);
    created->CreateIndex();
    inProgress.pop_back();
    created->Mark.Set(detail::CFinishedMark::CLASS);
    __atomic_store_n(&request.Slot, created, __ATOMIC_RELEASE); // an application may read its slot without the lock
    return created;
}

/// A class that refers to itself, or to one that refers back, is asked for again while it is in progress. It then gets
/// its incomplete descriptor, whose address is all that is needed.
CClassInfor* Register(const CClassRegistration& request, ClassesInProgress& inProgress)
{
    typeinfo::EnterRegistration();
    CClassInfor* result = request.Slot;
    if (result == nullptr) {
        const auto found = std::find_if(inProgress.begin(), inProgress.end(),
                                        [&](const auto& entry) { return entry.first == &request.Slot; });
        result = found != inProgress.end() ? found->second : CreateDescriptor(request, inProgress);
    }
    typeinfo::LeaveRegistration();
    return result;
}

// These are never destroyed either.
ClassesInProgress& PlainClassesInProgress()
{
    static auto& classes = *new ClassesInProgress();
    return classes;
}

ClassesInProgress& DerivedClassesInProgress()
{
    static auto& classes = *new ClassesInProgress();
    return classes;
}

} // namespace

CClassInfor* CClassInfor::InitClassInfor(CClassInfor*& slot, const char* name, unsigned long size, void* (*newFn)(),
                                         void (*deleteFn)(void*), DescribeFunction describe)
{
    return Register({slot, name, size, newFn, deleteFn, describe, nullptr, 0}, PlainClassesInProgress());
}

CClassInfor* CClassInfor::InitClassInforWithBaseClass(CClassInfor*& slot, const char* name, unsigned long size,
                                                      void* (*newFn)(), void (*deleteFn)(void*),
                                                      DescribeFunction describe, const CClassInfor& base,
                                                      unsigned long baseOffset)
{
    return Register({slot, name, size, newFn, deleteFn, describe, &base, baseOffset}, DerivedClassesInProgress());
}

} // namespace vexa
