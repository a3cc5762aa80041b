// Asks SQL of what a running program has in its memory: a join of two vectors, and the languages of Debian's package
// iso-codes by kind.
//
// Usage: live_sql_demo [directory of the files of iso-codes]
// Ends with 0 when all went well, 1 when a file or a statement failed, and 2 for a wrong usage.

#include <chrono>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <sqlite3.h>

#include <vexa/sqlite.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

namespace live_sql {

enum class State { idle, busy };
VEXA_DESCRIBE_ENUM(State, idle, busy)

struct Worker {
    int id = 0;
    std::string host;
    State state = State::idle;
};
VEXA_DESCRIBE(Worker, id, host, state)

struct Job {
    int worker = 0;
    std::string name;
    std::chrono::milliseconds took{0};
    std::vector<std::string> tags;
};
VEXA_DESCRIBE(Job, worker, name, took, tags)

struct Language {
    std::string alpha_3;
    std::string name;
    std::string scope; ///< I: individual, M: macrolanguage, S: special
    std::string type;  ///< L: living, E: extinct, A: ancient, H: historical, C: constructed, S: special
    std::optional<std::string> alpha_2;
};
VEXA_DESCRIBE_CLASS(Language)
{
    about.UnknownKeys(vexa::UnknownKeys::SKIP);
    VEXA_MEMBERS(Language, alpha_3, name, scope, type, alpha_2)
}

struct Languages {
    std::vector<Language> records;
};
VEXA_DESCRIBE_CLASS(Languages) { about.Attrib("records", &Languages::records).Key("639-3"); }

Languages ReadLanguages(const std::string& directory)
{
    const std::string path = directory + "/iso_639-3.json";
    std::ifstream file(path, std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    if (text.empty()) throw std::runtime_error("Cannot read " + path + ": install Debian's package iso-codes");
    Languages languages;
    vexa::CReport report;
    report.SetName(path);
    if (!vexa::ReadJson(languages, text, report)) throw std::runtime_error(report.AsString(text));
    return languages;
}

using Database = std::unique_ptr<sqlite3, int (*)(sqlite3*)>;

Database Open()
{
    sqlite3* database = nullptr;
    sqlite3_open(":memory:", &database);
    return {database, &sqlite3_close};
}

/// Writes the rows of a statement, and the error where it ends with one.
void Show(const Database& database, const char* sql)
{
    const auto print = [](void*, int count, char** values, char**) {
        for (int i = 0; i < count; ++i)
            std::cout << (i == 0 ? "" : " | ") << (values[i] != nullptr ? values[i] : "NULL");
        std::cout << '\n';
        return 0;
    };
    std::cout << "\n> " << sql << '\n';
    if (sqlite3_exec(database.get(), sql, print, nullptr, nullptr) != SQLITE_OK)
        std::cout << "error: " << sqlite3_errmsg(database.get()) << '\n';
}

void Run(const std::string& directory)
{
    std::vector<Worker> workers{{1, "ada", State::busy}, {2, "bob", State::idle}, {3, "cy", State::busy}};
    std::vector<Job> jobs{{1, "index", std::chrono::milliseconds(40), {"night"}},
                          {3, "report", std::chrono::milliseconds(25), {"night", "mail"}},
                          {1, "backup", std::chrono::milliseconds(80), {}}};
    const Languages languages = ReadLanguages(directory);
    const Database database = Open();
    vexa::CSqlView view(database.get());
    if (!view.Add("workers", workers) || !view.Add("jobs", jobs) || !view.Add("languages", languages.records))
        throw std::runtime_error(view.Error());
    view.Index("languages", "alpha_3");

    const char* const busy = "SELECT host, count(name), total(took) FROM workers LEFT JOIN jobs ON worker = id "
                             "WHERE state = 'busy' GROUP BY host";
    Show(database, busy);
    jobs.push_back({2, "deploy", std::chrono::milliseconds(5), {"mail"}});
    workers[1].state = State::busy;
    Show(database, busy);
    Show(database, "SELECT tag.value, group_concat(name) FROM jobs, json_each(tags) AS tag GROUP BY 1 ORDER BY 1");

    Show(database, "SELECT type, scope, count(*), count(alpha_2) FROM languages GROUP BY 1, 2 ORDER BY 3 DESC, 1, 2");
    Show(database, "SELECT count(*) FROM languages");
    Show(database, "SELECT name FROM languages WHERE alpha_3 IN ('nob', 'nno', 'eng') ORDER BY name");
    std::cout << "the index was built " << view.Indexes("languages").front().Builds << " time\n";

    Show(database, "SELECT nmae FROM languages");
    Show(database, "DELETE FROM jobs");
}

} // namespace live_sql

int main(int argc, char** argv)
{
    if (argc > 2) {
        std::cerr << "Usage: " << argv[0] << " [directory of the files of iso-codes]\n";
        return 2;
    }
    try {
        live_sql::Run(argc == 2 ? argv[1] : "/usr/share/iso-codes/json");
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
