#ifndef VEXA_REFERENCE_UNION_WATCH_H
#define VEXA_REFERENCE_UNION_WATCH_H

#include <vector>

#include <vexa/class_refrence.h>

#include "reference/saved_selector.h"

// Unions with a member that holds a pointer or needs a destructor: what one member left there must never be taken for
// another. Such a member is touched only while it is the active one; when what is read changes the selector, the member
// that was active is destroyed and the one that becomes active is made. Members that a class hides count too.
//
// Where a selector is a union member itself, the two unions may share their bytes: both are guarded as one, and the
// selector neither becomes active nor ceases to be.

namespace vexa::reference {

/// Whether the class has such a union.
bool HasGuardedUnions(const CClassInfor& infor);
/// Whether there is such a union in a value, so that clearing the value may change its selector.
bool ContainsGuardedUnions(const CGnlTypeInfor& type);
/// Whether the attribute is a member of such a union.
bool IsGuarded(const CClassInfor& infor, const CAttribInfor& attrib);
/// Whether an attribute of the object may be touched: the members of such a union only while they are active.
bool IsOpen(const CClassInfor& infor, const CAttribInfor& attrib, const void* object);

/// Looks at the selectors of an object's guarded unions before something in the object is changed, and again after it.
/// Unions whose selectors do not change are left alone.
class CUnionWatch {
public:
    CUnionWatch(const CClassInfor& infor, void* object);
    CUnionWatch(CUnionWatch&&) = default;
    CUnionWatch(const CUnionWatch&) = delete;
    CUnionWatch& operator=(const CUnionWatch&) = delete;
    /// Settles, unless that has been done.
    ~CUnionWatch();

    /// Hands over the unions whose selectors have changed. \return false when a member cannot be made or destroyed
    /// where it lies, or is the selector of another union: then the selector has its old value again, and the union is
    /// as it was. Throws std::bad_alloc, and the same holds then of every union that has not been handed over.
    bool Settle();

private:
    struct CSelected {
        const CAttribInfor* Selector;
        short Value;
        CSavedSelector Saved;
    };

    short ValueOf(const CAttribInfor& selector) const;
    bool IsWatched(const CAttribInfor& selector) const;
    void Watch(const CAttribInfor& selector);
    bool SettleLast();
    void* PlaceOf(const CAttribInfor& attrib) const { return static_cast<char*>(m_object) + attrib.Offset; }

    const CClassInfor* m_infor;
    void* m_object;
    std::vector<CSelected> m_selected;
};

} // namespace vexa::reference

#endif
