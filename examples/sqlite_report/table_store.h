#ifndef VEXA_EXAMPLE_TABLE_STORE_H
#define VEXA_EXAMPLE_TABLE_STORE_H

#include <string>

#include <vexa/container_refrence.h>

#include "database.h"

/// \file
/// Objects of any described class into a database, and the rows of any query out of it. Nothing here knows a class.

namespace sqlite_report {

/// The name of the class of a container's elements, which is the name of their table.
const std::string& TableNameOf(const vexa::CContainerConstRefrence& objects);

/// The statement that makes the table: one column for each flat attribute, NOT NULL where the attribute cannot be null.
std::string TableDefinition(const vexa::CContainerConstRefrence& objects);

/// Makes the table and puts one row for each object in.
/// \return false when the database refused; it is then as it was, and its Error() tells.
bool StoreObjects(Database& database, const vexa::CContainerConstRefrence& objects);

} // namespace sqlite_report

#endif
