#ifndef VEXA_INTERCHANGE_FORM_H
#define VEXA_INTERCHANGE_FORM_H

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <vexa/class_infor.h>
#include <vexa/container_infor.h>
#include <vexa/custom_type_infor.h>
#include <vexa/detail/enumeration.h>
#include <vexa/detail/shape.h>

#include "typeinfo/name_table.h"
#include "typeinfo/notes.h"

/// \file
/// Forms: what a reader or writer of a standard format does with a value, worked out from its descriptor and notes
/// once. There is one walk over forms for reading and one for writing, whatever the format.
///
/// A form refers to other classes, containers and shapes by their descriptors; what is inside them is asked for when a
/// walk gets there (CForms), so a class may hold itself.

namespace vexa::interchange {

enum class FormKind : unsigned char {
    UNSUPPORTED,
    BASIC,       ///< Code tells which
    ENUMERATION, ///< an integer of type Code whose values have names
    CLASS,
    SEQUENCE,   ///< grows by Append: codes 61, 62, 78 and their kin
    INSERTED,   ///< elements are made by themselves and inserted: sets
    MAP,        ///< INSERTED, of pairs whose keys can stand as keys of an object
    PAIR_MAP,   ///< INSERTED, of other pairs: an array of arrays of two
    PAIR,       ///< a std::pair: a class of two attributes that stands as an array
    ARRAY,      ///< places that are there
    CHAR_ARRAY, ///< an ARRAY of char: text up to the first NUL
    BITSET,
    VALUE,
    ROW,
    TABLE,
    GENERIC, ///< CGnlClass
    GROUP,
    CUSTOM, ///< through its converters, or its standard value
    SHAPE,  ///< Shape->Kind tells which
    NULL_TYPE
};

/// How the value lies at its holder.
enum class Held : unsigned char {
    DIRECT,
    FLAGGED, ///< MayNull: null while the flag byte is not 0
    POINTER  ///< where a pointer leads
};

/// One value: an attribute, an element, a part, or the object itself. Offsets are from the start of the class's object;
/// of everything else from the holder.
struct CForm {
    FormKind Kind = FormKind::UNSUPPORTED;
    unsigned char Code = 0; ///< the type code
    Held How = Held::DIRECT;
    bool IsNullable = false; ///< may be set to null: a MayNull, a pointer that is no NonNullPointer
    bool IsConst = false;    ///< is not written; with POINTER never made, freed or written through
    std::uint32_t HolderOffset = 0;
    std::uint32_t FlagOffset = 0;  ///< FLAGGED
    std::uint32_t ValueOffset = 0; ///< to the value; POINTER: to the pointer
    const CGnlTypeInfor* Type = nullptr;
    const detail::CShape* Shape = nullptr;                 ///< SHAPE
    const detail::CEnumerationSlot* Enumeration = nullptr; ///< ENUMERATION; SHAPE: of a SIGNED_BYTE with names

    CForm() = default;
    CForm(const CGnlTypeInfor& type, unsigned long offset, const detail::CEnumerationSlot* enumeration);

    const CClassInfor& ClassInfor() const noexcept { return *static_cast<const CClassInfor*>(Type->DetailInfor); }
    const CContainerInfor& ContainerInfor() const noexcept
    {
        return *static_cast<const CContainerInfor*>(Type->DetailInfor);
    }
    const CCustomBasicTypeInfor& CustomInfor() const noexcept
    {
        return *static_cast<const CCustomBasicTypeInfor*>(Type->DetailInfor);
    }
    template<class Operations>
    const Operations& ShapeOperations() const noexcept
    {
        return *static_cast<const Operations*>(Shape->Operations);
    }
    /// Where the value lies in the object that holds it; null for a null one.
    const char* Value(const char* object) const noexcept
    {
        if (How == Held::DIRECT) return object + ValueOffset;
        if (How == Held::FLAGGED) return object[FlagOffset] != 0 ? nullptr : object + ValueOffset;
        const char* value = nullptr;
        std::memcpy(&value, object + ValueOffset, sizeof value);
        return value;
    }
    void* Holder(void* object) const noexcept { return static_cast<char*>(object) + HolderOffset; }
};

/// Whether a MAP or PAIR_MAP holds several entries of one key.
bool IsMultiMap(const CForm& form);

/// One attribute of a class, as the formats see it.
struct CMember : CForm {
    using CForm::CForm;

    std::string Key;          ///< what is written and read
    std::string JsonKey;      ///< `"key":`, escaped
    std::string Holders;      ///< a flattened one: the names that lead to its owner, each with a point behind it
    std::uint32_t Number = 0; ///< its place in CClassForm::Members
    bool IsMasked = false;
    bool HasKey = false; ///< whether its key leads to it: not where it keeps the unknown ones
    const CAttribInfor* Infor = nullptr;
    const CClassInfor* Owner = nullptr; ///< the class whose attribute it is: a flattened one or the class itself
    std::uint32_t OwnerOffset = 0; ///< from the object to the one whose attribute it is: a flattened one or the object
    const typeinfo::CMemberNotes* Notes = nullptr; ///< null where there are none: most often
};

/// A class whose object lies in another, which shows its attributes as its own.
struct CFlattened {
    const CClassInfor* Infor = nullptr;
    std::uint32_t Offset = 0;
    bool IsMasked = false;
};

/// A class.
struct CClassForm {
    const CClassInfor* Infor = nullptr;
    const typeinfo::CClassNotes* Notes = nullptr;
    std::vector<CMember> Members; ///< in list order; the attributes of a flattened one are in its place
    std::vector<CMember> Keyless; ///< those whose key another one has: neither written nor read
    std::vector<std::uint32_t> Required;
    typeinfo::CNameTable Keys; ///< keys and aliases to numbers in KeyOwners
    std::vector<std::uint32_t> KeyOwners;
    std::uint32_t Keeper = NO_MEMBER;  ///< the member that takes unknown keys
    std::vector<CFlattened> Flattened; ///< objects inside whose attributes are among Members
    bool HasUnions = false;
    bool HasNotes = false;  ///< some member needs more than its key and value
    bool HasMasked = false; ///< some member is confidential

    static constexpr std::uint32_t NO_MEMBER = 0xFFFFFFFF;

    /// Whether it is so of all attributes, those without a key too.
    template<class Predicate>
    bool IsTrueOfAll(Predicate predicate) const
    {
        return std::all_of(Members.begin(), Members.end(), predicate) &&
               std::all_of(Keyless.begin(), Keyless.end(), predicate);
    }
    /// Whether the keys that no attribute has are confidential.
    bool KeepsMasked() const noexcept { return Keeper != NO_MEMBER && Members[Keeper].IsMasked; }
    /// The member of a key, or null.
    const CMember* Find(std::string_view key) const noexcept;
};

/// A container: its elements; of a map their key and mapped value too.
struct CContainerForm {
    CForm Element;
    bool IsVector = false; ///< elements one behind the other, Stride bytes apart: two pointers at its address
    bool IsSlots = false;  ///< the elements are the container
    unsigned long Stride = 0;
    CForm Key;    ///< MAP, PAIR_MAP: from the start of the pair
    CForm Mapped; ///< likewise
};

/// The parts of a shape.
struct CShapeForm {
    std::deque<CGnlTypeInfor> Types; ///< of the parts
    std::vector<CForm> Parts;
};

/// Gives what is inside classes, containers and shapes. What belongs to finished descriptors is made once a process and
/// shared; what belongs to descriptors made by hand lives as long as this object.
class CForms {
public:
    CForms();
    ~CForms();
    CForms(const CForms&) = delete;
    CForms& operator=(const CForms&) = delete;

    const CClassForm& Of(const CClassInfor& infor);
    const CContainerForm& Of(const CContainerInfor& infor);
    const CShapeForm& Of(const CCustomBasicTypeInfor& shaped);

    /// Whether a confidential attribute can be met anywhere inside.
    bool ReachesMasked(const CForm& form);

private:
    struct COwn;
    template<class Form, class Infor>
    const Form& OwnOf(std::map<const void*, std::unique_ptr<const Form>> COwn::*forms, const Infor& infor);

    std::unique_ptr<COwn> m_own; ///< made at the first descriptor made by hand
};

} // namespace vexa::interchange

#endif
