// Reads the eight files of Debian's package iso-codes through their description alone, and shows what can be done with
// any described object.
//
// Usage: iso_codes_demo [directory of the files]
// Ends with 0 when every check held, 1 when one did not or a file could not be read, and 2 for a wrong usage.

#include <exception>
#include <iostream>

#include "catalog_files.h"
#include "steps.h"

namespace iso_codes {

void Heading(const char* text) { std::cout << "\n== " << text << '\n'; }

bool Check(const char* what, bool held)
{
    std::cout << (held ? "ok: " : "FAILED: ") << what << '\n';
    return held;
}

namespace {

using Step = bool (*)(Catalog&);

/// In this order: what is changed is what is written back.
constexpr Step STEPS[] = {CountRecords,   FindOneRecord,     ShowOneAttribute, RenderOneRecord,
                          ChangeOneValue, WriteAndReadAgain, ListNames,        ReadBrokenFile};

bool Run(const std::filesystem::path& directory)
{
    Catalog catalog;
    if (!ReadCatalog(catalog, directory)) return false;
    bool held = true;
    for (const Step step : STEPS)
        held = step(catalog) && held;
    return held;
}

} // namespace
} // namespace iso_codes

int main(int argc, char** argv)
{
    if (argc > 2) {
        std::cerr << "Usage: " << argv[0] << " [directory of the files]\n";
        return 2;
    }
    try {
        return iso_codes::Run(argc == 2 ? argv[1] : "/usr/share/iso-codes/json") ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
