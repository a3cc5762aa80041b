#include "table_store.h"

#include <vexa/table.h>

#include "column_type.h"

namespace sqlite_report {

using namespace vexa::Enum;

namespace {

const vexa::CClassInfor& ClassOf(const vexa::CContainerConstRefrence& objects)
{
    return *static_cast<const vexa::CClassInfor*>(objects.ContainerInfor().ElementType.DetailInfor);
}

/// Any text as a name in a statement.
std::string Quoted(const std::string& name)
{
    std::string quoted = "\"";
    for (const char c : name)
        quoted.append(c == '"' ? 2 : 1, c);
    return quoted + '"';
}

bool CanBeNull(const vexa::CClassInfor& infor, const std::string& column)
{
    const vexa::CFlatAttribInfor* const attrib = infor.FindAttribInforByFlatName(column);
    return attrib == nullptr || attrib->AttribInfor->TypeInfor.Has(HF_NULLABLE);
}

std::string ColumnDefinition(const vexa::CClassInfor& infor, const vexa::CColumn& column)
{
    const std::string definition = Quoted(column.Name) + ' ' + DeclaredType(column.DataType);
    return CanBeNull(infor, column.Name) ? definition : definition + " NOT NULL";
}

std::string DefinitionOf(const vexa::CClassInfor& infor, const vexa::CTable& table)
{
    std::string sql = "CREATE TABLE " + Quoted(infor.Name);
    const char* separator = " (";
    for (const vexa::CColumn& column : table.Columns) {
        sql += separator + ColumnDefinition(infor, column);
        separator = ", ";
    }
    return sql + ')';
}

std::string InsertionInto(const std::string& name, std::size_t columns)
{
    std::string sql = "INSERT INTO " + Quoted(name) + " VALUES (?";
    for (std::size_t i = 1; i < columns; ++i)
        sql += ", ?";
    return sql + ')';
}

int BindText(sqlite3_stmt* statement, int place, const std::string& text)
{
    return sqlite3_bind_text64(statement, place, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

int Bind(sqlite3_stmt* statement, int place, const vexa::CValue& value)
{
    if (value.IsNull()) return sqlite3_bind_null(statement, place);
    switch (StorageOf(value.Type())) {
    case SQLITE_INTEGER: return sqlite3_bind_int64(statement, place, value.As_long_long());
    case SQLITE_FLOAT: return sqlite3_bind_double(statement, place, value.As_double());
    case SQLITE_BLOB: {
        const vexa::CBinary& bytes = value.As_CBinary_ref();
        return sqlite3_bind_blob64(statement, place, bytes.Data, bytes.Size, SQLITE_TRANSIENT);
    }
    default: return BindText(statement, place, value.As_std_string());
    }
}

bool InsertRow(Database& database, sqlite3_stmt* statement, const vexa::CRow& row)
{
    int place = 0;
    for (const vexa::CValue& value : row) {
        if (!database.IsGood(Bind(statement, ++place, value))) return false;
    }
    const bool isDone = database.IsGood(sqlite3_step(statement));
    sqlite3_reset(statement);
    return isDone;
}

bool InsertRows(Database& database, const std::string& name, const vexa::CTable& table)
{
    const Statement statement = database.Prepare(InsertionInto(name, table.Columns.size()));
    if (statement == nullptr) return false;
    for (const vexa::CRow& row : table) {
        if (!InsertRow(database, statement.get(), row)) return false;
    }
    return true;
}

} // namespace

const std::string& TableNameOf(const vexa::CContainerConstRefrence& objects) { return ClassOf(objects).Name; }

std::string TableDefinition(const vexa::CContainerConstRefrence& objects)
{
    vexa::CTable table;
    TableFromObjects(table, objects);
    return DefinitionOf(ClassOf(objects), table);
}

bool StoreObjects(Database& database, const vexa::CContainerConstRefrence& objects)
{
    vexa::CTable table;
    if (!TableFromObjects(table, objects)) return false;
    Transaction transaction(database);
    return transaction.IsRunning() && database.Execute(DefinitionOf(ClassOf(objects), table)) &&
           InsertRows(database, TableNameOf(objects), table) && transaction.Commit();
}

} // namespace sqlite_report
