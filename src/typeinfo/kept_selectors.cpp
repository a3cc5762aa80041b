#include "typeinfo/kept_selectors.h"

#include <mutex>
#include <unordered_map>

namespace vexa::typeinfo {
namespace {

using Records = std::list<CAttribInfor>;

std::mutex s_mutex;

/// Never destroyed, once it is there: a class may go after the library's statics.
std::unordered_map<const CClassInfor*, Records>* s_kept = nullptr;

Records& KeptFor(const CClassInfor& owner)
{
    if (s_kept == nullptr) s_kept = new std::unordered_map<const CClassInfor*, Records>();
    return (*s_kept)[&owner];
}

} // namespace

void KeepSelector(CClassInfor& owner, CClassInfor::AttribPosition record)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    Records& kept = KeptFor(owner);
    kept.splice(kept.end(), owner.AttribList, record);
}

const CAttribInfor& KeepSelectorCopy(const CClassInfor& owner, const CAttribInfor& record, unsigned long offset)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    CAttribInfor& copy = KeptFor(owner).emplace_back(record);
    copy.Offset = static_cast<unsigned short>(record.Offset + offset);
    return copy;
}

void DropKeptSelectors(const CClassInfor& owner) noexcept
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    if (s_kept != nullptr) s_kept->erase(&owner);
}

} // namespace vexa::typeinfo
