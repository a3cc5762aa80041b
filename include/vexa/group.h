#ifndef VEXA_GROUP_H
#define VEXA_GROUP_H

#include <map>
#include <string>
#include <vector>

#include <vexa/export.h>
#include <vexa/refrence.h>

/// \file
/// Objects that are put together at run time out of references to values that live elsewhere, without a class.
///
/// A record owns its references but not the values, which must outlive it. One record belongs to one thread at a time.
/// Entries may be reached through the public members as well. A record must not hold a reference to itself.

namespace vexa {

/// Named and unnamed references to writable values (kind DT_REFERENCE_GROUP).
///
/// Lookups give true and a copy of the entry in \p out, or false. A path is first looked up as a whole; otherwise the
/// entry before its first dot leads on: a class, a CGnlClass or another group. Only then does a miss leave \p out at
/// that entry.
class VEXA_API CReferenceGroup {
public:
    std::map<std::string, CRefrence> Named; ///< in the order of the names
    std::vector<CRefrence> Indexed;         ///< in the order in which they were added

    /// Adds or replaces a named entry.
    void Add(const std::string& name, const CRefrence& ref);
    /// Appends an indexed entry.
    void Add(const CRefrence& ref);
    /// Removes a named entry. \return whether there was one.
    bool Remove(const std::string& name);

    bool FindReferenceByName(CRefrence& out, const std::string& name) const;
    bool FindReferenceByName(CConstRefrence& out, const std::string& name) const;
    bool FindReferenceByFlatName(CRefrence& out, const std::string& path) const;
    bool FindReferenceByFlatName(CConstRefrence& out, const std::string& path) const;
    bool FindReferenceByIndex(CRefrence& out, unsigned long index) const;
    bool FindReferenceByIndex(CConstRefrence& out, unsigned long index) const;

    /// Has no effect: the entries stay, and the values that they designate too.
    void Clear();
    /// The group as text. With types, the entries stand below the header and then once more at its own level.
    std::string AsString(const Enum::AsStringFormatEnum& format = Enum::ASF_VALUE) const;
};

/// Named and unnamed references to values that are read (kind DT_GNL_CLASS). Reading JSON into the record and clearing
/// it write through them nevertheless, unless they are read-only. Paths lead through classes and other generic classes,
/// but not through groups.
class VEXA_API CGnlClass {
public:
    std::map<std::string, CConstRefrence> Named;
    std::vector<CConstRefrence> Indexed;

    void Add(const std::string& name, const CConstRefrence& ref);
    void Add(const CConstRefrence& ref);
    bool Remove(const std::string& name);

    bool FindAttribByName(CConstRefrence& out, const std::string& name) const;
    bool FindAttribByFlatName(CConstRefrence& out, const std::string& path) const;
    bool FindAttribByIndex(CConstRefrence& out, unsigned long index) const;

    std::string AsString(const Enum::AsStringFormatEnum& format = Enum::ASF_VALUE) const;
};

static_assert(sizeof(CReferenceGroup) == 72 && sizeof(CGnlClass) == 72, "part of the binary interface");

} // namespace vexa

#endif
