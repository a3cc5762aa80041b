#include <vexa/container_refrence.h>

#include <vexa/helper.h>

#include "reference/flat_attrib.h"

namespace vexa {

using namespace Enum;

void CContainerWalk::Start(const CContainerConstRefrence& owner, CContainerInfor::BeginFunction begin,
                           CContainerInfor::ReleaseFunction release)
{
    Owner = &owner;
    Container = owner.ValueAddress();
    Cursor = nullptr;
    if (Container == nullptr || begin == nullptr) return;
    void* first = nullptr;
    Cursor = begin(Container, &first);
    if (Cursor == nullptr) return;
    if (first == nullptr) {
        Stop(release);
        return;
    }
    Current.TypeInfor = owner.ContainerInfor().ElementType;
    Current.Address = first;
}

unsigned long CContainerConstRefrence::Count() const
{
    void* const container = ValueAddress();
    const auto count = ContainerInfor().Count;
    return container != nullptr && count != nullptr ? count(container) : 0;
}

namespace {

/// The container, if it may be changed; a read-only one is logged.
void* ChangeableContainer(const CContainerRefrence& ref)
{
    if (!ref.TypeInfor.Has(HF_CONST)) return ref.ValueAddress();
    helper::LogError("%s type CContainerRefrence is read-only and can not be changed", ref.TypeName().c_str());
    return nullptr;
}

} // namespace

CRefrence CContainerRefrence::Append()
{
    void* const container = ChangeableContainer(*this);
    const auto append = ContainerInfor().Append;
    return {ContainerInfor().ElementType, container != nullptr && append != nullptr ? append(container) : nullptr};
}

void CContainerRefrence::Clear()
{
    void* const container = ChangeableContainer(*this);
    const auto clear = ContainerInfor().Clear;
    if (container != nullptr && clear != nullptr) clear(container);
}

bool GetValueListFromObjectList_i(CContainerRefrence& dst, const CContainerConstRefrence& src,
                                  const std::string& flatName)
{
    const CGnlTypeInfor& elementType = src.ContainerInfor().ElementType;
    if (!dst.ContainerInfor().ElementType.IsBasicType() || elementType.DataType != DT_CLASS) return false;
    if (dst.TypeInfor.Has(HF_CONST)) return false;
    const auto& elementClass = *static_cast<const CClassInfor*>(elementType.DetailInfor);
    const CFlatAttribInfor* const attrib = elementClass.FindAttribInforByFlatName(flatName);
    if (attrib == nullptr || dst.ContainerInfor().Append == nullptr || dst.ValueAddress() == nullptr) return false;
    for (const CConstRefrence& element : src) {
        dst.Append().AsStdBasicType().ReadFrom(reference::FlatAttribOf(element, *attrib).AsStdBasicType());
    }
    return true;
}

} // namespace vexa
