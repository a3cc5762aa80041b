#ifndef VEXA_DETAIL_ACCESS_H
#define VEXA_DETAIL_ACCESS_H

#include <string_view>

#include <vexa/class_refrence.h>
#include <vexa/refrence.h>
#include <vexa/report.h>

/// \file
/// The compiled half of vexa/access.h: of any described object by reference.

namespace vexa {

class CTable;

namespace detail {

struct CEnumerationSlot;

/// A value that a path leads to, and what is known of the way.
struct CSpot {
    CRefrence Ref; ///< without address where there is none
    const CEnumerationSlot* Names = nullptr;
    bool IsConst = false;    ///< const, or behind something that is
    bool IsReadOnly = false; ///< inside an attribute that is written, not read
    bool IsMasked = false;   ///< inside a confidential one
    bool IsEntry = false;    ///< a pair whose first part is a key
    const CClassInfor* Owner = nullptr;
    const CAttribInfor* Attrib = nullptr; ///< of Owner; null for what is no attribute
    const CTable* Table = nullptr;        ///< of a row
    std::string_view Way;                 ///< the path, up to a confidential attribute

    CSpot() = default;
    explicit CSpot(const CConstRefrence& ref, const CEnumerationSlot* names = nullptr)
        : Ref(ref.TypeInfor, ref.Address), Names(names)
    {
    }
};

/// Follows \p path from \p spot. Gives one without address where there is a problem.
VEXA_API CSpot FindSpot(CSpot spot, std::string_view path, CReport* report);

/// The address of a value of just that type, through what holds it; null where it is another.
VEXA_API const void* SameValue(const CSpot& spot, const CGnlTypeInfor& type);
/// The same for writing: what is null, empty or another alternative is made one of the type.
VEXA_API void* SamePlace(const CSpot& spot, const CGnlTypeInfor& type);

/// Whether there is a value that can be changed. That it cannot is told; that there is none has been.
VEXA_API bool IsChangeable(const CSpot& spot, CReport* report);
/// Converts a value as vexa/access.h says. After a problem the target is as it was.
VEXA_API bool SetText(const CSpot& target, std::string_view text, CReport* report);
VEXA_API bool SetNull(const CSpot& target, CReport* report);
VEXA_API bool SetFrom(const CSpot& target, const CSpot& source, CReport* report);
/// The same, with problems that are told of the source.
VEXA_API bool GetInto(const CSpot& target, const CSpot& source, CReport* report);

} // namespace detail

/// See vexa/access.h.
VEXA_API CRefrence Find(const CRefrence& object, std::string_view path, CReport* report = nullptr);
VEXA_API CConstRefrence Find(const CConstRefrence& object, std::string_view path, CReport* report = nullptr);

} // namespace vexa

#endif
