#include "table_query.h"

#include "column_type.h"

namespace sqlite_report {

using namespace vexa::Enum;

namespace {

void AddColumns(vexa::CTable& table, sqlite3_stmt* statement)
{
    for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        table.AddColumn(TypeOfDeclaration(sqlite3_column_decltype(statement, i)), sqlite3_column_name(statement, i));
    }
}

/// Gives a column its type, and the nulls before it.
void SetColumnType(vexa::CTable& table, std::size_t column, DataTypeEnum type)
{
    table.Columns[column].DataType = type;
    for (vexa::CRow& row : table)
        row[column].SetNull(type);
}

std::string TextOf(sqlite3_stmt* statement, int column)
{
    const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

vexa::CBinary BytesOf(sqlite3_stmt* statement, int column)
{
    const void* const bytes = sqlite3_column_blob(statement, column); // null for an empty one
    return {bytes, static_cast<unsigned long>(sqlite3_column_bytes(statement, column))};
}

/// Makes a value of a type that is stored as text.
void ReadText(vexa::CValue& value, const std::string& text)
{
    if (StorageOf(value.Type()) != SQLITE_TEXT) {
        value.ReadFrom(text);
    } else {
        value.ReadFromMemBlock(text.c_str(), text.size()); // into a tm too, to which no text can be assigned
    }
}

/// Converts what the database gave to the type that the value has.
void ReadColumn(vexa::CValue& value, sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER: value.ReadFrom(static_cast<long long>(sqlite3_column_int64(statement, column))); break;
    case SQLITE_FLOAT: value.ReadFrom(sqlite3_column_double(statement, column)); break;
    case SQLITE_TEXT: ReadText(value, TextOf(statement, column)); break;
    case SQLITE_BLOB: value.ReadFrom(BytesOf(statement, column)); break;
    default: value.SetNull();
    }
}

std::string Unexpected(const vexa::CTable& table, const vexa::CColumn& column, int storage)
{
    return "row " + std::to_string(table.Rows.size()) + ", column " + column.Name + ": " + StorageName(storage) +
           " instead of " + StorageName(StorageOf(column.DataType));
}

void ReadValue(QueryResult& result, sqlite3_stmt* statement, int column)
{
    vexa::CTable& table = result.table;
    const auto index = static_cast<std::size_t>(column);
    const int storage = sqlite3_column_type(statement, column);
    if (storage == SQLITE_NULL) return;
    if (table.Columns[index].DataType == DT_UNKNOWN) SetColumnType(table, index, TypeOfStorage(storage));
    if (storage != StorageOf(table.Columns[index].DataType)) {
        result.unexpected.push_back(Unexpected(table, table.Columns[index], storage));
    }
    ReadColumn(table.Rows.back()[index], statement, column);
}

} // namespace

bool RunQuery(Database& database, const std::string& sql, QueryResult& result)
{
    result = QueryResult();
    const Statement statement = database.Prepare(sql);
    if (statement == nullptr) return false;
    AddColumns(result.table, statement.get());
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(statement.get())) == SQLITE_ROW) {
        result.table.AddRow(); // of nulls, each of its column's type
        for (int i = 0; i < sqlite3_column_count(statement.get()); ++i)
            ReadValue(result, statement.get(), i);
    }
    return database.IsGood(code);
}

} // namespace sqlite_report
