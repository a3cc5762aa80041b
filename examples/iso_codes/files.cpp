#include <algorithm>
#include <iomanip>
#include <iostream>

#include "catalog_files.h"
#include "steps.h"

namespace iso_codes {
namespace {

/// The same in text, types included, and in JSON.
bool AreEqual(const vexa::CConstRefrence& left, const vexa::CConstRefrence& right)
{
    std::string leftJson;
    std::string rightJson;
    return vexa::ToJson(leftJson, left) == 0 && vexa::ToJson(rightJson, right) == 0 && leftJson == rightJson &&
           vexa::AsString(left, vexa::Enum::ASF_TYPE_AND_VALUE) ==
               vexa::AsString(right, vexa::Enum::ASF_TYPE_AND_VALUE);
}

/// Whether what was kept of a broken file is what stands before the break: whole records, then one that may be
/// incomplete.
bool IsKeptWell(const IsoFile<Country>& kept, const IsoFile<Country>& all)
{
    if (kept.records.empty() || kept.records.size() >= all.records.size()) return false;
    for (std::size_t i = 0; i + 1 < kept.records.size(); ++i) {
        if (!AreEqual(vexa::RefOf(kept.records[i]), vexa::RefOf(all.records[i]))) return false;
    }
    return true;
}

bool HasEveryName(const std::string& list, const IsoFile<FormerCountry>& countries)
{
    return std::all_of(countries.records.begin(), countries.records.end(), [&list](const FormerCountry& country) {
        return list.find('"' + country.name + '"') != std::string::npos;
    });
}

} // namespace

bool CountRecords(Catalog& catalog)
{
    Heading("Counting the records of each file");
    unsigned long total = 0;
    bool isEachFilled = true;
    for (const auto& file : vexa::RefOf(catalog).AsClass().Attribs()) {
        const unsigned long count = RecordsOf(file.Value()).Count();
        std::cout << std::left << std::setw(12) << file.Name() << std::right << std::setw(6) << count << '\n';
        total += count;
        isEachFilled = isEachFilled && count > 0;
    }
    std::cout << std::left << std::setw(12) << "together" << std::right << std::setw(6) << total << '\n';
    return Check("no file is empty", isEachFilled);
}

bool WriteAndReadAgain(Catalog& catalog)
{
    Heading("Writing everything back and reading it again");
    const TemporaryDirectory directory;
    Catalog again;
    if (!WriteCatalog(catalog, directory.Path()) || !ReadCatalog(again, directory.Path())) {
        return Check("written and read", false);
    }
    return Check("both are equal", AreEqual(vexa::RefOf(catalog), vexa::RefOf(again)));
}

bool ListNames(Catalog& catalog)
{
    Heading("Listing the names of the countries that are no more");
    const vexa::CFlatAttribInfor* const name = vexa::ClassInforOf<FormerCountry>().FindAttribInforByFlatName("name");
    if (name == nullptr) return Check("there is a name", false);
    std::string list;
    vexa::RefOf(catalog.formerCountries.records).AsContainer().GetListString(list, *name, ',', '"');
    std::cout << list << '\n';
    return Check("every name is in the list", HasEveryName(list, catalog.formerCountries));
}

bool ReadBrokenFile(Catalog& catalog)
{
    Heading("Reading a broken file");
    const TemporaryDirectory directory;
    const auto path = directory.Path() / "broken.json";
    std::string text;
    vexa::ToJson(text, catalog.countries);
    const std::size_t end = text.find("Norway");
    if (end == std::string::npos || !WriteText(path, text.substr(0, end + 4)) || !ReadText(path, text)) {
        return Check("broken off inside the name Norway", false);
    }

    IsoFile<Country> kept;
    const int code = vexa::FromJson(kept, text);
    std::cout << "result " << code << ": " << vexa::JsonResultText(code) << '\n'
              << "kept " << kept.records.size() << " of " << catalog.countries.records.size()
              << " records, the last one:";
    if (!kept.records.empty()) std::cout << vexa::AsString(kept.records.back());
    std::cout << '\n';
    return Check("what stands before the break was kept", code != 0 && IsKeptWell(kept, catalog.countries));
}

} // namespace iso_codes
