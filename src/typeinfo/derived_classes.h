#ifndef VEXA_TYPEINFO_DERIVED_CLASSES_H
#define VEXA_TYPEINFO_DERIVED_CLASSES_H

#include <memory>
#include <string_view>
#include <typeinfo>
#include <vector>

#include "typeinfo/notes.h"

namespace vexa::typeinfo {

/// The classes that can stand for one with a tag, itself among them, so that they are found fast. A table is made at
/// the first use and never changes; when classes have come or gone, the next use makes another, and those before it are
/// kept for whoever still looks at them.
class CDerivedTable {
public:
    /// Throws std::bad_alloc.
    CDerivedTable(const CClassInfor& base, const CClassNotes& notes, unsigned long generation);

    unsigned long Generation() const noexcept { return m_generation; }
    /// Null where there is none.
    const CClassInfor* FindByType(const std::type_info& type) const noexcept;
    CDerivedClass FindByTagValue(std::string_view value) const noexcept;
    std::vector<std::string> TagValues() const;

    std::unique_ptr<const CDerivedTable> Before;

private:
    struct CTyped {
        const std::type_info* Type;
        const CClassInfor* Infor;
    };
    struct CTagged {
        std::string_view Value;     ///< the notes' own
        const std::type_info* Type; ///< null of a class that is not polymorphic
        CDerivedClass Class;
    };
    void Add(const CClassInfor& infor, const CClassNotes& notes, unsigned long offset);
    void Sort(const CClassInfor& base);

    unsigned long m_generation;
    std::vector<CTyped> m_byAddress; ///< sorted by the address of Type
    std::vector<CTyped> m_byType;    ///< sorted by Type itself: a type may have several addresses
    std::vector<CTagged> m_byValue;  ///< of those that are not abstract, sorted
};

} // namespace vexa::typeinfo

#endif
