// The public JSON parsing suite, where a directory of it is given: every file into raw text and into a tree.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include <vexa/json_tree.h>

#include "support/told_verdicts.h"

namespace {

namespace fs = std::filesystem;

std::string Contents(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Where the files lie: the directory itself or, as the suite is laid out, its test_parsing.
fs::path FilesOf(const char* suite)
{
    const fs::path inside = fs::path(suite) / "test_parsing";
    return fs::is_directory(inside) ? inside : fs::path(suite);
}

std::string VerdictOfRaw(const std::string& text)
{
    vexa::CRawJson raw;
    return raw.Set(text) ? "accepted" : "refused";
}

std::string VerdictOfTree(const std::string& text)
{
    vexa::CJsonTree tree;
    vexa::CReport report;
    const bool isGood = tree.Parse(text, report);
    EXPECT_EQ(isGood, report.IsEmpty());
    return isGood ? "accepted" : "refused";
}

TEST(JsonConformance, ThePageTellsAVerdictOnEveryFileThatLeavesTheChoice)
{
    const std::map<std::string, std::string> told = vexa_test::ToldVerdicts();
    EXPECT_EQ(told.size(), 35U);
    for (const auto& [name, verdict] : told)
        EXPECT_TRUE(verdict == "accepted" || verdict == "refused") << name << ": " << verdict;
}

TEST(JsonConformance, TheSuiteIsJudgedByItsNamesAndThePage)
{
    const char* const suite = std::getenv("ORDANA_JSON_SUITE");
    if (suite == nullptr) GTEST_SKIP() << "ORDANA_JSON_SUITE names no directory of the public JSON parsing suite";
    const std::map<std::string, std::string> told = vexa_test::ToldVerdicts();
    std::map<char, int> counts;
    for (const fs::directory_entry& entry : fs::directory_iterator(FilesOf(suite))) {
        const std::string name = entry.path().filename().string();
        if (entry.path().extension() != ".json") continue;
        ++counts[name[0]];
        const auto found = told.find(name);
        const std::string expected = name[0] == 'y'        ? "accepted"
                                     : name[0] == 'n'      ? "refused"
                                     : found != told.end() ? found->second
                                                           : "told by the page";
        const std::string text = Contents(entry.path());
        EXPECT_EQ(VerdictOfRaw(text), expected) << name;
        EXPECT_EQ(VerdictOfTree(text), expected) << name;
    }
    EXPECT_EQ(counts['y'], 95);
    EXPECT_EQ(counts['n'], 188);
    EXPECT_EQ(counts['i'], 35);
}

} // namespace
