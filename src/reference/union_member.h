#ifndef VEXA_REFERENCE_UNION_MEMBER_H
#define VEXA_REFERENCE_UNION_MEMBER_H

#include <vexa/class_infor.h>

// The life of a member of a union: it is made and destroyed where it lies, when its union changes hands.

namespace vexa::reference {

/// Whether bytes that were written as another type must not be taken for such a value: it holds a pointer or needs a
/// destructor, also deep inside, or what it is made of is not described.
bool HoldsResources(const CGnlTypeInfor& type);

/// Whether a value can be made and destroyed where it lies. A descriptor makes values on the heap only, so this holds
/// for basic types, pointers, vectors of the standard's, arrays, and for classes and custom types that leave no room
/// for anything undescribed; not for the other containers, for records and for custom types with a layout of their own.
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
    /// pointers null, wrappers null.
    void MakeAt(void* place) const;

private:
    const CGnlTypeInfor* m_type;
    CGnlTypeInfor m_direct; ///< the type, held directly
    void* m_object;
};

/// Destroys the value at \p place, and what it owns. Its bytes belong to no value then.
void DestroyInPlace(const CGnlTypeInfor& type, void* place);

} // namespace vexa::reference

#endif
