#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "../../examples/iso_codes/iso_codes.h"
#include "iso_text.h"

namespace {

using namespace iso_codes;
using vexa_test::CompactIsoText;
using vexa_test::IsoEnd;
using vexa_test::IsoRecord;
using vexa_test::IsoRecordsOf;

/// What is wrong with one attribute, empty when it is as the text has it. What the text lacks is null, except in a
/// record that breaks off, where it may still have its empty first value.
std::string MismatchOf(const vexa::CAttribConstIterator& attrib, const IsoRecord& expected, bool isWhole)
{
    const auto found = expected.find(attrib.Name());
    const bool isNull = attrib.Value().IsNull();
    const std::string text = attrib.Value().AsStdBasicType().As_std_string();
    if (found != expected.end() ? !isNull && text == found->second : isNull || (!isWhole && text.empty())) return "";
    return attrib.Name() + " is " + (isNull ? "null" : '"' + text + '"');
}

/// The first difference between a container of records and those of a text; empty when there is none.
std::string MismatchOf(const vexa::CContainerConstRefrence& records, const std::vector<IsoRecord>& expected,
                       bool isWhole)
{
    if (records.Count() != expected.size()) return std::to_string(records.Count()) + " records";
    auto next = expected.begin();
    for (const vexa::CConstRefrence& record : records) {
        std::size_t filled = 0;
        for (const auto& attrib : record.AsClass().Attribs()) {
            const std::string mismatch = MismatchOf(attrib, *next, isWhole || next + 1 != expected.end());
            if (!mismatch.empty()) return "record " + std::to_string(next - expected.begin()) + ": " + mismatch;
            filled += next->count(attrib.Name());
        }
        if (filled != next->size()) return "record " + std::to_string(next - expected.begin()) + " lacks an attribute";
        ++next;
    }
    return "";
}

/// One run over the sample in the tree, one over the files of the package where it is installed.
class IsoCodes : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override
    {
        if (!std::filesystem::exists(GetParam())) GTEST_SKIP() << GetParam() << " is missing: install iso-codes";
    }
    static std::string TextOf(const std::string& name)
    {
        std::ifstream file(std::string(GetParam()) + '/' + name + ".json", std::ios::binary);
        std::string text{std::istreambuf_iterator<char>(file), {}};
        EXPECT_NE("", text) << name;
        EXPECT_EQ(std::string::npos, text.find('\\')) << name << ": the second opinion knows no escapes in a file";
        return text;
    }
    /// Calls action(name, reference) for every file of the catalog.
    template<class Action>
    void ForEachFile(Action action)
    {
        for (const auto& file : vexa::RefOf(m_catalog).AsClass().Attribs()) {
            SCOPED_TRACE(file.Name());
            action(file.Name(), vexa::CRefrence(file.Value().TypeInfor, file.Value().Address));
        }
    }
    void ReadCatalog()
    {
        ForEachFile(
            [](const std::string& name, vexa::CRefrence file) { EXPECT_EQ(0, vexa::FromJson(file, TextOf(name))); });
    }
    static vexa::CContainerConstRefrence RecordsIn(const vexa::CConstRefrence& file)
    {
        return file.AsClass().Attribs().begin().Value().AsContainer();
    }

    Catalog m_catalog;
};

INSTANTIATE_TEST_SUITE_P(Sample, IsoCodes, testing::Values(ORDANA_TEST_DATA_DIR "/iso_codes"));
INSTANTIATE_TEST_SUITE_P(Package, IsoCodes, testing::Values("/usr/share/iso-codes/json"));

TEST_P(IsoCodes, EveryValueOfEveryRecordIsRead)
{
    ReadCatalog();
    ForEachFile([](const std::string& name, const vexa::CRefrence& file) {
        EXPECT_EQ("", MismatchOf(RecordsIn(file), IsoRecordsOf(TextOf(name)), true));
    });
}

TEST_P(IsoCodes, WhatIsWrittenHoldsEveryValueOfEveryRecord)
{
    ReadCatalog();
    ForEachFile([](const std::string& name, const vexa::CRefrence& file) {
        std::string json;
        EXPECT_EQ(0, vexa::ToJson(json, file));
        EXPECT_TRUE(IsoRecordsOf(json) == IsoRecordsOf(TextOf(name)));
    });
}

TEST_P(IsoCodes, WhatIsWrittenIsTheFileWithoutBlanks)
{
    ReadCatalog();
    ForEachFile([](const std::string& name, const vexa::CRefrence& file) {
        if (name == "iso_639-2" || name == "iso_639-3") return; // base first: not the order of the file
        std::string json;
        EXPECT_EQ(0, vexa::ToJson(json, file));
        EXPECT_TRUE(json == CompactIsoText(TextOf(name)));
    });
}

TEST_P(IsoCodes, ReadingBackGivesAnEqualCatalog)
{
    ReadCatalog();
    std::string json;
    ASSERT_EQ(0, vexa::ToJson(json, m_catalog));
    Catalog again;
    ASSERT_EQ(0, vexa::FromJson(again, json));

    std::string jsonAgain;
    EXPECT_EQ(0, vexa::ToJson(jsonAgain, again));
    EXPECT_TRUE(json == jsonAgain);
    EXPECT_TRUE(vexa::AsString(m_catalog) == vexa::AsString(again));
    EXPECT_EQ("", MismatchOf(vexa::RefOf(again.detailedLanguages.records).AsContainer(),
                             IsoRecordsOf(TextOf("iso_639-3")), true));
}

TEST_P(IsoCodes, ReadingAgainReplacesWhatWasThere)
{
    ReadCatalog();
    ReadCatalog();
    EXPECT_EQ("", MismatchOf(vexa::RefOf(m_catalog.subdivisions.records).AsContainer(),
                             IsoRecordsOf(TextOf("iso_3166-2")), true));
}

TEST_P(IsoCodes, BreakingOffAnywhereNamesThePlaceAndKeepsWhatStandsBefore)
{
    const std::string text = TextOf("iso_3166-3");
    IsoFile<FormerCountry> file;
    IsoEnd end;
    for (std::size_t length = 0; length <= text.size(); ++length) {
        const std::string broken = text.substr(0, length);
        ASSERT_EQ(end.Code(), vexa::FromJson(file, broken)) << "after " << length << " bytes";
        ASSERT_EQ("", MismatchOf(vexa::RefOf(file.records).AsContainer(), IsoRecordsOf(broken), false))
            << "after " << length << " bytes";
        if (length < text.size()) end.Take(text[length]);
    }
    EXPECT_EQ(0, end.Code());
}

TEST_P(IsoCodes, BreakingOffALargeFileKeepsWhatStandsBefore)
{
    const std::string text = TextOf("iso_639-3");
    const std::size_t step = text.size() / 7;
    IsoEnd end;
    for (std::size_t length = 0; length < text.size(); ++length) {
        if (length % step == 0) {
            const std::string broken = text.substr(0, length);
            IsoFile<DetailedLanguage> file;
            EXPECT_EQ(end.Code(), vexa::FromJson(file, broken)) << "after " << length << " bytes";
            EXPECT_EQ("", MismatchOf(vexa::RefOf(file.records).AsContainer(), IsoRecordsOf(broken), false))
                << "after " << length << " bytes";
        }
        end.Take(text[length]);
    }
}

TEST_P(IsoCodes, AnUnknownKeyEndsTheReadingThere)
{
    std::string text = TextOf("iso_4217");
    const std::size_t place = text.rfind("numeric");
    text.replace(place, 7, "numerix");
    IsoFile<Currency> file;
    EXPECT_EQ(722, vexa::FromJson(file, text));
    EXPECT_EQ("", MismatchOf(vexa::RefOf(file.records).AsContainer(), IsoRecordsOf(text.substr(0, place)), false));
}

TEST_P(IsoCodes, NamesAreListedInTheOrderOfTheFile)
{
    ReadCatalog();
    std::string expected;
    for (const IsoRecord& record : IsoRecordsOf(TextOf("iso_3166-1")))
        expected += ';' + ('\'' + record.at("name") + '\'');
    const vexa::CFlatAttribInfor* const name = vexa::ClassInforOf<Country>().FindAttribInforByFlatName("name");
    ASSERT_NE(nullptr, name);
    std::string list;
    vexa::RefOf(m_catalog.countries.records).AsContainer().GetListString(list, *name, ';', '\'');
    EXPECT_EQ(expected.substr(1), list);
}

TEST(IsoCodesClasses, ALanguageIsWrittenBaseFirstWithoutWhatItLacks)
{
    const std::string text = R"({"639-2":[{"alpha_2":"bo","alpha_3":"bod","bibliographic":"tib","name":"Tibetan"},)"
                             R"({"alpha_3":"tlh","name":"Klingon/tlhIngan"}]})";
    IsoFile<Language> file;
    ASSERT_EQ(0, vexa::FromJson(file, text));
    std::string json;
    ASSERT_EQ(0, vexa::ToJson(json, file));
    EXPECT_EQ(R"({"639-2":[{"alpha_3":"bod","name":"Tibetan","alpha_2":"bo","bibliographic":"tib"},)"
              R"({"alpha_3":"tlh","name":"Klingon\/tlhIngan"}]})",
              json);
}

TEST(IsoCodesClasses, ALocaleIsReachedByPath)
{
    Locale locale;
    locale.language.name = "Tibetan";
    locale.country.official_name = "People's Republic of China";
    const vexa::CConstRefrence whole = vexa::RefOf(locale);
    vexa::CConstRefrence found;
    ASSERT_TRUE(whole.AsClass().FindAttribByFlatName(found, "country.official_name"));
    EXPECT_EQ(&locale.country.official_name, found.Address);
    EXPECT_EQ("People's Republic of China", found.AsString());
    ASSERT_TRUE(whole.AsClass().FindAttribByFlatName(found, "language.name"));
    EXPECT_EQ(&locale.language.name, found.Address);
    EXPECT_FALSE(whole.AsClass().FindAttribByFlatName(found, "country.capital"));
    EXPECT_EQ(&locale.language.name, found.Address);
}

} // namespace
