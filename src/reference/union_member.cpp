#include "reference/union_member.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

#include <vexa/class_refrence.h>
#include <vexa/container_refrence.h>

#include "core/basic_types.h"
#include "reference/custom_value.h"

namespace vexa::reference {

using namespace Enum;

namespace {

bool IsWrapped(const CGnlTypeInfor& type) { return type.WrapperKind() == HF_MAY_NULL && !type.Has(HF_POINTER); }

const CClassInfor& ClassOf(const CGnlTypeInfor& type) { return *static_cast<const CClassInfor*>(type.DetailInfor); }
const CContainerInfor& ContainerOf(const CGnlTypeInfor& type)
{
    return *static_cast<const CContainerInfor*>(type.DetailInfor);
}

/// Whether the elements of a container are the container.
bool IsFixed(const CGnlTypeInfor& type)
{
    return (type.DataType == DT_ARRAY || type.DataType == DT_BITSET) && ContainerOf(type).Append == nullptr;
}

bool IsVector(const CGnlTypeInfor& type)
{
    const CContainerInfor& infor = ContainerOf(type);
    return infor.Mark.Is(detail::CFinishedMark::VECTOR) && infor.Factory != nullptr && infor.Deleter != nullptr;
}

CGnlTypeInfor HeldDirectly(const CGnlTypeInfor& type)
{
    CGnlTypeInfor direct = type;
    direct.HoldingFlags = 0;
    return direct;
}

char* At(void* place, unsigned long offset) { return static_cast<char*>(place) + offset; }

/// Calls \p use for each slot of a fixed array.
template<class Use>
void ForEachSlot(const CGnlTypeInfor& type, void* array, Use&& use)
{
    const CContainerConstRefrence slots(HeldDirectly(type), array);
    for (const CConstRefrence& slot : slots)
        use(slot.Address);
}

/// Which bytes of an object are described, in words of the size of a pointer: less room than that hides nothing.
class CCover {
public:
    explicit CCover(unsigned long size) : m_words(size / sizeof(void*), false) {}

    void Add(unsigned long offset, unsigned long size)
    {
        for (unsigned long word = offset / sizeof(void*); word * sizeof(void*) < offset + size; ++word) {
            if (word < m_words.size()) m_words[word] = true;
        }
    }
    void Add(unsigned long offset, const CGnlTypeInfor& type)
    {
        if (type.Has(HF_POINTER)) return Add(offset, sizeof(void*));
        if (IsWrapped(type)) {
            Add(offset + type.NullFlagOffset, 1);
            offset += type.ValueOffset;
        }
        Add(offset, type.Sizeof());
    }
    bool IsWhole() const { return std::find(m_words.begin(), m_words.end(), false) == m_words.end(); }

private:
    std::vector<bool> m_words;
};

bool IsClassMadeInPlace(const CClassInfor& infor)
{
    CCover cover(infor.Size);
    for (const CAttribInfor& attrib : infor.AttribList) {
        if (!IsMadeInPlace(attrib.TypeInfor)) return false;
        cover.Add(attrib.Offset, attrib.TypeInfor);
    }
    return cover.IsWhole();
}

bool IsCustomMadeInPlace(const CCustomBasicTypeInfor& infor)
{
    if (infor.Underlying.DataType == DT_UNKNOWN || infor.ValueOffset < 0) return false;
    CCover cover(infor.Size);
    cover.Add(static_cast<unsigned long>(infor.ValueOffset), infor.Underlying);
    return cover.IsWhole() && IsMadeInPlace(infor.Underlying);
}

} // namespace

bool HoldsResources(const CGnlTypeInfor& type)
{
    if (type.Has(HF_POINTER)) return true;
    switch (type.DataType) {
    case DT_CLASS: {
        const auto& attribs = ClassOf(type).AttribList;
        return std::any_of(attribs.begin(), attribs.end(),
                           [](const CAttribInfor& attrib) { return HoldsResources(attrib.TypeInfor); });
    }
    case DT_CUSTOM_BASIC: {
        const CGnlTypeInfor& underlying = CustomInfor(type).Underlying;
        return underlying.DataType == DT_UNKNOWN || HoldsResources(underlying);
    }
    case DT_STD_STRING:
    case DT_BINARY:
    case DT_NUMERIC:
    case DT_TM: // which points at the name of its time zone
    case DT_GNL_CLASS:
    case DT_REFERENCE_GROUP:
    case DT_ROW:
    case DT_TABLE:
    case DT_VALUE:
    case DT_CUSTOM_OWNED: return true;
    default: break;
    }
    if (!type.IsContainer()) return false;
    return !IsFixed(type) || (type.DataType == DT_ARRAY && HoldsResources(ContainerOf(type).ElementType));
}

bool IsMadeInPlace(const CGnlTypeInfor& type)
{
    if (type.Has(HF_POINTER) || type.IsBasicType()) return true;
    if (type.DataType == DT_CLASS) return IsClassMadeInPlace(ClassOf(type));
    if (type.DataType == DT_CUSTOM_BASIC) return IsCustomMadeInPlace(CustomInfor(type));
    if (!type.IsContainer()) return !HoldsResources(type);
    if (!IsFixed(type)) return IsVector(type);
    const CContainerInfor& infor = ContainerOf(type);
    return type.DataType == DT_BITSET || (infor.Begin != nullptr && IsMadeInPlace(infor.ElementType));
}

namespace {

void MakeLike(const CGnlTypeInfor& type, void* place, const void* model);

void MakeBasic(const CGnlTypeInfor& type, void* place, const void* model)
{
    core::VisitBasicType(type.DataType, [&](auto basic) {
        using T = typename decltype(basic)::Type;
        if constexpr (!std::is_same_v<T, core::CTextAtAddress>) {
            if (model != nullptr)
                new (place) T(*static_cast<const T*>(model));
            else if constexpr (std::is_same_v<T, CBinary>)
                new (place) CBinary(0);
            else
                new (place) T();
        }
    });
}

void MakeClass(const CClassInfor& infor, void* place, const void* model)
{
    std::memset(place, 0, infor.Size);
    for (const CAttribInfor& attrib : infor.AttribList) {
        if (!IsActiveAttrib(attrib, place)) continue;
        const void* const from = model != nullptr ? static_cast<const char*>(model) + attrib.Offset : nullptr;
        MakeLike(attrib.TypeInfor, At(place, attrib.Offset), from);
    }
}

void MakeContainer(const CGnlTypeInfor& type, void* place, const void* model)
{
    if (type.DataType != DT_ARRAY || !IsFixed(type)) {
        // Bits, or a vector: all zeros are an empty one.
        std::memset(place, 0, type.Sizeof());
        if (IsFixed(type) && model != nullptr) std::memcpy(place, model, type.Sizeof());
        return;
    }
    const auto* const first = static_cast<const char*>(model);
    ForEachSlot(type, place, [&](void* slot) {
        const auto offset = static_cast<const char*>(slot) - static_cast<const char*>(place);
        MakeLike(ContainerOf(type).ElementType, slot, first != nullptr ? first + offset : nullptr);
    });
}

void MakeDirect(const CGnlTypeInfor& type, void* place, const void* model)
{
    if (type.IsBasicType()) return MakeBasic(type, place, model);
    if (type.DataType == DT_CLASS) return MakeClass(ClassOf(type), place, model);
    if (type.IsContainer()) return MakeContainer(type, place, model);
    if (type.DataType != DT_CUSTOM_BASIC) return;
    const CCustomBasicTypeInfor& infor = CustomInfor(type);
    const auto offset = static_cast<unsigned long>(infor.ValueOffset);
    std::memset(place, 0, infor.Size);
    MakeLike(infor.Underlying, At(place, offset),
             model != nullptr ? static_cast<const char*>(model) + offset : nullptr);
}

/// What lies directly in the value is made like \p model, if there is one.
void MakeLike(const CGnlTypeInfor& type, void* place, const void* model)
{
    if (type.Has(HF_POINTER)) {
        std::memset(place, 0, sizeof(void*));
    } else if (!IsWrapped(type)) {
        MakeDirect(type, place, model);
    } else {
        const auto* const wrapper = static_cast<const char*>(model);
        *At(place, type.NullFlagOffset) = wrapper != nullptr ? wrapper[type.NullFlagOffset] : char(1);
        MakeDirect(type, At(place, type.ValueOffset), wrapper != nullptr ? wrapper + type.ValueOffset : nullptr);
    }
}

} // namespace

CModelValue::CModelValue(const CGnlTypeInfor& type)
    : m_type(&type), m_direct(HeldDirectly(type)),
      m_object(!type.Has(HF_POINTER) && !type.IsBasicType() && IsMadeInPlace(type) ? m_direct.New() : nullptr)
{
}

CModelValue::CModelValue(CModelValue&& other) noexcept
    : m_type(other.m_type), m_direct(other.m_direct), m_object(std::exchange(other.m_object, nullptr))
{
}

CModelValue::~CModelValue()
{
    if (m_object != nullptr) m_direct.Delete(m_object);
}

void CModelValue::MakeAt(void* place) const
{
    const bool isWrapped = IsWrapped(*m_type);
    if (isWrapped) *At(place, m_type->NullFlagOffset) = 1;
    const auto make = [&](const void* model) {
        if (m_type->Has(HF_POINTER))
            MakeLike(*m_type, place, nullptr);
        else
            MakeDirect(*m_type, isWrapped ? At(place, m_type->ValueOffset) : place, model);
    };
    try {
        make(m_object);
    } catch (...) {
        make(nullptr); // the texts of the default have found no memory: empty ones need none
    }
}

namespace {

/// Members go before the selectors, which tell whether they are there.
void DestroyClass(const CClassInfor& infor, void* place)
{
    for (auto attrib = infor.AttribList.rbegin(); attrib != infor.AttribList.rend(); ++attrib) {
        if (IsActiveAttrib(*attrib, place)) DestroyInPlace(attrib->TypeInfor, At(place, attrib->Offset));
    }
}

/// A vector may be moved by its bytes: into one that its descriptor destroys. Without memory for that one, the room
/// for elements that are no more is lost.
void DestroyVector(const CGnlTypeInfor& type, void* place)
{
    const CGnlTypeInfor direct = HeldDirectly(type);
    if (ContainerOf(type).Clear != nullptr) ContainerOf(type).Clear(place); // which frees what raw pointers own
    try {
        void* shell = direct.New();
        std::memcpy(shell, place, type.Sizeof());
        direct.Delete(shell);
    } catch (const std::bad_alloc&) {
    }
}

void DestroyDirect(const CGnlTypeInfor& type, void* place)
{
    if (type.DataType == DT_CLASS) return DestroyClass(ClassOf(type), place);
    if (type.DataType == DT_CUSTOM_BASIC) {
        const CCustomBasicTypeInfor& infor = CustomInfor(type);
        return DestroyInPlace(infor.Underlying, At(place, static_cast<unsigned long>(infor.ValueOffset)));
    }
    if (type.IsContainer()) {
        if (!IsFixed(type)) return DestroyVector(type, place);
        if (type.DataType == DT_BITSET) return;
        return ForEachSlot(type, place, [&](void* slot) { DestroyInPlace(ContainerOf(type).ElementType, slot); });
    }
    core::VisitBasicType(type.DataType, [&](auto basic) {
        using T = typename decltype(basic)::Type;
        if constexpr (!std::is_same_v<T, core::CTextAtAddress>) std::destroy_at(static_cast<T*>(place));
    });
}

} // namespace

void DestroyInPlace(const CGnlTypeInfor& type, void* place)
{
    if (type.Has(HF_POINTER)) {
        void* pointee = nullptr;
        std::memcpy(&pointee, place, sizeof pointee);
        if (pointee != nullptr && !type.Has(HF_CONST)) type.Delete(pointee);
        std::memset(place, 0, sizeof(void*));
    } else {
        DestroyDirect(type, IsWrapped(type) ? At(place, type.ValueOffset) : place);
    }
}

} // namespace vexa::reference
