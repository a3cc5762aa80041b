#include <vexa/group.h>

#include <vexa/class_refrence.h>

#include "core/record_life.h"
#include "reference/clearing.h"

namespace vexa {

using namespace Enum;

namespace {

template<class Record, class Ref>
void AddNamed(Record& record, const std::string& name, const Ref& ref)
{
    record.Named.insert_or_assign(name, ref);
}

template<class Record, class Out>
bool FindNamed(const Record& record, Out& out, const std::string& name)
{
    const auto found = record.Named.find(name);
    if (found == record.Named.end()) return false;
    out.TypeInfor = found->second.TypeInfor;
    out.Address = found->second.Address;
    return true;
}

template<class Record, class Out>
bool FindIndexed(const Record& record, Out& out, unsigned long index)
{
    if (index >= record.Indexed.size()) return false;
    out.TypeInfor = record.Indexed[index].TypeInfor;
    out.Address = record.Indexed[index].Address;
    return true;
}

/// Follows a path from \p record; \p descend goes on from the entry that \p out designates, with the rest of the path.
template<class Record, class Out, class Descend>
bool FindPath(const Record& record, Out& out, const std::string& path, Descend&& descend)
{
    if (FindNamed(record, out, path)) return true;
    const std::size_t dot = path.find('.');
    if (dot == std::string::npos || !FindNamed(record, out, path.substr(0, dot))) return false;
    return descend(path.substr(dot + 1));
}

/// What both records descend into.
bool DescendFrom(CConstRefrence& entry, const std::string& rest)
{
    if (entry.TypeInfor.DataType == DT_CLASS) return entry.AsClass().FindAttribByFlatName(entry, rest);
    const void* const record = entry.TypeInfor.DataType == DT_GNL_CLASS ? entry.ValueAddress() : nullptr;
    return record != nullptr && static_cast<const CGnlClass*>(record)->FindAttribByFlatName(entry, rest);
}

template<class Out>
bool FindGroupPath(const CReferenceGroup& group, Out& out, const std::string& path)
{
    return FindPath(group, out, path, [&](const std::string& rest) {
        if (out.TypeInfor.DataType != DT_REFERENCE_GROUP) return DescendFrom(out, rest);
        const void* const inner = out.ValueAddress();
        return inner != nullptr && static_cast<const CReferenceGroup*>(inner)->FindReferenceByFlatName(out, rest);
    });
}

} // namespace

void CReferenceGroup::Add(const std::string& name, const CRefrence& ref) { AddNamed(*this, name, ref); }
void CReferenceGroup::Add(const CRefrence& ref) { Indexed.push_back(ref); }
bool CReferenceGroup::Remove(const std::string& name) { return Named.erase(name) != 0; }

bool CReferenceGroup::FindReferenceByName(CRefrence& out, const std::string& name) const
{
    return FindNamed(*this, out, name);
}
bool CReferenceGroup::FindReferenceByName(CConstRefrence& out, const std::string& name) const
{
    return FindNamed(*this, out, name);
}
bool CReferenceGroup::FindReferenceByFlatName(CRefrence& out, const std::string& path) const
{
    return FindGroupPath(*this, out, path);
}
bool CReferenceGroup::FindReferenceByFlatName(CConstRefrence& out, const std::string& path) const
{
    return FindGroupPath(*this, out, path);
}
bool CReferenceGroup::FindReferenceByIndex(CRefrence& out, unsigned long index) const
{
    return FindIndexed(*this, out, index);
}
bool CReferenceGroup::FindReferenceByIndex(CConstRefrence& out, unsigned long index) const
{
    return FindIndexed(*this, out, index);
}

void CReferenceGroup::Clear() {}

void CGnlClass::Add(const std::string& name, const CConstRefrence& ref) { AddNamed(*this, name, ref); }
void CGnlClass::Add(const CConstRefrence& ref) { Indexed.push_back(ref); }
bool CGnlClass::Remove(const std::string& name) { return Named.erase(name) != 0; }

bool CGnlClass::FindAttribByName(CConstRefrence& out, const std::string& name) const
{
    return FindNamed(*this, out, name);
}
bool CGnlClass::FindAttribByFlatName(CConstRefrence& out, const std::string& path) const
{
    return FindPath(*this, out, path, [&](const std::string& rest) { return DescendFrom(out, rest); });
}
bool CGnlClass::FindAttribByIndex(CConstRefrence& out, unsigned long index) const
{
    return FindIndexed(*this, out, index);
}

} // namespace vexa

namespace vexa::core {

/// The names stay, and each value is cleared.
template<>
void ClearRecord<CGnlClass>(void* record)
{
    const reference::CClearing clearing(record);
    if (clearing.IsInsideItself()) return;
    for (auto& [name, ref] : static_cast<CGnlClass*>(record)->Named)
        CRefrence(ref.TypeInfor, ref.Address).Clear();
}

template<>
void ClearRecord<CReferenceGroup>(void* record)
{
    static_cast<CReferenceGroup*>(record)->Clear();
}

template void* MakeRecord<CGnlClass>();
template void* MakeRecord<CReferenceGroup>();
template void DestroyRecord<CGnlClass>(void*);
template void DestroyRecord<CReferenceGroup>(void*);

} // namespace vexa::core
