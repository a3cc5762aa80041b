#ifndef ORDANA_FORMATS_SQLITE_COLUMN_H
#define ORDANA_FORMATS_SQLITE_COLUMN_H

#include <cstring>
#include <deque>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cell.h"

namespace vexa::sqlite {

enum class HopKind : unsigned char { POINTER, FLAG, OPTIONAL, UNION };

/// A step on the way to a value that an offset alone does not make.
struct CHop {
    HopKind Kind;
    unsigned long Offset;          ///< to the holder; UNION: to the object with the member
    unsigned long FlagOffset = 0;  ///< FLAG: in the holder
    unsigned long ValueOffset = 0; ///< FLAG: in the holder
    const detail::COptionalOperations* Optional = nullptr;
    const CClassInfor* Owner = nullptr;   ///< UNION
    CClassInfor::AttribPosition Member{}; ///< UNION

    /// Where the step leads; null where nothing is there.
    const char* Follow(const char* at) const;
};

/// The way from an element's holder to a value.
struct CWay {
    std::vector<CHop> Hops;
    unsigned long Offset = 0; ///< behind the last one

    const char* Follow(const char* at) const
    {
        for (const CHop& hop : Hops) {
            at = hop.Follow(at);
            if (at == nullptr) return nullptr;
        }
        return at + Offset;
    }
    /// A step from where the way leads; it goes on from there.
    CHop& Add(HopKind kind)
    {
        Hops.push_back({kind, Offset});
        Offset = 0;
        return Hops.back();
    }
};

/// What a column is declared as, which is also how SQLite compares it.
enum class Affinity : unsigned char { NONE, INTEGER, REAL, TEXT, BLOB };

struct CColumn;
/// Reads the value at an address into a cell. Throws std::bad_alloc, and what an application's converter throws.
using ReadFunction = void (*)(const CColumn& column, const char* value, CCell& cell);

struct CColumn {
    std::string Name;
    Affinity Type = Affinity::NONE;
    CWay Way;
    ReadFunction Reader = nullptr;
    const CGnlTypeInfor* Infor = nullptr; ///< of the value itself, held directly
    bool ShowsMasked = false;
    const detail::CTextOperations* Text = nullptr;             ///< of a text whose type is no std::string
    std::vector<std::pair<long long, std::string_view>> Names; ///< of an enumeration's values, sorted by these

    void Read(const char* element, CCell& cell) const
    {
        const char* const value = Way.Follow(element);
        if (value != nullptr)
            Reader(*this, value, cell);
        else
            cell.SetNothing();
    }
};

/// How values of a type are read.
struct CReading {
    ReadFunction Reader = nullptr; ///< null for a type that has no column
    Affinity Type = Affinity::NONE;
};
CReading ReadingOf(const CGnlTypeInfor& type, const detail::CEnumerationSlot* names);
/// Of a custom type by its shape.
CReading ReadingOf(const detail::CShape& shape);

/// The columns of a container's elements.
class CColumns {
public:
    CColumns(const CContainerInfor& container, const CSqlTableOptions& options, std::size_t limit);

    std::vector<CColumn> Take() { return std::move(m_columns); }
    /// The types that columns refer to.
    std::deque<CGnlTypeInfor> TakeTypes() { return std::move(m_types); }
    bool IsTooMany() const { return m_columns.size() > m_limit; }

private:
    void AddPair(const CClassInfor& pair);
    void AddClass(const std::string& prefix, const CClassInfor& infor, const CWay& way);
    void AddAttrib(const std::string& name, const CClassInfor& owner, CClassInfor::AttribPosition attrib, CWay way);
    void AddHeld(const std::string& name, const CGnlTypeInfor& type, CWay way, const detail::CEnumerationSlot* names);
    void AddCustom(const std::string& name, const CGnlTypeInfor& type, CWay way);
    void AddShape(const std::string& name, const CGnlTypeInfor& type, const detail::CShape& shape, CWay way);
    CColumn* AddColumn(const std::string& name, const CGnlTypeInfor& type, const CReading& reading, CWay way);
    std::string FreeName(const std::string& name);

    CSqlTableOptions m_options;
    std::size_t m_limit;
    std::vector<CColumn> m_columns;
    std::deque<CGnlTypeInfor> m_types;
    std::set<std::string> m_taken;          ///< names in small letters
    std::vector<const CClassInfor*> m_open; ///< classes that are being spread out
};

/// Small letters of ASCII, as SQLite compares names.
std::string Lower(std::string_view text);

} // namespace vexa::sqlite

#endif
