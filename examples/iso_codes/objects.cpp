#include <iostream>

#include "steps.h"

namespace iso_codes {
namespace {

/// Puts the text for Norway together. Leaves out what the files do not have.
Locale NorwegianLocale(const Catalog& catalog)
{
    Locale locale;
    const auto take = [](auto& target, const auto* record) {
        if (record != nullptr) target = *record;
    };
    take(locale.language, FindRecord(catalog.languages.records, "alpha_3", "nob"));
    take(locale.script, FindRecord(catalog.scripts.records, "alpha_4", "Latn"));
    take(locale.country, FindRecord(catalog.countries.records, "alpha_2", "NO"));
    take(locale.currency, FindRecord(catalog.currencies.records, "alpha_3", "NOK"));
    return locale;
}

bool ShowAttribute(const char* how, bool isFound, const vexa::CConstRefrence& attribute)
{
    const std::string text = isFound ? attribute.AsStdBasicType().As_std_string() : "not found";
    std::cout << how << text << '\n';
    return isFound && text == "Norway";
}

} // namespace

bool FindOneRecord(Catalog& catalog)
{
    Heading("Finding the country whose alpha_2 is NO");
    const Country* const country = FindRecord(catalog.countries.records, "alpha_2", "NO");
    if (country != nullptr) std::cout << country->name << ", " << country->official_name.value_or("") << '\n';
    return Check("found", country != nullptr);
}

bool ShowOneAttribute(Catalog& catalog)
{
    Heading("Showing one attribute by name, by flat path and by ID");
    const Locale locale = NorwegianLocale(catalog);
    const vexa::CConstRefrence whole = vexa::RefOf(locale);
    const vexa::CConstRefrence country = vexa::RefOf(locale.country);

    vexa::CConstRefrence name;
    bool held =
        ShowAttribute("name \"name\" of the country:      ", country.AsClass().FindAttribByName(name, "name"), name);
    vexa::CConstRefrence path;
    held &= ShowAttribute(
        "path \"country.name\" of a locale: ", whole.AsClass().FindAttribByFlatName(path, "country.name"), path);
    vexa::CConstRefrence id;
    held &= ShowAttribute("ID 3 of the country:             ", country.AsClass().FindAttribByID(id, COUNTRY_NAME), id);
    return Check("all three are the same attribute",
                 held && name.Address == path.Address && name.Address == id.Address);
}

bool RenderOneRecord(Catalog& catalog)
{
    Heading("Rendering it in the three formats");
    const Locale locale = NorwegianLocale(catalog);
    // An object's text begins with a line break, so that it can stand after a label.
    std::cout << "[values]" << vexa::AsString(locale.country) << '\n';
    std::cout << "[types and values] " << vexa::AsString(locale.country, vexa::Enum::ASF_TYPE_AND_VALUE) << '\n';
    const std::string type = vexa::AsString(locale.country, vexa::Enum::ASF_TYPE_ONLY);
    std::cout << "[type] " << type << '\n';
    std::cout << "[an object of objects]" << vexa::AsString(locale) << '\n';
    return Check("the type alone names the class", type == "Country: ");
}

bool ChangeOneValue(Catalog& catalog)
{
    Heading("Changing a value by name");
    Country* const country = FindRecord(catalog.countries.records, "alpha_2", "NO");
    vexa::CRefrence value;
    if (country == nullptr || !vexa::RefOf(*country).AsClass().FindAttribByName(value, "common_name")) {
        return Check("found", false);
    }
    std::cout << "before: " << value.AsString() << '\n';
    value.AsStdBasicType().ReadFrom("Norge");
    std::cout << "after:  " << value.AsString() << '\n';

    std::string json;
    const int code = vexa::ToJson(json, *country);
    std::cout << "JSON:   " << json << '\n';
    return Check("the member itself has changed", code == 0 && country->common_name == std::string("Norge"));
}

} // namespace iso_codes
