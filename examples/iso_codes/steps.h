#ifndef VEXA_EXAMPLE_STEPS_H
#define VEXA_EXAMPLE_STEPS_H

#include "iso_codes.h"

/// \file
/// The steps of the demonstration. Each writes a heading and what it finds to standard output, and returns whether all
/// that it checked held.

namespace iso_codes {

/// The first record whose attribute has a text; null when there is none.
template<class Records>
auto FindRecord(Records& records, const std::string& attribute, const std::string& text) -> decltype(records.data())
{
    for (auto& record : records) {
        vexa::CConstRefrence found;
        if (vexa::RefOf(record).AsClass().FindAttribByName(found, attribute) &&
            found.AsStdBasicType().As_std_string() == text) {
            return &record;
        }
    }
    return nullptr;
}

void Heading(const char* text);

/// Writes what was checked, and how that went.
/// \return \p held.
bool Check(const char* what, bool held);

// One object at a time, in objects.cpp.
bool FindOneRecord(Catalog& catalog);
bool ShowOneAttribute(Catalog& catalog);
bool RenderOneRecord(Catalog& catalog);
bool ChangeOneValue(Catalog& catalog);

// Whole containers and files, in files.cpp.
bool CountRecords(Catalog& catalog);
bool WriteAndReadAgain(Catalog& catalog);
bool ListNames(Catalog& catalog);
bool ReadBrokenFile(Catalog& catalog);

} // namespace iso_codes

#endif
