#ifndef VEXA_EXAMPLE_COLUMN_TYPE_H
#define VEXA_EXAMPLE_COLUMN_TYPE_H

#include <string>

#include <vexa/data_type.h>

/// \file
/// Types of the library as SQLite column types, and back. SQLite keeps five kinds of value and lets a column declare
/// any type name; the name alone brings the type of an attribute back.

namespace sqlite_report {

/// How a column of a basic type is declared; it prefers values of the storage that the type has.
std::string DeclaredType(vexa::Enum::DataTypeEnum type);

/// The type that a declaration stands for; DT_UNKNOWN for another declaration and for none, a null pointer.
vexa::Enum::DataTypeEnum TypeOfDeclaration(const char* declaration);

/// The type for values of one of SQLite's storage codes (SQLITE_INTEGER and so on); DT_UNKNOWN for SQLITE_NULL.
vexa::Enum::DataTypeEnum TypeOfStorage(int storage);

/// The storage code that values of a basic type are stored with.
int StorageOf(vexa::Enum::DataTypeEnum type);

/// In words, for messages.
const char* StorageName(int storage);

} // namespace sqlite_report

#endif
