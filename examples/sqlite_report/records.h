#ifndef VEXA_EXAMPLE_RECORDS_H
#define VEXA_EXAMPLE_RECORDS_H

#include <string>

#include <vexa/vexa.h>

/// \file
/// What this program adds to the records of the package iso-codes: one class that is stored, and two that queries are
/// read into. A query and its class meet by the names of columns and attributes.

namespace sqlite_report {

/// One file, as it was read. Has an attribute for each kind of column.
struct LoadedFile {
    std::string file;
    vexa::CDateTime modified; ///< to the second
    unsigned long bytes = 0;
    int records = 0;
    vexa::MayNull<double> mean_record; ///< bytes; null for a file without records
    vexa::CNumeric share;              ///< of the bytes of all files, in percent, cut after one decimal
    bool is_large = false;             ///< half a megabyte or more
    vexa::CBinary checksum;            ///< 8 bytes: FNV-1a
};
VEXA_DESCRIBE(LoadedFile, file, modified, bytes, records, mean_record, share, is_large, checksum)

/// A country and its parts.
struct CountryReport {
    std::string country;
    vexa::MayNull<std::string> official_name;
    long long parts = 0;
    vexa::MayNull<double> mean_name; ///< letters in the name of a part; null for a country without parts
};
VEXA_DESCRIBE(CountryReport, country, official_name, parts, mean_name)

/// A country that is no more. The date is a text in the database.
struct Withdrawal {
    std::string name;
    vexa::CDateTime withdrawn;
    vexa::MayNull<std::string> comment;
};
VEXA_DESCRIBE(Withdrawal, name, withdrawn, comment)

} // namespace sqlite_report

#endif
