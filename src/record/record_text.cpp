#include "text/record_text.h"

#include <vexa/table.h>

#include "core/type_table.h"

namespace vexa::text {
namespace {

/// A column is of a basic type; no other has a name here.
const char* ColumnTypeName(Enum::DataTypeEnum type)
{
    const bool isBasic = type <= 0xFF && CGnlTypeInfor(type).IsBasicType(); // a descriptor would keep the low byte
    return core::TypeRow(isBasic ? static_cast<unsigned char>(type) : static_cast<unsigned char>(Enum::DT_UNKNOWN))
        .Name;
}

void AppendColumns(std::string& out, const CTable& table)
{
    const char* separator = "\n";
    for (const CColumn& column : table.Columns) {
        out.append(separator).append(ColumnTypeName(column.DataType)).append(" ").append(column.Name);
        separator = ", ";
    }
}

} // namespace

void AppendRow(std::string& out, const CRow& row, Enum::AsStringFormatEnum format) { out.append(row.AsString(format)); }

void AppendTable(std::string& out, const CTable& table, Enum::AsStringFormatEnum format, unsigned long indent,
                 bool breaksLine)
{
    if (format == Enum::ASF_TYPE_AND_VALUE || format == Enum::ASF_TYPE_ONLY) AppendColumns(out, table);
    for (const CRow& row : table.Rows) {
        if (breaksLine) out.append(1, '\n').append(indent, ' ');
        out.append("- ").append(row.AsString(format));
    }
}

} // namespace vexa::text
