#include <vexa/custom_type_infor.h>

#include <memory>

#include "typeinfo/registration.h"

namespace vexa {
namespace {

struct CCustomRegistration {
    const char* Name;
    unsigned long Size;
    void* (*NewFn)();
    void (*DeleteFn)(void*);
    const CGnlTypeInfor& Underlying;
    unsigned int CustomTypeID;
    unsigned long ValueOffset;
};

void Register(CCustomBasicTypeInfor*& slot, const CCustomRegistration& request)
{
    const typeinfo::CRegistration registration;
    if (slot != nullptr) return;
    auto created = std::make_unique<CCustomBasicTypeInfor>();
    created->SetBaseTypeInfor(request.Name, request.Size, request.NewFn, request.DeleteFn, request.CustomTypeID);
    created->Underlying = request.Underlying;
    created->ValueOffset = static_cast<short>(request.ValueOffset);
    __atomic_store_n(&slot, created.release(), __ATOMIC_RELEASE); // an application may read its slot without the lock
}

} // namespace

void CCustomBasicTypeInfor::InitCustomStdBasicTypeInfor(CCustomBasicTypeInfor*& slot, const char* name,
                                                        unsigned long size, void* (*newFn)(), void (*deleteFn)(void*),
                                                        const CGnlTypeInfor& underlying, unsigned long valueOffset)
{
    Register(slot, {name, size, newFn, deleteFn, underlying, 0, valueOffset});
}

void CCustomBasicTypeInfor::InitCustomAnyBasicTypeInfor(CCustomBasicTypeInfor*& slot, const char* name,
                                                        unsigned long size, void* (*newFn)(), void (*deleteFn)(void*),
                                                        const CGnlTypeInfor& underlying, unsigned int customTypeID)
{
    Register(slot, {name, size, newFn, deleteFn, underlying, customTypeID, 0});
}

} // namespace vexa
