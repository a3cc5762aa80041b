#ifndef VEXA_CLASS_INFOR_H
#define VEXA_CLASS_INFOR_H

#include <list>
#include <map>
#include <new>
#include <string>
#include <vector>

#include <vexa/detail/module.h>
#include <vexa/type_infor.h>

/// \file
/// The class descriptor, its attribute records and its indexes.
///
/// A descriptor is built once by a registration call, under the global recursive lock, and stored in a pointer that the
/// application owns. Afterwards it is never changed or freed, and readers take no lock. An application must not change
/// a finished descriptor either: what the library has made from it would not follow.

namespace vexa {

class CClassInfor;
class CConstRefrence;

/// One attribute (member) of a described class. Owned by its class descriptor; its address never changes.
class VEXA_API CAttribInfor {
public:
    CGnlTypeInfor TypeInfor;                     ///< the member's declared type
    std::string Name;                            ///< the member's name
    unsigned short Offset = 0;                   ///< bytes from the object to the member
    unsigned short Sequence = 0;                 ///< 1-based place at which the record was appended
    short AttribID = -1;                         ///< the application's ID; -1 for none
    short UnionAttribEnum = -1;                  ///< union member: the selector value that makes it active; -1 for none
    const CAttribInfor* UnionSelector = nullptr; ///< union member: the selecting attribute; null for an ordinary one
    unsigned char IsInherited : 1;               ///< copied from a base class
    unsigned char Access : 3;                    ///< an Enum::AccessSpecifierEnum value
    unsigned char IsMasked : 1;                  ///< confidential: rendered as "***"

    CAttribInfor() : IsInherited(0), Access(0), IsMasked(0) {}
    CAttribInfor(const CAttribInfor&) = default;
    ~CAttribInfor() = default;
    /// Copies IsInherited, Access, AttribID, Sequence, Name, Offset and TypeInfor; the union fields and IsMasked of the
    /// target stay as they were.
    CAttribInfor& operator=(const CAttribInfor& other);
};

static_assert(sizeof(CAttribInfor) == 72, "part of the binary interface");

/// One base class of a class that is being described.
struct CBaseClassInfor {
    unsigned long Offset;          ///< bytes from the derived object to the base sub-object
    const CClassInfor* ClassInfor; ///< the base's descriptor
};

/// One entry of the flat index: a leaf attribute, spread out of the member objects that contain it. A member object
/// inside a MayNull counts as if it began where its wrapper does.
class VEXA_API CFlatAttribInfor {
public:
    std::vector<const CAttribInfor*>* PointerPath = nullptr; ///< owned; the outermost pointer to follow, null for none
    unsigned long Offset = 0;                  ///< bytes from the object, or from what the last pointer designates
    const CAttribInfor* AttribInfor = nullptr; ///< the leaf's record, perhaps of another class
    std::string FlatName;                      ///< always equal to its key

    CFlatAttribInfor() = default;
    CFlatAttribInfor(const CFlatAttribInfor& other);
    CFlatAttribInfor& operator=(const CFlatAttribInfor& other);
    ~CFlatAttribInfor();
};

static_assert(sizeof(CFlatAttribInfor) == 56, "part of the binary interface");

/// Maps a 16-bit key to an attribute record. Keys 0 to 63 are indexed directly, since small IDs are the common ones.
class VEXA_API CAttribIDMap {
public:
    std::vector<const CAttribInfor*> DirectTable;  ///< keys 0 to 63; as long as the highest of them needs
    std::map<short, const CAttribInfor*> OtherIDs; ///< every other key

    /// Adds a record; one that is there already is replaced, and the conflict logged.
    void AddAttrib(const CClassInfor& owner, short key, const CAttribInfor* record);
    /// The record, or null.
    const CAttribInfor* FindAttrib(short key) const;
};

/// Describes one class: its attributes, those of base classes first, and the indexes over them.
class VEXA_API CClassInfor : public CTypeInforBase {
public:
    using DescribeFunction = void (*)(CClassInfor&, Enum::AccessSpecifierEnum);
    using AttribPosition = std::list<CAttribInfor>::const_iterator;

    std::list<CAttribInfor> AttribList;                       ///< in declaration order, base-class records first
    std::map<std::string, const CAttribInfor*> AttribNameMap; ///< by name
    std::map<std::string, CFlatAttribInfor> FlatAttribMap;    ///< by flat name
    CAttribIDMap* IDMap = nullptr;                            ///< owned; by attribute ID, null while there is none
    CAttribIDMap* UnionEnumMap = nullptr;                     ///< owned; by selector value, null while there is none

    CClassInfor() = default;
    CClassInfor(const CClassInfor&) = delete;
    CClassInfor& operator=(const CClassInfor&) = delete;
    ~CClassInfor();
    /// Registration puts more behind the public fields than a caller knows the size of.
    static void operator delete(void* descriptor) { ::operator delete(descriptor); }

    /// Registers a class: builds its descriptor at most once, under the global lock, and stores it in \p slot.
    ///
    /// \p describe is called once with the fresh descriptor and access 0; it adds every attribute and completes its
    /// record. A registration that it triggers for this class again gets the descriptor under construction. \p describe
    /// is not expected to throw: an exception leaves the lock held and the class in progress. Where memory is short
    /// outside of it, std::bad_alloc comes out, the lock is free, and the classes that were registered meanwhile, which
    /// may refer to this one, are withdrawn: their slots are null again. \return the descriptor.
    static CClassInfor* InitClassInfor(CClassInfor*& slot, const char* name, unsigned long size, void* (*newFn)(),
                                       void (*deleteFn)(void*), DescribeFunction describe);
    /// The same for a class with one base class at \p baseOffset, whose attributes come before those that \p describe
    /// adds. Classes in progress are kept apart from those of InitClassInfor.
    static CClassInfor* InitClassInforWithBaseClass(CClassInfor*& slot, const char* name, unsigned long size,
                                                    void* (*newFn)(), void (*deleteFn)(void*),
                                                    DescribeFunction describe, const CClassInfor& base,
                                                    unsigned long baseOffset);

    /// Appends one attribute record for the describing function to complete. \p name must not be null; \p attribID is
    /// -1 for a member without ID; of \p access the low 3 bits are kept.
    CAttribInfor& AddAttribInfor(Enum::AccessSpecifierEnum access, unsigned short offset, const char* name,
                                 short attribID);
    /// Appends copies of the records of several bases, in the order given.
    void InitBaseClass(const std::vector<CBaseClassInfor>& bases);
    /// Appends copies of all of a base's records, each at its offset plus \p offset in 16 bits. The selector of a union
    /// member stays the base's record, whose offset is that in the base.
    void InheritFromBaseClass_Impl(unsigned long offset, const CClassInfor& base);

    /// Removes records with a name already used and builds the indexes. Registration calls it, once.
    void CreateIndex();
    /// Adds the flat entries of one member of a described class type. Part of CreateIndex.
    void ExpandCompoAttrib(const CAttribInfor& compound);
    /// Finds a flat entry; the parts of \p name may be joined by underscores or by dots. Null when there is none.
    const CFlatAttribInfor* FindAttribInforByFlatName(const std::string& name) const;
    /// From \p position on, finds the first record that is ordinary or the active member of its union, moves \p
    /// position to it and sets \p out to its reference in the object at \p object. At the end of the list \p out is
    /// untouched.
    void GetUnionAttrib(CConstRefrence& out, const void* object, AttribPosition& position) const;

    /// The attribute ID map, or a shared empty one.
    const CAttribIDMap& AttribIDMap() const;
    /// The union selector map, or a shared empty one.
    const CAttribIDMap& UnionAttribEnumMap() const;
};

static_assert(sizeof(CClassInfor) == 64 + 24 + 48 + 48 + 16, "part of the binary interface");

} // namespace vexa

#endif
