#ifndef VEXA_TEXT_RECORD_TEXT_H
#define VEXA_TEXT_RECORD_TEXT_H

#include <string>

#include <vexa/data_type.h>

namespace vexa {

class CRow;
class CTable;

namespace text {

// The text of records, which stand on a higher floor and define it there.

void AppendRow(std::string& out, const CRow& row, Enum::AsStringFormatEnum format);

/// \param indent the blanks before each row, whose line breaks are left out when \p breaksLine is false.
void AppendTable(std::string& out, const CTable& table, Enum::AsStringFormatEnum format, unsigned long indent,
                 bool breaksLine);

} // namespace text
} // namespace vexa

#endif
