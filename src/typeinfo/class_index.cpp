// The indexes over a class's attributes: by name, by flat name, by attribute ID and by union selector value.

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

#include <vexa/class_infor.h>
#include <vexa/helper.h>

#include "typeinfo/flat_names.h"
#include "typeinfo/kept_selectors.h"

namespace vexa {
namespace {

void LogSameFlatName(const CClassInfor& owner, const CAttribInfor& attrib, const CFlatAttribInfor& existing)
{
    helper::LogError("The class %s's combination attribute %s's sub-attribute path \"%s\" has the same name as the "
                     "existing attribute",
                     owner.Name.c_str(), attrib.Name.c_str(), existing.FlatName.c_str());
}

/// Whether an entry was made by another attribute than one of this name.
bool IsTakenByOther(const CFlatAttribInfor& entry, const CAttribInfor& attrib)
{
    return entry.AttribInfor != nullptr && entry.AttribInfor->Name != attrib.Name;
}

void AddToIDMap(CAttribIDMap*& map, const CClassInfor& owner, short key, const CAttribInfor& record)
{
    if (map == nullptr) map = new CAttribIDMap();
    map->AddAttrib(owner, key, &record);
}

/// Takes a record whose name is taken out of the list. What unions need of it is kept. \return the next one.
CClassInfor::AttribPosition RemoveDuplicate(CClassInfor& owner, CClassInfor::AttribPosition duplicate)
{
    const auto isSelectorIn = [&](const std::list<CAttribInfor>& records) {
        return std::any_of(records.begin(), records.end(),
                           [&](const CAttribInfor& record) { return record.UnionSelector == &*duplicate; });
    };
    const bool isSelector = isSelectorIn(owner.AttribList) || isSelectorIn(typeinfo::HiddenMembersOf(owner));
    if (!isSelector && duplicate->UnionSelector == nullptr) return owner.AttribList.erase(duplicate);
    const auto next = std::next(duplicate);
    typeinfo::KeepHidden(owner, duplicate);
    return next;
}

constexpr short DIRECT_KEYS = 64;

} // namespace

CFlatAttribInfor::CFlatAttribInfor(const CFlatAttribInfor& other)
    : PointerPath(other.PointerPath != nullptr ? new std::vector<const CAttribInfor*>(*other.PointerPath) : nullptr),
      Offset(other.Offset), AttribInfor(other.AttribInfor), FlatName(other.FlatName)
{
}

CFlatAttribInfor& CFlatAttribInfor::operator=(const CFlatAttribInfor& other)
{
    if (this == &other) return *this;
    FlatName = other.FlatName;
    if (other.PointerPath == nullptr) {
        delete PointerPath;
        PointerPath = nullptr;
    } else if (PointerPath != nullptr) {
        *PointerPath = *other.PointerPath;
    } else {
        PointerPath = new std::vector<const CAttribInfor*>(*other.PointerPath);
    }
    Offset = other.Offset;
    AttribInfor = other.AttribInfor;
    return *this;
}

CFlatAttribInfor::~CFlatAttribInfor() { delete PointerPath; }

void CAttribIDMap::AddAttrib(const CClassInfor& owner, short key, const CAttribInfor* record)
{
    const CAttribInfor** slot = nullptr;
    if (key >= 0 && key < DIRECT_KEYS) {
        const auto index = static_cast<std::size_t>(key);
        if (DirectTable.size() <= index) DirectTable.resize(index + 1, nullptr);
        slot = &DirectTable[index];
    } else {
        slot = &OtherIDs[key];
    }
    if (*slot != nullptr) {
        helper::LogError("The class %s's attribute %s's attribID \"%d\" is conflict with attribute %s.",
                         owner.Name.c_str(), record->Name.c_str(), key, (*slot)->Name.c_str());
    }
    *slot = record;
}

const CAttribInfor* CAttribIDMap::FindAttrib(short key) const
{
    if (key >= 0 && key < DIRECT_KEYS) {
        const auto index = static_cast<std::size_t>(key);
        return index < DirectTable.size() ? DirectTable[index] : nullptr;
    }
    const auto found = OtherIDs.find(key);
    return found != OtherIDs.end() ? found->second : nullptr;
}

void CClassInfor::CreateIndex()
{
    for (AttribPosition position = AttribList.begin(); position != AttribList.end();) {
        const CAttribInfor& record = *position;
        const CAttribInfor*& named = AttribNameMap[record.Name];
        if (named != nullptr) {
            position = RemoveDuplicate(*this, position);
            continue;
        }
        named = &record;
        if (record.AttribID >= 0) AddToIDMap(IDMap, *this, record.AttribID, record);
        if (record.UnionSelector != nullptr) AddToIDMap(UnionEnumMap, *this, record.UnionAttribEnum, record);
        ++position;

        if (record.TypeInfor.DataType == Enum::DT_CLASS) {
            ExpandCompoAttrib(record);
            continue;
        }
        // A plain attribute always wins a clash of flat names, so that its own name finds it.
        CFlatAttribInfor& entry = FlatAttribMap[record.Name];
        if (IsTakenByOther(entry, record)) LogSameFlatName(*this, record, entry);
        entry.Offset = record.Offset;
        entry.AttribInfor = &record;
        entry.FlatName = record.Name;
    }
}

void CClassInfor::ExpandCompoAttrib(const CAttribInfor& compound)
{
    const auto* const member = static_cast<const CClassInfor*>(compound.TypeInfor.DetailInfor);
    if (member == this || member == nullptr) return; // a pointer to the own class would expand for ever
    std::string key = compound.Name + '_';
    const std::size_t prefix = key.size();
    // The keys come in ascending order: each belongs behind the one before.
    auto position = FlatAttribMap.lower_bound(key);
    for (const auto& [flatName, leaf] : member->FlatAttribMap) {
        key.replace(prefix, std::string::npos, flatName);
        position = FlatAttribMap.try_emplace(position, key);
        CFlatAttribInfor& entry = position->second;
        ++position;
        if (IsTakenByOther(entry, compound)) {
            LogSameFlatName(*this, compound, entry);
            continue;
        }
        if (compound.TypeInfor.Has(Enum::HF_POINTER)) {
            entry.Offset = leaf.Offset;
            delete std::exchange(entry.PointerPath, new std::vector<const CAttribInfor*>(1, &compound));
        } else {
            entry.Offset = compound.Offset + leaf.Offset;
        }
        entry.FlatName = key;
        entry.AttribInfor = leaf.AttribInfor;
    }
}

namespace {

const CFlatAttribInfor* FindFlat(const CClassInfor& infor, const std::string& name)
{
    const auto found = infor.FlatAttribMap.find(name);
    return found != infor.FlatAttribMap.end() ? &found->second : nullptr;
}

void JoinByUnderscores(char* name, std::size_t length) { std::replace(name, name + length, '.', '_'); }

} // namespace

// A key may hold a dot, since an attribute's name may: what is found as it is given comes first.
const CFlatAttribInfor* CClassInfor::FindAttribInforByFlatName(const std::string& name) const
{
    const typeinfo::CFlatNames* const names = typeinfo::FlatNamesOf(*this);
    const CFlatAttribInfor* const found = names != nullptr ? names->Find(name) : FindFlat(*this, name);
    if (found != nullptr || name.find('.') == std::string::npos) return found;
    constexpr std::size_t USUAL_LENGTH = 256;
    if (names != nullptr && name.size() <= USUAL_LENGTH) {
        char joined[USUAL_LENGTH];
        std::memcpy(joined, name.data(), name.size());
        JoinByUnderscores(joined, name.size());
        return names->Find({joined, name.size()});
    }
    std::string joined = name;
    JoinByUnderscores(joined.data(), joined.size());
    return FindFlat(*this, joined);
}

} // namespace vexa
