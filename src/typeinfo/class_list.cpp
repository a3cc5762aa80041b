#include "typeinfo/class_list.h"

#include <link.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <iterator>
#include <map>

#include <vexa/find_class.h>
#include <vexa/helper.h>

#include "typeinfo/finished_class.h"
#include "typeinfo/notes.h"
#include "typeinfo/qualified_name.h"

namespace vexa {
namespace typeinfo {
namespace {

struct CListed {
    const CClassInfor* Infor;
    const void* Place;
};

/// By qualified names, which the descriptors own.
using Classes = std::multimap<std::string_view, CListed>;

/// Under the global lock. Never destroyed, once it is there: a class may go after the library's statics.
Classes* s_classes = nullptr;
std::atomic<unsigned long> s_generation{1};

bool StandsForOthers(const CClassInfor& infor)
{
    const CClassNotes* const notes = NotesOf(infor);
    return notes != nullptr && !notes->Ancestors.empty();
}

Classes::iterator Erase(Classes::iterator listed) noexcept
{
    if (StandsForOthers(*listed->second.Infor)) ++s_generation;
    return s_classes->erase(listed);
}

} // namespace

void List(const CClassInfor& infor, const void* place)
{
    const helper::CLockGuard lock;
    if (s_classes == nullptr) s_classes = new Classes();
    if (QualifiedNameOf(infor).empty()) return;
    s_classes->emplace(QualifiedNameOf(infor), CListed{&infor, place});
    if (StandsForOthers(infor)) ++s_generation;
}

void Unlist(const CClassInfor& infor) noexcept
{
    if (FinishedClass(infor) == nullptr) return; // nothing else is ever listed
    const helper::CLockGuard lock;
    if (s_classes == nullptr) return;
    const auto [first, last] = s_classes->equal_range(QualifiedNameOf(infor));
    const auto found = std::find_if(first, last, [&](const auto& listed) { return listed.second.Infor == &infor; });
    if (found != last) Erase(found);
}

std::vector<const CClassInfor*> ListedDerivedOf(const CClassInfor& base)
{
    const helper::CLockGuard lock;
    std::vector<const CClassInfor*> derived;
    if (s_classes == nullptr) return derived;
    for (const auto& [name, listed] : *s_classes) {
        const CClassNotes* const notes = NotesOf(*listed.Infor);
        if (notes == nullptr) continue;
        const bool isDerived = std::any_of(notes->Ancestors.begin(), notes->Ancestors.end(),
                                           [&](const CAncestor& ancestor) { return IsSameClass(ancestor, base); });
        if (isDerived) derived.push_back(listed.Infor);
    }
    return derived;
}

unsigned long DerivedGeneration() noexcept { return s_generation.load(std::memory_order_acquire); }

namespace {

const CClassInfor* FindExactly(std::string_view name)
{
    const auto found = s_classes->lower_bound(name);
    return found != s_classes->end() && found->first == name ? found->second.Infor : nullptr;
}

/// Where a program or shared object is loaded.
struct CModule {
    std::uintptr_t Address; ///< in it
    std::uintptr_t First = 0;
    std::uintptr_t Last = 0; ///< behind it
    bool IsProgram = true;   ///< which stays

    bool Holds(const void* place) const noexcept
    {
        const auto address = reinterpret_cast<std::uintptr_t>(place);
        return address >= First && address < Last;
    }
};

/// \return not 0 for the one that holds the address: it is told then.
int FindModule(dl_phdr_info* info, std::size_t, void* data)
{
    CModule& module = *static_cast<CModule*>(data);
    std::uintptr_t first = UINTPTR_MAX, last = 0;
    for (unsigned int i = 0; i < info->dlpi_phnum; ++i) {
        const auto& segment = info->dlpi_phdr[i];
        if (segment.p_type != PT_LOAD) continue;
        first = std::min<std::uintptr_t>(first, info->dlpi_addr + segment.p_vaddr);
        last = std::max<std::uintptr_t>(last, info->dlpi_addr + segment.p_vaddr + segment.p_memsz);
    }
    if (module.Address < first || module.Address >= last) return 0;
    module.First = first;
    module.Last = last;
    module.IsProgram = info->dlpi_name == nullptr || *info->dlpi_name == '\0';
    return 1;
}

} // namespace
} // namespace typeinfo

const CClassInfor* FindClass(std::string_view name)
{
    const helper::CLockGuard lock;
    if (typeinfo::s_classes == nullptr) return nullptr;
    const CClassInfor* const found = typeinfo::FindExactly(name);
    return found != nullptr ? found : typeinfo::FindExactly(typeinfo::NormalizedName(name));
}

const std::string& QualifiedNameOf(const CClassInfor& infor)
{
    if (!infor.Mark.Is(detail::CFinishedMark::DRAFT)) return infor.Name;
    const std::string* const name = static_cast<const typeinfo::CFinishedClass&>(infor).QualifiedName;
    return name != nullptr ? *name : infor.Name;
}

namespace detail {

std::vector<const CClassInfor*> ListedClasses()
{
    const helper::CLockGuard lock;
    std::vector<const CClassInfor*> classes;
    if (typeinfo::s_classes == nullptr) return classes;
    for (const auto& [name, listed] : *typeinfo::s_classes)
        classes.push_back(listed.Infor);
    return classes;
}

void ForgetModule(const void* address) noexcept
{
    // Before the lock is taken: the loader has one of its own.
    typeinfo::CModule module{reinterpret_cast<std::uintptr_t>(address)};
    if (dl_iterate_phdr(&typeinfo::FindModule, &module) == 0 || module.IsProgram) return;
    const helper::CLockGuard lock;
    if (typeinfo::s_classes == nullptr) return;
    for (auto listed = typeinfo::s_classes->begin(); listed != typeinfo::s_classes->end();)
        listed = module.Holds(listed->second.Place) ? typeinfo::Erase(listed) : std::next(listed);
}

} // namespace detail
} // namespace vexa
