#include <iostream>

#include "steps.h"
#include "table_query.h"
#include "table_store.h"

namespace sqlite_report {
namespace {

bool IsNullIn(const vexa::CTable& table, const std::string& column)
{
    return table.Rows.size() == 1 && table.ColumnIndex(column) != vexa::CTable::NO_COLUMN &&
           table.Value(0, column).IsNull();
}

} // namespace

bool RunBrokenStatements(Database& database, const Input& input)
{
    Heading("Running what the database refuses");
    QueryResult result;
    bool held = !RunQuery(database, "SELECT nme FROM Country", result) && result.table == vexa::CTable();
    Failed("a query of a column that is not there", database);
    held = !StoreObjects(database, vexa::RefOf(input.catalog.countries.records).AsContainer()) && held;
    Failed("a table that is there already", database);
    held = !database.Execute("INSERT INTO Country (alpha_2) VALUES ('XX')") && held;
    Failed("a row without values that cannot be null", database);
    held = RunQuery(database, "SELECT count(*) AS countries FROM Country", result) && held;
    held = result.table.Value(0, "countries") == static_cast<long long>(input.catalog.countries.records.size()) && held;
    return Check("all were refused, and the countries are still those", held);
}

bool ReadUnexpectedValue(Database& database, const Input&)
{
    Heading("Reading a text from a column of integers");
    Transaction undone(database);
    QueryResult result;
    bool held = database.Execute("UPDATE LoadedFile SET records = 'some' WHERE file = 'iso_3166-1'");
    held = RunQuery(database, "SELECT file, records FROM LoadedFile WHERE file = 'iso_3166-1'", result) && held;
    for (const std::string& sentence : result.unexpected)
        std::cout << sentence << '\n';
    std::cout << "The row: " << result.table.AsString();
    std::vector<LoadedFile> files;
    held = vexa::ObjectsFromTable(files, result.table) && files.size() == 1 && held;
    return Check("it was told; the value is null, and the object's attribute 0",
                 held && result.unexpected.size() == 1 && IsNullIn(result.table, "records") && files[0].records == 0);
}

bool ReadUnexpectedColumns(Database& database, const Input&)
{
    Heading("Reading columns that do not fit the class");
    QueryResult result;
    bool held = RunQuery(database,
                         "SELECT name AS country, '12 parts' AS parts, 'short' AS mean_name, flag FROM Country"
                         " WHERE alpha_2 = 'NO'",
                         result);
    std::vector<CountryReport> countries;
    std::vector<std::string> unknown;
    held = vexa::ObjectsFromTable(countries, result.table, &unknown) && countries.size() == 1 && held;
    if (!held) return Check("read", false);
    std::cout << "The row: " << result.table.AsString() << "The object:" << vexa::AsString(countries[0]) << '\n';
    for (const std::string& name : unknown)
        std::cout << "Without an attribute: " << name << '\n';
    return Check("a text gives its leading number, and a column without an attribute is named",
                 countries[0].parts == 12 && countries[0].mean_name == 0.0 && !countries[0].official_name &&
                     unknown == std::vector<std::string>{"flag"});
}

} // namespace sqlite_report
