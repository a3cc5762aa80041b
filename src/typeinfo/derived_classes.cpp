// Objects of derived classes behind pointers to a class with a tag: which class they are of, and which one a tag means.

#include "typeinfo/derived_classes.h"

#include <algorithm>
#include <functional>

#include <vexa/helper.h>

#include "typeinfo/class_list.h"

namespace vexa {
namespace typeinfo {
namespace {

bool IsAddressLess(const std::type_info* left, const std::type_info* right) noexcept
{
    return std::less<const std::type_info*>()(left, right);
}

} // namespace

CDerivedTable::CDerivedTable(const CClassInfor& base, const CClassNotes& notes, unsigned long generation)
    : m_generation(generation)
{
    Add(base, notes, 0);
    // Objects of derived classes are deleted through a polymorphic class only.
    if (notes.Type != nullptr) {
        for (const CClassInfor* const derived : ListedDerivedOf(base)) {
            const CClassNotes& ofDerived = *NotesOf(*derived);
            for (const CAncestor& ancestor : ofDerived.Ancestors)
                if (ofDerived.Type != nullptr && IsSameClass(ancestor, base)) Add(*derived, ofDerived, ancestor.Offset);
        }
    }
    Sort(base);
}

void CDerivedTable::Add(const CClassInfor& infor, const CClassNotes& notes, unsigned long offset)
{
    if (notes.Type != nullptr) m_byAddress.push_back({notes.Type, &infor});
    if (!notes.IsAbstract) m_byValue.push_back({notes.TagValue, notes.Type, {&infor, offset}});
}

void CDerivedTable::Sort(const CClassInfor& base)
{
    m_byType = m_byAddress;
    std::sort(m_byAddress.begin(), m_byAddress.end(),
              [](const CTyped& left, const CTyped& right) { return IsAddressLess(left.Type, right.Type); });
    std::sort(m_byType.begin(), m_byType.end(),
              [](const CTyped& left, const CTyped& right) { return left.Type->before(*right.Type); });
    std::stable_sort(m_byValue.begin(), m_byValue.end(),
                     [](const CTagged& left, const CTagged& right) { return left.Value < right.Value; });
    const auto isSame = [&base](const CTagged& left, const CTagged& right) {
        if (left.Value != right.Value) return false;
        if (left.Type != nullptr && right.Type != nullptr && *left.Type == *right.Type) return true;
        helper::LogError("The tag value %s of %s means two classes, %s and %s: it stays with the first",
                         std::string(left.Value).c_str(), QualifiedNameOf(base).c_str(),
                         QualifiedNameOf(*left.Class.Infor).c_str(), QualifiedNameOf(*right.Class.Infor).c_str());
        return true;
    };
    m_byValue.erase(std::unique(m_byValue.begin(), m_byValue.end(), isSame), m_byValue.end());
}

const CClassInfor* CDerivedTable::FindByType(const std::type_info& type) const noexcept
{
    const auto atAddress = std::lower_bound(
        m_byAddress.begin(), m_byAddress.end(), &type,
        [](const CTyped& left, const std::type_info* right) { return IsAddressLess(left.Type, right); });
    if (atAddress != m_byAddress.end() && atAddress->Type == &type) return atAddress->Infor;
    const auto found =
        std::lower_bound(m_byType.begin(), m_byType.end(), &type,
                         [](const CTyped& left, const std::type_info* right) { return left.Type->before(*right); });
    return found != m_byType.end() && *found->Type == type ? found->Infor : nullptr;
}

CDerivedClass CDerivedTable::FindByTagValue(std::string_view value) const noexcept
{
    const auto found = std::lower_bound(m_byValue.begin(), m_byValue.end(), value,
                                        [](const CTagged& left, std::string_view right) { return left.Value < right; });
    return found != m_byValue.end() && found->Value == value ? found->Class : CDerivedClass{};
}

std::vector<std::string> CDerivedTable::TagValues() const
{
    std::vector<std::string> values;
    for (const CTagged& tagged : m_byValue)
        values.emplace_back(tagged.Value);
    return values;
}

namespace {

const CDerivedTable& TableOf(const CClassInfor& base, const CClassNotes& notes)
{
    const CDerivedTable* const found = notes.Derived.load(std::memory_order_acquire);
    if (found != nullptr && found->Generation() == DerivedGeneration()) return *found;
    const helper::CLockGuard lock;
    const CDerivedTable* const before = notes.Derived.load(std::memory_order_relaxed);
    const unsigned long generation = DerivedGeneration();
    if (before != nullptr && before->Generation() == generation) return *before;
    auto made = std::make_unique<CDerivedTable>(base, notes, generation);
    made->Before.reset(before);
    notes.Derived.store(made.get(), std::memory_order_release);
    return *made.release();
}

/// The notes of a class with a tag, or null.
const CClassNotes* TaggedNotesOf(const CClassInfor& infor) noexcept
{
    const CClassNotes* const notes = NotesOf(infor);
    return notes != nullptr && !notes->Tag.empty() ? notes : nullptr;
}

} // namespace

const std::string& TagValueOf(const CClassInfor& infor)
{
    const CClassNotes* const notes = NotesOf(infor);
    return notes != nullptr && !notes->TagValue.empty() ? notes->TagValue : QualifiedNameOf(infor);
}

} // namespace typeinfo

const CClassInfor& DynamicClassOf(const CClassInfor& base, const void* object, const void*& whole)
{
    whole = object;
    const typeinfo::CClassNotes* const notes = typeinfo::TaggedNotesOf(base);
    if (notes == nullptr || notes->DynamicType == nullptr) return base;
    const void* start = nullptr;
    const std::type_info* const type =
        notes->DynamicType(static_cast<const char*>(object) + notes->DynamicOffset, start);
    // Of a class that is compiled without run-time type information there is none.
    if (type == notes->Type || type == nullptr) return base;
    const CClassInfor* const found = typeinfo::TableOf(base, *notes).FindByType(*type);
    if (found == nullptr) return base;
    whole = start;
    return *found;
}

CDerivedClass FindByTagValue(const CClassInfor& base, std::string_view value)
{
    const typeinfo::CClassNotes* const notes = typeinfo::TaggedNotesOf(base);
    return notes != nullptr ? typeinfo::TableOf(base, *notes).FindByTagValue(value) : CDerivedClass{};
}

std::vector<std::string> TagValuesOf(const CClassInfor& base)
{
    const typeinfo::CClassNotes* const notes = typeinfo::TaggedNotesOf(base);
    return notes != nullptr ? typeinfo::TableOf(base, *notes).TagValues() : std::vector<std::string>();
}

} // namespace vexa
