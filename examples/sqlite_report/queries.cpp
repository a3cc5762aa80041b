#include <iostream>

#include "steps.h"
#include "table_query.h"

namespace sqlite_report {
namespace {

/// Type and name of each column, then the rows.
void Print(const vexa::CTable& table)
{
    const char* separator = "";
    for (const vexa::CColumn& column : table.Columns) {
        std::cout << separator << vexa::CGnlTypeInfor(column.DataType).TypeName() << ' ' << column.Name;
        separator = ", ";
    }
    std::cout << vexa::AsString(table) << '\n';
}

/// Runs a query and shows its rows.
bool RunAndPrint(Database& database, const std::string& sql, QueryResult& result)
{
    if (!RunQuery(database, sql, result)) return Failed("the query", database);
    for (const std::string& sentence : result.unexpected)
        std::cout << sentence << '\n';
    Print(result.table);
    return result.unexpected.empty();
}

template<class Record>
bool ReadObjects(std::vector<Record>& objects, const vexa::CTable& table)
{
    std::vector<std::string> unknown;
    return vexa::ObjectsFromTable(objects, table, &unknown) && unknown.empty() && objects.size() == table.Rows.size();
}

} // namespace

bool ReadFilesAgain(Database& database, const Input& input)
{
    Heading("Reading a table with columns of many types");
    QueryResult result;
    if (!RunAndPrint(database, "SELECT * FROM LoadedFile", result)) return Check("read", false);
    vexa::CTable stored;
    vexa::TableFromObjects(stored, input.files);
    return Check("it is the table that was stored, types and values", result.table == stored);
}

bool CountParts(Database& database, const Input&)
{
    Heading("Joining the countries with their parts");
    QueryResult result;
    const bool isRead = RunAndPrint(database,
                                    "SELECT c.name AS country, c.official_name, count(s.code) AS parts,"
                                    " avg(length(s.name)) AS mean_name"
                                    " FROM Country AS c LEFT JOIN Subdivision AS s ON substr(s.code, 1, 2) = c.alpha_2"
                                    " GROUP BY c.alpha_2 ORDER BY c.name LIMIT 8",
                                    result);
    std::vector<CountryReport> countries;
    if (!isRead || !ReadObjects(countries, result.table) || countries.empty()) return Check("read", false);
    std::cout << "The first row as an object:" << vexa::AsString(countries.front()) << '\n';
    vexa::CTable again;
    vexa::TableFromObjects(again, countries);
    return Check("table, objects, table: nothing has changed", again == result.table);
}

bool ReadDates(Database& database, const Input&)
{
    Heading("Reading texts into dates");
    QueryResult result;
    const bool isRead = RunAndPrint(database,
                                    "SELECT name, substr(withdrawal_date || '-01-01', 1, 10) || ' 00:00:00' AS"
                                    " withdrawn, comment FROM FormerCountry ORDER BY withdrawn, name LIMIT 5",
                                    result);
    std::vector<Withdrawal> countries;
    if (!isRead || !ReadObjects(countries, result.table) || countries.empty()) return Check("read", false);
    bool held = true;
    for (std::size_t i = 0; i < countries.size(); ++i) {
        const std::string text = result.table.Value(i, "withdrawn").As_std_string();
        held = countries[i].withdrawn.AsString() == text && held;
        std::cout << countries[i].withdrawn.AsString("%d.%m.%Y") << "  " << countries[i].name << '\n';
    }
    return Check("every date is that of its text", held);
}

} // namespace sqlite_report
