#ifndef VEXA_TABLE_H
#define VEXA_TABLE_H

#include <string>
#include <utility>
#include <vector>

#include <vexa/container_refrence.h>
#include <vexa/value.h>

/// \file
/// Tables: typed, named columns and rows of values, and the bridge between them and containers of described objects.

namespace vexa {

/// One column of a table.
struct CColumn {
    Enum::DataTypeEnum DataType = Enum::DT_UNKNOWN;
    std::string Name;
};

inline bool operator==(const CColumn& left, const CColumn& right)
{
    return left.DataType == right.DataType && left.Name == right.Name;
}
inline bool operator!=(const CColumn& left, const CColumn& right) { return !(left == right); }

/// Rows of values under columns. Nothing keeps rows and columns in step but AddRow: a row that was put in by hand may
/// have fewer values, or values of other types.
class VEXA_API CTable {
public:
    std::vector<CRow> Rows;
    std::vector<CColumn> Columns;

    static constexpr unsigned long NO_COLUMN = ~0UL;

    void AddColumn(Enum::DataTypeEnum type, const std::string& name) { Columns.push_back({type, name}); }
    /// Adds a row of null values, each of its column's type, and gives it; it is valid until the next row is added.
    CRow& AddRow();
    /// Adds a row as it is.
    CRow& Append(CRow row) { return Rows.emplace_back(std::move(row)); }
    void Reserve(unsigned long rows) { Rows.reserve(rows); }
    /// Removes all rows and columns.
    void Clear();

    /// The first column of a name, or NO_COLUMN.
    unsigned long ColumnIndex(const std::string& name) const;
    /// The value of a row in a column; a shared null value where there is no such row, column or value.
    const CValue& Value(unsigned long row, const std::string& name) const;

    auto begin() { return Rows.begin(); }
    auto end() { return Rows.end(); }
    auto begin() const { return Rows.begin(); }
    auto end() const { return Rows.end(); }

    /// Every row as text, each followed by a line break; columns are not written.
    std::string AsString(const Enum::AsStringFormatEnum& format = Enum::ASF_VALUE) const;
};

static_assert(sizeof(CColumn) == 40 && sizeof(CTable) == 48, "part of the binary interface");

inline bool operator==(const CTable& left, const CTable& right)
{
    return left.Rows == right.Rows && left.Columns == right.Columns;
}
inline bool operator!=(const CTable& left, const CTable& right) { return !(left == right); }

/// Fills \p table, which is emptied first, from a container of objects of a described class: one row an object, one
/// column for each attribute of a basic type, or of a custom type over one, that lies in the object itself or in its
/// member objects. The name of a member object's attribute is joined to the member's by an underscore. A null object
/// gives a row of nulls.
///
/// Without \p columns, every such attribute that is not masked, in the order of the class; else those named, in that
/// order, masked or not. \return false, with an empty table, when the elements are no objects of a class; false also
/// when one of \p columns is no such attribute, which is then left out.
VEXA_API bool TableFromObjects(CTable& table, const CContainerConstRefrence& container,
                               const std::vector<std::string>& columns = {});

/// Appends to a sequence container of objects one for each row of \p table, and sets the attributes that the columns
/// name, with the library's conversions. A null sets a null, or the default of an attribute that cannot be null. A
/// member of a union, or an attribute in one, is set only while it is the active one; selectors come before. Where a
/// selector changes, members that hold pointers or objects change hands as in FromJson; where they cannot, it stays.
/// \param unknown receives the names of the columns for which the class has no attribute that TableFromObjects would
/// give. \return false, with the container unchanged, when its elements are no objects of a class, or when it is
/// read-only or cannot be appended to.
VEXA_API bool ObjectsFromTable(CContainerRefrence& container, const CTable& table,
                               std::vector<std::string>* unknown = nullptr);

} // namespace vexa

#endif
