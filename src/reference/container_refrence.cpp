#include <vexa/container_refrence.h>

#include <vexa/helper.h>

#include "reference/flat_attrib.h"

namespace vexa {

using namespace Enum;

namespace detail {
namespace {

CWalkStart NoWalk(void* container) { return {container, nullptr, {}}; }

CWalkStart StartContiguousWalk(const CContainerInfor& infor, void* container, bool isReverse)
{
    const CElementSpan elements = ElementsOf(infor, container);
    if (elements.First == elements.Last) return NoWalk(container);
    if (!isReverse) return {container, elements.Last, {infor.ElementType, elements.First}};
    return {container, elements.First, {infor.ElementType, elements.Last - infor.Mark.Stride()}};
}

} // namespace

CWalkStart StartWalk(const CContainerInfor& infor, void* container, bool isReverse)
{
    if (container != nullptr && infor.Mark.Stride() != 0) return StartContiguousWalk(infor, container, isReverse);
    const auto begin = isReverse ? infor.RBegin : infor.Begin;
    if (container == nullptr || begin == nullptr) return NoWalk(container);
    CConstRefrence element(infor.ElementType, nullptr); // what may throw comes before what has to be released
    void* const cursor = begin(container, &element.Address);
    if (cursor != nullptr && element.Address != nullptr) return {container, cursor, std::move(element)};
    if (cursor != nullptr) StopWalk(infor, cursor, isReverse);
    return NoWalk(container);
}

void StopWalk(const CContainerInfor& infor, void* cursor, bool isReverse)
{
    if (infor.Mark.Stride() != 0) return;
    // A container that does not tell the two kinds of cursors apart has one operation for both.
    const auto release = isReverse && infor.RRelease != nullptr ? infor.RRelease : infor.Release;
    release(cursor);
}

} // namespace detail

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
