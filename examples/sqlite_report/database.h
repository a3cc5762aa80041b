#ifndef VEXA_EXAMPLE_DATABASE_H
#define VEXA_EXAMPLE_DATABASE_H

#include <filesystem>
#include <memory>
#include <string>

#include <sqlite3.h>

/// \file
/// An SQLite database and its statements, released by whoever leaves their scope. Nothing throws for a failure of the
/// database: the call returns false or nothing, and Error() tells what happened.

namespace sqlite_report {

struct CloseDatabase {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

/// A compiled statement; null when it could not be compiled.
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

class Database {
public:
    /// Opens a file, or makes it; see IsOpen().
    explicit Database(const std::filesystem::path& file);

    bool IsOpen() const { return m_isOpen; }
    /// What the database said when a call failed last.
    const std::string& Error() const { return m_error; }
    /// Whether a call of SQLite went well. Keeps the message when it did not, before the next call replaces it.
    bool IsGood(int code);
    Statement Prepare(const std::string& sql);
    /// Runs a statement that gives no rows.
    bool Execute(const std::string& sql);

private:
    std::unique_ptr<sqlite3, CloseDatabase> m_handle;
    std::string m_error;
    bool m_isOpen = false;
};

/// Everything that is executed while it lives, or nothing: what has not been committed is rolled back.
class Transaction {
public:
    explicit Transaction(Database& database) : m_database(database), m_isRunning(database.Execute("BEGIN")) {}
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    bool IsRunning() const { return m_isRunning; }
    bool Commit();

private:
    Database& m_database;
    bool m_isRunning;
};

/// A directory of its own below the system's temporary one, for the database and the files that SQLite puts beside it;
/// goes with all that it holds. Throws std::runtime_error when it cannot be made.
class DatabaseDirectory {
public:
    DatabaseDirectory();
    ~DatabaseDirectory();
    DatabaseDirectory(const DatabaseDirectory&) = delete;
    DatabaseDirectory& operator=(const DatabaseDirectory&) = delete;

    std::filesystem::path File() const { return m_path / "report.db"; }

private:
    std::filesystem::path m_path;
};

} // namespace sqlite_report

#endif
