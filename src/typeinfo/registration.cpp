// The one-time creation of descriptors under the global recursive lock.

#include "typeinfo/registration.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include <vexa/class_infor.h>
#include <vexa/helper.h>

#include "typeinfo/class_graph.h"
#include "typeinfo/class_list.h"
#include "typeinfo/finished_class.h"
#include "typeinfo/notes.h"
#include "typeinfo/slot_group.h"

namespace vexa {
namespace typeinfo {
namespace {

unsigned long s_nesting = 0; // only touched under the global lock

} // namespace

CRegistration::CRegistration() noexcept
{
    helper::Acquire_Recursive_Thread_Mutex();
    ++s_nesting;
}

CRegistration::~CRegistration()
{
    if (m_isDescribing) return;
    if (--s_nesting == 0) {
        PublishMade();
        ForgetClassGraph();
    }
    helper::Release_Recursive_Thread_Mutex();
}

} // namespace typeinfo

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

/// The last entry of the classes in progress. It goes with its scope, but not while the class is being described.
class CInProgress {
public:
    CInProgress(ClassesInProgress& classes, CClassInfor*& slot, CClassInfor* created,
                const typeinfo::CRegistration& registration)
        : m_classes(classes), m_registration(registration)
    {
        classes.emplace_back(&slot, created);
    }
    CInProgress(const CInProgress&) = delete;
    CInProgress& operator=(const CInProgress&) = delete;
    ~CInProgress()
    {
        if (!m_registration.IsDescribing()) m_classes.pop_back();
    }

private:
    ClassesInProgress& m_classes;
    const typeinfo::CRegistration& m_registration;
};

/// An exception of the describing function leaves everything as it is then: others may know the descriptor already.
void Describe(const CClassRegistration& request, CClassInfor& created, typeinfo::CRegistration& registration,
              typeinfo::CSlotGroup& group)
{
    group.Complete();
    registration.BeginDescribing();
    request.Describe(created, Enum::AS_PUBLIC);
    registration.EndDescribing();
    group.Reopen();
}

/// Where it fails otherwise, what was made for it meanwhile goes with it: it may refer to the descriptor.
CClassInfor* CreateDescriptor(const CClassRegistration& request, ClassesInProgress& inProgress,
                              typeinfo::CRegistration& registration)
{
    typeinfo::CSlotGroup group;
    auto created = std::make_unique<typeinfo::CFinishedClass>();
    const CInProgress entry(inProgress, request.Slot, created.get(), registration);
    created->Mark.Set(detail::CFinishedMark::DRAFT);
    created->SetBaseTypeInfor(request.Name, request.Size, request.NewFn, request.DeleteFn, 0);
    if (request.Base != nullptr) created->InheritFromBaseClass_Impl(request.BaseOffset, *request.Base);
    typeinfo::CFinishedClass* const described = created.release();
    Describe(request, *described, registration, group);
    created.reset(described);
    created->CreateIndex();
    typeinfo::SettleNotes(*created);
    created->Mark.Set(detail::CFinishedMark::CLASS);
    typeinfo::List(*created, reinterpret_cast<const void*>(request.Describe));
    typeinfo::Fill(request.Slot, *created);
    group.Complete();
    return created.release();
}

/// A class that refers to itself, or to one that refers back, is asked for again while it is in progress. It then gets
/// its incomplete descriptor, whose address is all that is needed.
CClassInfor* Register(const CClassRegistration& request, ClassesInProgress& (*classesInProgress)())
{
    typeinfo::CRegistration registration;
    if (request.Slot != nullptr) return request.Slot;
    ClassesInProgress& inProgress = classesInProgress();
    const auto found = std::find_if(inProgress.begin(), inProgress.end(),
                                    [&](const auto& entry) { return entry.first == &request.Slot; });
    return found != inProgress.end() ? found->second : CreateDescriptor(request, inProgress, registration);
}

// Never destroyed: an object that outlives the library's statics may still be the first to use a type.
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
    return Register({slot, name, size, newFn, deleteFn, describe, nullptr, 0}, &PlainClassesInProgress);
}

CClassInfor* CClassInfor::InitClassInforWithBaseClass(CClassInfor*& slot, const char* name, unsigned long size,
                                                      void* (*newFn)(), void (*deleteFn)(void*),
                                                      DescribeFunction describe, const CClassInfor& base,
                                                      unsigned long baseOffset)
{
    return Register({slot, name, size, newFn, deleteFn, describe, &base, baseOffset}, &DerivedClassesInProgress);
}

} // namespace vexa
