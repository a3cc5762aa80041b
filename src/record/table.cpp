#include <vexa/table.h>

#include <algorithm>

namespace vexa {

std::string CRow::AsString(const Enum::AsStringFormatEnum& format) const
{
    std::string out;
    for (const CValue& value : Values)
        out.append(value.CConstRefrence::AsString(format)).append(1, ',');
    return out;
}

CRow& CTable::AddRow()
{
    CRow& row = Rows.emplace_back();
    row.Reserve(Columns.size());
    for (const CColumn& column : Columns)
        row.Append().SetNull(column.DataType);
    return row;
}

void CTable::Clear()
{
    Columns.clear();
    Rows.clear();
}

unsigned long CTable::ColumnIndex(const std::string& name) const
{
    const auto found =
        std::find_if(Columns.begin(), Columns.end(), [&](const CColumn& column) { return column.Name == name; });
    return found != Columns.end() ? static_cast<unsigned long>(found - Columns.begin()) : NO_COLUMN;
}

const CValue& CTable::Value(unsigned long row, const std::string& name) const
{
    static const CValue nothing;
    const unsigned long column = ColumnIndex(name);
    return row < Rows.size() && column < Rows[row].Size() ? Rows[row][column] : nothing;
}

std::string CTable::AsString(const Enum::AsStringFormatEnum& format) const
{
    std::string out;
    for (const CRow& row : Rows)
        out.append(row.AsString(format)).append(1, '\n');
    return out;
}

} // namespace vexa
