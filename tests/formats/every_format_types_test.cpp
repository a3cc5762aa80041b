// The table of types_table_holders.h is what every format writes and reads, and what docs/types.md shows.

#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "formats/types_table_holders.h"
#include "support/time_zone.h"

namespace {

using namespace vexa_test::types_table;

/// A cell of Markdown; several lines and blanks at the start are kept.
std::string Cell(const std::string& text)
{
    if (text.empty()) return "*nothing*";
    if (text == LEFT_OUT) return "*left out*";
    std::string cell = "`";
    for (const char byte : text) {
        if (byte == '|') cell += '\\';
        cell += byte == '\n' ? std::string("`<br>`") : std::string(1, byte);
    }
    return cell + '`';
}

std::string Page()
{
    std::string page;
    for (const CGroup& group : Groups()) {
        page += "\n## " + group.Heading + "\n\n| Type | JSON | `ToJson` | YAML | CBOR |\n|---|---|---|---|---|\n";
        for (const CRow& row : group.Rows)
            page += "| " + Cell(row.Type) + " | " + Cell(row.Expected.Json) + " | " + Cell(row.Expected.Dialect) +
                    " | " + Cell(row.Expected.Yaml) + " | " + Cell(row.Expected.Cbor) + " |\n";
    }
    return page;
}

TEST(TypesPage, EveryTypeHasItsForms)
{
    const vexa_test::TimeZone zone("UTC");
    for (const CGroup& group : Groups()) {
        for (const CRow& row : group.Rows) {
            SCOPED_TRACE(row.Type);
            const CForms forms = row.Write();
            EXPECT_EQ(row.Expected.Json, forms.Json);
            EXPECT_EQ(row.Expected.Dialect, forms.Dialect);
            EXPECT_EQ(row.Expected.Yaml, forms.Yaml);
            EXPECT_EQ(row.Expected.Cbor, forms.Cbor);
            const std::string json = "{\"value\":" + row.Expected.Json + "}";
            if (!row.Rewrite) continue;
            EXPECT_EQ((std::vector<std::string>{"", json, json, json}), row.Rewrite());
        }
    }
}

TEST(TypesPage, ShowsTheTable)
{
    std::ifstream file(ORDANA_TEST_DATA_DIR "/../../docs/types.md");
    std::stringstream page;
    page << file.rdbuf();
    const std::string text = page.str();
    const std::size_t table = text.find("\n## ");
    ASSERT_NE(std::string::npos, table) << "docs/types.md has no table";
    EXPECT_TRUE(Page() == text.substr(table)) << "From its first heading on, docs/types.md should be:\n" << Page();
}

} // namespace
