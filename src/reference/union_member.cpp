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
#include "typeinfo/kept_selectors.h"
#include "typeinfo/notes.h"

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

/// Whether every word of an object, of the size of a pointer, is at least in part described: less room than that hides
/// nothing. Needs no memory, since it is asked while memory is short.
class CCover {
public:
    explicit CCover(unsigned long size) : m_end(size / WORD) {}

    /// Counts what begins in the words that are covered so far.
    void Add(unsigned long offset, const CGnlTypeInfor& type)
    {
        if (type.Has(HF_POINTER)) return AddBytes(offset, WORD);
        if (IsWrapped(type)) {
            AddBytes(offset + type.NullFlagOffset, 1);
            offset += type.ValueOffset;
        }
        AddBytes(offset, type.Sizeof());
    }
    unsigned long Covered() const { return m_covered; }
    bool IsWhole() const { return m_covered >= m_end; }

private:
    static constexpr unsigned long WORD = sizeof(void*);

    void AddBytes(unsigned long offset, unsigned long size)
    {
        if (size != 0 && offset / WORD <= m_covered) m_covered = std::max(m_covered, (offset + size + WORD - 1) / WORD);
    }

    unsigned long m_end;
    unsigned long m_covered = 0; ///< words from the start
};

/// Whether a test holds for an attribute of the class, or for a member of a union that it hides.
template<class Test>
bool AnyMember(const CClassInfor& infor, Test&& test)
{
    const auto& hidden = typeinfo::HiddenMembersOf(infor);
    return std::any_of(infor.AttribList.begin(), infor.AttribList.end(), test) ||
           std::any_of(hidden.begin(), hidden.end(), test);
}

bool IsWhole(const CClassInfor& infor)
{
    CCover cover(infor.Size);
    for (bool isMore = true; isMore && !cover.IsWhole();) { // once, where the records come as they lie
        const unsigned long before = cover.Covered();
        AnyMember(infor, [&](const CAttribInfor& attrib) {
            cover.Add(attrib.Offset, attrib.TypeInfor);
            return false;
        });
        isMore = cover.Covered() != before;
    }
    return cover.IsWhole();
}

bool IsWhole(const CCustomBasicTypeInfor& infor)
{
    if (infor.Underlying.DataType == DT_UNKNOWN || infor.ValueOffset < 0) return false;
    CCover cover(infor.Size);
    cover.Add(static_cast<unsigned long>(infor.ValueOffset), infor.Underlying);
    return cover.IsWhole();
}

/// Whether it is a number that has a structure to the standard formats only: all zeros are an empty one.
bool IsPlainShape(const CCustomBasicTypeInfor& infor)
{
    const detail::CShape* const shape = typeinfo::ShapeOf(infor);
    return shape != nullptr &&
           (shape->Kind == detail::ShapeKind::SIGNED_BYTE || shape->Kind == detail::ShapeKind::DURATION ||
            shape->Kind == detail::ShapeKind::TIME_POINT);
}

} // namespace

bool HoldsResources(const CGnlTypeInfor& type)
{
    if (type.Has(HF_POINTER)) return true;
    switch (type.DataType) {
    case DT_CLASS:
        return !IsWhole(ClassOf(type)) ||
               AnyMember(ClassOf(type), [](const CAttribInfor& attrib) { return HoldsResources(attrib.TypeInfor); });
    case DT_CUSTOM_BASIC:
        if (IsPlainShape(CustomInfor(type))) return false;
        return !IsWhole(CustomInfor(type)) || HoldsResources(CustomInfor(type).Underlying);
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
    if (type.DataType == DT_CLASS) {
        return IsWhole(ClassOf(type)) &&
               !AnyMember(ClassOf(type), [](const CAttribInfor& attrib) { return !IsMadeInPlace(attrib.TypeInfor); });
    }
    if (type.DataType == DT_CUSTOM_BASIC) {
        const CCustomBasicTypeInfor& infor = CustomInfor(type);
        return IsPlainShape(infor) || (IsWhole(infor) && IsMadeInPlace(infor.Underlying));
    }
    if (!type.IsContainer()) return !HoldsResources(type);
    if (!IsFixed(type)) return IsVector(type);
    const CContainerInfor& infor = ContainerOf(type);
    return type.DataType == DT_BITSET || (infor.Begin != nullptr && IsMadeInPlace(infor.ElementType));
}

namespace {

void MakeLike(const CGnlTypeInfor& type, void* place, const void* model);

/// \return false when a text of the default finds no memory: an empty one needs none.
template<class T>
bool MakeCopy(void* place, const T& model)
{
    try {
        new (place) T(model);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

void MakeBasic(const CGnlTypeInfor& type, void* place, const void* model)
{
    core::VisitBasicType(type.DataType, [&](auto basic) {
        using T = typename decltype(basic)::Type;
        if constexpr (!std::is_same_v<T, core::CTextAtAddress>) {
            if (model != nullptr && MakeCopy(place, *static_cast<const T*>(model))) return;
            if constexpr (std::is_same_v<T, CBinary>)
                new (place) CBinary(0);
            else
                new (place) T();
        }
    });
}

void MakeClass(const CClassInfor& infor, void* place, const void* model)
{
    std::memset(place, 0, infor.Size);
    AnyMember(infor, [&](const CAttribInfor& attrib) {
        const void* const from = model != nullptr ? static_cast<const char*>(model) + attrib.Offset : nullptr;
        if (IsActiveWithSelectors(attrib, place)) MakeLike(attrib.TypeInfor, At(place, attrib.Offset), from);
        return false;
    });
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
    if (IsPlainShape(infor)) return;
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
    if (m_type->Has(HF_POINTER))
        MakeLike(*m_type, place, nullptr);
    else
        MakeDirect(*m_type, isWrapped ? At(place, m_type->ValueOffset) : place, m_object);
}

namespace {

template<class Use>
void ForEachLeaf(const CGnlTypeInfor& type, void* place, const Use& use);

/// Members go before the selectors, which tell whether they are there.
template<class Use>
void ForEachLeafOf(const CClassInfor& infor, void* place, const Use& use)
{
    for (const auto* const members : {&typeinfo::HiddenMembersOf(infor), &infor.AttribList}) {
        for (auto member = members->rbegin(); member != members->rend(); ++member) {
            if (IsActiveWithSelectors(*member, place)) ForEachLeaf(member->TypeInfor, At(place, member->Offset), use);
        }
    }
}

/// Calls \p use for what a value that is made in place is made of: basic values, vectors, and pointer variables.
template<class Use>
void ForEachLeaf(const CGnlTypeInfor& type, void* place, const Use& use)
{
    if (type.Has(HF_POINTER)) return use(type, place);
    if (IsWrapped(type)) place = At(place, type.ValueOffset);
    if (type.DataType == DT_CLASS) return ForEachLeafOf(ClassOf(type), place, use);
    if (type.DataType == DT_CUSTOM_BASIC) {
        const CCustomBasicTypeInfor& infor = CustomInfor(type);
        if (IsPlainShape(infor)) return;
        return ForEachLeaf(infor.Underlying, At(place, static_cast<unsigned long>(infor.ValueOffset)), use);
    }
    if (!type.IsContainer() || !IsFixed(type)) return use(type, place);
    if (type.DataType == DT_BITSET) return;
    ForEachSlot(type, place, [&](void* slot) { ForEachLeaf(ContainerOf(type).ElementType, slot, use); });
}

bool IsVariableVector(const CGnlTypeInfor& type) { return !type.Has(HF_POINTER) && type.IsContainer(); }

void DestroyPointee(const CGnlTypeInfor& type, void* place)
{
    void* pointee = nullptr;
    std::memcpy(&pointee, place, sizeof pointee);
    if (pointee != nullptr && !type.Has(HF_CONST)) type.Delete(pointee);
    std::memset(place, 0, sizeof(void*));
}

void DestroyBasic(const CGnlTypeInfor& type, void* place)
{
    core::VisitBasicType(type.DataType, [&](auto basic) {
        using T = typename decltype(basic)::Type;
        if constexpr (!std::is_same_v<T, core::CTextAtAddress>) std::destroy_at(static_cast<T*>(place));
    });
}

} // namespace

CDestruction::~CDestruction()
{
    for (CShell& shell : m_shells)
        shell.Type.Delete(shell.Vector);
}

void CDestruction::Add(const CGnlTypeInfor& type, void* place)
{
    m_values.emplace_back(&type, place);
    const auto addShell = [&](const CGnlTypeInfor& leaf, void* at) {
        if (!IsVariableVector(leaf)) return;
        m_shells.push_back({HeldDirectly(leaf), at, nullptr});
        m_shells.back().Vector = m_shells.back().Type.New();
    };
    ForEachLeaf(type, place, addShell);
}

/// A vector may be moved by its bytes: into the shell, which goes with this.
void CDestruction::DestroyVector(const CGnlTypeInfor& type, void* place) noexcept
{
    if (ContainerOf(type).Clear != nullptr) ContainerOf(type).Clear(place); // which frees what raw pointers own
    for (const CShell& shell : m_shells) {
        if (shell.Place == place) std::memcpy(shell.Vector, place, type.Sizeof());
    }
}

void CDestruction::Run() noexcept
{
    const auto destroy = [&](const CGnlTypeInfor& leaf, void* at) {
        if (leaf.Has(HF_POINTER)) return DestroyPointee(leaf, at);
        if (IsVariableVector(leaf)) return DestroyVector(leaf, at);
        DestroyBasic(leaf, at);
    };
    for (const auto& [type, place] : m_values)
        ForEachLeaf(*type, place, destroy);
}

bool IsActiveWithSelectors(const CAttribInfor& attrib, const void* object)
{
    const CAttribInfor* member = &attrib;
    for (int depth = 0; depth < MAX_UNION_DEPTH; ++depth) {
        if (member->UnionSelector == nullptr) return true;
        if (!IsActiveAttrib(*member, object)) return false;
        member = member->UnionSelector;
    }
    return false;
}

} // namespace vexa::reference
