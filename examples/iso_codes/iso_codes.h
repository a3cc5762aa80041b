#ifndef VEXA_EXAMPLE_ISO_CODES_H
#define VEXA_EXAMPLE_ISO_CODES_H

#include <string>
#include <vector>

#include <vexa/vexa.h>

/// \file
/// The records of Debian's package iso-codes: what an application writes once for its own types, and all that it
/// writes.
///
/// Members have the names of the keys in the files. What some records lack is a vexa::MayNull. The first attribute of
/// every class is one that no record lacks: the JSON writer leaves null attributes out and decides about the comma by
/// an attribute's place, so that an object whose first attribute is null would begin `{,`.

namespace iso_codes {

/// ISO 15924: a script, such as Latin.
struct Script {
    std::string alpha_4;
    std::string name;
    std::string numeric;
};
VEXA_DESCRIBE(Script, alpha_4, name, numeric)

/// ISO 3166-1: a country.
struct Country {
    std::string alpha_2;
    std::string alpha_3;
    vexa::MayNull<std::string> common_name;
    std::string flag;
    std::string name;
    std::string numeric;
    vexa::MayNull<std::string> official_name;
};

/// What the attributes of a country are found by where a number is at hand and no name.
enum CountryAttrib : short { COUNTRY_ALPHA_2 = 1, COUNTRY_ALPHA_3 = 2, COUNTRY_NAME = 3 };

VEXA_DESCRIBE_CLASS(Country)
{
    about.Attrib("alpha_2", &Country::alpha_2).ID(COUNTRY_ALPHA_2);
    about.Attrib("alpha_3", &Country::alpha_3).ID(COUNTRY_ALPHA_3);
    about.Attrib("common_name", &Country::common_name);
    about.Attrib("flag", &Country::flag);
    about.Attrib("name", &Country::name).ID(COUNTRY_NAME);
    about.Attrib("numeric", &Country::numeric);
    about.Attrib("official_name", &Country::official_name);
}

/// ISO 3166-2: a part of a country.
struct Subdivision {
    std::string code;
    std::string name;
    vexa::MayNull<std::string> parent;
    std::string type;
};
VEXA_DESCRIBE(Subdivision, code, name, parent, type)

/// ISO 3166-3: a country that is no more.
struct FormerCountry {
    std::string alpha_2;
    std::string alpha_3;
    std::string alpha_4;
    vexa::MayNull<std::string> comment;
    std::string name;
    vexa::MayNull<std::string> numeric;
    std::string withdrawal_date;
};
VEXA_DESCRIBE(FormerCountry, alpha_2, alpha_3, alpha_4, comment, name, numeric, withdrawal_date)

/// ISO 4217: a currency.
struct Currency {
    std::string alpha_3;
    std::string name;
    std::string numeric;
};
VEXA_DESCRIBE(Currency, alpha_3, name, numeric)

/// ISO 639-5: a family of languages. What all languages have is this much, too.
struct LanguageFamily {
    std::string alpha_3;
    std::string name;
};
VEXA_DESCRIBE(LanguageFamily, alpha_3, name)

/// ISO 639-2: a language.
struct Language : LanguageFamily {
    vexa::MayNull<std::string> alpha_2;
    vexa::MayNull<std::string> common_name;
    vexa::MayNull<std::string> bibliographic;
};

VEXA_DESCRIBE_CLASS(Language)
{
    about.Base<LanguageFamily>();
    about.Attrib("alpha_2", &Language::alpha_2);
    about.Attrib("common_name", &Language::common_name);
    about.Attrib("bibliographic", &Language::bibliographic);
}

/// ISO 639-3: a language in the list that means to be complete.
struct DetailedLanguage : Language {
    std::string scope;
    std::string type;
    vexa::MayNull<std::string> inverted_name;
};

VEXA_DESCRIBE_CLASS(DetailedLanguage)
{
    about.Base<Language>();
    about.Attrib("scope", &DetailedLanguage::scope);
    about.Attrib("type", &DetailedLanguage::type);
    about.Attrib("inverted_name", &DetailedLanguage::inverted_name);
}

/// A whole file: one object with one key, the number of the standard.
template<class Record>
struct IsoFile {
    std::vector<Record> records;
};

VEXA_DESCRIBE_CLASS(IsoFile<Script>) { about.Attrib("15924", &IsoFile<Script>::records); }
VEXA_DESCRIBE_CLASS(IsoFile<Country>) { about.Attrib("3166-1", &IsoFile<Country>::records); }
VEXA_DESCRIBE_CLASS(IsoFile<Subdivision>) { about.Attrib("3166-2", &IsoFile<Subdivision>::records); }
VEXA_DESCRIBE_CLASS(IsoFile<FormerCountry>) { about.Attrib("3166-3", &IsoFile<FormerCountry>::records); }
VEXA_DESCRIBE_CLASS(IsoFile<Currency>) { about.Attrib("4217", &IsoFile<Currency>::records); }
VEXA_DESCRIBE_CLASS(IsoFile<Language>) { about.Attrib("639-2", &IsoFile<Language>::records); }
VEXA_DESCRIBE_CLASS(IsoFile<DetailedLanguage>) { about.Attrib("639-3", &IsoFile<DetailedLanguage>::records); }
VEXA_DESCRIBE_CLASS(IsoFile<LanguageFamily>) { about.Attrib("639-5", &IsoFile<LanguageFamily>::records); }

/// All eight files. Each attribute has the name of its file, so that a walk over the attributes is a walk over the
/// files.
struct Catalog {
    IsoFile<Script> scripts;
    IsoFile<Country> countries;
    IsoFile<Subdivision> subdivisions;
    IsoFile<FormerCountry> formerCountries;
    IsoFile<Currency> currencies;
    IsoFile<Language> languages;
    IsoFile<DetailedLanguage> detailedLanguages;
    IsoFile<LanguageFamily> languageFamilies;
};

VEXA_DESCRIBE_CLASS(Catalog)
{
    about.Attrib("iso_15924", &Catalog::scripts);
    about.Attrib("iso_3166-1", &Catalog::countries);
    about.Attrib("iso_3166-2", &Catalog::subdivisions);
    about.Attrib("iso_3166-3", &Catalog::formerCountries);
    about.Attrib("iso_4217", &Catalog::currencies);
    about.Attrib("iso_639-2", &Catalog::languages);
    about.Attrib("iso_639-3", &Catalog::detailedLanguages);
    about.Attrib("iso_639-5", &Catalog::languageFamilies);
}

/// What text is written for: an object made of other objects, to be reached by paths such as `country.name`.
struct Locale {
    Language language;
    Script script;
    Country country;
    Currency currency;
};
VEXA_DESCRIBE(Locale, language, script, country, currency)

} // namespace iso_codes

#endif
