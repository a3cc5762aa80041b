#ifndef VEXA_REFERENCE_UNION_MEMBER_H
#define VEXA_REFERENCE_UNION_MEMBER_H

#include <utility>
#include <vector>

#include <vexa/class_infor.h>

// The life of a member of a union: it is made and destroyed where it lies, when its union changes hands.

namespace vexa::reference {

/// Whether bytes that were written as another type must not be taken for such a value: it holds a pointer or needs a
/// destructor, also deep inside, or it leaves room undescribed where a pointer may lie. Needs no memory.
bool HoldsResources(const CGnlTypeInfor& type);

/// Whether a value can be made and destroyed where it lies. A descriptor makes values on the heap only, so this holds
/// for basic types, pointers, vectors of the standard's, arrays, and for classes and custom types that leave no room
/// of a pointer's size undescribed; not for the other containers, for records and for custom types with a layout of
/// their own. Needs no memory.
bool IsMadeInPlace(const CGnlTypeInfor& type);

/// A default value to make others like, on the heap; null members where the type cannot be made there.
class CModelValue {
public:
    explicit CModelValue(const CGnlTypeInfor& type);
    CModelValue(CModelValue&& other) noexcept;
    CModelValue(const CModelValue&) = delete;
    CModelValue& operator=(const CModelValue&) = delete;
    ~CModelValue();

    /// Makes the value at \p place, whose bytes belong to no value: what lies directly in it as in a default object,
    /// but vectors empty, pointers null, wrappers null. Where a text finds no memory, it is empty.
    void MakeAt(void* place) const;

private:
    const CGnlTypeInfor* m_type;
    CGnlTypeInfor m_direct; ///< the type, held directly
    void* m_object;
};

/// The end of values where they lie.
class CDestruction {
public:
    CDestruction() = default;
    CDestruction(const CDestruction&) = delete;
    CDestruction& operator=(const CDestruction&) = delete;
    ~CDestruction();

    /// Has what is needed to destroy the value at \p place, and so does not fail when it comes to that.
    void Add(const CGnlTypeInfor& type, void* place);
    /// Destroys the values, and what they own; the room of their vectors goes with this object. Once.
    void Run() noexcept;

private:
    /// An empty vector on the heap, through which the room of the one at Place is freed.
    struct CShell {
        CGnlTypeInfor Type;
        void* Place;
        void* Vector;
    };

    void DestroyVector(const CGnlTypeInfor& type, void* place) noexcept;

    std::vector<std::pair<const CGnlTypeInfor*, void*>> m_values;
    std::vector<CShell> m_shells;
};

/// So many unions may lie one in another by their selectors.
inline constexpr int MAX_UNION_DEPTH = 16;

/// Whether an attribute is an ordinary one or the active member of its union, and its selector likewise.
bool IsActiveWithSelectors(const CAttribInfor& attrib, const void* object);

} // namespace vexa::reference

#endif
