#include <vexa/container_refrence.h>

#include <vexa/text.h>

namespace vexa {

using namespace Enum;

namespace {

/// The flat attribute of one element; a null element gives a reference without address.
CConstRefrence FlatAttribOf(const CConstRefrence& element, const CFlatAttribInfor& attrib)
{
    auto* const object = static_cast<char*>(element.ValueAddress());
    return {attrib.AttribInfor->TypeInfor, object != nullptr ? object + attrib.Offset : nullptr};
}

void AppendQuoted(std::string& out, const CConstRefrence& value, bool isQuoted, char quote)
{
    if (isQuoted) out += quote;
    AppendString(out, value);
    if (isQuoted) out += quote;
}

/// Appends each element with \p append, separated.
template<class Append>
void ListElements(std::string& out, const CContainerConstRefrence& container, char separator, Append&& append)
{
    out.clear();
    bool isFirst = true;
    for (const CConstRefrence& element : container) {
        if (!isFirst) out += separator;
        isFirst = false;
        if (element.ValueAddress() == nullptr) out += "NULL";
        else append(element);
    }
}

} // namespace

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

void CContainerConstRefrence::GetListString(std::string& out, char separator, char quote) const
{
    const bool isQuoted = ContainerInfor().ElementType.IsStringTypeEx();
    ListElements(out, *this, separator,
                 [&](const CConstRefrence& element) { AppendQuoted(out, element, isQuoted, quote); });
}

void CContainerConstRefrence::GetListString(std::string& out, const CFlatAttribInfor& attrib, char separator,
                                            char quote) const
{
    const bool isQuoted = attrib.AttribInfor->TypeInfor.DataType == DT_STD_STRING;
    ListElements(out, *this, separator, [&](const CConstRefrence& element) {
        AppendQuoted(out, FlatAttribOf(element, attrib), isQuoted, quote);
    });
}

CRefrence CContainerRefrence::Append()
{
    void* const container = ValueAddress();
    const auto append = ContainerInfor().Append;
    return {ContainerInfor().ElementType, container != nullptr && append != nullptr ? append(container) : nullptr};
}

void CContainerRefrence::Clear()
{
    void* const container = ValueAddress();
    const auto clear = ContainerInfor().Clear;
    if (container != nullptr && clear != nullptr) clear(container);
}

bool GetValueListFromObjectList_i(CContainerRefrence& dst, const CContainerConstRefrence& src, const std::string& flatName)
{
    const CGnlTypeInfor& elementType = src.ContainerInfor().ElementType;
    if (!dst.ContainerInfor().ElementType.IsBasicType() || elementType.DataType != DT_CLASS) return false;
    const auto& elementClass = *static_cast<const CClassInfor*>(elementType.DetailInfor);
    const CFlatAttribInfor* const attrib = elementClass.FindAttribInforByFlatName(flatName);
    if (attrib == nullptr || dst.ContainerInfor().Append == nullptr || dst.ValueAddress() == nullptr) return false;
    for (const CConstRefrence& element : src) {
        dst.Append().AsStdBasicType().ReadFrom(FlatAttribOf(element, *attrib).AsStdBasicType());
    }
    return true;
}

} // namespace vexa
