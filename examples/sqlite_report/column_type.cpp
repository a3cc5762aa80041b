#include "column_type.h"

#include <algorithm>
#include <iterator>

#include <sqlite3.h>

namespace sqlite_report {

using namespace vexa::Enum;

namespace {

struct ColumnType {
    DataTypeEnum Type;
    int Storage;
    const char* Declaration;
};

/// No two share a declaration. SQLite looks for parts of it: INT makes a column prefer integers, TEXT makes it prefer
/// text, which keeps every digit of a decimal number.
constexpr ColumnType COLUMN_TYPES[] = {
    {DT_BOOL, SQLITE_INTEGER, "BOOLEAN INT"},
    {DT_CHAR, SQLITE_INTEGER, "BYTE INT"},
    {DT_SHORT, SQLITE_INTEGER, "SMALLINT"},
    {DT_INT, SQLITE_INTEGER, "INT"},
    {DT_LONG, SQLITE_INTEGER, "LONG INT"},
    {DT_LONG_LONG, SQLITE_INTEGER, "BIGINT"},
    {DT_FLOAT, SQLITE_FLOAT, "FLOAT"},
    {DT_DOUBLE, SQLITE_FLOAT, "DOUBLE"},
    {DT_LONG_DOUBLE, SQLITE_FLOAT, "LONG DOUBLE"}, // stored as a double: SQLite has nothing wider
    {DT_UNSIGNED_CHAR, SQLITE_INTEGER, "TINYINT UNSIGNED"},
    {DT_UNSIGNED_SHORT, SQLITE_INTEGER, "SMALLINT UNSIGNED"},
    {DT_UNSIGNED_INT, SQLITE_INTEGER, "INT UNSIGNED"},
    {DT_UNSIGNED_LONG, SQLITE_INTEGER,
     "LONG INT UNSIGNED"}, // from 2^63 on stored as a negative number of the same bits
    {DT_UNSIGNED_LONG_LONG, SQLITE_INTEGER, "BIGINT UNSIGNED"},
    {DT_STD_STRING, SQLITE_TEXT, "TEXT"},
    {DT_BINARY, SQLITE_BLOB, "BLOB"},
    {DT_NUMERIC, SQLITE_TEXT, "DECIMAL TEXT"},
    {DT_TM, SQLITE_TEXT, "TM TEXT"},
    {DT_DATETIME, SQLITE_TEXT, "DATETIME TEXT"}, // to the second, as its text is
};

template<class Test>
const ColumnType* Find(Test test)
{
    const auto* const found = std::find_if(std::begin(COLUMN_TYPES), std::end(COLUMN_TYPES), test);
    return found != std::end(COLUMN_TYPES) ? found : nullptr;
}

} // namespace

std::string DeclaredType(DataTypeEnum type)
{
    const ColumnType* const found = Find([&](const ColumnType& column) { return column.Type == type; });
    return found != nullptr ? found->Declaration : ""; // a column without a declared type takes everything as it is
}

DataTypeEnum TypeOfDeclaration(const char* declaration)
{
    if (declaration == nullptr) return DT_UNKNOWN;
    const ColumnType* const found =
        Find([&](const ColumnType& column) { return std::string(column.Declaration) == declaration; });
    return found != nullptr ? found->Type : DT_UNKNOWN;
}

DataTypeEnum TypeOfStorage(int storage)
{
    switch (storage) {
    case SQLITE_INTEGER: return DT_LONG_LONG;
    case SQLITE_FLOAT: return DT_DOUBLE;
    case SQLITE_TEXT: return DT_STD_STRING;
    case SQLITE_BLOB: return DT_BINARY;
    default: return DT_UNKNOWN;
    }
}

int StorageOf(DataTypeEnum type)
{
    const ColumnType* const found = Find([&](const ColumnType& column) { return column.Type == type; });
    return found != nullptr ? found->Storage : SQLITE_NULL;
}

const char* StorageName(int storage)
{
    switch (storage) {
    case SQLITE_INTEGER: return "an integer";
    case SQLITE_FLOAT: return "a floating number";
    case SQLITE_TEXT: return "a text";
    case SQLITE_BLOB: return "a block of bytes";
    default: return "nothing";
    }
}

} // namespace sqlite_report
