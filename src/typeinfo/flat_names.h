#ifndef VEXA_TYPEINFO_FLAT_NAMES_H
#define VEXA_TYPEINFO_FLAT_NAMES_H

#include <string_view>
#include <vector>

#include "typeinfo/finished_class.h"
#include "typeinfo/name_table.h"

namespace vexa::typeinfo {

/// The flat index of a finished class as a table of names. Like a plan it is made at the first use, published once, and
/// only a shorter way to what the descriptor holds. It is one of its own because an index grows with everything that a
/// class is made of, and most classes are never asked for a flat name.
class CFlatNames {
public:
    explicit CFlatNames(const CClassInfor& infor);

    /// The entry of exactly this name, or null.
    const CFlatAttribInfor* Find(std::string_view name) const noexcept
    {
        const std::uint32_t number = m_names.Find(name);
        return number != CNameTable::NONE ? m_entries[number] : nullptr;
    }

private:
    std::vector<const CFlatAttribInfor*> m_entries; ///< in the order of their names
    CNameTable m_names;
};

/// Makes the table and publishes it, unless another thread is first. Null when there is no memory for it.
const CFlatNames* MakeFlatNames(const CFinishedClass& infor) noexcept;

/// The table of a class; null for one that no registration has finished, and when there is no memory for it.
inline const CFlatNames* FlatNamesOf(const CClassInfor& infor) noexcept
{
    const CFinishedClass* const finished = FinishedClass(infor);
    if (finished == nullptr) return nullptr;
    const CFlatNames* const names = finished->FlatNames.load(std::memory_order_acquire);
    return __builtin_expect(names != nullptr, 1) ? names : MakeFlatNames(*finished);
}

} // namespace vexa::typeinfo

#endif
