// vexa::CSqlView: random queries over random objects give the rows that plain tables with the same values give.

#include <cstdlib>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "formats/sqlite_random.h"

namespace {

/// ORDANA_RANDOM_QUERIES sets how many tables are asked, ORDANA_RANDOM_SEED where they begin.
unsigned long Wished(const char* name, unsigned long otherwise)
{
    const char* const wished = std::getenv(name);
    return wished != nullptr ? std::strtoul(wished, nullptr, 10) : otherwise;
}

TEST(SqlRandom, QueriesGiveTheRowsOfPlainTables)
{
    constexpr int QUERIES = 40;
    const unsigned long first = Wished("ORDANA_RANDOM_SEED", 1);
    const unsigned long count = Wished("ORDANA_RANDOM_QUERIES", 25);
    for (unsigned long seed = first; seed < first + count; ++seed) {
        std::mt19937_64 engine(seed);
        vexa_test::CComparison comparison(
            [&engine](std::size_t end) { return static_cast<std::size_t>(engine() % end); });
        for (int i = 0; i < QUERIES; ++i)
            ASSERT_EQ(comparison.Differ(), "") << "seed " << seed << ", query " << i;
    }
}

} // namespace
