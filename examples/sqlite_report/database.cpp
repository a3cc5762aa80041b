#include "database.h"

#include <cstdlib>
#include <stdexcept>
#include <system_error>

namespace sqlite_report {

Database::Database(const std::filesystem::path& file)
{
    sqlite3* handle = nullptr;
    const int code = sqlite3_open(file.c_str(), &handle);
    m_handle.reset(handle); // a database that did not open has a handle too, which holds the message
    m_isOpen = IsGood(code);
}

bool Database::IsGood(int code)
{
    const bool isGood = code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE;
    if (!isGood) m_error = sqlite3_errmsg(m_handle.get());
    return isGood;
}

Statement Database::Prepare(const std::string& sql)
{
    sqlite3_stmt* statement = nullptr;
    IsGood(sqlite3_prepare_v2(m_handle.get(), sql.c_str(), -1, &statement, nullptr));
    return Statement(statement);
}

bool Database::Execute(const std::string& sql)
{
    const Statement statement = Prepare(sql);
    return statement != nullptr && IsGood(sqlite3_step(statement.get()));
}

Transaction::~Transaction()
{
    if (m_isRunning) m_database.Execute("ROLLBACK");
}

bool Transaction::Commit()
{
    // A commit that fails leaves the transaction open, to be rolled back.
    if (m_isRunning && m_database.Execute("COMMIT")) {
        m_isRunning = false;
        return true;
    }
    return false;
}

DatabaseDirectory::DatabaseDirectory()
{
    std::string name = (std::filesystem::temp_directory_path() / "sqlite_report_XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("Cannot make the directory " + name);
    m_path = name;
}

DatabaseDirectory::~DatabaseDirectory()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

} // namespace sqlite_report
