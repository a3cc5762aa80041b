#ifndef VEXA_CLASS_REFRENCE_H
#define VEXA_CLASS_REFRENCE_H

#include <list>
#include <string>

#include <vexa/class_infor.h>
#include <vexa/refrence.h>

/// \file
/// References to objects of described classes: attribute lookup and the two attribute iterators.

namespace vexa {

class CAttribRange;

/// The end of any walk.
struct CWalkEnd {};

/// A reference to an object of a described class (code DT_CLASS).
///
/// Each lookup gives, on success, the attribute's reference in \p out and true. Otherwise it gives false, \p out is
/// untouched and nothing is logged. A null object has no attributes. The class descriptor is only read: any number of
/// threads may look up at once.
class VEXA_API CClassConstRefrence : public CConstRefrence {
public:
    using CConstRefrence::CConstRefrence;
    CClassConstRefrence(const CClassInfor& classInfor, const void* object)
        : CConstRefrence(CGnlTypeInfor(Enum::DT_CLASS, 0, &classInfor), object)
    {
    }

    const CClassInfor& ClassInfor() const noexcept { return *static_cast<const CClassInfor*>(TypeInfor.DetailInfor); }

    bool FindAttribByName(CConstRefrence& out, const std::string& name) const;
    /// Finds a leaf attribute of a member object, the names joined by underscores or dots. No pointer is
    /// followed on the way: for a leaf behind one the address is that of this object plus the leaf's offset in the
    /// pointed-to one, and must not be used. The entry (CClassInfor::FindAttribInforByFlatName) tells so by its
    /// PointerPath, with two exceptions. An attribute of this class itself that took the name over from such a leaf
    /// kept the path, which then means nothing: an entry whose record AttribNameMap has under the same name lies in the
    /// object. And a path holds the outermost pointer only if that is a member of this class: a pointer further in
    /// leaves no trace. For a leaf of a member object inside a MayNull the address lacks the distance from the wrapper
    /// to its value, and must not be read. Where pointers or wrappers may be on the way, look the members up by their
    /// names, one after the other.
    bool FindAttribByFlatName(CConstRefrence& out, const std::string& name) const;
    bool FindAttribByID(CConstRefrence& out, short id) const;
    /// Finds the union member registered for a selector value, whatever the selector holds now.
    bool FindAttribByUnionAttribEnum(CConstRefrence& out, short value) const;

    /// The attributes for a range-for; empty for a null object.
    CAttribRange Attribs() const;
};

/// Whether an attribute of the object at \p object is an ordinary one, or the active member of its union.
VEXA_API bool IsActiveAttrib(const CAttribInfor& attrib, const void* object);

/// What both attribute iterators are: a walk over the attributes of one object, which must outlive it unmoved.
template<class Position>
struct CAttribWalk {
    const CClassConstRefrence* Owner; ///< the object being walked
    void* Object;                     ///< its value address; null when the owner is null
    CConstRefrence Current;           ///< the attribute at the position
    Position Pos;                     ///< the record in the class's AttribList

    const CAttribInfor& Infor() const { return *Pos; }
    const std::string& Name() const { return Pos->Name; }
    const CConstRefrence& Value() const { return Current; }

protected:
    explicit CAttribWalk(const CClassConstRefrence& owner) : Owner(&owner), Object(nullptr) {}
    void Start()
    {
        if (Owner->IsNull()) return;
        Object = Owner->ValueAddress();
        TakeCurrent();
    }
    void TakeCurrent()
    {
        if (Object == nullptr) return;
        Current.TypeInfor = Pos->TypeInfor;
        Current.Address = static_cast<char*>(Object) + Pos->Offset;
    }
};

/// Walks forward in list order, those of base classes first. Of the members of a union only the active one is visited,
/// except that the class's first record is always visited.
class CAttribConstIterator : public CAttribWalk<std::list<CAttribInfor>::const_iterator> {
public:
    explicit CAttribConstIterator(const CClassConstRefrence& owner) : CAttribWalk(owner)
    {
        Pos = owner.ClassInfor().AttribList.begin();
        if (!IsEnd()) Start();
    }
    explicit CAttribConstIterator(const CClassConstRefrence&& owner) = delete; // which it would outlive
    bool IsEnd() const { return Pos == Owner->ClassInfor().AttribList.end(); }
    /// The current attribute: Name(), Value() and Infor().
    const CAttribConstIterator& operator*() const { return *this; }
    const CAttribConstIterator* operator->() const { return this; }
    CAttribConstIterator& operator++()
    {
        if (++Pos == Owner->ClassInfor().AttribList.end()) return *this;
        if (Pos->UnionSelector == nullptr || Object == nullptr)
            TakeCurrent();
        else
            Owner->ClassInfor().GetUnionAttrib(Current, Object, Pos);
        return *this;
    }
    bool operator!=(CWalkEnd) const { return !IsEnd(); }
    bool operator==(CWalkEnd) const { return IsEnd(); }
};

/// Walks backward from the last record, which is always visited; of the other union members only the active one is.
class CAttribConstReverseIterator : public CAttribWalk<std::list<CAttribInfor>::const_reverse_iterator> {
public:
    explicit CAttribConstReverseIterator(const CClassConstRefrence& owner) : CAttribWalk(owner)
    {
        Pos = owner.ClassInfor().AttribList.rbegin();
        if (!IsEnd()) Start();
    }
    explicit CAttribConstReverseIterator(const CClassConstRefrence&& owner) = delete;
    bool IsEnd() const { return Pos == Owner->ClassInfor().AttribList.rend(); }
    const CAttribConstReverseIterator& operator*() const { return *this; }
    const CAttribConstReverseIterator* operator->() const { return this; }
    CAttribConstReverseIterator& operator++()
    {
        do {
            ++Pos;
        } while (!IsEnd() && !IsVisited());
        if (!IsEnd()) TakeCurrent();
        return *this;
    }
    bool operator!=(CWalkEnd) const { return !IsEnd(); }
    bool operator==(CWalkEnd) const { return IsEnd(); }

private:
    bool IsVisited() const { return Object == nullptr || IsActiveAttrib(*Pos, Object); }
};

/// The attributes of one object, for a range-for. Holds its own copy of the reference, so that it may be made from a
/// temporary one.
class CAttribRange {
public:
    explicit CAttribRange(const CClassConstRefrence& owner) : m_owner(owner) {}
    CAttribConstIterator begin() const
    {
        CAttribConstIterator first(m_owner);
        if (first.Object == nullptr) first.Pos = m_owner.ClassInfor().AttribList.end();
        return first;
    }
    CWalkEnd end() const { return {}; }

private:
    CClassConstRefrence m_owner;
};

static_assert(sizeof(CClassConstRefrence) == 24, "one layout for all references");
static_assert(sizeof(CAttribConstIterator) == 48 && sizeof(CAttribConstReverseIterator) == 48, "four fields");

inline CAttribRange CClassConstRefrence::Attribs() const { return CAttribRange(*this); }
inline const CClassConstRefrence& CConstRefrence::AsClass() const& noexcept
{
    return static_cast<const CClassConstRefrence&>(*this);
}
inline CClassConstRefrence CConstRefrence::AsClass() && { return {TypeInfor, Address}; }

} // namespace vexa

#endif
