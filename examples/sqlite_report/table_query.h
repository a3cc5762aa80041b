#ifndef VEXA_EXAMPLE_TABLE_QUERY_H
#define VEXA_EXAMPLE_TABLE_QUERY_H

#include <string>
#include <vector>

#include <vexa/table.h>

#include "database.h"

/// \file
/// The rows of any query as a table.

namespace sqlite_report {

struct QueryResult {
    vexa::CTable table;
    /// One sentence for each value that was not of its column's type. It was converted where the library converts, else
    /// it is null.
    std::vector<std::string> unexpected;
};

/// Runs a query. A column has the type that the database declares for it; one that is calculated has the type of its
/// first value that is not null. \return false when the database refused, and its Error() tells; the rows before the
/// failure are in \p result.
bool RunQuery(Database& database, const std::string& sql, QueryResult& result);

} // namespace sqlite_report

#endif
