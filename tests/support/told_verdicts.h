#ifndef VEXA_TESTS_SUPPORT_TOLD_VERDICTS_H
#define VEXA_TESTS_SUPPORT_TOLD_VERDICTS_H

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace vexa_test {

/// The verdicts that the page on conformance tells, by file: its lines "| `name` | verdict |".
inline std::map<std::string, std::string> ToldVerdicts()
{
    std::map<std::string, std::string> verdicts;
    std::ifstream page(std::filesystem::path(ORDANA_TEST_DATA_DIR) / "../../docs/json-conformance.md");
    for (std::string line; std::getline(page, line);) {
        if (line.compare(0, 5, "| `i_") != 0) continue;
        const std::size_t end = line.find('`', 3);
        const std::size_t verdict = line.find("| ", end) + 2;
        verdicts[line.substr(3, end - 3)] = line.substr(verdict, line.find(" |", verdict) - verdict);
    }
    return verdicts;
}

} // namespace vexa_test

#endif
