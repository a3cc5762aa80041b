// Puts the records of Debian's package iso-codes into an SQLite database and gets the rows of queries out of it,
// through the descriptions of the classes alone.
//
// Usage: sqlite_report_demo [directory of the files]
// Ends with 0 when every check held, 1 when one did not or a file could not be read, and 2 for a wrong usage. The
// database is a temporary file.

#include <exception>
#include <iostream>

#include "steps.h"

namespace sqlite_report {

void Heading(const char* text) { std::cout << "\n== " << text << '\n'; }

bool Check(const char* what, bool held)
{
    std::cout << (held ? "ok: " : "FAILED: ") << what << '\n';
    return held;
}

bool Failed(const char* what, const Database& database)
{
    std::cout << what << ": " << database.Error() << '\n';
    return false;
}

namespace {

using Step = bool (*)(Database&, const Input&);

constexpr Step STEPS[] = {StoreRecords,        ReadFilesAgain,      CountParts,           ReadDates,
                          RunBrokenStatements, ReadUnexpectedValue, ReadUnexpectedColumns};

bool Run(const std::filesystem::path& directory)
{
    Input input;
    if (!LoadFiles(input, directory)) return false;
    const DatabaseDirectory temporary;
    Database database(temporary.File());
    if (!database.IsOpen()) return Failed("the database", database);
    bool held = true;
    for (const Step step : STEPS)
        held = step(database, input) && held;
    return held;
}

} // namespace
} // namespace sqlite_report

int main(int argc, char** argv)
{
    if (argc > 2) {
        std::cerr << "Usage: " << argv[0] << " [directory of the files]\n";
        return 2;
    }
    try {
        return sqlite_report::Run(argc == 2 ? argv[1] : "/usr/share/iso-codes/json") ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
