#ifndef VEXA_EXAMPLE_REPORT_STEPS_H
#define VEXA_EXAMPLE_REPORT_STEPS_H

#include <filesystem>
#include <vector>

#include "../iso_codes/iso_codes.h"

#include "database.h"
#include "records.h"

/// \file
/// The steps of the demonstration. Each writes a heading and what it finds to standard output, and returns whether all
/// that it checked held.

namespace sqlite_report {

/// What was read from the files.
struct Input {
    iso_codes::Catalog catalog;
    std::vector<LoadedFile> files;
};

void Heading(const char* text);

/// Writes what was checked, and how that went.
/// \return \p held.
bool Check(const char* what, bool held);

/// Writes what the database has to say about its last failure.
/// \return false.
bool Failed(const char* what, const Database& database);

// Into the database, in loading.cpp.
bool LoadFiles(Input& input, const std::filesystem::path& directory);
bool StoreRecords(Database& database, const Input& input);

// Out of it, in queries.cpp.
bool ReadFilesAgain(Database& database, const Input& input);
bool CountParts(Database& database, const Input& input);
bool ReadDates(Database& database, const Input& input);

// What does not go well, in failures.cpp.
bool RunBrokenStatements(Database& database, const Input& input);
bool ReadUnexpectedValue(Database& database, const Input& input);
bool ReadUnexpectedColumns(Database& database, const Input& input);

} // namespace sqlite_report

#endif
