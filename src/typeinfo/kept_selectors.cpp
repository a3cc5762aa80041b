#include "typeinfo/kept_selectors.h"

#include <atomic>
#include <limits>
#include <mutex>
#include <new>
#include <unordered_map>

namespace vexa::typeinfo {
namespace {

using Records = std::list<CAttribInfor>;

struct CKept {
    Records Selectors;
    Records Members;
};

std::mutex s_mutex;

/// Never destroyed, once it is there: a class may go after the library's statics.
std::unordered_map<const CClassInfor*, CKept>* s_kept = nullptr;

/// Whether any class has ever hidden a member: hardly any does, and the others need not be looked up.
std::atomic<bool> s_hasMembers{false};

CKept& KeptFor(const CClassInfor& owner)
{
    if (s_kept == nullptr) s_kept = new std::unordered_map<const CClassInfor*, CKept>();
    return (*s_kept)[&owner];
}

constexpr unsigned long MAX_OFFSET = std::numeric_limits<unsigned short>::max();

CAttribInfor& AddCopy(Records& records, const CAttribInfor& record, unsigned long offset)
{
    CAttribInfor& copy = records.emplace_back(record);
    copy.Offset = static_cast<unsigned short>(record.Offset + offset);
    return copy;
}

/// A class has a chain of selectors only where one union lies in another.
const CAttribInfor& AddSelectorCopy(Records& selectors, const CAttribInfor& record, unsigned long offset)
{
    CAttribInfor& copy = AddCopy(selectors, record, offset);
    if (record.UnionSelector != nullptr)
        copy.UnionSelector = &AddSelectorCopy(selectors, *record.UnionSelector, offset);
    return copy;
}

} // namespace

void KeepHidden(CClassInfor& owner, CClassInfor::AttribPosition record)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    CKept& kept = KeptFor(owner);
    Records& records = record->UnionSelector != nullptr ? kept.Members : kept.Selectors;
    records.splice(records.end(), owner.AttribList, record);
    if (!kept.Members.empty()) s_hasMembers = true;
}

const CAttribInfor& KeepSelectorCopy(const CClassInfor& owner, const CAttribInfor& record, unsigned long offset)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    return AddSelectorCopy(KeptFor(owner).Selectors, record, offset);
}

void InheritHiddenMembers(const CClassInfor& derived, const CClassInfor& base, unsigned long offset)
{
    const Records& hidden = HiddenMembersOf(base);
    if (hidden.empty()) return;
    const std::lock_guard<std::mutex> lock(s_mutex);
    CKept& kept = KeptFor(derived);
    for (const CAttribInfor& member : hidden) {
        if (offset + member.Offset > MAX_OFFSET || offset + member.UnionSelector->Offset > MAX_OFFSET) continue;
        const CAttribInfor& selector = AddSelectorCopy(kept.Selectors, *member.UnionSelector, offset);
        AddCopy(kept.Members, member, offset).UnionSelector = &selector;
    }
}

const std::list<CAttribInfor>& HiddenMembersOf(const CClassInfor& owner)
{
    alignas(Records) static char s_room[sizeof(Records)];
    static const Records& s_none = *new (s_room) Records(); // never destroyed either
    if (!s_hasMembers.load(std::memory_order_relaxed)) return s_none;
    const std::lock_guard<std::mutex> lock(s_mutex);
    const auto found = s_kept->find(&owner);
    return found != s_kept->end() ? found->second.Members : s_none;
}

void DropKeptSelectors(const CClassInfor& owner) noexcept
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    if (s_kept != nullptr) s_kept->erase(&owner);
}

} // namespace vexa::typeinfo
